#include "verification/saldature.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

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

void LunghezzeSaldature(const Geometria& g, Risultati& ris) {
    for (int l = 1; l <= kCordoni; ++l) ris.LungSald(l - 1) = g.cordone(l).lunghezza;
    if (const char* nulla = GrandezzaMancante(g)) throw GrandezzaNulla{nulla};
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
