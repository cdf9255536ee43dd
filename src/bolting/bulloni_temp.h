#pragma once

#include <string>

#include "joint/nodo.h"

namespace tk07 {

// The bolts while they are being edited: nothing reaches the joint until CopiaNelNodo. Bolts lie at
// 1..nBullTemp; a slot beyond keeps the values of the bolt that it last held. X from the joint's
// vertical axis, Y from the lower end of plate 1, shank diameter, all in mm.
struct BulloniTemp {
    short nBullTemp = 0;
    Tab1<double, 0, kMaxBulloni> XbullTemp, YbullTemp, FibullTemp;
    Tab1<double, 0, kMaxBulloni> SelBullTemp;  // 1.0 selected for the bulk operations, else 0.0
    short attesaClick = 0;                     // 1 while the next press places the last bolt
    bool operator==(const BulloniTemp&) const = default;
};

enum class Asse { X, Y };
enum class Selezione { tutti, nessuno };

// Starts the working copy anew from the joint's bolts, selection included; no press is awaited and
// the slots beyond nBull are zero.
void CopiaDalNodo(const Nodo& nodo, BulloniTemp& t);
// Confirms: the joint takes the bolts 1..nBullTemp of the working copy, selection included.
void CopiaNelNodo(const BulloniTemp& t, Nodo& nodo);

inline constexpr const char* kDisposizione = "disposizione dei bulloni";  // where such a fault is
std::string OltreIlMassimo();
// Whether `quanti` bolts more would fit in the slots up to 100.
bool CePosto(const BulloniTemp& t, double quanti);
// How many bolts are selected.
int QuantiSelezionati(const BulloniTemp& t);
// Every routine that adds asks here first: a fatal fault, with nothing changed yet, when they would
// not fit.
void EsigiPosto(const BulloniTemp& t, double quanti);
// New last bolt at (x, y) [mm] of diameter `diametro` [mm]. Its selection is whatever the slot
// held.
void AccodaBullone(BulloniTemp& t, double x, double y, double diametro);
// Closes the gap at `da`: the bolts da+1..a move one place down, with all four arrays. Slot `a`
// keeps its values.
void CopiaIndietro(BulloniTemp& t, int da, int a);

// v [mm] on the 5 mm grid; halves go away from zero (12.4 -> 10, 12.5 -> 15, -12.5 -> -15).
double Scatta5(double v);
// Counts one bolt more, with the values that its slot holds, and awaits the press that places it.
void AggiungiSingolo(BulloniTemp& t);
// A press at (x, y) [mm]: the last bolt takes that place, on the 5 mm grid, and the diameter [mm].
// False, and nothing done, when no press was awaited.
bool PosaBullone(BulloniTemp& t, double x, double y, double diametro);
// The press is awaited no longer; the bolt that was waiting for it stays.
void AnnullaAttesa(BulloniTemp& t);

void RimuoviUltimo(BulloniTemp& t);
void RimuoviTutti(BulloniTemp& t);
// Removes bolt `numero`; a number without a bolt removes nothing.
void RimuoviNumero(BulloniTemp& t, int numero);
void RimuoviSelezionati(BulloniTemp& t);
// Of bolts with exactly equal X, Y and diameter the one with the lowest number stays.
void EliminaDoppi(BulloniTemp& t);

void Seleziona(BulloniTemp& t, Selezione quali);
// Copies the selected bolts by `delta` [mm] along the axis; the copies are new last bolts, whose
// selection is whatever their slots held, and are not copied again.
void CopiaSelezionati(BulloniTemp& t, Asse asse, double delta);
// Moves the selected bolts by `delta` [mm].
void TraslaSelezionati(BulloniTemp& t, Asse asse, double delta);
void CambiaDiametro(BulloniTemp& t, double diametro);

}  // namespace tk07
