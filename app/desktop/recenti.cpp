#include "desktop/recenti.h"

#include <algorithm>

#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07::desktop {

Recenti::Recenti(std::string file) : file_(std::move(file)) {
    for (const std::string& r : LeggiRighe(file_).righe) {
        if (!Taglia(r).empty() && elenco_.size() < kMassimo) elenco_.push_back(Taglia(r));
    }
}

void Recenti::Aggiungi(const std::string& percorso) {
    const std::string p = PercorsoPiattaforma(percorso);
    if (!elenco_.empty() && elenco_.front() == p) return;
    elenco_.erase(std::remove(elenco_.begin(), elenco_.end(), p), elenco_.end());
    elenco_.insert(elenco_.begin(), p);
    if (elenco_.size() > kMassimo) elenco_.resize(kMassimo);
    std::string testo;
    for (const std::string& r : elenco_) testo += r + "\n";
    ScriviFile(file_, testo, Codifica::utf8);
}

}  // namespace tk07::desktop
