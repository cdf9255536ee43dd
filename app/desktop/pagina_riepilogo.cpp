#include "desktop/pagina_riepilogo.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "base/testo.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"
#include "desktop/vista_nodo.h"
#include "verification/saldature.h"

namespace tk07::desktop {

namespace {

// The ratio as a bar with its number: colour is never the only sign.
class BarraRapporto : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* p, const QStyleOptionViewItem& opzione,
               const QModelIndex& indice) const override {
        QStyleOptionViewItem o = opzione;
        initStyleOption(&o, indice);
        o.text.clear();
        QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &o, p, o.widget);
        const double r = indice.data(ModelloRiepilogo::kValore).toDouble();
        const bool passa = indice.data(ModelloRiepilogo::kPassa).toBool();
        constexpr double kPieno = 1.25;  // ratio at the end of the bar
        const QRectF barra = QRectF(opzione.rect).adjusted(4, 4, -52, -4);
        p->save();
        p->setPen(Qt::NoPen);
        p->setBrush(ColoreRapporto(r));
        const double parte = std::clamp(std::isfinite(r) ? r / kPieno : 1.0, 0.0, 1.0);
        p->drawRect(QRectF(barra.left(), barra.top(), barra.width() * parte, barra.height()));
        const double uno = barra.left() + barra.width() / kPieno;
        const bool scelta = (opzione.state & QStyle::State_Selected) != 0;
        const QColor testo =
            opzione.palette.color(scelta ? QPalette::HighlightedText : QPalette::Text);
        p->setPen(QPen(testo, 1.0, Qt::DotLine));
        p->drawLine(QPointF(uno, opzione.rect.top() + 2.0),
                    QPointF(uno, opzione.rect.bottom() - 1.0));
        p->setPen(testo);
        p->drawText(QRectF(opzione.rect).adjusted(0, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter,
                    RapportoMostrato(r) + (passa ? QStringLiteral(" ✓") : QStringLiteral(" ✗")));
        p->restore();
    }
};

// Load sets that are all zero: nothing was judged that a joint could fail.
bool CarichiNulli(const Nodo& n) {
    for (int k = 0; k < n.nSollAg; ++k) {
        for (const double x :
             {n.SforzoNormale(k), n.TaglioY(k), n.TaglioZ(k), n.MomTorc(k), n.MomY(k), n.MomZ(k)}) {
            if (x != 0.0) return false;
        }
    }
    return true;
}

}  // namespace

void ModelloRiepilogo::Metti(const Esiti& esiti, const Nodo& nodo) {
    const bool stesse = esiti.sestetti.size() == esiti_.sestetti.size();
    if (!stesse) beginResetModel();
    esiti_ = esiti;
    nomi_.clear();
    for (int s = 0; s < esiti.Sestetti(); ++s) nomi_.push_back(Q(Taglia(TogliCR(nodo.NomeSa(s)))));
    if (!stesse) {
        endResetModel();
    } else if (esiti_.Sestetti() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

// What a cell speaks of: its family's worst check, else the governing one.
const Riscontro* ModelloRiepilogo::Riga(const QModelIndex& indice) const {
    const int c = indice.column() - kPrimaFamiglia;
    return c >= 0 ? esiti_.Peggiore(indice.row(), static_cast<Famiglia>(c))
                  : esiti_.Governa(indice.row());
}

int ModelloRiepilogo::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : esiti_.Sestetti();
}

int ModelloRiepilogo::columnCount(const QModelIndex&) const { return kPrimaFamiglia + kFamiglie; }

QVariant ModelloRiepilogo::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= rowCount()) return {};
    const int c = indice.column(), s = indice.row();
    const Riscontro* r = Riga(indice);
    const double rapporto = r == nullptr ? 0.0 : r->rapporto;
    const bool fallisce = c >= kPrimaFamiglia && r != nullptr && !r->passa;
    if (ruolo == kValore) return rapporto;
    if (ruolo == kPassa) return r == nullptr || r->passa;
    if (ruolo == kOrdine) {
        if (c == kNumero) return s;
        if (c == kNome) return nomi_[static_cast<std::size_t>(s)];
        if (c == kGoverna) return r == nullptr ? QString() : Q(NomeElemento(*r));
        return rapporto;
    }
    if (ruolo == Qt::TextAlignmentRole && c >= kPrimaFamiglia) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (ruolo == Qt::ForegroundRole && fallisce) {
        return TestoRapporto(rapporto, QGuiApplication::palette().color(QPalette::Base));
    }
    if (ruolo == Qt::FontRole && fallisce) {
        QFont f;
        f.setBold(true);
        return f;
    }
    if (ruolo == Qt::ToolTipRole && c >= kPrimaFamiglia && r != nullptr) {
        return Q(NomeElemento(*r) + ": " + NomeConfronto(*r));
    }
    if (ruolo != Qt::DisplayRole) return {};
    if (c == kNumero) return s + 1;
    if (c == kNome) return nomi_[static_cast<std::size_t>(s)];
    if (c == kGoverna) {
        return r == nullptr ? QString() : Q(NomeElemento(*r) + ", " + NomeConfronto(*r));
    }
    return RapportoMostrato(rapporto);
}

QVariant ModelloRiepilogo::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (verso != Qt::Horizontal) return {};
    constexpr const char* kTesti[] = {
        "N.", "Sestetto", "Verifica che governa", "Rapporto", "Bull.", "P. 1", "P. 2", "S1", "S2"};
    if (ruolo == Qt::DisplayRole) return QString::fromUtf8(kTesti[sezione]);
    if (ruolo == Qt::ToolTipRole && sezione >= kPrimaFamiglia) {
        return QString::fromUtf8(NomeFamiglia(static_cast<Famiglia>(sezione - kPrimaFamiglia)));
    }
    return {};
}

PaginaRiepilogo::PaginaRiepilogo(Pilota& pilota, QWidget* padre)
    : QWidget(padre), pilota_(pilota), modello_(new ModelloRiepilogo(this)) {
    auto* colonna = new QVBoxLayout(this);
    colonna->setContentsMargins(0, 2, 0, 0);
    auto* testata = new QHBoxLayout;
    esito_ = new QLabel(this);
    esito_->setObjectName(QStringLiteral("EsitoVerifica"));
    stato_ = new QLabel(this);
    stato_->setObjectName(QStringLiteral("StatoRisultati"));
    // Never widens the window: a long text goes on below.
    stato_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::MinimumExpanding);
    stato_->setWordWrap(true);
    auto* vivo = new QCheckBox(QStringLiteral("V&erifica dal vivo"), this);
    vivo->setObjectName(QStringLiteral("DalVivo"));
    vivo->setToolTip(QStringLiteral("Ricalcola mentre si scrive, senza relazione"));
    vivo->setChecked(pilota.DalVivo());
    connect(vivo, &QCheckBox::clicked, &pilota_, &Pilota::ImpostaDalVivo);
    auto* relazione = new QPushButton(QStringLiteral("Riga della relazione"), this);
    relazione->setToolTip(QStringLiteral("Apre la relazione al sestetto scelto"));
    connect(relazione, &QPushButton::clicked, this, [this] {
        const int s = Scelta();
        if (s < 0) return;
        Q_EMIT vaiAllaRelazione(s, Q(TogliCR(pilota_.NodoDegliEsiti().NomeSa(s))));
    });
    // A steel that changed with the method: in the verdict's line until it was seen.
    acciaio_ = new QLabel(this);
    acciaio_->setObjectName(QStringLiteral("AcciaioCambiato"));
    auto* visto = new QPushButton(QStringLiteral("Visto"), this);
    visto->setObjectName(QStringLiteral("AcciaioVisto"));
    connect(visto, &QPushButton::clicked, &pilota_, &Pilota::AcciaioVisto);
    visto_ = visto;
    testata->addWidget(esito_);
    testata->addWidget(acciaio_);
    testata->addWidget(visto_);
    testata->addStretch(1);
    testata->addWidget(vivo);
    testata->addWidget(relazione);
    colonna->addLayout(testata);
    colonna->addWidget(stato_);

    ordinato_ = new QSortFilterProxyModel(this);
    ordinato_->setSourceModel(modello_);
    ordinato_->setSortRole(ModelloRiepilogo::kOrdine);
    ordinato_->setDynamicSortFilter(false);  // rows stay put under the pointer while typing
    tabella_ = new QTableView(this);
    tabella_->setObjectName(QStringLiteral("TabellaRiepilogo"));
    tabella_->setModel(ordinato_);
    tabella_->setSortingEnabled(true);
    tabella_->sortByColumn(ModelloRiepilogo::kNumero, Qt::AscendingOrder);
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella_->setSelectionMode(QAbstractItemView::SingleSelection);
    tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabella_->setItemDelegateForColumn(ModelloRiepilogo::kRapporto, new BarraRapporto(tabella_));
    tabella_->verticalHeader()->hide();
    tabella_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    QHeaderView* h = tabella_->horizontalHeader();
    const int lettera = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int larghezze[] = {4, 14, 18, 16, 6, 6, 6, 6, 6};
    for (int i = 0; i < modello_->columnCount(); ++i) h->resizeSection(i, larghezze[i] * lettera);
    h->setMinimumSectionSize(4 * lettera);
    h->setSectionResizeMode(ModelloRiepilogo::kNome, QHeaderView::Stretch);
    tabella_->setToolTip(
        QStringLiteral("Un clic colora il disegno, due portano alla parte che governa"));
    colonna->addWidget(tabella_, 1);
    connect(tabella_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (aggiornando_) return;
        sestettoScelto_ = Scelta();
        Q_EMIT sceltaCambiata();
    });
    connect(tabella_, &QTableView::doubleClicked, this, &PaginaRiepilogo::Apri);
}

int PaginaRiepilogo::Scelta() const {
    const QModelIndexList righe = tabella_->selectionModel()->selectedRows();
    return righe.isEmpty() ? -1 : ordinato_->mapToSource(righe.constFirst()).row();
}

void PaginaRiepilogo::Scegli(int sestetto) {
    if (sestetto < 0 || sestetto >= modello_->rowCount()) return;
    tabella_->selectRow(ordinato_->mapFromSource(modello_->index(sestetto, 0)).row());
}

void PaginaRiepilogo::Apri(const QModelIndex& indice) {
    const QModelIndex posto = ordinato_->mapToSource(indice);
    const Esiti& e = modello_->GliEsiti();
    const int c = posto.column() - ModelloRiepilogo::kPrimaFamiglia;
    const Riscontro* r =
        c >= 0 ? e.Peggiore(posto.row(), static_cast<Famiglia>(c)) : e.Governa(posto.row());
    if (r != nullptr) Q_EMIT vaiAllaParte(r->famiglia, r->elemento);
}

void PaginaRiepilogo::Aggiorna() {
    const Esame& esame = pilota_.LEsame();
    const bool valido = pilota_.EsitiValidi();
    const Esiti vuoto;
    aggiornando_ = true;
    modello_->Metti(valido ? pilota_.GliEsiti() : vuoto, pilota_.NodoDegliEsiti());
    if (sestettoScelto_ >= 0 && Scelta() < 0) Scegli(sestettoScelto_);
    aggiornando_ = false;

    const auto& [prima, ora] = pilota_.AcciaioCambiato();
    acciaio_->setText(QStringLiteral("Acciaio: era %1, ora è %2").arg(Q(prima), Q(ora)));
    acciaio_->setVisible(!ora.empty());
    visto_->setVisible(!ora.empty());

    const bool aggiornato = pilota_.ComeRelazione();
    const Esiti& r = valido ? pilota_.GliEsiti() : vuoto;
    QString esito, stato;
    QPalette p;  // the application's, but for a verdict
    if (!valido) {
        esito = QStringLiteral("Nessun risultato");
        const auto& perche = esame.incongruenze.empty() ? esame.avvisi : esame.incongruenze;
        if (pilota_.DalVivo() && !perche.empty()) stato = Q(TogliCR(perche.front()));
        stato_->setToolTip(stato);
    } else if (r.peggiore < 0) {
        esito = QStringLiteral("Nessun sestetto");
    } else if (CarichiNulli(pilota_.NodoDegliEsiti())) {
        esito = QStringLiteral("Carichi tutti nulli: niente da verificare");
    } else if (r.Incompleta()) {
        esito = QStringLiteral("VERIFICA INCOMPLETA");
        if (!r.verificato)
            p.setColor(QPalette::WindowText, TestoRapporto(2.0, p.color(QPalette::Window)));
    } else {
        const double massimo = r.Rapporto(r.peggiore);
        esito = r.verificato ? QStringLiteral("VERIFICATO") : QStringLiteral("NON VERIFICATO");
        esito += QStringLiteral("  ") + RapportoMostrato(massimo);
        p.setColor(QPalette::WindowText, TestoRapporto(massimo, p.color(QPalette::Window)));
    }
    if (valido) {
        if (aggiornato) {
            stato = QStringLiteral("come nella relazione");
        } else if (!pilota_.DalVivo()) {
            stato = QStringLiteral("superati");
        } else {
            stato = pilota_.HaVerifica() ? QStringLiteral("dal vivo; in relazione: superati")
                                         : QStringLiteral("dal vivo");
        }
        if (!aggiornato && pilota_.DalVivo() && !esame.avvisi.empty()) {
            stato += QStringLiteral("; interassi!");
            stato_->setToolTip(Q(esame.avvisi.front()));
        } else {
            stato_->setToolTip({});
        }
    }
    if (valido) {  // what was not judged is named first
        for (const Interruzione i : r.interruzioni) {
            stato = Q(TestoInterruzione(i)) + QStringLiteral("; ") + stato;
        }
    }
    QFont f = font();
    f.setBold(true);
    esito_->setFont(f);
    // Superseded results must not pass for the joint's: the word stands out, the verdict does not.
    QPalette superato;
    if (pilota_.Superati()) {
        superato.setColor(QPalette::WindowText,
                          TestoRapporto(0.9, superato.color(QPalette::Window)));
        if (!pilota_.DalVivo()) p = QPalette();
    }
    stato_->setFont(pilota_.Superati() ? f : font());
    stato_->setPalette(superato);
    esito_->setPalette(p);
    esito_->setText(esito);
    stato_->setText(stato);
    stato_->setVisible(!stato.isEmpty());
    Q_EMIT sceltaCambiata();
}

}  // namespace tk07::desktop
