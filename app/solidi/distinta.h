#pragma once

#include <string>
#include <vector>

#include "solidi/dati_parte.h"

namespace tk07 {

inline constexpr double kDensitaAcciaio = 7850.0;  // kg/m3

// A row of the bill: equal parts together. Lengths and volumes of one part; weights in kg.
struct RigaDistinta {
    std::string nome, misura, materiale;
    int quanti = 0;
    double volume = 0.0;      // mm3
    double lato = 0.0;        // mm; leg of a weld
    double lunghezza = 0.0;   // mm; of a weld
    double peso = 0.0;        // of one, kg
    double pesoTotale = 0.0;  // of all, kg
};

struct Distinta {
    std::vector<RigaDistinta> pezzi;      // beams (as far as modelled), plates, ribs, bolts
    std::vector<RigaDistinta> saldature;  // by leg and length
    double pesoPezzi = 0.0, pesoSaldature = 0.0, pesoTotale = 0.0;  // kg
    double lunghezzaSaldature = 0.0;                                // mm
    double volumeSaldature = 0.0;                                   // mm3
};

// The bill of the parts. Two parts are equal when kind, measure, material and volume (to 1e-6) are;
// head, shank and nut of a bolt are one part.
Distinta FaiDistinta(const std::vector<DatiParte>& parti);

// As a table for people, Italian.
std::string TestoDistinta(const Distinta& d, const std::string& titolo);

}  // namespace tk07
