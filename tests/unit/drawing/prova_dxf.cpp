#include <gtest/gtest.h>

#include <cmath>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "drawing/dxf.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();

using Coppie = std::vector<std::pair<std::string, std::string>>;

// A reader of its own: pairs of group code and value.
Coppie LeggiGruppi(const std::string& dxf) {
    const std::vector<std::string> righe = Dividi(dxf, '\n');
    EXPECT_EQ(righe.size() % 2, 1u);
    Coppie c;
    for (std::size_t i = 0; i + 1 < righe.size(); i += 2) {
        c.emplace_back(Taglia(righe[i]), Taglia(righe[i + 1]));
    }
    return c;
}

// The groups of the first entity of a type.
Coppie Entita(const Coppie& tutte, const std::string& tipo) {
    Coppie e;
    for (const auto& g : tutte) {
        if (g.first == "0" && !e.empty()) break;
        if (!e.empty() || g == std::pair<std::string, std::string>("0", tipo)) e.push_back(g);
    }
    return e;
}

TEST(Dxf, EntitiesWithTheirGroupsInOrder) {
    Disegno d;
    d.tipoLineaCorrente = 2;
    DisegnaSegmento(d, 0, 0, 200, 100, 3, kMuta);
    DisegnaCerchio(d, 50, 50, 22, 1, kMuta);
    DisegnaTesto(d, "fori ]22 è", 10, 20, 90, 2, 4, 0, kMuta);
    const std::string testo = ComponiDxf(d, FontTratti{}, {});
    const Coppie g = LeggiGruppi(testo);
    // extent 0..200 by 0..100, margin 10
    EXPECT_EQ(
        testo.rfind(" 0\nSECTION\n 2\nHEADER\n 9\n$EXTMIN\n 10\n-10\n 20\n-10\n 30\n0.0\n", 0), 0u);
    EXPECT_EQ(Entita(g, "LINE"), (Coppie{{"0", "LINE"},
                                         {"8", "0"},
                                         {"10", "0"},
                                         {"20", "0"},
                                         {"30", "0.0"},
                                         {"11", "200"},
                                         {"21", "100"},
                                         {"31", "0.0"},
                                         {"62", "1"},
                                         {"6", "DASHED"}}));
    EXPECT_EQ(
        Entita(g, "CIRCLE"),
        (Coppie{
            {"0", "CIRCLE"}, {"8", "0"}, {"10", "50"}, {"20", "50"}, {"30", "0.0"}, {"40", "11"}}))
        << "colour 1 has no group 62";
    EXPECT_EQ(Entita(g, "TEXT"), (Coppie{{"0", "TEXT"},
                                         {"8", "0"},
                                         {"10", "10"},
                                         {"20", "20"},
                                         {"30", "0.0"},
                                         {"40", "4"},
                                         {"1", "fori %%c22 \\U+00E8"},
                                         {"50", "90"},
                                         {"41", ".5"},
                                         {"62", "18"}}));
    EXPECT_EQ(g.back(), (std::pair<std::string, std::string>("0", "EOF")));
    for (const char c : testo) EXPECT_LT(static_cast<unsigned char>(c), 0x80);
    const std::string nero = ComponiDxf(d, FontTratti{}, {false, true});
    EXPECT_FALSE(Contiene(nero, " 62\n 1\n"));
    EXPECT_TRUE(Contiene(nero, " 62\n 7\n"));
}

TEST(Dxf, ArcAnglesInTheirQuadrant) {
    // start and end every 30 degrees; the angles are those of the call
    for (int k = 0; k < 12; ++k) {
        Disegno d;
        const double grado = std::acos(-1.0) / 180.0;
        DisegnaCerchio(d, 7, -3, 40, 2, kMuta, 30.0 * k * grado, (30.0 * k + 45.0) * grado);
        const Coppie a = Entita(LeggiGruppi(ComponiDxf(d, FontTratti{}, {})), "ARC");
        ASSERT_EQ(a.size(), 9u);
        EXPECT_NEAR(*ValoreStretto(a[5].second), 20.0, 1e-9);
        EXPECT_NEAR(std::remainder(*ValoreStretto(a[6].second) - 30.0 * k, 360.0), 0.0, 1e-6);
        EXPECT_NEAR(std::remainder(*ValoreStretto(a[7].second) - 30.0 * k - 45.0, 360.0), 0.0,
                    1e-6);
    }
}

TEST(Dxf, TextsAsStrokesStandOnTheBaseLine) {
    FontTratti f;
    f.fontSpaziatura = 20;
    f.fontNumPunti['I'] = 2;  // one upright stroke over the whole height
    f.fontX['I'] = {99, 99};
    f.fontY['I'] = {30, 99};
    Disegno d;
    DisegnaTesto(d, "?I", 100, 50, 0, 10, 6.9, 3, kMuta);  // an undefined glyph keeps its cell
    const Coppie l = Entita(LeggiGruppi(ComponiDxf(d, f, {true, false})), "LINE");
    ASSERT_EQ(l.size(), 9u);
    EXPECT_NEAR(*ValoreStretto(l[2].second), 100 + 10 + 10 * 0.8, 1e-9);
    EXPECT_NEAR(*ValoreStretto(l[3].second), 50, 1e-9);
    EXPECT_NEAR(*ValoreStretto(l[6].second), 56.9, 1e-9);
    EXPECT_EQ(l[8], (std::pair<std::string, std::string>("62", "1")));
}

TEST(Dxf, WritingTellsTheUser) {
    const prova::Cartella c;
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    Disegno d;
    const std::string file = (c / "vuoto.dxf").string();
    ASSERT_TRUE(ScriviDxf(d, file, FontTratti{}, {}, false, p));
    EXPECT_TRUE(porta.HaDetto("File " + file + " salvato."));
    EXPECT_TRUE(FinisceCon(prova::LeggiTesto(file), "ENTITIES\n 0\nENDSEC\n 0\nEOF\n"));
    EXPECT_FALSE(ScriviDxf(d, (c / "manca/x.dxf").string(), FontTratti{}, {}, true, p));
    EXPECT_EQ(porta.detti.back().segno, Segno::critico);
}

}  // namespace
}  // namespace tk07
