#include "guscio/banco.h"

#include <algorithm>
#include <cstdio>

#include "base/testo.h"
#include "base/visibile.h"

namespace tk07 {

void Stampa(const std::string& testo) {
    const std::string t = SenzaControlli(testo, Righe::tante);
    std::fwrite(t.data(), 1, t.size(), stdout);
}

Banco::Banco(const Avvio& avvio) {
    porta.prefisso = "tk07";
    s->piattaforma = porta.Fai();
    EseguiComando(*s, [&] {
        if (!Avvia(*s, avvio)) codice = kUscitaAvvio;
    });
    if (s->fine) codice = s->codiceUscita;
}

namespace {

// What the reader had to leave out is told: a verdict on half a file must not pass in silence.
bool LetturaIntera(const Sessione& s) {
    const NoteLettura& note = s.ultimaLettura;
    for (const std::string& valore : note.Valori) {
        s.piattaforma.messaggio("attenzione, " + valore, kTitoloProgramma, Segno::esclamazione,
                                Pulsanti::OK);
    }
    if (note.RigaInterrotta > 0) {
        s.piattaforma.messaggio("riga " + std::to_string(note.RigaInterrotta) +
                                    ": lettura interrotta (" + note.Causa + ")",
                                kTitoloProgramma, Segno::critico, Pulsanti::OK);
        return false;
    }
    // A verdict on another steel, or on none of the sections, must say so.
    for (const std::string& assente : note.NomiAssenti) {
        s.piattaforma.messaggio("attenzione, nome assente dalle librerie: " + assente,
                                kTitoloProgramma, Segno::esclamazione, Pulsanti::OK);
    }
    constexpr std::size_t kElenco = 8;
    std::string mancanti;
    for (std::size_t i = 0; i < std::min(note.ChiaviMancanti.size(), kElenco); ++i) {
        mancanti += (i == 0 ? " " : ", ") + note.ChiaviMancanti[i];
    }
    if (mancanti.empty()) return true;
    if (note.ChiaviMancanti.size() > kElenco) {
        mancanti += " e altre " + std::to_string(note.ChiaviMancanti.size() - kElenco);
    }
    s.piattaforma.messaggio("attenzione, chiavi mancanti:" + mancanti, kTitoloProgramma,
                            Segno::esclamazione, Pulsanti::OK);
    return true;
}

}  // namespace

// Opens the file in the session; an exit code above 0 ends the work on it.
int ApriFile(Sessione& s, PortaCli& porta, const std::string& file) {
    porta.prefisso = file;
    porta.messaggi.clear();
    bool aperto = false;
    EseguiComando(s, [&] { aperto = ApriNodo(s, file); });
    if (s.fine) return s.codiceUscita;
    if (!aperto || !LetturaIntera(s)) return kUscitaUso;
    return kUscitaOk;
}

int SuNodo(const Avvio& avvio, const std::string& file,
           const std::function<int(Sessione&)>& lavoro) {
    Banco banco(avvio);
    if (!banco.Avviato()) return banco.codice;
    Sessione& s = *banco.s;
    int codice = ApriFile(s, banco.porta, file);
    if (codice != kUscitaOk) return codice;
    EseguiComando(s, [&] { codice = lavoro(s); });
    return s.fine ? s.codiceUscita : codice;
}

}  // namespace tk07
