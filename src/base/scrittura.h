#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tk07 {

// What writing needs of the system. One file of the same name and the system's fills it.

// Tells two contents of a file apart (64 bits, FNV-1a).
std::uint64_t Impronta(std::string_view bytes);

// Answer of SostituisciFile for a file that is not the expected one any more; no number of the
// system's errors.
inline constexpr int kFileCambiato = -1;

// Puts `dati` in the place of the file `nome`, whole or not at all: they go to a file of this
// call's own in the same directory, made new and never through a link, which then takes the place,
// the permissions and the owner of the old file. A link leads to the file behind it. A file that
// may not be written is not replaced. `suDisco` waits until file and directory are on the disk.
// With `attesa` a file that is there with another fingerprint is left alone: no other writer of
// this routine comes between the look and the replacement. Returns 0, the system's number of the
// error, or kFileCambiato.
int SostituisciFile(const std::string& nome, std::string_view dati, bool suDisco,
                    const std::optional<std::uint64_t>& attesa = {});

// Removes what writings that were killed left in the directory: names of SostituisciFile whose
// process is gone and that are older than an hour. SostituisciFile does it where it wrote.
void TogliResti(const std::string& direttorio);

// A directory of this process alone among the system's temporary ones, removed with what it holds.
class DirettorioPrivato {
  public:
    DirettorioPrivato();
    ~DirettorioPrivato();
    DirettorioPrivato(const DirettorioPrivato&) = delete;
    DirettorioPrivato& operator=(const DirettorioPrivato&) = delete;
    const std::string& Percorso() const { return percorso_; }  // empty when there is none
    int Errore() const { return errore_; }                     // the system's number of it

  private:
    std::string percorso_;
    int errore_ = 0;
};

}  // namespace tk07
