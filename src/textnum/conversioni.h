#pragma once

#include <string_view>

#include "base/piattaforma.h"

namespace tk07 {

struct RigaConversione {
    std::string_view chiave;  // lower case, with its brackets
    double fattore;
    short decimali;  // shift of the decimals
};

// Applies the conversion key found in `comando` (case-blind) to `valore` and sets `k` to the row's
// shift of decimals; equal units leave the value and give 0. An unknown key shows a box and gives
// 0.
void ConvertiUnita(double& valore, std::string_view comando, short& k, const Piattaforma& p);

// The whole table, in its order.
const RigaConversione* TabellaConversioni(int& quante);

}  // namespace tk07
