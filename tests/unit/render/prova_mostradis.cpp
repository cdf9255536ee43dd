#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPrinter>
#include <QWheelEvent>

#include "aiuti/finestra.h"
#include "aiuti/prova.h"
#include "drawing/dis.h"
#include "drawing/grb.h"
#include "mostradis/finestra.h"
#include "mostradis/lettura.h"
#include "render/esporta.h"

namespace tk07 {

using namespace mostradis;
namespace {

const Piattaforma kMuta = PiattaformaMuta();

[[maybe_unused]] const auto* const kApplicazione =
    ::testing::AddGlobalTestEnvironment(new prova::Applicazione);

Disegno Quadro(double lato) {
    Disegno d;
    DisegnaSegmento(d, 0, 0, lato, 0, 1, kMuta);
    DisegnaSegmento(d, lato, 0, lato, lato, 2, kMuta);
    return d;
}
struct Visore {
    prova::Cartella cartella;
    std::string file = (cartella / "nodo.dis").string();
    Finestra f{Opzioni{}};
    QLabel* avviso = f.findChild<QLabel*>("Avviso");
    Visore() {
        ScriviDis(Quadro(1000), file, 4, kMuta);
        prova::ScriviTesto(cartella / "mostradis.inp", "2\n" + file + "\n0\n0\n8000\n8000\n");
        f.show();
        EXPECT_TRUE(f.Apri(QString::fromStdString((cartella / "mostradis.inp").string())));
    }
    double Largo() { return IngombroDisegno(f.Superficie()->Corrente()).width(); }
};

TEST(Mostradis, ReloadsWhenTheFileIsReplacedAndKeepsWhatIsShown) {
    Visore v;
    EXPECT_EQ(v.f.windowTitle().toStdString(), "VISUALIZZAZIONE FILE DISEGNO - " + v.file);
    v.f.Superficie()->Ingrandisci(3.0, {100, 100});
    const QTransform prima = v.f.Superficie()->MondoSuVista();
    // Replaced by rename, twice: the watch follows.
    for (const double lato : {500.0, 700.0}) {
        ASSERT_TRUE(ScriviDis(Quadro(lato), v.file, 4, kMuta));
        EXPECT_TRUE(prova::Aspetta([&] { return v.Largo() == lato; })) << lato;
    }
    EXPECT_EQ(v.f.Superficie()->MondoSuVista(), prima);
    // A broken file: told with its line, the drawing stays; a good one clears the bar.
    prova::ScriviTesto(v.file, "                   4\n 0  1\n");
    EXPECT_TRUE(prova::Aspetta([&] { return v.avviso->isVisible(); }));
    EXPECT_EQ(v.avviso->text().toStdString(),
              "Il file " + v.file + " non è leggibile: file troncato dopo la riga 2");
    EXPECT_EQ(v.Largo(), 700.0);
    ScriviDis(Quadro(900), v.file, 4, kMuta);
    EXPECT_TRUE(prova::Aspetta([&] { return v.Largo() == 900.0 && !v.avviso->isVisible(); }));
    DisegnoGrb g;
    DisegnaSegmento(g.base, 0, 0, 300, 0, 1, kMuta);
    GrbQuota(g, "", 0, 0, 300, 0, 50, 1, kMuta);
    const std::string grb = (v.cartella / "tk7tmp.grb").string();
    ASSERT_TRUE(ScriviGrb(g, grb, kMuta));
    EXPECT_TRUE(v.f.Apri(QString::fromStdString(grb)));
    EXPECT_EQ(v.f.Superficie()->Corrente().linee.size(), 8U) << "the part and its dimension";
    EXPECT_TRUE(v.f.Apri(QString::fromStdString(v.file)));
    EXPECT_FALSE(v.f.Apri("/manca/altro.dis"));
    EXPECT_TRUE(v.avviso->text().contains("/manca/altro.dis"));
    EXPECT_EQ(v.f.windowTitle().toStdString(), "VISUALIZZAZIONE FILE DISEGNO - " + v.file);
    // A session finds the window by its title and tells it to read again; no other title answers.
    const QString titolo = v.f.windowTitle();
    EXPECT_TRUE(InviaAFinestra(titolo, "attiva"));
    EXPECT_FALSE(InviaAFinestra(titolo + "x", "attiva"));
    // The key that the main program sends.
    int tasti = 0;
    for (const QAction* a : v.f.actions() + v.f.findChildren<QAction*>()) {
        tasti += a->shortcuts().contains(QKeySequence("Ctrl+V")) && a->isEnabled();
    }
    EXPECT_EQ(tasti, 1);
}

TEST(Mostradis, MeasureSnapsToEndsAndZoomKeepsThePoint) {
    Visore v;
    Vista* s = v.f.Superficie();
    v.f.findChild<QAction*>("AttivaMisura")->setChecked(true);
    const auto vicino = [&](double x, double y) {
        return s->MondoSuVista().map(QPointF(x, y)) + QPointF(6, -5);
    };
    const auto clic = [&](double x, double y) {
        prova::Topo(s, QEvent::MouseMove, vicino(x, y));
        prova::Topo(s, QEvent::MouseButtonPress, vicino(x, y));
        prova::Topo(s, QEvent::MouseButtonRelease, vicino(x, y));
    };
    clic(0, 0);
    clic(1000, 1000);
    EXPECT_EQ(v.f.findChild<QLabel*>("Misura")->text(),
              "d = 1414.21 mm   dx = 1000.00   dy = 1000.00");
    // A centre catches; the points of a hidden layer do not.
    Disegno d;
    DisegnaCerchio(d, 50, 60, 20, 3, kMuta);
    OpzioniPittura opz;
    EXPECT_EQ(PuntoNotevole(d, opz, {51, 60}, 5.0), QPointF(50, 60));
    EXPECT_FALSE(PuntoNotevole(d, opz, {56, 60}, 5.0)) << "a circle has no ends";
    opz.visibili[3] = false;
    EXPECT_FALSE(PuntoNotevole(d, opz, {51, 60}, 5.0));

    const QPointF dove(200, 120), mondo = s->MondoSuVista().inverted().map(dove);
    QWheelEvent rotella(dove, s->mapToGlobal(dove), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
    const double prima = s->MondoSuVista().m11();
    QApplication::sendEvent(s, &rotella);
    EXPECT_NEAR(s->MondoSuVista().m11() / prima, 1.44, 1e-9);
    const QPointF dopo = s->MondoSuVista().map(mondo);
    EXPECT_NEAR(dopo.x(), dove.x(), 1e-6);
    EXPECT_NEAR(dopo.y(), dove.y(), 1e-6);
}

TEST(Mostradis, LayersPaperAndPrint) {
    Visore v;
    Vista* s = v.f.Superficie();
    const auto blu = [&] {  // somewhere across the line of colour 2
        const QImage im = s->grab().toImage();
        const QPoint q = s->MondoSuVista().map(QPointF(1000, 500)).toPoint();
        bool trovato = false;
        for (int x = q.x() - 2; x <= q.x() + 2; ++x) {
            const QColor c = im.pixelColor(x, q.y());
            trovato = trovato || c.blue() > c.red() + 60;
        }
        return trovato;
    };
    EXPECT_TRUE(blu());
    auto* strati = v.f.findChild<QListWidget*>("Strati");
    ASSERT_EQ(strati->count(), 2);
    strati->item(1)->setCheckState(Qt::Unchecked);
    EXPECT_FALSE(blu());
    EXPECT_TRUE(v.f.Ricarica());
    EXPECT_FALSE(blu()) << "still hidden after reading again";
    v.f.findChild<QAction*>("CartaScura")->setChecked(true);
    EXPECT_LT(s->grab().toImage().pixelColor(2, 2).red(), 60);

    QPrinter stampante(QPrinter::HighResolution);
    stampante.setOutputFormat(QPrinter::PdfFormat);
    stampante.setOutputFileName(QString::fromStdString((v.cartella / "s.pdf").string()));
    stampante.setPageSize(QPageSize(QPageSize::A3));
    stampante.setPageOrientation(QPageLayout::Landscape);
    EXPECT_TRUE(v.f.Stampa(stampante));
    std::string detto;
    if (prova::Esegui("pdftotext '" + (v.cartella / "s.pdf").string() + "' -", &detto) == 0) {
        EXPECT_NE(detto.find("Scala 1:5"), std::string::npos) << "1000 mm on A3: 237 mm are free";
        EXPECT_NE(detto.find("Foglio A3"), std::string::npos) << detto;
    }
}

TEST(Mostradis, CommandLine) {
    const prova::Cartella c;
    Disegno d = Quadro(30);
    d.linee[0].lineaTipo = 1;
    DisegnaCerchio(d, 5, 6, 8, 3, kMuta);
    DisegnaCerchio(d, 0, 0, 2, 3, kMuta, 0.0, 3.14159265358979 / 2.0);
    DisegnaTesto(d, "quota è 30", 1, 2, 90, 2.5, 4, 2, kMuta);
    const std::string file = (c / "nodo.dis").string(), prog = TK07_MOSTRADIS;
    ASSERT_TRUE(SalvaDis(d, file, true, kMuta));
    std::string uscita, errori;
    ASSERT_EQ(prova::Esegui(prog + " --elenca '" + file + "'", &uscita, &errori), 0) << errori;
    EXPECT_EQ(uscita,
              "FILE  " + file +
                  "\nCOORDINATE  8\nPUNTI  0\nLINEE  2\nARCHI  2\nTESTI  1\n"
                  "ESTENSIONE  x da 0 a 30  y da 0 a 30\n"
                  "INGOMBRO  x da -4.12 a 30  y da 0 a 30\n"
                  "LINEA 1  da 0 0  a 30 0  lunghezza 30  colore 1  asse\n"
                  "LINEA 2  da 30 0  a 30 30  lunghezza 30  colore 2  continua\n"
                  "CERCHIO 1  centro 5 6  raggio 4  colore 3\n"
                  "ARCO 2  centro 0 0  raggio 1  da 0  a 90  gradi  colore 3\n"
                  "TESTO 1  in 1 2  angolo 90  carattere 2.5 4  colore 2  \"quota è 30\"\n");
    // A GRB shows its dimensions in strokes, the number from the points, sizes by the model: style
    // 2 of the shipped tree has letters 25 high and 17.5 wide. 100 long, 50 above: seven strokes,
    // and the number "100" over the middle. A text with its middle at 50 begins 1.5 letters before
    // it.
    DisegnoGrb g;
    DisegnaSegmento(g.base, 0, 0, 100, 0, 1, kMuta);
    GrbQuota(g, "", 0, 0, 100, 0, 50, 2, kMuta);
    GrbTesto(g, "abc", 0, 300, 100, 300, 0, 1, 2, kMuta);
    const std::string grb = (c / "nodo.GRB").string();
    ASSERT_TRUE(ScriviGrb(g, grb, kMuta));
    ASSERT_EQ(prova::Esegui(prog + " --elenca '" + grb + "'", &uscita, &errori), 0) << errori;
    for (const char* riga :
         {"\nLINEE  8\nARCHI  0\nTESTI  2\nQUOTE  1\n",
          "\nLINEA 1  da 0 0  a 100 0  lunghezza 100  colore 1  continua\n",
          "  da 0 50  a 100 50  lunghezza 100  colore 2  continua\n",
          "  in 23.75 300  angolo 0  carattere 17.5 25  colore 2  \"abc\"\n", "  in 23.75 ",
          "\"100\"\n",
          "\nQUOTA 1  da 0 0  a 100 0  distanza 50  stile 2  \"Stringa_di_default\"\n"}) {
        EXPECT_NE(uscita.find(riga), std::string::npos) << riga << uscita;
    }
    const std::string png = (c / "i.png").string();
    EXPECT_EQ(prova::Esegui(prog + " --immagine '" + png + "' '" + grb + "'", &uscita, &errori), 0);
    EXPECT_EQ(QImage(png.c_str()).size(), QSize(1600, 1000));
    EXPECT_EQ(prova::Esegui("env -u DISPLAY " + prog + " --immagine '" + png +
                                "' --dimensioni 400x300 '" + file + "'",
                            &uscita, &errori),
              0);
    EXPECT_EQ(errori, "");
    EXPECT_EQ(QImage(png.c_str()).size(), QSize(400, 300));
    EXPECT_EQ(prova::Esegui(prog + " --dimensioni 4 --immagine '" + png + "' '" + file + "'"), 2);

    prova::ScriviTesto(file, "                   4\n 0  pera\n");
    EXPECT_EQ(prova::Esegui(prog + " --elenca '" + file + "'", &uscita, &errori), 2);
    EXPECT_EQ(errori, "mostradis: " + file + ": riga 2: numero errato o mancante\n");
    prova::ScriviTesto(file, " 0\nSECTION\n 2\nHEADER\n");
    EXPECT_EQ(prova::Esegui(prog + " --elenca '" + file + "'", &uscita, &errori), 2);
    EXPECT_EQ(errori,
              "mostradis: " + file + ": contiene un testo DXF, da aprire con un programma CAD\n");
    std::string errore;
    prova::ScriviTesto(c / "m.inp", "3\nnodo.dis\n");
    EXPECT_FALSE(LeggiInp((c / "m.inp").string(), errore));
    prova::ScriviTesto(c / "m.inp", " 2 \r\nnodo.dis\r\n0\r\n");
    EXPECT_EQ(LeggiInp((c / "m.inp").string(), errore), file);
}

}  // namespace
}  // namespace tk07
