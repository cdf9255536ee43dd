#pragma once

#include <array>
#include <cmath>

#include "base/aritmetica.h"
#include "joint/nodo.h"

namespace tk07 {

enum class Direzione { orizzontale, verticale };
// The code that a joint's bolts are placed by.
enum class Norma { NTC, CNR };
inline Norma NormaDi(const Nodo& nodo) {
    return nodo.MetodoVerifica() == Metodo::TA ? Norma::CNR : Norma::NTC;
}

inline constexpr double kSenzaLimite = 1e20;  // mm

// Bolts are neighbours in a direction when each lies within a wedge of this half angle about it.
inline const double kTanCuneo = std::tan(kPi / 6.0);

// Edge distances and spacings of bolts as a code limits them: NTC 2018 4.2.8.1.1 table 4.2.XVIII,
// CNR 10011/88. Least values in hole diameters d0, greatest ones in plate thicknesses t and mm.
struct RegolaDistanze {
    std::array<double, 2> bordoMin{}, passoMin{};  // times d0, by Direzione
    bool bordoLimitato = true;
    double bordoPerT = 0.0;            // edge distance: times t ...
    double bordoIrrigiditoPerT = 0.0;  // ... where the edge is stiffened ...
    double bordoPiu = 0.0;             // ... and so much more [mm]
    double bordoAlmeno = 0.0;          // a greatest distance is never below this; 0: no such floor
    double passoPerT = 0.0;            // spacing: times the thinner t
    double passoAssoluto = kSenzaLimite;

    double BordoMin(Direzione d) const { return bordoMin[static_cast<std::size_t>(d)]; }
    double PassoMin(Direzione d) const { return passoMin[static_cast<std::size_t>(d)]; }
    double BordoMassimo(double t, bool irrigidito) const;  // mm
    double PassoMassimo(double tMin) const;                // mm
};
// An Esposizione (NTC only) outside 0..2 counts as 2, resistant to corrosion.
const RegolaDistanze& RegolaDi(Norma norma, short esposizione);

// Whether the edge that bolts of plate k (1, 2) face in a direction is stiffened: the ends of plate
// 1 are welded to the flanges of the main beam.
inline bool BordoIrrigidito(int k, Direzione d) { return k == 1 && d == Direzione::verticale; }

}  // namespace tk07
