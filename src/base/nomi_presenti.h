#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tk07 {

// The name in a directory that reads like `nome` whatever its case, the first one in the order of
// their bytes; nothing when there is none, or when the directory cannot be listed.
std::optional<std::string> NomePresente(const std::string& direttorio, std::string_view nome);

// The same for whoever asks again and again, as a batch does that makes thousands of files in one
// directory: listing it for each would cost the square of their number. The names are kept and
// corrected by what the system tells of the directory, whichever program changed it, so that the
// answer is always that of a listing made now. Where the system does not tell (a drive of the
// network, another system than Linux, no watch to be had) the directory is listed every time.
// One thread at a time.
class NomiPresenti {
  public:
    NomiPresenti();
    ~NomiPresenti();
    NomiPresenti(const NomiPresenti&) = delete;
    NomiPresenti& operator=(const NomiPresenti&) = delete;

    std::optional<std::string> Nome(const std::string& direttorio, std::string_view nome);
    // How many times a directory has been listed so far.
    long Elenchi() const;

  private:
    struct Stato;
    std::unique_ptr<Stato> stato_;
};

}  // namespace tk07
