#pragma once

#include <string>

#include "joint/nodo.h"
#include "norme/clausola.h"

namespace tk07 {

// Factors and limits of the allowable stresses, CNR 10011/88. Stresses in daN/cm2.
namespace cnr {

inline constexpr Clausola kNorma{"CNR 10011/88", ""};
inline constexpr double kCasoII = 1.125;      // allowable stresses of load case II
inline constexpr double kRifMassimo = 2.5;    // cap of the coefficient of the bearing stress
inline constexpr double kCoefficiente = 1.0;  // limit of the bolts' sum of squares

}  // namespace cnr

// Allowable stress of plate k (1, 2) for load case I: thin up to 40 mm, included.
double SammPiastra(const Nodo& nodo, int k);
// Factor of the allowable stresses of load set s (from 0), by its load case.
double FattoreCaso(const Nodo& nodo, int s);

// Factors of the allowable stress of a fillet weld by the steel's full name: on the resultant and
// the single components, and on |P| + |Tau_pe|. An unknown steel has none, and every weld fails.
struct FattoriTA {
    bool noto = false;
    double singola = 0.0, somma = 0.0;
};
FattoriTA FattoriTensAmm(const std::string& nomeAcciaio);

}  // namespace tk07
