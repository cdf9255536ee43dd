// Osserva3D, the viewer of the joint in three dimensions.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <clocale>
#include <string>
#include <vector>

#include "base/file_testo.h"
#include "base/testo.h"
#include "guscio/italiano.h"
#include "guscio/porta_cli.h"
#include "guscio/programma.h"
#include "guscio/schermo.h"
#include "osserva3d/finestra.h"
#include "osserva3d/lettura.h"
#include "render/esporta.h"
#include "scene3d/file_scena.h"

namespace {

using namespace tk07;
using namespace tk07::osserva3d;

constexpr int kUso = 2;

int Guasto(const std::string& testo) {
    Errore("Osserva3D", testo);
    return kUso;
}

struct OpzioniImmagine {
    std::string file, dimensioni = "1280x800", modo = "spigoli";
    int vista = kViste;
    double esploso = 0.0, trasparenza = 0.0;
};

// The picture of a scene without any display.
int ScriviImmagine(const std::string& file, const OpzioniImmagine& opz) {
    if (!FinisceCon(Minuscolo(opz.file), ".png")) {
        return Guasto(opz.file + ": l'immagine deve essere un file .png");
    }
    int l = 0, a = 0;
    if (!LeggiDimensioni(opz.dimensioni, l, a)) {
        return Guasto("--dimensioni: atteso LxH in pixel");
    }
    Scena scena;
    std::vector<Parte> parti;
    std::string errore;
    if (!LeggiSolidi(file, scena, parti, errore)) return Guasto(errore);
    const auto qt = AppSenzaSchermo();
    for (Parte& p : parti) p = Spostata(p, SpostamentoEsploso(p.dati, opz.esploso));
    const std::vector<Maglia> maglie = Maglie(parti);
    const VistaNota v = VistaNumero(opz.vista, scena);
    Inquadratura q;
    q.p = ProiezioneCamera({v.azimut, v.elevazione, {}, 1.0});
    q.larghezza = l;
    q.altezza = a;
    Adatta(maglie, q, 0.08);
    OpzioniPittura3D pittura;
    pittura.modo = opz.modo == "ombreggiato" ? Modo3D::ombreggiato
                   : opz.modo == "nascoste"  ? Modo3D::nascoste
                                             : Modo3D::spigoli;
    pittura.trasparenzaTravi = opz.trasparenza / 100.0;
    pittura.spessore = std::max(1.0, std::max(l, a) / 1200.0);
    QImage immagine(l, a, QImage::Format_RGB32);
    if (immagine.isNull()) return Guasto(opz.file + ": immagine troppo grande");
    immagine.fill(Qt::white);
    QPainter p(&immagine);
    DipingiSolidi(p, parti, maglie, q, pittura);
    p.end();
    QString detto;
    return ScriviPng(immagine, QString::fromStdString(opz.file), detto)
               ? 0
               : Guasto(detto.toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    std::vector<std::string> argomenti(argv + 1, argv + argc);
    const std::string segnato = FileInp(argomenti);
    CLI::App app{"Visualizzatore delle scene 3D del nodo", "Osserva3D"};
    ParlaItaliano(app);
    std::string file;
    bool elenca = false;
    OpzioniImmagine opz;
    app.add_option("FILE", file, "File di scena (.tmp), anche come |fileinp=FILE|")->type_name("");
    app.add_flag("--elenca", elenca, "Elenca quanto letto, senza schermo");
    app.add_option("--immagine", opz.file, "Scrive l'immagine della scena ed esce")
        ->type_name("FILE.png");
    app.add_option("--dimensioni", opz.dimensioni, "Pixel dell'immagine (1280x800)")
        ->type_name("LxH");
    app.add_option("--vista", opz.vista,
                   "Vista dell'immagine: 1 fronte, 2 retro, 3 destra, 4 sinistra, 5 alto, 6 "
                   "basso, 7 assonometria")
        ->check(CLI::Range(1, kViste).description(""))
        ->type_name("N");
    app.add_option("--modo", opz.modo, "Modo dell'immagine")
        ->check(CLI::IsMember({"ombreggiato", "spigoli", "nascoste"}).description(""))
        ->type_name("ombreggiato|spigoli|nascoste");
    app.add_option("--esploso", opz.esploso, "Pezzi allontanati tra loro, da 0 a 1")
        ->check(CLI::Range(0.0, 1.0).description(""))
        ->type_name("K");
    app.add_option("--trasparenza", opz.trasparenza, "Trasparenza delle travi, da 0 a 95")
        ->check(CLI::Range(0.0, 95.0).description(""))
        ->type_name("PERCENTO");
    app.footer("Esempio: Osserva3D --immagine nodo.png --vista 7 temp/TK07_vis3d.tmp");
    try {
        std::reverse(argomenti.begin(), argomenti.end());
        app.parse(argomenti);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError&) {
        return Guasto("argomenti errati (vedere Osserva3D --help)");
    }
    if (!segnato.empty()) file = segnato;
    if (elenca || !opz.file.empty()) {
        if (file.empty()) return Guasto("manca il file di scena");
        file = PercorsoAssoluto(file);
        if (elenca) {
            Scena scena;
            std::string errore;
            if (!LeggiScena(file, scena, errore)) {
                return Guasto(PercorsoMostrato(file) + ": " + errore);
            }
            if (!ScriviUscita(ElencaScena(scena, file))) return Guasto("uscita non scritta");
        }
        return opz.file.empty() ? 0 : ScriviImmagine(file, opz);
    }
    if (!SchermoPresente()) return Guasto("nessuno schermo: usare --elenca o --immagine");
    const auto qt = InSilenzio([&] { return std::make_unique<QApplication>(argc, argv); });
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has taken over the user's
    CaricaItaliano(*qt);
    Finestra3D finestra;
    finestra.show();
    if (file.empty()) {
        finestra.Avvisa("Nessuna scena: aprirne una con File, Apri (Ctrl+O)");
    } else {
        finestra.Apri(QString::fromStdString(file));
    }
    return QApplication::exec();
}
