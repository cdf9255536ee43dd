#pragma once

#include <string>

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "textnum/unita.h"
#include "verification/risultati.h"
#include "verification/verifica_nodo.h"

namespace tk07 {

// The calculation report as text. Results come in daN/cm2; display units act here and nowhere else.
// The report decides, per load set, whether the joint is verified (ris.Verificato, NodoVerificato).
// SLU: forms SEq1 and SEq2, and writes Co1 and Co2 back rounded to 2 decimals.
// Limits: NTC 2018 4.2.8.1.1 (4.2.71), 4.2.8.2.4 (4.2.84), (4.2.85); CNR 10011/88 for TA.
std::string RelazioneSLU(const Nodo& nodo, const Unita& unita, Risultati& ris);
std::string RelazioneTA(const Nodo& nodo, const Opzioni& opz, const Unita& unita, Risultati& ris);

// Work directory + "\RelSLU_" ("\RelTA_") + codice + "_" + joint's name + ".txt".
std::string NomeRelazione(const DestinazioneRelazione& dest, const std::string& metodo,
                          const std::string& codice);

}  // namespace tk07
