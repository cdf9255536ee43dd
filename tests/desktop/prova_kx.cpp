#include <QComboBox>
#include <QLabel>

#include "banco_gui.h"
#include "desktop/finestra_kx.h"
#include "textnum/scelta_unita.h"

namespace tk07::prova {

using namespace desktop;
namespace {

// Factors from the units' own definitions: 1 daN = 10 N, 1 kN m = 10000 daN cm, 1 kgf = 9.80665 N.
TEST(Conversione, CateneDiUnita) {
    EXPECT_NEAR(*ConvertiTra(3.0, "kn", "dan"), 300.0, 1e-9);
    EXPECT_NEAR(*ConvertiTra(1.5, "knm", "dancm"), 15000.0, 1e-9);
    EXPECT_NEAR(*ConvertiTra(1.0, "n", "kn"), 0.001, 1e-12);  // no pair of its own
    EXPECT_NEAR(*ConvertiTra(1.0, "mpa", "n/mm2"), 1.0, 1e-9);
    EXPECT_NEAR(*ConvertiTra(100.0, "kgf", "n"), 980.665, 1e-9);
    EXPECT_NEAR(*ConvertiTra(2.0, "mm4", "cm4"), 0.0002, 1e-12);  // the table has it one way only
    EXPECT_FALSE(ConvertiTra(1.0, "kn", "cm"));
    EXPECT_EQ(UnitaDaNome("daN*cm"), "dancm");
    EXPECT_EQ(UnitaDaNome("kN*m"), "knm");
    EXPECT_EQ(UnitaDaNome("t"), "tf");
    EXPECT_EQ(UnitaDaNome("N/mm2"), "n/mm2");
    EXPECT_EQ(UnitaDaNome("iarde"), "");
    EXPECT_EQ(UnitaMostrata("lbfft"), "lbf*ft");
    for (const Grandezza& g : GrandezzeConvertibili()) {
        EXPECT_NE(g.nome, "") << g.unita.front();
        for (const std::string& a : g.unita) {
            for (const std::string& b : g.unita) EXPECT_TRUE(ConvertiTra(1.0, a, b)) << a << b;
        }
    }
}

// The command line of a load field; the answer in the field's unit on the file's first line.
TEST(Conversione, RichiestaERisposta) {
    const Cartella c;
    const std::string file = (c / "KX_conversioni.tmp").string();
    const RichiestaKx r = LeggiRichiestaKx(
        "|primcipale=1|uniprinctesto=daN*cm|categoriadiingresso=5|valoreingresso=12.5|fileout=" +
        file + "|titolo=|titolo=Mom_z||");
    EXPECT_EQ(r.unita, "daN*cm");
    EXPECT_EQ(r.categoria, 5);
    EXPECT_EQ(r.valore, 12.5);
    EXPECT_EQ(r.titolo, "Mom_z");
    FinestraKx f(r);
    auto* da = f.findChild<QComboBox*>(QStringLiteral("Da"));
    EXPECT_EQ(da->currentText(), QStringLiteral("daN*cm"));
    da->setCurrentIndex(da->findText(QStringLiteral("kN*m")));
    f.findChild<QLineEdit*>(QStringLiteral("Valore"))->setText(QStringLiteral("2.5"));
    f.accept();
    EXPECT_EQ(LeggiTesto(file), "25000\n");
    f.findChild<QLineEdit*>(QStringLiteral("Valore"))->setText(QStringLiteral("due"));
    f.accept();
    EXPECT_EQ(LeggiTesto(file), "25000\n");
}

}  // namespace
}  // namespace tk07::prova
