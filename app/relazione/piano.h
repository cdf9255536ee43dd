#pragma once

#include <QRectF>

#include "reports/esteso.h"

class QPainter;

namespace tk07 {

// The stress plane on the plates, fitted into `dove` [lay-out units]: plates, beam, contact zone in
// bands of pressure, neutral axis, bolts with their forces, legend.
void DipingiPiano(QPainter& p, const QRectF& dove, const PianoRel& piano);

}  // namespace tk07
