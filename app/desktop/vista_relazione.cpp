#include "desktop/vista_relazione.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>

#include "base/file_testo.h"
#include "desktop/testo_qt.h"

namespace tk07 {

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
    colonna->addWidget(testo_, 1);
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
    c.select(QTextCursor::LineUnderCursor);
    testo_->setTextCursor(c);
    testo_->centerCursor();
}

bool VistaRelazione::VaiAlSestetto(const QString& nome) {
    const QTextCursor c =
        testo_->document()->find(QStringLiteral("Combinazione di sollecitazioni agenti ") + nome, 0,
                                 QTextDocument::FindCaseSensitively);
    if (c.isNull()) return false;
    testo_->setTextCursor(c);
    testo_->centerCursor();
    return true;
}

void VistaRelazione::Cerca(bool indietro) {
    const QTextDocument::FindFlags verso =
        indietro ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (testo_->find(cerca_->text(), verso)) return;
    QTextCursor c = testo_->textCursor();  // once more from the other end
    c.movePosition(indietro ? QTextCursor::End : QTextCursor::Start);
    testo_->setTextCursor(c);
    testo_->find(cerca_->text(), verso);
}

}  // namespace tk07
