#include "modelimport/sezioni_struttura.h"

#include <algorithm>

#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/voci.h"

namespace tk07 {

namespace {

int RigaDiLibreria(const LibreriaProfili& lib, const std::string& nome) {
    int riga = 0;
    for (int i = 1; i <= lib.nProfili; ++i) {
        if (SostituisciTesto(lib.Profili(i).Nome, " ", "") == nome) riga = i;
    }
    return riga;
}

}  // namespace

bool LeggiNomiSezioni(std::string_view dirLavoro, int posizionePri, int posizioneSec,
                      std::string& nomePri, std::string& nomeSec) {
    nomePri.clear();
    nomeSec.clear();
    const FileLetto f = LeggiRighe(std::string(dirLavoro) + kFileSezioni);
    LettoreVoci l(f.righe);
    int quante = 0;
    if (!f.riuscito || !l.Intero(quante)) return false;
    // What follows the last section that is wanted does not matter.
    const int ultima = std::min(std::max(posizionePri, posizioneSec), quante - 1);
    for (int i = 0; i <= ultima; ++i) {
        int numero = 0;
        std::string nome, scarto;
        if (!l.Intero(numero) || !l.Voce(nome, Bianchi::compresi)) return false;
        if (i == posizionePri) nomePri = nome;
        if (i == posizioneSec) nomeSec = nome;
        if (i == ultima) break;
        if (!l.Voce(scarto, Bianchi::compresi)) return false;
        l.ChiudiRiga();
        for (int k = 0; k < 4; ++k) l.Riga(scarto);
    }
    return true;
}

std::string NomeDiLibreria(std::string_view nomeModello) {
    std::string nome = SostituisciTesto(nomeModello, " ", "");
    if (nome.substr(0, 2) == "P_") nome.erase(0, 2);
    return nome;
}

EsitoStr ApplicaSezioniStruttura(std::string_view dirLavoro, int astaPri, int astaSec,
                                 const LibreriaProfili& lib, StrVecchia vecchia,
                                 SezioniTrovate& trovate, const Piattaforma& p) {
    trovate = {};
    int posizionePri = -1, posizioneSec = -1;
    EsitoStr esito = SezioneAsta(dirLavoro, astaPri, posizionePri, vecchia, p);
    if (esito == EsitoStr::bene) {
        esito = SezioneAsta(dirLavoro, astaSec, posizioneSec, vecchia, p);
    }
    if (esito != EsitoStr::bene) return esito;
    if (posizionePri < 0 && posizioneSec < 0) return EsitoStr::bene;

    std::string nomePri, nomeSec;
    if (!LeggiNomiSezioni(dirLavoro, posizionePri, posizioneSec, nomePri, nomeSec)) {
        MostraAvviso(p,
                     "Errore: file " + PercorsoMostrato(std::string(dirLavoro) + kFileSezioni) +
                         " errato o mancante.",
                     "ERRORE");
        return EsitoStr::errore;
    }
    trovate.TraPri = RigaDiLibreria(lib, NomeDiLibreria(nomePri));
    trovate.TraSec = RigaDiLibreria(lib, NomeDiLibreria(nomeSec));
    const auto informa = [&](const char* testo) { MostraErrore(p, testo, "INFORMAZIONE"); };
    if (trovate.TraPri == 0) informa("Il profilo della trave principale non è applicabile");
    if (trovate.TraSec == 0) informa("Il profilo della trave secondaria non è applicabile");
    return EsitoStr::bene;
}

}  // namespace tk07
