#pragma once

#include <vector>

#include "drawing/figura.h"
#include "joint/nodo.h"
#include "options/opzioni.h"

namespace tk07 {

struct FiguraPosta {
    Figura figura;
    double x = 0.0, y = 0.0;  // of the figure's own origin on the sheet
    const char* nome = "";    // for tests and messages
};

enum class Squadratura { si, no };

// Composes the joint's sheet: sections CC, BB and AA, details of the plates and of the ribs that
// are there, notes, weld table and, with a frame (`si`), the title in its block; without one the
// sheet's paper carries the title. The figures do not overlap. The joint is taken as it stands: the
// third rib must have been recomputed.
//   Returns     the figures in the order of the sheet; empty after a box when a dimension that
//               divides is exactly 0
std::vector<FiguraPosta> ComponiTavola(const Nodo& nodo, const Opzioni& opz,
                                       Squadratura squadratura, const Piattaforma& p);

// Title of the sheet with the numbers of the joint's nodes.
std::string TitoloTavola(const Nodo& nodo);

// The whole sheet into the drawing store, which is emptied before. False after a box.
bool DisegnaNodo(const Nodo& nodo, const Opzioni& opz, Squadratura squadratura, Disegno& d,
                 const Piattaforma& p);

}  // namespace tk07
