#include "joint/file_nodo.h"

#include <array>
#include <cstdio>
#include <set>

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

// Stores the line's value; true when one of the keys takes it.
bool PrendiRiga(Nodo& nodo, const RigaChiave& riga, const std::string& dove,
                std::set<std::string>* viste) {
    std::string valore;
    std::vector<short> indici;
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        for (const CampoNodo& campo : gruppo.campi) {
            if (!LeggiChiave(riga, campo.minuscola, valore, indici)) continue;
            const int i = indici.empty() ? 0 : indici.front();
            campo.metti(nodo, i, valore, dove + ", chiave " + campo.chiave);
            if (viste != nullptr) viste->insert(ConIndice(campo.chiave, gruppo.indice, i));
            return true;
        }
    }
    return false;
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

bool ScriviFileNodo(const Nodo& nodo, std::string_view percorso, const Piattaforma& p) {
    const std::string errore =
        ScriviFile(percorso, TestoFileNodo(nodo, p.orologio()), Codifica::windows1252);
    if (errore.empty()) return true;
    MostraErrore(p, "File: " + PercorsoMostrato(percorso) + "\n" + errore,
                 "TK07 - SALVATAGGIO NON RIUSCITO");
    return false;
}

bool LeggiRelease(std::string_view percorso, double& releaseArgano, double& releaseFile,
                  bool conMessaggio, const Piattaforma& p) {
    releaseArgano = releaseFile = 0.0;
    const FileLetto f = LeggiRighe(percorso);
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

bool LeggiFileNodo(Nodo& nodo, std::string_view percorso, const Piattaforma& p, NoteLettura* note) {
    const FileLetto f = LeggiRighe(percorso);
    const std::string nome = PercorsoMostrato(percorso);
    if (!f.riuscito) {
        MostraErrore(p, "File: " + nome + "\n" + f.errore, "TK07 - LETTURA NON RIUSCITA");
        return false;
    }
    Nodo letto = nodo;  // a fatal fault on the way leaves the joint as it was
    letto.Esposizione = letto.TipoVer = 0;
    letto.RigheSconosciute.clear();
    std::set<std::string> viste;
    for (std::size_t i = 1; i < f.righe.size(); ++i) {
        if (f.righe[i].find('[') == std::string::npos) continue;
        const RigaChiave riga(f.righe[i]);
        const std::string dove = nome + ", riga " + std::to_string(i + 1);
        try {
            if (!PrendiRiga(letto, riga, dove, note == nullptr ? nullptr : &viste) &&
                !ChiaveNota(riga) && riga.testo.find(']') != std::string::npos) {
                letto.RigheSconosciute.push_back(riga.testo);
            }
        } catch (const ErroreFatale& e) {
            throw ErroreFatale(e.what(), e.Dove().find(nome) == 0 ? e.Dove()
                                         : e.Dove().empty() ? dove + ": " + riga.testo.substr(0, 60)
                                                            : dove + ", " + e.Dove());
        }
    }
    if (note != nullptr) {
        for (const GruppoCampi& gruppo : GruppiNodo()) {
            const int fine = UltimoIndice(gruppo.indice, letto);
            for (int i = PrimoIndice(gruppo.indice); i <= fine; ++i) {
                for (const CampoNodo& campo : gruppo.campi) {
                    std::string chiave = ConIndice(campo.chiave, gruppo.indice,
                                                   gruppo.indice == IndiceCampo::nessuno ? 0 : i);
                    if (!viste.contains(chiave)) note->ChiaviMancanti.push_back(std::move(chiave));
                }
            }
        }
    }
    nodo = std::move(letto);
    return true;
}

}  // namespace tk07
