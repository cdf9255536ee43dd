#pragma once

#include <string>
#include <vector>

#include "base/piattaforma.h"
#include "base/tabella.h"
#include "libraries/materiali.h"
#include "libraries/profili.h"

namespace tk07 {

inline constexpr int kMaxBulloni = 100;
inline constexpr int kMaxSestetto = 500;  // last slot of the load table
inline constexpr int kMaxNodi = 2000;

// A name of the joint's file that the libraries lack, and what stands for it in memory.
struct NomeAssente {
    std::string chiave;  // "TraPri_Nome", ...
    std::string nome;    // as the file has it
    std::string usato;   // name of the record in its place, empty for the section without data
    bool operator==(const NomeAssente&) const = default;
};

// The joint. Lengths in mm, forces in daN, moments in daN cm. Plates: 1 on the main beam, 2 on the
// secondary beam. Ribs: 1 above and 2 below the secondary beam on plate 2, 3 inside the main beam.
// Bolts lie at 1..nBull, load sets at 0..nSollAg-1.
struct Nodo {
    ProfiloRec TraPri, TraSec;
    double distAlaSecPiastra = 0.0;  // top flange of TraSec to the upper end of plate 2
    double distPiastraTraPri = 0.0;  // main beam to plate 2, positive away from the web
    double distAliPriSec = 0.0;      // between the upper flanges of the beams
    Tab1<double, 1, 2> BPiastra, HPiastra, SpPiastra;

    Tab1<bool, 1, 3> AttNerv;  // rib 3 is always there and its switch stays false
    Tab1<double, 1, 3> SpNerv, H1Nerv, H2Nerv, BNerv, SmussoNerv;

    double spSaldS1 = 10.0, spSaldS2 = 10.0;  // legs of the fillet welds

    short nBull = 0;
    // x from the joint's vertical axis, y from the lower end of plate 1, shank diameter, selection.
    Tab1<double, 0, kMaxBulloni> Xbull, Ybull, Fibull, SelBull;

    MaterialeRec acciaio;
    ViteRec vite;
    short Esposizione = 0;  // 0 exposed to corrosion, 1 not exposed, 2 resistant
    short TipoVer = 1;      // 0 allowable stress, 1 limit states

    short nSollAg = 0;
    Tab1<double, 0, kMaxSestetto> SforzoNormale, TaglioY, TaglioZ, MomTorc, MomY, MomZ;
    Tab1<short, 0, kMaxSestetto> CasoCarico;  // 0 type I, 1 type II (allowable stress only)
    Tab1<std::string, 0, kMaxSestetto> NomeSa;

    short numNodi = 0;
    Tab1<short, 0, kMaxNodi> NomeNodi;

    // Lines of a newer file whose keys are unknown here: written back at the end of the file.
    std::vector<std::string> RigheSconosciute;
    // Names that the file had and the libraries lack: set where a file is opened.
    std::vector<NomeAssente> NomiAssenti;

    Metodo MetodoVerifica() const { return TipoVer == 0 ? Metodo::TA : Metodo::SLU; }
};

// Fills the joint with the default geometry, from the library's IPE270 and IPE160. Bolts and load
// sets stay as they are. The steel is row 1 of its table (the caller applies base materials).
void NodoDiDefault(Nodo& nodo, const LibreriaProfili& profili, const Materiali& mat,
                   const Piattaforma& p);

// Rib 3 follows from the main beam and plate 1; only its thickness is the user's.
void RicalcolaNervatura3(Nodo& nodo);

// Which names of the file would be lost if the joint were saved now: those whose substitute still
// stands in its place. A caller asks before it writes over the file; empty when none is lost.
std::vector<NomeAssente> NomiPersi(const Nodo& nodo);

}  // namespace tk07
