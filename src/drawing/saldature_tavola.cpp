#include "drawing/saldature_tavola.h"

#include "base/aritmetica.h"
#include "verification/saldature.h"

namespace tk07 {

QuoteNodo CalcolaQuote(const Nodo& n) {
    QuoteNodo q;
    q.HP = n.TraPri.H, q.BP = n.TraPri.B, q.HS = n.TraSec.H, q.BS = n.TraSec.B;
    q.xP2 = q.BP / 2.0 + n.distPiastraTraPri;
    q.xP1 = q.xP2 - n.SpPiastra(1);
    q.xS = q.xP2 + n.SpPiastra(2);
    q.zS2 = q.HP / 2.0 - n.distAliPriSec;
    q.zS = q.zS2 - q.HS;
    q.zP1 = -n.HPiastra(1) / 2.0;
    q.zP22 = q.zS2 + n.distAlaSecPiastra;
    q.zP2 = q.zP22 - n.HPiastra(2);
    q.moncone = 1.5 * q.HS;
    for (int k = 1; k <= 2; ++k) {
        if (n.AttNerv(k)) q.moncone = Max(q.moncone, 1.25 * n.BNerv(k));
    }
    q.mezza = Max(Max(n.BPiastra(1), n.BPiastra(2)), q.BS) / 2.0 + 0.5 * q.HP;
    return q;
}

bool LineaDoppia(const Nodo& n, int k) { return n.AttNerv(k); }

std::vector<LineaSaldatura> LineeSaldatura(const Nodo& n, const Lunghezze& L) {
    const QuoteNodo q = CalcolaQuote(n);
    const double a1 = n.spSaldS1, tf = n.TraSec.tf, tfp = n.TraPri.tf;
    constexpr Punto3 kX{1, 0, 0}, kXneg{-1, 0, 0}, kY{0, 1, 0}, kZ{0, 0, 1}, kZneg{0, 0, -1};
    std::vector<LineaSaldatura> v;
    // Line s`j` on the side of positive y and, unless `sola`, its mirror.
    const auto linea = [&](int j, Punto3 da, Punto3 a, Punto3 uno, Punto3 due, bool sola = false) {
        if (!(L(j - 1) > 0.0)) return;
        LineaSaldatura l{j - 1, da, a, uno, due, j >= 4 && j <= 9 ? n.spSaldS2 : a1};
        v.push_back(l);
        if (sola) return;
        for (Punto3* p : {&l.da, &l.a, &l.versoUno, &l.versoDue}) (*p)[1] = -(*p)[1];
        l.indice += kSpecchio;
        v.push_back(l);
    };

    // Secondary beam to plate 2.
    const double y1 = n.TraSec.tw / 2.0, zm = (q.zS + q.zS2) / 2.0;
    linea(1, {q.xS, y1, zm - L(0) / 2.0}, {q.xS, y1, zm + L(0) / 2.0}, kX, kY);
    const double yb = q.BS / 2.0;
    linea(2, {q.xS, yb - L(1), q.zS2 - tf}, {q.xS, yb, q.zS2 - tf}, kX, kZneg);
    linea(3, {q.xS, yb - L(2), q.zS + tf}, {q.xS, yb, q.zS + tf}, kX, kZ);
    for (int k = 1; k <= 2; ++k) {
        const double z = k == 1 ? q.zS2 : q.zS;
        const Punto3 via = k == 1 ? kZ : kZneg;
        const double l = L(8 + k);
        if (LineaDoppia(n, k)) {
            linea(9 + k, {q.xS, yb - l, z}, {q.xS, yb, z}, kX, via);
        } else {
            linea(9 + k, {q.xS, -yb, z}, {q.xS, yb, z}, kX, via, true);
        }
        if (!n.AttNerv(k)) continue;
        // The rib: its base on the flange, its side on the plate. Where the plate stands out the
        // base line starts behind the weld of the flange.
        const double yn = n.SpNerv(k) / 2.0, x0 = q.xS + (PiastraSporge(n, k) ? a1 : 0.0);
        linea(10 + 2 * k, {x0, yn, z}, {x0 + L(9 + 2 * k), yn, z}, via, kY);
        const double da = z + via[2] * a1, a = da + via[2] * L(10 + 2 * k);
        linea(11 + 2 * k, {q.xS, yn, da}, {q.xS, yn, a}, kX, kY);
    }

    // Plate 1 and rib 3 to the main beam.
    const double y3 = n.SpNerv(3) / 2.0, xAnima = n.TraPri.tw / 2.0;
    const double zAla = q.HP / 2.0 - tfp, xs = xAnima + n.SmussoNerv(3);
    linea(4, {q.xP1, y3, -L(3) / 2.0}, {q.xP1, y3, L(3) / 2.0}, kXneg, kY);
    linea(5, {xs, y3, zAla}, {xs + L(4), y3, zAla}, kZneg, kY);
    linea(6, {xAnima, y3, -L(5) / 2.0}, {xAnima, y3, L(5) / 2.0}, kX, kY);
    linea(7, {xs, y3, -zAla}, {xs + L(6), y3, -zAla}, kZ, kY);
    const double yp = n.BPiastra(1) / 2.0;
    linea(8, {q.xP1, yp - L(7), zAla}, {q.xP1, yp, zAla}, kXneg, kZneg);
    linea(9, {q.xP1, yp - L(8), -zAla}, {q.xP1, yp, -zAla}, kXneg, kZ);
    return v;
}

}  // namespace tk07
