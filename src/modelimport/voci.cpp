#include "modelimport/voci.h"

#include <algorithm>
#include <limits>

#include "base/testo.h"

namespace tk07 {

// To the next character that is no blank, over line ends.
bool LettoreVoci::Avanza() {
    while (riga_ < righe_.size()) {
        const std::size_t p = righe_[riga_].find_first_not_of(" \t", col_);
        if (p != std::string::npos) {
            col_ = p;
            return true;
        }
        ++riga_;
        col_ = 0;
    }
    return false;
}

bool LettoreVoci::Voce(std::string& voce, Bianchi bianchi) {
    if (!Avanza()) return false;
    const std::string& r = righe_[riga_];
    std::size_t fine = 0;
    if (r[col_] == '"') {
        const std::size_t chiusa = std::min(r.find('"', col_ + 1), r.size());
        voce = r.substr(col_ + 1, chiusa - col_ - 1);
        fine = std::min(chiusa + 1, r.size());
    } else {
        const char* separatori = bianchi == Bianchi::separano ? ", \t" : ",";
        fine = std::min(r.find_first_of(separatori, col_), r.size());
        voce = Taglia(std::string_view(r).substr(col_, fine - col_));
    }
    const std::size_t p = r.find_first_not_of(" \t", fine);
    col_ = p != std::string::npos && r[p] == ',' ? p + 1 : fine;
    return true;
}

bool LettoreVoci::Intero(int& x) {
    std::string voce;
    if (!Voce(voce, Bianchi::separano)) return false;
    const auto v = ValoreStretto(voce);
    if (!v || *v < std::numeric_limits<int>::min() || *v > std::numeric_limits<int>::max()) {
        return false;
    }
    x = static_cast<int>(*v);
    return x == *v;
}

bool LettoreVoci::Riga(std::string& riga) {
    if (riga_ >= righe_.size()) return false;
    riga = righe_[riga_].substr(std::min(col_, righe_[riga_].size()));
    ++riga_;
    col_ = 0;
    return true;
}

void LettoreVoci::ChiudiRiga() {
    if (riga_ >= righe_.size()) return;
    if (righe_[riga_].find_first_not_of(" \t", col_) != std::string::npos) return;
    ++riga_;
    col_ = 0;
}

}  // namespace tk07
