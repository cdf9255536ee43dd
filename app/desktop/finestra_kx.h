#pragma once

#include <QDialog>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;

namespace tk07::desktop {

// What the caller asks of the unit converter: one argument of fields "key=value|".
struct RichiestaKx {
    std::string unita;    // the caller's unit; the answer is in it
    int categoria = 0;    // 4 forces, 5 moments, 0 any
    double valore = 0.0;  // in the caller's unit
    std::string fileOut;  // first line takes the answer; empty for none
    std::string titolo;
};
RichiestaKx LeggiRichiestaKx(const std::string& riga);

// A value in any unit of the conversion table, shown in the caller's unit; OK writes it.
class FinestraKx : public QDialog {
    Q_OBJECT

  public:
    explicit FinestraKx(const RichiestaKx& richiesta);
    void accept() override;

  private:
    void RiempiUnita();
    void Calcola();

    RichiestaKx richiesta_;
    QComboBox* grandezza_;
    QComboBox* da_;
    QComboBox* a_;
    QLineEdit* valore_;
    QLabel* risultato_;
    double calcolato_ = 0.0;
    bool valido_ = false;
};

}  // namespace tk07::desktop
