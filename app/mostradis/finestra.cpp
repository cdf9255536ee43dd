#include "mostradis/finestra.h"

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>
#include <cmath>
#include <utility>
#include <vector>

#include "mostradis/lettura.h"
#include "render/esporta.h"
#include "render/tavola.h"

namespace tk07::mostradis {

namespace {

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

Finestra::Finestra(const Opzioni& opz, StiliGrb stili)
    : FinestraFile(QString::fromUtf8(kTitoloVisualizzatore)),
      opz_(opz),
      stili_(std::move(stili)),
      nomiStrati_(NomiStrati(opz)) {
    vista_ = new Vista(Centro());
    vista_->Opzioni().spessori = SpessoriPenne(opz);
    MettiVista(vista_);
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
}

void Finestra::FaiMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    Voce(file, "&Apri...", {QKeySequence::Open}, "Apre un file di disegno", Dove::menuEBarra,
         [this] { ChiediFile(); });
    Voce(file, "&Ricarica", {Qt::Key_F5, Qt::CTRL | Qt::Key_V},
         "Rilegge il file, con lo stesso ingrandimento", Dove::menuEBarra, [this] { Ricarica(); });
    file->addSeparator();
    Voce(file, "&Esporta...", {Qt::CTRL | Qt::Key_E},
         "Scrive la tavola in scala come SVG, PDF o PNG", Dove::menuEBarra,
         [this] { ChiediEsporta(); });
    Voce(file, "&Stampa...", {QKeySequence::Print}, "Stampa la tavola in scala", Dove::menuEBarra,
         [this] { ChiediStampa(); });
    file->addSeparator();
    Voce(file, "E&sci", {Qt::CTRL | Qt::Key_Q}, "Chiude il programma", Dove::menu,
         [this] { close(); });

    Barra()->addSeparator();
    QMenu* vista = menuBar()->addMenu("&Visualizza");
    Voce(vista, "&Adatta", {Qt::Key_F, Qt::Key_Home}, "Mostra tutto il disegno", Dove::menuEBarra,
         [this] { vista_->Adatta(); });
    const auto zoom = [this](double f) {
        vista_->Ingrandisci(f, QPointF(vista_->width() / 2.0, vista_->height() / 2.0));
    };
    Voce(vista, "&Ingrandisci", {Qt::Key_Plus}, "Ingrandisce", Dove::menu,
         [zoom] { zoom(kPassoZoom); });
    Voce(vista, "&Riduci", {Qt::Key_Minus}, "Riduce", Dove::menu,
         [zoom] { zoom(1.0 / kPassoZoom); });
    vista->addSeparator();
    QAction* scura = Voce(vista, "&Carta scura", {Qt::CTRL | Qt::Key_D}, "Fondo scuro o bianco",
                          Dove::menuEBarra);
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
    QAction* misura = Voce(strumenti, "&Misura", {Qt::Key_M},
                           "Distanza tra due punti (Esc per finire)", Dove::menuEBarra);
    misura->setCheckable(true);
    misura->setObjectName("AttivaMisura");
    connect(misura, &QAction::toggled, this, [this](bool si) { vista_->AttivaMisura(si); });
    auto* fine = new QAction(this);
    fine->setShortcut(Qt::Key_Escape);
    connect(fine, &QAction::triggered, this, [misura] { misura->setChecked(false); });
    addAction(fine);

    QMenu* aiuto = menuBar()->addMenu("&?");
    Voce(aiuto, "&Comandi e tasti", {Qt::Key_F1}, "Elenco dei comandi", Dove::menu,
         [this] { QMessageBox::information(this, "Comandi e tasti", QString::fromUtf8(kTasti)); });
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

QString Finestra::FileInteso(const QString& argomento, QString& errore) const {
    std::string detto;
    const auto nome = DisegnoChiesto(argomento.toStdString(), detto);
    errore = QString::fromStdString(detto);
    return QString::fromStdString(nome.value_or(std::string()));
}

void Finestra::Aperto(bool letto) {
    servizio_->Ascolta(QString::fromUtf8(kTitoloVisualizzatore) + File());
    if (letto) vista_->Adatta();
}

bool Finestra::Leggi(const QString& file, QString& errore) {
    DisegnoLetto letto;
    std::string detto;
    if (!LeggiDisegno(file.toStdString(), opz_, stili_, letto, detto)) {
        errore = QStringLiteral("Il file %1 non è leggibile: %2")
                     .arg(file)
                     .arg(QString::fromStdString(detto));
        return false;
    }
    vista_->Mostra(std::move(letto.d));
    AggiornaStrati();
    return true;
}

void Finestra::ChiediFile() {
    const QString file = QFileDialog::getOpenFileName(
        this, "Apri disegno", QFileInfo(File()).absolutePath(),
        "File disegno (*.dis *.DIS *.grb *.GRB);;File di scambio (*.inp);;Tutti i file (*)");
    if (!file.isEmpty()) Apri(file);
}

void Finestra::ChiediEsporta() {
    if (File().isEmpty()) return;
    const QFileInfo info(File());
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
    if (!EsportaTavola(vista_->Corrente(),
                       CartiglioDiFile(vista_->Corrente(), File().toStdString()), vista_->Opzioni(),
                       file, errore)) {
        Avvisa(errore);
        return false;
    }
    Avvisa({});
    statusBar()->showMessage("Scritto " + file, 8000);
    return true;
}

void Finestra::ChiediStampa() {
    if (File().isEmpty()) return;
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
    stampante.setDocName(QFileInfo(File()).fileName());
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
    DipingiTavola(p, d, foglio, CartiglioDiFile(d, File().toStdString()), vista_->Opzioni());
    return p.end();
}

}  // namespace tk07::mostradis
