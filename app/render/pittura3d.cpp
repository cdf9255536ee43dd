#include "render/pittura3d.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace tk07 {

namespace {

constexpr QRgb kScelta = qRgb(255, 0, 200);
constexpr QRgb kSpigolo = qRgb(45, 48, 55);
constexpr int kFinezza = 2;  // samples a pixel along each side

bool Trave(const Parte& p) { return p.dati.tipo == TipoParte::trave; }

void Linee(QPainter& p, const std::vector<Parte>& parti, const std::vector<std::size_t>& quali,
           const Inquadratura& q, const OpzioniPittura3D& opz, bool soloTravi) {
    std::vector<Parte> scelte;
    for (const std::size_t i : quali) scelte.push_back(parti[i]);
    std::vector<LineaProiettata> linee;
    std::string errore;
    if (scelte.empty() ||
        !LineeNascoste(scelte, q.p, opz.tratteggio ? Nascoste::si : Nascoste::no, linee, errore)) {
        return;
    }
    for (const bool nascoste : {true, false}) {
        for (const LineaProiettata& l : linee) {
            if ((l.tratto == TrattoLinea::nascosto) != nascoste) continue;
            const std::size_t i = quali[l.parte];
            if (soloTravi && !Trave(parti[i])) continue;
            QPainterPath cammino;
            for (std::size_t k = 0; k < l.punti.size(); ++k) {
                const QPointF punto(q.larghezza / 2.0 + (l.punti[k][0] - q.centro[0]) * q.perMm,
                                    q.altezza / 2.0 - (l.punti[k][1] - q.centro[1]) * q.perMm);
                k == 0 ? cammino.moveTo(punto) : cammino.lineTo(punto);
            }
            QColor colore(kSpigolo);
            if (opz.modo == Modo3D::nascoste) {
                // Pale colours would not read on white.
                colore = ColoreParte(parti[i].dati, static_cast<int>(i) == opz.scelta);
                colore.setHsv(colore.hue(), std::max(colore.saturation(), 170),
                              std::min(colore.value(), 165));
            }
            QPen penna(colore, opz.spessore, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
            if (nascoste) {
                penna.setColor(QColor(170, 175, 182));
                penna.setWidthF(opz.spessore * 0.7);
                penna.setDashPattern({4.0, 3.0});
            }
            p.setPen(penna);
            p.drawPath(cammino);
        }
    }
}

}  // namespace

QColor ColoreParte(const DatiParte& p, bool scelta) {
    return scelta ? QColor(kScelta) : QColor(static_cast<QRgb>(p.colore) | 0xFF000000U);
}

void DipingiSolidi(QPainter& p, const std::vector<Parte>& parti, const std::vector<Maglia>& maglie,
                   const Inquadratura& q, const OpzioniPittura3D& opz, Quadro* quadro) {
    std::vector<TintaParte> tinte(parti.size());
    std::vector<std::size_t> mostrate, piene;
    const bool bianche = opz.modo == Modo3D::nascoste;
    for (std::size_t i = 0; i < parti.size(); ++i) {
        const bool velata = Trave(parti[i]) && opz.trasparenzaTravi > 0.0;
        QColor c = ColoreParte(parti[i].dati, static_cast<int>(i) == opz.scelta);
        if (velata) c.setAlphaF(static_cast<float>(1.0 - std::min(opz.trasparenzaTravi, 0.95)));
        tinte[i].argb = c.rgba();
        tinte[i].visibile = (opz.visibili.empty() || opz.visibili[i]) && !parti[i].forma.IsNull();
        if (!tinte[i].visibile) continue;
        mostrate.push_back(i);
        if (!velata) piene.push_back(i);
    }
    const int finezza = opz.svelto ? 1 : kFinezza;
    if (!bianche || opz.svelto) {
        Inquadratura fine = q;
        fine.larghezza *= finezza, fine.altezza *= finezza, fine.perMm *= finezza;
        const Quadro r = Ombreggia(maglie, tinte, fine);
        QImage im(reinterpret_cast<const uchar*>(r.colori.data()), r.larghezza, r.altezza,
                  QImage::Format_ARGB32);
        if (finezza > 1) {
            im = im.scaled(q.larghezza, q.altezza, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        p.drawImage(QPointF(0, 0), im);
    }
    if (quadro != nullptr) {
        // What can be picked: beams that shine through do not stand before the rest.
        *quadro = Ombreggia(maglie, tinte, q);
    }
    if (opz.svelto || opz.modo == Modo3D::ombreggiato) return;
    const QPainter::RenderHints prima = p.renderHints();
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(Qt::NoBrush);
    if (piene.size() != mostrate.size()) {
        // Edges behind a beam that shines through are seen.
        Linee(p, parti, piene, q, opz, false);
        Linee(p, parti, mostrate, q, opz, true);
    } else {
        Linee(p, parti, mostrate, q, opz, false);
    }
    p.setRenderHints(prima);
}

}  // namespace tk07
