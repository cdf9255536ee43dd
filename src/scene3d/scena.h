#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/piattaforma.h"
#include "base/punto.h"

namespace tk07 {

// The 3D scene: cross-sections, and extrusions of them along a segment. Axes and lengths are those
// of the joint (mm): X along the secondary beam away from the main one, Y along the main beam, Z
// upwards. Indices are zero-based.
inline constexpr int kMaxEstrusi = 500, kMaxSezioni = 50, kMaxContorni = 11, kMaxVertici = 201;
// Sections whose vertices differ by no more are one section.
inline constexpr double kSezioniUguali = 1e-7;
// A section index that is not set yet.
inline constexpr int kSezioneDaFare = 65535;

// Colours are ARGB, stored signed.
inline constexpr std::int32_t kColoreLati = -5185306;    // 0xFFB0E0E6, side faces by default
inline constexpr std::int32_t kColoreTappi = -16777077;  // 0xFF00008B, end caps by default
inline constexpr std::int32_t ColoreArgb(std::uint32_t argb) {
    return static_cast<std::int32_t>(argb);
}

// A segment that carries one section from end to end. How section coordinates become points of the
// scene is told in terna.h.
struct Estruso {
    short estrusi_tipo = 0;
    short estrusi_punse1 = 0, estrusi_punse2 = 0;  // sections at the two ends
    double estrusi_orient = 0.0;                   // turn of the section about the axis [degrees]
    std::int32_t estrusi_colini = kColoreTappi, estrusi_colfin = kColoreTappi;
    std::int32_t estrusi_collat = kColoreLati;
    std::string estrusi_descri;  // name with its markers: "|oggetto=TraPri|"
    Punto3 estrusi_coord1{}, estrusi_coord2{};
    Punto3 estrusi_coord3{};                                   // not used, zero
    std::array<double, 2> estrusi_rotaz1{}, estrusi_rotaz2{};  // not used, zero
    bool operator==(const Estruso&) const = default;
};

// R rounds the side from this vertex to the next: an arc of radius |R| whose bulge points out of
// the section when R is positive, into it (a root fillet) when negative; 0 is a straight side.
struct Vertice {
    double Z = 0.0, Y = 0.0, R = 0.0;
    bool operator==(const Vertice&) const = default;
};
using Contorno = std::vector<Vertice>;

// Contours run clockwise with Z to the right and Y upwards. The first bounds the section; one that
// lies inside it is a hole.
struct Sezione {
    std::string sezioni_descr, sezioni_tipo;
    std::vector<Contorno> contorni;
    bool operator==(const Sezione&) const = default;
};

struct Scena {
    double visual_alfa = 0.0, visual_beta = 0.0, visual_dist = 0.0;  // camera: angles, distance
    std::string visDescrizione;                                      // for titles; not in the file
    std::vector<Estruso> estrusi;
    std::vector<Sezione> sezioni;
    Sezione corrente;  // working slot, behind the last section in use; FissaSezione settles it
};

// Sets the header and empties the tables.
void ImpostaScena(Scena& s, double alfa, double beta, double dist, const std::string& descrizione);
// Adds one extrusion; false after a box when 500 are in use.
bool AggiungiEstruso(Scena& s, const Estruso& e, const Piattaforma& p);
// The section in the working slot is one of those in use (same kind, contours and vertices; the
// description does not count) or becomes the next. `indice` is its place. False after a box when it
// is new and 50 are in use; `indice` is 0 then.
bool FissaSezione(Scena& s, short& indice, const Piattaforma& p);

// Exclamation box with the scene's title.
void AvvisoScena(const Scena& s, const std::string& testo, const Piattaforma& p);

}  // namespace tk07
