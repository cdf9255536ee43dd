#include "guscio/albero.h"

#include <cstdlib>
#include <filesystem>

#include "base/file_testo.h"
#include "base/testo.h"
#include "guscio/inizializza.h"

namespace tk07 {

namespace {

namespace fs = std::filesystem;

std::string Ambiente(const char* nome) {
    const char* v = std::getenv(nome);
    return v != nullptr ? v : "";
}

std::string RadiceDelProgramma(const Avvio& avvio) {
    return fs::path(avvio.dirProgramma).parent_path().string();
}

std::string Ricorda(const std::string& albero) {
    const std::string file = FileAlberoRicordato();
    if (file.empty()) return "HOME non impostata: l'albero non può essere ricordato";
    std::error_code ec;
    fs::create_directories(fs::path(file).parent_path(), ec);
    if (ec) return fs::path(file).parent_path().string() + ": " + MessaggioSistema(ec.value());
    const std::string errore = ScriviFile(file, albero + "\n", Codifica::utf8);
    return errore.empty() ? "" : file + ": " + errore;
}

}  // namespace

bool AlberoDiLavoro(const std::string& dir) {
    return EsisteFile(dir + "/impostazioni/dirlav") && EsisteDirettorio(dir + "/custom");
}

bool ProgrammaInstallato(const Avvio& avvio) {
    const std::string radice = RadiceDelProgramma(avvio);
    return Minuscolo(NomeSenzaDirettorio(avvio.dirProgramma)) == "progra" &&
           EsisteDirettorio(radice + "/custom") && !EsisteFile(radice + "/impostazioni/dirlav");
}

std::string FileAlberoRicordato() {
    std::string dir = Ambiente("XDG_CONFIG_HOME");
    if (dir.empty() || dir.front() != '/') {  // a relative one counts as none
        const std::string casa = Ambiente("HOME");
        if (casa.empty()) return {};
        dir = casa + "/.config";
    }
    return dir + "/tk07/albero";
}

std::optional<std::string> AlberoRicordato() {
    const std::string file = FileAlberoRicordato();
    if (file.empty()) return std::nullopt;
    const FileLetto f = LeggiRighe(file);
    if (!f.riuscito || f.righe.empty() || !AlberoDiLavoro(Taglia(f.righe.front()))) {
        return std::nullopt;
    }
    return Taglia(f.righe.front());
}

Origine TrovaAlbero(Avvio& avvio) {
    if (avvio.diroot || !LeggiDiroot(avvio.rigaComando).empty()) return Origine::data;
    if (!ProgrammaInstallato(avvio)) return Origine::propria;
    if (auto ricordato = AlberoRicordato()) {
        avvio.diroot = std::move(ricordato);
        return Origine::ricordata;
    }
    avvio.diroot = RadiceDelProgramma(avvio);
    avvio.dirLavori = *avvio.diroot + "/lavori";
    return Origine::partenza;
}

std::string AdottaAlbero(const std::string& origine, const std::string& dir) {
    std::error_code ec;
    const std::string intero =
        fs::weakly_canonical(fs::absolute(PercorsoPiattaforma(dir), ec), ec).string();
    if (!AlberoDiLavoro(intero)) {
        if (std::string errore = InizializzaAlbero(origine, intero); !errore.empty()) return errore;
    }
    return Ricorda(intero);
}

}  // namespace tk07
