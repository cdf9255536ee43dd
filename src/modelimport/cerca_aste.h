#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/direttori.h"
#include "base/piattaforma.h"
#include "modelimport/struttura.h"

namespace tk07 {

// What the panel `selezione` asks for; a filter without a value lets every member pass.
struct FiltroAste {
    int nodo = 0;                             // number of the node that the members meet at
    std::optional<std::pair<int, int>> nomi;  // member numbers from..to, both included
    std::optional<std::vector<int>> colori;   // colours of the model that pass
    std::optional<std::vector<int>> linee;    // line types of the model that pass
};

// List text of the members at the node that pass, in file order; empty when there is none.
std::string FiltraAste(const ModelloStr& modello, const FiltroAste& filtro);
// The same on the structure file. `lista` stays as it was unless a member is found; none is told,
// with the node's number, and gives `errore`.
EsitoStr CercaAste(std::string_view dirLavoro, const FiltroAste& filtro, StrVecchia vecchia,
                   std::string& lista, const Piattaforma& p);

// The search tools `Trova.exe` (members) and `TrovaNod.exe` (nodes) in the program directory, and
// their exchange files in the work directory (Windows-1252):
//   TrovaIn.txt   title of the search / present list text / kind of element, a whole number
//   TrovaNIn.txt  title / 7 / 2 / "P Trave principale" / "S Trave secondaria"
//   TrovaOut.txt  from Trova: one list text a line;
//                 from TrovaNod: list text of the nodes, then "P n" and "S n", the members picked
//                 as main and as secondary beam (each may be missing)
// A tool is waited for, so that its output is never read half written; an output of an earlier run
// is removed first.

// What TrovaNod gives back; 0 for a member that was not picked.
struct NodiTrovati {
    std::string nodi;
    int astaPri = 0, astaSec = 0;
};

// Lines of TrovaOut.txt. False when the file is missing; nothing changes then.
bool LeggiTrovaOut(std::string_view dirLavoro, std::string& lista);
bool LeggiTrovaOut(std::string_view dirLavoro, NodiTrovati& trovati);

// Calls Trova; true when `lista` has what was picked. False after a box when the input file cannot
// be written or the tool does not start, and without one when the tool left no output.
bool ChiamaTrova(const Direttori& d, const std::string& titolo, int tipo, std::string& lista,
                 const Piattaforma& p);
// The same with TrovaNod.
bool ChiamaTrovaNod(const Direttori& d, const std::string& titolo, NodiTrovati& trovati,
                    const Piattaforma& p);

}  // namespace tk07
