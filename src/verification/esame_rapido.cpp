#include "verification/esame_rapido.h"

#include <algorithm>
#include <array>
#include <limits>

#include "verification/verifica_nodo.h"

namespace tk07 {

namespace {

constexpr std::size_t kBlocco = 64;

}  // namespace

double GiudizioRapido::Rapporto() const {
    if (!calcolato) return std::numeric_limits<double>::infinity();
    return esiti.governa < 0 ? 0.0 : esiti.Governa().rapporto;
}

EsameRapido::EsameRapido(const Nodo& nodo, const Opzioni& opz)
    : nodo_(std::make_unique<Nodo>(nodo)), opz_(opz), muta_(PiattaformaMuta()) {}

// False when the verification stops on one of the sets: then nothing is written.
bool EsameRapido::Blocco(std::span<const SestettoProvato> prove, std::span<GiudizioRapido> giudizi,
                         int da) {
    Nodo& n = *nodo_;
    n.nSollAg = static_cast<short>(prove.size());
    for (std::size_t i = 0; i < prove.size(); ++i) {
        const SestettoProvato& a = prove[i];
        const long s = static_cast<long>(i);
        n.SforzoNormale(s) = a.N;
        n.TaglioY(s) = a.Ty;
        n.TaglioZ(s) = a.Tz;
        n.MomTorc(s) = a.Mt;
        n.MomY(s) = a.My;
        n.MomZ(s) = a.Mz;
        n.CasoCarico(s) = a.caso;
    }
    if (n.nBull <= 0 || CalcolaTensioni(n, opz_, ris_, muta_) != EsitoVerifica::completata) {
        return false;
    }
    std::array<SintesiEsiti, kBlocco> sintesi;
    RiassumiEsiti(n, opz_, ris_, sintesi);
    for (std::size_t i = 0; i < prove.size(); ++i) {
        giudizi[i] = {true, sintesi[i]};
        for (Riscontro& r : giudizi[i].esiti.peggiori) r.sestetto += da;
    }
    return true;
}

void EsameRapido::Giudica(std::span<const SestettoProvato> prove,
                          std::span<GiudizioRapido> giudizi) {
    for (std::size_t da = 0; da < prove.size(); da += kBlocco) {
        const std::size_t quanti = std::min(kBlocco, prove.size() - da);
        if (Blocco(prove.subspan(da, quanti), giudizi.subspan(da, quanti), static_cast<int>(da))) {
            continue;
        }
        // One of them stops the calculation of all: each on its own.
        for (std::size_t i = da; i < da + quanti; ++i) {
            if (!Blocco(prove.subspan(i, 1), giudizi.subspan(i, 1), static_cast<int>(i))) {
                giudizi[i] = {};
            }
        }
    }
}

}  // namespace tk07
