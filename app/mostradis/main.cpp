// mostradis, the viewer of drawing files.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <clocale>
#include <string>
#include <utility>

#include "base/file_testo.h"
#include "base/testo.h"
#include "guscio/italiano.h"
#include "guscio/porta_cli.h"
#include "guscio/programma.h"
#include "guscio/schermo.h"
#include "mostradis/finestra.h"
#include "mostradis/lettura.h"
#include "render/esporta.h"

namespace {

using namespace tk07;
using namespace tk07::mostradis;

constexpr int kUso = 2;

int Guasto(const std::string& testo) {
    Errore("mostradis", testo);
    return kUso;
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    CLI::App app{"Visualizzatore dei file di disegno (.dis, .grb)", "mostradis"};
    ParlaItaliano(app);
    std::string file, immagine, tavola, dimensioni = "1600x1000";
    bool elenca = false;
    app.add_option("FILE", file,
                   "Disegno (.dis, .grb), o file di scambio (.inp); senza, il mostradis.inp della "
                   "cartella corrente o del programma")
        ->type_name("");
    app.add_flag("--elenca", elenca, "Elenca quanto letto, senza schermo");
    app.add_option("--immagine", immagine, "Scrive l'immagine del disegno ed esce")
        ->type_name("FILE.png");
    app.add_option("--dimensioni", dimensioni, "Pixel dell'immagine (1600x1000)")->type_name("LxH");
    app.add_option("--tavola", tavola, "Scrive la tavola in scala (svg, pdf, png) ed esce")
        ->type_name("FILE");
    app.footer("Esempio: mostradis --immagine nodo.png --dimensioni 2000x1400 nodo.dis");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError&) {
        return Guasto("argomenti errati (vedere mostradis --help)");
    }

    const std::string dirProgramma = DirettorioProgramma(argv[0]);
    if (file.empty()) file = TrovaInp(PercorsoAssoluto("."), dirProgramma);
    Opzioni opz;
    const std::string opzioni = dirProgramma + "/../custom/OpzioniNodi.txt";
    if (EsisteFile(opzioni)) LeggiOpzioni(opzioni, opz, PiattaformaMuta());
    StiliGrb stili{.Stili = {}};  // without a model the options give the heights
    LeggiStiliGrb(dirProgramma + "/../custom/cad2dmodello.grb", stili, PiattaformaMuta());

    if (elenca || !immagine.empty() || !tavola.empty()) {
        if (file.empty()) return Guasto("manca il file di disegno");
        std::string errore;
        const auto nome = DisegnoChiesto(file, errore);
        if (!nome) return Guasto(errore);
        DisegnoLetto letto;
        if (!LeggiDisegno(*nome, opz, stili, letto, errore)) {
            return Guasto(PercorsoMostrato(*nome) + ": " + errore);
        }
        if (elenca && !ScriviUscita(ElencaDisegno(letto, *nome))) {
            return Guasto("uscita non scritta");
        }
        const Disegno& d = letto.d;
        if (immagine.empty() && tavola.empty()) return 0;
        const auto qt = AppSenzaSchermo();
        OpzioniPittura pittura;
        pittura.spessori = SpessoriPenne(opz);
        QString detto;
        if (!immagine.empty()) {
            int l = 0, a = 0;
            if (!LeggiDimensioni(dimensioni, l, a))
                return Guasto("--dimensioni: atteso LxH in pixel");
            if (!SalvaImmagine(d, pittura, QSize(l, a), QString::fromStdString(immagine), detto)) {
                return Guasto(detto.toStdString());
            }
        }
        if (!tavola.empty() && !EsportaTavola(d, CartiglioDiFile(d, *nome), pittura,
                                              QString::fromStdString(tavola), detto)) {
            return Guasto(detto.toStdString());
        }
        return 0;
    }

    if (!SchermoPresente()) return Guasto("nessuno schermo: usare --elenca o --immagine");
    const auto qt = InSilenzio([&] { return std::make_unique<QApplication>(argc, argv); });
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has taken over the user's
    CaricaItaliano(*qt);
    Finestra finestra(opz, std::move(stili));
    finestra.show();
    if (file.empty()) {
        finestra.Avvisa("Nessun disegno: aprirne uno con File, Apri (Ctrl+O)");
    } else {
        finestra.Apri(QString::fromStdString(file));
    }
    return QApplication::exec();
}
