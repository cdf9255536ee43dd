#include "cli/comandi_cli.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <set>

#include "base/file_testo.h"
#include "base/testo.h"
#include "cli/per_ogni_file.h"
#include "guscio/albero.h"
#include "guscio/banco.h"
#include "guscio/csv.h"
#include "guscio/inizializza.h"
#include "guscio/json_nodo.h"
#include "guscio/mostra.h"
#include "guscio/programma.h"
#include "guscio/protocollo.h"
#include "joint/controlla_dati.h"
#include "verification/interassi.h"

namespace tk07::cli {

namespace {

std::string Verdetto(const Sessione& s) {
    const int n = s.nodo.nSollAg;
    const std::string metodo = NomeMetodo(s.nodo.MetodoVerifica());
    // Nothing failed, but nothing was judged either.
    if (n == 0) return "NESSUN SESTETTO DI SOLLECITAZIONI, nulla da verificare (" + metodo + ")";
    const int falliti = s.esiti.Falliti();
    const std::string quanti = std::to_string(n) + (n == 1 ? " sestetto" : " sestetti");
    if (s.esiti.Incompleta()) {
        return "VERIFICA INCOMPLETA (" + metodo + ", " + quanti + "): " +
               (falliti == 0 ? "una parte non è stata giudicata"
                             : std::to_string(falliti) +
                                   " non verificati, e una parte non è stata "
                                   "giudicata");
    }
    if (falliti == 0) return "NODO VERIFICATO (" + metodo + ", " + quanti + ")";
    return "NODO NON VERIFICATO (" + metodo + ", " + std::to_string(falliti) + " su " + quanti +
           ")";
}

int VerificaFile(Sessione& s, PortaCli& porta, const OpzioniVerifica& opz, const std::string& file,
                 const std::string& nome) {
    int codice = ApriFile(s, porta, file);
    const bool aperto = codice == kUscitaOk;
    if (codice == kUscitaOk) {
        EseguiComando(s, [&] {
            if (!opz.metodo.empty()) {
                ScegliMetodo(s, opz.metodo == "ta" ? Metodo::TA : Metodo::SLU);
            }
            s.nomeFile = nome;
            VerificaSessione(s);
        });
        if (s.fine) {
            codice = s.codiceUscita;
        } else if (!s.RisultatiValidi || s.nodo.nSollAg == 0 || s.esiti.Incompleta()) {
            codice = kUscitaNonPossibile;  // what was not judged has no verdict
        } else {
            codice = s.esiti.verificato ? kUscitaOk : kUscitaNonVerificato;
        }
    }
    if (opz.json) {
        Json j = JsonVerifica(s, file, porta.messaggi, opz.esiti);
        if (!aperto) j["metodo"] = nullptr;
        porta.Stampa(SuRiga(j) + "\n");
        return codice;
    }
    if (opz.csv) {
        if (s.RisultatiValidi) porta.Stampa(CsvVerifica(s, file));
        return codice;
    }
    if (!s.RisultatiValidi) return codice;
    const std::string relazione = PercorsoPiattaforma(s.ultimaVerifica.relazione);
    if (opz.stampa) {
        std::string testo, errore;
        if (LeggiBytes(relazione, testo, errore)) porta.Stampa(testo + "\n");
    }
    porta.Stampa(file + ": " + Verdetto(s) + "\n    relazione: " + relazione + "\n");
    return codice;
}

// The name that the report of each file (by its absolute path) goes by. Reports are named after the
// joint: of two joints of one name the second report gets a name of its own, which is told.
std::map<std::string, std::string> NomiDelleRelazioni(const std::vector<std::string>& file) {
    std::map<std::string, std::string> nomi;
    std::set<std::string> propri, dati;
    for (const std::string& f : file) propri.insert(Minuscolo(NomeBase(f)));
    for (const std::string& f : file) {
        const auto [posto, nuovo] = nomi.emplace(PercorsoAssoluto(f), NomeBase(f));
        if (!nuovo || dati.insert(Minuscolo(posto->second)).second) continue;
        std::string altro;
        for (int k = 2; altro.empty() || propri.contains(Minuscolo(altro)) ||
                        !dati.insert(Minuscolo(altro)).second;
             ++k) {
            altro = NomeBase(f) + "_" + std::to_string(k);
        }
        posto->second = altro;
        Errore(f, "attenzione, un altro nodo ha lo stesso nome: questa relazione si chiama " +
                      NomeSenzaDirettorio(altro));
    }
    return nomi;
}

}  // namespace

int ComandoVerifica(const Avvio& avvio, const OpzioniVerifica& opz) {
    const std::map<std::string, std::string> nomi = NomiDelleRelazioni(opz.file);
    return PerOgniFile(avvio, opz.file,
                       [&](Sessione& s, PortaCli& porta, const std::string& f) {
                           return VerificaFile(s, porta, opz, f, nomi.at(PercorsoAssoluto(f)));
                       },
                       {opz.fermati, opz.apri, opz.fili, opz.csv ? TestataCsv() : ""});
}

int ComandoControlla(const Avvio& avvio, const std::vector<std::string>& file) {
    return PerOgniFile(avvio, file, [](Sessione& s, PortaCli& porta, const std::string& f) {
        const int codice = ApriFile(s, porta, f);
        if (codice != kUscitaOk) return codice;
        porta.messaggi.clear();
        porta.zitta = true;  // what the checks say is this command's output
        EseguiComando(s, [&] {
            RicalcolaNervatura3(s.nodo);
            if (!ControllaDati(s.nodo, s.opz, s.piattaforma)) {
                ControllaBulloni(s.nodo, s.opz, s.piattaforma);
            }
        });
        porta.zitta = false;
        if (s.fine) {
            Errore(f, porta.messaggi.back().testo);
            return s.codiceUscita;
        }
        for (const MessaggioDato& m : porta.messaggi) Stampa(f + ": " + SuUnaRiga(m.testo) + "\n");
        return porta.messaggi.empty() ? kUscitaOk : kUscitaNonVerificato;
    });
}

int ComandoMostra(const Avvio& avvio, const std::string& file, bool json) {
    return PerOgniFile(avvio, {file}, [json](Sessione& s, PortaCli& porta, const std::string& f) {
        const int codice = ApriFile(s, porta, f);
        if (codice != kUscitaOk) return codice;
        Stampa(json ? SuRiga(JsonNodo(s.nodo)) + "\n" : TestoNodo(s));
        return kUscitaOk;
    });
}

int ComandoSezioni(const Avvio& avvio, bool json) {
    const Banco banco(avvio);
    if (!banco.Avviato()) return banco.codice;
    Stampa(json ? SuRiga(JsonSezioni(banco.s->profili)) + "\n" : TestoSezioni(banco.s->profili));
    return kUscitaOk;
}

int ComandoMateriali(const Avvio& avvio, bool json) {
    const Banco banco(avvio);
    if (!banco.Avviato()) return banco.codice;
    Stampa(json ? SuRiga(JsonMateriali(banco.s->mat)) + "\n" : TestoMateriali(banco.s->mat));
    return kUscitaOk;
}

int ComandoSessione(const Avvio& avvio, bool avviaProgrammi) {
    Protocollo protocollo(avvio, PiattaformaMuta(), avviaProgrammi);
    const auto rispondi = [](const std::string& riga) {
        Stampa(riga + "\n");
        std::fflush(stdout);
    };
    rispondi(protocollo.AvviaSessione());
    std::string riga;
    while (!protocollo.Fine() && std::getline(std::cin, riga)) {
        if (!Taglia(riga).empty()) rispondi(protocollo.Rispondi(riga));
    }
    return protocollo.CodiceUscita();
}

int ComandoInizializza(const Avvio& avvio, const std::string& destinazione) {
    const std::string origine = avvio.diroot ? *avvio.diroot : avvio.dirProgramma + "/..";
    // An installed program has no tree of its own to work in: the first one made is remembered.
    const bool ricorda = ProgrammaInstallato(avvio) && !AlberoRicordato();
    const std::string errore =
        ricorda ? AdottaAlbero(origine, destinazione) : InizializzaAlbero(origine, destinazione);
    if (!errore.empty()) {
        Errore(destinazione, errore);
        return kUscitaUso;
    }
    Stampa(destinazione + ": albero dei direttori pronto\n    per lavorarci: tk07 " +
           (ricorda ? "" : "--diroot " + destinazione + " ") + "verifica " + destinazione +
           "/lavori/esempi/...\n");
    return kUscitaOk;
}

}  // namespace tk07::cli
