#pragma once

#include "joint/nodo.h"
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

}  // namespace tk07
