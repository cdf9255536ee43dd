#include "session/gestori.h"

#include "textnum/formatta.h"

namespace tk07 {

Controllo NuovoControllo(TipoControllo tipo, const char* testo, const char* suggerimento) {
    Controllo c;
    c.tipo = tipo;
    c.testo = testo;
    c.suggerimento = suggerimento;
    return c;
}

void AggiungiControlli(Pannello& p, std::span<const DescrizioneControllo> controlli) {
    for (const DescrizioneControllo& d : controlli) {
        p.controlli[d.nome] = NuovoControllo(d.tipo, d.testo, d.suggerimento);
    }
}

std::string TestoCampo(const Sessione& s, double valore, double fattore) {
    return Formatta(valore, "(DV_02)(NP_1)", fattore, s.piattaforma);
}

void SelezionaVoce(Controllo& lista, int indice) {
    lista.indice = indice;
    lista.testo = indice >= 0 && indice < static_cast<int>(lista.voci.size())
                      ? lista.voci[static_cast<std::size_t>(indice)]
                      : "";
}

}  // namespace tk07
