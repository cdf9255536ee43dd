#pragma once

#include <random>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "bolting/proposte.h"
#include "joint/controlla_dati.h"
#include "joint/geometria.h"

namespace tk07::prova {

// A random joint that passes the consistency checks: sections of all families, every combination
// of ribs, 1 to 100 bolts on grids or anywhere, in one or several diameters.
inline Nodo NodoCasuale(const Sessione& s, std::mt19937& g) {
    const auto intero = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); };
    const auto reale = [&](double a, double b) {
        return std::round(std::uniform_real_distribution<double>(a, b)(g) * 2.0) / 2.0;
    };
    const Piattaforma muta = PiattaformaMuta();
    for (;;) {
        Nodo n = s.nodo;
        n.TraPri = s.profili.Profili(intero(1, s.profili.nProfili));
        do n.TraSec = s.profili.Profili(intero(1, s.profili.nProfili));
        while (n.TraSec.H > n.TraPri.H);
        n.distAlaSecPiastra = intero(0, 3) == 0 ? 0.0 : reale(0.0, n.TraPri.H - n.TraSec.H + 120.0);
        n.distPiastraTraPri = intero(0, 2) == 0 ? 0.0 : reale(-5.0, 8.0);
        n.distAliPriSec = reale(0.0, n.TraPri.H - n.TraSec.H);
        n.AttNerv(1) = intero(0, 1) == 1;
        n.AttNerv(2) = intero(0, 1) == 1;
        n.spSaldS1 = reale(4.0, 12.0);
        n.spSaldS2 = reale(4.0, 12.0);
        ProponiPias(n);
        n.HPiastra(2) = n.distAlaSecPiastra + n.TraSec.H + reale(0.0, 200.0);
        n.BPiastra(1) += reale(0.0, 60.0);
        n.BPiastra(2) += reale(0.0, 60.0);
        const bool attive[] = {n.AttNerv(1), n.AttNerv(2)};
        ProponiNerv(n);
        for (int k = 1; k <= 2; ++k) {
            if (!attive[k - 1]) n.AttNerv(k) = false;
            if (intero(0, 3) == 0) n.H2Nerv(k) = 0.0;
            if (intero(0, 3) == 0) n.SmussoNerv(k) = reale(0.0, 20.0);
        }
        RicalcolaNervatura3(n);
        n.nBull = 0;
        n.numNodi = static_cast<short>(intero(0, 3));
        for (int i = 1; i <= n.numNodi; ++i) n.NomeNodi(i) = static_cast<short>(intero(1, 999));
        if (ControllaDati(n, s.opz, muta)) continue;

        const int voluti = intero(0, 9) == 0 ? 100 : intero(1, 24), prove = 60 * voluti;
        const Rettangolo area = GeometriaDi(n).comune;
        const double passo = intero(0, 1) == 0 ? 0.5 : 20.0;
        double d = intero(4, 10) * 3.0;
        for (int k = 0; k < prove && n.nBull < voluti; ++k) {
            if (intero(0, 30) == 0) d = intero(4, 10) * 3.0;
            const auto i = ++n.nBull;
            const auto sul = [&](double x) { return std::round(x / passo) * passo; };
            n.Xbull(i) = sul(reale(area.xMin, area.xMax));
            n.Ybull(i) = sul(reale(area.yMin, area.yMax));
            n.Fibull(i) = d;
            bool doppio = false;
            for (int j = 1; j < i; ++j) {
                doppio = doppio || std::hypot(n.Xbull(i) - n.Xbull(j), n.Ybull(i) - n.Ybull(j)) < d;
            }
            if (doppio || ControllaDati(n, s.opz, muta)) --n.nBull;
        }
        if (n.nBull > 0) return n;
    }
}

}  // namespace tk07::prova
