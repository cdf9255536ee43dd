#pragma once

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "joint/geometria.h"
#include "joint/nodo.h"
#include "options/opzioni.h"
#include "textnum/unita.h"
#include "verification/equilibrio.h"
#include "verification/esiti.h"
#include "verification/risultati.h"
#include "verification/verifica_nodo.h"

namespace tk07 {

// The extended report as a document without a look: chapters of tables, explained checks and
// figures, for whoever lays it out. Numbers carry the user's units and the roundings of the text
// report. Formulas and column heads are in the small notation of a formula line:
//   a_{b}  a^{b}  \frac{a}{b}  \sqrt{a}, anything else stands for itself.

struct ColonnaRel {
    std::string titolo;
    bool testo = false;  // left-aligned, may run over several lines; else a number
};
struct RigaRel {
    std::vector<std::string> celle;
    bool negativa = false;  // a check that fails
};
struct TabellaRel {
    std::vector<ColonnaRel> colonne;
    std::vector<RigaRel> righe;
    std::size_t insieme = 1;  // rows that stay together on a page
};
// One explained check: formula, the same with numbers, comparison, ratio.
struct VerificaRel {
    std::string titolo, clausola;
    std::vector<std::string> formule;
    std::string confronto, rapporto;
    bool passa = true;
};
struct TitoloRel {
    int livello = 1;  // 1 chapter (a new page), 2 section; both are bookmarks; 3 a heading
    std::string testo;
};
struct TestoRel {
    std::string testo;
};
struct RiquadroRel {
    std::string titolo;
    std::vector<std::string> punti;
};
// Figures that the lay-out draws from elsewhere: the sheet (a page of its own), the 3D view.
enum class FiguraRel { tavola, vista3d };
// The stress plane of one load set on the plates. Lengths in mm, plate coordinates.
struct PianoRel {
    int sestetto = 0;
    std::string titolo;
    Rettangolo piastra1, piastra2, comune;
    std::array<double, 4> trave{};  // secondary beam: B, tw, tf and H, about x = 0 ...
    double yAsse = 0.0;             // ... and this height
    Tab1<double, 1, 3> piano;       // daN/mm2
    std::vector<PuntoPiano> zona;   // contact
    struct Bullone {
        int numero = 0;
        double x = 0.0, y = 0.0, d = 0.0, sigma = 0.0;
        std::string forza;
    };
    std::vector<Bullone> bulloni;
    std::string unitaForza, unitaTensione;
    double fattoreTensione = 0.0;  // daN/mm2 to the unit shown
    int decimaliTensione = 0;
};
using BloccoRel =
    std::variant<TitoloRel, TestoRel, TabellaRel, VerificaRel, RiquadroRel, FiguraRel, PianoRel>;

struct GovernanteRel {
    std::string famiglia, controllo, elemento, sestetto, rapporto;
    double valore = 0.0;
    bool passa = true;
};
struct RelazioneEstesa {
    std::string titolo, metodo;
    std::vector<std::pair<std::string, std::string>> scheda;  // label and value, for the cover
    std::string verdetto;
    bool verificato = false;
    std::vector<GovernanteRel> governanti;  // one a family
    std::vector<std::string> avvisi;        // breaches of the spacing rules, in their own words
    std::vector<BloccoRel> blocchi;
    std::vector<Equilibrio> equilibri;  // one a load set
};

enum class FormaRelazione { estesa, breve };

// Builds the document from a completed verification. Short form: governing and failing checks only;
// the equilibrium of every load set all the same.
RelazioneEstesa ComponiRelazioneEstesa(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                                       const Risultati& ris, const Esiti& esiti,
                                       const std::vector<std::string>& avvisi,
                                       FormaRelazione forma);

// Third rib, consistency checks, calculation (past breaches of the spacing rules), verdict,
// document. Says nothing to the user.
struct RelazionePreparata {
    EsitoVerifica esito = EsitoVerifica::nonPossibile;
    std::vector<std::string> messaggi;  // why not, or the breaches
    RelazioneEstesa documento;
    bool verificato = false;
};
RelazionePreparata PreparaRelazioneEstesa(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                                          FormaRelazione forma);

// Ratio for reading: three decimals, never "1.000" above 1; the sign of infinity without a limit.
std::string TestoRapporto(double r);

}  // namespace tk07
