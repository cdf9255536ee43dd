#include "reports/esteso_dati.h"
#include "verification/interassi.h"

namespace tk07 {

namespace {

std::string RegoleInParole(const ContestoRel& c) {
    if (!c.Slu()) {
        return "Minimi: bordo 1.5 d0 in orizzontale e 2 d0 in verticale, interasse 3 d0. Massimi: "
               "bordo 6 t (in verticale 9 t sulla piastra 1), interasse 15 t della più sottile.";
    }
    const std::string minimi =
        "Minimi: bordo 1.2 d0, interasse 2.4 d0 in orizzontale e 2.2 d0 in verticale. Massimi: ";
    switch (c.n.Esposizione) {
        case 0:
            return minimi + "bordo 4 t + 40 mm, interasse il minore tra 14 t e 200 mm (esposto).";
        case 1:
            return minimi + "bordo nessuno, interasse il minore tra 14 t e 200 mm (non esposto).";
        default:
            return minimi +
                   "bordo il maggiore tra 125 mm e 8 t, interasse il minore tra 14 t e 175 mm "
                   "(resistente alla corrosione).";
    }
}

RigaRel RigaDistanza(const DistanzaBulloni& d, const std::string& nome) {
    constexpr double kSenzaLimite = 1e19;
    const bool passa = d.minimo <= d.valore && d.valore <= d.massimo;
    const std::string bulloni =
        std::to_string(d.bullone) + (d.altro > 0 ? " – " + std::to_string(d.altro) : "");
    return {{nome, bulloni, TestoFisso(d.valore, 2), TestoFisso(d.minimo, 2),
             d.massimo < kSenzaLimite ? TestoFisso(d.massimo, 2) : "–", passa ? "SI'" : "NO"},
            !passa};
}

}  // namespace

void RegoleDistanza(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const std::vector<DistanzaBulloni> tutte = DistanzeBulloni(c.n, c.opz);
    TabellaRel t{
        {{"Distanza (mm)", true}, {"Bulloni"}, {"Valore"}, {"Minimo"}, {"Massimo"}, {"Ver"}}, {}};
    for (const Direzione dir : {Direzione::orizzontale, Direzione::verticale}) {
        const bool orizz = dir == Direzione::orizzontale;
        const DistanzaBulloni *corta = nullptr, *lunga = nullptr;
        for (const DistanzaBulloni& d : tutte) {
            if (d.direzione != dir) continue;
            if (d.piastra > 0) {
                const char* lato = orizz ? (d.inizio ? "sinistro" : "destro")
                                         : (d.inizio ? "inferiore" : "superiore");
                t.righe.push_back(RigaDistanza(
                    d, std::string("bordo ") + lato + ", piastra " + std::to_string(d.piastra)));
                continue;
            }
            if (corta == nullptr || d.valore - d.minimo < corta->valore - corta->minimo) corta = &d;
            if (lunga == nullptr || d.valore > lunga->valore) lunga = &d;
        }
        if (corta == nullptr) continue;
        const std::string nome = orizz ? "interasse orizzontale" : "interasse verticale";
        if (corta == lunga) {
            t.righe.push_back(RigaDistanza(*corta, nome));
            continue;
        }
        t.righe.push_back(RigaDistanza(*corta, nome + " più stretto"));
        t.righe.push_back(RigaDistanza(*lunga, nome + " più largo"));
    }
    b.push_back(std::move(t));
    b.push_back(TestoRel{RegoleInParole(c) +
                         " Dai bordi si misurano il primo e l'ultimo bullone della direzione; il "
                         "vicino di un bullone è il primo entro ±30°."});
}

}  // namespace tk07
