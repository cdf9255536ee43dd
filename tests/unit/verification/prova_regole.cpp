// Spacing rules of the bolts and consistency of the joint, every rule at its limit and just beyond.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "joint/controlla_dati.h"
#include "nodo_di_prova.h"
#include "verification/interassi.h"

namespace tk07 {
namespace {

using Testi = std::vector<std::string>;
using prova::Bullone;

// Two equal plates, one upon the other, from 0 to H and from -B/2 to B/2; holes with 2 mm more.
Nodo Piastre(double B, double H, double Sp, const std::vector<Bullone>& bulloni) {
    Nodo n;
    n.TraPri.H = H;
    for (const int k : {1, 2}) n.BPiastra(k) = B, n.HPiastra(k) = H, n.SpPiastra(k) = Sp;
    prova::MettiBulloni(n, bulloni);
    return n;
}

struct Passo {
    const char* che;
    Nodo n;
    int esposizione;
    Testi attesi;  // without the norm
};

std::string Bordo(const char* quale, int piastra, const char* direzione) {
    return std::string("I bulloni non rispettano la distanza ") + quale +
           " dai bordi della piastra " + std::to_string(piastra) + " in direzione " + direzione;
}
const std::string kMin1o = Bordo("minima", 1, "orizzontale");
const std::string kMin2o = Bordo("minima", 2, "orizzontale");
const std::string kMax1o = Bordo("massima", 1, "orizzontale");
const std::string kMax2o = Bordo("massima", 2, "orizzontale");
const std::string kMin1v = Bordo("minima", 1, "verticale");
const std::string kMin2v = Bordo("minima", 2, "verticale");
const std::string kMax1v = Bordo("massima", 1, "verticale");
const std::string kMax2v = Bordo("massima", 2, "verticale");
const std::string kPasso = "I bulloni non rispettano l'interasse ";
const std::string kPassoMinO = kPasso + "minimo in direzione orizzontale";
const std::string kPassoMaxO = kPasso + "massimo in direzione orizzontale";
const std::string kPassoMinV = kPasso + "minimo in direzione verticale";
const std::string kPassoMaxV = kPasso + "massimo in direzione verticale";

void Controlla(const std::vector<Passo>& passi, Metodo metodo) {
    for (const Passo& c : passi) {
        SCOPED_TRACE(c.che);
        Nodo n = c.n;
        n.Esposizione = static_cast<short>(c.esposizione);
        n.TipoVer = metodo == Metodo::SLU ? 1 : 0;
        prova::Porta porta;
        const Opzioni opz = prova::OpzioniDiProva();
        EXPECT_EQ(ControllaBulloni(n, opz, porta.Fai()), c.attesi.empty());
        // The same bolts as a layout in hand, on a joint whose own lie elsewhere.
        std::vector<PosizioneBullone> bulloni;
        for (int i = 1; i <= n.nBull; ++i) {
            bulloni.push_back({std::exchange(n.Xbull(i), 5.0 * i), n.Ybull(i), n.Fibull(i)});
        }
        const auto distanze = DistanzeBulloni(n, opz, bulloni);
        EXPECT_EQ(std::all_of(distanze.begin(), distanze.end(),
                              [](const DistanzaBulloni& d) { return d.Rispettata(); }),
                  c.attesi.empty());
        Testi attesi;
        for (const std::string& t : c.attesi) {
            attesi.push_back(t + (metodo == Metodo::SLU ? " (NTC 2018)" : " (CNR 10011/88)"));
        }
        EXPECT_EQ(porta.Testi(), attesi);
        EXPECT_TRUE(porta.Tutti(Segno::esclamazione, kTitoloProgramma));
    }
}

// Bolts of 18, so d0 = 20 and the limits are exact in binary: edges 24, spacing 48 and 44.
TEST(Interassi, NTC) {
    const auto coppia = [](double a) {
        return Piastre(200, 200, 20, {{-a, 100, 18}, {a, 100, 18}});
    };
    const auto colonna = [](double a) {
        return Piastre(200, 200, 20, {{0, 100 - a, 18}, {0, 100 + a, 18}});
    };
    const auto larga = [](double B, double Sp) { return Piastre(B, 200, Sp, {{0, 100, 18}}); };
    const auto alta = [](double H, double Sp) { return Piastre(200, H, Sp, {{0, H / 2, 18}}); };
    const auto riga = [](std::vector<double> x, double Sp) {
        std::vector<Bullone> b;
        for (const double v : x) b.push_back({v, 50, 18});
        return Piastre(300, 100, Sp, b);
    };
    Nodo stretta = coppia(71.5);
    stretta.BPiastra(2) = 190;
    Nodo scostata = alta(200, 20);  // plate 2 from 77 to 277
    scostata.distAlaSecPiastra = 77;
    Nodo sottile = riga({-70.1, 70.1}, 20);
    sottile.SpPiastra(2) = 10;
    Controlla(
        {{"edge of 24", coppia(76), 0, {}},
         {"a hair less", coppia(76.001), 0, {kMin1o, kMin2o}},
         {"plate 2 narrower", stretta, 0, {kMin2o}},
         {"right alone", Piastre(200, 200, 20, {{76.001, 100, 18}}), 1, {kMin1o, kMin2o}},
         {"left alone", Piastre(200, 200, 20, {{-76.001, 100, 18}}), 1, {kMin1o, kMin2o}},
         {"above alone", Piastre(200, 200, 20, {{0, 176.001, 18}}), 1, {kMin1v, kMin2v}},
         {"below alone", Piastre(200, 200, 20, {{0, 23.999, 18}}), 1, {kMin1v, kMin2v}},
         {"24 below and above", colonna(76), 0, {}},
         {"a hair less below and above", colonna(76.001), 0, {kMin1v, kMin2v}},
         {"plate 2 has its own ends", scostata, 1, {kMin2v}},
         {"4 t + 40", larga(240, 20), 0, {}},
         {"beyond 4 t + 40", larga(240.002, 20), 0, {kMax1o, kMax2o}},
         {"beyond 4 t + 40, vertical", alta(240.002, 20), 0, {kMax1v, kMax2v}},
         {"not exposed: no limit", larga(900, 20), 1, {}},
         {"resistant: 125", larga(250, 15), 2, {}},
         {"beyond 125", larga(250.002, 15), 2, {kMax1o, kMax2o}},
         {"resistant: 8 t", larga(320, 20), 2, {}},
         {"beyond 8 t", larga(320.002, 20), 2, {kMax1o, kMax2o}},
         {"spacing 48", coppia(24), 0, {}},
         {"spacing a hair less", coppia(23.999), 0, {kPassoMinO}},
         {"45 in a row", coppia(22.5), 0, {kPassoMinO}},
         {"45 in a column", colonna(22.5), 0, {}},
         {"44 in a column", colonna(22), 0, {}},
         {"43.8 in a column", colonna(21.9), 0, {kPassoMinV}},
         {"200", riga({-100, 100}, 20), 0, {}},
         {"200, not exposed", riga({-100, 100}, 20), 1, {}},
         {"beyond 200", riga({-100.001, 100.001}, 20), 1, {kPassoMaxO}},
         {"resistant: 175", riga({-87.5, 87.5}, 20), 2, {}},
         {"beyond 175", riga({-87.501, 87.501}, 20), 2, {kPassoMaxO}},
         {"14 t of the thinner plate", riga({-70, 70}, 10), 1, {}},
         {"beyond it", sottile, 1, {kPassoMaxO}},
         {"beyond it in a column",
          Piastre(200, 300, 10, {{0, 79, 18}, {0, 220, 18}}),
          1,
          {kPassoMaxV}},
         // 40 tan 30 = 23.094
         {"inside the wedge",
          Piastre(200, 200, 20, {{-20, 100, 18}, {20, 123, 18}}),
          0,
          {kPassoMinO}},
         {"outside it", Piastre(200, 200, 20, {{-20, 100, 18}, {20, 123.2, 18}}), 0, {}},
         {"one breach is told, then it stops", riga({-50, -20, 10}, 20), 1, {kPassoMinO}},
         {"the second bolt's neighbour", riga({30, -50, 0}, 20), 0, {kPassoMinO}},
         {"only the nearest is a neighbour", riga({-110, 0, 110}, 20), 0, {}},
         {"one pair, both messages, then stop", riga({-45, 0, 45}, 3), 1, {kPassoMinO, kPassoMaxO}},
         {"d0 of the smaller bolt", Piastre(200, 200, 20, {{-24, 100, 18}, {24, 100, 28}}), 0, {}},
         {"every end with its own bolt",
          Piastre(200, 200, 20, {{-52, 100, 38}, {76, 100, 18}}),
          1,
          {}},
         {"the first too near",
          Piastre(200, 200, 20, {{-53, 100, 38}, {76, 100, 18}}),
          1,
          {kMin1o, kMin2o}},
         // x equal: the first in the list faces the left edge, the last the right one, at 40
         {"ties keep their order", Piastre(200, 200, 20, {{60, 60, 38}, {60, 140, 18}}), 1, {}},
         {"and the other way",
          Piastre(200, 200, 20, {{60, 60, 18}, {60, 140, 38}}),
          1,
          {kMin1o, kMin2o}},
         {"outside, measured from outside", Piastre(200, 200, 20, {{130, 100, 18}}), 1, {}},
         {"d0 of 22 in the middle of 100", Piastre(100, 200, 20, {{0, 100, 20}}), 0, {}},
         {"all the edge messages in order",
          Piastre(40, 300, 20, {{0, 20, 18}}),
          0,
          {kMin1o, kMin2o, kMin1v, kMax1v, kMin2v, kMax2v}},
         {"no bolt", Piastre(200, 200, 20, {}), 0, {}}},
        Metodo::SLU);
}

// d0 = 20: edges 30 and 40, spacing 60.
TEST(Interassi, CNR) {
    const auto coppia = [](double a, double B, double Sp) {
        const double H = Sp < 20 ? 110 : 200;
        return Piastre(B, H, Sp, {{-a, H / 2, 18}, {a, H / 2, 18}});
    };
    const auto colonna = [](double a) {
        return Piastre(200, 200, 20, {{0, 100 - a, 18}, {0, 100 + a, 18}});
    };
    const auto uno = [](double B, double H) { return Piastre(B, H, 20, {{0, H / 2, 18}}); };
    // the exposure doesn't count here
    Controlla({{"edge of 30", coppia(70, 200, 20), 1, {}},
               {"edge a hair less", coppia(70.001, 200, 20), 1, {kMin1o, kMin2o}},
               {"40 below and above", colonna(60), 1, {}},
               {"a hair less below and above", colonna(60.001), 1, {kMin1v, kMin2v}},
               {"6 t", uno(240, 200), 1, {}},
               {"beyond 6 t", uno(240.002, 200), 1, {kMax1o, kMax2o}},
               {"vertical 6 t", uno(200, 240), 1, {}},
               {"beyond 6 t plate 2 only", uno(200, 240.2), 1, {kMax2v}},
               {"plate 1 up to 9 t", uno(200, 360), 1, {kMax2v}},
               {"beyond 9 t", uno(200, 360.2), 1, {kMax1v, kMax2v}},
               {"spacing 60", coppia(30, 200, 20), 0, {}},
               {"spacing a hair less", coppia(29.999, 200, 20), 0, {kPassoMinO}},
               {"column 60", colonna(30), 0, {}},
               {"column a hair less", colonna(29.999), 0, {kPassoMinV}},
               {"15 t", coppia(75, 220, 10), 0, {}},
               {"beyond 15 t", coppia(75.001, 220, 10), 0, {kPassoMaxO}},
               {"beyond 15 t in a column",
                Piastre(100, 250, 10, {{0, 49, 18}, {0, 200, 18}}),
                0,
                {kPassoMaxV}}},
              Metodo::TA);
}

using Modifica = std::function<void(Nodo&)>;
struct Dato {
    Modifica limite;  // still consistent
    Modifica oltre;   // just beyond
    Testi attesi;
};

constexpr const char* kFuori = "Almeno un bullone è fuori dall'area comune alle due piastre.";
constexpr const char* kTrave =
    "Almeno un bullone si trova in corrispondenza della trave secondaria.";
constexpr const char* kPiastra2 = "Piastra 2 più piccola della trave secondaria.";
constexpr const char* kNerv1 = "Valori della nervatura 1 negativi o nulli.";
constexpr const char* kNerv2 = "Valori della nervatura 2 negativi o nulli.";
constexpr const char* kNerv3 = "Dimensioni della nervatura 3 negative o nulle.";
constexpr const char* kDimP1 = "Dimensioni della piastra 1 negative o nulle.";
constexpr const char* kDimP2 = "Dimensioni della piastra 2 negative o nulle.";
constexpr const char* kLati = "Lato delle saldature negativo o nullo.";
constexpr const char* kS1N1 =
    "Lo spessore della saldatura S1 non è compatibile con le dimensioni della nervatura 1.";
constexpr const char* kS1N2 =
    "Il lato della saldatura S1 non è compatibile con le dimensioni della nervatura 2.";
constexpr const char* kS2N3 =
    "Il lato della saldatura S2 non è compatibile con le dimensioni della nervatura 3.";
constexpr const char* kSeparate = "Non c'è intersezione tra le due piastre.";

void Confronta(const Nodo& n, const Testi& attesi, double gioco = 2.0) {
    prova::Porta porta;
    EXPECT_EQ(ControllaDati(n, prova::OpzioniDiProva(gioco), porta.Fai()), !attesi.empty());
    EXPECT_EQ(porta.Testi(), attesi);
    EXPECT_TRUE(porta.Tutti(Segno::esclamazione, kTitoloProgramma));
}

// What the report shows: four M20 with holes of 22 on plates 200 x 370 x 15 (0 to 370) and 180 x
// 320 x 20 (25 to 345). NTC: 1.2, 2.4 and 2.2 d0; 4 t + 40; the lesser of 14 t and 200. By hand;
// of 2 the first within 30 degrees is 3, 120 aside of 260.
TEST(Interassi, DistancesWithTheirLimits) {
    const auto d = DistanzeBulloni(prova::NodoDiProva(), prova::OpzioniDiProva(2.0));
    const auto O = Direzione::orizzontale, V = Direzione::verticale;
    const DistanzaBulloni attese[] = {
        {O, 1, false, 4, 0, 40, 26.4, 100},  {O, 1, true, 1, 0, 40, 26.4, 100},
        {O, 2, false, 4, 0, 30, 26.4, 120},  {O, 2, true, 1, 0, 30, 26.4, 120},
        {O, 0, false, 1, 2, 120, 52.8, 200}, {O, 0, false, 3, 4, 120, 52.8, 200},
        {V, 1, false, 4, 0, 55, 26.4, 100},  {V, 1, true, 1, 0, 55, 26.4, 100},
        {V, 2, false, 4, 0, 30, 26.4, 120},  {V, 2, true, 1, 0, 30, 26.4, 120},
        {V, 0, false, 1, 3, 260, 48.4, 200}, {V, 0, false, 2, 3, 260, 48.4, 200}};
    ASSERT_EQ(d.size(), std::size(attese));
    for (std::size_t k = 0; k < d.size(); ++k) {
        SCOPED_TRACE(k);
        const DistanzaBulloni& a = attese[k];
        EXPECT_TRUE(d[k].direzione == a.direzione && d[k].piastra == a.piastra &&
                    d[k].inizio == a.inizio && d[k].bullone == a.bullone && d[k].altro == a.altro);
        EXPECT_NEAR(d[k].valore, a.valore, 1e-9);
        EXPECT_NEAR(d[k].minimo, a.minimo, 1e-9);
        EXPECT_NEAR(d[k].massimo, a.massimo, 1e-9);
    }
}

TEST(ControllaDati, EveryTestAtItsBoundary) {
    const auto nulla = [](Nodo&) {};
    const Dato casi[] = {
        {[](Nodo& n) { n.TraSec.H = 400, n.HPiastra(2) = 530; },
         [](Nodo& n) { n.TraSec.H = 400.1, n.HPiastra(2) = 530; },
         {"Trave secondaria più alta della trave principale."}},
        {[](Nodo& n) { n.TraSec.B = 180; }, [](Nodo& n) { n.TraSec.B = 180.1; }, {kPiastra2}},
        {[](Nodo& n) { n.AttNerv(1) = false, n.distAlaSecPiastra = 0; },
         [](Nodo& n) { n.AttNerv(1) = false, n.distAlaSecPiastra = -0.1; },
         {kPiastra2}},
        {[](Nodo& n) { n.AttNerv(2) = false, n.HPiastra(2) = 260; },
         [](Nodo& n) { n.AttNerv(2) = false, n.HPiastra(2) = 259.9; },
         {kPiastra2}},
        {[](Nodo& n) { n.H1Nerv(1) = 0.1; }, [](Nodo& n) { n.H1Nerv(1) = 0; }, {kNerv1}},
        {[](Nodo& n) { n.H2Nerv(1) = 0; }, [](Nodo& n) { n.H2Nerv(1) = -0.1; }, {kNerv1}},
        {nulla, [](Nodo& n) { n.BNerv(1) = 0; }, {kNerv1, kS1N1}},
        {nulla, [](Nodo& n) { n.SpNerv(1) = 0; }, {kNerv1}},
        {nulla,
         [](Nodo& n) { n.H1Nerv(1) = 60.1; },
         {"Nervatura 1 più alta dello spazio disponibile sopra la trave secondaria."}},
        {[](Nodo& n) { n.SpNerv(1) = 180; },
         [](Nodo& n) { n.SpNerv(1) = 180.1; },
         {"Larghezza della nervatura 1 eccessiva."}},
        {[](Nodo& n) { n.H2Nerv(2) = 0; }, [](Nodo& n) { n.H2Nerv(2) = -0.1; }, {kNerv2}},
        {nulla, [](Nodo& n) { n.H1Nerv(2) = n.H2Nerv(2) = 0; }, {kNerv2, kS1N2}},
        {nulla, [](Nodo& n) { n.BNerv(2) = 0; }, {kNerv2, kS1N2}},
        {nulla, [](Nodo& n) { n.SpNerv(2) = 0; }, {kNerv2}},
        {nulla,
         [](Nodo& n) { n.H1Nerv(2) = 60.1; },
         {"Nervatura 2 più alta dello spazio disponibile sotto la trave secondaria."}},
        {[](Nodo& n) { n.SpNerv(2) = 180; },
         [](Nodo& n) { n.SpNerv(2) = 180.1; },
         {"Larghezza della nervatura 2 eccessiva."}},
        {nulla, [](Nodo& n) { n.H1Nerv(3) = 0; }, {kNerv3}},
        {nulla, [](Nodo& n) { n.H2Nerv(3) = 0; }, {kNerv3}},
        {nulla, [](Nodo& n) { n.BNerv(3) = 0; }, {kNerv3, kS2N3}},
        {nulla, [](Nodo& n) { n.SpNerv(3) = 0; }, {kNerv3}},
        {nulla, [](Nodo& n) { n.HPiastra(1) = 0; }, {kDimP1, kSeparate}},
        {nulla, [](Nodo& n) { n.BPiastra(1) = 0; }, {kDimP1}},
        {nulla, [](Nodo& n) { n.SpPiastra(1) = 0; }, {kDimP1}},
        {nulla,
         [](Nodo& n) { n.BPiastra(2) = n.TraSec.B = 0, n.AttNerv(1) = n.AttNerv(2) = false; },
         {kDimP2}},
        {nulla, [](Nodo& n) { n.SpPiastra(2) = 0; }, {kDimP2}},
        {[](Nodo& n) { n.spSaldS1 = n.spSaldS2 = 0.1; }, [](Nodo& n) { n.spSaldS1 = 0; }, {kLati}},
        {nulla, [](Nodo& n) { n.spSaldS2 = 0; }, {kLati}},
        {[](Nodo& n) { n.spSaldS1 = 60; }, [](Nodo& n) { n.spSaldS1 = 60.1; }, {kS1N1, kS1N2}},
        {[](Nodo& n) { n.BNerv(1) = 6; }, [](Nodo& n) { n.BNerv(1) = 5.9; }, {kS1N1}},
        {[](Nodo& n) { n.BNerv(2) = 6; }, [](Nodo& n) { n.BNerv(2) = 5.9; }, {kS1N2}},
        {[](Nodo& n) { n.spSaldS2 = 40; }, [](Nodo& n) { n.spSaldS2 = 40.1; }, {kS2N3}},
        // top of plate 2 at 0.1 and at 0
        {[](Nodo& n) { n.distAliPriSec = 444.9; },
         [](Nodo& n) { n.distAliPriSec = 445; },
         {kSeparate}},
        {[](Nodo& n) { n.distPiastraTraPri = 15; },
         [](Nodo& n) { n.distPiastraTraPri = 15.1; },
         {"La piastra 1 esce completamente dalla trave principale."}},
        {[](Nodo& n) { n.distPiastraTraPri = -0.1, n.distAliPriSec = 75; },
         [](Nodo& n) { n.distPiastraTraPri = -0.1, n.distAliPriSec = 74.9; },
         {"La piastra 2 si interseca con l'ala della trave principale."}},
        {[](Nodo& n) { n.distAliPriSec = 74.9; },
         // everything at once, in order
         [](Nodo& n) {
             n.SpNerv(1) = n.SpNerv(2) = 0, n.SpPiastra(1) = n.SpPiastra(2) = n.SpNerv(3) = 0;
             n.spSaldS2 = 50, n.distPiastraTraPri = 1, n.TraSec.B = 190;
             prova::MettiBulloni(n, {{0, 180, 20}, {90, 180, 20}});
         },
         {kPiastra2, kNerv1, kNerv2, kNerv3, kDimP1, kDimP2, kS2N3, kTrave,
          "La piastra 1 esce completamente dalla trave principale."}}};
    const auto base = [] {
        Nodo n = prova::NodoDiProva();
        n.nBull = 0;
        return n;
    };
    for (std::size_t i = 0; i < std::size(casi); ++i) {
        SCOPED_TRACE("caso " + std::to_string(i) + " " + casi[i].attesi[0]);
        Nodo n = base();
        casi[i].limite(n);
        Confronta(n, {});
        n = base();
        casi[i].oltre(n);
        Confronta(n, casi[i].attesi);
    }
    // ribs that are switched off are not looked at
    Nodo n = base();
    n.AttNerv(1) = n.AttNerv(2) = false;
    for (const int k : {1, 2}) n.H1Nerv(k) = 900, n.BNerv(k) = n.SpNerv(k) = -1;
    Confronta(n, {});
}

// Holes of radius 11. Common area x -90..90, y 25..345; flanges 85..95 and 275..285, x -50..50; web
// 6 wide.
TEST(ControllaDati, BoltsClearEdgesFlangesAndWeb) {
    struct Caso {
        double x, y;
        Testi attesi;
    };
    for (const Caso& c : {Caso{79, 334, {}},     {79.1, 334, {kFuori}}, {79, 334.1, {kFuori}},
                          {-79, 36, {}},         {-79.1, 36, {kFuori}}, {-79, 35.9, {kFuori}},
                          {0, 74, {}},           {0, 74.1, {kTrave}},   {61, 90, {}},
                          {60.9, 90, {kTrave}},  {-61, 90, {}},         {-60.9, 90, {kTrave}},
                          {20, 106, {}},         {20, 105.9, {kTrave}}, {20, 264, {}},
                          {20, 264.1, {kTrave}}, {0, 296, {}},          {0, 295.9, {kTrave}},
                          {61, 280, {}},         {60.9, 280, {kTrave}}, {14, 180, {}},
                          {13.9, 180, {kTrave}}, {-14, 180, {}},        {-13.9, 180, {kTrave}}}) {
        SCOPED_TRACE(std::to_string(c.x) + ", " + std::to_string(c.y));
        Nodo n = prova::NodoDiProva();
        prova::MettiBulloni(n, {{60, 55, 20}, {c.x, c.y, 20}});
        Confronta(n, c.attesi);
        if (c.attesi.empty()) {
            // every one of them sits at its limit: a wider hole fails
            EXPECT_TRUE(ControllaDati(n, prova::OpzioniDiProva(2.1), PiattaformaMuta()));
        }
    }
    Nodo n = prova::NodoDiProva();
    prova::MettiBulloni(n, {{60, 55, 20}, {13.9, 180, 20}, {79.1, 334, 20}});
    Confronta(n, {kTrave});  // the first bad one only
}

}  // namespace
}  // namespace tk07
