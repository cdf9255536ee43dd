#pragma once

#include "aiuti/prova.h"

namespace tk07 {

// What the benchmarks share: a session, and joints of any size.
inline const prova::SessioneDiProva& Prova() {
    static const prova::SessioneDiProva p;
    return p;
}

// A joint of HEA 300 on HEB 500 with n bolts (a multiple of 2) in 2 or 4 columns and m load sets.
inline Nodo NodoDiProva(int n, int m) {
    const Sessione& s = *Prova().s;
    Nodo nodo = s.nodo;
    nodo.TraPri = s.profili.Profili(IndiceProfilo(s.profili, "HEB500"));
    nodo.TraSec = s.profili.Profili(IndiceProfilo(s.profili, "HEA300"));
    nodo.BPiastra(1) = nodo.BPiastra(2) = 300.0;
    nodo.HPiastra(1) = nodo.HPiastra(2) = 440.0;
    nodo.SpPiastra(1) = nodo.SpPiastra(2) = 20.0;
    nodo.distAlaSecPiastra = 75.0;
    nodo.distAliPriSec = 105.0;
    RicalcolaNervatura3(nodo);
    nodo.nBull = static_cast<short>(n);
    const int colonne = n > 16 ? 4 : 2;
    const int righe = n / colonne;
    for (int i = 0; i < n; ++i) {
        nodo.Xbull(i + 1) = (i % colonne - (colonne - 1) / 2.0) * (colonne == 2 ? 160.0 : 70.0);
        nodo.Ybull(i + 1) = 40.0 + 360.0 * (i / colonne) / (righe - 1.0);
        nodo.Fibull(i + 1) = 16.0;
    }
    nodo.nSollAg = static_cast<short>(m);
    for (int k = 0; k < m; ++k) {
        const double f = 0.5 + 0.001 * k;
        nodo.SforzoNormale(k) = 1500.0 * f * (k % 3 - 1);
        nodo.TaglioY(k) = 9000.0 * f;
        nodo.TaglioZ(k) = 400.0 * (k % 5 - 2);
        nodo.MomTorc(k) = 300.0 * (k % 2);
        nodo.MomY(k) = 2000.0 * (k % 7 - 3);
        nodo.MomZ(k) = 60000.0 * f * (k % 2 == 0 ? 1.0 : -1.0);
        nodo.NomeSa(k) = "Soll " + std::to_string(k + 1);
    }
    return nodo;
}

}  // namespace tk07
