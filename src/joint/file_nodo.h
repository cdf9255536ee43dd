#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_testo.h"
#include "joint/nodo.h"

namespace tk07 {

inline constexpr const char* kReleaseSuite = "18";
inline constexpr const char* kFiltroNodo = "File nodo 7 (*.tk7)|*.tk7|Tutti i file (*.*)|*.*";

// What a reader found beside the values: for callers that want to tell it.
struct NoteLettura {
    std::vector<std::string> ChiaviMancanti;  // keys that the file lacks ("SpPiastra 2")
    int RigaInterrotta = 0;  // old format: line at which the reading stopped, 0 none
    std::string Causa;       // and why
    // Names that the libraries lack, and what stands for them.
    std::vector<std::string> NomiAssenti;
    // Values that were not taken as they are written ("riga 7, chiave nBull: ...").
    std::vector<std::string> Valori;
};

// Why a joint file cannot be read.
struct GuastoNodo {
    std::string cosa;
    std::string dove;       // file, line, key; empty when the file itself cannot be opened
    bool apertura = false;  // it cannot be opened
};

// The text of the joint file, keyed format.
std::string TestoFileNodo(const Nodo& nodo, const Orologio& adesso);
// Writes it; false after a box with the system's message, or with the text that cannot stand in a
// joint file. A file that exists keeps its contents then. `attesa` as for ScriviFile.
bool ScriviFileNodo(const Nodo& nodo, std::string_view percorso, const Piattaforma& p,
                    const std::optional<std::uint64_t>& attesa = {});

// Release stamps of line 1; false when the file cannot be read (with a box if `conMessaggio`).
bool LeggiRelease(std::string_view percorso, double& releaseArgano, double& releaseFile,
                  bool conMessaggio, const Piattaforma& p);
// This and the readers below of a file that has been read already.
bool LeggiRelease(const FileLetto& f, std::string_view percorso, double& releaseArgano,
                  double& releaseFile, bool conMessaggio, const Piattaforma& p);

// Keyed format: reads what the file holds into `nodo`; a key that it lacks leaves the field, but
// for Esposizione and TipoVer, which fall to 0. `AttNerv` is true exactly for 1, a count below zero
// acts as 0, any other value is its leading number. The fault with file, line and key, and no field
// changed: a file that cannot be opened, an index or a count beyond the arrays, a whole number
// beyond 16 bits, a text in Esposizione or TipoVer that is no number.
std::optional<GuastoNodo> ProvaFileNodo(Nodo& nodo, std::string_view percorso,
                                        NoteLettura* note = nullptr);
std::optional<GuastoNodo> ProvaFileNodo(Nodo& nodo, const FileLetto& f, std::string_view percorso,
                                        NoteLettura* note = nullptr);
// The same as a command: false after a box when the file cannot be opened, a fatal fault for the
// others.
bool LeggiFileNodo(Nodo& nodo, std::string_view percorso, const Piattaforma& p,
                   NoteLettura* note = nullptr);
bool LeggiFileNodo(Nodo& nodo, const FileLetto& f, std::string_view percorso, const Piattaforma& p,
                   NoteLettura* note = nullptr);

// Positional format of older files. A fault stops the reading without a message and whatever was
// read stays. A description that cannot stand in a joint file gets "(" for its "[", and is told.
bool LeggiFileNodoVecchio(Nodo& nodo, std::string_view percorso, const Piattaforma& p,
                          NoteLettura* note = nullptr);
bool LeggiFileNodoVecchio(Nodo& nodo, const FileLetto& f, std::string_view percorso,
                          const Piattaforma& p, NoteLettura* note = nullptr);

}  // namespace tk07
