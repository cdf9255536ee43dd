#include "relazione/piano.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "relazione/carattere.h"
#include "reports/esteso_verifiche.h"
#include "verification/poligono.h"

namespace tk07 {

namespace {

constexpr int kBande = 6;
const QColor kTrazione(190, 40, 30), kCompressione(20, 70, 150), kGrigio(110, 110, 110);

QColor Banda(int k) {  // 1 faint .. kBande deep
    const double f = static_cast<double>(k) / kBande;
    return QColor::fromRgbF(static_cast<float>(0.90 - 0.62 * f),
                            static_cast<float>(0.94 - 0.50 * f),
                            static_cast<float>(1.0 - 0.25 * f));
}

class Figura {
  public:
    Figura(QPainter& p, const QRectF& dove, const PianoRel& d) : p_(p), d_(d) {
        const double x1 = std::min(d.piastra1.xMin, d.piastra2.xMin),
                     x2 = std::max(d.piastra1.xMax, d.piastra2.xMax),
                     y1 = std::min(d.piastra1.yMin, d.piastra2.yMin),
                     y2 = std::max(d.piastra1.yMax, d.piastra2.yMax);
        legenda_ = QRectF(dove.right() - 52.0 * kMmRel, dove.top(), 52.0 * kMmRel, dove.height());
        const QRectF area =
            dove.adjusted(18.0 * kMmRel, 5.0 * kMmRel, -70.0 * kMmRel, -6.0 * kMmRel);
        scala_ =
            std::min(area.width() / std::max(x2 - x1, 1.0), area.height() / std::max(y2 - y1, 1.0));
        cx_ = area.center().x() - scala_ * (x1 + x2) / 2.0;
        cy_ = area.center().y() + scala_ * (y1 + y2) / 2.0;
    }

    void Dipingi() {
        p_.save();
        Riquadro(d_.piastra1, QColor(244, 244, 244), QPen(kGrigio, 8));
        Riquadro(d_.piastra2, QColor(232, 232, 232), QPen(kGrigio, 8));
        Pressione();
        Trave();
        Riquadro(d_.piastra1, Qt::NoBrush, QPen(kGrigio, 8, Qt::DashLine));
        Riquadro(d_.comune, Qt::NoBrush, QPen(Qt::black, 14));
        AsseNeutro();
        Vertici();
        Bulloni();
        Legenda();
        p_.restore();
    }

  private:
    QPointF Su(double x, double y) const { return {cx_ + scala_ * x, cy_ - scala_ * y}; }
    QString Tensione(double s) const {
        return DaUtf8(TestoFisso(s * d_.fattoreTensione, d_.decimaliTensione));
    }
    void Riquadro(const Rettangolo& r, const QBrush& fondo, const QPen& penna) {
        p_.setPen(penna);
        p_.setBrush(fondo);
        p_.drawRect(QRectF(Su(r.xMin, r.yMax), Su(r.xMax, r.yMin)));
    }
    QPolygonF Poligono(const std::vector<PuntoPiano>& v) const {
        QPolygonF q;
        for (const PuntoPiano& a : v) q << Su(a.x, a.y);
        return q;
    }
    double Minima() const {
        double s = 0.0;
        for (const PuntoPiano& a : d_.zona) s = std::min(s, ValorePiano(d_.piano, a.x, a.y));
        return s;
    }

    void Pressione() {
        if (d_.zona.size() < 3) return;
        const double minima = Minima();
        p_.setPen(Qt::NoPen);
        for (int k = 1; k <= kBande; ++k) {
            p_.setBrush(Banda(k));
            p_.drawPolygon(Poligono(SottoLivello(d_.zona, d_.piano, minima * (k - 1.0) / kBande)));
        }
    }

    void Trave() {
        const auto [B, tw, tf, H] = d_.trave;
        const double y = d_.yAsse;
        p_.setPen(QPen(kGrigio, 7, Qt::DotLine));
        p_.setBrush(Qt::NoBrush);
        p_.drawRect(QRectF(Su(-B / 2, y + H / 2), Su(B / 2, y + H / 2 - tf)));
        p_.drawRect(QRectF(Su(-B / 2, y - H / 2 + tf), Su(B / 2, y - H / 2)));
        p_.drawRect(QRectF(Su(-tw / 2, y + H / 2 - tf), Su(tw / 2, y - H / 2 + tf)));
    }

    // The line s = 0 within the frame of both plates, a little beyond.
    void AsseNeutro() {
        const double a = d_.piano(2), b = d_.piano(1), c = d_.piano(3), q = a * a + b * b;
        const Rettangolo &r1 = d_.piastra1, &r2 = d_.piastra2;
        const double aria = 6.0 * kMmRel / scala_;
        const double x1 = std::min(r1.xMin, r2.xMin) - aria, x2 = std::max(r1.xMax, r2.xMax) + aria,
                     y1 = std::min(r1.yMin, r2.yMin) - aria / 2,
                     y2 = std::max(r1.yMax, r2.yMax) + aria / 2;
        if (!(q > 1e-30)) return;
        // Foot of the perpendicular from the frame's middle, then the interval inside the frame.
        const double mx = (x1 + x2) / 2, my = (y1 + y2) / 2, k = (a * mx + b * my + c) / q;
        const double px = mx - k * a, py = my - k * b;
        double t1 = -std::numeric_limits<double>::max(), t2 = -t1;
        const auto taglia = [&](double p, double v, double lo, double hi) {
            if (std::fabs(v) < 1e-30) {
                if (p < lo || p > hi) t2 = t1 - 1.0;
                return;
            }
            t1 = std::max(t1, std::min((lo - p) / v, (hi - p) / v));
            t2 = std::min(t2, std::max((lo - p) / v, (hi - p) / v));
        };
        taglia(px, -b, x1, x2);
        taglia(py, a, y1, y2);
        asse_ = t1 < t2;
        if (!asse_) return;
        QPointF da = Su(px - b * t1, py + a * t1), fino = Su(px - b * t2, py + a * t2);
        if (da.x() > fino.x()) std::swap(da, fino);
        p_.setPen(QPen(kTrazione, 16, Qt::DashDotLine));
        p_.drawLine(da, fino);
        p_.setPen(kTrazione);
        Scritta(fino + QPointF(1.0 * kMmRel, 0.8 * kMmRel), QStringLiteral("asse neutro"),
                Da::sinistra);
    }

    void Vertici() {
        const Rettangolo& r = d_.comune;
        p_.setPen(kGrigio);
        for (const double y : {r.yMin, r.yMax}) {
            for (const double x : {r.xMin, r.xMax}) {
                const double s = ValorePiano(d_.piano, x, y);
                const QPointF q = Su(x, y);
                const bool destra = x == r.xMax;
                const QPointF fuori(destra ? Bordo(true) - q.x() : Bordo(false) - q.x(),
                                    y == r.yMin ? 0.0 : 2.4 * kMmRel);
                Scritta(q + fuori, QStringLiteral("s ") + Tensione(s),
                        destra ? Da::sinistra : Da::destra);
            }
        }
    }
    // Clear of the plates on the right or left.
    double Bordo(bool destra) const {
        return destra ? Su(std::max(d_.piastra1.xMax, d_.piastra2.xMax), 0).x() + 1.2 * kMmRel
                      : Su(std::min(d_.piastra1.xMin, d_.piastra2.xMin), 0).x() - 1.2 * kMmRel;
    }

    void Bulloni() {
        // Forces only where they do not run into each other.
        double vicini = std::numeric_limits<double>::max(), largo = 0.0;
        for (const auto& a : d_.bulloni) {
            largo = std::max(largo, font_.Larghezza(DaUtf8(a.forza)));
            for (const auto& b : d_.bulloni) {
                if (&a == &b || std::fabs(a.y - b.y) * scala_ > 3.5 * kMmRel) continue;
                vicini = std::min(vicini, std::fabs(a.x - b.x) * scala_);
            }
        }
        forze_ = vicini > largo + 1.0 * kMmRel;
        for (const auto& b : d_.bulloni) {
            const QPointF q = Su(b.x, b.y);
            const double r = std::max(scala_ * b.d / 2.0, 0.7 * kMmRel);
            p_.setPen(QPen(Qt::black, 8));
            p_.setBrush(b.sigma > 0.0 ? kTrazione.lighter(165) : kCompressione.lighter(190));
            p_.drawEllipse(q, r, r);
            p_.setPen(Qt::black);
            Scritta(q + QPointF(0.0, 0.75 * kMmRel), QString::number(b.numero), Da::centro);
            if (!forze_) continue;
            p_.setPen(b.sigma > 0.0 ? kTrazione.darker(130) : kCompressione);
            Scritta(q + QPointF(0.0, r + 2.5 * kMmRel), DaUtf8(b.forza), Da::centro, true);
        }
    }

    void Legenda() {
        double y = legenda_.top() + 4.0 * kMmRel;
        const double x = legenda_.left();
        const auto riga = [&](const QString& t, const QColor& c = Qt::black) {
            p_.setPen(c);
            for (const QString& r : font_.Righe(t, legenda_.width())) {
                p_.setFont(font_.Font());
                p_.drawText(QPointF(x, y), r);
                y += 3.4 * kMmRel;
            }
            y += 1.0 * kMmRel;
        };
        riga(QStringLiteral("s(x, y) = c1·y + c2·x + c3, trazione positiva, in ") +
             DaUtf8(d_.unitaTensione) + QStringLiteral("; valori s ai vertici dell'area comune."));
        if (forze_) {
            riga(QStringLiteral("Presso i bulloni la forza A·Sigma in ") + DaUtf8(d_.unitaForza) +
                 ".");
        } else {
            riga(QStringLiteral("Forze dei bulloni nella tabella che segue."));
        }
        riga(QStringLiteral("Rosso: teso. Azzurro: compresso."));
        if (!asse_) riga(QStringLiteral("Asse neutro fuori delle piastre."));
        riga(QStringLiteral(
            "Tratteggio: piastra 1. Puntinato: trave secondaria. Linea grossa: area comune."));
        const double minima = Minima();
        if (d_.zona.size() < 3) {
            riga(QStringLiteral("Nessuna zona di contatto: le piastre si staccano."));
            return;
        }
        riga(QStringLiteral("Zona di contatto, pressione in ") + DaUtf8(d_.unitaTensione) + ":");
        y -= 1.5 * kMmRel;
        for (int k = 1; k <= kBande; ++k) {
            p_.setPen(QPen(kGrigio, 4));
            p_.setBrush(Banda(k));
            p_.drawRect(QRectF(x, y, 7.0 * kMmRel, 3.6 * kMmRel));
            p_.setPen(Qt::black);
            p_.drawText(QPointF(x + 9.0 * kMmRel, y + 2.7 * kMmRel),
                        Tensione(minima * (k - 1.0) / kBande) + QStringLiteral(" … ") +
                            Tensione(minima * k / kBande));
            y += 3.6 * kMmRel;
        }
    }

    enum class Da { sinistra, centro, destra };
    void Scritta(QPointF q, const QString& t, Da da, bool fondo = false) {
        const double w = font_.Larghezza(t);
        if (da != Da::sinistra) q.rx() -= da == Da::centro ? w / 2.0 : w;
        if (fondo) {
            p_.fillRect(QRectF(q.x() - 6, q.y() - 0.78 * font_.Corpo(), w + 12, font_.Corpo()),
                        QColor(255, 255, 255, 235));
        }
        p_.setFont(font_.Font());
        p_.drawText(q, t);
    }

    QPainter& p_;
    const PianoRel& d_;
    QRectF legenda_;
    double scala_ = 1.0, cx_ = 0.0, cy_ = 0.0;
    bool asse_ = false, forze_ = true;
    const Carattere font_{6.5, Carattere::Peso::normale};
};

}  // namespace

void DipingiPiano(QPainter& p, const QRectF& dove, const PianoRel& piano) {
    Figura(p, dove, piano).Dipingi();
}

}  // namespace tk07
