#include <gtest/gtest.h>

#include <filesystem>

#include "aiuti/prova.h"
#include "base/errore.h"
#include "textnum/unita.h"

namespace tk07 {
namespace {

constexpr double kG = 9.81;

TEST(Unita, NamesAreReadCaseByCaseAndWeightsNeedG) {
    short d = 9;
    EXPECT_EQ(FattoreForza("lbf", d, kG), 0.0);
    EXPECT_EQ(FattoreLunghezza("CM", d), 0.0);
    EXPECT_EQ(FattorePressione("mpa", d), 0.0);
    EXPECT_EQ(d, 9) << "an unknown unit leaves the decimals";
    EXPECT_EQ(FattoreForza("kN", d, 0.0), 0.01);
    EXPECT_THROW(FattoreForza("t", d, 0.0), ErroreFatale);
    EXPECT_THROW(FattoreForza("kgf/cm2", d, 0.0), ErroreFatale);
}

TEST(Unita, MomentsStressesAndSurfaceLoads) {
    struct Caso {
        const char *momenti, *tensioni, *carichi;
        double fm, ft, fc;
        short dm, dt, dc;
    };
    // 1 daN cm = 0.1 N m; 1 daN/cm2 = 0.1 N/mm2 = 100 kN/m2
    const Caso casi[] = {{"daN*cm", "daN8cm2", "daN8cm2", 1, 1, 1, 1, 1, 5},
                         {"kN*m", "N8mm2", "kN8m2", 1e-4, 0.1, 100, 5, 2, 3},
                         {"N*m", "MPa", "N8m2", 0.1, 0.1, 1e5, 2, 2, 0},
                         {"kgf*cm", "kgf8cm2", "kgf8m2", 10 / kG, 10 / kG, 1e5 / kG, 1, 1, 1},
                         {"t*m", "t8m2", "t8m2", 1e-4 / kG, 100 / kG, 100 / kG, 6, 0, 4},
                         {"N*mm", "kPa", "daN8m2", 100, 100, 1e4, 0, 0, 1},
                         {"x", "bar", "x", 0, 0, 0, 0, 0, 6}};
    const prova::Cartella c;
    for (const Caso& k : casi) {
        prova::ScriviTesto(c / "parametrilavoro",
                           std::string("MARCA\n9.81 [accelerazione_g]\r\n 12.5\t[nord_geografico]\n"
                                       "mm [lunghezze]\nkN [FORZE]\ncm [dati_sezioni]\n") +
                               k.momenti + " [coppie_momenti e forze]\n" + k.carichi +
                               " [carichi_superficie]\n" + k.momenti + " [coppie_momenti]\n" +
                               "kN [forze]\n" + k.tensioni + " [tensioni] commento\n? [altro]\n");
        Unita u;
        LeggiParametriLavoro((c / "PARAMETRILAVORO").string(), u);
        ImpostaUnita(u);
        EXPECT_EQ(u.AccelerazioneG, 9.81);
        EXPECT_EQ(u.NordGeografico, 12.5);
        EXPECT_EQ(u.UnitaForze, "kN");
        EXPECT_EQ(u.UnitaMomenti, k.momenti);
        EXPECT_EQ(u.UnitaTensioni.find('8'), std::string::npos) << "an 8 stands for the slash";
        EXPECT_DOUBLE_EQ(u.FattoreLunghezze, 10.0);
        EXPECT_DOUBLE_EQ(u.FattoreForze, 0.01);
        EXPECT_DOUBLE_EQ(u.FattoreSezioni, 1.0);
        EXPECT_DOUBLE_EQ(u.FattoreMomenti, k.fm) << k.momenti;
        EXPECT_DOUBLE_EQ(u.FattoreTensioni, k.ft) << k.tensioni;
        EXPECT_DOUBLE_EQ(u.FattoreCarichiSup, k.fc) << k.carichi;
        EXPECT_EQ(u.DecimaliMomenti, k.dm) << k.momenti;
        EXPECT_EQ(u.DecimaliTensioni, k.dt) << k.tensioni;
        EXPECT_EQ(u.DecimaliCarichiSup, k.dc) << k.carichi;
        EXPECT_EQ(u.DecimaliForze, 3);
        EXPECT_EQ(UnitaSconosciute(u), k.fm == 0 ? R"(coppie_momenti "x", tensioni "bar")" : "");
    }
}

TEST(Unita, FaultsOfTheFileAreFatalAndNameTheLine) {
    const prova::Cartella c;
    const std::string file = (c / "parametrilavoro").string();
    const std::pair<const char*, const char*> casi[] = {
        {"MARCA\ncm [lunghezze]\nkN forze]\n", "riga 3"},
        {"MARCA\n\ncm [lunghezze]\n", "riga 2"},
        {"MARCA\n9,81 [accelerazione_g]\n", "riga 2"},
        {"MARCA\ncm [lunghezze]\n9.81 m/s2 [accelerazione_g]\n", "riga 3"},
        {"MARCA\n[nord_geografico]\n", "riga 2"},
        {nullptr, ""}};
    for (const auto& [testo, riga] : casi) {
        if (testo != nullptr) prova::ScriviTesto(file, testo);
        if (testo == nullptr) std::filesystem::remove(file);
        Unita u;
        try {
            LeggiParametriLavoro(file, u);
            ADD_FAILURE() << (testo == nullptr ? "missing file" : testo);
        } catch (const ErroreFatale& e) {
            EXPECT_NE(e.Dove().find(file), std::string::npos) << e.Dove();
            EXPECT_NE(e.Dove().find(riga), std::string::npos) << e.Dove();
        }
    }
}

}  // namespace
}  // namespace tk07
