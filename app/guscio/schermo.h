#pragma once

#include <string>

namespace tk07 {

// What the viewers' command lines share.

// "1600x1000", 16 to 20000 pixels a side; false when it is none.
bool LeggiDimensioni(const std::string& testo, int& larghezza, int& altezza);

// The text on standard output, whole and flushed; false when that fails.
bool ScriviUscita(const std::string& testo);

// Is there a screen to open a window on? Without one the toolkit ends the process in its own way.
bool SchermoPresente();

}  // namespace tk07
