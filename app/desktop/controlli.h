#pragma once

#include <span>

#include "desktop/legame.h"

namespace tk07::desktop {

// The tables of the panels: one per panel, in groups. What the window makes itself (drawing
// surfaces, pages, the command bar) is bound by name there.

// Input pages of the main panel, in the order of the tab widget SSTab.
struct PaginaTavola {
    const char* titolo;
    std::span<const GruppoTavola> gruppi;
};
std::span<const PaginaTavola> PagineInsDati();
// Buttons of the command bar.
std::span<const char* const> BarraComandi();
// Groups of the other panels with a fixed set of controls; empty for those made at run time.
std::span<const GruppoTavola> GruppiPannello(const std::string& pannello);
// The button that closing a secondary window stands for.
const char* PulsanteDiChiusura(const std::string& pannello);

}  // namespace tk07::desktop
