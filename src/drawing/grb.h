#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/archivio.h"
#include "drawing/figura.h"
#include "drawing/stili_grb.h"
#include "joint/nodo.h"
#include "options/opzioni.h"

namespace tk07 {

// Dimensions and texts of the graphic environment's own format keep what strokes lose: a dimension
// is an object, a text has a style and an alignment.
inline constexpr int kMaxQuoteGrb = 1000;
inline constexpr const char* kTestoPredefinito = "Stringa_di_default";  // the reader computes it

struct QuotaGrb {
    int quotaP1 = 0, quotaP2 = 0;  // indices of the measured points
    std::string quotaDir;          // "H", "V" or "P": horizontal, vertical, parallel
    short quotaStile = 0;
    double quotaOffset = 0.0;  // of the dimension line from the points
    std::string quotaTesto;
};

struct TestoGrb {
    int testoCoord = 0;
    short testoStile = 1;  // from 1
    short testoAngolo = 0;
    short testoAllineamento = 0;
    std::string testoStringa;
};

struct DisegnoGrb {
    Disegno base;  // coordinates, line elements, arcs; its own texts stay empty
    std::vector<TestoGrb> testi;
    std::vector<QuotaGrb> quote;
};

// Stores a text. The insertion point is the middle of the two points for alignment 1, the second
// for 2, the first for any other; the angle [degrees] is rounded.
void GrbTesto(DisegnoGrb& g, const std::string& testo, double x1, double y1, double x2, double y2,
              double angolo, short allineamento, short stile, const Piattaforma& p);
// Stores a dimension; nothing for two equal points. An empty text stands for the computed value.
void GrbQuota(DisegnoGrb& g, const std::string& testo, double x1, double y1, double x2, double y2,
              double offset, short stile, const Piattaforma& p);
// Feeds a figure to the store, moved by (dx, dy).
void EmettiGrb(const Figura& f, double dx, double dy, DisegnoGrb& g, const Piattaforma& p);
// Composes the joint's sheet. False after a box.
bool DisegnaNodoGrb(const Nodo& nodo, const Opzioni& opz, DisegnoGrb& g, const Piattaforma& p);

// Colour index of the graphic environment: 0..7 pass, others become 1.
short ColoreGrb(short indice);
// A row of four fields: 20 and three times 19 columns, joined by a blank.
std::string RigaCampi20(std::string_view a, std::string_view b, std::string_view c,
                        std::string_view d);

std::string ComponiGrb(DisegnoGrb& g);
bool ScriviGrb(DisegnoGrb& g, std::string_view nomeFile, const Piattaforma& p);
// Composition, file, and a box that tells the user unless `silenzioso`.
bool SalvaGrb(const Nodo& nodo, const Opzioni& opz, std::string_view nomeFile, bool silenzioso,
              const Piattaforma& p);
// The same under the busy pointer; on failure the box "Scrittura GRB annullata".
bool GeneraGrb(const Nodo& nodo, const Opzioni& opz, std::string_view nomeFile, bool silenzioso,
               const Piattaforma& p);

// Reads a GRB file that this program wrote. False with the reason and the line in `errore`; `g`
// then stays as it was.
bool LeggiGrb(std::string_view nomeFile, DisegnoGrb& g, std::string& errore);

}  // namespace tk07
