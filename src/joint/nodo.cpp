#include "joint/nodo.h"

#include "base/aritmetica.h"

namespace tk07 {

void RicalcolaNervatura3(Nodo& n) {
    n.BNerv(3) = (n.TraPri.B - n.TraPri.tw) / 2.0 + n.distPiastraTraPri - n.SpPiastra(1);
    n.H1Nerv(3) = n.H2Nerv(3) = n.TraPri.H - 2.0 * n.TraPri.tf;
    n.SmussoNerv(3) = Int(n.TraPri.r + 0.99);
}

std::vector<NomeAssente> NomiPersi(const Nodo& nodo) {
    std::vector<NomeAssente> persi;
    for (const NomeAssente& a : nodo.NomiAssenti) {
        for (const auto& [chiave, nome] : {std::pair{"TraPri_Nome", &nodo.TraPri.Nome},
                                           std::pair{"TraSec_Nome", &nodo.TraSec.Nome},
                                           std::pair{"acciaio_Nome", &nodo.acciaio.Nome},
                                           std::pair{"vite_Nome", &nodo.vite.Nome}}) {
            if (a.chiave == chiave && a.usato == *nome) persi.push_back(a);
        }
    }
    return persi;
}

void NodoDiDefault(Nodo& n, const LibreriaProfili& profili, const Materiali& mat,
                   const Piattaforma& p) {
    n.NomiAssenti.clear();
    constexpr double kLarghezzaMinima = 120.0;  // mm, floor on the width of both plates
    constexpr double kInSu = 0.99;              // with Int: up to the next whole millimetre
    n.TraPri = profili.Profili(CercaProfiloDaNome(profili, "IPE270", p));
    n.TraSec = profili.Profili(CercaProfiloDaNome(profili, "IPE160", p));
    n.BPiastra(1) = Max(n.TraPri.B, kLarghezzaMinima);
    n.HPiastra(1) = Int(n.TraPri.H - 2.0 * n.TraPri.tf);
    n.SpPiastra(1) = Int(Max(n.TraPri.tf, n.TraSec.tf));
    n.distAlaSecPiastra = (n.TraPri.H - n.TraSec.H) / 2.0;
    n.distPiastraTraPri = 0.0;
    n.distAliPriSec = (n.TraPri.H - n.TraSec.H) / 2.0;
    n.AttNerv(1) = n.AttNerv(2) = true;
    for (int i = 1; i <= 2; ++i) {
        n.H1Nerv(i) = n.distAlaSecPiastra;
        n.H2Nerv(i) = Int(2.0 / 3.0 * n.H1Nerv(i));
        n.BNerv(i) = Int(n.TraSec.H / 2.0 + kInSu);
        n.SpNerv(i) = Int(n.TraSec.tw + kInSu);
    }
    n.SpNerv(3) = Int(n.TraSec.tw + kInSu);
    n.BPiastra(2) = Max(n.TraSec.B, kLarghezzaMinima);
    n.HPiastra(2) = Max(n.H1Nerv(1), n.distAlaSecPiastra) + n.TraSec.H + n.H1Nerv(2);
    n.SpPiastra(2) = Int(Max(n.TraPri.tf, n.TraSec.tf));
    n.vite = mat.Viti(4);
    n.acciaio = mat.AcciaiAperte(1);
    n.Esposizione = 0;
    n.spSaldS1 = n.spSaldS2 = 10.0;
    RicalcolaNervatura3(n);
}

}  // namespace tk07
