// Unit converter:
// "|primcipale=1|uniprinctesto=daN|categoriadiingresso=4|valoreingresso=12|fileout=F|titolo=T|".

#include <QApplication>
#include <cstdio>
#include <string_view>

#include "desktop/finestra_kx.h"
#include "desktop/programma_gui.h"

namespace {

constexpr char kAiuto[] =
    "Convertitore di unità di misura\n"
    "Uso: kx_conversioni [RICHIESTA]\n"
    "\n"
    "Argomenti:\n"
    "  RICHIESTA                       Campi |chiave=valore|: principale, uniprinctesto,\n"
    "                                  categoriadiingresso, valoreingresso, fileout, titolo\n"
    "\n"
    "Opzioni:\n"
    "  -h,--help                       Mostra questo aiuto ed esce\n"
    "  --version                       Mostra la versione ed esce\n"
    "\n"
    "Esempio: kx_conversioni \"|uniprinctesto=daN|categoriadiingresso=4|valoreingresso=12|\"\n";

}  // namespace

int main(int argc, char** argv) {
    // Answered before the toolkit starts: no screen is needed for it.
    for (int i = 1; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "-h" || a == "--help") return std::fputs(kAiuto, stdout) < 0 ? 2 : 0;
        if (a == "--version") return std::fputs("TK07 " TK07_VERSIONE "\n", stdout) < 0 ? 2 : 0;
    }
    QApplication app(argc, argv);
    tk07::desktop::PreparaApplicazione(app);
    const QString riga = QCoreApplication::arguments().mid(1).join(QLatin1Char(' '));
    tk07::desktop::FinestraKx finestra(tk07::desktop::LeggiRichiestaKx(riga.toStdString()));
    return finestra.exec() == QDialog::Accepted ? 0 : 1;
}
