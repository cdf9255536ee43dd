#pragma once

#include <string>

namespace tk07 {

// Makes a complete directory tree in `destinazione` from the shipped one in `origine`: libraries,
// settings, font and one job with the example joints. A destination that holds files is refused.
// Returns the empty text, or what went wrong.
std::string InizializzaAlbero(const std::string& origine, const std::string& destinazione);

}  // namespace tk07
