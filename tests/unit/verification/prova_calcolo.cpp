// The verification against values from outside; by hand where the method leaves the textbook.

#include <gtest/gtest.h>

#include <map>

#include "base/aritmetica.h"
#include "joint/file_nodo.h"
#include "nodo_di_prova.h"
#include "norme/cnr10011.h"
#include "norme/ntc2018.h"
#include "verification/azioni_bulloni.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"
#include "verification/verifica_nodo.h"

namespace tk07 {
namespace {

using Json = nlohmann::json;

// Calculation without boxes.
Risultati Calcola(const Nodo& n, const Opzioni& opz = prova::OpzioniDiProva()) {
    Risultati r;
    prova::Porta porta;
    EXPECT_EQ(CalcolaNodo(n, opz, r, porta.Fai()), EsitoVerifica::completata);
    return r;
}

// The bolts' actions alone.
Risultati Azioni(const Nodo& n) {
    Risultati r;
    AzzeraRisultati(n, r);
    EXPECT_TRUE(AzioniBulloni(n, PreparaGeometria(n), r, PiattaformaMuta()));
    return r;
}

TEST(Riferimenti, PublishedResistancesAndBoltGroups) {
    const Json rif = prova::Validazione("riferimenti_bulloni.json");
    for (const Json& c : rif["area_resistente"]) {
        const double A = AreaResistente(c["d"]), t = c["As_di_tabella"];
        EXPECT_NEAR(A, c["A"].get<double>(), A * c["tolleranza_relativa"].get<double>());
        EXPECT_NEAR(A, t, t * c["tolleranza_su_tabella"].get<double>());
    }
    const auto bulloni = [](Nodo& n, const Json& c) {
        std::vector<prova::Bullone> b;
        for (const Json& v : c["bulloni"]) b.push_back({v[0], v[1], v[2]});
        prova::MettiBulloni(n, b);
    };
    for (const Json& c : rif["resistenze"]) {
        SCOPED_TRACE(c["nome"].get<std::string>());
        Nodo n;
        bulloni(n, c);
        for (const int k : {1, 2}) {
            n.BPiastra(k) = c["BPiastra"], n.HPiastra(k) = c["HPiastra"];
            n.SpPiastra(k) = c["SpPiastra"];
        }
        n.TraPri.H = c["TraPri_H"];
        n.vite.Nome = c["vite_Nome"], n.vite.FtVite = c["FtVite"];
        n.vite.GammaMVite = c["GammaMVite"];
        n.acciaio.Ftk40 = c["Ftk40"], n.acciaio.Ftk80 = c["Ftk80"];
        Risultati r;
        ResistenzeBulloni(n, prova::OpzioniDiProva(c["TollForoBull"]), PreparaGeometria(n), r);
        for (const Json& a : c["attesi"]) {
            const std::string q = a["grandezza"];
            const auto& tavola = q == "Fv_Rd"   ? r.Fv_Rd
                                 : q == "Fb_Rd" ? r.Fb_Rd
                                 : q == "Ft_Rd" ? r.Ft_Rd
                                                : r.Bp_Rd;
            for (const int i : a["bulloni"]) {
                EXPECT_NEAR(tavola(i), a["valore"].get<double>(),
                            a["valore"].get<double>() * a["tolleranza_relativa"].get<double>())
                    << q << " " << i;
            }
        }
    }
    for (const Json& c : rif["torsione"]) {
        SCOPED_TRACE(c["nome"].get<std::string>());
        Nodo n = prova::NodoDiProva();
        bulloni(n, c);
        n.TraPri.H = n.HPiastra(1) = n.HPiastra(2) = 600, n.TraSec.H = 1200;
        n.distAliPriSec = -c["yAsse"].get<double>() + 0.0, n.distAlaSecPiastra = n.distAliPriSec;
        ASSERT_EQ(GeometriaDi(n).yAsse, c["yAsse"].get<double>());
        n.BPiastra(1) = n.BPiastra(2) = 400;
        prova::AggiungiSestetto(n, 0, c["TaglioY"], c["TaglioZ"], c["MomTorc"], 0, 0);
        const Risultati r = Azioni(n);
        double massimo = 0;
        for (int i = 1; i <= n.nBull; ++i) {
            const double atteso = c["Fv_Ed"][static_cast<std::size_t>(i - 1)];
            EXPECT_NEAR(r.Fv_Ed(0, i), atteso, atteso * c["tolleranza_relativa"].get<double>());
            massimo = std::max(massimo, r.Fv_Ed(0, i));
        }
        const double pubblicato = c["massimo_pubblicato"];
        EXPECT_NEAR(massimo, pubblicato, pubblicato * c["tolleranza_massimo"].get<double>());
    }
}

// distAzioni = 200/2 + 0 + 20 = 120 mm.
TEST(RegoleProprie, TheTransportLooksAtMzAndTyAlone) {
    struct Caso {
        double Mz, Ty;
        bool trasporta;
    };
    // 10 Mz - 120 Ty against the sign of Mz
    for (const Caso& c : {Caso{100, 8, false},
                          {100, 9, true},
                          {-100, -8, false},
                          {-100, -9, true},
                          {-100, 9, false},
                          {12, 1, true},
                          {0, 9, true},
                          {0, 0, true}}) {
        Nodo n = prova::NodoDiProva();
        prova::AggiungiSestetto(n, -40000, c.Ty, 50, 0, 7, c.Mz);
        EXPECT_EQ(Trasporta(n, 0, 120), c.trasporta) << c.Mz << " " << c.Ty;
        // and decides for the moment of Tz too: -10 My + 120 Tz
        const auto a = AzioniPiano(n, PreparaGeometria(n), 0);
        EXPECT_EQ(a(1), -10 * c.Mz + (c.trasporta ? 120 * c.Ty : 0.0));
        EXPECT_EQ(a(2), c.trasporta ? 5930.0 : -70.0);
        EXPECT_EQ(a(3), -40000.0);
    }
}

TEST(RegoleProprie, WeldsOfTheMainBeamTakeTheMomentsAsStored) {
    Nodo n = prova::NodoDiProva();
    n.AttNerv(1) = n.AttNerv(2) = false, n.distAlaSecPiastra = 5, n.HPiastra(2) = 210;
    prova::MettiBulloni(n, {{-60, 110, 20}, {60, 110, 20}, {-60, 260, 20}, {60, 260, 20}});
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 5000);
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 5000, 0);
    const Risultati r = Calcola(n);
    // S2: s4 354, s8 and s9 86 long; in daN/cm2 185 M / Ix
    const double b = 8 / std::sqrt(2.0);
    const double Ix =
        354. * 354 * 354 * b / 6 + 4 * (86 * b * b * b / 12 + b * 86 * std::pow(185 - b / 2, 2));
    EXPECT_NEAR(r.S_prp1(0, 7), -100 * 5000 * 185 / Ix, 1e-6);
    EXPECT_NEAR(r.S_prp2(0, 8), 100 * 5000 * 185 / Ix, 1e-6);
    // S1 with the plate flush, so symmetrical: s1 156, s2 and s3 35 long; ten times the moment
    const double c = 6 / std::sqrt(2.0);
    const double Ix1 =
        156. * 156 * 156 * c / 6 + 4 * (35 * c * c * c / 12 + c * 35 * std::pow(90 - c / 2, 2));
    EXPECT_NEAR(r.S_prp1(0, 1), -100 * 50000 * 90 / Ix1, 1e-6);
    const double Iy1 = 4 * (c * 35 * 35 * 35 / 12 + c * 35 * std::pow(50 - 17.5, 2)) +
                       2 * (156 * c * c * c / 12 + c * 156 * std::pow(3 + c / 2, 2));
    EXPECT_NEAR(r.S_prp2(1, 1), -100 * 50000 * 50 / Iy1, 1e-6);
    EXPECT_NEAR(r.S_prp1(1, 16), 100 * 50000 * 50 / Iy1, 1e-6);  // mirror: ends exchanged
    EXPECT_NEAR(r.S_prp2(1, 16), 100 * 50000 * 15 / Iy1, 1e-6);
}

TEST(RegoleProprie, TorsionOfTheWeldsAndMirrorsThatDoNotExist) {
    Nodo n = prova::NodoDiProva();
    n.AttNerv(1) = n.AttNerv(2) = false;
    prova::AggiungiSestetto(n, 0, 0, 0, 40, 0, 0);
    prova::AggiungiSestetto(n, 0, -3000, 0, 40, 0, 0);
    prova::AggiungiSestetto(n, 0, 0, 600, 0, 0, 0);
    const Risultati r = Calcola(n);
    // lines of 2 156 + 4 35 + 100 + 100 = 652 mm; J = 652 b^3/3, tau = 400 b/J
    const double b = 6 / std::sqrt(2.0), tau = 100 * 400 * 3 / (652 * b * b);
    for (const int l : {1, 2, 3, 10, 11}) EXPECT_NEAR(r.Tau_pa(0, l - 1), tau, 1e-9) << l;
    // s10 and s11 run over the full flange and have no mirror, but get its shear
    for (const int l : {25, 26}) {
        EXPECT_NEAR(r.Tau_pa(0, l - 1), tau, 1e-9);
        EXPECT_EQ(r.MaxS_prp(1, l - 1), 0.0);
    }
    // the torsion takes the sign of the shear: both add up
    EXPECT_NEAR(r.Tau_pa(1, 0), -tau - 100 * 3000 / (2 * 156 * b), 1e-9);
    EXPECT_NEAR(r.Tau_pa(1, 1), tau, 1e-9);  // horizontal lines: Tz is 0
    // a beam symmetrical about its axis has no torsion from Tz; Ah = (4 35 + 200) b
    EXPECT_NEAR(r.Tau_pa(2, 9), 100 * 600 / (340 * b), 1e-9);
}

TEST(RegoleProprie, LengthsOfTheWelds) {
    const auto lunghezze = [](const Nodo& n) {
        Risultati r;
        LunghezzeSaldature(GeometriaDi(n), r);
        return std::vector<double>(&r.LungSald(0), &r.LungSald(0) + 15);
    };
    Nodo n = prova::NodoDiProva();
    // s13 = 60-6-30 6/100 = 52.2; s14, pointed: |1/55 90 - 90 + 6| = 82.36; s15 = 54-55 6/90
    // = 50.33
    EXPECT_EQ(lunghezze(n),
              (std::vector<double>{156, 35, 35, 354, 52, 330, 52, 86, 86, 40, 39, 94, 52, 82, 50}));
    n.distAlaSecPiastra = 5.9, n.HPiastra(2) = 211.8;  // plate out by less than the leg
    EXPECT_EQ(lunghezze(n),
              (std::vector<double>{156, 35, 35, 354, 52, 330, 52, 86, 86, 0, 0, 100, 52, 90, 50}));
    n.distAlaSecPiastra = 6, n.HPiastra(2) = 212;  // by exactly the leg
    EXPECT_EQ(lunghezze(n)[9], 40);
    EXPECT_EQ(lunghezze(n)[13], 82);
    n.H1Nerv(2) = n.H2Nerv(2) = 5;  // equal heights: not pointed, whatever they are
    EXPECT_EQ(lunghezze(n)[13], 84);
    EXPECT_EQ(lunghezze(n)[14], 1);
    n.AttNerv(1) = n.AttNerv(2) = false;
    EXPECT_EQ(lunghezze(n),
              (std::vector<double>{156, 35, 35, 354, 52, 330, 52, 86, 86, 100, 100, 0, 0, 0, 0}));
    // negative lengths stay, cut downwards: 80 - 72.2 - 8 = -0.2
    n.SmussoNerv(3) = 72.2, n.BPiastra(1) = 20;
    EXPECT_EQ(lunghezze(n)[4], -1);
    EXPECT_EQ(lunghezze(n)[7], -4);
    EXPECT_EQ(lunghezze(n)[5], 225);
}

TEST(RegoleProprie, ResistancesOfTheBolts) {
    Nodo n = prova::NodoDiProva();
    const Opzioni opz = prova::OpzioniDiProva();
    const auto resistenze = [&](const Nodo& m) {
        Risultati r;
        ResistenzeBulloni(m, opz, PreparaGeometria(m), r);
        return r;
    };
    const double A = 245.69507824338157;
    for (const auto& [nome, fattore] : {std::pair{"Classe 4.6", 0.6},
                                        {"5.6", 0.6},
                                        {"8.8", 0.6},
                                        {"6.8", 0.5},
                                        {"10.9", 0.5},
                                        {"X", 0.0}}) {
        n.vite.Nome = nome;
        EXPECT_NEAR(resistenze(n).Fv_Rd(1), fattore * 8000 * A / 125, 1e-6) << nome;
    }
    // bolt 1: k = min(2.5, 2.8 30/22 - 1.7), alfa = 30/66; bolt 3: alfa = 30/66 too
    Risultati r = resistenze(n);
    const double kBordo = 2.8 * 30 / 22 - 1.7;
    EXPECT_NEAR(r.Fb_Rd(1), kBordo * 30 / 66 * 3600 * 20 * 15 / 125, 1e-6);
    EXPECT_NEAR(r.Fb_Rd(3), r.Fb_Rd(1), 1e-6);
    EXPECT_NEAR(r.Bp_Rd(1), 0.6 * 3.14159265358979 * 3600 * 30 * 15 / 125, 1e-6);
    // the strength of thick plates counts beyond 40 mm, on either plate
    for (const int k : {1, 2}) {
        Nodo m = n;
        m.SpPiastra(k) = 40;
        const double sottile = resistenze(m).Bp_Rd(1);
        m.SpPiastra(k) = 40.1;
        const double t = k == 2 ? 15 : 20;
        EXPECT_NEAR(sottile, 0.6 * 3.14159265358979 * 3600 * 30 * t / 125, 1e-6);
        EXPECT_NEAR(resistenze(m).Bp_Rd(1), 0.6 * 3.14159265358979 * 3400 * 30 * t / 125, 1e-6);
    }
    // but the ratio of alfa keeps Ftk40: 2000/3600 below the edge's 0.95
    prova::MettiBulloni(n, {{20, 88, 20}});
    n.vite.FtVite = 2000, n.SpPiastra(2) = 41;
    EXPECT_NEAR(resistenze(n).Fb_Rd(1), 2.5 * (2000.0 / 3600) * 3400 * 20 * 15 / 125, 1e-6);
    // a bolt alone is the left end of its row: k from x + 90, however near the right edge is
    n.Xbull(1) = -70;
    EXPECT_NEAR(CoefficientiBullone(n, opz, GeometriaDi(n), 1).k, 2.8 * 20 / 22 - 1.7, 1e-12);
    n.Xbull(1) = 70;
    EXPECT_EQ(CoefficientiBullone(n, opz, GeometriaDi(n), 1).k, 2.5);
    // inner bolts: 1.4 p/d0 - 1.7 and p/(3 d0) - 0.25, p to the nearest of the wedge, x 45 y 52
    n = prova::NodoDiProva();
    prova::MettiBulloni(
        n,
        {{-45, 180, 20}, {0, 180, 20}, {52, 180, 20}, {0, 120, 20}, {0, 232, 20}, {40, 210, 20}});
    const CoefficientiRifollamento c = CoefficientiBullone(n, opz, GeometriaDi(n), 2);
    EXPECT_NEAR(c.k, 1.4 * 45 / 22 - 1.7, 1e-12);
    EXPECT_NEAR(c.alfa, 52.0 / 66 - 0.25, 1e-12);
}

TEST(RegoleProprie, RatiosOfTheBolts) {
    Nodo n = prova::NodoDiProva();
    n.nBull = 1;
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 0);
    struct Caso {
        double Fv, Ft, FvRd, FbRd, FtRd, BpRd, Co1, Co2;
    };
    for (const Caso& c :
         {Caso{400, 280, 1000, 800, 2000, 1400, 0.5 + 0.2 / 1.4, 0.2},
          {400, -280, 1000, 800, 1400, 2000, 0.5, 0.2},  // compressed: Co2 all the same
          {0, -10, 1000, 800, 2000, 1400, 0, 1.0 / 140},
          {0, 280, 0, 0, 2000, 1400, 0.2, 0.2},
          {0, 0, 1000, 800, 2000, 1400, 0, 0},
          {1, 0, 0, 800, 2000, 1400, 100, 0},  // class unknown
          {1, 0, 1000, -5, 2000, 1400, 100, 0},
          {1, 1, 1000, 800, 0, 1400, 100, 100},
          {1, -1, 1000, 800, 2000, -1, 0.00125, 100}}) {
        Risultati r;
        AzzeraRisultati(n, r);
        r.Fv_Ed(0, 1) = c.Fv, r.Ft_Ed(0, 1) = c.Ft;
        r.Fv_Rd(1) = c.FvRd, r.Fb_Rd(1) = c.FbRd, r.Ft_Rd(1) = c.FtRd, r.Bp_Rd(1) = c.BpRd;
        CoefficientiBulloni(n, r);
        EXPECT_DOUBLE_EQ(r.Co1(0, 1), c.Co1) << c.Fv << " " << c.Ft;
        EXPECT_DOUBLE_EQ(r.Co2(0, 1), c.Co2) << c.Fv << " " << c.Ft;
    }
}

TEST(RegoleProprie, DirectShearGoesInEqualParts) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        Nodo n = prova::NodoDiProva(metodo);
        prova::MettiBulloni(n, {{0, 55, 16}, {0, 315, 24}});
        prova::AggiungiSestetto(n, -1000, 500, 0, 0, 0, 0);
        Risultati r = Azioni(n);
        if (metodo == Metodo::SLU) {
            EXPECT_EQ(r.Fv_Ed(0, 1), 250.0);
            EXPECT_EQ(r.Fv_Ed(0, 2), 250.0);
        } else {
            EXPECT_NEAR(r.Tau(0, 1), 250 / 155.86724428909935, 1e-12);
            SigRifollamento(n, PreparaGeometria(n), r);  // 250 / d / t
            EXPECT_NEAR(r.SigRifPias1(0, 1), 250.0 / 24 / 15, 1e-12);
            EXPECT_NEAR(r.SigRifPias2(0, 0), 250.0 / 16 / 20, 1e-12);
        }
    }
}

TEST(RegoleProprie, WeldsOfTheAllowableStressMethod) {
    Nodo n = prova::NodoDiProva(Metodo::TA);
    prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 0);
    Risultati r;
    AzzeraRisultati(n, r);
    struct Caso {
        const char* acciaio;
        double P, pa, pe, k;
        bool passa;
    };
    // Samm 1600: 0.85 gives 1360, 0.7 1120, a case II 1.125 more
    for (const Caso& c : {Caso{"S 235 (FE 360)", 0, 1360, 0, 1, true},
                          {"S 235 (FE 360)", 0, 1360.1, 0, 1, false},
                          {"s 235 (fe 360)", 0, -1360, 0, 1, true},
                          {"S 235 (FE 360)", 0, -1360.1, 0, 1, false},
                          {"S 235 (FE 360)", -1360, 0, 0, 1, true},
                          {"S 235 (FE 360)", 800, 0, -800, 1, true},
                          {"S 235 (FE 360)", 800, 0, -800.1, 1, false},
                          {"S 235 (FE 360)", 816, 1088, 0, 1, true},  // 3-4-5
                          {"S 235 (FE 360)", 816, 1089, 0, 1, false},
                          {"S 235 (FE 360)", 0, 1530, 0, 1.125, true},
                          {"S 235 (FE 360)", 0, 1530.1, 0, 1.125, false},
                          {"S 275 (FE 430)", 0, 1120, 0, 1, true},
                          {"S 275 (FE 430)", 680, 0, 680.1, 1, false},
                          {"S 355 (FE 510)", 0, 1120.1, 0, 1, false},
                          {"S 355 (FE 510)", 680, 0, 680, 1, true},
                          {"S 235", 0, 0, 0, 1, false}}) {
        r.S_prp1(0, 20) = c.P / 2, r.S_prp2(0, 20) = c.P;
        r.Tau_pa(0, 20) = c.pa, r.Tau_pe(0, 20) = c.pe;
        EXPECT_EQ(VerificaSaldaturaTA(n, FattoriTensAmm(c.acciaio), r, 20, 0, c.k).Passa(), c.passa)
            << c.acciaio << " " << c.P << " " << c.pa << " " << c.pe;
    }
    // limit states: the digits decide, in this order
    for (const auto& [nome, b1, b2] : {std::tuple{"Fe 235 e 275", 0.85, 1.0},
                                       {"s275", 0.7, 0.85},
                                       {"S 355", 0.7, 0.85},
                                       {"S420M", 0.62, 0.75},
                                       {"450", 0.62, 0.75},
                                       {"S 460", 0.62, 0.75},
                                       {"FE 360", 0.0, 0.0}}) {
        EXPECT_EQ(FattoriSLU(nome).Beta1, b1) << nome;
        EXPECT_EQ(FattoriSLU(nome).Beta2, b2) << nome;
    }
}

TEST(RegoleProprie, BearingCoefficient) {
    Nodo n = prova::NodoDiProva(Metodo::TA);
    const Opzioni opz = prova::OpzioniDiProva();
    const auto coeff = [&] { return CoeffRifollamento(n, opz, 0); };
    EXPECT_DOUBLE_EQ(coeff(), 30.0 / 22);  // lower end of plate 2, at 25
    n.Xbull(2) = 65;                       // 25 from the side of plate 2, 35 from plate 1's
    EXPECT_DOUBLE_EQ(coeff(), 30.0 / 22);  // the sides count with Tz or Mt only
    n.TaglioZ(0) = 0.0001;
    EXPECT_DOUBLE_EQ(coeff(), 30.0 / 22);
    n.TaglioZ(0) = -0.0002;
    EXPECT_DOUBLE_EQ(coeff(), 25.0 / 22);
    n.TaglioZ(0) = 0, n.MomTorc(0) = 1;
    EXPECT_DOUBLE_EQ(coeff(), 25.0 / 22);
    n.Fibull(4) = 12;  // the smallest hole of all
    EXPECT_DOUBLE_EQ(coeff(), 25.0 / 14);
    n.Xbull(1) = -98;
    EXPECT_DOUBLE_EQ(coeff(), 2.0 / 14);
    n = prova::NodoDiProva(Metodo::TA);
    prova::MettiBulloni(n, {{0, 180, 20}});
    EXPECT_EQ(coeff(), 2.5);  // 155/22
    n.Ybull(1) = 345;         // on the upper end of plate 2
    EXPECT_EQ(coeff(), 0.0);
    n.Ybull(1) = 357;  // 13 from the end of plate 1, 12 from plate 2's
    EXPECT_DOUBLE_EQ(coeff(), 12.0 / 22);
    n.Ybull(1) = 8;
    EXPECT_DOUBLE_EQ(coeff(), 8.0 / 22);
}

}  // namespace
}  // namespace tk07
