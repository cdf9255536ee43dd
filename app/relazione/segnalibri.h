#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "relazione/impagina.h"

namespace tk07 {

// The PDF with an outline, open when a reader shows it; the toolkit's writer has none. Empty with
// the reason in `errore`.
QByteArray ConSegnalibri(const QByteArray& pdf, const Impaginato& impaginato, QString& errore);

}  // namespace tk07
