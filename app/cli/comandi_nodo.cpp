#include "cli/comandi_nodo.h"

#include <algorithm>
#include <cmath>

#include "base/file_testo.h"
#include "base/testo.h"
#include "bolting/proposte.h"
#include "guscio/banco.h"
#include "joint/campi_nodo.h"
#include "joint/controlla_dati.h"
#include "joint/tabella_carichi.h"
#include "modelimport/liste.h"
#include "modelimport/struttura.h"
#include "session/importazione.h"

namespace tk07::cli {

namespace {

constexpr std::size_t kNomeDetto = 60;  // characters of a name that a message repeats

// Opens the joint, lets `lavoro` change it (a code above 0 stops), tells what the checks say of it,
// and writes it. Nothing is written when anything went wrong.
template <class Lavoro>
int CambiaNodo(const Avvio& avvio, const std::string& file, const std::string& uscita,
               Lavoro lavoro) {
    return SuNodo(avvio, file, [&](Sessione& s) {
        const std::vector<NomeAssente> persi = NomiPersi(s.nodo);
        if (!uscita.empty() && !persi.empty()) {
            for (const NomeAssente& a : persi) {
                Errore(file, a.chiave + " \"" + PrimiCaratteri(a.nome, kNomeDetto) +
                                 "\" non è nelle librerie e andrebbe perso: " + uscita +
                                 " non è stato scritto");
            }
            return kUscitaUso;
        }
        const int codice = lavoro(s);
        // An end of the program that a reader asked for is no success of this command.
        if (s.fine && s.codiceUscita == kUscitaOk) s.codiceUscita = kUscitaUso;
        if (s.fine || codice != kUscitaOk || uscita.empty()) return codice;
        ControllaDati(s.nodo, s.opz, s.piattaforma);
        return ScriviNodo(s, uscita) ? codice : kUscitaUso;
    });
}

// A load set as text, in the job's units; false when it is not six numbers and a name that a joint
// file can have.
bool AggiungiDaTesto(Sessione& s, const std::string& testo) {
    std::string resto = testo;
    double azioni[6] = {};
    for (int a = 0; a < 6; ++a) {
        const std::size_t virgola = resto.find(',');
        const auto x = ValoreStretto(resto.substr(0, virgola));
        const bool ultima = a == 5;
        if (!x || (!ultima && virgola == std::string::npos)) return false;
        azioni[a] = *x;
        resto = virgola == std::string::npos ? "" : resto.substr(virgola + 1);
    }
    const std::string perche = TestoRifiutato(resto);
    if (!perche.empty()) {
        MostraErrore(s.piattaforma, perche, "ERRORE");
        return false;
    }
    if (!AggiungiSestetto(s.nodo)) {
        MostraErrore(s.piattaforma, "E' stato raggiunto il numero massimo di sollecitazioni.",
                     "ERRORE");
        return false;
    }
    const int k = s.nodo.nSollAg - 1;
    for (int a = 1; a <= 6; ++a) {
        const double fattore = a <= 3 ? s.unita.FattoreForze : s.unita.FattoreMomenti;
        const double valore = azioni[a - 1];
        // As on the panel: what is as good as the stored 0 stays 0.
        if (!(std::fabs(valore) > 0.0001)) continue;
        if (fattore == 0.0) {
            MostraErrore(s.piattaforma, "Unità di misura sconosciuta in parametrilavoro");
            return false;
        }
        ImpostaSoll(s.nodo, valore / fattore, a, k);
    }
    if (!Taglia(resto).empty()) s.nodo.NomeSa(k) = Taglia(resto);
    return true;
}

// A member that the model lacks takes the results of another one: that must be seen.
void AvvisaAsteAssenti(const Sessione& s, const OpzioniImporta& opz) {
    std::vector<short> aste;
    ModelloStr modello;
    if (!LeggiLista(opz.aste, aste) || LeggiModello(s.dir.dirLavoro, modello, StrVecchia::prosegui,
                                                    PiattaformaMuta()) != EsitoStr::bene) {
        return;  // the import itself tells
    }
    for (const short numero : aste) {
        if (std::none_of(modello.aste.begin(), modello.aste.end(),
                         [&](const AstaStr& a) { return a.numero == numero; })) {
            Errore(opz.file,
                   "attenzione, l'asta " + std::to_string(numero) +
                       " non è nella struttura: le sollecitazioni importate sono di un'altra");
        }
    }
}

}  // namespace

int ComandoProponi(const Avvio& avvio, const OpzioniProponi& opz) {
    if (!opz.piastre && !opz.nervature && opz.bulloni <= 0.0) {
        Errore("tk07", "indicare almeno una proposta: --piastre, --nervature, --bulloni");
        return kUscitaUso;
    }
    return CambiaNodo(avvio, opz.file, opz.uscita, [&](Sessione& s) {
        if (opz.piastre) ProponiPias(s.nodo);
        if (opz.nervature) ProponiNerv(s.nodo);
        RicalcolaNervatura3(s.nodo);
        if (opz.bulloni > 0.0) {
            BulloniTemp t;
            CopiaDalNodo(s.nodo, t);
            const int aggiunti = Proponi(s.nodo, s.opz, opz.bulloni, t, s.piattaforma);
            CopiaNelNodo(t, s.nodo);
            Stampa(opz.file + ": bulloni proposti " + std::to_string(aggiunti) + ", in tutto " +
                   std::to_string(s.nodo.nBull) + "\n");
        }
        return kUscitaOk;
    });
}

int ComandoCarichi(const Avvio& avvio, const OpzioniCarichi& opz) {
    const bool cambia = !opz.aggiungi.empty() || opz.senzaDoppi || opz.maxMin;
    if (!cambia && opz.esporta.empty()) {
        Errore("tk07", "indicare --aggiungi, --senza-doppi, --max-min o --esporta");
        return kUscitaUso;
    }
    if (cambia && opz.uscita.empty()) {
        Errore("tk07", "manca -o: il file di nodo da scrivere");
        return kUscitaUso;
    }
    return CambiaNodo(avvio, opz.file, opz.uscita, [&](Sessione& s) {
        for (const std::string& a : opz.aggiungi) {
            if (!AggiungiDaTesto(s, a)) {
                Errore(opz.file, "sestetto non aggiunto: \"" + a + "\" (N,Ty,Tz,Mt,My,Mz[,NOME])");
                return kUscitaUso;
            }
        }
        if (opz.senzaDoppi) EliminaDoppiSoll(s.nodo);
        if (opz.maxMin) MaxMinSoll(s.nodo);
        if (!opz.esporta.empty() && !EsportaSollecitazioni(s.nodo, s.unita, opz.esporta,
                                                           {true, true, true, true, true, true},
                                                           s.nodo.nSollAg, 0, s.piattaforma)) {
            return kUscitaUso;
        }
        if (cambia) {
            Stampa(opz.file + ": sestetti di sollecitazione " + std::to_string(s.nodo.nSollAg) +
                   "\n");
        }
        return kUscitaOk;
    });
}

int ComandoImporta(const Avvio& avvio, const OpzioniImporta& opz) {
    if (opz.casi.empty() && opz.condizioni.empty()) {
        Errore("tk07", "indicare almeno una lista: --casi, --condizioni");
        return kUscitaUso;
    }
    return CambiaNodo(avvio, opz.file, opz.uscita, [&](Sessione& s) {
        const int prima = s.nodo.nSollAg;
        const TestiImportazione testi{opz.nodi, opz.aste, opz.casi, opz.condizioni, opz.sestetti};
        if (!ImportaNelNodo(s, testi, opz.maxMin)) return kUscitaUso;
        AvvisaAsteAssenti(s, opz);
        // Slots that still wait for their extreme: no six-set has matched the lists.
        const bool vuoto =
            opz.maxMin ? std::fabs(s.nodo.SforzoNormale(0)) > 1e19 : s.nodo.nSollAg == prima;
        if (vuoto) {
            Errore(opz.file, "nessun sestetto corrisponde alle liste");
            return kUscitaUso;
        }
        if (opz.spiega) Stampa(SpiegaImportazione(opz.maxMin));
        Stampa(opz.file + ": sestetti importati " +
               std::to_string(opz.maxMin ? s.nodo.nSollAg : s.nodo.nSollAg - prima) +
               ", in tutto " + std::to_string(s.nodo.nSollAg) + "\n");
        return kUscitaOk;
    });
}

}  // namespace tk07::cli
