#include "render/figura3d.h"

#include <QImage>
#include <QPainter>
#include <memory>

#include "render/pittura3d.h"
#include "scene3d/assemblaggio.h"

namespace tk07 {

std::function<void(QPainter&, const QRectF&)> FiguraNodo3D(const Nodo& nodo, const Opzioni& opz) {
    constexpr double kBordo = 0.04;
    constexpr int kLarghezza = 1300;  // pixels: some 190 dots per inch across a page
    const Piattaforma muta = PiattaformaMuta();
    Scena scena;
    auto parti = std::make_shared<std::vector<Parte>>();
    std::string errore;
    const Geometria g = GeometriaDi(nodo);
    if (GrandezzaMancante(g) != nullptr) return {};
    if (!ComponiScena3D(nodo, g, nullptr, scena, muta) ||
        !SolidiNodo(nodo, g, opz.ValOpz(kOpzTollForo), scena, *parti, errore)) {
        return {};
    }
    return [parti](QPainter& p, const QRectF& dove) {
        if (!(dove.width() > 0.0) || !(dove.height() > 0.0)) return;
        const std::vector<Maglia> maglie = Maglie(*parti);
        Inquadratura q;
        q.p = ProiezioneDa({1.0, -1.15, 0.75});
        q.larghezza = kLarghezza;
        q.altezza = static_cast<int>(kLarghezza * dove.height() / dove.width());
        Adatta(maglie, q, kBordo);
        QImage immagine(q.larghezza, q.altezza, QImage::Format_RGB32);
        immagine.fill(Qt::white);
        QPainter pittore(&immagine);
        pittore.setRenderHint(QPainter::Antialiasing);
        OpzioniPittura3D come;
        come.spessore = 1.6;
        come.trasparenzaTravi = 0.25;
        DipingiSolidi(pittore, *parti, maglie, q, come);
        pittore.end();
        p.drawImage(dove, immagine);
    };
}

}  // namespace tk07
