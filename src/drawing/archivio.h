#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

// The drawing store: indexed coordinates, line elements, arcs and texts in drawing units (1 unit is
// 1 mm of the real joint). Indices are zero-based. Each table warns once when one place is left and
// then drops what comes, so that a composition goes on.
inline constexpr int kMaxCoordinate = 50000, kMaxLinee = 50000, kMaxPunti = 5000, kMaxArchi = 15000,
                     kMaxTesti = 15000;
// Points closer than this in x and in y are one.
inline constexpr double kCoincidenza = 0.0001;

struct LineaDis {
    int lineaIni = 0, lineaFin = 0;
    short lineaColore = 0, lineaTipo = 0;  // line type: 0 continuous, 1..4 of the DXF table
};

struct PuntoDis {
    int puntoCoord = 0;
    short puntoA = 0, puntoB = 0;
};

// A full circle has equal start and end points.
struct ArcoDis {
    int arcoCentro = 0, arcoIni = 0, arcoCentro2 = 0, arcoFin = 0;
    short arcoColore = 0, arcoFlag = 0;
    bool operator==(const ArcoDis&) const = default;
};

struct TestoDis {
    int testoCoord = 0;
    short testoAngolo = 0;               // whole degrees
    short testoLargh = 0, testoAlt = 0;  // tenths of a unit
    short testoColore = 0;
    std::string testoStringa;
};

struct Disegno {
    std::vector<double> coordX, coordY;
    std::vector<LineaDis> linee;
    std::vector<PuntoDis> punti;
    std::vector<ArcoDis> archi;
    std::vector<TestoDis> testi;
    double origineX = 0.0, origineY = 0.0;  // added to every stored coordinate
    short coloreCorrente = 0, tipoLineaCorrente = 0;
    double minX = 0.0, maxX = 0.0, minY = 0.0, maxY = 0.0;
};

// Index of the coordinate, -1 when the table is full. One of the last 31 that coincides is taken
// again. Fatal fault: the coordinate behind index 32767, which the 16 bits of an index cannot hold.
int AggiungiCoord(Disegno& d, double x, double y, const Piattaforma& p);

// Segment; nothing when its ends coincide.
void DisegnaSegmento(Disegno& d, double x1, double y1, double x2, double y2,
                     std::optional<short> colore, const Piattaforma& p);
// Circle, or arc from `angoloIni` to `angoloFin` [rad]; nothing for a diameter of nothing.
void DisegnaCerchio(Disegno& d, double x, double y, double diametro, std::optional<short> colore,
                    const Piattaforma& p, double angoloIni = 0.0,
                    std::optional<double> angoloFin = std::nullopt);
// Text of characters `largh` wide and `alt` high; nothing when one of them is not positive.
void DisegnaTesto(Disegno& d, std::string_view testo, double x, double y, short angolo,
                  double largh, double alt, std::optional<short> colore, const Piattaforma& p);

// Extent of the coordinates into minX..maxY; zero for an empty drawing.
void LimitiDisegno(Disegno& d);

// Deletes what cannot be seen or stands twice: bad line elements, dashed ones that lie on another
// element, equal arcs, texts without size; merges coincident coordinates and drops unused ones.
// Overlapping continuous lines stay, a plotter draws them twice. The end point of an arc and the
// coordinate of a point are not moved by the merging and keep the point that they had.
void PulisciDisegno(Disegno& d);

}  // namespace tk07
