#pragma once

#include <QPointF>
#include <QString>
#include <QTransform>
#include <QWidget>
#include <functional>
#include <optional>

#include "drawing/archivio.h"
#include "render/pittura.h"

namespace tk07::mostradis {

// Notable point (line end, arc end, centre) nearest to `punto` within `raggio`, all in drawing
// units, among the visible elements.
std::optional<QPointF> PuntoNotevole(const Disegno& d, const OpzioniPittura& opz,
                                     const QPointF& punto, double raggio);

// The surface that shows a drawing: pan by dragging, zoom at the pointer, measuring by two clicks.
class Vista : public QWidget {
  public:
    explicit Vista(QWidget* padre = nullptr);

    // Another drawing; zoom and position stay unless none was shown yet.
    void Mostra(Disegno d);
    const Disegno& Corrente() const { return d_; }
    OpzioniPittura& Opzioni() { return opz_; }  // to be followed by update()

    void Adatta();
    void Ingrandisci(double fattore, const QPointF& fermo);  // `fermo` stays under the pointer
    void AttivaMisura(bool attiva);
    bool Misura() const { return misura_; }

    // Drawing units to widget coordinates.
    QTransform MondoSuVista() const;

    std::function<void(const QString&)> suPosizione, suMisura;

  protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void wheelEvent(QWheelEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void leaveEvent(QEvent*) override;

  private:
    QPointF Agganciato(const QPointF& schermo, bool* preso = nullptr) const;
    void PuntatoreAdatto();
    void DipingiMisura(QPainter& p) const;
    QString TestoMisura(const QPointF& a, const QPointF& b) const;

    Disegno d_;
    OpzioniPittura opz_;
    QPointF centro_;         // drawing point at the middle of the widget
    double perUnita_ = 1.0;  // pixels a drawing unit
    bool adattata_ = true;   // still as Adatta left it: follows the widget's size
    bool vuota_ = true;
    bool misura_ = false;
    std::optional<QPointF> trascina_;         // last pointer while dragging
    std::optional<QPointF> primo_, secondo_;  // measured points, drawing units
    std::optional<QPointF> sotto_;            // pointer while measuring
};

}  // namespace tk07::mostradis
