#pragma once

#include <string>

#include "session/direttori.h"

namespace tk07 {

// Writes the joint's 3D scene in the format that the ending of `uscita` names.
int ComandoScena(const Avvio& avvio, const std::string& file, const std::string& uscita);

}  // namespace tk07
