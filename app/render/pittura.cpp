#include "render/pittura.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QVector>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <optional>

#include "base/testo.h"
#include "base/visibile.h"

namespace tk07 {

namespace {

constexpr double kRadianti = std::numbers::pi / 180.0;

// Kinds of line: the option row with its colour, the shipped colour, width [mm].
struct Genere {
    RigaOpz opzione;
    int colore;  // where the options lack the row
    double spessore;
    const char* nome;
};
constexpr std::array<Genere, 6> kGeneri{{{kOpzColoreContorno, 1, 0.40, "contorni"},
                                         {kOpzColoreContorno2, 8, 0.25, "contorni secondari"},
                                         {kOpzColoreSaldature, 3, 0.30, "saldature"},
                                         {kOpzColoreSegni, 6, 0.18, "segni di sezione e assi"},
                                         {kOpzColoreQuoteDett, 2, 0.18, "quote dei dettagli"},
                                         {kOpzColoreQuote, 2, 0.18, "quote, etichette e note"}}};
constexpr double kSpessoreLibero = 0.25;

int ColoreGenere(const Genere& g, const Opzioni& opz) {
    if (g.opzione >= static_cast<int>(opz.Righe.size())) return g.colore;
    const double v = opz.ValOpz(g.opzione);
    return v >= 0.0 && v < kColori ? static_cast<int>(v) : 1;
}

// Strokes and gaps [mm of paper], beginning with a stroke, by line type.
const std::vector<double>& Tratti(short tipo) {
    static const std::array<std::vector<double>, 5> kTratti{
        {{}, {7.0, 1.2, 0.8, 1.2}, {3.0, 1.2}, {6.0, 1.2, 0.8, 1.2, 0.8, 1.2}, {1.5, 0.8}}};
    return kTratti[tipo >= 1 && tipo <= 4 ? static_cast<std::size_t>(tipo) : 0];
}

// Widest pen by line type: axes and hidden edges are thin whatever they belong to.
double SpessoreMassimo(short tipo) {
    switch (tipo) {
        case 1:
        case 3:
            return 0.18;
        case 2:
        case 4:
            return 0.25;
        default:
            return 10.0;
    }
}

double Canale(int c) { return c / 255.0 * c / 255.0; }  // linear light, near enough
double Luce(const QColor& c) {
    return 0.2126 * Canale(c.red()) + 0.7152 * Canale(c.green()) + 0.0722 * Canale(c.blue());
}
// Ratio of the lighter to the darker of two colours, as screens are judged by.
double Contrasto(const QColor& a, const QColor& b) {
    const double x = Luce(a) + 0.05, y = Luce(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

QPointF Punto(const Disegno& d, int i) {
    const auto k = static_cast<std::size_t>(i);
    return {d.coordX[k], d.coordY[k]};
}

// The part of the segment inside the window as parameters; nothing when it passes by.
std::optional<std::pair<double, double>> Ritaglio(const QPointF& a, const QPointF& b,
                                                  const QRectF& r) {
    double t0 = 0.0, t1 = 1.0;
    const auto lato = [&](double v, double dv, double minimo, double massimo) {
        if (dv == 0.0) return v >= minimo && v <= massimo;
        const double u = (minimo - v) / dv, w = (massimo - v) / dv;
        t0 = std::max(t0, std::min(u, w));
        t1 = std::min(t1, std::max(u, w));
        return t0 <= t1;
    };
    if (!lato(a.x(), b.x() - a.x(), r.left(), r.right()) ||
        !lato(a.y(), b.y() - a.y(), r.top(), r.bottom())) {
        return std::nullopt;
    }
    return std::pair{t0, t1};
}

QFont Carattere() {
    QFont carattere(QStringLiteral("DejaVu Sans"));
    carattere.setPixelSize(100);  // scaled when drawn: the size of the device plays no part
    carattere.setHintingPreference(QFont::PreferNoHinting);
    return carattere;
}

class Pittore {
  public:
    Pittore(QPainter& p, const Disegno& d, const QTransform& t, const OpzioniPittura& opz)
        : p_(p), d_(d), t_(t), opz_(opz), scala_(std::sqrt(std::fabs(t.determinant()))) {
        if (!opz.finestra.isNull()) finestra_ = opz.finestra.adjusted(-2.0, -2.0, 2.0, 2.0);
    }

    void Tutto() {
        p_.setBrush(Qt::NoBrush);
        // Thick strokes cover thin ones where they meet.
        std::vector<std::size_t> ordine(d_.linee.size());
        for (std::size_t i = 0; i < ordine.size(); ++i) ordine[i] = i;
        std::stable_sort(ordine.begin(), ordine.end(), [&](std::size_t a, std::size_t b) {
            const LineaDis &x = d_.linee[a], &y = d_.linee[b];
            const double sx = Spessore(x.lineaColore, x.lineaTipo),
                         sy = Spessore(y.lineaColore, y.lineaTipo);
            return sx != sy ? sx < sy : Strato(x.lineaColore) < Strato(y.lineaColore);
        });
        for (const std::size_t i : ordine) Linea(d_.linee[i]);
        Svuota();
        for (const ArcoDis& a : d_.archi) Arco(a);
        for (const TestoDis& t : d_.testi) Testo(t);
    }

  private:
    bool Visibile(short colore) const {
        return opz_.visibili[static_cast<std::size_t>(Strato(colore))];
    }
    double Spessore(short colore, short tipo) const {
        const double s = opz_.spessori[static_cast<std::size_t>(Strato(colore))];
        return std::max(std::min(s, SpessoreMassimo(tipo)), opz_.spessoreMinimo);
    }
    QPen Penna(short colore, short tipo) const {
        QPen penna(ColoreSuCarta(Strato(colore), opz_.carta), Spessore(colore, tipo));
        penna.setCapStyle(Qt::RoundCap);  // corners of separate segments close
        penna.setJoinStyle(Qt::RoundJoin);
        return penna;
    }
    bool Fuori(const QRectF& r) const { return !finestra_.isNull() && !finestra_.intersects(r); }

    void Linea(const LineaDis& l) {
        if (!Visibile(l.lineaColore)) return;
        QPointF a = t_.map(Punto(d_, l.lineaIni)), b = t_.map(Punto(d_, l.lineaFin));
        const double lunghezza = std::hypot(b.x() - a.x(), b.y() - a.y());
        std::pair<double, double> parte{0.0, 1.0};
        if (!finestra_.isNull()) {
            const auto dentro = Ritaglio(a, b, finestra_);
            if (!dentro) return;
            parte = *dentro;
            const QPointF v = b - a;
            b = a + v * parte.second;
            a += v * parte.first;
        }
        QPen penna = Penna(l.lineaColore, l.lineaTipo);
        const std::vector<double>& tratti = Tratti(l.lineaTipo);
        const double adatta = tratti.empty() ? 0.0 : Adattamento(tratti, lunghezza);
        if (adatta > 0.0) penna.setCapStyle(Qt::FlatCap);
        if (penna != penna_) Svuota();
        penna_ = penna;
        if (adatta > 0.0) {
            Tratteggia(a, b, parte.first * lunghezza / adatta, tratti, adatta);
        } else {
            segmenti_.push_back({a, b});
        }
    }
    // The visible part from a to b in strokes; `percorso` is what of the pattern went before a.
    // Done here and not by the pen: the toolkit's SVG writer loses the pattern of pens thinner
    // than 1.
    void Tratteggia(const QPointF& a, const QPointF& b, double percorso,
                    const std::vector<double>& tratti, double adatta) {
        constexpr double kMassimiTratti = 5000.0;
        const double lunghezza = std::hypot(b.x() - a.x(), b.y() - a.y());
        if (!(lunghezza > 0.0)) return;
        const double periodo = std::accumulate(tratti.begin(), tratti.end(), 0.0);
        if (!(lunghezza / (periodo * adatta) < kMassimiTratti)) {  // nobody could tell them apart
            segmenti_.push_back({a, b});
            return;
        }
        const QPointF passo = (b - a) / lunghezza;
        double qui = -std::fmod(percorso, periodo) * adatta;  // along the visible part [mm]
        for (std::size_t k = 0; qui < lunghezza; k = (k + 1) % tratti.size()) {
            const double fine = qui + tratti[k] * adatta;
            if (k % 2 == 0 && fine > 0.0) {
                segmenti_.push_back(
                    {a + passo * std::max(qui, 0.0), a + passo * std::min(fine, lunghezza)});
            }
            qui = fine;
        }
    }
    // Factor on the strokes so that the line begins and ends with a full one; 0 when it is too
    // short to show its type and is drawn as one stroke.
    static double Adattamento(const std::vector<double>& tratti, double lunghezza) {
        const double periodo = std::accumulate(tratti.begin(), tratti.end(), 0.0);
        const double giri = std::max(1.0, std::round((lunghezza - tratti[0]) / periodo));
        const double f = lunghezza / (giri * periodo + tratti[0]);
        return f < 0.3 ? 0.0 : f;
    }
    // Segments of one pen go out together.
    void Svuota() {
        if (!segmenti_.isEmpty()) {
            p_.setPen(penna_);
            p_.drawLines(segmenti_);
        }
        segmenti_.clear();
    }

    void Arco(const ArcoDis& arco) {
        if (!Visibile(arco.arcoColore)) return;
        const GeometriaArco g = LeggiArco(d_, arco);
        const QPointF c = t_.map(QPointF(g.x, g.y));
        const double r = g.raggio * scala_;
        const QRectF quadro(c.x() - r, c.y() - r, 2.0 * r, 2.0 * r);
        if (Fuori(quadro) || !(r > 0.0)) return;
        // Paths turn counter-clockwise as seen; a mapping that keeps y upwards mirrors that.
        const double verso = t_.determinant() < 0.0 ? 1.0 : -1.0;
        QPainterPath via;
        if (g.ampiezza >= 360.0) {
            via.addEllipse(quadro);
        } else {
            via.arcMoveTo(quadro, verso * g.inizio);
            via.arcTo(quadro, verso * g.inizio, verso * g.ampiezza);
        }
        p_.setPen(Penna(arco.arcoColore, 0));
        p_.drawPath(via);
    }

    void Testo(const TestoDis& t) {
        if (!Visibile(t.testoColore) || t.testoAlt <= 0 || t.testoLargh <= 0) return;
        const QString testo = TestoMostrato(t.testoStringa);
        const double alt = t.testoAlt / 10.0 * scala_, largh = t.testoLargh / 10.0 * scala_;
        const QPointF base = t_.map(Punto(d_, t.testoCoord));
        const double lungo = largh * static_cast<double>(testo.size()) + 2.0 * alt;
        if (Fuori({base.x() - lungo, base.y() - lungo, 2.0 * lungo, 2.0 * lungo})) return;
        DipingiScritta(p_, base, testo, alt, largh * static_cast<double>(testo.size()),
                       t.testoAngolo, ColoreSuCarta(Strato(t.testoColore), opz_.carta));
    }

    QPainter& p_;
    const Disegno& d_;
    const QTransform& t_;
    const OpzioniPittura& opz_;
    double scala_;
    QRectF finestra_;
    QPen penna_;
    QVector<QLineF> segmenti_;
};

}  // namespace

OpzioniPittura::OpzioniPittura() {
    spessori = SpessoriPenne({});
    visibili.fill(true);
}

std::array<double, kColori> SpessoriPenne(const Opzioni& opz) {
    std::array<double, kColori> s{};
    for (const Genere& g : kGeneri) {
        double& qui = s[static_cast<std::size_t>(ColoreGenere(g, opz))];
        if (qui == 0.0) qui = g.spessore;
    }
    for (double& x : s) x = x == 0.0 ? kSpessoreLibero : x;
    return s;
}

std::array<QString, kColori> NomiStrati(const Opzioni& opz) {
    std::array<QString, kColori> nomi;
    for (const Genere& g : kGeneri) {
        QString& qui = nomi[static_cast<std::size_t>(ColoreGenere(g, opz))];
        qui += (qui.isEmpty() ? "" : "; ") + QString::fromUtf8(g.nome);
    }
    return nomi;
}

int Strato(short colore) { return colore >= 0 && colore < kColori ? colore : 1; }

QColor ColoreCarta(Carta carta) {
    return carta == Carta::chiara ? QColor(255, 255, 255) : QColor(28, 32, 38);
}

QColor ColoreSuCarta(int indice, Carta carta) {
    const Rgb v = ColoreVideo(indice);
    const QColor fondo = ColoreCarta(carta);
    QColor c(v.r, v.g, v.b);
    if (carta == Carta::chiara && v == Rgb{255, 255, 255}) return {0, 0, 0};
    if (carta == Carta::scura && v == Rgb{0, 0, 0}) return {225, 225, 225};
    constexpr double kPasso = 0.94;
    const double leggibile = carta == Carta::chiara ? 3.5 : 4.5;
    while (Contrasto(c, fondo) < leggibile) {
        const auto passo = [&](int x) {
            return static_cast<int>(carta == Carta::chiara ? x * kPasso : 255 - (255 - x) * kPasso);
        };
        c.setRgb(passo(c.red()), passo(c.green()), passo(c.blue()));
    }
    return c;
}

GeometriaArco LeggiArco(const Disegno& d, const ArcoDis& a) {
    const QPointF c = Punto(d, a.arcoCentro), i = Punto(d, a.arcoIni), f = Punto(d, a.arcoFin);
    GeometriaArco g{c.x(), c.y(), std::hypot(i.x() - c.x(), i.y() - c.y())};
    g.inizio = std::atan2(i.y() - c.y(), i.x() - c.x()) / kRadianti;
    if (std::fabs(i.x() - f.x()) < kCoincidenza && std::fabs(i.y() - f.y()) < kCoincidenza) {
        return g;
    }
    g.ampiezza = std::atan2(f.y() - c.y(), f.x() - c.x()) / kRadianti - g.inizio;
    if (g.ampiezza <= 0.0) g.ampiezza += 360.0;
    return g;
}

QString TestoMostrato(const std::string& testo) {
    return QString::fromStdString(SenzaControlli(testo)).replace(QLatin1Char(']'), QChar(0x00D8));
}

std::array<QPointF, 4> RiquadroTesto(const Disegno& d, const TestoDis& t) {
    constexpr double kSotto = 0.33, kSopra = 1.28;  // of the capitals: descenders, accents
    const double n = static_cast<double>(TestoMostrato(t.testoStringa).size());
    const double largo = n * t.testoLargh / 10.0, alto = t.testoAlt / 10.0;
    const double c = std::cos(t.testoAngolo * kRadianti), s = std::sin(t.testoAngolo * kRadianti);
    const QPointF u(c, s), v(-s, c), o = Punto(d, t.testoCoord);
    const QPointF basso = o - v * (kSotto * alto), sopra = o + v * (kSopra * alto);
    return {basso, basso + u * largo, sopra + u * largo, sopra};
}

QRectF IngombroDisegno(const Disegno& d) {
    double x0 = 0.0, x1 = 0.0, y0 = 0.0, y1 = 0.0;
    bool primo = true;
    const auto allarga = [&](const QPointF& q) {
        x0 = primo ? q.x() : std::min(x0, q.x());
        x1 = primo ? q.x() : std::max(x1, q.x());
        y0 = primo ? q.y() : std::min(y0, q.y());
        y1 = primo ? q.y() : std::max(y1, q.y());
        primo = false;
    };
    for (const LineaDis& l : d.linee) {
        allarga(Punto(d, l.lineaIni));
        allarga(Punto(d, l.lineaFin));
    }
    for (const ArcoDis& a : d.archi) {
        const GeometriaArco g = LeggiArco(d, a);
        const auto su = [&](double gradi) {
            allarga({g.x + g.raggio * std::cos(gradi * kRadianti),
                     g.y + g.raggio * std::sin(gradi * kRadianti)});
        };
        su(g.inizio);
        su(g.inizio + g.ampiezza);
        // the quarter points that the arc passes
        for (int q = static_cast<int>(std::ceil(g.inizio / 90.0)); q * 90.0 < g.inizio + g.ampiezza;
             ++q) {
            su(q * 90.0);
        }
    }
    for (const TestoDis& t : d.testi) {
        for (const QPointF& q : RiquadroTesto(d, t)) allarga(q);
    }
    return primo ? QRectF() : QRectF(x0, y0, x1 - x0, y1 - y0);
}

void DipingiDisegno(QPainter& p, const Disegno& d, const QTransform& mondoSuCarta,
                    const OpzioniPittura& opz) {
    p.save();
    Pittore(p, d, mondoSuCarta, opz).Tutto();
    p.restore();
}

double LarghezzaScritta(const QString& testo, double altezza) {
    const QFontMetricsF misure(Carattere());
    return misure.horizontalAdvance(testo) * altezza / misure.capHeight();
}

void DipingiScritta(QPainter& p, const QPointF& base, const QString& testo, double altezza,
                    double larghezza, double gradi, const QColor& colore) {
    const QFont carattere = Carattere();
    const double s = altezza / QFontMetricsF(carattere).capHeight(),
                 naturale = LarghezzaScritta(testo, altezza);
    if (!(s > 0.0) || !(naturale > 0.0)) return;
    p.save();
    p.setFont(carattere);
    p.setPen(colore);
    p.translate(base);
    p.rotate(-gradi);
    p.scale(larghezza > 0.0 && naturale > larghezza ? s * larghezza / naturale : s, s);
    p.drawText(QPointF(0.0, 0.0), testo);
    p.restore();
}

}  // namespace tk07
