#pragma once

#include <span>
#include <string>

#include "joint/nodo.h"

namespace tk07 {

// The one table that drives the joint file both ways, and every listing of the joint by key.

// Which index a group of keys runs over.
enum class IndiceCampo { nessuno, piastra, nervatura, bullone, sestetto, nodo };
enum class TipoCampo { testo, reale, intero, booleano };

struct CampoNodo {
    const char* chiave;
    const char* minuscola;
    TipoCampo tipo;
    // Value as text (`i` counts only for indexed keys); text into the value.
    std::string (*testo)(const Nodo&, int i);
    void (*metti)(Nodo&, int i, const std::string& valore, const std::string& dove);
};

// Keys that are written together for every index, in the order of the file.
struct GruppoCampi {
    IndiceCampo indice;
    std::span<const CampoNodo> campi;
};

std::span<const GruppoCampi> GruppiNodo();
// First and last index of a group in this joint (last < first when there is none).
int PrimoIndice(IndiceCampo indice);
int UltimoIndice(IndiceCampo indice, const Nodo& nodo);

}  // namespace tk07
