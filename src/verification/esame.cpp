#include "verification/esame.h"

#include "joint/controlla_dati.h"
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
        esame.calcolato =
            VerificaNodo(n, opz, esame.ris, esame.esiti, p) == EsitoVerifica::completata;
    } catch (const ErroreFatale& e) {  // a copy that cannot be judged costs nothing
        dove->push_back(e.what());
    }
}

}  // namespace tk07
