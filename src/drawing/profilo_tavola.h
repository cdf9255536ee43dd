#pragma once

#include <functional>

#include "drawing/figura.h"
#include "joint/nodo.h"
#include "libraries/profili.h"

namespace tk07 {

// Cross-section of an I or H section with its root fillets as arcs, centred on (x, y), turned by
// `orient` [degrees] counter-clockwise.
void DisegnaProfilo(Figura& f, const ProfiloRec& profilo, double x, double y, double orient = 0.0);

// A small drawing surface of a panel. Coordinates are those of its scale, y upwards.
struct Superficie {
    double ScaleWidth = 0.0,
           ScaleHeight = 0.0;  // in: the surface's size in any unit, for its ratio
    // out: the world rectangle that the surface shows
    double xMin = 0.0, xMax = 0.0, yMin = 0.0, yMax = 0.0;
    int ForeColor = 0;  // red + 256 green + 65536 blue
    std::function<void()> pulisci;
    std::function<void(double x1, double y1, double x2, double y2)> linea;
    std::function<void(double x, double y, double raggio, double a1, double a2)> cerchio;
};

// Previews of the two beams, cleared and drawn at the same scale, so that their sizes compare.
void AnteprimeProfili(const Nodo& nodo, Superficie& DisPri, Superficie& DisSec);

}  // namespace tk07
