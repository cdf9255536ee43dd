#pragma once

#include <string>
#include <vector>

#include "drawing/figura.h"

namespace tk07 {

struct StileEtichetta {
    short colore = 0;
    double alt = 25.0, largh = 17.5;
    StileTesto stile = StileTesto::normale;
    bool cerchiata = false;  // in a circle, as position numbers are
    double aria = 0.35;      // free room around the label, in text heights
};

// What becomes of a label whose point other labels shut in: nothing is done, or it goes outside
// everything, its leader through as few texts as can be.
enum class SePieno { lascia, fuori };

// Puts a label with a leader to the point (x, y) on the nearest free place: its box clear of every
// stroke and text of the figure, its leader clear of every text. Near places in the direction
// (`versoX`, `versoY`) are tried first; leaders neither cross other labels' leaders nor run along
// strokes where that can be had within a reasonable distance. False, and nothing done, when other
// labels shut the point in and `sePieno` leaves it so.
bool PosaEtichetta(Figura& f, const std::string& testo, double x, double y, double versoX,
                   double versoY, const StileEtichetta& stile, SePieno sePieno = SePieno::lascia);

// A label that is still to be placed: its point and the direction wanted.
struct Etichetta {
    std::string testo;
    double x = 0.0, y = 0.0, versoX = 0.0, versoY = 0.0;
    bool cerchiata = false, saldatura = false;
};

// Places all labels, in the order of several that gives the leaders easiest to follow. Where none
// has room for all, one that finds its point shut in by others goes first in a new try, and the
// labels stand farther apart after a few. No label is ever left out: where nothing helps, it goes
// outside the view. The texts come out in the order given, wherever they were placed.
void PosaTutte(Figura& f, const std::vector<Etichetta>& etichette, const StileEtichetta& stile);

// How hard the figure's leaders are to follow, for texts `alt` high: their lengths in text heights,
// and for each crossing of two and each that runs along a stroke what a much longer one would cost.
double PenaGuide(const Figura& f, double alt);

// Does the segment run through the box? Touching its border counts.
bool SegmentoNelRiquadro(const SegmentoFig& s, const Ingombro& r);

}  // namespace tk07
