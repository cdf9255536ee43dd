// Requests to the panels: finds the panel and the control, checks that it can be used, and calls
// the panel's operation inside the boundary that catches fatal faults.

#include <algorithm>
#include <array>

#include "session/gestori.h"
#include "session/sessione.h"

namespace tk07 {

namespace {

const std::array<const GestorePannello*, 7>& Gestori() {
    static const std::array<const GestorePannello*, 7> g = {
        &kGestoreInsDati,    &kGestoreFormBulloni, &kGestorePropMateriali, &kGestoreFormOpz_Cond,
        &kGestoreFormColori, &kGestoreSoll3D,      &kGestoreSelezione};
    return g;
}

const GestorePannello* GestoreDi(const std::string& nome) {
    for (const GestorePannello* g : Gestori()) {
        if (nome == g->nome) return g;
    }
    return nullptr;
}

constexpr const char* kNonPrevista = "operazione non prevista dal pannello";

struct Bersaglio {
    const GestorePannello* gestore = nullptr;
    Controllo* controllo = nullptr;
    std::string errore;
};

// The control meant by a request, on the named panel or on the topmost open one that has it.
Bersaglio Trova(Sessione& s, const std::string& nome, const std::string& pannello) {
    Bersaglio b;
    for (auto it = s.pila.rbegin(); it != s.pila.rend() && b.controllo == nullptr; ++it) {
        if (!pannello.empty() && pannello != *it) continue;
        const GestorePannello* g = GestoreDi(*it);
        Pannello& p = s.*g->pannello;
        if (p.Ha(nome)) {
            b.gestore = g;
            b.controllo = &p[nome];
        }
    }
    if (b.controllo == nullptr) {
        const bool chiuso =
            !pannello.empty() && std::find(s.pila.begin(), s.pila.end(), pannello) == s.pila.end();
        b.errore = chiuso ? "pannello non aperto: " + pannello : "controllo sconosciuto: " + nome;
    }
    return b;
}

// The same for a control of a kind, which must be visible and enabled.
Bersaglio TrovaUsabile(Sessione& s, const std::string& nome, const std::string& pannello,
                       TipoControllo tipo) {
    Bersaglio b = Trova(s, nome, pannello);
    if (b.controllo == nullptr) return b;
    if (b.controllo->tipo != tipo) {
        b.errore = "il controllo " + nome + " non è di questo tipo";
    } else if (!b.controllo->visibile) {
        b.errore = "controllo non visibile: " + nome;
    } else if (!b.controllo->abilitato) {
        b.errore = "controllo non abilitato: " + nome;
    }
    return b;
}

// Runs the panel's operation `f` with its arguments, if it has one.
template <class Funzione, class... Argomenti>
std::string Esegui(Sessione& s, const Bersaglio& b, Funzione f, Argomenti... argomenti) {
    if (!b.errore.empty()) return b.errore;
    if (f == nullptr) return kNonPrevista;
    EseguiComando(s, [&] { f(s, argomenti...); });
    return {};
}

}  // namespace

void ApriPannello(Sessione& s, const GestorePannello& g) {
    if (std::find(s.pila.begin(), s.pila.end(), g.nome) != s.pila.end()) return;
    if (g.costruisci != nullptr) g.costruisci(s);
    (s.*g.pannello).aperto = true;
    s.pila.emplace_back(g.nome);
    s.piattaforma.apriPannello(g.nome);
}

void ChiudiPannello(Sessione& s, const GestorePannello& g) {
    const auto it = std::find(s.pila.begin(), s.pila.end(), g.nome);
    if (it == s.pila.end()) return;
    s.pila.erase(it);
    (s.*g.pannello).aperto = false;
    s.piattaforma.chiudiPannello(g.nome);
}

std::vector<const Pannello*> PannelliAperti(const Sessione& s) {
    std::vector<const Pannello*> aperti;
    for (const std::string& nome : s.pila) aperti.push_back(&(s.*GestoreDi(nome)->pannello));
    return aperti;
}

std::string PremiPulsante(Sessione& s, const std::string& nome, const std::string& pannello) {
    const Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::pulsante);
    return Esegui(s, b, b.gestore ? b.gestore->premi : nullptr, DividiNome(nome));
}

std::string ScriviCampo(Sessione& s, const std::string& nome, const std::string& testo, int tasto,
                        const std::string& pannello) {
    if (nome == "GeoPias(1)") return {};  // no binding: nothing happens
    const Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::campo);
    if (!b.errore.empty()) return b.errore;
    if (b.gestore->campo == nullptr) return kNonPrevista;
    EseguiComando(s, [&] {
        try {
            b.gestore->campo(s, DividiNome(nome), testo, tasto);
        } catch (const ErroreFatale& e) {
            throw ErroreFatale(e.what(), e.Dove().empty() ? "campo " + nome : e.Dove());
        }
    });
    return {};
}

std::string ScegliVoce(Sessione& s, const std::string& nome, int indice,
                       const std::string& pannello) {
    Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::lista);
    if (b.errore.empty() && (indice < 0 || indice >= static_cast<int>(b.controllo->voci.size()))) {
        b.errore = "indice fuori dalla lista " + nome + ": " + std::to_string(indice);
    }
    return Esegui(s, b, b.gestore ? b.gestore->voce : nullptr, DividiNome(nome), indice);
}

std::string ScegliVoce(Sessione& s, const std::string& nome, const std::string& voce,
                       const std::string& pannello) {
    const Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::lista);
    if (!b.errore.empty()) return b.errore;
    const int indice = PosizioneVoce(*b.controllo, voce);
    if (indice < 0) return "voce assente dalla lista " + nome + ": " + voce;
    return ScegliVoce(s, nome, indice, pannello);
}

std::string ImpostaCasella(Sessione& s, const std::string& nome, int valore,
                           const std::string& pannello) {
    const Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::casella);
    return Esegui(s, b, b.gestore ? b.gestore->casella : nullptr, DividiNome(nome), valore);
}

std::string ScegliOpzione(Sessione& s, const std::string& nome, const std::string& pannello) {
    const Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::opzione);
    return Esegui(s, b, b.gestore ? b.gestore->opzione : nullptr, DividiNome(nome));
}

std::string Scorri(Sessione& s, const std::string& nome, int valore, const std::string& pannello) {
    Bersaglio b = TrovaUsabile(s, nome, pannello, TipoControllo::scorrimento);
    if (b.errore.empty() && (valore < b.controllo->minimo || valore > b.controllo->massimo)) {
        b.errore = "valore fuori dai limiti di " + nome + ": " + std::to_string(valore);
    }
    return Esegui(s, b, b.gestore ? b.gestore->scorri : nullptr, DividiNome(nome), valore);
}

std::string DoppioClic(Sessione& s, const std::string& nome, const std::string& pannello) {
    Bersaglio b = Trova(s, nome, pannello);
    if (b.controllo != nullptr && !b.controllo->visibile) {
        b.errore = "controllo non visibile: " + nome;
    }
    return Esegui(s, b, b.gestore ? b.gestore->doppioclic : nullptr, DividiNome(nome));
}

std::string Clic(Sessione& s, const std::string& nome, const std::string& pannello) {
    Bersaglio b = Trova(s, nome, pannello);
    if (b.controllo != nullptr && !b.controllo->visibile) {
        b.errore = "controllo non visibile: " + nome;
    }
    return Esegui(s, b, b.gestore ? b.gestore->clic : nullptr, DividiNome(nome));
}

std::string Mouse(Sessione& s, const std::string& nome, EventoMouse evento, double x, double y,
                  const std::string& pannello) {
    const Bersaglio b = Trova(s, nome, pannello);
    return Esegui(s, b, b.gestore ? b.gestore->mouse : nullptr, DividiNome(nome), evento, x, y);
}

std::string Timer(Sessione& s, const std::string& nome, const std::string& pannello) {
    const Bersaglio b = Trova(s, nome, pannello);
    return Esegui(s, b, b.gestore ? b.gestore->timer : nullptr, nome);
}

}  // namespace tk07
