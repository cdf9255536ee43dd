#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tk07 {

inline constexpr const char* kTitoloProgramma = "TK07 - NODO TRAVE - TRAVE CON PIASTRE";

enum class Segno { critico, esclamazione, informazione, domanda, nessuno };
enum class Pulsanti { OK, OKAnnulla };
enum class Risposta { OK, Annulla };

enum class ModoFile { apri, salva };

// What a file dialog is asked for. `filtro` is "description|pattern|description|pattern".
struct RichiestaFile {
    ModoFile modo = ModoFile::apri;
    std::string titolo;
    std::string estensione;
    std::string filtro;
    std::string direttorio;
    std::string nomeIniziale;
    bool chiediSovrascrittura = false;
};

struct FileScelto {
    std::string percorso;
    int filtro = 1;  // from 1
};

// Local date and time, as files store it.
struct Orologio {
    int anno = 2000, mese = 1, giorno = 1, ora = 0, minuto = 0;
};

// The one port of the core: what the logic asks of whoever drives it. Every function may be called
// (a maker fills all of them); none of them throws.
struct Piattaforma {
    std::function<Risposta(const std::string& testo, const std::string& titolo, Segno, Pulsanti)>
        messaggio;
    std::function<std::optional<FileScelto>(const RichiestaFile&)> scegliFile;
    // Starts a program, with or without waiting for its end; true when it started.
    std::function<bool(const std::string& programma, const std::vector<std::string>& argomenti,
                       bool attendi)>
        avvia;
    std::function<bool(const std::string& titolo)> attivaFinestra;
    std::function<void(const std::string& tasti)> inviaTasti;
    std::function<void(int forma)> puntatore;  // 11 busy, 0 normal
    std::function<void(const std::string&nome)> apriPannello, chiudiPannello;
    // False asks a long command to stop, where it can.
    std::function<bool(long fatto, long totale, const std::string& testo)> avanzamento;
    std::function<Orologio()> orologio;
};

// A port that answers OK to every box, cancels every dialog, starts nothing and shows nothing.
Piattaforma PiattaformaMuta();

// Shorthands for the common boxes.
void MostraErrore(const Piattaforma& p, const std::string& testo,
                  const std::string& titolo = kTitoloProgramma);
void MostraAvviso(const Piattaforma& p, const std::string& testo,
                  const std::string& titolo = kTitoloProgramma);

std::string NomeSegno(Segno s);

}  // namespace tk07
