#include "osserva3d/finestra.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "base/file_testo.h"
#include "render/esporta.h"
#include "scene3d/file_scena.h"
#include "solidi/esporta_solidi.h"

namespace tk07::osserva3d {

namespace {

constexpr int kCento = 100;  // steps of the sliders

const char* const kTasti =
    "Trascinare: ruota; tasto centrale o Maiusc + trascinare: sposta\n"
    "Rotella: ingrandisce e riduce nel punto del puntatore\n"
    "Clic: sceglie un pezzo; tasto destro: nasconde, isola\n"
    "1 fronte, 2 retro, 3 destra, 4 sinistra, 5 alto, 6 basso, 7 assonometria\n"
    "F, Home: adatta alla finestra\n"
    "S ombreggiato, G con spigoli, N linee nascoste\n"
    "M: misura tra due punti, con aggancio ai vertici; Esc: fine\n"
    "H nasconde, I isola, T mostra tutti\n"
    "F5: rilegge il file (avviene da sé quando il file cambia)\n"
    "Ctrl+E: esporta in STEP, glTF, STL, PNG";

QString NomeTipo(TipoParte t) {
    switch (t) {
        case TipoParte::trave:
            return QStringLiteral("Trave");
        case TipoParte::piastra:
            return QStringLiteral("Piastra");
        case TipoParte::nervatura:
            return QStringLiteral("Nervatura");
        case TipoParte::saldatura:
            return QStringLiteral("Saldatura");
        case TipoParte::testa:
            return QStringLiteral("Testa di bullone");
        case TipoParte::gambo:
            return QStringLiteral("Gambo di bullone");
        case TipoParte::dado:
            return QStringLiteral("Dado");
        default:
            return QStringLiteral("Pezzo");
    }
}

QSlider* Cursore(const char* nome, const char* aiuto, int valore = 0) {
    auto* s = new QSlider(Qt::Horizontal);
    s->setObjectName(nome);
    s->setRange(0, kCento);
    s->setValue(valore);
    s->setToolTip(QString::fromUtf8(aiuto));
    return s;
}

}  // namespace

VistaNota VistaNumero(int numero, const Scena& s) {
    static constexpr VistaNota kNote[] = {{"Fronte", -90, 0}, {"Retro", 90, 0},
                                          {"Destra", 0, 0},   {"Sinistra", 180, 0},
                                          {"Alto", -90, 90},  {"Basso", -90, -90}};
    if (numero >= 1 && numero < kViste) return kNote[numero - 1];
    // The scene's first angle lifts the eye, the second turns it.
    return {"Assonometria", std::remainder(s.visual_beta, 360.0),
            std::remainder(s.visual_alfa, 180.0)};
}

bool LeggiSolidi(const std::string& file, Scena& scena, std::vector<Parte>& parti,
                 std::string& errore) {
    Scena letta;
    if (LeggiScena(file, letta, errore)) {
        // A scene that could not be made is empty: nothing to show, and no fault of the file.
        if (letta.estrusi.empty()) {
            errore = "la scena è vuota: il nodo non è definito";
        } else if (SolidiScena(letta, parti, errore)) {
            scena = std::move(letta);
            return true;
        }
    }
    errore = PercorsoMostrato(file) + ": " + errore;
    return false;
}

Finestra3D::Finestra3D(Superficie* (*fai)(QWidget*)) : FinestraFile(kTitoloOsserva) {
    vista_ = fai(Centro());
    MettiVista(vista_);
    resize(1280, 800);
    misura_ = new QLabel(this);
    misura_->setObjectName("Misura");
    statusBar()->addPermanentWidget(misura_);
    vista_->suMisura = [this](const QString& t) { misura_->setText(t); };
    vista_->suScelta = [this](int parte) { Scegli(parte); };
    vista_->suMenu = [this](int parte, const QPoint& dove) { MenuPezzo(parte, dove); };

    const auto pannello = [this](const char* titolo, const char* nome, QWidget* dentro) {
        auto* d = new QDockWidget(titolo, this);
        d->setObjectName(nome);
        d->setWidget(dentro);
        addDockWidget(Qt::RightDockWidgetArea, d);
    };
    pannello("Aspetto", "PannelloAspetto", FaiAspetto());
    pannello("Pezzi", "PannelloPezzi", FaiPezzi());
    FaiMenu();
    Scegli(-1);
}

QWidget* Finestra3D::FaiPezzi() {
    auto* w = new QWidget(this);
    auto* colonna = new QVBoxLayout(w);
    colonna->setContentsMargins(4, 4, 4, 4);
    pezzi_ = new QListWidget(w);
    pezzi_->setObjectName("Pezzi");
    pezzi_->setToolTip("Togliere il segno nasconde il pezzo");
    pezzi_->setContextMenuPolicy(Qt::CustomContextMenu);
    pezzi_->setMinimumWidth(250);
    dettagli_ = new QLabel(w);
    dettagli_->setObjectName("Dettagli");
    dettagli_->setWordWrap(true);
    dettagli_->setMinimumHeight(84);
    dettagli_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    dettagli_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    colonna->addWidget(pezzi_, 1);
    colonna->addWidget(dettagli_);
    connect(pezzi_, &QListWidget::currentRowChanged, this, [this](int i) { Scegli(i); });
    connect(pezzi_, &QListWidget::itemChanged, this, [this] {
        std::vector<bool> v;
        for (int i = 0; i < pezzi_->count(); ++i) {
            v.push_back(pezzi_->item(i)->checkState() == Qt::Checked);
        }
        CambiaVisibili(v);
    });
    connect(pezzi_, &QListWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        MenuPezzo(pezzi_->row(pezzi_->itemAt(p)), pezzi_->mapToGlobal(p));
    });
    return w;
}

QWidget* Finestra3D::FaiAspetto() {
    auto* w = new QWidget(this);
    auto* righe = new QFormLayout(w);
    modo_ = new QComboBox(w);
    modo_->setObjectName("Modo");
    modo_->addItems({"Ombreggiato", "Ombreggiato con spigoli", "Linee nascoste"});
    modo_->setCurrentIndex(1);
    trasparenza_ = Cursore("Trasparenza", "Trasparenza delle travi");
    esploso_ = Cursore("Esploso", "Allontana i pezzi tra loro");
    asse_ = new QComboBox(w);
    asse_->setObjectName("AsseSezione");
    asse_->addItems({"Nessuna", "Lungo X", "Lungo Y", "Lungo Z", "Lungo X, altro lato",
                     "Lungo Y, altro lato", "Lungo Z, altro lato"});
    quota_ = Cursore("QuotaSezione", "Posizione del piano di sezione", kCento / 2);
    righe->addRow("Vista", modo_);
    righe->addRow("Travi trasparenti", trasparenza_);
    righe->addRow("Esploso", esploso_);
    righe->addRow("Sezione", asse_);
    righe->addRow("Posizione", quota_);
    w->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    quota_->setEnabled(false);
    connect(modo_, &QComboBox::currentIndexChanged, this, [this](int i) {
        vista_->Aspetto().pittura.modo = static_cast<Modo3D>(i);
        vista_->AggiornaAspetto();
    });
    connect(trasparenza_, &QSlider::valueChanged, this, [this](int v) {
        vista_->Aspetto().pittura.trasparenzaTravi = 0.95 * v / kCento;
        vista_->AggiornaAspetto();
    });
    connect(esploso_, &QSlider::valueChanged, this, [this](int v) {
        vista_->Aspetto().esploso = double(v) / kCento;
        CambiaSezione();
    });
    connect(asse_, &QComboBox::currentIndexChanged, this, [this] { CambiaSezione(); });
    connect(quota_, &QSlider::valueChanged, this, [this] { CambiaSezione(); });
    return w;
}

// The plane's place is told in hundredths of the parts' extent.
void Finestra3D::CambiaSezione() {
    PianoSezione& s = vista_->Aspetto().sezione;
    const int i = asse_->currentIndex();
    s.asse = i == 0 ? -1 : (i - 1) % 3;
    s.lato = i > 3 ? LatoTenuto::sopra : LatoTenuto::sotto;
    quota_->setEnabled(i > 0);
    if (s.asse >= 0) {
        const auto [da, a] = vista_->Estensione(s.asse);
        s.quota = da + (a - da) * quota_->value() / kCento;
    }
    vista_->AggiornaAspetto();
}

void Finestra3D::FaiMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    Voce(file, "&Apri...", {QKeySequence::Open}, "Apre un file di scena", Dove::menuEBarra,
         [this] { ChiediFile(); });
    Voce(file, "&Ricarica", {Qt::Key_F5}, "Rilegge il file, con la stessa vista", Dove::menuEBarra,
         [this] { Ricarica(); });
    file->addSeparator();
    Voce(file, "&Esporta...", {Qt::CTRL | Qt::Key_E},
         "Scrive i pezzi visibili come STEP, glTF o STL, o la vista come PNG", Dove::menuEBarra,
         [this] { ChiediEsporta(); });
    file->addSeparator();
    Voce(file, "E&sci", {Qt::CTRL | Qt::Key_Q}, "Chiude il programma", Dove::menu,
         [this] { close(); });
    Barra()->addSeparator();

    QMenu* vista = menuBar()->addMenu("&Visualizza");
    Voce(vista, "&Adatta", {Qt::Key_F, Qt::Key_Home}, "Mostra tutti i pezzi visibili",
         Dove::menuEBarra, [this] { vista_->Adatta(); });
    vista->addSeparator();
    for (int k = 1; k <= kViste; ++k) {
        Voce(vista, QString("&%1 %2").arg(k).arg(VistaNumero(k, scena_).nome),
             {QKeySequence(Qt::Key_0 + k)}, "Vista normale",
             k == 1 || k == 3 || k == 5 || k == kViste ? Dove::menuEBarra : Dove::menu, [this, k] {
                 const VistaNota v = VistaNumero(k, scena_);
                 vista_->Orienta(v.azimut, v.elevazione);
             });
    }
    vista->addSeparator();
    const std::pair<const char*, int> modi[] = {{"&Ombreggiato", Qt::Key_S},
                                                {"Ombreggiato con s&pigoli", Qt::Key_G},
                                                {"&Linee nascoste", Qt::Key_N}};
    for (int i = 0; i < 3; ++i) {
        Voce(vista, modi[i].first, {QKeySequence(modi[i].second)}, "Modo di mostrare i pezzi",
             Dove::menu, [this, i] { modo_->setCurrentIndex(i); });
    }
    vista->addSeparator();
    for (QDockWidget* d : findChildren<QDockWidget*>()) vista->addAction(d->toggleViewAction());

    Barra()->addSeparator();
    QMenu* pezzi = menuBar()->addMenu("&Pezzi");
    const auto scelta = [this] { return vista_->Aspetto().pittura.scelta; };
    Voce(pezzi, "&Nascondi", {Qt::Key_H}, "Nasconde il pezzo scelto", Dove::menu,
         [this, scelta] { Nascondi(scelta()); });
    Voce(pezzi, "&Isola", {Qt::Key_I}, "Mostra soltanto il pezzo scelto", Dove::menu,
         [this, scelta] { Isola(scelta()); });
    Voce(pezzi, "&Mostra tutti", {Qt::Key_T}, "Mostra tutti i pezzi", Dove::menuEBarra,
         [this] { MostraTutti(); });

    QMenu* strumenti = menuBar()->addMenu("S&trumenti");
    QAction* misura = Voce(strumenti, "&Misura", {Qt::Key_M},
                           "Distanza tra due punti (Esc per finire)", Dove::menuEBarra);
    misura->setCheckable(true);
    misura->setObjectName("AttivaMisura");
    connect(misura, &QAction::toggled, this, [this](bool si) { vista_->AttivaMisura(si); });
    auto* fine = new QAction(this);
    fine->setShortcut(Qt::Key_Escape);
    connect(fine, &QAction::triggered, this, [this, misura] {
        if (misura->isChecked()) return misura->setChecked(false);
        Scegli(-1);
    });
    addAction(fine);
    QMenu* aiuto = menuBar()->addMenu("&?");
    Voce(aiuto, "&Comandi e tasti", {Qt::Key_F1}, "Elenco dei comandi", Dove::menu,
         [this] { QMessageBox::information(this, "Comandi e tasti", QString::fromUtf8(kTasti)); });
}

void Finestra3D::AggiornaPezzi() {
    const QSignalBlocker fermo(pezzi_);
    const OpzioniPittura3D& opz = vista_->Aspetto().pittura;
    const std::vector<Parte>& parti = vista_->Parti();
    if (pezzi_->count() != static_cast<int>(parti.size())) {
        pezzi_->clear();
        for (std::size_t i = 0; i < parti.size(); ++i) pezzi_->addItem(QString());
    }
    for (std::size_t i = 0; i < parti.size(); ++i) {
        QListWidgetItem* v = pezzi_->item(static_cast<int>(i));
        QPixmap campione(14, 14);
        campione.fill(ColoreParte(parti[i].dati, false));
        v->setIcon(QIcon(campione));
        v->setText(QString::fromStdString(parti[i].dati.nome));
        v->setToolTip(QString::fromStdString(parti[i].dati.misura));
        v->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        v->setCheckState(opz.visibili.empty() || opz.visibili[i] ? Qt::Checked : Qt::Unchecked);
    }
}

void Finestra3D::Scegli(int parte) {
    const std::vector<Parte>& parti = vista_->Parti();
    if (parte >= static_cast<int>(parti.size())) parte = -1;
    vista_->Aspetto().pittura.scelta = parte;
    {
        const QSignalBlocker fermo(pezzi_);
        pezzi_->setCurrentRow(parte);
        if (parte < 0) pezzi_->clearSelection();
    }
    QString testo = "Nessun pezzo scelto";
    if (parte >= 0) {
        const DatiParte& d = parti[static_cast<std::size_t>(parte)].dati;
        testo = "<b>" + QString::fromStdString(d.nome).toHtmlEscaped() + "</b><br>" +
                NomeTipo(d.tipo) + "<br>" + QString::fromStdString(d.misura).toHtmlEscaped() +
                " mm<br>Volume " + QString::number(d.volume / 1000.0, 'f', 2) + " cm³";
        statusBar()->showMessage(QString::fromStdString(d.nome + ": " + d.misura + " mm"), 8000);
    }
    dettagli_->setText(testo);
    vista_->AggiornaAspetto();
}

void Finestra3D::CambiaVisibili(const std::vector<bool>& v) {
    vista_->Aspetto().pittura.visibili = v;
    AggiornaPezzi();
    vista_->AggiornaAspetto();
}

void Finestra3D::Nascondi(int parte) {
    const std::size_t n = vista_->Parti().size(), i = static_cast<std::size_t>(parte);
    if (parte < 0 || i >= n) return;
    std::vector<bool> v = vista_->Aspetto().pittura.visibili;
    v.resize(n, true);
    v[i] = false;
    CambiaVisibili(v);
}

// A bolt comes with head, shank and nut.
void Finestra3D::Isola(int parte) {
    const std::vector<Parte>& parti = vista_->Parti();
    if (parte < 0 || parte >= static_cast<int>(parti.size())) return;
    std::vector<bool> v;
    for (const Parte& p : parti) {
        v.push_back(p.dati.oggetto == parti[static_cast<std::size_t>(parte)].dati.oggetto);
    }
    CambiaVisibili(v);
    vista_->Adatta();
}

void Finestra3D::MostraTutti() { CambiaVisibili(std::vector<bool>(vista_->Parti().size(), true)); }

void Finestra3D::MenuPezzo(int parte, const QPoint& dove) {
    QMenu menu(this);
    if (parte >= 0) {
        Scegli(parte);
        connect(menu.addAction("Nascondi"), &QAction::triggered, this,
                [=, this] { Nascondi(parte); });
        connect(menu.addAction("Isola"), &QAction::triggered, this, [=, this] { Isola(parte); });
    }
    connect(menu.addAction("Mostra tutti"), &QAction::triggered, this, [this] { MostraTutti(); });
    menu.exec(dove);
}

void Finestra3D::Aperto(bool letto) {
    if (!letto) return;
    const VistaNota v = VistaNumero(kViste, scena_);
    vista_->Orienta(v.azimut, v.elevazione);
}

bool Finestra3D::Leggi(const QString& file, QString& errore) {
    std::vector<Parte> parti;
    std::string detto;
    if (!LeggiSolidi(file.toStdString(), scena_, parti, detto)) {
        errore = "Scena non leggibile: " + QString::fromStdString(detto);
        return false;
    }
    // Parts that were hidden or chosen stay so, by their names.
    OpzioniPittura3D& opz = vista_->Aspetto().pittura;
    const std::vector<Parte>& vecchie = vista_->Parti();
    std::vector<bool> visibili(parti.size(), true);
    int scelta = -1;
    for (std::size_t i = 0; i < parti.size(); ++i) {
        for (std::size_t j = 0; j < vecchie.size(); ++j) {
            if (vecchie[j].dati.nome != parti[i].dati.nome) continue;
            visibili[i] = opz.visibili.empty() || opz.visibili[j];
            if (static_cast<int>(j) == opz.scelta) scelta = static_cast<int>(i);
        }
    }
    opz.visibili = visibili;
    opz.scelta = -1;
    vista_->Mostra(std::move(parti),
                   Mostrato() ? Superficie::Occhio::fermo : Superficie::Occhio::adatta);
    AggiornaPezzi();
    Scegli(scelta);
    CambiaSezione();
    return true;
}

void Finestra3D::ChiediFile() {
    const QString file =
        QFileDialog::getOpenFileName(this, "Apri scena", QFileInfo(File()).absolutePath(),
                                     "File di scena (*.tmp *.TMP);;Tutti i file (*)");
    if (!file.isEmpty()) Apri(file);
}

void Finestra3D::ChiediEsporta() {
    if (!Mostrato()) return;
    const QFileInfo info(File());
    QString filtro;
    QString file = QFileDialog::getSaveFileName(
        this, "Esporta", info.absolutePath() + "/" + info.completeBaseName() + ".step",
        "STEP (*.step);;glTF (*.glb);;STL (*.stl);;PNG (*.png)", &filtro);
    if (file.isEmpty()) return;
    if (QFileInfo(file).suffix().isEmpty()) {
        const qsizetype punto = filtro.indexOf('.');
        file += filtro.mid(punto, filtro.size() - punto - 1);
    }
    Esporta(file);
}

bool Finestra3D::Esporta(const QString& file) {
    QString errore;
    if (QFileInfo(file).suffix().toLower() == "png") {
        ScriviPng(vista_->Immagine(), file, errore);
    } else {
        std::string detto;
        std::vector<Parte> viste;
        const OpzioniPittura3D& opz = vista_->Aspetto().pittura;
        for (std::size_t i = 0; i < vista_->Parti().size(); ++i) {
            if (opz.visibili.empty() || opz.visibili[i]) viste.push_back(vista_->Parti()[i]);
        }
        EsportaSolidi(viste, QFileInfo(File()).completeBaseName().toStdString(), file.toStdString(),
                      detto);
        errore = QString::fromStdString(detto);
    }
    Avvisa(errore);
    if (errore.isEmpty()) statusBar()->showMessage("Scritto " + file, 8000);
    return errore.isEmpty();
}

}  // namespace tk07::osserva3d
