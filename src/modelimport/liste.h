#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

// List texts: whole numbers and ranges "a-b" separated by commas ("3, 7-9" is 3 7 8 9).
//
// Blanks around the text, an entry or the dash of a range do not count. A number may carry a minus
// sign: "-1" alone is -1, "-2-1" runs from -2 to 1. A range whose end lies below its start has no
// entries. An empty text is an empty list. The order is kept, and a number given twice stays twice.

// Most entries of a list, that of the joint's node table.
inline constexpr std::size_t kMassimoVoci = 2000;

enum class EsitoLista {
    buona,
    errata,     // an empty entry, a character that belongs to no number, a number beyond 16 bits
    eccessiva,  // more than kMassimoVoci entries
};

// Fills `voci`; they stay as they were when the result is not `buona`.
EsitoLista EsaminaLista(std::string_view testo, std::vector<short>& voci);
// The same where the reason does not matter: true for a good list.
bool LeggiLista(std::string_view testo, std::vector<short>& voci);

// The text of a list, joined with ",".
std::string ComponiLista(const std::vector<int>& voci);

}  // namespace tk07
