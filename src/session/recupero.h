#pragma once

#include <memory>
#include <string>
#include <vector>

#include "session/sessione.h"

namespace tk07 {

// Automatic copies of the joint, in the temporary directory. A run of the program writes two of its
// own in turn, so that a copy that is being written never costs the other; the copies of other runs
// are never touched, until the user deletes them.
class CopieAutomatiche {
  public:
    // `segno` tells the run apart (letters, digits); `dirTemp` as the directories hold it.
    CopieAutomatiche(std::string dirTemp, std::string segno);
    // Writes `nodo` under the session's name if it differs from the last copy. Returns the system's
    // message when it could not be written, else the empty text.
    std::string Scrivi(const Sessione& s, const Nodo& nodo);
    // Keeps a joint file of another run that is about to be replaced, with its own date. Returns
    // as Scrivi.
    std::string Conserva(const std::string& file);

  private:
    std::string dirTemp_, segno_;
    int conservati_ = 0;
    int prossima_ = 1;                    // 1, 2, 1, 2, ...
    std::string posto_[2];                // files of the two copies
    std::unique_ptr<const Nodo> ultima_;  // what the last copy holds
    std::string ultimoNome_;
};

// A copy that was found.
struct CopiaTrovata {
    std::string percorso;
    std::string nomeFile;   // name of the joint that it is a copy of
    long long istante = 0;  // last change of the file, seconds
    std::string data;       // the same for people: "2026-03-07 09:05:12"
    bool leggibile = false;
    std::string riassunto;  // what it holds, in words
};
// Copies of this and of other runs and those that fatal faults left, the newest first.
std::vector<CopiaTrovata> TrovaCopie(const Sessione& s);
// Opens a copy under the name of the joint that it is a copy of. False when it cannot be read.
bool ApriCopia(Sessione& s, const CopiaTrovata& copia);

// "IPE160 su IPE270, 12 bulloni, 50 sestetti, SLU".
std::string RiassuntoNodo(const Nodo& nodo);

}  // namespace tk07
