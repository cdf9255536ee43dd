#pragma once

#include <initializer_list>
#include <string>

#include "joint/geometria.h"
#include "joint/nodo.h"
#include "verification/risultati.h"

namespace tk07 {

// Fillet welds. Group S1 joins the end of the secondary beam and ribs 1 and 2 to plate 2, group S2
// plate 1 and rib 3 to the main beam. Lines s1..s15, each usually with a mirror s1'..s15' across
// the centre line. Lengths mm, forces daN, moments of the load table daN cm, stresses daN/mm2.

// Lengths of the lines, in whole millimetres; negative lengths are not clamped.
//   Writes      ris.LungSald(0..14)
//   Degenerate  GrandezzaNulla: width of rib 1 or 2 exactly 0
void LunghezzeSaldature(const Geometria& g, Risultati& ris);

// Properties of group S1; y from the underside of the secondary beam.
struct GruppoS1 {
    double b = 0.0;  // throat, leg / sqrt(2)
    double A = 0.0, yG = 0.0, xG = 0.0, Ix = 0.0, Iy = 0.0;
    double J = 0.0;             // torsion stiffness: sum of length b^3 / 3, of separate strips
    double Av = 0.0, Ah = 0.0;  // vertical and horizontal areas, for shear
};
GruppoS1 ProprietaS1(const Nodo& nodo, const Geometria& g);

// Properties of group S2; y from the middle of the main beam. yG is the level of the secondary
// beam's axis seen from the main beam's, no centroid.
struct GruppoS2 {
    double b = 0.0;
    double A = 0.0, yG = 0.0, xG = 0.0, Ix = 0.0, Iy = 0.0, J = 0.0, Av = 0.0, Ah = 0.0;
    // lines of rib 3 (s5, s6, s7)
    double A3 = 0.0, xG3 = 0.0, Ix3 = 0.0, Iy3 = 0.0;
};
GruppoS2 ProprietaS2(const Nodo& nodo, const Geometria& g);

// Stresses S_prp (two ends), Tau_pa, Tau_pe of the group's lines for every load set. A group
// without vertical or horizontal area shows a box and is noted in ris.Interruzioni; what is not yet
// written stays 0 and the run goes on. GrandezzaNulla names a divisor that is exactly 0. Kept on
// purpose: S2 takes the moments of the load table as they are stored, without the factor 10 that S1
// has; the torsion share takes the sign of the shear; s10' and s11' get Tau_pa even where the line
// has no mirror.
void VerificaSaldatureS1(const Nodo& nodo, const Geometria& g, Risultati& ris,
                         const Piattaforma& p);
void VerificaSaldatureS2(const Nodo& nodo, const Geometria& g, Risultati& ris,
                         const Piattaforma& p);

// The message of a step that breaks off.
const char* TestoInterruzione(Interruzione i);
// Shows it and notes it in the record.
void Interrompi(Interruzione i, Risultati& ris, const Piattaforma& p);

// Adds the direct shear T / area along the lines (numbers 1..15) and their mirrors, for every load
// set with T not 0; the torsion share takes the sign of T.
void AggiungiTaglio(const Nodo& nodo, std::initializer_list<int> linee,
                    const Tab1<double, 0, kMaxSestetto>& taglio, double area, Risultati& ris);

// SLU: equivalent stresses SEq1 and SEq2 of all lines of load set s [daN/cm2], NTC 2018 (4.2.84),
// (4.2.85).
void CalcolaSEq(int s, Risultati& ris);

// Stresses at both ends of the lines of a group whose ends the geometry gives, and of their
// mirrors, for load set s; `tensione` is the group's stress at a point.
template <class Tensione>
void TensioniAiCapi(const Geometria& g, GruppoSald gruppo, int s, Tensione tensione,
                    Risultati& ris) {
    for (int l = 1; l <= kCordoni; ++l) {
        const Cordone& c = g.cordone(l);
        const EstremiCalcolo& e = c.calcolo;
        if (c.gruppo != gruppo || !e.dati) continue;
        ris.S_prp1(s, l - 1) = tensione(e.x1, e.y1);
        ris.S_prp2(s, l - 1) = tensione(e.x2, e.y2);
        if (!c.doppio) continue;
        // End k of a mirror: the other end's x with its sign changed, the same end's y.
        ris.S_prp1(s, l - 1 + kSpecchio) = tensione(-e.x2, e.y1);
        ris.S_prp2(s, l - 1 + kSpecchio) = tensione(-e.x1, e.y2);
    }
}

// Name of line j (0..29): "s1".."s15", "s1'".."s15'".
std::string NomeLinea(int j);

}  // namespace tk07
