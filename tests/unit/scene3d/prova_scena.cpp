#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "aiuti/prova.h"
#include "base/aritmetica.h"
#include "base/testo.h"
#include "scene3d/file_scena.h"
#include "scene3d/sezioni.h"
#include "scene3d/terna.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();
constexpr double kPiGreco = 3.141592653589793;

// "Z Y R" of each vertex of the first contour, to three decimals, divided by bars.
std::string Vertici(const Sezione& s) {
    std::string t;
    for (const Vertice& v : s.contorni.at(0)) {
        for (const double x : {v.Z, v.Y, v.R}) t += TestoReale(Arrotonda(x, 3)) + " ";
        t.back() = '|';
    }
    return t;
}

// Area inside a clockwise contour: polygon of the vertices, plus or less the segment of each arc.
double Area(const Contorno& c) {
    double a = 0.0;
    for (std::size_t k = 0; k < c.size(); ++k) {
        const Vertice &p = c[k], &q = c[(k + 1) % c.size()];
        a += (q.Z * p.Y - p.Z * q.Y) / 2.0;
        if (p.R == 0.0) continue;
        const double r = std::fabs(p.R),
                     teta = 2.0 * std::asin(std::hypot(q.Z - p.Z, q.Y - p.Y) / 2 / r);
        a += (p.R > 0 ? 1.0 : -1.0) * r * r / 2.0 * (teta - std::sin(teta));
    }
    return a;
}

TEST(Sezioni, VerticesByHand) {
    Scena s;
    ASSERT_TRUE(SezionePoligono(s, 40, 6, "dado", kMuta));
    EXPECT_EQ(Vertici(s.corrente),
              "20 0 0|10 -17.321 0|-10 -17.321 0|-20 0 0|-10 17.321 0|10 17.321 0|");
    ASSERT_TRUE(SezioneRettangolo(s, 8, 6, "r", kMuta));
    EXPECT_EQ(Vertici(s.corrente), "-4 3 0|4 3 0|4 -3 0|-4 -3 0|");
    ASSERT_TRUE(SezioneCerchio(s, 16.0011, "c", kMuta));  // vertices rounded, radius not
    EXPECT_EQ(Vertici(s.corrente), "0 8.001 8.001|8.001 0 8.001|0 -8.001 8.001|-8.001 0 8.001|");
    EXPECT_EQ(s.corrente.contorni[0][0], (Vertice{0, 8.001, 8.00055}));
    // Origin on the middle of the last side, from (0, 4) to (0, 0).
    ASSERT_TRUE(SezioneQuadrilatero(s, {{{0, 0}, {6, 0}, {6, 2}, {0, 4}}}, 1003, "n", kMuta));
    EXPECT_EQ(Vertici(s.corrente), "0 -2 0|6 -2 0|6 0 0|0 2 0|");
    ASSERT_TRUE(SezioneQuartoCerchio(s, 5, "q", kMuta));
    EXPECT_EQ(Vertici(s.corrente), "0 0 0|0 5 5|5 0 0|");
    EXPECT_NEAR(Area(s.corrente.contorni[0]), kPiGreco * 25 / 4, 1e-9);

    // T200 of round figures: H 200, B 100, tw 6, tf 10, r 12, moved to its centre.
    std::vector<Contorno> contorni;
    std::string tipo, errore;
    const ProfiloRec t200{.Nome = "T200", .H = 200, .B = 100, .tw = 6, .tf = 10, .r = 12};
    ASSERT_TRUE(ContorniProfilo(t200, "", contorni, tipo, errore));
    SezioneDaContorni(s, contorni, tipo, "T200", PrefissoP::si);
    EXPECT_EQ(s.corrente.sezioni_tipo, "P_T");
    OrigineSuBordo(s.corrente, 0);
    EXPECT_EQ(Vertici(s.corrente),
              "-50 -100 0|-50 -90 0|-15 -90 -12|-3 -78 0|-3 78 -12|-15 90 0|-50 90 0|-50 100 0|"
              "50 100 0|50 90 0|15 90 -12|3 78 0|3 -78 -12|15 -90 0|50 -90 0|50 -100 0|");
}

TEST(Sezioni, OutlinesHaveTheAreaOfTheClosedFormula) {
    const double k = 1 - kPiGreco / 4;  // what a rounded corner of radius 1 adds or takes
    // H, B, tw, tf, r, r1: web, flanges, roots r, tips r1
    const ProfiloRec base{.Nome = "", .H = 300, .B = 150, .tw = 7.1, .tf = 10.7, .r = 15, .r1 = 4};
    const double r2 = base.r * base.r, t2 = base.r1 * base.r1;
    const double ali = 2 * 150 * 10.7 + (300 - 2 * 10.7) * 7.1;
    struct Caso {
        const char* nome;
        std::size_t contorni, vertici;
        double area;
    };
    for (const Caso& c : {Caso{"IPE300", 1, 16, ali + 4 * k * r2},
                          {"INP300", 1, 20, ali + 4 * k * (r2 - t2)},
                          {"UPN300", 1, 12, ali + 2 * k * (r2 - t2)},
                          {"LD300", 1, 9, 300 * 7.1 + (150 - 7.1) * 10.7 + k * (r2 - 2 * t2)},
                          {"T.QUAD300", 2, 4, 300 * 150 - (300 - 14.2) * (150 - 14.2)},
                          {"TUBO300", 2, 4, kPiGreco * (150 * 150 - 142.9 * 142.9)}}) {
        ProfiloRec p = base;
        p.Nome = c.nome;
        std::vector<Contorno> contorni;
        std::string tipo, errore;
        ASSERT_TRUE(ContorniProfilo(p, "", contorni, tipo, errore)) << errore;
        ASSERT_EQ(contorni.size(), c.contorni) << c.nome;
        EXPECT_EQ(contorni[0].size(), c.vertici) << c.nome;
        EXPECT_NEAR(Area(contorni[0]) - (c.contorni == 2 ? Area(contorni[1]) : 0.0), c.area, 1e-6)
            << c.nome;
        EXPECT_FALSE(ContorniProfilo(p, "2UAFE", contorni, tipo, errore));
        p.r = 200;
        if (c.contorni == 1) {
            EXPECT_FALSE(ContorniProfilo(p, "", contorni, tipo, errore)) << c.nome;
        }
        EXPECT_NE(errore.find(c.nome), std::string::npos);
    }
}

TEST(Sezioni, OriginsAndRefusals) {
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    // Box from (10, 20) to (16, 28): what the first corner, (10, 28), becomes.
    const std::map<int, std::array<double, 2>> attesi = {
        {0, {-3, 4}}, {1, {0, 0}},  {2, {-3, 0}}, {3, {-6, 0}},  {4, {0, 4}},    {5, {-6, 4}},
        {6, {0, 8}},  {7, {-3, 8}}, {8, {-6, 8}}, {99, {-6, 8}}, {-1, {10, 28}}, {65535, {10, 28}}};
    for (const auto& [codice, v] : attesi) {
        Sezione s{"", "", {{{10, 28, 0}, {16, 28, 0}, {16, 20, 0}, {10, 20, 0}}}};
        OrigineSuBordo(s, codice);
        EXPECT_EQ(s.contorni[0][0], (Vertice{v[0], v[1], 0})) << codice;
        const Sezione prima = s;
        EXPECT_FALSE(OrigineSuVertice(s, 4, p));
        EXPECT_FALSE(OrigineSuVertice(s, 1004, p));
        EXPECT_TRUE(OrigineSuVertice(s, -1, p));
        EXPECT_EQ(s, prima);
    }
    EXPECT_EQ(porta.detti.back().testo, "Puntatore al vertice non corretto.");
    EXPECT_EQ(porta.detti.back().titolo, "IMPOSTA ORIGINE");

    Scena s;
    ImpostaScena(s, 1, 2, 3, "TK07");
    EXPECT_TRUE(SezionePoligono(s, 0.0001, 3, "", p) &&
                SezioneRettangolo(s, 0.0001, 0.0001, "", p) && SezioneCerchio(s, 0.0001, "", p) &&
                SezioneQuartoCerchio(s, 0.0001, "", p));
    const double poco = 0.000099, nan = std::nan("");
    porta.detti.clear();
    EXPECT_FALSE(SezionePoligono(s, poco, 6, "", p) || SezionePoligono(s, 5, 2, "", p) ||
                 SezioneRettangolo(s, 5, nan, "", p) || SezioneCerchio(s, poco, "", p) ||
                 SezioneQuartoCerchio(s, poco, "", p));
    s.sezioni.resize(kMaxSezioni);
    EXPECT_FALSE(SezionePoligono(s, 5, 6, "", p) || SezioneRettangolo(s, 5, 5, "", p) ||
                 SezioneCerchio(s, 5, "", p) || SezioneQuartoCerchio(s, 5, "", p));
    std::string detto;
    for (const std::string& x : porta.Testi())
        detto += SostituisciTesto(x, "Inserisci sezione ", "") + "|";
    EXPECT_EQ(detto,
              "poligono: dati errati.|poligono: dati errati.|rettangolare : dati errati.|"
              "circolare: dati errati.|quarto di cerchio: dati errati.|"
              "poligono: puntatore fuori limite.|rettangolare: puntatore fuori limite.|"
              "circolare: puntatore fuori limite.|quarto di cerchio: puntatore fuori limite.|");
    EXPECT_EQ(porta.Testi()[0], "Inserisci sezione poligono: dati errati.");
    EXPECT_TRUE(porta.Tutti(Segno::esclamazione, "VISUALIZZATORE 3D (TK07 )"));
}

TEST(Scena, EqualSectionsAreOneAndTheTablesHaveLimits) {
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    Scena s;
    short k = 7;
    const auto fissa = [&](double b, const char* descri) {
        SezioneRettangolo(s, b, 10, descri, p);
        return FissaSezione(s, k, p);
    };
    EXPECT_TRUE(fissa(20, "prima") && k == 0);
    EXPECT_TRUE(fissa(20 + 1e-7, "altra") && k == 0);  // vertices 5e-8 apart
    EXPECT_TRUE(fissa(20 + 4e-7, "nuova") && k == 1);  // 2e-7 apart
    SezioneQuadrilatero(s, {{{-10, 5}, {10, 5}, {10, -5}, {-10, -5}}}, -1, "", p);
    EXPECT_TRUE(FissaSezione(s, k, p) && k == 2) << "the kind counts";
    EXPECT_EQ(s.sezioni[0].sezioni_descr, "prima");
    for (int i = 3; i < kMaxSezioni; ++i) EXPECT_TRUE(fissa(100 + i, "") && k == i);
    EXPECT_TRUE(porta.detti.empty());
    s.corrente = s.sezioni[4];
    EXPECT_TRUE(FissaSezione(s, k, p) && k == 4);
    s.corrente.contorni[0][0].R = 3;
    EXPECT_FALSE(FissaSezione(s, k, p));
    EXPECT_EQ(k, 0);
    EXPECT_TRUE(porta.HaDetto("E' stato raggiunto il numero massimo di sezioni inseribili."));
    for (int i = 0; i < kMaxEstrusi; ++i) ASSERT_TRUE(AggiungiEstruso(s, {}, p));
    EXPECT_FALSE(AggiungiEstruso(s, {}, p));
    EXPECT_TRUE(porta.HaDetto("E' stato raggiunto il numero massimo di estrusi (500)."));
    const prova::Cartella c;
    Scena letta;
    std::string errore;
    ASSERT_TRUE(ScriviScena(s, (c / "s.tmp").string(), p));
    EXPECT_TRUE(LeggiScena((c / "s.tmp").string(), letta, errore)) << errore;
    EXPECT_EQ(letta.estrusi.size(), 500U);
}

// The table of terna.h; then a turn, and an axis that slopes 3 in 4.
TEST(Terna, LocalFrameOfTheAxes) {
    const auto terna = [](Punto3 a, double orient) {
        Estruso e;
        e.estrusi_coord1 = {5, 6, 7};
        e.estrusi_coord2 = Avanti(e.estrusi_coord1, 1.0, a);
        e.estrusi_orient = orient;
        return TernaEstruso(e);
    };
    struct Caso {
        Punto3 asse, y, z;
        double orient = 0.0;
    };
    for (const Caso& c : {Caso{{9, 0, 0}, {0, 0, 1}, {0, -1, 0}},
                          {{-9, 0, 0}, {0, 0, 1}, {0, 1, 0}},
                          {{0, 2, 0}, {0, 0, 1}, {1, 0, 0}},
                          {{0, -2, 0}, {0, 0, 1}, {-1, 0, 0}},
                          {{0, 0, 3}, {0, 1, 0}, {-1, 0, 0}},
                          {{0, 0, -3}, {0, 1, 0}, {1, 0, 0}},
                          {{9, 0, 0}, {0, -1, 0}, {0, 0, -1}, 90.0},
                          {{9, 0, 0}, {0, 1, 0}, {0, 0, 1}, -90.0},
                          {{4, 0, 3}, {-0.6, 0, 0.8}, {0, -1, 0}}}) {
        const Terna t = terna(c.asse, c.orient);
        ASSERT_TRUE(t.valida);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(t.y[i], c.y[i], 1e-15) << c.asse[0] << c.asse[1] << c.asse[2];
            EXPECT_NEAR(t.z[i], c.z[i], 1e-15) << c.asse[0] << c.asse[1] << c.asse[2];
        }
    }
    const Terna nulla = terna({0, 0, 0}, 0);
    EXPECT_FALSE(nulla.valida);
    EXPECT_EQ(nulla.x, Punto3{});
}

Scena Piccola() {
    Scena s;
    ImpostaScena(s, 15, 50.5, 3, "TK07");
    short k = 0;
    SezioneQuartoCerchio(s, 5, "sald[a]", kMuta);
    FissaSezione(s, k, kMuta);
    Estruso e;
    e.estrusi_orient = 90;
    e.estrusi_collat = ColoreArgb(0xFFFFA500);
    e.estrusi_descri = "|oggetto=a|";
    e.estrusi_coord1 = {1, -2.5, 1e-20};
    AggiungiEstruso(s, e, kMuta);
    return s;
}

TEST(FileScena, LayoutByHand) {
    // value and key of each line, divided by bars; the value goes to column 40
    const std::string righe =
        "15 visual_alfa/50.5 visual_beta/3 visual_dist/1 estrusi_numero/0 estrusi_tipo 0/"
        "0 estrusi_punse1 0/0 estrusi_punse2 0/90 estrusi_orient 0/-16777077 estrusi_colini 0/"
        "-16777077 estrusi_colfin 0/-23296 estrusi_collat 0/|oggetto=a| estrusi_descri 0/"
        "1 estrusi_coord1 0 0/0 estrusi_coord2 0 0/0 estrusi_coord3 0 0/"
        "-2.5 estrusi_coord1 0 1/0 estrusi_coord2 0 1/0 estrusi_coord3 0 1/"
        "0.00000000000000000001 estrusi_coord1 0 2/0 estrusi_coord2 0 2/0 estrusi_coord3 0 2/"
        "0 estrusi_rotaz1 0 0/0 estrusi_rotaz2 0 0/0 estrusi_rotaz1 0 1/0 estrusi_rotaz2 0 1/"
        "1 sezioni_numero/sald[a] sezioni_descr 0/QUARTODICERCHIO sezioni_tipo 0/"
        "1 sezioni_nroCon 0/3 sezioni_nroVer 0 0/"
        "0 sezioni_ZVer 0 0 0/0 sezioni_YVer 0 0 0/0 sezioni_RVer 0 0 0/"
        "0 sezioni_ZVer 0 0 1/5 sezioni_YVer 0 0 1/5 sezioni_RVer 0 0 1/"
        "5 sezioni_ZVer 0 0 2/0 sezioni_YVer 0 0 2/0 sezioni_RVer 0 0 2";
    std::string atteso =
        "ARGANOWIN [QuestoProgramma=non_presente] [Descrizione=file_vis3d] [Oggetto=non_presente] "
        "[ReleaseArgano=18] [ReleaseQuestoFile=1]\n";
    for (std::string chiave : Dividi(righe, '/')) {
        std::string valore = EstraiCampo(chiave);
        valore.resize(40, ' ');
        atteso += valore + "[" + chiave + "]\n";
    }
    EXPECT_EQ(ComponiScena(Piccola()), atteso);
}

TEST(FileScena, RetriesAndTellsTheTenthFailure) {
    const prova::Cartella c;
    prova::Porta porta;
    const auto dir = c / "tardi";
    const std::string file = (dir / "s.tmp").string();
    int pause = 0;
    EXPECT_TRUE(ScriviScena(Piccola(), file, porta.Fai(), [&] {
        if (++pause == 9) std::filesystem::create_directory(dir);
    }));
    EXPECT_EQ(pause, 9);
    EXPECT_TRUE(porta.detti.empty());
    const std::string assente = (c / "mai/s.tmp").string();
    EXPECT_FALSE(ScriviScena(Piccola(), assente, porta.Fai(), [&] { ++pause; }));
    EXPECT_EQ(pause, 20);
    EXPECT_EQ(porta.Testi(),
              (std::vector<std::string>{"Errore in scrittura del file: " + assente, "10"}));
    EXPECT_EQ(porta.detti[1].segno, Segno::nessuno);
}

TEST(FileScena, HostileFilesAreRefusedAndLeaveTheSceneAsItWas) {
    const prova::Cartella c;
    const std::string testo = ComponiScena(Piccola()), file = (c / "x.tmp").string();
    Scena s;
    ImpostaScena(s, 1, 2, 3, "resta");
    std::string errore;
    const auto rifiuta = [&](const std::string& guasto, const std::string& detto) {
        prova::ScriviTesto(file, guasto);
        EXPECT_FALSE(LeggiScena(file, s, errore)) << detto;
        EXPECT_NE(errore.find(detto), std::string::npos) << errore << " <> " << detto;
        EXPECT_EQ(s.visDescrizione, "resta");
    };
    for (std::size_t k = testo.find('\n'); k + 1 < testo.size(); k = testo.find('\n', k + 1)) {
        rifiuta(testo.substr(0, k + 1), "file troncato");
        rifiuta(testo.substr(0, k + 12), "riga");
    }
    rifiuta("", "file vuoto");
    rifiuta(testo.substr(1), "riga 1");
    // what / becomes / and is told
    for (const char* caso :
         {"50.5 /nan  /riga 3, chiave visual_beta", "50.5 /1e999/riga 3, chiave visual_beta",
          "90 /9x /riga 9, chiave estrusi_orient 0", "-23296 /-9e9 /chiave estrusi_collat 0",
          "[estrusi_tipo 0]/[estrusi_tipo 0 99999999]/riga 6",
          "[estrusi_tipo 0]/[estrusi_tipo 1]/riga 6",
          "[sezioni_tipo 0]/[sezioni_tipo 0]\nx [y]/riga 30"}) {
        const std::vector<std::string> k = Dividi(caso, '/');
        rifiuta(SostituisciTesto(testo, k[0], k[1]), k[2]);
    }
    // Counts and indices: key / value in place of its digit / what is told.
    for (const char* caso :
         {"estrusi_numero/501/0..500", "estrusi_numero/-1/0..500", "estrusi_numero/1.5/0..500",
          "sezioni_numero/51/0..50", "sezioni_nroCon 0/12/0..11", "sezioni_nroCon 0/0/riga 31",
          "sezioni_nroVer 0 0/999999999/0..201", "sezioni_nroVer 0 0/2/riga 38",
          "estrusi_punse2 0/1/sezione 1 inesistente",
          "estrusi_punse1 0/-1/sezione -1 inesistente"}) {
        const std::vector<std::string> k = Dividi(caso, '/');
        std::string guasto = testo;
        guasto.replace(guasto.find("[" + k[0] + "]") - 40, 1, k[1]);
        rifiuta(guasto, k[2]);
    }
    rifiuta(testo + "7 [altro]\n", "in più");
    prova::ScriviTesto(file, testo + "\n\n");
    EXPECT_TRUE(LeggiScena(file, s, errore)) << errore;
    EXPECT_EQ(s.estrusi, Piccola().estrusi);
    EXPECT_EQ(s.sezioni, Piccola().sezioni);
    EXPECT_FALSE(LeggiScena((c / "manca").string(), s, errore));
    EXPECT_FALSE(errore.empty());
}

}  // namespace
}  // namespace tk07
