#include "desktop/numero.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

#include "base/testo.h"
#include "desktop/testo_qt.h"
#include "joint/campi_nodo.h"

namespace tk07::desktop {

namespace {

constexpr int kPrimaAzione = 1, kUltimaAzione = 6, kColonneTabella = 8;

// Signs and blanks that spreadsheets put into numbers.
QString Ripulito(QString t) {
    t = t.trimmed();
    t.replace(QChar(0x2212), QLatin1Char('-'));
    static const QRegularExpression spazi(
        QStringLiteral("(?<=\\d)[ '\\x{00A0}\\x{2009}\\x{202F}](?=\\d{3}(\\D|$))"));
    return t.remove(spazi);
}

// Points that can only be thousands, and points that may be.
const QRegularExpression& Migliaia() {
    static const QRegularExpression r(QStringLiteral("^[-+]?\\d{1,3}(\\.\\d{3})+$"));
    return r;
}

QString DoveSta(qsizetype riga, qsizetype colonna, const QString& cella) {
    constexpr qsizetype kMostrati = 40;
    return QStringLiteral("Riga %1, colonna %2: \"%3\" non è un numero. Niente è stato incollato.")
        .arg(riga + 1)
        .arg(colonna + 1)
        .arg(cella.left(kMostrati));
}

bool Numerica(const QStringList& riga, qsizetype da) {
    return std::all_of(riga.begin() + std::min(da, riga.size()), riga.end(), [](const QString& c) {
        return c.trimmed().isEmpty() || SoloNumero(NumeroItaliano(c));
    });
}

bool NessunNumero(const QStringList& riga) {
    return std::none_of(riga.begin(), riga.end(),
                        [](const QString& c) { return SoloNumero(NumeroItaliano(c)); });
}

// Cells between quotation marks, as spreadsheets write those with a line end or a tab inside.
QStringList CelleDi(const QString& riga) {
    QStringList celle = riga.split(QLatin1Char('\t'));
    for (QString& c : celle) {
        if (c.size() > 1 && c.startsWith(QLatin1Char('"')) && c.endsWith(QLatin1Char('"'))) {
            c = c.mid(1, c.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\""));
        }
    }
    return celle;
}

}  // namespace

QString NumeroItaliano(const QString& testo) {
    const QString t = Ripulito(testo);
    static const QRegularExpression conVirgola(
        QStringLiteral("^[-+]?(\\d+|\\d{1,3}(\\.\\d{3})+)?,\\d*([eE][-+]?\\d+)?$"));
    static const QRegularExpression piuPunti(QStringLiteral("^[-+]?\\d{1,3}(\\.\\d{3}){2,}$"));
    if (conVirgola.match(t).hasMatch()) {
        QString r = t;
        return r.remove(QLatin1Char('.')).replace(QLatin1Char(','), QLatin1Char('.'));
    }
    if (piuPunti.match(t).hasMatch()) return QString(t).remove(QLatin1Char('.'));
    return SoloNumero(t) ? t : testo;
}

QString VirgolaInPunto(const QString& testo) {
    const qsizetype p = testo.indexOf(QLatin1Char(','));
    if (p < 0) return testo;
    return testo.left(p).remove(QLatin1Char('.')) + QLatin1Char('.') + testo.mid(p + 1);
}

bool SoloNumero(const QString& testo) { return ValoreStretto(S(testo)).has_value(); }

bool NumeroNeiLimiti(const QString& testo) { return NumeroIniziale(S(testo)).has_value(); }

SestettiIncollati PreparaSestetti(const QString& testo, int colonna, bool propria) {
    SestettiIncollati s;
    s.colonna = colonna;
    QString t = testo;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QList<QStringList> righe;
    for (const QString& r : t.split(QLatin1Char('\n'))) {
        if (!r.trimmed().isEmpty()) righe << CelleDi(r);
    }
    QStringList note;
    // Heads: rows without any number above rows that have some.
    qsizetype intestazioni = 0;
    const auto intesta = [](const QStringList& r) {
        return NessunNumero(r) && std::any_of(r.begin() + 1, r.end(), [](const QString& c) {
                   return !c.trimmed().isEmpty();
               });
    };
    while (intestazioni < righe.size() && intesta(righe[intestazioni])) {
        ++intestazioni;
    }
    if (intestazioni > 0 && intestazioni < righe.size()) {
        righe.remove(0, intestazioni);
        note << QStringLiteral("intestazioni lasciate");
    } else {
        intestazioni = 0;
    }
    qsizetype larghezza = 0;
    for (const QStringList& r : righe) larghezza = std::max(larghezza, r.size());
    if (righe.isEmpty()) return s;
    const auto tutte = [&](auto vera) { return std::all_of(righe.begin(), righe.end(), vera); };
    // The program's own text file has the number of the set before its description.
    if (colonna == 0 && larghezza == kColonneTabella && tutte([](const QStringList& r) {
            return r.size() == kColonneTabella && SoloNumero(r[0]) && Numerica(r, 2);
        }) &&
        !tutte([](const QStringList& r) { return Numerica(r, 1); })) {
        for (QStringList& r : righe) r.removeFirst();
        --larghezza;
        note << QStringLiteral("numeri dei sestetti lasciati");
    }
    if (colonna == 0 && larghezza == kUltimaAzione &&
        tutte([](const QStringList& r) { return Numerica(r, 0); })) {
        s.colonna = kPrimaAzione;
        note << QStringLiteral("sei colonne di numeri: da N a Mz");
    }
    if (s.colonna + larghezza > kColonneTabella) {
        s.errore = QStringLiteral(
                       "Le colonne incollate sono %1, da qui in poi la tabella ne ha %2. "
                       "Niente è stato incollato.")
                       .arg(larghezza)
                       .arg(kColonneTabella - s.colonna);
        return s;
    }
    // With a decimal comma anywhere, a point separates thousands everywhere.
    bool virgole = false;
    const auto azione = [&](qsizetype c) { return s.colonna + c >= kPrimaAzione; };
    for (const QStringList& r : righe) {
        for (qsizetype c = 0; c < r.size(); ++c) {
            virgole = virgole || (azione(c) && r[c].contains(QLatin1Char(',')) &&
                                  SoloNumero(NumeroItaliano(r[c])));
        }
    }
    for (qsizetype i = 0; i < righe.size(); ++i) {
        for (qsizetype c = 0; c < righe[i].size(); ++c) {
            QString& cella = righe[i][c];
            const std::string perche = s.colonna + c == 0 ? TestoRifiutato(S(cella)) : "";
            if (!perche.empty()) {
                s.errore = QStringLiteral("Riga %1: %2. Niente è stato incollato.")
                               .arg(intestazioni + i + 1)
                               .arg(Q(perche));
                return s;
            }
            if (!azione(c)) continue;
            const QString pulita = Ripulito(cella);
            QString numero = NumeroItaliano(cella);
            if (pulita.isEmpty()) {
                numero = QStringLiteral("0");  // an empty cell of a block is no load
            } else if (pulita == numero && Migliaia().match(pulita).hasMatch()) {
                if (virgole) {
                    numero.remove(QLatin1Char('.'));
                } else if (!propria && s.dubbio.isEmpty()) {
                    s.dubbio = pulita;
                }
            } else if (virgole && pulita == numero && numero.contains(QLatin1Char('.'))) {
                s.errore = QStringLiteral(
                               "Riga %1, colonna %2: \"%3\" ha il punto, altri numeri "
                               "la virgola. Niente è stato incollato.")
                               .arg(intestazioni + i + 1)
                               .arg(c + 1)
                               .arg(cella.trimmed().left(40));
                return s;
            }
            if (!SoloNumero(numero)) {
                s.errore = DoveSta(intestazioni + i, c, cella.trimmed());
                return s;
            }
            cella = numero;
        }
    }
    s.celle = righe;
    s.nota = QStringLiteral("Incollate %1 righe").arg(righe.size()) +
             (note.isEmpty()
                  ? QString()
                  : QStringLiteral(" (") + note.join(QStringLiteral("; ")) + QLatin1Char(')'));
    return s;
}

}  // namespace tk07::desktop
