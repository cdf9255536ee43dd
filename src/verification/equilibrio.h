#pragma once

#include <array>
#include <vector>

#include "joint/nodo.h"
#include "verification/risultati.h"

namespace tk07 {

struct PuntoPiano {
    double x = 0.0, y = 0.0;
};

// N, My, Mz in this order; moments about the axis of the secondary beam, signs of the load table.
enum Risultante { kRisN, kRisMy, kRisMz, kRisultanti };
using TreAzioni = std::array<double, kRisultanti>;

// Equilibrium of one load set in the plane of the bolts [daN, daN mm]: what acts, what bolts and
// contact answer with, what is left. An account of its own on the solved plane: the contact zone is
// clipped anew and integrated over triangles, not by the solver's sums over edges.
struct Equilibrio {
    TreAzioni carico{};      // N, 10 My, 10 Mz of the load table
    TreAzioni trasporto{};   // -distAzioni Tz, -distAzioni Ty where the transport counts
    TreAzioni bulloni{};     // sum of Sigma A
    TreAzioni contatto{};    // pressure over the contact zone, less the areas of the bolts in it
    TreAzioni residuo{};     // carico + trasporto - bulloni - contatto
    TreAzioni tolleranza{};  // 1 + 1e-4 |carico + trasporto|: where the solver stops
    std::vector<PuntoPiano> zona;  // contact zone, empty without compression
};

//   Reads       nodo (load set s, bolts, plates), ris.Piano(s, 1..3) [daN/mm2]
Equilibrio EquilibrioSestetto(const Nodo& nodo, const Risultati& ris, int s);

// The part of a polygon where c3 + c1 y + c2 x is below `livello`.
std::vector<PuntoPiano> SottoLivello(const std::vector<PuntoPiano>& poligono,
                                     const Tab1<double, 1, 3>& c, double livello);

}  // namespace tk07
