#pragma once

#include <string>

namespace tk07 {

// Directory of the running program.
std::string DirettorioProgramma(const char* argv0);

}  // namespace tk07
