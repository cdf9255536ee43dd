#pragma once

#include <QLineF>
#include <QPolygonF>
#include <QString>
#include <vector>

#include "joint/nodo.h"

namespace tk07::desktop {

// The joint as named shapes in millimetres, for drawing and for finding what was clicked.
//   fronte  seen along the secondary beam: x across, y up, origin as the bolts have it
//   lato    section through the middle: z from the axis of the main beam, y up
//   pianta  from above: x across, z towards the secondary beam (drawn downwards)
enum class Vista { fronte, lato, pianta };

enum class Parte {
    principale,
    secondaria,
    piastra1,
    piastra2,
    nervatura1,
    nervatura2,
    nervatura3,
    bullone,
    saldatura
};

struct Forma {
    Vista vista;
    Parte parte;
    int indice = 0;         // bolt from 1, weld line from 0
    QPolygonF contorno;     // closed; a weld line is a thin strip
    bool nascosta = false;  // behind another part: dashed
};

// A measure that a field stands for.
struct QuotaCampo {
    const char* campo;
    Vista vista;
    QPointF da, a;
    double scosta;  // of the dimension line, mm, to the left of the direction da -> a
    double valore;
};

struct DisegnoNodo {
    std::vector<Forma> forme;  // from the back to the front
    std::vector<QuotaCampo> quote;
    QRectF estensione[3];  // of the views, mm
};

// Hole = bolt + `gioco` [mm].
DisegnoNodo ComponiDisegno(const Nodo& nodo, double gioco);

// Part of a field ("GeoPias(4)" is plate 2); false for fields that stand for no part.
bool ParteDelCampo(const std::string& campo, Parte& parte, int& gruppoSaldatura);
// Field that a part leads to; empty for bolts, which have none on the main panel.
std::string CampoDellaParte(const Forma& forma);
QString NomeParte(const Forma& forma);

}  // namespace tk07::desktop
