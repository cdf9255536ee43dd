#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "scene3d/scena.h"

namespace tk07 {

// The text of the scene file: stamp, then keyed lines in the order of campi_scena.h.
std::string ComponiScena(const Scena& s);

// What a failed try waits with: 100 ms, while the viewer lets go of the file.
void PausaScena();
// Writes the file, up to 11 times with a pause after each failure. The tenth failure is told with
// the file's name; when all fail a plain box shows the last try's number, and the result is false.
bool ScriviScena(const Scena& s, std::string_view nomeFile, const Piattaforma& p,
                 const std::function<void()>& pausa = PausaScena);

// Reads a scene file: every key in its place, counts within the tables, numbers that are numbers,
// extrusions of sections that are there. False with line and key in `errore`; `s` then stays as it
// was. The description, which the file lacks, is empty.
bool LeggiScena(std::string_view nomeFile, Scena& s, std::string& errore);

}  // namespace tk07
