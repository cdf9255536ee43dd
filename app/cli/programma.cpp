#include "cli/programma.h"

#include <filesystem>

namespace tk07 {

namespace fs = std::filesystem;

std::string DirettorioProgramma(const char* argv0) {
    std::error_code ec;
    // Where the system tells it; otherwise from the name that it was started by.
    const fs::path proprio = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) return proprio.parent_path().string();
    const fs::path detto = fs::weakly_canonical(fs::absolute(argv0, ec), ec);
    return detto.parent_path().string();
}

}  // namespace tk07
