#pragma once

#include <string>
#include <vector>

#include "joint/nodo.h"

namespace tk07 {

// A bolt whose head or nut cannot stand where it is, and what it runs into.
struct Urto {
    int bullone = 0;            // from 1
    const char* elemento = "";  // "la testa", "il dado"
    const char* parte = "";     // "l'anima della trave secondaria", ...
};

// Heads (on the side of the secondary beam) and nuts (behind plate 1) that run into beams or ribs.
// The consistency checks do not look at that. Only what is certain counts, whichever way the bolt
// is turned: within 0.75 d of the axis, half the width across flats of ISO 4014 and ISO 4032 bolts
// (24 mm for M16, 30 for M20, 36 for M24). Room for washers, fillets, welds and the spanner is the
// engineer's matter.
//   Reads  nodo, rib 3 recomputed by the caller
std::vector<Urto> UrtiBulloni(const Nodo& nodo);

// One line for each pair of element and part: "bulloni 1, 3: la testa urta ...".
std::vector<std::string> RigheUrti(const std::vector<Urto>& urti);

}  // namespace tk07
