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

// Equivalent stresses of the welds of load set s.
void CalcolaSEq(int s, Risultati& ris);

// Weld factors of a steel by the digits in its name; both 0 for an unknown steel, so that every
// weld fails. NTC 2018, 4.2.8.2.4.
struct FattoriSaldatura {
    double Beta1 = 0.0, Beta2 = 0.0;
};
FattoriSaldatura FattoriSLU(const std::string& nomeAcciaio);
// Design strength of plate k (1, 2) [daN/cm2], SLU: thin up to 40 mm, both included.
double FdPiastra(const Nodo& nodo, int k);

// TA: factors of the allowable stress of a fillet weld by the steel's full name: on the resultant
// and the single components, and on |P| + |Tau_pe|. An unknown steel has none.
struct FattoriTA {
    bool noto = false;
    double singola = 0.0, somma = 0.0;
};
FattoriTA FattoriTensAmm(const std::string& nomeAcciaio);
// TA: allowable stress of plate k (1, 2) [daN/cm2] for load case I.
double SammPiastra(const Nodo& nodo, int k);
// TA: factor of the allowable stresses of load set s, by its load case.
double FattoreCaso(const Nodo& nodo, int s);

// TA: whether weld line j (0..29) of load set s passes, with the load case factor k (CNR 10011/88).
// Kept on purpose: the tests on Tau_pa and Tau_pe alone take no absolute value.
bool VerificaSaldaturaTA(const Nodo& nodo, const Risultati& ris, int j, int s, double k);
// TA: coefficient of the allowable bearing stress of load set s, at most 2.5.
double CoeffRifollamento(const Nodo& nodo, const Opzioni& opz, int s);

}  // namespace tk07
