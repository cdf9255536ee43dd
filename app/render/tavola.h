#pragma once

#include <QRectF>
#include <QString>

#include "drawing/archivio.h"
#include "render/pittura.h"

class QPainter;

namespace tk07 {

// What the title block says besides scale and sheet.
struct Cartiglio {
    QString programma, titolo, file, materiali, data;
};

// A sheet and where the drawing stands on it. Lengths in mm from the sheet's top left corner.
struct Foglio {
    QString nome;  // "A3"
    double larghezza = 0.0, altezza = 0.0;
    int scala = 1;         // 1:scala
    bool ridotta = false;  // a scale beyond the standard ones 1:1, 1:2, 1:5, 1:10
    QRectF area;           // free for the drawing: clear of frame and title block
};

// The smallest sheet, A4 (upright or lying) to A0, that takes a drawing of this size [mm] at a
// standard scale, and the largest such scale on it. What is too large for A0 at 1:10 comes on A0 at
// the largest of 1:20, 1:50, 1:100, 1:200, ... that fits, marked `ridotta`. The title block has a
// strip of its own, below or beside the drawing.
Foglio ScegliFoglio(double larghezza, double altezza);
// The same on one given sheet, as a printer has it.
Foglio FoglioDato(double larghezza, double altezza, const QString& nome, double larghezzaFoglio,
                  double altezzaFoglio);

// Frame, title block and the drawing to scale, centred in its area, on light paper. The painter
// leads from mm of paper, origin top left, to its device.
void DipingiTavola(QPainter& p, const Disegno& d, const Foglio& foglio, const Cartiglio& cartiglio,
                   const OpzioniPittura& opz);

}  // namespace tk07
