#include "desktop/vista_relazione.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

#include "base/file_testo.h"
#include "desktop/testo_qt.h"

namespace tk07::desktop {

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

bool VistaRelazione::Apri(const QString& percorso, const RelazioneScritta& scritta) {
    const FileLetto f = LeggiRighe(S(percorso));
    if (!f.riuscito) return false;
    percorso_ = percorso;
    righe_ = scritta.righe;
    sestetti_ = scritta.sestetti;
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

QTextCursor VistaRelazione::AllaRiga(int riga) const {
    return QTextCursor(testo_->document()->findBlockByNumber(riga));
}

// To the first load set that fails, or to the last verdict of a joint that passes.
void VistaRelazione::VaiAlVerdetto() {
    if (sestetti_.empty()) return;
    auto s = std::find_if(sestetti_.begin(), sestetti_.end(),
                          [](const SestettoRelazione& q) { return !q.verificato; });
    if (s == sestetti_.end()) --s;
    // Selected from its end, so that the caret and the view stay at the first column.
    QTextCursor c = AllaRiga(s->verdetto);
    c.movePosition(QTextCursor::EndOfBlock);
    c.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    testo_->setTextCursor(c);
    testo_->centerCursor();
}

bool VistaRelazione::VaiAlSestetto(int indice, const QString& nome) {
    if (indice < 0 || indice >= static_cast<int>(sestetti_.size())) return false;
    const SestettoRelazione& s = sestetti_[static_cast<std::size_t>(indice)];
    if (Q(s.nome) != nome) return false;  // the report is of another table
    testo_->setTextCursor(AllaRiga(s.capo));
    testo_->centerCursor();
    return true;
}

bool VistaRelazione::eventFilter(QObject*, QEvent* evento) {
    if (evento->type() == QEvent::MouseButtonDblClick) {
        ApriRiga(testo_->cursorForPosition(static_cast<QMouseEvent*>(evento)->pos()).blockNumber());
    }
    return false;
}

void VistaRelazione::ApriRiga(int riga) {
    const auto r =
        std::lower_bound(righe_.begin(), righe_.end(), riga,
                         [](const RigaRelazione& q, int quale) { return q.riga < quale; });
    if (r == righe_.end() || r->riga != riga) return;
    Q_EMIT rigaScelta(r->sestetto, r->famiglia, r->elemento);
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
