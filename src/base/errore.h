#pragma once

#include <stdexcept>
#include <string>

namespace tk07 {

// A fault that ends the run: an index out of its bounds, a strict number that is none, an
// unreadable settings file. Thrown where it happens, caught once at the session's command
// boundary, which saves the joint aside and tells the user. `dove` names file, line, key or
// control.
class ErroreFatale : public std::runtime_error {
  public:
    explicit ErroreFatale(const std::string& cosa, std::string dove = {})
        : std::runtime_error(cosa), dove_(std::move(dove)) {}
    const std::string& Dove() const { return dove_; }

  private:
    std::string dove_;
};

inline constexpr const char* kOltreSediciBit = "Numero intero fuori dai limiti -32768..32767";

// "Indice 7 fuori dai limiti 0..4", as an answer and as a fatal fault.
std::string TestoIndiceFuori(long indice, long minimo, long massimo);
[[noreturn]] void IndiceFuori(long indice, long minimo, long massimo);

}  // namespace tk07

#define PRETENDI(cond, cosa)                                         \
    do {                                                             \
        if (!(cond)) {                                               \
            throw ::tk07::ErroreFatale(cosa, std::string(__func__)); \
        }                                                            \
    } while (false)
