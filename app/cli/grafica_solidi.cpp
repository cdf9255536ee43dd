// Solids and bill of parts, for the command line's twin.

#include <nlohmann/json.hpp>

#include "base/testo.h"
#include "cli/parti_grafica.h"
#include "guscio/json_nodo.h"
#include "solidi/distinta.h"
#include "solidi/esporta_solidi.h"
#include "solidi/solidi.h"

namespace tk07::cli {

namespace {

bool Solidi(const Sessione& s, std::vector<Parte>& parti, std::string& errore) {
    return SolidiNodo(s.nodo, GeometriaDi(s.nodo), s.opz.ValOpz(kOpzTollForo), s.scena, parti,
                      errore);
}

Json JsonRighe(const std::vector<RigaDistinta>& righe, bool saldature) {
    Json v = Json::array();
    for (const RigaDistinta& r : righe) {
        Json j = {{"nome", r.nome},
                  {"misura", r.misura},
                  {"materiale", r.materiale},
                  {"quanti", r.quanti},
                  {"volume", r.volume},
                  {"peso", r.peso},
                  {"pesoTotale", r.pesoTotale}};
        if (saldature) {
            j["lato"] = r.lato;
            j["lunghezza"] = r.lunghezza;
        }
        v.push_back(std::move(j));
    }
    return v;
}

}  // namespace

bool GraficaSolidi(const Sessione& s, const std::string& uscita, std::string& errore) {
    std::vector<Parte> parti;
    return Solidi(s, parti, errore) && EsportaSolidi(parti, s.nomeFile, uscita, errore);
}

bool GraficaDistinta(const Sessione& s, FormaDistinta forma, std::string& testo,
                     std::string& errore) {
    std::vector<Parte> parti;
    if (!Solidi(s, parti, errore)) return false;
    std::vector<DatiParte> dati;
    for (const Parte& p : parti) dati.push_back(p.dati);
    const Distinta d = FaiDistinta(dati);
    testo = TestoDistinta(d, s.nomeFile + ".tk7");
    if (forma == FormaDistinta::json) {
        testo = SuRiga({{"file", s.nomeFile + ".tk7"},
                        {"densita", kDensitaAcciaio},
                        {"pezzi", JsonRighe(d.pezzi, false)},
                        {"saldature", JsonRighe(d.saldature, true)},
                        {"pesoPezzi", d.pesoPezzi},
                        {"pesoSaldature", d.pesoSaldature},
                        {"pesoTotale", d.pesoTotale},
                        {"lunghezzaSaldature", d.lunghezzaSaldature},
                        {"volumeSaldature", d.volumeSaldature}}) +
                "\n";
    }
    return true;
}

}  // namespace tk07::cli
