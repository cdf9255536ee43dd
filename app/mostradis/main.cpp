// mostradis, the viewer of drawing files.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/file_testo.h"
#include "base/testo.h"
#include "cli/italiano.h"
#include "cli/porta_cli.h"
#include "cli/programma.h"
#include "drawing/dis.h"
#include "mostradis/finestra.h"
#include "mostradis/lettura.h"
#include "render/esporta.h"

namespace {

using namespace tk07;

constexpr int kUso = 2;
constexpr int kMassimoLato = 20000;

int Guasto(const std::string& testo) {
    Errore("mostradis", testo);
    return kUso;
}

// "1600x1000"; false when it is none.
bool Dimensioni(const std::string& testo, int& larghezza, int& altezza) {
    const std::size_t x = Minuscolo(testo).find('x');
    if (x == std::string::npos) return false;
    const auto l = ValoreStretto(testo.substr(0, x)), a = ValoreStretto(testo.substr(x + 1));
    const auto buono = [](const std::optional<double>& v) {
        return v && *v >= 16.0 && *v <= kMassimoLato && *v == static_cast<int>(*v);
    };
    if (!buono(l) || !buono(a)) return false;
    larghezza = static_cast<int>(*l);
    altezza = static_cast<int>(*a);
    return true;
}

// Is there a screen to open a window on? Without one the toolkit ends the process in its own way.
bool SchermoPresente() {
#if defined(__unix__) && !defined(__APPLE__)
    for (const char* nome : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* v = std::getenv(nome);
        if (v != nullptr && *v != '\0') return true;
    }
    return false;
#else
    return true;
#endif
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    CLI::App app{"Visualizzatore dei file di disegno (.dis)", "mostradis"};
    ParlaItaliano(app);
    std::string file, immagine, tavola, dimensioni = "1600x1000";
    bool elenca = false;
    app.add_option("FILE", file,
                   "Disegno (.dis), o file di scambio (.inp); senza, il mostradis.inp della "
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

    if (elenca || !immagine.empty() || !tavola.empty()) {
        if (file.empty()) return Guasto("manca il file di disegno");
        std::string errore;
        const auto nome = DisegnoChiesto(file, errore);
        if (!nome) return Guasto(errore);
        Disegno d;
        if (!LeggiDis(*nome, d, errore)) return Guasto(PercorsoMostrato(*nome) + ": " + errore);
        if (elenca) {
            const std::string testo = ElencaDisegno(d, *nome);
            if (std::fwrite(testo.data(), 1, testo.size(), stdout) != testo.size() ||
                std::fflush(stdout) != 0) {
                return Guasto("uscita non scritta");
            }
        }
        if (immagine.empty() && tavola.empty()) return 0;
        const auto qt = AppSenzaSchermo();
        OpzioniPittura pittura;
        pittura.spessori = SpessoriPenne(opz);
        QString detto;
        if (!immagine.empty()) {
            int l = 0, a = 0;
            if (!Dimensioni(dimensioni, l, a)) return Guasto("--dimensioni: atteso LxH in pixel");
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
    CaricaItaliano(*qt);
    Finestra finestra(opz);
    finestra.show();
    if (file.empty()) {
        finestra.Avvisa("Nessun disegno: aprirne uno con File, Apri (Ctrl+O)");
    } else {
        finestra.Apri(QString::fromStdString(file));
    }
    return QApplication::exec();
}
