#include "scene3d/file_scena.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <thread>

#include "base/chiavi.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "scene3d/campi_scena.h"

namespace tk07 {

namespace {

constexpr const char* kDescrizioneFile = "file_vis3d";

template <class... Indici>
std::string Chiave(const char* nome, Indici... indici) {
    std::string c = nome;
    ((c += " " + std::to_string(indici)), ...);
    return c;
}

class Scrittore {
  public:
    std::string testo = std::string("ARGANOWIN [QuestoProgramma=non_presente] [Descrizione=") +
                        kDescrizioneFile +
                        "] [Oggetto=non_presente] [ReleaseArgano=18] [ReleaseQuestoFile=1]\n";

    template <class T, class... Indici>
    void Campo(const char* nome, const T& valore, Indici... indici) {
        testo.append(ScriviChiave(Testo(valore), Chiave(nome, indici...))).append("\n");
    }
    template <class T, class... Indici>
    void Quanti(const char* nome, const std::vector<T>& v, int, Indici... indici) {
        Campo(nome, static_cast<std::int32_t>(v.size()), indici...);
    }

  private:
    static std::string Testo(double x) { return TestoReale(x); }
    static std::string Testo(std::int32_t x) { return TestoIntero(x); }
    static std::string Testo(const std::string& x) { return TogliCR(x); }
};

// What is wrong with the file.
struct Guasto {
    std::string testo;
};

class Lettore {
  public:
    explicit Lettore(const std::vector<std::string>& righe) : righe_(righe) {}

    template <class T, class... Indici>
    void Campo(const char* nome, T& valore, Indici... indici) {
        chiave_ = Chiave(nome, indici...);
        Prendi(Valore(), valore);
    }
    template <class T, class... Indici>
    void Quanti(const char* nome, std::vector<T>& v, int massimo, Indici... indici) {
        chiave_ = Chiave(nome, indici...);
        v.resize(static_cast<std::size_t>(Intero(Valore(), 0, massimo)));
    }
    void Stampo() {
        std::string descrizione;
        if (righe_.empty()) throw Guasto{"file vuoto"};
        if (righe_[0].rfind("ARGANOWIN", 0) != 0 ||
            !LeggiParametro(righe_[0], "Descrizione", descrizione, "=", "[]") ||
            descrizione != kDescrizioneFile) {
            throw Guasto{"riga 1: non è un file di scena 3D"};
        }
        i_ = 1;
    }
    void Fine() {
        SaltaVuote();
        if (i_ < righe_.size()) Rifiuta("riga in più dopo l'ultima chiave");
    }
    [[noreturn]] void Rifiuta(const std::string& cosa) const {
        throw Guasto{"riga " + std::to_string(i_ + (consumata_ ? 0 : 1)) + ", chiave " + chiave_ +
                     ": " + cosa};
    }

  private:
    void SaltaVuote() {
        consumata_ = false;
        while (i_ < righe_.size() && Taglia(righe_[i_]).empty()) ++i_;
    }
    // The value of the next line, which must hold the present key and nothing behind its indices.
    std::string Valore() {
        SaltaVuote();
        if (i_ >= righe_.size()) Rifiuta("file troncato");
        auto v = LeggiChiave(RigaChiave(righe_[i_]), Minuscolo(chiave_));
        if (!v || !v->guasto.empty() || !v->indici.empty()) Rifiuta("attesa questa chiave");
        ++i_;
        consumata_ = true;
        return std::move(v->valore);
    }
    double Reale(const std::string& t) const {
        const auto x = ValoreStretto(t);
        if (!x || !std::isfinite(*x)) Rifiuta("valore non numerico \"" + t.substr(0, 40) + "\"");
        return *x;
    }
    long Intero(const std::string& t, long minimo, long massimo) const {
        const double x = Reale(t);
        if (!(x >= static_cast<double>(minimo) && x <= static_cast<double>(massimo)) ||
            x != std::floor(x)) {
            Rifiuta("valore " + t.substr(0, 40) + " fuori dai limiti " + std::to_string(minimo) +
                    ".." + std::to_string(massimo));
        }
        return static_cast<long>(x);
    }
    template <class T>
    void Prendi(const std::string& t, T& x) const {
        using Limiti = std::numeric_limits<T>;
        x = static_cast<T>(Intero(t, Limiti::min(), Limiti::max()));
    }
    void Prendi(const std::string& t, double& x) const { x = Reale(t); }
    void Prendi(const std::string& t, std::string& x) const { x = t; }

    const std::vector<std::string>& righe_;
    std::size_t i_ = 0;
    bool consumata_ = false;  // the line in hand is i_ (counted from 1), not the next
    std::string chiave_ = "visual_alfa";
};

// Sections have an outline, and extrusions point at sections that are there.
void ControllaSezioni(const Scena& s) {
    for (std::size_t i = 0; i < s.sezioni.size(); ++i) {
        const std::vector<Contorno>& c = s.sezioni[i].contorni;
        const bool vuota =
            std::any_of(c.begin(), c.end(), [](const Contorno& x) { return x.size() < 3; });
        if (c.empty() || vuota) {
            throw Guasto{"sezione " + std::to_string(i) +
                         ": contorno senza almeno 3 vertici (chiavi sezioni_nroCon, "
                         "sezioni_nroVer)"};
        }
    }
    const auto n = static_cast<int>(s.sezioni.size());
    for (std::size_t i = 0; i < s.estrusi.size(); ++i) {
        for (const short k : {s.estrusi[i].estrusi_punse1, s.estrusi[i].estrusi_punse2}) {
            if (k < 0 || k >= n) {
                throw Guasto{"estruso " + std::to_string(i) + ": sezione " + std::to_string(k) +
                             " inesistente (chiavi estrusi_punse1, estrusi_punse2)"};
            }
        }
    }
}

}  // namespace

std::string ComponiScena(const Scena& s) {
    Scrittore scrittore;
    PercorriScena(scrittore, s);
    return std::move(scrittore.testo);
}

void PausaScena() { std::this_thread::sleep_for(std::chrono::milliseconds(100)); }

bool ScriviScena(const Scena& s, std::string_view nomeFile, const Piattaforma& p,
                 const std::function<void()>& pausa) {
    constexpr int kUltimo = 10, kSegnala = 9;
    const std::string testo = ComponiScena(s);
    for (int k = 0; k <= kUltimo; ++k) {
        if (ScriviFile(nomeFile, testo, Codifica::windows1252, Tenuta::provvisoria).empty()) {
            return true;
        }
        if (k == kSegnala) {
            AvvisoScena(s, "Errore in scrittura del file: " + PercorsoMostrato(nomeFile), p);
        }
        pausa();
    }
    p.messaggio(std::to_string(kUltimo), kTitoloProgramma, Segno::nessuno, Pulsanti::OK);
    return false;
}

bool LeggiScena(std::string_view nomeFile, Scena& s, std::string& errore) {
    const FileLetto f = LeggiRighe(nomeFile);
    errore = f.errore;
    if (!f.riuscito) return false;
    try {
        Scena letta;
        Lettore lettore(f.righe);
        lettore.Stampo();
        PercorriScena(lettore, letta);
        lettore.Fine();
        ControllaSezioni(letta);
        s = std::move(letta);
        return true;
    } catch (const Guasto& g) {
        errore = g.testo;
        return false;
    }
}

}  // namespace tk07
