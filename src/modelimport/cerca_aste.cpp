#include "modelimport/cerca_aste.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/liste.h"

namespace tk07 {

namespace {

constexpr const char* kUscita = "\\TrovaOut.txt";

bool Ammesso(const std::optional<std::vector<int>>& ammessi, int x) {
    return !ammessi || std::find(ammessi->begin(), ammessi->end(), x) != ammessi->end();
}

// Lines with something on them, trimmed; nothing when the file is missing.
std::optional<std::vector<std::string>> RigheUscita(std::string_view dirLavoro) {
    FileLetto f = LeggiRighe(std::string(dirLavoro) + kUscita);
    if (!f.riuscito) return std::nullopt;
    for (std::string& r : f.righe) r = Taglia(r);
    std::erase(f.righe, "");
    return std::move(f.righe);
}

// Writes the input file and runs the tool to its end. False after a box.
bool EseguiRicerca(const Direttori& d, const char* ingresso, const std::string& testo,
                   const char* titoloErrore, const char* programma,
                   const std::vector<std::string>& argomenti, const Piattaforma& p) {
    const std::string uscita = d.dirLavoro + kUscita;
    std::error_code ec;
    std::filesystem::remove(PercorsoPiattaforma(uscita), ec);
    // An old output that stays would be taken for this search's.
    if (EsisteFile(uscita) ||
        !ScriviFile(d.dirLavoro + ingresso, testo, Codifica::windows1252).empty()) {
        MostraAvviso(p,
                     "Impossibile scrivere il file di ingresso. Specificare l'elemento da "
                     "selezionare",
                     titoloErrore);
        return false;
    }
    if (!p.avvia(PercorsoPiattaforma(d.dirProgra + programma), argomenti, true)) {
        MostraErrore(p, "Problemi con l'apertura dell'applicazione di ricerca", "Errore");
        return false;
    }
    return true;
}

}  // namespace

std::string FiltraAste(const ModelloStr& modello, const FiltroAste& filtro) {
    std::optional<int> interno;
    for (const NodoStr& n : modello.nodi) {
        if (n.numero == filtro.nodo) interno = n.interno;
    }
    if (!interno) return {};
    std::vector<int> trovate;
    for (const AstaStr& a : modello.aste) {
        const bool nelNodo = a.interno1 == *interno || a.interno2 == *interno;
        const bool nome =
            !filtro.nomi || (a.numero >= filtro.nomi->first && a.numero <= filtro.nomi->second);
        if (nelNodo && nome && Ammesso(filtro.colori, a.colore) && Ammesso(filtro.linee, a.linea)) {
            trovate.push_back(a.numero);
        }
    }
    return ComponiLista(trovate);
}

EsitoStr CercaAste(std::string_view dirLavoro, const FiltroAste& filtro, StrVecchia vecchia,
                   std::string& lista, const Piattaforma& p) {
    ModelloStr modello;
    const EsitoStr esito = LeggiModello(dirLavoro, modello, vecchia, p);
    if (esito != EsitoStr::bene) return esito;
    const std::string trovate = FiltraAste(modello, filtro);
    if (trovate.empty()) {
        MostraAvviso(p,
                     "Non esiste nessuna asta corrispondente alle caratteristiche selezionate \n"
                     "che concorra nel nodo " +
                         std::to_string(filtro.nodo));
        return EsitoStr::errore;
    }
    lista = trovate;
    return EsitoStr::bene;
}

bool LeggiTrovaOut(std::string_view dirLavoro, std::string& lista) {
    const auto righe = RigheUscita(dirLavoro);
    if (!righe) return false;
    lista.clear();
    for (const std::string& r : *righe) lista.append(lista.empty() ? "" : ",").append(r);
    return true;
}

bool LeggiTrovaOut(std::string_view dirLavoro, NodiTrovati& trovati) {
    const auto righe = RigheUscita(dirLavoro);
    if (!righe) return false;
    trovati = {};
    for (const std::string& r : *righe) {
        std::string resto = r;
        const std::string lettera = Maiuscolo(EstraiCampo(resto));
        const auto x = ValoreStretto(resto);
        if (lettera != "P" && lettera != "S") {
            if (trovati.nodi.empty()) trovati.nodi = r;
        } else if (x && *x >= 1.0 && *x <= std::numeric_limits<short>::max()) {
            (lettera == "P" ? trovati.astaPri : trovati.astaSec) = static_cast<int>(*x);
        }
    }
    return true;
}

bool ChiamaTrova(const Direttori& d, const std::string& titolo, int tipo, std::string& lista,
                 const Piattaforma& p) {
    const std::string ingresso =
        TogliCR(titolo) + "\n" + TogliCR(lista) + "\n" + std::to_string(tipo) + "\n";
    const std::vector<std::string> argomenti = {"|Diroot=" + d.dirRoot + "|",
                                                "|Lavoro=" + PercorsoMostrato(d.dirLavoro) + "|"};
    return EseguiRicerca(d, "\\TrovaIn.txt", ingresso, "ATTENZIONE!", "\\Trova.exe", argomenti,
                         p) &&
           LeggiTrovaOut(d.dirLavoro, lista);
}

bool ChiamaTrovaNod(const Direttori& d, const std::string& titolo, NodiTrovati& trovati,
                    const Piattaforma& p) {
    const std::string ingresso =
        TogliCR(titolo) + "\n7\n2\nP Trave principale\nS Trave secondaria\n";
    return EseguiRicerca(d, "\\TrovaNIn.txt", ingresso, "ATTENZIONE", "\\TrovaNod.exe",
                         {"|Diroot=" + d.dirRoot + "|"}, p) &&
           LeggiTrovaOut(d.dirLavoro, trovati);
}

}  // namespace tk07
