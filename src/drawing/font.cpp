#include "drawing/font.h"

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

// Two characters never spell more than 16 bits hold.
std::int16_t DueCifre(std::string_view riga, std::size_t posto) {
    std::string perche;
    if (posto >= riga.size()) return 0;
    return CortoIniziale(riga.substr(posto, 2), perche).value_or(0);
}

// One glyph: its character, then two digits of x and two of y for every point.
void LeggiGlifo(std::string_view riga, FontTratti& f) {
    const auto codice = static_cast<unsigned char>(riga.front());
    while (riga.size() > 1 && riga.back() == ' ') riga.remove_suffix(1);
    const double tratti = Arrotonda((static_cast<double>(riga.size()) - 1.0) / 8.0, 0);
    const int punti = std::min(static_cast<int>(tratti) * 2, kFontMaxPunti);
    f.fontNumPunti[codice] = static_cast<std::int16_t>(punti);
    for (int k = 0; k < punti; ++k) {
        const auto p = static_cast<std::size_t>(k);
        f.fontX[codice][p] = DueCifre(riga, 1 + 4 * p);
        f.fontY[codice][p] = DueCifre(riga, 3 + 4 * p);
    }
}

}  // namespace

void LeggiFont(std::string_view dirProgra, FontTratti& font, const Piattaforma& p) {
    const std::string percorso = std::string(dirProgra) + "\\font.001";
    const std::string nome = PercorsoMostrato(percorso);
    font = FontTratti{};
    if (!EsisteFile(percorso)) {
        MostraErrore(p, "File " + nome + " inesistente!");
        return;
    }
    // Raw bytes: the first character of a line is a code of the 8-bit set.
    std::string bytes, errore;
    bool riuscito = LeggiBytes(percorso, bytes, errore) && !bytes.empty();
    std::size_t numero = 0;
    for (std::string& riga : Dividi(bytes, '\n')) {
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        if (numero++ == 0) {
            const auto spaziatura = CortoIniziale(riga, errore);
            if (!spaziatura) {
                riuscito = false;
                break;
            }
            font.fontSpaziatura = *spaziatura;
        } else if (!riga.empty()) {
            LeggiGlifo(riga, font);
        }
    }
    if (!riuscito) MostraErrore(p, "Errore in lettura del file " + nome + " !");
}

}  // namespace tk07
