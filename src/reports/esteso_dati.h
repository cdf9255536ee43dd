#pragma once

#include <vector>

#include "reports/esteso.h"
#include "reports/esteso_verifiche.h"

namespace tk07 {

// The chapters of the extended report that do not depend on a load set.

// Sections, plates, bolts, welds, materials, load sets.
void DatiIngresso(const ContestoRel& c, std::vector<BloccoRel>& b);
// Levels and areas, resistances of the bolts with their formulas (SLU), weld groups.
void GrandezzeComuni(const ContestoRel& c, std::vector<BloccoRel>& b);
// The spacing rules: what they ask for, what the joint has (esteso_distanze.cpp).
void RegoleDistanza(const ContestoRel& c, std::vector<BloccoRel>& b);
// What the method leaves out and what it does in its own way, in brief.
RiquadroRel LimitiDelMetodo(const ContestoRel& c);

}  // namespace tk07
