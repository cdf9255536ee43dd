#include "base/errore.h"

namespace tk07 {

void IndiceFuori(long indice, long minimo, long massimo) {
    throw ErroreFatale("Indice " + std::to_string(indice) + " fuori dai limiti " +
                       std::to_string(minimo) + ".." + std::to_string(massimo));
}

}  // namespace tk07
