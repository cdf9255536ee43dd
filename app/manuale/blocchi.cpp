#include "manuale/blocchi.h"

#include <QRegularExpression>

namespace tk07::manuale {

namespace {

// Cells of a table's line; a bar behind a backslash belongs to its cell.
QStringList Celle(const QString& riga) {
    QStringList celle;
    QString cella;
    const QString dentro = riga.trimmed().mid(1);
    for (qsizetype i = 0; i < dentro.size(); ++i) {
        if (dentro[i] == QLatin1Char('\\') && i + 1 < dentro.size() &&
            dentro[i + 1] == QLatin1Char('|')) {
            cella += dentro[++i];
        } else if (dentro[i] == QLatin1Char('|')) {
            celle << cella.trimmed();
            cella.clear();
        } else {
            cella += dentro[i];
        }
    }
    return celle;
}

}  // namespace

QList<Blocco> LeggiBlocchi(const QString& markdown) {
    static const QRegularExpression kTitolo(QStringLiteral("^(#{1,6})\\s+(.*)$"));
    static const QRegularExpression kVoce(QStringLiteral("^([-*]|\\d+\\.)\\s+(.*)$"));
    static const QRegularExpression kFigura(QStringLiteral("^!\\[(.*)\\]\\((\\S+)\\)$"));
    static const QRegularExpression kRigaDiTratti(QStringLiteral("^\\|[-:| ]+\\|$"));
    QList<Blocco> blocchi;
    bool aperto = false;  // the last block may go on with the next line
    bool codice = false;
    const auto nuovo = [&](Blocco::Tipo tipo, bool continua) -> Blocco& {
        blocchi.append(Blocco{});
        blocchi.last().tipo = tipo;
        aperto = continua;
        return blocchi.last();
    };
    for (const QString& riga : markdown.split(QLatin1Char('\n'))) {
        const QString t = riga.trimmed();
        if (t.startsWith(QLatin1String("```"))) {
            codice = !codice;
            if (codice) nuovo(Blocco::Tipo::codice, false);
        } else if (codice) {
            Blocco& b = blocchi.last();
            b.testo += (b.testo.isEmpty() ? QString() : QStringLiteral("\n")) + riga;
        } else if (t.isEmpty()) {
            aperto = false;
        } else if (const auto titolo = kTitolo.match(t); titolo.hasMatch()) {
            Blocco& b = nuovo(Blocco::Tipo::titolo, false);
            b.livello = static_cast<int>(titolo.capturedLength(1));
            b.testo = titolo.captured(2);
        } else if (t.startsWith(QLatin1Char('|'))) {
            if (kRigaDiTratti.match(t).hasMatch()) continue;
            const bool continua = aperto && blocchi.last().tipo == Blocco::Tipo::tabella;
            Blocco& b = continua ? blocchi.last() : nuovo(Blocco::Tipo::tabella, true);
            b.righe << Celle(t);
        } else if (const auto figura = kFigura.match(t); figura.hasMatch()) {
            Blocco& b = nuovo(Blocco::Tipo::figura, false);
            b.testo = figura.captured(1);
            b.file = figura.captured(2);
        } else if (const auto voce = kVoce.match(t); voce.hasMatch()) {
            Blocco& b = nuovo(Blocco::Tipo::voce, true);
            b.segno = voce.captured(1).size() == 1 ? QString(QChar(0x2022)) : voce.captured(1);
            b.testo = voce.captured(2);
        } else if (aperto && blocchi.last().tipo != Blocco::Tipo::tabella) {
            blocchi.last().testo += QLatin1Char(' ') + t;
        } else {
            nuovo(Blocco::Tipo::testo, true).testo = t;
        }
    }
    return blocchi;
}

}  // namespace tk07::manuale
