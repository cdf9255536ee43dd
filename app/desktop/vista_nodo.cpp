#include "desktop/vista_nodo.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "desktop/testo_qt.h"

namespace tk07::desktop {

namespace {

constexpr double kAttenzione = 0.8;
constexpr double kMargine = 34.0;  // pixels around the views, for dimensions
constexpr double kTitoli = 62.0;   // the same above them, with their titles
constexpr double kTra = 50.0;      // pixels between the views

QColor ColoreParte(Parte p) {
    switch (p) {
        case Parte::principale:
            return {120, 144, 168};
        case Parte::secondaria:
            return {156, 172, 128};
        case Parte::piastra1:
            return {176, 190, 206};
        case Parte::piastra2:
            return {206, 196, 170};
        case Parte::nervatura1:
        case Parte::nervatura2:
        case Parte::nervatura3:
            return {200, 168, 140};
        case Parte::bullone:
            return {70, 82, 110};
        case Parte::saldatura:
            break;
    }
    return {90, 90, 90};
}

}  // namespace

QColor ColoreRapporto(double r) {
    if (r > 1.0) return {198, 40, 40};
    return r > kAttenzione ? QColor(226, 150, 20) : QColor(46, 140, 70);
}

QColor TestoRapporto(double r, const QColor& fondo) {
    const bool scuro = fondo.lightness() < 128;
    if (r > 1.0) return scuro ? QColor(255, 115, 105) : QColor(190, 30, 30);
    if (r > kAttenzione) return scuro ? QColor(255, 190, 80) : QColor(150, 90, 0);
    return scuro ? QColor(110, 215, 140) : QColor(30, 115, 55);
}

QColor ColoreMarcato(const QColor& fondo) {
    return fondo.lightness() < 128 ? QColor(100, 175, 255) : QColor(20, 110, 220);
}

QString RapportoMostrato(double r) {
    if (std::isinf(r)) return QStringLiteral("∞");
    if (r > 1.0) return QString::number(std::ceil(r * 100.0 - 1e-9) / 100.0, 'f', 2);
    return QString::number(r, 'f', 2);
}

VistaNodo::VistaNodo(QWidget* padre) : QWidget(padre) {
    setObjectName(QStringLiteral("VistaNodo"));
    setMouseTracking(true);
    setMinimumSize(320, 200);
    setAccessibleName(QStringLiteral("Disegno del nodo in scala"));
}

void VistaNodo::Mostra(const Nodo& nodo, double gioco) {
    disegno_ = ComponiDisegno(nodo, gioco);
    comune_ = GeometriaDi(nodo).comune;
    sotto_ = nullptr;
    Disponi();
    update();
}

void VistaNodo::CampoInMano(const std::string& campo) {
    campo_ = campo;
    indiceEvidente_ = -1;
    update();
}

void VistaNodo::Colora(const std::optional<RapportiElementi>& rapporti, const QString& titolo,
                       const std::optional<Tab1<double, 1, 3>>& piano) {
    rapporti_ = rapporti;
    titolo_ = titolo;
    piano_ = piano;
    update();
}

void VistaNodo::Evidenzia(Parte parte, int indice) {
    parteEvidente_ = parte;
    indiceEvidente_ = indice;
    update();
}

void VistaNodo::ImpostaSuperati(bool superati) {
    if (superati == superati_) return;
    superati_ = superati;
    update();
}

// Front and side always share their heights. The view from above stands below the front, sharing
// its widths, or beside the others, whichever leaves the larger scale.
void VistaNodo::Disponi() {
    const QRectF &f = disegno_.estensione[0], &l = disegno_.estensione[1],
                 &q = disegno_.estensione[2];
    const double yMin = std::min(f.top(), l.top()), yMax = std::max(f.bottom(), l.bottom());
    const double due = f.width() + l.width(), alto = yMax - yMin;
    if (!(due > 1e-3 && alto > 1e-3)) return;
    const double w = width() - 2.0 * kMargine, h = height() - kTitoli - kMargine;
    const double sotto = std::min((w - kTra) / due, (h - kTra) / (alto + q.height()));
    const double accanto =
        std::min((w - 2.0 * kTra) / (due + q.width()), h / std::max(alto, q.height()));
    inFila_ = accanto > sotto;
    scala_ = std::max(0.01, std::max(sotto, accanto));
    const double largo = inFila_ ? (due + q.width()) * scala_ + 2.0 * kTra : due * scala_ + kTra;
    const double x0 = kMargine + std::max(0.0, (w - largo) / 2.0);
    const double y0 = kTitoli;
    const double base = y0 + yMax * scala_;  // pixel row of y = 0
    const double xLato = x0 + f.width() * scala_ + kTra;
    origine_[0] = {x0 - f.left() * scala_, base};
    origine_[1] = {xLato - l.left() * scala_, base};
    if (inFila_) {
        origine_[2] = {xLato + l.width() * scala_ + kTra - q.left() * scala_,
                       y0 - q.top() * scala_};
    } else {
        origine_[2] = {x0 - f.left() * scala_, base - yMin * scala_ + kTra - q.top() * scala_};
    }
}

QPointF VistaNodo::InPixel(Vista v, const QPointF& mm) const {
    const QPointF& o = origine_[static_cast<std::size_t>(v)];
    const double verso = v == Vista::pianta ? 1.0 : -1.0;
    return {o.x() + mm.x() * scala_, o.y() + verso * mm.y() * scala_};
}

const Forma* VistaNodo::FormaIn(const QPointF& punto) const {
    for (auto it = disegno_.forme.rbegin(); it != disegno_.forme.rend(); ++it) {
        const QPointF& o = origine_[static_cast<std::size_t>(it->vista)];
        const double verso = it->vista == Vista::pianta ? 1.0 : -1.0;
        const QPointF mm((punto.x() - o.x()) / scala_, verso * (punto.y() - o.y()) / scala_);
        if (it->contorno.containsPoint(mm, Qt::OddEvenFill)) return &*it;
    }
    return nullptr;
}

bool VistaNodo::Marcata(const Forma& f) const {
    if (indiceEvidente_ >= 0 && f.parte == parteEvidente_ && f.indice == indiceEvidente_)
        return true;
    Parte parte{};
    int gruppo = 0;
    if (!ParteDelCampo(campo_, parte, gruppo) || f.parte != parte) return false;
    return gruppo == 0 || (FamigliaLinea(f.indice) == Famiglia::saldatureS1 ? 1 : 2) == gruppo;
}

void VistaNodo::DisegnaForma(QPainter& p, const Forma& f) const {
    const QPointF& o = origine_[static_cast<std::size_t>(f.vista)];
    const double verso = f.vista == Vista::pianta ? 1.0 : -1.0;
    QPolygonF q;
    q.reserve(f.contorno.size());
    for (const QPointF& m : f.contorno) {
        q << QPointF(o.x() + m.x() * scala_, o.y() + verso * m.y() * scala_);
    }
    QColor riempi = ColoreParte(f.parte);
    double rapporto = -1.0;
    if (rapporti_) {
        if (f.parte == Parte::bullone && f.indice < static_cast<int>(rapporti_->bulloni.size())) {
            rapporto = rapporti_->bulloni[static_cast<std::size_t>(f.indice)];
        } else if (f.parte == Parte::saldatura) {
            rapporto = rapporti_->saldature[static_cast<std::size_t>(f.indice)];
        } else if (f.parte == Parte::piastra1 || f.parte == Parte::piastra2) {
            rapporto = rapporti_->piastre[f.parte == Parte::piastra1 ? 0 : 1];
        }
        if (rapporto >= 0.0) {
            riempi = ColoreRapporto(rapporto);
            const bool piastra = f.parte == Parte::piastra1 || f.parte == Parte::piastra2;
            if (piastra) riempi.setAlpha(90);
        } else {
            riempi = QColor(150, 150, 150);
        }
    }
    if (f.parte != Parte::bullone && f.parte != Parte::saldatura && riempi.alpha() == 255) {
        riempi.setAlpha(f.vista == Vista::fronte && f.parte == Parte::piastra2 ? 150 : 210);
    }
    QPen penna(palette().color(QPalette::Text), f.parte == Parte::saldatura ? 0.4 : 1.0);
    if (f.nascosta) {
        penna.setStyle(Qt::DashLine);
        riempi = Qt::transparent;
    }
    const QColor fondo = palette().color(QPalette::Base), marcata = ColoreMarcato(fondo);
    if (Marcata(f)) {
        penna = QPen(marcata, 2.5, f.nascosta ? Qt::DashLine : Qt::SolidLine);
        if (rapporto < 0.0 && !f.nascosta)
            riempi = fondo.lightness() < 128 ? marcata.darker(190) : marcata.lighter(165);
    } else if (&f == sotto_) {
        penna = QPen(marcata, 1.6);
    }
    p.setPen(penna);
    p.setBrush(riempi);
    p.drawPolygon(q);
}

void VistaNodo::DisegnaQuote(QPainter& p) const {
    Parte inMano{};
    int gruppo = 0;
    const bool diParte = ParteDelCampo(campo_, inMano, gruppo);
    const QColor marcata = ColoreMarcato(palette().color(QPalette::Base));
    for (const QuotaCampo& q : disegno_.quote) {
        Parte parte{};
        int g = 0;
        const bool propria = q.campo == campo_;
        const bool vicina = diParte && ParteDelCampo(q.campo, parte, g) && parte == inMano;
        if (!propria && !vicina) continue;
        const QPointF a = InPixel(q.vista, q.da), b = InPixel(q.vista, q.a);
        QPointF dir = b - a;
        const double lungo = std::hypot(dir.x(), dir.y());
        dir = lungo > 1e-6 ? dir / lungo : QPointF(1, 0);
        const QPointF normale(dir.y(), -dir.x());  // to the left of da -> a on the screen
        const double scosta = std::clamp(q.scosta, -1e4, 1e4);
        const double passi = std::fabs(scosta) > 50.0 ? scosta * scala_ : scosta * 0.6;
        const QPointF s = normale * passi;
        const QColor colore = propria ? marcata : palette().color(QPalette::PlaceholderText);
        p.setPen(QPen(colore, propria ? 1.6 : 1.0));
        p.setBrush(colore);
        p.drawLine(a, a + s);
        p.drawLine(b, b + s);
        const QPointF c = a + s, d = b + s;
        p.drawLine(c, d);
        for (const auto& [punta, verso] : {std::pair{c, 1.0}, {d, -1.0}}) {
            const QPointF base = punta + dir * verso * 6.0;
            p.drawPolygon(QPolygonF({punta, base + normale * 2.5, base - normale * 2.5}));
        }
        QFont carattere = font();
        carattere.setBold(propria);
        p.setFont(carattere);
        const QString testo = Misura(q.valore);
        const QRectF ingombro = QFontMetricsF(carattere).boundingRect(testo);
        const QPointF lato = scosta >= 0.0 ? normale : -normale;
        const QPointF centro = (c + d) / 2.0 + QPointF(lato.x() * (ingombro.width() / 2.0 + 4.0),
                                                       lato.y() * (ingombro.height() / 2.0 + 2.0));
        QRectF riquadro(0, 0, ingombro.width() + 4.0, ingombro.height());
        riquadro.moveCenter(centro);
        p.setPen(Qt::NoPen);
        p.setBrush(palette().color(QPalette::Base));
        p.drawRect(riquadro);
        p.setPen(colore);
        p.drawText(riquadro, Qt::AlignCenter, testo);
    }
}

// Colour of the neutral axis, on light and on dark grounds.
QColor VistaNodo::Asse() const {
    return palette().color(QPalette::Base).lightness() < 128 ? QColor(120, 170, 255)
                                                             : QColor(40, 80, 200);
}

// Compressed part of the plates and neutral axis, from the plane s = c1 y + c2 x + c3 over the area
// that both plates share.
void VistaNodo::DisegnaPiano(QPainter& p) const {
    if (!piano_) return;
    const auto& c = *piano_;
    const auto valore = [&](const QPointF& m) { return c(3) + c(1) * m.y() + c(2) * m.x(); };
    const QPointF angoli[] = {{comune_.xMin, comune_.yMin},
                              {comune_.xMax, comune_.yMin},
                              {comune_.xMax, comune_.yMax},
                              {comune_.xMin, comune_.yMax}};
    QPolygonF compressa;
    QList<QPointF> asse;
    for (std::size_t i = 0; i < 4; ++i) {
        const QPointF &a = angoli[i], &b = angoli[(i + 1) % 4];
        const double va = valore(a), vb = valore(b);
        if (va <= 0.0) compressa << InPixel(Vista::fronte, a);
        if ((va <= 0.0) != (vb <= 0.0)) {
            const QPointF m = InPixel(Vista::fronte, a + (b - a) * (va / (va - vb)));
            compressa << m;
            asse << m;
        }
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QBrush(Asse(), Qt::BDiagPattern));
    p.drawPolygon(compressa);
    if (asse.size() == 2) {
        p.setPen(QPen(Asse(), 2.0, Qt::DashDotLine));
        p.drawLine(asse[0], asse[1]);
        p.drawText(asse[1].x() > asse[0].x() ? asse[1] + QPointF(4, -2) : asse[0] + QPointF(4, -2),
                   QStringLiteral("n"));
    }
}

void VistaNodo::DisegnaLegenda(QPainter& p) const {
    if (!rapporti_) return;
    // Where the views leave room: below the side section, or at the lower left.
    const QRectF &f = disegno_.estensione[0], &l = disegno_.estensione[1],
                 &q = disegno_.estensione[2];
    const double passo = QFontMetricsF(font()).height() + 4.0;
    double x = InPixel(Vista::lato, {l.left(), 0}).x();
    double y = InPixel(Vista::pianta, {0, q.top()}).y();
    if (inFila_) {
        x = InPixel(Vista::fronte, {f.left(), 0}).x();
        y = InPixel(Vista::fronte, {0, std::min(f.top(), l.top())}).y() + 40.0;
    }
    x = std::min(x, width() - 230.0);
    y = std::min(y, height() - passo * 6.5);
    p.setFont(font());
    const auto riga = [&](const QColor& colore, const QString& testo) {
        p.setPen(palette().color(QPalette::Text));
        p.setBrush(colore);
        p.drawRect(QRectF(x, y + 2.0, passo - 6.0, passo - 6.0));
        p.drawText(QPointF(x + passo + 2.0, y + passo - 6.0), testo);
        y += passo;
    };
    p.setPen(palette().color(QPalette::Text));
    QFont grassetto = font();
    grassetto.setBold(true);
    p.setFont(grassetto);
    p.drawText(QRectF(x, y, width() - x - 6.0, passo), Qt::AlignLeft | Qt::AlignVCenter,
               QFontMetricsF(grassetto).elidedText(titolo_, Qt::ElideRight, width() - x - 6.0));
    p.setFont(font());
    y += passo;
    riga(ColoreRapporto(0.5), QStringLiteral("fino a 0.80"));
    riga(ColoreRapporto(0.9), QStringLiteral("da 0.80 a 1.00"));
    riga(ColoreRapporto(2.0), QStringLiteral("oltre 1.00: non verificato"));
    riga(QColor(150, 150, 150), QStringLiteral("senza verifica"));
    if (piano_) {
        p.setPen(QPen(Asse(), 2.0, Qt::DashDotLine));
        p.drawLine(QPointF(x, y + passo / 2.0 - 1.0), QPointF(x + passo, y + passo / 2.0 - 1.0));
        p.setPen(palette().color(QPalette::Text));
        p.drawText(QPointF(x + passo + 2.0, y + passo - 6.0),
                   QStringLiteral("n: asse neutro, zona compressa"));
    }
}

void VistaNodo::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().color(QPalette::Base));
    for (const Forma& f : disegno_.forme) DisegnaForma(p, f);
    // The marked shapes once more, above their neighbours.
    for (const Forma& f : disegno_.forme) {
        if (Marcata(f) && f.parte != Parte::piastra1 && f.parte != Parte::principale) {
            DisegnaForma(p, f);
        }
    }
    if (!campo_.empty()) {  // bolts stay visible over a marked plate
        for (const Forma& f : disegno_.forme) {
            if (f.parte == Parte::bullone) DisegnaForma(p, f);
        }
    }
    DisegnaPiano(p);
    DisegnaQuote(p);
    p.setFont(font());
    p.setPen(palette().color(QPalette::PlaceholderText));
    constexpr const char* kTitoli3[] = {"Fronte delle piastre", "Sezione laterale",
                                        "Vista dall'alto"};
    for (int v = 0; v < 3; ++v) {
        const auto vista = static_cast<Vista>(v);
        const QRectF& e = disegno_.estensione[v];
        const double x = InPixel(vista, {e.left(), 0}).x();
        const bool sotto = v == 2 && !inFila_;
        const double y = sotto ? InPixel(vista, {0, e.top()}).y() - 8.0 : 16.0;
        // Up to the next view beside it.
        const double fine = v == 0 ? InPixel(Vista::lato, {disegno_.estensione[1].left(), 0}).x()
                            : v == 1 && inFila_
                                ? InPixel(Vista::pianta, {disegno_.estensione[2].left(), 0}).x()
                                : width();
        p.drawText(QPointF(x, y), QFontMetricsF(font()).elidedText(QString::fromUtf8(kTitoli3[v]),
                                                                   Qt::ElideRight, fine - x - 6.0));
    }
    DisegnaLegenda(p);
    if (superati_ && rapporti_) {
        QFont f = font();
        f.setBold(true);
        f.setPointSizeF(f.pointSizeF() * 1.4);
        p.setFont(f);
        p.setPen(TestoRapporto(2.0, palette().color(QPalette::Base)));
        p.drawText(rect().adjusted(8, 4, -8, -6), Qt::AlignRight | Qt::AlignBottom,
                   QStringLiteral("risultati superati"));
    }
}

void VistaNodo::resizeEvent(QResizeEvent*) { Disponi(); }

void VistaNodo::mousePressEvent(QMouseEvent* evento) {
    const Forma* f = FormaIn(evento->position());
    if (f == nullptr || evento->button() != Qt::LeftButton) return;
    if (f->parte == Parte::bullone) {
        Q_EMIT bulloneScelto(f->indice);
        return;
    }
    Q_EMIT parteScelta(CampoDellaParte(*f));
}

void VistaNodo::mouseMoveEvent(QMouseEvent* evento) {
    const Forma* f = FormaIn(evento->position());
    if (f == sotto_) return;
    sotto_ = f;
    setCursor(f != nullptr ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QString testo;
    if (f != nullptr) {
        testo = NomeParte(*f);
        if (rapporti_ && f->parte == Parte::bullone &&
            f->indice < static_cast<int>(rapporti_->bulloni.size())) {
            testo += QStringLiteral(": ") +
                     RapportoMostrato(rapporti_->bulloni[static_cast<std::size_t>(f->indice)]);
        } else if (rapporti_ && f->parte == Parte::saldatura &&
                   rapporti_->saldature[static_cast<std::size_t>(f->indice)] >= 0.0) {
            testo += QStringLiteral(": ") +
                     RapportoMostrato(rapporti_->saldature[static_cast<std::size_t>(f->indice)]);
        }
    }
    QToolTip::showText(evento->globalPosition().toPoint(), testo, this);
    update();
}

void VistaNodo::leaveEvent(QEvent*) {
    sotto_ = nullptr;
    update();
}

}  // namespace tk07::desktop
