#pragma once

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "verification/azioni_bulloni.h"
#include "verification/risultati.h"

namespace tk07 {

// Bearing coefficients of one bolt: k from the horizontal direction, alfa from the vertical one,
// whatever the direction of the shear: with a prevailing vertical shear the bearing resistance is
// to be read again by hand.
struct CoefficientiRifollamento {
    double k = 0.0, alfa = 0.0;
};
CoefficientiRifollamento CoefficientiBullone(const Nodo& nodo, const Opzioni& opz,
                                             const Geometria& g, int i);

// Resistances of every bolt, independent of the load set.
//   Reads       nodo (bolts, plates, acciaio, vite), geo.Area [mm2], hole clearance
//   Writes      ris.Fv_Rd, Fb_Rd, Ft_Rd, Bp_Rd (1..nBull) [daN]
//   Degenerate  a class name without a known class: Fv_Rd 0; a bolt too near an edge: Fb_Rd <= 0.
//               GrandezzaNulla: Ftk40, GammaMVite or a hole diameter exactly 0
//   Source      NTC 2018, 4.2.8.1.1, (4.2.63) to (4.2.70); EN 1993-1-8, table 3.4
void ResistenzeBulloni(const Nodo& nodo, const Opzioni& opz, const GeometriaVerifica& geo,
                       Risultati& ris);

// Utilisation ratios Co1 (shear and tension, NTC 2018 (4.2.71)) and Co2 (tension alone) of every
// bolt and load set; 100 where a resistance is not positive. Co2 takes the absolute axial force, so
// a compressed bolt has one too.
void CoefficientiBulloni(const Nodo& nodo, Risultati& ris);

// TA: bearing stress of every bolt on plates 1 and 2 [daN/mm2]: A tau / d / t.
void SigRifollamento(const Nodo& nodo, const GeometriaVerifica& geo, Risultati& ris);

// TA: coefficient of the allowable bearing stress of load set s: the least edge distance of all
// bolts over the smallest hole, at most cnr::kRifMassimo. The sides count with Tz or Mt only.
double CoeffRifollamento(const Nodo& nodo, const Opzioni& opz, int s);

}  // namespace tk07
