#pragma once

#include "guscio/disegna.h"

namespace tk07::cli {

struct OpzioniRelazioneCli {
    std::string file, uscita;
    std::string metodo;  // "slu", "ta" or empty: the joint's own
    bool breve = false;
};

// The extended report of one joint as a PDF; exit codes as the verification's.
int ComandoRelazione(const Avvio& avvio, const OpzioniRelazioneCli& opz, const Grafica& grafica);

}  // namespace tk07::cli
