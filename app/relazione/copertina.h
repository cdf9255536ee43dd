#pragma once

#include <QRectF>
#include <QString>
#include <utility>
#include <vector>

#include "reports/esteso.h"

class QPainter;

namespace tk07 {

struct CaratteriRel;

// The cover: title, verdict, the governing check of each family with its ratio as a bar, the data
// of the job, breaches of the spacing rules.
void DipingiCopertina(QPainter& p, const QRectF& dove, const RelazioneEstesa& d,
                      const std::vector<std::pair<QString, QString>>& scheda,
                      const CaratteriRel& c);

}  // namespace tk07
