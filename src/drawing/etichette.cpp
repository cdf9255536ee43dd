#include "drawing/etichette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>
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

// Would the leader be taken for the stroke? Most of it lies on the stroke or within `vicino` of it.
bool CorreLungo(const SegmentoFig& g, const SegmentoFig& s, double vicino) {
    if (Max(g.x1, g.x2) < Min(s.x1, s.x2) - vicino || Min(g.x1, g.x2) > Max(s.x1, s.x2) + vicino ||
        Max(g.y1, g.y2) < Min(s.y1, s.y2) - vicino || Min(g.y1, g.y2) > Max(s.y1, s.y2) + vicino) {
        return false;  // apart: most strokes
    }
    const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, lungo = std::hypot(dx, dy);
    if (lungo <= kCoincidenza) return false;
    int vicini = 0;
    for (const double t : {0.3, 0.5, 0.7}) {
        const double px = g.x1 + t * (g.x2 - g.x1) - s.x1;
        const double py = g.y1 + t * (g.y2 - g.y1) - s.y1;
        const double lungoS = (px * dx + py * dy) / lungo;
        vicini += lungoS > 0.0 && lungoS < lungo && std::fabs(px * dy - py * dx) < vicino * lungo;
    }
    return vicini >= 2;
}

// Marks a stroke as a leader in the list of obstacles.
constexpr short kGuida = -7;
// Distance, in text heights, at which a leader runs along a stroke.
constexpr double kAccanto = 0.1;

Ingombro Cresciuto(Ingombro r, double aria) {
    return {r.xMin - aria, r.xMax + aria, r.yMin - aria, r.yMax + aria};
}

class Ricerca {
  public:
    Ricerca(const Figura& f, double x, double y, double largo, double alto, double aria,
            double vicino, bool tondo)
        : f_(f),
          x_(x),
          y_(y),
          largo_(largo),
          alto_(alto),
          aria_(aria),
          vicino_(vicino),
          tondo_(tondo) {
        tratti_.reserve(f.tratti.size());
        for (const SegmentoFig& s : f.tratti) tratti_.push_back(&s);
    }

    // The candidate with its centre at (cx, cy), if it is free.
    std::optional<Posto> Prova(double cx, double cy, bool incroci) {
        Posto p;
        p.riquadro = Riquadro(cx, cy);
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
        for (std::size_t i = 0; i < tratti_.size(); ++i) {
            const SegmentoFig& s = *tratti_[i];
            if (SegmentoNelRiquadro(s, libero) ||
                (!incroci &&
                 (s.tipo == kGuida ? SiIncrociano(s, p.guida) : CorreLungo(p.guida, s, vicino_)))) {
                // It may well be in the way of the next candidate too.
                std::swap(tratti_[i], tratti_[i / 2]);
                return std::nullopt;
            }
        }
        return p;
    }

    // The place on a ring outside everything whose leader runs through the fewest texts, the
    // nearest of those. There is always one.
    Posto Fuori() const {
        Ingombro r = IngombroFigura(f_);
        Allarga(r, x_, y_);
        r = {r.xMin - largo_ / 2.0 - aria_, r.xMax + largo_ / 2.0 + aria_,
             r.yMin - alto_ / 2.0 - aria_, r.yMax + alto_ / 2.0 + aria_};
        constexpr int kPassi = 100;
        Posto migliore;
        double minimo = 1e300;
        for (int k = 0; k <= kPassi; ++k) {
            const double t = double(k) / kPassi;
            const double cx = r.xMin + t * r.Larghezza(), cy = r.yMin + t * r.Altezza();
            for (const auto& [px, py] : {std::pair{cx, r.yMin}, std::pair{cx, r.yMax},
                                         std::pair{r.xMin, cy}, std::pair{r.xMax, cy}}) {
                Posto p{Riquadro(px, py), {}};
                p.guida = Guida(p.riquadro);
                const auto toccati = std::count_if(
                    f_.scritte.begin(), f_.scritte.end(),
                    [&](const Ingombro& s) { return SegmentoNelRiquadro(p.guida, s); });
                const double costo = 1e6 * static_cast<double>(toccati) +
                                     std::hypot(px - x_, py - y_) / Max(alto_, 1.0);
                if (costo < minimo) minimo = costo, migliore = p;
            }
        }
        return migliore;
    }

  private:
    Ingombro Riquadro(double cx, double cy) const {
        return {cx - largo_ / 2.0, cx + largo_ / 2.0, cy - alto_ / 2.0, cy + alto_ / 2.0};
    }

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
            const double d = (px - x_) * (px - x_) + (py - y_) * (py - y_);
            const SegmentoFig s{x_, y_, px, py, 0, kGuida};
            if (d < minimo && !SegmentoNelRiquadro(s, r)) minimo = d, g.x2 = px, g.y2 = py;
        }
        return g;
    }

    const Figura& f_;
    std::vector<const SegmentoFig*> tratti_;  // of f_, those that refused candidates first
    double x_, y_, largo_, alto_, aria_, vicino_;
    bool tondo_;
};

struct Candidato {
    double raggio = 0.0;  // in text heights
    double angolo = 0.0;  // from the wanted direction [rad]
    double costo = 0.0;
};
// Up to this cost a place without crossing leaders is preferred.
constexpr double kCostoBuono = 40.0;
// Diameter of the dot at the end of a leader, in text heights.
constexpr double kPuntino = 0.16;

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
                   double versoY, const StileEtichetta& st, SePieno sePieno) {
    const double alto0 = Max(st.alt, 1.0);
    const double testoLargo = LarghezzaTesto(testo, st.largh);
    const double diametro = 1.25 * std::hypot(testoLargo, alto0);
    const double largo = st.cerchiata ? diametro : testoLargo;
    const double alto = st.cerchiata ? diametro : alto0;
    const double aria = st.aria * alto0;
    Ricerca ricerca(f, x, y, largo, alto, aria, kAccanto * alto0, st.cerchiata);

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
    if (!posto && sePieno == SePieno::fuori) posto = ricerca.Fuori();
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
    if (!f.tratti.empty()) f.tratti.back().tipo = kGuida;
    // A dot on what is meant, one for all labels of the same point. Texts keep farther from the
    // leader's end than it reaches.
    const CerchioFig puntino{g.x1, g.y1, kPuntino * alto0, st.colore, 0.0, 0.0};
    if (std::none_of(f.cerchi.begin(), f.cerchi.end(), [&](const CerchioFig& c) {
            return c.diametro == puntino.diametro && std::fabs(c.x - puntino.x) < kCoincidenza &&
                   std::fabs(c.y - puntino.y) < kCoincidenza;
        })) {
        f.cerchi.push_back(puntino);
    }
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

double PenaGuide(const Figura& f, double alt) {
    constexpr double kIncrocio = 12.0, kConfusa = 20.0;
    const double alto = Max(alt, 1.0);
    double pena = 0.0;
    for (std::size_t i = 0; i < f.tratti.size(); ++i) {
        const SegmentoFig& g = f.tratti[i];
        if (g.tipo != kGuida) continue;
        pena += std::hypot(g.x2 - g.x1, g.y2 - g.y1) / alto;
        for (std::size_t j = 0; j < f.tratti.size(); ++j) {
            const SegmentoFig& s = f.tratti[j];
            if (s.tipo != kGuida) {
                pena += CorreLungo(g, s, kAccanto * alto) ? kConfusa : 0.0;
            } else if (j < i) {
                pena += SiIncrociano(g, s) ? kIncrocio : 0.0;
            }
        }
    }
    return pena;
}

namespace {

using Ordine = std::vector<std::size_t>;
void PrimaDiTutte(Ordine& ordine, std::size_t quale) {
    const auto i = ordine.begin() + static_cast<long>(quale);
    std::rotate(ordine.begin(), i, i + 1);
}

}  // namespace

void PosaTutte(Figura& f, const std::vector<Etichetta>& etichette, const StileEtichetta& stile) {
    constexpr int kRipetizioni = 2;  // of each order
    // At full height, at 0.8 and at 0.64 of it: smaller ones would not be read on paper.
    constexpr int kInteri = 24, kTentativi = 3 * kInteri;
    const Figura senza = f;
    // Returns the place in the order of the first label without room.
    const auto posa = [&](const Ordine& ordine, int k, SePieno sePieno) {
        f = senza;
        std::size_t chiusa = ordine.size();
        for (std::size_t i = 0; i < ordine.size(); ++i) {
            const Etichetta& e = etichette[ordine[i]];
            StileEtichetta st = stile;
            st.cerchiata = e.cerchiata;
            st.aria += 0.06 * (k % kInteri / 4);
            const double scala = std::pow(0.8, k / kInteri);
            st.alt *= scala;
            st.largh *= scala;
            if (!PosaEtichetta(f, e.testo, e.x, e.y, e.versoX, e.versoY, st, sePieno) &&
                chiusa == ordine.size()) {
                chiusa = i;
            }
        }
        const std::vector<TestoFig> posati(f.testi.begin() + static_cast<long>(senza.testi.size()),
                                           f.testi.end());
        for (std::size_t i = 0; i < posati.size() && chiusa == ordine.size(); ++i) {
            f.testi[senza.testi.size() + ordine[i]] = posati[i];
        }
        return chiusa;
    };

    const double mx = (f.contorno.xMin + f.contorno.xMax) / 2.0;
    const double my = (f.contorno.yMin + f.contorno.yMax) / 2.0;
    constexpr double kUguali = 0.01;  // targets that mirror each other keep their order
    using Chiave = std::function<double(const Etichetta&)>;
    Ordine base(etichette.size());
    std::iota(base.begin(), base.end(), std::size_t{0});
    std::optional<Figura> migliore;
    double minima = 0.0;
    Ordine primo;
    for (const Chiave& chiave :
         {// The outer targets first: their labels leave the way free for the inner ones.
          Chiave([&](const Etichetta& e) { return -std::fabs(e.x - mx) - std::fabs(e.y - my); }),
          Chiave([&](const Etichetta& e) { return std::fabs(e.x - mx) + std::fabs(e.y - my); }),
          Chiave([](const Etichetta& e) { return e.y; }),
          Chiave([](const Etichetta& e) { return -e.y; })}) {
        Ordine ordine = base;
        // Position numbers and names have the whole face of a part to point at: after the welds.
        std::stable_sort(ordine.begin(), ordine.end(), [&](std::size_t a, std::size_t b) {
            const Etichetta &p = etichette[a], &q = etichette[b];
            if (p.saldatura != q.saldatura) return p.saldatura;
            return p.saldatura && std::round(chiave(p) / kUguali) < std::round(chiave(q) / kUguali);
        });
        if (primo.empty()) primo = ordine;
        std::size_t chiusa = posa(ordine, 0, SePieno::lascia);
        for (int k = 1; k < kRipetizioni && chiusa < ordine.size(); ++k) {
            PrimaDiTutte(ordine, chiusa);
            chiusa = posa(ordine, 0, SePieno::lascia);
        }
        if (chiusa < ordine.size()) continue;
        const double pena = PenaGuide(f, stile.alt);
        if (!migliore || pena < minima) migliore = f, minima = pena;
    }
    if (migliore) {
        f = std::move(*migliore);
        return;
    }
    for (int k = 0; k < kTentativi; ++k) {
        const std::size_t chiusa = posa(primo, k, SePieno::lascia);
        if (chiusa == primo.size()) return;
        PrimaDiTutte(primo, chiusa);
    }
    posa(primo, 0, SePieno::fuori);
}

}  // namespace tk07
