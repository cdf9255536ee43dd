// Pictures of every window for the manual: tk07_foto DIRECTORY [scuro].

#include <QApplication>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <cstdio>

#include "desktop/banco_gui.h"
#include "desktop/finestra_kx.h"
#include "desktop/finestra_recupero.h"
#include "desktop/finestra_trova.h"
#include "desktop/pagina_riepilogo.h"
#include "desktop/programma_gui.h"
#include "desktop/tema.h"
#include "desktop/vista_nodo.h"

using namespace tk07;
using namespace tk07::prova;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication applicazione(argc, argv);
    PreparaApplicazione(applicazione);
    if (argc < 2) {
        std::fputs("tk07_foto DIRETTORIO [scuro]\n", stderr);
        return 2;
    }
    const QString dove = QString::fromLocal8Bit(argv[1]);
    BancoGui b;
    b.Apri("02_ipe200_su_ipe300.tk7");
    b.Premi("VerificaButt");
    b.finestra->MostraRelazione(QString::fromStdString(b.porta.programmi.back()[1]));
    b.finestra->IlRiepilogo().Tabella()->selectRow(0);
    b.finestra->statusBar()->clearMessage();  // it names the temporary tree
    if (argc > 2) ApplicaTema(Tema::scuro);
    for (const QSize& q : {QSize(1280, 800), QSize(1920, 1080)}) {
        b.finestra->resize(q);
        for (int i = 0; i < 4; ++i) {
            b.Trova<QTabWidget>("SSTab")->setCurrentIndex(i);
            if (i == 1) b.Trova("GeoPias(4)")->setFocus();
            QCoreApplication::processEvents();
            b.finestra->grab().save(dove + QStringLiteral("/main_%1_%2.png").arg(q.width()).arg(i));
        }
        auto* destra = b.finestra->findChild<QTabWidget*>(QStringLiteral("Destra"));
        destra->setCurrentIndex(1);
        QCoreApplication::processEvents();
        b.finestra->grab().save(dove + QStringLiteral("/relazione_%1.png").arg(q.width()));
        destra->setCurrentIndex(0);
    }
    // A joint that fails, with the worst set in colours; the copies; the search; the converter.
    b.finestra->resize(1280, 800);
    b.Trova<QTabWidget>("SSTab")->setCurrentIndex(1);
    b.Scrivi("GeoPias(5)", "4");
    b.N().MomZ(1) = 120000, b.N().TaglioY(1) = 26000;
    b.pilota.ImpostaDalVivo(true);
    b.finestra->IlRiepilogo().Tabella()->selectRow(1);
    QCoreApplication::processEvents();
    b.finestra->grab().save(dove + QStringLiteral("/fallisce.png"));
    b.pilota.CopiaOra();
    FinestraRecupero recupero(b.pilota, b.finestra.get());
    recupero.show();
    recupero.grab().save(dove + QStringLiteral("/recupero.png"));
    FinestraKx kx(LeggiRichiestaKx("|uniprinctesto=daN*cm|valoreingresso=12.5|titolo=Mom_z|"));
    kx.show();
    kx.grab().save(dove + QStringLiteral("/kx.png"));
    ModelloStr m;
    LeggiModello(b.radice + "/lavori/telaio", m, StrVecchia::termina, b.S().piattaforma);
    FinestraTrova trova(m, FinestraTrova::Cosa::nodi, QStringLiteral("Cerca nodi"), "", nullptr);
    trova.show();
    trova.grab().save(dove + QStringLiteral("/trova.png"));
    PerOgniPannello(b, [&](const std::string& p) {
        QWidget* w = b.finestra->Secondario(p);
        if (p == "FormBulloni") b.Premi("Bt_SelTutti", p);
        QCoreApplication::processEvents();
        w->grab().save(dove + QLatin1Char('/') + QString::fromStdString(p) +
                       QStringLiteral(".png"));
    });
    return 0;
}
