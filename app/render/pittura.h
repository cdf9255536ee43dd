#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <array>

#include "drawing/archivio.h"
#include "drawing/colori.h"
#include "options/opzioni.h"

class QPainter;

namespace tk07 {

enum class Carta { chiara, scura };

// How a drawing is shown. Lengths in mm of paper.
struct OpzioniPittura {
    std::array<double, kColori> spessori{};  // pen width by colour index; SpessoriPenne fills it
    double spessoreMinimo = 0.0;             // one pixel on a screen, so that no line fades
    Carta carta = Carta::chiara;
    std::array<bool, kColori> visibili{};  // by colour index
    QRectF finestra;                       // what lies outside is not drawn; null: all is
    OpzioniPittura();
};

// Pen widths by kind of line: outlines 0.40, second outlines 0.25, welds 0.30, axes and dimensions
// 0.18, any other colour 0.25 mm. The colour of each kind comes from the option rows; without them
// from those shipped. A colour that serves several kinds takes the width of the first.
std::array<double, kColori> SpessoriPenne(const Opzioni& opz);
// What each colour is used for ("contorni", ...), by the same rows; empty for a free colour.
std::array<QString, kColori> NomiStrati(const Opzioni& opz);

// Colour index of an element as the tables above have it: an index outside counts as white.
int Strato(short colore);
// The index' colour as it reads on the paper: white and pale colours are darkened on white, black
// and deep ones lightened on dark.
QColor ColoreSuCarta(int indice, Carta carta);
QColor ColoreCarta(Carta carta);

// An arc as centre, radius and angles counter-clockwise [degrees]; a full turn when its ends
// coincide.
struct GeometriaArco {
    double x = 0.0, y = 0.0, raggio = 0.0, inizio = 0.0, ampiezza = 360.0;
};
GeometriaArco LeggiArco(const Disegno& d, const ArcoDis& a);

// The text as shown: the mark "]" is the diameter sign.
QString TestoMostrato(const std::string& testo);

// Extent of what is drawn, in drawing units with y upwards: line ends, whole arcs, and the boxes of
// the texts with descenders and accents. Null for an empty drawing.
QRectF IngombroDisegno(const Disegno& d);
// Corners of a text's box, from the insertion point along the base line.
std::array<QPointF, 4> RiquadroTesto(const Disegno& d, const TestoDis& t);

// Draws the drawing. `mondoSuCarta` leads from drawing units to mm of paper (y downwards) at one
// scale for both axes; the painter leads from mm of paper to its device. Dash lengths and pens are
// those of the paper, whatever the scale.
void DipingiDisegno(QPainter& p, const Disegno& d, const QTransform& mondoSuCarta,
                    const OpzioniPittura& opz);

// One line of text from `base` [mm of paper], capitals `altezza` high, squeezed to `larghezza` when
// it would be wider (0: never), turned by `gradi` counter-clockwise.
void DipingiScritta(QPainter& p, const QPointF& base, const QString& testo, double altezza,
                    double larghezza, double gradi, const QColor& colore);

// Its natural width at that height of the capitals, in the same unit.
double LarghezzaScritta(const QString& testo, double altezza);

}  // namespace tk07
