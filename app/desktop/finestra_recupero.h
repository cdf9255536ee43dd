#pragma once

#include <QDialog>
#include <QList>

#include "session/recupero.h"

class QPushButton;
class QTableWidget;

namespace tk07::desktop {

class Pilota;

// The automatic copies with date and content; the user opens one, deletes some, or leaves them.
class FinestraRecupero : public QDialog {
    Q_OBJECT

  public:
    FinestraRecupero(Pilota& pilota, QWidget* padre);
    QTableWidget* Tabella() const { return tabella_; }

  public Q_SLOTS:
    void Recupera();
    void Elimina();

  private:
    void Riempi();
    Pilota& pilota_;
    QTableWidget* tabella_;
    QList<QPushButton*> pulsanti_;  // those that need a copy
    std::vector<CopiaTrovata> copie_;
};

// After a run that broke off: asks whether its copies should be shown, if there are any.
void OffriRecupero(Pilota& pilota, QWidget* padre);

}  // namespace tk07::desktop
