#pragma once

#include <string>
#include <vector>

#include "base/file_testo.h"
#include "joint/nodo.h"
#include "textnum/unita.h"
#include "verification/esiti.h"
#include "verification/risultati.h"

namespace tk07 {

// The calculation report as text, and where it speaks of what: lines count from 0.
struct RigaRelazione {
    int riga = 0;
    int sestetto = 0;  // from 0
    Famiglia famiglia = Famiglia::bulloni;
    int elemento = 0;  // as in Riscontro
};
struct SestettoRelazione {
    int capo = 0, verdetto = 0;  // lines of its head and of its verdict
    bool verificato = false;
    std::string nome;  // of the load set, as the head has it
};
struct RelazioneScritta {
    std::string testo;
    std::vector<RigaRelazione> righe;  // rows of bolts, plates and welds, ascending
    std::vector<SestettoRelazione> sestetti;
};

// Results come in daN/cm2; display units act here and nowhere else. Nothing is judged here: what
// passes stands in the findings of the same results.
RelazioneScritta RelazioneSLU(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                              const Esiti& esiti);
RelazioneScritta RelazioneTA(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                             const Esiti& esiti);
// The one of the joint's method.
RelazioneScritta RelazioneDi(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                             const Esiti& esiti);

// Where the report goes.
struct DestinazioneRelazione {
    std::string dirLavoro;
    std::string nomeFile;  // the joint's name without extension
    Tenuta tenuta = Tenuta::suDisco;
    NomiPresenti* nomi = nullptr;  // names in `dirLavoro`, of whoever writes many reports
};
// Work directory + "\RelSLU_" ("\RelTA_") + codice + "_" + joint's name + ".txt".
std::string NomeRelazione(const DestinazioneRelazione& dest, const std::string& metodo,
                          const std::string& codice);

}  // namespace tk07
