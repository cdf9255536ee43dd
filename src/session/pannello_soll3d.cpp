// The load import panel and the panel that picks members by name, colour and line type.

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/testo.h"
#include "modelimport/cerca_aste.h"
#include "modelimport/combinazioni.h"
#include "modelimport/liste.h"
#include "modelimport/struttura.h"
#include "session/gestori.h"
#include "session/importazione.h"

namespace tk07 {

namespace {

using enum TipoControllo;

constexpr DescrizioneControllo kControlli[] = {
    {"NodiTxt", campo, "", "Nodi della struttura: numeri e intervalli separati da virgole"},
    {"Astetxt", campo, "", "Aste che concorrono nei nodi"},
    {"CdCTxt", campo, "", "Casi di carico"},
    {"CdC2Txt", campo, "", "Condizioni di carico"},
    {"SesTxt", campo, "", "Sestetti; 0 per tutti"},
    {"Importa", pulsante, "Importa", "Importa le sollecitazioni nella tabella"},
    {"Chiudi", pulsante, "Chiudi", "Chiude la finestra"},
    {"Cerca(0)", pulsante, "Cerca aste", "Cerca le aste che concorrono nei nodi inseriti"},
    {"Cerca(1)", pulsante, "Trova", "Cerca le aste sul modello"},
    {"Annulla(0)", pulsante, "Annulla", "Svuota l'elenco dei nodi"},
    {"Annulla(1)", pulsante, "Annulla", "Svuota l'elenco delle aste"},
    {"ACdc", pulsante, "Annulla", "Svuota l'elenco dei casi di carico"},
    {"ACdc2", pulsante, "Annulla", "Svuota l'elenco delle condizioni di carico"},
    {"ASes", pulsante, "Annulla", "Svuota l'elenco dei sestetti"},
    {"TuttiCdc", pulsante, "Tutti", ""},
    {"TuttiCdc2", pulsante, "Tutti", "Seleziona tutte le condizioni di carico"},
    {"TuttiSes", pulsante, "Tutti", "Seleziona tutti i sestetti"},
};

// Buttons that clear one text.
constexpr std::pair<const char*, const char*> kSvuota[] = {{"Annulla(0)", "NodiTxt"},
                                                           {"Annulla(1)", "Astetxt"},
                                                           {"ACdc", "CdCTxt"},
                                                           {"ACdc2", "CdC2Txt"},
                                                           {"ASes", "SesTxt"}};

void CostruisciSoll3D(Sessione& s) {
    Pannello& p = s.Soll3D;
    p = Pannello{};
    p.titolo = "Importa sollecitazioni 3D";
    AggiungiControlli(p, kControlli);
    p["TuttiCdc"].suggerimento =
        s.nodo.MetodoVerifica() == Metodo::TA
            ? "Seleziona tutti i casi di carico per la verifica alle T.A."
            : "Seleziona tutti i casi di carico per la verifica agli S.L.U.";
}

void TuttiICasi(Sessione& s) {
    Combinazioni comb;
    if (LeggiCombinazioni(s.dir.dirLavoro, comb, s.piattaforma)) {
        s.Soll3D["CdCTxt"].testo = ListaCasi(comb, s.nodo.MetodoVerifica());
    }
}

void TutteLeCondizioni(Sessione& s) {
    int numero = 0;
    const EsitoStr esito =
        NumeroCondizioni(s.dir.dirLavoro, numero, StrVecchia::termina, s.piattaforma);
    if (esito == EsitoStr::fineProgramma) return TerminaProgramma(s);
    if (esito == EsitoStr::bene) s.Soll3D["CdC2Txt"].testo = ListaCondizioni(numero);
}

void TrovaAste(Sessione& s) {
    constexpr int kTipoAste = 2;
    std::string lista = s.Soll3D["NodiTxt"].testo;
    if (ChiamaTrova(s.dir, "Cerca aste", kTipoAste, lista, s.piattaforma)) {
        s.Soll3D["Astetxt"].testo = lista;
    }
}

void PremiSoll3D(Sessione& s, const NomeControllo& n) {
    Pannello& p = s.Soll3D;
    const std::string nome = n.indice >= 0 ? ConIndice(n.base, n.indice) : n.base;
    for (const auto& [pulsanteVuota, campoVuoto] : kSvuota) {
        if (nome == pulsanteVuota) p[campoVuoto].testo.clear();
    }
    if (nome == "Chiudi") ChiudiPannello(s, kGestoreSoll3D);
    if (nome == "Cerca(0)") ApriPannello(s, kGestoreSelezione);
    if (nome == "Cerca(1)") TrovaAste(s);
    if (nome == "TuttiCdc") TuttiICasi(s);
    if (nome == "TuttiCdc2") TutteLeCondizioni(s);
    if (nome == "TuttiSes") p["SesTxt"].testo = "0";
    if (nome == "Importa") {
        s.piattaforma.puntatore(11);
        ImportaNelNodo(s, TestiSoll3D(s), s.InsDati["CheckMaxMin"].valore == 1);
        s.piattaforma.puntatore(0);
        pnn1_aggiorna_sollecitazioni(s, -1);
    }
}

void CampoDi(Sessione& s, const NomeControllo& n, const std::string& testo, int) {
    s.Soll3D[n.base].testo = testo;
}

}  // namespace

TestiImportazione TestiSoll3D(const Sessione& s) {
    const Pannello& p = s.Soll3D;
    return {p["NodiTxt"].testo, p["Astetxt"].testo, p["CdCTxt"].testo, p["CdC2Txt"].testo,
            p["SesTxt"].testo};
}

void PreparaSoll3D(Sessione& s) {
    std::string nodi;
    for (int i = 1; i <= s.nodo.numNodi; ++i) {
        nodi += (i > 1 ? "," : "") + std::to_string(s.nodo.NomeNodi(i));
    }
    s.Soll3D["NodiTxt"].testo = nodi;
}

const GestorePannello kGestoreSoll3D = {
    .nome = "Soll3D",
    .pannello = &Sessione::Soll3D,
    .costruisci = CostruisciSoll3D,
    .premi = PremiSoll3D,
    .campo = CampoDi,
};

namespace {

constexpr int kColori = 10, kLinee = 5;

constexpr DescrizioneControllo kSelezione[] = {
    {"Nomi", casella, "Nome", ""},
    {"NomiOp(0)", opzione, "Tutti", "Cliccare per selezionare le aste con qualunque nome"},
    {"NomiOp(1)", opzione, "Intervallo",
     "Cliccare per selezionare le aste con il nome compreso in un'intervallo"},
    {"NomiTxt(0)", campo, "", "Inserire il limite minimo dell'intervallo"},
    {"NomiTxt(1)", campo, "", "Inserire il limite massimo dell'intervallo"},
    {"Colori", casella, "Colore", ""},
    {"ColoriOp(0)", opzione, "Tutti", "Cliccare per selezionare le aste di tutti i colori"},
    {"ColoriOp(1)", opzione, "Scelti", "Cliccare per selezionare le aste dei colori desiderati"},
    {"Linee", casella, "Tipo di linea", ""},
    {"LineeOp(0)", opzione, "Tutti",
     "Cliccare per selezionare le aste con qualunque tipo di linea"},
    {"LineeOp(1)", opzione, "Scelti",
     "Cliccare per selezionare le aste con i tipi di linea desiderati"},
    {"Cerca", pulsante, "Cerca", "Cliccare per importare i nomi delle aste trovate"},
    {"Chiudi", pulsante, "Chiudi", "Cliccare per chiudere la finestra"},
    {"SelezioneStr_", etichetta, "", "Aste trovate"},
    {"TimerSel", timer, "", ""},
};

void CostruisciSelezione(Sessione& s) {
    Pannello& p = s.selezione;
    p = Pannello{};
    p.titolo = "Seleziona aste";
    AggiungiControlli(p, kSelezione);
    for (int i = 0; i < kColori; ++i) {
        p.controlli[ConIndice("ColoriCh", i)] = NuovoControllo(casella, "", "Colore");
    }
    for (int i = 0; i < kLinee; ++i) {
        p.controlli[ConIndice("LineeCh", i)] = NuovoControllo(casella, "", "Tipo di linea");
    }
    p["TimerSel"].abilitato = false;
    for (const char* nome : {"NomiOp(0)", "ColoriOp(0)", "LineeOp(0)"}) p[nome].valore = 1;
}

bool Filtra(const Pannello& p, const char* gruppo) {
    return p[gruppo].valore == 1 && p[std::string(gruppo) + "Op(1)"].valore == 1;
}

// The ticked boxes of a group, when the group filters.
std::optional<std::vector<int>> Spuntate(const Pannello& p, const char* gruppo, int quante) {
    if (!Filtra(p, gruppo)) return std::nullopt;
    std::vector<int> scelte;
    for (int i = 0; i < quante; ++i) {
        if (p[ConIndice(std::string(gruppo) + "Ch", i)].valore == 1) scelte.push_back(i);
    }
    return scelte;
}

// Members at every node of the import panel's list, behind one another.
void Cerca(Sessione& s) {
    Pannello& p = s.selezione;
    std::vector<short> nodi;
    if (!LeggiLista(s.Soll3D["NodiTxt"].testo, nodi)) {
        MostraErrore(s.piattaforma, "Inserimento dati errato");
        return;
    }
    FiltroAste f;
    if (Filtra(p, "Nomi")) {
        // Beyond every member's number: no need to go further.
        const auto limite = [&](const char* nome) {
            return static_cast<int>(std::clamp(ValoreIniziale(p[nome].testo), -1e9, 1e9));
        };
        f.nomi = {limite("NomiTxt(0)"), limite("NomiTxt(1)")};
    }
    f.colori = Spuntate(p, "Colori", kColori);
    f.linee = Spuntate(p, "Linee", kLinee);
    std::string trovate;
    for (const short nodo : nodi) {
        f.nodo = nodo;
        std::string diQuesto;
        const EsitoStr esito =
            CercaAste(s.dir.dirLavoro, f, StrVecchia::termina, diQuesto, s.piattaforma);
        if (esito == EsitoStr::fineProgramma) return TerminaProgramma(s);
        if (esito != EsitoStr::bene) continue;
        trovate += (trovate.empty() ? "" : ",") + diQuesto;
    }
    if (trovate.empty()) return;
    p["SelezioneStr_"].testo = trovate;
    s.Soll3D["Astetxt"].testo = trovate;
}

void PremiSelezione(Sessione& s, const NomeControllo& n) {
    if (n.base == "Cerca") Cerca(s);
    if (n.base == "Chiudi") ChiudiPannello(s, kGestoreSelezione);
}

void CampoSelezione(Sessione& s, const NomeControllo& n, const std::string& testo, int) {
    s.selezione[ConIndice(n.base, n.indice)].testo = testo;
}

void CasellaSelezione(Sessione& s, const NomeControllo& n, int valore) {
    s.selezione[n.indice >= 0 ? ConIndice(n.base, n.indice) : n.base].valore = valore != 0 ? 1 : 0;
}

void OpzioneSelezione(Sessione& s, const NomeControllo& n) {
    for (int i = 0; i < 2; ++i) {
        s.selezione[ConIndice(n.base, i)].valore = i == n.indice ? 1 : 0;
    }
}

}  // namespace

const GestorePannello kGestoreSelezione = {
    .nome = "selezione",
    .pannello = &Sessione::selezione,
    .costruisci = CostruisciSelezione,
    .premi = PremiSelezione,
    .campo = CampoSelezione,
    .casella = CasellaSelezione,
    .opzione = OpzioneSelezione,
};

}  // namespace tk07
