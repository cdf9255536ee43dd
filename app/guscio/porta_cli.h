#pragma once

#include <string>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

struct MessaggioDato {
    std::string testo, titolo;
    Segno segno = Segno::nessuno;
    Pulsanti pulsanti = Pulsanti::OK;
    Risposta risposta = Risposta::OK;
};

// A piece of what the program says, kept to be printed later.
struct MessaggioUscita {
    bool errore = false;  // standard error
    std::string testo;
    void Scrivi() const;
};

// The port of the command line: boxes go to standard error, one line each behind the file's name,
// and are answered from the options.
struct PortaCli {
    std::string prefisso;  // what every line begins with
    bool fermati = false;  // answers Cancel where a box offers it
    bool apri = false;     // really shows reports
    bool zitta = false;    // collects boxes without printing them
    std::vector<MessaggioDato> messaggi;
    std::string percorsoScelto;  // answers the next file dialog
    // Where set, boxes and what is printed through the port are put here instead.
    std::vector<MessaggioUscita>* raccolta = nullptr;

    // To standard output.
    void Stampa(const std::string& testo);

    // The port refers to this record, which must outlive it.
    Piattaforma Fai();
};

// Line breaks of a message become blanks.
std::string SuUnaRiga(const std::string& testo);
// Prints an error line.
void Errore(const std::string& prefisso, const std::string& testo);
// The file to start for a program's name: as it stands in the named directory, with ".exe" or
// without, then the companion beside this program.
std::string FileProgramma(const std::string& programma);
// The directory that it is started in: the one its name was composed with, where the exchange files
// lie, which need not be the one that the companion stands in; empty for the current one.
std::string DirettorioDiPartenza(const std::string& programma);
// A document to show: as named, else the one that was installed with this program.
std::string FileDaMostrare(const std::string& documento);
// Starts a program of the platform; notepad.exe and EXPLORER.EXE stand for its own viewers.
bool AvviaProgramma(const std::string& programma, const std::vector<std::string>& argomenti,
                    bool attendi);
// Runs a companion of this program with its standard streams and waits for it; false when it is
// not there.
bool EseguiProgramma(const std::string& compagno, const std::vector<std::string>& argomenti,
                     int& uscita);

}  // namespace tk07
