#pragma once

#include <string>

class QPalette;

namespace tk07::desktop {

// Colours of the windows: as the system has them, or light or dark whatever it has.
enum class Tema { sistema, chiaro, scuro };
// Kept in a text file, so that the next run looks the same; no file, or another text: the system's.
Tema LeggiTema(const std::string& file);
void RicordaTema(const std::string& file, Tema tema);
void ApplicaTema(Tema tema);
QPalette TavolozzaScura();

}  // namespace tk07::desktop
