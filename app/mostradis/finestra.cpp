#include "mostradis/finestra.h"

#include <QAction>
#include <QActionGroup>
#include <QDateTime>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <cmath>
#include <utility>
#include <vector>

#include "drawing/dis.h"
#include "mostradis/lettura.h"
#include "render/esporta.h"
#include "render/tavola.h"

namespace tk07 {

namespace {

constexpr int kAttesaMs = 120;
constexpr double kPassoZoom = 1.3;

const char* const kTasti =
    "Trascinare con il mouse: sposta il disegno\n"
    "Rotella: ingrandisce e riduce nel punto del puntatore\n"
    "F, Home: adatta alla finestra\n"
    "M: misura tra due punti, con aggancio a estremi e centri; Esc: fine\n"
    "F5, Ctrl+V: rilegge il file (avviene da sé quando il file cambia)\n"
    "Ctrl+E: esporta in SVG, PDF, PNG; Ctrl+P: stampa";

QIcon Campione(int indice, Carta carta) {
    QPixmap p(16, 16);
    p.fill(ColoreCarta(carta));
    QPainter pittore(&p);
    pittore.fillRect(QRect(2, 2, 12, 12), ColoreSuCarta(indice, carta));
    return QIcon(p);
}

}  // namespace

Finestra::Finestra(const Opzioni& opz) : nomiStrati_(NomiStrati(opz)) {
    auto* centro = new QWidget(this);
    auto* colonna = new QVBoxLayout(centro);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);
    avviso_ = new QLabel(centro);
    avviso_->setObjectName("Avviso");
    avviso_->setWordWrap(true);
    avviso_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    avviso_->setStyleSheet("background:#b3261e; color:white; padding:6px 10px;");
    avviso_->hide();
    vista_ = new Vista(centro);
    vista_->Opzioni().spessori = SpessoriPenne(opz);
    colonna->addWidget(avviso_);
    colonna->addWidget(vista_, 1);
    setCentralWidget(centro);
    setWindowTitle(QString::fromUtf8(kTitoloVisualizzatore).chopped(3));
    servizio_ = new ServizioFinestra(
        [this](const QString& comando) {
            if (comando == "^v") {
                Ricarica();
            } else if (comando == "attiva") {
                if (isMinimized()) showNormal();
                raise();
                activateWindow();
            }
        },
        this);
    setAcceptDrops(true);
    resize(1200, 820);

    posizione_ = new QLabel(this);
    misura_ = new QLabel(this);
    misura_->setObjectName("Misura");
    statusBar()->addPermanentWidget(misura_);  // messages of the moment do not hide it
    statusBar()->addPermanentWidget(posizione_);
    vista_->suPosizione = [this](const QString& t) { posizione_->setText(t); };
    vista_->suMisura = [this](const QString& t) { misura_->setText(t); };

    FaiStrati();
    FaiMenu();
    attesa_.setSingleShot(true);
    attesa_.setInterval(kAttesaMs);
    connect(&attesa_, &QTimer::timeout, this, [this] { ControllaFile(); });
    for (const auto segnale :
         {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
        connect(&guardia_, segnale, this, [this] { attesa_.start(); });
    }
}

void Finestra::FaiMenu() {
    QToolBar* barra = addToolBar("Comandi");
    barra->setMovable(false);
    const auto voce = [&](QMenu* menu, const char* testo, const std::vector<QKeySequence>& tasti,
                          const char* aiuto, bool inBarra) {
        auto* a = new QAction(QString::fromUtf8(testo), this);
        a->setShortcuts(QList<QKeySequence>(tasti.begin(), tasti.end()));
        QString suggerimento = QString::fromUtf8(aiuto);
        if (!tasti.empty()) {
            suggerimento += " (" + tasti[0].toString(QKeySequence::NativeText) + ")";
        }
        a->setToolTip(suggerimento);
        a->setStatusTip(QString::fromUtf8(aiuto));
        menu->addAction(a);
        if (inBarra) barra->addAction(a);
        return a;
    };
    QMenu* file = menuBar()->addMenu("&File");
    connect(voce(file, "&Apri...", {QKeySequence::Open}, "Apre un file di disegno", true),
            &QAction::triggered, this, [this] { ChiediFile(); });
    connect(voce(file, "&Ricarica", {Qt::Key_F5, Qt::CTRL | Qt::Key_V},
                 "Rilegge il file, con lo stesso ingrandimento", true),
            &QAction::triggered, this, [this] { Ricarica(); });
    file->addSeparator();
    connect(voce(file, "&Esporta...", {Qt::CTRL | Qt::Key_E},
                 "Scrive la tavola in scala come SVG, PDF o PNG", true),
            &QAction::triggered, this, [this] { ChiediEsporta(); });
    connect(voce(file, "&Stampa...", {QKeySequence::Print}, "Stampa la tavola in scala", true),
            &QAction::triggered, this, [this] { ChiediStampa(); });
    file->addSeparator();
    connect(voce(file, "E&sci", {Qt::CTRL | Qt::Key_Q}, "Chiude il programma", false),
            &QAction::triggered, this, [this] { close(); });

    barra->addSeparator();
    QMenu* vista = menuBar()->addMenu("&Visualizza");
    connect(voce(vista, "&Adatta", {Qt::Key_F, Qt::Key_Home}, "Mostra tutto il disegno", true),
            &QAction::triggered, this, [this] { vista_->Adatta(); });
    const auto zoom = [this](double f) {
        vista_->Ingrandisci(f, QPointF(vista_->width() / 2.0, vista_->height() / 2.0));
    };
    connect(voce(vista, "&Ingrandisci", {Qt::Key_Plus}, "Ingrandisce", false), &QAction::triggered,
            this, [zoom] { zoom(kPassoZoom); });
    connect(voce(vista, "&Riduci", {Qt::Key_Minus}, "Riduce", false), &QAction::triggered, this,
            [zoom] { zoom(1.0 / kPassoZoom); });
    vista->addSeparator();
    QAction* scura =
        voce(vista, "&Carta scura", {Qt::CTRL | Qt::Key_D}, "Fondo scuro o bianco", true);
    scura->setCheckable(true);
    scura->setObjectName("CartaScura");
    connect(scura, &QAction::toggled, this, [this](bool si) {
        vista_->Opzioni().carta = si ? Carta::scura : Carta::chiara;
        AggiornaStrati();
        vista_->update();
    });
    for (QDockWidget* d : findChildren<QDockWidget*>()) {
        QAction* a = d->toggleViewAction();
        a->setText("&Strati");
        a->setToolTip("Mostra o nasconde l'elenco degli strati");
        vista->addAction(a);
    }

    QMenu* strumenti = menuBar()->addMenu("S&trumenti");
    QAction* misura =
        voce(strumenti, "&Misura", {Qt::Key_M}, "Distanza tra due punti (Esc per finire)", true);
    misura->setCheckable(true);
    misura->setObjectName("AttivaMisura");
    connect(misura, &QAction::toggled, this, [this](bool si) { vista_->AttivaMisura(si); });
    auto* fine = new QAction(this);
    fine->setShortcut(Qt::Key_Escape);
    connect(fine, &QAction::triggered, this, [misura] { misura->setChecked(false); });
    addAction(fine);

    QMenu* aiuto = menuBar()->addMenu("&?");
    connect(voce(aiuto, "&Comandi e tasti", {Qt::Key_F1}, "Elenco dei comandi", false),
            &QAction::triggered, this, [this] {
                QMessageBox::information(this, "Comandi e tasti", QString::fromUtf8(kTasti));
            });
}

void Finestra::FaiStrati() {
    auto* pannello = new QDockWidget("Strati", this);
    pannello->setObjectName("PannelloStrati");
    strati_ = new QListWidget(pannello);
    strati_->setObjectName("Strati");
    strati_->setToolTip("Colori del disegno: togliere il segno nasconde gli elementi");
    strati_->setWordWrap(true);
    strati_->setMinimumWidth(210);
    pannello->setWidget(strati_);
    addDockWidget(Qt::RightDockWidgetArea, pannello);
    connect(strati_, &QListWidget::itemChanged, this, [this](QListWidgetItem* v) {
        vista_->Opzioni().visibili[static_cast<std::size_t>(v->data(Qt::UserRole).toInt())] =
            v->checkState() == Qt::Checked;
        vista_->update();
    });
}

// One entry a colour in use, with what it stands for and how many elements it has.
void Finestra::AggiornaStrati() {
    std::array<int, kColori> quanti{};
    const Disegno& d = vista_->Corrente();
    const auto conta = [&](short c) { ++quanti[static_cast<std::size_t>(Strato(c))]; };
    for (const LineaDis& l : d.linee) conta(l.lineaColore);
    for (const ArcoDis& a : d.archi) conta(a.arcoColore);
    for (const TestoDis& t : d.testi) conta(t.testoColore);
    const QSignalBlocker fermo(strati_);
    strati_->clear();
    for (std::size_t i = 0; i < quanti.size(); ++i) {
        if (quanti[i] == 0) continue;
        const int indice = static_cast<int>(i);
        QString testo = QStringLiteral("Colore %1 (%2)").arg(indice).arg(quanti[i]);
        if (!nomiStrati_[i].isEmpty()) testo += "\n" + nomiStrati_[i];
        auto* v = new QListWidgetItem(Campione(indice, vista_->Opzioni().carta), testo, strati_);
        v->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        v->setData(Qt::UserRole, indice);
        v->setCheckState(vista_->Opzioni().visibili[i] ? Qt::Checked : Qt::Unchecked);
    }
}

void Finestra::Avvisa(const QString& testo) {
    avviso_->setText(testo);
    avviso_->setVisible(!testo.isEmpty());
}

bool Finestra::Apri(const QString& file) {
    std::string errore;
    const auto nome = DisegnoChiesto(file.toStdString(), errore);
    if (!nome) {
        Avvisa(QString::fromStdString(errore));
        return false;
    }
    const QString prima = std::exchange(file_, QString::fromStdString(*nome));
    const bool letto = Ricarica();
    if (!letto && mostrato_) {  // what is on show keeps its name
        file_ = prima;
        Sorveglia();
        return false;
    }
    // The mark that the toolkit takes for "changed" stands for itself in a file's name.
    setWindowTitle(QString::fromUtf8(kTitoloVisualizzatore) +
                   QString(file_).replace("[*]", "[*][*]"));
    servizio_->Ascolta(QString::fromUtf8(kTitoloVisualizzatore) + file_);
    if (letto) vista_->Adatta();
    return letto;
}

bool Finestra::Ricarica() {
    if (file_.isEmpty()) return false;
    const QFileInfo info(file_);
    dataLetta_ = info.lastModified();
    grandezzaLetta_ = info.size();
    Sorveglia();
    Disegno d;
    std::string errore;
    if (!LeggiDis(file_.toStdString(), d, errore)) {
        Avvisa(QStringLiteral("Il file %1 non è leggibile: %2")
                   .arg(file_)
                   .arg(QString::fromStdString(errore)));
        return false;
    }
    Avvisa({});
    vista_->Mostra(std::move(d));
    mostrato_ = true;
    AggiornaStrati();
    statusBar()->showMessage("Letto alle " + QTime::currentTime().toString("HH:mm:ss"), 4000);
    return true;
}

// The file is replaced by renaming another over it, which ends the watch on it; its directory tells
// of the new one.
void Finestra::Sorveglia() {
    const QFileInfo info(file_);
    QStringList vuole{info.absolutePath()};
    if (info.exists()) vuole << file_;
    const QStringList ha = guardia_.files() + guardia_.directories();
    for (const QString& v : ha) {
        if (!vuole.contains(v)) guardia_.removePath(v);
    }
    for (const QString& v : vuole) {
        if (!ha.contains(v) && QFileInfo::exists(v)) guardia_.addPath(v);
    }
}

void Finestra::ControllaFile() {
    const QFileInfo info(file_);
    if (!info.exists()) return;  // between two versions
    const bool sostituito = !guardia_.files().contains(file_);
    if (sostituito || info.lastModified() != dataLetta_ || info.size() != grandezzaLetta_) {
        Ricarica();
    }
}

void Finestra::ChiediFile() {
    const QString file = QFileDialog::getOpenFileName(
        this, "Apri disegno", QFileInfo(file_).absolutePath(),
        "File disegno (*.dis *.DIS);;File di scambio (*.inp);;Tutti i file (*)");
    if (!file.isEmpty()) Apri(file);
}

void Finestra::ChiediEsporta() {
    if (file_.isEmpty()) return;
    const QFileInfo info(file_);
    QString filtro;
    QString file = QFileDialog::getSaveFileName(
        this, "Esporta tavola", info.absolutePath() + "/" + info.completeBaseName() + ".pdf",
        "PDF (*.pdf);;SVG (*.svg);;PNG (*.png)", &filtro);
    if (file.isEmpty()) return;
    if (QFileInfo(file).suffix().isEmpty()) file += "." + filtro.left(3).toLower();
    Esporta(file);
}

bool Finestra::Esporta(const QString& file) {
    QString errore;
    if (!EsportaTavola(vista_->Corrente(), CartiglioDiFile(vista_->Corrente(), file_.toStdString()),
                       vista_->Opzioni(), file, errore)) {
        Avvisa(errore);
        return false;
    }
    Avvisa({});
    statusBar()->showMessage("Scritto " + file, 8000);
    return true;
}

void Finestra::ChiediStampa() {
    if (file_.isEmpty()) return;
    const QRectF q = IngombroDisegno(vista_->Corrente());
    const Foglio foglio = ScegliFoglio(q.width(), q.height());
    QPrinter stampante(QPrinter::HighResolution);
    const double corto = std::min(foglio.larghezza, foglio.altezza);
    const double lungo = std::max(foglio.larghezza, foglio.altezza);
    stampante.setPageSize(QPageSize(QSizeF(corto, lungo), QPageSize::Millimeter));
    stampante.setPageOrientation(foglio.larghezza > foglio.altezza ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa tavola");
    if (dialogo.exec() != QDialog::Accepted) return;
    if (!Stampa(stampante)) Avvisa("Stampa non riuscita");
}

bool Finestra::Stampa(QPrinter& stampante) {
    stampante.setFullPage(true);
    stampante.setDocName(QFileInfo(file_).fileName());
    const Disegno& d = vista_->Corrente();
    const QRectF q = IngombroDisegno(d);
    const QPageLayout pagina = stampante.pageLayout();
    const QRectF carta = pagina.fullRect(QPageLayout::Millimeter);
    // Sheets are told to within a point; the drawing's own choice stands where it is that sheet.
    Foglio foglio = ScegliFoglio(q.width(), q.height());
    if (std::fabs(foglio.larghezza - carta.width()) > 1.0 ||
        std::fabs(foglio.altezza - carta.height()) > 1.0) {
        foglio = FoglioDato(q.width(), q.height(), pagina.pageSize().key(), carta.width(),
                            carta.height());
    }
    QPainter p;
    if (!p.begin(&stampante)) return false;
    constexpr double kMmPollice = 25.4;
    p.scale(stampante.logicalDpiX() / kMmPollice, stampante.logicalDpiY() / kMmPollice);
    DipingiTavola(p, d, foglio, CartiglioDiFile(d, file_.toStdString()), vista_->Opzioni());
    return p.end();
}

void Finestra::dragEnterEvent(QDragEnterEvent* e) {
    if (e->mimeData()->hasUrls()) e->acceptProposedAction();
}

void Finestra::dropEvent(QDropEvent* e) {
    const QList<QUrl> nomi = e->mimeData()->urls();
    if (!nomi.isEmpty() && nomi[0].isLocalFile()) Apri(nomi[0].toLocalFile());
}

}  // namespace tk07
