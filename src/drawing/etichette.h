#pragma once

#include <string>

#include "drawing/figura.h"

namespace tk07 {

struct StileEtichetta {
    short colore = 0;
    double alt = 25.0, largh = 17.5;
    StileTesto stile = StileTesto::normale;
    bool cerchiata = false;  // in a circle, as position numbers are
    double aria = 0.35;      // free room around the label, in text heights
};

// Puts a label with a leader to the point (x, y) on the nearest free place: its box clear of every
// stroke and text of the figure, its leader clear of every text. Near places in the direction
// (`versoX`, `versoY`) are tried first; leaders do not cross other labels' leaders where that can
// be had within a reasonable distance. False, and nothing done, when other labels shut the point
// in.
bool PosaEtichetta(Figura& f, const std::string& testo, double x, double y, double versoX,
                   double versoY, const StileEtichetta& stile);

// Does the segment run through the box? Touching its border counts.
bool SegmentoNelRiquadro(const SegmentoFig& s, const Ingombro& r);

}  // namespace tk07
