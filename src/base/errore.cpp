#include "base/errore.h"

namespace tk07 {

std::string TestoIndiceFuori(long indice, long minimo, long massimo) {
    return "Indice " + std::to_string(indice) + " fuori dai limiti " + std::to_string(minimo) +
           ".." + std::to_string(massimo);
}

void IndiceFuori(long indice, long minimo, long massimo) {
    throw ErroreFatale(TestoIndiceFuori(indice, minimo, massimo));
}

}  // namespace tk07
