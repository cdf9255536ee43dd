#pragma once

#include <optional>
#include <string>

#include "drawing/archivio.h"
#include "render/tavola.h"

namespace tk07 {

// Name of the drawing that the exchange file mostradis.inp asks for: six lines, the whole number 2,
// the drawing's full name, then 0, 0, 8000, 8000. A relative name counts from the file's own
// directory. Nothing, with the reason in `errore`, when it cannot be read.
std::optional<std::string> LeggiInp(const std::string& file, std::string& errore);
// The newest mostradis.inp of the two directories; empty when neither has one.
std::string TrovaInp(const std::string& dirCorrente, const std::string& dirProgramma);

// Absolute name of the drawing meant by an argument, which may be an exchange file.
std::optional<std::string> DisegnoChiesto(const std::string& argomento, std::string& errore);

// Counts, extent and every entity in rows of words and numbers [mm, degrees].
std::string ElencaDisegno(const Disegno& d, const std::string& file);

// Title block of a drawing that is known by its file only: title and materials are looked for among
// its texts.
Cartiglio CartiglioDiFile(const Disegno& d, const std::string& file);

}  // namespace tk07
