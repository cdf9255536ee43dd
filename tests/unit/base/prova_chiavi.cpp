#include <gtest/gtest.h>

#include "base/chiavi.h"
#include "base/errore.h"
#include "base/testo.h"

namespace tk07 {
namespace {

TEST(ScriviChiave, TheBracketStandsInColumn41OrOneBlankBehindTheValue) {
    const std::string c39(39, 'x'), c40(40, 'x');
    EXPECT_EQ(ScriviChiave("135", "BPiastra 1"), "135" + std::string(37, ' ') + "[BPiastra 1]");
    EXPECT_EQ(ScriviChiave(c39, "k"), c39 + " [k]");
    EXPECT_EQ(ScriviChiave(c40, "k"), c40 + " [k]");
    EXPECT_EQ(ScriviChiave("è", "k"), "è" + std::string(39, ' ') + "[k]");
    EXPECT_EQ(ScriviChiave("", "NomeSa 0"), "[NomeSa 0]");
    EXPECT_EQ(ScriviChiave("1", "k", "nota"), "1" + std::string(39, ' ') + "[k] nota");
}

TEST(LeggiChiave, FindsTheKeyWhateverItsCaseAndPlace) {
    struct Caso {
        const char *riga, *chiave;
        bool trovata;
        std::string valore;
        std::vector<short> indici;
    };
    const Caso casi[] = {
        {" 12.5  [BPIASTRA 2] x", "bpiastra", true, "12.5", {2}},
        {"Valore Con Maiuscole [NomeSa\t3 ]",
         "nomesa",
         false,
         "",
         {}},  // a blank or "]" must follow
        {"Valore Con Maiuscole [NomeSa \t3 ]", "nomesa", true, "Valore Con Maiuscole", {3}},
        {"1 [MomY 1]", "mom", false, "", {}},
        {"1 [k 1", "k", false, "", {}},
        {"1 [k", "k", false, "", {}},
        {"1 k]", "k", false, "", {}},
        {"[k]", "k", true, "", {}},
        {"nome [x] [NomeSa 1]", "nomesa", true, "nome [x]", {1}},
        // the first bracket that begins like the key decides
        {"1 [ky 1] [k 1]", "k", false, "", {}},
        {"1 [k 1.5 2.5x due]", "k", true, "1", {2, 2, 0}},
        {"1 [k 1 2 3 4 5 6 7 8 9 10 11 12]", "k", true, "1", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}}};
    for (const Caso& c : casi) {
        const auto v = LeggiChiave(RigaChiave(c.riga), c.chiave);
        ASSERT_EQ(v.has_value(), c.trovata) << c.riga;
        if (!c.trovata) continue;
        EXPECT_EQ(v->valore, c.valore) << c.riga;
        EXPECT_EQ(v->indici, c.indici) << c.riga;
        EXPECT_TRUE(v->guasto.empty()) << c.riga;
    }
    EXPECT_FALSE(LeggiChiave(RigaChiave("1 [k 40000]"), "k")->guasto.empty());
    // written and read again
    for (const char* v : {"", "-.5", "Vento [da nord] perché", "x|y\tz"}) {
        const std::string riga = ScriviChiave(v, "NomeSa 12");
        const auto letta = LeggiChiave(RigaChiave(riga), "nomesa");
        ASSERT_TRUE(letta) << riga;
        EXPECT_EQ(letta->valore, v);
        EXPECT_EQ(letta->indici, std::vector<short>{12});
    }
}

TEST(LeggiParametro, TakesTheTextUpToTheNextSeparator) {
    const char* timbro =
        "ARGANOWIN [QuestoProgramma=TK07 - NODO] [releasearganO=18] [ReleaseQuestoFile=1]";
    const std::tuple<const char*, const char*, const char*, const char*> casi[] = {
        {timbro, "ReleaseArgano", "[]", "18"},
        {timbro, "releasequestofile=", "[]", "1"},
        {timbro, "QuestoProgramma", "[]", "TK07 - NODO"},
        {timbro, "Release", "[]", nullptr},  // no part of a longer name
        {timbro, "Oggetto", "[]", nullptr},
        {"|diroot=C:\\Suite\\|", "DIROOT", "", "C:\\Suite\\"},
        {"k=1", "k", "[]", nullptr},  // below four characters
        {"k=12", "k", "[]", "12"},
        {"[k=12", "|k=", "[]", "12"},
        {timbro, "", "[]", nullptr}};
    for (const auto& [riga, nome, separatori, atteso] : casi) {
        std::string valore;
        ASSERT_EQ(LeggiParametro(riga, nome, valore, "=", separatori), atteso != nullptr) << nome;
        EXPECT_EQ(valore, atteso == nullptr ? "" : atteso) << nome;
    }
}

TEST(TogliParola, CutsTheFirstWord) {
    std::string t = " \tuno  due\ttre ";
    for (const char* parola : {"uno", "due", "tre", ""}) EXPECT_EQ(TogliParola(t), parola);
    EXPECT_EQ(t, "");
}

}  // namespace
}  // namespace tk07
