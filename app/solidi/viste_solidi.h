#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "solidi/linee_nascoste.h"

namespace tk07 {

// Ways to look at parts: apart from each other, cut open, shaded without a graphics card.

// Where a part goes when the joint is pulled apart: along the secondary beam in the order of
// assembly, ribs 1 and 2 up and down as well. `quanto` from 0 (in place) to 1.
Punto3 SpostamentoEsploso(const DatiParte& p, double quanto);
Parte Spostata(const Parte& p, const Punto3& di);

// What is left of the parts on one side of a plane across an axis of the scene (0 X, 1 Y, 2 Z);
// parts that lie on the other side have a null shape, and keep their place in the list.
enum class LatoTenuto { sotto, sopra };
std::vector<Parte> Tagliate(const std::vector<Parte>& parti, int asse, double quota,
                            LatoTenuto lato);

// The facets of one part, with the normals at their corners.
struct Faccetta {
    std::array<Punto3, 3> punti, normali;
};
struct Maglia {
    std::vector<Faccetta> faccette;
    std::vector<Punto3> vertici;  // corners of the solid
};
// One a part; empty for a null shape.
std::vector<Maglia> Maglie(const std::vector<Parte>& parti);

// Where the picture stands: the projection, the point in its middle, its scale.
struct Inquadratura {
    Proiezione p;
    std::array<double, 2> centro{};  // picture coordinates [mm]
    double perMm = 1.0;              // pixels
    int larghezza = 0, altezza = 0;  // pixels
    std::array<double, 2> Pixel(const Punto3& q) const {
        const auto v = p.Piana(q);
        return {larghezza / 2.0 + (v[0] - centro[0]) * perMm,
                altezza / 2.0 - (v[1] - centro[1]) * perMm};
    }
    // The point of the scene at a pixel and at a distance [mm] towards the eye.
    Punto3 Punto(double x, double y, double profondita) const;
};
// Turned so that all corners of the meshes fit, `bordo` of the picture left free.
void Adatta(const std::vector<Maglia>& maglie, Inquadratura& q, double bordo);

// How each part is painted.
struct TintaParte {
    std::uint32_t argb = 0;  // alpha below 255 lets what is behind shine through
    bool visibile = true;
};

// A picture by depth: for every pixel colour (0 where nothing is), part (-1) and distance [mm]
// towards the eye. What shines through counts for the colour only.
struct Quadro {
    int larghezza = 0, altezza = 0;
    std::vector<std::uint32_t> colori;
    std::vector<int> parti;
    std::vector<float> profondita;
};
Quadro Ombreggia(const std::vector<Maglia>& maglie, const std::vector<TintaParte>& tinte,
                 const Inquadratura& q);

}  // namespace tk07
