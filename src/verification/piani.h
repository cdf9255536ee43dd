#pragma once

#include <cstddef>

namespace tk07 {

struct PoligonoCompresso;

// The stress planes of many load sets on one joint: the solver of poligono.h for a rectangle
// symmetrical about x = 0 and bars as stiff as it, several sets at a time. Planes have the bits of
// RisolviPiano. Lengths mm, forces daN. Plain records: they are shared with units compiled for
// wider machines.

inline constexpr int kBarrePiani = 100;

struct BarraPiano {
    double x = 0.0, y = 0.0;
    double a = 0.0, ay = 0.0, ayy = 0.0, ax = 0.0, axx = 0.0, axy = 0.0;  // area and its moments
};
struct RettangoloPiano {
    double xMin = 0.0, xMax = 0.0, yMin = 0.0, yMax = 0.0;
};

// What depends on the joint alone.
struct ProblemaPiani {
    bool ordinario = false;  // false: not for the lanes, every set goes alone
    RettangoloPiano r;
    BarraPiano somma;  // of all bars; x and y unused
    int nDentro = 0;   // bars inside the rectangle
    BarraPiano dentro[kBarrePiani];
};
// `pol` is completed, its vertices in the order of PreparaPoligono.
ProblemaPiani PreparaPiani(const PoligonoCompresso& pol);

// A column for each action about the origin (moment that pairs with y, with x, force), one for each
// coefficient of the plane; all of one length.
struct ColonnePiani {
    const double* carico[3];
    double* piano[3];
    char* risolto;  // 1: in equilibrium; 0: RisolviPiano says what it is
};
void RisolviPiani(const ProblemaPiani& problema, std::size_t quanti, const ColonnePiani& c);

// Resultants of planes over a rectangle symmetrical about x = 0, as RisultantiContatto without bars
// has them.
struct ColonneContatti {
    const double* piano[3];
    double* risultanti[3];
};
void ContattiPiani(const RettangoloPiano& r, std::size_t quanti, const ColonneContatti& c);

// Sizes and planes that the lanes take: no product in them overflows.
bool Ordinario(const RettangoloPiano& r);
inline bool PianoOrdinario(double c1, double c2, double c3) {
    constexpr double kMassimo = 1e120;
    return c1 >= -kMassimo && c1 <= kMassimo && c2 >= -kMassimo && c2 <= kMassimo &&
           c3 >= -kMassimo && c3 <= kMassimo;
}

}  // namespace tk07
