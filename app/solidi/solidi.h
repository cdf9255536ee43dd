#pragma once

#include <TopoDS_Shape.hxx>
#include <string>
#include <vector>

#include "joint/nodo.h"
#include "scene3d/assemblaggio.h"
#include "solidi/dati_parte.h"

namespace tk07 {

// One part of the joint as an exact, valid solid, in the axes of the scene [mm].
struct Parte {
    DatiParte dati;
    TopoDS_Shape forma;
};

// The scene's extrusions as they are: what the viewer has, which knows no joint. False with the
// reason in `errore`.
//   Degenerate  an extrusion that encloses nothing is left out
bool SolidiScena(const Scena& scena, std::vector<Parte>& parti, std::string& errore);

// The joint as it is made, from its scene:
//   plates     with their holes, bolt diameter + `gioco` (option TollForoBull)
//   bolts      at the height where they are (AltezzaBullone), unlike in the scene
//   ribs       rib 3 with the corners at the web cut by SmussoNerv(3), which clears the beam's root
//              fillets; ribs 1 and 2 with the corner of plate and flange cut where SmussoNerv says;
//              a rib with H2Nerv 0 is a triangle
//   welds      those of the scene, then the lines s1, s4, s11 and their mirrors, which have no name
//              there, by their own
// and the materials of joint and bolts. False with the reason in `errore`.
bool SolidiNodo(const Nodo& nodo, const Geometria& g, double gioco, const Scena& scena,
                std::vector<Parte>& parti, std::string& errore);

}  // namespace tk07
