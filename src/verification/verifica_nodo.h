#pragma once

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "verification/esiti.h"
#include "verification/risultati.h"

namespace tk07 {

enum class EsitoVerifica {
    completata,   // results and verdict stand in the record
    nonPossibile  // stopped on the way; the reason was told
};

// The calculation: spacing rules (the user may go on past breaches), bolt actions, resistances,
// plate, welds, stresses to daN/cm2, verdict. A pure function of joint, options and the answers of
// the port; writes the result record only.
EsitoVerifica CalcolaNodo(const Nodo& nodo, const Opzioni& opz, Risultati& ris,
                          const Piattaforma& p);

// The same without the spacing rules, for a joint that has a bolt.
EsitoVerifica CalcolaTensioni(const Nodo& nodo, const Opzioni& opz, Risultati& ris,
                              const Piattaforma& p);

// The whole verification by the joint's method: the calculation and, when it was completed, its
// findings. The memory of `ris` and `esiti` is used again.
EsitoVerifica VerificaNodo(const Nodo& nodo, const Opzioni& opz, Risultati& ris, Esiti& esiti,
                           const Piattaforma& p);

}  // namespace tk07
