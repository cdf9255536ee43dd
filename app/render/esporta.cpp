#include "render/esporta.h"

#include <QBuffer>
#include <QByteArray>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QLibraryInfo>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <QTranslator>
#include <algorithm>
#include <clocale>
#include <cmath>

#include "base/file_testo.h"

namespace tk07 {

namespace {

constexpr double kMmPollice = 25.4;
constexpr int kPuntiPdf = 1200, kPuntiPng = 200;  // dots per inch
constexpr int kMassimoLato = 8000;                // pixels
constexpr double kLatoImmagine = 420.0;           // length of the sheet a picture stands for [mm]
constexpr double kBordoImmagine = 0.96;           // part of the picture that the drawing fills

struct Lavoro {
    const Disegno& d;
    const Cartiglio& cartiglio;
    const OpzioniPittura& opz;
    Foglio foglio;
    QString Titolo() const {
        return cartiglio.titolo.isEmpty() ? cartiglio.file : cartiglio.titolo;
    }
    void Dipingi(QPainter& p) const { DipingiTavola(p, d, foglio, cartiglio, opz); }
};

bool Pdf(const Lavoro& l, QBuffer& uscita) {
    QPdfWriter pdf(&uscita);
    pdf.setCreator(l.cartiglio.programma);
    pdf.setTitle(l.Titolo());
    pdf.setResolution(kPuntiPdf);
    pdf.setPageLayout(
        QPageLayout(QPageSize(QSizeF(l.foglio.larghezza, l.foglio.altezza), QPageSize::Millimeter,
                              l.foglio.nome, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    QPainter p;
    if (!p.begin(&pdf)) return false;
    p.scale(kPuntiPdf / kMmPollice, kPuntiPdf / kMmPollice);
    l.Dipingi(p);
    return p.end();
}

bool Svg(const Lavoro& l, QBuffer& uscita) {
    QSvgGenerator svg;
    svg.setOutputDevice(&uscita);
    svg.setTitle(l.Titolo());
    svg.setDescription(l.cartiglio.programma);
    svg.setResolution(254);  // ten points a millimetre: sizes in mm come out whole
    svg.setSize(QSize(static_cast<int>(std::lround(l.foglio.larghezza * 10.0)),
                      static_cast<int>(std::lround(l.foglio.altezza * 10.0))));
    svg.setViewBox(QRectF(0.0, 0.0, l.foglio.larghezza, l.foglio.altezza));
    QPainter p;
    if (!p.begin(&svg)) return false;
    p.fillRect(svg.viewBoxF(), Qt::white);  // or the sheet would be black where the reader's is
    l.Dipingi(p);
    if (!p.end()) return false;
    // Where the font is missing, one of the same widths comes first.
    uscita.buffer().replace("font-family=\"DejaVu Sans\"",
                            "font-family=\"DejaVu Sans, Verdana, sans-serif\"");
    return true;
}

bool Png(const Lavoro& l, QBuffer& uscita) {
    const double lato = std::max(l.foglio.larghezza, l.foglio.altezza);
    const double perMm = std::min(kPuntiPng / kMmPollice, kMassimoLato / lato);
    QImage immagine(static_cast<int>(std::floor(l.foglio.larghezza * perMm + 0.5)),
                    static_cast<int>(std::floor(l.foglio.altezza * perMm + 0.5)),
                    QImage::Format_RGB32);
    if (immagine.isNull()) return false;
    immagine.fill(Qt::white);
    immagine.setDotsPerMeterX(static_cast<int>(std::lround(perMm * 1000.0)));
    immagine.setDotsPerMeterY(immagine.dotsPerMeterX());
    QPainter p(&immagine);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    p.scale(perMm, perMm);
    l.Dipingi(p);
    return p.end() && immagine.save(&uscita, "PNG");
}

bool Guasto(QString& errore, const QString& file, const QString& cosa) {
    errore = QString::fromStdString(PercorsoMostrato(file.toStdString())) + ": " + cosa;
    return false;
}

// Without any font the toolkit draws no text and says nothing.
bool CaratteriPresenti(const QString& file, QString& errore) {
    if (!QFontDatabase::families().isEmpty()) return true;
    return Guasto(errore, file, QStringLiteral("nessun carattere installato: serve DejaVu Sans"));
}

bool Scrivi(const QByteArray& bytes, const QString& file, QString& errore) {
    const std::string detto =
        ScriviFile(file.toStdString(), {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                   Codifica::utf8);
    if (detto.empty()) return true;
    return Guasto(errore, file, "file non scritto: " + QString::fromStdString(detto));
}

}  // namespace

bool ScriviPng(const QImage& immagine, const QString& file, QString& errore) {
    if (QFileInfo(file).suffix().toLower() != "png") {
        return Guasto(errore, file, QStringLiteral("l'immagine deve essere un file .png"));
    }
    if (immagine.isNull()) return Guasto(errore, file, QStringLiteral("immagine troppo grande"));
    QByteArray bytes;
    QBuffer uscita(&bytes);
    uscita.open(QIODevice::WriteOnly);
    if (!immagine.save(&uscita, "PNG")) {
        return Guasto(errore, file, QStringLiteral("immagine non composta"));
    }
    return Scrivi(bytes, file, errore);
}

bool SalvaImmagine(const Disegno& d, const OpzioniPittura& opz, const QSize& pixel,
                   const QString& file, QString& errore) {
    if (QFileInfo(file).suffix().toLower() != "png") {
        return Guasto(errore, file, QStringLiteral("l'immagine deve essere un file .png"));
    }
    if (!CaratteriPresenti(file, errore)) return false;
    QImage immagine(pixel, QImage::Format_RGB32);
    if (immagine.isNull()) return Guasto(errore, file, QStringLiteral("immagine troppo grande"));
    immagine.fill(ColoreCarta(opz.carta));
    const double perMm = std::max(pixel.width(), pixel.height()) / kLatoImmagine;
    const QRectF q = IngombroDisegno(d);
    const double s = kBordoImmagine * std::min(pixel.width() / perMm / std::max(q.width(), 1e-3),
                                               pixel.height() / perMm / std::max(q.height(), 1e-3));
    QTransform t;
    t.translate(pixel.width() / perMm / 2.0, pixel.height() / perMm / 2.0);
    t.scale(s, -s);
    t.translate(-q.center().x(), -q.center().y());
    OpzioniPittura qui = opz;
    qui.finestra = QRectF(0.0, 0.0, pixel.width() / perMm, pixel.height() / perMm);
    qui.spessoreMinimo = 1.0 / perMm;
    QPainter p(&immagine);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    p.scale(perMm, perMm);
    DipingiDisegno(p, d, t, qui);
    if (!p.end()) return Guasto(errore, file, QStringLiteral("immagine non composta"));
    return ScriviPng(immagine, file, errore);
}

bool EsportaTavola(const Disegno& d, const Cartiglio& cartiglio, const OpzioniPittura& opz,
                   const QString& file, QString& errore) {
    const QString tipo = QFileInfo(file).suffix().toLower();
    if (tipo != "pdf" && tipo != "svg" && tipo != "png") {
        return Guasto(errore, file, QStringLiteral("formato non riconosciuto (svg, pdf, png)"));
    }
    if (!CaratteriPresenti(file, errore)) return false;
    const QRectF ingombro = IngombroDisegno(d);
    const Lavoro lavoro{d, cartiglio, opz, ScegliFoglio(ingombro.width(), ingombro.height())};
    // The whole file in memory first: what stands on disk is replaced at once or not at all.
    QByteArray bytes;
    QBuffer uscita(&bytes);
    uscita.open(QIODevice::WriteOnly);
    const bool fatto = tipo == "pdf"   ? Pdf(lavoro, uscita)
                       : tipo == "svg" ? Svg(lavoro, uscita)
                                       : Png(lavoro, uscita);
    uscita.close();
    if (!fatto) return Guasto(errore, file, QStringLiteral("composizione della tavola fallita"));
    return Scrivi(bytes, file, errore);
}

void CaricaItaliano(QCoreApplication& app) {
    auto* traduzione = new QTranslator(&app);
    if (traduzione->load(QStringLiteral("qtbase_it"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        app.installTranslator(traduzione);
    }
}

std::unique_ptr<QGuiApplication> AppSenzaSchermo() {
    if (QCoreApplication::instance() != nullptr) return nullptr;
    // The application keeps references to its arguments for as long as it lives.
    static char nome[] = "tk07", opzione[] = "-platform", valore[] = "offscreen";
    static char* argomenti[] = {nome, opzione, valore, nullptr};
    static int quanti = 0;
    quanti = 3;
    auto app = InSilenzio([] { return std::make_unique<QGuiApplication>(quanti, argomenti); });
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has taken over the user's
    return app;
}

}  // namespace tk07
