// Sessions in threads of their own: verifications, proposals and exports at once give the bytes
// that they give alone. Under the thread sanitizer (preset tsan) no two of them touch the same
// memory.

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "aiuti/prova.h"
#include "base/file_testo.h"
#include "bolting/proposte.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "drawing/dxf.h"
#include "drawing/grb.h"
#include "guscio/csv.h"
#include "guscio/json_nodo.h"
#include "scene3d/file_scena.h"
#include "session/vista3d.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Esempi() {
    std::vector<fs::path> nodi;
    for (const auto& v :
         fs::recursive_directory_iterator(fs::path(TK07_SORGENTE) / "installazione/lavori")) {
        if (v.path().extension() == ".tk7") nodi.push_back(v.path());
    }
    std::sort(nodi.begin(), nodi.end());
    nodi.resize(4);
    return nodi;
}

// Everything that a session makes of some shipped joints. `base` is shared, `dove` the caller's
// own.
std::string Tutto(const Sessione& base, const std::string& dove) {
    fs::create_directories(dove);
    const Piattaforma p = PiattaformaMuta();
    std::string t;
    for (const fs::path& f : Esempi()) {
        const auto s = std::make_unique<Sessione>(base);
        s->piattaforma = p;
        s->dir.dirLavoro = dove;
        EseguiComando(*s, [&] {
            ApriNodo(*s, f.string());
            VerificaSessione(*s);
            t += prova::LeggiTesto(PercorsoPiattaforma(s->ultimaVerifica.relazione)) +
                 CsvVerifica(*s, "n") + SuRiga(JsonNodo(s->nodo));
            GeneraGrb(s->nodo, base.opz, dove + "/n.grb", true, p);
            DisegnaNodo(s->nodo, base.opz, Squadratura::si, s->disegno, p);
            SalvaDis(s->disegno, dove + "/n.dis", true, p);
            ScriviDxf(s->disegno, dove + "/n.dxf", base.font, {}, true, p);
            PreparaScena(*s, BulloniProvvisori::no);
            t += ComponiScena(s->scena);
            ProponiPias(s->nodo);
            ProponiNerv(s->nodo);
            BulloniTemp bulloni;
            t += std::to_string(Proponi(s->nodo, base.opz, 16.0, bulloni, p)) +
                 TestoFileNodo(s->nodo, {});
        });
        EXPECT_EQ(s->codiceUscita, 0);
        for (const char* nome : {"/n.grb", "/n.dis", "/n.dxf"}) t += prova::LeggiTesto(dove + nome);
    }
    return t;
}

TEST(Fili, GiveWhatASessionAloneGives) {
    const prova::SessioneDiProva base;
    const std::string attesa = Tutto(*base.s, (base.cartella / "solo").string());
    ASSERT_GT(attesa.size(), 100000u);  // reports, drawings and scenes, none of them empty
    std::vector<std::string> avute(4);
    std::vector<std::thread> fili;
    for (std::size_t i = 0; i < avute.size(); ++i) {
        fili.emplace_back(
            [&, i] { avute[i] = Tutto(*base.s, (base.cartella / std::to_string(i)).string()); });
    }
    for (std::thread& f : fili) f.join();
    for (const std::string& t : avute) EXPECT_TRUE(t == attesa);
}

}  // namespace
}  // namespace tk07
