#include "session/storia.h"

namespace tk07 {

bool StessoNodo(const Nodo& a, const Nodo& b) {
    const auto primi = [&](const auto& campo, int da, int quanti) {
        for (int i = da; i < da + quanti; ++i) {
            if (!((a.*campo)(i) == (b.*campo)(i))) return false;
        }
        return true;
    };
    if (a.nBull != b.nBull || a.nSollAg != b.nSollAg || a.numNodi != b.numNodi) return false;
    const int carichi = a.nSollAg;
    for (const auto campo : {&Nodo::SforzoNormale, &Nodo::TaglioY, &Nodo::TaglioZ, &Nodo::MomTorc,
                             &Nodo::MomY, &Nodo::MomZ}) {
        if (!primi(campo, 0, carichi)) return false;
    }
    for (const auto campo : {&Nodo::Xbull, &Nodo::Ybull, &Nodo::Fibull}) {
        if (!primi(campo, 1, a.nBull)) return false;
    }
    for (const auto campo : {&Nodo::H1Nerv, &Nodo::H2Nerv, &Nodo::BNerv, &Nodo::SmussoNerv}) {
        if (!primi(campo, 1, 2)) return false;
    }
    return primi(&Nodo::CasoCarico, 0, carichi) && primi(&Nodo::NomeSa, 0, carichi) &&
           primi(&Nodo::NomeNodi, 1, a.numNodi) && a.SpNerv == b.SpNerv && a.AttNerv == b.AttNerv &&
           a.TraPri == b.TraPri && a.TraSec == b.TraSec &&
           a.distAlaSecPiastra == b.distAlaSecPiastra &&
           a.distPiastraTraPri == b.distPiastraTraPri && a.distAliPriSec == b.distAliPriSec &&
           a.BPiastra == b.BPiastra && a.HPiastra == b.HPiastra && a.SpPiastra == b.SpPiastra &&
           a.spSaldS1 == b.spSaldS1 && a.spSaldS2 == b.spSaldS2 && a.acciaio == b.acciaio &&
           a.vite == b.vite && a.Esposizione == b.Esposizione && a.TipoVer == b.TipoVer &&
           a.RigheSconosciute == b.RigheSconosciute;
}

Storia::Stato Storia::Fotografa(const Sessione& s) {
    return {std::make_unique<const Nodo>(s.nodo), s.nomeFile, s.file};
}

bool Storia::Registra(const Sessione& s, Stato prima, const std::string& cosa) {
    if (prima.nomeFile == s.nomeFile && StessoNodo(*prima.nodo, s.nodo)) return false;
    indietro_.push_back({std::move(prima), cosa});
    if (indietro_.size() > kMassimo) indietro_.pop_front();
    avanti_.clear();
    return true;
}

bool Storia::Muovi(Sessione& s, std::deque<Passo>& da, std::deque<Passo>& verso) {
    if (da.empty()) return false;
    Passo passo = std::move(da.back());
    da.pop_back();
    verso.push_back({Fotografa(s), passo.cosa});
    s.nodo = *passo.stato.nodo;
    s.nomeFile = passo.stato.nomeFile;
    s.file = passo.stato.file;
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, s.nomeFile + ".tk7");
    s.RisultatiValidi = false;
    AggiornaTutto(s);
    return true;
}

bool Storia::Annulla(Sessione& s) { return Muovi(s, indietro_, avanti_); }
bool Storia::Ripeti(Sessione& s) { return Muovi(s, avanti_, indietro_); }

}  // namespace tk07
