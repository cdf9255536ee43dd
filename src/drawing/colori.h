#pragma once

#include <array>

namespace tk07 {

inline constexpr int kColori = 10;

struct Rgb {
    unsigned char r = 255, g = 255, b = 255;
    bool operator==(const Rgb&) const = default;
};

// Colour of a colour index on the screen's dark ground; white for an index outside the table.
constexpr Rgb ColoreVideo(int indice) {
    constexpr std::array<Rgb, kColori> kTabella{{{0, 0, 0},
                                                 {255, 255, 255},
                                                 {0, 0, 192},
                                                 {255, 0, 0},
                                                 {0, 255, 0},
                                                 {255, 255, 0},
                                                 {0, 128, 0},
                                                 {255, 0, 255},
                                                 {160, 197, 250},
                                                 {255, 163, 70}}};
    if (indice < 0 || indice >= kColori) return {};
    return kTabella[static_cast<std::size_t>(indice)];
}

}  // namespace tk07
