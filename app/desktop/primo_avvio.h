#pragma once

#include "base/direttori.h"

namespace tk07::desktop {

// The root for this run. An installed program that finds no tree of the user's own offers to make
// one in the documents, and remembers it. False when the user declines.
bool TrovaAlberoOChiedi(Avvio& avvio);

}  // namespace tk07::desktop
