#pragma once

#include <vector>

#include "joint/nodo.h"
#include "norme/distanze.h"
#include "options/opzioni.h"

namespace tk07 {

// Compares the bolt pattern with the spacing and edge rules of the method: NTC 2018 4.2.8.1.1 table
// 4.2.XVIII, or CNR 10011/88. Every breach is a box; true when there is none. d0 is always
// the hole. Only the first and the last bolt of a direction are measured against the edges. Kept on
// purpose: the least spacing differs by direction under NTC (2.4 and 2.2 d0); the largest vertical
// edge distance under CNR is 9 t on plate 1 and 6 t on plate 2; the d0 of a spacing is the smaller
// of the pair.
bool ControllaBulloniNTC(const Nodo& nodo, const Opzioni& opz, const Piattaforma& p);
bool ControllaBulloniCNR(const Nodo& nodo, const Opzioni& opz, const Piattaforma& p);
// The rule of the joint's own method.
bool ControllaBulloni(const Nodo& nodo, const Opzioni& opz, const Piattaforma& p);

// A distance that the rules limit, with its limits [mm].
struct DistanzaBulloni {
    Direzione direzione = Direzione::orizzontale;
    int piastra = 0;      // of a distance from an edge; 0: spacing of two bolts
    bool inizio = false;  // the left or lower edge
    int bullone = 0;
    int altro = 0;  // neighbour, of a spacing
    double valore = 0.0, minimo = 0.0, massimo = 0.0;
    bool Rispettata() const { return minimo <= valore && valore <= massimo; }
};
// All that the rule of the joint's own method looks at: the edges of both plates from the first and
// the last bolt, every pair of neighbours; horizontal first.
std::vector<DistanzaBulloni> DistanzeBulloni(const Nodo& nodo, const Opzioni& opz);

// The same for other bolts on the joint's plates, as while a layout is being moved about: bolt i at
// i - 1, at most kMaxBulloni.
struct PosizioneBullone {
    double x = 0.0, y = 0.0, d = 0.0;  // mm, d the shank
};
std::vector<DistanzaBulloni> DistanzeBulloni(const Nodo& nodo, const Opzioni& opz,
                                             const std::vector<PosizioneBullone>& bulloni);

}  // namespace tk07
