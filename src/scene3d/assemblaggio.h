#pragma once

#include <string>
#include <string_view>

#include "bolting/bulloni_temp.h"
#include "joint/geometria.h"
#include "joint/nodo.h"
#include "scene3d/scena.h"

namespace tk07 {

// The joint as a scene: beams, plate 1, plate 2, the secondary beam's welds, ribs 1 and 2 with
// theirs, rib 3 with its own, bolts. `provvisori`, when given, are the bolts being edited: they
// come before the joint's.
//   Reads       nodo (rib 3 recomputed by the caller), its geometry
//   Writes      s
//   Degenerate  any failure (a full table, a size that is none) is told in a box; the scene is then
//               empty, its header that of "non_definito", and the result false. A weld line without
//               length is left out.
// Programs that read scenes know the ribs by "Nerv1" and "Nerv_2". Bolts stand at Ybull -
// HPiastra(2)/2, although Ybull counts from the lower end of plate 1 (at the true height only when
// both plates are equally high: see AlzataBulloni).
//
// Each weld is a quarter circle with its flat sides on the two parts that it joins:
//     sald_trave_1, _2        s10, s10'   outer face of the upper flange; halves of s10 without rib
//     sald_trave_3, _4        s2, s2'     inner face of the upper flange
//     sald_trave_5, _6        s3, s3'     inner face of the lower flange
//     sald_nerv1_Y..          s12, s13    rib 1 on the flange, rib 1 on plate 2 (a pair each)
//     sald_nerv2_Y..          s14, s15    the same of rib 2
//     sald_nerv3_1 .. _4      s5, s5', s7, s7'    rib 3 along the lower and the upper flange
//     sald_nerv3_5, _6        s6, s6'     rib 3 along the web
//     sald_nerv3_7 .. _10     s8, s8', s9, s9'    plate 1 along the upper and the lower flange
// The other lines (s1, s4, s11) have no name in a scene.
bool ComponiScena3D(const Nodo& nodo, const Geometria& g, const BulloniTemp* provvisori, Scena& s,
                    const Piattaforma& p);

// What a scene becomes that cannot be composed.
void SvuotaScena(Scena& s);

// What brings a bolt of the scene to the height where it is (AltezzaBullone), mm.
double AlzataBulloni(const Nodo& nodo, const Geometria& g);

// The object's name between the markers of an extrusion's description ("|oggetto=NAME|"), and the
// part of a bolt ("testa", "gambo", "dado"); empty when there is none.
std::string NomeOggetto(std::string_view estrusi_descri);
std::string ParteBullone(std::string_view estrusi_descri);

}  // namespace tk07
