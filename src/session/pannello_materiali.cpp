// The panel of material properties: read-only design values of the selected steel and bolt class.

#include <iterator>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/cnr10011.h"
#include "session/gestori.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

struct Etichetta {
    const char* nome;
    const char* suggerimento;
};

constexpr Etichetta kEtichette[] = {
    {"fkLabel", "Tensione caratteristica di snervamento fyk"},
    {"gMLabel", "Coefficiente parziale gammaM"},
    {"gMTLabel", "Coefficiente parziale gammaM a rottura"},
    {"fdLabel", "Tensione di progetto, spessore fino a 40 mm"},
    {"fdtLabel", "Tensione di progetto a rottura, spessore fino a 40 mm"},
    {"fd40Label", "Tensione di progetto, spessore oltre 40 mm"},
    {"fdt40Label", "Tensione di progetto a rottura, spessore oltre 40 mm"},
    {"SAmmILabel", "Tensione ammissibile, caso di carico I"},
    {"SAmmIILabel", "Tensione ammissibile, caso di carico II"},
    {"fyVitiLabel", "Snervamento delle viti"},
    {"gMVitiLabel", "Coefficiente parziale delle viti"},
    {"fydVitilabel", "Snervamento di progetto delle viti"},
    {"ftVitiLabel", "Rottura delle viti"},
    {"ftdVitiLabel", "Rottura di progetto delle viti"},
    {"SAmmIVitiLabel", "Tensione normale ammissibile delle viti, caso I"},
    {"SAmmIIVitiLabel", "Tensione normale ammissibile delle viti, caso II"},
    {"TauAmmIVitiLabel", "Tensione tangenziale ammissibile delle viti, caso I"},
    {"TauAmmIIVitiLabel", "Tensione tangenziale ammissibile delle viti, caso II"},
    {"fckClsLabel", "Resistenza caratteristica del calcestruzzo"},
    {"fcdClsLabel", "Resistenza di progetto del calcestruzzo"},
    {"SammClsLabel", "Tensione ammissibile del calcestruzzo"},
    {"RckClsLabel", "Resistenza cubica Rck"},
    {"gMClsLabel", "Coefficiente parziale del calcestruzzo"},
};

void Costruisci(Sessione& s) {
    Pannello& p = s.PropMateriali;
    p = Pannello{};
    p.titolo = "Proprietà dei materiali";
    for (const Etichetta& e : kEtichette) {
        p.controlli[e.nome] = NuovoControllo(TipoControllo::etichetta, "", e.suggerimento);
    }
    p.controlli["Unit"] = NuovoControllo(TipoControllo::etichetta, "", "Unità delle tensioni");
    const struct {
        const char* nome;
        bool mostrato;
    } cornici[] = {{"FrameAcc", true},
                   {"FrameAccPia", s.mat.MostraAccPiastre},
                   {"FrameBull", s.mat.MostraBulloni},
                   {"FrameTir", s.mat.MostraTirafondi},
                   {"FrameCls", s.mat.MostraCalcestruzzo}};
    for (const auto& c : cornici) {
        p.controlli[c.nome] = NuovoControllo(TipoControllo::etichetta, "", "");
        p[c.nome].visibile = c.mostrato;
    }
    for (const char* nome :
         {"fckClsLabel", "fcdClsLabel", "SammClsLabel", "RckClsLabel", "gMClsLabel"}) {
        p[nome].visibile = s.mat.MostraCalcestruzzo;
    }
    p.controlli["Chiudi"] =
        NuovoControllo(TipoControllo::pulsante, "Chiudi", "Chiude la finestra dei materiali");
}

// A value below 0, or none at all, is a dash.
std::string ImpostaValoreMat_(double valore, short decimali) {
    if (!(valore >= 0.0) || !std::isfinite(valore)) return "-";
    return TestoNumero(Arrotonda(valore, decimali));
}

void Premi(Sessione& s, const NomeControllo&) { ChiudiPannello(s, kGestorePropMateriali); }

}  // namespace

void SettaMateriali(Sessione& s) {
    Pannello& p = s.PropMateriali;
    if (p.controlli.empty()) return;
    const MaterialeRec& a = s.nodo.acciaio;
    const ViteRec& v = s.nodo.vite;
    const double f = s.unita.FattoreTensioni;
    const auto valore = [&](const char* nome, double x) {
        p[nome].testo = ImpostaValoreMat_(x, s.unita.DecimaliTensioni);
    };
    p["Unit"].testo = "[" + s.unita.UnitaTensioni + "]";
    p["FrameAcc"].testo =
        (s.mat.MostraAccPiastre ? "Acciaio profili" : "Acciaio profili e piastre") +
        std::string(" - [NTC08 11.3.4.1] - Tipo ") + a.Nome;
    p["FrameAccPia"].testo = "Acciaio piastre - [NTC08 11.3.4.1] - Tipo " + a.Nome;
    valore("fkLabel", a.Fyk40 * f);
    p["gMLabel"].testo = TestoGenerale(a.GammaM);
    p["gMTLabel"].testo = TestoGenerale(a.GammaMT);
    valore("fdLabel", a.Fyk40 * f / a.GammaM);
    valore("fdtLabel", a.Fyk40 * f / a.GammaMT);
    valore("fd40Label", a.Fyk80 * f / a.GammaM);
    valore("fdt40Label", a.Fyk80 * f / a.GammaMT);
    valore("SAmmILabel", a.Samm * f);
    valore("SAmmIILabel", a.Samm * cnr::kCasoII * f);

    p["FrameBull"].testo = "Bulloni - [NTC08 11.3.4.6.1] - Classe " + v.Nome;
    valore("fyVitiLabel", v.FyVite * f);
    p["gMVitiLabel"].testo = TestoGenerale(v.GammaMVite);
    valore("fydVitilabel", v.FyVite * f / v.GammaMVite);
    valore("ftVitiLabel", v.FtVite * f);
    valore("ftdVitiLabel", v.FtVite * f / v.GammaMVite);
    valore("SAmmIVitiLabel", v.SammVite * f);
    valore("SAmmIIVitiLabel", v.SammVite * cnr::kCasoII * f);
    valore("TauAmmIVitiLabel", v.TauAmmVite * f);
    valore("TauAmmIIVitiLabel", v.TauAmmVite * cnr::kCasoII * f);

    const CalcestruzzoRec& c = s.mat.Base.ClsBase;
    p["FrameCls"].testo = "Calcestruzzo - [NTC08 4.1] - Classe " + c.Nome;
    valore("fckClsLabel", c.Rck * 0.83 * f);
    valore("fcdClsLabel", c.Rck * 0.83 * 0.85 / c.GammaC * f);
    valore("SammClsLabel", ((c.Rck - 150.0) / 4.0 + 60.0) * f);
    valore("RckClsLabel", c.Rck * f);
    p["gMClsLabel"].testo = TestoGenerale(c.GammaC);
}

const GestorePannello kGestorePropMateriali = {
    .nome = "PropMateriali",
    .pannello = &Sessione::PropMateriali,
    .costruisci = Costruisci,
    .premi = Premi,
};

}  // namespace tk07
