#include "verification/poligono.h"

#include <array>
#include <cmath>

#include "verification/passi_piano.h"

namespace tk07 {

namespace {

constexpr double kToll = 0.0001;

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

void PoligonoCompresso::Completa() {
    areaConSegno = 0.0;
    barPol.Riempi(0);
    if (polNVert < 1) return;
    polX(polNVert + 1) = polX(1);
    polY(polNVert + 1) = polY(1);
    for (int j = 1; j <= polNVert; ++j) {
        areaConSegno += Lato{polX(j), polY(j), polX(j + 1), polY(j + 1)}.Area();
    }
    if (areaConSegno < 0.0) return;
    for (int i = 1; i <= polNBarre; ++i) {
        barPol(i) = PuntoInPoligono(barX(i), barY(i), polNVert, polX, polY) == 1 ? 1 : 0;
    }
}

namespace {

using Matrice = std::array<std::array<double, 4>, 4>;  // 1-based, row and column 0 unused

using Momenti = MomentiPiano<double>;

Matrice Simmetrica(const Momenti& t) {
    return {{{}, {0.0, t.yy, t.xy, t.sy}, {0.0, t.xy, t.xx, t.sx}, {0.0, t.sy, t.sx, t.area}}};
}

class Solutore {
  public:
    explicit Solutore(const PoligonoCompresso& p) : p_(p), eps0_(p.polEps0) {
        if (!DueAssi()) eps0_(2) = 0.0;
    }
    PianoRisolto Risolvi();
    Piano Contatto(const Piano& piano);

  private:
    bool DueAssi() const { return p_.polSoloY != 1; }
    bool Prima() const { return e_.polIter == 1; }
    void Taglia();
    Momenti IntegraParte() const;
    void Integra();
    void PreparaCarico();
    Piano Risultanti() const;
    bool RisolviSistema();
    bool Convergenza() const;

    const PoligonoCompresso& p_;
    Piano eps0_, scarto_;
    PianoRisolto e_;
    Tab1<double, 1, 2 * PoligonoCompresso::kVertici + 1> compX_, compY_;  // compressed part, closed
    Matrice matPol_{};  // the compressed part less its bars
    Momenti tot_;       // ... with all bars
};

PianoRisolto Solutore::Risolvi() {
    if (p_.polNVert < 1 && p_.polNBarre < 1) return e_;
    if (p_.polNVert >= 1) {
        e_.compN = p_.polNVert;
        for (int j = 1; j <= p_.polNVert + 1; ++j) {
            compX_(j) = p_.polX(j);
            compY_(j) = p_.polY(j);
        }
    }
    for (e_.polIter = 1; e_.polIter <= kPassate; ++e_.polIter) {
        if (e_.polIter >= 3 && Convergenza()) {
            e_.stato = StatoPiano::equilibrio;
            return e_;
        }
        Integra();
        if (Prima()) {
            PreparaCarico();
        } else {
            e_.polRisult = Risultanti();
            for (int k = 1; k <= 3; ++k) scarto_(k) = std::fabs(e_.polRisult(k) - e_.rhsForze(k));
        }
        if (!RisolviSistema()) return e_;
        if (p_.polNonTaglia == 0) Taglia();
    }
    e_.stato = p_.areaConSegno < -0.0001 ? StatoPiano::areeNegative : StatoPiano::nonConvergente;
    return e_;
}

Piano Solutore::Contatto(const Piano& piano) {
    e_.polPiano = piano;
    for (int k = 1; k <= 3; ++k) e_.pianoPol(k) = piano(k) - eps0_(k);
    Taglia();
    Integra();
    return Risultanti();
}

bool Solutore::Convergenza() const {
    for (int k = 1; k <= 3; ++k) {
        if (!(scarto_(k) < TolleranzaPiano(e_.rhsForze(k)))) return false;
    }
    return true;
}

void Solutore::PreparaCarico() {
    const double rifX = p_.polRifFisso == 1 ? p_.polRifX : e_.polXG;
    const double rifY = p_.polRifFisso == 1 ? p_.polRifY : e_.polYG;
    e_.rhsForze = CaricoInOrigine(p_.polAzioni, rifX, rifY);
    if (!DueAssi()) e_.rhsForze(2) = 0.0;
}

Momenti Solutore::IntegraParte() const {
    Momenti t;
    if (e_.compN < 1) return t;
    const double e = p_.polE / p_.polERif;
    const auto vx = compX_.Tratto(1, e_.compN + 1);
    const auto vy = compY_.Tratto(1, e_.compN + 1);
    for (std::size_t j = 0; j + 1 < vx.size(); ++j) {
        const Lato l{vx[j], vy[j], vx[j + 1], vy[j + 1]};
        if (Verticale(l)) continue;
        Momenti lato;
        IntegraLato(l.x1, l.y1, l.x2, l.y2, lato);
        t.area += lato.area * e;
        t.sy += lato.sy * e;
        t.yy += lato.yy * e;
        if (!DueAssi()) continue;
        t.sx += lato.sx * e;
        t.xx += lato.xx * e;
        t.xy += lato.xy * e;
    }
    return t;
}

void Solutore::Integra() {
    Momenti c = IntegraParte();
    if (Prima()) {
        const bool nulla = c.area < 0.0001;
        e_.polXG = nulla ? 0.0 : c.sx / c.area;
        e_.polYG = nulla ? 0.0 : c.sy / c.area;
    }
    const double e = p_.polE / p_.polERif;
    const bool dueAssi = DueAssi();
    Momenti b;
    if (p_.polNBarre > 0) {
        const int n = p_.polNBarre;
        const auto bx = p_.barX.Tratto(1, n), by = p_.barY.Tratto(1, n), ba = p_.barA.Tratto(1, n),
                   be = p_.barE.Tratto(1, n);
        const auto dentro = p_.barPol.Tratto(1, n);
        for (std::size_t i = 0; i < bx.size(); ++i) {
            const double x = bx[i], y = by[i];
            // A bolt in the compressed area takes its own area out of the contact.
            if (dentro[i] == 1 && (Prima() || ValorePiano(e_.pianoPol, x, y) < 0.0)) {
                const double a = ba[i] * e;
                c.area -= a;
                c.sy -= a * y;
                c.yy -= a * y * y;
                if (dueAssi) {
                    c.sx -= a * x;
                    c.xx -= a * x * x;
                    c.xy -= a * x * y;
                }
            }
            // Bars work in both directions, whatever the sign.
            const double a = ba[i] * be[i] / p_.polERif;
            b.area += a;
            b.sy += a * y;
            b.yy += a * y * y;
            if (dueAssi) {
                b.sx += a * x;
                b.xx += a * x * x;
                b.xy += a * x * y;
            }
        }
    }
    matPol_ = Simmetrica(c);
    tot_ = {c.yy + b.yy, c.xy + b.xy, c.sy + b.sy, c.xx + b.xx, c.sx + b.sx, c.area + b.area};
    if (!dueAssi) tot_.xx = 1.0;
}

Piano Solutore::Risultanti() const {
    const Matrice matTot = Simmetrica(tot_);
    Piano risult;
    for (int k = 1; k <= 3; ++k) {
        const auto r = static_cast<std::size_t>(k);
        double s = 0.0;
        for (int m = 1; m <= 3; ++m) s += matTot[r][static_cast<std::size_t>(m)] * e_.polPiano(m);
        for (int m = 1; m <= 3; ++m) s -= matPol_[r][static_cast<std::size_t>(m)] * eps0_(m);
        for (int i = 1; i <= p_.polNBarre; ++i) {
            const double braccio = k == 1 ? p_.barY(i) : k == 2 ? p_.barX(i) : 1.0;
            s -= p_.barE(i) / p_.polERif * p_.barA(i) * p_.barEps0(i) * braccio;
        }
        risult(k) = s * p_.polERif;
    }
    if (!DueAssi()) risult(2) = 0.0;
    return risult;
}

bool Solutore::RisolviSistema() {
    std::array<double, 4> noto{};
    for (int k = 1; k <= 3; ++k) {
        const auto r = static_cast<std::size_t>(k);
        double iniziale = 0.0;
        for (int m = 1; m <= 3; ++m) iniziale += matPol_[r][static_cast<std::size_t>(m)] * eps0_(m);
        for (int i = 1; i <= p_.polNBarre; ++i) {
            const double braccio = k == 1 ? p_.barY(i) : k == 2 ? p_.barX(i) : 1.0;
            iniziale += p_.barE(i) / p_.polERif * p_.barA(i) * p_.barEps0(i) * braccio;
        }
        noto[r] = e_.rhsForze(k) / p_.polERif + iniziale;
    }
    const auto x = tk07::RisolviSistema(tot_, noto[1], noto[2], noto[3]);
    for (const double pivot : {x.pivot1, x.pivot2, x.pivot3}) {
        if (!(std::fabs(pivot) >= kPivot)) return false;
    }
    Piano& c = e_.polPiano;
    c(1) = x.c1;
    c(2) = x.c2;
    c(3) = x.c3;
    for (int k = 1; k <= 3; ++k) e_.pianoPol(k) = c(k) - eps0_(k);
    return true;
}

void Solutore::Taglia() {
    short n = 0;
    for (int j = 1; j <= p_.polNVert; ++j) {
        const double x1 = p_.polX(j), y1 = p_.polY(j), x2 = p_.polX(j + 1), y2 = p_.polY(j + 1);
        const double pa = ValorePiano(e_.pianoPol, x1, y1);
        const double pb = ValorePiano(e_.pianoPol, x2, y2);
        if (pa <= 0.0) {
            ++n;
            compX_(n) = x1;
            compY_(n) = y1;
        }
        if (pa * pb < 0.0) {
            const double t = std::fabs(pa) / (std::fabs(pa) + std::fabs(pb));
            ++n;
            compX_(n) = x1 + (x2 - x1) * t;
            compY_(n) = y1 + (y2 - y1) * t;
        }
    }
    if (n > 0) {
        compX_(n + 1) = compX_(1);
        compY_(n + 1) = compY_(1);
    }
    e_.compN = n;
}

}  // namespace

PianoRisolto RisolviPiano(const PoligonoCompresso& pol) { return Solutore(pol).Risolvi(); }

Piano RisultantiContatto(const PoligonoCompresso& pol, const Piano& piano) {
    return Solutore(pol).Contatto(piano);
}

}  // namespace tk07
