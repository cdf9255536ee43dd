#include "session/sessione.h"

#include <memory>
#include <new>
#include <utility>

#include "base/file_testo.h"
#include "base/scrittura.h"
#include "base/testo.h"
#include "joint/controlla_dati.h"
#include "session/gestori.h"

namespace tk07 {

namespace {

constexpr std::size_t kNomeDetto = 60;  // characters of a wrong name that a message repeats

// Writes the joint under the first name that no file has: what was saved aside before stays.
// Returns why it could not be written; `dove` is the file.
std::string MettiInSalvo(const Sessione& s, const Nodo& nodo, std::string& dove) {
    const std::string testo = TestoFileNodo(nodo, s.piattaforma.orologio());
    const std::string inizio = s.dir.dirTemp + "\\TK07_recupero";
    for (int k = 1;; ++k) {
        dove = inizio + (k == 1 ? "" : "_" + std::to_string(k)) + ".tk7";
        if (EsisteFile(dove)) continue;
        // Another program may have taken the name meanwhile: only an empty file is replaced.
        std::string errore =
            ScriviFile(dove, testo, Codifica::windows1252, Tenuta::suDisco, Impronta({}));
        if (errore.empty() || !EsisteFile(dove)) return errore;
    }
}

// Ends the run: the joint before the command is saved aside, the fault told.
void Termina(Sessione& s, const Nodo& prima, std::string testo) {
    // A start-up that fails has no joint to save.
    if (s.InsDati.aperto && EsisteDirettorio(s.dir.dirTemp)) {
        std::string recupero;
        const std::string errore = MettiInSalvo(s, prima, recupero);
        testo += errore.empty() ? "\nIl nodo è stato salvato in " + PercorsoMostrato(recupero)
                                : "\nIl nodo non è stato salvato in " + PercorsoMostrato(recupero) +
                                      ": " + errore;
    }
    s.nodo = prima;
    MostraErrore(s.piattaforma, testo);
    s.fine = true;
    s.codiceUscita = kUscitaFatale;
}

}  // namespace

bool EseguiComando(Sessione& s, const std::function<void()>& comando) {
    const auto prima = std::make_unique<Nodo>(s.nodo);
    try {
        comando();
        return true;
    } catch (const ErroreFatale& e) {
        std::string testo = "Errore non recuperabile: " + std::string(e.what());
        if (!e.Dove().empty()) testo += "\nin " + e.Dove();
        Termina(s, *prima, testo);
    } catch (const std::bad_alloc&) {
        Termina(s, *prima, "Errore non recuperabile: memoria esaurita");
    } catch (const std::exception& e) {
        Termina(s, *prima,
                "Errore non recuperabile: errore interno (" + std::string(e.what()) + ")");
    } catch (...) {
        Termina(s, *prima, "Errore non recuperabile: errore interno");
    }
    return false;
}

void Ricomincia(Sessione& s, const Sessione& inizio) {
    s.nomeFile = inizio.nomeFile;
    s.nodo = inizio.nodo;
    s.ris = inizio.ris;
    s.esiti = inizio.esiti;
    s.RisultatiValidi = inizio.RisultatiValidi;
    s.ultimaVerifica = inizio.ultimaVerifica;
    s.ultimaLettura = inizio.ultimaLettura;
    s.file = inizio.file;
    s.AcciaioMemoria = inizio.AcciaioMemoria;
    s.InsDati.titolo = inizio.InsDati.titolo;
    s.Aggiornamento = inizio.Aggiornamento;
    s.fine = inizio.fine;
    s.codiceUscita = inizio.codiceUscita;
}

std::string ComponiTitolo(const std::string& direttorio, const std::string& file) {
    std::string t = std::string(kTitoloProgramma) + " - LPZ ARGANO e quanta KX " + kReleaseSuite;
    const bool conDirettorio = !direttorio.empty();
    if (conDirettorio) {
        t += " - " + direttorio;
        if (t.back() == '\\' || t.back() == '/') t.pop_back();
    }
    if (!file.empty()) t += (conDirettorio ? "\\" : " - ") + file;
    return PercorsoMostrato(t);
}

namespace {

// What the file calls sections, steel and bolts, for names that the libraries lack.
std::vector<NomeAssente> NomiSenzaRecord(const Sessione& s, const Nodo& n) {
    std::vector<NomeAssente> assenti;
    const auto guarda = [&](const char* chiave, const std::string& nome, int indice) {
        if (indice == 0 && !Taglia(nome).empty()) assenti.push_back({chiave, nome, {}});
    };
    guarda("TraPri_Nome", n.TraPri.Nome, IndiceProfilo(s.profili, n.TraPri.Nome));
    guarda("TraSec_Nome", n.TraSec.Nome, IndiceProfilo(s.profili, n.TraSec.Nome));
    guarda("acciaio_Nome", n.acciaio.Nome, IndiceAcciaio(s.mat, n.acciaio.Nome));
    if (s.mat.MostraBulloni) guarda("vite_Nome", n.vite.Nome, IndiceVite(s.mat, n.vite.Nome));
    return assenti;
}

// And what stands for them.
void ScriviUsati(Nodo& n) {
    for (NomeAssente& a : n.NomiAssenti) {
        a.usato = a.chiave == "TraPri_Nome"    ? n.TraPri.Nome
                  : a.chiave == "TraSec_Nome"  ? n.TraSec.Nome
                  : a.chiave == "acciaio_Nome" ? n.acciaio.Nome
                                               : n.vite.Nome;
    }
}

}  // namespace

bool ApriNodo(Sessione& s, const std::string& percorso) {
    double releaseArgano = 0.0, releaseFile = 0.0;
    // Before the reading: a change that comes in between is one since.
    FileDelNodo file{percorso, ImprontaFile(percorso)};
    const FileLetto f = LeggiRighe(percorso);
    if (!LeggiRelease(f, percorso, releaseArgano, releaseFile, true, s.piattaforma)) return false;
    s.ultimaLettura = NoteLettura{};
    if (releaseFile < 1.0) {
        if (!LeggiFileNodoVecchio(s.nodo, f, percorso, s.piattaforma, &s.ultimaLettura)) {
            return false;
        }
        s.nodo.NomiAssenti = NomiSenzaRecord(s, s.nodo);
        ControllaMateriali(s);
    } else if (!LeggiFileNodo(s.nodo, f, percorso, s.piattaforma, &s.ultimaLettura)) {
        return false;
    } else {
        s.nodo.NomiAssenti = NomiSenzaRecord(s, s.nodo);
    }
    s.RisultatiValidi = false;
    s.file = std::move(file);
    s.nomeFile = NomeBase(percorso);
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, s.nomeFile + ".tk7");

    const LibreriaProfili& lib = s.profili;
    Nodo& n = s.nodo;
    std::vector<std::string>& assenti = s.ultimaLettura.NomiAssenti;
    for (const auto& [chiave, nome] :
         {std::pair{"TraPri_Nome", &n.TraPri.Nome}, std::pair{"TraSec_Nome", &n.TraSec.Nome}}) {
        if (IndiceProfilo(lib, *nome) == 0) {
            assenti.push_back(std::string(chiave) + " \"" + PrimiCaratteri(*nome, kNomeDetto) +
                              "\", nessun profilo al suo posto");
        }
    }
    n.TraPri = lib.Profili(CercaProfiloDaNome(lib, std::string(n.TraPri.Nome), s.piattaforma));
    n.TraSec = lib.Profili(CercaProfiloDaNome(lib, std::string(n.TraSec.Nome), s.piattaforma));
    // Names that the tables lack are told and replaced by the check of the materials.
    if (const int i = IndiceAcciaio(s.mat, n.acciaio.Nome); i > 0)
        n.acciaio = s.mat.AcciaiAperte(i);
    if (const int i = IndiceVite(s.mat, n.vite.Nome); i > 0) n.vite = s.mat.Viti(i);
    ControllaMateriali(s);
    ScriviUsati(n);
    // A bolt panel left open holds a copy of the other joint's bolts.
    ChiudiPannello(s, kGestoreFormBulloni);
    AggiornaTutto(s);
    return true;
}

bool ScriviNodo(Sessione& s, const std::string& percorso) {
    const bool suoFile = !s.file.percorso.empty() && StessoFile(s.file.percorso, percorso);
    if (!ScriviFileNodo(s.nodo, percorso, s.piattaforma,
                        suoFile ? s.file.impronta : std::nullopt)) {
        return false;
    }
    s.file = {percorso, ImprontaFile(percorso)};
    return true;
}

void ControllaMateriali(Sessione& s) {
    Nodo& n = s.nodo;
    const Materiali& mat = s.mat;
    const auto avvisa = [&](const std::string& testo) {
        s.piattaforma.messaggio(testo, kTitoloProgramma, Segno::nessuno, Pulsanti::OK);
    };
    const auto sostituito = [&](const char* chiave, const std::string& voluto,
                                const std::string& usato) {
        s.ultimaLettura.NomiAssenti.push_back(std::string(chiave) + " \"" +
                                              PrimiCaratteri(voluto, kNomeDetto) + "\", usato \"" +
                                              usato + "\"");
    };
    if (IndiceAcciaio(mat, n.acciaio.Nome) == 0) {
        avvisa("Attenzione: tipo acciaio non accettabile (" + Taglia(n.acciaio.Nome) +
               "). Scegliere un acciaio dalla tendina dei  materiali");
        const int posizione = AlternativaMateriale(n.MetodoVerifica(), "PROFILI", n.acciaio.Nome,
                                                   mat.nAcciaiAperte, mat.AcciaiAperte);
        const std::string voluto = n.acciaio.Nome;
        n.acciaio = mat.AcciaiAperte(posizione + 1);
        sostituito("acciaio_Nome", voluto, n.acciaio.Nome);
    }
    if (mat.MostraBulloni && IndiceVite(mat, n.vite.Nome) == 0) {
        avvisa("Attenzione: classe viti non accettabile (" + Taglia(n.vite.Nome) +
               "). Scegliere una classe dalla tendina delle viti");
        const std::string voluta = n.vite.Nome;
        n.vite = mat.Viti(mat.nViti >= 4 ? 4 : 1);
        sostituito("vite_Nome", voluta, n.vite.Nome);
    }
}

}  // namespace tk07
