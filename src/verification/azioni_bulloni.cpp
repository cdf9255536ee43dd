#include "verification/azioni_bulloni.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/aritmetica.h"
#include "verification/piani.h"

namespace tk07 {

GeometriaVerifica PreparaGeometria(const Nodo& n) {
    GeometriaVerifica g;
    g.forma = GeometriaDi(n);
    double somma = 0.0, sx = 0.0, sy = 0.0;
    for (int i = 1; i <= n.nBull; ++i) {
        g.Area(i) = AreaResistente(n.Fibull(i));
        somma += g.Area(i);
        sx += g.Area(i) * n.Xbull(i);
        sy += g.Area(i) * n.Ybull(i);
    }
    if (somma != 0.0) {
        g.XG = sx / somma;
        g.YG = sy / somma;
    }
    for (int i = 1; i <= n.nBull; ++i) {
        const double dx = n.Xbull(i) - g.XG, dy = n.Ybull(i) - g.YG;
        g.Ip += g.Area(i) * (dx * dx + dy * dy);
    }
    g.distAzioni = g.forma.xS;
    g.yAsse = g.forma.yAsse;
    return g;
}

bool Trasporta(const Nodo& n, int s, double distAzioni) {
    return (10.0 * n.MomZ(s) - distAzioni * n.TaglioY(s)) * n.MomZ(s) <= 0.0;
}

PoligonoCompresso PreparaPoligono(const Nodo& n, const GeometriaVerifica& geo) {
    PoligonoCompresso pol;
    const Rettangolo& r = geo.forma.comune;
    pol.polRifFisso = 1;
    pol.polRifY = geo.yAsse;
    pol.polNVert = 4;
    // In this order the solver's area is positive.
    const double x[] = {r.xMin, r.xMin, r.xMax, r.xMax};
    const double y[] = {r.yMin, r.yMax, r.yMax, r.yMin};
    for (int j = 1; j <= 4; ++j) {
        pol.polX(j) = x[j - 1];
        pol.polY(j) = y[j - 1];
    }
    pol.polNBarre = n.nBull;
    for (int i = 1; i <= n.nBull; ++i) {
        pol.barX(i) = n.Xbull(i);
        pol.barY(i) = n.Ybull(i);
        pol.barA(i) = geo.Area(i);
        pol.barE(i) = 1.0;
    }
    pol.Completa();
    return pol;
}

Tab1<double, 1, 3> AzioniPiano(const Nodo& n, const GeometriaVerifica& geo, int s) {
    const bool trasporta = Trasporta(n, s, geo.distAzioni);
    Tab1<double, 1, 3> a;
    a(1) = -10.0 * n.MomZ(s) + (trasporta ? geo.distAzioni * n.TaglioY(s) : 0.0);
    a(2) = -10.0 * n.MomY(s) + (trasporta ? geo.distAzioni * n.TaglioZ(s) : 0.0);
    a(3) = n.SforzoNormale(s);
    return a;
}

void DiciConvergenza(StatoPiano stato, const Piattaforma& p) {
    if (stato == StatoPiano::areeNegative) {
        MostraErrore(p, "Convergenza non raggiunta (la somma delle aree distribuite e' negativa).");
    } else if (stato == StatoPiano::nonConvergente) {
        MostraErrore(p, "Convergenza non raggiunta.");
    }
}

namespace {

// The planes of a block of load sets, solved several at a time; a set that the lanes leave is
// solved alone, and tells why it is not in equilibrium.
class PianiABlocchi {
  public:
    PianiABlocchi(const Nodo& n, const GeometriaVerifica& geo)
        : n_(n), geo_(geo), pol_(PreparaPoligono(n, geo)), problema_(PreparaPiani(pol_)) {}
    const PoligonoCompresso& Poligono() const { return pol_; }

    StatoPiano Piano(int s, tk07::Piano& piano) {
        if (s < da_ || s >= da_ + quanti_) Risolvi(s);
        const auto i = static_cast<std::size_t>(s - da_);
        if (risolto_[i] != 0) {
            for (std::size_t k = 0; k < 3; ++k) piano(static_cast<long>(k) + 1) = piani_[k][i];
            return StatoPiano::equilibrio;
        }
        pol_.polAzioni = AzioniPiano(n_, geo_, s);
        const PianoRisolto r = RisolviPiano(pol_);
        piano = r.polPiano;
        return r.stato;
    }

  private:
    static constexpr int kBlocco = 64;
    void Risolvi(int da) {
        da_ = da;
        quanti_ = std::min(kBlocco, n_.nSollAg - da);
        for (int i = 0; i < quanti_; ++i) {
            const auto c =
                CaricoInOrigine(AzioniPiano(n_, geo_, da + i), pol_.polRifX, pol_.polRifY);
            for (std::size_t k = 0; k < 3; ++k) {
                carichi_[k][static_cast<std::size_t>(i)] = c(static_cast<long>(k) + 1);
            }
        }
        RisolviPiani(problema_, static_cast<std::size_t>(quanti_),
                     {{carichi_[0].data(), carichi_[1].data(), carichi_[2].data()},
                      {piani_[0].data(), piani_[1].data(), piani_[2].data()},
                      risolto_.data()});
    }

    const Nodo& n_;
    const GeometriaVerifica& geo_;
    PoligonoCompresso pol_;
    ProblemaPiani problema_;
    int da_ = 0, quanti_ = 0;
    std::array<std::array<double, kBlocco>, 3> carichi_, piani_;
    std::array<char, kBlocco> risolto_;
};

// The plane on the bolts, and the largest compression over the vertices of the contact rectangle.
void PianoSuBulloni(const Nodo& n, const PoligonoCompresso& pol, const Piano& piano, int s,
                    Risultati& ris) {
    for (int k = 1; k <= 3; ++k) ris.Piano(s, k) = piano(k);
    const auto x = n.Xbull.Tratto(1, n.nBull), y = n.Ybull.Tratto(1, n.nBull);
    const auto sigma = ris.Sigma.Riga(s, 1);
    for (std::size_t i = 0; i < x.size(); ++i) sigma[i] = ValorePiano(piano, x[i], y[i]);
    double sig = ris.Sig(s, 0);
    for (int j = 1; j <= 4; ++j) sig = Min(sig, ValorePiano(piano, pol.polX(j), pol.polY(j)));
    ris.Sig(s, 0) = sig;
}

}  // namespace

bool AzioniBulloni(const Nodo& n, const GeometriaVerifica& geo, Risultati& ris,
                   const Piattaforma& p) {
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    const auto x = n.Xbull.Tratto(1, n.nBull), y = n.Ybull.Tratto(1, n.nBull),
               area = geo.Area.Tratto(1, n.nBull);
    const bool concentrati = !(geo.Ip > 0.0001);
    PianiABlocchi piani(n, geo);
    for (int s = 0; s < n.nSollAg; ++s) {
        Piano piano;
        const StatoPiano stato = piani.Piano(s, piano);
        if (stato != StatoPiano::equilibrio) {
            // Every set before has been solved, else the run would have ended there.
            if (s > 0) DiciConvergenza(stato, p);
            MostraErrore(p,
                         "Sestetto di sollecitazione n°" + std::to_string(s + 1) +
                             ": situazione non equilibrata nel calcolo delle azioni sui bulloni");
            return false;
        }
        PianoSuBulloni(n, piani.Poligono(), piano, s, ris);
        if (slu) {
            const auto sigma = ris.Sigma.Riga(s, 1), ft = ris.Ft_Ed.Riga(s, 1);
            for (std::size_t i = 0; i < area.size(); ++i) ft[i] = area[i] * sigma[i];
        }
        const double Ty = n.TaglioY(s), Tz = n.TaglioZ(s);
        const double Mtot = 10.0 * n.MomTorc(s) + (geo.YG - geo.yAsse) * Tz + geo.XG * Ty;
        if (concentrati && std::fabs(Mtot) > 0.0001) {
            MostraErrore(p, "Non è possibile distribuire la torsione");
            return false;
        }
        const double quotaZ = Tz / n.nBull, quotaY = Ty / n.nBull;
        const double giro = concentrati ? 0.0 : -(Mtot / geo.Ip);
        const auto taglio = slu ? ris.Fv_Ed.Riga(s, 1) : ris.Tau.Riga(s, 1);
        for (std::size_t i = 0; i < area.size(); ++i) {
            // Both torsion terms bear the same sign: Ty is positive downwards.
            const double Vz = giro * (y[i] - geo.YG) * area[i] + quotaZ;
            const double Vy = giro * (x[i] - geo.XG) * area[i] + quotaY;
            const double V = std::sqrt(Vz * Vz + Vy * Vy);
            taglio[i] = slu ? V : V / area[i];
        }
    }
    return true;
}

}  // namespace tk07
