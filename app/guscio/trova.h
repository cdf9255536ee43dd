#pragma once

#include <iosfwd>
#include <string>

#include "base/direttori.h"

namespace tk07 {

// The search tools on the structural model: they read the exchange file that the caller has written
// in the work directory, let the user pick, and write TrovaOut.txt there.

// Picks given on the command line; what is empty is asked for.
struct SceltaNodi {
    std::string nodi, principale, secondaria;
};

// Members: with no `scelta` the members that meet at the nodes of the present list are shown on
// `uscita` and the pick is read from `ingresso`; an empty answer takes them all. Exit code.
int TrovaAste(const Direttori& d, const std::string& scelta, std::istream& ingresso,
              std::ostream& uscita, const Piattaforma& p);
// Nodes, and the members picked as main and as secondary beam (either may be left out). Exit code.
int TrovaNodi(const Direttori& d, const SceltaNodi& scelta, std::istream& ingresso,
              std::ostream& uscita, const Piattaforma& p);

}  // namespace tk07
