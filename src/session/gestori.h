#pragma once

#include <span>
#include <string>

#include "session/sessione.h"

namespace tk07 {

// The operations of one panel, by kind of request. A null entry means that the panel has no such
// operation. Names have been checked before: the control exists, is visible and enabled.
struct GestorePannello {
    const char* nome;
    Pannello Sessione::*pannello;
    void (*costruisci)(Sessione&) = nullptr;
    void (*premi)(Sessione&, const NomeControllo&) = nullptr;
    void (*campo)(Sessione&, const NomeControllo&, const std::string& testo, int tasto) = nullptr;
    void (*voce)(Sessione&, const NomeControllo&, int indice) = nullptr;
    void (*casella)(Sessione&, const NomeControllo&, int valore) = nullptr;
    void (*opzione)(Sessione&, const NomeControllo&) = nullptr;
    void (*scorri)(Sessione&, const NomeControllo&, int valore) = nullptr;
    void (*doppioclic)(Sessione&, const NomeControllo&) = nullptr;
    void (*clic)(Sessione&, const NomeControllo&) = nullptr;
    void (*mouse)(Sessione&, const NomeControllo&, EventoMouse, double x, double y) = nullptr;
    void (*timer)(Sessione&, const std::string& nome) = nullptr;
};

extern const GestorePannello kGestoreInsDati, kGestoreFormBulloni, kGestorePropMateriali,
    kGestoreFormOpz_Cond, kGestoreFormColori, kGestoreSoll3D, kGestoreSelezione;

// Opening and closing of secondary panels: state, stack order, and the driver is told.
void ApriPannello(Sessione& s, const GestorePannello& g);
void ChiudiPannello(Sessione& s, const GestorePannello& g);

// A new control of a panel.
Controllo NuovoControllo(TipoControllo tipo, const char* testo, const char* suggerimento);
// The controls of a panel as a table.
struct DescrizioneControllo {
    const char* nome;
    TipoControllo tipo;
    const char* testo;
    const char* suggerimento;
};
void AggiungiControlli(Pannello& p, std::span<const DescrizioneControllo> controlli);
// A number as fields show it: two decimals more or less by the factor, no trailing point.
std::string TestoCampo(const Sessione& s, double valore, double fattore);
// Selects an entry of a list and shows its text.
void SelezionaVoce(Controllo& lista, int indice);

// Keeps change handlers idle while a refresh writes to fields.
class GuardiaAggiornamento {
  public:
    explicit GuardiaAggiornamento(Sessione& s) : s_(s), prima_(s.Aggiornamento) {
        s_.Aggiornamento = 1;
    }
    ~GuardiaAggiornamento() { s_.Aggiornamento = prima_; }
    GuardiaAggiornamento(const GuardiaAggiornamento&) = delete;
    GuardiaAggiornamento& operator=(const GuardiaAggiornamento&) = delete;

  private:
    Sessione& s_;
    short prima_;
};

// What other panels ask of the main panel.
void SettaMateriali(Sessione& s);  // labels of PropMateriali follow steel and bolt class
void PreparaSoll3D(Sessione& s);   // fields of the load import panel from the joint's node list
void ImportaNodida3D(Sessione& s);

// Whether a button of the bolt panel would ask for more bolts than the tables hold, which is a
// fatal fault: shells that keep the user's work ask first.
bool BulloniOltreIlMassimo(const Sessione& s, const std::string& pulsante);

}  // namespace tk07
