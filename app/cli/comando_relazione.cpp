#include "cli/comando_relazione.h"

#include <memory>

#include "base/file_testo.h"
#include "base/testo.h"
#include "cli/barra.h"
#include "guscio/banco.h"
#include "reports/esteso.h"

namespace tk07::cli {

namespace {

int Scrivi(const Sessione& s, const RelazionePreparata& r, const OpzioniRelazioneCli& opz,
           const Grafica& grafica) {
    std::unique_ptr<Barra> barra;
    const auto avanzamento = [&](int fatte, int tutte) {
        if (!barra) barra = std::make_unique<Barra>(static_cast<std::size_t>(tutte));
        barra->Segna(static_cast<std::size_t>(fatte));
    };
    std::string errore = "manca la parte grafica del programma";
    const bool scritta =
        grafica.scriviRelazione != nullptr &&
        grafica.scriviRelazione(s, r.documento, opz.file, opz.uscita, avanzamento, errore);
    barra.reset();
    if (!scritta) {
        Errore(opz.file, errore);
        return kUscitaUso;
    }
    Stampa(opz.file + ": " + r.documento.verdetto +
           "\n    relazione: " + PercorsoPiattaforma(opz.uscita) + "\n");
    return r.verificato ? kUscitaOk : kUscitaNonVerificato;
}

}  // namespace

int ComandoRelazione(const Avvio& avvio, const OpzioniRelazioneCli& opz, const Grafica& grafica) {
    if (!FinisceCon(Minuscolo(opz.uscita), ".pdf")) {
        Errore(opz.uscita, "estensione non ammessa: pdf");
        return kUscitaUso;
    }
    return SuNodo(avvio, opz.file, [&](Sessione& s) {
        if (!opz.metodo.empty()) ScegliMetodo(s, opz.metodo == "ta" ? Metodo::TA : Metodo::SLU);
        const RelazionePreparata r = PreparaRelazioneEstesa(
            s.nodo, s.opz, s.unita, opz.breve ? FormaRelazione::breve : FormaRelazione::estesa);
        for (const std::string& m : r.messaggi) MostraAvviso(s.piattaforma, m);
        if (r.esito != EsitoVerifica::completata) {
            MostraAvviso(s.piattaforma, "La verifica non è possibile!");
            return kUscitaNonPossibile;
        }
        return Scrivi(s, r, opz, grafica);
    });
}

}  // namespace tk07::cli
