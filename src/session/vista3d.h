#pragma once

#include <string>

#include "session/sessione.h"

namespace tk07 {

enum class LanciaVista { no, si };
enum class BulloniProvvisori { no, si };

// Composes the scene of the joint into s.scena (rib 3 recomputed first). False after a box.
bool PreparaScena(Sessione& s, BulloniProvvisori provvisori);
// The same, writes the scene file, and starts the viewer on it if asked. The first file that is
// written makes s.Vista3dAperta 1 for the rest of the session.
bool Vista3D(Sessione& s, LanciaVista lancia, BulloniProvvisori provvisori);
// Every command that changes the geometry ends here: rewrites the scene file once the viewer was
// opened, nothing before.
void AggiornaVista3D(Sessione& s, BulloniProvvisori provvisori = BulloniProvvisori::no);

// The scene file.
std::string FileVista3D(const Sessione& s);

}  // namespace tk07
