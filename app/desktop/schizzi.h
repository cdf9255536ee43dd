#pragma once

#include <QLineF>
#include <QPainterPath>
#include <QVector>
#include <QWidget>

#include "drawing/profilo_tavola.h"

namespace tk07::desktop {

// Surface on which a beam's section is drawn; it keeps the strokes that it was given.
class SchizzoSezione : public QWidget {
  public:
    explicit SchizzoSezione(QWidget* padre);
    QSize sizeHint() const override { return {90, 90}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    friend void MostraProfili(const Nodo& nodo, SchizzoSezione& pri, SchizzoSezione& sec);
    Superficie superficie_;
    QVector<QLineF> linee_;
    QPainterPath archi_;
};

// Draws the two beams, at the same scale on both surfaces.
void MostraProfili(const Nodo& nodo, SchizzoSezione& pri, SchizzoSezione& sec);

// Axes and positive signs of the six actions, on the plates seen along the secondary beam.
class SchemaAzioni : public QWidget {
  public:
    explicit SchemaAzioni(QWidget* padre);
    QSize sizeHint() const override { return {300, 150}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

}  // namespace tk07::desktop
