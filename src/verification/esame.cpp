#include "verification/esame.h"

#include <memory>

#include "joint/controlla_dati.h"
#include "verification/azioni_bulloni.h"
#include "verification/verifica_nodo.h"

namespace tk07 {

void EsaminaNodo(Nodo& n, const Opzioni& opz, Esame& esame) {
    esame.incongruenze.clear();
    esame.avvisi.clear();
    esame.calcolato = false;
    std::vector<std::string>* dove = &esame.incongruenze;
    Piattaforma p = PiattaformaMuta();
    p.messaggio = [&dove](const std::string& testo, const std::string&, Segno, Pulsanti pulsanti) {
        if (pulsanti == Pulsanti::OK) dove->push_back(testo);
        return Risposta::OK;
    };
    try {
        RicalcolaNervatura3(n);
        if (ControllaDati(n, opz, p)) return;
        dove = &esame.avvisi;
        if (CalcolaNodo(n, opz, esame.ris, p) != EsitoVerifica::completata) return;
        esame.riepilogo = RiepilogoVerifica(n, opz, esame.ris);
        esame.calcolato = true;
    } catch (const ErroreFatale& e) {  // a copy that cannot be judged costs nothing
        dove->push_back(e.what());
    }
}

std::optional<Tab1<double, 1, 3>> PianoTensioni(const Nodo& nodo, int s) {
    if (s < 0 || s >= nodo.nSollAg || nodo.nBull <= 0) return std::nullopt;
    const auto uno = std::make_unique<Nodo>(nodo);
    for (const auto campo : {&Nodo::SforzoNormale, &Nodo::TaglioY, &Nodo::TaglioZ, &Nodo::MomTorc,
                             &Nodo::MomY, &Nodo::MomZ}) {
        ((*uno).*campo)(0) = (nodo.*campo)(s);
    }
    uno->nSollAg = 1;
    try {
        Risultati ris;
        AzzeraRisultati(*uno, ris);
        PoligonoCompresso pol;
        if (!AzioniBulloni(*uno, PreparaGeometria(*uno), pol, ris, PiattaformaMuta())) {
            return std::nullopt;
        }
        return pol.polPiano;
    } catch (const ErroreFatale&) {
        return std::nullopt;
    } catch (const GrandezzaNulla&) {
        return std::nullopt;
    }
}

}  // namespace tk07
