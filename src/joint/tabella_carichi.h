#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"
#include "joint/nodo.h"
#include "textnum/unita.h"

namespace tk07 {

// The table of load sets: forces daN, moments daN cm. The sets in use lie at 0..nSollAg-1; a slot
// beyond them never counts.

// Most load sets that can be reached by adding one at a time.
inline constexpr int kMaxAggiunte = 498;

// Action 1..6 of set k: N, Ty, Tz, Mt, My, Mz.
double ValoreSoll(const Nodo& nodo, int codice, int k);
// Sets it; code 7 sets the description from `testi` at the index `valore`.
void ImpostaSoll(Nodo& nodo, double valore, int codice, int k,
                 std::span<const std::string> testi = {});

// Copies set b over set a.
void SaScambio_(Nodo& nodo, int a, int b);
// Actions and load case of set k to 0; the description stays.
void SaAzzera_(Nodo& nodo, int k);
// Removes set k and closes the gap; the slot behind the last becomes blank.
void RimozioneSoll(Nodo& nodo, int k);
// Writes set k. Tz stands before Ty, as in the extremes below: a caller that follows the table's
// order of columns would swap the two shears.
void AssegnaSestetto(Nodo& nodo, int k, double N, double Tz, double Ty, double Mt, double My,
                     double Mz, const std::string& descrizione);

// Adds a blank set "Soll n"; false at the limit.
bool AggiungiSestetto(Nodo& nodo);
// Removes set k as the list's double click does; the slots beyond are not cleared.
void RimuoviSestetto(Nodo& nodo, int k);
// Removes sets with equal load case whose six actions differ by less than 0.0001; of a pair the one
// found second in the search goes. True if any went.
bool EliminaDoppiSoll(Nodo& nodo);
// Keeps, per load case family, the sets with the maximum and the minimum of every action: twelve
// for a family, then without duplicates. A tie keeps the earlier set.
void MaxMinSoll(Nodo& nodo);

// Extremes during an import: twelve slots, pairs (maximum, minimum) for N, Tz, Ty, My, Mz, Mt.
void PreparaMaxMinSoll(Nodo& nodo);
void VagliaMaxMinSoll(Nodo& nodo, double N, double Tz, double Ty, double Mt, double My, double Mz,
                      const std::string& descrizione);

// Which actions a load export writes; one that is off reads "0".
using AzioniEsportate = std::array<bool, 6>;
// Text file of `quanti` sets from `primo` on, columns by one tab, in the user's units. False after
// a box when it cannot be written; a file that exists keeps its contents.
bool EsportaSollecitazioni(const Nodo& nodo, const Unita& unita, std::string_view percorso,
                           const AzioniEsportate& con, int quanti, int primo, const Piattaforma& p);

}  // namespace tk07
