#pragma once

#include <array>

#include "base/piattaforma.h"
#include "base/tabella.h"

namespace tk07 {

// Stress plane of a plate joint that takes compression by contact and tension through bolts only:
// one polygon that carries compression, bars that carry both, one normal force and two moments. The
// plane is s(x, y) = c1 y + c2 x + c3, tension positive. The compressed part of the polygon depends
// on the plane, so it is found by iteration: integrate the compressed area, solve, clip again.
// Fixed storage, no allocation; tables are 1-based. Lengths mm, forces daN, moments daN mm.
class PoligonoCompresso {
  public:
    static constexpr int kVertici = 50;
    static constexpr int kBarre = 100;

    // inputs
    short polNum = 0;
    short polNVert = 0;
    Tab1<double, 1, kVertici + 1> polX, polY;  // vertices; the closing one is stored at n+1
    short polTipo = 0;                         // 0 solid, 1 hole; the solver writes it
    double polE = 1.0, polERif = 1.0;
    Tab1<double, 1, 3> polEps0;  // initial plane
    short polNBarre = 0;
    Tab1<double, 1, kBarre> barX, barY, barA, barEps0, barE;
    Tab1<short, 1, kBarre> barPol;  // 1 inside the polygon, 0 outside; computed
    Tab1<double, 1, 3> polAzioni;   // moment that pairs with y, moment that pairs with x, force
    short polSoloY = 0;             // 1: bending about one axis only
    short polNonTaglia = 0;         // 1: never clip
    short polRifFisso = 0;          // 1: moments about (polRifX, polRifY), else about the centroid
    double polRifX = 0.0, polRifY = 0.0;

    // results
    Tab1<double, 1, 3> polPiano, pianoPol, polRisult, polScarto, rhsForze;
    int polIter = 0;
    Tab1<double, 1, 2 * kVertici + 1> compX, compY;  // compressed part, closed
    short compN = 0;
    double areaTot = 0.0, SxTot = 0.0, SyTot = 0.0, IxTot = 0.0, IyTot = 0.0, IxyTot = 0.0;
    double polXG = 0.0, polYG = 0.0;
    double sommaAree = 0.0;

    // Finds the plane. `flag` on entry: wish to see the message of a failed convergence; on exit 1
    // success, 0 failure. Callers pass one variable for all load sets, starting at 0: so only a
    // failure after a success shows the message. At most 100 passes, never fewer than 3.
    void RisolviPiano(short& flag, const Piattaforma& p);
    // The given polygon clipped at the neutral axis of `pianoPol`.
    void TagliaPoligono();
    // Matrices of the compressed part and the bars.
    void IntegraPoligoni();
    // Resultants of `polPiano` on the current matrices.
    void Risultanti();

    // Closes the polygon: vertex 1 again at polNVert + 1.
    void Chiudi();

  private:
    bool RisolviSistema();
    bool Convergenza() const;
    void PreparaCarico();
    void OrientaPoligono();
    double AreaConSegno() const;
    short PoligonoDiPunto(double x, double y) const;

    using Matrice = std::array<std::array<double, 4>, 4>;  // 1-based, row and column 0 unused
    Matrice matPol{}, matTot{};
};

// c3 + c1 y + c2 x.
inline double ValorePiano(const Tab1<double, 1, 3>& c, double x, double y) {
    return c(3) + c(1) * y + c(2) * x;
}

// 0 outside, 1 inside, 2 on the boundary of the polygon with vertices 1..n; tolerance 0.0001 mm.
int PuntoInPoligono(double x, double y, int n,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vx,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vy);

}  // namespace tk07
