#pragma once

#include <string>
#include <vector>

#include "solidi/solidi.h"

namespace tk07 {

// Writes the parts by the file's ending, in any case:
//   .step, .stp   STEP AP214 (mm), an assembly `titolo` of the parts with their names and colours
//   .glb          glTF 2 binary (metres, Y upwards), one mesh a part, names and colours
//   .stl          binary STL (mm), all parts in one
// The file comes whole or not at all: as ScriviFile does it. False
// with the file's name and the reason in `errore`.
bool EsportaSolidi(const std::vector<Parte>& parti, const std::string& titolo,
                   const std::string& file, std::string& errore);

// Whether the ending is one of those above.
bool FormatoSolidi(const std::string& file);

// Largest distance of a mesh from its round faces [mm], and the largest turn between neighbouring
// facets [rad].
inline constexpr double kFrecciaMaglia = 0.1, kGiroMaglia = 0.35;
// Gives every part a mesh; those that have one keep it.
void Reticola(const std::vector<Parte>& parti);

}  // namespace tk07
