// The external unit converter on a load field.

#include "base/file_testo.h"
#include "base/testo.h"
#include "session/gestori.h"
#include "session/pannello_insdati.h"

namespace tk07 {

namespace {

struct CampoConvertibile {
    const char* base;
    const char* titolo;
};

constexpr CampoConvertibile kCampi[] = {
    {"TxtSN", "|titolo=Sforzo_Norm|"}, {"TxtTy", "|titolo=Taglio_y|"},
    {"TxtTz", "|titolo=Taglio_z|"},    {"TxtMt", "|titolo=Mom_t|"},
    {"TxtMy", "|titolo=Mom_y|"},       {"TxtMz", "|titolo=Mom_z|"},
};

}  // namespace

void ChiamaConversione(Sessione& s, const NomeControllo& n) {
    const char* titolo = "assente";
    for (const CampoConvertibile& c : kCampi) {
        if (n.base == c.base) titolo = c.titolo;
    }
    const bool momento = CampoAzione(n.base).momento;
    std::string& campo = s.InsDati[ConIndice(n.base, n.indice)].testo;
    const std::string uscita = s.dir.dirLavoro + "\\KX_conversioni.tmp";
    // The spelling of the first key is the tool's own.
    const std::string riga =
        "|primcipale=1|uniprinctesto=" + (momento ? s.unita.UnitaMomenti : s.unita.UnitaForze) +
        "|categoriadiingresso=" + (momento ? "5" : "4") +
        "|valoreingresso=" + TestoReale(ValoreIniziale(campo)) +
        "|fileout=" + PercorsoPiattaforma(uscita) + "|titolo=" + titolo + "|";
    EliminaFile(uscita);  // an answer left from an earlier call is none to this one
    if (!s.piattaforma.avvia(PercorsoPiattaforma(s.dir.dirProgra + "\\kx_conversioni.exe"), {riga},
                             true)) {
        return;
    }
    const FileLetto f = LeggiRighe(uscita);
    if (f.riuscito && !f.righe.empty()) campo = Taglia(f.righe.front());
}

}  // namespace tk07
