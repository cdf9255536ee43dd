#pragma once

#include <string>
#include <vector>

namespace tk07 {

// Reader of item files (`combinaz.tot`, `sezioni_`): items are separated by a comma or a line end,
// and may stand in double quotes; some files separate by blanks as well. Two commas in a row
// enclose an empty item. Whole lines can be taken in between.
//
// Every reading returns false at the end of the lines, and from then on.
enum class Bianchi { separano, compresi };

class LettoreVoci {
  public:
    explicit LettoreVoci(const std::vector<std::string>& righe) : righe_(righe) {}

    // The next item, without quotes, trimmed when it has none.
    bool Voce(std::string& voce, Bianchi bianchi);
    // The next item as a whole number of 32 bits; false also when it is none. Blanks separate.
    bool Intero(int& x);
    // What is left of the line in hand; the next reading starts at the line below.
    bool Riga(std::string& riga);
    // Moves over a line end right behind the last item, so that Riga takes the line below.
    void ChiudiRiga();
    // The line that Riga would take now, empty when there is none.
    std::string RigaInMano() const { return riga_ < righe_.size() ? righe_[riga_] : ""; }

  private:
    bool Avanza();

    const std::vector<std::string>& righe_;
    std::size_t riga_ = 0, col_ = 0;
};

}  // namespace tk07
