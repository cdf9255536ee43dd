#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/archivio.h"
#include "drawing/grb.h"
#include "drawing/stili_grb.h"
#include "options/opzioni.h"
#include "render/tavola.h"

namespace tk07::mostradis {

// Name of the drawing that the exchange file mostradis.inp asks for: six lines, the whole number 2,
// the drawing's full name, then 0, 0, 8000, 8000. A relative name counts from the file's own
// directory. Nothing, with the reason in `errore`, when it cannot be read.
std::optional<std::string> LeggiInp(const std::string& file, std::string& errore);
// The newest mostradis.inp of the two directories; empty when neither has one.
std::string TrovaInp(const std::string& dirCorrente, const std::string& dirProgramma);

// Absolute name of the drawing meant by an argument, which may be an exchange file.
std::optional<std::string> DisegnoChiesto(const std::string& argomento, std::string& errore);

// A drawing as it is shown. The dimensions are a GRB file's own, among the strokes already; their
// points are coordinates of `d`.
struct DisegnoLetto {
    Disegno d;
    std::vector<QuotaGrb> quote;
};
// Reads a GRB file, by its ending, or else a DIS file. False with the reason and the line in
// `errore`; `letto` then stays as it was.
bool LeggiDisegno(const std::string& file, const Opzioni& opz, const StiliGrb& stili,
                  DisegnoLetto& letto, std::string& errore);

// Counts, extent and every entity in rows of words and numbers [mm, degrees].
std::string ElencaDisegno(const DisegnoLetto& letto, const std::string& file);

// Title block of a drawing that is known by its file only: title and materials are looked for among
// its texts.
Cartiglio CartiglioDiFile(const Disegno& d, const std::string& file);

}  // namespace tk07::mostradis
