#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "aiuti/prova.h"
#include "render/esporta.h"
#include "render/pittura.h"
#include "render/tavola.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();

// 100 x 100 mm of paper at 10 pixels a mm, the drawing at 1:1 with its origin bottom left.
QImage Dipinto(const Disegno& d, const OpzioniPittura& opz = {}) {
    QImage im(1000, 1000, QImage::Format_RGB32);
    im.fill(ColoreCarta(opz.carta));
    QPainter p(&im);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(10.0, 10.0);
    DipingiDisegno(p, d, QTransform(1, 0, 0, -1, 0, 100), opz);
    return im;
}
bool Segnato(const QImage& im, double x, double y) {  // mm, y upwards
    return qGray(im.pixel(int(x * 10.0), int((100.0 - y) * 10.0))) < 128;
}
// What is marked, mm with y upwards: left, bottom, width, height.
QRectF Ingombro(const QImage& im, QRgb cerca = 0) {
    int x0 = im.width(), x1 = -1, y0 = im.height(), y1 = -1;
    for (int y = 0; y < im.height(); ++y) {
        for (int x = 0; x < im.width(); ++x) {
            const QRgb c = im.pixel(x, y);
            const bool qui = cerca == 0 ? qGray(c) < 128
                                        : std::abs(qRed(c) - qRed(cerca)) < 60 &&
                                              std::abs(qGreen(c) - qGreen(cerca)) < 60 &&
                                              std::abs(qBlue(c) - qBlue(cerca)) < 60;
            if (!qui) continue;
            x0 = std::min(x0, x), x1 = std::max(x1, x);
            y0 = std::min(y0, y), y1 = std::max(y1, y);
        }
    }
    return {x0 / 10.0, 100.0 - (y1 + 1) / 10.0, (x1 + 1 - x0) / 10.0, (y1 + 1 - y0) / 10.0};
}

TEST(Pittura, StrokesStandWhereTheyShouldWithTheWidthOfTheirKind) {
    Disegno d;
    DisegnaSegmento(d, 10, 20, 60, 20, 3, kMuta);  // weld, 0.30 mm
    const QRectF q = Ingombro(Dipinto(d), qRgb(255, 0, 0));
    EXPECT_NEAR(q.left(), 9.85, 0.11);  // round ends, half a pen beyond
    EXPECT_NEAR(q.width(), 50.3, 0.21);
    EXPECT_NEAR(q.center().y(), 20.0, 0.06);
    EXPECT_NEAR(q.height(), 0.3, 0.11);

    // Dashes of 3 mm with gaps of 1.2 on 90 mm: 21 gaps fit best, the line ends with a stroke, 22.
    Disegno t;
    t.tipoLineaCorrente = 2;
    DisegnaSegmento(t, 5, 50, 95, 50, 1, kMuta);
    const QImage intera = Dipinto(t);
    int tratti = 0;
    for (int x = 1; x < 1000; ++x) {
        tratti += qGray(intera.pixel(x, 500)) < 128 && qGray(intera.pixel(x - 1, 500)) >= 128;
    }
    EXPECT_EQ(tratti, 22);
    EXPECT_TRUE(Segnato(intera, 5.2, 50) && Segnato(intera, 94.8, 50));
    // A window cuts the line and leaves the dashes where they were.
    OpzioniPittura opz;
    opz.finestra = QRectF(30, 30, 40, 40);
    const QImage parte = Dipinto(t, opz);
    for (int x = 300; x < 700; ++x) {
        ASSERT_NEAR(qGray(parte.pixel(x, 500)), qGray(intera.pixel(x, 500)), 40) << x;
    }
    EXPECT_FALSE(Segnato(parte, 5.5, 50)) << "outside the window";
}

TEST(Pittura, ArcsTurnCounterClockwise) {
    Disegno d;
    DisegnaCerchio(d, 50, 50, 80, 1, kMuta, 0.0, 3.14159265358979 / 2.0);
    DisegnaCerchio(d, 50, 50, 40, 1, kMuta, 3.14159265358979 * 1.5, 0.0);  // over 360 degrees
    DisegnaCerchio(d, 50, 50, 20, 1, kMuta);
    const QImage im = Dipinto(d);
    const double s = std::sqrt(0.5);
    for (const int k : {0, 1, 2, 3}) {
        const double a = s * (k == 0 || k == 3 ? 1 : -1), b = s * (k < 2 ? 1 : -1);
        EXPECT_EQ(Segnato(im, 50 + 40 * a, 50 + 40 * b), k == 0) << k;
        EXPECT_EQ(Segnato(im, 50 + 20 * a, 50 + 20 * b), k == 3) << k;
        EXPECT_TRUE(Segnato(im, 50 + 10 * a, 50 + 10 * b)) << k;
    }
    d.archi.resize(1);
    const QRectF q = IngombroDisegno(d);  // the quarter only
    EXPECT_NEAR(q.left(), 50.0, 1e-9);
    EXPECT_NEAR(q.width(), 40.0, 1e-9);
    EXPECT_NEAR(q.height(), 40.0, 1e-9);
}

TEST(Pittura, TextHasItsHeightItsCellsAndItsAngle) {
    const auto riquadro = [](const char* testo, short angolo, double largh, double alt) {
        Disegno d;
        DisegnaTesto(d, testo, 50, 30, angolo, largh, alt, 1, kMuta);
        const QRectF nero = Ingombro(Dipinto(d)), detto = IngombroDisegno(d);
        EXPECT_TRUE(detto.adjusted(-0.2, -0.2, 0.2, 0.2).contains(nero)) << testo;
        return nero;
    };
    QRectF q = riquadro("HEH", 0, 15, 20);
    EXPECT_NEAR(q.top(), 30.0, 0.15);  // base line (y upwards)
    EXPECT_NEAR(q.height(), 20.0, 0.25);
    EXPECT_GT(q.left(), 50.0);
    EXPECT_LT(q.right(), 95.0);
    q = riquadro("MMMM", 0, 7, 10);  // naturally wider than 28 mm: squeezed into its cells
    EXPECT_NEAR(q.width(), 27.0, 1.2);
    EXPECT_NEAR(q.height(), 10.0, 0.25);
    q = riquadro("HEH", 90, 8, 10);  // upwards from the insertion point, to its left
    EXPECT_NEAR(q.right(), 50.0, 0.15);
    EXPECT_NEAR(q.width(), 10.0, 0.25);
    EXPECT_GT(q.top(), 30.0);
    riquadro("Ègjp]22", 30, 5, 6);
    EXPECT_EQ(TestoMostrato("fori ]22,]24"), QString::fromUtf8("fori Ø22,Ø24"));
}

TEST(Pittura, EveryColourReadsOnEitherPaper) {
    EXPECT_EQ(ColoreSuCarta(1, Carta::chiara), QColor(0, 0, 0));
    EXPECT_EQ(ColoreSuCarta(3, Carta::chiara), QColor(255, 0, 0)) << "clear enough as it is";
    EXPECT_EQ(ColoreSuCarta(1, Carta::scura), QColor(255, 255, 255));
    for (int i = 0; i < kColori; ++i) {
        EXPECT_LT(qGray(ColoreSuCarta(i, Carta::chiara).rgb()), 150) << i;
        EXPECT_GT(qGray(ColoreSuCarta(i, Carta::scura).rgb()), 80) << i;
    }
    // Rows that give the welds colour 5 and everything else colour 1: outlines come first.
    Opzioni opz;
    opz.Righe.resize(30);
    for (RigaOpzione& r : opz.Righe) r.Valore = 1.0;
    opz.Righe[2].Valore = 5.0;
    const auto s = SpessoriPenne(opz);
    EXPECT_EQ(s[1], 0.40);
    EXPECT_EQ(s[5], 0.30);
    EXPECT_EQ(s[3], 0.25);
}

TEST(Tavola, SmallestSheetThenLargestScale) {
    // Free areas by hand: inside the frame (20 + 10, 10 + 10 mm), 4 mm clear, 32 mm of title block
    // below or 180 beside. A4 259 x 150 or 79 x 182, upright 172 x 237; A3 382 x 237; A2 556 x 360;
    // A1 803 x 534; A0 1151 x 781.
    const struct {
        double l, a;
        const char* nome;
        int scala;
        double larghezza;
    } casi[] = {{0, 0, "A4", 1, 297},          {259, 150, "A4", 1, 297},
                {78, 182, "A4", 1, 297},       {172, 237, "A4", 1, 210},
                {259, 151, "A4", 2, 297},      {2590, 1500, "A4", 10, 297},
                {2591, 1500, "A3", 10, 420},   {3820, 2370, "A3", 10, 420},
                {3821, 2370, "A2", 10, 594},   {8030, 5340, "A1", 10, 841},
                {11510, 7810, "A0", 10, 1189}, {11511, 7810, "A0", 20, 1189},
                {57550, 1000, "A0", 50, 1189}, {57551, 1000, "A0", 100, 1189},
                {1e6, 1e6, "A0", 2000, 1189}};
    for (const auto& c : casi) {
        const Foglio f = ScegliFoglio(c.l, c.a);
        EXPECT_EQ(f.nome, c.nome) << c.l << " x " << c.a;
        EXPECT_EQ(f.scala, c.scala) << c.l << " x " << c.a;
        EXPECT_EQ(f.larghezza, c.larghezza) << c.l << " x " << c.a;
        EXPECT_EQ(f.ridotta, c.scala > 10);
    }
}

// One weld line of 1000 mm: the frame is black, so it is the only red on the sheet.
Disegno LineaLunga() {
    Disegno d;
    DisegnaSegmento(d, 0, 0, 2000, 1200, 1, kMuta);
    DisegnaSegmento(d, 0, 700, 1000, 700, 3, kMuta);
    DisegnaTesto(d, "SEZIONE AA", 100, 100, 0, 24, 35, 1, kMuta);
    return d;
}

TEST(Esporta, SheetsAreToScaleInEveryFormat) {
    const prova::Cartella c;
    const Disegno d = LineaLunga();
    const Cartiglio cartiglio{"TK07", "Titolo della prova", "nodo.dis", "S275 - 8.8", "07/03/2026"};
    QString errore;
    for (const char* nome : {"t.svg", "t.PDF", "t.png"}) {
        ASSERT_TRUE(
            EsportaTavola(d, cartiglio, {}, QString::fromStdString((c / nome).string()), errore))
            << errore.toStdString();
    }
    const QString svg = QString::fromStdString(prova::LeggiTesto(c / "t.svg"));
    EXPECT_TRUE(svg.contains("width=\"297mm\" height=\"210mm\""));
    EXPECT_TRUE(svg.contains("viewBox=\"0 0 297 210\""));
    const auto linea = QRegularExpression(
                           "stroke=\"#ff0000\"[^>]*stroke-width=\"0.3\"[^>]*matrix\\(1,0,0,1,0,0\\)"
                           "[^<]*<polyline[^>]*points=\"([0-9.]+),([0-9.]+) ([0-9.]+),([0-9.]+)")
                           .match(svg);
    ASSERT_TRUE(linea.hasMatch());
    EXPECT_NEAR(linea.captured(3).toDouble() - linea.captured(1).toDouble(), 100.0, 1e-3);
    EXPECT_EQ(linea.captured(2), linea.captured(4));

    const QImage png((c / "t.png").string().c_str());
    EXPECT_EQ(png.size(), QSize(2339, 1654));  // 297 x 210 mm at 200 dpi
    EXPECT_NEAR(Ingombro(png, qRgb(255, 0, 0)).width() * 10.0, 100.3 / 25.4 * 200.0, 1.5);

    // The PDF by an independent reader.
    std::string detto;
    const std::string pdf = "'" + (c / "t.PDF").string() + "'";
    if (prova::Esegui("pdfinfo " + pdf, &detto) != 0) GTEST_SKIP() << "no pdfinfo (poppler-utils)";
    EXPECT_NE(detto.find("842 x 595 pts (A4)"), std::string::npos) << detto;
    EXPECT_NE(detto.find("Titolo della prova"), std::string::npos);
    EXPECT_NE(detto.find("Pages:           1\n"), std::string::npos);
    ASSERT_EQ(prova::Esegui("pdffonts " + pdf, &detto), 0);
    EXPECT_TRUE(QString::fromStdString(detto).contains(
        QRegularExpression("DejaVuSans +CID TrueType +Identity-H +yes")))
        << detto;
    ASSERT_EQ(prova::Esegui("pdftotext " + pdf + " -", &detto), 0);
    for (const char* parola : {"SEZIONE AA", "Scala 1:10", "Foglio A4", "Quote in mm",
                               "Titolo della prova", "nodo.dis", "S275 - 8.8"}) {
        EXPECT_NE(detto.find(parola), std::string::npos) << parola;
    }
    ASSERT_EQ(prova::Esegui("pdftoppm -r 508 -singlefile " + pdf + " '" + (c / "p").string() + "'"),
              0);
    const QImage pagina((c / "p.ppm").string().c_str());
    EXPECT_NEAR(Ingombro(pagina, qRgb(255, 0, 0)).width() * 10.0 / 20.0, 100.3, 0.11);
}

TEST(Esporta, AFailedWriteLeavesTheFileAlone) {
    const prova::Cartella c;
    const auto file = c / "t.pdf";
    prova::ScriviTesto(file, "vecchio");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    QString errore;
    EXPECT_FALSE(
        EsportaTavola(LineaLunga(), {}, {}, QString::fromStdString(file.string()), errore));
    EXPECT_TRUE(errore.contains("t.pdf: file non scritto: ")) << errore.toStdString();
    EXPECT_EQ(prova::LeggiTesto(file), "vecchio");
    EXPECT_FALSE(EsportaTavola(LineaLunga(), {}, {}, "t.gif", errore));
    EXPECT_EQ(errore, "t.gif: formato non riconosciuto (svg, pdf, png)");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(c.Testo()), {}), 1)
        << "nothing left behind";
}

TEST(Esporta, WildDrawingsComeToAnEnd) {
    const prova::Cartella c;
    QString errore;
    for (const double lato : {0.0, 1e-3, 3e4, 1e300}) {
        Disegno d;
        d.tipoLineaCorrente = 1;
        if (lato > 0.0) DisegnaSegmento(d, -lato, 0, lato, lato, 1, kMuta);
        const QString file = QString::fromStdString((c / "t.png").string());
        EXPECT_TRUE(EsportaTavola(d, {}, {}, file, errore)) << errore.toStdString();
        if (lato == 3e4) {
            EXPECT_EQ(QImageReader(file).size().width(), 8000) << "A0, no side above";
        }
    }
}

}  // namespace
}  // namespace tk07
