#pragma once

#include <string>
#include <vector>

#include "scene3d/scena.h"

namespace tk07::osserva3d {

// Scene file meant by the arguments: the marked field "|fileinp=PATH|" of one of them, which is
// then taken off the list; empty when none has it.
std::string FileInp(std::vector<std::string>& argomenti);

// Every extrusion and section in rows of words and numbers [mm, degrees].
std::string ElencaScena(const Scena& s, const std::string& file);

}  // namespace tk07::osserva3d
