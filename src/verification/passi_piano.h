#pragma once

#include "verification/corsie.h"

// Steps of the solver that one load set and several side by side share: V is double or a vector of
// doubles. Internal linkage, as all that is made for more than one machine.
namespace tk07 {
namespace {

constexpr int kPassate = 100;
constexpr double kPivot = 0.0001;

// Second and first moments and area, of a part of the polygon or of bars.
template <class V>
struct MomentiPiano {
    V yy{}, xy{}, sy{}, xx{}, sx{}, area{};
};

// Integrals under the edge y = m x + q from x1 to x2; the sum over all edges of a closed polygon is
// the integral over it (divergence theorem), positive with the vertices in clockwise order. Edges
// along y add nothing and are left out by the caller.
template <class V>
TK07_CORSIE void IntegraLato(const V& x1, const V& y1, const V& x2, const V& y2,
                             MomentiPiano<V>& t) {
    const V m = (y2 - y1) / (x2 - x1);
    const V q = y1 - m * x1;
    const V d1 = x2 - x1;
    const V d2 = x2 * x2 - x1 * x1;
    const V d3 = x2 * x2 * x2 - x1 * x1 * x1;
    const V d4 = x2 * x2 * x2 * x2 - x1 * x1 * x1 * x1;
    t.area = (y1 + y2) / 2.0 * d1;
    t.sy = (m * m / 3.0 * d3 + q * q * d1 + m * q * d2) / 2.0;
    t.yy = (m * m * m / 4.0 * d4 + m * m * q * d3 + 3.0 * m * (q * q) / 2.0 * d2 + q * q * q * d1) /
           3.0;
    t.sx = m / 3.0 * d3 + q / 2.0 * d2;
    t.xx = m / 4.0 * d4 + q / 3.0 * d3;
    t.xy = (m * m / 4.0 * d4 + 2.0 * m * q / 3.0 * d3 + q * q / 2.0 * d2) / 2.0;
}

// The same with y1 = y2 = q: m is 0, and what it multiplies adds nothing.
template <class V>
TK07_CORSIE void IntegraLatoOrizzontale(const V& x1, const V& x2, const V& q, MomentiPiano<V>& t) {
    const V d1 = x2 - x1;
    const V d2 = x2 * x2 - x1 * x1;
    const V d3 = x2 * x2 * x2 - x1 * x1 * x1;
    t.area = q * d1;
    t.sy = q * q * d1 / 2.0;
    t.yy = q * q * q * d1 / 3.0;
    t.sx = q / 2.0 * d2;
    t.xx = q / 3.0 * d3;
    t.xy = q * q / 2.0 * d2 / 2.0;
}

// Coefficients of the plane c1 y + c2 x + c3 whose resultants are n1, n2, n3. No pivot search: the
// order of the unknowns is fixed; where a pivot is below kPivot the system counts as singular.
template <class V>
struct SoluzionePiano {
    V c1, c2, c3;
    V pivot1, pivot2, pivot3;
};
template <class V>
TK07_CORSIE SoluzionePiano<V> RisolviSistema(const MomentiPiano<V>& t, const V& n1, V n2, V n3) {
    const V a11 = t.yy, a12 = t.xy, a13 = t.sy;
    V a22 = t.xx, a23 = t.sx, a32 = t.sx, a33 = t.area;
    const V f13 = -a13 / a11;
    a32 += f13 * a12;
    a33 += f13 * a13;
    n3 += f13 * n1;
    const V f12 = -a12 / a11;
    a22 += f12 * a12;
    a23 += f12 * a13;
    n2 += f12 * n1;
    const V f23 = -a32 / a22;
    a33 += f23 * a23;
    n3 += f23 * n2;
    const V c3 = n3 / a33;
    const V c2 = (n2 - a23 * c3) / a22;
    const V c1 = (n1 - a12 * c2 - a13 * c3) / a11;
    return {c1, c2, c3, a11, a22, a33};
}

// What the pass before may differ from a load component [daN, daN mm].
TK07_CORSIE double TolleranzaPiano(double carico) {
    return __builtin_fabs(0.01 * carico / 100.0) + 1.0;
}

}  // namespace
}  // namespace tk07
