#pragma once

#include <TopoDS_Shape.hxx>

#include "scene3d/scena.h"

namespace tk07 {

// A section carried along its extrusion as one exact solid: rounded sides are arcs of circles, a
// contour that is one circle throughout (as SezioneCerchio makes it) a single edge. Contours inside
// the first are holes; one beside it makes a solid of its own. A section that differs at the other
// end (same number of sides, no holes) is joined to it by ruled faces.
//   Degenerate  a null shape: an axis without length, a contour without area. A side too long for
//               its radius is straight; corners that coincide are one.
TopoDS_Shape Prisma(const Estruso& e, const Sezione& inizio, const Sezione& fine);

// A round contour about (Z, Y), for holes.
Contorno ContornoTondo(double Z, double Y, double raggio);

// What is left of a contour with straight sides after its corner at (Z, Y) is cut: of the points
// with dZ (z - Z) + dY (y - Y) >= smusso. dZ and dY are +1 or -1, from the corner into the section.
Contorno TagliaSpigolo(const Contorno& c, double Z, double Y, double dZ, double dY, double smusso);

// mm3; 0 of a null shape.
double VolumeForma(const TopoDS_Shape& forma);

}  // namespace tk07
