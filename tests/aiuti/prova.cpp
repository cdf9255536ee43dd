#include "aiuti/prova.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <utility>

#include "guscio/inizializza.h"

namespace tk07::prova {

namespace fs = std::filesystem;

Piattaforma Porta::Fai() {
    Piattaforma p = PiattaformaMuta();
    p.messaggio = [this](const std::string& testo, const std::string& titolo, Segno segno,
                         Pulsanti pulsanti) {
        detti.push_back({testo, titolo, segno, pulsanti});
        if (risposte.empty()) return Risposta::OK;
        const Risposta r = risposte.front();
        risposte.pop_front();
        return r;
    };
    p.scegliFile = [this](const RichiestaFile& r) -> std::optional<FileScelto> {
        dialoghi.push_back(r);
        if (file.empty()) return std::nullopt;
        FileScelto f = file.front();
        file.pop_front();
        return f;
    };
    p.avvia = [this](const std::string& programma, const std::vector<std::string>& argomenti,
                     bool) {
        programmi.push_back({programma});
        programmi.back().insert(programmi.back().end(), argomenti.begin(), argomenti.end());
        return true;
    };
    p.orologio = [] { return Orologio{2026, 3, 7, 9, 5}; };
    return p;
}

std::vector<std::string> Porta::Testi() const {
    std::vector<std::string> t;
    for (const Detto& d : detti) t.push_back(d.testo);
    return t;
}

bool Porta::HaDetto(const std::string& testo) const {
    for (const Detto& d : detti) {
        if (d.testo == testo) return true;
    }
    return false;
}

bool Porta::Tutti(Segno segno, const std::string& titolo) const {
    return std::all_of(detti.begin(), detti.end(),
                       [&](const Detto& d) { return d.segno == segno && d.titolo == titolo; });
}

std::string Porta::Prendi() {
    std::string t;
    for (const Detto& d : std::exchange(detti, {})) {
        const char segno = d.segno == Segno::informazione   ? 'i'
                           : d.segno == Segno::domanda      ? '?'
                           : d.segno == Segno::esclamazione ? '!'
                           : d.segno == Segno::critico      ? 'x'
                                                            : '-';
        t += (t.empty() ? "" : "\n") + std::string(1, segno) + "|" + d.titolo + "|" + d.testo;
    }
    return t;
}

Cartella::Cartella() {
    static std::atomic<unsigned> numero{0};
    const auto seme = std::random_device{}();
    dove_ = fs::temp_directory_path() /
            ("tk07_prova_" + std::to_string(seme) + "_" + std::to_string(numero++));
    fs::create_directories(dove_);
}

Cartella::~Cartella() {
    std::error_code ec;
    fs::remove_all(dove_, ec);
}

void ScriviTesto(const fs::path& dove, const std::string& testo) {
    std::ofstream f(dove, std::ios::binary);
    f << testo;
    if (!f.flush()) throw std::runtime_error("non scritto: " + dove.string());
}

std::string LeggiTesto(const fs::path& dove) {
    std::ifstream f(dove, std::ios::binary);
    std::ostringstream t;
    t << f.rdbuf();
    return t.str();
}

std::string AlberoDiProva(const Cartella& cartella) {
    const std::string radice = (cartella / "albero").string();
    const std::string errore =
        InizializzaAlbero(std::string(TK07_SORGENTE) + "/installazione", radice);
    if (!errore.empty()) throw std::runtime_error(errore);
    return radice;
}

SessioneDiProva::SessioneDiProva() : radice(AlberoDiProva(cartella)) {
    s->piattaforma = porta.Fai();
    Avvio avvio;
    avvio.diroot = radice;
    bool avviata = false;
    EseguiComando(*s, [&] { avviata = Avvia(*s, avvio); });
    if (!avviata) {
        throw std::runtime_error("sessione non avviata: " +
                                 (porta.detti.empty() ? "" : porta.detti.back().testo));
    }
}

int Quante(const std::string& testo, const std::string& cosa) {
    int q = 0;
    for (std::size_t i = testo.find(cosa); i != std::string::npos; i = testo.find(cosa, i + 1)) ++q;
    return q;
}

int Esegui(const std::string& riga, std::string* uscita, std::string* errori) {
    const Cartella c;
    const std::string o = (c / "uscita").string(), e = (c / "errori").string();
    const int stato = std::system((riga + " >" + o + " 2>" + e + " </dev/null").c_str());
    if (uscita != nullptr) *uscita = LeggiTesto(o);
    if (errori != nullptr) *errori = LeggiTesto(e);
    return WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
}

}  // namespace tk07::prova
