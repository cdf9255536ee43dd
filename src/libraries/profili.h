#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "base/tabella.h"

namespace tk07 {

// One rolled section. Lengths in mm, Area in mm2, J1 J2 J3 in mm4. The joint uses H, B, tw, tf, r.
struct ProfiloRec {
    std::string Nome;
    double H = 0.0, B = 0.0, tw = 0.0, tf = 0.0, r = 0.0;
    double r1 = 0.0, e1 = 0.0, e2 = 0.0;
    double Area = 0.0, J1 = 0.0, J2 = 0.0, J3 = 0.0;
    char Lettera = ' ';
    bool operator==(const ProfiloRec&) const = default;
};

inline constexpr int kMaxProfili = 2000;
using TabellaProfili = Tab1<ProfiloRec, 0, kMaxProfili>;

// The families that the joint can use; each token has a blank on both sides.
inline constexpr std::string_view kFamiglieNodo =
    " IPE  IPEA  IPER  IPEO  IPEV  HEA  HEAA  HEB  HEM  HEC  DIL  HER  HLAA  HLA  HLB  HLM  HLR "
    " HXAA  HXA  HXB  HXM  HXR  HD  HP  M  W ";

struct LibreriaProfili {
    TabellaProfili Profili;  // sections at 1..nProfili in file order, element 0 empty
    short nProfili = 0;
};

// Where and why a reading failed, for a clear message.
struct GuastoLettura {
    std::string testo;  // empty when nothing failed
};

// Reads the section file into `tabella` from `primoIndice` on and returns the number stored.
//   fattoreLunghezze  multiplies H, B, tw, tf, r, r1, e1, e2
//   fattoreSezione    its square multiplies Area, its fourth power J1, J2, J3
//   filtroFamiglie    tokens with blanks around; empty means no filter
//   nomeCercato       when given, only the first section of that name is stored
// Any failure (no file, no "*END*" line, a field that is no number, table full) gives 0; `guasto`
// then says file, line and reason. The file is not changed and no message is shown.
short LeggiProfili(std::string_view file, int primoIndice, TabellaProfili& tabella,
                   double fattoreLunghezze, double fattoreSezione, std::string_view filtroFamiglie,
                   GuastoLettura* guasto = nullptr, const std::string* nomeCercato = nullptr);

// Sets the eight lengths to 0 and Lettera to blank; Area, J1, J2, J3 stay.
void AzzeraProfilo(ProfiloRec& rec);
void ScalaProfilo(ProfiloRec& rec, double fattoreLunghezze, double fattoreSezione);

// Index of the first section of that very name, 1..nProfili; 0 when there is none.
int IndiceProfilo(const LibreriaProfili& lib, std::string_view nome);
// The same with a critical box when there is none.
int CercaProfiloDaNome(const LibreriaProfili& lib, std::string_view nome, const Piattaforma& p);

}  // namespace tk07
