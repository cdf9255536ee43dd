#include "guscio/csv.h"

#include <cmath>

#include "base/testo.h"
#include "verification/riepilogo.h"

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
    for (const RigaRiepilogo& r : RiepilogoVerifica(s.nodo, s.opz, s.ris).righe) {
        const EsitoControllo& g = r.Governante();
        righe += Campo(file) + ";" + NomeMetodo(s.nodo.MetodoVerifica()) + ";" +
                 std::to_string(r.sestetto + 1) + ";" + Campo(TogliCR(s.nodo.NomeSa(r.sestetto))) +
                 ";" + (s.ris.Verificato(r.sestetto, 0) != 0 ? "1" : "0") + ";" +
                 NomeFamiglia(r.governa) + ";" + Campo(g.controllo) + ";" + Campo(g.elemento) +
                 ";" + Numero(g.rapporto);
        // A family without any check leaves its field empty.
        for (const EsitoControllo& e : r.famiglie) {
            righe += ";" + (e.elemento.empty() ? std::string() : Numero(e.rapporto));
        }
        righe += "\n";
    }
    return righe;
}

}  // namespace tk07
