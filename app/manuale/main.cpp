// Makes the manual: the chapters of a directory, in the order of their names, as one PDF.
//   tk07-manuale CHAPTERS OUT.pdf

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QSaveFile>
#include <cstdio>

#include "manuale/pagine.h"

namespace {

int Guasto(const QString& testo) {
    const QByteArray riga = "tk07-manuale: " + testo.toUtf8() + "\n";
    std::fwrite(riga.constData(), 1, static_cast<std::size_t>(riga.size()), stderr);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the platform says of a session that a build does not have is nobody's concern.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QGuiApplication app(argc, argv);
    qInstallMessageHandler(nullptr);
    const QStringList argomenti = QGuiApplication::arguments();
    if (argomenti.size() != 3) return Guasto(QStringLiteral("uso: tk07-manuale CAPITOLI OUT.pdf"));
    const QStringList famiglie = QFontDatabase::families();
    for (const char* f : {"DejaVu Sans", "DejaVu Sans Mono"}) {
        if (!famiglie.contains(QLatin1String(f))) {
            return Guasto(QStringLiteral("carattere mancante: ") + QLatin1String(f));
        }
    }
    const QDir cartella(argomenti[1]);
    const QStringList capitoli =
        cartella.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    if (capitoli.isEmpty()) return Guasto(QStringLiteral("nessun capitolo in ") + argomenti[1]);

    QByteArray bytes;
    {
        QBuffer uscita(&bytes);
        uscita.open(QIODevice::WriteOnly);
        QPdfWriter carta(&uscita);
        carta.setResolution(600);
        carta.setPageSize(QPageSize(QPageSize::A4));
        carta.setPageMargins(QMarginsF(20.0, 14.0, 20.0, 12.0), QPageLayout::Millimeter);
        carta.setTitle(QStringLiteral("TK07 - Manuale"));
        carta.setCreator(QStringLiteral("TK07 " TK07_VERSIONE));
        tk07::manuale::Impaginatore pagine(carta);
        QString errore;
        for (const QString& nome : capitoli) {
            QFile f(cartella.filePath(nome));
            if (!f.open(QIODevice::ReadOnly)) return Guasto(f.fileName() + ": " + f.errorString());
            if (!pagine.Capitolo(QString::fromUtf8(f.readAll()), cartella.path(), errore)) {
                return Guasto(nome + ": " + errore);
            }
        }
        if (!pagine.Scrivi(QStringLiteral("TK07"), QStringLiteral("Nodo trave - trave con piastre"),
                           QStringLiteral("Versione " TK07_VERSIONE), errore)) {
            return Guasto(errore);
        }
        uscita.close();
        bytes = tk07::ConSegnalibri(bytes, pagine.Segnalibri(), pagine.Rimandi(), errore);
        if (bytes.isEmpty()) return Guasto(errore);
    }
    // Written beside and renamed: a manual that fails leaves the old one whole.
    QSaveFile pdf(argomenti[2]);
    if (!pdf.open(QIODevice::WriteOnly) || pdf.write(bytes) != bytes.size() || !pdf.commit()) {
        return Guasto(argomenti[2] + ": " + pdf.errorString());
    }
    return 0;
}
