#pragma once

#include "reports/esteso.h"

class QWidget;

namespace tk07::desktop {

class Pilota;

// Asks for a file and writes the extended report of the joint as a PDF, with progress; what goes
// wrong is told in a box.
void ScriviRelazionePdf(Pilota& pilota, FormaRelazione forma, QWidget* padre);

}  // namespace tk07::desktop
