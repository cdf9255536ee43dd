#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"
#include "base/tabella.h"

namespace tk07 {

inline constexpr int kMaxMateriali = 50;

// One steel; stresses in daN/cm2. 40 and 80: thickness up to 40 mm and up to 80 mm.
struct MaterialeRec {
    std::string Nome, Designazione;
    double Samm = 0.0, Samm80 = 0.0;
    double Fyk40 = 0.0, Fyk80 = 0.0;
    double Ftk40 = 0.0, Ftk80 = 0.0;
    double Fyd40 = 0.0, Fyd80 = 0.0;  // filled from base materials only
    double GammaM = 0.0, Riserva1 = 0.0, Riserva2 = 0.0, GammaMT = 0.0;
    bool operator==(const MaterialeRec&) const = default;
};

// One bolt class; stresses in daN/cm2.
struct ViteRec {
    std::string Nome;
    double SammVite = 0.0, TauAmmVite = 0.0, FyVite = 0.0, FtVite = 0.0, ViteQuinto = 0.0,
           GammaMVite = 0.0;
    bool operator==(const ViteRec&) const = default;
};

struct CalcestruzzoRec {
    std::string Nome;
    double Rck = 0.0, Fck = 0.0, Fcd = 0.0, GammaC = 0.0, AlfaCC = 0.0, Ecm = 0.0, SammCls = 0.0;
};

// One reinforcing steel; primo..quinto in the order of the file's values.
struct AcciaioCaRec {
    std::string Nome;
    double SammCa = 0.0, Primo = 0.0, Secondo = 0.0, Terzo = 0.0, Quarto = 0.0, Quinto = 0.0;
};

// Base materials of the structure model.
struct MaterialiBase {
    bool MatBaseValidi = false;
    CalcestruzzoRec ClsBase;
    MaterialeRec AccBase1, AccBase2;  // open and closed sections
    std::string AccCaBaseTipo;
    double ModuloE = 0.0;  // the file's value divided by 10
    Tab1<double, 0, 3> GammaMBase;
};

template <class Rec>
using TabellaMateriali = Tab1<Rec, 0, kMaxMateriali>;

// Tables are used from 1, element 0 stays empty. A count may lie above 50 when the file says so;
// the rows beyond are not stored.
struct Materiali {
    TabellaMateriali<MaterialeRec> AcciaiAperte, AcciaiChiuse;
    TabellaMateriali<ViteRec> Viti;
    TabellaMateriali<CalcestruzzoRec> Calcestruzzi;
    TabellaMateriali<AcciaioCaRec> AcciaiCa;
    short nAcciaiAperte = 0, nAcciaiChiuse = 0, nViti = 0, nCalcestruzzi = 0, nAcciaiCa = 0;
    MaterialiBase Base;
    // Switches of the shared library: which groups this program uses and shows.
    bool SezioniChiuse = false, MostraAccPiastre = false, MostraBulloni = true,
         MostraTirafondi = false, MostraCalcestruzzo = false;
};

enum class Metodo { TA = 0, SLU = 1 };
inline std::string NomeMetodo(Metodo m) { return m == Metodo::SLU ? "SLU" : "TA"; }

// Reads the material file into the five tables. `messaggioErrore` is empty on success;
// `flagFormatoVecchio` is 1 when a reinforcing steel has the older form of row. A field that is no
// number keeps its value, a row beyond 50 is dropped, a bad count is 0.
void LeggiMateriali(std::string_view file, Materiali& mat, std::string& messaggioErrore,
                    short& flagFormatoVecchio);

// Reads the base materials; tells the user when the file is missing or has another release, and
// refuses personalised materials. Sets Base.MatBaseValidi.
void LeggiMaterialiBase(std::string_view file, Materiali& mat, const Piattaforma& p);
void DecifraRigaMatBase(std::string_view riga, Materiali& mat, const Piattaforma& p);

// Number of rows that can be read of a table whose count is `n`.
inline int RigheUtili(short n) { return n < kMaxMateriali ? n : kMaxMateriali; }

// Index of the first row of that very name, 0 when there is none; the Cerca... forms show a box
// then.
int IndiceAcciaio(const Materiali& mat, std::string_view nome);
int IndiceVite(const Materiali& mat, std::string_view nome);
int CercaAcciaioDaNome(const Materiali& mat, std::string_view nome, const Piattaforma& p);
int CercaViteDaNome(const Materiali& mat, std::string_view nome, const Piattaforma& p);

// Whether a steel can be used with a method; `tipo` is "PROFILI" or "BULLONI".
bool MaterialeValido(Metodo metodo, std::string_view tipo, const MaterialeRec& rec);

// The names of the steels that a method can use, in table order.
std::vector<std::string> ListaMateriali(Metodo metodo, std::string_view tipo, short n,
                                        const TabellaMateriali<MaterialeRec>& tabella);
// Position in the table (from 0) of a replacement for `nomeCorrente`: the first valid row with
// another name of which one contains the other; 0 when there is none.
// The caller selects with it in the filtered list: where that leaves out rows before it, the steel
// selected is a later one, which the list shows.
int AlternativaMateriale(Metodo metodo, std::string_view tipo, std::string_view nomeCorrente,
                         short n, const TabellaMateriali<MaterialeRec>& tabella);
// The list of a method and the position selected in it (-1 when the list is empty). When
// `nomeCorrente` cannot be used with the method the user is told and a replacement is selected.
struct ListaConScelta {
    std::vector<std::string> voci;
    int indice = -1;
};
ListaConScelta RiempiListaMateriali(Metodo metodo, std::string_view tipo,
                                    std::string_view nomeCorrente, short n,
                                    const TabellaMateriali<MaterialeRec>& tabella,
                                    const Piattaforma& p);

}  // namespace tk07
