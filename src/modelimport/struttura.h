#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"
#include "joint/nodo.h"

namespace tk07 {

// The structure model of the job, `STRUTTUR.STR` in the work directory: read, never written.
//
// Lines of tokens separated by blanks; only the leading tokens are used, each read as its leading
// whole number (0 when there is none). Lines, in order:
//    1      stamp, holds the word "release" in any case
//    1      number of description lines, and those lines
//    1      number of nodes; two lines a node: internal index / number that the user knows
//    1      number of members; two lines a member: internal indices of its two end nodes / number,
//           section (from 0, below 0 none), colour, line type (0 where the line is shorter)
//    1      number of a block of two lines each, and the block
//    1 x 3  number of a block of one line each, and the block
//    1      number of load conditions
// A count below 0 counts as 0. A file that ends before its counts are served, a number beyond 32
// bits and a file above kMassimoFile are faults of the file.

inline constexpr const char* kFileStruttura = "\\STRUTTUR.STR";

enum class EsitoStr {
    bene,
    errore,         // told through the port; the caller stops
    fineProgramma,  // told as well; the caller ends the program
};

// What to do about a structure file of an old release. With `prosegui` the reading goes on with the
// stamp line in the place of line 2, so that every number that follows is whatever the file gives.
enum class StrVecchia { prosegui, termina };

// Lines of the file from the top. A reading past the end sets Guasto and gives empty texts and 0.
class LettoreStr {
  public:
    explicit LettoreStr(std::string_view dirLavoro);
    std::string Riga();
    void Salta(long righe);
    // First whole number of the next line.
    long Conteggio() { return Primo(Riga()); }
    // The leading whole number of the first token, taken off `riga`.
    long Togli(std::string& riga);
    long Primo(std::string riga) { return Togli(riga); }
    bool Guasto() const { return guasto_; }

  private:
    std::vector<std::string> righe_;
    std::size_t i_ = 0;
    bool guasto_ = false;
};

// Given line 1 in `riga`: with the word "release" the next line is read into `riga`; without it the
// box of the old release is shown, no line is read, and the result is `fineProgramma` or `bene` as
// `vecchia` says.
EsitoStr ControllaVersioneStr(LettoreStr& lettore, std::string& riga, StrVecchia vecchia,
                              const Piattaforma& p);

// The members whose actions are imported, all tables in the order of asteLista.
struct AsteImport {
    std::vector<short> asteLista;    // member numbers
    std::vector<int> asteRecord;     // record in the file from 1, -1 not found
    std::vector<short> asteEstremo;  // 1 or 2: which end lies at a node of the joint
    std::vector<int> asteNodo;       // that node, as index in NomeNodi from 1
};

// Finds the joint's nodes (nodo.NomeNodi, 1..numNodi) and the members of asteLista in the file and
// fills the other tables of `aste`; nothing is filled on a fault. Where both ends lie at nodes of
// the joint the first end wins. A member that the structure lacks keeps end 1 and the first node.
//   Errors  file missing or wrong, a node that is not there, a member that meets no node
EsitoStr LeggiStruttura(std::string_view dirLavoro, const Nodo& nodo, AsteImport& aste,
                        StrVecchia vecchia, const Piattaforma& p);

// Section of a member, counted from 0; -1 when the member is not there, or on a fault.
EsitoStr SezioneAsta(std::string_view dirLavoro, int numeroAsta, int& sezione, StrVecchia vecchia,
                     const Piattaforma& p);

// Number of load conditions; 0 on a fault. A number above kMassimoVoci is a fault of the file.
EsitoStr NumeroCondizioni(std::string_view dirLavoro, int& numero, StrVecchia vecchia,
                          const Piattaforma& p);
// List text of the conditions 1..numero, empty below 1.
std::string ListaCondizioni(int numero);

struct NodoStr {
    int interno = 0;  // index that the members refer to
    int numero = 0;
    // Coordinates [cm], z upwards, where the line goes on with three numbers: for drawing only.
    bool posto = false;
    double x = 0.0, y = 0.0, z = 0.0;
};

struct AstaStr {
    int interno1 = 0, interno2 = 0;
    int numero = 0, sezione = 0, colore = 0, linea = 0;
};

struct ModelloStr {
    std::vector<NodoStr> nodi;
    std::vector<AstaStr> aste;
};

// Nodes and members for the searches, in file order; `modello` is emptied on a fault.
EsitoStr LeggiModello(std::string_view dirLavoro, ModelloStr& modello, StrVecchia vecchia,
                      const Piattaforma& p);

}  // namespace tk07
