#pragma once

#include <span>
#include <string>
#include <string_view>

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
    // Value as text (`i` counts only for indexed keys).
    std::string (*testo)(const Nodo&, int i);
    // Text into the value, `i` within LimitiDi: what happened to it.
    struct Presa {
        std::string rifiuto;  // why it cannot be taken; the value stays
        std::string nota;     // taken, but not as it is written: for the reader to tell
    };
    Presa (*metti)(Nodo&, int i, const std::string& valore);
};

// Keys that are written together for every index, in the order of the file.
struct GruppoCampi {
    IndiceCampo indice;
    std::span<const CampoNodo> campi;
};

std::span<const GruppoCampi> GruppiNodo();
// Why a text (a description, a name) cannot stand in a joint file: it holds "[" and a key of the
// file, and would be read back as that key's line. Empty for every other text.
std::string TestoRifiutato(std::string_view testo);
// Least and greatest index that the arrays of a group have.
struct LimitiIndice {
    int minimo = 0, massimo = 0;
};
LimitiIndice LimitiDi(IndiceCampo indice);
// First and last index of a group in this joint (last < first when there is none).
int PrimoIndice(IndiceCampo indice);
int UltimoIndice(IndiceCampo indice, const Nodo& nodo);

}  // namespace tk07
