#include "guscio/porta_cli.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#ifndef _WIN32
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;
#endif

#include "base/file_testo.h"
#include "base/testo.h"
#include "base/visibile.h"
#include "guscio/programma.h"

namespace tk07 {

std::string SuUnaRiga(const std::string& testo) {
    std::string t = testo;
    std::replace_if(
        t.begin(), t.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return SenzaControlli(t);
}

void MessaggioUscita::Scrivi() const {
    std::fwrite(testo.data(), 1, testo.size(), errore ? stderr : stdout);
}

namespace {

MessaggioUscita RigaErrore(const std::string& prefisso, const std::string& testo) {
    return {true, SuUnaRiga((prefisso.empty() ? "" : prefisso + ": ") + testo) + "\n"};
}

}  // namespace

void Errore(const std::string& prefisso, const std::string& testo) {
    RigaErrore(prefisso, testo).Scrivi();
}

void PortaCli::Stampa(const std::string& testo) {
    const MessaggioUscita m{false, SenzaControlli(testo, Righe::tante)};
    raccolta == nullptr ? m.Scrivi() : raccolta->push_back(m);
}

std::string FileProgramma(const std::string& programma) {
    std::string senza = FinisceCon(Minuscolo(programma), ".exe")
                            ? programma.substr(0, programma.size() - 4)
                            : programma;
    const std::string compagno = DirettorioProgramma("") + "/" + NomeSenzaDirettorio(senza);
    for (const std::string& f : {programma, senza, compagno}) {
        if (f.find_first_of("\\/") != std::string::npos && EsisteFile(f)) {
            return PercorsoPiattaforma(f);
        }
    }
    return senza;
}

std::string DirettorioDiPartenza(const std::string& programma) {
    const std::size_t barra = programma.find_last_of("\\/");
    if (barra == std::string::npos || barra == 0) return {};
    const std::string dir = programma.substr(0, barra);
    return EsisteDirettorio(dir) ? PercorsoPiattaforma(dir) : "";
}

std::string FileDaMostrare(const std::string& documento) {
    const std::string installato =
        DirettorioProgramma("") + "/../help/" + NomeSenzaDirettorio(documento);
    return !EsisteFile(documento) && EsisteFile(installato) ? installato : documento;
}

bool AvviaProgramma(const std::string& programma, const std::vector<std::string>& argomenti,
                    bool attendi) {
#ifdef _WIN32
    (void)programma, (void)argomenti, (void)attendi;
    return false;
#else
    const std::string minuscolo = Minuscolo(programma);
    std::vector<std::string> testi;
    testi.push_back(minuscolo == "notepad.exe" || minuscolo == "explorer.exe"
                        ? "xdg-open"
                        : FileProgramma(programma));
    testi.insert(testi.end(), argomenti.begin(), argomenti.end());
    if (minuscolo == "explorer.exe" && testi.size() == 2) testi[1] = FileDaMostrare(testi[1]);
    std::vector<char*> argv;
    argv.reserve(testi.size() + 1);
    for (std::string& t : testi) argv.push_back(t.data());
    argv.push_back(nullptr);
    // The line protocol owns standard input and output: a program started from it gets neither.
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    posix_spawn_file_actions_addopen(&azioni, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&azioni, STDERR_FILENO, STDOUT_FILENO);
    const std::string dir = DirettorioDiPartenza(programma);
    if (!dir.empty()) posix_spawn_file_actions_addchdir_np(&azioni, dir.c_str());
    pid_t pid = 0;
    const int avviato = posix_spawnp(&pid, argv[0], &azioni, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&azioni);
    if (avviato != 0) return false;
    int stato = 0;
    if (attendi) waitpid(pid, &stato, 0);
    return true;
#endif
}

bool EseguiProgramma(const std::string& compagno, const std::vector<std::string>& argomenti,
                     int& uscita) {
#ifdef _WIN32
    (void)compagno, (void)argomenti, (void)uscita;
    return false;
#else
    std::vector<std::string> testi{DirettorioProgramma("") + "/" + compagno};
    if (!EsisteFile(testi[0])) return false;
    testi.insert(testi.end(), argomenti.begin(), argomenti.end());
    std::vector<char*> argv;
    for (std::string& t : testi) argv.push_back(t.data());
    argv.push_back(nullptr);
    std::fflush(nullptr);
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return false;
    int stato = 0;
    if (waitpid(pid, &stato, 0) != pid) return false;
    uscita = WIFEXITED(stato) ? WEXITSTATUS(stato) : 70;
    return true;
#endif
}

Piattaforma PortaCli::Fai() {
    Piattaforma p = PiattaformaMuta();
    p.messaggio = [this](const std::string& testo, const std::string& titolo, Segno segno,
                         Pulsanti pulsanti) {
        const Risposta r =
            pulsanti == Pulsanti::OKAnnulla && fermati ? Risposta::Annulla : Risposta::OK;
        messaggi.push_back({testo, titolo, segno, pulsanti, r});
        if (!zitta) {
            const bool domanda = pulsanti == Pulsanti::OKAnnulla;
            const MessaggioUscita m =
                RigaErrore(prefisso, testo + (!domanda            ? ""
                                              : r == Risposta::OK ? " [OK]"
                                                                  : " [Annulla]"));
            raccolta == nullptr ? m.Scrivi() : raccolta->push_back(m);
        }
        return r;
    };
    p.scegliFile = [this](const RichiestaFile&) -> std::optional<FileScelto> {
        if (percorsoScelto.empty()) return std::nullopt;
        return FileScelto{percorsoScelto, 1};
    };
    p.avvia = [this](const std::string& programma, const std::vector<std::string>& argomenti,
                     bool attendi) {
        return apri && AvviaProgramma(programma, argomenti, attendi);
    };
    return p;
}

}  // namespace tk07
