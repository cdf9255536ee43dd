#include <gtest/gtest.h>

#include <BRepCheck_Analyzer.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <map>

#include "solidi/distinta.h"
#include "solidi/esporta_solidi.h"
#include "solidi/linee_nascoste.h"
#include "solidi/prisma.h"
#include "unit/solidi/solidi_di_prova.h"

namespace tk07 {
namespace {

std::string NomeDi(const TDF_Label& l) {
    Handle(TDataStd_Name) nome;
    if (!l.FindAttribute(TDataStd_Name::GetID(), nome)) return {};
    const TCollection_ExtendedString& t = nome->Get();
    std::string r(static_cast<std::size_t>(t.LengthOfCString()), '\0');
    char* dove = r.data();
    t.ToUTF8CString(dove);
    return r;
}

template <class T>
T Leggi(const std::string& bytes, std::size_t da) {
    T x{};
    std::memcpy(&x, bytes.data() + da, sizeof x);
    return x;
}

TEST(Esporta, StepReadsBackWithNamesColoursAndVolumes) {
    const prova::Cartella c;
    const std::string file = (c / "nodo è.STEP").string();
    const std::vector<Parte> parti = prova::Solidi(prova::NodoDiProva());
    std::string errore;
    ASSERT_TRUE(EsportaSolidi(parti, "nodo è \\ €𝛼", file, errore)) << errore;
    Handle(TDocStd_Document) doc = new TDocStd_Document("BinXCAF");
    STEPCAFControl_Reader lettore;
    lettore.SetNameMode(Standard_True);
    lettore.SetColorMode(Standard_True);
    ASSERT_EQ(lettore.ReadFile(file.c_str()), IFSelect_RetDone);
    ASSERT_TRUE(lettore.Transfer(doc));
    const auto forme = XCAFDoc_DocumentTool::ShapeTool(doc->Main());
    const auto colori = XCAFDoc_DocumentTool::ColorTool(doc->Main());
    TDF_LabelSequence libere, pezzi;
    forme->GetFreeShapes(libere);
    ASSERT_EQ(libere.Length(), 1);
    XCAFDoc_ShapeTool::GetComponents(libere.Value(1), pezzi);
    std::map<std::string, const Parte*> attesi;
    for (const Parte& p : parti) attesi[p.dati.nome] = &p;
    EXPECT_EQ(static_cast<std::size_t>(pezzi.Length()), parti.size());
    for (const TDF_Label& l : pezzi) {
        TDF_Label pezzo;
        ASSERT_TRUE(XCAFDoc_ShapeTool::GetReferredShape(l, pezzo));
        const auto dove = attesi.find(NomeDi(pezzo));
        ASSERT_NE(dove, attesi.end()) << NomeDi(pezzo);
        const TopoDS_Shape forma = XCAFDoc_ShapeTool::GetShape(l);
        EXPECT_TRUE(BRepCheck_Analyzer(forma).IsValid());
        EXPECT_NEAR(VolumeForma(forma) / dove->second->dati.volume, 1.0, 1e-6) << dove->first;
        Quantity_Color colore;
        ASSERT_TRUE(colori->GetColor(pezzo, XCAFDoc_ColorSurf, colore)) << dove->first;
        double r = 0, g = 0, b = 0;
        colore.Values(r, g, b, Quantity_TOC_sRGB);
        const auto argb = static_cast<std::uint32_t>(dove->second->dati.colore);
        EXPECT_NEAR(r * 255, (argb >> 16) & 255U, 0.6);
        EXPECT_NEAR(b * 255, argb & 255U, 0.6);
        attesi.erase(dove);
    }
    EXPECT_TRUE(attesi.empty());
    const std::string testo = prova::LeggiTesto(file);
    EXPECT_NE(testo.find("'nodo \\X2\\00E8\\X0\\ \\\\ \\X2\\20ACD835DEFC\\X0\\'"),
              std::string::npos);
    EXPECT_NE(testo.find("AUTOMOTIVE_DESIGN"), std::string::npos);
}

TEST(Esporta, GlbAndStl) {
    const prova::Cartella c;
    const std::vector<Parte> parti = prova::Solidi(prova::NodoDiProva());
    std::string errore;
    const std::string glb = (c / "n.glb").string(), stl = (c / "n.stl").string();
    ASSERT_TRUE(EsportaSolidi(parti, "nodo", glb, errore)) << errore;
    const std::string b = prova::LeggiTesto(glb);
    ASSERT_GT(b.size(), 1000U);
    EXPECT_EQ(b.substr(0, 4), "glTF");
    EXPECT_EQ(Leggi<std::uint32_t>(b, 4), 2U);
    EXPECT_EQ(Leggi<std::uint32_t>(b, 8), b.size());
    ASSERT_EQ(b.substr(16, 4), "JSON");
    const auto j = nlohmann::json::parse(b.substr(20, Leggi<std::uint32_t>(b, 12)));
    std::size_t trovati = 0;
    for (const auto& nodo : j["nodes"]) {
        for (const Parte& p : parti) trovati += nodo.value("name", "") == p.dati.nome;
    }
    EXPECT_EQ(trovati, parti.size());
    EXPECT_EQ(j["meshes"].size(), parti.size());
    // Metres, Y upwards: the beams are 0.4 m high about the axis and the main one 0.8 m long.
    double alto = 0, lungo = 0;
    for (const auto& a : j["accessors"]) {
        if (a["type"] != "VEC3" || !a.contains("max")) continue;
        alto = std::max(alto, a["max"][1].get<double>() - a["min"][1].get<double>());
        lungo = std::max(lungo, a["max"][2].get<double>() - a["min"][2].get<double>());
    }
    EXPECT_NEAR(alto, 0.4, 1e-6);
    EXPECT_NEAR(lungo, 0.8, 1e-6);
    ASSERT_TRUE(EsportaSolidi(parti, "nodo", (c / "n2.glb").string(), errore));
    EXPECT_EQ(prova::LeggiTesto(c / "n2.glb"), b) << "the same bytes again";

    ASSERT_TRUE(EsportaSolidi(parti, "nodo", stl, errore)) << errore;
    const std::string s = prova::LeggiTesto(stl);
    const auto quanti = Leggi<std::uint32_t>(s, 80);
    ASSERT_EQ(s.size(), 84U + 50U * quanti);
    // Volume enclosed by the facets: sum of a . (b x c) / 6; the round faces lose a little.
    double volume = 0.0, atteso = 0.0;
    for (std::size_t i = 0; i < quanti; ++i) {
        double v[9];
        for (std::size_t k = 0; k < 9; ++k) v[k] = Leggi<float>(s, 84 + 50 * i + 12 + 4 * k);
        volume += (v[0] * (v[4] * v[8] - v[5] * v[7]) + v[1] * (v[5] * v[6] - v[3] * v[8]) +
                   v[2] * (v[3] * v[7] - v[4] * v[6])) /
                  6;
    }
    for (const Parte& p : parti) atteso += p.dati.volume;
    EXPECT_NEAR(volume / atteso, 1.0, 2e-3);
}

TEST(Esporta, FailuresNameTheFileAndLeaveItWhole) {
    const prova::Cartella c;
    const std::vector<Parte> parti = prova::Solidi(prova::NodoDiProva());
    std::string errore;
    for (const char* fine : {".step", ".glb", ".stl"}) {
        const std::string file = (c / "manca").string() + "/n" + fine;
        EXPECT_FALSE(EsportaSolidi(parti, "n", file, errore));
        EXPECT_EQ(errore, file + ": file non scritto: file o direttorio inesistente");
        // Rights and links as for every other file.
        namespace fs = std::filesystem;
        const fs::path vero = c / (std::string("vero") + fine),
                       rimando = c / (std::string("r") + fine);
        prova::ScriviTesto(vero, "vecchio");
        fs::create_symlink(vero.filename(), rimando);
        fs::permissions(vero, fs::perms(0400));
        EXPECT_FALSE(EsportaSolidi(parti, "n", rimando.string(), errore));
        EXPECT_EQ(prova::LeggiTesto(vero), "vecchio");
        fs::permissions(vero, fs::perms(0640));
        ASSERT_TRUE(EsportaSolidi(parti, "n", rimando.string(), errore)) << errore;
        EXPECT_TRUE(fs::is_symlink(rimando) && fs::file_size(vero) > 1000);
        EXPECT_EQ(fs::status(vero).permissions(), fs::perms(0640));
    }
    const std::string obj = (c / "n.obj").string(), vecchio = (c / "n.step").string();
    EXPECT_FALSE(EsportaSolidi(parti, "n", obj, errore));
    EXPECT_EQ(errore, obj + ": formato non riconosciuto (step, glb, stl)");
    prova::ScriviTesto(vecchio, "vecchio");
    EXPECT_FALSE(EsportaSolidi({}, "n", vecchio, errore));
    EXPECT_EQ(prova::LeggiTesto(vecchio), "vecchio");
    ASSERT_TRUE(EsportaSolidi(parti, "n", vecchio, errore));
    EXPECT_GT(std::filesystem::file_size(vecchio), 10000U) << "replaced";
    std::size_t quanti = 0;
    for ([[maybe_unused]] const auto& f : std::filesystem::directory_iterator(c.Testo())) ++quanti;
    EXPECT_EQ(quanti, 7U) << "no temporary files are left";
}

TEST(Esporta, TheSameJointGivesTheSameStep) {
    const prova::Cartella c;
    const std::vector<Parte> parti = prova::Solidi(prova::NodoDiProva());
    std::string errore, testi[2];
    for (std::string& t : testi) {
        ASSERT_TRUE(EsportaSolidi(parti, "n", (c / "n.step").string(), errore)) << errore;
        t = prova::LeggiTesto(c / "n.step");
    }
    EXPECT_EQ(testi[0], testi[1]);
    EXPECT_NE(testi[0].find("2000-01-01T00:00:00"), std::string::npos) << "no clock in the header";
}

TEST(Solidi, AWeldWithoutLengthIsNone) {
    const Nodo n = prova::NodoDiProva();
    Scena s;
    ASSERT_TRUE(prova::Componi(n, s));
    for (const double lunga : {0.0, 1e-9}) {
        Geometria nulle = GeometriaDi(n);
        for (int i = 1; i <= kCordoni; ++i) {
            Cordone& c = nulle.cordone(i);
            for (std::size_t k = 0; k < 3; ++k) {
                c.a[k] = c.da[k] + (c.a[k] - c.da[k]) * lunga / std::max(c.lunghezza, 1.0);
            }
            c.lunghezza = lunga;
        }
        std::vector<Parte> parti;
        std::string errore;
        ASSERT_TRUE(SolidiNodo(n, nulle, 2.0, s, parti, errore)) << errore;
        std::vector<DatiParte> dati;
        for (const Parte& p : parti) dati.push_back(p.dati);
        for (const RigaDistinta& r : FaiDistinta(dati).saldature) {
            EXPECT_GT(r.lunghezza, 0.1) << r.nome;
        }
    }
}

// 1 mm3 of steel weighs 7.85e-6 kg. Head 13, shank 51, nut 10 high, M20.
TEST(Distinta, GroupsCountsAndWeights) {
    std::vector<DatiParte> dati;
    for (const Parte& p : prova::Solidi(prova::NodoDiProva())) dati.push_back(p.dati);
    const Distinta d = FaiDistinta(dati);
    ASSERT_EQ(d.pezzi.size(), 8U) << "two beams, two plates, three ribs, one kind of bolt";
    EXPECT_EQ(d.pezzi[2].nome, "Piastra 1, lato trave principale");
    EXPECT_NEAR(d.pezzi[2].peso, (200 * 370 - 4 * 380.1327) * 15 * 7.85e-6, 1e-6);
    const RigaDistinta& bullone = d.pezzi[7];
    EXPECT_EQ(bullone.quanti, 4);
    EXPECT_EQ(bullone.misura, "M20");
    EXPECT_NEAR(bullone.peso, (1039.2305 * 23 + 314.15927 * 51) * 7.85e-6, 1e-6);
    EXPECT_NEAR(bullone.pesoTotale, 4 * bullone.peso, 1e-12);
    // Lengths: see the volumes' test. S1: s2 and s3 are equal and come together.
    const double s1 = 2 * (156 + 2 * 35 + 40 + 39 + 94 + 52 + 82 + 50);
    const double s2 = 2 * (354 + 2 * 52 + 330 + 2 * 86);
    EXPECT_NEAR(d.lunghezzaSaldature, s1 + s2, 1e-9);
    EXPECT_NEAR(d.volumeSaldature, 28.274334 * s1 + 50.265482 * s2, 1e-2);
    EXPECT_EQ(d.saldature.front().quanti, 4);
    EXPECT_EQ(d.saldature.front().misura, "lato 6, lunghezza 35");
    double somma = 0.0;
    for (const DatiParte& p : dati) somma += p.volume * 7.85e-6;
    EXPECT_NEAR(d.pesoTotale, somma, 1e-9);
    const std::string testo = TestoDistinta(d, "n.tk7");
    EXPECT_NE(testo.find("\n  Bullone completo di dado          M20"), std::string::npos) << testo;
}

Parte Scatola(double x0, double lungo, double b, double h) {
    Estruso e;
    e.estrusi_coord1 = {x0, 0, 0};
    e.estrusi_coord2 = {x0 + lungo, 0, 0};
    const Sezione s{"", "", {{{-b, h, 0}, {b, h, 0}, {b, -h, 0}, {-b, -h, 0}}}};
    return {{}, Prisma(e, s, s)};
}

// A plate of 20 x 20 before another of 40 x 10, seen along X: of the rear one two ends of 10 on
// either side are seen, 4 pieces of 10 and 2 edges of 10; hidden is the rest of its face, 2 x 20.
TEST(LineeNascoste, WhatStandsBehindIsCut) {
    const std::vector<Parte> parti = {Scatola(10, 5, 10, 10), Scatola(0, 5, 20, 5)};
    const Proiezione da = ProiezioneDa({1, 0, 0});
    EXPECT_EQ(da.destra, (Punto3{0, 1, 0}));
    EXPECT_EQ(da.su, (Punto3{0, 0, 1}));
    std::vector<LineaProiettata> linee;
    std::string errore;
    ASSERT_TRUE(LineeNascoste(parti, da, Nascoste::si, linee, errore)) << errore;
    double visto[2] = {}, coperto = 0.0;
    for (const LineaProiettata& l : linee) {
        for (std::size_t i = 1; i < l.punti.size(); ++i) {
            const auto &p = l.punti[i - 1], &q = l.punti[i];
            const double lungo = std::hypot(q[0] - p[0], q[1] - p[1]);
            if (l.tratto == TrattoLinea::visibile) {
                visto[l.parte] += lungo;
                EXPECT_TRUE(l.parte == 0 || std::fabs(p[0] + q[0]) / 2 >= 10) << p[0];
            } else if (l.parte == 1 && std::fabs(p[1]) == 5 && std::fabs(p[0]) <= 10.001) {
                coperto += lungo;
            }
        }
    }
    EXPECT_NEAR(visto[0], 80, 1e-6);
    EXPECT_NEAR(visto[1], 4 * 10 + 2 * 10, 1e-6);
    EXPECT_GE(coperto, 40 - 1e-6);
    ASSERT_TRUE(LineeNascoste(parti, ProiezioneDa({0, 0, 1}), Nascoste::no, linee, errore));
    for (const LineaProiettata& l : linee) EXPECT_EQ(l.tratto, TrattoLinea::visibile);
}

#ifdef TK07_GRAFICA
TEST(Esporta, CommandLine) {
    const prova::Cartella c;
    const std::string radice = prova::AlberoDiProva(c), out = (c / "n").string();
    const std::string nodo =
        " --diroot '" + radice + "' scena '" + radice + "/lavori/esempi/01_ipe160_su_ipe270.tk7' ";
    std::string uscita, errori;
    for (const char* fine : {".step", ".glb", ".stl"}) {
        ASSERT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo + "-o " + out + fine, &uscita, &errori), 0)
            << errori;
        EXPECT_TRUE(std::filesystem::exists(out + fine));
        EXPECT_EQ(uscita.find("Step"), std::string::npos) << "the toolkit is silent";
    }
    ASSERT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo + "--distinta", &uscita, &errori), 0) << errori;
    EXPECT_NE(uscita.find("Trave principale                  IPE270, tratto di 540"),
              std::string::npos)
        << uscita;
    ASSERT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo + "--distinta --json", &uscita), 0);
    // IPE270: 45.95 cm2 by the closed formula; 540 mm of it.
    EXPECT_NEAR(nlohmann::json::parse(uscita)["pezzi"][0]["peso"].get<double>(),
                45.95 * 54 * 7.85e-3, 0.01);
    EXPECT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo, &uscita, &errori), 2);
    EXPECT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo + "--json -o " + out + ".step"), 2);
    EXPECT_EQ(prova::Esegui(TK07_PROGRAMMA + nodo + "-o /nessuna/n.step", &uscita, &errori), 2);
    EXPECT_NE(errori.find("01_ipe160_su_ipe270.tk7: /nessuna/n.step: file non scritto: file o "
                          "direttorio inesistente\n"),
              std::string::npos)
        << errori;
}
#endif

}  // namespace
}  // namespace tk07
