#pragma once

#include <string>
#include <string_view>

namespace tk07 {

// The user's work units. The calculation works in mm, daN, daN cm and daN/cm2; a factor multiplies
// a value in those units to give the user's, `Decimali...` are the decimals to show. Factors act
// only in the load table, in the material panel and in the reports; lengths are always shown in mm.
struct Unita {
    double AccelerazioneG = 0.0;
    double NordGeografico = 0.0;
    std::string UnitaLunghezze, UnitaForze, UnitaMomenti, UnitaTensioni, UnitaSezioni,
        UnitaCarichiSup;
    double FattoreLunghezze = 0.0, FattoreForze = 0.0, FattoreMomenti = 0.0, FattoreTensioni = 0.0,
           FattoreSezioni = 0.0, FattoreCarichiSup = 0.0;
    short DecimaliLunghezze = 0, DecimaliForze = 0, DecimaliMomenti = 0, DecimaliTensioni = 0,
          DecimaliSezioni = 0, DecimaliCarichiSup = 0;
};

// Factor of a unit's name and its decimals. The first unit contained in the name decides, case by
// case; an unknown name gives 0 and leaves `decimali`.
double FattoreLunghezza(std::string_view nome, short& decimali);
// Fatal fault: a unit by weight (kgf, t) with `g` 0.
double FattoreForza(std::string_view nome, short& decimali, double g);
double FattorePressione(std::string_view nome, short& decimali);

// Reads the names from `parametrilavoro`: one item that is dropped, then lines value + "[key...".
// Fatal fault: the file is missing, a line has no "[", a number is none; with file, line and key.
void LeggiParametriLavoro(std::string_view percorso, Unita& u);
// Factors and decimals from the names.
void ImpostaUnita(Unita& u);
// Forces, moments, stresses whose unit is unknown: key and name ("forze \"kg\", ..."), empty when
// all are known. Their factor is 0, so that load table and reports show 0 for them.
std::string UnitaSconosciute(const Unita& u);

}  // namespace tk07
