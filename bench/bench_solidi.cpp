// Solids and their files.

#include <benchmark/benchmark.h>

#include "nodo_banco.h"
#include "solidi/esporta_solidi.h"
#include "solidi/linee_nascoste.h"

namespace tk07 {
namespace {

std::vector<Parte> Solidi(const Nodo& nodo) {
    const Geometria g = GeometriaDi(nodo);
    Scena s;
    std::vector<Parte> parti;
    std::string errore;
    if (!ComponiScena3D(nodo, g, nullptr, s, PiattaformaMuta()) ||
        !SolidiNodo(nodo, g, 2.0, s, parti, errore)) {
        parti.clear();
    }
    return parti;
}

void SolidiScritti(benchmark::State& stato, const char* estensione) {
    const prova::Cartella cartella;
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), 0);
    const std::string file = (cartella / "n").string() + estensione;
    std::string errore;
    for (auto _ : stato) {
        if (!EsportaSolidi(Solidi(nodo), "nodo", file, errore)) {
            stato.SkipWithError("solidi non scritti");
        }
    }
}
BENCHMARK_CAPTURE(SolidiScritti, step, ".step")->Arg(12)->Arg(36)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SolidiScritti, glb, ".glb")->Arg(12)->Unit(benchmark::kMillisecond);

void SoliSolidi(benchmark::State& stato) {
    const Nodo nodo = NodoDiProva(static_cast<int>(stato.range(0)), 0);
    for (auto _ : stato) {
        if (Solidi(nodo).empty()) stato.SkipWithError("solidi non costruiti");
    }
}
BENCHMARK(SoliSolidi)->Arg(12)->Unit(benchmark::kMillisecond);

void VistaConLineeNascoste(benchmark::State& stato) {
    const std::vector<Parte> parti = Solidi(NodoDiProva(static_cast<int>(stato.range(0)), 0));
    const Proiezione da = ProiezioneDa({0.6, 0.7, 0.3});
    std::vector<LineaProiettata> linee;
    std::string errore;
    for (auto _ : stato) {
        if (!LineeNascoste(parti, da, Nascoste::no, linee, errore)) {
            stato.SkipWithError("linee non calcolate");
        }
    }
}
BENCHMARK(VistaConLineeNascoste)->Arg(12)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tk07
