#pragma once

#include <string_view>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

inline constexpr int kMaxStiliGrb = 101;

struct StileGrb {
    double stileAltezza = 2.5, stileLarghezza = 2.5;
    short stileValore = 0;
};

// Text styles of the drawing model.
struct StiliGrb {
    std::vector<StileGrb> Stili{StileGrb{}};  // standalone default: one style
};

// Drawing millimetres into the style's units: unit 0 divides by 1000, 1 by 10, any other leaves.
double ConvertiScala(double valore, double fattore, short unita);

// Reads the drawing model. On failure a box, and the standalone defaults stay.
void LeggiStiliGrb(std::string_view percorso, StiliGrb& stili, const Piattaforma& p);

}  // namespace tk07
