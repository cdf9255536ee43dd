#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <map>
#include <span>
#include <string>

#include "session/pannello.h"

class QGridLayout;
class QLineEdit;
class QTimer;
class QWidget;

namespace tk07 {
struct Sessione;
}

namespace tk07::desktop {

class Pilota;

// One row of a panel's table: where a control stands and what is written beside it. The kind of
// widget follows from the control's own kind.
struct VoceTavola {
    const char* controllo;
    int riga, colonna;
    const char* didascalia = "";  // a label before it, in the column before
    int ampiezza = 1;             // columns
    // A control array "X(0)", "X(1)", ...: how many, and the step of row and column.
    int quanti = 0, passoRiga = 0, passoColonna = 0;
};

// Controls in one frame. With `cornice` the frame is itself a control, whose text is its title.
struct GruppoTavola {
    const char* titolo;
    const char* cornice;
    std::span<const VoceTavola> voci;
};

// Binds the controls of one panel to widgets: objectName is the control's name, every widget calls
// the session's routine for its kind, and one routine copies the panel's state back.
class Legame : public QObject {
    Q_OBJECT

  public:
    Legame(Pilota& pilota, std::string pannello, QObject* padre);

    const std::string& NomePannello() const { return pannello_; }
    // Makes the widget of a control, by its kind; nullptr when the panel has no such control.
    QWidget* Crea(const std::string& controllo, QWidget* padre);
    // Binds a widget that was made elsewhere (drawing surfaces, pages).
    void Aggancia(const std::string& controllo, QObject* oggetto);
    // A frame with the controls of a group.
    QWidget* CreaGruppo(const GruppoTavola& gruppo, QWidget* padre);
    // Timers of the panel, which have no place.
    void AgganciaTimer();
    // Panel state to widgets.
    void Aggiorna();
    // Drops all bindings (a panel that is built anew at each opening).
    void Azzera();
    QObject* Oggetto(const std::string& controllo) const;
    QWidget* Elemento(const std::string& controllo) const;
    // Controls of the panel that have no widget: none, once all is bound.
    std::vector<std::string> SenzaElemento() const;

  Q_SIGNALS:
    void fuocoCampo(const std::string& controllo);

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    Pannello& P() const;
    void Collega(const std::string& nome, TipoControllo tipo, QObject* oggetto);
    void AggiornaUno(const Controllo& c, QObject* oggetto);
    bool EventoCampo(QLineEdit* campo, const std::string& nome, QEvent* evento);
    bool EventoEtichetta(const std::string& nome, QEvent* evento);
    void LasciaCampo(QLineEdit* campo, const std::string& nome, int tasto);
    bool TestoAccettabile(QLineEdit* campo, const std::string& nome, int tasto);
    bool Consentito(const std::string& pulsante);
    static void SegnaNumero(QLineEdit* campo);
    static void Segna(QLineEdit* campo, bool buono);

    Pilota& pilota_;
    std::string pannello_;
    std::map<std::string, QPointer<QObject>> oggetti_;
    QHash<QObject*, QString> nomi_;
};

// The panel of that name.
Pannello& PannelloDi(Sessione& s, const std::string& nome);

}  // namespace tk07::desktop
