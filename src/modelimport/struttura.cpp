#include "modelimport/struttura.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/liste.h"

namespace tk07 {

namespace {

// Mark of what the file has not shown.
constexpr int kNonTrovato = -1;

std::string NomeFile(std::string_view dirLavoro) { return std::string(dirLavoro) + kFileStruttura; }

// From the top to the line with the number of nodes.
EsitoStr LeggiIntestazione(LettoreStr& l, StrVecchia vecchia, const Piattaforma& p) {
    std::string riga = l.Riga();
    if (l.Guasto()) return EsitoStr::bene;  // the caller tells, in its own words
    const EsitoStr esito = ControllaVersioneStr(l, riga, vecchia, p);
    if (esito == EsitoStr::bene) l.Salta(l.Primo(riga));
    return esito;
}

NodoStr LeggiNodo(LettoreStr& l) {
    NodoStr n;
    std::string riga = l.Riga();
    n.interno = static_cast<int>(l.Togli(riga));
    n.posto = true;
    for (double* x : {&n.x, &n.y, &n.z}) {
        const auto valore = ValoreStretto(EstraiCampo(riga));
        n.posto = n.posto && valore.has_value();
        *x = valore.value_or(0.0);
    }
    n.numero = static_cast<int>(l.Conteggio());
    return n;
}

AstaStr LeggiAsta(LettoreStr& l) {
    AstaStr a;
    std::string riga = l.Riga();
    a.interno1 = static_cast<int>(l.Togli(riga));
    a.interno2 = static_cast<int>(l.Togli(riga));
    riga = l.Riga();
    for (int* x : {&a.numero, &a.sezione, &a.colore, &a.linea})
        *x = static_cast<int>(l.Togli(riga));
    return a;
}

// A listed member as the file has it.
struct AstaTrovata {
    int record = kNonTrovato;
    short estremo = 1;
    int nodo = 1;
};

}  // namespace

LettoreStr::LettoreStr(std::string_view dirLavoro) {
    FileLetto f = LeggiRighe(NomeFile(dirLavoro));
    guasto_ = !f.riuscito;
    righe_ = std::move(f.righe);
}

std::string LettoreStr::Riga() {
    if (i_ >= righe_.size()) guasto_ = true;
    return guasto_ ? std::string() : righe_[i_++];
}

void LettoreStr::Salta(long righe) {
    if (righe <= 0) return;
    if (static_cast<std::size_t>(righe) > righe_.size() - i_) {
        guasto_ = true;
        return;
    }
    i_ += static_cast<std::size_t>(righe);
}

long LettoreStr::Togli(std::string& riga) {
    const double x = Arrotonda(
        NumeroIniziale(EstraiCampo(riga)).value_or(std::numeric_limits<double>::infinity()), 0);
    if (x < std::numeric_limits<int>::min() || x > std::numeric_limits<int>::max()) {
        guasto_ = true;
        return 0;
    }
    return static_cast<long>(x);
}

EsitoStr ControllaVersioneStr(LettoreStr& lettore, std::string& riga, StrVecchia vecchia,
                              const Piattaforma& p) {
    if (Contiene(Minuscolo(riga), "release")) {
        riga = lettore.Riga();
        return EsitoStr::bene;
    }
    MostraErrore(p,
                 "Versione 3.8 o precedente. Caricare e risalvare la struttura in 'Ambiente "
                 "Grafico'",
                 "ATTENZIONE!");
    // Such a file has no stamp: its first line stands where the second is expected, and the numbers
    // that follow are whatever stands there. The box tells; what does not fit is a fault later on.
    return vecchia == StrVecchia::termina ? EsitoStr::fineProgramma : EsitoStr::bene;
}

EsitoStr LeggiStruttura(std::string_view dirLavoro, const Nodo& nodo, AsteImport& aste,
                        StrVecchia vecchia, const Piattaforma& p) {
    const auto fallito = [&](const char* testo) {
        MostraErrore(p, testo);
        return EsitoStr::errore;
    };
    constexpr const char* kErrato = "File struttura errato o mancante";
    LettoreStr l(dirLavoro);
    const EsitoStr esito = LeggiIntestazione(l, vecchia, p);
    if (esito != EsitoStr::bene) return esito;

    // Each number is looked up once a record, however often the lists repeat it.
    std::unordered_map<int, int> internoDi;  // node number -> internal index
    for (int i = 1; i <= nodo.numNodi; ++i) internoDi.emplace(nodo.NomeNodi(i), kNonTrovato);
    for (long n = l.Conteggio(); n > 0 && !l.Guasto(); --n) {
        const NodoStr letto = LeggiNodo(l);
        const auto it = internoDi.find(letto.numero);
        if (it != internoDi.end() && !l.Guasto()) it->second = letto.interno;
    }
    if (l.Guasto()) return fallito(kErrato);

    std::unordered_map<int, int> postoDi;  // internal index -> index in NomeNodi, the first
    for (int i = 1; i <= nodo.numNodi; ++i) {
        const int interno = internoDi.at(nodo.NomeNodi(i));
        if (interno == kNonTrovato) return fallito("Uno o più nodi inesistenti");
        postoDi.emplace(interno, i);
    }

    std::unordered_map<int, AstaTrovata> trovate;
    for (const short numero : aste.asteLista) trovate.emplace(numero, AstaTrovata{});
    const long numeroAste = l.Conteggio();
    for (int k = 1; k <= numeroAste && !l.Guasto(); ++k) {
        const AstaStr letta = LeggiAsta(l);
        const auto it = trovate.find(letta.numero);
        if (it == trovate.end() || l.Guasto()) continue;
        const auto primo = postoDi.find(letta.interno1), secondo = postoDi.find(letta.interno2);
        if (primo != postoDi.end()) {
            it->second = {k, 1, primo->second};
        } else if (secondo != postoDi.end()) {
            it->second = {k, 2, secondo->second};
        } else {
            return fallito("Mancata corrispondenza fra aste e nodi");
        }
    }
    if (l.Guasto()) return fallito(kErrato);

    aste.asteRecord.clear();
    aste.asteEstremo.clear();
    aste.asteNodo.clear();
    for (const short numero : aste.asteLista) {
        const AstaTrovata& a = trovate.at(numero);
        aste.asteRecord.push_back(a.record);
        aste.asteEstremo.push_back(a.estremo);
        aste.asteNodo.push_back(a.nodo);
    }
    return EsitoStr::bene;
}

EsitoStr SezioneAsta(std::string_view dirLavoro, int numeroAsta, int& sezione, StrVecchia vecchia,
                     const Piattaforma& p) {
    sezione = -1;
    LettoreStr l(dirLavoro);
    const EsitoStr esito = LeggiIntestazione(l, vecchia, p);
    if (esito != EsitoStr::bene) return esito;
    l.Salta(2 * l.Conteggio());
    for (long n = l.Conteggio(); n > 0 && !l.Guasto(); --n) {
        const AstaStr a = LeggiAsta(l);
        if (l.Guasto() || a.numero != numeroAsta) continue;
        sezione = a.sezione;
        return EsitoStr::bene;
    }
    if (!l.Guasto()) return EsitoStr::bene;
    MostraAvviso(p, "Errore in lettura del file STRUTTUR.STR", "ARGANOWIN");
    return EsitoStr::errore;
}

EsitoStr NumeroCondizioni(std::string_view dirLavoro, int& numero, StrVecchia vecchia,
                          const Piattaforma& p) {
    numero = 0;
    LettoreStr l(dirLavoro);
    const EsitoStr esito = LeggiIntestazione(l, vecchia, p);
    if (esito != EsitoStr::bene) return esito;
    for (const long righe : {2, 2, 2, 1, 1, 1}) l.Salta(righe * l.Conteggio());
    const long n = l.Conteggio();
    if (l.Guasto() || n > static_cast<long>(kMassimoVoci)) {
        MostraErrore(p, "ERRORE: STRUTTUR.STR errato o mancante");
        return EsitoStr::errore;
    }
    numero = static_cast<int>(n);
    return EsitoStr::bene;
}

std::string ListaCondizioni(int numero) {
    std::vector<int> tutte(static_cast<std::size_t>(std::max(numero, 0)));
    std::iota(tutte.begin(), tutte.end(), 1);
    return ComponiLista(tutte);
}

EsitoStr LeggiModello(std::string_view dirLavoro, ModelloStr& modello, StrVecchia vecchia,
                      const Piattaforma& p) {
    modello = {};
    LettoreStr l(dirLavoro);
    const EsitoStr esito = LeggiIntestazione(l, vecchia, p);
    if (esito != EsitoStr::bene) return esito;
    for (long n = l.Conteggio(); n > 0 && !l.Guasto(); --n) modello.nodi.push_back(LeggiNodo(l));
    for (long n = l.Conteggio(); n > 0 && !l.Guasto(); --n) modello.aste.push_back(LeggiAsta(l));
    if (!l.Guasto()) return EsitoStr::bene;
    modello = {};
    MostraErrore(p, "Errore: file " + PercorsoMostrato(NomeFile(dirLavoro)) + " errato o mancante.",
                 "ERRORE");
    return EsitoStr::errore;
}

}  // namespace tk07
