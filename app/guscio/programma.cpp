#include "guscio/programma.h"

#include <filesystem>

#include "base/file_testo.h"

namespace tk07 {

namespace fs = std::filesystem;

std::string PercorsoAssoluto(const std::string& percorso) {
    std::error_code ec;
    const fs::path intero = fs::absolute(PercorsoPiattaforma(percorso), ec).lexically_normal();
    return ec ? percorso : intero.string();
}

std::string DirettorioProgramma(const char* argv0) {
    std::error_code ec;
    // Where the system tells it; otherwise from the name that it was started by.
    const fs::path proprio = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) return proprio.parent_path().string();
    const fs::path detto = fs::weakly_canonical(fs::absolute(argv0, ec), ec);
    return detto.parent_path().string();
}

}  // namespace tk07
