#pragma once

#include <string>
#include <vector>

#include "verification/esiti.h"

namespace tk07 {

// The joint judged without a word to the user and without a report: what the live view shows while
// a value is being typed.
struct Esame {
    std::vector<std::string> incongruenze;  // messages of the consistency checks; then no verdict
    std::vector<std::string> avvisi;        // spacing rules, and why a calculation stopped
    bool calcolato = false;
    Risultati ris;
    Esiti esiti;
};

// Third rib, consistency checks, calculation (past breaches of the spacing rules), findings. The
// caller hands over a copy: its third rib is recomputed. The tables of `esame` are
// used again.
void EsaminaNodo(Nodo& copia, const Opzioni& opz, Esame& esame);

}  // namespace tk07
