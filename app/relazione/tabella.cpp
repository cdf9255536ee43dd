#include "relazione/tabella.h"

#include <QPainter>
#include <algorithm>
#include <numeric>

#include "relazione/formula.h"

namespace tk07 {

namespace {

constexpr double kLato = 1.3 * kMmRel;  // free at both sides of a cell
constexpr double kMinimaTesto = 18.0 * kMmRel;
const QColor kNegativo(175, 20, 20), kFondo(244, 246, 249), kCapo(222, 228, 236);

}  // namespace

TabellaPosta::TabellaPosta(const TabellaRel& t, const CaratteriRel& c, double largo)
    : t_(t), c_(c) {
    Misura(largo, false);
    if (totale_ > largo * 1.0001) Misura(largo, true);
}

void TabellaPosta::Misura(double largo, bool stretta) {
    testo_ = stretta ? &c_.stretta : &c_.tabella;
    forte_ = stretta ? &c_.capoStretta : &c_.capo;
    riga_ = testo_->Altezza() * 1.16;
    const std::size_t n = t_.colonne.size();
    larghezze_.assign(n, 0.0);
    double capo = 0.0;
    for (std::size_t k = 0; k < n; ++k) {
        const Formula f(DaUtf8(t_.colonne[k].titolo), {forte_, &c_.indiceForte});
        larghezze_[k] = f.Larghezza();
        capo = std::max(capo, f.Altezza());
    }
    capo_ = capo + 1.6 * kMmRel;
    for (const RigaRel& r : t_.righe) {
        for (std::size_t k = 0; k < std::min(n, r.celle.size()); ++k) {
            larghezze_[k] = std::max(larghezze_[k], testo_->Larghezza(DaUtf8(r.celle[k])));
        }
    }
    for (double& w : larghezze_) w += 2.0 * kLato;
    totale_ = std::accumulate(larghezze_.begin(), larghezze_.end(), 0.0);
    // What is too much comes off the text columns, the widest first.
    while (totale_ > largo) {
        std::size_t piu = n;
        for (std::size_t k = 0; k < n; ++k) {
            if (t_.colonne[k].testo && larghezze_[k] > kMinimaTesto &&
                (piu == n || larghezze_[k] > larghezze_[piu])) {
                piu = k;
            }
        }
        if (piu == n) break;
        const double meno = std::min({totale_ - largo, larghezze_[piu] - kMinimaTesto,
                                      std::max(larghezze_[piu] * 0.1, 1.0)});
        larghezze_[piu] -= meno;
        totale_ -= meno;
    }
    // A little air when there is room, never stretched over the whole page.
    const double aria = std::min((largo - totale_) / static_cast<double>(n), 4.0 * kMmRel);
    if (aria > 0.0) {
        for (double& w : larghezze_) w += aria;
        totale_ += aria * static_cast<double>(n);
    }
    altezze_.clear();
    for (const RigaRel& r : t_.righe) {
        qsizetype righe = 1;
        for (std::size_t k = 0; k < std::min(n, r.celle.size()); ++k) {
            if (!t_.colonne[k].testo) continue;
            const QString cella = DaUtf8(r.celle[k]);
            const double dentro = larghezze_[k] - 2.0 * kLato + 0.5;
            if (testo_->Larghezza(cella) <= dentro) continue;
            righe = std::max(righe, testo_->Righe(cella, dentro).size());
        }
        altezze_.push_back(riga_ * static_cast<double>(righe));
    }
}

double TabellaPosta::Altezza(std::size_t da, std::size_t a) const {
    double h = 0.0;
    for (std::size_t i = da; i < a; ++i) h += altezze_[i];
    return h;
}

void TabellaPosta::Disegna(QPainter& p, double x, double y, std::size_t da, std::size_t a) const {
    const std::size_t n = t_.colonne.size();
    p.fillRect(QRectF(x, y, totale_, capo_), kCapo);
    p.setPen(Qt::black);
    double cx = x;
    for (std::size_t k = 0; k < n; ++k) {
        const Formula f(DaUtf8(t_.colonne[k].titolo), {forte_, &c_.indiceForte});
        const double dx = t_.colonne[k].testo ? kLato : larghezze_[k] - kLato - f.Larghezza();
        f.Disegna(p, {cx + dx, y + capo_ - f.Discesa() - 0.8 * kMmRel});
        cx += larghezze_[k];
    }
    double cy = y + capo_;
    for (std::size_t i = da; i < a; ++i) {
        const RigaRel& r = t_.righe[i];
        if (i / t_.insieme % 2 == 1) p.fillRect(QRectF(x, cy, totale_, altezze_[i]), kFondo);
        p.setFont(testo_->Font());
        p.setPen(r.negativa ? kNegativo : QColor(Qt::black));
        cx = x;
        const double base = cy + testo_->Salita() + 0.08 * testo_->Altezza();
        for (std::size_t k = 0; k < std::min(n, r.celle.size()); ++k) {
            const QString cella = DaUtf8(r.celle[k]);
            const double w = cella.isEmpty() ? 0.0 : testo_->Larghezza(cella);
            const double dentro = larghezze_[k] - 2.0 * kLato + 0.5;
            if (!t_.colonne[k].testo) {
                if (w > 0.0) p.drawText(QPointF(cx + larghezze_[k] - kLato - w, base), cella);
            } else if (w <= dentro) {
                if (w > 0.0) p.drawText(QPointF(cx + kLato, base), cella);
            } else {
                double yr = base;
                for (const QString& pezzo : testo_->Righe(cella, dentro)) {
                    p.drawText(QPointF(cx + kLato, yr), pezzo);
                    yr += riga_;
                }
            }
            cx += larghezze_[k];
        }
        cy += altezze_[i];
    }
    p.setPen(QPen(QColor(120, 130, 145), 6));
    p.drawLine(QPointF(x, y), QPointF(x + totale_, y));
    p.drawLine(QPointF(x, cy), QPointF(x + totale_, cy));
}

}  // namespace tk07
