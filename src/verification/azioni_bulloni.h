#pragma once

#include "joint/geometria.h"
#include "joint/nodo.h"
#include "verification/poligono.h"
#include "verification/risultati.h"

namespace tk07 {

// Values of the joint that every load set uses: worked out once for a run.
struct GeometriaVerifica {
    Geometria forma;
    Tab1<double, 0, kMaxBulloni> Area;  // AreaResistente of bolt i [mm2]
    double XG = 0.0, YG = 0.0;          // centroid of the bolts weighted by their area [mm]
    double Ip = 0.0;                    // polar moment of the bolts about it [mm4]
    double distAzioni = 0.0;            // axis of the main beam to the face of plate 2 [mm]
    double yAsse = 0.0;                 // axis of the secondary beam [mm]
};
GeometriaVerifica PreparaGeometria(const Nodo& nodo);

// Whether the moment of the transport to the bolt plane counts for load set s. The test
// looks at Mz and Ty alone and decides for both moments; where the transport does not reverse the
// sign of Mz it is left out, so that moments are to be given as they act in the bolt plane.
bool Trasporta(const Nodo& nodo, int s, double distAzioni);

// The solver's input, completed: contact rectangle of the two plates, bolts as bars, moments about
// the axis of the secondary beam; without actions.
PoligonoCompresso PreparaPoligono(const Nodo& nodo, const GeometriaVerifica& geo);

// Actions of load set s for the solver: moment that pairs with y, moment that pairs with x [daN
// mm], force [daN].
Tab1<double, 1, 3> AzioniPiano(const Nodo& nodo, const GeometriaVerifica& geo, int s);

// Tells a convergence that failed; silent for the other states. A run over load sets calls it only
// when a set before the failed one has been solved.
void DiciConvergenza(StatoPiano stato, const Piattaforma& p);

// Shares of every bolt for every load set: stress plane, axial share, direct shear and torsion.
//   Reads       nodo, geo
//   Writes      ris.Sigma, ris.Sig, ris.Piano; TA: ris.Tau; SLU: ris.Ft_Ed, ris.Fv_Ed
//   Actions     daN, daN cm (times 10 in use); Ty positive downwards, Mz pairs with y, My with x
//   Degenerate  no equilibrium, or torsion on a single point: false after a box
// Direct shear goes in equal parts to all bolts, whatever their area; friction is not counted.
bool AzioniBulloni(const Nodo& nodo, const GeometriaVerifica& geo, Risultati& ris,
                   const Piattaforma& p);

}  // namespace tk07
