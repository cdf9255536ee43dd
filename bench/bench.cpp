// Times of the parts that a user waits for. Aims and results stand in docs/prestazioni.md.

#include <benchmark/benchmark.h>

#include "aiuti/prova.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "joint/file_nodo.h"
#include "scene3d/assemblaggio.h"
#include "scene3d/file_scena.h"
#include "verification/azioni_bulloni.h"
#include "verification/poligono.h"
#include "verification/reports/relazione.h"
#include "verification/saldature.h"
#include "verification/verifica_nodo.h"

namespace tk07 {
namespace {

const prova::SessioneDiProva& Prova() {
    static const prova::SessioneDiProva p;
    return p;
}

// A joint of HEA 300 on HEB 500 with n bolts (a multiple of 2) in 2 or 4 columns and m load sets.
Nodo NodoDiProva(int n, int m) {
    const Sessione& s = *Prova().s;
    Nodo nodo = s.nodo;
    nodo.TraPri = s.profili.Profili(IndiceProfilo(s.profili, "HEB500"));
    nodo.TraSec = s.profili.Profili(IndiceProfilo(s.profili, "HEA300"));
    nodo.BPiastra(1) = nodo.BPiastra(2) = 300.0;
    nodo.HPiastra(1) = nodo.HPiastra(2) = 440.0;
    nodo.SpPiastra(1) = nodo.SpPiastra(2) = 20.0;
    nodo.distAlaSecPiastra = 75.0;
    nodo.distAliPriSec = 105.0;
    RicalcolaNervatura3(nodo);
    nodo.nBull = static_cast<short>(n);
    const int colonne = n > 16 ? 4 : 2;
    const int righe = n / colonne;
    for (int i = 0; i < n; ++i) {
        nodo.Xbull(i + 1) = (i % colonne - (colonne - 1) / 2.0) * (colonne == 2 ? 160.0 : 70.0);
        nodo.Ybull(i + 1) = 40.0 + 360.0 * (i / colonne) / (righe - 1.0);
        nodo.Fibull(i + 1) = 16.0;
    }
    nodo.nSollAg = static_cast<short>(m);
    for (int k = 0; k < m; ++k) {
        const double f = 0.5 + 0.001 * k;
        nodo.SforzoNormale(k) = 1500.0 * f * (k % 3 - 1);
        nodo.TaglioY(k) = 9000.0 * f;
        nodo.TaglioZ(k) = 400.0 * (k % 5 - 2);
        nodo.MomTorc(k) = 300.0 * (k % 2);
        nodo.MomY(k) = 2000.0 * (k % 7 - 3);
        nodo.MomZ(k) = 60000.0 * f * (k % 2 == 0 ? 1.0 : -1.0);
        nodo.NomeSa(k) = "Soll " + std::to_string(k + 1);
    }
    return nodo;
}

void Verifica(benchmark::State& stato) {
    constexpr int kSestetti = 500;
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), kSestetti);
    const Piattaforma p = PiattaformaMuta();
    Risultati ris;
    for (auto _ : stato) {
        if (CalcolaNodo(nodo, Prova().s->opz, ris, p) != EsitoVerifica::completata) {
            stato.SkipWithError("verifica non completata");
            return;
        }
        benchmark::DoNotOptimize(ris);
    }
    stato.SetItemsProcessed(stato.iterations() * kSestetti);  // load sets
}
BENCHMARK(Verifica)->Arg(4)->Arg(8)->Arg(36)->Unit(benchmark::kMicrosecond);

// The sheet composed, cleaned and written.
void Tavola(benchmark::State& stato) {
    const prova::Cartella c;
    const std::string file = (c / "nodo.dis").string();
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), 1);
    const Piattaforma p = PiattaformaMuta();
    for (auto _ : stato) {
        Disegno d;
        if (!DisegnaNodo(nodo, Prova().s->opz, Squadratura::si, d, p) ||
            !SalvaDis(d, file, true, p)) {
            stato.SkipWithError("disegno non scritto");
            return;
        }
    }
}
BENCHMARK(Tavola)->Arg(12)->Arg(100)->Unit(benchmark::kMillisecond);

void Solutore(benchmark::State& stato) {
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), 1);
    const GeometriaVerifica geo = PreparaGeometria(nodo);
    const Piattaforma p = PiattaformaMuta();
    PoligonoCompresso pol;
    PreparaPoligono(nodo, geo, pol);
    pol.polAzioni(1) = -600000.0;
    pol.polAzioni(2) = 20000.0;
    pol.polAzioni(3) = 1500.0;
    short flag = 0;
    for (auto _ : stato) {
        pol.polTipo = 0;
        pol.RisolviPiano(flag, p);
        benchmark::DoNotOptimize(pol.polPiano);
    }
    if (flag != 1) stato.SkipWithError("piano non trovato");
}
BENCHMARK(Solutore)->Arg(4)->Arg(8)->Arg(36);

void Relazione501(benchmark::State& stato) {
    const Nodo nodo = NodoDiProva(12, 501);
    Risultati ris;
    CalcolaNodo(nodo, Prova().s->opz, ris, PiattaformaMuta());
    for (auto _ : stato) {
        const std::string testo = RelazioneSLU(nodo, Prova().s->unita, ris);
        stato.counters["bytes"] = static_cast<double>(testo.size());
    }
}
BENCHMARK(Relazione501)->Unit(benchmark::kMillisecond);

void SalvaNodo(benchmark::State& stato) {
    const Nodo nodo = NodoDiProva(12, 501);
    for (auto _ : stato) benchmark::DoNotOptimize(TestoFileNodo(nodo, Orologio{}));
}
BENCHMARK(SalvaNodo)->Unit(benchmark::kMillisecond);

void ApriNodo501(benchmark::State& stato) {
    const prova::Cartella cartella;
    const Piattaforma p = PiattaformaMuta();
    const std::string file = (cartella / "nodo.tk7").string();
    ScriviFileNodo(NodoDiProva(12, 501), file, p);
    Nodo nodo = Prova().s->nodo;
    for (auto _ : stato) {
        if (!LeggiFileNodo(nodo, file, p)) stato.SkipWithError("nodo non letto");
    }
}
BENCHMARK(ApriNodo501)->Unit(benchmark::kMillisecond);

void ScenaCompostaEScritta(benchmark::State& stato) {
    const prova::Cartella cartella;
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), 0);
    const Piattaforma p = PiattaformaMuta();
    const std::string file = (cartella / "scena.tmp").string();
    Scena s;
    for (auto _ : stato) {
        Risultati ris;
        LunghezzeSaldature(nodo, ris);
        if (!ComponiScena3D(nodo, ris.LungSald, nullptr, s, p) || !ScriviScena(s, file, p)) {
            stato.SkipWithError("scena non scritta");
        }
    }
}
BENCHMARK(ScenaCompostaEScritta)->Arg(12)->Arg(100)->Unit(benchmark::kMillisecond);

void AvvioSessione(benchmark::State& stato) {
    Avvio avvio;
    avvio.diroot = Prova().radice;
    for (auto _ : stato) {
        Sessione s;
        s.piattaforma = PiattaformaMuta();
        if (!Avvia(s, avvio)) stato.SkipWithError("sessione non avviata");
    }
}
BENCHMARK(AvvioSessione)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tk07

BENCHMARK_MAIN();
