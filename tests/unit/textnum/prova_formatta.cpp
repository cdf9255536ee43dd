#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {
namespace {

using namespace std::string_literals;

struct Caso {
    double valore;
    const char* comando;
    double fattore;
    std::string atteso;
};

void Verifica(const std::vector<Caso>& casi) {
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    for (const Caso& c : casi) {
        EXPECT_EQ(Formatta(c.valore, c.comando, c.fattore, p), c.atteso)
            << c.valore << " " << c.comando << " per " << c.fattore;
    }
    EXPECT_TRUE(porta.detti.empty());
}

TEST(TestoNumero, FifteenDigitsNoLeadingZero) {
    const std::pair<double, const char*> casi[] = {{0.0, "0"},
                                                   {-0.0, "0"},
                                                   {0.5, ".5"},
                                                   {-0.5, "-.5"},
                                                   {-1200.0, "-1200"},
                                                   {0.1 + 0.2, ".3"},
                                                   {1.0 / 3.0, ".333333333333333"},
                                                   {123456789.123456789, "123456789.123457"},
                                                   {1e-5, ".00001"},
                                                   {9.5e-6, "9.5E-06"},
                                                   {999999999999999.0, "999999999999999"},
                                                   {999999999999999.9, "1E+15"},  // 15 digits
                                                   {1.5e20, "1.5E+20"},
                                                   {-1e100, "-1E+100"}};
    for (const auto& [x, atteso] : casi) EXPECT_EQ(TestoNumero(x), atteso);
    EXPECT_EQ(TestoGenerale(2.5), " 2.5");
    EXPECT_EQ(TestoGenerale(-2.5), "-2.5");
}

// What the C library prints with 15 digits, in this program's notation: without the zero before the
// point and those at the end.
std::string QuindiciCifre(double x) {
    std::array<char, 64> buf{};
    std::snprintf(buf.data(), buf.size(), "%.14e", std::fabs(x));
    std::string cifre = buf[0] + std::string(buf.data() + 2, 14);
    const int esp = std::atoi(buf.data() + 17) + 1;
    cifre.erase(std::max<std::size_t>(cifre.find_last_not_of('0') + 1, 1));
    const auto interi = static_cast<std::size_t>(std::max(esp, 0));
    if (interi >= cifre.size()) {
        cifre.append(interi - cifre.size(), '0');
    } else {
        cifre = cifre.substr(0, interi) + "." +
                std::string(static_cast<std::size_t>(std::max(-esp, 0)), '0') +
                cifre.substr(interi);
    }
    return x == 0.0 ? "0" : (x < 0.0 ? "-" : "") + cifre;
}

// Numbers of few decimals and their neighbours, ties, sizes on both sides of 10^8 and 10^-4.
TEST(TestoNumero, ReadsAsTheCLibraryPrintsIt) {
    std::mt19937_64 g(11);
    std::uniform_int_distribution<int> decimali(0, 8), cifre(0, 11), passi(-2, 2);
    std::uniform_real_distribution<double> unita(1.0, 10.0);
    const auto prova = [](double x) {
        const std::string atteso = QuindiciCifre(x);
        ASSERT_EQ(TestoNumero(x), atteso);
        const std::string conPunto = Contiene(atteso, ".") ? atteso : atteso + ".";
        ASSERT_EQ(CampoTesto(x, 24, Separatore::barra, Allinea::destra),
                  std::string(24 - conPunto.size(), ' ') + conPunto + "|");
    };
    for (const double x : {0.0, -0.0, 1e-4, 9.9e-5, 99999999.999999, 1e8, 100000000.5, 0.0000005}) {
        for (const double vicino : {x, std::nextafter(x, 1e9), std::nextafter(x, -1e9)}) {
            if (vicino == 0.0 || std::fabs(vicino) >= 1e-5) prova(vicino);
        }
    }
    for (int k = 0; k < 150000 && !HasFatalFailure(); ++k) {
        const double scala = std::pow(10.0, decimali(g));
        double x = std::nearbyint(unita(g) * std::pow(10.0, cifre(g))) / scala;
        if (k % 4 == 1) x += 0.5 / scala;
        if (k % 2 == 1) x = -x;
        for (int p = passi(g); p > 0; --p) x = std::nextafter(x, 1e12);
        if (std::fabs(x) >= 1e-5) prova(x);
    }
}

TEST(Formatta, DecimalsAndTheScaleOfTheFactor) {
    Verifica({{12.0, "", 1, "12"},
              {1234.5, "", 0.01, "12.345"},
              {12.0, "(xx_3)", 1, "12."},
              {12.345, "(DV_02)(NP_1)", 1, "12.35"},  // the double lies above the tie
              {2.675, "(dv_02)(np_1)", 1, "2.67"},    // and this one below
              {0.125, "(dv_02)", 1, ".12"},           // an exact tie
              {12.5, "(dv_02)(np_1)", 1, "12.5"},
              {12.0, "(dv_02)(np_1)", 1, "12"},
              {0.25, "(dv_02)(np_1)", 1, ".25"},
              {-0.001, "(dv_02)(np_1)", 1, "0"},
              {1234.5678, "(dv_02)", 0.01, "12.3457"},
              {-1234.5678, "(dv_02)", -0.01, "12.3457"},
              {12345.678912, "(dv_02)", 0.001, "12.34568"},
              {0.0123456, "(dv_02)(np_1)", 1000, "12"},
              {1.23456, "(dv_02)", 10, "12.3"},
              {2.469, "(dv_02)", 4.99, "12.32"},       // log10 4.99 - 0.19897 = 0.499
              {2.469, "(dv_02)", 5.01, "12.4"},        // 0.501
              {123456.0, "(dv_02)", 0.0001, "12.35"},  // no correction at 0.0001
              {123456.0, "(dv_01)", 0.000101, "12.46906"},
              {1.23456789, "(dv_02)(cd_05)", 1, "1.23"},
              {1.23456789, "(cd_05)(dv_02)", 1, "1.23457"},
              {1.5, "(cd_03)(zr_0)", 1, "1.500"},
              {1.5, "(cd_03)(zr_x)", 1, "1.5xx"},
              {1.5, "(cd_03)", 1, "1.5"},
              {2.5, "(cd_00)", 1, "2."},
              {1234.5, "(cs_02)", 1, "1200."},
              {1234.5, "(cs_02)(np_1)(sc_)", 1, "1200"},
              {-0.0019876, "(cs_03)", 1, "-.00199"},
              {125.0, "(cs_02)(np_1)", 1, "120"}});
}

TEST(Formatta, FieldsAlignAndShorten) {
    Verifica({{12.0, "(fd_05)", 1, "  12."},
              {12.0, "(fs_05)", 1, "12.  "},
              {12.0, "(fd_06)(fs_09)", 1, "12.   "},
              {1.5, "(cd_03)(fd_08)", 1, "   1.5  "},
              {1.5, "(cd_03)(fs_08)", 1, "1.5     "},
              {1.5, "(cd_03)(zr_0)(fd_08)", 1, "   1.500"},
              {1.5, "(zr_0)(fd_06)", 1, "   1.5"},
              {123.456, "(fd_05)", 1, "123.5"},
              {123.456, "(fd_04)", 1, "123."},
              {123.456, "(fd_03)", 1, "123"},
              {-123.456, "(fd_04)", 1, "-123"},
              {12.00049, "(fd_06)", 1, "12.\0\0\0"s},
              {12.00049, "(cd_05)(fd_06)", 1, "12.   "},
              {12.00049, "(cd_05)(zr_0)(fd_06)", 1, "12.000"},
              // rounding adds a digit: the field stays as wide as asked
              {9999.6, "(fd_04)", 1, "1.E4"},
              {9999.996, "(fd_07)", 1, "10000.\0"s},  // fits: filled behind, as any mask
              {99999.7, "(fd_06)", 1, "100000"},
              {-0.68, "(fd_02)", 1, "-1"},
              // too wide: scientific, then asterisks
              {1234567890.0, "(fd_08)", 1, "12346.E5"},
              {-1234567890.0, "(fd_08)", 1, "-1235.E6"},
              {1.5e20, "(fd_10)", 1, "150000.E15"},
              {1.5e20, "(fd_07)", 1, "150.E18"},
              {1.5e20, "(fd_04)(np_1)(sc_|)", 1, "****|"},
              {1e-6, "(fd_06)", 1, "10.E-7"},
              {1.234e-6, "(fd_09)", 1, " 1234.E-9"},  // 1234.E-9 has 8, 12340.E-10 10 characters
              {12346789.0, "(fd_04)", 1, "1.E7"},
              {-12346789.0, "(fd_04)", 1, "****"},
              {12345.0, "(fd_03)", 1, "***"}});
}

TEST(Formatta, PointAndTail) {
    Verifica({{0.0, "(np_1)", 1, "0"},
              {12.0, "(np_1)(fd_06)", 1, "    12"},
              {12.0, "(np_1)(fs_06)", 1, "12    "},
              {12.0, "(np_1)(fd_06)(cd_02)", 1, " 12   "},
              {12.0, "(fd_06)(fs_09)(np_1)", 1, " 12   "},
              {12.5, "(np_1)(fd_06)", 1, "  12.5"},
              {12.5, "(sc_ kN*m)", 1, "12.5 kN*m"},
              {12.5, "(sc_)", 1, "12.5"},
              {12.5, "(SC_|)(FD_06)", 1, "  12.5|"}});
}

TEST(Formatta, BadArgumentsShowABoxAndGiveNothing) {
    const std::tuple<const char*, double, const char*> casi[] = {
        {"(cs_00)", 1.0, "comando (cs_nn) errato."},
        {"(cs_xx)", 1.0, "comando (cs_nn) errato."},
        {"(dv_-1)", 1.0, "comando (dv_nn) errato (2)."},
        {"(dv_98)", 0.01, "comando (dv_nn) errato (1)."},
        {"(cd_-1)", 1.0, "comando (cd_nn) errato."},
        {"(fd_01)", 1.0, "comando (fd_nn) o (fs_nn) errato."},
        {"(fs_01)(sc_|)", 1.0, "comando (fd_nn) o (fs_nn) errato."},
        {"(fd_1)", 1.0, "comando (fd_nn) o (fs_nn) errato."}};
    for (const auto& [comando, fattore, messaggio] : casi) {
        prova::Porta porta;
        EXPECT_EQ(Formatta(1.5, comando, fattore, porta.Fai()), "") << comando;
        EXPECT_EQ(porta.Prendi(), std::string("x|") + kTitoloProgramma + "|" + messaggio);
    }
    EXPECT_NE(Formatta(1.5, "(dv_97)", 0.01, PiattaformaMuta()), "");
}

// Whatever the number: the field is exactly as wide as asked, and what it shows lies within half a
// unit of the last place that the field has room for (with (cd_nn), half a unit of that rounding
// besides).
TEST(Formatta, AnyFieldIsExactlyWideAndShowsTheNumber) {
    std::mt19937_64 g(7);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> esponente(-7, 17), larghezza(2, 18), nove(0, 15), dec(0, 6);
    for (int k = 0; k < 60000; ++k) {
        double x = mantissa(g) * std::pow(10.0, esponente(g));
        // a third of the numbers are nines, where rounding adds a digit
        if (k % 3 == 0) {
            const double tutti = std::pow(10.0, 1 + nove(g)) - 0.3;
            x = std::copysign(tutti, x) * std::pow(10.0, -nove(g));
        }
        const int w = larghezza(g), nn = dec(g);
        const bool conDecimali = k % 2 == 0;
        std::string comando = std::string(k % 5 == 0 ? "(fs_" : "(fd_") + (w < 10 ? "0" : "") +
                              std::to_string(w) + ")";
        if (conDecimali) comando += "(cd_0" + std::to_string(nn) + ")(zr_0)";
        const std::string s = Formatta(x, comando, 1.0, PiattaformaMuta());
        ASSERT_EQ(s.size(), static_cast<std::size_t>(w)) << x << comando << s;
        const double meno = x < 0.0 ? 1.0 : 0.0;
        if (s.front() == '*') {
            ASSERT_EQ(s, std::string(static_cast<std::size_t>(w), '*'));
            const double intero = std::nearbyint(std::fabs(x));
            const bool entra = intero < std::pow(10.0, w - meno) && intero < 1e15;
            EXPECT_FALSE(entra && std::fabs(x) >= 1e-5) << x << comando;
            // "-1.E-6" is the shortest form of a small number, "-1.E16" of a large one
            EXPECT_LT(w, 7) << x << comando;
            continue;
        }
        const std::string t = Taglia(SostituisciTesto(s, "\0"s, " "));
        const std::size_t punto = t.find('.'), e = t.find('E');
        double unita = 1.0;
        if (e != std::string::npos) {
            unita = std::pow(10.0, std::atoi(t.c_str() + e + 1));
        } else if (punto != std::string::npos) {
            const double segnoPerso = x < 0.0 && t.front() != '-' ? 1.0 : 0.0;  // nothing left of x
            unita = std::pow(10.0, static_cast<double>(punto) + 1.0 + segnoPerso - w);
        }
        double margine = 0.5 * unita + 1e-14 * std::fabs(x);
        if (conDecimali) margine += 0.5 * std::pow(10.0, -nn);
        ASSERT_NEAR(ValoreIniziale(t), x, margine * (1 + 1e-9)) << comando << " '" << s << "'";
    }
}

TEST(CampoTesto, ColumnsOfAReport) {
    const auto sinistra = Allinea::sinistra, destra = Allinea::destra;
    const auto barra = Separatore::barra, no = Separatore::no;
    EXPECT_EQ(CampoTesto(std::string("  abc "), 5, barra, sinistra), "abc  |");
    EXPECT_EQ(CampoTesto(std::string("abc"), 5, no, destra), "  abc");
    EXPECT_EQ(CampoTesto(std::string(" abcdef"), 4, barra, destra), "abcd|");
    EXPECT_EQ(CampoTesto(std::string("perché no"), 7, barra, sinistra), "perché |");
    EXPECT_EQ(CampoTesto(std::string("è"), 3, no, destra), "  è");
    EXPECT_EQ(CampoTesto(12.0, 6, barra, destra), "   12.|");
    EXPECT_EQ(CampoTesto(12, 6, barra, destra), "    12|");
    EXPECT_EQ(CampoTesto(12.0, 6, no, sinistra), "12.   ");
    EXPECT_EQ(CampoTesto(-12, 6, no, sinistra), "-12   ");
    EXPECT_EQ(CampoTesto(0.25, 12, no, destra), "         .25");
    EXPECT_EQ(CampoTesto(123456, 3, barra, destra), "***|");
    EXPECT_EQ(CampoTesto(123, 3, barra, destra), "123|");
}

}  // namespace
}  // namespace tk07
