#pragma once

#include <string>

namespace tk07 {

// A path as seen from the current directory, absolute.
std::string PercorsoAssoluto(const std::string& percorso);

// Directory of the running program.
std::string DirettorioProgramma(const char* argv0);

}  // namespace tk07
