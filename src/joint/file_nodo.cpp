#include "joint/file_nodo.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unordered_map>
#include <unordered_set>

#include "base/chiavi.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "joint/campi_nodo.h"

namespace tk07 {

namespace {

std::string DataSalvataggio(const Orologio& o) {
    std::array<char, 64> buf{};
    std::snprintf(buf.data(), buf.size(), "%04d_%02d_%02d_%02d_%02d", o.anno, o.mese, o.giorno,
                  o.ora, o.minuto);
    return buf.data();
}

std::string ConIndice(const char* chiave, IndiceCampo indice, int i) {
    return indice == IndiceCampo::nessuno ? chiave : std::string(chiave) + " " + std::to_string(i);
}

// What became of a line.
struct Riga {
    bool presa = false;  // one of the keys has it
    std::string chiave;  // which, with its index
    CampoNodo::Presa esito;
    std::string dove;  // of a refusal: which part of the line
};

// A key with the group that gives its index.
struct Posto {
    const GruppoCampi* gruppo = nullptr;
    const CampoNodo* campo = nullptr;
};

const Posto* PostoDi(std::string_view chiaveMinuscola) {
    static const std::unordered_map<std::string_view, Posto> perChiave = [] {
        std::unordered_map<std::string_view, Posto> m;
        for (const GruppoCampi& g : GruppiNodo()) {
            for (const CampoNodo& c : g.campi) m.emplace(c.minuscola, Posto{&g, &c});
        }
        return m;
    }();
    const auto it = perChiave.find(chiaveMinuscola);
    return it == perChiave.end() ? nullptr : &it->second;
}

// Stores the line's value when it carries this key.
Riga PrendiCampo(Nodo& nodo, const RigaChiave& riga, const GruppoCampi& gruppo,
                 const CampoNodo& campo) {
    const auto v = LeggiChiave(riga, campo.minuscola);
    if (!v) return {};
    if (!v->guasto.empty()) {
        return {true, {}, {v->guasto, {}}, std::string(", indice di [") + campo.minuscola + "]"};
    }
    const std::string testo = ": " + riga.testo.substr(0, 60);
    const int i = v->indici.empty() ? 0 : v->indici.front();
    const auto [minimo, massimo] = LimitiDi(gruppo.indice);
    if (i < minimo || i > massimo) {
        return {true, {}, {TestoIndiceFuori(i, minimo, massimo), {}}, testo};
    }
    const bool numero = campo.tipo == TipoCampo::reale || campo.tipo == TipoCampo::booleano;
    return {true, ConIndice(campo.chiave, gruppo.indice, i), campo.metti(nodo, i, v->valore),
            numero ? testo : std::string(", chiave ") + campo.chiave};
}

// Stores the line's value. A line with a single bracket can only be taken by the key behind it;
// with more of them the order of the keys decides.
Riga PrendiRiga(Nodo& nodo, const RigaChiave& riga) {
    const std::string& m = riga.minuscola;
    const std::size_t aperta = m.find('[');
    if (m.find('[', aperta + 1) == std::string::npos) {
        const std::size_t fine = std::min(m.find_first_of(" ]", aperta), m.size());
        const Posto* p = PostoDi(std::string_view(m).substr(aperta + 1, fine - aperta - 1));
        return p == nullptr ? Riga{} : PrendiCampo(nodo, riga, *p->gruppo, *p->campo);
    }
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        for (const CampoNodo& campo : gruppo.campi) {
            if (Riga r = PrendiCampo(nodo, riga, gruppo, campo); r.presa) return r;
        }
    }
    return {};
}

// The first text of the joint that cannot stand in its file, and why; empty when all can.
std::string TestoDaRifiutare(const Nodo& nodo) {
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        const int fine = UltimoIndice(gruppo.indice, nodo);
        for (int i = PrimoIndice(gruppo.indice); i <= fine; ++i) {
            for (const CampoNodo& campo : gruppo.campi) {
                if (campo.tipo != TipoCampo::testo) continue;
                const std::string perche = TestoRifiutato(campo.testo(nodo, i));
                if (!perche.empty())
                    return ConIndice(campo.chiave, gruppo.indice, i) + ": " + perche;
            }
        }
    }
    return {};
}

// Keys that are written for people and never read.
bool ChiaveNota(const RigaChiave& riga) {
    return Contiene(riga.minuscola, "[descrizionetk07") ||
           Contiene(riga.minuscola, "[datasalvataggio");
}

}  // namespace

std::string TestoFileNodo(const Nodo& nodo, const Orologio& adesso) {
    std::string t = std::string("ARGANOWIN [QuestoProgramma=") + kTitoloProgramma +
                    "] [Descrizione=file_TK07] [ReleaseArgano=" + kReleaseSuite +
                    "] [ReleaseQuestoFile=1]\n";
    const auto riga = [&](const std::string& valore, const std::string& chiave) {
        t.append(ScriviChiave(valore, chiave)).append("\n");
    };
    riga("Verifica e disegno di collegamento trave-trave a taglio (TK01)", "DescrizioneTK07");
    riga(DataSalvataggio(adesso), "dataSalvataggio");
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        const int fine = UltimoIndice(gruppo.indice, nodo);
        for (int i = PrimoIndice(gruppo.indice); i <= fine; ++i) {
            for (const CampoNodo& campo : gruppo.campi) {
                riga(campo.testo(nodo, i), ConIndice(campo.chiave, gruppo.indice, i));
            }
        }
    }
    for (const std::string& r : nodo.RigheSconosciute) t.append(r).append("\n");
    return t;
}

bool ScriviFileNodo(const Nodo& nodo, std::string_view percorso, const Piattaforma& p,
                    const std::optional<std::uint64_t>& attesa) {
    std::string errore = TestoDaRifiutare(nodo);
    if (errore.empty()) {
        errore = ScriviFile(percorso, TestoFileNodo(nodo, p.orologio()), Codifica::windows1252,
                            Tenuta::suDisco, attesa);
    }
    if (errore.empty()) return true;
    MostraErrore(p, "File: " + PercorsoMostrato(percorso) + "\n" + errore,
                 "TK07 - SALVATAGGIO NON RIUSCITO");
    return false;
}

bool LeggiRelease(std::string_view percorso, double& releaseArgano, double& releaseFile,
                  bool conMessaggio, const Piattaforma& p) {
    return LeggiRelease(LeggiRighe(percorso), percorso, releaseArgano, releaseFile, conMessaggio,
                        p);
}

bool LeggiRelease(const FileLetto& f, std::string_view percorso, double& releaseArgano,
                  double& releaseFile, bool conMessaggio, const Piattaforma& p) {
    releaseArgano = releaseFile = 0.0;
    if (!f.riuscito || f.righe.empty()) {
        if (conMessaggio) {
            MostraErrore(p,
                         "Errore in lettura del file: " + PercorsoMostrato(percorso) + "\n" +
                             (f.riuscito ? "file vuoto" : f.errore),
                         "LETTURA RELEASE");
        }
        return false;
    }
    std::string valore;
    const std::string& riga = f.righe.front();
    if (LeggiParametro(riga, "RELEASE", valore, "=", "[]") ||
        LeggiParametro(riga, "ReleaseArgano", valore, "=", "[]")) {
        releaseArgano = ValoreIniziale(valore);
    }
    if (LeggiParametro(riga, "ReleaseQuestoFile", valore, "=", "[]")) {
        releaseFile = ValoreIniziale(valore);
    }
    return true;
}

std::optional<GuastoNodo> ProvaFileNodo(Nodo& nodo, std::string_view percorso, NoteLettura* note) {
    return ProvaFileNodo(nodo, LeggiRighe(percorso), percorso, note);
}

std::optional<GuastoNodo> ProvaFileNodo(Nodo& nodo, const FileLetto& f, std::string_view percorso,
                                        NoteLettura* note) {
    const std::string nome = PercorsoMostrato(percorso);
    if (!f.riuscito) return GuastoNodo{f.errore, {}, true};
    Nodo letto = nodo;  // a fault on the way leaves the joint as it was
    letto.Esposizione = letto.TipoVer = 0;
    letto.RigheSconosciute.clear();
    letto.NomiAssenti.clear();
    std::unordered_set<std::string> viste;
    for (std::size_t i = 1; i < f.righe.size(); ++i) {
        if (f.righe[i].find('[') == std::string::npos) continue;
        const RigaChiave riga(f.righe[i]);
        const std::string numero = "riga " + std::to_string(i + 1);
        Riga r = PrendiRiga(letto, riga);
        if (!r.esito.rifiuto.empty()) {
            return GuastoNodo{r.esito.rifiuto, nome + ", " + numero + r.dove};
        }
        if (!r.presa && !ChiaveNota(riga) && riga.testo.find(']') != std::string::npos) {
            letto.RigheSconosciute.push_back(riga.testo);
        }
        if (!r.presa || note == nullptr) continue;
        if (!r.esito.nota.empty()) {
            note->Valori.push_back(numero + ", chiave " + r.chiave + ": " + r.esito.nota);
        }
        viste.insert(std::move(r.chiave));
    }
    if (note != nullptr) {
        for (const GruppoCampi& gruppo : GruppiNodo()) {
            const int fine = UltimoIndice(gruppo.indice, letto);
            for (int i = PrimoIndice(gruppo.indice); i <= fine; ++i) {
                for (const CampoNodo& campo : gruppo.campi) {
                    std::string chiave = ConIndice(campo.chiave, gruppo.indice, i);
                    if (!viste.contains(chiave)) note->ChiaviMancanti.push_back(std::move(chiave));
                }
            }
        }
    }
    nodo = std::move(letto);
    return std::nullopt;
}

bool LeggiFileNodo(Nodo& nodo, std::string_view percorso, const Piattaforma& p, NoteLettura* note) {
    return LeggiFileNodo(nodo, LeggiRighe(percorso), percorso, p, note);
}

bool LeggiFileNodo(Nodo& nodo, const FileLetto& f, std::string_view percorso, const Piattaforma& p,
                   NoteLettura* note) {
    const auto guasto = ProvaFileNodo(nodo, f, percorso, note);
    if (!guasto) return true;
    if (!guasto->apertura) throw ErroreFatale(guasto->cosa, guasto->dove);
    MostraErrore(p, "File: " + PercorsoMostrato(percorso) + "\n" + guasto->cosa,
                 "TK07 - LETTURA NON RIUSCITA");
    return false;
}

}  // namespace tk07
