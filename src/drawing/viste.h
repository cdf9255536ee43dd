#pragma once

#include <string>
#include <vector>

#include "drawing/figura.h"
#include "drawing/parametri_tavola.h"
#include "joint/geometria.h"
#include "joint/nodo.h"

namespace tk07 {

// What every view of the sheet reads.
struct ContestoDis {
    const Nodo& nodo;
    ParametriDisegno par;
    Geometria q;
    std::vector<LineaSaldatura> saldature;
    double moncone = 0.0;  // length of TraSec shown
    double mezza = 0.0;    // half length of TraPri shown
};
ContestoDis ContestoTavola(const Nodo& nodo, const Geometria& g, const Opzioni& opz);

// Sections of the joint. CC: the main beam cut, the secondary one in elevation (x to the right, z
// up). BB: the secondary beam cut, seen towards the main beam (y to the right, z up). AA: from
// above (x to the right, y up). Each with its dimensions, weld marks, position numbers, cut marks
// and title.
Figura SezioneCC(const ContestoDis& c);
Figura SezioneBB(const ContestoDis& c);
Figura SezioneAA(const ContestoDis& c);

// Plate i (1, 2) seen from the secondary beam, with every hole; rib i (1..3).
Figura DettaglioPiastra(const ContestoDis& c, int i);
Figura DettaglioNervatura(const ContestoDis& c, int i);

Figura NoteTavola(const ContestoDis& c);
Figura TabellaSaldature(const ContestoDis& c);

// A text of the notes and labels, its left end of the base line at (x, y).
TestoFig TestoNota(const ContestoDis& c, const std::string& testo, double x, double y);

}  // namespace tk07
