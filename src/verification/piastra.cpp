#include "verification/piastra.h"

#include <cmath>
#include <string>

#include "base/aritmetica.h"

namespace tk07 {

Strisce StrisceDi(const Nodo& n) {
    const double cima2 = CimaPiastra2(n);
    const double asseSup = (n.TraPri.H + n.HPiastra(1)) / 2.0 - n.distAliPriSec;
    Strisce s;
    s.yInf1 = Max(0.0, cima2 - n.HPiastra(2));
    s.yInf2 = Min(n.HPiastra(1), asseSup - n.TraSec.H);
    s.ySup1 = Max(0.0, asseSup);
    s.ySup2 = Min(cima2, n.HPiastra(1));
    return s;
}

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

// Resultants of the contact on the strip y1..y2, without the bolts there.
Piano ContattoStriscia(const Nodo& n, double y1, double y2, const Piano& piano) {
    const double x = n.BPiastra(2) / 2.0;
    PoligonoCompresso striscia;
    striscia.polNVert = 4;
    const double vx[] = {-x, -x, x, x};
    const double vy[] = {y1, y2, y2, y1};
    for (int j = 1; j <= 4; ++j) {
        striscia.polX(j) = vx[j - 1];
        striscia.polY(j) = vy[j - 1];
    }
    striscia.Completa();
    return RisultantiContatto(striscia, piano);
}

}  // namespace

bool VerificaPiastra(const Nodo& n, const GeometriaVerifica& geo, const Strisce& st, Risultati& ris,
                     const Piattaforma& p) {
    for (int s = 0; s < n.nSollAg; ++s) {
        ris.SigPiastra2(s, 0) = 0.0;
        if (!InEquilibrio(n, geo, s, p)) return false;
        const Piano piano = PianoTensioni(ris, s);
        if (st.ySup2 - st.ySup1 > 0.0) {
            double M = 0.0;
            for (int i = 1; i <= n.nBull; ++i) {
                if (n.Ybull(i) > st.ySup1 && Arrotonda(ris.Sigma(s, i), 0) != 0.0) {
                    M = M - geo.Area(i) * ris.Sigma(s, i) * (n.Ybull(i) - st.ySup1);
                }
            }
            const Piano c = ContattoStriscia(n, st.ySup1, st.ySup2, piano);
            M = M - c(1) + c(3) * st.ySup1;
            ris.MPiastra2(s, 1) = M;
            ris.SigPiastra2(s, 0) = FlessionePiastra(n, 1, M, ris.SigPiastra2(s, 0));
        }
        if (st.yInf2 - st.yInf1 > 0.0) {
            double M = 0.0;
            for (int i = 1; i <= n.nBull; ++i) {
                if (n.Ybull(i) < st.yInf2 && Arrotonda(ris.Sigma(s, i), 0) != 0.0) {
                    M = M - geo.Area(i) * ris.Sigma(s, i) * (st.yInf2 - n.Ybull(i));
                }
            }
            const Piano c = ContattoStriscia(n, st.yInf1, st.yInf2, piano);
            M = M + c(1) - c(3) * st.yInf2;
            ris.MPiastra2(s, 2) = M;
            ris.SigPiastra2(s, 0) = FlessionePiastra(n, 2, M, ris.SigPiastra2(s, 0));
        }
    }
    return true;
}

}  // namespace tk07
