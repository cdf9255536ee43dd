#include "drawing/figura.h"

#include <array>
#include <cmath>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

constexpr double kMezzoAngoloFreccia = 0.261799387799149;  // 15 degrees

void AggiungiTratti(Figura& f, const CerchioFig& c) {
    const double giro = 2.0 * kPi;
    double apertura = c.a2 - c.a1;
    while (apertura <= 0.0) apertura += giro;
    const int corde = static_cast<int>(std::ceil(apertura / giro * 12.0 - 1e-9));
    double x1 = 0.0, y1 = 0.0;
    for (int k = 0; k <= corde; ++k) {
        const double a = c.a1 + apertura * k / corde;
        const double x = c.x + c.diametro / 2.0 * std::cos(a);
        const double y = c.y + c.diametro / 2.0 * std::sin(a);
        if (k > 0) f.tratti.push_back({x1, y1, x, y, c.colore, kContinua});
        x1 = x, y1 = y;
    }
}

}  // namespace

void Allarga(Ingombro& i, double x, double y) {
    i.xMin = Min(i.xMin, x), i.xMax = Max(i.xMax, x);
    i.yMin = Min(i.yMin, y), i.yMax = Max(i.yMax, y);
}

void Allarga(Ingombro& i, const Ingombro& altro) {
    if (altro.Vuoto()) return;
    Allarga(i, altro.xMin, altro.yMin);
    Allarga(i, altro.xMax, altro.yMax);
}

bool SiToccano(const Ingombro& a, const Ingombro& b) {
    return a.xMin < b.xMax && b.xMin < a.xMax && a.yMin < b.yMax && b.yMin < a.yMax;
}

void Segmento(Figura& f, double x1, double y1, double x2, double y2) {
    if (std::fabs(x1 - x2) <= kCoincidenza && std::fabs(y1 - y2) <= kCoincidenza) return;
    f.segmenti.push_back({x1, y1, x2, y2, f.colore, f.tipo});
    f.tratti.push_back(f.segmenti.back());
}

void Spezzata(Figura& f, const std::vector<std::pair<double, double>>& punti, bool chiusa) {
    for (std::size_t i = 1; i < punti.size(); ++i) {
        Segmento(f, punti[i - 1].first, punti[i - 1].second, punti[i].first, punti[i].second);
    }
    if (chiusa && punti.size() > 2) {
        const auto &a = punti.back(), &b = punti.front();
        Segmento(f, a.first, a.second, b.first, b.second);
    }
}

void Rettangolo4(Figura& f, double x1, double y1, double x2, double y2) {
    Spezzata(f, {{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}, true);
}

void Cerchio(Figura& f, double x, double y, double diametro, double a1, double a2) {
    if (!(diametro > kCoincidenza)) return;
    f.cerchi.push_back({x, y, diametro, f.colore, a1, a2});
    AggiungiTratti(f, f.cerchi.back());
}

void Testo(Figura& f, TestoFig t) {
    f.scritte.push_back(IngombroTesto(t));
    f.testi.push_back(std::move(t));
}

void Quota(Figura& f, QuotaFig q) {
    const QuotaEsplosa e = EsplodiQuota(q);
    if (!e.valida) return;
    f.tratti.insert(f.tratti.end(), e.segmenti.begin(), e.segmenti.end());
    for (const CerchioFig& c : e.cerchi) AggiungiTratti(f, c);
    f.scritte.push_back(IngombroTesto(e.testo));
    f.quote.push_back(std::move(q));
}

double LarghezzaTesto(const std::string& testo, double largh) {
    return static_cast<double>(NumeroCaratteri(testo)) * largh;
}

Ingombro IngombroTesto(const TestoFig& t) {
    const double a = t.angolo * kPi / 180.0, c = std::cos(a), s = std::sin(a);
    const double w = LarghezzaTesto(t.testo, t.largh);
    Ingombro i;
    for (const double u : {0.0, w}) {
        for (const double v : {0.0, t.alt}) Allarga(i, t.x + u * c - v * s, t.y + u * s + v * c);
    }
    return i;
}

Ingombro IngombroFigura(const Figura& f) {
    Ingombro i;
    for (const SegmentoFig& s : f.tratti) {
        Allarga(i, s.x1, s.y1);
        Allarga(i, s.x2, s.y2);
    }
    for (const Ingombro& t : f.scritte) Allarga(i, t);
    return i;
}

std::string TestoQuota(const QuotaFig& q) {
    if (!q.testo.empty()) return q.testo;
    const std::string t = TestoNumero(Arrotonda(std::hypot(q.x2 - q.x1, q.y2 - q.y1), 1));
    return t.front() == '.' ? "0" + t : t;  // a lone point is lost on a workshop's print
}

QuotaEsplosa EsplodiQuota(const QuotaFig& q0) {
    QuotaFig q = q0;
    const bool verticale = std::fabs(q.x2 - q.x1) <= kCoincidenza;
    if (verticale ? q.y2 < q.y1 : q.x2 < q.x1) {
        std::swap(q.x1, q.x2);
        std::swap(q.y1, q.y2);
    }
    QuotaEsplosa e;
    const double dx = q.x2 - q.x1, dy = q.y2 - q.y1, lungo = std::hypot(dx, dy);
    if (lungo <= kCoincidenza) return e;
    e.valida = true;
    const StileQuota& st = q.stile;
    // u along the line, n to its left; the text's own "up" is n.
    const double a = verticale ? kPi / 2.0 : std::atan(dy / dx);
    const double ux = dx / lungo, uy = dy / lungo, nx = -uy, ny = ux;
    const double verso = q.distanza < 0.0 ? -1.0 : 1.0;
    const auto linea = [&](double x1, double y1, double x2, double y2) {
        e.segmenti.push_back({x1, y1, x2, y2, st.colore, kContinua});
    };

    const double fuori = q.distanza + verso * st.sporgenza;
    for (const auto& [x, y] : {std::pair{q.x1, q.y1}, std::pair{q.x2, q.y2}}) {
        const double inizio = std::fabs(q.distanza) > st.stacco ? verso * st.stacco : 0.0;
        linea(x + nx * inizio, y + ny * inizio, x + nx * fuori, y + ny * fuori);
    }
    const double ax = q.x1 + nx * q.distanza, ay = q.y1 + ny * q.distanza;
    const double bx = q.x2 + nx * q.distanza, by = q.y2 + ny * q.distanza;
    linea(ax, ay, bx, by);

    const double s = st.dimTerminale;
    if (st.terminale == Terminale::freccia) {
        // Inside the line where there is room for both, else from outside.
        const double dentro = lungo >= 2.0 * s ? 1.0 : -1.0;
        const double lu = s * std::cos(kMezzoAngoloFreccia), ln = s * std::sin(kMezzoAngoloFreccia);
        for (const double lato : {1.0, -1.0}) {
            linea(ax, ay, ax + dentro * lu * ux + lato * ln * nx,
                  ay + dentro * lu * uy + lato * ln * ny);
            linea(bx, by, bx - dentro * lu * ux + lato * ln * nx,
                  by - dentro * lu * uy + lato * ln * ny);
        }
    } else if (s > kCoincidenza) {
        e.cerchi.push_back({ax, ay, s, st.colore, 0.0, 0.0});
        e.cerchi.push_back({bx, by, s, st.colore, 0.0, 0.0});
    }

    e.testo.testo = TestoQuota(q);
    e.testo.angolo = InteroCorto(a * 180.0 / kPi);
    e.testo.alt = st.alt;
    e.testo.largh = st.largh;
    e.testo.colore = st.colore;
    e.testo.stile = st.stile;
    const double largo = LarghezzaTesto(e.testo.testo, st.largh);
    // Beyond extension lines and end marks, so that no neighbour's stroke runs through the text.
    const double vicino = Max(st.sporgenza, s / 2.0) + 0.25 * st.alt + q.guida;
    const double cx = (ax + bx) / 2.0 + ux * q.spostamento + nx * verso * (vicino + st.alt / 2.0);
    const double cy = (ay + by) / 2.0 + uy * q.spostamento + ny * verso * (vicino + st.alt / 2.0);
    e.testo.x = cx - ux * largo / 2.0 - nx * st.alt / 2.0;
    e.testo.y = cy - uy * largo / 2.0 - ny * st.alt / 2.0;
    if (q.guida > 0.0) {
        const double m = verso * (st.alt / 2.0 + 0.2 * st.alt);
        linea((ax + bx) / 2.0, (ay + by) / 2.0, cx - nx * m, cy - ny * m);
    }
    return e;
}

void EmettiFigura(const Figura& f, double dx, double dy, Disegno& d, const Piattaforma& p) {
    d.origineX = dx;
    d.origineY = dy;
    const auto segmento = [&](const SegmentoFig& s) {
        d.tipoLineaCorrente = s.tipo;
        DisegnaSegmento(d, s.x1, s.y1, s.x2, s.y2, s.colore, p);
    };
    const auto cerchio = [&](const CerchioFig& c) {
        DisegnaCerchio(d, c.x, c.y, c.diametro, c.colore, p, c.a1, c.a2);
    };
    const auto testo = [&](const TestoFig& t) {
        DisegnaTesto(d, t.testo, t.x, t.y, t.angolo, t.largh, t.alt, t.colore, p);
    };
    for (const SegmentoFig& s : f.segmenti) segmento(s);
    for (const CerchioFig& c : f.cerchi) cerchio(c);
    for (const QuotaFig& q : f.quote) {
        const QuotaEsplosa e = EsplodiQuota(q);
        for (const SegmentoFig& s : e.segmenti) segmento(s);
        for (const CerchioFig& c : e.cerchi) cerchio(c);
        testo(e.testo);
    }
    for (const TestoFig& t : f.testi) testo(t);
    d.tipoLineaCorrente = kContinua;
}

}  // namespace tk07
