#include "base/chiavi.h"

#include <algorithm>

#include "base/testo.h"

namespace tk07 {

std::string ScriviChiave(std::string_view valore, std::string_view chiave,
                         std::string_view commento) {
    std::string r(valore);
    const std::size_t lungo = NumeroCaratteri(valore);
    r.append(std::max<std::size_t>(lungo + 1, 40) - lungo, ' ');
    r.append("[").append(chiave).append("] ").append(commento);
    return Taglia(r);
}

RigaChiave::RigaChiave(std::string_view riga) : testo(Taglia(riga)), minuscola(Minuscolo(testo)) {}

std::optional<ValoreChiave> LeggiChiave(const RigaChiave& riga, std::string_view chiaveMinuscola) {
    const std::string& m = riga.minuscola;
    std::size_t p = m.find('[');
    while (p != std::string::npos &&
           m.compare(p + 1, chiaveMinuscola.size(), chiaveMinuscola) != 0) {
        p = m.find('[', p + 1);
    }
    if (p == std::string::npos) return std::nullopt;
    const std::size_t dopo = p + 1 + chiaveMinuscola.size();
    if (dopo >= m.size() || (m[dopo] != ' ' && m[dopo] != ']')) return std::nullopt;
    const std::size_t chiusa = m.find(']', dopo);
    if (chiusa == std::string::npos) return std::nullopt;
    ValoreChiave v;
    std::string resto = m.substr(dopo, chiusa - dopo);
    while (v.indici.size() < 11) {
        const std::string parola = TogliParola(resto);
        if (parola.empty()) break;
        const auto indice = CortoIniziale(parola, v.guasto);
        if (!indice) return ValoreChiave{{}, {}, v.guasto};
        v.indici.push_back(*indice);
    }
    v.valore = Taglia(std::string_view(riga.testo).substr(0, p));
    return v;
}

bool LeggiParametro(std::string_view riga, std::string_view nome, std::string& valore,
                    std::string_view fine, std::string_view separatori) {
    if (nome.empty() || riga.size() < 4) return false;
    std::string cerca = Minuscolo(nome);
    if (cerca.front() != '|') cerca.insert(cerca.begin(), '|');
    if (!FinisceCon(cerca, fine)) cerca += fine;
    std::string r(riga);
    for (char& c : r) {
        if (separatori.find(c) != std::string_view::npos) c = '|';
    }
    if (r.front() != '|') r.insert(r.begin(), '|');
    if (std::count(r.begin(), r.end(), '|') < 2) r += '|';
    const std::size_t p = Minuscolo(r).find(cerca);
    if (p == std::string::npos) return false;
    const std::size_t da = p + cerca.size();
    valore = r.substr(da, r.find('|', da) - da);
    return true;
}

std::string TogliParola(std::string& testo, char separatore) {
    std::replace(testo.begin(), testo.end(), '\t', separatore);
    testo = Taglia(testo);
    const std::size_t p = testo.find(separatore);
    if (p == std::string::npos) {
        std::string tutta;
        tutta.swap(testo);
        return tutta;
    }
    std::string parola = Taglia(std::string_view(testo).substr(0, p));
    testo = Taglia(std::string_view(testo).substr(p + 1));
    return parola;
}

}  // namespace tk07
