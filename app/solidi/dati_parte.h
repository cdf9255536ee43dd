#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tk07 {

enum class TipoParte { trave, piastra, nervatura, saldatura, testa, gambo, dado, altro };

// What is known of a part besides its shape: no toolkit is needed to read it. Lengths mm.
struct DatiParte {
    std::string oggetto;  // object of the scene: "TraPri", "BulPia3"
    std::string nome;     // the part's own name, no two alike: "BulPia3 testa"
    TipoParte tipo = TipoParte::altro;
    std::int32_t colore = 0;  // ARGB of the side faces
    std::string materiale;    // empty when only the scene is known
    std::string misura;       // "IPE270", "150 x 240 x 10", "M16"
    double lato = 0.0;        // leg of a weld, diameter of a bolt's part
    double lunghezza = 0.0;   // along the extrusion
    double volume = 0.0;      // of the solid [mm3]
    // Corners of its box along the scene's axes.
    std::array<double, 3> da{}, a{};
};

}  // namespace tk07
