#pragma once

#include <QColor>
#include <vector>

#include "solidi/viste_solidi.h"

class QPainter;

namespace tk07 {

// Pictures of solids without OpenGL.
enum class Modo3D { ombreggiato, spigoli, nascoste };

struct OpzioniPittura3D {
    Modo3D modo = Modo3D::spigoli;
    double trasparenzaTravi = 0.0;  // 0 solid .. 0.95
    std::vector<bool> visibili;     // a part; empty: all
    int scelta = -1;                // part in the colour of the selection
    bool tratteggio = false;        // hidden edges dashed, where edges are drawn
    bool svelto = false;            // while it moves: no edges, coarse
    double spessore = 1.0;          // of edges [pixels of the picture]
};

// The colour of a part as it is painted: the scene's, or that of the selection.
QColor ColoreParte(const DatiParte& p, bool scelta);

// Paints into the picture's pixels, from the painter's origin. `quadro`, when asked for, takes the
// picture by depth for picking. `maglie` are those of `parti`.
void DipingiSolidi(QPainter& p, const std::vector<Parte>& parti, const std::vector<Maglia>& maglie,
                   const Inquadratura& q, const OpzioniPittura3D& opz, Quadro* quadro = nullptr);

}  // namespace tk07
