#include "cli/comandi_scena.h"

#include <filesystem>

#include "base/testo.h"
#include "guscio/banco.h"
#include "scene3d/file_scena.h"
#include "scene3d/urti.h"
#include "session/vista3d.h"

namespace tk07::cli {

namespace {

constexpr const char* kSenzaSolidi =
    "questo programma è senza il modulo dei solidi (si costruisce dove ci sono le librerie "
    "OpenCASCADE)";

std::string Estensione(const std::string& file) {
    return Minuscolo(std::filesystem::path(file).extension().string());
}
bool EScena(const std::string& uscita) { return Estensione(uscita) == ".tmp"; }
bool ESolidi(const std::string& uscita) {
    const std::string e = Estensione(uscita);
    return e == ".step" || e == ".stp" || e == ".glb" || e == ".stl";
}

// Writes and prints what was asked for, from the composed scene.
int Produci(const Sessione& s, const OpzioniScena& opz, const Grafica& grafica) {
    std::string errore, testo;
    if (opz.distinta) {
        const auto forma = opz.json ? FormaDistinta::json : FormaDistinta::tabella;
        if (!grafica.distinta(s, forma, testo, errore)) {
            Errore(opz.file, errore);
            return kUscitaUso;
        }
    }
    if (EScena(opz.uscita)) {
        if (!ScriviScena(s.scena, opz.uscita, s.piattaforma)) return kUscitaUso;
    } else if (!opz.uscita.empty()) {
        if (!grafica.esportaSolidi(s, opz.uscita, errore)) {
            Errore(opz.file, errore);
            return kUscitaUso;
        }
    }
    if (!opz.uscita.empty() && !opz.json) {
        Stampa(opz.file + ": scena 3D con " + std::to_string(s.scena.estrusi.size()) +
               " estrusi e " + std::to_string(s.scena.sezioni.size()) +
               " sezioni\n    file: " + opz.uscita + "\n");
    }
    Stampa(testo);
    // A fact of the joint that no check of it sees.
    if (VuoleSolidi(opz)) {
        for (const std::string& riga : RigheUrti(UrtiBulloni(s.nodo))) {
            Errore(opz.file, "attenzione, " + riga);
        }
    }
    return kUscitaOk;
}

}  // namespace

bool VuoleSolidi(const OpzioniScena& opz) { return opz.distinta || ESolidi(opz.uscita); }

int ComandoScena(const Avvio& avvio, const OpzioniScena& opz, const Grafica& grafica) {
    if (opz.uscita.empty() && !opz.distinta) {
        Errore("tk07", "manca l'argomento -o o --distinta (vedere tk07 --help)");
        return kUscitaUso;
    }
    if (opz.json && !opz.distinta) {
        Errore("tk07", "--json vale solo con --distinta");
        return kUscitaUso;
    }
    if (!opz.uscita.empty() && !EScena(opz.uscita) && !ESolidi(opz.uscita)) {
        Errore(opz.uscita, "formato \"" + Estensione(opz.uscita) +
                               "\" sconosciuto: indicare un file .tmp, .step, .glb o .stl");
        return kUscitaUso;
    }
    if (VuoleSolidi(opz) && (grafica.esportaSolidi == nullptr || grafica.distinta == nullptr)) {
        Errore(opz.uscita.empty() ? opz.file : opz.uscita, kSenzaSolidi);
        return kUscitaUso;
    }
    return SuNodo(avvio, opz.file, [&](Sessione& s) {
        return PreparaScena(s, BulloniProvvisori::no) ? Produci(s, opz, grafica)
                                                      : kUscitaNonPossibile;
    });
}

}  // namespace tk07::cli
