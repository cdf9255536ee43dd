#include "drawing/etichette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "base/aritmetica.h"

namespace tk07 {

bool SegmentoNelRiquadro(const SegmentoFig& s, const Ingombro& r) {
    if (Max(s.x1, s.x2) < r.xMin || Min(s.x1, s.x2) > r.xMax || Max(s.y1, s.y2) < r.yMin ||
        Min(s.y1, s.y2) > r.yMax) {
        return false;
    }
    // Clip the segment against the box (Liang-Barsky).
    const double dx = s.x2 - s.x1, dy = s.y2 - s.y1;
    double t0 = 0.0, t1 = 1.0;
    const std::array<std::pair<double, double>, 4> lati{
        {{-dx, s.x1 - r.xMin}, {dx, r.xMax - s.x1}, {-dy, s.y1 - r.yMin}, {dy, r.yMax - s.y1}}};
    for (const auto& [p, q] : lati) {
        if (p == 0.0) {
            if (q < 0.0) return false;
            continue;
        }
        const double t = q / p;
        if (p < 0.0) {
            t0 = Max(t0, t);
        } else {
            t1 = Min(t1, t);
        }
        if (t0 > t1) return false;
    }
    return true;
}

namespace {

struct Posto {
    Ingombro riquadro;  // of the text or its circle
    SegmentoFig guida;
};

bool SiIncrociano(const SegmentoFig& a, const SegmentoFig& b) {
    const auto lato = [](const SegmentoFig& s, double x, double y) {
        return (s.x2 - s.x1) * (y - s.y1) - (s.y2 - s.y1) * (x - s.x1);
    };
    return lato(a, b.x1, b.y1) * lato(a, b.x2, b.y2) < 0.0 &&
           lato(b, a.x1, a.y1) * lato(b, a.x2, a.y2) < 0.0;
}

Ingombro Cresciuto(Ingombro r, double aria) {
    return {r.xMin - aria, r.xMax + aria, r.yMin - aria, r.yMax + aria};
}

class Ricerca {
  public:
    Ricerca(const Figura& f, double x, double y, double largo, double alto, double aria, bool tondo)
        : f_(f), x_(x), y_(y), largo_(largo), alto_(alto), aria_(aria), tondo_(tondo) {}

    // The candidate with its centre at (cx, cy), if it is free.
    std::optional<Posto> Prova(double cx, double cy, bool incroci) const {
        Posto p;
        p.riquadro = {cx - largo_ / 2.0, cx + largo_ / 2.0, cy - alto_ / 2.0, cy + alto_ / 2.0};
        const Ingombro libero = Cresciuto(p.riquadro, aria_);
        if (x_ > libero.xMin && x_ < libero.xMax && y_ > libero.yMin && y_ < libero.yMax) {
            return std::nullopt;
        }
        for (const Ingombro& t : f_.scritte) {
            if (SiToccano(libero, t)) return std::nullopt;
        }
        p.guida = Guida(p.riquadro);
        for (const Ingombro& t : f_.scritte) {
            if (SegmentoNelRiquadro(p.guida, Cresciuto(t, 0.4 * aria_))) return std::nullopt;
        }
        for (const SegmentoFig& s : f_.tratti) {
            if (SegmentoNelRiquadro(s, libero)) return std::nullopt;
            if (!incroci && s.tipo == kGuida && SiIncrociano(s, p.guida)) return std::nullopt;
        }
        return p;
    }

    // Marks a stroke as a leader in the list of obstacles.
    static constexpr short kGuida = -7;

  private:
    // To the edge of the circle, or from the target to the nearest middle of a side that it reaches
    // without running through the text, and a little short of it.
    SegmentoFig Guida(const Ingombro& r) const {
        const double mx = (r.xMin + r.xMax) / 2.0, my = (r.yMin + r.yMax) / 2.0, a = 0.5 * aria_;
        SegmentoFig g{x_, y_, 0.0, 0.0, 0, kGuida};
        if (tondo_) {
            const double d = std::hypot(x_ - mx, y_ - my);
            g.x2 = mx + (x_ - mx) / d * largo_ / 2.0;
            g.y2 = my + (y_ - my) / d * largo_ / 2.0;
            return g;
        }
        double minimo = 1e300;
        for (const auto& [px, py] : {std::pair{r.xMin - a, my}, std::pair{r.xMax + a, my},
                                     std::pair{mx, r.yMin - a}, std::pair{mx, r.yMax + a}}) {
            const double d = std::hypot(px - x_, py - y_);
            const SegmentoFig s{x_, y_, px, py, 0, kGuida};
            if (d < minimo && !SegmentoNelRiquadro(s, r)) minimo = d, g.x2 = px, g.y2 = py;
        }
        return g;
    }

    const Figura& f_;
    double x_, y_, largo_, alto_, aria_;
    bool tondo_;
};

struct Candidato {
    double raggio = 0.0;  // in text heights
    double angolo = 0.0;  // from the wanted direction [rad]
    double costo = 0.0;
};
// Up to this cost a place without crossing leaders is preferred.
constexpr double kCostoBuono = 22.0;

// Places round a target, cheapest first: near, and in the wanted direction.
const std::vector<Candidato>& Candidati() {
    static const std::vector<Candidato> kTutti = [] {
        constexpr int kMezzoGiro = 12, kAnelli = 120;
        std::vector<Candidato> v;
        for (int k = 0; k < kAnelli; ++k) {
            const double r = 1.2 + k * (0.5 + 0.012 * k);
            for (int m = -kMezzoGiro + 1; m <= kMezzoGiro; ++m) {
                const double quota = std::abs(m) / double{kMezzoGiro};
                v.push_back({r, m * kPi / kMezzoGiro, (r + 1.0) * (1.0 + 1.5 * quota)});
            }
        }
        std::stable_sort(v.begin(), v.end(),
                         [](const auto& a, const auto& b) { return a.costo < b.costo; });
        return v;
    }();
    return kTutti;
}

}  // namespace

bool PosaEtichetta(Figura& f, const std::string& testo, double x, double y, double versoX,
                   double versoY, const StileEtichetta& st) {
    const double alto0 = Max(st.alt, 1.0);
    const double testoLargo = LarghezzaTesto(testo, st.largh);
    const double diametro = 1.25 * std::hypot(testoLargo, alto0);
    const double largo = st.cerchiata ? diametro : testoLargo;
    const double alto = st.cerchiata ? diametro : alto0;
    const double aria = st.aria * alto0;
    const Ricerca ricerca(f, x, y, largo, alto, aria, st.cerchiata);

    const double a0 = std::atan2(versoY, versoX);
    std::optional<Posto> posto;
    for (const bool incroci : {false, true}) {
        for (const Candidato& k : Candidati()) {
            if (!incroci && k.costo > kCostoBuono) break;
            const double r = alto0 * k.raggio, a = a0 + k.angolo;
            const double ca = std::cos(a), sa = std::sin(a);
            posto = ricerca.Prova(x + ca * (r + largo / 2.0), y + sa * (r + alto / 2.0), incroci);
            if (posto) break;
        }
        if (posto) break;
    }
    if (!posto) return false;

    f.colore = st.colore;
    f.tipo = kContinua;
    const Ingombro& r = posto->riquadro;
    const double cx = (r.xMin + r.xMax) / 2.0, cy = (r.yMin + r.yMax) / 2.0;
    const SegmentoFig& g = posto->guida;
    if (st.cerchiata) {
        Cerchio(f, cx, cy, diametro);
        f.scritte.push_back(r);
    }
    Segmento(f, g.x1, g.y1, g.x2, g.y2);
    if (!f.tratti.empty()) f.tratti.back().tipo = Ricerca::kGuida;
    TestoFig t;
    t.testo = testo;
    t.alt = st.alt;
    t.largh = st.largh;
    t.colore = st.colore;
    t.stile = st.stile;
    t.x = cx - testoLargo / 2.0;
    t.y = cy - alto0 / 2.0;
    Testo(f, std::move(t));
    return true;
}

}  // namespace tk07
