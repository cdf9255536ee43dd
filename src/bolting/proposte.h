#pragma once

#include <string>

#include "bolting/bulloni_temp.h"
#include "joint/geometria.h"
#include "joint/nodo.h"
#include "options/opzioni.h"

namespace tk07 {

// Sizes of both plates from the beams and from the ribs that are on.
//   Reads   TraPri, TraSec, distAlaSecPiastra, AttNerv, H1Nerv(1, 2)
//   Writes  BPiastra, HPiastra, SpPiastra [mm]
void ProponiPias(Nodo& nodo);

// Sizes of ribs 1 and 2 from the room above and below the secondary beam, thickness of rib 3.
//   Reads       TraSec, HPiastra(2), distAlaSecPiastra
//   Writes      H1Nerv, H2Nerv, BNerv, SpNerv [mm], AttNerv
//   Degenerate  without room the rib goes off and its sizes, but for the thickness, become 0
void ProponiNerv(Nodo& nodo);

// What the code of the joint's method asks of a layout with one diameter, and where there is plate
// to drill: mm throughout.
struct LimitiProposta {
    double dProp = 0.0;                 // shank
    double d0 = 0.0, Rf = 0.0;          // hole with its clearance, and its radius
    double tMin = 0.0;                  // thinner plate
    double eMinX = 0.0, eMinY = 0.0;    // edge distances
    double eMaxX = 0.0, eMaxY = 0.0;    // first upper bound
    double eMax2X = 0.0, eMax2Y = 0.0;  // second upper bound
    double passoMinX = 0.0, passoMinY = 0.0, passoMax = 0.0;
    double distSald = 0.0;  // weld to the edge of a hole
    Rettangolo comune;      // overlap of the plates
};

// Fills them for bolts of diameter dProp [mm]. An Esposizione outside 0..2 counts as 2.
//   Source  NTC 2018, 4.2.8.1.1, table 4.2.XVIII; CNR 10011/88 for the allowable stresses
LimitiProposta LimitiPerProposta(const Nodo& nodo, const Opzioni& opz, double dProp);

// Fills a zone (x0..x1, y0..y1 as xMin..yMax) with a regular grid behind the bolts of `t` and
// returns the number added; with room for no row or no column, `messaggio` as a warning and 0. One
// row or column lies in the middle; of several, the first and the last lie on the zone's limits.
//   Degenerate  more bolts than slots, or a pitch of 0: fatal fault, `t` is unchanged
// The greatest pitch is not looked at here: the check of the spacing tells where it is passed. The
// new bolts keep the selection of their slots.
int RiempiArea(const Rettangolo& zona, const LimitiProposta& lim, const std::string& messaggio,
               BulloniTemp& t, const Piattaforma& p);

// A proposal of bolts: how many were added, or why there can be none (more than the slots hold, a
// pitch of 0), in which case nothing was.
struct Proposta {
    int aggiunti = 0;
    std::string guasto;
};

// Adds a layout of bolts of diameter dProp [mm], symmetric about X = 0, behind those of `t`:
// regular grids above the secondary beam, below it and beside its web, clear of welds and ribs.
// Returns the number added. A zone that takes no bolt is told by a warning; a diameter that the
// plates cannot meet by one warning, and nothing is added. A proposal that cannot be made leaves
// `t` unchanged: an answer of the first routine, a fatal fault of the second.
Proposta ProvaProponi(const Nodo& nodo, const Opzioni& opz, double dProp, BulloniTemp& t,
                      const Piattaforma& p);
int Proponi(const Nodo& nodo, const Opzioni& opz, double dProp, BulloniTemp& t,
            const Piattaforma& p);

}  // namespace tk07
