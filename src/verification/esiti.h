#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "joint/nodo.h"
#include "norme/clausola.h"
#include "norme/cnr10011.h"
#include "options/opzioni.h"
#include "verification/risultati.h"

namespace tk07 {

// The findings of a verification: every demand against its limit, as plain records. Whatever shows
// a verdict (text report, extended report, JSON, CSV, window, exit code) reads them and compares
// nothing itself.

enum class Famiglia { bulloni, piastra1, piastra2, saldatureS1, saldatureS2 };
inline constexpr int kFamiglie = 5;
const char* NomeFamiglia(Famiglia f);  // "Bulloni", "Piastra 1", "Saldature S1", ...
// Family of weld line j (0..29): lines s4 to s9 belong to group S2, the others to S1.
Famiglia FamigliaLinea(int j);

enum class TipoElemento { bullone, piastra, saldatura };
TipoElemento Tipo(Famiglia f);

// What is compared. The weld of a steel without allowable stresses is found to have no limit.
enum class Confronto {
    co1,
    co2,
    sig,
    sEq1,
    sEq2,
    coeff,
    sigRifPias1,
    sigRifPias2,
    smax,
    sId,
    somma,
    senzaLimite
};
struct DatiConfronto {
    const char* nome;  // as the report's column spells it: "Co-1", "Sig", "SEq-2", ...
    Clausola clausola;
    bool coefficiente;  // a number without a unit, to two decimals; else a stress [daN/cm2]
};
const DatiConfronto& Dati(Confronto c);

struct Riscontro {
    Famiglia famiglia = Famiglia::bulloni;
    Confronto confronto = Confronto::co1;
    int elemento = 0;  // bolt from 1, plate 1 or 2, weld line 0..29
    int sestetto = 0;  // from 0
    double domanda = 0.0, limite = 0.0;
    // Demand over limit as judged: never above 1 when it passes, never 1 or below when it does not;
    // infinity where there is no limit or the demand is no number. The bolt coefficient of the
    // allowable stresses is a sum of squares and stays one.
    double rapporto = 0.0;
    bool passa = true;
};
std::string NomeElemento(const Riscontro& r);  // "bullone 3", "piastra 2", "saldatura s4'"
int NumeroElemento(const Riscontro& r);        // from 1, weld lines 1..30
const char* NomeConfronto(const Riscontro& r);

// Findings of one load set.
struct EsitiSestetto {
    std::size_t da = 0, fine = 0;           // its rows
    std::array<int, kFamiglie> peggiori{};  // row of each family's largest ratio, -1 without a row
    int governa = -1;                       // row of the largest ratio of all
    bool verificato = true;
};

struct Esiti {
    std::vector<Riscontro> righe;  // by load set: bolts, plates, weld lines with their mirrors
    std::vector<EsitiSestetto> sestetti;     // one a load set
    int peggiore = -1;                       // load set of the largest ratio, -1 with none
    bool verificato = true;                  // the joint's verdict: every load set passes
    std::vector<Interruzione> interruzioni;  // steps broken off: what they lead to is not judged
    bool Incompleta() const { return !interruzioni.empty(); }

    int Sestetti() const { return static_cast<int>(sestetti.size()); }
    const EsitiSestetto& Sestetto(int s) const { return sestetti[static_cast<std::size_t>(s)]; }
    std::span<const Riscontro> Righe(int s) const;
    // The worst row of a family, nullptr without one.
    const Riscontro* Peggiore(int s, Famiglia f) const;
    const Riscontro* Peggiore(Famiglia f) const;  // of all load sets
    // The governing row of a load set, and of the joint; nullptr with none.
    const Riscontro* Governa(int s) const;
    const Riscontro* Governa() const { return peggiore < 0 ? nullptr : Governa(peggiore); }
    double Rapporto(int s) const;  // of the governing row, 0 without one
    int Falliti() const;           // load sets that fail
    // Calls fai(rows) for every element of a kind, in the order of the report.
    template <class Fai>
    void PerElemento(int s, TipoElemento tipo, Fai fai) const {
        const std::span<const Riscontro> tutte = Righe(s);
        for (std::size_t i = 0, j = 0; i < tutte.size(); i = j) {
            const Riscontro& r = tutte[i];
            for (j = i + 1; j < tutte.size() && tutte[j].famiglia == r.famiglia &&
                            tutte[j].elemento == r.elemento;) {
                ++j;
            }
            if (Tipo(r.famiglia) == tipo) fai(tutte.subspan(i, j - i));
        }
    }
};
bool Passano(std::span<const Riscontro> righe);

// The last step of a calculation: Co1 and Co2 to two decimals (so 1.004 passes), SEq1 and SEq2, the
// verdict of every load set and of the joint.
//   Reads and writes  ris, in daN/cm2; a second call changes nothing
void GiudicaNodo(const Nodo& nodo, const Opzioni& opz, Risultati& ris);

// The findings of a completed calculation into `esiti`, whose memory is used again.
//   Reads       nodo, opz (hole clearance, TA only), ris as CalcolaNodo leaves it
//   Degenerate  a limit of 0, or a value that is no number: infinity where it fails, 0 where it
//               passes
//   Source      NTC 2018, 4.2.8.1.1 (4.2.71), 4.2.8.2.4 (4.2.84), (4.2.85); CNR 10011/88
void FormaEsiti(const Nodo& nodo, const Opzioni& opz, const Risultati& ris, Esiti& esiti);
Esiti EsitiDi(const Nodo& nodo, const Opzioni& opz, const Risultati& ris);

// The findings of one load set without their rows.
struct SintesiEsiti {
    std::array<Riscontro, kFamiglie> peggiori;  // of each family, as Esiti::Peggiore has them
    std::array<bool, kFamiglie> presenti{};     // families without a row have none
    int governa = -1;                           // family of the largest ratio, -1 with no row
    bool verificato = true;
    const Riscontro& Governa() const { return peggiori[static_cast<std::size_t>(governa)]; }
};
// One for each load set of the joint; arguments as FormaEsiti. Allocates nothing.
void RiassumiEsiti(const Nodo& nodo, const Opzioni& opz, const Risultati& ris,
                   std::span<SintesiEsiti> sintesi);

// TA: weld line j (0..29) of load set s against the factors of its steel, with the load case factor
// k (CNR 10011/88). Stresses in daN/cm2.
struct SaldaturaTA {
    double risultante = 0.0, limiteSingola = 0.0;
    double somma = 0.0, limiteSomma = 0.0;  // |P| + |Tau_pe|
    bool noto = false;                      // a steel with allowable stresses
    bool passaRisultante = false, passaSomma = false;
    bool Passa() const { return passaRisultante && passaSomma; }
};
// The tests on Tau_pa and Tau_pe alone take no absolute value: the resultant's covers them.
SaldaturaTA VerificaSaldaturaTA(const Nodo& nodo, const FattoriTA& fattori, const Risultati& ris,
                                int j, int s, double k);

// Ratios of every element of one load set, for colouring a drawing. -1 where there is none.
struct RapportiElementi {
    std::vector<double> bulloni;  // bolt i at i
    std::array<double, kLineeSaldatura> saldature{};
    std::array<double, 2> piastre{};
};
RapportiElementi RapportiDi(const Esiti& esiti, int s);

}  // namespace tk07
