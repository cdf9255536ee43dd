#include "drawing/lettore_dis.h"

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

void LettoreDisegno::Guasto(const std::string& motivo) const {
    throw GuastoDisegno{"riga " + std::to_string(i_) + ": " + motivo};
}

const std::string& LettoreDisegno::Riga() {
    if (i_ >= righe_.size()) {
        throw GuastoDisegno{"file troncato dopo la riga " + std::to_string(i_)};
    }
    return righe_[i_++];
}

void LettoreDisegno::Estensione(Disegno& d) {
    const auto x = Numeri(2), y = Numeri(2);
    d.minX = x[0], d.maxX = x[1];
    d.minY = y[0], d.maxY = y[1];
}

void LettoreDisegno::Coordinate(Disegno& d) {
    coordinate_ = Conteggio(kMaxCoordinate);
    for (int k = 0; k < coordinate_; ++k) {
        const auto v = Numeri(2);
        d.coordX.push_back(v[0]);
        d.coordY.push_back(v[1]);
    }
}

std::vector<double> LettoreDisegno::Numeri(std::size_t quanti) {
    std::string r = Riga();
    std::vector<double> v;
    for (std::size_t k = 0; k < quanti; ++k) {
        const auto x = ValoreStretto(EstraiCampo(r));
        if (!x) Guasto("numero errato o mancante");
        v.push_back(*x);
    }
    return v;
}

int LettoreDisegno::Intero(double x, double minimo, double massimo) const {
    if (!(x >= minimo && x <= massimo) || x != Int(x)) Guasto("valore fuori dai limiti");
    return static_cast<int>(x);
}

}  // namespace tk07
