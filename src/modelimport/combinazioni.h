#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"
#include "libraries/materiali.h"

namespace tk07 {

// The load cases of the model, `combinaz.tot` in the work directory. Items separated by blanks,
// commas or line ends:
//   number of cases; for each case:
//     its number; the rest of that line and two more lines, of which the last holds
//     "TIPOVER=" + kind + "|"
//     a count a, then 3 a items (not used); a count b, then 2 b items (not used)
// Kinds that the system uses: TENSAMM and RARA for allowable stresses, SLU for limit states.

inline constexpr const char* kFileCombinazioni = "\\combinaz.tot";

struct Combinazioni {
    std::vector<int> casiNumero;
    std::vector<std::string> casiTipo;  // empty where the lines have no kind
};

// False after a box when the file is missing or ends early, when a count is no number, or when it
// has more cases than a list can hold (kMassimoVoci); `comb` is then empty.
bool LeggiCombinazioni(std::string_view dirLavoro, Combinazioni& comb, const Piattaforma& p);

// List text of the cases that suit a method, in file order.
std::string ListaCasi(const Combinazioni& comb, Metodo metodo);

}  // namespace tk07
