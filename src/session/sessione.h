#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/direttori.h"
#include "base/nomi_presenti.h"
#include "base/piattaforma.h"
#include "bolting/bulloni_temp.h"
#include "drawing/archivio.h"
#include "drawing/font.h"
#include "drawing/stili_grb.h"
#include "joint/file_nodo.h"
#include "joint/nodo.h"
#include "libraries/materiali.h"
#include "libraries/profili.h"
#include "options/opzioni.h"
#include "scene3d/scena.h"
#include "session/pannello.h"
#include "session/verifica_sessione.h"
#include "textnum/unita.h"

namespace tk07 {

enum class EventoMouse { premi, muovi };

inline constexpr int kUscitaFatale = 70;
inline constexpr int kUscitaAvvio = 2;  // a start-up that fails

// The file that the joint was read from or written to last.
struct FileDelNodo {
    std::string percorso;                   // empty: a joint that no file holds yet
    std::optional<std::uint64_t> impronta;  // of its contents then
};

// Everything of one run of the program. Made once by the shell, on the heap; there is no other
// mutable state, so two sessions in one process never touch each other.
struct Sessione {
    Piattaforma piattaforma;
    Direttori dir;
    std::string nomeFile = "Nuovo";
    Unita unita;
    FontTratti font;
    StiliGrb stili;
    LibreriaProfili profili;
    Materiali mat;
    Opzioni opz;
    Nodo nodo;
    Risultati ris;
    Esiti esiti;
    bool RisultatiValidi = false;  // results and findings belong to a completed verification
    RisultatoVerifica ultimaVerifica;
    NoteLettura ultimaLettura;
    FileDelNodo file;
    Disegno disegno;  // the drawing composed last

    Pannello InsDati;  // the main panel
    Pannello FormBulloni, PropMateriali, FormOpz_Cond, FormColori, Soll3D, selezione;
    std::vector<std::string> pila;  // names of the open panels, the topmost last
    BulloniTemp bulloni;            // working copy of the bolt panel
    std::string coloreInMano;       // colour label that the colour panel was opened for
    short Aggiornamento = 0;        // 1 while a refresh writes to fields: change handlers stay idle
    short Vista3dAperta = 0;        // 1 while the 3D view is to be kept in step
    Scena scena;                    // the 3D view as it was composed last
    std::array<MaterialeRec, 2> AcciaioMemoria;  // steel last used with each method
    std::string titoloRicercaNodi;               // title of the node search tool

    bool fine = false;  // the program has ended
    int codiceUscita = 0;

    // For work on many joints without a window.
    bool conPannelli = true;  // false: an opened joint is not shown on the main panel
    Tenuta tenutaRelazioni = Tenuta::suDisco;
    NomiPresenti* nomi = nullptr;  // of the directory that the reports go to; not owned
};

// Back to how `inizio`, a copy made right after the start-up, stood: for the next joint of a batch
// that opens and verifies. Libraries, units, options and panels are not touched by that.
void Ricomincia(Sessione& s, const Sessione& inizio);

// Runs a command inside the boundary that catches a fatal fault, and any other exception: the joint
// as it stood before is written to the temporary directory under a name that is free, one critical
// box tells what happened, where, and the recovery path, and the session ends with exit code 70.
// Returns false then.
bool EseguiComando(Sessione& s, const std::function<void()>& comando);

// Start-up: directories, units, libraries, options, default joint, panel, each from those before.
// False when the program must end; the reason was told. To be run
// inside EseguiComando.
bool Avvia(Sessione& s, const Avvio& avvio);

// Caption of the main panel from directory and file name (either may be empty).
std::string ComponiTitolo(const std::string& direttorio, const std::string& file);

// Opens a joint file: stamps, reader of its format, library records, materials, refresh of the
// panel. False when the file cannot be read; nothing has changed then.
bool ApriNodo(Sessione& s, const std::string& percorso);
// Third rib, consistency checks, verification; then the report is written, a joint that fails is
// told, and the report shown in the text editor.
void VerificaSessione(Sessione& s);
// Whether the steel and the bolt class of the joint are in the tables; what is not is told and
// replaced.
void ControllaMateriali(Sessione& s);
// Writes the joint; over the file that it was read from only while that is as it was read. False
// after a box with the reason.
bool ScriviNodo(Sessione& s, const std::string& percorso);
// Selects the verification method as the panel's option does; nothing when it is selected already.
void ScegliMetodo(Sessione& s, Metodo metodo);
// Applies the base steel of the structure model.
void ApplicaMaterialeBase(Sessione& s);

// Refresh routines of the main panel.
void CostruisciInsDati(Sessione& s);
void pnn1_aggiorna_profili(Sessione& s, short forzaP, short forzaS);
void pnn1_aggiorna_NervaturePiastre(Sessione& s);
void pnn1_aggiorna_BulloniSaldature(Sessione& s);
void pnn1_aggiorna_materiali(Sessione& s);
void pnn1_aggiorna_sollecitazioni(Sessione& s, int primaRiga);
void pnn2_ScriviDatiProfilo(Sessione& s, int indiceProfilo, const std::string& etichette);
void AggiornaTutto(Sessione& s);

// Operations of the panels, by control name. A name that stands on more than one panel belongs to
// the topmost open panel, unless `pannello` says which. Each returns the empty text, or why the
// request cannot be carried out (unknown, hidden or disabled control, entry that is not in the
// list); a fatal fault is dealt with inside.
std::string PremiPulsante(Sessione& s, const std::string& nome, const std::string& pannello = {});
// `tasto` 13 or 27 is pressed and the field keeps the focus; 0 leaves the field.
std::string ScriviCampo(Sessione& s, const std::string& nome, const std::string& testo, int tasto,
                        const std::string& pannello = {});
std::string ScegliVoce(Sessione& s, const std::string& nome, int indice,
                       const std::string& pannello = {});
std::string ScegliVoce(Sessione& s, const std::string& nome, const std::string& voce,
                       const std::string& pannello = {});
std::string ImpostaCasella(Sessione& s, const std::string& nome, int valore,
                           const std::string& pannello = {});
std::string ScegliOpzione(Sessione& s, const std::string& nome, const std::string& pannello = {});
std::string Scorri(Sessione& s, const std::string& nome, int valore,
                   const std::string& pannello = {});
std::string DoppioClic(Sessione& s, const std::string& nome, const std::string& pannello = {});
std::string Clic(Sessione& s, const std::string& nome, const std::string& pannello = {});
std::string Mouse(Sessione& s, const std::string& nome, EventoMouse evento, double x, double y,
                  const std::string& pannello = {});
std::string Timer(Sessione& s, const std::string& nome, const std::string& pannello = {});

// The open panels from the bottom to the top, with their state.
std::vector<const Pannello*> PannelliAperti(const Sessione& s);

}  // namespace tk07
