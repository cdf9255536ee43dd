#include "modelimport/combinazioni.h"

#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/liste.h"
#include "modelimport/voci.h"

namespace tk07 {

namespace {

constexpr std::string_view kChiave = "TIPOVER=";

// The three line readings behind a case's number. Where the number stands alone its line may be
// closed already, so that the key is one line further down.
bool LeggiTipo(LettoreVoci& l, std::string& tipo) {
    std::string resto, riga;
    if (!l.Riga(resto) || !l.Riga(riga) || !l.Riga(riga)) return false;
    if (!Contiene(riga, kChiave) && Taglia(resto).empty() && Contiene(l.RigaInMano(), kChiave)) {
        if (!l.Riga(riga)) return false;
    }
    const std::size_t p = riga.find(kChiave);
    tipo.clear();
    if (p == std::string::npos) return true;
    const std::string valore = riga.substr(p + kChiave.size());
    tipo = Taglia(valore.substr(0, valore.find('|')));
    return true;
}

// A count, then that many groups of `voci` items.
bool SaltaGruppi(LettoreVoci& l, int voci) {
    int gruppi = 0;
    if (!l.Intero(gruppi)) return false;
    std::string scarto;
    for (long n = static_cast<long>(gruppi) * voci; n > 0; --n) {
        if (!l.Voce(scarto, Bianchi::separano)) return false;
    }
    return true;
}

bool LeggiCaso(LettoreVoci& l, Combinazioni& comb) {
    int numero = 0;
    std::string tipo;
    if (!l.Intero(numero) || !LeggiTipo(l, tipo)) return false;
    comb.casiNumero.push_back(numero);
    comb.casiTipo.push_back(tipo);
    return SaltaGruppi(l, 3) && SaltaGruppi(l, 2);
}

}  // namespace

bool LeggiCombinazioni(std::string_view dirLavoro, Combinazioni& comb, const Piattaforma& p) {
    comb = {};
    const std::string nome = std::string(dirLavoro) + kFileCombinazioni;
    const FileLetto f = LeggiRighe(nome);
    LettoreVoci l(f.righe);
    int casi = 0;
    bool buono = f.riuscito && l.Intero(casi);
    if (buono && casi > static_cast<int>(kMassimoVoci)) {
        MostraErrore(p, "Errore: numero di combinazioni eccessivo");
        return false;
    }
    for (int i = 0; i < casi && buono; ++i) buono = LeggiCaso(l, comb);
    if (buono) return true;
    comb = {};
    MostraErrore(p, "Errore: file " + PercorsoMostrato(nome) + " errato o mancante.", "ERRORE");
    return false;
}

std::string ListaCasi(const Combinazioni& comb, Metodo metodo) {
    std::vector<int> adatti;
    for (std::size_t i = 0; i < comb.casiNumero.size(); ++i) {
        const std::string& tipo = comb.casiTipo[i];
        const bool adatto =
            metodo == Metodo::SLU ? tipo == "SLU" : tipo == "TENSAMM" || tipo == "RARA";
        if (adatto) adatti.push_back(comb.casiNumero[i]);
    }
    return ComponiLista(adatti);
}

}  // namespace tk07
