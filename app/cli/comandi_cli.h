#pragma once

#include <string>
#include <vector>

#include "base/direttori.h"

namespace tk07::cli {

struct OpzioniVerifica {
    std::vector<std::string> file;
    std::string metodo;  // "slu", "ta" or empty: the joint's own
    bool json = false, esiti = false, csv = false, fermati = false, apri = false, stampa = false;
    int fili = 1;  // threads
};

int ComandoVerifica(const Avvio& avvio, const OpzioniVerifica& opz);
int ComandoControlla(const Avvio& avvio, const std::vector<std::string>& file);
int ComandoMostra(const Avvio& avvio, const std::string& file, bool json);
int ComandoSezioni(const Avvio& avvio, bool json);
int ComandoMateriali(const Avvio& avvio, bool json);
int ComandoSessione(const Avvio& avvio, bool avviaProgrammi);
int ComandoInizializza(const Avvio& avvio, const std::string& destinazione);

}  // namespace tk07::cli
