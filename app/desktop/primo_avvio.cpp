#include "desktop/primo_avvio.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include "desktop/testo_qt.h"
#include "guscio/albero.h"

namespace tk07::desktop {

bool TrovaAlberoOChiedi(Avvio& avvio) {
    if (TrovaAlbero(avvio) != Origine::partenza) return true;
    const std::string origine = *avvio.diroot;
    avvio.diroot.reset();
    avvio.dirLavori.reset();
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString dir = QDir(documenti).filePath(QStringLiteral("TK07"));
    for (;;) {
        QMessageBox box(QMessageBox::Question, Q(kTitoloProgramma),
                        QStringLiteral("Non c'è ancora un albero di direttori in cui lavorare. "
                                       "Prepararne uno in\n%1 ?")
                            .arg(QDir::toNativeSeparators(dir)));
        box.setTextFormat(Qt::PlainText);
        box.setInformativeText(
            QStringLiteral("Vi stanno le librerie, i lavori con i nodi e le relazioni. Al prossimo "
                           "avvio sarà ritrovato da solo."));
        auto* prepara = box.addButton(QStringLiteral("&Prepara"), QMessageBox::AcceptRole);
        auto* altra = box.addButton(QStringLiteral("&Altra cartella..."), QMessageBox::ActionRole);
        auto* esci = box.addButton(QStringLiteral("&Esci"), QMessageBox::RejectRole);
        box.setDefaultButton(prepara);
        box.setEscapeButton(esci);
        box.exec();
        if (box.clickedButton() == altra) {
            const QString scelta = QFileDialog::getExistingDirectory(
                nullptr, QStringLiteral("Cartella nuova, o albero che c'è già"), documenti);
            if (!scelta.isEmpty()) dir = scelta;
            continue;
        }
        if (box.clickedButton() != prepara) return false;
        const std::string errore = AdottaAlbero(origine, S(dir));
        if (errore.empty()) break;
        QMessageBox::critical(nullptr, Q(kTitoloProgramma), Q(errore));
    }
    avvio.diroot = AlberoRicordato();
    return avvio.diroot.has_value();
}

}  // namespace tk07::desktop
