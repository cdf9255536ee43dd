#pragma once

#include <cstddef>

namespace tk07::cli {

// A bar on the terminal while a long command works; nothing in a pipe, nor where there is one thing
// to do only.
class Barra {
  public:
    explicit Barra(std::size_t totale);
    ~Barra() { Cancella(); }
    Barra(const Barra&) = delete;
    Barra& operator=(const Barra&) = delete;
    void Segna(std::size_t fatti);
    void Cancella();

  private:
    std::size_t totale_;
    bool attiva_;
    std::size_t mostrato_ = 0;  // per mille
};

}  // namespace tk07::cli
