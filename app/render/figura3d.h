#pragma once

#include <QRectF>
#include <functional>

#include "joint/nodo.h"
#include "options/opzioni.h"

class QPainter;

namespace tk07 {

// The joint in three dimensions as a figure of a document: shaded, with its edges, from the side of
// the secondary beam. Empty when the joint gives no solids. The joint is taken as it stands.
std::function<void(QPainter&, const QRectF&)> FiguraNodo3D(const Nodo& nodo, const Opzioni& opz);

}  // namespace tk07
