#include "desktop/programma_gui.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>
#include <clocale>

#include "base/testo.h"
#include "desktop/finestra_principale.h"
#include "desktop/finestra_trova.h"
#include "desktop/pilota.h"
#include "desktop/porta_desktop.h"
#include "desktop/primo_avvio.h"
#include "desktop/testo_qt.h"
#include "guscio/programma.h"

namespace tk07::desktop {

void PreparaApplicazione(QApplication& app) {
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has taken over the user's
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    auto* traduzione = new QTranslator(&app);
    if (traduzione->load(QStringLiteral("qtbase_it"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(traduzione);
    }
    QCoreApplication::setApplicationName(QStringLiteral("tk07-gui"));
    QGuiApplication::setApplicationDisplayName({});
    // With no font of its own the platform would draw no text at all.
    if (QFontDatabase::families().contains(QStringLiteral("DejaVu Sans"))) {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPointSizeF(9.0);
        QApplication::setFont(f);
    }
}

Avvio LeggiRigaComando(const QStringList& argomenti) {
    Avvio a;
    for (int i = 1; i < argomenti.size(); ++i) {
        const QString& t = argomenti[i];
        a.rigaComando += (i > 1 ? " " : "") + S(t);
        const auto valore = [&](const char* nome, std::optional<std::string>& dove) {
            const QString chiave = QString::fromUtf8(nome);
            if (t == chiave && i + 1 < argomenti.size()) dove = S(argomenti[i + 1]);
            if (t.startsWith(chiave + QLatin1Char('='))) dove = S(t.mid(chiave.size() + 1));
        };
        valore("--diroot", a.diroot);
        valore("--lavoro", a.lavoro);
    }
    if (a.diroot) a.diroot = PercorsoAssoluto(*a.diroot);
    return a;
}

std::string FileDaAprire(const QStringList& argomenti) {
    for (int i = 1; i < argomenti.size(); ++i) {
        const QString& t = argomenti[i];
        if (t == QLatin1String("--diroot") || t == QLatin1String("--lavoro")) {
            ++i;
        } else if (!t.startsWith(QLatin1Char('-')) && !t.startsWith(QLatin1Char('|'))) {
            return PercorsoAssoluto(S(t));
        }
    }
    return {};
}

int EseguiGui(QApplication& app, const QStringList& argomenti) {
    PreparaApplicazione(app);
    Avvio avvio = LeggiRigaComando(argomenti);
    avvio.dirProgramma = DirettorioProgramma(argomenti.empty() ? "" : S(argomenti[0]).c_str());
    if (!TrovaAlberoOChiedi(avvio)) return kUscitaAvvio;
    Pilota pilota;
    std::unique_ptr<FinestraPrincipale> finestra;
    pilota.LaSessione().piattaforma =
        PortaDesktop([&finestra]() -> QWidget* { return finestra.get(); },
                     [&finestra](const QString& percorso) {
                         if (finestra) finestra->MostraRelazione(percorso);
                     },
                     [&pilota](bool nodi, QWidget* padre) {
                         const Sessione& s = pilota.LaSessione();
                         TrovaInFinestra(s.dir, nodi, padre, s.piattaforma);
                     });
    if (!pilota.Avvia(avvio)) {
        const int codice = pilota.LaSessione().codiceUscita;
        return codice != 0 ? codice : kUscitaAvvio;
    }
    finestra = std::make_unique<FinestraPrincipale>(pilota);
    int codice = 0;
    QObject::connect(&pilota, &Pilota::finito, &app, [&](int c) {
        codice = c;
        QCoreApplication::exit(c);
    });
    finestra->show();
    if (const std::string file = FileDaAprire(argomenti); !file.empty()) {
        QTimer::singleShot(0, finestra.get(), [&finestra, file] { finestra->ApriFile(file); });
    }
    QApplication::exec();
    finestra.reset();
    return codice;
}

}  // namespace tk07::desktop
