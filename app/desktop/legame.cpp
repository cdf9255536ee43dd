#include "desktop/legame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "base/testo.h"
#include "desktop/numero.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"
#include "modelimport/liste.h"
#include "session/gestori.h"
#include "session/importazione.h"

namespace tk07::desktop {

namespace {

constexpr int kIntervalloTimer = 800;  // ms
constexpr int kInvio = 13, kEsc = 27;

QColor ColoreDi(unsigned long c) {
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                  static_cast<int>((c >> 16) & 0xFF));
}

// Labels that answer to the mouse.
bool Cliccabile(const std::string& base) {
    return base == "LabPiastre" || base.rfind("LabColP", 0) == 0;
}
bool DoppioCliccabile(const std::string& base) { return base == "Lb_sol_num" || base == "Lbul"; }

// Fields that hold one number; the others are descriptions, and lists whose commas separate.
bool Numerico(const std::string& base) {
    for (const char* altro :
         {"Tb_sol_descr", "NodiTxt", "Astetxt", "CdCTxt", "CdC2Txt", "SesTxt"}) {
        if (base == altro) return false;
    }
    return true;
}
// Fields whose text must be a number: those that the session reads strictly, where another text
// would end the program, and those of the list of bolts, where it would send a bolt to 0.
bool Stretto(const std::string& base) {
    for (const char* nome : {"Tb_deltaX", "Tb_deltaY", "Tb_diam", "Xbul", "Ybul", "Fibul"}) {
        if (base == nome) return true;
    }
    return false;
}
// Fields that hold a list of numbers.
bool DiNumeri(const std::string& base) { return !Numerico(base) && base != "Tb_sol_descr"; }

// The decimal comma becomes the point that the fields read, with the caret where it was.
void CorreggiVirgola(QLineEdit* campo) {
    const QString prima = campo->text(), dopo = VirgolaInPunto(prima);
    if (dopo == prima) return;
    const int daFine = static_cast<int>(prima.size()) - campo->cursorPosition();
    campo->setText(dopo);
    campo->setCursorPosition(static_cast<int>(dopo.size()) - daFine);
    campo->setModified(true);
}

}  // namespace

Pannello& PannelloDi(Sessione& s, const std::string& nome) {
    for (auto [n, p] : {std::pair{"InsDati", &s.InsDati},
                        {"FormBulloni", &s.FormBulloni},
                        {"PropMateriali", &s.PropMateriali},
                        {"FormOpz_Cond", &s.FormOpz_Cond},
                        {"FormColori", &s.FormColori},
                        {"Soll3D", &s.Soll3D}}) {
        if (nome == n) return *p;
    }
    return s.selezione;
}

Legame::Legame(Pilota& pilota, std::string pannello, QObject* padre)
    : QObject(padre), pilota_(pilota), pannello_(std::move(pannello)) {}

Pannello& Legame::P() const { return PannelloDi(pilota_.LaSessione(), pannello_); }

QWidget* Legame::Crea(const std::string& nome, QWidget* padre) {
    if (!P().Ha(nome)) return nullptr;
    const Controllo& c = P()[nome];
    QWidget* w = nullptr;
    switch (c.tipo) {
        case TipoControllo::etichetta: {
            auto* l = new QLabel(padre);
            l->setTextFormat(Qt::PlainText);
            if (Cliccabile(DividiNome(nome).base) || DoppioCliccabile(DividiNome(nome).base)) {
                l->setCursor(Qt::PointingHandCursor);
            }
            w = l;
            break;
        }
        case TipoControllo::campo: {
            auto* e = new QLineEdit(padre);
            e->setMinimumWidth(56);
            w = e;
            break;
        }
        case TipoControllo::lista: {
            auto* l = new QComboBox(padre);
            l->setMaxVisibleItems(20);
            l->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
            l->setMinimumContentsLength(12);
            w = l;
            break;
        }
        case TipoControllo::casella:
            w = new QCheckBox(padre);
            break;
        case TipoControllo::opzione:
            w = new QRadioButton(padre);
            break;
        case TipoControllo::pulsante: {
            auto* b = new QPushButton(padre);
            b->setAutoDefault(false);
            w = b;
            break;
        }
        case TipoControllo::scorrimento:
            w = new QScrollBar(Qt::Vertical, padre);
            break;
        case TipoControllo::superficie:
        case TipoControllo::schede:
        case TipoControllo::timer:
            return nullptr;  // made by the window
    }
    Aggancia(nome, w);
    return w;
}

void Legame::Aggancia(const std::string& nome, QObject* oggetto) {
    if (!P().Ha(nome)) return;
    const Controllo& c = P()[nome];
    oggetto->setObjectName(Q(nome));
    oggetti_[nome] = oggetto;
    nomi_.insert(oggetto, Q(nome));
    if (auto* w = qobject_cast<QWidget*>(oggetto)) {
        w->setToolTip(Q(c.suggerimento));
        w->setAccessibleName(Q(c.testo.empty() ? c.suggerimento : c.testo));
    }
    Collega(nome, c.tipo, oggetto);
    AggiornaUno(c, oggetto);
}

void Legame::AgganciaTimer() {
    for (const auto& [nome, c] : P().controlli) {
        if (c.tipo != TipoControllo::timer || oggetti_.count(nome) != 0) continue;
        auto* t = new QTimer(this);
        t->setInterval(kIntervalloTimer);
        Aggancia(nome, t);
    }
}

void Legame::Collega(const std::string& nome, TipoControllo tipo, QObject* oggetto) {
    Sessione& s = pilota_.LaSessione();
    const auto cosa = [this, nome](const QString& verbo) {
        const Controllo& c = P()[nome];
        return verbo + Q(c.testo.empty() ? c.suggerimento : c.testo);
    };
    switch (tipo) {
        case TipoControllo::pulsante:
            if (auto* b = qobject_cast<QAbstractButton*>(oggetto)) {
                connect(b, &QAbstractButton::clicked, this, [this, nome, cosa, &s] {
                    pilota_.Fai(cosa({}), [&] {
                        if (!Consentito(nome)) return;
                        if (nome == "Bt_salva" || nome == "Bt_salva_con_nome") {
                            pilota_.Salva(nome);
                        } else {
                            PremiPulsante(s, nome, pannello_);
                        }
                    });
                });
            }
            break;
        case TipoControllo::casella:
            if (auto* b = qobject_cast<QAbstractButton*>(oggetto)) {
                connect(b, &QAbstractButton::clicked, this, [this, nome, cosa, &s](bool acceso) {
                    pilota_.Fai(cosa({}),
                                [&] { ImpostaCasella(s, nome, acceso ? 1 : 0, pannello_); });
                });
            }
            break;
        case TipoControllo::opzione:
            if (auto* b = qobject_cast<QAbstractButton*>(oggetto)) {
                connect(b, &QAbstractButton::clicked, this, [this, nome, cosa, &s] {
                    pilota_.Fai(cosa({}), [&] { ScegliOpzione(s, nome, pannello_); });
                });
            }
            break;
        case TipoControllo::lista:
            if (auto* l = qobject_cast<QComboBox*>(oggetto)) {
                connect(l, &QComboBox::activated, this, [this, nome, cosa, &s](int indice) {
                    if (P()[nome].indice == indice) return;
                    pilota_.Fai(cosa({}), [&] { ScegliVoce(s, nome, indice, pannello_); });
                });
                l->installEventFilter(this);
            }
            break;
        case TipoControllo::scorrimento:
            if (auto* b = qobject_cast<QScrollBar*>(oggetto)) {
                connect(b, &QScrollBar::valueChanged, this, [this, nome, &s](int valore) {
                    pilota_.Fai({}, [&] { Scorri(s, nome, valore, pannello_); });
                });
            }
            break;
        case TipoControllo::timer:
            if (auto* t = qobject_cast<QTimer*>(oggetto)) {
                t->setSingleShot(true);
                connect(t, &QTimer::timeout, this,
                        [this, nome, &s] { pilota_.Muovi([&] { Timer(s, nome, pannello_); }); });
            }
            break;
        case TipoControllo::schede:
            if (auto* t = qobject_cast<QTabWidget*>(oggetto)) {
                // The page on top is the panel's state alone.
                connect(t, &QTabWidget::currentChanged, this, [this, nome](int pagina) {
                    P()[nome].valore = pagina;
                });
            }
            break;
        case TipoControllo::campo:
        case TipoControllo::etichetta:
        case TipoControllo::superficie:
            oggetto->installEventFilter(this);
            break;
    }
    if (auto* campo = qobject_cast<QLineEdit*>(oggetto)) {
        connect(campo, &QLineEdit::textEdited, this, [this, nome, campo] {
            if (Numerico(DividiNome(nome).base)) {
                CorreggiVirgola(campo);
                SegnaNumero(campo);
            } else if (DiNumeri(DividiNome(nome).base)) {
                std::vector<short> voci;
                Segna(campo, LeggiLista(S(campo->text()), voci));
            }
            if (pannello_ == "InsDati") pilota_.TestoInCorso(nome, S(campo->text()));
        });
    }
}

// Presses that would end the program or bring wrong numbers are told of before they are carried
// out.
bool Legame::Consentito(const std::string& pulsante) {
    const Sessione& s = pilota_.LaSessione();
    if (pannello_ == "FormBulloni" && BulloniOltreIlMassimo(s, pulsante)) {
        MostraAvviso(s.piattaforma,
                     "I bulloni sarebbero più di 100: l'operazione non è stata eseguita.");
        return false;
    }
    if (pannello_ == "Soll3D" && pulsante == "Importa") {
        const std::string avviso = AvvisoAstaAssente(s, TestiSoll3D(s));
        return avviso.empty() ||
               s.piattaforma.messaggio(avviso + "\nImportare lo stesso?", kTitoloProgramma,
                                       Segno::esclamazione, Pulsanti::OKAnnulla) == Risposta::OK;
    }
    return true;
}

bool Legame::eventFilter(QObject* oggetto, QEvent* evento) {
    const auto it = nomi_.constFind(oggetto);
    if (it == nomi_.constEnd()) return false;
    const std::string nome = S(it.value());
    if (qobject_cast<QComboBox*>(oggetto) != nullptr) {
        // A page that is scrolled must not change the list that passes under the pointer.
        if (evento->type() != QEvent::Wheel) return false;
        evento->ignore();
        return true;
    }
    if (auto* campo = qobject_cast<QLineEdit*>(oggetto)) return EventoCampo(campo, nome, evento);
    return EventoEtichetta(nome, evento);
}

// A text that is not wholly a number stands out while it is typed: only its beginning counts.
void Legame::SegnaNumero(QLineEdit* campo) {
    Segna(campo, campo->text().trimmed().isEmpty() || SoloNumero(campo->text()));
}

void Legame::Segna(QLineEdit* campo, bool buono) {
    QPalette p;
    if (!buono) {
        const bool scuro = p.color(QPalette::Base).lightness() < 128;
        p.setColor(QPalette::Text, scuro ? QColor(255, 120, 120) : QColor(198, 40, 40));
    }
    campo->setPalette(p);
}

// Whether the text may go to the session; what would end the program goes back to what it was.
bool Legame::TestoAccettabile(QLineEdit* campo, const std::string& nome, int tasto) {
    const std::string base = DividiNome(nome).base;
    if (!Numerico(base)) return true;
    const QString testo = campo->text();
    const bool numero = SoloNumero(testo);
    if (!NumeroNeiLimiti(testo) || (Stretto(base) && !numero)) {
        campo->setText(Q(P()[nome].testo));
        SegnaNumero(campo);
        if (tasto != kEsc) {
            const QString detto = QStringLiteral(
                                      "\"%1\" non può essere preso come numero: resta il "
                                      "valore di prima")
                                      .arg(testo.left(40));
            Q_EMIT pilota_.avviso(detto);
            // The line that tells is behind the panel's window.
            if (pannello_ != "InsDati") {
                QToolTip::showText(campo->mapToGlobal(QPoint(0, campo->height())), detto, campo);
            }
        }
        return false;
    }
    if (tasto != kEsc && !numero && !testo.trimmed().isEmpty()) {
        Q_EMIT pilota_.avviso(QStringLiteral("\"%1\" non è un numero: preso come %2")
                                  .arg(testo.left(40), Q(TestoReale(ValoreIniziale(S(testo))))));
    }
    return true;
}

void Legame::LasciaCampo(QLineEdit* campo, const std::string& nome, int tasto) {
    if (!TestoAccettabile(campo, nome, tasto)) {
        pilota_.Fai({}, [] {});  // drawing and judgement without the text
        return;
    }
    const std::string testo = S(campo->text());
    campo->setModified(false);
    const Controllo& c = P()[nome];
    pilota_.Fai(Q(c.suggerimento.empty() ? nome : c.suggerimento),
                [&] { ScriviCampo(pilota_.LaSessione(), nome, testo, tasto, pannello_); });
}

bool Legame::EventoCampo(QLineEdit* campo, const std::string& nome, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::FocusIn: {
            pilota_.InMano(pannello_, nome, [this, campo, nome] {
                if (campo->isModified()) LasciaCampo(campo, nome, 0);
            });
            Q_EMIT fuocoCampo(nome);
            // After the press that gave the focus has placed its caret.
            QTimer::singleShot(0, campo, [campo] {
                if (campo->hasFocus() && !campo->isModified()) campo->selectAll();
            });
            break;
        }
        case QEvent::FocusOut: {
            const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
            if (motivo == Qt::PopupFocusReason || motivo == Qt::ActiveWindowFocusReason) break;
            // A text that nobody touched is the rounded form of the stored value, not a new one.
            pilota_.NonPiuInMano(pannello_, nome);
            if (campo->isModified()) LasciaCampo(campo, nome, 0);
            break;
        }
        case QEvent::ShortcutOverride: {
            // With no text in hand undo and redo are those of the joint, not of the field.
            auto* t = static_cast<QKeyEvent*>(evento);
            if (campo->isModified() ||
                !(t->matches(QKeySequence::Undo) || t->matches(QKeySequence::Redo))) {
                break;
            }
            evento->ignore();
            return true;
        }
        case QEvent::KeyPress: {
            const int tasto = static_cast<QKeyEvent*>(evento)->key();
            const bool invio = tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
            if (!invio && tasto != Qt::Key_Escape) break;
            LasciaCampo(campo, nome, invio ? kInvio : kEsc);
            campo->selectAll();
            return true;
        }
        case QEvent::MouseButtonDblClick: {
            const std::string base = DividiNome(nome).base;
            if (base.rfind("Txt", 0) != 0) break;
            const QString prima = campo->text();
            pilota_.Fai(QStringLiteral("Conversione"),
                        [&] { DoppioClic(pilota_.LaSessione(), nome, pannello_); });
            // The converter's answer counts as typed.
            if (campo->text() != prima) {
                campo->setModified(true);
                pilota_.TestoInCorso(nome, S(campo->text()));
            }
            return true;
        }
        default:
            break;
    }
    return false;
}

bool Legame::EventoEtichetta(const std::string& nome, QEvent* evento) {
    Sessione& s = pilota_.LaSessione();
    const std::string base = DividiNome(nome).base;
    const QString cosa = Q(P()[nome].suggerimento);
    if (evento->type() == QEvent::MouseButtonPress && Cliccabile(base)) {
        pilota_.Fai(cosa, [&] { Clic(s, nome, pannello_); });
        return true;
    }
    if (evento->type() == QEvent::MouseButtonDblClick && DoppioCliccabile(base)) {
        pilota_.Fai(cosa, [&] { DoppioClic(s, nome, pannello_); });
        return true;
    }
    if (base == "LabPiastre" && evento->type() == QEvent::Enter) {
        pilota_.Muovi([&] { Mouse(s, nome, EventoMouse::muovi, 0, 0, pannello_); });
    }
    if (base == "LabPiastre" && evento->type() == QEvent::Leave) {
        pilota_.Muovi([&] { Mouse(s, "Picture2", EventoMouse::muovi, 0, 0, pannello_); });
    }
    return false;
}

QWidget* Legame::CreaGruppo(const GruppoTavola& g, QWidget* padre) {
    auto* cornice = new QGroupBox(Q(g.titolo), padre);
    if (*g.cornice != '\0') Aggancia(g.cornice, cornice);
    auto* griglia = new QGridLayout(cornice);
    griglia->setHorizontalSpacing(6);
    griglia->setVerticalSpacing(4);
    griglia->setContentsMargins(8, 6, 8, 8);
    std::map<std::pair<int, int>, QWidget*> perPosto;
    const auto metti = [&](const std::string& nome, int r, int c, const VoceTavola& v, bool primo) {
        QWidget* w = Elemento(nome) != nullptr ? Elemento(nome) : Crea(nome, cornice);
        if (w == nullptr) return;
        if (primo && *v.didascalia != '\0') {
            auto* d = new QLabel(QString::fromUtf8(v.didascalia), cornice);
            d->setBuddy(w);
            griglia->addWidget(d, r, c);
        }
        const int colonna = *v.didascalia != '\0' ? c + 1 : c;
        griglia->addWidget(w, r, colonna, 1, v.ampiezza);
        perPosto[{r, colonna}] = w;
    };
    for (const VoceTavola& v : g.voci) {
        if (v.quanti == 0) {
            metti(v.controllo, v.riga, v.colonna, v, true);
            continue;
        }
        for (int i = 0; i < v.quanti; ++i) {
            metti(ConIndice(v.controllo, i), v.riga + i * v.passoRiga,
                  v.colonna + i * v.passoColonna, v, i == 0);
        }
    }
    // The Tab key goes along the rows, whatever the order of the table.
    QWidget* prima = nullptr;
    for (const auto& [posto, w] : perPosto) {
        if (prima != nullptr) QWidget::setTabOrder(prima, w);
        prima = w;
    }
    return cornice;
}

void Legame::AggiornaUno(const Controllo& c, QObject* oggetto) {
    const QSignalBlocker blocco(oggetto);
    auto* w = qobject_cast<QWidget*>(oggetto);
    if (w != nullptr && c.tipo != TipoControllo::superficie && c.tipo != TipoControllo::schede) {
        w->setVisible(c.visibile);
        if (w->isEnabled() != c.abilitato) w->setEnabled(c.abilitato);
    }
    if (auto* l = qobject_cast<QLabel*>(oggetto)) {
        if (l->text() != Q(c.testo)) l->setText(Q(c.testo));
        if (l->font().underline() != c.sottolineato) {
            QFont f = l->font();
            f.setUnderline(c.sottolineato);
            l->setFont(f);
        }
        if (c.colore != kColoreTesto) {
            QPalette p = l->palette();
            p.setColor(QPalette::WindowText, ColoreDi(c.colore));
            l->setPalette(p);
        }
    } else if (auto* e = qobject_cast<QLineEdit*>(oggetto)) {
        // A text in the course of being typed is nobody else's.
        if (!e->isModified() && e->text() != Q(c.testo)) {
            e->setText(Q(c.testo));
            if (!e->hasFocus()) e->setCursorPosition(0);  // a long text shows its beginning
        }
        QPalette p;
        if (c.sfondo != kColoreFinestra) p.setColor(QPalette::Base, ColoreDi(c.sfondo));
        if (c.colore != kColoreTesto) p.setColor(QPalette::Text, ColoreDi(c.colore));
        e->setPalette(p);
        if (c.sfondo != kColoreFinestra && !e->hasFocus()) {  // flagged: it takes the focus
            e->setFocus(Qt::OtherFocusReason);
            e->selectAll();
        }
    } else if (auto* g = qobject_cast<QGroupBox*>(oggetto)) {
        g->setTitle(Q(c.testo));
    } else if (auto* k = qobject_cast<QComboBox*>(oggetto)) {
        bool uguali = k->count() == static_cast<int>(c.voci.size());
        for (int i = 0; uguali && i < k->count(); ++i) {
            uguali = k->itemText(i) == Q(c.voci[static_cast<std::size_t>(i)]);
        }
        if (!uguali) {
            k->clear();
            for (const std::string& v : c.voci) k->addItem(Q(v));
        }
        k->setCurrentIndex(c.indice);
    } else if (auto* b = qobject_cast<QAbstractButton*>(oggetto)) {
        b->setText(Q(c.testo));
        if (c.tipo == TipoControllo::opzione) b->setAutoExclusive(false);
        if (b->isCheckable()) b->setChecked(c.valore != 0);
    } else if (auto* sb = qobject_cast<QScrollBar*>(oggetto)) {
        sb->setRange(c.minimo, c.massimo);
        sb->setValue(c.valore);
    } else if (auto* schede = qobject_cast<QTabWidget*>(oggetto)) {
        schede->setCurrentIndex(c.valore);
    } else if (auto* t = qobject_cast<QTimer*>(oggetto)) {
        if (c.abilitato && !t->isActive()) t->start();
        if (!c.abilitato) t->stop();
    }
}

void Legame::Aggiorna() {
    for (const auto& [nome, oggetto] : oggetti_) {
        if (oggetto && P().Ha(nome)) AggiornaUno(P()[nome], oggetto);
    }
}

void Legame::Azzera() {
    oggetti_.clear();
    nomi_.clear();
}

QObject* Legame::Oggetto(const std::string& nome) const {
    const auto it = oggetti_.find(nome);
    return it == oggetti_.end() ? nullptr : it->second.data();
}

QWidget* Legame::Elemento(const std::string& nome) const {
    return qobject_cast<QWidget*>(Oggetto(nome));
}

std::vector<std::string> Legame::SenzaElemento() const {
    std::vector<std::string> mancano;
    for (const auto& [nome, c] : P().controlli) {
        if (Oggetto(nome) == nullptr) mancano.push_back(nome);
    }
    return mancano;
}

}  // namespace tk07::desktop
