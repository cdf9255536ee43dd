#pragma once

#include <string>
#include <vector>

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
};

}  // namespace tk07
