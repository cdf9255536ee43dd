#include <QComboBox>
#include <QTimer>

#include "banco_gui.h"
#include "desktop/finestra_trova.h"
#include "modelimport/struttura.h"

namespace tk07::prova {

using namespace desktop;
namespace {

// On the shipped frame: node 105 lies at the third of the first main beam; its members are 11, 12
// and 19 on that floor (the plan in the job's own note) and a click finds what is drawn there.
TEST(Trova, ScegliSulModello) {
    BancoGui b("telaio");
    ModelloStr m;
    ASSERT_EQ(LeggiModello(b.S().dir.dirLavoro, m, StrVecchia::termina, b.S().piattaforma),
              EsitoStr::bene);
    const auto nodo = [&](int numero) {
        return *std::find_if(m.nodi.begin(), m.nodi.end(),
                             [&](const NodoStr& n) { return n.numero == numero; });
    };
    EXPECT_TRUE(nodo(105).posto);
    EXPECT_EQ(nodo(105).x, 200.0);
    EXPECT_EQ(nodo(104).y, 500.0);
    FinestraTrova f(m, FinestraTrova::Cosa::nodi, QStringLiteral("Cerca nodi"), "", nullptr);
    f.show();
    auto* vista = f.findChild<VistaModello*>();
    vista->Proietta(VistaModello::Proiezione::prospettoX);
    EXPECT_EQ(vista->Livelli(), (std::vector<double>{0.0, 500.0}));
    vista->Livello(0.0);  // 107 lies behind 105
    QTest::mouseClick(vista, Qt::LeftButton, {}, vista->InPixel(nodo(105)).toPoint());
    EXPECT_EQ(f.Elenco(), "105");
    vista->Livello(500.0);
    QTest::mouseClick(vista, Qt::LeftButton, {}, vista->InPixel(nodo(105)).toPoint());
    EXPECT_EQ(f.Elenco(), "105,107");
    f.findChild<QLineEdit*>(QStringLiteral("Elenco"))->clear();
    QTest::keyClicks(f.findChild<QLineEdit*>(QStringLiteral("Elenco")), QStringLiteral("105"));
    const auto travi = f.findChildren<QComboBox*>();
    ASSERT_EQ(travi.size(), 4);
    for (const char* asta : {"11", "12", "19"}) {
        EXPECT_GE(travi[2]->findText(QString::fromUtf8(asta)), 0) << asta;
    }
    EXPECT_LT(travi[2]->findText(QStringLiteral("14")), 0);
}

// The window in the place of the tool writes what the import panel reads back.
TEST(Trova, RispostaAlPannello) {
    BancoGui b("telaio");
    Piattaforma& p = b.S().piattaforma;
    p.avvia = [&](const std::string&, const std::vector<std::string>&, bool) {
        QTimer::singleShot(0, qApp, [] {
            auto* f = qobject_cast<FinestraTrova*>(QApplication::activeModalWidget());
            if (f == nullptr) return;
            QTest::keyClicks(f->findChild<QLineEdit*>(QStringLiteral("Elenco")),
                             QStringLiteral("11,19"));
            f->accept();
        });
        return TrovaInFinestra(b.S().dir, false, b.finestra.get(), b.S().piattaforma);
    };
    b.Premi("ImpS3D");
    b.Scrivi("NodiTxt", "105", "Soll3D");
    b.Premi("Cerca(1)", "Soll3D");
    EXPECT_EQ(b.Trova<QLineEdit>("Astetxt", "Soll3D")->text(), QStringLiteral("11,19"));
}

}  // namespace
}  // namespace tk07::prova
