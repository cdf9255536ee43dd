#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>

namespace tk07 {

// A number in a print zone of a drawing file: a leading blank when not negative, one behind.
// `riga` is filled with blanks up to the next multiple of 14 columns first.
void ZonaStampa(std::string& riga, double x);

// Lines of numbers in print zones.
class ScrittoreDisegno {
  public:
    void Riga(std::initializer_list<double> numeri);
    void Conteggio(std::size_t n) { Riga({static_cast<double>(n)}); }
    std::string testo;
};

}  // namespace tk07
