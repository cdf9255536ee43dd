#include "base/aritmetica.h"

#include <charconv>
#include <cstdlib>

#include "base/errore.h"

namespace tk07 {

namespace {

// The general case: print with n decimals (exact, half to even) and read back.
double ArrotondaTesto(double x, int n) {
    char buf[512];
    const auto fine = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, n);
    double y = x;
    std::from_chars(buf, fine.ptr, y);
    return y;
}

}  // namespace

double Arrotonda(double x, int n) {
    if (!std::isfinite(x)) return x;
    static constexpr double kPotenze[] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    if (n < 0 || n > 6 || std::fabs(x) > 1e9) return ArrotondaTesto(x, n);
    // x*10^n = p + e exactly (e by a fused step), so the nearest whole number r is known without
    // printing: near a tie of p the residual e decides, an exact tie goes to the even neighbour.
    const double s = kPotenze[n];
    const double p = x * s;
    // p is below 2^51: beside 1.5 2^52 a double has no room for decimals, so the sum rounds p to
    // the nearest whole number, half to even.
    constexpr double kSenzaDecimali = 6755399441055744.0;
    double r = std::copysign((p + kSenzaDecimali) - kSenzaDecimali, p);
    const double d = p - r;  // exact
    // At d = +-0.5 the even neighbour has been chosen; the residual can call for the other.
    if (std::fabs(d) == 0.5) {
        const double e = std::fma(x, s, -p);
        if (d > 0.0 && e > 0.0) r += 1.0;
        if (d < 0.0 && e < 0.0) r -= 1.0;
    }
    // r and 10^n are exact, so the quotient is the double nearest to the rounded decimal.
    return r / s;
}

std::optional<short> Corto(double x) {
    const double r = Arrotonda(x, 0);
    if (!(r >= -32768.0 && r <= 32767.0)) return std::nullopt;
    return static_cast<short>(r);
}

short InteroCorto(double x) {
    const auto n = Corto(x);
    if (!n) throw ErroreFatale(kOltreSediciBit);
    return *n;
}

double AreaResistente(double d) {
    const double rapporto = (d - 0.1) / d;
    const double dr = 0.9 * d * std::pow(rapporto, 3.5);
    return kPi / 4.0 * (dr * dr);
}

}  // namespace tk07
