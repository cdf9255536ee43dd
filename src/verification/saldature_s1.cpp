#include <cmath>

#include "base/aritmetica.h"
#include "verification/azioni_bulloni.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

// Adds rectangles of a line to the group: own inertia plus the parallel-axis term.
struct Somma {
    double A = 0.0, Ay = 0.0, Ix = 0.0, Iy = 0.0;
    // `quante` vertical lines of length L at height y, offset x from the axis; b across
    void Verticali(double quante, double L, double b, double y, double x) {
        const double a = L * b;
        Aggiungi(quante, a, b * (L * L * L) / 12.0, L * (b * b * b) / 12.0, y, x);
    }
    void Orizzontali(double quante, double L, double b, double y, double x) {
        const double a = L * b;
        Aggiungi(quante, a, L * (b * b * b) / 12.0, b * (L * L * L) / 12.0, y, x);
    }

  private:
    void Aggiungi(double quante, double a, double ix, double iy, double y, double x) {
        A += quante * a;
        Ay += quante * a * y;
        Ix += quante * (ix + a * y * y);
        Iy += quante * (iy + a * x * x);
    }
};

}  // namespace

GruppoS1 ProprietaS1(const Nodo& n, const Geometria& geo) {
    const auto LS = [&](int linea) { return geo.cordone(linea).lunghezza; };
    const ProfiloRec& s = n.TraSec;
    const double a1 = n.spSaldS1;
    GruppoS1 g;
    const double b = g.b = geo.cordone(1).gola;
    const double b3 = b * b * b;
    Somma m;
    m.Verticali(2.0, LS(1), b, s.H / 2.0, s.tw / 2.0 + b / 2.0);
    m.Orizzontali(2.0, LS(2), b, s.H - s.tf - b / 2.0, s.B / 2.0 - LS(2) / 2.0);
    m.Orizzontali(2.0, LS(2), b, s.tf + b / 2.0, s.B / 2.0 - LS(2) / 2.0);
    double lunghezze = 2.0 * LS(1) + 2.0 * LS(2) + 2.0 * LS(3);
    for (int k = 1; k <= 2; ++k) {
        const double L = LS(9 + k);
        const double y = k == 1 ? s.H + b / 2.0 : -b / 2.0;
        if (geo.cordone(9 + k).previsto) {
            const double quante = geo.cordone(9 + k).doppio ? 2.0 : 1.0;
            m.Orizzontali(quante, L, b, y, n.AttNerv(k) ? s.B / 2.0 - L / 2.0 : 0.0);
            lunghezze += quante * L;
        }
        if (n.AttNerv(k)) {
            const double LV = LS(11 + 2 * k);
            m.Verticali(2.0, LV, b, k == 1 ? s.H + a1 + LV / 2.0 : -(LV / 2.0 + a1),
                        n.SpNerv(k) / 2.0 + b / 2.0);
            lunghezze += 2.0 * LV;
        }
    }
    g.A = m.A;
    g.yG = m.A != 0.0 ? m.Ay / m.A : 0.0;
    g.Ix = m.Ix - g.yG * g.yG * m.A;
    g.Iy = m.Iy;
    g.J = lunghezze * b3 / 3.0;
    const double f1 = n.AttNerv(1) ? 2.0 : 1.0, f2 = n.AttNerv(2) ? 2.0 : 1.0;
    g.Av = (2.0 * LS(1) + 2.0 * LS(13) + 2.0 * LS(15)) * a1 / std::sqrt(2.0);
    g.Ah = (2.0 * LS(2) + 2.0 * LS(3) + f1 * LS(10) + f2 * LS(11)) * a1 / std::sqrt(2.0);
    return g;
}

namespace {

// The side welds of rib k hand their force on to the welds at the rib's base.
void NervaturaS1(const Nodo& n, const Geometria& geo, const GruppoS1& g, int s, int k,
                 Risultati& ris) {
    const int V = 11 + 2 * k - 1, O = 10 + 2 * k - 1;  // s13/s12 or s15/s14, from 0
    const int Vp = V + kSpecchio, Op = O + kSpecchio;
    const double a1 = n.spSaldS1, b = g.b, sp = n.SpNerv(k);
    const double LV = geo.cordone(V + 1).lunghezza;
    const double LO =
        NonNullo(geo.cordone(O + 1).lunghezza,
                 k == 1 ? "lunghezza della saldatura s12" : "lunghezza della saldatura s14");
    const double v1 = ris.S_prp1(s, V), v2 = ris.S_prp2(s, V);
    const double w1 = ris.S_prp1(s, Vp), w2 = ris.S_prp2(s, Vp);
    const double Ty = n.TaglioY(s), segnoMt = Sgn(n.MomTorc(s));

    const double R = (v1 + v2 + w1 + w2) / 2.0 * LV * b;
    const double T = -2.0 * (Ty / g.Av) * LV * b;
    const double P = -(ris.Tau_pe(s, V) + ris.Tau_pe(s, Vp)) * LV * b;
    const double q = std::fabs(ris.Tau_pa(s, V) - Ty / g.Av) * segnoMt;
    const double Q = q * (b * b) * LV / 3.0;
    const double D = ((w1 + w2) / 2.0 - (v1 + v2) / 2.0) * LV * b * (sp / 2.0 + b / 2.0);
    const double E = (v1 - v2 + w1 - w2) * LV * b / 2.0 * LV * (-2.0 / 3.0 + 1.0 / 2.0);

    ris.Tau_pa(s, O) = ris.Tau_pa(s, Op) = R / LO / b / 2.0;
    ris.Tau_pe(s, O) = ris.Tau_pe(s, Op) = -P / LO / b / 2.0;

    double M1 = 0.0, F = 0.0, M2 = 0.0;
    if (k == 1) {
        M1 = (LO / 2.0 + a1) * T + E - (LV / 2.0 + a1) * R;
        F = T;
        M2 = (LV / 2.0 + a1) * P - Q;
    } else {
        M1 = -((LO / 2.0 + a1) * T + E + (LV / 2.0 + a1) * R);
        F = -T;
        M2 = (LV / 2.0 + a1) * P + Q;
    }
    const double W = LO * LO * 2.0 * b / 6.0;
    const double coppia = M2 /
                          NonNullo(b + sp, k == 1 ? "distanza tra le saldature s12 e s12'"
                                                  : "distanza tra le saldature s14 e s14'") /
                          (b * LO);
    ris.S_prp1(s, O) = F / LO / b / 2.0 - M1 / W + coppia;
    ris.S_prp1(s, Op) = F / LO / b / 2.0 - M1 / W - coppia;
    ris.S_prp2(s, O) = M1 / W + F / LO / b / 2.0 + coppia;
    ris.S_prp2(s, Op) = M1 / W + F / LO / b / 2.0 - coppia;

    const double M3 = (LO / 2.0 + a1) * P - D;
    const double u = std::fabs(M3 / (2.0 * LO * (b * b * b) / 3.0) * b);
    for (const int j : {O, Op}) {
        double& tau = ris.Tau_pa(s, j);
        tau = std::fabs(tau) > 0.0001 ? Sgn(tau) * u + tau : u;
    }
}

}  // namespace

void VerificaSaldatureS1(const Nodo& n, const Geometria& geo, Risultati& ris,
                         const Piattaforma& p) {
    const double distAzioni = geo.xS;
    const ProfiloRec& sec = n.TraSec;
    const GruppoS1 g = ProprietaS1(n, geo);
    if (n.nSollAg > 0) {  // with no load set nothing is divided
        NonNullo(g.A, "area delle saldature S1");
        NonNullo(g.Ix, "momento d'inerzia Ix delle saldature S1");
        NonNullo(g.Iy, "momento d'inerzia Iy delle saldature S1");
        NonNullo(g.J, "rigidezza torsionale J delle saldature S1");
    }
    for (int s = 0; s < n.nSollAg; ++s) {
        const bool tras = Trasporta(n, s, distAzioni);
        const double N = n.SforzoNormale(s), Ty = n.TaglioY(s), Tz = n.TaglioZ(s);
        const double F1 =
            10.0 * n.MomZ(s) - (tras ? distAzioni * Ty : 0.0) + (g.yG - sec.H / 2.0) * N;
        const double F2 = 10.0 * n.MomY(s) - (tras ? distAzioni * Tz : 0.0) + N * g.xG;
        const auto tensione = [&](double x, double y) {
            return N / g.A - F1 / g.Ix * (y - g.yG) - F2 / g.Iy * (x - g.xG);
        };
        TensioniAiCapi(geo, GruppoSald::S1, s, tensione, ris);
        const double M = 10.0 * n.MomTorc(s) + (g.yG - sec.H / 2.0) * Tz + g.xG * Ty;
        const double tau = std::fabs(M / g.J * g.b);
        for (const int l : {1, 2, 3, 10, 11, 13, 15}) {
            ris.Tau_pa(s, l - 1) = ris.Tau_pa(s, l - 1 + kSpecchio) = tau;
        }
    }
    if (!(g.Av > 0.0001)) {
        Interrompi(Interruzione::s1Verticali, ris, p);
        return;
    }
    AggiungiTaglio(n, {1, 13, 15}, n.TaglioY, g.Av, ris);
    if (!(g.Ah > 0.0001)) {
        Interrompi(Interruzione::s1Orizzontali, ris, p);
        return;
    }
    AggiungiTaglio(n, {2, 3, 10, 11}, n.TaglioZ, g.Ah, ris);
    for (int s = 0; s < n.nSollAg; ++s) {
        for (int k = 1; k <= 2; ++k) {
            if (n.AttNerv(k)) NervaturaS1(n, geo, g, s, k, ris);
        }
    }
}

}  // namespace tk07
