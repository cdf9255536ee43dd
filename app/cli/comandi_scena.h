#pragma once

#include <string>

#include "guscio/disegna.h"

namespace tk07::cli {

struct OpzioniScena {
    std::string file, uscita;
    bool distinta = false, json = false;
};

// Writes the joint's 3D scene, or its solids, in the format that the ending of `uscita` names, and
// prints the bill of parts; at least one of the two is asked for.
int ComandoScena(const Avvio& avvio, const OpzioniScena& opz, const Grafica& grafica);
// Whether the twin with toolkits is needed.
bool VuoleSolidi(const OpzioniScena& opz);

}  // namespace tk07::cli
