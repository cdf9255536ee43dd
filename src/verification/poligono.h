#pragma once

#include "base/tabella.h"

namespace tk07 {

// Stress plane of a plate joint that takes compression by contact and tension through bolts only:
// one polygon that carries compression, bars that carry both, one normal force and two moments. The
// plane is s(x, y) = c1 y + c2 x + c3, tension positive. The compressed part of the polygon depends
// on the plane, so it is found by iteration: integrate the compressed area, solve, clip again.
// Fixed storage, no allocation; tables are 1-based. Lengths mm, forces daN, moments daN mm.

using Piano = Tab1<double, 1, 3>;

// c3 + c1 y + c2 x.
inline double ValorePiano(const Piano& c, double x, double y) { return c(3) + c(1) * y + c(2) * x; }

// The problem: what is given to the solver and never written by it.
struct PoligonoCompresso {
    static constexpr int kVertici = 50;
    static constexpr int kBarre = 100;

    short polNVert = 0;                        // 0: bars alone
    Tab1<double, 1, kVertici + 1> polX, polY;  // vertices; the closing one is stored at n+1
    double polE = 1.0, polERif = 1.0;
    Piano polEps0;  // initial plane
    short polNBarre = 0;
    Tab1<double, 1, kBarre> barX, barY, barA, barEps0, barE;
    short polSoloY = 0;      // 1: bending about one axis only
    short polNonTaglia = 0;  // 1: never clip
    short polRifFisso = 0;   // 1: moments about (polRifX, polRifY), else about the centroid
    double polRifX = 0.0, polRifY = 0.0;
    Tab1<double, 1, 3> polAzioni;  // moment that pairs with y, moment that pairs with x, force

    // Set by Completa, from the vertices and the bars alone.
    double areaConSegno = 0.0;      // positive with the vertices in clockwise order
    Tab1<short, 1, kBarre> barPol;  // 1: inside the polygon, takes its area out of the contact

    // Closing vertex, signed area, bars inside: once for all the actions on the same joint. Nothing
    // lies inside a polygon of negative area.
    void Completa();
};

// Actions moved to the origin, where the plane's resultants are taken.
inline Tab1<double, 1, 3> CaricoInOrigine(const Tab1<double, 1, 3>& azioni, double rifX,
                                          double rifY) {
    Tab1<double, 1, 3> c;
    c(1) = azioni(1) + rifY * azioni(3);
    c(2) = azioni(2) + rifX * azioni(3);
    c(3) = azioni(3);
    return c;
}

enum class StatoPiano {
    equilibrio,
    singolare,       // a pivot below 0.0001, or neither vertices nor bars
    nonConvergente,  // after 100 passes
    areeNegative     // the same, with a polygon of negative area
};

struct PianoRisolto {
    StatoPiano stato = StatoPiano::singolare;
    Piano polPiano;                   // of the last pass solved
    Piano pianoPol;                   // less the initial plane: what clips the polygon
    Piano rhsForze;                   // the actions, moments about the origin
    Piano polRisult;                  // what polygon and bars answered in the last pass but one
    int polIter = 0;                  // passes begun, never fewer than 3
    short compN = 0;                  // vertices of the compressed part
    double polXG = 0.0, polYG = 0.0;  // centroid of the whole polygon; 0 without an area
};

// Finds the plane; pure. `pol` stands completed.
PianoRisolto RisolviPiano(const PoligonoCompresso& pol);

// Resultants of a given plane over the polygon clipped at its neutral axis, and over the bars, if
// any: moment that pairs with y, moment that pairs with x (both about the origin), force.
Piano RisultantiContatto(const PoligonoCompresso& pol, const Piano& piano);

// 0 outside, 1 inside, 2 on the boundary of the polygon with vertices 1..n; tolerance 0.0001 mm.
int PuntoInPoligono(double x, double y, int n,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vx,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vy);

}  // namespace tk07
