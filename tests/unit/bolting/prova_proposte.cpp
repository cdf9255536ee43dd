#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "aiuti/prova.h"
#include "base/aritmetica.h"
#include "bolting/proposte.h"
#include "joint/controlla_dati.h"

namespace tk07 {
namespace {

using prova::Porta;
using Testi = std::vector<std::string>;

std::string Impossibile(const std::string& dove) {
    return "Impossibile inserire bulloni " + dove +
           " trave secondaria.\nModificare il diametro dei bulloni o le dimensioni delle piastre.";
}
const std::string kSopra = Impossibile("nella porzione sopra la"),
                  kSotto = Impossibile("nella porzione sotto la"),
                  kALato = Impossibile("a lato dell'anima della");
const char* const kNonCompatibili =
    "Diametro dei bulloni e dimensioni delle piastre 'non compatibili'. Aumentare lo spessore "
    "delle piastre o le loro dimensioni o diminuire il diametro o la tolleranza foro/bullone";

Opzioni OpzioniCon(double tolleranza, double distSald) {
    Opzioni o;
    o.Righe.resize(30);
    o.Righe[5].Valore = tolleranza;
    o.Righe[6].Valore = distSald;
    return o;
}

ProfiloRec Sezione(double H, double B, double tw, double tf, double r) {
    ProfiloRec p;
    p.H = H, p.B = B, p.tw = tw, p.tf = tf, p.r = r;
    return p;
}

using NodoPtr = std::unique_ptr<Nodo>;

// The default joint: IPE160 on IPE270, plates of 10, both ribs, legs of 10.
NodoPtr NodoPiccolo() {
    const auto lib = std::make_unique<LibreriaProfili>();
    lib->Profili(1) = Sezione(270, 135, 6.6, 10.2, 15);
    lib->Profili(1).Nome = "IPE270";
    lib->Profili(2) = Sezione(160, 82, 5, 7.4, 9);
    lib->Profili(2).Nome = "IPE160";
    lib->nProfili = 2;
    auto n = std::make_unique<Nodo>();
    NodoDiDefault(*n, *lib, *std::make_unique<Materiali>(), PiattaformaMuta());
    return n;
}

// IPE240 on HEB500, plate 1 20 thick and plate 2 25, rib 1 of 15, no rib 2, rib 3 of 7, legs of 6
// and 8.
NodoPtr NodoGrande() {
    auto n = std::make_unique<Nodo>();
    n->TraPri = Sezione(500, 300, 14.5, 28, 27);
    n->TraSec = Sezione(240, 120, 6.2, 9.8, 15);
    n->BPiastra(1) = 300, n->HPiastra(1) = 444, n->SpPiastra(1) = 20;
    n->BPiastra(2) = 260, n->HPiastra(2) = 440, n->SpPiastra(2) = 25;
    n->distAlaSecPiastra = 100, n->distAliPriSec = 130.3;
    n->AttNerv(1) = true;
    n->SpNerv(1) = 15, n->H1Nerv(1) = 100, n->H2Nerv(1) = 66, n->BNerv(1) = 120;
    n->SpNerv(2) = 30;  // off: must not count
    n->SpNerv(3) = 7;
    n->spSaldS1 = 6, n->spSaldS2 = 8;
    RicalcolaNervatura3(*n);
    return n;
}

// A zone as worked by hand: columns and rows, the left half.
struct Griglia {
    std::vector<double> x, y;
};

// The bolts from `primo` on are the grids row by row, then their mirror images in the same order.
void AttendiGriglie(const BulloniTemp& t, int primo, const std::vector<Griglia>& griglie,
                    double diametro) {
    std::vector<std::array<double, 2>> attesi;
    for (const Griglia& g : griglie) {
        for (const double y : g.y) {
            for (const double x : g.x) attesi.push_back({x, y});
        }
    }
    const std::size_t meta = attesi.size();
    for (std::size_t k = 0; k < meta; ++k) attesi.push_back({-attesi[k][0], attesi[k][1]});
    ASSERT_EQ(t.nBullTemp, primo - 1 + static_cast<int>(attesi.size()));
    for (std::size_t k = 0; k < attesi.size(); ++k) {
        const int i = primo + static_cast<int>(k);
        EXPECT_NEAR(t.XbullTemp(i), attesi[k][0], 1e-9) << "bullone " << i;
        EXPECT_NEAR(t.YbullTemp(i), attesi[k][1], 1e-9) << "bullone " << i;
        EXPECT_EQ(t.FibullTemp(i), diametro);
    }
}

// d0 = 14, e >= 16.8, pitches >= 33.6 and 30.8, M = 5 + 10 + 7 = 22, x0 = Int(-60 + 17.8) = -43.
// Ybase = 204.5, top of plate 2 259.5. Above: y0 = Int(226.5 + 1) = 227 = y1 = 249 - 22. Below:
// y0 = 23, y1 = 204.5 - 160 - 22 = 22.5. Beside: y1 = 204.5 - 7.4 - 22 = 175.1,
// y0 = Int(Int(73.9 + 1) + 1) = 75, x1 = Int(-12.5 - 12) = -25; rows Int(100.1 / 30.8) + 1 = 4,
// one column in the middle of -43..-25.
TEST(Proponi, DefaultJointWithM12) {
    const NodoPtr n = NodoPiccolo();
    Porta porta;
    BulloniTemp t;
    EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), 12.0, t, porta.Fai()), 8);
    EXPECT_EQ(porta.Testi(), (Testi{kSopra, kSotto}));
    EXPECT_EQ(porta.detti[0].titolo, "TK07 - NODO TRAVE - TRAVE CON PIASTRE");
    EXPECT_EQ(porta.detti[0].segno, Segno::esclamazione);
    AttendiGriglie(t, 1, {{{-34}, {75, 75 + 100.1 / 3, 75 + 200.2 / 3, 175.1}}}, 12.0);
}

// d0 = 18, Rf = 9, Ybase = 222 + 250 - 130.3 = 341.7, top of plate 2 441.7, its bottom 1.7.
// Limit states: e >= 21.6, M = 5 + 8 + 9 = 22, pitches >= 43.2 and 39.6, x0 = Int(-107.4) = -108.
//   above   y Int(361.7 + 1) = 362 .. 420.1, x1 = Int(-(7.5 + 6) - 14) = -28
//   below   y Int(23.3 + 1) = 24 .. 81.7, x1 = -3.5 - 8 - 5 - 9 = -25.5
//   beside  y Int(Int(131.5 + 1) + 1) = 133 .. 311.9, x1 = Int(-(3.5 + 8) - 14) = -26; 5 rows
// Allowable stresses: e >= 27 and 36 = M, pitches >= 54, x0 = Int(-102) = -102.
//   above   362 .. 405.7, one row in the middle; below Int(37.7 + 1) = 38 .. 81.7, one row;
//   beside  4 rows
TEST(Proponi, LargerJointByBothMethods) {
    const NodoPtr n = NodoGrande();
    const std::vector<Griglia> slu{{{-108, -28}, {362, 420.1}},
                                   {{-108, -25.5}, {24, 81.7}},
                                   {{-108, -26}, {133, 177.725, 222.45, 267.175, 311.9}}};
    const std::vector<Griglia> ta{{{-102, -28}, {383.85}},
                                  {{-102, -25.5}, {59.85}},
                                  {{-102, -26}, {133, 133 + 178.9 / 3, 133 + 357.8 / 3, 311.9}}};
    for (const short tipo : std::initializer_list<short>{0, 1}) {
        for (const short esposizione : std::initializer_list<short>{0, 1, 2, 5, -1}) {
            n->TipoVer = tipo;
            n->Esposizione = esposizione;
            Porta porta;
            BulloniTemp t;
            AccodaBullone(t, 7, 8, 30);  // what is there stays, the new ones go behind
            EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), 16.0, t, porta.Fai()), tipo == 0 ? 24 : 36);
            EXPECT_EQ(porta.Testi(), Testi{});
            AttendiGriglie(t, 2, tipo == 0 ? ta : slu, 16.0);
            EXPECT_EQ(t.XbullTemp(1), 7.0);
        }
    }
}

// Each pair stands on either side of one bound; the plates are far too small for such bolts, so a
// compatible diameter gives the warnings of the zones instead.
TEST(Proponi, IncompatibleDiameterEndsIt) {
    struct Caso {
        short tipo, esposizione;
        double t, d0;
        bool compatibile;
    };
    const std::vector<Caso> casi{{0, 0, 10, 30.0, true},    // 2 d0 = 60 = 6 t
                                 {0, 0, 10, 30.1, false},   // 2 d0 = 60.2 > 60
                                 {1, 0, 14, 80.0, true},    // 1.2 d0 = 96 = 4 t + 40
                                 {1, 0, 14, 80.1, false},   // 1.2 d0 = 96.12
                                 {1, 1, 14, 81.0, true},    // no bound on the edge; 2.4 d0 < 196
                                 {1, 1, 14, 82.0, false},   // 2.4 d0 = 196.8 > 14 t = 196
                                 {1, 1, 20, 83.0, true},    // 2.4 d0 = 199.2 < 200
                                 {1, 1, 20, 84.0, false},   // 2.4 d0 = 201.6 > 200
                                 {1, 2, 20, 72.9, true},    // 2.4 d0 = 174.96 < 175
                                 {1, 2, 20, 73.0, false}};  // 2.4 d0 = 175.2
    for (const Caso& c : casi) {
        const NodoPtr n = NodoPiccolo();
        n->TipoVer = c.tipo, n->Esposizione = c.esposizione;
        n->SpPiastra(1) = c.t, n->SpPiastra(2) = c.t + 1;
        Porta porta;
        BulloniTemp t;
        AccodaBullone(t, 1, 2, 3);
        const BulloniTemp prima = t;
        EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), c.d0 - 2.0, t, porta.Fai()), 0);
        EXPECT_EQ(porta.HaDetto(kNonCompatibili), !c.compatibile) << c.t << " " << c.d0;
        EXPECT_EQ(porta.detti.size(), c.compatibile ? 3U : 1U);
        EXPECT_TRUE(t == prima);
    }
}

TEST(Proponi, WhichZonesWarn) {
    // No plate above or below the beam: nothing to warn about there.
    NodoPtr n = NodoPiccolo();
    n->distAlaSecPiastra = 0, n->HPiastra(2) = 160;
    n->AttNerv(1) = n->AttNerv(2) = false;
    Porta porta;
    BulloniTemp t;
    EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), 12.0, t, porta.Fai()), 8);
    EXPECT_EQ(porta.Testi(), Testi{});
    // M30 on the default joint: no height above and below, no width beside the web.
    porta.detti.clear();
    t = BulloniTemp{};
    EXPECT_EQ(Proponi(*NodoPiccolo(), OpzioniCon(2, 5), 30.0, t, porta.Fai()), 0);
    EXPECT_EQ(porta.Testi(), (Testi{kSopra, kSotto, kALato}));
    // Height enough but plates of 60: the filling finds no column, in the order of the zones.
    n = NodoGrande();
    n->BPiastra(2) = 60;
    porta.detti.clear();
    EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), 16.0, t, porta.Fai()), 0);
    EXPECT_EQ(porta.Testi(), (Testi{kSopra, kSotto, kALato}));
    EXPECT_EQ(t.nBullTemp, 0);
}

TEST(RiempiArea, OneLineInTheMiddleSeveralOnTheLimits) {
    LimitiProposta l;
    l.dProp = 20, l.passoMinX = 50, l.passoMinY = 40;
    Porta porta;
    BulloniTemp t;
    EXPECT_EQ(RiempiArea({-100, -50.5, 10, 50}, l, "no", t, porta.Fai()), 2);
    EXPECT_EQ(t.XbullTemp(1), -75.25);  // 49.5 < 50: one column
    EXPECT_EQ(t.YbullTemp(1), 10.0);    // 40 = 40: two rows
    EXPECT_EQ(t.YbullTemp(2), 50.0);
    EXPECT_EQ(RiempiArea({-100, -100, 10, 10}, l, "no", t, porta.Fai()), 1);  // a point is a zone
    EXPECT_EQ(porta.Testi(), Testi{});
    EXPECT_EQ(RiempiArea({-100, -50, 10, 9.9}, l, "niente righe", t, porta.Fai()), 0);
    EXPECT_EQ(RiempiArea({-100, -101, 10, 50}, l, "niente colonne", t, porta.Fai()), 0);
    EXPECT_EQ(porta.Testi(), (Testi{"niente righe", "niente colonne"}));
    EXPECT_EQ(t.nBullTemp, 3);
}

TEST(Proponi, Bolt101IsFatalAndChangesNothing) {
    const NodoPtr n = NodoGrande();
    const auto con = [](int quanti) {
        BulloniTemp t;
        for (int i = 1; i <= quanti; ++i) AccodaBullone(t, i, i, 12);
        return t;
    };
    const auto proponi = [&](double d) {
        return [&n, d](BulloniTemp& t) { Proponi(*n, OpzioniCon(2, 5), d, t, PiattaformaMuta()); };
    };
    LimitiProposta l;
    l.passoMinX = l.passoMinY = 10;
    const auto riempi = [&](BulloniTemp& t) {
        RiempiArea({-90, 0, 0, 90}, l, "no", t, PiattaformaMuta());
    };
    // 18 bolts a side; diameter -2 is a hole of 0, so the least pitch is 0
    const std::vector<std::pair<BulloniTemp, std::function<void(BulloniTemp&)>>> casi{
        {con(65), proponi(16)}, {con(83), proponi(16)}, {con(100), proponi(16)},
        {con(0), proponi(0)},   {con(0), proponi(-2)},  {con(1), riempi}};
    for (const auto& [prima, aggiungi] : casi) {
        BulloniTemp t = prima;
        EXPECT_THROW(aggiungi(t), ErroreFatale) << prima.nBullTemp;
        EXPECT_TRUE(t == prima);
    }
    BulloniTemp t = con(64);
    EXPECT_EQ(Proponi(*n, OpzioniCon(2, 5), 16.0, t, PiattaformaMuta()), 36);
    EXPECT_EQ(t.nBullTemp, 100);
    t = con(0);
    riempi(t);
    EXPECT_EQ(t.nBullTemp, 100);
}

// On any joint that fits together a proposal is mirrored, fits together as well, and keeps the
// edge distances of its method and the clearance from every weld; what it cannot do it tells.
TEST(Proponi, AnyConsistentJointTakesItsProposal) {
    std::mt19937 g(7);
    const auto tra = [&](double a, double b) {
        return std::floor(std::uniform_real_distribution<double>(a, b)(g) * 10.0) / 10.0;
    };
    const Opzioni opz = OpzioniCon(2, 5);
    const Piattaforma muta = PiattaformaMuta();
    const NodoPtr n = std::make_unique<Nodo>();
    int provati = 0, conBulloni = 0;
    for (int giro = 0; giro < 40000 && provati < 1500; ++giro) {
        n->nBull = 0;
        n->TraPri = Sezione(tra(200, 900), tra(100, 300), tra(5, 19), tra(8, 35), 20);
        n->TraSec = Sezione(tra(120, n->TraPri.H), tra(60, 300), tra(4, 16), tra(6, 30), 20);
        n->distAliPriSec = tra(0, n->TraPri.H - n->TraSec.H);
        n->distAlaSecPiastra = tra(-20, 150);
        for (int i = 1; i <= 2; ++i) {
            n->BPiastra(i) = tra(100, 400);
            n->SpPiastra(i) = tra(8, 30);
            n->AttNerv(i) = tra(0, 2) < 1.0;
        }
        n->HPiastra(1) = n->TraPri.H - tra(0, 100);
        n->HPiastra(2) = n->distAlaSecPiastra + n->TraSec.H + tra(-20, 150);
        n->spSaldS1 = tra(4, 12), n->spSaldS2 = tra(4, 12);
        n->TipoVer = static_cast<short>(giro % 2), n->Esposizione = static_cast<short>(giro % 3);
        ProponiNerv(*n);
        RicalcolaNervatura3(*n);
        if (ControllaDati(*n, opz, muta)) continue;
        ++provati;
        const double d = tra(8, 30), d0 = d + 2.0;
        Porta porta;
        BulloniTemp t;
        int aggiunti = 0;
        try {
            aggiunti = Proponi(*n, opz, d, t, porta.Fai());
        } catch (const ErroreFatale&) {
            EXPECT_EQ(t.nBullTemp, 0);
            continue;
        }
        ASSERT_EQ(aggiunti, t.nBullTemp);
        ASSERT_TRUE(aggiunti > 0 || !porta.detti.empty());
        conBulloni += aggiunti > 0 ? 1 : 0;
        const Rettangolo c = GeometriaDi(*n).comune;
        const double eX = (n->TipoVer == 0 ? 1.5 : 1.2) * d0, eY = (n->TipoVer == 0 ? 2 : 1.2) * d0;
        for (int i = 1; i <= aggiunti / 2; ++i) {
            const int s = i + aggiunti / 2;
            ASSERT_EQ(t.XbullTemp(s), -t.XbullTemp(i));
            ASSERT_EQ(t.YbullTemp(s), t.YbullTemp(i));
            ASSERT_LT(t.XbullTemp(i), 0.0);
            ASSERT_GE(t.XbullTemp(i) - c.xMin, eX - 1e-9);
            ASSERT_GE(t.YbullTemp(i) - c.yMin, eY - 1e-9);
            ASSERT_GE(c.yMax - t.YbullTemp(i), eY - 1e-9);
            // the nearest weld on each side, off the hole's edge: rib 3 and the ends of plate 1,
            // then rib, flange or web of the zone
            const double libero = d0 / 2 + 5.0 - 1e-9, x = -t.XbullTemp(i), y = t.YbullTemp(i);
            const double sopra = y - (n->HPiastra(1) + n->TraPri.H) / 2 + n->distAliPriSec;
            const double sotto = -sopra - n->TraSec.H;
            const bool traLeAli = sopra < 0 && sotto < 0;
            const int nerv = sopra > 0 ? 1 : 2;
            ASSERT_GE(Min(y, n->HPiastra(1) - y) - n->spSaldS2, libero);
            ASSERT_GE(x - n->SpNerv(3) / 2 - n->spSaldS2, libero);
            if (traLeAli || n->AttNerv(nerv)) {
                ASSERT_GE(x - (traLeAli ? n->TraSec.tw : n->SpNerv(nerv)) / 2 - n->spSaldS1,
                          libero);
            }
            ASSERT_GE(
                (traLeAli ? -Max(sopra, sotto) - n->TraSec.tf : Max(sopra, sotto)) - n->spSaldS1,
                libero);
        }
        CopiaNelNodo(t, *n);
        Porta controllo;
        ASSERT_FALSE(ControllaDati(*n, opz, controllo.Fai()))
            << "giro " << giro << ": " << controllo.Testi()[0];
    }
    EXPECT_EQ(provati, 1500);
    EXPECT_GT(conBulloni, 700);
}

TEST(ProponiPias, SizesAreNotCutToWholeMillimetres) {
    const NodoPtr n = NodoPiccolo();
    n->TraSec.tf = 12.5;
    n->H1Nerv(1) = 70, n->H1Nerv(2) = 40;
    n->BPiastra.Riempi(1), n->HPiastra.Riempi(1), n->SpPiastra.Riempi(1);
    struct Caso {
        bool nerv1, nerv2;
        double H2;
    };
    // 160 + (rib 1: Max(70, 55), else 55) + (rib 2: 40, else 0)
    for (const Caso& c :
         {Caso{true, true, 270}, {true, false, 230}, {false, true, 255}, {false, false, 215}}) {
        n->AttNerv(1) = c.nerv1, n->AttNerv(2) = c.nerv2;
        ProponiPias(*n);
        EXPECT_EQ(n->HPiastra(2), c.H2);
    }
    EXPECT_EQ(n->BPiastra(1), 135.0);
    EXPECT_EQ(n->BPiastra(2), 120.0);  // the floor: the beam has 82
    EXPECT_EQ(n->HPiastra(1), 249.0);  // Int(270 - 20.4)
    EXPECT_EQ(n->SpPiastra(1), 12.5);
    EXPECT_EQ(n->SpPiastra(2), 12.5);
    n->AttNerv(1) = true;
    n->H1Nerv(1) = 30;  // lower than the room: the room counts
    n->TraPri.B = 90, n->TraSec.tf = 7.4;
    ProponiPias(*n);
    EXPECT_EQ(n->HPiastra(2), 215.0);
    EXPECT_EQ(n->BPiastra(1), 120.0);
    EXPECT_EQ(n->SpPiastra(1), 10.2);
}

TEST(ProponiNerv, SizesFollowTheRoomAndARibIsNeverSwitchedOn) {
    const NodoPtr n = NodoPiccolo();
    n->TraSec.tw = 5.02;
    n->distAlaSecPiastra = 50.5, n->HPiastra(2) = 250;  // 39.5 below
    n->AttNerv(2) = false;
    ProponiNerv(*n);
    EXPECT_EQ(n->H1Nerv(1), 50.5);
    EXPECT_EQ(n->H2Nerv(1), 33.0);  // Int(33.67)
    EXPECT_EQ(n->H1Nerv(2), 39.5);
    EXPECT_EQ(n->H2Nerv(2), 26.0);  // Int(26.33)
    EXPECT_EQ(n->BNerv(2), 80.0);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(n->SpNerv(i), 6.0) << i;
    EXPECT_TRUE(n->AttNerv(1));
    EXPECT_FALSE(n->AttNerv(2));
    n->AttNerv(2) = true;
    n->TraSec.tw = 7.0;
    n->distAlaSecPiastra = 0, n->HPiastra(2) = 155;  // 5 too little below
    ProponiNerv(*n);
    for (int i = 1; i <= 2; ++i) {
        EXPECT_FALSE(n->AttNerv(i)) << i;
        EXPECT_EQ(n->H1Nerv(i), 0.0);
        EXPECT_EQ(n->H2Nerv(i), 0.0);
        EXPECT_EQ(n->BNerv(i), 0.0);
        EXPECT_EQ(n->SpNerv(i), 7.0);  // the thickness is proposed all the same
    }
}

}  // namespace
}  // namespace tk07
