#include "verification/piastra.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/aritmetica.h"
#include "verification/piani.h"

namespace tk07 {

double FlessionePiastra(const Nodo& n, int k, double M, double sig) {
    const double B = n.TraSec.B, t = n.SpPiastra(2);
    if (!n.AttNerv(k)) {
        const double W = NonNullo(B * (t * t) / 6.0, "modulo di resistenza della piastra 2");
        return Max(sig, std::fabs(M / W));
    }
    const double b = n.BNerv(k), a = n.SpNerv(k);
    const double area = NonNullo(B * t + b * a, "area della sezione della piastra 2 con nervatura");
    const double yG = (B * (t * t) / 2.0 + b * a * (b / 2.0 + t)) / area;
    const double d1 = yG - t / 2.0, d2 = yG - t - b / 2.0;
    const double I = NonNullo(B * (t * t * t) / 12.0 + B * t * (d1 * d1) + b * a * (d2 * d2),
                              "momento d'inerzia della piastra 2 con nervatura");
    const double s1 = std::fabs(M / I * (b + t - yG));  // tip of the rib
    const double s2 = std::fabs(M / I * (yG - t));      // face of the plate at the rib
    return Max(sig, Max(s1, s2));
}

namespace {

// Torsion and vertical shear have no part in the plane of plates that are not turned, so the plane
// of the bolts stands. Where they are beyond the range of numbers that part is no number either:
// then no plane balances the plate.
bool InEquilibrio(const Nodo& n, const GeometriaVerifica& geo, int s, const Piattaforma& p) {
    const double daMt = 0.0 * (10.0 * n.MomTorc(s)), daTy = 0.0 * n.TaglioY(s);
    if (daMt == 0.0 && daTy == 0.0) return true;
    PoligonoCompresso pol = PreparaPoligono(n, geo);
    pol.polAzioni = AzioniPiano(n, geo, s);
    pol.polAzioni(2) += daMt;
    pol.polAzioni(3) -= daTy;
    const StatoPiano stato = RisolviPiano(pol).stato;
    if (s > 0) DiciConvergenza(stato, p);
    MostraErrore(p, "Sestetto di sollecitazione n°" + std::to_string(s + 1) +
                        ": situazione non equilibrata nella verifica della piastra. La "
                        "verifica non può continuare!");
    return false;
}

// Resultants of the contact on a strip of plate 2, without the bolts there, for blocks of load
// sets.
class ContattoStriscia {
  public:
    ContattoStriscia(const Nodo& n, double y1, double y2, const Risultati& ris)
        : n_(n), ris_(ris), r_{-n.BPiastra(2) / 2.0, n.BPiastra(2) / 2.0, y1, y2} {}

    Piano Risultanti(int s) {
        if (s < da_ || s >= da_ + quanti_) Calcola(s);
        const auto i = static_cast<std::size_t>(s - da_);
        Piano c;
        for (std::size_t k = 0; k < 3; ++k) c(static_cast<long>(k) + 1) = risultanti_[k][i];
        return c;
    }

  private:
    static constexpr int kBlocco = 64;
    void Calcola(int da) {
        da_ = da;
        quanti_ = std::min(kBlocco, n_.nSollAg - da);
        std::array<std::array<double, kBlocco>, 3> piani;
        bool ordinari = Ordinario(r_);
        for (int i = 0; i < quanti_; ++i) {
            const auto riga = ris_.Piano.Riga(da + i);
            for (std::size_t k = 0; k < 3; ++k) piani[k][static_cast<std::size_t>(i)] = riga[k];
            ordinari = ordinari && PianoOrdinario(riga[0], riga[1], riga[2]);
        }
        if (ordinari) {
            ContattiPiani(r_, static_cast<std::size_t>(quanti_),
                          {{piani[0].data(), piani[1].data(), piani[2].data()},
                           {risultanti_[0].data(), risultanti_[1].data(), risultanti_[2].data()}});
            return;
        }
        PoligonoCompresso striscia;
        striscia.polNVert = 4;
        striscia.polX(1) = striscia.polX(2) = r_.xMin;
        striscia.polX(3) = striscia.polX(4) = r_.xMax;
        striscia.polY(1) = striscia.polY(4) = r_.yMin;
        striscia.polY(2) = striscia.polY(3) = r_.yMax;
        striscia.Completa();
        for (int i = 0; i < quanti_; ++i) {
            const Piano c = RisultantiContatto(striscia, PianoTensioni(ris_, da + i));
            for (std::size_t k = 0; k < 3; ++k) {
                risultanti_[k][static_cast<std::size_t>(i)] = c(static_cast<long>(k) + 1);
            }
        }
    }

    const Nodo& n_;
    const Risultati& ris_;
    RettangoloPiano r_;
    int da_ = 0, quanti_ = 0;
    std::array<std::array<double, kBlocco>, 3> risultanti_;
};

}  // namespace

bool VerificaPiastra(const Nodo& n, const GeometriaVerifica& geo, Risultati& ris,
                     const Piattaforma& p) {
    const Strisce& st = geo.forma.strisce;
    const bool conSup = st.ySup2 - st.ySup1 > 0.0, conInf = st.yInf2 - st.yInf1 > 0.0;
    ContattoStriscia sup(n, st.ySup1, st.ySup2, ris), inf(n, st.yInf1, st.yInf2, ris);
    const auto y = n.Ybull.Tratto(1, n.nBull), area = geo.Area.Tratto(1, n.nBull);
    for (int s = 0; s < n.nSollAg; ++s) {
        if (!InEquilibrio(n, geo, s, p)) return false;
        const auto sigma = ris.Sigma.Riga(s, 1);
        double sig = 0.0;
        if (conSup) {
            double M = 0.0;
            for (std::size_t i = 0; i < y.size(); ++i) {
                if (y[i] > st.ySup1 && Arrotonda(sigma[i], 0) != 0.0) {
                    M = M - area[i] * sigma[i] * (y[i] - st.ySup1);
                }
            }
            const Piano c = sup.Risultanti(s);
            M = M - c(1) + c(3) * st.ySup1;
            ris.MPiastra2(s, 1) = M;
            sig = FlessionePiastra(n, 1, M, sig);
        }
        if (conInf) {
            double M = 0.0;
            for (std::size_t i = 0; i < y.size(); ++i) {
                if (y[i] < st.yInf2 && Arrotonda(sigma[i], 0) != 0.0) {
                    M = M - area[i] * sigma[i] * (st.yInf2 - y[i]);
                }
            }
            const Piano c = inf.Risultanti(s);
            M = M + c(1) - c(3) * st.yInf2;
            ris.MPiastra2(s, 2) = M;
            sig = FlessionePiastra(n, 2, M, sig);
        }
        ris.SigPiastra2(s, 0) = sig;
    }
    return true;
}

}  // namespace tk07
