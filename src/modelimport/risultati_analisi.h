#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "joint/nodo.h"

namespace tk07 {

// Results of the structural analysis, one file a load case (`astec001.bin`) or load condition
// (`aste_012.bin`) in the work directory. Records of 56 bytes, little-endian; positions from 1.
//
//   Record 1, header      1  16 bits  n, members in the file
//                         5  32 bits  A, stations along a member
//                         9  32 bits  B, six-sets at a station
//                        17  20 characters, title (not used)
//   Member block i (0..n-1), station a (0..A-1), six-set s (1..B): record 1 + (i A + a) B + s
//                         1  16 bits  member number (in the first record of the block)
//                         9  64-bit reals [daN, daN cm]: axial force, shear 1, shear 2, torsion,
//                            moment 1, moment 2
// Stations 0 and A-1 are the ends 1 and 2 of a member; the others are not read.

// Path of a result file. The number in three digits; above 999 its first three digits.
enum class TipoCarico { caso, condizione };
std::string NomeFileRisultati(std::string_view dirLavoro, TipoCarico tipo, int numero);

enum class ModoImport {
    tutti,          // every set at the end of the table
    massimiMinimi,  // the table becomes the twelve extremes (Imp3D: solo massimi e minimi)
};

// What the import panel's fields hold, as list texts (see liste.h).
struct RichiestaImport {
    std::string nodi, aste, casi, condizioni;
    std::string sestetti;  // an entry of 0 or below stands for every six-set
    ModoImport modo = ModoImport::tutti;
};

enum class EsitoImport {
    bene,
    fallito,        // told through the port
    interrotto,     // the port's progress asked to stop
    fineProgramma,  // structure file of an old release, told: the caller ends the program
};

// Imports the actions at the member ends that lie at the joint's nodes into the load table: all
// cases, then all conditions; in a file by member, six-set and list entry, all in list order.
//
//   Writes   nodo.NomeNodi, numNodi from the node list, once every list is good; then the table.
//   Values   axial force -> SforzoNormale, shear 1 -> TaglioY, shear 2 -> TaglioZ, torsion ->
//            MomTorc, moment 1 -> MomY, moment 2 -> MomZ, to one decimal, half to even.
//            TaglioY changes sign at end 2. With `tutti` MomTorc always changes sign, and MomY at
//            end 2; with `massimiMinimi` the moments keep their sign and are whole numbers.
//   Names    "Caso 1 As. 11 Nd. 102", "Cond 12 As. 11 Nd. 102"; load case type I throughout.
//   Absent   a member that a file lacks has its block of the file before, the first one at the
//            start.
//   Limit    500 sets, tried before each file with all its six-sets; beyond, the table is emptied.
//   Start    with `massimiMinimi` the slots begin at -1e20 and 1e20 before any file is opened, and
//            keep these values when no set is read.
//   Errors   a bad list, the structure file, a result file that is missing, shorter than its counts
//            or with a count below 1, a value that is no finite number. The table stays as filled
//            so far.
EsitoImport ImportaSollecitazioni(std::string_view dirLavoro, const RichiestaImport& richiesta,
                                  Nodo& nodo, const Piattaforma& p);

// A member of the request whose actions an import would take from another member's block: the first
// one that a result file lacks (members below 1 are not read). `asta` 0 when there is none, or when
// the lists or the files cannot be read.
struct AstaAssente {
    int asta = 0;
    TipoCarico tipo = TipoCarico::caso;
    int numero = 0;  // load case or condition
};
AstaAssente CercaAstaAssente(std::string_view dirLavoro, const RichiestaImport& richiesta);

}  // namespace tk07
