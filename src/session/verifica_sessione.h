#pragma once

#include <string>

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "reports/relazione.h"
#include "textnum/unita.h"
#include "verification/verifica_nodo.h"

namespace tk07 {

// What became of a verification with its report.
struct RisultatoVerifica {
    EsitoVerifica esito = EsitoVerifica::nonPossibile;
    std::string relazione;  // path as composed, when completed
    RelazioneScritta testo;
};

// The verification, its report in the work directory, and a warning when a load set fails. A report
// that cannot be written ends it with a box.
RisultatoVerifica VerificaConRelazione(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                                       const DestinazioneRelazione& dest, Risultati& ris,
                                       Esiti& esiti, const Piattaforma& p);

}  // namespace tk07
