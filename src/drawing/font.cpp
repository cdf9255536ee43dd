#include "drawing/font.h"

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "base/errore.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

std::int16_t DueCifre(std::string_view riga, std::size_t posto) {
    if (posto >= riga.size()) return 0;
    return InteroIniziale(riga.substr(posto, 2), "font.001");
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
    try {
        std::size_t numero = 0;
        for (std::string& riga : Dividi(bytes, '\n')) {
            if (!riga.empty() && riga.back() == '\r') riga.pop_back();
            if (numero++ == 0) {
                font.fontSpaziatura = InteroIniziale(riga, nome + ", riga 1");
            } else if (!riga.empty()) {
                LeggiGlifo(riga, font);
            }
        }
    } catch (const ErroreFatale&) {
        riuscito = false;
    }
    if (!riuscito) MostraErrore(p, "Errore in lettura del file " + nome + " !");
}

}  // namespace tk07
