#include "desktop/pannello_secondario.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "base/testo.h"
#include "desktop/controlli.h"
#include "desktop/pianta_bulloni.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"
#include "drawing/colori.h"
#include "session/importazione.h"

namespace tk07::desktop {

namespace {

// Colours of the drawing's table, as screens show them.
QColor ColoreTavola(int i) {
    const Rgb c = ColoreVideo(i);
    return {c.r, c.g, c.b};
}

// The five line types of the structure's members.
QIcon IconaLinea(int i, const QPalette& tavolozza) {
    constexpr Qt::PenStyle kTipi[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                      Qt::DashDotDotLine};
    QPixmap disegno(44, 12);
    disegno.fill(Qt::transparent);
    QPainter p(&disegno);
    p.setPen(QPen(tavolozza.color(QPalette::WindowText), 2.0, kTipi[i % 5]));
    p.drawLine(0, 6, 43, 6);
    return QIcon(disegno);
}

// A square with a rim, so that white and black are seen on every ground.
QIcon IconaColore(int i, const QPalette& tavolozza) {
    QPixmap disegno(16, 16);
    disegno.fill(ColoreTavola(i));
    QPainter p(&disegno);
    p.setPen(tavolozza.color(QPalette::WindowText));
    p.drawRect(0, 0, 15, 15);
    return QIcon(disegno);
}

void TingiElemento(QWidget* w, int colore) {
    const QColor c = ColoreTavola(colore);
    w->setStyleSheet(QStringLiteral("background-color: %1; color: %2; border: 1px solid gray; "
                                    "padding: 3px; min-width: 48px;")
                         .arg(c.name(), c.lightness() > 120 ? QStringLiteral("black")
                                                            : QStringLiteral("white")));
}

}  // namespace

PannelloSecondario::PannelloSecondario(Pilota& pilota, const std::string& nome, QWidget* padre)
    : QDialog(padre), pilota_(pilota), nome_(nome), legame_(new Legame(pilota, nome, this)) {
    setObjectName(Q(nome));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(Q(PannelloDi(pilota.LaSessione(), nome).titolo));
    if (nome == "FormBulloni") {
        ComponiBulloni();
    } else if (nome == "FormOpz_Cond") {
        ComponiOpzioni();
    } else if (nome == "FormColori") {
        ComponiColori();
    } else {
        auto* colonna = new QVBoxLayout(this);
        ComponiGruppi(colonna);
        if (nome == "selezione") {
            if (QWidget* trovate = legame_->Elemento("SelezioneStr_"))
                trovate->setMinimumWidth(220);
            for (int i = 0; QWidget* w = legame_->Elemento(ConIndice("LineeCh", i)); ++i) {
                qobject_cast<QCheckBox*>(w)->setIcon(IconaLinea(i, palette()));
                qobject_cast<QCheckBox*>(w)->setIconSize({44, 12});
            }
        }
        if (nome == "Soll3D") {
            auto* cornice = new QGroupBox(QStringLiteral("Anteprima dell'importazione"), this);
            auto* dentro = new QVBoxLayout(cornice);
            auto* testo = new QPlainTextEdit(cornice);
            testo->setObjectName(QStringLiteral("AnteprimaImport"));
            testo->setReadOnly(true);
            testo->setMinimumSize(660, 230);
            testo->setLineWrapMode(QPlainTextEdit::NoWrap);
            dentro->addWidget(testo);
            colonna->insertWidget(1, cornice, 1);
            spiega_ = testo;
        }
    }
    legame_->AgganciaTimer();
    Aggiorna();
}

void PannelloSecondario::ComponiGruppi(QVBoxLayout* colonna) {
    for (const GruppoTavola& g : GruppiPannello(nome_)) {
        colonna->addWidget(legame_->CreaGruppo(g, this));
    }
}

void PannelloSecondario::ComponiBulloni() {
    auto* riga = new QHBoxLayout(this);
    // As wide with an empty list as with a full one.
    auto* lista = new QWidget(this);
    lista->setFixedWidth(52 * fontMetrics().averageCharWidth() + 110);
    auto* sinistra = new QVBoxLayout(lista);
    sinistra->setContentsMargins(0, 0, 0, 0);
    ComponiGruppi(sinistra);
    if (auto* elenco = qobject_cast<QGroupBox*>(sinistra->itemAt(0)->widget())) {
        auto* griglia = qobject_cast<QGridLayout*>(elenco->layout());
        int c = 0;
        for (const char* testo : {"N.", "X", "Y", "Diametro", "Sel."}) {
            auto* l = new QLabel(QString::fromUtf8(testo), elenco);
            griglia->addWidget(l, 0, c++);
        }
        // The labels of the axes stand over their columns.
        for (const auto& [nome, colonna] : {std::pair{"LabelX", 1}, {"LabelY", 2}}) {
            delete griglia->itemAtPosition(0, colonna)->widget();
            griglia->addWidget(legame_->Crea(nome, elenco), 0, colonna);
        }
        griglia->addWidget(legame_->Crea("Scroll1", elenco), 1, 5, 9, 1);
        griglia->setColumnMinimumWidth(0, 30);
        for (int k = 1; k <= 3; ++k) griglia->setColumnStretch(k, 1);
        griglia->setRowStretch(10, 1);
        elenco->setMinimumHeight(fontMetrics().height() * 21);
    }
    // On a low screen the groups scroll, the plan stays.
    auto* area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(lista);
    area->setFixedWidth(lista->width() + area->verticalScrollBar()->sizeHint().width());
    const int schermo = screen()->availableSize().height() - 40;
    const int alto = std::min(sinistra->minimumSize().height(), schermo - 24);
    area->setMinimumHeight(alto);
    riga->addWidget(area);
    auto* destra = new QVBoxLayout;
    pianta_ = new PiantaBulloni(pilota_, PiantaBulloni::Fonte::pannello, this);
    legame_->Aggancia("DisBulloni", pianta_);
    auto* aiuto = new QLabel(
        QStringLiteral("Rotella: ingrandisce; doppio clic: adatta. Trascinare un bullone lo sposta "
                       "a passi di 5 mm, trascinare sul vuoto seleziona (Ctrl aggiunge). "
                       "Tratteggio: distanze minime; punti: massime."),
        this);
    aiuto->setWordWrap(true);
    destra->addWidget(pianta_, 1);
    destra->addWidget(aiuto);
    riga->addLayout(destra, 1);
    resize(980, std::min(std::max(700, alto + 24), schermo));
}

void PannelloSecondario::ComponiOpzioni() {
    auto* fuori = new QVBoxLayout(this);
    auto* riga = new QHBoxLayout;
    QWidget* gruppi = legame_->Crea("ListaGruppi", this);
    riga->addWidget(new QLabel(QStringLiteral("Gruppo"), this));
    riga->addWidget(gruppi, 1);
    fuori->addLayout(riga);
    auto* area = new QScrollArea(this);
    area->setWidgetResizable(true);
    auto* foglio = new QWidget(area);
    auto* griglia = new QGridLayout(foglio);
    const Sessione& s = pilota_.LaSessione();
    // One row of the file, one row of the window.
    for (std::size_t i = 0; i < s.opz.Righe.size(); ++i) {
        const std::string n = std::to_string(i);
        const int r = static_cast<int>(i);
        for (const char* base : {"LabP", "checkP", "FrameP"}) {
            if (QWidget* w = legame_->Crea(base + n, foglio)) griglia->addWidget(w, r, 0);
        }
        for (const char* base : {"TextP", "LabColP"}) {
            if (QWidget* w = legame_->Crea(base + n, foglio)) griglia->addWidget(w, r, 1);
        }
        auto* scelte = new QHBoxLayout;
        bool una = false;
        for (int k = 0; QWidget* w = legame_->Crea("OptP" + n + "_" + std::to_string(k), foglio);
             ++k) {
            scelte->addWidget(w);
            una = true;
        }
        if (una) {
            griglia->addLayout(scelte, r, 1);
        } else {
            delete scelte;
        }
    }
    griglia->setRowStretch(static_cast<int>(s.opz.Righe.size()), 1);
    griglia->setColumnStretch(0, 1);
    area->setWidget(foglio);
    fuori->addWidget(area, 1);
    auto* fine = new QHBoxLayout;
    fine->addStretch(1);
    fine->addWidget(legame_->Crea("OpzOK", this));
    fine->addWidget(legame_->Crea("OpzAnnulla", this));
    fuori->addLayout(fine);
    resize(640, 420);
}

void PannelloSecondario::ComponiColori() {
    auto* griglia = new QGridLayout(this);
    constexpr int kInRiga = 5;
    for (int i = 0; QWidget* w = legame_->Crea(ConIndice("Colore", i), this); ++i) {
        TingiElemento(w, i);
        griglia->addWidget(w, i / kInRiga, i % kInRiga);
    }
    griglia->addWidget(legame_->Crea("ColoriAnnulla", this), 9, 0, 1, kInRiga);
}

// Colour labels carry the colour of their row, the colour filters that of their number.
void PannelloSecondario::Tingi() {
    const Pannello& p = PannelloDi(pilota_.LaSessione(), nome_);
    for (const auto& [nome, c] : p.controlli) {
        if (nome.rfind("LabColP", 0) == 0) {
            if (QWidget* w = legame_->Elemento(nome)) TingiElemento(w, c.valore);
        }
        if (nome.rfind("ColoriCh", 0) == 0) {
            if (QWidget* w = legame_->Elemento(nome)) {
                auto* casella = qobject_cast<QCheckBox*>(w);
                casella->setIcon(IconaColore(DividiNome(nome).indice, palette()));
            }
        }
    }
}

void PannelloSecondario::Aggiorna() {
    legame_->Aggiorna();
    if (nome_ == "FormOpz_Cond" || nome_ == "selezione") Tingi();
    if (pianta_ != nullptr) pianta_->update();
    if (auto* testo = qobject_cast<QPlainTextEdit*>(spiega_)) {
        const Sessione& s = pilota_.LaSessione();
        const TestiImportazione t = TestiSoll3D(s);
        const bool maxMin = s.InsDati["CheckMaxMin"].valore == 1;
        // The result files are read again only for another question.
        const std::string chiave = t.nodi + "|" + t.aste + "|" + t.casi + "|" + t.condizioni + "|" +
                                   t.sestetti + "|" + std::to_string(s.nodo.nSollAg) +
                                   (maxMin ? "m" : "");
        if (chiave == anteprimaDi_) return;
        anteprimaDi_ = chiave;
        testo->setPlainText(
            Q(AnteprimaImportazione(s, t, maxMin) + "\n" + SpiegaImportazione(maxMin)));
    }
}

void PannelloSecondario::closeEvent(QCloseEvent* evento) {
    evento->ignore();  // the session decides; the window goes with the panel
    Sessione& s = pilota_.LaSessione();
    if (!PannelloDi(s, nome_).aperto) {
        evento->accept();
        return;
    }
    pilota_.Fai({}, [&] { PremiPulsante(s, PulsanteDiChiusura(nome_), nome_); });
}

void PannelloSecondario::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        // Bolts that are being placed are not thrown away by a key; elsewhere it is Cancel.
        if (pianta_ == nullptr) {
            close();
        } else {
            pianta_->Rinuncia();
        }
        return;
    }
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) return;
    QDialog::keyPressEvent(evento);
}

}  // namespace tk07::desktop
