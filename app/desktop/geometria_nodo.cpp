#include "desktop/geometria_nodo.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "session/pannello.h"
#include "verification/esiti.h"
#include "verification/saldature.h"

namespace tk07::desktop {

namespace {

QPolygonF Rett(double x1, double y1, double x2, double y2) {
    return QPolygonF({{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}, {x1, y1}});
}

// I section, centred on x = cx, its lower side at y0.
QPolygonF SezioneI(const ProfiloRec& p, double cx, double y0) {
    const double b = p.B / 2.0, w = p.tw / 2.0, H = p.H, tf = p.tf;
    QPolygonF q;
    for (const auto& [x, y] : {std::pair{-b, 0.0},
                               {b, 0.0},
                               {b, tf},
                               {w, tf},
                               {w, H - tf},
                               {b, H - tf},
                               {b, H},
                               {-b, H},
                               {-b, H - tf},
                               {-w, H - tf},
                               {-w, tf},
                               {-b, tf},
                               {-b, 0.0}}) {
        q << QPointF(cx + x, y0 + y);
    }
    return q;
}

QPolygonF Cerchio(double cx, double cy, double r) {
    constexpr int kLati = 24;
    QPolygonF q;
    for (int i = 0; i <= kLati; ++i) {
        const double a = 2.0 * 3.14159265358979 * i / kLati;
        q << QPointF(cx + r * std::cos(a), cy + r * std::sin(a));
    }
    return q;
}

class Compositore {
  public:
    Compositore(const Nodo& n, double gioco) : n_(n), g_(GeometriaDi(n)), gioco_(gioco) {
        yBase_ = Su(-n.TraPri.H / 2.0);  // lower side of the main beam
        const double nerv =
            std::max(n.AttNerv(1) ? n.BNerv(1) : 0.0, n.AttNerv(2) ? n.BNerv(2) : 0.0);
        zFine_ = g_.xS + std::max(nerv * 1.25, 0.5 * n.TraSec.H) + 20.0;
        largo_ = std::max({n.BPiastra(1), n.BPiastra(2), n.TraSec.B}) / 2.0 * 1.25 + 20.0;
    }

    DisegnoNodo Fai() {
        Fronte();
        Lato();
        Pianta();
        if (GrandezzaMancante(g_) == nullptr) Saldature();
        Bulloni();
        Quote();
        for (const Forma& f : d_.forme) {
            QRectF& e = d_.estensione[static_cast<std::size_t>(f.vista)];
            e = e.isNull() ? f.contorno.boundingRect() : e.united(f.contorno.boundingRect());
        }
        return std::move(d_);
    }

  private:
    void Metti(Vista v, Parte p, QPolygonF q, bool nascosta = false, int indice = 0) {
        d_.forme.push_back({v, p, indice, std::move(q), nascosta});
    }
    // Height z of the joint's axes on the plates.
    double Su(double z) const { return z - g_.zP1; }
    // Rib k seen along the secondary beam.
    QPolygonF Faccia(int k) const {
        const SagomaNervatura& r = g_.nervatura(k);
        const double s = n_.SpNerv(k) / 2.0;
        return Rett(-s, r.yRadice, s, r.yRadice + r.verso * n_.H1Nerv(k));
    }
    QPolygonF Fianco(const SagomaNervatura& r) const {
        QPolygonF q;
        for (int i = 0; i <= r.nVertici; ++i) {
            const Punto2& p = r.inNodo[static_cast<std::size_t>(i % r.nVertici)];
            q << QPointF(p[0], Su(p[1]));
        }
        return q;
    }

    void Fronte() {
        const ProfiloRec& t = n_.TraPri;
        Metti(Vista::fronte, Parte::principale, Rett(-largo_, yBase_, largo_, yBase_ + t.H));
        Metti(Vista::fronte, Parte::principale, Rett(-largo_, yBase_, largo_, yBase_ + t.tf));
        Metti(Vista::fronte, Parte::principale,
              Rett(-largo_, yBase_ + t.H - t.tf, largo_, yBase_ + t.H));
        for (int k = 1; k <= 2; ++k) {
            Metti(Vista::fronte, k == 1 ? Parte::piastra1 : Parte::piastra2,
                  Rett(g_.piastra(k).xMin, g_.piastra(k).yMin, g_.piastra(k).xMax,
                       g_.piastra(k).yMax));
        }
        Metti(Vista::fronte, Parte::nervatura3, Faccia(3), true);
        Metti(Vista::fronte, Parte::secondaria, SezioneI(n_.TraSec, 0.0, g_.yS));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            Metti(Vista::fronte, k == 1 ? Parte::nervatura1 : Parte::nervatura2, Faccia(k));
        }
    }

    void Lato() {
        const ProfiloRec& s = n_.TraSec;
        Metti(Vista::lato, Parte::principale, SezioneI(n_.TraPri, 0.0, yBase_));
        Metti(Vista::lato, Parte::nervatura3, Fianco(g_.nervatura(3)));
        Metti(Vista::lato, Parte::secondaria, Rett(g_.xS, g_.yS, zFine_, g_.yS2));
        Metti(Vista::lato, Parte::secondaria, Rett(g_.xS, g_.yS, zFine_, g_.yS + s.tf));
        Metti(Vista::lato, Parte::secondaria, Rett(g_.xS, g_.yS2 - s.tf, zFine_, g_.yS2));
        Metti(Vista::lato, Parte::piastra1, Rett(g_.xP1, 0.0, g_.xP2, n_.HPiastra(1)));
        Metti(Vista::lato, Parte::piastra2,
              Rett(g_.xP2, g_.piastra(2).yMin, g_.xS, g_.piastra(2).yMax));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            Metti(Vista::lato, k == 1 ? Parte::nervatura1 : Parte::nervatura2,
                  Fianco(g_.nervatura(k)));
        }
    }

    void Pianta() {
        const ProfiloRec &t = n_.TraPri, &s = n_.TraSec;
        Metti(Vista::pianta, Parte::principale, Rett(-largo_, -t.B / 2.0, largo_, t.B / 2.0));
        Metti(Vista::pianta, Parte::principale, Rett(-largo_, -t.tw / 2.0, largo_, t.tw / 2.0),
              true);
        Metti(Vista::pianta, Parte::nervatura3,
              Rett(-n_.SpNerv(3) / 2.0, t.tw / 2.0, n_.SpNerv(3) / 2.0, g_.xP1), true);
        Metti(Vista::pianta, Parte::secondaria, Rett(-s.B / 2.0, g_.xS, s.B / 2.0, zFine_));
        Metti(Vista::pianta, Parte::secondaria, Rett(-s.tw / 2.0, g_.xS, s.tw / 2.0, zFine_), true);
        Metti(Vista::pianta, Parte::piastra1,
              Rett(-n_.BPiastra(1) / 2.0, g_.xP1, n_.BPiastra(1) / 2.0, g_.xP2));
        Metti(Vista::pianta, Parte::piastra2,
              Rett(-n_.BPiastra(2) / 2.0, g_.xP2, n_.BPiastra(2) / 2.0, g_.xS));
        for (int k = 2; k >= 1; --k) {
            if (!n_.AttNerv(k)) continue;
            Metti(Vista::pianta, k == 1 ? Parte::nervatura1 : Parte::nervatura2,
                  Rett(-n_.SpNerv(k) / 2.0, g_.xS, n_.SpNerv(k) / 2.0, g_.xS + n_.BNerv(k)),
                  k == 2);
        }
    }

    // Strips as wide as the leg, each in the view that has its other leg along the line of sight.
    void Saldature() {
        for (const LineaSaldatura& l : LineeSaldatura(g_)) {
            const int linea = l.indice % kSpecchio + 1;
            const bool lato = (linea >= 5 && linea <= 7) || linea == 12 || linea == 14;
            if (lato && l.indice >= kSpecchio) continue;  // hidden behind the other
            const std::size_t u = lato ? 0 : 1;
            const double du = l.lato * (l.versoUno[u] + l.versoDue[u]);
            const double dz = l.lato * (l.versoUno[2] + l.versoDue[2]);
            Metti(lato ? Vista::lato : Vista::fronte, Parte::saldatura,
                  Rett(l.da[u], Su(l.da[2]), l.a[u] + du, Su(l.a[2] + dz)), false, l.indice);
        }
    }

    void Bulloni() {
        std::set<long> visti[2];  // one shank per level in the side views
        for (int i = 1; i <= n_.nBull; ++i) {
            const double x = n_.Xbull(i), y = n_.Ybull(i), r = (n_.Fibull(i) + gioco_) / 2.0;
            if (!(std::fabs(x) < 1e5 && std::fabs(y) < 1e5 && r < 1e4)) continue;
            Metti(Vista::fronte, Parte::bullone, Cerchio(x, y, r), false, i);
            const double d = n_.Fibull(i), testa = 0.7 * d;
            for (const Vista v : {Vista::lato, Vista::pianta}) {
                const double q = v == Vista::lato ? y : x;
                if (!visti[v == Vista::lato ? 0 : 1].insert(std::lround(q * 10.0)).second) continue;
                const double za = g_.xP1, zb = g_.xS;
                const auto blocco = [&](double z1, double z2, double mezzo) {
                    Metti(v, Parte::bullone,
                          v == Vista::lato ? Rett(z1, q - mezzo, z2, q + mezzo)
                                           : Rett(q - mezzo, z1, q + mezzo, z2),
                          false, i);
                };
                blocco(za - testa * 1.6, zb + testa * 0.4, d / 2.0);
                blocco(za - testa * 1.3, za, d * 0.85);
                blocco(zb, zb + testa, d * 0.85);
            }
        }
    }

    void Quota(const char* campo, Vista v, QPointF da, QPointF a, double scosta, double valore) {
        d_.quote.push_back({campo, v, da, a, scosta, valore});
    }

    void Quote() {
        const double b1 = n_.BPiastra(1) / 2.0, b2 = n_.BPiastra(2) / 2.0, H1 = n_.HPiastra(1);
        using enum Vista;
        Quota("GeoPias(0)", fronte, {-b1, 0.0}, {b1, 0.0}, -30, n_.BPiastra(1));
        Quota("GeoPias1", fronte, {-b1, 0.0}, {-b1, H1}, 30, H1);
        Quota("GeoPias(2)", lato, {g_.xP1, 0.0}, {g_.xP2, 0.0}, -30, n_.SpPiastra(1));
        Quota("GeoPias(3)", fronte, {-b2, g_.piastra(2).yMax}, {b2, g_.piastra(2).yMax}, 30,
              n_.BPiastra(2));
        Quota("GeoPias(4)", fronte, {b2, g_.piastra(2).yMin}, {b2, g_.piastra(2).yMax}, -30,
              n_.HPiastra(2));
        Quota("GeoPias(5)", lato, {g_.xP2, g_.piastra(2).yMax}, {g_.xS, g_.piastra(2).yMax}, 30,
              n_.SpPiastra(2));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            static constexpr const char* kCampi[2][4] = {
                {"GeoPias(6)", "GeoPias(7)", "GeoPias(8)", "GeoPias(9)"},
                {"GeoPias(10)", "GeoPias(11)", "GeoPias(12)", "GeoPias(13)"}};
            const auto& c = kCampi[k - 1];
            const double y = g_.nervatura(k).yRadice, v = g_.nervatura(k).verso,
                         zb = g_.xS + n_.BNerv(k);
            const double y1 = y + v * n_.H1Nerv(k), y2 = y + v * n_.H2Nerv(k);
            Quota(c[0], lato, {g_.xS, std::min(y, y1)}, {g_.xS, std::max(y, y1)},
                  -(n_.BNerv(k) + 45.0), n_.H1Nerv(k));
            Quota(c[1], lato, {zb, std::min(y, y2)}, {zb, std::max(y, y2)}, -18, n_.H2Nerv(k));
            Quota(c[2], lato, {g_.xS, y1}, {zb, y1}, k == 1 ? 30 : -30, n_.BNerv(k));
            Quota(c[3], fronte, {-n_.SpNerv(k) / 2.0, y1}, {n_.SpNerv(k) / 2.0, y1},
                  k == 1 ? 30 : -30, n_.SpNerv(k));
        }
        Quota("GeoPias(14)", pianta, {-n_.SpNerv(3) / 2.0, 0.0}, {n_.SpNerv(3) / 2.0, 0.0}, 0,
              n_.SpNerv(3));
        Quota("TextQuota(0)", fronte, {n_.TraSec.B / 2.0, g_.yS2},
              {n_.TraSec.B / 2.0, g_.piastra(2).yMax}, -18, n_.distAlaSecPiastra);
        const double zp = n_.TraPri.B / 2.0;
        Quota("TextQuota(1)", lato, {std::min(zp, g_.xP2), yBase_ + n_.TraPri.H},
              {std::max(zp, g_.xP2), yBase_ + n_.TraPri.H}, 30, n_.distPiastraTraPri);
        Quota("TextQuota(2)", lato, {zFine_, g_.yS2}, {zFine_, yBase_ + n_.TraPri.H}, -18,
              n_.distAliPriSec);
    }

    const Nodo& n_;
    const Geometria g_;
    double gioco_;
    double yBase_ = 0, zFine_ = 0, largo_ = 0;
    DisegnoNodo d_;
};

}  // namespace

DisegnoNodo ComponiDisegno(const Nodo& n, double gioco) { return Compositore(n, gioco).Fai(); }

bool ParteDelCampo(const std::string& campo, Parte& parte, int& gruppo) {
    const NomeControllo c = DividiNome(campo);
    gruppo = 0;
    if (c.base == "TraveP" || c.base == "TraveS") {
        parte = c.base == "TraveP" ? Parte::principale : Parte::secondaria;
        return true;
    }
    if (c.base == "TextSald") {
        parte = Parte::saldatura;
        gruppo = c.indice + 1;
        return true;
    }
    if (c.base != "GeoPias") return false;
    parte = c.indice <= 2    ? Parte::piastra1
            : c.indice <= 5  ? Parte::piastra2
            : c.indice <= 9  ? Parte::nervatura1
            : c.indice <= 13 ? Parte::nervatura2
                             : Parte::nervatura3;
    return true;
}

std::string CampoDellaParte(const Forma& f) {
    switch (f.parte) {
        case Parte::principale:
            return "TraveP";
        case Parte::secondaria:
            return "TraveS";
        case Parte::piastra1:
            return "GeoPias(0)";
        case Parte::piastra2:
            return "GeoPias(3)";
        case Parte::nervatura1:
            return "GeoPias(6)";
        case Parte::nervatura2:
            return "GeoPias(10)";
        case Parte::nervatura3:
            return "GeoPias(14)";
        case Parte::saldatura:
            return FamigliaLinea(f.indice) == Famiglia::saldatureS1 ? "TextSald(0)" : "TextSald(1)";
        case Parte::bullone:
            break;
    }
    return {};
}

QString NomeParte(const Forma& f) {
    switch (f.parte) {
        case Parte::principale:
            return QStringLiteral("Trave principale");
        case Parte::secondaria:
            return QStringLiteral("Trave secondaria");
        case Parte::piastra1:
            return QStringLiteral("Piastra 1");
        case Parte::piastra2:
            return QStringLiteral("Piastra 2");
        case Parte::nervatura1:
            return QStringLiteral("Nervatura 1");
        case Parte::nervatura2:
            return QStringLiteral("Nervatura 2");
        case Parte::nervatura3:
            return QStringLiteral("Nervatura 3");
        case Parte::saldatura:
            return QStringLiteral("Saldatura ") + QString::fromStdString(NomeLinea(f.indice));
        case Parte::bullone:
            break;
    }
    return QStringLiteral("Bullone %1").arg(f.indice);
}

}  // namespace tk07::desktop
