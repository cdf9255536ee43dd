#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "libraries/profili.h"

namespace tk07 {
namespace {

// An I section by the places of its row; what lies between is not read.
const std::string kIpe = " 28.48 1943 x x 142.4 x x x x 6.98 x x Q1 x x 200 100 5.6 8.5 12\n";

struct Letto {
    std::unique_ptr<LibreriaProfili> lib = std::make_unique<LibreriaProfili>();
    GuastoLettura guasto;
    short n = 0;
    const ProfiloRec& operator()(int i) const { return lib->Profili(i); }
};

Letto Leggi(const std::string& testo, std::string_view filtro = kFamiglieNodo,
            double fattoreLunghezze = 1.0, const std::string* cercato = nullptr, int primo = 1) {
    const prova::Cartella c;
    prova::ScriviTesto(c / "prof_pro", testo);
    Letto l;
    l.n = LeggiProfili("  " + (c / "prof_pro").string() + " ", primo, l.lib->Profili,
                       fattoreLunghezze, 10.0, filtro, &l.guasto, cercato);
    l.lib->nProfili = l.n;
    return l;
}

TEST(LeggiProfili, RowsCommentsAndFilter) {
    const Letto l = Leggi("*\n%\n\n  \t\n* comment\n% 1 2 3\nHE 100" + kIpe + "UPN 200" + kIpe +
                          "INP 200" + kIpe + "ipe 100" + kIpe + "IPE\t \t200\t" + kIpe +
                          "  HEA 100" + kIpe + " *END* \nIPE rotto\n");
    ASSERT_EQ(l.n, 2) << l.guasto.testo;
    EXPECT_EQ(l(0), ProfiloRec{});
    EXPECT_EQ(l(2).Nome, "HEA100");
    const ProfiloRec& p = l(1);
    EXPECT_EQ(p.Nome, "IPE200");
    EXPECT_EQ((std::vector{p.H, p.B, p.tw, p.tf, p.r, p.r1, p.e1, p.e2}),
              (std::vector{200.0, 100.0, 5.6, 8.5, 12.0, 0.0, 0.0, 0.0}));
    EXPECT_NEAR(p.Area, 2848, 1e-9);  // cm2, cm4 in the file; mm2, mm4 in memory
    EXPECT_NEAR(p.J1, 1943e4, 1e-6);
    EXPECT_NEAR(p.J2, 142.4e4, 1e-6);
    EXPECT_NEAR(p.J3, 6.98e4, 1e-6);
    EXPECT_EQ(p.Lettera, 'Q');
    EXPECT_EQ(Leggi("HEA 100" + kIpe + "*END*", " HEAA  XHEA ").n, 0) << "whole tokens only";
    // without a filter a family that is none is passed over all the same
    EXPECT_EQ(Leggi("HE 100" + kIpe + "* x\nUB 200" + kIpe + "*END*", "").n, 1);
}

TEST(LeggiProfili, AnyFaultGivesNothing) {
    const std::tuple<std::string, const char*> casi[] = {
        {"", "*END*"},
        {"IPE 200" + kIpe, "*END*"},
        {"IPE 200" + kIpe + "*END* x\n", "*END*"},
        {"IPE 200" + kIpe + "IPE 220" + SostituisciTesto(kIpe, "8.5", "8,5") + "*END*", "riga 2"},
        {"IPE 200" + SostituisciTesto(kIpe, "1943", "-") + "*END*", "riga 1"},
        {"*\nIPE 200" + SostituisciTesto(kIpe, " 12\n", "\n") + "*END*", "riga 2"},
        {"IPE 200\n*END*", "riga 1"},
        {"HEM 100 12 13 mm\n*END*", "riga 1"}};
    for (const auto& [testo, perche] : casi) {
        const Letto l = Leggi(testo);
        EXPECT_EQ(l.n, 0) << testo;
        EXPECT_TRUE(Contiene(l.guasto.testo, perche)) << l.guasto.testo;
    }
    const Letto vuoto = Leggi("*END*");
    EXPECT_EQ(vuoto.n, 0);
    EXPECT_EQ(vuoto.guasto.testo, "");
    Letto manca;
    EXPECT_EQ(LeggiProfili("manca/prof_pro", 1, manca.lib->Profili, 1.0, 10.0, "", &manca.guasto),
              0);
    EXPECT_NE(manca.guasto.testo, "");
}

TEST(LeggiProfili, TwoThousandSectionsAreTheMost) {
    std::string testo;
    for (int i = 1; i <= 2000; ++i) testo += "IPE " + std::to_string(i) + kIpe;
    const Letto pieno = Leggi(testo + "UPN 1\n*END*");
    EXPECT_EQ(pieno.n, 2000);
    EXPECT_EQ(pieno(2000).Nome, "IPE2000");
    const Letto oltre = Leggi(testo + "IPE 2001" + kIpe + "*END*");
    EXPECT_EQ(oltre.n, 0);
    EXPECT_TRUE(Contiene(oltre.guasto.testo, "2000"));
}

// Field i of the row holds the number i: the record tells which place each value comes from.
TEST(LeggiProfili, EveryFamilyHasItsLayout) {
    struct Caso {
        const char* famiglia;
        int ultimo;
        std::vector<double> attesi;  // Area J1 J2 J3 H B tw tf r r1 e1 e2
        char lettera;
    };
    const Caso casi[] = {
        {"HXB", 20, {1, 2, 5, 10, 16, 17, 18, 19, 20, 0, 0, 0}, '1'},
        {"UC", 20, {1, 2, 5, 10, 16, 17, 18, 19, 20, 0, 0, 0}, '1'},
        {"INP", 21, {1, 2, 5, 10, 16, 17, 18, 19, 20, 21, 0, 0}, '1'},
        {"UPN", 17, {1, 2, 4, 6, 11, 12, 13, 14, 16, 17, 5.5, 15}, '8'},  // e1 = H / 2
        {"LU", 17, {1, 2, 4, 6, 11, 11, 12, 12, 16, 17, 13, 14}, '8'},
        {"LD", 17, {1, 2, 4, 6, 11, 12, 13, 13, 16, 17, 14, 15}, '8'},
        {"LLU", 10, {1, 2, 3, 0, 8, 8, 9, 10, 0, 0, 0, 0}, '5'},
        {"T.QUAD", 12, {1, 2, 4, 6, 11, 11, 12, 0, 0, 0, 0, 0}, '8'},
        {"TUBO", 12, {1, 2, 4, 6, 0, 11, 12, 0, 0, 0, 0, 0}, '8'}};
    for (const Caso& c : casi) {
        std::string riga = c.famiglia + std::string(" 7");
        std::string corta;
        for (int i = 1; i <= c.ultimo; ++i) {
            corta = riga;
            riga += " " + std::to_string(i);
        }
        const Letto l = Leggi(riga + "\n*END*", "", 2.0);
        ASSERT_EQ(l.n, 1) << c.famiglia << l.guasto.testo;
        const ProfiloRec& p = l(1);
        EXPECT_EQ(p.Nome, c.famiglia + std::string("7"));
        EXPECT_EQ((std::vector{p.Area / 1e2, p.J1 / 1e4, p.J2 / 1e4, p.J3 / 1e4, p.H / 2, p.B / 2,
                               p.tw / 2, p.tf / 2, p.r / 2, p.r1 / 2, p.e1 / 2, p.e2 / 2}),
                  c.attesi)
            << c.famiglia;
        EXPECT_EQ(p.Lettera, c.lettera) << c.famiglia;
        EXPECT_EQ(Leggi(corta + "\n*END*", "").n, 0) << c.famiglia;
    }
}

TEST(LeggiProfili, OneNameOnly) {
    const std::string testo = "IPE 100" + kIpe + "IPE 200" + kIpe + "IPE 300 rotto\n";
    const std::string ipe200 = "IPE200", minuscolo = "ipe200";
    const Letto l = Leggi(testo, kFamiglieNodo, 1.0, &ipe200, 7);
    EXPECT_EQ(l.n, 1) << l.guasto.testo;
    EXPECT_EQ(l(7).Nome, "IPE200");
    EXPECT_EQ(l(6), ProfiloRec{});
    EXPECT_EQ(Leggi(testo + "*END*", kFamiglieNodo, 1.0, &minuscolo).n, 0);
    ProfiloRec p = l(7);
    AzzeraProfilo(p);
    EXPECT_EQ(p.H + p.B + p.tw + p.tf + p.r + p.r1 + p.e1 + p.e2, 0.0);
    EXPECT_EQ(p.Lettera, ' ');
    EXPECT_NEAR(p.Area, 2848, 1e-9);
}

TEST(CercaProfiloDaNome, IsExact) {
    const Letto l = Leggi("IPE 100" + kIpe + "IPE 200" + kIpe + "*END*");
    prova::Porta porta;
    EXPECT_EQ(CercaProfiloDaNome(*l.lib, "IPE200", porta.Fai()), 2);
    EXPECT_TRUE(porta.detti.empty());
    for (const char* nome : {"IPE 200", "ipe200", "IPE20", ""}) {
        EXPECT_EQ(CercaProfiloDaNome(*l.lib, nome, porta.Fai()), 0);
        EXPECT_EQ(porta.Prendi(), "x|RICERCA PROFILO DA NOME|Profilo non trovato.");
    }
}

// The shipped library, every row from its own H B tw tf r. The root fillet is the square of side r
// less a quarter circle: area (1 - pi/4) r2, its centroid at c = (10 - 3 pi) / (12 - 3 pi) r from
// each leg. Rows carry five figures.
TEST(LibreriaInstallata, PropertiesFollowFromTheDimensions) {
    const auto lib = std::make_unique<LibreriaProfili>();
    GuastoLettura guasto;
    const short n = LeggiProfili(std::string(TK07_SORGENTE) + "/installazione/custom/prof_pro", 1,
                                 lib->Profili, 1.0, 10.0, kFamiglieNodo, &guasto);
    ASSERT_GT(n, 500) << guasto.testo;
    lib->nProfili = n;
    std::set<std::string> nomi;
    const double pi = std::acos(-1.0);
    for (int i = 1; i <= n; ++i) {
        const ProfiloRec& p = lib->Profili(i);
        SCOPED_TRACE(p.Nome);
        EXPECT_TRUE(nomi.insert(p.Nome).second);
        const double h = p.H, b = p.B, tw = p.tw, tf = p.tf, r = p.r, hi = h - 2 * tf;
        EXPECT_TRUE(r > 0 && tw > 0 && tf > tw * 0.9 && hi > 2 * r && b > tw + 2 * r);
        const double a = (1 - pi / 4) * r * r, c = (10 - 3 * pi) / (12 - 3 * pi) * r;
        const double A = 2 * b * tf + hi * tw + 4 * a;
        // fillet about its own centroid: square about a leg, less the quarter circle, less a c2
        const double cerchio = r - 4 * r / (3 * pi);
        const double ig = std::pow(r, 4) * (1.0 / 3 - pi / 16 + 4 / (9 * pi)) -
                          pi / 4 * r * r * cerchio * cerchio - a * c * c;
        const double iy = (b * h * h * h - (b - tw) * hi * hi * hi) / 12 +
                          4 * (ig + a * (hi / 2 - c) * (hi / 2 - c));
        const double iz = (2 * tf * b * b * b + hi * tw * tw * tw) / 12 +
                          4 * (ig + a * (tw / 2 + c) * (tw / 2 + c));
        // torsion: two flanges less their free ends, the web, and the circle in each junction
        const double d = ((tf + r) * (tf + r) + r * tw + tw * tw / 4) / (2 * r + tf);
        const double it = 2.0 / 3 * (b - 0.63 * tf) * tf * tf * tf + hi * tw * tw * tw / 3 +
                          2 * tw / tf * (0.145 + 0.1 * r / tf) * std::pow(d, 4);
        for (const auto& [letto, atteso] :
             {std::pair{p.Area, A}, {p.J1, iy}, {p.J2, iz}, {p.J3, it}}) {
            EXPECT_NEAR(letto / atteso, 1.0, 6e-5);
        }
        // names such as W360x134 carry the mass in kg/m: steel weighs 7850 kg/m3
        const std::size_t per = p.Nome.find('x');
        if (per == std::string::npos) continue;
        const double massa = ValoreIniziale(p.Nome.substr(per + 1));
        EXPECT_NEAR(A * 7850e-6 / massa, 1.0, p.Nome.rfind("M100x", 0) == 0 ? 0.08 : 0.025);
    }
    // manufacturers' tables: mm, cm2, cm4
    const std::tuple<const char*, std::vector<double>, double, double, double> note[] = {
        {"IPE200", {200, 100, 5.6, 8.5, 12}, 28.48, 1943, 142.4},
        {"IPE600", {600, 220, 12, 19, 24}, 156.0, 92080, 3387},
        {"IPEA300", {297, 150, 6.1, 9.2, 15}, 46.53, 7173, 519.0},
        {"IPEO600", {610, 224, 15, 24, 24}, 196.8, 118300, 4521},
        {"HEA200", {190, 200, 6.5, 10, 18}, 53.83, 3692, 1336},
        {"HEAA300", {283, 300, 7.5, 10.5, 27}, 88.91, 13800, 4734},
        {"HEB300", {300, 300, 11, 19, 27}, 149.1, 25170, 8563},
        {"HEM340", {377, 309, 21, 40, 27}, 315.8, 76370, 19710},
        {"HD400x1299", {600, 476, 100, 140, 15}, 1655, 754600, 254400},
        {"HP305x110", {307.9, 310.7, 15.3, 15.4, 15.2}, 140.1, 23560, 7709},
        {"W360x134", {356, 369, 11.2, 18, 15}, 170.6, 41510, 15080}};
    for (const auto& [nome, misure, area, iy, iz] : note) {
        const ProfiloRec& p = lib->Profili(IndiceProfilo(*lib, nome));
        EXPECT_EQ((std::vector{p.H, p.B, p.tw, p.tf, p.r}), misure) << nome;
        for (const auto& [letto, tabella] :
             {std::pair{p.Area / 1e2, area}, {p.J1 / 1e4, iy}, {p.J2 / 1e4, iz}}) {
            EXPECT_NEAR(letto / tabella, 1.0, 1e-3) << nome;
        }
    }
}

}  // namespace
}  // namespace tk07
