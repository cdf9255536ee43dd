#pragma once

#include <gtest/gtest.h>

#include "solidi/solidi.h"
#include "unit/scene3d/scena_di_prova.h"

namespace tk07::prova {

inline std::vector<Parte> Solidi(const Nodo& n, double gioco = 2.0) {
    Scena s;
    std::vector<Parte> parti;
    std::string errore;
    EXPECT_TRUE(Componi(n, s));
    EXPECT_TRUE(SolidiNodo(n, GeometriaDi(n), gioco, s, parti, errore)) << errore;
    return parti;
}

}  // namespace tk07::prova
