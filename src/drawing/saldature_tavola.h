#pragma once

#include <array>
#include <string>
#include <vector>

#include "drawing/figura.h"
#include "joint/nodo.h"

namespace tk07 {

// Axes of the joint, mm: x along the secondary beam away from the main one, y along the main beam,
// z upwards; the origin is on the axis of the main beam.
using Punto3 = std::array<double, 3>;

// A fillet weld in space: the root line from `da` to `a` in the corner of the two faces, and the
// directions of the two legs along them.
struct LineaSaldatura {
    int indice = 0;  // 0..14 lines s1..s15, 15..29 their mirrors
    Punto3 da{}, a{};
    Punto3 versoUno{}, versoDue{};
    double lato = 0.0;
};

// Levels and faces of the joint that every view needs.
struct QuoteNodo {
    double HP = 0.0, BP = 0.0, HS = 0.0, BS = 0.0;  // sections of main and secondary beam
    double xP1 = 0.0, xP2 = 0.0, xS = 0.0;  // back of plate 1, between the plates, end of TraSec
    double zS = 0.0, zS2 = 0.0;             // underside and top of the secondary beam
    double zP1 = 0.0;                       // lower end of plate 1
    double zP2 = 0.0, zP22 = 0.0;           // lower and upper end of plate 2
    double moncone = 0.0;                   // length of TraSec shown
    double mezza = 0.0;                     // half length of TraPri shown
};
QuoteNodo CalcolaQuote(const Nodo& nodo);

using Lunghezze = Tab1<double, 0, 14>;

// The weld lines that the joint has, mirrors included; a line exists when its length is positive.
std::vector<LineaSaldatura> LineeSaldatura(const Nodo& nodo, const Lunghezze& lungSald);

// Whether s10 (k = 1) or s11 (k = 2) has a mirror: with its rib it is two lines, without one.
bool LineaDoppia(const Nodo& nodo, int k);

}  // namespace tk07
