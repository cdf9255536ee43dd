#include "verification/resistenze.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

namespace {

const double kTan30 = std::tan(kPi / 6.0);

// Neighbours of bolt i along a direction: all bolts within a wedge of 30 degrees around it, itself
// included. `pos` is measured along the direction, `trasv` across it.
struct Fila {
    double minimo = 0.0, massimo = 0.0;
    double vicino = 1e20;  // distance of the nearest other bolt of the row
};

using Coordinate = Tab1<double, 0, kMaxBulloni>;

Fila FilaDi(const Nodo& n, const Coordinate& pos, const Coordinate& trasv, int i) {
    Fila f{pos(i), pos(i), 1e20};
    for (int j = 1; j <= n.nBull; ++j) {
        const double d = std::fabs(pos(j) - pos(i));
        if (std::fabs(trasv(j) - trasv(i)) > d * kTan30) continue;
        f.minimo = Min(f.minimo, pos(j));
        f.massimo = Max(f.massimo, pos(j));
        if (j != i) f.vicino = Min(f.vicino, d);
    }
    return f;
}

constexpr double kEstremo = 0.01;  // mm

double FattoreTaglio(const std::string& classe) {
    for (const char* c : {"4.6", "5.6", "8.8"}) {
        if (Contiene(classe, c)) return 0.6;
    }
    for (const char* c : {"6.8", "10.9"}) {
        if (Contiene(classe, c)) return 0.5;
    }
    return 0.0;
}

}  // namespace

CoefficientiRifollamento CoefficientiBullone(const Nodo& n, const Opzioni& opz, int i) {
    CoefficientiRifollamento r;
    const double d0 = NonNullo(n.Fibull(i) + opz.ValOpz(kOpzTollForo), "diametro del foro");
    const double rapporto = n.vite.FtVite / NonNullo(n.acciaio.Ftk40, "ftk dell'acciaio");
    const double x = n.Xbull(i), y = n.Ybull(i);

    const double W = Min(n.BPiastra(1) / 2.0, n.BPiastra(2) / 2.0);
    const Fila riga = FilaDi(n, n.Xbull, n.Ybull, i);
    if (std::fabs(x - riga.minimo) < kEstremo) {
        r.k = Min(2.5, 2.8 * (x + W) / d0 - 1.7);
    } else if (std::fabs(x - riga.massimo) < kEstremo) {
        r.k = Min(2.5, 2.8 * (W - x) / d0 - 1.7);
    } else {
        r.k = Min(2.5, 1.4 * riga.vicino / d0 - 1.7);
    }

    const Rettangolo comune = AreaComune(n);
    const Fila colonna = FilaDi(n, n.Ybull, n.Xbull, i);
    double a = 0.0;
    if (std::fabs(y - colonna.minimo) < kEstremo) {
        a = (y - comune.yMin) / (3.0 * d0);
    } else if (std::fabs(y - colonna.massimo) < kEstremo) {
        a = (comune.yMax - y) / (3.0 * d0);
    } else {
        a = colonna.vicino / (3.0 * d0) - 0.25;
    }
    r.alfa = Min(Min(rapporto, a), 1.0);
    return r;
}

void ResistenzeBulloni(const Nodo& n, const Opzioni& opz, const GeometriaVerifica& geo,
                       Risultati& ris) {
    const double gamma = NonNullo(n.vite.GammaMVite, "coefficiente parziale delle viti");
    const double fattore = FattoreTaglio(n.vite.Nome);
    const double t = Min(n.SpPiastra(1), n.SpPiastra(2));
    const bool spessa = n.SpPiastra(1) > 40.0 || n.SpPiastra(2) > 40.0;
    const double Ftk = spessa ? n.acciaio.Ftk80 : n.acciaio.Ftk40;
    for (int i = 1; i <= n.nBull; ++i) {
        const double A = geo.Area(i);
        const double d = n.Fibull(i);
        const CoefficientiRifollamento c = CoefficientiBullone(n, opz, i);
        ris.Fv_Rd(i) = fattore * n.vite.FtVite * A / kMm2PerCm2 / gamma;
        ris.Fb_Rd(i) = c.k * c.alfa * Ftk * d * t / kMm2PerCm2 / gamma;
        // The punching diameter is one and a half times the bolt's.
        ris.Bp_Rd(i) = 0.6 * kPi * Ftk * (1.5 * d) * t / kMm2PerCm2 / gamma;
        ris.Ft_Rd(i) = 0.9 * n.vite.FtVite * A / kMm2PerCm2 / gamma;
    }
}

void CoefficientiBulloni(const Nodo& n, Risultati& ris) {
    constexpr double kSenzaResistenza = 100.0;
    for (int s = 0; s < n.nSollAg; ++s) {
        for (int i = 1; i <= n.nBull; ++i) {
            const double Fv = std::fabs(ris.Fv_Ed(s, i));
            const double Ft = std::fabs(ris.Ft_Ed(s, i));
            const double Rv = Min(ris.Fv_Rd(i), ris.Fb_Rd(i));
            const double Rt = Min(ris.Ft_Rd(i), ris.Bp_Rd(i));
            const bool vOk = ris.Fv_Rd(i) > 0.0 && ris.Fb_Rd(i) > 0.0;
            const bool tOk = ris.Ft_Rd(i) > 0.0 && ris.Bp_Rd(i) > 0.0;
            double co1 = 0.0;
            if (!(ris.Ft_Ed(s, i) > 0.0)) {
                if (Fv > 0.0) co1 = vOk ? Fv / Rv : kSenzaResistenza;
            } else if (Fv > 0.0) {
                co1 = vOk && tOk ? Fv / Rv + (Ft / 1.4) / Rt : kSenzaResistenza;
            } else {
                co1 = tOk ? Ft / Rt : kSenzaResistenza;
            }
            ris.Co1(s, i) = co1;
            ris.Co2(s, i) = tOk ? Ft / Rt : kSenzaResistenza;
        }
    }
}

void SigRifollamento(const Nodo& n, const GeometriaVerifica& geo, Risultati& ris) {
    for (int s = 0; s < n.nSollAg; ++s) {
        for (int i = 1; i <= n.nBull; ++i) {
            const double forza = geo.Area(i) * ris.Tau(s, i);
            ris.SigRifPias1(s, i - 1) = std::fabs(forza / n.Fibull(i) / n.SpPiastra(1));
            ris.SigRifPias2(s, i - 1) = std::fabs(forza / n.Fibull(i) / n.SpPiastra(2));
        }
    }
}

}  // namespace tk07
