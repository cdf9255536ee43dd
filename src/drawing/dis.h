#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "drawing/archivio.h"

namespace tk07 {

// The DIS file: header with version and extent, then coordinates, points, line elements, texts and
// arcs, each behind its count; indices are zero-based. The extent is that of `d`.
std::string ComponiDis(const Disegno& d, int versione);
// Writes it; false after a box, and a file that exists keeps its contents.
bool ScriviDis(const Disegno& d, std::string_view nomeFile, int versione, const Piattaforma& p);
// Extent, cleaning, version 4, and a box that tells the user unless `silenzioso`.
bool SalvaDis(Disegno& d, std::string_view nomeFile, bool silenzioso, const Piattaforma& p);

// Reads a DIS file. False with the reason and the line in `errore`; `d` then stays as it was.
// Indices beyond the coordinates, counts beyond the tables and values that are no numbers are
// refused.
bool LeggiDis(std::string_view nomeFile, Disegno& d, std::string& errore);

}  // namespace tk07
