#include "cli/porta_cli.h"

#include <algorithm>
#include <cstdio>

#ifndef _WIN32
#include <spawn.h>
#include <sys/wait.h>
extern char** environ;
#endif

#include "base/testo.h"

namespace tk07 {

std::string SuUnaRiga(const std::string& testo) {
    std::string t = testo;
    std::replace_if(
        t.begin(), t.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return t;
}

void Errore(const std::string& prefisso, const std::string& testo) {
    const std::string riga = (prefisso.empty() ? "" : prefisso + ": ") + SuUnaRiga(testo) + "\n";
    std::fwrite(riga.data(), 1, riga.size(), stderr);
}

bool AvviaProgramma(const std::string& programma, const std::vector<std::string>& argomenti,
                    bool attendi) {
#ifdef _WIN32
    (void)programma, (void)argomenti, (void)attendi;
    return false;
#else
    const std::string minuscolo = Minuscolo(programma);
    std::vector<std::string> testi;
    testi.push_back(minuscolo == "notepad.exe" || minuscolo == "explorer.exe" ? "xdg-open"
                                                                              : programma);
    testi.insert(testi.end(), argomenti.begin(), argomenti.end());
    std::vector<char*> argv;
    for (std::string& t : testi) argv.push_back(t.data());
    argv.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return false;
    int stato = 0;
    if (attendi) waitpid(pid, &stato, 0);
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
        if (!zitta) Errore(prefisso, testo);
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
