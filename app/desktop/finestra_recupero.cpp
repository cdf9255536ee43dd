#include "desktop/finestra_recupero.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "base/file_testo.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"

namespace tk07::desktop {

FinestraRecupero::FinestraRecupero(Pilota& pilota, QWidget* padre)
    : QDialog(padre), pilota_(pilota), tabella_(new QTableWidget(this)) {
    setObjectName(QStringLiteral("Recupera"));
    setWindowTitle(QStringLiteral("Recupera un nodo dalle copie automatiche"));
    auto* colonna = new QVBoxLayout(this);
    auto* spiega = new QLabel(
        QStringLiteral(
            "Ogni esecuzione del programma scrive due copie alternate del nodo; quando un "
            "salvataggio sostituisce un file che non era stato aperto, ne conserva una copia. Le "
            "copie restano finché non vengono eliminate qui. Aprire una copia lascia il nodo "
            "attuale in \"Annulla\"."),
        this);
    spiega->setWordWrap(true);
    colonna->addWidget(spiega);
    tabella_->setColumnCount(4);
    tabella_->setHorizontalHeaderLabels({QStringLiteral("Data"), QStringLiteral("Nodo"),
                                         QStringLiteral("Contenuto"), QStringLiteral("File")});
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabella_->verticalHeader()->hide();
    tabella_->horizontalHeader()->setStretchLastSection(true);
    colonna->addWidget(tabella_, 1);
    auto* pulsanti = new QDialogButtonBox(this);
    auto* recupera = pulsanti->addButton(QStringLiteral("&Recupera"), QDialogButtonBox::AcceptRole);
    auto* elimina = pulsanti->addButton(QStringLiteral("&Elimina"), QDialogButtonBox::ActionRole);
    pulsanti_ = {recupera, elimina};
    pulsanti->addButton(QDialogButtonBox::Close);
    colonna->addWidget(pulsanti);
    connect(recupera, &QPushButton::clicked, this, &FinestraRecupero::Recupera);
    connect(elimina, &QPushButton::clicked, this, &FinestraRecupero::Elimina);
    connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(tabella_, &QTableWidget::itemDoubleClicked, this, &FinestraRecupero::Recupera);
    Riempi();
    resize(820, 360);
}

void FinestraRecupero::Riempi() {
    copie_ = TrovaCopie(pilota_.LaSessione());
    tabella_->setRowCount(static_cast<int>(copie_.size()));
    for (int i = 0; i < tabella_->rowCount(); ++i) {
        const CopiaTrovata& c = copie_[static_cast<std::size_t>(i)];
        int k = 0;
        for (const std::string& t :
             {c.data, c.nomeFile, c.riassunto, NomeSenzaDirettorio(c.percorso)}) {
            tabella_->setItem(i, k++, new QTableWidgetItem(Q(t)));
        }
    }
    tabella_->resizeColumnsToContents();
    if (!copie_.empty()) tabella_->selectRow(0);
    for (QPushButton* b : pulsanti_) b->setEnabled(!copie_.empty());
}

void FinestraRecupero::Recupera() {
    const int i = tabella_->currentRow();
    if (i < 0 || i >= static_cast<int>(copie_.size())) return;
    const CopiaTrovata copia = copie_[static_cast<std::size_t>(i)];
    if (!pilota_.Leggibile(copia.percorso)) return;
    pilota_.Fai(QStringLiteral("Recupera"), [&] {
        EseguiComando(pilota_.LaSessione(), [&] { ApriCopia(pilota_.LaSessione(), copia); });
    });
    accept();
}

void OffriRecupero(Pilota& pilota, QWidget* padre) {
    const std::vector<CopiaTrovata> copie = TrovaCopie(pilota.LaSessione());
    if (copie.empty()) return;
    const std::string testo =
        "L'ultima esecuzione non è finita bene. La copia più recente del suo nodo:\n" +
        copie.front().nomeFile + ", " + copie.front().data + ", " + copie.front().riassunto +
        "\nMostrare le copie da recuperare?";
    if (pilota.LaSessione().piattaforma.messaggio(testo, kTitoloProgramma, Segno::domanda,
                                                  Pulsanti::OKAnnulla) == Risposta::OK) {
        FinestraRecupero(pilota, padre).exec();
    }
}

void FinestraRecupero::Elimina() {
    QList<int> righe;
    for (const QModelIndex& m : tabella_->selectionModel()->selectedRows()) righe << m.row();
    if (righe.isEmpty()) return;
    if (QMessageBox::question(this, windowTitle(),
                              QStringLiteral("Eliminare le copie scelte (%1)?").arg(righe.size()),
                              QMessageBox::Ok | QMessageBox::Cancel) != QMessageBox::Ok) {
        return;
    }
    for (const int r : righe) EliminaFile(copie_[static_cast<std::size_t>(r)].percorso);
    Riempi();
}

}  // namespace tk07::desktop
