#pragma once

#include "scene3d/assemblaggio.h"
#include "unit/verification/nodo_di_prova.h"

namespace tk07::prova {

// The scene of a joint, and of the bolts being edited where there are some.
inline bool Componi(const Nodo& n, Scena& s, const Piattaforma& p = PiattaformaMuta(),
                    const BulloniTemp* t = nullptr) {
    return ComponiScena3D(n, GeometriaDi(n), t, s, p);
}

}  // namespace tk07::prova
