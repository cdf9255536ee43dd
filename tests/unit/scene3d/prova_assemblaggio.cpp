#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "aiuti/prova.h"
#include "scene3d/file_scena.h"
#include "scene3d/terna.h"
#include "scene3d/urti.h"
#include "session/vista3d.h"
#include "unit/drawing/nodi_casuali.h"
#include "unit/scene3d/scena_di_prova.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();

using prova::Componi;

std::vector<std::string> Nomi(const Scena& s, const std::string& inizio = "") {
    std::vector<std::string> v;
    for (const Estruso& e : s.estrusi) {
        const std::string nome = NomeOggetto(e.estrusi_descri);
        if (nome.rfind(inizio, 0) == 0) v.push_back(nome);
    }
    return v;
}

// The joint of round figures (nodo_di_prova.h): beam H 400 B 200 tf 15, plate 1 from x 85 to 100,
// plate 2 to 120 and from z -160 to 160, secondary beam from z -100 to 100.
TEST(Assemblaggio, PartsInOrderAtTheirPlaces) {
    const Nodo n = prova::NodoDiProva();
    Scena s;
    ASSERT_TRUE(Componi(n, s));
    std::string nomi;
    for (const std::string& x : Nomi(s)) nomi += x + " ";
    EXPECT_EQ(nomi,
              "TraPri TraSec piastra_lato_TraPri piastra_lato_TraSec sald_trave_1 sald_trave_2 "
              "sald_trave_3 sald_trave_4 sald_trave_5 sald_trave_6 Nerv1 sald_nerv1_Yneg "
              "sald_nerv1_Ypos sald_nerv1_Yneg sald_nerv1_Ypos Nerv_2 sald_nerv2_Ypos "
              "sald_nerv2_Yneg sald_nerv2_Ypos sald_nerv2_Yneg Nerv_3_superiore sald_nerv3_1 "
              "sald_nerv3_2 sald_nerv3_3 sald_nerv3_4 sald_nerv3_5 sald_nerv3_6 sald_nerv3_7 "
              "sald_nerv3_8 sald_nerv3_9 sald_nerv3_10 BulPia1 BulPia1 BulPia1 BulPia2 BulPia2 "
              "BulPia2 BulPia3 BulPia3 BulPia3 BulPia4 BulPia4 BulPia4 ");
    EXPECT_EQ(s.visual_alfa, 15);
    EXPECT_EQ(s.visual_beta, 50);
    EXPECT_EQ(s.visual_dist, 3);

    const auto estremi = [&](std::size_t i, Punto3 a, Punto3 b, std::int32_t lati,
                             std::int32_t tappi) {
        const Estruso& e = s.estrusi[i];
        EXPECT_EQ(e.estrusi_coord1, a) << e.estrusi_descri;
        EXPECT_EQ(e.estrusi_coord2, b) << e.estrusi_descri;
        EXPECT_EQ(e.estrusi_collat, lati) << e.estrusi_descri;
        EXPECT_EQ(e.estrusi_colini, tappi) << e.estrusi_descri;
        EXPECT_EQ(e.estrusi_colfin, tappi) << e.estrusi_descri;
    };
    estremi(0, {0, -400, 0}, {0, 400, 0}, -5185306, -16777077);
    estremi(1, {120, 0, 0}, {520, 0, 0}, -5185306, -16777077);
    estremi(2, {85, 0, 0}, {100, 0, 0}, -256, 1);
    estremi(3, {100, 0, 0}, {120, 0, 0}, -5374161, 1);
    estremi(10, {120, -4, 100}, {120, 4, 100}, -5374161, 1);
    estremi(15, {120, -5, -100}, {120, 5, -100}, -5374161, 1);
    estremi(20, {45, -6, 0}, {45, 6, 0}, -5374161, 1);
    // Bolt 1: y 55 less half of plate 2; head 0.65 d, shank 0.8 d beyond plate 1, nut 0.5 d.
    estremi(31, {133, -60, -105}, {120, -60, -105}, -65536, 1);
    estremi(32, {120, -60, -105}, {69, -60, -105}, -65536, 1);
    estremi(33, {85, -60, -105}, {75, -60, -105}, -65536, 1);
    EXPECT_EQ(-105 + AlzataBulloni(n, GeometriaDi(n)), -130);
    EXPECT_EQ(ParteBullone(s.estrusi[33].estrusi_descri), "dado");
    // Head and nut are one polygon: four bolts, two sections.
    EXPECT_EQ(s.sezioni.size(), 9U + 2U);
    for (const std::size_t i : {31U, 34U, 37U, 40U}) EXPECT_EQ(s.estrusi[i].estrusi_punse1, 9);
}

// Solids of the joint's parts as point tests, from the joint's own figures.
struct Parti {
    using Dentro = std::function<bool(const Punto3&)>;
    std::map<std::string, Dentro> parti;

    static bool Fra(double x, double a, double b) { return a < x && x < b; }
    static Dentro I(const ProfiloRec& q, std::size_t largo, double zAsse, std::size_t lungo,
                    double da, double a) {
        return [=](const Punto3& p) {
            const double z = std::fabs(p[2] - zAsse), t = std::fabs(p[largo]);
            return Fra(p[lungo], da, a) && ((Fra(z, q.H / 2 - q.tf, q.H / 2) && t < q.B / 2) ||
                                            (z < q.H / 2 && t < q.tw / 2));
        };
    }
    static Dentro Scatola(Punto3 a, Punto3 b) {
        return [=](const Punto3& p) {
            return Fra(p[0], a[0], b[0]) && Fra(p[1], a[1], b[1]) && Fra(p[2], a[2], b[2]);
        };
    }
    explicit Parti(const Nodo& n) {
        const double xp = n.TraPri.B / 2 + n.distPiastraTraPri, x2 = xp + n.SpPiastra(2);
        const double zs = n.TraPri.H / 2 - n.distAliPriSec, cima = zs + n.distAlaSecPiastra;
        const double h1 = n.HPiastra(1) / 2, b1 = n.BPiastra(1) / 2, b2 = n.BPiastra(2) / 2;
        parti["TraPri"] = I(n.TraPri, 0, 0, 1, -n.TraPri.H, n.TraPri.H);
        parti["TraSec"] = I(n.TraSec, 1, zs - n.TraSec.H / 2, 0, x2, x2 + 2 * n.TraSec.H);
        parti["P1"] = Scatola({xp - n.SpPiastra(1), -b1, -h1}, {xp, b1, h1});
        parti["P2"] = Scatola({xp, -b2, cima - n.HPiastra(2)}, {x2, b2, cima});
        const double t3 = n.SpNerv(3) / 2, ali = n.TraPri.H / 2 - n.TraPri.tf;
        parti["N3"] = Scatola({n.TraPri.tw / 2, -t3, -ali}, {xp - n.SpPiastra(1), t3, ali});
        for (int k = 1; k <= 2; ++k) {
            if (!n.AttNerv(k)) continue;
            const double base = k == 1 ? zs : zs - n.TraSec.H, verso = k == 1 ? 1 : -1;
            parti["N" + std::to_string(k)] = [=](const Punto3& p) {
                const double u = (p[0] - x2) / n.BNerv(k);
                return Fra(u, 0, 1) && std::fabs(p[1]) < n.SpNerv(k) / 2 &&
                       Fra((p[2] - base) * verso, 0, n.H1Nerv(k) + (n.H2Nerv(k) - n.H1Nerv(k)) * u);
            };
        }
    }
    std::string Di(const Punto3& p) const {
        std::string nomi;
        for (const auto& [nome, dentro] : parti) nomi += dentro(p) ? nome : "";
        return nomi;
    }
};

std::set<std::string> Congiunti(const std::string& sald) {
    const char c = sald[sald.size() - 1];
    if (sald.rfind("sald_trave", 0) == 0) return {"P2", "TraSec"};
    if (sald.rfind("sald_nerv3_", 0) != 0) return {"N" + sald.substr(9, 1), "TraSec", "P2"};
    return sald.size() == 13 || c >= '7' ? std::set<std::string>{"P1", "TraPri"}
                                         : std::set<std::string>{"N3", "TraPri"};
}

// The parts of a line of the joint's geometry, by its number.
std::set<std::string> Congiunti(int linea) {
    if (linea == 4) return {"P1", "N3"};
    if (linea == 8 || linea == 9) return {"P1", "TraPri"};
    if (linea >= 5 && linea <= 7) return {"N3", "TraPri"};
    if (linea <= 3 || linea == 10 || linea == 11) return {"P2", "TraSec"};
    return {linea <= 13 ? "N1" : "N2", linea % 2 == 0 ? "TraSec" : "P2"};
}

// What is just behind the two flat sides of a weld, in its middle.
std::set<std::string> DietroILati(const Parti& parti, const Punto3& da, const Punto3& a,
                                  const Punto3& uno, const Punto3& due, double lato) {
    const Punto3 m = {(da[0] + a[0]) / 2, (da[1] + a[1]) / 2, (da[2] + a[2]) / 2};
    return {parti.Di(Avanti(Avanti(m, 0.7 * lato, uno), -0.01, due)),
            parti.Di(Avanti(Avanti(m, 0.7 * lato, due), -0.01, uno))};
}

// Every weld lies in the corner of the two parts that it joins: its inside is outside of all parts,
// and what is just behind either flat side is one of the two.
void ControllaCordoni(const Nodo& n) {
    Scena s;
    ASSERT_TRUE(Componi(n, s));
    const Parti parti(n);
    int cordoni = 0;
    for (const Estruso& e : s.estrusi) {
        const std::string nome = NomeOggetto(e.estrusi_descri);
        if (nome.rfind("sald_", 0) != 0) continue;
        SCOPED_TRACE(nome);
        ++cordoni;
        const Sezione& q = s.sezioni[static_cast<std::size_t>(e.estrusi_punse1)];
        ASSERT_EQ(q.sezioni_tipo, "QUARTODICERCHIO");
        const double lato = q.contorni[0][1].R, eps = 0.01;
        EXPECT_EQ(lato, nome.rfind("sald_nerv3", 0) == 0 ? n.spSaldS2 : n.spSaldS1);
        const Terna t = TernaEstruso(e);
        ASSERT_TRUE(t.valida);
        const double L = Scalare(t.x, e.estrusi_coord2) - Scalare(t.x, e.estrusi_coord1);
        std::set<std::string> toccate;
        for (const double f : {0.02, 0.5, 0.98}) {
            const Punto3 o = Avanti(e.estrusi_coord1, f * L, t.x);
            const auto punto = [&](double Z, double Y) {
                return Avanti(Avanti(o, Z, t.z), Y, t.y);
            };
            for (const double a : {0.02, 0.5, 1.0, 1.55}) {
                for (const double r : {0.1, 0.5, 0.99}) {
                    EXPECT_EQ(parti.Di(punto(r * lato * std::cos(a), r * lato * std::sin(a))), "")
                        << f << " " << a;
                }
            }
            toccate.insert(parti.Di(punto(lato / 2, -eps)));
            toccate.insert(parti.Di(punto(-eps, lato / 2)));
        }
        EXPECT_EQ(toccate.size(), 2U) << *toccate.begin();
        for (const std::string& parte : toccate)
            EXPECT_EQ(Congiunti(nome).count(parte), 1U) << parte;
    }
    EXPECT_EQ(cordoni, 16 + (n.AttNerv(1) ? 4 : 0) + (n.AttNerv(2) ? 4 : 0));
}

TEST(Assemblaggio, WeldsLieInTheCornersOfWhatTheyJoin) {
    Nodo n = prova::NodoDiProva();
    ControllaCordoni(n);
    n.AttNerv(1) = n.AttNerv(2) = false;
    ControllaCordoni(n);
    n = prova::NodoDiProva();
    n.H1Nerv(1) = 45, n.H2Nerv(1) = 0, n.distAlaSecPiastra = 48, n.distAliPriSec = 80,
    n.H1Nerv(2) = 40;  // pointed tip
    n.distPiastraTraPri = -12;
    RicalcolaNervatura3(n);
    ControllaCordoni(n);

    // Lengths and ends of some lines: s10 from 50 - 40 = 10 (floor of 46 - 6), s13 from a1 to 60 -
    // 6
    // - 30*6/100 cut to 52, s6 370 - 2*20, s5 from the web's chamfer to a2 before plate 1.
    n = prova::NodoDiProva();
    Scena s;
    ASSERT_TRUE(Componi(n, s));
    const auto estremi = [&](std::size_t i) {
        return std::pair(s.estrusi[i].estrusi_coord1, s.estrusi[i].estrusi_coord2);
    };
    EXPECT_EQ(estremi(4), std::pair(Punto3{120, 10, 100}, Punto3{120, 50, 100}));
    EXPECT_EQ(estremi(14), std::pair(Punto3{120, 4, 106}, Punto3{120, 4, 158}));
    EXPECT_EQ(estremi(18), std::pair(Punto3{120, 5, -156}, Punto3{120, 5, -106}));  // s15
    EXPECT_EQ(estremi(27), std::pair(Punto3{85, 14, 185}, Punto3{85, 100, 185}));   // s8
    EXPECT_EQ(estremi(21), std::pair(Punto3{25, 6, -185}, Punto3{77, 6, -185}));
    EXPECT_EQ(estremi(25), std::pair(Punto3{5, 6, -165}, Punto3{5, 6, 165}));
}

TEST(Assemblaggio, WhatIsMissingAndWhatFails) {
    Nodo n = prova::NodoDiProva();
    Scena s;
    n.distAlaSecPiastra = 0;
    ASSERT_TRUE(Componi(n, s));
    EXPECT_EQ(Nomi(s, "sald_trave").front(), "sald_trave_3");
    EXPECT_EQ(Nomi(s, "sald_trave").size(), 4U);

    BulloniTemp t;
    AccodaBullone(t, 30, 40, 16);
    ASSERT_TRUE(Componi(n, s, kMuta, &t));
    EXPECT_EQ(Nomi(s, "Bul").front(), "BulProv1");
    EXPECT_EQ(Nomi(s, "Bul").size(), 3U + 12U);

    const auto fallisce = [&](const Nodo& nodo, const BulloniTemp* prov, const std::string& detto) {
        prova::Porta porta;
        EXPECT_FALSE(Componi(nodo, s, porta.Fai(), prov));
        EXPECT_EQ(porta.Testi(), std::vector<std::string>{detto});
        EXPECT_EQ(s.visDescrizione, "non_definito");
        EXPECT_EQ(s.visual_dist, 5);
        EXPECT_TRUE(s.estrusi.empty() && s.sezioni.empty());
    };
    n = prova::NodoDiProva();
    n.spSaldS2 = 0;
    fallisce(n, nullptr, "Inserisci sezione quarto di cerchio: dati errati.");
    n = prova::NodoDiProva();
    n.TraSec = {};
    fallisce(n, nullptr, "Profilo : dimensioni errate, contorno non disponibile");
    n = prova::NodoDiProva();
    // 31 extrusions without bolts; 100 + 100 bolts are 600.
    n.nBull = 100;
    for (int i = 1; i <= 100; ++i) n.Fibull(i) = 16;
    t.nBullTemp = 100;
    t.FibullTemp.Riempi(16);
    fallisce(n, &t, "E' stato raggiunto il numero massimo di estrusi (500).");
    // Two sections for every diameter: 9 + 2 * 20 are 49.
    for (int i = 1; i <= 100; ++i) n.Fibull(i) = i <= 20 ? 10 + i : 30;
    ASSERT_TRUE(Componi(n, s));
    EXPECT_EQ(s.sezioni.size(), 49U);
    n.Fibull(100) = 32;
    fallisce(n, nullptr, "Inserisci sezione circolare: puntatore fuori limite.");
}

TEST(Assemblaggio, RandomJointsReadBackEqual) {
    const prova::SessioneDiProva prova;
    const std::string file = (prova.cartella / "s.tmp").string();
    std::mt19937 caso(20260307);
    for (int k = 0; k < 150; ++k) {
        const Nodo n = prova::NodoCasuale(*prova.s, caso);
        Scena s, letta;
        std::string errore;
        ASSERT_TRUE(Componi(n, s)) << k;
        // Every weld, of the joint's geometry and of the scene, lies on the two parts it joins.
        const Parti parti(n);
        for (const LineaSaldatura& l : LineeSaldatura(GeometriaDi(n))) {
            EXPECT_EQ(DietroILati(parti, l.da, l.a, l.versoUno, l.versoDue, l.lato),
                      Congiunti(l.indice % kSpecchio + 1))
                << k << " line " << l.indice;
            EXPECT_TRUE(l.indice < kSpecchio || l.da[1] + l.a[1] < 0.0) << k << " " << l.indice;
        }
        for (const Estruso& e : s.estrusi) {
            const std::string nome = NomeOggetto(e.estrusi_descri);
            if (nome.rfind("sald_", 0) != 0) continue;
            const Sezione& q = s.sezioni[static_cast<std::size_t>(e.estrusi_punse1)];
            const Terna t = TernaEstruso(e);
            for (const std::string& parte : DietroILati(parti, e.estrusi_coord1, e.estrusi_coord2,
                                                        t.y, t.z, q.contorni[0][1].R)) {
                EXPECT_EQ(Congiunti(nome).count(parte), 1U) << k << " " << nome << " " << parte;
            }
        }
        EXPECT_LE(s.sezioni.size(), 49U);
        for (std::size_t i = 0; i < s.sezioni.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                const Sezione &a = s.sezioni[i], &b = s.sezioni[j];
                EXPECT_FALSE(a.sezioni_tipo == b.sezioni_tipo && a.contorni == b.contorni) << k;
            }
        }
        ASSERT_TRUE(ScriviScena(s, file, kMuta));
        ASSERT_TRUE(LeggiScena(file, letta, errore)) << errore;
        EXPECT_EQ(letta.estrusi, s.estrusi);
        EXPECT_EQ(letta.sezioni, s.sezioni);
        EXPECT_EQ(letta.visual_beta, s.visual_beta);
    }
}

TEST(Vista, TheFileFollowsTheJointOnceTheViewerWasOpened) {
    prova::SessioneDiProva prova;
    Sessione& s = *prova.s;
    const std::string file = prova.radice + "/temp/TK07_vis3d.tmp";
    std::string visto;
    // Whether the file was written, and changed, since the last question.
    const auto cambiata = [&] {
        const std::string ora = prova::LeggiTesto(file);
        const bool altra = ora != visto;
        visto = ora;
        return altra;
    };
    const auto premi = [&](const char* nome) { EXPECT_EQ(PremiPulsante(s, nome), ""); };
    const auto scrivi = [&](const char* nome, const char* testo) {
        EXPECT_EQ(ScriviCampo(s, nome, testo, 13), "");
    };
    ScegliVoce(s, "TraveP", std::string("IPE330"));
    premi("ProponiPias");
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(s.Vista3dAperta, 0);
    premi("bt_vista3d");
    EXPECT_TRUE(cambiata());
    EXPECT_EQ(s.Vista3dAperta, 1);
    ASSERT_EQ(prova.porta.programmi.size(), 1U);
    EXPECT_EQ(std::filesystem::path(prova.porta.programmi[0][0]).filename(), "Osserva3D.exe");
    EXPECT_EQ(prova.porta.programmi[0][1], "|fileinp=" + file + "|");
    const std::function<void()> modifiche[] = {
        [&] { ScegliVoce(s, "TraveP", std::string("IPE360")); },
        [&] { ScegliVoce(s, "TraveS", std::string("IPE200")); },
        [&] { scrivi("GeoPias(2)", "15"); },
        [&] { scrivi("TextSald(1)", "7"); },
        [&] { ImpostaCasella(s, "CheckNervatura1", 0); },
        [&] { Clic(s, "LabPiastre(2)"); },
        [&] { premi("ProponiPias"); },
        [&] { scrivi("GeoPias(13)", "9"); },
        [&] { premi("ProponiNerv"); }};
    for (std::size_t k = 0; k < std::size(modifiche); ++k) {
        modifiche[k]();
        EXPECT_TRUE(cambiata()) << k;
        EXPECT_EQ(visto.find("Nerv1") == std::string::npos, k == 4) << k;
    }
    EXPECT_EQ(prova.porta.programmi.size(), 1U) << "a refresh starts nothing";

    // The bolt panel shows its working copy until it closes.
    premi("DefBulloni");
    EXPECT_FALSE(cambiata());
    premi("Proponi");
    EXPECT_TRUE(cambiata());
    EXPECT_NE(visto.find("BulProv1|"), std::string::npos);
    const std::string ultimo = "BulProv" + std::to_string(s.bulloni.nBullTemp) + "|";
    premi("Rimuovi");
    EXPECT_TRUE(cambiata());
    EXPECT_EQ(visto.find(ultimo), std::string::npos);
    scrivi("Xbul(0)", "-47");
    EXPECT_FALSE(cambiata()) << "a field waits for the drawing command";
    premi("DisegnaBp");
    EXPECT_TRUE(cambiata());
    premi("MatBulAnn");
    EXPECT_TRUE(cambiata());
    EXPECT_EQ(visto.find("Bul"), std::string::npos);

    // A joint that makes no scene is told, and the file keeps the last one.
    scrivi("TextSald(0)", "0");
    EXPECT_TRUE(prova.porta.HaDetto("Inserisci sezione quarto di cerchio: dati errati."));
    scrivi("TextSald(0)", "5");
    cambiata();
    ImpostaCasella(s, "CheckNervatura1", 1);
    cambiata();
    scrivi("GeoPias(8)", "0");
    EXPECT_TRUE(prova.porta.HaDetto(
        "La vista 3D non è possibile: larghezza della nervatura 1 (saldatura s13) nulla."));
    EXPECT_FALSE(cambiata());
    EXPECT_EQ(s.scena.visDescrizione, "non_definito");
    EXPECT_FALSE(s.fine);
    // Opening a joint refreshes the panel, and the view with it.
    EXPECT_TRUE(ApriNodo(s, prova.Lavoro() + "/02_ipe200_su_ipe300.tk7"));
    EXPECT_TRUE(cambiata());
    EXPECT_NE(visto.find("BulPia1|"), std::string::npos);
}

// Webs and flanges of 6 and 10 mm (z 90 to 100), ribs of 8, 10 and 12 mm, main flanges from z 185;
// plate 1 begins at z -185. A nut of M20 is 30 mm across flats: 15 from the axis at least.
TEST(Urti, HeadsAndNutsByHand) {
    Nodo n = prova::NodoDiProva();
    EXPECT_TRUE(UrtiBulloni(n).empty());
    prova::MettiBulloni(n, {{60, 185, 20},     // 1 free
                            {21, 185, 20},     // 2 touches rib 3
                            {-20.5, 185, 20},  // 3 in rib 3
                            {17.5, 185, 20},   // 4 in rib 3 and in the web
                            {60, 280, 20},     // 5 10 beside the upper flange
                            {62, 292.5, 20},   // 6 12 beside and 7.5 above it: 14.2
                            {18, 315, 20},     // 7 14 from rib 1; in rib 3
                            {60, 357, 20}});   // 8 13 below the main flange
    EXPECT_EQ(RigheUrti(UrtiBulloni(n)),
              (std::vector<std::string>{"bulloni 3, 4, 7: il dado urta la nervatura interna",
                                        "bullone 4: la testa urta l'anima della trave secondaria",
                                        "bulloni 5, 6: la testa urta un'ala della trave secondaria",
                                        "bullone 7: la testa urta la nervatura superiore",
                                        "bullone 8: il dado urta un'ala della trave principale"}));
    // Plate 1 so thick that the nut meets the web; so far out that it clears the flanges.
    n.nBull = 1;
    n.SpPiastra(1) = 86;  // nut from 14 to 4, the web ends at 5
    EXPECT_EQ(RigheUrti(UrtiBulloni(n)),
              std::vector<std::string>{"bullone 1: il dado urta l'anima della trave principale"});
    n.SpPiastra(1) = 15;
    n.Ybull(1) = 357;
    n.distPiastraTraPri = 25;  // nut from 110 to 100
    EXPECT_TRUE(UrtiBulloni(n).empty());
}

}  // namespace
}  // namespace tk07
