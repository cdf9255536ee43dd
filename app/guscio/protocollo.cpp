#include "guscio/protocollo.h"

#include <deque>

#include "guscio/json_nodo.h"
#include "guscio/porta_cli.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

// A request that cannot be understood.
struct RichiestaErrata {
    std::string testo;
};

std::string Testo(const Json& r, const char* chiave) {
    if (!r.contains(chiave) || !r[chiave].is_string()) {
        throw RichiestaErrata{std::string("manca il testo \"") + chiave + "\""};
    }
    return r[chiave].get<std::string>();
}

double Numero(const Json& r, const char* chiave) {
    if (!r.contains(chiave) || !r[chiave].is_number()) {
        throw RichiestaErrata{std::string("manca il numero \"") + chiave + "\""};
    }
    return r[chiave].get<double>();
}

int Intero(const Json& r, const char* chiave) {
    const double x = Numero(r, chiave);
    if (!(x >= -1e9 && x <= 1e9) || x != static_cast<double>(static_cast<long>(x))) {
        throw RichiestaErrata{std::string("numero intero errato \"") + chiave + "\""};
    }
    return static_cast<int>(x);
}

// A column of a report, or a number by its commands.
std::string TestoFormattato(const Json& r, const Piattaforma& p) {
    const std::string comando = Testo(r, "formatta");
    if (!comando.empty() || !r.contains("larghezza")) {
        return Formatta(Numero(r, "valore"), comando,
                        r.contains("fattore") ? Numero(r, "fattore") : 1.0, p);
    }
    const int larghezza = Intero(r, "larghezza");
    if (larghezza < 0 || larghezza > 32767) throw RichiestaErrata{"larghezza errata"};
    const Separatore sep = r.value("separatore", false) ? Separatore::barra : Separatore::no;
    const Allinea al = r.contains("allineamento") && Testo(r, "allineamento") == "R"
                           ? Allinea::destra
                           : Allinea::sinistra;
    if (r.contains("valore") && r["valore"].is_string()) {
        return CampoTesto(std::string_view(Testo(r, "valore")), larghezza, sep, al);
    }
    if (larghezza < 2) throw RichiestaErrata{"larghezza errata"};
    if (r.value("intero", false)) return CampoTesto(Intero(r, "valore"), larghezza, sep, al);
    return CampoTesto(Numero(r, "valore"), larghezza, sep, al);
}

}  // namespace

struct Protocollo::Stato {
    Avvio avvio;
    bool avviaProgrammi = false;
    Sessione s;
    std::deque<Json> risposte;
    Json messaggi = Json::array(), dialoghi = Json::array(), programmi = Json::array();

    Json Prossima() {
        if (risposte.empty()) return "niente";
        Json r = risposte.front();
        risposte.pop_front();
        return r;
    }

    void CollegaPorta(Piattaforma base) {
        base.messaggio = [this](const std::string& testo, const std::string& titolo, Segno segno,
                                Pulsanti pulsanti) {
            const Risposta r = Prossima() == "Annulla" ? Risposta::Annulla : Risposta::OK;
            messaggi.push_back({{"testo", testo},
                                {"titolo", titolo},
                                {"segno", NomeSegno(segno)},
                                {"pulsanti", pulsanti == Pulsanti::OKAnnulla ? "OKAnnulla" : "OK"},
                                {"risposta", r == Risposta::OK ? "OK" : "Annulla"}});
            return r;
        };
        base.scegliFile = [this](const RichiestaFile& rf) -> std::optional<FileScelto> {
            const Json r = Prossima();
            const bool dato = r.is_object() && r.contains("file") && r["file"].is_string();
            dialoghi.push_back({{"modo", rf.modo == ModoFile::apri ? "apri" : "salva"},
                                {"titolo", rf.titolo},
                                {"estensione", rf.estensione},
                                {"filtro", rf.filtro},
                                {"direttorio", rf.direttorio},
                                {"nome", rf.nomeIniziale},
                                {"sovrascrittura", rf.chiediSovrascrittura},
                                {"risposta", dato ? r : Json(nullptr)}});
            if (!dato) return std::nullopt;
            const int filtro = r.contains("filtro") && r["filtro"].is_number_integer()
                                   ? r["filtro"].get<int>()
                                   : 1;
            return FileScelto{r["file"].get<std::string>(), filtro};
        };
        base.avvia = [this](const std::string& programma, const std::vector<std::string>& argomenti,
                            bool attendi) {
            programmi.push_back(
                {{"programma", programma}, {"argomenti", argomenti}, {"attendi", attendi}});
            return !avviaProgrammi || AvviaProgramma(programma, argomenti, attendi);
        };
        s.piattaforma = std::move(base);
    }

    std::string Esito(const std::string& errore, const Json& valore) {
        Json j;
        j["esito"] = errore.empty() ? "ok" : "errore";
        if (!errore.empty()) j["errore"] = errore;
        j["messaggi"] = std::exchange(messaggi, Json::array());
        j["dialoghi"] = std::exchange(dialoghi, Json::array());
        j["programmi"] = std::exchange(programmi, Json::array());
        j["fine"] = s.fine;
        if (!valore.is_null()) j["valore"] = valore;
        risposte.clear();
        return SuRiga(j);
    }

    Json Leggi(const std::string& cosa) {
        if (cosa == "nodo") return JsonNodo(s.nodo);
        if (cosa == "risultati") return JsonVerifica(s, s.nomeFile, {});
        if (cosa == "pannello") {
            Json j = Json::object();
            for (std::size_t i = 0; i < s.pila.size(); ++i) {
                j[s.pila[i]] = JsonPannello(*PannelliAperti(s)[i]);
            }
            return j;
        }
        if (cosa == "sezioni") return JsonSezioni(s.profili);
        if (cosa == "materiali") return JsonMateriali(s.mat);
        if (cosa == "opzioni") return JsonOpzioni(s.opz);
        if (cosa == "unita") return JsonUnita(s.unita);
        if (cosa == "scena") return JsonScena(s.scena);
        if (cosa == "direttori") return JsonDirettori(s.dir);
        if (cosa == "disegno") return JsonDisegno(s.disegno);
        throw RichiestaErrata{"lettura sconosciuta: " + cosa};
    }

    // Carries out the request; returns what is wrong with it, or the empty text.
    std::string Esegui(const Json& r, Json& valore) {
        const std::string pannello = r.contains("pannello") ? Testo(r, "pannello") : "";
        if (r.contains("campo")) {
            return ScriviCampo(s, Testo(r, "campo"), Testo(r, "testo"),
                               r.contains("tasto") ? Intero(r, "tasto") : 0, pannello);
        }
        if (r.contains("lista")) {
            return r.contains("voce")
                       ? ScegliVoce(s, Testo(r, "lista"), Testo(r, "voce"), pannello)
                       : ScegliVoce(s, Testo(r, "lista"), Intero(r, "indice"), pannello);
        }
        if (r.contains("casella")) {
            return ImpostaCasella(s, Testo(r, "casella"), Intero(r, "valore"), pannello);
        }
        if (r.contains("opzione")) return ScegliOpzione(s, Testo(r, "opzione"), pannello);
        if (r.contains("premi")) return PremiPulsante(s, Testo(r, "premi"), pannello);
        if (r.contains("doppioclic")) return DoppioClic(s, Testo(r, "doppioclic"), pannello);
        if (r.contains("clic")) return Clic(s, Testo(r, "clic"), pannello);
        if (r.contains("scorri")) {
            return Scorri(s, Testo(r, "scorri"), Intero(r, "valore"), pannello);
        }
        if (r.contains("mouse")) {
            const std::string evento = Testo(r, "evento");
            if (evento != "premi" && evento != "muovi") return "evento sconosciuto: " + evento;
            return Mouse(s, Testo(r, "mouse"),
                         evento == "premi" ? EventoMouse::premi : EventoMouse::muovi,
                         Numero(r, "x"), Numero(r, "y"), pannello);
        }
        if (r.contains("timer")) return Timer(s, Testo(r, "timer"), pannello);
        if (r.contains("formatta")) {
            valore = TestoFormattato(r, s.piattaforma);
            return {};
        }
        if (r.contains("leggi")) {
            valore = Leggi(Testo(r, "leggi"));
            return {};
        }
        return "richiesta sconosciuta";
    }
};

Protocollo::Protocollo(const Avvio& avvio, Piattaforma base, bool avviaProgrammi)
    : stato_(std::make_unique<Stato>()) {
    stato_->avvio = avvio;
    stato_->avviaProgrammi = avviaProgrammi;
    stato_->CollegaPorta(std::move(base));
}

Protocollo::~Protocollo() = default;

std::string Protocollo::AvviaSessione() {
    Sessione& s = stato_->s;
    EseguiComando(s, [&] {
        if (!Avvia(s, stato_->avvio)) {
            s.fine = true;
            s.codiceUscita = kUscitaAvvio;
        }
    });
    return stato_->Esito({}, nullptr);
}

std::string Protocollo::Rispondi(const std::string& riga) {
    Json valore;
    std::string errore;
    try {
        const Json r = Json::parse(riga, nullptr, false);
        if (!r.is_object()) throw RichiestaErrata{"la riga non è un oggetto JSON"};
        if (r.contains("risposte")) {
            if (!r["risposte"].is_array()) throw RichiestaErrata{"\"risposte\" non è una lista"};
            for (const Json& x : r["risposte"]) stato_->risposte.push_back(x);
        }
        errore = stato_->Esegui(r, valore);
    } catch (const RichiestaErrata& e) {
        errore = e.testo;
    } catch (const Json::exception& e) {
        errore = std::string("richiesta errata: ") + e.what();
    } catch (...) {  // what no command holds back ends the session as a command's fault does
        EseguiComando(stato_->s, [] { throw; });
    }
    return stato_->Esito(errore, valore);
}

bool Protocollo::Fine() const { return stato_->s.fine; }
int Protocollo::CodiceUscita() const { return stato_->s.codiceUscita; }
const Sessione& Protocollo::LaSessione() const { return stato_->s; }

}  // namespace tk07
