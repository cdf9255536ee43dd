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
    Compositore(const Nodo& n, double gioco) : n_(n), gioco_(gioco) {
        yBase_ = n.HPiastra(1) / 2.0 - n.TraPri.H / 2.0;  // lower side of the main beam
        ySec_ = AsseSecondaria(n) - n.TraSec.H / 2.0;
        yTop_ = ySec_ + n.TraSec.H;
        cima2_ = CimaPiastra2(n);
        zf_ = n.TraPri.B / 2.0 + n.distPiastraTraPri;  // between the plates
        zs_ = zf_ + n.SpPiastra(2);
        const double nerv =
            std::max(n.AttNerv(1) ? n.BNerv(1) : 0.0, n.AttNerv(2) ? n.BNerv(2) : 0.0);
        zFine_ = zs_ + std::max(nerv * 1.25, 0.5 * n.TraSec.H) + 20.0;
        largo_ = std::max({n.BPiastra(1), n.BPiastra(2), n.TraSec.B}) / 2.0 * 1.25 + 20.0;
    }

    DisegnoNodo Fai() {
        try {
            Risultati ris;
            LunghezzeSaldature(n_, ris);
            for (int j = 0; j < 15; ++j) lung_[j] = ris.LungSald(j);
        } catch (const GrandezzaNulla&) {  // drawn without welds
        }
        Fronte();
        Lato();
        Pianta();
        Saldature();
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
    double Sotto(int k) const { return k == 1 ? 0.0 : cima2_ - n_.HPiastra(2); }
    double Sopra(int k) const { return k == 1 ? n_.HPiastra(1) : cima2_; }
    // Rib 1 stands on the upper flange, rib 2 hangs from the lower one.
    double RadiceNervatura(int k) const { return k == 1 ? yTop_ : ySec_; }

    void Fronte() {
        const ProfiloRec& t = n_.TraPri;
        Metti(Vista::fronte, Parte::principale, Rett(-largo_, yBase_, largo_, yBase_ + t.H));
        Metti(Vista::fronte, Parte::principale, Rett(-largo_, yBase_, largo_, yBase_ + t.tf));
        Metti(Vista::fronte, Parte::principale,
              Rett(-largo_, yBase_ + t.H - t.tf, largo_, yBase_ + t.H));
        for (int k = 1; k <= 2; ++k) {
            Metti(Vista::fronte, k == 1 ? Parte::piastra1 : Parte::piastra2,
                  Rett(-n_.BPiastra(k) / 2.0, Sotto(k), n_.BPiastra(k) / 2.0, Sopra(k)));
        }
        const double m = n_.HPiastra(1) / 2.0, h = n_.H1Nerv(3) / 2.0, s = n_.SpNerv(3) / 2.0;
        Metti(Vista::fronte, Parte::nervatura3, Rett(-s, m - h, s, m + h), true);
        Metti(Vista::fronte, Parte::secondaria, SezioneI(n_.TraSec, 0.0, ySec_));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            const double y = RadiceNervatura(k), verso = k == 1 ? 1.0 : -1.0;
            Metti(Vista::fronte, k == 1 ? Parte::nervatura1 : Parte::nervatura2,
                  Rett(-n_.SpNerv(k) / 2.0, y, n_.SpNerv(k) / 2.0, y + verso * n_.H1Nerv(k)));
        }
    }

    void Lato() {
        const ProfiloRec& s = n_.TraSec;
        Metti(Vista::lato, Parte::principale, SezioneI(n_.TraPri, 0.0, yBase_));
        const double m = n_.HPiastra(1) / 2.0, h = n_.H1Nerv(3) / 2.0;
        const double z1 = n_.TraPri.tw / 2.0, z2 = zf_ - n_.SpPiastra(1), c = n_.SmussoNerv(3);
        Metti(Vista::lato, Parte::nervatura3,
              QPolygonF({{z1 + c, m - h},
                         {z2, m - h},
                         {z2, m + h},
                         {z1 + c, m + h},
                         {z1, m + h - c},
                         {z1, m - h + c},
                         {z1 + c, m - h}}));
        Metti(Vista::lato, Parte::secondaria, Rett(zs_, ySec_, zFine_, yTop_));
        Metti(Vista::lato, Parte::secondaria, Rett(zs_, ySec_, zFine_, ySec_ + s.tf));
        Metti(Vista::lato, Parte::secondaria, Rett(zs_, yTop_ - s.tf, zFine_, yTop_));
        Metti(Vista::lato, Parte::piastra1, Rett(zf_ - n_.SpPiastra(1), 0.0, zf_, n_.HPiastra(1)));
        Metti(Vista::lato, Parte::piastra2, Rett(zf_, Sotto(2), zs_, Sopra(2)));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            const double y = RadiceNervatura(k), verso = k == 1 ? 1.0 : -1.0;
            Metti(Vista::lato, k == 1 ? Parte::nervatura1 : Parte::nervatura2,
                  QPolygonF({{zs_, y},
                             {zs_, y + verso * n_.H1Nerv(k)},
                             {zs_ + n_.BNerv(k), y + verso * n_.H2Nerv(k)},
                             {zs_ + n_.BNerv(k), y},
                             {zs_, y}}));
        }
    }

    void Pianta() {
        const ProfiloRec &t = n_.TraPri, &s = n_.TraSec;
        Metti(Vista::pianta, Parte::principale, Rett(-largo_, -t.B / 2.0, largo_, t.B / 2.0));
        Metti(Vista::pianta, Parte::principale, Rett(-largo_, -t.tw / 2.0, largo_, t.tw / 2.0),
              true);
        Metti(Vista::pianta, Parte::nervatura3,
              Rett(-n_.SpNerv(3) / 2.0, t.tw / 2.0, n_.SpNerv(3) / 2.0, zf_ - n_.SpPiastra(1)),
              true);
        Metti(Vista::pianta, Parte::secondaria, Rett(-s.B / 2.0, zs_, s.B / 2.0, zFine_));
        Metti(Vista::pianta, Parte::secondaria, Rett(-s.tw / 2.0, zs_, s.tw / 2.0, zFine_), true);
        Metti(Vista::pianta, Parte::piastra1,
              Rett(-n_.BPiastra(1) / 2.0, zf_ - n_.SpPiastra(1), n_.BPiastra(1) / 2.0, zf_));
        Metti(Vista::pianta, Parte::piastra2,
              Rett(-n_.BPiastra(2) / 2.0, zf_, n_.BPiastra(2) / 2.0, zs_));
        for (int k = 2; k >= 1; --k) {
            if (!n_.AttNerv(k)) continue;
            Metti(Vista::pianta, k == 1 ? Parte::nervatura1 : Parte::nervatura2,
                  Rett(-n_.SpNerv(k) / 2.0, zs_, n_.SpNerv(k) / 2.0, zs_ + n_.BNerv(k)), k == 2);
        }
    }

    // Strip of a weld line, as wide as its leg.
    void Linea(Vista v, int linea, double x1, double y1, double x2, double y2, double lato,
               bool specchio) {
        if (!(lung_[linea - 1] > 0.0001)) return;
        const double h = lato / 2.0;
        const bool verticale = std::fabs(x2 - x1) < std::fabs(y2 - y1);
        const auto striscia = [&](double segno) {
            return verticale ? Rett(segno * x1 - h, y1, segno * x1 + h, y2)
                             : Rett(segno * x1, y1 - h, segno * x2, y1 + h);
        };
        Metti(v, Parte::saldatura, striscia(1.0), false, linea - 1);
        if (specchio && v == Vista::fronte) {
            Metti(v, Parte::saldatura, striscia(-1.0), false, linea - 1 + kSpecchio);
        }
    }

    void Saldature() {
        const ProfiloRec &s = n_.TraSec, &t = n_.TraPri;
        const double a1 = n_.spSaldS1, a2 = n_.spSaldS2, ym = AsseSecondaria(n_);
        const auto L = [&](int l) { return lung_[l - 1]; };
        const double x1 = s.tw / 2.0 + a1 / 2.0;
        Linea(Vista::fronte, 1, x1, ym - L(1) / 2.0, x1, ym + L(1) / 2.0, a1, true);
        Linea(Vista::fronte, 2, s.B / 2.0 - L(2), yTop_ - s.tf - a1 / 2.0, s.B / 2.0,
              yTop_ - s.tf - a1 / 2.0, a1, true);
        Linea(Vista::fronte, 3, s.B / 2.0 - L(3), ySec_ + s.tf + a1 / 2.0, s.B / 2.0,
              ySec_ + s.tf + a1 / 2.0, a1, true);
        for (int k = 1; k <= 2; ++k) {
            const double verso = k == 1 ? 1.0 : -1.0, y = RadiceNervatura(k);
            const double yl = y + verso * a1 / 2.0;
            if (PiastraSporge(n_, k)) {
                const bool due = n_.AttNerv(k);
                Linea(Vista::fronte, 9 + k, due ? s.B / 2.0 - L(9 + k) : -s.B / 2.0, yl, s.B / 2.0,
                      yl, a1, due);
            }
            if (!n_.AttNerv(k)) continue;
            const double xv = n_.SpNerv(k) / 2.0 + a1 / 2.0, lv = L(11 + 2 * k);
            Linea(Vista::fronte, 11 + 2 * k, xv, y + verso * a1, xv, y + verso * (a1 + lv), a1,
                  true);
            Linea(Vista::lato, 10 + 2 * k, zs_ + n_.BNerv(k) - L(10 + 2 * k), yl, zs_ + n_.BNerv(k),
                  yl, a1, false);
        }
        const double m = n_.HPiastra(1) / 2.0, x4 = n_.SpNerv(3) / 2.0 + a2 / 2.0;
        const double yAla = t.H / 2.0 - t.tf - a2 / 2.0, xB = n_.BPiastra(1) / 2.0;
        Linea(Vista::fronte, 4, x4, m - L(4) / 2.0, x4, m + L(4) / 2.0, a2, true);
        Linea(Vista::fronte, 8, xB - L(8), m + yAla, xB, m + yAla, a2, true);
        Linea(Vista::fronte, 9, xB - L(9), m - yAla, xB, m - yAla, a2, true);
        const double z0 = t.tw / 2.0, z1 = zf_ - n_.SpPiastra(1) - a2;
        Linea(Vista::lato, 5, z1 - L(5), m + yAla, z1, m + yAla, a2, false);
        Linea(Vista::lato, 7, z1 - L(7), m - yAla, z1, m - yAla, a2, false);
        Linea(Vista::lato, 6, z0 + a2 / 2.0, m - L(6) / 2.0, z0 + a2 / 2.0, m + L(6) / 2.0, a2,
              false);
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
                const double za = zf_ - n_.SpPiastra(1), zb = zs_;
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
        Quota("GeoPias(2)", lato, {zf_ - n_.SpPiastra(1), 0.0}, {zf_, 0.0}, -30, n_.SpPiastra(1));
        Quota("GeoPias(3)", fronte, {-b2, cima2_}, {b2, cima2_}, 30, n_.BPiastra(2));
        Quota("GeoPias(4)", fronte, {b2, Sotto(2)}, {b2, cima2_}, -30, n_.HPiastra(2));
        Quota("GeoPias(5)", lato, {zf_, cima2_}, {zs_, cima2_}, 30, n_.SpPiastra(2));
        for (int k = 1; k <= 2; ++k) {
            if (!n_.AttNerv(k)) continue;
            static constexpr const char* kCampi[2][4] = {
                {"GeoPias(6)", "GeoPias(7)", "GeoPias(8)", "GeoPias(9)"},
                {"GeoPias(10)", "GeoPias(11)", "GeoPias(12)", "GeoPias(13)"}};
            const auto& c = kCampi[k - 1];
            const double y = RadiceNervatura(k), v = k == 1 ? 1.0 : -1.0, zb = zs_ + n_.BNerv(k);
            const double y1 = y + v * n_.H1Nerv(k), y2 = y + v * n_.H2Nerv(k);
            Quota(c[0], lato, {zs_, std::min(y, y1)}, {zs_, std::max(y, y1)}, -(n_.BNerv(k) + 45.0),
                  n_.H1Nerv(k));
            Quota(c[1], lato, {zb, std::min(y, y2)}, {zb, std::max(y, y2)}, -18, n_.H2Nerv(k));
            Quota(c[2], lato, {zs_, y1}, {zb, y1}, k == 1 ? 30 : -30, n_.BNerv(k));
            Quota(c[3], fronte, {-n_.SpNerv(k) / 2.0, y1}, {n_.SpNerv(k) / 2.0, y1},
                  k == 1 ? 30 : -30, n_.SpNerv(k));
        }
        Quota("GeoPias(14)", pianta, {-n_.SpNerv(3) / 2.0, 0.0}, {n_.SpNerv(3) / 2.0, 0.0}, 0,
              n_.SpNerv(3));
        Quota("TextQuota(0)", fronte, {n_.TraSec.B / 2.0, yTop_}, {n_.TraSec.B / 2.0, cima2_}, -18,
              n_.distAlaSecPiastra);
        const double zp = n_.TraPri.B / 2.0;
        Quota("TextQuota(1)", lato, {std::min(zp, zf_), yBase_ + n_.TraPri.H},
              {std::max(zp, zf_), yBase_ + n_.TraPri.H}, 30, n_.distPiastraTraPri);
        Quota("TextQuota(2)", lato, {zFine_, yTop_}, {zFine_, yBase_ + n_.TraPri.H}, -18,
              n_.distAliPriSec);
    }

    const Nodo& n_;
    double gioco_;
    double yBase_ = 0, ySec_ = 0, yTop_ = 0, cima2_ = 0, zf_ = 0, zs_ = 0, zFine_ = 0, largo_ = 0;
    double lung_[15] = {};
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
