#include "base/testo.h"
#include "reports/esteso_dati.h"
#include "verification/interassi.h"

namespace tk07 {

namespace {

std::string RegoleInParole(const ContestoRel& c) {
    const RegolaDistanze& r = RegolaDi(NormaDi(c.n), c.n.Esposizione);
    using enum Direzione;
    // One value where the directions agree.
    const auto minimo = [](double o, double v) {
        return TestoReale(o) + " d0" +
               (o == v ? "" : " in orizzontale e " + TestoReale(v) + " d0 in verticale");
    };
    const auto t = [](double quante) { return TestoReale(quante) + " t"; };
    std::string testo = "Minimi: bordo " + minimo(r.BordoMin(orizzontale), r.BordoMin(verticale)) +
                        ", interasse " + minimo(r.PassoMin(orizzontale), r.PassoMin(verticale)) +
                        ". Massimi: bordo ";
    if (!r.bordoLimitato) {
        testo += "nessuno";
    } else if (r.bordoAlmeno > 0.0) {
        testo += "il maggiore tra " + TestoReale(r.bordoAlmeno) + " mm e " + t(r.bordoPerT);
    } else {
        testo += t(r.bordoPerT);
        if (r.bordoPiu > 0.0) testo += " + " + TestoReale(r.bordoPiu) + " mm";
        if (r.bordoIrrigiditoPerT != r.bordoPerT) {
            testo += " (in verticale " + t(r.bordoIrrigiditoPerT) + " sulla piastra 1)";
        }
    }
    testo += ", interasse ";
    if (!(r.passoAssoluto < kSenzaLimite)) return testo + t(r.passoPerT) + " della più sottile.";
    testo += "il minore tra " + t(r.passoPerT) + " e " + TestoReale(r.passoAssoluto) + " mm (";
    constexpr const char* kEsposizioni[] = {"esposto", "non esposto"};
    const short e = c.n.Esposizione;
    return testo + (e == 0 || e == 1 ? kEsposizioni[e] : "resistente alla corrosione") + ").";
}

RigaRel RigaDistanza(const DistanzaBulloni& d, const std::string& nome) {
    const bool passa = d.Rispettata();
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
