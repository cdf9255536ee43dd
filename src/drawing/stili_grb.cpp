#include "drawing/stili_grb.h"

#include <array>
#include <string>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

double ConvertiScala(double valore, double fattore, short unita) {
    if (unita == 0) return valore / 1000.0 * fattore;
    if (unita == 1) return valore / 10.0 * fattore;
    return valore * fattore;
}

namespace {

struct ErroreModello {};

// Numbers of a line, separated by blanks or commas.
template <std::size_t N>
std::array<double, N> Numeri(const std::string& riga) {
    std::string r = SostituisciTesto(riga, ",", " ");
    std::array<double, N> v{};
    for (double& x : v) {
        const auto n = ValoreStretto(EstraiCampo(r));
        if (!n) throw ErroreModello{};
        x = *n;
    }
    return v;
}

short Intero(double x) {
    const auto n = Corto(x);
    if (!n) throw ErroreModello{};
    return *n;
}

}  // namespace

void LeggiStiliGrb(std::string_view percorso, StiliGrb& stili, const Piattaforma& p) {
    const FileLetto f = LeggiRighe(percorso);
    const std::string nome = PercorsoMostrato(percorso);
    if (!f.riuscito) {
        MostraAvviso(p, "Errore in apertura del file " + nome +
                            "- verranno usati i parametri disegno della versione autonoma.");
        return;
    }
    std::size_t i = 0;
    const auto riga = [&]() -> const std::string& {
        if (i >= f.righe.size()) throw ErroreModello{};
        return f.righe[i++];
    };
    try {
        riga();
        const auto testa = Numeri<3>(riga());
        const short unita = Intero(testa[1]);
        riga();
        const short n = Intero(Numeri<1>(riga())[0]);
        if (n < 0 || n > kMaxStiliGrb) throw ErroreModello{};
        StiliGrb letti;
        letti.Stili.clear();
        for (int s = 0; s < n; ++s) {
            riga();
            const auto v = Numeri<4>(riga());
            riga();
            letti.Stili.push_back({ConvertiScala(v[0], testa[0], unita),
                                   ConvertiScala(v[1], testa[0], unita), Intero(v[3])});
        }
        if (!letti.Stili.empty()) stili = std::move(letti);
    } catch (const ErroreModello&) {
        MostraAvviso(p, "Errore in lettura del file " + nome);
    }
}

}  // namespace tk07
