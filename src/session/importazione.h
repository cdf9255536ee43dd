#pragma once

#include <string>

#include "session/sessione.h"

namespace tk07 {

// The list texts of an import, as the fields of the load import panel hold them.
struct TestiImportazione {
    std::string nodi, aste, casi, condizioni, sestetti;
};

// Reads the lists and imports the loads into the joint's table. False after a box; the joint's list
// of nodes and its table may then be filled in part, as the caller of a panel expects.
bool ImportaNelNodo(Sessione& s, const TestiImportazione& testi, bool maxMin);

// The end of the program, asked by a reader: a structure saved by too old a release.
void TerminaProgramma(Sessione& s);

// Where every imported action comes from, its sign rule and where it goes; Italian text for people.
std::string SpiegaImportazione(bool maxMin);

}  // namespace tk07
