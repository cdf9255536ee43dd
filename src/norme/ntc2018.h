#pragma once

#include <string>

#include "joint/nodo.h"
#include "norme/clausola.h"

namespace tk07 {

// Factors and limits of the limit states, NTC 2018. Stresses in daN/cm2, lengths in mm.
namespace ntc {

inline constexpr Clausola kDistanze{"NTC 2018, 4.2.8.1.1", ""};  // table 4.2.XVIII
inline constexpr Clausola kTaglio06{"NTC 2018, 4.2.8.1.1", "(4.2.63)"};
inline constexpr Clausola kTaglio05{"NTC 2018, 4.2.8.1.1", "(4.2.64)"};
inline constexpr Clausola kRifollamento{"NTC 2018, 4.2.8.1.1", "(4.2.67)"};
inline constexpr Clausola kTrazione{"NTC 2018, 4.2.8.1.1", "(4.2.68)"};
inline constexpr Clausola kPunzonamento{"NTC 2018, 4.2.8.1.1", "(4.2.70)"};
inline constexpr Clausola kTaglioETrazione{"NTC 2018, 4.2.8.1.1", "(4.2.71)"};
inline constexpr Clausola kPiastre{"NTC 2018, 4.2.4.1.2", ""};
inline constexpr Clausola kSaldaturaRisultante{"NTC 2018, 4.2.8.2.4", "(4.2.84)"};
inline constexpr Clausola kSaldaturaSomma{"NTC 2018, 4.2.8.2.4", "(4.2.85)"};

// Bearing, EN 1993-1-8 table 3.4: k is kMax at most, by edge kBordo e / d0 - kMeno, by spacing
// kPasso p / d0 - kMeno; alfa by edge e / (kAlfa d0), by spacing p / (kAlfa d0) - kAlfaMeno.
inline constexpr double kRifMassimo = 2.5, kRifBordo = 2.8, kRifPasso = 1.4, kRifMeno = 1.7;
inline constexpr double kRifAlfa = 3.0, kRifAlfaMeno = 0.25;
inline constexpr double kFattoreTrazione = 0.9;
inline constexpr double kFattorePunzonamento = 0.6;
inline constexpr double kDiametroPunzonamento = 1.5;  // of the shank
inline constexpr double kTrazioneConTaglio = 1.4;     // divides the tension of (4.2.71)
inline constexpr double kCoefficiente = 1.0;          // limit of Co-1 and Co-2

}  // namespace ntc

// Plates up to this thickness, included, have the strength of thin ones.
inline constexpr double kSpessoreSottile = 40.0;
inline bool PiastraSottile(const Nodo& nodo, int k) {
    return nodo.SpPiastra(k) <= kSpessoreSottile;
}

// Characteristic strength of plate k (1, 2), and its design strength.
double FykPiastra(const Nodo& nodo, int k);
double FdPiastra(const Nodo& nodo, int k);
// Tensile strength of both plates for bearing and punching: one thick plate makes both thick.
double FtkPiastre(const Nodo& nodo);

// Factor of the shear resistance by the bolt class's name; 0 for an unknown class.
double FattoreTaglio(const std::string& classe);

// Weld factors of a steel by the digits in its name; both 0 for an unknown steel, so that every
// weld fails. The limits are these times Fyk40, whatever the thickness. NTC 2018, 4.2.8.2.4.
struct FattoriSaldatura {
    double Beta1 = 0.0, Beta2 = 0.0;
};
FattoriSaldatura FattoriSLU(const std::string& nomeAcciaio);

}  // namespace tk07
