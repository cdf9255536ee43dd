// Many joints, many members, many numbers: what must grow with the work and not faster.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <numeric>

#include "base/nomi_presenti.h"
#include "joint/tabella_carichi.h"
#include "modelimport/risultati_analisi.h"
#include "nodo_banco.h"
#include "textnum/formatta.h"
#include "unit/modelimport/modello.h"

namespace tk07 {
namespace {

// Joints opened and verified one after the other, each with a report of a new name.
void LottoNodi(benchmark::State& stato) {
    const prova::SessioneDiProva p;
    Sessione& s = *p.s;
    s.piattaforma = PiattaformaMuta();
    const std::string esempio = p.Lavoro() + "/05_ipe330_su_ipe450.tk7";
    NomiPresenti nomi;
    s.conPannelli = false;
    s.tenutaRelazioni = Tenuta::provvisoria;
    s.nomi = &nomi;
    const auto inizio = std::make_unique<Sessione>(s);
    int giro = 0;
    for (auto _ : stato) {
        const std::string dir = (p.cartella / ("lavoro" + std::to_string(giro++))).string();
        std::filesystem::create_directory(dir);
        for (std::int64_t k = 0; k < stato.range(0); ++k) {
            Ricomincia(s, *inizio);
            s.dir.dirLavoro = dir;
            bool aperto = false;
            EseguiComando(s, [&] { aperto = ApriNodo(s, esempio); });
            s.nomeFile = "n" + std::to_string(k);
            EseguiComando(s, [&] { VerificaSessione(s); });
            if (!aperto || !s.RisultatiValidi) {
                stato.SkipWithError("nodo non verificato");
                return;
            }
        }
    }
    stato.SetComplexityN(stato.range(0));
    stato.SetItemsProcessed(stato.iterations() * stato.range(0));
}
BENCHMARK(LottoNodi)
    ->Arg(1250)
    ->Arg(2500)
    ->Arg(5000)
    ->Arg(10000)
    ->Iterations(1)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// Load cases of a structure with 32,000 members, two stations each.
void Importazione(benchmark::State& stato) {
    constexpr int kAste = 32000, kNodi = kAste / 2;
    const prova::Cartella c;
    std::string str = "ARGANOWIN Release 18\n0 righe\n" + std::to_string(kNodi) + " nodi\n";
    for (int i = 1; i <= kNodi; ++i) {
        const std::string n = std::to_string(i);
        str.append(n).append(" 1.5 0.0 0.0\n").append(n).append(" x\n");
    }
    str += std::to_string(kAste) + " aste\n";
    for (int m = 1; m <= kAste; ++m) {
        const int a = (m - 1) % kNodi + 1;
        str += std::to_string(a) + " " + std::to_string(a % kNodi + 1) + "\n" + std::to_string(m) +
               " 2 4 1\n";
    }
    prova::ScriviTesto(c / "STRUTTUR.STR", str + "0\n0\n0\n0\n3 condizioni\n");
    std::vector<int> aste(kAste);
    std::iota(aste.begin(), aste.end(), 1);
    const std::string file = prova::Risultati(
        aste, 2, 1, [](int, long, long) { return std::vector<double>{1, 2, 3, 4, 5, 6}; });
    for (int k = 1; k <= stato.range(0); ++k) {
        prova::ScriviTesto(c / NomeFileRisultati("", TipoCarico::caso, k).substr(1), file);
    }
    const RichiestaImport r{"1000", "999,1000", "1-" + std::to_string(stato.range(0)), "", "0"};
    const auto nodo = std::make_unique<Nodo>();
    for (auto _ : stato) {
        nodo->nSollAg = 0;
        if (ImportaSollecitazioni(c.Testo(), r, *nodo, PiattaformaMuta()) != EsitoImport::bene) {
            stato.SkipWithError("importazione non riuscita");
            return;
        }
    }
    stato.SetComplexityN(stato.range(0));
}
BENCHMARK(Importazione)
    ->Arg(10)
    ->Arg(20)
    ->Arg(40)
    ->Arg(80)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// A load table where every other set is a double.
void DoppiDeiCarichi(benchmark::State& stato) {
    const auto n = static_cast<int>(stato.range(0));
    const Nodo pieno = NodoDiProva(12, n);
    const auto nodo = std::make_unique<Nodo>();
    for (auto _ : stato) {
        stato.PauseTiming();
        *nodo = pieno;
        for (int k = 1; k < n; k += 2) SaScambio_(*nodo, k, k - 1);
        stato.ResumeTiming();
        benchmark::DoNotOptimize(EliminaDoppiSoll(*nodo));
    }
    stato.SetComplexityN(n);
}
BENCHMARK(DoppiDeiCarichi)->Arg(62)->Arg(125)->Arg(250)->Arg(500)->Complexity();

// Columns of a report: numbers of few decimals, and numbers of all their digits.
void NumeriInTesto(benchmark::State& stato, double passo) {
    std::string riga;
    double x = -5000.0;
    for (auto _ : stato) {
        riga.clear();
        for (int k = 0; k<10; ++k, x = x> 5000.0 ? -5000.0 : x + passo) {
            AggiungiCampo(riga, x, 12, Separatore::barra, Allinea::destra);
        }
        benchmark::DoNotOptimize(riga);
    }
    stato.SetItemsProcessed(stato.iterations() * 10);
}
BENCHMARK_CAPTURE(NumeriInTesto, piani, 0.125);
BENCHMARK_CAPTURE(NumeriInTesto, qualsiasi, 0.1234567891234);

}  // namespace
}  // namespace tk07
