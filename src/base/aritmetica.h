#pragma once

#include <cmath>
#include <optional>

namespace tk07 {

// To 15 digits: a longer constant would move the last digits of every angle, and with them numbers
// that have been printed and signed.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kMm2PerCm2 = 100.0;

inline double Max(double a, double b) { return a > b ? a : b; }
inline double Min(double a, double b) { return a < b ? a : b; }
// The value with the larger absolute size.
inline double MaxAss(double a, double b) { return std::fabs(a) > std::fabs(b) ? a : b; }
// Largest whole number not above x.
inline double Int(double x) { return std::floor(x); }
// -1, 0 or 1.
inline double Sgn(double x) { return x > 0.0 ? 1.0 : (x < 0.0 ? -1.0 : 0.0); }

// x rounded to n decimals, half to even on the exact binary value (what fixed-precision printing
// gives), n in 0..99. Values that are not finite come back as they are.
double Arrotonda(double x, int n);

// x rounded to a whole number, half to even; none outside 16 signed bits.
std::optional<short> Corto(double x);
// The same where a value outside them is a fatal fault.
short InteroCorto(double x);

// Resistant area [mm2] of a bolt of diameter d [mm]: pi/4 (0.9 d ((d - 0.1)/d)^3.5)^2.
// Degenerate: d not above 0.1 gives no number; the verification refuses such a bolt beforehand.
double AreaResistente(double d);

}  // namespace tk07
