#pragma once

#include <string>
#include <vector>

#include "base/direttori.h"

namespace tk07::cli {

// Commands that change a joint and write it: the file named by -o, which may be the one read.

struct OpzioniProponi {
    std::string file, uscita;
    bool piastre = false, nervature = false;
    double bulloni = 0.0;  // diameter [mm], 0: no bolts proposed
};
// Proposals in the order plates, ribs, bolts; bolts that are there stay.
int ComandoProponi(const Avvio& avvio, const OpzioniProponi& opz);

struct OpzioniCarichi {
    std::string file, uscita, esporta;
    std::vector<std::string> aggiungi;  // N,Ty,Tz,Mt,My,Mz[,name] in the job's units
    bool senzaDoppi = false, maxMin = false;
};
int ComandoCarichi(const Avvio& avvio, const OpzioniCarichi& opz);

struct OpzioniImporta {
    std::string file, uscita, nodi, aste, casi, condizioni, sestetti = "0";
    bool maxMin = false, spiega = false;
};
int ComandoImporta(const Avvio& avvio, const OpzioniImporta& opz);

}  // namespace tk07::cli
