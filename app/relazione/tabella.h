#pragma once

#include <memory>

#include "relazione/impagina.h"

namespace tk07 {

// A table measured for a width: columns, wrapped cells, heights. Rows from..to are drawn below the
// head, which stands again on every page.
class TabellaPosta {
  public:
    TabellaPosta(const TabellaRel& t, const CaratteriRel& c, double largo);
    std::size_t Righe() const { return altezze_.size(); }
    double Capo() const { return capo_; }
    double Altezza(std::size_t da, std::size_t a) const;  // rows da..a-1, without the head
    void Disegna(QPainter& p, double x, double y, std::size_t da, std::size_t a) const;

  private:
    void Misura(double largo, bool stretta);
    const TabellaRel& t_;
    const CaratteriRel& c_;
    const Carattere* testo_ = nullptr;
    const Carattere* forte_ = nullptr;
    double riga_ = 0.0, capo_ = 0.0, totale_ = 0.0;
    std::vector<double> larghezze_, altezze_;
};

}  // namespace tk07
