// Vectors wider than the machine's are split by the compiler; none crosses a library here.
#pragma GCC diagnostic ignored "-Wpsabi"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <random>

#include "nodo_di_prova.h"
#include "verification/nucleo_piani.h"
#include "verification/piastra.h"

namespace tk07 {
namespace {

struct Barra {
    double x, y, A;
};

// Contact rectangle, bars and loads, moments about the origin.
PoligonoCompresso Problema(double x0, double x1, double y0, double y1,
                           const std::vector<Barra>& barre, std::array<double, 3> azioni) {
    PoligonoCompresso p;
    p.polNVert = 4, p.polRifFisso = 1;
    const double x[] = {x0, x0, x1, x1}, y[] = {y0, y1, y1, y0};
    for (int j = 1; j <= 4; ++j) p.polX(j) = x[j - 1], p.polY(j) = y[j - 1];
    p.polNBarre = static_cast<short>(barre.size());
    for (int i = 1; i <= p.polNBarre; ++i) {
        const Barra& b = barre[static_cast<std::size_t>(i - 1)];
        p.barX(i) = b.x, p.barY(i) = b.y, p.barA(i) = b.A, p.barE(i) = 1.0;
    }
    for (int k = 1; k <= 3; ++k) p.polAzioni(k) = azioni[static_cast<std::size_t>(k - 1)];
    return p;
}

PianoRisolto Risolvi(PoligonoCompresso p) {
    p.Completa();
    return RisolviPiano(p);
}

const std::vector<Barra> kQuattro = {
    {-60, 80, 250}, {60, 80, 250}, {-60, 320, 250}, {60, 320, 250}};

TEST(Contatto, AgreesWithTheClosedForms) {
    const nlohmann::json chiusi = prova::Validazione("contatto_chiuso.json");
    ASSERT_GE(chiusi["casi"].size(), 20u);
    for (const auto& c : chiusi["casi"]) {
        SCOPED_TRACE(c["nome"].get<std::string>());
        const auto& r = c["rettangolo"];
        std::vector<Barra> barre;
        for (const auto& b : c["bulloni"]) barre.push_back({b[0], b[1], b[2]});
        const PianoRisolto p = Risolvi(Problema(r["xMin"], r["xMax"], r["yMin"], r["yMax"], barre,
                                                c["azioni"].get<std::array<double, 3>>()));
        const bool risolto = c["esito"] == "risolto";
        ASSERT_EQ(p.stato, risolto ? StatoPiano::equilibrio : StatoPiano::singolare);
        if (!risolto) continue;
        for (int k = 1; k <= 3; ++k) {
            const auto m = static_cast<std::size_t>(k - 1);
            EXPECT_NEAR(p.polPiano(k), c["piano"][m].get<double>(),
                        c["tolleranza_piano"][m].get<double>());
            EXPECT_EQ(p.pianoPol(k), p.polPiano(k));
        }
        for (const auto& q : c["punti"]) {
            EXPECT_NEAR(ValorePiano(p.polPiano, q["x"], q["y"]), q["s"].get<double>(),
                        q["tolleranza"].get<double>());
        }
        for (const auto& q : c["pubblicati"]) {
            EXPECT_NEAR(ValorePiano(p.polPiano, q["x"], q["y"]), q["s"].get<double>(),
                        std::fabs(q["s"].get<double>() * q["tolleranza_relativa"].get<double>()));
        }
    }
}

TEST(Contatto, PassesBeforeTheReturn) {
    // No load, and full compression: the second pass finds nothing to correct, the third returns.
    PianoRisolto p = Risolvi(Problema(-100, 100, 0, 400, kQuattro, {0, 0, 0}));
    EXPECT_EQ(p.stato, StatoPiano::equilibrio);
    EXPECT_EQ(p.polIter, 3);
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(p.polPiano(k), 0.0);
    EXPECT_EQ(p.compN, 4);  // a vertex at exactly 0 stays, and no crossing is added
    p = Risolvi(Problema(-100, 100, 0, 400, kQuattro, {-1.6e7, 0, -80000}));
    EXPECT_EQ(p.stato, StatoPiano::equilibrio);
    EXPECT_EQ(p.polIter, 3);
    // Full tension: the first pass still counts the plate, the second has bolts only, the third
    // confirms, the fourth returns.
    p = Risolvi(Problema(-100, 100, 0, 400, kQuattro, {4e6, 0, 20000}));
    EXPECT_EQ(p.stato, StatoPiano::equilibrio);
    EXPECT_EQ(p.polIter, 4);
    EXPECT_EQ(p.compN, 0);
    EXPECT_NEAR(ValorePiano(p.polPiano, 60, 320), 20.0, 1e-9);
    // nothing to solve
    PoligonoCompresso nulla = Problema(0, 0, 0, 0, {}, {1, 1, 1});
    nulla.polNVert = 0;
    EXPECT_EQ(Risolvi(nulla).stato, StatoPiano::singolare);
}

TEST(Contatto, NoConvergence) {
    // Turned vertices, as two plates that do not meet give: the sum of areas is negative, and the
    // bars take nothing out of it.
    PoligonoCompresso p =
        Problema(-100, 100, 0, -50, {{88, 6, 250}, {-89, 19, 250}}, {-1e5, -4e5, 0});
    p.Completa();
    EXPECT_EQ(p.areaConSegno, -10000.0);
    EXPECT_EQ(p.barPol(1), 0);
    EXPECT_EQ(RisolviPiano(p).stato, StatoPiano::areeNegative);
    // A bar softer than the plate it takes away: the contact under it opens and closes for ever.
    p = Problema(-100, 100, 0, 200, {{15, 9, 3000}}, {4e5, 1e5, -1000});
    p.barE(1) = 0.5;
    EXPECT_EQ(Risolvi(p).stato, StatoPiano::nonConvergente);
}

TEST(Contatto, OneAxisOnlyAndTheCentroidAsReference) {
    // Rectangle within its core, N = -80000 at e = 40 under the middle: c1 = 12 N e / (B H^3); the
    // moment about the other axis is dropped.
    PoligonoCompresso p = Problema(-100, 100, 0, 400, {}, {-160.0 * 80000, 3e5, -80000});
    p.polSoloY = 1;
    PianoRisolto e = Risolvi(p);
    ASSERT_EQ(e.stato, StatoPiano::equilibrio);
    EXPECT_NEAR(e.polPiano(1), 0.003, 1e-9);
    EXPECT_EQ(e.polPiano(2), 0.0);
    EXPECT_EQ(e.polRisult(2), 0.0);
    EXPECT_NEAR(ValorePiano(e.polPiano, 0, 0), -1.6, 1e-6);
    // about the centroid (50, 100) no moment is left of the same force: uniform stress
    p = Problema(0, 100, 0, 200, {}, {0, 0, -20000});
    p.polRifFisso = 0;
    e = Risolvi(p);
    ASSERT_EQ(e.stato, StatoPiano::equilibrio);
    EXPECT_EQ(e.polXG, 50.0);
    EXPECT_NEAR(e.polYG, 100.0, 1e-12);
    EXPECT_NEAR(ValorePiano(e.polPiano, 100, 0), -1.0, 1e-9);
    // without clipping the plate pulls too: N = 20000 on 100 x 200
    p = Problema(0, 100, 0, 200, {}, {2e6, 1e6, 20000});
    p.polNonTaglia = 1;
    e = Risolvi(p);
    ASSERT_EQ(e.stato, StatoPiano::equilibrio);
    EXPECT_NEAR(ValorePiano(e.polPiano, 100, 0), 1.0, 1e-9);
}

// Load sets side by side have the bits of the solver that takes them one by one, whatever the
// width: random rectangles (some turned), bolts in and on them, in a row, one, two or a hundred,
// loads that do nothing, that compress or pull everything, that stop.
TEST(Contatto, LanesHaveTheBitsOfTheScalarSolver) {
    std::mt19937_64 gen(7);
    const auto fra = [&gen](double a, double b) {
        return std::uniform_real_distribution<>(a, b)(gen);
    };
    const auto forse = [&](double p) { return fra(0, 1) < p; };
    constexpr std::size_t kSestetti = 13;
    using Colonna = std::array<double, kSestetti>;
    std::array<int, 4> visti{};
    for (int giro = 0; giro < 150; ++giro) {
        const double B = std::floor(fra(20, 200)), y0 = forse(0.4) ? 0 : std::floor(fra(0, 60));
        const double y1 = y0 + std::floor(fra(-20, 400));
        const int nBarre = forse(0.15) ? 1 : forse(0.15) ? 2 : forse(0.05) ? 100 : 4 + giro % 17;
        std::vector<Barra> barre;
        const bool inFila = forse(0.15);
        for (int i = 0; i < nBarre; ++i) {
            barre.push_back({inFila ? 0 : std::floor(fra(-B - 3, B + 3)),
                             std::floor(fra(std::min(y0, y1), std::max(y0, y1))), fra(80, 600)});
        }
        PoligonoCompresso pol = Problema(-B, B, y0, y1, barre, {});
        pol.polRifY = fra(0, 300);
        pol.Completa();
        std::array<Colonna, 3> carico{}, piano{}, contatto{};
        std::array<PianoRisolto, kSestetti> attesi;
        for (std::size_t s = 0; s < kSestetti; ++s) {
            const double forza = forse(0.1) ? 0 : std::pow(10.0, fra(0, 5));
            pol.polAzioni(1) = forse(0.2) ? 0 : fra(-200, 200) * forza;
            pol.polAzioni(2) = forse(0.3) ? 0 : fra(-80, 80) * forza;
            pol.polAzioni(3) = forse(0.2) ? 0 : fra(-1, 0.6) * forza;
            attesi[s] = RisolviPiano(pol);
            ++visti[static_cast<std::size_t>(attesi[s].stato)];
            const auto c = CaricoInOrigine(pol.polAzioni, 0.0, pol.polRifY);
            for (std::size_t k = 0; k < 3; ++k) carico[k][s] = c(static_cast<long>(k) + 1);
        }
        const ProblemaPiani pr = PreparaPiani(pol);
        ASSERT_TRUE(pr.ordinario);
        std::array<char, kSestetti> risolto{};
        const ColonnePiani col{{carico[0].data(), carico[1].data(), carico[2].data()},
                               {piano[0].data(), piano[1].data(), piano[2].data()},
                               risolto.data()};
        const ColonneContatti con{{piano[0].data(), piano[1].data(), piano[2].data()},
                                  {contatto[0].data(), contatto[1].data(), contatto[2].data()}};
        const double ya = y0 + fra(0, 40);
        const RettangoloPiano r{-B, B, ya, ya + fra(0, 60)};
        const PoligonoCompresso striscia = [&] {
            PoligonoCompresso p = Problema(-B, B, r.yMin, r.yMax, {}, {});
            p.Completa();
            return p;
        }();
        for (const int larghezza : {0, 1, 2, 4, 8}) {  // 0: what the program chooses
            risolto.fill(7), piano = {}, contatto = {};
            const auto conta = [&]<int W>() {
                NucleoPiani<W>::Risolvi(pr, kSestetti, col);
                NucleoPiani<W>::Contatti(r, kSestetti, con);
            };
            switch (larghezza) {
                case 0:
                    RisolviPiani(pr, kSestetti, col);
                    ContattiPiani(r, kSestetti, con);
                    break;
                case 1:
                    conta.operator()<1>();
                    break;
                case 2:
                    conta.operator()<2>();
                    break;
                case 4:
                    conta.operator()<4>();
                    break;
                default:
                    conta.operator()<8>();
            }
            for (std::size_t s = 0; s < kSestetti; ++s) {
                SCOPED_TRACE(testing::Message() << giro << " " << s << " " << larghezza);
                const bool bene = attesi[s].stato == StatoPiano::equilibrio;
                ASSERT_EQ(risolto[s], bene ? 1 : 0);
                if (!bene) continue;
                const Piano c = RisultantiContatto(striscia, attesi[s].polPiano);
                for (std::size_t k = 0; k < 3; ++k) {
                    const long m = static_cast<long>(k) + 1;
                    ASSERT_EQ(std::bit_cast<long>(piano[k][s]),
                              std::bit_cast<long>(attesi[s].polPiano(m)));
                    ASSERT_EQ(contatto[k][s], c(m));
                }
            }
        }
    }
    for (const auto stato :
         {StatoPiano::equilibrio, StatoPiano::singolare, StatoPiano::areeNegative}) {
        EXPECT_GT(visti[static_cast<std::size_t>(stato)], 10);
    }
}

TEST(Contatto, PointInPolygon) {
    Tab1<double, 1, PoligonoCompresso::kVertici + 1> x, y;
    using Punti = std::vector<std::pair<double, double>>;
    const auto dove = [&](const Punti& v, double px, double py) {
        for (std::size_t j = 0; j < v.size(); ++j) {
            x(static_cast<long>(j) + 1) = v[j].first, y(static_cast<long>(j) + 1) = v[j].second;
        }
        return PuntoInPoligono(px, py, static_cast<int>(v.size()), x, y);
    };
    const Punti quadrato = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
    const Punti rombo = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
    const Punti punta = {{5, 0}, {4, 2}, {6, 2}};
    const Punti elle = {{0, 0}, {0, 10}, {5, 10}, {5, 4}, {10, 4}, {10, 0}};
    struct Caso {
        const Punti& v;
        double x, y;
        int atteso;
    };
    for (const Caso& c : {Caso{quadrato, 5, 5, 1},
                          {quadrato, -5, 5, 0},
                          {quadrato, 15, 5, 0},
                          {quadrato, 5, 12, 0},
                          {quadrato, 10, 5, 2},
                          {quadrato, 0, 5, 2},
                          {quadrato, 5, 10, 2},
                          {quadrato, 10, 10, 2},
                          {quadrato, 0.00005, 5, 2},  // within the tolerance of an edge
                          {quadrato, 0.00015, 5, 1},  // and just beyond it
                          {quadrato, 5, 10.00005, 2},
                          {quadrato, 5, 10.00015, 0},
                          {quadrato, 10.00005, 10, 2},
                          {quadrato, 10.00015, 10, 0},
                          {quadrato, -5, 10, 0},  // ray along the upper edge
                          {quadrato, -5, 0, 0},   // and along the lower one
                          {rombo, -0.5, 0, 1},    // ray out through one vertex
                          {rombo, -2, 0, 0},      // in through one, out through another
                          {punta, 0, 0, 0},       // ray that touches a tip from below
                          {punta, 0, 2, 0},
                          {elle, 2, 4, 1},  // ray along an inner edge
                          {elle, 7, 7, 0},
                          {elle, -3, 4, 0}}) {
        EXPECT_EQ(dove(c.v, c.x, c.y), c.atteso) << c.x << ", " << c.y;
    }
}

// The overhangs of plate 2 by hand. No ribs: W = 100 20^2 / 6, the width of the flange.
struct Sbalzo : testing::Test {
    Nodo n = prova::NodoDiProva();
    Risultati ris;
    prova::Porta porta;
    void Piani() {
        AzzeraRisultati(n, ris);
        ASSERT_TRUE(AzioniBulloni(n, PreparaGeometria(n), ris, porta.Fai()));
    }
    bool Verifica() { return VerificaPiastra(n, PreparaGeometria(n), ris, porta.Fai()); }
};

TEST_F(Sbalzo, AStripWithoutCompressionIsBentByItsBoltsAlone) {
    n.AttNerv(1) = n.AttNerv(2) = false;
    prova::AggiungiSestetto(n, 40000, 0, 0, 0, 0, 0);
    const Strisce st = GeometriaDi(n).strisce;
    EXPECT_EQ(std::tie(st.yInf1, st.yInf2, st.ySup1, st.ySup2), std::tuple(25., 85., 285., 345.));
    Piani();
    ASSERT_TRUE(Verifica());
    // two bolts of 10000 daN at 30 mm from the flange: 600000 / 6666.67
    EXPECT_NEAR(ris.SigPiastra2(0, 0), 90.0, 1e-6);
    // plate 2 no higher than the beam: nothing to check
    n.distAlaSecPiastra = 0, n.HPiastra(2) = 200;
    prova::MettiBulloni(n, {{-60, 110, 20}, {60, 110, 20}, {-60, 260, 20}, {60, 260, 20}});
    ASSERT_TRUE(Verifica());
    EXPECT_EQ(ris.SigPiastra2(0, 0), 0.0);
}

// Uniform compression of 1 daN/mm2 on a plate that stands out on one side only: the contact of the
// strip, 180 x 60 at 30 mm, and the two bolts there, which are not taken out of it.
TEST_F(Sbalzo, ContactAndCompressedBoltsAddUp) {
    n.AttNerv(1) = n.AttNerv(2) = false;
    n.HPiastra(2) = 260;
    for (const bool sopra : {false, true}) {
        n.distAlaSecPiastra = sopra ? 60 : 0;
        const double y1 = sopra ? 120 : 55, y2 = sopra ? 315 : 250;
        prova::MettiBulloni(n, {{-60, y1, 20}, {60, y1, 20}, {-60, y2, 20}, {60, y2, 20}});
        n.nSollAg = 0;
        // the middle of the plate lies 30 mm above or below the axis: 10 Mz = 30 N
        prova::AggiungiSestetto(n, -46800, 0, 0, 0, 0, sopra ? 140400 : -140400);
        Piani();
        for (int i = 1; i <= 4; ++i) EXPECT_NEAR(ris.Sigma(0, i), -1, 1e-9);
        ASSERT_TRUE(Verifica());
        EXPECT_NEAR(ris.SigPiastra2(0, 0),
                    (180.0 * 60 * 30 + 2 * 245.69507824338157 * 30) / (100 * 400.0 / 6), 1e-6);
    }
}

TEST_F(Sbalzo, ABoltCountsByItsRoundedStress) {
    n.AttNerv(1) = n.AttNerv(2) = false;
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 0);
    const double perSigma = 245.69507824338157 * 30 / (100 * 400.0 / 6);
    for (const auto& [sigma, quanto] :
         {std::pair{0.4, 0.0}, {0.5, 0.0}, {-0.5, 0.0}, {0.6, 0.6}, {-0.6, 0.6}, {1.5, 1.5}}) {
        for (const int bullone : {1, 3}) {  // one in either overhang
            AzzeraRisultati(n, ris);
            ris.Sigma(0, bullone) = sigma;
            ASSERT_TRUE(Verifica());
            EXPECT_NEAR(ris.SigPiastra2(0, 0), quanto * perSigma, 1e-9) << sigma;
        }
    }
}

TEST_F(Sbalzo, TheTSection) {
    // Flange 100 x 20, rib 1 of 100 x 8 without its own inertia: yG = 190/7, I = 44.6e6/21; at the
    // tip M (120 - 190/7) / I = 1950/44.6 for M = 1e6.
    EXPECT_NEAR(FlessionePiastra(n, 1, -1e6, 0.0), 1950 / 44.6, 1e-9);
    EXPECT_EQ(FlessionePiastra(n, 1, 1e6, 50.0), 50.0);
    // rib 2 of 90 x 10: A = 2900, yG = 785/29, I = 100 20^3/12 + 2000 (495/29)^2 + 900 (1100/29)^2
    const double I = 200000.0 / 3 + (2000.0 * 495 * 495 + 900.0 * 1100 * 1100) / 841;
    EXPECT_NEAR(FlessionePiastra(n, 2, 1e6, 0.0), 1e6 / I * (110 - 785.0 / 29), 1e-9);
    n.AttNerv(1) = false;
    EXPECT_NEAR(FlessionePiastra(n, 1, 1e6, 0.0), 150.0, 1e-9);
}

// Ten times the torsion is beyond the range of numbers: the bolts have a plane, plate 2 has none.
TEST_F(Sbalzo, ATorsionBeyondTheNumbersNamesTheLoadSet) {
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 0);
    prova::AggiungiSestetto(n, 9000, 0, 0, 1e308, 0, 0);
    Piani();
    EXPECT_FALSE(Verifica());
    EXPECT_EQ(porta.Testi(),
              (std::vector<std::string>{"Convergenza non raggiunta.",
                                        "Sestetto di sollecitazione n°2: situazione non "
                                        "equilibrata nella verifica della piastra. La "
                                        "verifica non può continuare!"}));
}

}  // namespace
}  // namespace tk07
