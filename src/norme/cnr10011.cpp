#include "norme/cnr10011.h"

#include "base/testo.h"
#include "norme/ntc2018.h"

namespace tk07 {

double SammPiastra(const Nodo& n, int k) {
    return PiastraSottile(n, k) ? n.acciaio.Samm : n.acciaio.Samm80;
}

double FattoreCaso(const Nodo& n, int s) { return n.CasoCarico(s) != 0 ? cnr::kCasoII : 1.0; }

FattoriTA FattoriTensAmm(const std::string& nomeAcciaio) {
    const std::string nome = Maiuscolo(nomeAcciaio);
    if (nome == "S 235 (FE 360)") return {true, 0.85, 1.0};
    if (nome == "S 275 (FE 430)" || nome == "S 355 (FE 510)") return {true, 0.7, 0.85};
    return {};
}

}  // namespace tk07
