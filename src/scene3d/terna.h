#pragma once

#include "scene3d/scena.h"

namespace tk07 {

// Where an extrusion puts its section. A vertex (Z, Y) of the section lies at
//     coord1 + Z * terna.z + Y * terna.y     at the first end, the same from coord2 at the second.
// x is the axis, from coord1 to coord2; x, y, z are a right-handed set of unit vectors (x × y = z):
// looking along the axis with Y upwards, Z points to the right.
//
//     axis along      Y at orient 0    Z at orient 0
//     +X              +Z               -Y
//     -X              +Z               +Y
//     +Y              +Z               +X
//     -Y              +Z               -X
//     +Z              +Y               -X
//     -Z              +Y               +X
//     any other       the upward direction (+Z) made perpendicular to the axis; z = x × y
//
// `estrusi_orient` turns Y and Z about the axis from Y towards Z, in degrees: clockwise for who
// looks from coord1 to coord2. At 90 the section's Y lies where Z was.
struct Terna {
    Punto3 x{}, y{}, z{};
    bool valida = false;  // false, and all zero, for an axis without length
};
Terna TernaEstruso(const Estruso& e);

// Unit vector from a to b; zero and false when the points coincide.
bool Versore(const Punto3& a, const Punto3& b, Punto3& u);

Punto3 Prodotto(const Punto3& a, const Punto3& b);  // a × b
double Scalare(const Punto3& a, const Punto3& b);
// p + t u
Punto3 Avanti(const Punto3& p, double t, const Punto3& u);

// The turn [degrees: 0, 90, 180 or 270] that brings the section's Y onto `y`, for an axis and a
// direction along the scene's axes.
double OrientPerY(const Punto3& coord1, const Punto3& coord2, const Punto3& y);

}  // namespace tk07
