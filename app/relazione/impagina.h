#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "pdf/segnalibri.h"
#include "relazione/carattere.h"
#include "reports/esteso.h"

class QPainter;

namespace tk07 {

// Draws a picture into a rectangle given in the painter's own units.
using DipingiFigura = std::function<void(QPainter&, const QRectF&)>;

struct PaginaRel {
    QSizeF foglio{210.0, 297.0};  // [mm]
    bool tavola = false;          // a sheet with a frame of its own
    std::vector<std::function<void(QPainter&)>> elementi;
};

// A report ready for painting: what stands on each page, in lay-out units from its top left corner.
struct Impaginato {
    std::vector<PaginaRel> pagine;
    std::vector<Segnalibro> segnalibri;
    std::shared_ptr<const void> contesto;  // what the pages' elements refer to
};

// What the lay-out takes from elsewhere.
struct FigureRelazione {
    QSizeF foglioTavola{297.0, 210.0};  // page of the sheet [mm]
    DipingiFigura tavola;               // the whole page; empty: no sheet
    DipingiFigura vista3d;              // empty: no view and no room for one
};

// Heads and feet stand outside of what this fills.
inline constexpr double kSinistraRel = 20.0, kDestraRel = 15.0, kAltoRel = 22.0, kBassoRel = 18.0;

// Fonts of the report; the lay-out refers to them until it is painted.
struct CaratteriRel {
    Carattere testo{8.5, Carattere::Peso::normale}, forte{8.5, Carattere::Peso::grassetto},
        indice{6.0, Carattere::Peso::normale}, indiceForte{5.6, Carattere::Peso::grassetto},
        tabella{7.5, Carattere::Peso::normale}, capo{7.5, Carattere::Peso::grassetto},
        stretta{6.2, Carattere::Peso::normale}, capoStretta{6.2, Carattere::Peso::grassetto},
        capitolo{14.0, Carattere::Peso::grassetto}, paragrafo{10.5, Carattere::Peso::grassetto},
        copertina{19.0, Carattere::Peso::grassetto}, verdetto{15.0, Carattere::Peso::grassetto};
};

// Lays the document out on pages; its arguments must outlive the painting. `scheda` adds to the
// cover what the document does not know (file, hash, date).
Impaginato Impagina(const RelazioneEstesa& documento,
                    const std::vector<std::pair<QString, QString>>& scheda,
                    const CaratteriRel& caratteri, const FigureRelazione& figure);

}  // namespace tk07
