// Times of the parts that a user waits for. Aims and results stand in docs/prestazioni.md.

#include <benchmark/benchmark.h>

#include "aiuti/prova.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "joint/file_nodo.h"
#include "nodo_banco.h"
#include "reports/relazione.h"
#include "scene3d/assemblaggio.h"
#include "scene3d/file_scena.h"
#include "verification/azioni_bulloni.h"
#include "verification/esame_rapido.h"
#include "verification/poligono.h"
#include "verification/saldature.h"
#include "verification/verifica_nodo.h"

namespace tk07 {
namespace {

constexpr int kSestetti = 500;

Nodo NodoDaVerificare(const benchmark::State& stato) {
    Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), kSestetti);
    nodo.TipoVer = static_cast<short>(stato.range(1));
    return nodo;
}

// Bolts, method (1 limit states, 0 allowable stresses); load sets a second.
void PerBulloniEMetodo(benchmark::internal::Benchmark* b) {
    b->ArgsProduct({{4, 8, 36, 100}, {1, 0}})->Unit(benchmark::kMicrosecond);
}

// Results and verdict alone, then with the findings, then no more than what a search asks.
void Calcolo(benchmark::State& stato) {
    const Nodo nodo = NodoDaVerificare(stato);
    const Piattaforma p = PiattaformaMuta();
    Risultati ris;
    for (auto _ : stato) {
        if (CalcolaNodo(nodo, Prova().s->opz, ris, p) != EsitoVerifica::completata) {
            stato.SkipWithError("verifica non completata");
            return;
        }
        benchmark::DoNotOptimize(ris);
    }
    stato.SetItemsProcessed(stato.iterations() * kSestetti);
}
BENCHMARK(Calcolo)->Apply(PerBulloniEMetodo);

void Verifica(benchmark::State& stato) {
    const Nodo nodo = NodoDaVerificare(stato);
    const Piattaforma p = PiattaformaMuta();
    Risultati ris;
    Esiti esiti;
    for (auto _ : stato) {
        if (VerificaNodo(nodo, Prova().s->opz, ris, esiti, p) != EsitoVerifica::completata) {
            stato.SkipWithError("verifica non completata");
            return;
        }
        benchmark::DoNotOptimize(ris);
    }
    stato.SetItemsProcessed(stato.iterations() * kSestetti);
}
BENCHMARK(Verifica)->Apply(PerBulloniEMetodo);

void Rapido(benchmark::State& stato) {
    const Nodo nodo = NodoDaVerificare(stato);
    std::vector<SestettoProvato> prove;
    for (int s = 0; s < kSestetti; ++s) {
        prove.push_back({nodo.SforzoNormale(s), nodo.TaglioY(s), nodo.TaglioZ(s), nodo.MomTorc(s),
                         nodo.MomY(s), nodo.MomZ(s), nodo.CasoCarico(s)});
    }
    std::vector<GiudizioRapido> giudizi(prove.size());
    EsameRapido esame(nodo, Prova().s->opz);
    for (auto _ : stato) {
        esame.Giudica(prove, giudizi);
        if (!giudizi.back().calcolato) stato.SkipWithError("verifica non completata");
    }
    stato.SetItemsProcessed(stato.iterations() * kSestetti);
}
BENCHMARK(Rapido)->Apply(PerBulloniEMetodo);

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
    PoligonoCompresso pol = PreparaPoligono(nodo, geo);
    pol.polAzioni(1) = -600000.0;
    pol.polAzioni(2) = 20000.0;
    pol.polAzioni(3) = 1500.0;
    for (auto _ : stato) {
        const PianoRisolto r = RisolviPiano(pol);
        if (r.stato != StatoPiano::equilibrio) stato.SkipWithError("piano non trovato");
        benchmark::DoNotOptimize(r.polPiano);
    }
}
BENCHMARK(Solutore)->Arg(4)->Arg(8)->Arg(36);

void Relazione501(benchmark::State& stato) {
    const Nodo nodo = NodoDiProva(12, 501);
    Risultati ris;
    Esiti esiti;
    VerificaNodo(nodo, Prova().s->opz, ris, esiti, PiattaformaMuta());
    for (auto _ : stato) {
        const RelazioneScritta r = RelazioneSLU(nodo, Prova().s->unita, ris, esiti);
        stato.counters["bytes"] = static_cast<double>(r.testo.size());
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
        if (!ComponiScena3D(nodo, GeometriaDi(nodo), nullptr, s, p) || !ScriviScena(s, file, p)) {
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
