#include "mostradis/vista.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tk07::mostradis {

namespace {

constexpr double kMmPollice = 25.4;
constexpr double kPresa = 12.0;  // reach of the snap [pixels]
constexpr double kBordo = 0.94;  // part of the widget that a fitted drawing fills
constexpr double kMinimoPerUnita = 1e-7, kMassimoPerUnita = 1e5;

}  // namespace

std::optional<QPointF> PuntoNotevole(const Disegno& d, const OpzioniPittura& opz,
                                     const QPointF& punto, double raggio) {
    std::optional<QPointF> migliore;
    double minima = raggio;
    const auto prova = [&](int i) {
        const QPointF q(d.coordX[static_cast<std::size_t>(i)],
                        d.coordY[static_cast<std::size_t>(i)]);
        const double distanza = std::hypot(q.x() - punto.x(), q.y() - punto.y());
        if (distanza > minima) return;
        minima = distanza;
        migliore = q;
    };
    const auto visibile = [&](short c) {
        return opz.visibili[static_cast<std::size_t>(Strato(c))];
    };
    for (const LineaDis& l : d.linee) {
        if (!visibile(l.lineaColore)) continue;
        prova(l.lineaIni);
        prova(l.lineaFin);
    }
    for (const ArcoDis& a : d.archi) {
        if (!visibile(a.arcoColore)) continue;
        prova(a.arcoCentro);
        if (LeggiArco(d, a).ampiezza >= 360.0) continue;  // a circle has no ends
        prova(a.arcoIni);
        prova(a.arcoFin);
    }
    return migliore;
}

Vista::Vista(QWidget* padre) : QWidget(padre) {
    setObjectName("Vista");
    setMouseTracking(true);
    setMinimumSize(200, 150);
    setAttribute(Qt::WA_OpaquePaintEvent);
    PuntatoreAdatto();
}

void Vista::Mostra(Disegno d) {
    d_ = std::move(d);
    if (std::exchange(vuota_, false) || adattata_) Adatta();
    update();
}

void Vista::Adatta() {
    const QRectF q = IngombroDisegno(d_);
    centro_ = q.center();
    const double w = std::max(q.width(), 1e-3), h = std::max(q.height(), 1e-3);
    const double s = kBordo * std::min(width() / w, height() / h);
    perUnita_ = q.isNull() ? 1.0 : std::clamp(s, kMinimoPerUnita, kMassimoPerUnita);
    adattata_ = true;
    update();
}

void Vista::Ingrandisci(double fattore, const QPointF& fermo) {
    const double nuovo = std::clamp(perUnita_ * fattore, kMinimoPerUnita, kMassimoPerUnita);
    const QPointF mondo = MondoSuVista().inverted().map(fermo);
    perUnita_ = nuovo;
    centro_ += mondo - MondoSuVista().inverted().map(fermo);
    adattata_ = false;
    update();
}

QTransform Vista::MondoSuVista() const {
    QTransform t;
    t.translate(width() / 2.0, height() / 2.0);
    t.scale(perUnita_, -perUnita_);
    t.translate(-centro_.x(), -centro_.y());
    return t;
}

void Vista::AttivaMisura(bool attiva) {
    misura_ = attiva;
    primo_.reset();
    secondo_.reset();
    sotto_.reset();
    if (suMisura) suMisura(attiva ? QStringLiteral("Misura: primo punto") : QString());
    PuntatoreAdatto();
    update();
}

void Vista::PuntatoreAdatto() {
    setCursor(trascina_ ? Qt::ClosedHandCursor : misura_ ? Qt::CrossCursor : Qt::OpenHandCursor);
}

QPointF Vista::Agganciato(const QPointF& schermo, bool* preso) const {
    const QPointF mondo = MondoSuVista().inverted().map(schermo);
    const auto q = PuntoNotevole(d_, opz_, mondo, kPresa / perUnita_);
    if (preso != nullptr) *preso = q.has_value();
    return q.value_or(mondo);
}

QString Vista::TestoMisura(const QPointF& a, const QPointF& b) const {
    const QPointF v = b - a;
    const auto n = [](double x) { return QString::number(x + 0.0, 'f', 2); };
    return QStringLiteral("d = %1 mm   dx = %2   dy = %3")
        .arg(n(std::hypot(v.x(), v.y())), n(v.x()), n(v.y()));
}

void Vista::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), ColoreCarta(opz_.carta));
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    // Pens and dashes keep their size on the screen whatever the zoom.
    const double perMm = logicalDpiX() / kMmPollice;
    opz_.finestra = QRectF(0.0, 0.0, width() / perMm, height() / perMm);
    opz_.spessoreMinimo = 1.0 / perMm;
    p.save();
    p.scale(perMm, perMm);
    DipingiDisegno(p, d_, MondoSuVista() * QTransform::fromScale(1.0 / perMm, 1.0 / perMm), opz_);
    p.restore();
    if (misura_) DipingiMisura(p);
}

void Vista::DipingiMisura(QPainter& p) const {
    const QTransform t = MondoSuVista();
    const QColor tinta = opz_.carta == Carta::chiara ? QColor(200, 60, 0) : QColor(255, 170, 80);
    p.setBrush(Qt::NoBrush);
    const auto segno = [&](const QPointF& mondo) {
        const QPointF q = t.map(mondo);
        p.setPen(QPen(tinta, 1.6));
        p.drawRect(QRectF(q.x() - 5.0, q.y() - 5.0, 10.0, 10.0));
    };
    if (primo_) segno(*primo_);
    const auto fine = secondo_ ? secondo_ : sotto_;
    if (fine) segno(*fine);
    if (!primo_ || !fine) return;
    p.setPen(QPen(tinta, 1.4, Qt::DashLine));
    p.drawLine(t.map(*primo_), t.map(*fine));
    const QString testo = TestoMisura(*primo_, *fine);
    const QFontMetricsF misure(p.font());
    QRectF cornice(0.0, 0.0, misure.horizontalAdvance(testo) + 12.0, misure.height() + 8.0);
    cornice.moveCenter((t.map(*primo_) + t.map(*fine)) / 2.0 - QPointF(0.0, cornice.height()));
    cornice.moveLeft(std::clamp(cornice.left(), 2.0, std::max(2.0, width() - cornice.width() - 2)));
    cornice.moveTop(std::clamp(cornice.top(), 2.0, std::max(2.0, height() - cornice.height() - 2)));
    p.setPen(QPen(tinta, 1.0));
    p.setBrush(ColoreCarta(opz_.carta));
    p.drawRoundedRect(cornice, 3.0, 3.0);
    p.drawText(cornice, Qt::AlignCenter, testo);
}

void Vista::resizeEvent(QResizeEvent*) {
    if (adattata_) Adatta();
}

void Vista::wheelEvent(QWheelEvent* e) {
    Ingrandisci(std::pow(1.2, e->angleDelta().y() / 120.0), e->position());
    e->accept();
}

void Vista::mousePressEvent(QMouseEvent* e) {
    const bool sinistro = e->button() == Qt::LeftButton;
    if (misura_ && sinistro) {
        if (primo_ && !secondo_) {
            secondo_ = Agganciato(e->position());
            if (suMisura) suMisura(TestoMisura(*primo_, *secondo_));
        } else {
            primo_ = Agganciato(e->position());
            secondo_.reset();
            if (suMisura) suMisura(QStringLiteral("Misura: secondo punto"));
        }
        update();
        return;
    }
    if (sinistro || e->button() == Qt::MiddleButton) {
        trascina_ = e->position();
        PuntatoreAdatto();
    }
}

void Vista::mouseMoveEvent(QMouseEvent* e) {
    if (trascina_) {
        const QPointF passo = e->position() - *trascina_;
        centro_ -= QPointF(passo.x(), -passo.y()) / perUnita_;
        trascina_ = e->position();
        adattata_ = false;
        update();
    } else if (misura_) {
        bool preso = false;
        const QPointF q = Agganciato(e->position(), &preso);
        // A mark follows a caught point; the line to measure follows the pointer.
        sotto_ = preso || (primo_ && !secondo_) ? std::optional(q) : std::nullopt;
        update();
    }
    if (suPosizione) {
        const QPointF q = MondoSuVista().inverted().map(e->position());
        suPosizione(QStringLiteral("x = %1   y = %2 mm")
                        .arg(QString::number(q.x(), 'f', 1), QString::number(q.y(), 'f', 1)));
    }
}

void Vista::mouseReleaseEvent(QMouseEvent*) {
    trascina_.reset();
    PuntatoreAdatto();
}

void Vista::leaveEvent(QEvent*) {
    if (suPosizione) suPosizione({});
}

}  // namespace tk07::mostradis
