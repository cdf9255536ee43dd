#include "verification/piani.h"

#include <cmath>

#include "verification/nucleo_piani.h"
#include "verification/piani_avx2.h"
#include "verification/poligono.h"

namespace tk07 {

namespace {

static_assert(kBarrePiani >= PoligonoCompresso::kBarre);
constexpr double kMassimo = 1e6;  // mm, mm2

bool Entro(double x) { return std::fabs(x) <= kMassimo; }

#ifdef TK07_AVX2
bool ConAvx2() {
    static const bool c = __builtin_cpu_supports("avx2") != 0;
    return c;
}
#endif

}  // namespace

bool Ordinario(const RettangoloPiano& r) {
    return r.xMin == -r.xMax && Entro(r.xMax) && Entro(r.yMin) && Entro(r.yMax);
}

ProblemaPiani PreparaPiani(const PoligonoCompresso& p) {
    ProblemaPiani pr;
    if (p.polNVert != 4) return pr;
    pr.r = {p.polX(1), p.polX(3), p.polY(1), p.polY(2)};
    pr.ordinario = Ordinario(pr.r);
    for (int i = 1; i <= p.polNBarre; ++i) {
        const double x = p.barX(i), y = p.barY(i), a = p.barA(i);
        const BarraPiano b{x, y, a, a * y, a * y * y, a * x, a * x * x, a * x * y};
        pr.ordinario = pr.ordinario && Entro(x) && Entro(y) && Entro(a);
        pr.somma.a += b.a;
        pr.somma.ay += b.ay;
        pr.somma.ayy += b.ayy;
        pr.somma.ax += b.ax;
        pr.somma.axx += b.axx;
        pr.somma.axy += b.axy;
        if (p.barPol(i) == 1) pr.dentro[pr.nDentro++] = b;
    }
    return pr;
}

void RisolviPiani(const ProblemaPiani& pr, std::size_t quanti, const ColonnePiani& c) {
    if (!pr.ordinario) {
        for (std::size_t s = 0; s < quanti; ++s) c.risolto[s] = 0;
        return;
    }
#ifdef TK07_AVX2
    if (ConAvx2()) return RisolviPianiAvx2(pr, quanti, c);
#endif
    NucleoPiani<2>::Risolvi(pr, quanti, c);
}

void ContattiPiani(const RettangoloPiano& r, std::size_t quanti, const ColonneContatti& c) {
#ifdef TK07_AVX2
    if (ConAvx2()) return ContattiPianiAvx2(r, quanti, c);
#endif
    NucleoPiani<2>::Contatti(r, quanti, c);
}

}  // namespace tk07
