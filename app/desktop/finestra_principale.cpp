#include "desktop/finestra_principale.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>

#include "base/file_testo.h"
#include "base/testo.h"
#include "desktop/controlli.h"
#include "desktop/finestra_recupero.h"
#include "desktop/pagina_riepilogo.h"
#include "desktop/pannello_secondario.h"
#include "desktop/pianta_bulloni.h"
#include "desktop/pilota.h"
#include "desktop/relazione_pdf.h"
#include "desktop/schizzi.h"
#include "desktop/tabella_piena.h"
#include "desktop/tema.h"
#include "desktop/testo_qt.h"
#include "desktop/vista_nodo.h"
#include "desktop/vista_relazione.h"

namespace tk07::desktop {

namespace {

// A text as an entry of a menu: its ampersands are no accelerators.
QString ComeVoce(const std::string& testo) {
    return Q(testo).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

std::string FileTema(const Sessione& s) { return s.dir.dirTemp + "\\TK07_aspetto.txt"; }

}  // namespace

FinestraPrincipale::FinestraPrincipale(Pilota& pilota)
    : pilota_(pilota), legame_(new Legame(pilota, "InsDati", this)) {
    setObjectName(QStringLiteral("InsDati"));
    recenti_ = std::make_unique<Recenti>(pilota.LaSessione().dir.dirTemp + "\\TK07_recenti.txt");
    if (const Tema t = LeggiTema(FileTema(pilota.LaSessione())); t != Tema::sistema) {
        ApplicaTema(t);
    }
    ComponiBarra();
    auto* diviso = new QSplitter(Qt::Horizontal, this);
    diviso->setObjectName(QStringLiteral("Diviso"));
    diviso->addWidget(ComponiSinistra());
    diviso->addWidget(ComponiDestra());
    diviso->setStretchFactor(0, 0);
    diviso->setStretchFactor(1, 1);
    diviso->setCollapsible(0, false);
    diviso->setCollapsible(1, false);
    diviso->setSizes({592, 688});
    setCentralWidget(diviso);
    ComponiMenu();
    legame_->AgganciaTimer();
    // A label without a place: hidden from start-up on.
    if (QWidget* w = legame_->Crea("betatest_c", this)) statusBar()->addPermanentWidget(w);

    connect(&pilota_, &Pilota::cambiato, this, &FinestraPrincipale::Aggiorna);
    connect(&pilota_, &Pilota::mosso, this, [this] {
        legame_->Aggiorna();
        AllineaPannelli();
    });
    connect(&pilota_, &Pilota::anteprimaCambiata, this, &FinestraPrincipale::AggiornaDisegno);
    connect(&pilota_, &Pilota::campoInManoCambiato, this,
            [this] { vista_->CampoInMano(pilota_.CampoInMano()); });
    connect(&pilota_, &Pilota::avviso, this,
            [this](const QString& testo) { statusBar()->showMessage(testo, 15000); });
    connect(riepilogo_, &PaginaRiepilogo::sceltaCambiata, this,
            &FinestraPrincipale::AggiornaColori);
    connect(riepilogo_, &PaginaRiepilogo::vaiAllaParte, this, &FinestraPrincipale::VaiAllaParte);
    connect(riepilogo_, &PaginaRiepilogo::vaiAllaRelazione, this,
            [this](int sestetto, const QString& nome) {
                if (relazione_->VaiAlSestetto(sestetto, nome)) {
                    destra_->setCurrentWidget(relazione_);
                } else {
                    statusBar()->showMessage(
                        QStringLiteral("Il sestetto non è nella relazione: premere "
                                       "Verifica per scriverla"),
                        8000);
                }
            });
    connect(relazione_, &VistaRelazione::rigaScelta, this,
            [this](int sestetto, Famiglia famiglia, int elemento) {
                riepilogo_->Scegli(sestetto);
                VaiAllaParte(famiglia, elemento);
            });
    connect(vista_, &VistaNodo::parteScelta, this, &FinestraPrincipale::VaiAlCampo);
    connect(vista_, &VistaNodo::bulloneScelto, this, [this](int numero) {
        schede_->setCurrentIndex(2);
        vista_->Evidenzia(Parte::bullone, numero);
    });
    Aggiorna();
    AggiornaDisegno();
    const QSize schermo = screen()->availableSize();
    resize(std::min(1280, schermo.width()), std::min(800, schermo.height()));
}

FinestraPrincipale::~FinestraPrincipale() = default;

void FinestraPrincipale::ComponiBarra() {
    auto* barra = addToolBar(QStringLiteral("Comandi"));
    barra->setObjectName(QStringLiteral("Comandi"));
    barra->setMovable(false);
    barra->setContextMenuPolicy(Qt::PreventContextMenu);
    for (const char* nome : BarraComandi()) {
        if (QWidget* w = legame_->Crea(nome, barra)) barra->addWidget(w);
    }
}

void FinestraPrincipale::ComponiMenu() {
    const auto premi = [this](QMenu* menu, const char* nome, const QString& testo,
                              const QKeySequence& tasti) {
        if (!pilota_.LaSessione().InsDati.Ha(nome)) return;
        QAction* a = menu->addAction(testo);
        a->setShortcut(tasti);
        connect(a, &QAction::triggered, this, [this, nome] {
            if (auto* b = qobject_cast<QPushButton*>(legame_->Elemento(nome))) b->click();
        });
    };
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    premi(file, "Car_Nodo", QStringLiteral("&Apri..."), QKeySequence::Open);
    menuRecenti_ = file->addMenu(QStringLiteral("Apri &recente"));
    premi(file, "Bt_salva", QStringLiteral("&Salva"), QKeySequence::Save);
    premi(file, "Bt_salva_con_nome", QStringLiteral("Salva &con nome..."),
          QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    file->addSeparator();
    QAction* recupera = file->addAction(QStringLiteral("Rec&upera..."));
    recupera->setObjectName(QStringLiteral("AzioneRecupera"));
    // No copy is written first: it would replace the older of the two that are shown.
    connect(recupera, &QAction::triggered, this,
            [this] { FinestraRecupero(pilota_, this).exec(); });
    file->addSeparator();
    premi(file, "Chiudi", QStringLiteral("C&hiudi"), QKeySequence::Quit);

    QMenu* modifica = menuBar()->addMenu(QStringLiteral("&Modifica"));
    annulla_ = modifica->addAction(QStringLiteral("&Annulla"));
    annulla_->setObjectName(QStringLiteral("AzioneAnnulla"));
    annulla_->setShortcut(QKeySequence::Undo);
    connect(annulla_, &QAction::triggered, &pilota_, &Pilota::Annulla);
    ripeti_ = modifica->addAction(QStringLiteral("&Ripeti"));
    ripeti_->setObjectName(QStringLiteral("AzioneRipeti"));
    ripeti_->setShortcuts({QKeySequence(QStringLiteral("Ctrl+Y")), QKeySequence::Redo});
    connect(ripeti_, &QAction::triggered, &pilota_, &Pilota::Ripeti);
    modifica->addSeparator();
    connect(modifica->addAction(QStringLiteral("&Copia sollecitazioni")), &QAction::triggered, this,
            [this] { tabella_->Copia(); });
    connect(modifica->addAction(QStringLiteral("&Incolla sollecitazioni")), &QAction::triggered,
            this, [this] { tabella_->Incolla(); });

    QMenu* verifica = menuBar()->addMenu(QStringLiteral("&Verifica"));
    premi(verifica, "VerificaButt", QStringLiteral("&Verifica"), QKeySequence(Qt::Key_F5));
    connect(verifica->addAction(QStringLiteral("Mostra la &relazione")), &QAction::triggered, this,
            [this] { destra_->setCurrentWidget(relazione_); });
    for (const auto& [testo, nome, forma] :
         {std::tuple{"Relazione &estesa (PDF)...", "AzioneRelazioneEstesa", FormaRelazione::estesa},
          std::tuple{"Relazione &breve (PDF)...", "AzioneRelazioneBreve", FormaRelazione::breve}}) {
        QAction* a = verifica->addAction(QString::fromUtf8(testo));
        a->setObjectName(QString::fromUtf8(nome));
        connect(a, &QAction::triggered, this,
                [this, forma = forma] { ScriviRelazionePdf(pilota_, forma, this); });
    }
    premi(verifica, "Opz", QStringLiteral("&Opzioni..."), {});

    QMenu* nodo = menuBar()->addMenu(QStringLiteral("&Nodo"));
    premi(nodo, "DefBulloni", QStringLiteral("Definisci &bulloni..."), {});
    premi(nodo, "ProponiPias", QStringLiteral("Proponi &piastre"), {});
    premi(nodo, "ProponiNerv", QStringLiteral("Proponi &nervature"), {});
    premi(nodo, "PropMatButton", QStringLiteral("Proprietà dei &materiali..."), {});
    nodo->addSeparator();
    premi(nodo, "ImportaNodida3D", QStringLiteral("&Importa nodi da 3D..."), {});
    premi(nodo, "ImpS3D", QStringLiteral("Importa &sollecitazioni 3D..."), {});

    QMenu* disegno = menuBar()->addMenu(QStringLiteral("&Disegno"));
    premi(disegno, "Gen_Dis", QStringLiteral("&Genera disegno..."), {});
    premi(disegno, "ApriVis", QStringLiteral("&Visualizza disegno"), {});
    premi(disegno, "bt_vista3d", QStringLiteral("Vista &3D"), {});

    QMenu* aspetto = menuBar()->addMenu(QStringLiteral("&Aspetto"));
    auto* temi = new QActionGroup(this);
    const std::string ricordo = FileTema(pilota_.LaSessione());
    const Tema attuale = LeggiTema(ricordo);
    for (const auto& [testo, nome, tema] :
         {std::tuple{"Come il &sistema", "TemaSistema", Tema::sistema},
          std::tuple{"&Chiaro", "TemaChiaro", Tema::chiaro},
          std::tuple{"Sc&uro", "TemaScuro", Tema::scuro}}) {
        QAction* a = aspetto->addAction(QString::fromUtf8(testo));
        a->setObjectName(QString::fromUtf8(nome));
        a->setCheckable(true);
        a->setChecked(tema == attuale);
        temi->addAction(a);
        connect(a, &QAction::triggered, this, [ricordo, tema = tema] {
            ApplicaTema(tema);
            RicordaTema(ricordo, tema);
        });
    }

    QMenu* aiuto = menuBar()->addMenu(QStringLiteral("&?"));
    premi(aiuto, "LegendaButt", QStringLiteral("&Guida"), QKeySequence::HelpContents);
}

// Column heads of a group's grid.
void FinestraPrincipale::Intesta(QWidget* gruppo, int riga,
                                 const std::vector<std::pair<int, const char*>>& testi) {
    auto* griglia = qobject_cast<QGridLayout*>(gruppo->layout());
    for (const auto& [colonna, testo] : testi) {
        auto* l = new QLabel(QString::fromUtf8(testo), gruppo);
        l->setAlignment(Qt::AlignCenter);
        griglia->addWidget(l, riga, colonna);
    }
}

QWidget* FinestraPrincipale::ComponiSinistra() {
    schede_ = new QTabWidget(this);
    std::vector<QWidget*> gruppi;
    QVBoxLayout* colonne[4] = {};
    int k = 0;
    for (const PaginaTavola& pagina : PagineInsDati()) {
        auto* area = new QScrollArea(schede_);
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        auto* foglio = new QWidget(area);
        auto* colonna = new QVBoxLayout(foglio);
        colonne[k++] = colonna;
        for (const GruppoTavola& g : pagina.gruppi) {
            gruppi.push_back(legame_->CreaGruppo(g, foglio));
            colonna->addWidget(gruppi.back());
        }
        area->setWidget(foglio);
        schede_->addTab(area, QString::fromUtf8(pagina.titolo));
    }
    legame_->Aggancia("SSTab", schede_);
    schede_->setMinimumWidth(400);

    // Profiles: sketches beside the measures, heads over them.
    QWidget* profili = gruppi[0];
    auto* g0 = qobject_cast<QGridLayout*>(profili->layout());
    for (const int riga : {0, 2}) {
        Intesta(profili, riga, {{2, "H"}, {3, "B"}, {4, "tw"}, {5, "tf"}, {6, "r"}});
    }
    for (int i = 0; i < 2; ++i) {
        sezioni_[i] = new SchizzoSezione(profili);
        legame_->Aggancia(i == 0 ? "DisPri" : "DisSec", sezioni_[i]);
        g0->addWidget(sezioni_[i], 2 * i, 7, 2, 1);
        for (int j = 0; j < 5; ++j) {
            if (auto* l = qobject_cast<QLabel*>(
                    legame_->Elemento(ConIndice(i == 0 ? "geomp" : "geoms", j)))) {
                l->setAlignment(Qt::AlignCenter);
                l->setMinimumWidth(40);
            }
        }
    }
    Intesta(gruppi[3], 0, {{1, "Larghezza B"}, {2, "Altezza H"}, {3, "Spessore"}});
    if (auto* l = qobject_cast<QLabel*>(legame_->Elemento("GeoPias1"))) {
        l->setAlignment(Qt::AlignCenter);
    }
    Intesta(gruppi[4], 0,
            {{1, "Altezza h1:"}, {2, "Altezza h2:"}, {3, "Larghezza b"}, {4, "Spessore"}});
    Intesta(gruppi[4], 3, {{0, "Nervatura 3"}});
    colonne[0]->addStretch(1);
    colonne[1]->addStretch(1);

    schema_ = new PiantaBulloni(pilota_, PiantaBulloni::Fonte::nodo, this);
    legame_->Aggancia("DisBulloni", schema_);
    colonne[2]->addWidget(schema_, 1);

    // Load window: heads, scroll bar, then the whole table and the picture of the signs.
    QWidget* carichi = gruppi[8];
    Intesta(carichi, 0,
            {{0, "N."},
             {1, "Descrizione"},
             {2, "N"},
             {3, "Ty"},
             {4, "Tz"},
             {5, "Mt"},
             {6, "My"},
             {7, "Mz"}});
    auto* g8 = qobject_cast<QGridLayout*>(carichi->layout());
    if (QWidget* barra = legame_->Crea("VScrollSoll", carichi)) g8->addWidget(barra, 1, 9, 5, 1);
    g8->setColumnStretch(1, 3);
    for (int c = 2; c <= 7; ++c) g8->setColumnStretch(c, 1);
    g8->setColumnMinimumWidth(1, 120);
    for (int r = 1; r <= 5; ++r) g8->setRowMinimumHeight(r, fontMetrics().height() + 12);
    tabella_ = new TabellaPiena(pilota_, this);
    tabella_->setMinimumHeight(140);
    colonne[3]->addWidget(tabella_, 1);
    colonne[3]->addWidget(new SchemaAzioni(this));
    return schede_;
}

QWidget* FinestraPrincipale::ComponiDestra() {
    destra_ = new QTabWidget(this);
    destra_->setObjectName(QStringLiteral("Destra"));
    auto* foglio = new QWidget(destra_);
    auto* colonna = new QVBoxLayout(foglio);
    colonna->setContentsMargins(0, 0, 0, 0);
    // The clickable names of the parts, white on a dark strip.
    auto* striscia = new QFrame(foglio);
    striscia->setAutoFillBackground(true);
    QPalette p = striscia->palette();
    p.setColor(QPalette::Window, QColor(58, 72, 92));
    striscia->setPalette(p);
    auto* riga = new QHBoxLayout(striscia);
    riga->setContentsMargins(8, 3, 8, 3);
    for (int i = 0; i < 5; ++i) {
        if (QWidget* w = legame_->Crea(ConIndice("LabPiastre", i), striscia)) riga->addWidget(w);
    }
    riga->addStretch(1);
    legame_->Aggancia("Picture2", striscia);
    colonna->addWidget(striscia);
    auto* diviso = new QSplitter(Qt::Vertical, foglio);
    vista_ = new VistaNodo(diviso);
    riepilogo_ = new PaginaRiepilogo(pilota_, diviso);
    riepilogo_->setMinimumHeight(110);
    diviso->addWidget(vista_);
    diviso->addWidget(riepilogo_);
    diviso->setStretchFactor(0, 3);
    diviso->setStretchFactor(1, 1);
    diviso->setChildrenCollapsible(false);
    diviso->setSizes({520, 200});
    colonna->addWidget(diviso, 1);
    destra_->addTab(foglio, QStringLiteral("Disegno e r&iepilogo"));
    relazione_ = new VistaRelazione(destra_);
    destra_->addTab(relazione_, QStringLiteral("Re&lazione"));
    // The ground of the pages on the left, not the lighter one of the tabs.
    for (QWidget* pagina : {foglio, static_cast<QWidget*>(relazione_)}) {
        pagina->setAutoFillBackground(true);
    }
    return destra_;
}

void FinestraPrincipale::ApriFile(const std::string& file) {
    if (!pilota_.Leggibile(file)) return;
    pilota_.Fai(QStringLiteral("Apri ") + Q(NomeBase(file)), [&] {
        bool aperto = false;
        EseguiComando(pilota_.LaSessione(), [&] { aperto = ApriNodo(pilota_.LaSessione(), file); });
        if (aperto) pilota_.Conosci(file);
    });
}

void FinestraPrincipale::MostraRelazione(const QString& percorso) {
    // The places of its rows are known of the report written last.
    const RisultatoVerifica& ultima = pilota_.LaSessione().ultimaVerifica;
    const bool sua = Q(PercorsoPiattaforma(ultima.relazione)) == percorso;
    if (!relazione_->Apri(percorso, sua ? ultima.testo : RelazioneScritta())) {
        statusBar()->showMessage(QStringLiteral("Relazione non leggibile: ") + percorso, 15000);
    } else {
        statusBar()->showMessage(QStringLiteral("Relazione scritta in ") + percorso, 15000);
    }
}

void FinestraPrincipale::Aggiorna() {
    const Sessione& s = pilota_.LaSessione();
    // The caption is the session's; the star comes and goes with the placeholder.
    setWindowTitle(Q(s.InsDati.titolo).replace(QLatin1String("[*]"), QLatin1String("[*][*]")) +
                   QStringLiteral("[*]"));
    setWindowModified(pilota_.DaSalvare());
    legame_->Aggiorna();
    MostraProfili(s.nodo, *sezioni_[0], *sezioni_[1]);
    schema_->update();
    tabella_->Aggiorna();
    AllineaPannelli();
    AggiornaMenu();
    relazione_->ImpostaSuperata(pilota_.Superati());
}

void FinestraPrincipale::AggiornaDisegno() {
    vista_->Mostra(pilota_.NodoMostrato(), pilota_.LaSessione().opz.ValOpz(kOpzTollForo));
    riepilogo_->Aggiorna();
    if (schede_->currentIndex() == 2) schema_->update();
    setWindowModified(pilota_.DaSalvare());
}

void FinestraPrincipale::AggiornaColori() {
    const int sestetto = riepilogo_->Scelta();
    const bool superati = pilota_.Superati() && !pilota_.DalVivo();
    vista_->ImpostaSuperati(superati);
    if (sestetto < 0) {
        vista_->Colora(std::nullopt, {}, std::nullopt);
        return;
    }
    const Nodo& n = pilota_.NodoDegliEsiti();
    // The bolts of an older verification may be others than those drawn.
    RapportiElementi rapporti = RapportiDi(pilota_.GliEsiti(), sestetto);
    if (superati) {
        rapporti.bulloni.resize(static_cast<std::size_t>(pilota_.NodoMostrato().nBull) + 1, -1.0);
    }
    vista_->Colora(rapporti,
                   QString::number(sestetto + 1) + QStringLiteral(". ") +
                       Q(Taglia(TogliCR(n.NomeSa(sestetto)))),
                   pilota_.PianoDegliEsiti(sestetto));
}

// Windows of the secondary panels follow the session's stack.
void FinestraPrincipale::AllineaPannelli() {
    const Sessione& s = pilota_.LaSessione();
    for (auto it = secondari_.begin(); it != secondari_.end();) {
        const bool aperto = std::find(s.pila.begin(), s.pila.end(), it->first) != s.pila.end();
        if (aperto) {
            it->second->Aggiorna();
            ++it;
            continue;
        }
        it->second->hide();
        it->second->deleteLater();
        it = secondari_.erase(it);
    }
    QWidget* sopra = this;
    for (const std::string& nome : s.pila) {
        if (nome == "InsDati") continue;
        PannelloSecondario*& w = secondari_[nome];
        if (w == nullptr) {
            w = new PannelloSecondario(pilota_, nome, sopra);
            w->show();
        }
        sopra = w;
    }
}

PannelloSecondario* FinestraPrincipale::Secondario(const std::string& nome) const {
    const auto it = secondari_.find(nome);
    return it == secondari_.end() ? nullptr : it->second;
}

void FinestraPrincipale::AggiornaMenu() {
    const Storia& storia = pilota_.LaStoria();
    const auto testo = [](const char* verbo, const std::string& cosa) {
        return QString::fromUtf8(verbo) +
               (cosa.empty() ? QString() : QStringLiteral(" - ") + ComeVoce(cosa));
    };
    annulla_->setEnabled(storia.PuoAnnullare());
    annulla_->setText(testo("&Annulla", storia.CosaAnnulla()));
    ripeti_->setEnabled(storia.PuoRipetere());
    ripeti_->setText(testo("&Ripeti", storia.CosaRipete()));

    const Sessione& s = pilota_.LaSessione();
    // Where the joint's file lies: chosen in a dialog, else in the job's directory.
    const std::string lavoro = s.dir.dirLavoro + "\\" + s.nomeFile + ".tk7";
    const bool scelto = NomeBase(pilota_.UltimoFile()) == s.nomeFile;
    const std::string corrente = scelto ? pilota_.UltimoFile() : lavoro;
    if (corrente == recente_) return;
    if (EsisteFile(corrente)) {
        recenti_->Aggiungi(corrente);
        recente_ = corrente;
    }
    menuRecenti_->clear();
    for (const std::string& file : recenti_->Elenco()) {
        QAction* a = menuRecenti_->addAction(ComeVoce(PercorsoMostrato(file)));
        connect(a, &QAction::triggered, this, [this, file] { ApriFile(file); });
    }
    menuRecenti_->setEnabled(!recenti_->Elenco().empty());
}

void FinestraPrincipale::VaiAlCampo(const std::string& campo) {
    QWidget* w = legame_->Elemento(campo);
    if (w == nullptr) return;
    for (int i = 0; i < schede_->count(); ++i) {
        if (schede_->widget(i)->isAncestorOf(w)) schede_->setCurrentIndex(i);
    }
    if (!w->isEnabled()) {  // a rib that is off: its switch
        const int i = DividiNome(campo).indice;
        if (QWidget* casella = legame_->Elemento(i <= 9 ? "CheckNervatura1" : "CheckNervatura2")) {
            casella->setFocus();
        }
        return;
    }
    w->setFocus(Qt::OtherFocusReason);
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        e->selectAll();
    } else {
        vista_->CampoInMano(campo);
    }
}

void FinestraPrincipale::VaiAllaParte(Famiglia famiglia, int elemento) {
    destra_->setCurrentIndex(0);
    switch (Tipo(famiglia)) {
        case TipoElemento::piastra:
            VaiAlCampo(elemento == 1 ? "GeoPias(2)" : "GeoPias(5)");
            return;
        case TipoElemento::bullone:
            schede_->setCurrentIndex(2);
            vista_->CampoInMano({});
            vista_->Evidenzia(Parte::bullone, elemento);
            return;
        case TipoElemento::saldatura:
            break;
    }
    VaiAlCampo(famiglia == Famiglia::saldatureS1 ? "TextSald(0)" : "TextSald(1)");
    vista_->Evidenzia(Parte::saldatura, elemento);
}

// Some labels bear colours of their own, made for the ground that they were on.
void FinestraPrincipale::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() != QEvent::PaletteChange || riepilogo_ == nullptr) return;
    // Once the change has reached every widget.
    QTimer::singleShot(0, this, [this] {
        legame_->Aggiorna();
        riepilogo_->Aggiorna();
    });
}

void FinestraPrincipale::closeEvent(QCloseEvent* evento) {
    Sessione& s = pilota_.LaSessione();
    if (!s.fine) pilota_.Fai({}, [&] { PremiPulsante(s, "Chiudi", "InsDati"); });
    evento->accept();
}

}  // namespace tk07::desktop
