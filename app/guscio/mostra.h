#pragma once

#include <string>

#include "session/sessione.h"

namespace tk07 {

// The joint in readable form, and the libraries as read; Italian text for people.
std::string TestoNodo(const Sessione& s);
std::string TestoSezioni(const LibreriaProfili& lib);
std::string TestoMateriali(const Materiali& mat);

}  // namespace tk07
