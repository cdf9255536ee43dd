#pragma once

#include <string>

#include "drawing/archivio.h"
#include "drawing/grb.h"
#include "drawing/stili_grb.h"
#include "options/opzioni.h"

namespace tk07 {

// The file in strokes and texts, as a viewer shows it: what it leaves to its reader is filled in.
// Text sizes come from the drawing model's styles, colours and the dimensions' make from the
// options, a dimension's number from its points; the numbers of a chain are spread as on our own
// sheet. The coordinates of `g` keep their indices.
//   Degenerate  a style that the model lacks has the options' height, and options without the
//               drawing's rows give the shipped colours; false with the reason in `errore` when
//               that takes more coordinates than there can be
bool MostraGrb(const DisegnoGrb& g, const StiliGrb& stili, const Opzioni& opz, Disegno& d,
               std::string& errore);

}  // namespace tk07
