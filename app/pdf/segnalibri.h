#pragma once

#include <QByteArray>
#include <QRectF>
#include <QString>
#include <vector>

namespace tk07 {

// An entry of a document's outline.
struct Segnalibro {
    int livello = 1;  // 1 chapter, 2 section
    QString testo;
    int pagina = 0;     // from 0
    double alto = 0.0;  // from the top of the page [points]
};

// A place on a page that leads to an entry of the outline.
struct Rimando {
    int pagina = 0;              // from 0
    QRectF dove;                 // from the page's top left corner [points]
    std::size_t segnalibro = 0;  // place in the list of entries
};

// The PDF with an outline, open when a reader shows it, and with links; the toolkit's writer has
// neither. Empty with the reason in `errore`.
QByteArray ConSegnalibri(const QByteArray& pdf, const std::vector<Segnalibro>& segnalibri,
                         const std::vector<Rimando>& rimandi, QString& errore);

}  // namespace tk07
