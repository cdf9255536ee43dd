#include "guscio/csv.h"

#include <cmath>

#include "base/testo.h"
#include "base/visibile.h"

namespace tk07 {

namespace {

std::string Numero(double x) { return std::isfinite(x) ? TestoReale(x) : "inf"; }

}  // namespace

std::string CellaCsv(const std::string& testo) {
    std::string t = SenzaControlli(testo);
    const std::size_t primo = t.find_first_not_of(' ');
    if (primo != std::string::npos &&
        std::string_view("=+-@").find(t[primo]) != std::string::npos && !ValoreStretto(t)) {
        t.insert(0, "'");
    }
    if (t.find_first_of(";\"") == std::string::npos) return t;
    return "\"" + SostituisciTesto(t, "\"", "\"\"") + "\"";
}

std::string TestataCsv() {
    return "file;metodo;sestetto;nome;verificato;famiglia;controllo;elemento;rapporto;bulloni;"
           "piastra_1;piastra_2;saldature_s1;saldature_s2\n";
}

std::string CsvVerifica(const Sessione& s, const std::string& file) {
    std::string righe;
    for (int k = 0; k < s.esiti.Sestetti(); ++k) {
        const Riscontro* g = s.esiti.Governa(k);
        righe += CellaCsv(file) + ";" + NomeMetodo(s.nodo.MetodoVerifica()) + ";" +
                 std::to_string(k + 1) + ";" + CellaCsv(TogliCR(s.nodo.NomeSa(k))) + ";" +
                 (s.esiti.Sestetto(k).verificato ? "1" : "0");
        if (g == nullptr) {
            righe += ";;;;";
        } else {
            righe += std::string(";") + NomeFamiglia(g->famiglia) + ";" +
                     CellaCsv(NomeConfronto(*g)) + ";" + CellaCsv(NomeElemento(*g)) + ";" +
                     Numero(g->rapporto);
        }
        // A family without any check leaves its field empty.
        for (int f = 0; f < kFamiglie; ++f) {
            const Riscontro* e = s.esiti.Peggiore(k, static_cast<Famiglia>(f));
            righe += ";" + (e == nullptr ? std::string() : Numero(e->rapporto));
        }
        righe += "\n";
    }
    return righe;
}

}  // namespace tk07
