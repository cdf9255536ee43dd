#include "options/opzioni.h"

#include "base/errore.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

// What is wrong with the file, with its line.
struct Guasto {
    std::string testo;
};

class Lettura {
  public:
    explicit Lettura(const std::vector<std::string>& righe) : righe_(righe) {}

    const std::string& Riga() {
        if (i_ >= righe_.size()) throw Guasto{"file troncato dopo la riga " + std::to_string(i_)};
        return righe_[i_++];
    }
    int Numero() const { return static_cast<int>(i_); }
    std::size_t Conteggio(const char* cosa) {
        const auto x = ValoreStretto(Riga());
        if (!x || *x < 0.0 || *x > 10000.0 || *x != static_cast<double>(static_cast<long>(*x))) {
            throw Guasto{"riga " + std::to_string(Numero()) + ": " + cosa + " errato"};
        }
        return static_cast<std::size_t>(*x);
    }

  private:
    const std::vector<std::string>& righe_;
    std::size_t i_ = 0;
};

RigaOpzione LeggiRiga(const std::string& riga, int numero) {
    const std::vector<std::string> campi = Dividi(riga, '|');
    const auto campo = [&](std::size_t i) { return i < campi.size() ? Taglia(campi[i]) : ""; };
    RigaOpzione r;
    r.Riga = numero;
    const auto valore = ValoreStretto(campo(0));
    if (!valore) throw Guasto{"riga " + std::to_string(numero) + ": valore non numerico"};
    r.Valore = *valore;
    r.Tipo = campo(1);
    r.Programmi = campo(2);
    std::string perche;
    const auto gruppo = CortoIniziale(campo(3), perche);
    if (!gruppo) throw Guasto{"riga " + std::to_string(numero) + ": " + perche};
    r.Gruppo = *gruppo;
    r.Etichetta = campi.size() > 4 ? campo(4) : "$$$";
    for (const std::string& c : campi) r.Campi.push_back(Taglia(c));
    return r;
}

}  // namespace

double Opzioni::ValOpz(int i) const {
    if (i < 0 || i >= static_cast<int>(Righe.size())) {
        IndiceFuori(i, 0, static_cast<long>(Righe.size()) - 1);
    }
    return Righe[static_cast<std::size_t>(i)].Valore;
}

bool LeggiOpzioni(std::string_view nomeFile, Opzioni& opz, const Piattaforma& p) {
    const FileLetto f = LeggiRighe(nomeFile);
    const std::string nome = PercorsoMostrato(nomeFile);
    if (!f.riuscito) {
        MostraAvviso(p, "Non è possibile aprire il file delle opzioni", "Errore");
        return false;
    }
    try {
        Opzioni o;
        Lettura l(f.righe);
        for (std::size_t g = l.Conteggio("numero dei gruppi"); g > 0; --g) {
            o.Gruppi.push_back(Taglia(l.Riga()));
        }
        for (std::size_t m = l.Conteggio("numero delle opzioni"); m > 0; --m) {
            const std::string& riga = l.Riga();
            o.Righe.push_back(LeggiRiga(riga, l.Numero()));
        }
        if (o.Righe.size() < kMinimoRigheOpzioni) {
            throw Guasto{"meno di " + std::to_string(kMinimoRigheOpzioni) + " opzioni"};
        }
        o.Disponibili = true;
        opz = std::move(o);
        return true;
    } catch (const Guasto& g) {
        MostraAvviso(p, "File delle opzioni " + nome + ": " + g.testo, "Errore");
    }
    return false;
}

bool SalvaOpzioni(std::string_view nomeFile, const Opzioni& opz, const Piattaforma& p) {
    std::string t = std::to_string(opz.Gruppi.size()) + "\n";
    for (const std::string& g : opz.Gruppi) t += g + "\n";
    t += std::to_string(opz.Righe.size()) + "\n";
    for (const RigaOpzione& r : opz.Righe) {
        for (std::size_t i = 0; i < r.Campi.size(); ++i) {
            const bool cambiato = i == 0 && ValoreStretto(r.Campi[0]) != r.Valore;
            t += (i > 0 ? "|" : "") + (cambiato ? TestoReale(r.Valore) : r.Campi[i]);
        }
        t += "\n";
    }
    const std::string errore = ScriviFile(nomeFile, t, Codifica::windows1252);
    if (errore.empty()) return true;
    MostraAvviso(p, "Non è possibile salvare il file delle opzioni\n" + errore, "Errore");
    return false;
}

bool RigaPerProgramma(std::string_view filtro) {
    if (Taglia(filtro).empty()) return true;
    for (const std::string& voce : Dividi(filtro, '/')) {
        if (Taglia(voce) == "TK07") return true;
    }
    return false;
}

}  // namespace tk07
