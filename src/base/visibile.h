#pragma once

#include <string>
#include <string_view>

namespace tk07 {

// Control characters as U+FFFD, but for tab and line feed of a text of many lines: what a name
// holds must not move a terminal's cursor or end a cell.
enum class Righe { tante, una };
std::string SenzaControlli(std::string_view testo, Righe righe = Righe::una);

}  // namespace tk07
