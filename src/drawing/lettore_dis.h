#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/file_testo.h"
#include "drawing/archivio.h"

namespace tk07 {

// What is wrong with a drawing file: reason and line.
struct GuastoDisegno {
    std::string testo;
};

// Lines of numbers of a drawing file, checked as they are read. Throws GuastoDisegno.
class LettoreDisegno {
  public:
    explicit LettoreDisegno(const std::vector<std::string>& righe) : righe_(righe) {}

    const std::string& Riga();
    // The two lines of the extent.
    void Estensione(Disegno& d);
    // The coordinates behind their count, as many as later indices may mean.
    void Coordinate(Disegno& d);
    int Indice(double x) const { return Intero(x, 0.0, coordinate_ - 1); }
    std::vector<double> Numeri(std::size_t quanti);
    // A whole number from `minimo` to `massimo`.
    int Intero(double x, double minimo, double massimo) const;
    int Conteggio(int massimo) { return Intero(Numeri(1)[0], 0.0, massimo); }
    short Corto(double x) const { return static_cast<short>(Intero(x, -32768.0, 32767.0)); }
    // Throws with the line that was read last.
    [[noreturn]] void Guasto(const std::string& motivo) const;

  private:
    const std::vector<std::string>& righe_;
    std::size_t i_ = 0;
    int coordinate_ = 0;
};

// Reads a whole file with `leggi`, which gets its lines. False with the reason in `errore`; `d`
// then stays as it was.
template <class D, class F>
bool LeggiFileDisegno(std::string_view nomeFile, D& d, std::string& errore, F leggi) {
    const FileLetto f = LeggiRighe(nomeFile);
    errore = f.errore;
    if (!f.riuscito) return false;
    try {
        d = leggi(f.righe);
        return true;
    } catch (const GuastoDisegno& g) {
        errore = g.testo;
        return false;
    }
}

}  // namespace tk07
