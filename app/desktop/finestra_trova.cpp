#include "desktop/finestra_trova.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include "base/direttori.h"
#include "base/file_testo.h"
#include "desktop/testo_qt.h"
#include "guscio/trova.h"
#include "modelimport/liste.h"

namespace tk07::desktop {

namespace {

constexpr double kPresa = 8.0;  // pixels from which a click picks
const QColor kScelta(20, 110, 220), kVicina(200, 110, 0);

std::set<int> Numeri(const std::string& lista) {
    std::vector<short> n;
    if (!LeggiLista(lista, n)) return {};
    return {n.begin(), n.end()};
}

}  // namespace

VistaModello::VistaModello(const ModelloStr& modello, bool scegliNodi, QWidget* padre)
    : QWidget(padre), modello_(modello), scegliNodi_(scegliNodi) {
    setObjectName(QStringLiteral("VistaModello"));
    setMinimumSize(320, 200);
}

QPointF VistaModello::Piano(const NodoStr& n) const {
    switch (proiezione_) {
        case Proiezione::prospettoX:
            return {n.x, n.z};
        case Proiezione::prospettoY:
            return {n.y, n.z};
        case Proiezione::pianta:
            break;
    }
    return {n.x, n.y};
}

double VistaModello::Profondita(const NodoStr& n) const {
    switch (proiezione_) {
        case Proiezione::prospettoX:
            return n.y;
        case Proiezione::prospettoY:
            return n.x;
        case Proiezione::pianta:
            break;
    }
    return n.z;
}

bool VistaModello::InVista(const NodoStr& n) const {
    constexpr double kTolleranza = 0.5;  // cm
    return !quota_ || std::fabs(Profondita(n) - *quota_) <= kTolleranza;
}

std::vector<double> VistaModello::Livelli() const {
    std::set<double> quote;
    for (const NodoStr& n : modello_.nodi) quote.insert(std::round(Profondita(n)));
    return {quote.begin(), quote.end()};
}

void VistaModello::Livello(std::optional<double> quota) {
    quota_ = quota;
    update();
}

void VistaModello::Proietta(Proiezione p) {
    proiezione_ = p;
    quota_.reset();
    Adatta();
}

void VistaModello::Mostra(const std::set<int>& scelti, const std::set<int>& evidenti) {
    scelti_ = scelti;
    evidenti_ = evidenti;
    update();
}

void VistaModello::Adatta() {
    double x1 = 1e30, x2 = -1e30, y1 = 1e30, y2 = -1e30;
    for (const NodoStr& n : modello_.nodi) {
        const QPointF p = Piano(n);
        x1 = std::min(x1, p.x()), x2 = std::max(x2, p.x());
        y1 = std::min(y1, p.y()), y2 = std::max(y2, p.y());
    }
    if (modello_.nodi.empty()) return;
    constexpr double kBordo = 70.0;
    const double sx = (width() - kBordo) / std::max(1.0, x2 - x1);
    const double sy = (height() - kBordo) / std::max(1.0, y2 - y1);
    scala_ = std::max(1e-6, std::min(sx, sy));
    centro_ = {(x1 + x2) / 2.0, (y1 + y2) / 2.0};
    update();
}

QPointF VistaModello::InPixel(const NodoStr& n) const {
    const QPointF p = Piano(n) - centro_;
    return {width() / 2.0 + p.x() * scala_, height() / 2.0 - p.y() * scala_};
}

const NodoStr* VistaModello::NodoDi(int interno) const {
    for (const NodoStr& n : modello_.nodi) {
        if (n.interno == interno) return &n;
    }
    return nullptr;
}

double VistaModello::Distanza(const QPointF& p, const AstaStr& asta) const {
    const NodoStr *n1 = NodoDi(asta.interno1), *n2 = NodoDi(asta.interno2);
    if (n1 == nullptr || n2 == nullptr) return 1e30;
    const QPointF a = InPixel(*n1), d = InPixel(*n2) - a;
    const double l2 = QPointF::dotProduct(d, d);
    const double t = l2 > 0.0 ? std::clamp(QPointF::dotProduct(p - a, d) / l2, 0.0, 1.0) : 0.0;
    const QPointF q = p - (a + d * t);
    return std::hypot(q.x(), q.y());
}

void VistaModello::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().color(QPalette::Base));
    const QColor testo = palette().color(QPalette::Text);
    // Numbers that fall on one place stand behind one another.
    std::map<std::pair<int, int>, std::pair<QPointF, QString>> scritte;
    const auto scrivi = [&](const QPointF& dove, int numero) {
        auto& s = scritte[{static_cast<int>(dove.x() / 4.0), static_cast<int>(dove.y() / 4.0)}];
        s.first = dove;
        s.second +=
            (s.second.isEmpty() ? QString() : QStringLiteral("/")) + QString::number(numero);
    };
    for (const AstaStr& a : modello_.aste) {
        const NodoStr *n1 = NodoDi(a.interno1), *n2 = NodoDi(a.interno2);
        if (n1 == nullptr || n2 == nullptr || !InVista(*n1) || !InVista(*n2)) continue;
        const bool scelta = !scegliNodi_ && scelti_.count(a.numero) != 0;
        const bool vicina = evidenti_.count(a.numero) != 0;
        p.setPen(QPen(scelta ? kScelta : vicina ? kVicina : testo, scelta || vicina ? 2.6 : 1.0));
        const QPointF q1 = InPixel(*n1), q2 = InPixel(*n2);
        p.drawLine(q1, q2);
        if (std::hypot(q2.x() - q1.x(), q2.y() - q1.y()) > 40.0) {
            scrivi((q1 + q2) / 2.0 + QPointF(3, -3), a.numero);
        }
    }
    for (const NodoStr& n : modello_.nodi) {
        if (!InVista(n)) continue;
        const bool scelto = scegliNodi_ && scelti_.count(n.numero) != 0;
        p.setPen(scelto ? kScelta : testo);
        p.setBrush(scelto ? kScelta : palette().color(QPalette::Base));
        const QPointF q = InPixel(n);
        p.drawEllipse(q, scelto ? 5.0 : 3.0, scelto ? 5.0 : 3.0);
        if (scegliNodi_) scrivi(q + QPointF(6, 14), n.numero);
    }
    p.setPen(testo);
    for (const auto& [posto, s] : scritte) p.drawText(s.first, s.second);
    if (fascia_) {
        p.setPen(QPen(kScelta, 1.0, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(da_, a_).normalized());
    }
}

void VistaModello::wheelEvent(QWheelEvent* evento) {
    const double k = std::pow(1.2, evento->angleDelta().y() / 120.0);
    const QPointF d = evento->position() - QPointF(width() / 2.0, height() / 2.0);
    const QPointF mm(centro_.x() + d.x() / scala_, centro_.y() - d.y() / scala_);
    scala_ *= k;
    centro_ = {mm.x() - d.x() / scala_, mm.y() + d.y() / scala_};
    update();
    evento->accept();
}

void VistaModello::mousePressEvent(QMouseEvent* evento) { da_ = a_ = evento->position(); }

void VistaModello::mouseMoveEvent(QMouseEvent* evento) {
    a_ = evento->position();
    fascia_ = (a_ - da_).manhattanLength() > 6.0;
    update();
}

void VistaModello::mouseReleaseEvent(QMouseEvent* evento) {
    a_ = evento->position();
    const QRectF banda = QRectF(da_, a_).normalized();
    std::set<int> presi;
    double meglio = kPresa;
    const auto punto = [&](int numero, double distanza) {
        if (distanza > meglio) return;
        meglio = distanza;
        presi = {numero};
    };
    for (const NodoStr& n : modello_.nodi) {
        if (!scegliNodi_) break;
        if (!InVista(n)) continue;
        const QPointF q = InPixel(n);
        if (fascia_) {
            if (banda.contains(q)) presi.insert(n.numero);
        } else {
            punto(n.numero, std::hypot(q.x() - a_.x(), q.y() - a_.y()));
        }
    }
    for (const AstaStr& a : modello_.aste) {
        if (scegliNodi_) break;
        const NodoStr *n1 = NodoDi(a.interno1), *n2 = NodoDi(a.interno2);
        if (n1 == nullptr || n2 == nullptr || !InVista(*n1) || !InVista(*n2)) continue;
        if (fascia_) {
            if (banda.contains(InPixel(*n1)) && banda.contains(InPixel(*n2))) {
                presi.insert(a.numero);
            }
        } else {
            punto(a.numero, Distanza(a_, a));
        }
    }
    const bool fascia = fascia_;
    fascia_ = false;
    update();
    if (!presi.empty()) Q_EMIT cliccati(presi, fascia);
}

FinestraTrova::FinestraTrova(const ModelloStr& modello, Cosa cosa, const QString& titolo,
                             const std::string& iniziale, QWidget* padre)
    : QDialog(padre),
      modello_(modello),
      cosa_(cosa),
      vista_(new VistaModello(modello, cosa == Cosa::nodi, this)),
      elenco_(new QLineEdit(this)),
      nota_(new QLabel(this)) {
    setObjectName(cosa == Cosa::nodi ? QStringLiteral("TrovaNod") : QStringLiteral("Trova"));
    setWindowTitle(titolo);
    auto* colonna = new QVBoxLayout(this);
    auto* riga = new QHBoxLayout;
    auto* proiezione = new QComboBox(this);
    proiezione->addItems({QStringLiteral("Pianta (X, Y)"), QStringLiteral("Prospetto (X, Z)"),
                          QStringLiteral("Prospetto (Y, Z)")});
    auto* livello = new QComboBox(this);
    livello->setObjectName(QStringLiteral("Livello"));
    const auto riempi = [this, livello] {
        const QSignalBlocker blocco(livello);
        livello->clear();
        livello->addItem(QStringLiteral("tutti i livelli"));
        for (const double q : vista_->Livelli()) {
            livello->addItem(QStringLiteral("a ") + Misura(q), q);
        }
    };
    riempi();
    connect(proiezione, &QComboBox::currentIndexChanged, this, [this, riempi](int i) {
        vista_->Proietta(static_cast<VistaModello::Proiezione>(i));
        riempi();
    });
    connect(livello, &QComboBox::currentIndexChanged, this, [this, livello](int i) {
        vista_->Livello(i > 0 ? std::optional(livello->currentData().toDouble()) : std::nullopt);
    });
    nota_->setText(
        QStringLiteral("Clic: sceglie o toglie; trascinare: sceglie nel riquadro; "
                       "rotella: ingrandisce"));
    riga->addWidget(proiezione);
    riga->addWidget(livello);
    riga->addWidget(nota_, 1);
    colonna->addLayout(riga);
    colonna->addWidget(vista_, 1);
    auto* modulo = new QFormLayout;
    elenco_->setObjectName(QStringLiteral("Elenco"));
    elenco_->setToolTip(QStringLiteral("Numeri e intervalli separati da virgole"));
    modulo->addRow(cosa == Cosa::nodi ? QStringLiteral("&Nodi") : QStringLiteral("&Aste"), elenco_);
    if (cosa == Cosa::nodi) {
        principale_ = new QComboBox(this);
        secondaria_ = new QComboBox(this);
        modulo->addRow(QStringLiteral("Trave &principale"), principale_);
        modulo->addRow(QStringLiteral("Trave &secondaria"), secondaria_);
        for (const QComboBox* c : {principale_, secondaria_}) {
            connect(c, &QComboBox::activated, this, &FinestraTrova::Aggiorna);
        }
    }
    colonna->addLayout(modulo);
    auto* pulsanti = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    colonna->addWidget(pulsanti);
    connect(pulsanti, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(vista_, &VistaModello::cliccati, this, &FinestraTrova::Cambia);
    connect(elenco_, &QLineEdit::textEdited, this, [this] {
        scelti_ = Numeri(S(elenco_->text()));
        Aggiorna();
    });
    if (cosa == Cosa::aste) {  // the members that meet at the caller's nodes stand out
        const std::set<int> nodi = Numeri(iniziale);
        for (const NodoStr& n : modello.nodi) {
            if (nodi.count(n.numero) == 0) continue;
            for (const AstaStr& a : modello.aste) {
                if (a.interno1 == n.interno || a.interno2 == n.interno) vicine_.insert(a.numero);
            }
        }
    }
    Aggiorna();
    const QSize schermo = screen()->availableSize();
    resize(std::min(720, schermo.width()), std::min(620, schermo.height() - 40));
}

void FinestraTrova::Cambia(const std::set<int>& numeri, bool fascia) {
    for (const int n : numeri) {
        if (!fascia && scelti_.count(n) != 0) {
            scelti_.erase(n);
        } else {
            scelti_.insert(n);
        }
    }
    elenco_->setText(Q(ComponiLista(std::vector<int>(scelti_.begin(), scelti_.end()))));
    Aggiorna();
}

void FinestraTrova::Aggiorna() {
    std::set<int> evidenti = vicine_;
    if (cosa_ == Cosa::nodi) {
        std::set<int> alNodo;
        for (const NodoStr& n : modello_.nodi) {
            if (scelti_.count(n.numero) == 0) continue;
            for (const AstaStr& a : modello_.aste) {
                if (a.interno1 == n.interno || a.interno2 == n.interno) alNodo.insert(a.numero);
            }
        }
        for (QComboBox* c : {principale_, secondaria_}) {
            const QString prima = c->currentText();
            c->clear();
            c->addItem(QStringLiteral("nessuna"));
            for (const int a : alNodo) c->addItem(QString::number(a));
            c->setCurrentIndex(std::max(0, c->findText(prima)));
            if (c->currentIndex() > 0) evidenti.insert(c->currentText().toInt());
        }
    }
    vista_->Mostra(scelti_, evidenti);
}

std::string FinestraTrova::Elenco() const { return S(elenco_->text().trimmed()); }

std::string FinestraTrova::Principale() const {
    return principale_ != nullptr && principale_->currentIndex() > 0 ? S(principale_->currentText())
                                                                     : "";
}

std::string FinestraTrova::Secondaria() const {
    return secondaria_ != nullptr && secondaria_->currentIndex() > 0 ? S(secondaria_->currentText())
                                                                     : "";
}

bool TrovaInFinestra(const struct Direttori& d, bool nodi, QWidget* padre, const Piattaforma& p) {
    ModelloStr m;
    if (LeggiModello(d.dirLavoro, m, StrVecchia::termina, p) != EsitoStr::bene) return false;
    const FileLetto f = LeggiRighe(d.dirLavoro + (nodi ? "\\TrovaNIn.txt" : "\\TrovaIn.txt"));
    const QString titolo = f.righe.empty() ? QString() : Q(f.righe[0]);
    FinestraTrova finestra(m, nodi ? FinestraTrova::Cosa::nodi : FinestraTrova::Cosa::aste, titolo,
                           f.righe.size() > 1 ? f.righe[1] : "", padre);
    if (finestra.exec() != QDialog::Accepted || finestra.Elenco().empty()) return false;
    std::istringstream ingresso;
    std::ostringstream uscita;
    if (!nodi) return TrovaAste(d, finestra.Elenco(), ingresso, uscita, p) == 0;
    const SceltaNodi scelta{finestra.Elenco(), finestra.Principale(), finestra.Secondaria()};
    return TrovaNodi(d, scelta, ingresso, uscita, p) == 0;
}

}  // namespace tk07::desktop
