#include "solidi/distinta.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

namespace {

constexpr double kMm3PerM3 = 1e9;
constexpr double kStessoVolume = 1e-6;  // relative

double Peso(double volume) { return volume / kMm3PerM3 * kDensitaAcciaio; }

std::string NomeRiga(const DatiParte& p) {
    static constexpr std::pair<const char*, const char*> kNomi[] = {
        {"TraPri", "Trave principale"},
        {"TraSec", "Trave secondaria"},
        {"piastra_lato_TraPri", "Piastra 1, lato trave principale"},
        {"piastra_lato_TraSec", "Piastra 2, lato trave secondaria"},
        {"Nerv1", "Nervatura 1"},
        {"Nerv_2", "Nervatura 2"},
        {"Nerv_3_superiore", "Nervatura 3"}};
    for (const auto& [oggetto, nome] : kNomi) {
        if (p.oggetto == oggetto) return nome;
    }
    return p.tipo == TipoParte::saldatura ? "Saldatura d'angolo" : p.nome;
}

bool DiBullone(TipoParte t) {
    return t == TipoParte::testa || t == TipoParte::gambo || t == TipoParte::dado;
}

std::string Fisso(double x, int decimali) {
    std::string t = TestoReale(Arrotonda(x, decimali) + 0.0);
    if (t.find('e') != std::string::npos) return t;
    std::size_t punto = t.find('.');
    if (punto == std::string::npos) punto = t.size();
    if (punto == t.size()) t += '.';
    t.resize(punto + 1 + static_cast<std::size_t>(decimali), '0');
    return t;
}

// Adds one part to the rows.
void Conta(std::vector<RigaDistinta>& righe, const RigaDistinta& nuova) {
    const auto uguale = [&](const RigaDistinta& r) {
        return r.nome == nuova.nome && r.misura == nuova.misura && r.materiale == nuova.materiale &&
               std::fabs(r.volume - nuova.volume) <= kStessoVolume * nuova.volume;
    };
    const auto dove = std::find_if(righe.begin(), righe.end(), uguale);
    RigaDistinta& r = dove != righe.end() ? *dove : righe.emplace_back(nuova);
    ++r.quanti;
    r.pesoTotale = r.peso * r.quanti;
}

// One column of a table: its title and cells, numbers to the right.
struct Colonna {
    std::string titolo;
    bool numeri = false;
    std::vector<std::string> celle;
};

std::string Tabella(const std::vector<Colonna>& colonne) {
    std::string testo;
    const std::size_t righe = colonne[0].celle.size();
    for (std::size_t i = 0; i <= righe; ++i) {
        std::string riga;
        for (const Colonna& c : colonne) {
            std::size_t largo = NumeroCaratteri(c.titolo);
            for (const std::string& x : c.celle) largo = std::max(largo, NumeroCaratteri(x));
            const std::string& cella = i == 0 ? c.titolo : c.celle[i - 1];
            const std::string vuoto(largo - NumeroCaratteri(cella), ' ');
            riga += (riga.empty() ? "  " : "  ") + (c.numeri ? vuoto + cella : cella + vuoto);
        }
        testo += TagliaDestra(riga) + "\n";
    }
    return testo;
}

}  // namespace

Distinta FaiDistinta(const std::vector<DatiParte>& parti) {
    Distinta d;
    std::vector<RigaDistinta> bulloni;
    for (std::size_t i = 0; i < parti.size(); ++i) {
        const DatiParte& p = parti[i];
        RigaDistinta r{NomeRiga(p), p.misura, p.materiale, 0, p.volume, 0.0, 0.0, 0.0, 0.0};
        if (p.tipo == TipoParte::saldatura) {
            r.lato = p.lato;
            r.lunghezza = p.lunghezza;
            r.peso = Peso(r.volume);
            Conta(d.saldature, r);
            d.lunghezzaSaldature += p.lunghezza;
            d.volumeSaldature += p.volume;
            continue;
        }
        if (!DiBullone(p.tipo)) {
            r.peso = Peso(r.volume);
            Conta(d.pezzi, r);
            continue;
        }
        // The parts of a bolt follow each other.
        r.nome = "Bullone completo di dado";
        r.misura = "M" + Fisso(p.lato, 2);
        while (r.misura.back() == '0') r.misura.pop_back();
        if (r.misura.back() == '.') r.misura.pop_back();
        for (; i + 1 < parti.size() && DiBullone(parti[i + 1].tipo) &&
               parti[i + 1].oggetto == p.oggetto;
             ++i) {
            r.volume += parti[i + 1].volume;
        }
        r.peso = Peso(r.volume);
        Conta(bulloni, r);
    }
    std::stable_sort(d.saldature.begin(), d.saldature.end(), [](const auto& a, const auto& b) {
        return std::pair(a.lato, a.lunghezza) < std::pair(b.lato, b.lunghezza);
    });
    d.pezzi.insert(d.pezzi.end(), bulloni.begin(), bulloni.end());
    for (const RigaDistinta& r : d.pezzi) d.pesoPezzi += r.pesoTotale;
    for (const RigaDistinta& r : d.saldature) d.pesoSaldature += r.pesoTotale;
    d.pesoTotale = d.pesoPezzi + d.pesoSaldature;
    return d;
}

std::string TestoDistinta(const Distinta& d, const std::string& titolo) {
    std::string testo = "DISTINTA DEI PEZZI  " + titolo +
                        "\n(misure in mm; le travi per il tratto " + "modellato; acciaio " +
                        Fisso(kDensitaAcciaio, 0).substr(0, 4) + " kg/m3)\n\n";
    std::vector<Colonna> c = {{"PEZZO", false, {}},     {"MISURE", false, {}},
                              {"MATERIALE", false, {}}, {"N.", true, {}},
                              {"PESO [kg]", true, {}},  {"TOTALE [kg]", true, {}}};
    for (const RigaDistinta& r : d.pezzi) {
        const std::string celle[] = {r.nome,           r.misura,
                                     r.materiale,      TestoIntero(r.quanti),
                                     Fisso(r.peso, 3), Fisso(r.pesoTotale, 3)};
        for (std::size_t i = 0; i < c.size(); ++i) c[i].celle.push_back(celle[i]);
    }
    testo += Tabella(c) + "\n";
    if (!d.saldature.empty()) {
        std::vector<Colonna> s = {{"SALDATURE", false, {}},   {"MISURE", false, {}},
                                  {"N.", true, {}},           {"LUNGHEZZA [mm]", true, {}},
                                  {"VOLUME [cm3]", true, {}}, {"TOTALE [kg]", true, {}}};
        for (const RigaDistinta& r : d.saldature) {
            const std::string celle[] = {r.nome,
                                         r.misura,
                                         TestoIntero(r.quanti),
                                         Fisso(r.lunghezza * r.quanti, 1),
                                         Fisso(r.volume * r.quanti / 1000.0, 3),
                                         Fisso(r.pesoTotale, 3)};
            for (std::size_t i = 0; i < s.size(); ++i) s[i].celle.push_back(celle[i]);
        }
        testo += Tabella(s) + "\n";
    }
    testo += "  Peso dei pezzi [kg]        " + Fisso(d.pesoPezzi, 3) + "\n";
    testo += "  Saldature: lunghezza [mm]  " + Fisso(d.lunghezzaSaldature, 1) + "\n";
    testo += "             volume [cm3]    " + Fisso(d.volumeSaldature / 1000.0, 3) + "\n";
    testo += "             peso [kg]       " + Fisso(d.pesoSaldature, 3) + "\n";
    testo += "  PESO TOTALE [kg]           " + Fisso(d.pesoTotale, 3) + "\n";
    return testo;
}

}  // namespace tk07
