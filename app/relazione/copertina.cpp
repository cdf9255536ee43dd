#include "relazione/copertina.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "relazione/impagina.h"

namespace tk07 {

namespace {

const QColor kBene(30, 120, 50), kMale(175, 20, 20), kTitolo(25, 55, 100), kGrigio(90, 90, 90);
constexpr double kPieno = 1.25;  // ratio that fills a bar

}  // namespace

void DipingiCopertina(QPainter& p, const QRectF& q, const RelazioneEstesa& d,
                      const std::vector<std::pair<QString, QString>>& scheda,
                      const CaratteriRel& c) {
    double y = q.top() + 6.0 * kMmRel;
    const auto scrivi = [&](const Carattere& f, const QColor& colore, double x, const QString& t) {
        p.setFont(f.Font());
        p.setPen(colore);
        p.drawText(QPointF(x, y + f.Salita()), t);
    };
    scrivi(c.copertina, kTitolo, q.left(), QStringLiteral("Relazione di calcolo"));
    y += c.copertina.Altezza() + 1.0 * kMmRel;
    for (const QString& r : c.paragrafo.Righe(
             QStringLiteral("Collegamento trave – trave con piastre bullonate"), q.width())) {
        scrivi(c.paragrafo, kTitolo, q.left(), r);
        y += c.paragrafo.Altezza();
    }
    y += 2.0 * kMmRel;
    for (const QString& r : c.testo.Righe(DaUtf8(d.titolo), q.width())) {
        scrivi(c.testo, kGrigio, q.left(), r);
        y += c.testo.Altezza() * 1.1;
    }

    y += 7.0 * kMmRel;
    const QColor colore = d.equilibri.empty() ? kGrigio : d.verificato ? kBene : kMale;
    const double alto = 16.0 * kMmRel;
    p.fillRect(QRectF(q.left(), y, q.width(), alto), colore);
    p.setFont(c.verdetto.Font());
    p.setPen(Qt::white);
    p.drawText(
        QPointF(q.left() + 6.0 * kMmRel, y + alto / 2.0 + c.verdetto.Salita() / 2.0 - 1.0 * kMmRel),
        DaUtf8(d.verdetto));
    y += alto + 3.0 * kMmRel;
    if (!d.avvisi.empty()) {
        scrivi(c.forte, kMale, q.left(),
               QStringLiteral("Regole di distanza non rispettate: %1 (capitolo «Regole di "
                              "distanza dei bulloni»)")
                   .arg(d.avvisi.size()));
        y += c.forte.Altezza();
    }
    y += 5.0 * kMmRel;

    scrivi(c.paragrafo, kTitolo, q.left(), QStringLiteral("Verifica che governa, per famiglia"));
    y += c.paragrafo.Altezza() + 2.0 * kMmRel;
    const double xNome = q.left(), xControllo = q.left() + 31.0 * kMmRel,
                 xSestetto = q.left() + 76.0 * kMmRel, xBarra = q.left() + 122.0 * kMmRel,
                 largoBarra = 34.0 * kMmRel;
    for (const GovernanteRel& g : d.governanti) {
        const QColor suo = g.rapporto.empty() ? kGrigio : g.passa ? kBene : kMale;
        const double cima = y;
        scrivi(c.forte, Qt::black, xNome, DaUtf8(g.famiglia));
        if (g.rapporto.empty()) {
            scrivi(c.testo, kGrigio, xControllo, QStringLiteral("nessuna verifica"));
            y += c.testo.Altezza() + 2.4 * kMmRel;
            continue;
        }
        const auto colonna = [&](double x, double largo, const QString& t) {
            y = cima;
            constexpr qsizetype kRighe = 3;
            QStringList righe = c.testo.Righe(t, largo);
            if (righe.size() > kRighe) {
                righe = righe.mid(0, kRighe);
                righe.back() += QStringLiteral("…");
            }
            for (const QString& r : righe) {
                scrivi(c.testo, Qt::black, x, r);
                y += c.testo.Altezza();
            }
            return y;
        };
        const double f1 = colonna(xControllo, xSestetto - xControllo - 2.0 * kMmRel,
                                  DaUtf8(g.controllo + ", " + g.elemento));
        const double f2 = colonna(xSestetto, xBarra - xSestetto - 2.0 * kMmRel, DaUtf8(g.sestetto));
        const double parte =
            std::isfinite(g.valore) ? std::clamp(g.valore / kPieno, 0.0, 1.0) : 1.0;
        const QRectF barra(xBarra, cima + 0.6 * kMmRel, largoBarra, 3.2 * kMmRel);
        p.fillRect(barra, QColor(228, 231, 235));
        p.fillRect(QRectF(barra.topLeft(), QSizeF(parte * largoBarra, barra.height())), suo);
        const double uno = xBarra + largoBarra / kPieno;
        p.setPen(QPen(Qt::black, 10));
        p.drawLine(QPointF(uno, cima), QPointF(uno, cima + 4.4 * kMmRel));
        y = cima;
        scrivi(c.forte, suo, xBarra + largoBarra + 2.0 * kMmRel, DaUtf8(g.rapporto));
        y = std::max({f1, f2, cima + 4.4 * kMmRel}) + 2.0 * kMmRel;
    }
    scrivi(c.tabella, kGrigio, q.left(),
           QStringLiteral("Rapporto tra domanda e limite; la tacca sulla barra è il limite, 1."));
    y += c.tabella.Altezza() + 7.0 * kMmRel;

    std::vector<std::pair<QString, QString>> voci = scheda;
    for (const auto& [nome, valore] : d.scheda) voci.emplace_back(DaUtf8(nome), DaUtf8(valore));
    for (const auto& [nome, valore] : voci) {
        scrivi(c.testo, kGrigio, q.left(), nome);
        for (const QString& r : c.testo.Righe(valore, q.width() - 45.0 * kMmRel)) {
            scrivi(c.testo, Qt::black, q.left() + 45.0 * kMmRel, r);
            y += c.testo.Altezza() * 1.2;
        }
    }
    // Room for whoever answers for the report, where the data leave it.
    const double firma = 60.0 * kMmRel, fondo = q.bottom() - 12.0 * kMmRel;
    if (y > fondo - 20.0 * kMmRel) return;
    p.setPen(QPen(kGrigio, 8));
    p.drawLine(QPointF(q.right() - firma, fondo), QPointF(q.right(), fondo));
    y = fondo + 1.0 * kMmRel;
    scrivi(c.tabella, kGrigio, q.right() - firma,
           QStringLiteral("Il progettista (timbro e firma)"));
}

}  // namespace tk07
