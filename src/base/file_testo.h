#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

class NomiPresenti;

// Largest file that any reader takes [bytes]. Real files are some thousand times smaller.
inline constexpr std::size_t kMassimoFile = 32u << 20;

// Paths are composed as written, with `\` or `/`. The platform's form: its own separator, existing
// components found case-blind (exact match first), new names as spelled. With `nomi` a directory is
// not listed anew for every name that it lacks.
std::string PercorsoPiattaforma(std::string_view percorso, NomiPresenti* nomi = nullptr);
// The path with the platform's separator only, for titles and messages.
std::string PercorsoMostrato(std::string_view percorso);
bool EsisteDirettorio(std::string_view percorso);
bool EsisteFile(std::string_view percorso);
// Name of the file without its directories, and without what follows the last point.
std::string NomeSenzaDirettorio(std::string_view percorso);
std::string NomeBase(std::string_view percorso);

// What went wrong, from the system's number of the error, in the program's language.
std::string MessaggioSistema(int errore);

// Deletes the file if it is there; false when it could not be deleted.
bool EliminaFile(std::string_view percorso);

// Waits until the files of the directory that were written without waiting are on the disk; returns
// the empty text, or the reason why not.
std::string ScaricaSuDisco(std::string_view direttorio);

// Bytes to UTF-8: valid UTF-8 (with or without BOM) as it is, anything else as Windows-1252.
std::string DaBytes(std::string_view bytes);
std::string DaWindows1252(std::string_view bytes);
// UTF-8 to Windows-1252; false when a character has no place there (`uscita` is then unusable).
bool AWindows1252(std::string_view testo, std::string& uscita);
bool Utf8Valido(std::string_view bytes);

struct FileLetto {
    bool riuscito = false;
    std::string errore;              // why not, in words
    std::vector<std::string> righe;  // without line ends; LF and CRLF alike
};

// Raw bytes of a file; false with the reason when it cannot be read or is above kMassimoFile.
bool LeggiBytes(std::string_view percorso, std::string& bytes, std::string& errore);
FileLetto LeggiRighe(std::string_view percorso);
// Fingerprint of a file's contents; nothing when it cannot be read.
std::optional<std::uint64_t> ImprontaFile(std::string_view percorso);
// Whether both paths lead to the same file, which is there.
bool StessoFile(std::string_view a, std::string_view b);

enum class Codifica { windows1252, utf8 };
// Writes the whole file or nothing (SostituisciFile). With windows1252 a text that does not fit is
// written as UTF-8; with utf8 the bytes go as they are. Returns the empty text, or the reason.
// Files that another run can make again need not wait for the disk. With `attesa` (ImprontaFile) a
// file that has changed since is left alone.
enum class Tenuta { suDisco, provvisoria };
std::string ScriviFile(std::string_view percorso, std::string_view testo, Codifica codifica,
                       Tenuta tenuta = Tenuta::suDisco,
                       const std::optional<std::uint64_t>& attesa = {},
                       NomiPresenti* nomi = nullptr);

}  // namespace tk07
