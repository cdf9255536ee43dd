#pragma once

#include <array>
#include <string>
#include <vector>

#include "solidi/solidi.h"

namespace tk07 {

// A parallel projection. Picture coordinates [mm]: x to the right, y upwards.
struct Proiezione {
    Punto3 verso{};  // unit vector from the joint towards the eye
    Punto3 destra{}, su{};

    std::array<double, 2> Piana(const Punto3& p) const {
        return {p[0] * destra[0] + p[1] * destra[1] + p[2] * destra[2],
                p[0] * su[0] + p[1] * su[1] + p[2] * su[2]};
    }
};
// From the direction towards the eye (any length) with the scene's Z upwards; looking along Z, Y is
// upwards.
Proiezione ProiezioneDa(const Punto3& verso);

enum class TrattoLinea { visibile, nascosto };
struct LineaProiettata {
    std::size_t parte = 0;  // place in the list of parts
    TrattoLinea tratto = TrattoLinea::visibile;
    std::vector<std::array<double, 2>> punti;
};

// Edges and silhouettes of the parts as seen from there, cut where a part hides another. Hidden
// ones only when asked for. Round faces are meshed. False with the reason in `errore`.
enum class Nascoste { no, si };
bool LineeNascoste(const std::vector<Parte>& parti, const Proiezione& da, Nascoste anche,
                   std::vector<LineaProiettata>& linee, std::string& errore);

}  // namespace tk07
