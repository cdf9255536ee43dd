#include "verification/risultati.h"

#include <span>

namespace tk07 {

Tab1<double, 1, 3> PianoTensioni(const Risultati& ris, int s) {
    Tab1<double, 1, 3> c;
    for (int k = 1; k <= 3; ++k) c(k) = ris.Piano(s, k);
    return c;
}

void AzzeraRisultati(const Nodo& nodo, Risultati& ris) {
    const long n = nodo.nSollAg, bulloni = nodo.nBull;
    const bool slu = nodo.MetodoVerifica() == Metodo::SLU;
    for (auto* t : {&ris.Sigma, &ris.Tau, &ris.Fv_Ed, &ris.Ft_Ed, &ris.Co1, &ris.Co2}) {
        const bool soloTA = t == &ris.Tau;
        const bool comune = t == &ris.Sigma;
        t->Dimensiona(comune || soloTA != slu ? n : 0, bulloni);
    }
    for (auto* t : {&ris.SigRifPias1, &ris.SigRifPias2}) {
        t->Dimensiona(slu ? 0 : n, bulloni > 0 ? bulloni - 1 : 0);
    }
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
    const auto scala = [](std::span<double> riga) {
        for (double& x : riga) x *= kFattore;
    };
    for (int s = 0; s < nodo.nSollAg; ++s) {
        for (auto* t : {&ris.S_prp1, &ris.S_prp2, &ris.Tau_pa, &ris.Tau_pe}) scala(t->Riga(s));
        scala(ris.Sigma.Riga(s));
        if (ta) {
            scala(ris.Tau.Riga(s));
            scala(ris.SigRifPias1.Riga(s));
            scala(ris.SigRifPias2.Riga(s));
        }
        ris.Sig(s, 0) *= kFattore;
        ris.SigPiastra2(s, 0) *= kFattore;
    }
}

}  // namespace tk07
