#pragma once

#include <functional>
#include <memory>
#include <string>

#include "guscio/porta_cli.h"
#include "session/sessione.h"

namespace tk07 {

// Exit codes of the command line.
inline constexpr int kUscitaOk = 0, kUscitaNonVerificato = 1, kUscitaUso = 2,
                     kUscitaNonPossibile = 3;

// A started session, with the port of the command line.
struct Banco {
    PortaCli porta;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>();
    int codice = kUscitaOk;  // of a start-up that failed

    explicit Banco(const Avvio& avvio);
    bool Avviato() const { return codice == kUscitaOk; }
};

void Stampa(const std::string& testo);
// Opens the file in the session; an exit code above 0 ends the work on it.
int ApriFile(Sessione& s, PortaCli& porta, const std::string& file);
// Starts a session, opens the file and does the work on it; returns its exit code, or that of
// what went wrong before.
int SuNodo(const Avvio& avvio, const std::string& file,
           const std::function<int(Sessione&)>& lavoro);

}  // namespace tk07
