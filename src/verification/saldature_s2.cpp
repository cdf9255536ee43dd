#include <cmath>

#include "base/aritmetica.h"
#include "verification/azioni_bulloni.h"
#include "verification/saldature.h"

namespace tk07 {

GruppoS2 ProprietaS2(const Nodo& n, const Geometria& geo) {
    const auto LS = [&](int linea) { return geo.cordone(linea).lunghezza; };
    GruppoS2 g;
    const double b = g.b = geo.cordone(4).gola;
    const double b3 = b * b * b;
    const auto cubo = [](double x) { return x * x * x; };
    const auto quadrato = [](double x) { return x * x; };
    const double yAla = geo.zAlaPri - b / 2.0;  // lines along the flanges

    g.A = (2.0 * LS(4) + 2.0 * LS(8) + 2.0 * LS(9)) * b;
    g.Ix = 2.0 * cubo(LS(4)) * b / 12.0;
    for (const int l : {8, 9}) g.Ix += 2.0 * (LS(l) * b3 / 12.0 + b * LS(l) * quadrato(yAla));
    for (const int l : {8, 9}) {
        g.Iy += 2.0 *
                (b * cubo(LS(l)) / 12.0 + b * LS(l) * quadrato(n.BPiastra(1) / 2.0 - LS(l) / 2.0));
    }
    g.Iy += 2.0 * (LS(4) * b3 / 12.0 + b * LS(4) * quadrato(n.SpNerv(3) / 2.0 + b / 2.0));
    g.xG = 0.0;
    g.yG = -geo.zAsse;
    g.J = (2.0 * LS(4) + 2.0 * LS(8) + 2.0 * LS(9)) * b3 / 3.0;
    g.Av = 2.0 * LS(4) * n.spSaldS2 / std::sqrt(2.0);
    g.Ah = 2.0 * (LS(8) + LS(9)) * n.spSaldS2 / std::sqrt(2.0);

    const double a2 = n.spSaldS2, BN = n.BNerv(3);
    g.A3 = (2.0 * LS(6) + 2.0 * LS(5) + 2.0 * LS(7)) * b;
    const double statico = 2.0 * LS(6) * b * BN + 2.0 * LS(5) * b * (LS(5) / 2.0 + a2) +
                           2.0 * LS(7) * b * (LS(7) / 2.0 + a2);
    g.xG3 = g.A3 != 0.0 ? statico / g.A3 : 0.0;
    g.Ix3 = 2.0 * cubo(LS(6)) * b / 12.0;
    for (const int l : {5, 7}) {
        g.Ix3 += 2.0 * (LS(l) * b3 / 12.0 + b * LS(l) * quadrato(yAla));
        g.Iy3 += 2.0 * (b * cubo(LS(l)) / 12.0 + b * LS(l) * quadrato(LS(l) / 2.0 + a2));
    }
    g.Iy3 += 2.0 * (LS(6) * b3 / 12.0 + b * LS(6) * quadrato(BN));
    g.Iy3 -= g.xG3 * g.xG3 * g.A3;
    return g;
}

namespace {

constexpr int s4 = 3, s5 = 4, s6 = 5, s7 = 6;  // indices of the lines

// Actions that the side welds s4, s4' hand to rib 3, one load set.
struct AzioniNerv3 {
    double R = 0.0, T = 0.0, Q = 0.0, D = 0.0, E = 0.0;
};

AzioniNerv3 AzioniNervatura3(const Nodo& n, const Geometria& geo, const GruppoS2& g, int s,
                             const Risultati& ris) {
    const double L4 = geo.cordone(4).lunghezza, b = g.b, Ty = n.TaglioY(s);
    const double v1 = ris.S_prp1(s, s4), v2 = ris.S_prp2(s, s4);
    const double w1 = ris.S_prp1(s, s4 + kSpecchio), w2 = ris.S_prp2(s, s4 + kSpecchio);
    AzioniNerv3 a;
    a.R = ((v1 + v2) / 2.0 + (w1 + w2) / 2.0) * L4 * b;
    a.T = 2.0 * (Ty / g.Av) * L4 * b;
    a.Q = std::fabs(ris.Tau_pa(s, s4) - Ty / g.Av) * Sgn(n.MomTorc(s)) * (b * b) * L4 / 3.0;
    a.D = std::fabs(((v1 + v2) / 2.0 - (w1 + w2) / 2.0) * (n.SpNerv(3) / 2.0 + b / 2.0) * L4 * b) *
          Sgn(n.MomY(s));
    a.E = (v2 - v1 + w2 - w1) * L4 / 2.0 * (L4 / 2.0 - 2.0 * L4 / 3.0) * b;
    return a;
}

void Nervatura3(const Nodo& n, const Geometria& geo, const GruppoS2& g, int s, const AzioniNerv3& a,
                Risultati& ris) {
    const double Hp = n.TraPri.H, tfp = n.TraPri.tf, b = g.b, a2 = n.spSaldS2;
    const double L5 = NonNullo(geo.cordone(5).lunghezza, "lunghezza della saldatura s5");
    const double L6 = geo.cordone(6).lunghezza, L7 = geo.cordone(7).lunghezza;
    const double braccio = NonNullo(Hp - 2.0 * tfp - b / 2.0, "distanza tra le saldature s5 e s7");
    const double t0 = a.Q / braccio / 2.0 / b / L5;
    const double F1 = a.E, F2 = a.D, F3 = a.R;
    const double yAla = geo.zAlaPri - b / 2.0;
    for (const int m : {0, kSpecchio}) {
        ris.S_prp1(s, s6 + m) = F3 / g.A3 - F1 / g.Ix3 * (-L6 / 2.0);
        ris.S_prp2(s, s6 + m) = F3 / g.A3 - F1 / g.Ix3 * (L6 / 2.0);
        ris.Tau_pe(s, s6 + m) = -(F2 / g.Iy3) * (n.BNerv(3) - g.xG3);
        ris.Tau_pa(s, s5 + m) = F3 / g.A3 - F1 / g.Ix3 * (-yAla);
        ris.Tau_pa(s, s7 + m) = F3 / g.A3 - F1 / g.Ix3 * yAla;
        // The end of the line with the larger absolute stress counts.
        const auto traverso = [&](double inizio, double L) {
            return MaxAss(inizio - F2 / g.Iy3 * (a2 + L - g.xG3),
                          inizio - F2 / g.Iy3 * (a2 - g.xG3));
        };
        ris.Tau_pe(s, s5 + m) = traverso(t0, L5);
        ris.Tau_pe(s, s7 + m) = traverso(-t0, L7);
    }
}

}  // namespace

void VerificaSaldatureS2(const Nodo& n, const Geometria& geo, Risultati& ris,
                         const Piattaforma& p) {
    const GruppoS2 g = ProprietaS2(n, geo);
    if (n.nSollAg > 0) {  // with no load set nothing is divided
        NonNullo(g.A, "area delle saldature S2");
        NonNullo(g.Ix, "momento d'inerzia Ix delle saldature S2");
        NonNullo(g.Iy, "momento d'inerzia Iy delle saldature S2");
        NonNullo(g.J, "rigidezza torsionale J delle saldature S2");
    }
    const double b = g.b, arm = geo.xP1;
    const auto LS = [&](int l) { return geo.cordone(l).lunghezza; };
    for (int s = 0; s < n.nSollAg; ++s) {
        const bool tras = Trasporta(n, s, geo.xS);
        const double N = n.SforzoNormale(s), Ty = n.TaglioY(s), Tz = n.TaglioZ(s);
        // The moments as stored [daN cm], without the factor 10.
        const double F1 = n.MomZ(s) - (tras ? arm * Ty : 0.0) + N * g.yG;
        const double F2 = n.MomY(s) - (tras ? arm * Tz : 0.0) + N * g.xG;
        const auto tensione = [&](double x, double y) {
            return N / g.A - F1 / g.Ix * y - F2 / g.Iy * x;
        };
        const double M = 10.0 * n.MomTorc(s) + Tz * g.yG + Ty * g.xG;
        const double tau = std::fabs(M / g.J * b);
        TensioniAiCapi(geo, GruppoSald::S2, s, tensione, ris);
        for (const int l : {4, 8, 9}) {
            ris.Tau_pa(s, l - 1) = ris.Tau_pa(s, l - 1 + kSpecchio) = tau;
        }
    }
    if (!(g.Av > 0.0001)) {
        Interrompi(Interruzione::s2Verticali, ris, p);
        return;
    }
    AggiungiTaglio(n, {4}, n.TaglioY, g.Av, ris);
    if (!(g.Ah > 0.0001)) {
        Interrompi(Interruzione::s2Orizzontali, ris, p);
        return;
    }
    AggiungiTaglio(n, {8, 9}, n.TaglioZ, g.Ah, ris);

    if (n.nSollAg > 0) {
        NonNullo(g.A3, "area delle saldature della nervatura 3 (s5, s6, s7)");
        NonNullo(g.Ix3, "momento d'inerzia Ix delle saldature della nervatura 3 (s5, s6, s7)");
        NonNullo(g.Iy3, "momento d'inerzia Iy delle saldature della nervatura 3 (s5, s6, s7)");
    }
    for (int s = 0; s < n.nSollAg; ++s) {
        Nervatura3(n, geo, g, s, AzioniNervatura3(n, geo, g, s, ris), ris);
    }
    if (!(LS(6) > 0.0001)) {
        Interrompi(Interruzione::s2Nervatura3, ris, p);
        return;
    }
    for (int s = 0; s < n.nSollAg; ++s) {
        // T3 / (2 a2 L6 / sqrt 2)
        const double T3 = 2.0 * (n.TaglioY(s) / g.Av) * LS(4) * b;
        const double quota = T3 / (2.0 * n.spSaldS2 * LS(6) / std::sqrt(2.0));
        ris.Tau_pa(s, s6) += quota;
        ris.Tau_pa(s, s6 + kSpecchio) += quota;
    }
}

}  // namespace tk07
