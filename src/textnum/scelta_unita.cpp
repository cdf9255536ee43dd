#include "textnum/scelta_unita.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>

#include "base/testo.h"
#include "textnum/conversioni.h"

namespace tk07 {

namespace {

struct Coppia {
    std::string da, a;
    double fattore = 1.0;
};

// "(cu_dan/cm2_n/mm2)" is the pair dan/cm2, n/mm2. The first of two equal keys counts.
std::vector<Coppia> Coppie() {
    int quante = 0;
    const RigaConversione* righe = TabellaConversioni(quante);
    constexpr std::size_t kInizio = 4;  // "(cu_"
    std::vector<Coppia> coppie;
    std::set<std::string_view> viste;
    for (int i = 0; i < quante; ++i) {
        const std::string_view k = righe[i].chiave;
        const std::size_t mezzo = k.find('_', kInizio);
        if (mezzo == std::string_view::npos || !viste.insert(k).second) continue;
        coppie.push_back({std::string(k.substr(kInizio, mezzo - kInizio)),
                          std::string(k.substr(mezzo + 1, k.size() - mezzo - 2)),
                          righe[i].fattore});
    }
    return coppie;
}

constexpr struct {
    const char* unita;
    const char* nome;
} kGrandezze[] = {
    {"cm", "Lunghezze"},
    {"cm2", "Aree"},
    {"cm3", "Volumi e moduli"},
    {"cm4", "Momenti d'inerzia"},
    {"dan", "Forze"},
    {"dancm", "Momenti"},
    {"dan/cm", "Carichi lineari"},
    {"cm/s", "Velocità"},
    {"dan/cm2", "Tensioni e pressioni"},
    {"dan/cm3", "Pesi di volume"},
    {"w/mk", "Conducibilità termica"},
};

// Symbols inside a unit, longest first.
constexpr struct {
    const char* tabella;
    const char* mostrato;
} kSimboli[] = {{"klbf", "klbf"}, {"kgf", "kgf"}, {"dan", "daN"}, {"lbf", "lbf"}, {"dyn", "dyn"},
                {"atm", "atm"},   {"gpa", "GPa"}, {"mpa", "MPa"}, {"kpa", "kPa"}, {"cmk", "cm*K"},
                {"kn", "kN"},     {"mn", "MN"},   {"gf", "gf"},   {"tf", "t"},    {"pa", "Pa"},
                {"mk", "m*K"},    {"km", "km"},   {"cm", "cm"},   {"mm", "mm"},   {"in", "in"},
                {"ft", "ft"},     {"n", "N"},     {"w", "W"},     {"m", "m"}};

}  // namespace

std::string UnitaMostrata(std::string_view unita) {
    std::string t;
    bool simbolo = false;  // two symbols in a row are a product
    while (!unita.empty()) {
        bool trovato = false;
        for (const auto& s : kSimboli) {
            if (unita.rfind(s.tabella, 0) != 0) continue;
            t += (simbolo ? "*" : "") + std::string(s.mostrato);
            unita.remove_prefix(std::string_view(s.tabella).size());
            simbolo = trovato = true;
            break;
        }
        if (trovato) continue;
        t += unita.front();
        unita.remove_prefix(1);
        simbolo = false;
    }
    return t;
}

std::string UnitaDaNome(std::string_view nome) {
    const std::string cercato = SostituisciTesto(Minuscolo(Taglia(nome)), ".", "*");
    for (const Grandezza& g : GrandezzeConvertibili()) {
        for (const std::string& u : g.unita) {
            const std::string mostrata = Minuscolo(UnitaMostrata(u));
            if (cercato == u || cercato == mostrata) return u;
        }
    }
    return {};
}

std::vector<Grandezza> GrandezzeConvertibili() {
    std::map<std::string, std::set<std::string>> vicine;
    std::vector<std::string> ordine;  // as the table names them
    for (const Coppia& c : Coppie()) {
        for (const std::string& u : {c.da, c.a}) {
            if (vicine.find(u) == vicine.end()) ordine.push_back(u);
            vicine[u];
        }
        vicine[c.da].insert(c.a);
        vicine[c.a].insert(c.da);
    }
    std::vector<Grandezza> tutte;
    std::set<std::string> prese;
    for (const std::string& u : ordine) {
        if (prese.count(u) != 0) continue;
        std::set<std::string> insieme{u};
        std::deque<std::string> coda{u};
        while (!coda.empty()) {
            for (const std::string& v : vicine[coda.front()]) {
                if (insieme.insert(v).second) coda.push_back(v);
            }
            coda.pop_front();
        }
        Grandezza g;
        for (const auto& n : kGrandezze) {
            if (insieme.count(n.unita) != 0) g.nome = n.nome;
        }
        for (const std::string& v : ordine) {
            if (insieme.count(v) != 0) g.unita.push_back(v);
        }
        prese.insert(insieme.begin(), insieme.end());
        tutte.push_back(std::move(g));
    }
    return tutte;
}

std::optional<double> ConvertiTra(double valore, const std::string& da, const std::string& a) {
    const std::vector<Coppia> coppie = Coppie();
    std::map<std::string, double> fattori{{da, 1.0}};
    std::deque<std::string> coda{da};
    while (!coda.empty() && fattori.count(a) == 0) {
        const std::string u = coda.front();
        coda.pop_front();
        for (const Coppia& c : coppie) {
            // Pairs that the table has one way only are walked backwards too.
            if (c.da == u && fattori.emplace(c.a, fattori[u] * c.fattore).second) {
                coda.push_back(c.a);
            }
        }
        for (const Coppia& c : coppie) {
            if (c.a == u && fattori.emplace(c.da, fattori[u] / c.fattore).second) {
                coda.push_back(c.da);
            }
        }
    }
    const auto it = fattori.find(a);
    if (it == fattori.end()) return std::nullopt;
    return valore * it->second;
}

}  // namespace tk07
