#include "session/pannello.h"

#include <charconv>

#include "base/errore.h"

namespace tk07 {

Controllo& Pannello::operator[](std::string_view nome) {
    const auto it = controlli.find(nome);
    PRETENDI(it != controlli.end(), "controllo sconosciuto: " + std::string(nome));
    return it->second;
}

const Controllo& Pannello::operator[](std::string_view nome) const {
    const auto it = controlli.find(nome);
    PRETENDI(it != controlli.end(), "controllo sconosciuto: " + std::string(nome));
    return it->second;
}

std::string ConIndice(std::string_view base, int indice) {
    return std::string(base) + "(" + std::to_string(indice) + ")";
}

NomeControllo DividiNome(std::string_view nome) {
    const std::size_t p = nome.find('(');
    if (p == std::string_view::npos || nome.back() != ')') return {std::string(nome), -1};
    int indice = -1;
    std::from_chars(nome.data() + p + 1, nome.data() + nome.size() - 1, indice);
    return {std::string(nome.substr(0, p)), indice};
}

int PosizioneVoce(const Controllo& lista, std::string_view voce) {
    for (std::size_t i = 0; i < lista.voci.size(); ++i) {
        if (lista.voci[i] == voce) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace tk07
