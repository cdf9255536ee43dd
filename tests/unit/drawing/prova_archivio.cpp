#include <gtest/gtest.h>

#include <algorithm>

#include "aiuti/prova.h"
#include "base/errore.h"
#include "drawing/archivio.h"
#include "drawing/dis.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();

TEST(Archivio, CoincidentPointsShareOneCoordinateWithinTheLookBack) {
    Disegno d;
    DisegnaSegmento(d, 0, 0, 0.0001, -0.0001, 1, kMuta);  // no length: nothing, not even points
    EXPECT_TRUE(d.linee.empty());
    EXPECT_TRUE(d.coordX.empty());
    d.origineX = 100.0;
    DisegnaSegmento(d, 0, 0, 10, 0, 1, kMuta);
    DisegnaSegmento(d, 10.00005, 0, 10, 5, std::nullopt, kMuta);
    ASSERT_EQ(d.coordX.size(), 3u);
    EXPECT_EQ(d.linee[1].lineaIni, 1);
    EXPECT_EQ(d.coordX[0], 100.0);
    // A full circle: one point on the circumference, centre named twice.
    DisegnaCerchio(d, 0, 50, 20, 3, kMuta);
    EXPECT_EQ(d.archi[0].arcoIni, d.archi[0].arcoFin);
    EXPECT_EQ(d.archi[0].arcoCentro, d.archi[0].arcoCentro2);
    EXPECT_EQ(d.coordX[static_cast<std::size_t>(d.archi[0].arcoIni)], 110.0);
    // Of the last 31 points a coincident one is found, farther back no longer: the cleaning merges.
    const auto n = static_cast<int>(d.coordX.size());
    for (int k = 0; k < 32; ++k) AggiungiCoord(d, 500.0 + k, 0.0, kMuta);
    EXPECT_EQ(AggiungiCoord(d, 501.0, 0.0, kMuta), n + 1);
    EXPECT_EQ(AggiungiCoord(d, 500.0, 0.0, kMuta), n + 32);
    for (int k = 0; k < 40; ++k) AggiungiCoord(d, 1000.0 + k, 0.0, kMuta);
    const int lontana = AggiungiCoord(d, 100.0, 0.0, kMuta);
    EXPECT_EQ(lontana, static_cast<int>(d.coordX.size()) - 1);
}

TEST(Archivio, TheIndexHasSixteenBits) {
    Disegno d;
    for (int k = 0; k < 32768; ++k) ASSERT_EQ(AggiungiCoord(d, k, 0.0, kMuta), k);
    EXPECT_THROW(AggiungiCoord(d, -5.0, 0.0, kMuta), ErroreFatale);
    EXPECT_EQ(AggiungiCoord(d, 32767.0, 0.0, kMuta), 32767);
}

TEST(Archivio, TablesWarnOnceAndThenDrop) {
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    Disegno d;
    for (int k = 0; k < kMaxTesti + 5; ++k) DisegnaTesto(d, "x", 0, 0, 0, 1, 1, 1, p);
    EXPECT_EQ(d.testi.size(), static_cast<std::size_t>(kMaxTesti));
    EXPECT_EQ(porta.Testi(), std::vector<std::string>{" Numero eccessivo di testi "});
}

TEST(Archivio, CleaningInItsOrder) {
    Disegno d;
    const auto linea = [&](double x1, double x2, short colore, short tipo) {
        d.tipoLineaCorrente = tipo;
        DisegnaSegmento(d, x1, 0, x2, 0, colore, kMuta);
    };
    linea(0, 100, 1, 0);
    linea(20, 80, 1, 0);   // continuous on continuous: both stay
    linea(30, 70, 1, 2);   // dashed on another: goes
    linea(30, 170, 1, 2);  // dashed, only partly covered: stays
    linea(40, 60, 0, 2);   // colour 0 is never tested
    linea(200, 300, -1, 0);
    DisegnaCerchio(d, 50, 50, 10, 1, kMuta);
    DisegnaCerchio(d, 50, 50, 10, 1, kMuta);
    DisegnaCerchio(d, 50, 50, 10, 2, kMuta);
    DisegnaTesto(d, "piccolo", 0, 0, 0, 0.01, 5, 1, kMuta);
    DisegnaTesto(d, "resta", 5, 5, 90, -2.25, 3.5, std::nullopt, kMuta);
    PulisciDisegno(d);
    ASSERT_EQ(d.linee.size(), 4u);
    EXPECT_EQ(d.archi.size(), 2u);
    ASSERT_EQ(d.testi.size(), 1u);
    EXPECT_EQ(d.testi[0].testoLargh, 22);  // half to even of 22.5
    EXPECT_EQ(std::count(d.coordX.begin(), d.coordX.end(), 200.0), 0) << "unused";
    for (const LineaDis& l : d.linee) {
        EXPECT_LT(l.lineaFin, static_cast<int>(d.coordX.size()));
    }
}

TEST(Archivio, MergingLeavesTheEndOfAnArc) {
    Disegno d;
    d.coordX = {0, 5, 0.00005};
    d.coordY = {0, 0, 0};
    d.archi.push_back({1, 2, 1, 2, 1, 0});
    d.linee.push_back({0, 1, 1, 0});
    PulisciDisegno(d);
    EXPECT_EQ(d.archi[0].arcoIni, 0);
    EXPECT_EQ(d.archi[0].arcoFin, 2) << "the end of an arc is not remapped";
    EXPECT_EQ(d.coordX.size(), 3u);
}

TEST(Dis, LayoutInPrintZones) {
    const prova::Cartella c;
    prova::Porta porta;
    Disegno d;
    DisegnaSegmento(d, -1.5, 0, 1234567.25, 0.5, 1, kMuta);
    DisegnaTesto(d, "n° 1", 0, 0.5, 90, 2.5, 4, 3, kMuta);
    const std::string file = (c / "nodo.dis").string();
    ASSERT_TRUE(SalvaDis(d, file, false, porta.Fai()));
    EXPECT_EQ(porta.Testi(), std::vector<std::string>{"File " + file + " salvato."});
    EXPECT_EQ(prova::LeggiTesto(file),
              "                   4\n"
              "-1.5           1234567.25 \n"
              " 0             .5 \n"
              "-10000.000000        10000.000000\n"
              " 3 \n"
              "-1.5           0             0 \n"
              " 1234567.25    .5            0 \n"
              " 0             .5            0 \n"
              " 0 \n"
              " 1 \n"
              " 0             1             1             0 \n"
              " 1 \n"
              " 2             1             90 \n"
              " 2.5           4             3 \n"
              "n\xB0 1\n"
              " 0 \n");
    Disegno letto;
    std::string errore;
    ASSERT_TRUE(LeggiDis(file, letto, errore)) << errore;
    EXPECT_EQ(ComponiDis(letto, 4), ComponiDis(d, 4));
    Disegno vuoto;
    LimitiDisegno(vuoto);
    const std::string testa = "                   3\n 0             0 \n 0             0 \n";
    EXPECT_EQ(ComponiDis(vuoto, 3).substr(0, testa.size()), testa);
}

TEST(Dis, HostileFilesAreRefusedWithTheirLine) {
    const prova::Cartella c;
    Disegno d, buono;
    DisegnaCerchio(d, 0, 0, 10, 1, kMuta, 0.0, 1.5);
    DisegnaTesto(d, "t", 1, 1, 0, 1, 1, 1, kMuta);
    const std::string testo = ComponiDis(d, 4), file = (c / "x.dis").string();
    std::string errore;
    // every truncation at a line end
    for (std::size_t k = testo.find('\n'); k + 1 < testo.size(); k = testo.find('\n', k + 1)) {
        prova::ScriviTesto(file, testo.substr(0, k + 1));
        EXPECT_FALSE(LeggiDis(file, buono, errore)) << k;
        EXPECT_NE(errore.find("riga"), std::string::npos);
    }
    for (const auto& [cosa, come] : {std::pair{" 4 \n", " 999999999 \n"}, {" 4 \n", "-1 \n"}}) {
        std::string guasto = testo;
        guasto.replace(guasto.find(cosa), std::string(cosa).size(), come);
        prova::ScriviTesto(file, guasto);
        EXPECT_FALSE(LeggiDis(file, buono, errore)) << come;
    }
    EXPECT_TRUE(buono.coordX.empty());
}

}  // namespace
}  // namespace tk07
