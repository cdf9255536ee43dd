#pragma once

#include <string>
#include <vector>

namespace tk07::desktop {

// Joint files opened or saved last, the newest first, kept as lines of a text file of the tree.
class Recenti {
  public:
    static constexpr std::size_t kMassimo = 8;
    explicit Recenti(std::string file);
    const std::vector<std::string>& Elenco() const { return elenco_; }
    // Puts a file first and writes the list; a list that cannot be written is kept in memory.
    void Aggiungi(const std::string& percorso);

  private:
    std::string file_;
    std::vector<std::string> elenco_;
};

}  // namespace tk07::desktop
