#pragma once

#include "joint/nodo.h"
#include "options/opzioni.h"

namespace tk07 {

// Decides whether the parts of the joint fit together: pure geometry, before it is saved, verified
// or drawn. One warning box for each thing that is wrong (bolts: the first bad one only). Returns
// true when at least one test failed; changes nothing. Boundary values pass as each test is
// written.
bool ControllaDati(const Nodo& nodo, const Opzioni& opz, const Piattaforma& p);

}  // namespace tk07
