#include "desktop/finestra_kx.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>

#include "base/file_testo.h"
#include "base/testo.h"
#include "desktop/numero.h"
#include "desktop/testo_qt.h"
#include "textnum/scelta_unita.h"

namespace tk07::desktop {

RichiestaKx LeggiRichiestaKx(const std::string& riga) {
    RichiestaKx r;
    const auto campo = [&](const char* nome, bool ultimo) -> std::string {
        const std::string cerca = std::string(nome) + "=", minuscola = Minuscolo(riga);
        // The title comes as a marked field of its own inside another: the inner one counts.
        const std::size_t p = ultimo ? minuscola.rfind(cerca) : minuscola.find(cerca);
        if (p == std::string::npos) return {};
        const std::size_t da = p + cerca.size();
        return Taglia(riga.substr(da, riga.find('|', da) - da));
    };
    r.unita = campo("uniprinctesto", false);
    r.categoria = static_cast<int>(ValoreIniziale(campo("categoriadiingresso", false)));
    r.valore = ValoreIniziale(campo("valoreingresso", false));
    r.fileOut = campo("fileout", false);
    r.titolo = campo("titolo", true);
    return r;
}

FinestraKx::FinestraKx(const RichiestaKx& richiesta)
    : richiesta_(richiesta),
      grandezza_(new QComboBox(this)),
      da_(new QComboBox(this)),
      a_(new QComboBox(this)),
      valore_(new QLineEdit(this)),
      risultato_(new QLabel(this)) {
    setObjectName(QStringLiteral("kx_conversioni"));
    setWindowTitle(
        QStringLiteral("Conversione di unità") +
        (richiesta.titolo.empty() ? QString() : QStringLiteral(" - ") + Q(richiesta.titolo)));
    grandezza_->setObjectName(QStringLiteral("Grandezza"));
    da_->setObjectName(QStringLiteral("Da"));
    a_->setObjectName(QStringLiteral("A"));
    valore_->setObjectName(QStringLiteral("Valore"));
    risultato_->setObjectName(QStringLiteral("Risultato"));
    risultato_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QComboBox* c : {da_, a_}) c->setMaxVisibleItems(24);
    const QString propria = Q(UnitaDaNome(richiesta.unita));
    const QString gruppo = richiesta.categoria == 5   ? QStringLiteral("Momenti")
                           : richiesta.categoria == 4 ? QStringLiteral("Forze")
                                                      : QString();
    for (const Grandezza& g : GrandezzeConvertibili()) {
        QStringList unita;
        for (const std::string& u : g.unita) unita << Q(u);
        grandezza_->addItem(Q(g.nome), unita);
        const bool sua = propria.isEmpty() ? Q(g.nome) == gruppo : unita.contains(propria);
        if (sua) grandezza_->setCurrentIndex(grandezza_->count() - 1);
    }
    auto* modulo = new QFormLayout(this);
    modulo->addRow(QStringLiteral("&Grandezza"), grandezza_);
    modulo->addRow(QStringLiteral("&Valore"), valore_);
    modulo->addRow(QStringLiteral("&da"), da_);
    modulo->addRow(QStringLiteral("&a"), a_);
    modulo->addRow(QStringLiteral("Risultato"), risultato_);
    auto* pulsanti = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    modulo->addRow(pulsanti);
    connect(pulsanti, &QDialogButtonBox::accepted, this, &FinestraKx::accept);
    connect(pulsanti, &QDialogButtonBox::rejected, this, &FinestraKx::reject);
    connect(grandezza_, &QComboBox::currentIndexChanged, this, &FinestraKx::RiempiUnita);
    for (QComboBox* c : {da_, a_}) {
        connect(c, &QComboBox::currentIndexChanged, this, &FinestraKx::Calcola);
    }
    connect(valore_, &QLineEdit::textChanged, this, &FinestraKx::Calcola);
    valore_->setText(Q(TestoReale(richiesta.valore)));
    RiempiUnita();
    for (QComboBox* c : {da_, a_}) {
        if (const int i = c->findData(propria); i >= 0) c->setCurrentIndex(i);
    }
    // The answer goes back in the caller's unit.
    grandezza_->setEnabled(propria.isEmpty());
    a_->setEnabled(propria.isEmpty());
    valore_->selectAll();
    valore_->setFocus();
    setMinimumWidth(360);
}

void FinestraKx::RiempiUnita() {
    for (QComboBox* c : {da_, a_}) {
        const QSignalBlocker blocco(c);
        c->clear();
        for (const QString& u : grandezza_->currentData().toStringList()) {
            c->addItem(Q(UnitaMostrata(S(u))), u);
        }
    }
    Calcola();
}

void FinestraKx::Calcola() {
    const auto valore = ValoreStretto(S(NumeroItaliano(valore_->text())));
    const auto r = valore ? ConvertiTra(*valore, S(da_->currentData().toString()),
                                        S(a_->currentData().toString()))
                          : std::nullopt;
    valido_ = r.has_value();
    calcolato_ = r.value_or(0.0);
    risultato_->setText(valido_ ? QString::number(calcolato_, 'g', 10) + QLatin1Char(' ') +
                                      a_->currentText()
                                : QStringLiteral("valore non numerico"));
}

void FinestraKx::accept() {
    if (!valido_) return;
    if (!richiesta_.fileOut.empty()) {
        const std::string errore =
            ScriviFile(richiesta_.fileOut, S(QString::number(calcolato_, 'g', 12)) + "\n",
                       Codifica::windows1252);
        if (!errore.empty()) {
            QMessageBox::warning(this, windowTitle(), Q(errore));
            return;
        }
    }
    QDialog::accept();
}

}  // namespace tk07::desktop
