#pragma once

#include <string>

#include "session/sessione.h"

namespace tk07 {

// The rows of `verifica --csv`: separator ";", decimal point, ratios with all their digits, "inf"
// for a check without a limit. A field that holds the separator, a quote or a line end is quoted.
std::string TestataCsv();
// A text as a cell: quoted where it must be, without control characters, and with an apostrophe
// before what a spreadsheet would take as a formula (it begins with = + - @ and is no number).
std::string CellaCsv(const std::string& testo);
// One row a load set of the session's completed verification.
std::string CsvVerifica(const Sessione& s, const std::string& file);

}  // namespace tk07
