#pragma once

#include <string>

#include "session/sessione.h"

namespace tk07 {

// The list texts of an import, as the fields of the load import panel hold them.
struct TestiImportazione {
    std::string nodi, aste, casi, condizioni, sestetti;
};

// The texts as the panel's fields stand.
TestiImportazione TestiSoll3D(const Sessione& s);

// Reads the lists and imports the loads into the joint's table. False after a box; the joint's list
// of nodes and its table may then be filled in part, as the caller of a panel expects.
bool ImportaNelNodo(Sessione& s, const TestiImportazione& testi, bool maxMin);

// What that import would bring, one line a load set in the units of the load table, or why nothing.
// The joint and its table stay as they are.
std::string AnteprimaImportazione(const Sessione& s, const TestiImportazione& testi, bool maxMin);

// What is wrong with a member of the lists that a result file lacks; empty when all have theirs.
std::string AvvisoAstaAssente(const Sessione& s, const TestiImportazione& testi);

// The end of the program, asked by a reader: a structure saved by too old a release.
void TerminaProgramma(Sessione& s);

// Where every imported action comes from, its sign rule and where it goes; Italian text for people.
std::string SpiegaImportazione(bool maxMin);

}  // namespace tk07
