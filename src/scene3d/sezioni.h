#pragma once

#include <array>
#include <string>
#include <string_view>

#include "libraries/profili.h"
#include "scene3d/scena.h"

namespace tk07 {

// Constructors of the section in the working slot, lengths in mm. Each tells a full table or bad
// data in a box and returns false then; the slot is unusable in that case. FissaSezione settles
// what they made.

// Regular polygon in a circle of `diametro` (at least 0.0001), 3 to 201 sides; first vertex at
// angle `angoloIni` [rad] from Z, towards -Y.
bool SezionePoligono(Scena& s, double diametro, int nLati, const std::string& descrizione,
                     const Piattaforma& p, double angoloIni = 0.0);
// b along Z, h along Y, centred.
bool SezioneRettangolo(Scena& s, double b, double h, const std::string& descrizione,
                       const Piattaforma& p);
// Four points (Z, Y), which may coincide; then OrigineSuVertice(codiceOrigine).
using PuntoSezione = std::array<double, 2>;
bool SezioneQuadrilatero(Scena& s, const std::array<PuntoSezione, 4>& punti, int codiceOrigine,
                         const std::string& descrizione, const Piattaforma& p);
// Four vertices on the circle, rounded to 3 decimals, each with the radius.
bool SezioneCerchio(Scena& s, double diametro, const std::string& descrizione,
                    const Piattaforma& p);
// Quarter of a circle of radius `lato` about the origin, with flat sides along +Y and +Z.
bool SezioneQuartoCerchio(Scena& s, double lato, const std::string& descrizione,
                          const Piattaforma& p);

enum class PrefissoP { no, si };
// From ready contours. With PrefissoP::si a kind that does not begin with "P_" gets that prefix.
void SezioneDaContorni(Scena& s, const std::vector<Contorno>& contorni, const std::string& tipo,
                       const std::string& descrizione, PrefissoP prefisso);

// Moves the origin to a point of the bounding box: 0 the centre; 1, 2, 3 top left, middle, right;
// 4, 5 left and right of the centre; 6, 7 bottom left and middle; any other bottom right; -1 and
// 65535 change nothing.
void OrigineSuBordo(Sezione& s, int codice);
// Moves the origin to vertex `codice` of the first contour, or with 1000 + k to the middle of the
// side behind vertex k; negative changes nothing. False after a box for a vertex that is not there.
bool OrigineSuVertice(Sezione& s, int codice, const Piattaforma& p);

// Outline of a library section, origin at its lower left corner; `tipo` is the family, the letters
// that begin the name. I and H shapes have 16 vertices. The families that the joint's filter keeps
// out: U, L, T.QUAD (square tube), TUBO and INP, flanges with parallel faces of the mean thickness.
// `accoppiamento` names a built-up arrangement ("2UAFE", "2LAF", ...).
//   Degenerate  false with the reason in `errore`: an arrangement, which has no outline here;
//               dimensions that are not positive, or that leave no room for the root fillets
bool ContorniProfilo(const ProfiloRec& profilo, std::string_view accoppiamento,
                     std::vector<Contorno>& contorni, std::string& tipo, std::string& errore);

}  // namespace tk07
