#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

// Rows of the options file by their position from 0. A colour is a number of the palette 0..15, a
// switch is 1 or 0, a length is in mm of the drawing at scale 1:1.
enum RigaOpz : int {
    kOpzColoreContorno,     // colour of outlines
    kOpzColoreContorno2,    // colour of secondary outlines
    kOpzColoreSaldature,    // colour of welds
    kOpzColoreSegni,        // colour of section marks and axes
    kOpzDistanzaViste,      // between views [mm]
    kOpzTollForo,           // clearance of a hole over its bolt, on the diameter [mm]
    kOpzDistSaldatura,      // clearance of a hole's edge from a weld [mm]
    kOpzColoreQuoteDett,    // colour of the details' dimensions
    kOpzAltezzaQuoteDett,   // height of the details' dimension texts [mm]
    kOpzColoreQuote,        // colour of the views' dimensions, labels and notes
    kOpzAltezzaQuote,       // height of the views' dimension texts [mm]
    kOpzAltezzaTabella,     // height of the weld table's texts [mm]
    kOpzRigaTabella,        // height of its rows [mm]
    kOpzTerminale,          // end mark of dimensions: 0 circle, 1 arrow
    kOpzTerminaleDett,      // size of the details' end marks [mm]
    kOpzTerminaleQuote,     // size of the views' end marks [mm]
    kOpzBulloniSezioni,     // switch: bolts drawn in the sections too
    kOpzPrimaQuota,         // first dimension line from the piece [mm]
    kOpzPassoQuote,         // between dimension lines [mm]
    kOpzRapportoCaratteri,  // width over height of a character
    kOpzSporgenza,          // extension lines beyond the dimension line [mm]
    kOpzTitoloVista,        // height of the sections' titles [mm]
    kOpzTitoloTavola,       // height of the sheet's title [mm]
    kOpzDistanzaTitolo,     // titles from the drawing [mm]
    kOpzColonnaTabella,     // width of the weld table's columns [mm]
    kOpzPassoNascoste,      // gap of hidden lines in details [mm], of another program
    kOpzProlungamentoAssi,  // axes beyond the outline [mm], of another program
    kOpzPesoNote,           // switch: weights in the notes, of another program
    kOpzSerraggioNote,      // switch: tightening torque in the notes, of another program
    kOpzLatoSaldature,      // switch: sides of the welds in the notes
    kMinimoRigheOpzioni     // an options file must hold at least the rows above
};

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
