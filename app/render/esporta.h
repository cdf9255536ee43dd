#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QSize>
#include <QString>
#include <memory>

#include "drawing/archivio.h"
#include "render/pittura.h"
#include "render/tavola.h"

namespace tk07 {

// Writes the drawing as a sheet (ScegliFoglio) to scale, by the file's ending in any case: svg, pdf
// (to scale at 1200 dpi, text as text, the font embedded) or png (200 dpi, at most 8000 pixels a
// side). False with the reason and the file's name in `errore`; a file that exists then keeps its
// contents. Needs a QGuiApplication.
bool EsportaTavola(const Disegno& d, const Cartiglio& cartiglio, const OpzioniPittura& opz,
                   const QString& file, QString& errore);

// Writes a picture of the drawing alone, fitted to `pixel`, as PNG; pens and dashes as on a sheet
// 420 mm long. Faults as above.
bool SalvaImmagine(const Disegno& d, const OpzioniPittura& opz, const QSize& pixel,
                   const QString& file, QString& errore);

// Writes the picture as PNG. Faults as above; a null one is told as too large.
bool ScriviPng(const QImage& immagine, const QString& file, QString& errore);

// An application without any display, for command lines; null when one runs already. The
// environment and what it says of displays are left alone. It must outlive what is drawn.
std::unique_ptr<QGuiApplication> AppSenzaSchermo();

// Italian standard buttons and dialogs, where the toolkit's translations are installed.
void CaricaItaliano(QCoreApplication& app);

// Runs `fai` with the toolkit's chatter about locales and run-time directories kept off standard
// error.
template <class F>
auto InSilenzio(F fai) {
    const QtMessageHandler prima =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto r = fai();
    qInstallMessageHandler(prima);
    return r;
}

}  // namespace tk07
