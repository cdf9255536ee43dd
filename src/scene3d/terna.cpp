#include "scene3d/terna.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

namespace {

constexpr double kAsseVerticale = 1e-9;  // horizontal part of the axis below which it is vertical

// Sine and cosine, exact at quarter turns, where the scene's sections stand.
void SenoCoseno(double gradi, double& seno, double& coseno) {
    const double quarti = gradi / 90.0;
    if (quarti == std::floor(quarti) && std::fabs(quarti) < 1e9) {
        constexpr double kSeni[] = {0.0, 1.0, 0.0, -1.0};
        const long q = (static_cast<long>(quarti) % 4 + 4) % 4;
        seno = kSeni[q];
        coseno = kSeni[(q + 1) % 4];
        return;
    }
    seno = std::sin(gradi * kPi / 180.0);
    coseno = std::cos(gradi * kPi / 180.0);
}

}  // namespace

double Scalare(const Punto3& a, const Punto3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Punto3 Prodotto(const Punto3& a, const Punto3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Punto3 Avanti(const Punto3& p, double t, const Punto3& u) {
    return {p[0] + t * u[0], p[1] + t * u[1], p[2] + t * u[2]};
}

bool Versore(const Punto3& a, const Punto3& b, Punto3& u) {
    const Punto3 d = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double lungo = std::sqrt(Scalare(d, d));
    u = {};
    if (!(lungo > 0.0) || !std::isfinite(lungo)) return false;
    u = {d[0] / lungo, d[1] / lungo, d[2] / lungo};
    return true;
}

Terna TernaEstruso(const Estruso& e) {
    Terna t;
    if (!Versore(e.estrusi_coord1, e.estrusi_coord2, t.x)) return t;
    t.valida = true;
    Punto3 y = {0.0, 1.0, 0.0};
    const double orizzontale = std::sqrt(t.x[0] * t.x[0] + t.x[1] * t.x[1]);
    if (orizzontale > kAsseVerticale) {
        // (0, 0, 1) less its part along the axis, over its length
        y = {-t.x[2] * t.x[0] / orizzontale, -t.x[2] * t.x[1] / orizzontale, orizzontale};
    }
    const Punto3 z = Prodotto(t.x, y);
    double s = 0.0, c = 1.0;
    SenoCoseno(e.estrusi_orient, s, c);
    for (std::size_t i = 0; i < 3; ++i) {
        t.y[i] = c * y[i] + s * z[i];
        t.z[i] = c * z[i] - s * y[i];
    }
    return t;
}

double OrientPerY(const Punto3& coord1, const Punto3& coord2, const Punto3& y) {
    Estruso e;
    e.estrusi_coord1 = coord1;
    e.estrusi_coord2 = coord2;
    const Terna t = TernaEstruso(e);
    if (Scalare(t.z, y) > 0.5) return 90.0;
    if (Scalare(t.z, y) < -0.5) return 270.0;
    return Scalare(t.y, y) < 0.0 ? 180.0 : 0.0;
}

}  // namespace tk07
