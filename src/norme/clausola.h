#pragma once

#include <string>

namespace tk07 {

// A rule by its place in a standard.
struct Clausola {
    const char* norma = "";    // standard and paragraph
    const char* formula = "";  // "(4.2.71)", may be empty
};
// "NTC 2018, 4.2.8.1.1 (4.2.71)"
inline std::string Testo(const Clausola& c) {
    return std::string(c.norma) + (*c.formula != '\0' ? " " : "") + c.formula;
}

}  // namespace tk07
