#include <gtest/gtest.h>

#include <charconv>
#include <random>

#include "base/aritmetica.h"
#include "base/errore.h"

namespace tk07 {
namespace {

// Rounding by printing: exact, half to even.
double PerTesto(double x, int n) {
    char buf[512];
    const auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, n);
    double y = 0.0;
    std::from_chars(buf, r.ptr, y);
    return y;
}

TEST(Arrotonda, AgreesWithExactPrinting) {
    std::mt19937_64 g(1);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    std::uniform_int_distribution<int> esponente(-8, 12), decimali(0, 9);
    for (int k = 0; k < 200000; ++k) {
        const int n = decimali(g);
        double x = mantissa(g) * std::pow(10.0, esponente(g));
        // half of the cases sit at a decimal tie or one step beside it
        if (k % 2 == 0) {
            x = (std::floor(x * std::pow(10.0, n)) + 0.5) / std::pow(10.0, n);
            if (k % 6 == 2) x = std::nextafter(x, 1e300);
            if (k % 6 == 4) x = std::nextafter(x, -1e300);
        }
        ASSERT_EQ(Arrotonda(x, n), PerTesto(x, n)) << x << " a " << n;
    }
}

TEST(InteroCorto, RefusesWhatDoesNotFitSixteenBits) {
    EXPECT_EQ(InteroCorto(2.5), 2);
    EXPECT_EQ(InteroCorto(-32768.0), -32768);
    EXPECT_THROW(InteroCorto(32768.0), ErroreFatale);
    EXPECT_THROW(InteroCorto(std::nan("")), ErroreFatale);
}

TEST(Elementari, MaxAssKeepsTheSign) {
    EXPECT_EQ(MaxAss(-3.0, 2.0), -3.0);
    EXPECT_EQ(MaxAss(1.0, -2.0), -2.0);
    EXPECT_EQ(Int(-0.2), -1.0);
    EXPECT_EQ(Sgn(0.0), 0.0);
}

}  // namespace
}  // namespace tk07
