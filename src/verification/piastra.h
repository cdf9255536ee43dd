#pragma once

#include "joint/nodo.h"
#include "verification/azioni_bulloni.h"
#include "verification/risultati.h"

namespace tk07 {

// Bending of plate 2 in its two overhangs, cantilevers loaded by bolts and contact and stiffened by
// ribs 1 and 2, for every load set.
//   Reads       nodo, geo, ris.Sigma, ris.Piano [daN/mm2]: the plates are not turned against each
//               other, so the plane that balances the bolts balances plate 2 too
//   Writes      ris.SigPiastra2 [daN/mm2], never negative; ris.MPiastra2 [daN mm]
//   Degenerate  a strip without height gives nothing; actions beyond the range of numbers: false
//               after a box; GrandezzaNulla for a section without resistance
// A bolt whose Sigma rounds to 0 daN/mm2 is left out of the bending moment, so that the moment has
// a step where bolts are hardly pulled. The section is as wide as the beam's flange, on the safe
// side of a wider plate. The T section takes no own inertia of the rib (safe side), and its second
// fibre lies at the face of the plate that meets the rib, not at the far one.
bool VerificaPiastra(const Nodo& nodo, const GeometriaVerifica& geo, Risultati& ris,
                     const Piattaforma& p);

// Larger of `sig` and the bending stress of the section with rib k (1, 2) under moment M [daN mm].
double FlessionePiastra(const Nodo& nodo, int k, double M, double sig);

}  // namespace tk07
