#include "verification/equilibrio.h"

#include <cmath>

#include "verification/azioni_bulloni.h"
#include "verification/poligono.h"

namespace tk07 {

std::vector<PuntoPiano> SottoLivello(const std::vector<PuntoPiano>& p, const Tab1<double, 1, 3>& c,
                                     double livello) {
    std::vector<PuntoPiano> dentro;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const PuntoPiano &a = p[i], &b = p[(i + 1) % p.size()];
        const double va = ValorePiano(c, a.x, a.y) - livello,
                     vb = ValorePiano(c, b.x, b.y) - livello;
        if (va < 0.0) dentro.push_back(a);
        if ((va < 0.0) != (vb < 0.0)) {
            const double t = va / (va - vb);
            dentro.push_back({a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t});
        }
    }
    return dentro;
}

namespace {

// Integrals of s, s x, s y.
struct Integrali {
    double s = 0.0, sx = 0.0, sy = 0.0;
    void Punto(double forza, double x, double y) {
        s += forza;
        sx += forza * x;
        sy += forza * y;
    }
    // A product of two linear functions over a triangle: area/12 (sum f sum g + sum f g).
    void Triangolo(const Tab1<double, 1, 3>& c, const PuntoPiano& p, const PuntoPiano& q,
                   const PuntoPiano& r) {
        const double area = std::fabs((q.x - p.x) * (r.y - p.y) - (r.x - p.x) * (q.y - p.y)) / 2.0;
        const double a = ValorePiano(c, p.x, p.y), b = ValorePiano(c, q.x, q.y),
                     d = ValorePiano(c, r.x, r.y), somma = a + b + d;
        s += area * somma / 3.0;
        sx += area / 12.0 * (somma * (p.x + q.x + r.x) + a * p.x + b * q.x + d * r.x);
        sy += area / 12.0 * (somma * (p.y + q.y + r.y) + a * p.y + b * q.y + d * r.y);
    }
    // As actions of the load table: a positive moment compresses the side of positive coordinates.
    TreAzioni Azioni(double yAsse) const { return {s, -sx, -(sy - yAsse * s)}; }
};

// Strictly inside: a bolt on the edge takes no area out of the contact.
bool Dentro(const Rettangolo& r, double x, double y) {
    constexpr double kToll = 0.0001;
    return x > r.xMin + kToll && x < r.xMax - kToll && y > r.yMin + kToll && y < r.yMax - kToll;
}

}  // namespace

Equilibrio EquilibrioSestetto(const Nodo& n, const Risultati& ris, int s) {
    const GeometriaVerifica geo = PreparaGeometria(n);
    const Piano c = PianoTensioni(ris, s);
    Equilibrio e;
    e.carico = {n.SforzoNormale(s), 10.0 * n.MomY(s), 10.0 * n.MomZ(s)};
    if (Trasporta(n, s, geo.distAzioni)) {
        e.trasporto = {0.0, -geo.distAzioni * n.TaglioZ(s), -geo.distAzioni * n.TaglioY(s)};
    }
    const Rettangolo& r = geo.forma.comune;
    e.zona = SottoLivello({{r.xMin, r.yMin}, {r.xMax, r.yMin}, {r.xMax, r.yMax}, {r.xMin, r.yMax}},
                          c, 0.0);
    Integrali bulloni, contatto;
    for (std::size_t i = 2; i < e.zona.size(); ++i) {
        contatto.Triangolo(c, e.zona[0], e.zona[i - 1], e.zona[i]);
    }
    for (int i = 1; i <= n.nBull; ++i) {
        const double x = n.Xbull(i), y = n.Ybull(i), sigma = ValorePiano(c, x, y);
        bulloni.Punto(geo.Area(i) * sigma, x, y);
        if (sigma < 0.0 && Dentro(r, x, y)) contatto.Punto(-geo.Area(i) * sigma, x, y);
    }
    e.bulloni = bulloni.Azioni(geo.yAsse);
    e.contatto = contatto.Azioni(geo.yAsse);
    for (std::size_t k = 0; k < kRisultanti; ++k) {
        const double ridotto = e.carico[k] + e.trasporto[k];
        e.residuo[k] = ridotto - e.bulloni[k] - e.contatto[k];
        e.tolleranza[k] = 1.0 + 1e-4 * std::fabs(ridotto);
    }
    return e;
}

}  // namespace tk07
