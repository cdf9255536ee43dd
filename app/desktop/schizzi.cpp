#include "desktop/schizzi.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "desktop/vista_nodo.h"

namespace tk07::desktop {

SchizzoSezione::SchizzoSezione(QWidget* padre) : QWidget(padre) {
    setFixedSize(sizeHint());
    superficie_.ScaleWidth = width();
    superficie_.ScaleHeight = height();
    superficie_.pulisci = [this] {
        linee_.clear();
        archi_ = {};
    };
    superficie_.linea = [this](double x1, double y1, double x2, double y2) {
        linee_.push_back({x1, y1, x2, y2});
    };
    superficie_.cerchio = [this](double x, double y, double r, double a1, double a2) {
        constexpr double kGradi = 180.0 / kPi;
        // The path's y grows downwards; here it is turned over by the painter.
        const QRectF q(x - r, y - r, 2.0 * r, 2.0 * r);
        archi_.arcMoveTo(q, -a1 * kGradi);
        archi_.arcTo(q, -a1 * kGradi, -(a2 - a1) * kGradi);
    };
}

void MostraProfili(const Nodo& nodo, SchizzoSezione& pri, SchizzoSezione& sec) {
    AnteprimeProfili(nodo, pri.superficie_, sec.superficie_);
    pri.update();
    sec.update();
}

void SchizzoSezione::paintEvent(QPaintEvent*) {
    const Superficie& s = superficie_;
    if (!(s.xMax > s.xMin) || !(s.yMax > s.yMin)) return;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(width() / (s.xMax - s.xMin), -height() / (s.yMax - s.yMin));
    p.translate(-s.xMin, -s.yMax);
    QPen penna(palette().color(QPalette::WindowText), 1.2);
    penna.setCosmetic(true);
    p.setPen(penna);
    p.drawLines(linee_);
    p.drawPath(archi_);
}

SchemaAzioni::SchemaAzioni(QWidget* padre) : QWidget(padre) {
    setObjectName(QStringLiteral("SchemaAzioni"));
    setMinimumSize(240, 130);
    setToolTip(QStringLiteral("Assi e segni positivi delle sei caratteristiche"));
}

void SchemaAzioni::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor testo = palette().color(QPalette::WindowText);
    const QColor azione = ColoreMarcato(palette().color(QPalette::Window));
    const double h = height() - 16.0;
    const QRectF piastra(34.0, 8.0, h * 0.62, h);
    p.setPen(QPen(testo, 1.0));
    p.setBrush(QColor(176, 190, 206, 60));
    p.drawRect(piastra);
    const QPointF c = piastra.center();
    const double b = piastra.width() * 0.28, v = piastra.height() * 0.3;
    p.setBrush(QColor(156, 172, 128, 200));
    p.drawRect(QRectF(c.x() - b, c.y() - v, 2 * b, 5));
    p.drawRect(QRectF(c.x() - b, c.y() + v - 5, 2 * b, 5));
    p.drawRect(QRectF(c.x() - 2.5, c.y() - v, 5, 2 * v));
    const auto freccia = [&](const QPointF& da, const QPointF& a, const char* nome,
                             const QPointF& dove) {
        p.setPen(QPen(azione, 2.0));
        p.drawLine(da, a);
        const QPointF d = a - da;
        const double l = std::max(1.0, std::hypot(d.x(), d.y()));
        const QPointF u = d / l, n(-u.y(), u.x());
        p.setBrush(azione);
        p.drawPolygon(QPolygonF({a, a - u * 8.0 + n * 4.0, a - u * 8.0 - n * 4.0}));
        p.drawText(a + dove, QString::fromUtf8(nome));
    };
    freccia(c, c + QPointF(0, piastra.height() * 0.44), "Ty", {5, 2});
    freccia(c, c + QPointF(piastra.width() * 0.72, 0), "Tz", {4, 4});
    // N comes out of the sheet, away from the main beam.
    p.setBrush(palette().color(QPalette::Base));
    p.drawEllipse(c, 6.0, 6.0);
    p.setBrush(azione);
    p.drawEllipse(c, 2.0, 2.0);
    p.drawText(c + QPointF(-22, 16), QStringLiteral("N"));
    const QRectF arco(c.x() - 24, c.y() - 24, 48, 48);
    p.setBrush(Qt::NoBrush);
    p.drawArc(arco, 30 * 16, 110 * 16);
    const QPointF punta(c.x() + 24 * std::cos(2.44), c.y() - 24 * std::sin(2.44));
    p.setBrush(azione);
    p.drawPolygon(
        QPolygonF({punta + QPointF(-2, 6), punta + QPointF(7, 2), punta + QPointF(0, -5)}));
    p.drawText(c + QPointF(12, -24), QStringLiteral("Mt"));

    p.setPen(testo);
    const double x = piastra.right() + 44.0;
    const double passo = std::min(h / 6.2, p.fontMetrics().height() + 4.0);
    double y = 8.0 + passo;
    for (const char* riga :
         {"Fronte delle piastre, segni positivi:", "N tende i bulloni (verso chi guarda)",
          "Ty verso il basso, Tz verso destra", "Mt antiorario", "My tende il lato sinistro",
          "Mz tende il lato inferiore"}) {
        p.drawText(QPointF(x, y), QString::fromUtf8(riga));
        y += passo;
    }
}

}  // namespace tk07::desktop
