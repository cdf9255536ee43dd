#pragma once

#include <QDialog>
#include <string>

#include "desktop/legame.h"

class QVBoxLayout;

namespace tk07::desktop {

class PiantaBulloni;
class Pilota;

// A secondary panel as a window over the one that opened it. Closing the window presses the panel's
// own closing button.
class PannelloSecondario : public QDialog {
    Q_OBJECT

  public:
    PannelloSecondario(Pilota& pilota, const std::string& nome, QWidget* padre);
    Legame& IlLegame() { return *legame_; }
    void Aggiorna();

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void ComponiBulloni();
    void ComponiGruppi(QVBoxLayout* colonna);
    void ComponiOpzioni();
    void ComponiColori();
    void Tingi();

    Pilota& pilota_;
    std::string nome_;
    Legame* legame_;
    std::string anteprimaDi_ = "-";  // what the preview of the import was made for
    PiantaBulloni* pianta_ = nullptr;
    QWidget* spiega_ = nullptr;
};

}  // namespace tk07::desktop
