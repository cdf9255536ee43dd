#include "session/verifica_sessione.h"

#include <utility>

#include "base/file_testo.h"
#include "joint/controlla_dati.h"
#include "session/sessione.h"

namespace tk07 {

RisultatoVerifica VerificaConRelazione(const Nodo& n, const Opzioni& opz, const Unita& unita,
                                       const DestinazioneRelazione& dest, Risultati& ris,
                                       Esiti& esiti, const Piattaforma& p) {
    RisultatoVerifica r;
    if (VerificaNodo(n, opz, ris, esiti, p) != EsitoVerifica::completata) return r;
    RelazioneScritta testo = RelazioneDi(n, unita, ris, esiti);
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    const std::string percorso = NomeRelazione(dest, slu ? "SLU" : "TA", "TK07");
    const std::string errore =
        ScriviFile(percorso, testo.testo, Codifica::utf8, dest.tenuta, {}, dest.nomi);
    if (!errore.empty()) {
        MostraErrore(p, "Relazione non scritta: " + PercorsoMostrato(percorso) + "\n" + errore);
        return r;
    }
    if (!esiti.verificato) MostraAvviso(p, "ATTENZIONE: nodo non verificato!");
    return {EsitoVerifica::completata, percorso, std::move(testo)};
}

void VerificaSessione(Sessione& s) {
    s.RisultatiValidi = false;
    s.ultimaVerifica = RisultatoVerifica{};
    RicalcolaNervatura3(s.nodo);
    if (ControllaDati(s.nodo, s.opz, s.piattaforma)) {
        MostraAvviso(s.piattaforma, "La verifica non è possibile!");
        return;
    }
    s.piattaforma.puntatore(11);
    s.ultimaVerifica = VerificaConRelazione(
        s.nodo, s.opz, s.unita, {s.dir.dirLavoro, s.nomeFile, s.tenutaRelazioni, s.nomi}, s.ris,
        s.esiti, s.piattaforma);
    s.RisultatiValidi = s.ultimaVerifica.esito == EsitoVerifica::completata;
    if (s.RisultatiValidi) {
        s.piattaforma.avvia("notepad.exe", {PercorsoPiattaforma(s.ultimaVerifica.relazione)},
                            false);
    }
    s.piattaforma.puntatore(0);
}

}  // namespace tk07
