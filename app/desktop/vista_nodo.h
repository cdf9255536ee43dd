#pragma once

#include <QWidget>
#include <optional>

#include "desktop/geometria_nodo.h"
#include "joint/geometria.h"
#include "verification/esiti.h"

namespace tk07::desktop {

// The joint drawn to scale: front view of the plates, side section, view from above. A part under
// the pointer is named, a click on it leads to its field; the part of the field in hand is marked
// and dimensioned. With ratios given, bolts, plates and weld lines take the colour of theirs.
class VistaNodo : public QWidget {
    Q_OBJECT

  public:
    explicit VistaNodo(QWidget* padre = nullptr);

    void Mostra(const Nodo& nodo, double gioco);
    void CampoInMano(const std::string& campo);
    // Ratios of a load set, or none; `piano` is its stress plane [daN/mm2].
    void Colora(const std::optional<RapportiElementi>& rapporti, const QString& titolo,
                const std::optional<Tab1<double, 1, 3>>& piano);
    // Marks one element (a bolt, a weld line), as the summary asks.
    void Evidenzia(Parte parte, int indice);
    void ImpostaSuperati(bool superati);

    // What lies under a point of the widget; nullptr for nothing.
    const Forma* FormaIn(const QPointF& punto) const;
    // Where a point of a view is drawn.
    QPointF InPixel(Vista v, const QPointF& mm) const;
    const DisegnoNodo& IlDisegno() const { return disegno_; }
    QSize sizeHint() const override { return {640, 520}; }

  Q_SIGNALS:
    void parteScelta(const std::string& campo);
    void bulloneScelto(int numero);

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void leaveEvent(QEvent* evento) override;

  private:
    void Disponi();
    void DisegnaForma(QPainter& p, const Forma& f) const;
    void DisegnaQuote(QPainter& p) const;
    void DisegnaPiano(QPainter& p) const;
    void DisegnaLegenda(QPainter& p) const;
    bool Marcata(const Forma& f) const;
    QColor Asse() const;

    DisegnoNodo disegno_;
    std::string campo_;
    std::optional<RapportiElementi> rapporti_;
    std::optional<Tab1<double, 1, 3>> piano_;
    Rettangolo comune_;
    QString titolo_;
    bool superati_ = false;
    Parte parteEvidente_ = Parte::principale;
    int indiceEvidente_ = -1;  // -1 none
    const Forma* sotto_ = nullptr;
    double scala_ = 1.0;  // pixels a millimetre
    QPointF origine_[3];
    bool inFila_ = false;  // the view from above stands beside the others
};

// Green up to 0.8, amber up to 1, red above; the same everywhere ratios are shown.
QColor ColoreRapporto(double r);
// The same as a colour of letters, which must be read on the ground `fondo`.
QColor TestoRapporto(double r, const QColor& fondo);
// What marks the field or part in hand, on light and dark grounds.
QColor ColoreMarcato(const QColor& fondo);

}  // namespace tk07::desktop
