#include "reports/comune.h"

#include <algorithm>

#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {

void TestoRelazione::Riga(std::string_view testo) {
    r_.testo.append(testo).append("\n");
    righe_ += 1 + static_cast<int>(std::count(testo.begin(), testo.end(), '\n'));
}

void TestoRelazione::Segna(const Riscontro& r) {
    r_.righe.push_back({righe_, r.sestetto, r.famiglia, r.elemento});
}

RelazioneScritta TestoRelazione::Prendi() {
    std::replace(r_.testo.begin(), r_.testo.end(), '\0', ' ');
    return std::move(r_);
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
    const std::string nome = TogliCR(n.NomeSa(s));
    t.r_.sestetti.push_back({t.righe_, t.righe_, false, nome});
    t.Riga("Combinazione di sollecitazioni agenti " + nome + " ");
    t.Riga(std::string(80, '-'));
}

void VerdettoSestetto(const Nodo& n, int s, bool ok, TestoRelazione& t) {
    t.Riga();
    t.r_.sestetti.back().verdetto = t.righe_;
    t.r_.sestetti.back().verificato = ok;
    t.Riga((ok ? "NODO VERIFICATO IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI "
               : "ATTENZIONE: NODO NON VERIFICATO IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI ") +
           TogliCR(n.NomeSa(s)));
}

RelazioneScritta RelazioneDi(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                             const Esiti& esiti) {
    return nodo.MetodoVerifica() == Metodo::SLU ? RelazioneSLU(nodo, unita, ris, esiti)
                                                : RelazioneTA(nodo, unita, ris, esiti);
}

std::string NomeRelazione(const DestinazioneRelazione& dest, const std::string& metodo,
                          const std::string& codice) {
    return dest.dirLavoro + "\\Rel" + metodo + "_" + Taglia(codice) + "_" + Taglia(dest.nomeFile) +
           ".txt";
}

}  // namespace tk07
