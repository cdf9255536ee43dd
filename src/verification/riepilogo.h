#pragma once

#include <array>
#include <string>
#include <vector>

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "verification/risultati.h"

namespace tk07 {

// The outcome of a verification in few numbers: demand over limit, with the limits of the report
// of the joint's method. A ratio is above 1 exactly where the report writes NO.

enum class Famiglia { bulloni, piastra1, piastra2, saldatureS1, saldatureS2 };
inline constexpr int kFamiglie = 5;
const char* NomeFamiglia(Famiglia f);

// One check of one element of a load set, by the report's own tests.
struct ControlloElemento {
    Famiglia famiglia = Famiglia::bulloni;
    const char* nome = "";  // as the report's column spells it: "Co-1", "Sig", "SEq-2", ...
    int elemento = 0;       // bolt from 1, plate 1 or 2, weld line 0..29
    double domanda = 0.0, limite = 0.0;  // bolt coefficients [-], else stresses [daN/cm2]
    double rapporto = 0.0;
};
std::string NomeElemento(const ControlloElemento& c);  // "bullone 3", "piastra 2", "saldatura s4'"
// All checks of load set s into `tutti`, which is emptied before. Arguments as RiepilogoVerifica.
void ControlliSestetto(const Nodo& nodo, const Opzioni& opz, const Risultati& ris, int s,
                       std::vector<ControlloElemento>& tutti);

// The worst check of a family: its ratio, its name as the report's column spells it, and the
// element.
struct EsitoControllo {
    double rapporto = 0.0;
    std::string controllo;  // "Co-1", "Sig", "SEq-2", ...
    std::string elemento;   // "bullone 3", "piastra 2", "saldatura s4'"
};

// Ratios of every element of one load set, for colouring a drawing. -1 where there is none.
struct RapportiElementi {
    std::vector<double> bulloni;  // bolt i at i
    std::array<double, kLineeSaldatura> saldature{};
    std::array<double, 2> piastre{};
};

struct RigaRiepilogo {
    int sestetto = 0;                                // from 0
    std::array<EsitoControllo, kFamiglie> famiglie;  // the worst check of each
    Famiglia governa = Famiglia::bulloni;            // family of the largest ratio
    RapportiElementi elementi;
    const EsitoControllo& Governante() const { return famiglie[static_cast<std::size_t>(governa)]; }
    double Rapporto() const { return Governante().rapporto; }
    bool Verificato() const { return !(Rapporto() > 1.0); }
};

struct Riepilogo {
    std::vector<RigaRiepilogo> righe;
    int peggiore = -1;  // row of the largest ratio, -1 with no load set
};

// Family of weld line j (0..29): lines s4 to s9 belong to group S2, the others to S1.
Famiglia FamigliaLinea(int j);

//   Reads       nodo, opz (hole clearance, TA only), ris as CalcolaNodo leaves it (stresses in
//               daN/cm2); works the same before and after the report
//   Returns     per load set the worst ratio of each family and the ratio of every element
//   Degenerate  a limit of 0, or a value that is no number: infinity where the report says NO, 0
//               where it passes
//   Source      NTC 2018, 4.2.8.1.1 (4.2.71), 4.2.8.2.4 (4.2.84), (4.2.85); CNR 10011/88. The bolt
//               coefficient of the allowable stresses is a sum of squares and stays one.
Riepilogo RiepilogoVerifica(const Nodo& nodo, const Opzioni& opz, const Risultati& ris);

}  // namespace tk07
