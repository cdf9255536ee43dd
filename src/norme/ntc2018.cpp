#include "norme/ntc2018.h"

#include "base/testo.h"

namespace tk07 {

double FykPiastra(const Nodo& n, int k) {
    return PiastraSottile(n, k) ? n.acciaio.Fyk40 : n.acciaio.Fyk80;
}

double FdPiastra(const Nodo& n, int k) { return FykPiastra(n, k) / n.acciaio.GammaM; }

double FtkPiastre(const Nodo& n) {
    const bool spessa = n.SpPiastra(1) > kSpessoreSottile || n.SpPiastra(2) > kSpessoreSottile;
    return spessa ? n.acciaio.Ftk80 : n.acciaio.Ftk40;
}

double FattoreTaglio(const std::string& classe) {
    for (const char* c : {"4.6", "5.6", "8.8"}) {
        if (Contiene(classe, c)) return 0.6;
    }
    for (const char* c : {"6.8", "10.9"}) {
        if (Contiene(classe, c)) return 0.5;
    }
    return 0.0;
}

FattoriSaldatura FattoriSLU(const std::string& nomeAcciaio) {
    const std::string nome = Maiuscolo(nomeAcciaio);
    const auto ha = [&](const char* cifre) { return Contiene(nome, cifre); };
    if (ha("235")) return {0.85, 1.0};
    if (ha("275") || ha("355")) return {0.7, 0.85};
    if (ha("420") || ha("450") || ha("460")) return {0.62, 0.75};
    return {};
}

}  // namespace tk07
