#include "reports/comune.h"

#include <algorithm>

#include "base/testo.h"
#include "reports/relazione.h"
#include "textnum/formatta.h"

namespace tk07 {

std::string TestoRelazione::Prendi() {
    std::replace(testo_.begin(), testo_.end(), '\0', ' ');
    return std::move(testo_);
}

std::string TitoloRelazione(const Nodo& n, std::string_view metodo) {
    std::string t = "VERIFICA TENSIONALE NODI";
    if (n.numNodi != 0) t += ": ";
    for (int i = 1; i <= n.numNodi; ++i) {
        t.append(i == 1 ? "" : ",").append(TestoGenerale(n.NomeNodi(i)));
    }
    return t.append(" - ").append(metodo);
}

int NumeroPiastre(const Nodo& n) { return 3 + (n.AttNerv(1) ? 1 : 0) + (n.AttNerv(2) ? 1 : 0); }

int RighePiastre(const Nodo& n, RigaPiastra* righe) {
    int q = 0;
    for (const int i : {1, 2}) {
        righe[q++] = {i == 1 ? "1" : "2", n.HPiastra(i), n.HPiastra(i), n.BPiastra(i),
                      n.SpPiastra(i)};
    }
    const auto nervatura = [&](const char* numero, int k) {
        righe[q++] = {numero, n.H1Nerv(k), n.H2Nerv(k), n.BNerv(k), n.SpNerv(k)};
    };
    nervatura("3", 3);
    if (n.AttNerv(1)) nervatura("4", 1);
    if (n.AttNerv(2)) nervatura("5", 2);
    return q;
}

void RigheSaldature(const Nodo& n, TestoRelazione& t) {
    t.Riga("Lato saldature su piastra 1: " + TestoGenerale(n.spSaldS2));
    t.Riga("Lato saldature su piastra 2: " + TestoGenerale(n.spSaldS1));
}

void TestataSestetto(const Nodo& n, int s, TestoRelazione& t) {
    t.Riga();
    t.Riga("Combinazione di sollecitazioni agenti " + TogliCR(n.NomeSa(s)) + " ");
    t.Riga(std::string(80, '-'));
}

void VerdettoSestetto(const Nodo& n, int s, bool ok, TestoRelazione& t) {
    t.Riga();
    t.Riga((ok ? "NODO VERIFICATO IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI "
               : "ATTENZIONE: NODO NON VERIFICATO IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI ") +
           TogliCR(n.NomeSa(s)));
}

std::string NomeRelazione(const DestinazioneRelazione& dest, const std::string& metodo,
                          const std::string& codice) {
    return dest.dirLavoro + "\\Rel" + metodo + "_" + Taglia(codice) + "_" + Taglia(dest.nomeFile) +
           ".txt";
}

}  // namespace tk07
