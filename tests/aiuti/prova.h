#pragma once

// What the tests share: a port that answers from a queue and records what was asked, a temporary
// directory, a directory tree of its own for every session.

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/piattaforma.h"
#include "session/sessione.h"

namespace tk07::prova {

struct Detto {
    std::string testo, titolo;
    Segno segno = Segno::nessuno;
    Pulsanti pulsanti = Pulsanti::OK;
};

// Records boxes, dialogs and programs; boxes answer from `risposte` (then OK), dialogs from `file`
// (then cancelled). The clock stands at 2026-03-07 09:05.
struct Porta {
    std::vector<Detto> detti;
    std::vector<RichiestaFile> dialoghi;
    std::vector<std::vector<std::string>> programmi;  // program, then its arguments
    std::deque<Risposta> risposte;
    std::deque<FileScelto> file;
    Piattaforma Fai();
    std::vector<std::string> Testi() const;
    // Whether every box had this sign and title.
    bool Tutti(Segno segno, const std::string& titolo) const;
    // Takes the boxes away, a line each: sign (- i ? ! x), title, text, divided by bars.
    std::string Prendi();
    // True when a box said exactly `testo`.
    bool HaDetto(const std::string& testo) const;
};

// A directory that goes with its owner.
class Cartella {
  public:
    Cartella();
    ~Cartella();
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    std::filesystem::path operator/(const std::string& nome) const { return dove_ / nome; }
    std::string Testo() const { return dove_.string(); }

  private:
    std::filesystem::path dove_;
};

void ScriviTesto(const std::filesystem::path& dove, const std::string& testo);
std::string LeggiTesto(const std::filesystem::path& dove);

// The shipped tree as a directory of its own (made in `cartella`), with dirlav and lavoro set.
std::string AlberoDiProva(const Cartella& cartella);

// A started session on a tree of its own.
struct SessioneDiProva {
    Cartella cartella;
    std::string radice;
    Porta porta;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>();
    SessioneDiProva();
    std::string Lavoro() const { return radice + "/lavori/esempi"; }
};

// How often a text holds another.
int Quante(const std::string& testo, const std::string& cosa);

// Exit code of a command line; its standard output and error in `uscita` and `errori`.
int Esegui(const std::string& riga, std::string* uscita = nullptr, std::string* errori = nullptr);

}  // namespace tk07::prova
