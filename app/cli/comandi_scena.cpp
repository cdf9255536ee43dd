#include "cli/comandi_scena.h"

#include <filesystem>

#include "base/testo.h"
#include "cli/banco.h"
#include "scene3d/file_scena.h"
#include "session/vista3d.h"

namespace tk07 {

namespace {

// Writes a composed scene; false after it has told why not.
using ScrittoreScena = bool (*)(const Sessione& s, const std::string& uscita);

bool ScriviTmp(const Sessione& s, const std::string& uscita) {
    return ScriviScena(s.scena, uscita, s.piattaforma);
}

// The formats by ending. One without a writer is known, but not to this build.
struct FormatoScena {
    const char* estensione;
    ScrittoreScena scrivi;
};
constexpr FormatoScena kFormati[] = {
    {".tmp", ScriviTmp}, {".step", nullptr}, {".glb", nullptr}, {".stl", nullptr}};

}  // namespace

int ComandoScena(const Avvio& avvio, const std::string& file, const std::string& uscita) {
    const std::string estensione = Minuscolo(std::filesystem::path(uscita).extension().string());
    const FormatoScena* formato = nullptr;
    for (const FormatoScena& f : kFormati) {
        if (estensione == f.estensione) formato = &f;
    }
    if (formato == nullptr) {
        Errore(uscita, "formato \"" + estensione + "\" sconosciuto: indicare un file .tmp");
        return kUscitaUso;
    }
    if (formato->scrivi == nullptr) {
        Errore(uscita, "formato \"" + estensione +
                           "\" non disponibile: questo programma è senza il modulo dei solidi");
        return kUscitaUso;
    }
    Banco banco(avvio);
    if (!banco.Avviato()) return banco.codice;
    Sessione& s = *banco.s;
    int codice = ApriFile(s, banco.porta, file);
    if (codice != kUscitaOk) return codice;
    EseguiComando(s, [&] {
        if (!PreparaScena(s, BulloniProvvisori::no)) {
            codice = kUscitaNonPossibile;
        } else if (!formato->scrivi(s, uscita)) {
            codice = kUscitaUso;
        } else {
            Stampa(file + ": scena 3D con " + std::to_string(s.scena.estrusi.size()) +
                   " estrusi e " + std::to_string(s.scena.sezioni.size()) +
                   " sezioni\n    file: " + uscita + "\n");
        }
    });
    return s.fine ? s.codiceUscita : codice;
}

}  // namespace tk07
