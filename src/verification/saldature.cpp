#include "verification/saldature.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

bool PiastraSporge(const Nodo& n, int k) {
    const double sporto =
        k == 1 ? n.distAlaSecPiastra : n.HPiastra(2) - n.distAlaSecPiastra - n.TraSec.H;
    return !(sporto < n.spSaldS1);
}

std::string NomeLinea(int j) { return "s" + std::to_string(j % 15 + 1) + (j >= 15 ? "'" : ""); }

void AggiungiTaglio(const Nodo& n, std::initializer_list<int> linee,
                    const Tab1<double, 0, kMaxSestetto>& taglio, double area, Risultati& ris) {
    for (int s = 0; s < n.nSollAg; ++s) {
        const double T = taglio(s);
        if (!(std::fabs(T) > 0.0)) continue;
        for (const int l : linee) {
            for (const int j : {l - 1, l - 1 + kSpecchio}) {
                ris.Tau_pa(s, j) = std::fabs(ris.Tau_pa(s, j)) * Sgn(T) + T / area;
            }
        }
    }
}

namespace {

// Line at the rib's base (s12, s14).
double LunghezzaBaseNervatura(const Nodo& n, int k) {
    const double a1 = n.spSaldS1, H1 = n.H1Nerv(k), H2 = n.H2Nerv(k), B = n.BNerv(k);
    const bool sporge = PiastraSporge(n, k);
    if (H2 < a1 && H1 != H2) {  // the rib's tip is cut to a point
        return sporge ? std::fabs((a1 - H2) / (H1 - H2) * B - B + a1) : B;
    }
    return sporge ? B - a1 : B;
}

// Line along the rib's side on the plate (s13, s15).
double LunghezzaLatoNervatura(const Nodo& n, int k) {
    const double a1 = n.spSaldS1, H1 = n.H1Nerv(k), H2 = n.H2Nerv(k);
    const double B = NonNullo(n.BNerv(k), k == 1 ? "larghezza della nervatura 1 (saldatura s13)"
                                                 : "larghezza della nervatura 2 (saldatura s15)");
    return std::fabs(H1 - a1 - (H1 - H2) * a1 / B);
}

}  // namespace

void LunghezzeSaldature(const Nodo& n, Risultati& ris) {
    const ProfiloRec& s = n.TraSec;
    const ProfiloRec& t = n.TraPri;
    const double a1 = n.spSaldS1, a2 = n.spSaldS2;
    const auto metti = [&](int linea, double lunghezza) {
        ris.LungSald(linea - 1) = Int(lunghezza);
    };

    metti(1, s.H - 2.0 * s.tf - 2.0 * Max(s.r, a1));
    metti(2, (s.B / 2.0 - s.tw / 2.0) - Max(s.r, a1));
    metti(3, (s.B / 2.0 - s.tw / 2.0) - Max(s.r, a1));
    metti(4, t.H - 2.0 * t.tf - 2.0 * a2);
    metti(5, n.BNerv(3) - n.SmussoNerv(3) - a2);
    metti(6, t.H - 2.0 * t.tf - 2.0 * n.SmussoNerv(3));
    metti(7, n.BNerv(3) - n.SmussoNerv(3) - a2);
    metti(8, n.BPiastra(1) / 2.0 - n.SpNerv(3) / 2.0 - a2);
    metti(9, n.BPiastra(1) / 2.0 - n.SpNerv(3) / 2.0 - a2);
    for (int k = 1; k <= 2; ++k) {
        double l = 0.0;
        if (PiastraSporge(n, k)) l = n.AttNerv(k) ? (s.B - n.SpNerv(k)) / 2.0 - a1 : s.B;
        metti(9 + k, l);
        metti(10 + 2 * k, n.AttNerv(k) ? LunghezzaBaseNervatura(n, k) : 0.0);
        metti(11 + 2 * k, n.AttNerv(k) ? LunghezzaLatoNervatura(n, k) : 0.0);
    }
}

void CalcolaSEq(int s, Risultati& ris) {
    const auto p1 = ris.S_prp1.Riga(s), p2 = ris.S_prp2.Riga(s), pa = ris.Tau_pa.Riga(s),
               pe = ris.Tau_pe.Riga(s), e1 = ris.SEq1.Riga(s), e2 = ris.SEq2.Riga(s);
    for (std::size_t j = 0; j < p1.size(); ++j) {
        const double P = Max(std::fabs(p2[j]), std::fabs(p1[j]));
        e1[j] = std::sqrt(P * P + pa[j] * pa[j] + pe[j] * pe[j]);
        e2[j] = std::fabs(P) + std::fabs(pe[j]);
    }
}

const char* TestoInterruzione(Interruzione i) {
    switch (i) {
        case Interruzione::s1Verticali:
            return "Area delle saldature tipo S1 verticali nulla. Verifica non possibile.";
        case Interruzione::s1Orizzontali:
            return "Area delle saldature tipo S1 orizzontali nulla. Verifica non possibile.";
        case Interruzione::s2Orizzontali:
            return "Area delle saldature tipo S2 orizzontali nulla. Verifica non possibile.";
        case Interruzione::s2Verticali:
        case Interruzione::s2Nervatura3:
            break;
    }
    return "Area delle saldature tipo S2 verticali nulla. Verifica non possibile.";
}

void Interrompi(Interruzione i, Risultati& ris, const Piattaforma& p) {
    ris.Interruzioni.push_back(i);
    MostraErrore(p, TestoInterruzione(i));
}

}  // namespace tk07
