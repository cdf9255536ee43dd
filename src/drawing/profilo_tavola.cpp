#include "drawing/profilo_tavola.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

void DisegnaProfilo(Figura& f, const ProfiloRec& s, double x, double y, double orient) {
    const double a = orient * kPi / 180.0, ca = std::cos(a), sa = std::sin(a);
    const auto px = [&](double u, double v) { return x + u * ca - v * sa; };
    const auto py = [&](double u, double v) { return y + u * sa + v * ca; };
    const auto linea = [&](double u1, double v1, double u2, double v2) {
        Segmento(f, px(u1, v1), py(u1, v1), px(u2, v2), py(u2, v2));
    };
    const double b = s.B / 2.0, h = s.H / 2.0, w = s.tw / 2.0, t = h - s.tf, r = s.r;
    for (const double m : {1.0, -1.0}) {
        linea(-b, m * h, b, m * h);
        for (const double k : {1.0, -1.0}) {
            linea(k * b, m * h, k * b, m * t);
            linea(k * b, m * t, k * (w + r), m * t);
            // The fillet between flange and web turns its hollow side outwards.
            const double inizio = m > 0.0 ? (k > 0.0 ? 0.5 : 0.0) : (k > 0.0 ? 1.0 : 1.5);
            Cerchio(f, px(k * (w + r), m * (t - r)), py(k * (w + r), m * (t - r)), 2.0 * r,
                    inizio * kPi + a, (inizio + 0.5) * kPi + a);
        }
    }
    linea(w, -t + r, w, t - r);
    linea(-w, -t + r, -w, t - r);
}

namespace {

void Anteprima(const ProfiloRec& s, double altezza, Superficie& d) {
    if (d.pulisci) d.pulisci();
    const double rapporto = d.ScaleWidth > 0.0 ? d.ScaleHeight / d.ScaleWidth : 1.0;
    d.yMax = 0.55 * altezza;
    d.yMin = -d.yMax;
    d.xMax = rapporto > 0.0 ? d.yMax / rapporto : d.yMax;
    d.xMin = -d.xMax;
    d.ForeColor = 0;
    Figura f;
    DisegnaProfilo(f, s, 0.0, 0.0);
    for (const SegmentoFig& t : f.segmenti) {
        if (d.linea) d.linea(t.x1, t.y1, t.x2, t.y2);
    }
    for (const CerchioFig& c : f.cerchi) {
        if (d.cerchio) d.cerchio(c.x, c.y, c.diametro / 2.0, c.a1, c.a2);
    }
}

}  // namespace

void AnteprimeProfili(const Nodo& n, Superficie& DisPri, Superficie& DisSec) {
    // Both surfaces show the same height: what the larger beam needs, with some air.
    double altezza = Max(Max(n.TraPri.H, n.TraSec.H), 1.0);
    for (const Superficie* d : {&DisPri, &DisSec}) {
        const double rapporto = d->ScaleWidth > 0.0 ? d->ScaleHeight / d->ScaleWidth : 1.0;
        altezza = Max(altezza, Max(n.TraPri.B, n.TraSec.B) * rapporto);
    }
    Anteprima(n.TraPri, altezza, DisPri);
    Anteprima(n.TraSec, altezza, DisSec);
}

}  // namespace tk07
