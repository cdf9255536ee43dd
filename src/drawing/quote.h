#pragma once

#include <vector>

#include "drawing/figura.h"

namespace tk07 {

enum class Lato { sopra, sotto, sinistra, destra };

// Chain of dimensions along one side of a view.
//   punti   positions along the side (x for sopra and sotto, y otherwise) in any order; those
//           closer than 0.05, which would read as 0, are one
//   bordo   where the extension lines start: the outline's level on that side
//   distanza of the dimension line from `bordo`, positive; more where the figure's strokes or texts
//            are in the way
// Its texts are spread by DistendiTesti.
void CatenaQuote(Figura& f, Lato lato, std::vector<double> punti, double bordo, double distanza,
                 const StileQuota& stile);

// Texts of a chain, horizontal or vertical dimensions of one style that follow each other from the
// left or from the bottom. Texts stand over their segments where they fit. Where they do not, they
// are spread in one row beyond the line, in order, each with a leader from the middle of its
// segment.
void DistendiTesti(std::vector<QuotaFig>& quote);

// Centres of intervals of the given widths that do not overlap, in the same order, nearest to
// the centres wanted (least squares). `aria` is the free room between neighbours.
std::vector<double> CentriSeparati(const std::vector<double>& voluti,
                                   const std::vector<double>& larghezze, double aria);

}  // namespace tk07
