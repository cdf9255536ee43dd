#pragma once

#include <QWidget>
#include <optional>
#include <set>
#include <vector>

#include "bolting/proposte.h"
#include "verification/interassi.h"

namespace tk07::desktop {

class Pilota;

// The plan of the plates with the bolts, in plate coordinates. On the bolt panel it places, drags
// and selects the bolts of the working copy, always through the panel's own fields; on the main
// panel it shows those of the joint.
//   wheel zooms about the pointer, the middle button pans, a double click fits
//   left button: places the awaited bolt, drags a bolt (with it the selection it belongs to) on the
//   5 mm grid, or draws a band that selects
class PiantaBulloni : public QWidget {
    Q_OBJECT

  public:
    enum class Fonte { nodo, pannello };
    PiantaBulloni(Pilota& pilota, Fonte fonte, QWidget* padre);
    QPointF InPixel(const QPointF& mm) const;
    QPointF InMm(const QPointF& pixel) const;
    // Bolt under a point, 0 for none.
    int BulloneIn(const QPointF& pixel) const;
    void Adatta();
    // Distances of the bolts shown that break a rule of the joint's method.
    std::vector<DistanzaBulloni> Infrante() const;
    // Esc: what the mouse was about to do is given up.
    void Rinuncia();
    QSize sizeHint() const override { return {420, 520}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    struct Bullone {
        double x = 0, y = 0, d = 0;
        bool scelto = false;
    };
    std::vector<Bullone> Bulloni() const;  // bolt i at i - 1, with what is being dragged
    bool Scuro() const;
    std::vector<DistanzaBulloni> Infrante(const std::vector<Bullone>& b) const;
    void DisegnaLimiti(QPainter& p, const std::vector<Bullone>& b) const;
    void Sposta(const QPointF& delta);
    void Scegli(const QRectF& mm, bool aggiungi);

    Pilota& pilota_;
    Fonte fonte_;
    double scala_ = 1.0;
    QPointF centro_;  // mm at the middle of the widget
    bool adattata_ = true;
    int sotto_ = 0;  // bolt under the pointer
    int preso_ = 0;  // bolt being dragged
    QPointF presoDa_, trascina_;
    std::optional<QPointF> fasciaDa_;
    QPointF fasciaA_;
    std::optional<QPointF> muoveDa_;
};

}  // namespace tk07::desktop
