#include <vector>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "joint/campi_nodo.h"
#include "joint/file_nodo.h"

namespace tk07 {

namespace {

// The reading stops here, in silence.
struct FineLettura {
    std::string causa;
};

// Items of a positional file: separated by commas, blanks (numbers) or line ends; a text may stand
// in quotes, without them it runs to the comma or the end of the line.
class Lettore {
  public:
    explicit Lettore(const std::vector<std::string>& righe) : righe_(righe) {}

    int Riga() const { return static_cast<int>(riga_) + 1; }

    // The rest of the line in hand, or the next whole line when nothing is left of it.
    std::string RigaIntera() {
        Avanza();
        std::string r = righe_[riga_].substr(col_);
        ++riga_;
        col_ = 0;
        return Taglia(r);
    }

    std::string Testo() {
        Avanza();
        const std::string& r = righe_[riga_];
        if (r[col_] == '"') {
            const std::size_t chiusa = r.find('"', col_ + 1);
            const std::size_t fine = chiusa == std::string::npos ? r.size() : chiusa;
            std::string t = r.substr(col_ + 1, fine - col_ - 1);
            col_ = chiusa == std::string::npos ? r.size() : chiusa + 1;
            SaltaVirgola();
            return t;
        }
        const std::size_t fine = std::min(r.find(',', col_), r.size());
        std::string t = Taglia(std::string_view(r).substr(col_, fine - col_));
        col_ = fine;
        SaltaVirgola();
        return t;
    }

    double Numero() {
        Avanza();
        const std::string& r = righe_[riga_];
        const std::size_t fine = std::min(r.find_first_of(", \t", col_), r.size());
        const std::string t = r.substr(col_, fine - col_);
        const auto x = ValoreStretto(t);
        if (!x) throw FineLettura{"valore non numerico: \"" + t.substr(0, 40) + "\""};
        col_ = fine;
        SaltaVirgola();
        return *x;
    }

    // A count: below zero it is told and acts as 0.
    short Conteggio(const char* chiave, int massimo, NoteLettura& note) {
        const short n = Intero(massimo);
        if (n >= 0) return n;
        note.Valori.push_back("riga " + std::to_string(Riga()) + ", chiave " + chiave +
                              ": numero di elementi sotto zero (" + std::to_string(n) +
                              "), vale 0");
        return 0;
    }

    short Intero(int massimo = 32767) {
        const double x = Arrotonda(Numero(), 0);
        if (!(x >= -32768.0 && x <= massimo)) throw FineLettura{"valore fuori dai limiti"};
        return static_cast<short>(x);
    }

  private:
    // Moves to the next character that is no blank, over line ends.
    void Avanza() {
        while (riga_ < righe_.size()) {
            const std::size_t p = righe_[riga_].find_first_not_of(" \t", col_);
            if (p != std::string::npos) {
                col_ = p;
                return;
            }
            ++riga_;
            col_ = 0;
        }
        throw FineLettura{"fine del file"};
    }
    void SaltaVirgola() {
        const std::string& r = righe_[riga_];
        const std::size_t p = r.find_first_not_of(" \t", col_);
        if (p != std::string::npos && r[p] == ',') col_ = p + 1;
    }

    const std::vector<std::string>& righe_;
    std::size_t riga_ = 0, col_ = 0;
};

void LeggiNervatura(Nodo& n, int i, std::string riga) {
    n.AttNerv(i) = Minuscolo(EstraiCampo(riga)) != "false" && i != 3;
    for (double* x : {&n.SpNerv(i), &n.H1Nerv(i), &n.H2Nerv(i), &n.BNerv(i), &n.SmussoNerv(i)}) {
        const auto v = ValoreStretto(EstraiCampo(riga));
        if (!v) throw FineLettura{"nervatura " + std::to_string(i) + ": valore non numerico"};
        *x = *v;
    }
}

// A description as a joint file can have it.
std::string Descrizione(Lettore& l, NoteLettura& note) {
    const std::string t = l.Testo();
    if (TestoRifiutato(t).empty()) return t;
    note.Valori.push_back("riga " + std::to_string(l.Riga()) + ", chiave NomeSa: \"" +
                          PrimiCaratteri(t, 40) + "\" contiene una chiave, \"[\" diventa \"(\"");
    return SostituisciTesto(t, "[", "(");
}

void LeggiTutto(Nodo& n, Lettore& l, NoteLettura& note) {
    std::string prima = l.RigaIntera();
    const bool ntc = Contiene(prima, "VERNTC");
    n.TraPri.Nome = ntc ? l.Testo() : SostituisciTesto(prima, "\"", "");
    n.TraSec.Nome = l.Testo();
    n.distAlaSecPiastra = l.Numero();
    n.distAliPriSec = l.Numero();
    n.distPiastraTraPri = l.Numero();
    for (int i = 1; i <= 2; ++i) {
        n.BPiastra(i) = l.Numero();
        n.HPiastra(i) = l.Numero();
        n.SpPiastra(i) = l.Numero();
    }
    for (int i = 1; i <= 3; ++i) LeggiNervatura(n, i, l.RigaIntera());
    n.spSaldS1 = l.Numero();
    n.spSaldS2 = l.Numero();
    n.nBull = l.Conteggio("nBull", kMaxBulloni, note);
    for (int i = 1; i <= n.nBull; ++i) {
        n.Xbull(i) = l.Numero();
        n.Ybull(i) = l.Numero();
        n.Fibull(i) = l.Numero();
    }
    n.acciaio.Nome = l.Testo();
    n.vite.Nome = l.Testo();
    if (ntc) {
        // This format counts the exposures from 1, the keyed one and the memory from 0.
        const int esposizione = l.Intero() - 1;
        if (esposizione < -1 || esposizione > 2) throw FineLettura{"esposizione fuori dai limiti"};
        n.Esposizione = static_cast<short>(esposizione);
    }
    n.nSollAg = l.Conteggio("nSollAg", kMaxSestetto + 1, note);
    for (int k = 0; k < n.nSollAg; ++k) {
        for (auto* azione :
             {&n.SforzoNormale, &n.TaglioY, &n.TaglioZ, &n.MomTorc, &n.MomY, &n.MomZ}) {
            (*azione)(k) = l.Numero();
        }
        n.CasoCarico(k) = l.Intero();
        n.NomeSa(k) = Descrizione(l, note);
    }
    n.numNodi = l.Conteggio("numNodi", kMaxNodi, note);
    for (int i = 1; i <= n.numNodi; ++i) n.NomeNodi(i) = l.Intero();
    const short metodo = l.Intero(1);
    if (metodo < 0) throw FineLettura{"metodo di verifica fuori dai limiti"};
    n.TipoVer = metodo;
}

}  // namespace

bool LeggiFileNodoVecchio(Nodo& nodo, std::string_view percorso, const Piattaforma& p,
                          NoteLettura* note) {
    return LeggiFileNodoVecchio(nodo, LeggiRighe(percorso), percorso, p, note);
}

bool LeggiFileNodoVecchio(Nodo& nodo, const FileLetto& f, std::string_view percorso,
                          const Piattaforma& p, NoteLettura* note) {
    if (!f.riuscito) {
        MostraErrore(p, "File: " + PercorsoMostrato(percorso) + "\n" + f.errore,
                     "TK07 - LETTURA NON RIUSCITA");
        return false;
    }
    nodo.RigheSconosciute.clear();
    nodo.NomiAssenti.clear();
    Lettore l(f.righe);
    NoteLettura lette;
    try {
        LeggiTutto(nodo, l, lette);
    } catch (const FineLettura& fine) {
        lette.RigaInterrotta = l.Riga();
        lette.Causa = fine.causa;
    }
    if (note != nullptr) *note = std::move(lette);
    return true;
}

}  // namespace tk07
