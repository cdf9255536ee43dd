#pragma once

#include <tuple>

#include "joint/nodo.h"

namespace tk07::prova {

// Every value of the joint that its file keeps, for comparing two joints.
inline auto Campi(const Nodo& n) {
    return std::tie(n.TraPri.Nome, n.TraSec.Nome, n.distAlaSecPiastra, n.distPiastraTraPri,
                    n.distAliPriSec, n.BPiastra, n.HPiastra, n.SpPiastra, n.AttNerv, n.SpNerv,
                    n.H1Nerv, n.H2Nerv, n.BNerv, n.SmussoNerv, n.spSaldS1, n.spSaldS2, n.nBull,
                    n.Xbull, n.Ybull, n.Fibull, n.acciaio.Nome, n.vite.Nome, n.Esposizione,
                    n.TipoVer, n.nSollAg, n.SforzoNormale, n.TaglioY, n.TaglioZ, n.MomTorc, n.MomY,
                    n.MomZ, n.CasoCarico, n.NomeSa, n.numNodi, n.NomeNodi, n.RigheSconosciute);
}
inline bool Uguali(const Nodo& a, const Nodo& b) { return Campi(a) == Campi(b); }

}  // namespace tk07::prova
