#include <functional>
#include <map>

#include "base/chiavi.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "libraries/materiali.h"

namespace tk07 {

namespace {

constexpr const char* kAltroAcciaio =
    "Non è possibile utilizzare un tipo di acciaio personalizzato. Impostare un tipo standard";
constexpr const char* kAltraClasse =
    "Non è possibile utilizzare una classe personalizzata per il calcestruzzo. Impostare una "
    "classe "
    "standard";

// A personalised base material is refused where its group is in use: the first of the table
// instead.
void Rifiuta(std::string& nome, std::string_view personalizzato, bool inUso, const char* testo,
             const std::string& primo, const Piattaforma& p) {
    if (!inUso || Maiuscolo(nome) != personalizzato) return;
    MostraAvviso(p, testo);
    nome = primo;
}

struct ChiaveBase {
    std::string_view chiave;  // lower case
    double* numero;
    double divisore = 1.0;
};

}  // namespace

void DecifraRigaMatBase(std::string_view riga, Materiali& mat, const Piattaforma& p) {
    MaterialiBase& b = mat.Base;
    std::string valore;
    std::vector<short> indici;
    const RigaChiave r(Maiuscolo(riga));  // names of materials come out in upper case too
    const auto trovata = [&](std::string_view chiave) {
        auto v = LeggiChiave(r, chiave);
        if (!v) return false;
        if (!v->guasto.empty()) {
            throw ErroreFatale(v->guasto, "indice di [" + std::string(chiave) + "]");
        }
        valore = std::move(v->valore);
        indici = std::move(v->indici);
        return true;
    };
    const ChiaveBase cls[] = {{"valorecalcolato_cls_rck", &b.ClsBase.Rck},
                              {"cls_coefficiente_gammac", &b.ClsBase.GammaC},
                              {"valorecalcolato_cls_fck", &b.ClsBase.Fck},
                              {"valorecalcolato_cls_alfacc", &b.ClsBase.AlfaCC},
                              {"valorecalcolato_cls_fcd", &b.ClsBase.Fcd},
                              {"valorecalcolato_cls_ecm", &b.ClsBase.Ecm},
                              {"valorecalcolato_cls_samm", &b.ClsBase.SammCls}};
    const auto acciaio = [](const char* n, MaterialeRec& a) {
        const std::string pre = std::string("valorecalcolato_acc_carp_") + n;
        return std::map<std::string, double*>{{pre + "_fyk_sp_min_40", &a.Fyk40},
                                              {pre + "_ftk_sp_min_40", &a.Ftk40},
                                              {pre + "_fyd_sp_min_40", &a.Fyd40},
                                              {pre + "_fyk_sp_min_80", &a.Fyk80},
                                              {pre + "_ftk_sp_min_80", &a.Ftk80},
                                              {pre + "_fyd_sp_min_80", &a.Fyd80},
                                              {pre + "_samm", &a.Samm}};
    };
    if (trovata("cls_classe")) {
        b.ClsBase.Nome = valore;
        Rifiuta(b.ClsBase.Nome, "ALTRA", mat.MostraCalcestruzzo, kAltraClasse,
                mat.Calcestruzzi(1).Nome, p);
        return;
    }
    for (const ChiaveBase& c : cls) {
        if (trovata(c.chiave)) {
            *c.numero = ValoreIniziale(valore);
            return;
        }
    }
    if (trovata("acc_carp_1_tipo")) {
        b.AccBase1.Nome = valore;
        Rifiuta(b.AccBase1.Nome, "ALTRO", !mat.SezioniChiuse, kAltroAcciaio,
                mat.AcciaiAperte(1).Nome, p);
        return;
    }
    if (trovata("acc_carp_modulodielasticita_e")) {
        b.ModuloE = ValoreIniziale(valore) / 10.0;
        return;
    }
    if (trovata("acc_carp_coefficiente_gammam")) {
        const int primo = indici.empty() ? 1 : indici.front();
        b.GammaMBase(primo - 1) = ValoreIniziale(valore);
        return;
    }
    for (const auto& [chiave, dove] : acciaio("1", b.AccBase1)) {
        if (trovata(chiave)) {
            *dove = ValoreIniziale(valore);
            return;
        }
    }
    if (trovata("acc_carp_2_tipo")) {
        b.AccBase2.Nome = valore;
        Rifiuta(b.AccBase2.Nome, "ALTRO", mat.SezioniChiuse, kAltroAcciaio,
                mat.AcciaiChiuse(1).Nome, p);
        return;
    }
    for (const auto& [chiave, dove] : acciaio("2", b.AccBase2)) {
        if (trovata(chiave)) {
            *dove = ValoreIniziale(valore);
            return;
        }
    }
    if (trovata("acc_ca_tipo")) {
        b.AccCaBaseTipo = valore;
        Rifiuta(b.AccCaBaseTipo, "ALTRO", mat.MostraCalcestruzzo, kAltroAcciaio,
                mat.AcciaiCa(1).Nome, p);
    }
}

void LeggiMaterialiBase(std::string_view file, Materiali& mat, const Piattaforma& p) {
    mat.Base = MaterialiBase{};
    const FileLetto f = LeggiRighe(file);
    if (!f.riuscito) {
        MostraAvviso(
            p, "Materiali Base non impostati, specificare un materiale nell'apposita sezione");
        return;
    }
    if (f.righe.empty() || !Contiene(f.righe.front(), "[ReleaseQuestoFile=3]")) {
        MostraAvviso(p,
                     "Materiali base non corretti. Aprire 'Materiali base' dal pannello principale "
                     "di Argano e salvarli",
                     "ATTENZIONE!");
        return;
    }
    for (std::size_t i = 1; i < f.righe.size(); ++i) {
        try {
            DecifraRigaMatBase(f.righe[i], mat, p);
        } catch (const ErroreFatale& e) {
            throw ErroreFatale(e.what(), PercorsoMostrato(file) + ", riga " +
                                             std::to_string(i + 1) +
                                             (e.Dove().empty() ? "" : ", " + e.Dove()));
        }
    }
    mat.Base.MatBaseValidi = true;
}

}  // namespace tk07
