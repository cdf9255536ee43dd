#include "verification/risultati.h"

#include <cmath>

#include "base/aritmetica.h"

namespace tk07 {

double Risultati::MaxS_prp(int s, int j) const {
    return Max(std::fabs(S_prp2(s, j)), std::fabs(S_prp1(s, j)));
}

Tab1<double, 1, 3> PianoTensioni(const Risultati& ris, int s) {
    Tab1<double, 1, 3> c;
    for (int k = 1; k <= 3; ++k) c(k) = ris.Piano(s, k);
    return c;
}

void AzzeraRisultati(const Nodo& nodo, Risultati& ris) {
    const long n = nodo.nSollAg;
    const bool slu = nodo.MetodoVerifica() == Metodo::SLU;
    for (auto* t : {&ris.Sigma, &ris.Tau, &ris.Fv_Ed, &ris.Ft_Ed, &ris.Co1, &ris.Co2}) {
        const bool soloTA = t == &ris.Tau;
        const bool comune = t == &ris.Sigma;
        t->Dimensiona(comune || soloTA != slu ? n : 0);
    }
    ris.SigRifPias1.Dimensiona(slu ? 0 : n);
    ris.SigRifPias2.Dimensiona(slu ? 0 : n);
    for (auto* t : {&ris.S_prp1, &ris.S_prp2, &ris.Tau_pa, &ris.Tau_pe}) t->Dimensiona(n);
    ris.SEq1.Dimensiona(slu ? n : 0);
    ris.SEq2.Dimensiona(slu ? n : 0);
    ris.Sig.Dimensiona(n);
    ris.SigPiastra2.Dimensiona(n);
    ris.Piano.Dimensiona(n);
    ris.MPiastra2.Dimensiona(n);
    ris.Verificato.Dimensiona(n);
    ris.Interruzioni.clear();
    ris.NodoVerificato = false;
}

void TensioniAlCm2(const Nodo& nodo, Risultati& ris) {
    // (10 mm per cm) squared: the stresses then compare with the material tables.
    constexpr double kFattore = 100.0;
    const bool ta = nodo.MetodoVerifica() == Metodo::TA;
    for (int s = 0; s < nodo.nSollAg; ++s) {
        for (int j = 0; j < kLineeSaldatura; ++j) {
            for (auto* t : {&ris.S_prp1, &ris.S_prp2, &ris.Tau_pa, &ris.Tau_pe}) {
                (*t)(s, j) *= kFattore;
            }
        }
        for (int i = 1; i <= nodo.nBull; ++i) {
            ris.Sigma(s, i) *= kFattore;
            if (!ta) continue;
            ris.Tau(s, i) *= kFattore;
            ris.SigRifPias1(s, i - 1) *= kFattore;
            ris.SigRifPias2(s, i - 1) *= kFattore;
        }
        ris.Sig(s, 0) *= kFattore;
        ris.SigPiastra2(s, 0) *= kFattore;
    }
}

}  // namespace tk07
