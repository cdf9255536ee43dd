#include "verification/poligono.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

namespace {

constexpr double kToll = 0.0001;
constexpr int kPassate = 100;

// Integrals under the edge y = m x + q from x1 to x2; the sum over all edges of a closed polygon is
// the integral over it (divergence theorem), positive with the vertices in clockwise order.
struct Lato {
    double x1, y1, x2, y2;
    double Area() const { return (y1 + y2) / 2.0 * (x2 - x1); }
};

// An edge along y adds nothing to these integrals.
bool Verticale(const Lato& l) {
    return std::fabs(l.x1 - l.x2) <= std::fabs(l.y1 - l.y2) * 1e-5 + 0.0001;
}

}  // namespace

int PuntoInPoligono(double x, double y, int n,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vx,
                    const Tab1<double, 1, PoligonoCompresso::kVertici + 1>& vy) {
    int incroci = 0;
    int segnoLato = 0;
    for (int j = 1; j <= n; ++j) {
        const int k = j == n ? 1 : j + 1;
        const double x1 = vx(j), y1 = vy(j), x2 = vx(k), y2 = vy(k);
        const double dx = std::fabs(x1 - x2), dy = std::fabs(y1 - y2);
        if (dy <= kToll) {
            if (std::fabs(y - y1) < kToll && std::fabs(x1 - x) - dx <= kToll &&
                std::fabs(x2 - x) - dx <= kToll) {
                return 2;
            }
            continue;
        }
        double xi = 0.0;
        if (std::fabs(y - y1) <= kToll) {
            xi = x1;
        } else if (std::fabs(y - y2) <= kToll) {
            xi = x2;
        } else {
            xi = x1 + (x2 - x1) * (y - y1) / (y2 - y1);
        }
        if (!(std::fabs(x1 - xi) - dx <= kToll && std::fabs(x2 - xi) - dx <= kToll &&
              std::fabs(y1 - y) - dy <= kToll && std::fabs(y2 - y) - dy <= kToll)) {
            continue;
        }
        if (x + kToll > xi) {
            if (std::fabs(xi - x) < kToll) return 2;
            continue;
        }
        const bool inizio = std::fabs(xi - x1) < kToll && std::fabs(y - y1) < kToll;
        const bool fine = std::fabs(xi - x2) < kToll && std::fabs(y - y2) < kToll;
        if (!inizio && !fine) {
            ++incroci;
            continue;
        }
        // Through a vertex: only edges on one side of the ray count. The mark is never reset.
        const int lato = (y1 + y2) / 2.0 - y > 0.0 ? 1 : -1;
        if (segnoLato == 0) {
            ++incroci;
            segnoLato = lato;
        } else if (segnoLato == lato) {
            ++incroci;
        }
    }
    return incroci % 2 != 0 ? 1 : 0;
}

void PoligonoCompresso::Chiudi() {
    polX(polNVert + 1) = polX(1);
    polY(polNVert + 1) = polY(1);
}

double PoligonoCompresso::AreaConSegno() const {
    double a = 0.0;
    for (int j = 1; j <= polNVert; ++j) {
        a += Lato{polX(j), polY(j), polX(j + 1), polY(j + 1)}.Area();
    }
    return a;
}

void PoligonoCompresso::OrientaPoligono() {
    const double area = AreaConSegno();
    sommaAree += area;
    if (polTipo == 0) {
        polTipo = area < 0.0 ? 1 : 0;
    } else if (area > 0.0) {
        // A hole has its vertices in negative order.
        for (int a = 1, b = polNVert; a < b; ++a, --b) {
            std::swap(polX(a), polX(b));
            std::swap(polY(a), polY(b));
        }
        Chiudi();
        for (int j = 1; j <= polNVert + 1; ++j) {
            compX(j) = polX(j);
            compY(j) = polY(j);
        }
    }
}

short PoligonoCompresso::PoligonoDiPunto(double x, double y) const {
    if (polNum < 1 || polTipo == 1) return 0;
    return PuntoInPoligono(x, y, polNVert, polX, polY) == 1 ? 1 : 0;
}

bool PoligonoCompresso::Convergenza() const {
    for (int k = 1; k <= 3; ++k) {
        const double tol = std::fabs(0.01 * rhsForze(k) / 100.0) + 1.0;
        if (!(polScarto(k) < tol)) return false;
    }
    return true;
}

void PoligonoCompresso::PreparaCarico() {
    const double rifX = polRifFisso == 1 ? polRifX : polXG;
    const double rifY = polRifFisso == 1 ? polRifY : polYG;
    rhsForze(1) = polAzioni(1) + rifY * polAzioni(3);
    rhsForze(2) = polAzioni(2) + rifX * polAzioni(3);
    rhsForze(3) = polAzioni(3);
    if (polSoloY == 1) rhsForze(2) = 0.0;
}

void PoligonoCompresso::RisolviPiano(short& flag, const Piattaforma& p) {
    const short ricordato = flag;
    flag = 1;
    if ((polNVert < 1 || polNum < 1) && polNBarre < 1) {
        flag = 0;
        return;
    }
    sommaAree = 0.0;
    compN = 0;
    if (polNum >= 1 && polNVert >= 1) {
        compN = polNVert;
        Chiudi();
        for (int j = 1; j <= polNVert + 1; ++j) {
            compX(j) = polX(j);
            compY(j) = polY(j);
        }
        if (polSoloY == 1) polEps0(2) = 0.0;
        OrientaPoligono();
    }
    for (int i = 1; i <= polNBarre; ++i) barPol(i) = PoligonoDiPunto(barX(i), barY(i));

    for (polIter = 1; polIter <= kPassate; ++polIter) {
        if (polIter >= 3 && Convergenza()) return;
        IntegraPoligoni();
        if (polIter != 1) {
            Risultanti();
            for (int k = 1; k <= 3; ++k) polScarto(k) = std::fabs(polRisult(k) - rhsForze(k));
        } else {
            PreparaCarico();
        }
        if (!RisolviSistema()) {
            flag = 0;
            return;
        }
        if (polNonTaglia == 0) TagliaPoligono();
    }
    flag = 0;
    if (ricordato != 1) return;
    MostraErrore(p, sommaAree < -0.0001
                        ? "Convergenza non raggiunta (la somma delle aree distribuite "
                          "e' negativa)."
                        : "Convergenza non raggiunta.");
}

void PoligonoCompresso::IntegraPoligoni() {
    matTot = {};
    matPol = {};
    const double e = polE / polERif;
    const bool dueAssi = polSoloY != 1;
    // Second and first moments and area: yy, xy, y, xx, x, 1.
    double yy = 0.0, xy = 0.0, sy = 0.0, xx = 0.0, sx = 0.0, area = 0.0;
    if (compN > 0) {
        const auto vx = compX.Tratto(1, compN + 1);
        const auto vy = compY.Tratto(1, compN + 1);
        for (std::size_t j = 0; j + 1 < vx.size(); ++j) {
            const Lato l{vx[j], vy[j], vx[j + 1], vy[j + 1]};
            if (Verticale(l)) continue;
            const double m = (l.y2 - l.y1) / (l.x2 - l.x1);
            const double q = l.y1 - m * l.x1;
            const double d1 = l.x2 - l.x1;
            const double d2 = l.x2 * l.x2 - l.x1 * l.x1;
            const double d3 = l.x2 * l.x2 * l.x2 - l.x1 * l.x1 * l.x1;
            const double d4 = l.x2 * l.x2 * l.x2 * l.x2 - l.x1 * l.x1 * l.x1 * l.x1;
            area += l.Area() * e;
            sy += (m * m / 3.0 * d3 + q * q * d1 + m * q * d2) / 2.0 * e;
            yy += (m * m * m / 4.0 * d4 + m * m * q * d3 + 3.0 * m * (q * q) / 2.0 * d2 +
                   q * q * q * d1) /
                  3.0 * e;
            if (!dueAssi) continue;
            sx += (m / 3.0 * d3 + q / 2.0 * d2) * e;
            xx += (m / 4.0 * d4 + q / 3.0 * d3) * e;
            xy += (m * m / 4.0 * d4 + 2.0 * m * q / 3.0 * d3 + q * q / 2.0 * d2) / 2.0 * e;
        }
    }
    if (polIter == 1) {
        areaTot = area, SxTot = sy, SyTot = sx, IxTot = yy, IyTot = xx, IxyTot = xy;
        const bool nulla = areaTot < 0.0001;
        polXG = nulla ? 0.0 : SyTot / areaTot;
        polYG = nulla ? 0.0 : SxTot / areaTot;
    }
    double tyy = 0.0, txy = 0.0, ty = 0.0, txx = 0.0, tx = 0.0, ta = 0.0;
    if (polNBarre > 0) {
        const auto bx = barX.Tratto(1, polNBarre), by = barY.Tratto(1, polNBarre),
                   ba = barA.Tratto(1, polNBarre), be = barE.Tratto(1, polNBarre);
        const auto dentro = barPol.Tratto(1, polNBarre);
        for (std::size_t i = 0; i < bx.size(); ++i) {
            const double x = bx[i], y = by[i];
            // A bolt in the compressed area takes its own area out of the contact.
            if (dentro[i] == 1 && (polIter == 1 || ValorePiano(pianoPol, x, y) < 0.0)) {
                const double a = ba[i] * e;
                area -= a;
                sy -= a * y;
                yy -= a * y * y;
                if (dueAssi) {
                    sx -= a * x;
                    xx -= a * x * x;
                    xy -= a * x * y;
                }
            }
            // Bars work in both directions, whatever the sign.
            const double a = ba[i] * be[i] / polERif;
            ta += a;
            ty += a * y;
            tyy += a * y * y;
            if (dueAssi) {
                tx += a * x;
                txx += a * x * x;
                txy += a * x * y;
            }
        }
    }
    matPol[1] = {0.0, yy, xy, sy};
    matPol[2] = {0.0, xy, xx, sx};
    matPol[3] = {0.0, sy, sx, area};
    matTot[1] = {0.0, yy + tyy, xy + txy, sy + ty};
    matTot[2] = {0.0, xy + txy, dueAssi ? xx + txx : 1.0, sx + tx};
    matTot[3] = {0.0, sy + ty, sx + tx, area + ta};
}

void PoligonoCompresso::Risultanti() {
    for (int k = 1; k <= 3; ++k) {
        const auto r = static_cast<std::size_t>(k);
        double s = 0.0;
        for (int m = 1; m <= 3; ++m) s += matTot[r][static_cast<std::size_t>(m)] * polPiano(m);
        for (int m = 1; m <= 3; ++m) s -= matPol[r][static_cast<std::size_t>(m)] * polEps0(m);
        for (int i = 1; i <= polNBarre; ++i) {
            const double braccio = k == 1 ? barY(i) : k == 2 ? barX(i) : 1.0;
            s -= barE(i) / polERif * barA(i) * barEps0(i) * braccio;
        }
        polRisult(k) = s * polERif;
    }
    if (polSoloY == 1) polRisult(2) = 0.0;
}

bool PoligonoCompresso::RisolviSistema() {
    Matrice a = matTot;
    std::array<double, 4> noto{};
    for (int k = 1; k <= 3; ++k) {
        const auto r = static_cast<std::size_t>(k);
        double iniziale = 0.0;
        for (int m = 1; m <= 3; ++m)
            iniziale += matPol[r][static_cast<std::size_t>(m)] * polEps0(m);
        for (int i = 1; i <= polNBarre; ++i) {
            const double braccio = k == 1 ? barY(i) : k == 2 ? barX(i) : 1.0;
            iniziale += barE(i) / polERif * barA(i) * barEps0(i) * braccio;
        }
        noto[r] = rhsForze(k) / polERif + iniziale;
    }
    const auto elimina = [&](std::size_t da, std::size_t su) {
        const double f = -a[su][da] / a[da][da];
        for (std::size_t c = da; c <= 3; ++c) a[su][c] += f * a[da][c];
        noto[su] += f * noto[da];
    };
    constexpr double kPivot = 0.0001;
    // No pivot search: the order of the unknowns is fixed.
    if (!(std::fabs(a[1][1]) >= kPivot)) return false;
    elimina(1, 3);
    elimina(1, 2);
    if (!(std::fabs(a[2][2]) >= kPivot)) return false;
    elimina(2, 3);
    if (!(std::fabs(a[3][3]) >= kPivot)) return false;
    polPiano(3) = noto[3] / a[3][3];
    polPiano(2) = (noto[2] - a[2][3] * polPiano(3)) / a[2][2];
    polPiano(1) = (noto[1] - a[1][2] * polPiano(2) - a[1][3] * polPiano(3)) / a[1][1];
    for (int k = 1; k <= 3; ++k) pianoPol(k) = polPiano(k) - polEps0(k);
    return true;
}

void PoligonoCompresso::TagliaPoligono() {
    compN = 0;
    for (int j = 1; j <= polNVert; ++j) {
        const double pa = ValorePiano(pianoPol, polX(j), polY(j));
        const double pb = ValorePiano(pianoPol, polX(j + 1), polY(j + 1));
        if (pa <= 0.0) {
            ++compN;
            compX(compN) = polX(j);
            compY(compN) = polY(j);
        }
        if (pa * pb < 0.0) {
            const double t = std::fabs(pa) / (std::fabs(pa) + std::fabs(pb));
            ++compN;
            compX(compN) = polX(j) + (polX(j + 1) - polX(j)) * t;
            compY(compN) = polY(j) + (polY(j + 1) - polY(j)) * t;
        }
    }
    if (compN > 0) {
        compX(compN + 1) = compX(1);
        compY(compN + 1) = compY(1);
    }
}

}  // namespace tk07
