#include "relazione/carattere.h"

#include <QFontMetricsF>
#include <QStringList>
#include <cmath>

namespace tk07 {

Carattere::Carattere(double punti, Peso peso) : font_("DejaVu Sans"), peso_(peso) {
    corpo_ = std::round(punti * kPtRel);
    font_.setPixelSize(static_cast<int>(corpo_));
    font_.setBold(peso == Peso::grassetto);
    font_.setKerning(false);
    // Any spacing keeps the toolkit from joining letters: "fi" as one glyph could not be searched
    // for.
    font_.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64.0);
    font_.setHintingPreference(QFont::PreferNoHinting);
    font_.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::NoSubpixelAntialias));
    const QFontMetricsF m(font_);
    salita_ = m.ascent();
    altezza_ = m.ascent() + m.descent();
}

double Carattere::Larghezza(const QString& t) const {
    double w = 0.0;
    for (const QChar c : t) {
        const auto [dove, nuovo] = larghezze_.try_emplace(c.unicode(), 0.0);
        if (nuovo) dove->second = QFontMetricsF(font_).horizontalAdvance(c);
        w += dove->second;
    }
    return w;
}

QStringList Carattere::Righe(const QString& t, double largo) const {
    QStringList righe;
    QString riga;
    for (QString parola : t.split(QLatin1Char(' '))) {
        const QString prova = riga.isEmpty() ? parola : riga + QLatin1Char(' ') + parola;
        if (Larghezza(prova) <= largo) {
            riga = prova;
            continue;
        }
        if (!riga.isEmpty()) righe << riga;
        while (Larghezza(parola) > largo && parola.size() > 1) {
            qsizetype n = parola.size() - 1;
            while (n > 1 && Larghezza(parola.left(n)) > largo) --n;
            righe << parola.left(n);
            parola = parola.mid(n);
        }
        riga = parola;
    }
    righe << riga;
    return righe;
}

}  // namespace tk07
