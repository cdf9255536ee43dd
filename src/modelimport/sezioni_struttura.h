#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "libraries/profili.h"
#include "modelimport/struttura.h"

namespace tk07 {

// The sections of the model, `sezioni_` in the work directory. Items separated by commas or line
// ends, texts in double quotes:
//   number of sections; for each, counted from 0: a whole number, the quoted name, one further
//   item, and four whole lines (not used)

inline constexpr const char* kFileSezioni = "\\sezioni_";

// Rows of the section library for the two beams; 0 where none fits.
struct SezioniTrovate {
    int TraPri = 0, TraSec = 0;
};

// Name of the section at a position, for the two members: empty when the position is below 0 or
// beyond the number of sections. False when the file is missing, ends before a name that is wanted,
// or has a count or a section number that is no number.
bool LeggiNomiSezioni(std::string_view dirLavoro, int posizionePri, int posizioneSec,
                      std::string& nomePri, std::string& nomeSec);

// A model's name as the library has it: without blanks, then without a leading "P_".
std::string NomeDiLibreria(std::string_view nomeModello);

// Finds the library's sections of two members of the model, the last row of that name where several
// have it. Selecting them on the main panel is the caller's.
//   bene           with no row for a beam that fact is told; not when neither member has a section
//   errore         STRUTTUR.STR or `sezioni_` missing or wrong, told; nothing is to be selected
//   fineProgramma  structure file of an old release with `termina`
EsitoStr ApplicaSezioniStruttura(std::string_view dirLavoro, int astaPri, int astaSec,
                                 const LibreriaProfili& lib, StrVecchia vecchia,
                                 SezioniTrovate& trovate, const Piattaforma& p);

}  // namespace tk07
