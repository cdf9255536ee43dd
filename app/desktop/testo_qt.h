#pragma once

#include <QString>
#include <string>

namespace tk07::desktop {

inline QString Q(const std::string& testo) { return QString::fromStdString(testo); }
inline std::string S(const QString& testo) { return testo.toStdString(); }
// A measure for people: at most two decimals, a point, whatever the locale.
inline QString Misura(double x) {
    QString t = QString::number(x, 'f', 2);
    while (t.endsWith(QLatin1Char('0'))) t.chop(1);
    if (t.endsWith(QLatin1Char('.'))) t.chop(1);
    return t == QLatin1String("-0") ? QStringLiteral("0") : t;
}
// A ratio with two decimals, rounded up above 1 so that a failing check never reads "1.00".
QString RapportoMostrato(double r);

}  // namespace tk07::desktop
