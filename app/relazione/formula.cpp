#include "relazione/formula.h"

#include <QPainter>
#include <algorithm>

namespace tk07 {

enum class TipoPezzo { testo, indice, esponente, frazione, radice };

struct Formula::Pezzo {
    TipoPezzo tipo = TipoPezzo::testo;
    double x = 0.0;
    QString testo;
    const Carattere* carattere = nullptr;
    std::vector<Formula> parti;
};

Formula::Formula() = default;
Formula::~Formula() = default;
Formula::Formula(Formula&&) noexcept = default;
Formula& Formula::operator=(Formula&&) noexcept = default;

Formula::Formula(const QString& testo, const CaratteriFormula& caratteri) {
    qsizetype i = 0;
    Leggi(testo, i, false, caratteri);
}

namespace {

// Parts of the base size.
constexpr double kAsse = 0.30;                      // height of a fraction's bar
constexpr double kAria = 0.13, kSottoBarra = 0.22;  // between bar and text, and beside it
constexpr double kIndice = 0.18;                    // an index is lowered by this much
constexpr double kEsponente = 0.38;                 // and an exponent raised
constexpr double kRadice = 0.60;                    // width of the root sign
constexpr double kMaiuscola = 0.73, kGamba = 0.22;  // of the letters

}  // namespace

// NOLINTNEXTLINE(misc-no-recursion): as deep as the braces of a formula
void Formula::Leggi(const QString& t, qsizetype& i, bool annidata,
                    const CaratteriFormula& caratteri) {
    const Carattere& base = *caratteri.base;
    const double corpo = base.Corpo();
    const auto ingombro = [&](double su, double giu) {
        salita_ = std::max(salita_, su);
        discesa_ = std::max(discesa_, giu);
    };
    ingombro(kMaiuscola * corpo, kGamba * corpo);
    const auto gruppo = [&](const CaratteriFormula& con) {
        Formula f;
        f.Leggi(t, i, true, con);
        return f;
    };
    QString testo;
    const auto chiudiTesto = [&] {
        if (testo.isEmpty()) return;
        Pezzo p;
        p.x = larghezza_;
        p.testo = testo;
        p.carattere = &base;
        larghezza_ += base.Larghezza(testo);
        pezzi_.push_back(std::move(p));
        testo.clear();
    };
    const auto inizia = [&](const char* segno) {
        const QLatin1String s(segno);
        if (t.mid(i, s.size()) != s) return false;
        i += s.size();
        chiudiTesto();
        return true;
    };
    while (i < t.size()) {
        if (annidata && t[i] == QLatin1Char('}')) {
            ++i;
            break;
        }
        Pezzo p;
        if (inizia("_{") || inizia("^{")) {
            p.tipo = t[i - 2] == QLatin1Char('_') ? TipoPezzo::indice : TipoPezzo::esponente;
            p.parti.push_back(gruppo({caratteri.piccolo, caratteri.piccolo}));
            const Formula& f = p.parti[0];
            const double y = p.tipo == TipoPezzo::indice ? -kIndice * corpo : kEsponente * corpo;
            ingombro(f.salita_ + y, f.discesa_ - y);
            p.x = larghezza_;
            larghezza_ += f.larghezza_ + 0.05 * corpo;
        } else if (inizia("\\frac{")) {
            p.tipo = TipoPezzo::frazione;
            p.parti.push_back(gruppo(caratteri));
            if (i < t.size() && t[i] == QLatin1Char('{')) ++i;
            p.parti.push_back(gruppo(caratteri));
            const Formula &a = p.parti[0], &b = p.parti[1];
            ingombro(kAsse * corpo + kAria * corpo + a.Altezza(),
                     b.Altezza() + kSottoBarra * corpo - kAsse * corpo);
            p.x = larghezza_;
            larghezza_ += std::max(a.larghezza_, b.larghezza_) + 2.0 * kAria * corpo;
        } else if (inizia("\\sqrt{")) {
            p.tipo = TipoPezzo::radice;
            p.parti.push_back(gruppo(caratteri));
            const Formula& f = p.parti[0];
            ingombro(f.salita_ + 0.18 * corpo, f.discesa_);
            p.x = larghezza_;
            larghezza_ += f.larghezza_ + kRadice * corpo + 0.1 * corpo;
        } else {
            testo += t[i++];
            continue;
        }
        p.carattere = &base;
        pezzi_.push_back(std::move(p));
    }
    chiudiTesto();
}

// NOLINTNEXTLINE(misc-no-recursion)
void Formula::Disegna(QPainter& p, const QPointF& o) const {
    for (const Pezzo& z : pezzi_) {
        const double corpo = z.carattere->Corpo(), x = o.x() + z.x;
        const QPen testo = p.pen();
        const auto linea = [&] {
            p.setPen(QPen(testo.color(), 0.055 * corpo, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        };
        switch (z.tipo) {
            case TipoPezzo::testo:
                p.setFont(z.carattere->Font());
                p.drawText(QPointF(x, o.y()), z.testo);
                break;
            case TipoPezzo::indice:
                z.parti[0].Disegna(p, {x, o.y() + kIndice * corpo});
                break;
            case TipoPezzo::esponente:
                z.parti[0].Disegna(p, {x, o.y() - kEsponente * corpo});
                break;
            case TipoPezzo::frazione: {
                const Formula &a = z.parti[0], &b = z.parti[1];
                const double largo = std::max(a.larghezza_, b.larghezza_) + 2.0 * kAria * corpo;
                const double y = o.y() - kAsse * corpo;
                a.Disegna(p, {x + (largo - a.larghezza_) / 2.0, y - kAria * corpo - a.discesa_});
                b.Disegna(p,
                          {x + (largo - b.larghezza_) / 2.0, y + kSottoBarra * corpo + b.salita_});
                linea();
                p.drawLine(QPointF(x + 0.03 * corpo, y), QPointF(x + largo - 0.03 * corpo, y));
                break;
            }
            case TipoPezzo::radice: {
                const Formula& f = z.parti[0];
                const double su = o.y() - f.salita_ - 0.1 * corpo, giu = o.y() + f.discesa_;
                const double r = kRadice * corpo;
                linea();
                p.drawPolyline(
                    QPolygonF({QPointF(x, o.y() - 0.25 * corpo), QPointF(x + 0.35 * r, giu),
                               QPointF(x + 0.85 * r, su), QPointF(x + r + f.larghezza_, su)}));
                p.setPen(testo);
                f.Disegna(p, {x + r, o.y()});
                break;
            }
        }
        p.setPen(testo);
    }
}

}  // namespace tk07
