#include "render/tavola.h"

#include <QPainter>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace tk07 {

namespace {

constexpr double kMargine = 10.0, kRilegatura = 20.0;
constexpr double kCartiglioL = 180.0, kCartiglioA = 32.0;
constexpr double kRespiro = 4.0;  // between the drawing and frame or title block
constexpr double kTolleranza = 1e-6;
constexpr std::array<int, 4> kScale{1, 2, 5, 10};

struct Formato {
    const char* nome;
    double larghezza, altezza;
};
// Lying sheets of ISO 216.
constexpr std::array<Formato, 5> kFormati{{{"A4", 297.0, 210.0},
                                           {"A3", 420.0, 297.0},
                                           {"A2", 594.0, 420.0},
                                           {"A1", 841.0, 594.0},
                                           {"A0", 1189.0, 841.0}}};

QRectF Riquadro(double larghezza, double altezza) {
    return {kRilegatura, kMargine, larghezza - kRilegatura - kMargine, altezza - 2.0 * kMargine};
}

// The sheet with the drawing at this scale, if one of its two free areas takes it.
std::optional<Foglio> Prova(const Formato& f, int scala, double larghezza, double altezza) {
    const QRectF dentro =
        Riquadro(f.larghezza, f.altezza).adjusted(kRespiro, kRespiro, -kRespiro, -kRespiro);
    const QRectF sopra = dentro.adjusted(0.0, 0.0, 0.0, -kCartiglioA);
    const QRectF accanto = dentro.adjusted(0.0, 0.0, -kCartiglioL, 0.0);
    for (const QRectF& area : {sopra, accanto}) {
        if (larghezza / scala <= area.width() + kTolleranza &&
            altezza / scala <= area.height() + kTolleranza) {
            return Foglio{
                QString::fromLatin1(f.nome), f.larghezza, f.altezza, scala, scala > 10, area};
        }
    }
    return std::nullopt;
}

// Scales beyond the standard ones: 20, 50, 100, 200, ...
Foglio Ridotto(const Formato& f, double larghezza, double altezza) {
    int scala = 20;
    for (int k = 1; scala < 500000000; ++k) {
        if (const auto foglio = Prova(f, scala, larghezza, altezza)) return *foglio;
        scala = k % 3 == 1 ? scala / 2 * 5 : scala * 2;
    }
    // Coordinates of no meaning: the sheet stands, the drawing does not fit.
    return {QString::fromLatin1(f.nome),     f.larghezza, f.altezza, scala, true,
            Riquadro(f.larghezza, f.altezza)};
}

constexpr double kFine = 0.18, kMedio = 0.35, kGrosso = 0.70;

void DipingiCartiglio(QPainter& p, const Foglio& foglio, const Cartiglio& c) {
    const QRectF quadro = Riquadro(foglio.larghezza, foglio.altezza);
    const double x = quadro.right() - kCartiglioL, y = quadro.bottom() - kCartiglioA;
    const double x1 = x + 122.0, x2 = x + 153.0, fine = quadro.right();
    const double y1 = y + 16.0, y2 = y + 24.0;
    const auto linea = [&](double xa, double ya, double xb, double yb, double spessore) {
        p.setPen(QPen(Qt::black, spessore, Qt::SolidLine, Qt::SquareCap));
        p.drawLine(QPointF(xa, ya), QPointF(xb, yb));
    };
    linea(x, y, fine, y, kGrosso);
    linea(x, y, x, quadro.bottom(), kGrosso);
    linea(x1, y, x1, quadro.bottom(), kMedio);
    linea(x2, y, x2, quadro.bottom(), kMedio);
    linea(x, y1, fine, y1, kMedio);
    linea(x, y2, x1, y2, kFine);
    // A cell: what it holds in small grey letters, the text below.
    const auto cella = [&](double cx, double cy, double largo, const QString& nome,
                           const QString& testo, double altezza, double sotto) {
        DipingiScritta(p, {cx + 1.5, cy + 2.7}, nome, 1.4, 0.0, 0.0, QColor(90, 90, 90));
        // A long text becomes smaller first, down to half, and is squeezed for the rest.
        const double stretta = (largo - 3.0) / std::max(LarghezzaScritta(testo, altezza), 1.0);
        const double alta = altezza * std::clamp(stretta / 0.85, 0.5, 1.0);
        DipingiScritta(p, {cx + 1.5, cy + sotto}, testo, alta, largo - 3.0, 0.0, Qt::black);
    };
    cella(x, y, x1 - x, c.programma, c.titolo, 4.0, 11.5);
    cella(x, y1, x1 - x, QStringLiteral("Materiali"), c.materiali, 2.2, 6.5);
    cella(x, y2, x1 - x, QStringLiteral("File"), c.file, 2.2, 6.5);
    cella(x1, y, x2 - x1, foglio.ridotta ? QStringLiteral("Ridotta oltre 1:10") : QString(),
          QStringLiteral("Scala 1:%1").arg(foglio.scala), 3.5, 11.0);
    cella(x2, y, fine - x2, {}, QStringLiteral("Foglio ") + foglio.nome, 3.0, 11.0);
    cella(x1, y1, x2 - x1, QStringLiteral("Data"), c.data, 2.5, 10.0);
    cella(x2, y1, fine - x2, {}, QStringLiteral("Quote in mm"), 2.5, 10.0);
}

}  // namespace

Foglio ScegliFoglio(double larghezza, double altezza) {
    for (const Formato& f : kFormati) {
        std::vector<Formato> versi{f};
        if (&f == &kFormati[0]) versi.push_back({f.nome, f.altezza, f.larghezza});
        for (const int scala : kScale) {
            for (const Formato& verso : versi) {
                if (const auto foglio = Prova(verso, scala, larghezza, altezza)) return *foglio;
            }
        }
    }
    return Ridotto(kFormati.back(), larghezza, altezza);
}

Foglio FoglioDato(double larghezza, double altezza, const QString& nome, double larghezzaFoglio,
                  double altezzaFoglio) {
    const QByteArray latino = nome.toLatin1();
    const Formato f{latino.constData(), larghezzaFoglio, altezzaFoglio};
    for (const int scala : kScale) {
        if (const auto foglio = Prova(f, scala, larghezza, altezza)) return *foglio;
    }
    return Ridotto(f, larghezza, altezza);
}

void DipingiTavola(QPainter& p, const Disegno& d, const Foglio& foglio, const Cartiglio& cartiglio,
                   const OpzioniPittura& opz) {
    OpzioniPittura carta = opz;
    carta.carta = Carta::chiara;
    carta.finestra = QRectF(0.0, 0.0, foglio.larghezza, foglio.altezza);
    p.save();
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::black, kGrosso, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(Riquadro(foglio.larghezza, foglio.altezza));
    DipingiCartiglio(p, foglio, cartiglio);
    const QRectF ingombro = IngombroDisegno(d);
    const double s = 1.0 / foglio.scala;
    QTransform t;
    t.translate(foglio.area.center().x(), foglio.area.center().y());
    t.scale(s, -s);
    t.translate(-ingombro.center().x(), -ingombro.center().y());
    DipingiDisegno(p, d, t, carta);
    p.restore();
}

}  // namespace tk07
