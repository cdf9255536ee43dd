#include "verification/resistenze.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/aritmetica.h"
#include "norme/cnr10011.h"
#include "norme/distanze.h"
#include "norme/ntc2018.h"

namespace tk07 {

namespace {

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
        if (std::fabs(trasv(j) - trasv(i)) > d * kTanCuneo) continue;
        f.minimo = Min(f.minimo, pos(j));
        f.massimo = Max(f.massimo, pos(j));
        if (j != i) f.vicino = Min(f.vicino, d);
    }
    return f;
}

constexpr double kEstremo = 0.01;  // mm

}  // namespace

CoefficientiRifollamento CoefficientiBullone(const Nodo& n, const Opzioni& opz, const Geometria& g,
                                             int i) {
    CoefficientiRifollamento r;
    const double d0 = NonNullo(n.Fibull(i) + opz.ValOpz(kOpzTollForo), "diametro del foro");
    const double rapporto = n.vite.FtVite / NonNullo(n.acciaio.Ftk40, "ftk dell'acciaio");
    const double x = n.Xbull(i), y = n.Ybull(i);

    const double W = g.comune.xMax;
    const Fila riga = FilaDi(n, n.Xbull, n.Ybull, i);
    if (std::fabs(x - riga.minimo) < kEstremo) {
        r.k = Min(ntc::kRifMassimo, ntc::kRifBordo * (x + W) / d0 - ntc::kRifMeno);
    } else if (std::fabs(x - riga.massimo) < kEstremo) {
        r.k = Min(ntc::kRifMassimo, ntc::kRifBordo * (W - x) / d0 - ntc::kRifMeno);
    } else {
        r.k = Min(ntc::kRifMassimo, ntc::kRifPasso * riga.vicino / d0 - ntc::kRifMeno);
    }

    const Rettangolo& comune = g.comune;
    const Fila colonna = FilaDi(n, n.Ybull, n.Xbull, i);
    double a = 0.0;
    if (std::fabs(y - colonna.minimo) < kEstremo) {
        a = (y - comune.yMin) / (ntc::kRifAlfa * d0);
    } else if (std::fabs(y - colonna.massimo) < kEstremo) {
        a = (comune.yMax - y) / (ntc::kRifAlfa * d0);
    } else {
        a = colonna.vicino / (ntc::kRifAlfa * d0) - ntc::kRifAlfaMeno;
    }
    r.alfa = Min(Min(rapporto, a), 1.0);
    return r;
}

void ResistenzeBulloni(const Nodo& n, const Opzioni& opz, const GeometriaVerifica& geo,
                       Risultati& ris) {
    const double gamma = NonNullo(n.vite.GammaMVite, "coefficiente parziale delle viti");
    const double fattore = FattoreTaglio(n.vite.Nome);
    const double t = Min(n.SpPiastra(1), n.SpPiastra(2));
    const double Ftk = FtkPiastre(n);
    for (int i = 1; i <= n.nBull; ++i) {
        const double A = geo.Area(i);
        const double d = n.Fibull(i);
        const CoefficientiRifollamento c = CoefficientiBullone(n, opz, geo.forma, i);
        ris.Fv_Rd(i) = fattore * n.vite.FtVite * A / kMm2PerCm2 / gamma;
        ris.Fb_Rd(i) = c.k * c.alfa * Ftk * d * t / kMm2PerCm2 / gamma;
        ris.Bp_Rd(i) = ntc::kFattorePunzonamento * kPi * Ftk * (ntc::kDiametroPunzonamento * d) *
                       t / kMm2PerCm2 / gamma;
        ris.Ft_Rd(i) = ntc::kFattoreTrazione * n.vite.FtVite * A / kMm2PerCm2 / gamma;
    }
}

void CoefficientiBulloni(const Nodo& n, Risultati& ris) {
    constexpr double kSenzaResistenza = 100.0;
    struct Resistenze {
        double taglio = 0.0, trazione = 0.0;
        bool vOk = false, tOk = false;
    };
    std::array<Resistenze, kMaxBulloni> r;
    const auto bulloni = static_cast<std::size_t>(n.nBull);
    for (std::size_t i = 0; i < bulloni; ++i) {
        const long k = static_cast<long>(i) + 1;
        r[i] = {Min(ris.Fv_Rd(k), ris.Fb_Rd(k)), Min(ris.Ft_Rd(k), ris.Bp_Rd(k)),
                ris.Fv_Rd(k) > 0.0 && ris.Fb_Rd(k) > 0.0, ris.Ft_Rd(k) > 0.0 && ris.Bp_Rd(k) > 0.0};
    }
    for (int s = 0; s < n.nSollAg; ++s) {
        const auto fv = ris.Fv_Ed.Riga(s, 1), ft = ris.Ft_Ed.Riga(s, 1), co1 = ris.Co1.Riga(s, 1),
                   co2 = ris.Co2.Riga(s, 1);
        for (std::size_t i = 0; i < bulloni; ++i) {
            const auto [Rv, Rt, vOk, tOk] = r[i];
            const double Fv = std::fabs(fv[i]), Ft = std::fabs(ft[i]);
            double c = 0.0;
            if (!(ft[i] > 0.0)) {
                if (Fv > 0.0) c = vOk ? Fv / Rv : kSenzaResistenza;
            } else if (Fv > 0.0) {
                c = vOk && tOk ? Fv / Rv + (Ft / ntc::kTrazioneConTaglio) / Rt : kSenzaResistenza;
            } else {
                c = tOk ? Ft / Rt : kSenzaResistenza;
            }
            co1[i] = c;
            co2[i] = tOk ? Ft / Rt : kSenzaResistenza;
        }
    }
}

void SigRifollamento(const Nodo& n, const GeometriaVerifica& geo, Risultati& ris) {
    const auto area = geo.Area.Tratto(1, n.nBull), d = n.Fibull.Tratto(1, n.nBull);
    const double t1 = n.SpPiastra(1), t2 = n.SpPiastra(2);
    for (int s = 0; s < n.nSollAg; ++s) {
        const auto tau = ris.Tau.Riga(s, 1), sig1 = ris.SigRifPias1.Riga(s),
                   sig2 = ris.SigRifPias2.Riga(s);
        for (std::size_t i = 0; i < area.size(); ++i) {
            const double perDiametro = area[i] * tau[i] / d[i];
            sig1[i] = std::fabs(perDiametro / t1);
            sig2[i] = std::fabs(perDiametro / t2);
        }
    }
}

double CoeffRifollamento(const Nodo& n, const Opzioni& opz, int s) {
    const double gioco = opz.ValOpz(kOpzTollForo);
    const double q = GeometriaDi(n).piastra(2).yMin;
    double dY = std::fabs(n.Ybull(1));
    double dX = std::fabs(n.Xbull(1) - n.BPiastra(1) / 2.0);
    double d = n.Fibull(1) + gioco;
    for (int i = 1; i <= n.nBull; ++i) {
        const double X = n.Xbull(i), Y = n.Ybull(i);
        for (const double y : {Y, Y - n.HPiastra(1), Y - q, Y - n.HPiastra(2) - q}) {
            dY = Min(dY, std::fabs(y));
        }
        for (const double x : {X - n.BPiastra(1) / 2.0, n.BPiastra(1) / 2.0 + X,
                               X - n.BPiastra(2) / 2.0, n.BPiastra(2) / 2.0 + X}) {
            dX = Min(dX, std::fabs(x));
        }
        d = Min(d, std::fabs(n.Fibull(i) + gioco));
    }
    const bool soloVerticale =
        std::fabs(n.TaglioZ(s)) <= 0.0001 && std::fabs(n.MomTorc(s)) <= 0.0001;
    if (!soloVerticale) dY = Min(dY, dX);
    return Min(dY / d, cnr::kRifMassimo);
}

}  // namespace tk07
