#include "desktop/vista_relazione.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

#include "base/file_testo.h"
#include "desktop/testo_qt.h"
#include "verification/riepilogo.h"

namespace tk07::desktop {

namespace {

// How the report heads a load set, one heading for each in the order of the table.
const QString kSestetto = QStringLiteral("Combinazione di sollecitazioni agenti ");

// A name as the report's file can hold it: what its alphabet lacks is a question mark there.
bool StessoNome(const QString& scritto, const QString& nome) {
    return scritto.size() == nome.size() &&
           std::equal(scritto.begin(), scritto.end(), nome.begin(),
                      [](QChar a, QChar b) { return a == b || a == QLatin1Char('?'); });
}

// The head over a row of numbers: the nearest row above that does not begin with one.
QString TestaTabella(QTextBlock riga) {
    static const QRegularExpression numero(QStringLiteral("^ *[-.\\d]"));
    while (riga.isValid() && numero.match(riga.text()).hasMatch()) riga = riga.previous();
    return riga.text();
}

}  // namespace

VistaRelazione::VistaRelazione(QWidget* padre) : QWidget(padre) {
    auto* colonna = new QVBoxLayout(this);
    colonna->setContentsMargins(0, 2, 0, 0);
    auto* riga = new QHBoxLayout;
    titolo_ = new QLabel(QStringLiteral("Nessuna relazione"), this);
    cerca_ = new QLineEdit(this);
    cerca_->setObjectName(QStringLiteral("CercaRelazione"));
    cerca_->setPlaceholderText(QStringLiteral("Cerca (Ctrl+F)"));
    cerca_->setClearButtonEnabled(true);
    auto* prima = new QPushButton(QStringLiteral("Precedente"), this);
    auto* dopo = new QPushButton(QStringLiteral("Successivo"), this);
    auto* verdetto = new QPushButton(QStringLiteral("Verdetto"), this);
    riga->addWidget(titolo_, 1);
    for (QWidget* w : {static_cast<QWidget*>(cerca_), static_cast<QWidget*>(prima),
                       static_cast<QWidget*>(dopo), static_cast<QWidget*>(verdetto)}) {
        riga->addWidget(w);
    }
    colonna->addLayout(riga);
    testo_ = new QPlainTextEdit(this);
    testo_->setObjectName(QStringLiteral("TestoRelazione"));
    testo_->setReadOnly(true);
    testo_->setLineWrapMode(QPlainTextEdit::NoWrap);
    testo_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    testo_->setTabStopDistance(12.0 * testo_->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    testo_->viewport()->installEventFilter(this);
    testo_->setToolTip(
        QStringLiteral("Doppio clic su una riga: porta al bullone, alla piastra o alla saldatura"));
    colonna->addWidget(testo_, 1);
    connect(cerca_, &QLineEdit::textEdited, this, [this] { cerca_->setPalette({}); });
    connect(cerca_, &QLineEdit::returnPressed, this, [this] { Cerca(false); });
    connect(dopo, &QPushButton::clicked, this, [this] { Cerca(false); });
    connect(prima, &QPushButton::clicked, this, [this] { Cerca(true); });
    connect(verdetto, &QPushButton::clicked, this, &VistaRelazione::VaiAlVerdetto);
    auto* scorciatoia = new QShortcut(QKeySequence::Find, this);
    scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
    connect(scorciatoia, &QShortcut::activated, this, [this] {
        cerca_->setFocus();
        cerca_->selectAll();
    });
}

bool VistaRelazione::Apri(const QString& percorso) {
    const FileLetto f = LeggiRighe(S(percorso));
    if (!f.riuscito) return false;
    percorso_ = percorso;
    std::string tutto;
    for (const std::string& r : f.righe) tutto += r + "\n";
    testo_->setPlainText(Q(tutto));
    ImpostaSuperata(false);
    VaiAlVerdetto();
    return true;
}

void VistaRelazione::ImpostaSuperata(bool superata) {
    if (Vuota()) return;
    titolo_->setText(QFileInfo(percorso_).fileName() +
                     (superata ? QStringLiteral(" - superata") : QString()));
    titolo_->setToolTip(percorso_);
}

// To the first load set that fails, or to the last verdict of a joint that passes.
void VistaRelazione::VaiAlVerdetto() {
    QTextCursor c = testo_->document()->find(QStringLiteral("NODO NON VERIFICATO"), 0,
                                             QTextDocument::FindCaseSensitively);
    if (c.isNull()) {
        c = testo_->document()->find(
            QStringLiteral("NODO VERIFICATO"), testo_->document()->characterCount() - 1,
            QTextDocument::FindCaseSensitively | QTextDocument::FindBackward);
    }
    if (c.isNull()) return;
    // Selected from its end, so that the caret and the view stay at the first column.
    c.movePosition(QTextCursor::EndOfBlock);
    c.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    testo_->setTextCursor(c);
    testo_->centerCursor();
}

bool VistaRelazione::VaiAlSestetto(int indice, const QString& nome) {
    int quale = -1;
    for (QTextBlock b = testo_->document()->begin(); b.isValid(); b = b.next()) {
        if (!b.text().startsWith(kSestetto) || ++quale != indice) continue;
        // Another text there: the report is of another table.
        if (!StessoNome(b.text().mid(kSestetto.size()).trimmed(), nome.trimmed())) return false;
        testo_->setTextCursor(QTextCursor(b));
        testo_->centerCursor();
        return true;
    }
    return false;
}

bool VistaRelazione::eventFilter(QObject*, QEvent* evento) {
    if (evento->type() == QEvent::MouseButtonDblClick) {
        ApriRiga(testo_->cursorForPosition(static_cast<QMouseEvent*>(evento)->pos()).block());
    }
    return false;
}

// What a row of the report speaks of: its own first column, the table's title, the load set.
// Columns end in a bar in the report by limit states, in a tab in the one by allowable stresses.
void VistaRelazione::ApriRiga(const QTextBlock& riga) {
    static const QRegularExpression numero(QStringLiteral("^ *(\\d+) *[|\\t]"));
    static const QRegularExpression linea(QStringLiteral("^s(\\d+)('?) *[|\\t]"));
    static const QRegularExpression colonne(QStringLiteral("[|\\t]"));
    static const QRegularExpression piastra(
        QStringLiteral("^(Compressione|Tensione) .*piastra ([12])$"));
    const QRegularExpressionMatch bullone = numero.match(riga.text());
    const QRegularExpressionMatch cordone = linea.match(riga.text());
    Famiglia famiglia = Famiglia::bulloni;
    QString elemento;
    if (bullone.hasMatch() && TestaTabella(riga).startsWith(QLatin1String("Num"))) {
        elemento = QStringLiteral("bullone ") + bullone.captured(1);
    }
    if (cordone.hasMatch()) {
        constexpr int kLati = 15;  // lines of one side, their mirrors behind them
        const int n = cordone.captured(1).toInt();
        if (n < 1 || n > kLati) return;
        famiglia = FamigliaLinea(n - 1 + (cordone.captured(2).isEmpty() ? 0 : kLati));
        elemento = QStringLiteral("saldatura s") + cordone.captured(1) + cordone.captured(2);
    }
    int sestetto = -1;
    bool cerca = elemento.isEmpty() && riga.text().contains(colonne);
    for (QTextBlock b = riga; b.isValid(); b = b.previous()) {
        const QRegularExpressionMatch m = piastra.match(b.text().trimmed());
        if (cerca && (m.hasMatch() || b.text().trimmed().isEmpty())) {
            cerca = false;
            if (m.hasMatch()) {
                famiglia =
                    m.captured(2) == QLatin1String("1") ? Famiglia::piastra1 : Famiglia::piastra2;
                elemento = QStringLiteral("piastra ") + m.captured(2);
            }
        }
        if (b.text().startsWith(kSestetto)) ++sestetto;
    }
    if (sestetto >= 0 && !elemento.isEmpty()) {
        Q_EMIT rigaScelta(sestetto, static_cast<int>(famiglia), elemento);
    }
}

void VistaRelazione::Cerca(bool indietro) {
    const QTextDocument::FindFlags verso =
        indietro ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (testo_->find(cerca_->text(), verso)) return;
    QTextCursor c = testo_->textCursor();  // once more from the other end
    c.movePosition(indietro ? QTextCursor::End : QTextCursor::Start);
    const QTextCursor prima = testo_->textCursor();
    testo_->setTextCursor(c);
    if (testo_->find(cerca_->text(), verso) || cerca_->text().isEmpty()) return;
    testo_->setTextCursor(prima);
    QPalette p;  // not found: said by the field itself
    p.setColor(QPalette::Text, p.color(QPalette::Base).lightness() < 128 ? QColor(255, 120, 120)
                                                                         : QColor(198, 40, 40));
    cerca_->setPalette(p);
}

}  // namespace tk07::desktop
