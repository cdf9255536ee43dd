#pragma once

#include <QDialog>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/direttori.h"
#include "modelimport/struttura.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace tk07::desktop {

// The structure's nodes and members in plan and in two elevations, to pick from. A click picks or
// drops; a drag picks all that lies in the band; the wheel zooms.
class VistaModello : public QWidget {
    Q_OBJECT

  public:
    enum class Proiezione { pianta, prospettoX, prospettoY };
    VistaModello(const ModelloStr& modello, bool scegliNodi, QWidget* padre);
    void Proietta(Proiezione p);
    // Levels along the sight: z in plan, y or x in an elevation; what lies off the level chosen is
    // neither drawn nor picked.
    std::vector<double> Livelli() const;
    void Livello(std::optional<double> quota);
    void Mostra(const std::set<int>& scelti, const std::set<int>& evidenti);
    QPointF InPixel(const NodoStr& n) const;
    QSize sizeHint() const override { return {620, 460}; }

  Q_SIGNALS:
    void cliccati(const std::set<int>& numeri, bool fascia);

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent*) override { Adatta(); }
    void wheelEvent(QWheelEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

  private:
    QPointF Piano(const NodoStr& n) const;
    double Profondita(const NodoStr& n) const;
    bool InVista(const NodoStr& n) const;
    void Adatta();
    const NodoStr* NodoDi(int interno) const;
    // Distance in pixels from a point to a member.
    double Distanza(const QPointF& p, const AstaStr& a) const;

    const ModelloStr& modello_;
    bool scegliNodi_;
    Proiezione proiezione_ = Proiezione::pianta;
    std::optional<double> quota_;
    std::set<int> scelti_, evidenti_;
    double scala_ = 1.0;
    QPointF centro_;
    bool fascia_ = false;
    QPointF da_, a_;
};

// The window of the search for members (Trova) and of that for nodes (TrovaNod).
class FinestraTrova : public QDialog {
    Q_OBJECT

  public:
    enum class Cosa { aste, nodi };
    // `iniziale` is the list text that the caller has now: nodes whose members are looked for.
    FinestraTrova(const ModelloStr& modello, Cosa cosa, const QString& titolo,
                  const std::string& iniziale, QWidget* padre);
    std::string Elenco() const;      // members or nodes picked, as a list text
    std::string Principale() const;  // nodes only: member picked as main beam, empty for none
    std::string Secondaria() const;

  private:
    void Cambia(const std::set<int>& numeri, bool fascia);
    void Aggiorna();

    const ModelloStr& modello_;
    Cosa cosa_;
    std::set<int> scelti_, vicine_;
    VistaModello* vista_;
    QLineEdit* elenco_;
    QComboBox* principale_ = nullptr;
    QComboBox* secondaria_ = nullptr;
    QLabel* nota_;
};

// Takes the place of the companion tools: reads their input file in the work directory, lets the
// user pick, and has the tools' own routine write TrovaOut.txt. True when something was picked.
bool TrovaInFinestra(const Direttori& d, bool nodi, QWidget* padre, const Piattaforma& p);

}  // namespace tk07::desktop
