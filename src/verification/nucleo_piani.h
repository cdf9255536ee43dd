#pragma once

#include "verification/corsie.h"
#include "verification/passi_piano.h"
#include "verification/piani.h"

namespace tk07 {
namespace {

// The solver's passes on W load sets at a time. A lane takes the next set as soon as its own is in
// equilibrium or has failed.
template <int W>
class NucleoPiani : Corsie<W> {
    using L = Corsie<W>;
    using V = typename L::V;
    using M = typename L::M;

  public:
    static void Risolvi(const ProblemaPiani& pr, std::size_t quanti, const ColonnePiani& col);
    static void Contatti(const RettangoloPiano& r, std::size_t quanti, const ColonneContatti& col);

  private:
    using Momenti = MomentiPiano<V>;
    static TK07_CORSIE void Piu(Momenti& t, const M& dove, const Momenti& a) {
        t.yy += L::Dove(dove, a.yy);
        t.xy += L::Dove(dove, a.xy);
        t.sy += L::Dove(dove, a.sy);
        t.xx += L::Dove(dove, a.xx);
        t.sx += L::Dove(dove, a.sx);
        t.area += L::Dove(dove, a.area);
    }
    struct PianoV {
        V c1, c2, c3;
        TK07_CORSIE V In(const V& x, const V& y) const { return c3 + c1 * y + c2 * x; }
    };

    static TK07_CORSIE M NonVerticale(const V& dx, const V& dy) {
        return ~(L::Ass(dx) <= L::Ass(dy) * 1e-5 + 0.0001);
    }

    // The compressed part of the rectangle with corners 1 (xMin, yMin), 2 (xMin, yMax), 3 (xMax,
    // yMax), 4 (xMax, yMin). What is kept of its outline is one stretch, which ends at `u` and
    // begins again at `e`; the chord from u to e closes it. The vertical sides add nothing, so
    // three edges are left: on 2-3, on 4-1, and the chord, which comes before, between or after
    // them as in the list of vertices that begins at corner 1. Whatever the rounding, the corners
    // of a rectangle symmetrical about x = 0 never alternate in sign.
    static TK07_CORSIE Momenti Compressa(const RettangoloPiano& r, const PianoV& c) {
        const V xMin = L::Tutte(r.xMin), xMax = L::Tutte(r.xMax);
        const V yMin = L::Tutte(r.yMin), yMax = L::Tutte(r.yMax);
        const V p1 = c.In(xMin, yMin), p2 = c.In(xMin, yMax);
        const V p3 = c.In(xMax, yMax), p4 = c.In(xMax, yMin);
        const M in1 = p1 <= 0.0, in2 = p2 <= 0.0, in3 = p3 <= 0.0, in4 = p4 <= 0.0;
        const V a1 = L::Ass(p1), a2 = L::Ass(p2), a3 = L::Ass(p3), a4 = L::Ass(p4);
        // Where the neutral axis crosses a side, else the corner where the stretch ends or begins.
        const V y12 = L::Scegli(p1 * p2 < 0.0, yMin + (yMax - yMin) * (a1 / (a1 + a2)),
                                L::Scegli(in1, yMin, yMax));
        const V x23 = L::Scegli(p2 * p3 < 0.0, xMin + (xMax - xMin) * (a2 / (a2 + a3)),
                                L::Scegli(in2, xMin, xMax));
        const V y34 = L::Scegli(p3 * p4 < 0.0, yMax + (yMin - yMax) * (a3 / (a3 + a4)),
                                L::Scegli(in3, yMax, yMin));
        const V x41 = L::Scegli(p4 * p1 < 0.0, xMax + (xMin - xMax) * (a4 / (a4 + a1)),
                                L::Scegli(in4, xMax, xMin));
        const V xA = L::Scegli(in2, xMin, x23), xB = L::Scegli(in3, xMax, x23);
        const V xC = L::Scegli(in4, xMax, x41), xD = L::Scegli(in1, xMin, x41);
        Momenti sopra, sotto, corda;
        IntegraLatoOrizzontale(xA, xB, yMax, sopra);
        IntegraLatoOrizzontale(xC, xD, yMin, sotto);
        const M u12 = in1 & ~in2, u23 = in2 & ~in3, u34 = in3 & ~in4, u41 = in4 & ~in1;
        const M e12 = in2 & ~in1, e23 = in3 & ~in2, e34 = in4 & ~in3, e41 = in1 & ~in4;
        const V ux = Uno(u12, xMin, u23, x23, u34, xMax, u41, x41);
        const V uy = Uno(u12, y12, u23, yMax, u34, y34, u41, yMin);
        const V ex = Uno(e12, xMin, e23, x23, e34, xMax, e41, x41);
        const V ey = Uno(e12, y12, e23, yMax, e34, y34, e41, yMin);
        IntegraLato(ux, uy, ex, ey, corda);
        const M conta = NonVerticale(ux - ex, uy - ey);
        Momenti t;
        Piu(t, conta & u12, corda);
        Piu(t, NonVerticale(xA - xB, V{}), sopra);
        Piu(t, conta & (u23 | u34), corda);
        Piu(t, NonVerticale(xC - xD, V{}), sotto);
        Piu(t, conta & u41, corda);
        return t;
    }
    // Of four values the one whose mask is set, 0 where none is.
    static TK07_CORSIE V Uno(const M& m1, const V& v1, const M& m2, const V& v2, const M& m3,
                             const V& v3, const M& m4, const V& v4) {
        return __builtin_bit_cast(
            V, (m1 & L::Bit(v1)) | (m2 & L::Bit(v2)) | (m3 & L::Bit(v3)) | (m4 & L::Bit(v4)));
    }
    static TK07_CORSIE void Risultanti(const Momenti& t, const PianoV& c, V* r) {
        r[0] = t.yy * c.c1 + t.xy * c.c2 + t.sy * c.c3;
        r[1] = t.xy * c.c1 + t.xx * c.c2 + t.sx * c.c3;
        r[2] = t.sy * c.c1 + t.sx * c.c2 + t.area * c.c3;
    }
};

template <int W>
void NucleoPiani<W>::Risolvi(const ProblemaPiani& pr, std::size_t quanti, const ColonnePiani& col) {
    constexpr double kMassimo = 1e30;  // loads above it go alone
    constexpr std::size_t kNessuno = static_cast<std::size_t>(-1);
    std::size_t prossimo = 0, attive = 0;
    std::size_t sestetto[W];
    V carico[3] = {}, tol[3] = {};
    // A plane that compresses everything: the first pass takes the whole rectangle and all its
    // bars.
    PianoV c{V{}, V{}, L::Tutte(-1.0)};
    M passata{};
    const auto prendi = [&](std::size_t corsia) {
        for (; prossimo < quanti; ++prossimo) {
            bool va = true;
            for (std::size_t k = 0; k < 3; ++k) {
                const double x = col.carico[k][prossimo];
                va = va && x >= -kMassimo && x <= kMassimo;
            }
            if (va) break;
            col.risolto[prossimo] = 0;
        }
        if (prossimo == quanti) {
            sestetto[corsia] = kNessuno;
            return;
        }
        for (std::size_t k = 0; k < 3; ++k) {
            const double x = col.carico[k][prossimo];
            carico[k][corsia] = x + 0.0;
            tol[k][corsia] = TolleranzaPiano(x);
        }
        c.c1[corsia] = c.c2[corsia] = 0.0;
        c.c3[corsia] = -1.0;
        passata[corsia] = 1;
        sestetto[corsia] = prossimo++;
        ++attive;
    };
    for (std::size_t i = 0; i < W; ++i) prendi(i);
    while (attive > 0) {
        Momenti t = Compressa(pr.r, c);
        for (int i = 0; i < pr.nDentro; ++i) {
            const BarraPiano& b = pr.dentro[static_cast<std::size_t>(i)];
            const M compressa = c.In(L::Tutte(b.x), L::Tutte(b.y)) < 0.0;
            t.area -= L::Dove(compressa, L::Tutte(b.a));
            t.sy -= L::Dove(compressa, L::Tutte(b.ay));
            t.yy -= L::Dove(compressa, L::Tutte(b.ayy));
            t.sx -= L::Dove(compressa, L::Tutte(b.ax));
            t.xx -= L::Dove(compressa, L::Tutte(b.axx));
            t.xy -= L::Dove(compressa, L::Tutte(b.axy));
        }
        t.yy += pr.somma.ayy;
        t.xy += pr.somma.axy;
        t.sy += pr.somma.ay;
        t.xx += pr.somma.axx;
        t.sx += pr.somma.ax;
        t.area += pr.somma.a;
        V r[3];
        Risultanti(t, c, r);
        M pari = passata >= 2;
        for (std::size_t k = 0; k < 3; ++k) pari &= L::Ass(r[k] - carico[k]) < tol[k];
        const auto e = RisolviSistema(t, carico[0], carico[1], carico[2]);
        const M regolare = (L::Ass(e.pivot1) >= kPivot) & (L::Ass(e.pivot2) >= kPivot) &
                           (L::Ass(e.pivot3) >= kPivot);
        c = {e.c1, e.c2, e.c3};
        const M ultima = passata == kPassate;
        const M finita = ultima | pari | ~regolare;
        const M bene = ~ultima & pari & regolare;
        passata += 1;
        for (std::size_t i = 0; i < W; ++i) {
            if (finita[i] == 0 || sestetto[i] == kNessuno) continue;
            const std::size_t s = sestetto[i];
            col.piano[0][s] = c.c1[i];
            col.piano[1][s] = c.c2[i];
            col.piano[2][s] = c.c3[i];
            col.risolto[s] = bene[i] != 0 ? 1 : 0;
            --attive;
            prendi(i);
        }
    }
}

template <int W>
void NucleoPiani<W>::Contatti(const RettangoloPiano& r, std::size_t quanti,
                              const ColonneContatti& col) {
    for (std::size_t s = 0; s < quanti; s += W) {
        const std::size_t n = quanti - s < W ? quanti - s : W;
        V p[3] = {}, q[3];
        for (std::size_t k = 0; k < 3; ++k) __builtin_memcpy(&p[k], col.piano[k] + s, 8 * n);
        const PianoV c{p[0], p[1], p[2]};
        Risultanti(Compressa(r, c), c, q);
        for (std::size_t k = 0; k < 3; ++k) __builtin_memcpy(col.risultanti[k] + s, &q[k], 8 * n);
    }
}

}  // namespace
}  // namespace tk07
