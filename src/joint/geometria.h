#pragma once

#include <array>
#include <vector>

#include "base/punto.h"
#include "base/tabella.h"
#include "joint/nodo.h"

namespace tk07 {

// Two systems of axes, mm. Of the joint: x along the secondary beam away from the main one, y along
// the main beam, z upwards; the origin is on the axis of the main beam. On the plates: x from the
// centre line (the joint's y), y from the lower end of plate 1, as the bolts have it.

struct Rettangolo {
    double xMin = 0.0, xMax = 0.0, yMin = 0.0, yMax = 0.0;
};

// The strips of plate 2 that stand out below and above the flanges of the secondary beam [mm].
struct Strisce {
    double yInf1 = 0.0, yInf2 = 0.0, ySup1 = 0.0, ySup2 = 0.0;
};

// Rib k in its own plane. Ribs 1 and 2: from the corner of plate 2 and flange, u along the flange,
// v away from it. Rib 3: u from the web of the main beam, v from the rib's lower edge.
struct SagomaNervatura {
    bool attiva = false;    // its switch is on; rib 3 is always there
    bool conForma = false;  // active, and no size is 0 or negative
    double verso = 1.0;     // +1 it rises from its root, -1 it hangs from it
    double yRadice = 0.0;   // level of the root, on the plates and in the joint's axes
    double zRadice = 0.0;
    double smusso = 0.0;  // the corner that is cut: as wanted, but no larger than the rib
    int nVertici = 0;
    std::array<Punto2, 6> contorno{};  // u, v
    std::array<Punto2, 6> inNodo{};    // the same corners as x, z of the joint
};

enum class GruppoSald { S1, S2 };

// The two ends at which the verification works out the stresses of a line. Group S1: y from the
// underside of the secondary beam; group S2: y from the middle of the main beam; x from the centre
// line, to the outer face of the throat. Line s3 has the length of s2 here: the same, both
// lie along the inside of a flange.
struct EstremiCalcolo {
    bool dati = false;  // false: its stresses come from other lines
    double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
};

// Fillet weld line s1..s15 on the side of positive y.
struct Cordone {
    GruppoSald gruppo = GruppoSald::S1;
    bool previsto = false;  // the joint has the parts that it joins, and room for the leg
    bool doppio = true;     // has a mirror across the centre line
    // The quantity that is exactly 0 and leaves the line without a length; null when there is none.
    const char* manca = nullptr;
    double lunghezza = 0.0;  // whole mm, cut down; 0 when not foreseen; negative without room
    double lato = 0.0, gola = 0.0;
    Punto3 da{}, a{};               // the root line, in the corner of the two faces
    Punto3 versoUno{}, versoDue{};  // directions of the two legs along the faces
    EstremiCalcolo calcolo;

    bool Presente() const { return lunghezza > 0.0; }
};

inline constexpr int kCordoni = 15;   // lines s1..s15, with indices 0..14
inline constexpr int kSpecchio = 15;  // from the index of a line to that of its mirror

// The joint's shape, derived once and read by whatever measures or shows it. Nothing is clamped: a
// joint that is none gives the levels that its numbers say. Lengths mm.
struct Geometria {
    // On the plates.
    double yS = 0.0, yS2 = 0.0;  // underside and top of the secondary beam
    double yAsse = 0.0;          // its axis
    Tab1<Rettangolo, 1, 2> piastra;
    Rettangolo comune;  // overlap of the two plates
    Strisce strisce;
    Tab1<double, 1, 2> sporto;  // plate 2 beyond the upper (1) and the lower (2) flange
    Tab1<bool, 1, 2> sporge;    // ... by the leg of its weld at least

    // In the joint's axes.
    double xP1 = 0.0, xP2 = 0.0, xS = 0.0;  // back of plate 1, between the plates, end of TraSec
    double xAnima = 0.0;                    // face of the main beam's web
    double zAlaPri = 0.0;                   // inner face of its upper flange, the lower one at -
    double zS = 0.0, zS2 = 0.0;             // underside and top of the secondary beam
    double zAsse = 0.0;
    double zP1 = 0.0, zP12 = 0.0;  // lower and upper end of plate 1
    double zP2 = 0.0, zP22 = 0.0;  // lower and upper end of plate 2

    Tab1<SagomaNervatura, 1, 3> nervatura;
    Tab1<Cordone, 1, kCordoni> cordone;
};

// Reads all sizes but the materials and bolts; rib 3 as it stands (RicalcolaNervatura3). Allocates
// nothing.
Geometria GeometriaDi(const Nodo& nodo);

// The first quantity that leaves a weld line without a length; null when there is none.
const char* GrandezzaMancante(const Geometria& g);

// Hole of bolt i in plate k; y from the lower end of that plate, diameter bolt + `gioco` [mm].
struct Foro {
    double x = 0.0, y = 0.0, d = 0.0;
};
Foro ForoInPiastra(const Nodo& nodo, const Geometria& g, int k, int i, double gioco);

// Height of a bolt's axis in the joint's axes.
inline double AltezzaBullone(const Geometria& g, double Ybull) { return Ybull + g.zP1; }

// A weld line in space, or its mirror.
struct LineaSaldatura {
    int indice = 0;  // 0..14 lines s1..s15, 15..29 their mirrors
    Punto3 da{}, a{};
    Punto3 versoUno{}, versoDue{};
    double lato = 0.0;
};
// The weld lines that have a length, mirrors included: secondary beam, ribs 1 and 2, main beam.
std::vector<LineaSaldatura> LineeSaldatura(const Geometria& g);

}  // namespace tk07
