#pragma once

#include <string>
#include <string_view>

#include "session/sessione.h"

namespace tk07 {

// Composes the joint's sheet into the session's drawing store and writes it: "DIS", or "DXF" (case
// counts not); any other format writes nothing and returns false. The joint is taken as it stands.
bool GeneraFileDisegno(Sessione& s, std::string_view nomeFile, std::string_view formato,
                       bool silenzioso);

// Writes nodo.dis in the program's directory and shows it: an open viewer is told to reload it,
// else one is started with its exchange file.
void ApriVisualizzatore(Sessione& s, std::string_view nomeFile);

// The panel's commands.
void Gen_Dis(Sessione& s);
void ApriVis(Sessione& s);

}  // namespace tk07
