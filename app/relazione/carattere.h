#pragma once

#include <QFont>
#include <QString>
#include <string>
#include <unordered_map>

#include "base/testo.h"
#include "base/visibile.h"

class QPainter;
class QPointF;

namespace tk07 {

// Lengths of the report's lay-out: 1/20 of a point, so that fonts have whole sizes.
inline constexpr int kPuntiRelazione = 1440;  // units an inch
inline constexpr double kMmRel = kPuntiRelazione / 25.4;
inline constexpr double kPtRel = 20.0;

// One font at one size with the widths of its characters: measuring thousands of cells must not
// shape each of them. Kerning is off, so that a width is the sum of its characters'.
class Carattere {
  public:
    enum class Peso { normale, grassetto };
    Carattere(double punti, Peso peso);
    double Larghezza(const QString& t) const;
    double Altezza() const { return altezza_; }  // of a line
    double Salita() const { return salita_; }    // of its base line
    double Corpo() const { return corpo_; }
    Peso peso() const { return peso_; }
    const QFont& Font() const { return font_; }
    // Words on lines no wider than `largo`; a word that is wider is cut.
    QStringList Righe(const QString& t, double largo) const;

  private:
    QFont font_;
    Peso peso_;
    double corpo_ = 0.0, altezza_ = 0.0, salita_ = 0.0;
    mutable std::unordered_map<char16_t, double> larghezze_;
};

inline QString DaUtf8(const std::string& t) {
    return QString::fromStdString(SenzaControlli(t, Righe::tante));
}

}  // namespace tk07
