#pragma once

#include <QPointF>
#include <QString>
#include <memory>
#include <vector>

#include "relazione/carattere.h"

class QPainter;

namespace tk07 {

// The fonts of a formula: base size and the smaller one of indices and exponents.
struct CaratteriFormula {
    const Carattere* base = nullptr;
    const Carattere* piccolo = nullptr;
};

// One line in the notation of formula lines, a_{b} a^{b} \frac{a}{b} \sqrt{a}, measured and ready
// to be drawn. What is not closed counts as closed at the end; any other text stands for itself.
class Formula {
  public:
    Formula(const QString& testo, const CaratteriFormula& caratteri);
    ~Formula();
    Formula(Formula&&) noexcept;
    Formula& operator=(Formula&&) noexcept;
    double Larghezza() const { return larghezza_; }
    double Salita() const { return salita_; }    // above the base line
    double Discesa() const { return discesa_; }  // below it
    double Altezza() const { return salita_ + discesa_; }
    // In the painter's pen colour.
    void Disegna(QPainter& p, const QPointF& base) const;

  private:
    struct Pezzo;
    void Leggi(const QString& t, qsizetype& i, bool annidata, const CaratteriFormula& caratteri);
    Formula();
    std::vector<Pezzo> pezzi_;
    double larghezza_ = 0.0, salita_ = 0.0, discesa_ = 0.0;
};

}  // namespace tk07
