#pragma once

#include <QWidget>

#include "libraries/profili.h"

namespace tk07 {

// Section of a beam, to scale within the widget.
class SchizzoSezione : public QWidget {
  public:
    explicit SchizzoSezione(QWidget* padre);
    void Mostra(const ProfiloRec& profilo);
    QSize sizeHint() const override { return {90, 90}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    ProfiloRec profilo_;
};

// Axes and positive signs of the six actions, on the plates seen along the secondary beam.
class SchemaAzioni : public QWidget {
  public:
    explicit SchemaAzioni(QWidget* padre);
    QSize sizeHint() const override { return {300, 150}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

}  // namespace tk07
