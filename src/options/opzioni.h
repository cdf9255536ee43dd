#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

// Rows that the drawing reads: an options file must hold at least these.
inline constexpr int kMinimoRigheOpzioni = 30;
inline constexpr int kOpzTollForo = 5;       // clearance of a hole over its bolt [mm]
inline constexpr int kOpzDistSaldatura = 6;  // clearance of a hole from a weld [mm]

struct RigaOpzione {
    double Valore = 0.0;
    std::string Tipo;       // "TEXT", "CHECK", "LABC" or a text beginning with "OPTI"
    std::string Programmi;  // codes separated by "/"; empty means all
    short Gruppo = 0;
    std::string Etichetta;           // "$$$" when the row has none
    int Riga = 0;                    // line of the file, from 1
    std::vector<std::string> Campi;  // the fields as read, trimmed: what saving writes back
};

struct Opzioni {
    std::vector<std::string> Gruppi;
    std::vector<RigaOpzione> Righe;
    bool Disponibili = false;

    // Numeric option by index from 0. An index beyond the rows is a fatal fault.
    double ValOpz(int i) const;
};

// Reads the options file: number of groups, groups, number of rows, rows with fields separated by
// "|". On failure a box says what is wrong (file, line) and `opz` keeps what it had; returns
// success.
bool LeggiOpzioni(std::string_view nomeFile, Opzioni& opz, const Piattaforma& p);

// Writes the rows back in the same order: exactly the fields that each had, the first one anew
// where its value has changed. False after a box when the file cannot be written; it keeps its
// contents.
bool SalvaOpzioni(std::string_view nomeFile, const Opzioni& opz, const Piattaforma& p);

// True when `filtro` is empty or one of its "/"-separated items, trimmed, equals "TK07".
bool RigaPerProgramma(std::string_view filtro);

}  // namespace tk07
