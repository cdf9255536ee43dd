#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "base/errore.h"
#include "base/testo.h"

namespace tk07 {
namespace {

TEST(EstraiCampo, TabsAreBlanksAndTheLineIsShortened) {
    std::string riga = "  IPE\t \t200   8,5 x ";
    EXPECT_EQ(EstraiCampo(riga), "IPE");
    EXPECT_EQ(riga, "200   8,5 x");
    EXPECT_EQ(EstraiCampo(riga), "200");
    EXPECT_EQ(EstraiCampo(riga), "8,5");
    EXPECT_EQ(EstraiCampo(riga), "x");
    EXPECT_EQ(EstraiCampo(riga), "");
    riga = "\t2 | due parole||\tfine";
    for (const char* campo : {"2", "due parole", "", "fine", ""}) {
        EXPECT_EQ(EstraiCampo(riga, '|'), campo);
    }
    EXPECT_EQ(ContaCampi(" \t "), 0);
    EXPECT_EQ(ContaCampi("\ta b\t\tc "), 3);
    EXPECT_EQ(ContaCampi(SostituisciTesto(std::string(60, 'x'), "x", "x ")), 50);
}

TEST(Testo, ReplacingSplittingAndCase) {
    EXPECT_EQ(SostituisciTesto("aaa", "aa", "b"), "ba");
    EXPECT_EQ(SostituisciTesto("a.a.", ".", ".."), "a..a..");
    EXPECT_EQ(SostituisciTesto("Perché PERCHÉ", "perché", "x"), "Perché PERCHÉ");
    EXPECT_EQ(SostituisciTesto("Perché PERCHÉ", "perché", "x", Maiuscole::indifferenti), "x x");
    EXPECT_EQ(SostituisciTesto("abc", "", "x"), "abc");
    EXPECT_EQ(Dividi("a||b|", '|'), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(TogliCR("a\r\nb\n"), "a b");
    EXPECT_EQ(Minuscolo("CITTÀ ÈÜ × 5"), "città èü × 5");
    EXPECT_EQ(Maiuscolo("città ÷ ß"), "CITTÀ ÷ ß");
    EXPECT_EQ(NumeroCaratteri("è € x"), 5u);
    EXPECT_EQ(PrimiCaratteri("è€x", 2), "è€");
}

TEST(Numeri, LenientReadingTakesTheLongestLeadingNumber) {
    const std::pair<std::string, double> casi[] = {
        {"", 0},
        {"abc", 0},
        {" \t12.5 mm", 12.5},
        {"-3", -3},
        {"+.5x", 0.5},
        {"5.", 5},
        {"12,5", 12},
        {"1.2.3", 1.2},
        {"2e3x", 2000},
        {"2e", 2},
        {"2E+", 2},
        {"1E-2]", 0.01},
        {"- 3", 0},
        {".", 0},
        {"-.e5", 0},
        {"inf", 0},
        {"nan", 0},
        {"0x10", 0},
        {"1e-400", 0},
        {"--1", 0},
        // too small to be told from 0, however it is spelled
        {"0." + std::string(400, '0') + "1", 0}};
    for (const auto& [testo, atteso] : casi) {
        try {
            EXPECT_EQ(ValoreIniziale(testo), atteso) << testo;
        } catch (const ErroreFatale& e) {
            ADD_FAILURE() << testo << ": " << e.what();
        }
    }
    EXPECT_THROW(ValoreIniziale("1e400"), ErroreFatale);
    EXPECT_THROW(ValoreIniziale(std::string(400, '9') + "e-1"), ErroreFatale);
}

TEST(Numeri, StrictReadingTakesNothingElse) {
    const std::pair<const char*, double> buoni[] = {
        {" \t12.5 ", 12.5}, {"+3", 3}, {"-.5", -0.5}, {"5.", 5}, {"1e3", 1000}, {"1.5E-2", 0.015}};
    for (const auto& [testo, atteso] : buoni) EXPECT_EQ(ValoreStretto(testo), atteso) << testo;
    for (const char* testo : {"", "  ", "x", "12,5", "1 2", "12mm", "1e", "+-3", "-", ".", "inf",
                              "nan", "0x10", "1e400", "1.2.3", "1'000"}) {
        EXPECT_EQ(ValoreStretto(testo), std::nullopt) << testo;
    }
}

TEST(Numeri, WholeNumbersRoundHalfToEvenAndFitSixteenBits) {
    const std::pair<const char*, short> casi[] = {
        {"2.5", 2}, {"3.5x", 4}, {"-2.5", -2}, {"", 0}, {"32767.4", 32767}, {"-32768.5", -32768}};
    for (const auto& [testo, atteso] : casi) EXPECT_EQ(InteroIniziale(testo), atteso) << testo;
    for (const char* testo : {"32767.5", "-40000", "1e300"}) {
        try {
            InteroIniziale(testo, "riga 7");
            ADD_FAILURE() << testo;
        } catch (const ErroreFatale& e) {
            EXPECT_EQ(e.Dove(), "riga 7");
        }
    }
}

TEST(TestoReale, ShortestTextThatReadsBackToTheSameBits) {
    const std::pair<double, const char*> casi[] = {{0.1, "0.1"},    {-0.0, "0"},
                                                   {200.0, "200"},  {1e20, "100000000000000000000"},
                                                   {1e30, "1e+30"}, {1.5e-300, "1.5e-300"}};
    for (const auto& [x, atteso] : casi) EXPECT_EQ(TestoReale(x), atteso);
    std::mt19937_64 g(3);
    for (int k = 0; k < 50000; ++k) {
        const std::uint64_t bit = g();
        double x = 0.0;
        std::memcpy(&x, &bit, sizeof x);
        if (!(std::abs(x) <= 1e308)) continue;
        ASSERT_EQ(ValoreStretto(TestoReale(x)), x);
        ASSERT_EQ(ValoreIniziale(TestoReale(x) + " [chiave]"), x);
    }
}

}  // namespace
}  // namespace tk07
