#include "osserva3d/superficie.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/aritmetica.h"
#include "scene3d/terna.h"

namespace tk07::osserva3d {

namespace {

constexpr double kBordo = 0.08;
constexpr double kMinimoPerMm = 1e-3, kMassimoPerMm = 1e3;
constexpr double kGradiPixel = 0.4;
constexpr double kClic = 4.0;    // a press that moves less is a click [pixels]
constexpr double kPresa = 10.0;  // reach of the snap to corners [pixels]

double Rad(double gradi) { return gradi * kPi / 180.0; }

}  // namespace

Proiezione ProiezioneCamera(const Camera& c) {
    const double a = Rad(c.azimut), e = Rad(c.elevazione);
    Proiezione p;
    p.verso = {std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
    p.destra = {-std::sin(a), std::cos(a), 0.0};
    p.su = Prodotto(p.verso, p.destra);
    return p;
}

Superficie::Superficie(QWidget* padre) : QWidget(padre) {
    setObjectName("Superficie");
    setMinimumSize(240, 180);
    setFocusPolicy(Qt::StrongFocus);
}

void Superficie::Mostra(std::vector<Parte> parti, Occhio occhio) {
    parti_ = std::move(parti);
    primo_.reset();
    secondo_.reset();
    RifaiMostrate();
    PartiCambiate();
    if (occhio == Occhio::adatta) Adatta();
    update();
}

void Superficie::RifaiMostrate() {
    mostrate_.clear();
    for (const Parte& p : parti_) {
        mostrate_.push_back(Spostata(p, SpostamentoEsploso(p.dati, aspetto_.esploso)));
    }
    maglie_ = Maglie(mostrate_);
    esplosoFatto_ = aspetto_.esploso;
    sezioneFatta_ = aspetto_.sezione;
}

void Superficie::AggiornaAspetto() {
    if (esplosoFatto_ != aspetto_.esploso || !(sezioneFatta_ == aspetto_.sezione)) {
        const bool mosse = esplosoFatto_ != aspetto_.esploso;
        if (mosse) primo_.reset(), secondo_.reset();
        RifaiMostrate();
        PartiCambiate();
        if (mosse && adattata_) Adatta();
    }
    AspettoCambiato();
    update();
}

std::pair<double, double> Superficie::Estensione(int asse) const {
    const auto k = static_cast<std::size_t>(asse);
    double da = 1e300, a = -1e300;
    for (const Parte& p : parti_) {
        const double via = SpostamentoEsploso(p.dati, aspetto_.esploso)[k];
        da = Min(da, p.dati.da[k] + via);
        a = Max(a, p.dati.a[k] + via);
    }
    return da <= a ? std::pair(da, a) : std::pair(0.0, 0.0);
}

bool Superficie::Visibile(std::size_t i) const {
    const auto& v = aspetto_.pittura.visibili;
    return v.empty() || v[i];
}

Inquadratura Superficie::Inquadra() const {
    Inquadratura q;
    q.p = ProiezioneCamera(camera_);
    q.centro = q.p.Piana(camera_.centro);
    q.perMm = camera_.perMm;
    q.larghezza = width();
    q.altezza = height();
    return q;
}

void Superficie::Guarda(const Camera& c) {
    camera_ = c;
    adattata_ = false;
    CameraCambiata();
    update();
}

void Superficie::Orienta(double azimut, double elevazione) {
    camera_.azimut = azimut;
    camera_.elevazione = elevazione;
    Adatta();
}

void Superficie::Adatta() {
    Inquadratura q = Inquadra();
    std::vector<Maglia> viste;
    for (std::size_t i = 0; i < maglie_.size(); ++i) {
        if (Visibile(i)) viste.push_back(maglie_[i]);
    }
    tk07::Adatta(viste, q, kBordo);
    camera_.centro = q.Punto(width() / 2.0, height() / 2.0, 0.0);
    camera_.perMm = std::clamp(q.perMm, kMinimoPerMm, kMassimoPerMm);
    adattata_ = true;
    CameraCambiata();
    update();
}

void Superficie::Ingrandisci(double fattore, const QPointF& fermo) {
    const double nuovo = std::clamp(camera_.perMm * fattore, kMinimoPerMm, kMassimoPerMm);
    const double k = 1.0 / camera_.perMm - 1.0 / nuovo;
    const Proiezione p = ProiezioneCamera(camera_);
    camera_.centro = Avanti(camera_.centro, (fermo.x() - width() / 2.0) * k, p.destra);
    camera_.centro = Avanti(camera_.centro, (height() / 2.0 - fermo.y()) * k, p.su);
    camera_.perMm = nuovo;
    adattata_ = false;
    CameraCambiata();
    update();
}

void Superficie::resizeEvent(QResizeEvent*) {
    if (adattata_) Adatta();
}

void Superficie::wheelEvent(QWheelEvent* e) {
    Ingrandisci(std::pow(1.2, e->angleDelta().y() / 120.0), e->position());
    e->accept();
}

void Superficie::mousePressEvent(QMouseEvent* e) {
    premuto_ = ultimo_ = e->position();
    bottone_ = e->button();
    if (bottone_ == Qt::LeftButton && (e->modifiers() & Qt::ShiftModifier)) {
        bottone_ = Qt::MiddleButton;
    }
}

void Superficie::mouseMoveEvent(QMouseEvent* e) {
    if (bottone_ != Qt::LeftButton && bottone_ != Qt::MiddleButton) return;
    const QPointF via = e->position() - premuto_;
    if (!inMoto_ && std::hypot(via.x(), via.y()) < kClic) return;
    inMoto_ = true;
    const QPointF passo = e->position() - ultimo_;
    ultimo_ = e->position();
    if (bottone_ == Qt::LeftButton) {
        camera_.azimut = std::remainder(camera_.azimut - passo.x() * kGradiPixel, 360.0);
        camera_.elevazione = std::clamp(camera_.elevazione + passo.y() * kGradiPixel, -90.0, 90.0);
    } else {
        const Proiezione p = ProiezioneCamera(camera_);
        camera_.centro = Avanti(camera_.centro, -passo.x() / camera_.perMm, p.destra);
        camera_.centro = Avanti(camera_.centro, passo.y() / camera_.perMm, p.su);
    }
    adattata_ = false;
    CameraCambiata();
    update();
}

void Superficie::mouseReleaseEvent(QMouseEvent* e) {
    const bool mosso = std::exchange(inMoto_, false);
    const Qt::MouseButton quale = std::exchange(bottone_, Qt::NoButton);
    if (mosso) {
        update();
    } else if (quale == Qt::LeftButton) {
        Clic(e->position());
    } else if (quale == Qt::RightButton && suMenu) {
        suMenu(ParteSotto(e->position()), mapToGlobal(e->position().toPoint()));
    }
}

void Superficie::Clic(const QPointF& dove) {
    if (PresoDalCubo(dove)) return;
    if (!misura_) {
        if (suScelta) suScelta(ParteSotto(dove));
        return;
    }
    const auto punto = PuntoSotto(dove);
    if (!punto) return;
    if (primo_ && !secondo_) {
        secondo_ = Agganciato(dove, *punto);
    } else {
        primo_ = Agganciato(dove, *punto);
        secondo_.reset();
    }
    if (suMisura) suMisura(TestoMisura());
    AspettoCambiato();
    update();
}

// The nearest corner of the parts in view, where one is near and not far behind the surface.
Punto3 Superficie::Agganciato(const QPointF& dove, const Punto3& punto) const {
    const Inquadratura q = Inquadra();
    const double davanti = Scalare(punto, q.p.verso) - 3.0 * kPresa / q.perMm;
    double minima = kPresa;
    Punto3 migliore = punto;
    for (std::size_t i = 0; i < maglie_.size(); ++i) {
        if (!Visibile(i)) continue;
        for (const Punto3& v : maglie_[i].vertici) {
            const auto s = q.Pixel(v);
            const double d = std::hypot(s[0] - dove.x(), s[1] - dove.y());
            if (d >= minima || Scalare(v, q.p.verso) < davanti) continue;
            minima = d;
            migliore = v;
        }
    }
    return migliore;
}

void Superficie::AttivaMisura(bool attiva) {
    misura_ = attiva;
    primo_.reset();
    secondo_.reset();
    setCursor(attiva ? Qt::CrossCursor : Qt::ArrowCursor);
    if (suMisura) suMisura(attiva ? QStringLiteral("Misura: primo punto") : QString());
    AspettoCambiato();
    update();
}

QString Superficie::TestoMisura() const {
    if (!primo_) return {};
    const auto n = [](double x) { return QString::number(x + 0.0, 'f', 2); };
    const auto xyz = [&](const Punto3& p) {
        return QStringLiteral("X %1  Y %2  Z %3").arg(n(p[0]), n(p[1]), n(p[2]));
    };
    if (!secondo_) return QStringLiteral("Misura: ") + xyz(*primo_) + "  -  secondo punto";
    const Punto3 d = Avanti(*secondo_, -1.0, *primo_);
    return QStringLiteral("d = %1 mm   dX = %2   dY = %3   dZ = %4")
        .arg(n(std::hypot(d[0], d[1], d[2])), n(d[0]), n(d[1]), n(d[2]));
}

void Superficie::DipingiMisura(QPainter& p) const {
    if (!primo_) return;
    const Inquadratura q = Inquadra();
    const auto punto = [&](const Punto3& v) {
        const auto s = q.Pixel(v);
        return QPointF(s[0], s[1]);
    };
    const QColor tinta(200, 0, 120);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(tinta, 1.6));
    p.setBrush(Qt::NoBrush);
    for (const auto& v : {primo_, secondo_}) {
        if (v) p.drawRect(QRectF(punto(*v) - QPointF(4, 4), QSizeF(8, 8)));
    }
    if (!secondo_) return;
    p.drawLine(punto(*primo_), punto(*secondo_));
    const QString testo = TestoMisura();
    const QFontMetricsF misure(p.font());
    QRectF cornice(0.0, 0.0, misure.horizontalAdvance(testo) + 12.0, misure.height() + 8.0);
    cornice.moveCenter((punto(*primo_) + punto(*secondo_)) / 2.0 - QPointF(0.0, cornice.height()));
    cornice.moveLeft(std::clamp(cornice.left(), 2.0, std::max(2.0, width() - cornice.width() - 2)));
    cornice.moveTop(std::clamp(cornice.top(), 2.0, std::max(2.0, height() - cornice.height() - 2)));
    p.setBrush(QColor(255, 255, 255, 235));
    p.drawRoundedRect(cornice, 3.0, 3.0);
    p.drawText(cornice, Qt::AlignCenter, testo);
}

Superficie* FaiSuperficie(QWidget* padre) {
    Superficie* s = QGuiApplication::platformName() == "xcb" ? FaiSuperficieGl(padre) : nullptr;
    return s != nullptr ? s : FaiSuperficiePittura(padre);
}

}  // namespace tk07::osserva3d
