#pragma once

#include <string>
#include <vector>

#include "base/piattaforma.h"
#include "drawing/archivio.h"

namespace tk07 {

// A view of the sheet as a display list in local coordinates (drawing units, 1 unit is 1 mm of the
// real joint). The composition speaks only to this interface: the three primitives and the
// dimension. Where a figure goes (drawing store, GRB store, panel surface) is decided afterwards.

// Text styles of the drawing model, from 1.
enum class StileTesto : short { piccolo = 1, normale, titoloVista, titoloTavola };

enum TipoLinea : short { kContinua = 0, kAsse = 1, kNascosta = 2 };

struct SegmentoFig {
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    short colore = 0, tipo = kContinua;
};

// Arc counter-clockwise from `a1` to `a2` [rad]; equal angles are the full circle.
struct CerchioFig {
    double x = 0.0, y = 0.0, diametro = 0.0;
    short colore = 0;
    double a1 = 0.0, a2 = 0.0;
};

// `x`, `y` is the left end of the base line; every character fills a cell `largh` wide.
struct TestoFig {
    std::string testo;
    double x = 0.0, y = 0.0;
    short angolo = 0;  // whole degrees
    double largh = 0.0, alt = 0.0;
    short colore = 0;
    StileTesto stile = StileTesto::normale;
};

enum class Terminale { cerchio, freccia };

struct StileQuota {
    short colore = 0;
    double alt = 20.0, largh = 14.0;
    Terminale terminale = Terminale::freccia;
    double dimTerminale = 12.0;  // length of an arrow, diameter of a circle
    double stacco = 5.0;         // from the measured point to the start of its extension line
    double sporgenza = 8.0;      // of the extension line beyond the dimension line
    StileTesto stile = StileTesto::piccolo;
};

// Dimension between two points, read from left to right or from the bottom up (lower or leftmost
// point first). The dimension line runs parallel at `distanza`, positive to the left of the reading
// direction; the text stands on its outer side.
struct QuotaFig {
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    double distanza = 0.0;
    double spostamento = 0.0;  // of the text along the line, from its middle
    double guida = 0.0;        // height of the leader between line and text, 0 without one
    std::string testo;         // empty: the distance rounded to one decimal
    StileQuota stile;
};

struct Ingombro {
    double xMin = 1e30, xMax = -1e30, yMin = 1e30, yMax = -1e30;
    bool Vuoto() const { return xMin > xMax; }
    double Larghezza() const { return Vuoto() ? 0.0 : xMax - xMin; }
    double Altezza() const { return Vuoto() ? 0.0 : yMax - yMin; }
};
void Allarga(Ingombro& i, double x, double y);
void Allarga(Ingombro& i, const Ingombro& altro);
bool SiToccano(const Ingombro& a, const Ingombro& b);

struct Figura {
    std::vector<SegmentoFig> segmenti;
    std::vector<CerchioFig> cerchi;
    std::vector<TestoFig> testi;
    std::vector<QuotaFig> quote;
    // What a further text must keep clear of: every stroke of the above, circles as chords,
    // dimensions exploded; and the boxes of all texts.
    std::vector<SegmentoFig> tratti;
    std::vector<Ingombro> scritte;
    // State of the pen for the strokes to come.
    short colore = 0, tipo = kContinua;
    Ingombro contorno;  // of the parts, without dimensions and labels; set by the view
};

void Segmento(Figura& f, double x1, double y1, double x2, double y2);
void Spezzata(Figura& f, const std::vector<std::pair<double, double>>& punti, bool chiusa = false);
void Rettangolo4(Figura& f, double x1, double y1, double x2, double y2);
void Cerchio(Figura& f, double x, double y, double diametro, double a1 = 0.0, double a2 = 0.0);
void Testo(Figura& f, TestoFig t);
void Quota(Figura& f, QuotaFig q);

// Width of a text and its box; the box of a text at any angle is that of its four corners.
double LarghezzaTesto(const std::string& testo, double largh);
Ingombro IngombroTesto(const TestoFig& t);
// Everything that the figure covers.
Ingombro IngombroFigura(const Figura& f);

// What a dimension is made of where it is not an object of its own.
struct QuotaEsplosa {
    std::vector<SegmentoFig> segmenti;
    std::vector<CerchioFig> cerchi;
    TestoFig testo;
    bool valida = false;  // false for two equal points
};
QuotaEsplosa EsplodiQuota(const QuotaFig& q);
// The dimension's number: the distance rounded to one decimal.
std::string TestoQuota(const QuotaFig& q);

// Feeds the figure to the drawing store, moved by (dx, dy): dimensions become strokes.
void EmettiFigura(const Figura& f, double dx, double dy, Disegno& d, const Piattaforma& p);

}  // namespace tk07
