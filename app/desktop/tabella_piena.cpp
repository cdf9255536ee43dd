#include "desktop/tabella_piena.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>

#include "base/testo.h"
#include "desktop/numero.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"
#include "joint/tabella_carichi.h"
#include "session/gestori.h"

namespace tk07::desktop {

namespace {

constexpr const char* kCampi[] = {"Tb_sol_descr", "TxtSN", "TxtTy", "TxtTz",
                                  "TxtMt",        "TxtMy", "TxtMz", "CasCar"};
constexpr int kCaso = 7;
const QString kFormato = QStringLiteral("application/x-tk07-sestetti");

}  // namespace

ModelloCarichi::ModelloCarichi(Pilota& pilota, QObject* padre)
    : QAbstractTableModel(padre), pilota_(pilota) {}

void ModelloCarichi::Aggiorna() {
    const int ora = pilota_.LaSessione().nodo.nSollAg;
    if (ora != righe_) {
        beginResetModel();
        righe_ = ora;
        endResetModel();
    } else if (righe_ > 0) {
        Q_EMIT dataChanged(index(0, 0), index(righe_ - 1, kColonne - 1));
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, kColonne - 1);
}

int ModelloCarichi::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : righe_;
}
int ModelloCarichi::columnCount(const QModelIndex&) const { return kColonne; }

QString ModelloCarichi::Testo(int riga, int colonna) const {
    const Sessione& s = pilota_.LaSessione();
    const Nodo& n = s.nodo;
    if (riga >= n.nSollAg) return {};
    if (colonna == 0) return Q(TogliCR(n.NomeSa(riga)));
    if (colonna == kCaso) return QString::number(n.CasoCarico(riga));
    const double f = colonna <= 3 ? s.unita.FattoreForze : s.unita.FattoreMomenti;
    return Q(TestoCampo(s, ValoreSoll(n, colonna, riga), f));
}

QVariant ModelloCarichi::data(const QModelIndex& i, int ruolo) const {
    if (ruolo == Qt::DisplayRole || ruolo == Qt::EditRole) return Testo(i.row(), i.column());
    if (ruolo == Qt::ToolTipRole) return Testo(i.row(), i.column());  // whole, however narrow
    if (ruolo == Qt::TextAlignmentRole && i.column() > 0) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    return {};
}

QVariant ModelloCarichi::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (verso == Qt::Vertical) return sezione + 1;
    constexpr const char* kNomi[] = {"Descrizione", "N", "Ty", "Tz", "Mt", "My", "Mz", "II"};
    const Unita& u = pilota_.LaSessione().unita;
    QString t = QString::fromUtf8(kNomi[sezione]);
    if (sezione >= 1 && sezione < kCaso) {
        t += QStringLiteral("\n[") + Q(sezione <= 3 ? u.UnitaForze : u.UnitaMomenti) +
             QLatin1Char(']');
    }
    return t;
}

Qt::ItemFlags ModelloCarichi::flags(const QModelIndex& i) const {
    return QAbstractTableModel::flags(i) | Qt::ItemIsEditable;
}

bool ModelloCarichi::setData(const QModelIndex& i, const QVariant& valore, int ruolo) {
    if (ruolo != Qt::EditRole || valore.toString() == Testo(i.row(), i.column())) return false;
    QString testo = valore.toString();
    if (i.column() > 0) {
        testo = NumeroItaliano(testo);
        if (!SoloNumero(testo)) {
            Q_EMIT pilota_.avviso(QStringLiteral("\"%1\" non è un numero: resta il valore di prima")
                                      .arg(testo.left(40)));
            return false;
        }
    }
    Scrivi(i.row(), i.column(), {{testo}});
    return true;
}

void ModelloCarichi::ScriviCella(int riga, int colonna, const QString& testo) {
    Sessione& s = pilota_.LaSessione();
    const int massimo = s.InsDati["VScrollSoll"].massimo;
    if (s.InsDati["VScrollSoll"].abilitato) {
        Scorri(s, "VScrollSoll", riga < massimo ? riga : massimo, "InsDati");
    }
    const int r = riga - s.InsDati["VScrollSoll"].valore;
    const std::string campo = ConIndice(kCampi[colonna], r);
    if (colonna == kCaso) {  // counts with allowable stresses only, where the box is shown
        const int valore = ValoreIniziale(S(testo)) != 0.0 ? 1 : 0;
        if (s.InsDati[campo].visibile) ImpostaCasella(s, campo, valore, "InsDati");
        return;
    }
    ScriviCampo(s, campo, S(testo), 0, "InsDati");
}

void ModelloCarichi::Scrivi(int riga, int colonna, const QList<QStringList>& celle) {
    pilota_.Fai(QStringLiteral("Tabella delle sollecitazioni"), [&] {
        Sessione& s = pilota_.LaSessione();
        for (int r = 0; r < celle.size() && !s.fine; ++r) {
            if (riga + r >= s.nodo.nSollAg) {
                PremiPulsante(s, "Bt_agg_sing_sol", "InsDati");
                if (riga + r >= s.nodo.nSollAg) break;  // the table is full: it was told
            }
            for (int c = 0; c < celle[r].size() && colonna + c < kColonne; ++c) {
                ScriviCella(riga + r, colonna + c, celle[r][c]);
            }
        }
    });
}

TabellaPiena::TabellaPiena(Pilota& pilota, QWidget* padre)
    : QTableView(padre), pilota_(pilota), modello_(new ModelloCarichi(pilota, this)) {
    setObjectName(QStringLiteral("TabellaPiena"));
    setModel(modello_);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setToolTip(QStringLiteral("Ctrl+C copia, Ctrl+V incolla da un foglio di calcolo"));
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    const int lettera = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    // The description takes what the numbers leave; their columns can be widened.
    horizontalHeader()->setMinimumSectionSize(4 * lettera);
    horizontalHeader()->setDefaultSectionSize(9 * lettera);
    horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    horizontalHeader()->resizeSection(kCaso, 4 * lettera);
}

void TabellaPiena::Copia() {
    const QItemSelection scelta = selectionModel()->selection();
    if (scelta.isEmpty()) return;
    const QItemSelectionRange r = scelta.constFirst();
    QString testo;
    for (int i = r.top(); i <= r.bottom(); ++i) {
        for (int c = r.left(); c <= r.right(); ++c) {
            if (c > r.left()) testo += QLatin1Char('\t');
            testo += modello_->index(i, c).data().toString().replace(QLatin1Char('\t'),
                                                                     QLatin1Char(' '));
        }
        testo += QLatin1Char('\n');
    }
    auto* appunti = new QMimeData;
    appunti->setText(testo);
    appunti->setData(kFormato, {});  // its points are decimal, whatever they look like
    QApplication::clipboard()->setMimeData(appunti);
}

void TabellaPiena::Incolla() {
    const QMimeData* appunti = QApplication::clipboard()->mimeData();
    if (appunti == nullptr || !appunti->hasText()) return;
    const QModelIndex qui = currentIndex();
    const SestettiIncollati s = PreparaSestetti(appunti->text(), qui.isValid() ? qui.column() : 0,
                                                appunti->hasFormat(kFormato));
    const Piattaforma& p = pilota_.LaSessione().piattaforma;
    if (!s.errore.isEmpty()) return MostraAvviso(p, S(s.errore));
    if (s.celle.isEmpty()) return;
    if (!s.dubbio.isEmpty() &&
        p.messaggio("Nei numeri da incollare il punto separa i decimali: \"" + S(s.dubbio) +
                        "\" vale " + TestoReale(ValoreIniziale(S(s.dubbio))) + ". Continuare?",
                    kTitoloProgramma, Segno::domanda, Pulsanti::OKAnnulla) != Risposta::OK) {
        return;
    }
    modello_->Scrivi(qui.isValid() ? qui.row() : modello_->rowCount(), s.colonna, s.celle);
    Q_EMIT pilota_.avviso(s.nota);
}

void TabellaPiena::keyPressEvent(QKeyEvent* evento) {
    if (evento->matches(QKeySequence::Copy)) return Copia();
    if (evento->matches(QKeySequence::Paste)) return Incolla();
    QTableView::keyPressEvent(evento);
}

}  // namespace tk07::desktop
