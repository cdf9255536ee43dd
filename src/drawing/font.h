#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/piattaforma.h"

namespace tk07 {

inline constexpr int kFontIndefinito = -1;
inline constexpr int kFontMaxPunti = 100;

// Stroke font: per character code (Windows-1252) the end points of its strokes, two points a
// stroke.
struct FontTratti {
    std::int16_t fontSpaziatura = 0;               // percentage that narrows a glyph in its cell
    std::array<std::int16_t, 256> fontNumPunti{};  // kFontIndefinito marks an undefined glyph
    std::array<std::array<std::int16_t, kFontMaxPunti + 1>, 256> fontX{}, fontY{};
    FontTratti() { fontNumPunti.fill(kFontIndefinito); }
};

// Reads the font file of `dirProgra`. A missing file or a read error shows a box; the program goes
// on with the glyphs read so far.
void LeggiFont(std::string_view dirProgra, FontTratti& font, const Piattaforma& p);

}  // namespace tk07
