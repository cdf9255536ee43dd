#include "guscio/csv.h"

#include <cmath>

#include "base/testo.h"

namespace tk07 {

namespace {

std::string Campo(const std::string& t) {
    if (t.find_first_of(";\"\r\n") == std::string::npos) return t;
    return "\"" + SostituisciTesto(t, "\"", "\"\"") + "\"";
}

std::string Numero(double x) { return std::isfinite(x) ? TestoReale(x) : "inf"; }

}  // namespace

std::string TestataCsv() {
    return "file;metodo;sestetto;nome;verificato;famiglia;controllo;elemento;rapporto;bulloni;"
           "piastra_1;piastra_2;saldature_s1;saldature_s2\n";
}

std::string CsvVerifica(const Sessione& s, const std::string& file) {
    std::string righe;
    for (int k = 0; k < s.esiti.Sestetti(); ++k) {
        const Riscontro* g = s.esiti.Governa(k);
        righe += Campo(file) + ";" + NomeMetodo(s.nodo.MetodoVerifica()) + ";" +
                 std::to_string(k + 1) + ";" + Campo(TogliCR(s.nodo.NomeSa(k))) + ";" +
                 (s.esiti.Sestetto(k).verificato ? "1" : "0");
        if (g == nullptr) {
            righe += ";;;;";
        } else {
            righe += std::string(";") + NomeFamiglia(g->famiglia) + ";" + Campo(NomeConfronto(*g)) +
                     ";" + Campo(NomeElemento(*g)) + ";" + Numero(g->rapporto);
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
