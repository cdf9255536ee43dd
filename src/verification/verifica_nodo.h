#pragma once

#include <string>

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "textnum/unita.h"
#include "verification/risultati.h"

namespace tk07 {

enum class EsitoVerifica {
    completata,   // the report is written, the verdict stands in the result record
    nonPossibile  // stopped before the report; the reason was told
};

// Everything before the report: spacing rules (the user may go on past breaches), bolt actions,
// resistances, plate, welds, stresses to daN/cm2. A pure function of joint, options and the answers
// of the port; writes the result record only.
EsitoVerifica CalcolaNodo(const Nodo& nodo, const Opzioni& opz, Risultati& ris,
                          const Piattaforma& p);

// What the report is and where it goes.
struct DestinazioneRelazione {
    std::string dirLavoro;
    std::string nomeFile;  // the joint's name without extension
};

struct RisultatoVerifica {
    EsitoVerifica esito = EsitoVerifica::nonPossibile;
    std::string relazione;  // path as composed, when completed
};

// The whole verification by the joint's method: calculation, report with verdict, warning when a
// load set fails, and the report shown in the text editor.
RisultatoVerifica VerificaNodo(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                               const DestinazioneRelazione& dest, Risultati& ris,
                               const Piattaforma& p);

}  // namespace tk07
