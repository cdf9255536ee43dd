#include "desktop/pianta_bulloni.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "base/testo.h"
#include "desktop/geometria_nodo.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"

namespace tk07::desktop {

namespace {

constexpr int kRighe = 9;  // bolts that the panel's list shows at once
const QColor kScelto(255, 170, 0);

// Blue circles and red numbers, lighter where the ground is dark.
QColor Blu(bool scuro) { return scuro ? QColor(130, 175, 255) : QColor(0, 0, 255); }
QColor Rosso(bool scuro) { return scuro ? QColor(255, 120, 110) : QColor(255, 0, 0); }
QColor Minimo(bool scuro) { return scuro ? QColor(255, 160, 70) : QColor(200, 90, 0); }
QColor Massimo(bool scuro) { return scuro ? QColor(175, 175, 175) : QColor(110, 110, 110); }

// Brings bolt `i` into the panel's list; its row.
int RigaDelBullone(Sessione& s, int i) {
    const Controllo& barra = s.FormBulloni["Scroll1"];
    if (barra.visibile) Scorri(s, "Scroll1", std::min(i, barra.massimo), "FormBulloni");
    return i - static_cast<int>(ValoreIniziale(s.FormBulloni["Lbul(0)"].testo));
}

}  // namespace

PiantaBulloni::PiantaBulloni(Pilota& pilota, Fonte fonte, QWidget* padre)
    : QWidget(padre), pilota_(pilota), fonte_(fonte) {
    setMinimumSize(200, 200);
    setMouseTracking(true);
    if (fonte == Fonte::pannello) setFocusPolicy(Qt::ClickFocus);
}

std::vector<PiantaBulloni::Bullone> PiantaBulloni::Bulloni() const {
    std::vector<Bullone> b;
    if (fonte_ == Fonte::nodo) {
        const Nodo& n = pilota_.NodoMostrato();
        for (int i = 1; i <= n.nBull; ++i)
            b.push_back({n.Xbull(i), n.Ybull(i), n.Fibull(i), false});
        return b;
    }
    const BulloniTemp& t = pilota_.LaSessione().bulloni;
    const bool gruppo = preso_ > 0 && t.SelBullTemp(preso_) != 0.0;
    for (int i = 1; i <= t.nBullTemp; ++i) {
        const bool scelto = t.SelBullTemp(i) != 0.0;
        const bool mosso = preso_ > 0 && (i == preso_ || (gruppo && scelto));
        b.push_back({t.XbullTemp(i) + (mosso ? trascina_.x() : 0.0),
                     t.YbullTemp(i) + (mosso ? trascina_.y() : 0.0), t.FibullTemp(i), scelto});
    }
    return b;
}

QPointF PiantaBulloni::InPixel(const QPointF& mm) const {
    return {width() / 2.0 + (mm.x() - centro_.x()) * scala_,
            height() / 2.0 - (mm.y() - centro_.y()) * scala_};
}

QPointF PiantaBulloni::InMm(const QPointF& q) const {
    return {centro_.x() + (q.x() - width() / 2.0) / scala_,
            centro_.y() - (q.y() - height() / 2.0) / scala_};
}

bool PiantaBulloni::Scuro() const { return palette().color(QPalette::Base).lightness() < 128; }

void PiantaBulloni::Adatta() {
    const DisegnoNodo d = ComponiDisegno(pilota_.NodoMostrato(), 0.0);
    QRectF e;
    for (const Forma& f : d.forme) {
        if (f.vista == Vista::fronte &&
            (f.parte == Parte::piastra1 || f.parte == Parte::piastra2)) {
            e = e.isNull() ? f.contorno.boundingRect() : e.united(f.contorno.boundingRect());
        }
    }
    // The aspect is kept, with a margin of a tenth of the extent on each side; an extent of nothing
    // is drawn one to one.
    constexpr double kNulla = 0.0001, kMargini = 1.2;
    const double sx = e.width() < kNulla ? 1.0 : width() / (kMargini * e.width());
    const double sy = e.height() < kNulla ? 1.0 : height() / (kMargini * e.height());
    scala_ = std::min(sx, sy);
    centro_ = e.center();
    adattata_ = true;
    update();
}

int PiantaBulloni::BulloneIn(const QPointF& q) const {
    const std::vector<Bullone> b = Bulloni();
    for (std::size_t i = b.size(); i > 0; --i) {
        const QPointF c = InPixel({b[i - 1].x, b[i - 1].y});
        const double r = std::max(6.0, b[i - 1].d / 2.0 * scala_);
        if (std::hypot(q.x() - c.x(), q.y() - c.y()) <= r) return static_cast<int>(i);
    }
    return 0;
}

// What the rules leave free around the bolts in hand: the wedges in which a neighbour is too near
// or too far, the range of the edge distances within the plates' common area. Then every distance
// that breaks a rule, by the measure of the verification itself.
void PiantaBulloni::DisegnaLimiti(QPainter& p, const std::vector<Bullone>& b) const {
    if (fonte_ != Fonte::pannello) return;
    const Sessione& s = pilota_.LaSessione();
    p.setBrush(Qt::NoBrush);
    const bool scuro = Scuro();
    for (std::size_t i = 0; i < b.size(); ++i) {
        const bool inMano = static_cast<int>(i) + 1 == sotto_ || static_cast<int>(i) + 1 == preso_;
        if (!inMano && !b[i].scelto) continue;
        const LimitiProposta l = LimitiPerProposta(s.nodo, s.opz, b[i].d);
        const QPointF c = InPixel({b[i].x, b[i].y});
        const auto cunei = [&](double x, double y, const QPen& penna) {  // two wedges each way
            p.setPen(penna);
            const double dx = x * scala_, dy = y * scala_;
            for (const double v : {-1.0, 1.0}) {
                p.drawPolygon(QPolygonF{c, c + v * QPointF(dx, -dx * kTanCuneo),
                                        c + v * QPointF(dx, dx * kTanCuneo)});
                p.drawPolygon(QPolygonF{c, c + v * QPointF(-dy * kTanCuneo, dy),
                                        c + v * QPointF(dy * kTanCuneo, dy)});
            }
        };
        cunei(l.passoMinX, l.passoMinY, QPen(Minimo(scuro), 1.0, Qt::DashLine));
        if (!inMano) continue;
        cunei(l.passoMax, l.passoMax, QPen(Massimo(scuro), 1.0, Qt::DotLine));
        const auto fascia = [&](double ex, double ey, const QColor& colore) {
            const Rettangolo& a = l.comune;
            if (!(2.0 * ex < a.xMax - a.xMin && 2.0 * ey < a.yMax - a.yMin)) return;
            p.setPen(QPen(colore, 1.0, Qt::DashLine));
            p.drawRect(
                QRectF(InPixel({a.xMin + ex, a.yMax - ey}), InPixel({a.xMax - ex, a.yMin + ey})));
        };
        fascia(l.eMinX, l.eMinY, Minimo(scuro));
        fascia(l.eMaxX, l.eMaxY, Massimo(scuro));
    }
    p.setPen(QPen(Rosso(scuro), 2.0));
    for (const DistanzaBulloni& d : Infrante(b)) {
        const Bullone& uno = b[static_cast<std::size_t>(d.bullone) - 1];
        const QPointF c = InPixel({uno.x, uno.y});
        if (d.piastra == 0) {
            const Bullone& altro = b[static_cast<std::size_t>(d.altro) - 1];
            p.drawLine(c, InPixel({altro.x, altro.y}));
        } else {  // a bar on the side of the edge
            const double r = uno.d * scala_, v = d.inizio ? -1.0 : 1.0;
            const QPointF lungo =
                d.direzione == Direzione::orizzontale ? QPointF(v * r, 0.0) : QPointF(0.0, -v * r);
            const QPointF traverso(lungo.y(), lungo.x());
            p.drawLine(c + lungo - traverso, c + lungo + traverso);
        }
    }
}

std::vector<DistanzaBulloni> PiantaBulloni::Infrante(const std::vector<Bullone>& b) const {
    const Sessione& s = pilota_.LaSessione();
    std::vector<PosizioneBullone> posizioni;
    for (const Bullone& q : b) posizioni.push_back({q.x, q.y, q.d});
    std::vector<DistanzaBulloni> d = DistanzeBulloni(s.nodo, s.opz, posizioni);
    d.erase(
        std::remove_if(d.begin(), d.end(), [](const DistanzaBulloni& q) { return q.Rispettata(); }),
        d.end());
    return d;
}

std::vector<DistanzaBulloni> PiantaBulloni::Infrante() const { return Infrante(Bulloni()); }

void PiantaBulloni::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().color(QPalette::Base));
    const Nodo& n = pilota_.NodoMostrato();
    const double gioco = pilota_.LaSessione().opz.ValOpz(kOpzTollForo);
    const DisegnoNodo d = ComponiDisegno(n, gioco);
    for (const Forma& f : d.forme) {
        if (f.vista != Vista::fronte || f.parte == Parte::bullone || f.parte == Parte::principale) {
            continue;
        }
        QPolygonF q;
        for (const QPointF& m : f.contorno) q << InPixel(m);
        const bool piastra = f.parte == Parte::piastra1 || f.parte == Parte::piastra2;
        QColor riempi = piastra                       ? QColor(176, 190, 206, 70)
                        : f.parte == Parte::saldatura ? QColor(90, 90, 90)
                                                      : QColor(156, 172, 128, 170);
        p.setPen(
            QPen(palette().color(QPalette::Text), 1.0, f.nascosta ? Qt::DashLine : Qt::SolidLine));
        p.setBrush(f.nascosta ? QColor(Qt::transparent) : riempi);
        p.drawPolygon(q);
    }
    const std::vector<Bullone> b = Bulloni();
    DisegnaLimiti(p, b);
    for (std::size_t i = 0; i < b.size(); ++i) {
        const QPointF c = InPixel({b[i].x, b[i].y});
        const double r = (b[i].d + gioco) / 2.0 * scala_;
        p.setPen(QPen(Blu(Scuro() && !b[i].scelto), static_cast<int>(i) + 1 == sotto_ ? 2.5 : 1.4));
        p.setBrush(b[i].scelto ? kScelto : QColor(Qt::transparent));
        p.drawEllipse(c, r, r);
        p.drawLine(c - QPointF(r, 0), c + QPointF(r, 0));
        p.drawLine(c - QPointF(0, r), c + QPointF(0, r));
        if (fonte_ == Fonte::nodo) continue;
        p.setPen(Rosso(Scuro()));
        p.drawText(c + QPointF(r + 2.0, p.fontMetrics().height()), QString::number(i + 1));
    }
    if (fasciaDa_) {
        p.setPen(QPen(palette().color(QPalette::Highlight), 1.0, Qt::DashLine));
        QColor velo = palette().color(QPalette::Highlight);
        velo.setAlpha(40);
        p.setBrush(velo);
        p.drawRect(QRectF(*fasciaDa_, fasciaA_).normalized());
    }
}

void PiantaBulloni::resizeEvent(QResizeEvent*) {
    if (adattata_) Adatta();
}

void PiantaBulloni::wheelEvent(QWheelEvent* evento) {
    const QPointF mm = InMm(evento->position());
    scala_ = std::clamp(scala_ * std::pow(1.2, evento->angleDelta().y() / 120.0), 0.02, 200.0);
    centro_ += mm - InMm(evento->position());  // the point under the pointer stays
    adattata_ = false;
    update();
    evento->accept();
}

void PiantaBulloni::mousePressEvent(QMouseEvent* evento) {
    const QPointF mm = InMm(evento->position());
    if (evento->button() == Qt::MiddleButton) {
        muoveDa_ = evento->position();
        return;
    }
    if (fonte_ == Fonte::nodo || evento->button() != Qt::LeftButton) return;
    Sessione& s = pilota_.LaSessione();
    if (s.bulloni.attesaClick == 1) {
        pilota_.Fai(QStringLiteral("Bullone con il mouse"), [&] {
            Mouse(s, "DisBulloni", EventoMouse::premi, mm.x(), mm.y(), "FormBulloni");
        });
        return;
    }
    preso_ = BulloneIn(evento->position());
    presoDa_ = mm;
    trascina_ = {};
    if (preso_ == 0) {
        fasciaDa_ = evento->position();
        fasciaA_ = *fasciaDa_;
    }
    update();
}

void PiantaBulloni::mouseMoveEvent(QMouseEvent* evento) {
    const QPointF mm = InMm(evento->position());
    if (muoveDa_) {
        centro_ += InMm(*muoveDa_) - mm;
        muoveDa_ = evento->position();
        adattata_ = false;
        update();
        return;
    }
    if (fonte_ == Fonte::nodo) return;
    Sessione& s = pilota_.LaSessione();
    if (preso_ > 0) {
        // The bolt in hand lands on the grid, the others of the selection keep their distance.
        const double x0 = s.bulloni.XbullTemp(preso_), y0 = s.bulloni.YbullTemp(preso_);
        const QPointF libero = mm - presoDa_;
        const bool fermo = std::hypot(libero.x(), libero.y()) * scala_ < 3.0;
        trascina_ = fermo ? QPointF()
                          : QPointF(Scatta5(x0 + libero.x()) - x0, Scatta5(y0 + libero.y()) - y0);
    } else if (fasciaDa_) {
        fasciaA_ = evento->position();
    } else {
        sotto_ = BulloneIn(evento->position());
        setCursor(s.bulloni.attesaClick == 1 ? Qt::CrossCursor
                  : sotto_ > 0               ? Qt::SizeAllCursor
                                             : Qt::ArrowCursor);
        pilota_.Muovi(
            [&] { Mouse(s, "DisBulloni", EventoMouse::muovi, mm.x(), mm.y(), "FormBulloni"); });
    }
    QString testo = Misura(Scatta5(mm.x())) + QStringLiteral(", ") + Misura(Scatta5(mm.y()));
    if (preso_ > 0) {
        testo = Misura(s.bulloni.XbullTemp(preso_) + trascina_.x()) + QStringLiteral(", ") +
                Misura(s.bulloni.YbullTemp(preso_) + trascina_.y());
    }
    QToolTip::showText(evento->globalPosition().toPoint() + QPoint(12, 12), testo, this);
    update();
}

void PiantaBulloni::Sposta(const QPointF& delta) {
    Sessione& s = pilota_.LaSessione();
    const BulloniTemp& t = s.bulloni;
    const bool gruppo = t.SelBullTemp(preso_) != 0.0;
    pilota_.Fai(QStringLiteral("Sposta bulloni"), [&] {
        for (int i = 1; i <= t.nBullTemp; ++i) {
            if (i != preso_ && !(gruppo && t.SelBullTemp(i) != 0.0)) continue;
            const int riga = RigaDelBullone(s, i);
            const std::string x = TestoReale(t.XbullTemp(i) + delta.x());
            const std::string y = TestoReale(t.YbullTemp(i) + delta.y());
            if (delta.x() != 0.0) ScriviCampo(s, ConIndice("Xbul", riga), x, 0, "FormBulloni");
            if (delta.y() != 0.0) ScriviCampo(s, ConIndice("Ybul", riga), y, 0, "FormBulloni");
        }
    });
}

void PiantaBulloni::Scegli(const QRectF& mm, bool aggiungi) {
    Sessione& s = pilota_.LaSessione();
    const BulloniTemp& t = s.bulloni;
    pilota_.Fai(QStringLiteral("Selezione dei bulloni"), [&] {
        for (int i = 1; i <= t.nBullTemp; ++i) {
            const bool prima = t.SelBullTemp(i) != 0.0;
            const bool dentro = mm.contains(QPointF(t.XbullTemp(i), t.YbullTemp(i)));
            const bool ora = dentro || (aggiungi && prima);
            if (ora == prima) continue;
            ImpostaCasella(s, ConIndice("Check_Bul", RigaDelBullone(s, i)), ora ? 1 : 0,
                           "FormBulloni");
        }
    });
}

void PiantaBulloni::mouseReleaseEvent(QMouseEvent* evento) {
    const bool aggiungi = (evento->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    muoveDa_.reset();
    if (fasciaDa_) {
        const QRectF mm = QRectF(InMm(*fasciaDa_), InMm(fasciaA_)).normalized();
        fasciaDa_.reset();
        Scegli(mm, aggiungi);
    } else if (preso_ > 0) {
        const QPointF delta = trascina_;
        if (!delta.isNull()) {
            Sposta(delta);
        } else {  // a plain click selects the one bolt, or switches it
            const Bullone b = Bulloni()[static_cast<std::size_t>(preso_ - 1)];
            Scegli(QRectF(b.x - 0.01, b.y - 0.01, 0.02, 0.02), aggiungi);
        }
        trascina_ = {};
        preso_ = 0;
    }
    update();
}

void PiantaBulloni::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (BulloneIn(evento->position()) == 0) Adatta();
}

void PiantaBulloni::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() != Qt::Key_Escape || fonte_ == Fonte::nodo) {
        return QWidget::keyPressEvent(evento);
    }
    Rinuncia();
}

// The press is awaited no longer; the key reaches the panel through a field, text unchanged.
void PiantaBulloni::Rinuncia() {
    Sessione& s = pilota_.LaSessione();
    preso_ = 0;
    fasciaDa_.reset();
    setCursor(Qt::ArrowCursor);
    pilota_.Muovi([&] {
        ScriviCampo(s, "DiamProponi", s.FormBulloni["DiamProponi"].testo, 27, "FormBulloni");
        s.piattaforma.puntatore(0);
    });
    update();
}

}  // namespace tk07::desktop
