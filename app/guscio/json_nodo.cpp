#include "guscio/json_nodo.h"

#include <cmath>

#include "base/file_testo.h"
#include "joint/campi_nodo.h"
#include "scene3d/campi_scena.h"

namespace tk07 {

namespace {

// A value of the joint in its own type. Texts of the field table read back to the same number.
Json Valore(const Nodo& n, const CampoNodo& campo, int i) {
    const std::string t = campo.testo(n, i);
    switch (campo.tipo) {
        case TipoCampo::testo:
            return t;
        case TipoCampo::booleano:
            return t == "1";
        case TipoCampo::intero:
            return std::stol(t);
        case TipoCampo::reale:
            break;
    }
    return Json::parse(t, nullptr, false);
}

template <class Tabella>
Json Lista(const Tabella& t, int s, int da, int n) {
    Json a = Json::array();
    if (t.Righe() == 0) return a;
    for (int i = 0; i < n; ++i) a.push_back(t(s, da + i));
    return a;
}

template <class Tabella>
Json Vettore(const Tabella& t, int da, int a) {
    Json j = Json::array();
    for (int i = da; i <= a; ++i) j.push_back(t(i));
    return j;
}

Json JsonSestetto(const Sessione& s, int k) {
    const Risultati& r = s.ris;
    const int n = s.nodo.nBull;
    Json j;
    j["NomeSa"] = s.nodo.NomeSa(k);
    j["verificato"] = s.esiti.Sestetto(k).verificato;
    j["Sigma"] = Lista(r.Sigma, k, 1, n);
    j["Tau"] = Lista(r.Tau, k, 1, n);
    Json rif = Json::array();
    if (r.SigRifPias1.Righe() > 0) {
        for (int i = 0; i < n; ++i) rif.push_back({r.SigRifPias1(k, i), r.SigRifPias2(k, i)});
    }
    j["SigRifPias"] = rif;
    j["Fv_Ed"] = Lista(r.Fv_Ed, k, 1, n);
    j["Ft_Ed"] = Lista(r.Ft_Ed, k, 1, n);
    j["Co1"] = Lista(r.Co1, k, 1, n);
    j["Co2"] = Lista(r.Co2, k, 1, n);
    j["Sig"] = r.Sig(k, 0);
    j["SigPiastra2"] = r.SigPiastra2(k, 0);
    j["S_prp"] = {Lista(r.S_prp1, k, 0, kLineeSaldatura), Lista(r.S_prp2, k, 0, kLineeSaldatura)};
    j["Tau_pa"] = Lista(r.Tau_pa, k, 0, kLineeSaldatura);
    j["Tau_pe"] = Lista(r.Tau_pe, k, 0, kLineeSaldatura);
    j["SEq1"] = Lista(r.SEq1, k, 0, kLineeSaldatura);
    j["SEq2"] = Lista(r.SEq2, k, 0, kLineeSaldatura);
    return j;
}

// JSON has no infinity: null stands for it.
Json Finito(double x) { return std::isfinite(x) ? Json(x) : Json(nullptr); }

Json JsonGoverna(const Riscontro& r) {
    return {{"famiglia", NomeFamiglia(r.famiglia)},
            {"controllo", NomeConfronto(r)},
            {"elemento", NumeroElemento(r)},
            {"sestetto", r.sestetto + 1}};
}

Json JsonRiscontro(const Riscontro& r) {
    Json j = JsonGoverna(r);
    j["domanda"] = Finito(r.domanda);
    j["limite"] = r.confronto == Confronto::senzaLimite ? Json(nullptr) : Finito(r.limite);
    j["rapporto"] = Finito(r.rapporto);
    j["passa"] = r.passa;
    j["clausola"] = Testo(Dati(r.confronto).clausola);
    return j;
}

Json JsonAcciaio(const MaterialeRec& a) {
    return {{"Nome", a.Nome},     {"Designazione", a.Designazione},
            {"Samm", a.Samm},     {"Samm80", a.Samm80},
            {"Fyk40", a.Fyk40},   {"Ftk40", a.Ftk40},
            {"Fyk80", a.Fyk80},   {"Ftk80", a.Ftk80},
            {"GammaM", a.GammaM}, {"GammaMT", a.GammaMT}};
}

// The table of the scene file's fields as JSON: "estrusi" and "sezioni" are lists, the further
// indices of a key lists within.
class ScenaInJson {
  public:
    Json j{{"visDescrizione", ""}};

    template <class T, class... Indici>
    void Campo(const char* chiave, const T& valore, Indici... indici) {
        Posto(chiave, indici...) = valore;
    }
    template <class T, class... Indici>
    void Quanti(const char* chiave, const std::vector<T>& v, int, Indici... indici) {
        const std::string nome = chiave;
        const std::string lista = nome.substr(0, nome.find('_'));
        if (nome == lista + "_numero") j[lista] = Json::array();
        Posto(chiave, indici...) = v.size();
    }

  private:
    Json& Posto(const char* chiave) { return j[chiave]; }
    template <class... Altri>
    Json& Posto(const char* chiave, std::size_t i, Altri... altri) {
        const std::string nome = chiave;
        Json* p = &j[nome.substr(0, nome.find('_'))][i][nome];
        ((p = &(*p)[altri]), ...);
        return *p;
    }
};

template <class Rec, class Fai>
Json Tavola(const TabellaMateriali<Rec>& t, short n, Fai fai) {
    Json a = Json::array();
    for (int i = 1; i <= RigheUtili(n); ++i) a.push_back(fai(t(i)));
    return a;
}

}  // namespace

Json JsonNodo(const Nodo& n) {
    Json j;
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        const int fine = UltimoIndice(gruppo.indice, n);
        for (const CampoNodo& campo : gruppo.campi) {
            if (gruppo.indice == IndiceCampo::nessuno) {
                j[campo.chiave] = Valore(n, campo, 0);
                continue;
            }
            Json lista = Json::array();
            for (int i = PrimoIndice(gruppo.indice); i <= fine; ++i) {
                lista.push_back(Valore(n, campo, i));
            }
            j[campo.chiave] = lista;
        }
    }
    return j;
}

Json JsonVerifica(const Sessione& s, const std::string& file,
                  const std::vector<MessaggioDato>& messaggi, bool conEsiti) {
    const Nodo& n = s.nodo;
    const bool valida = s.RisultatiValidi;
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    Json j;
    j["file"] = file;
    j["metodo"] = NomeMetodo(n.MetodoVerifica());
    j["interrotta"] = !valida;
    // Without a load set nothing has been judged.
    j["verificato"] = valida && n.nSollAg > 0 ? Json(s.esiti.verificato) : Json(nullptr);
    Json m = Json::array();
    for (const MessaggioDato& d : messaggi) {
        m.push_back({{"testo", d.testo}, {"titolo", d.titolo}, {"segno", NomeSegno(d.segno)}});
    }
    j["messaggi"] = m;
    j["relazione"] = valida ? Json(PercorsoPiattaforma(s.ultimaVerifica.relazione)) : Json(nullptr);
    const int bulloni = valida && slu ? n.nBull : 0;
    j["LungSald"] = valida ? Vettore(s.ris.LungSald, 0, 14) : Json::array();
    j["Fv_Rd"] = Vettore(s.ris.Fv_Rd, 1, bulloni);
    j["Fb_Rd"] = Vettore(s.ris.Fb_Rd, 1, bulloni);
    j["Ft_Rd"] = Vettore(s.ris.Ft_Rd, 1, bulloni);
    j["Bp_Rd"] = Vettore(s.ris.Bp_Rd, 1, bulloni);
    Json sestetti = Json::array();
    for (int k = 0; valida && k < n.nSollAg; ++k) sestetti.push_back(JsonSestetto(s, k));
    j["sestetti"] = sestetti;
    const Riscontro* governa = valida ? s.esiti.Governa() : nullptr;
    j["rapporto"] = governa == nullptr ? Json(nullptr) : Finito(governa->rapporto);
    j["governa"] = governa == nullptr ? Json(nullptr) : JsonGoverna(*governa);
    j["incompleta"] = valida && s.esiti.Incompleta();
    if (conEsiti) {
        Json righe = Json::array();
        if (valida) {
            for (const Riscontro& r : s.esiti.righe) righe.push_back(JsonRiscontro(r));
        }
        j["esiti"] = righe;
    }
    return j;
}

Json JsonSezioni(const LibreriaProfili& lib) {
    Json a = Json::array();
    for (int i = 1; i <= lib.nProfili; ++i) {
        const ProfiloRec& p = lib.Profili(i);
        a.push_back({{"Nome", p.Nome},
                     {"H", p.H},
                     {"B", p.B},
                     {"tw", p.tw},
                     {"tf", p.tf},
                     {"r", p.r},
                     {"Area", p.Area},
                     {"J1", p.J1},
                     {"J2", p.J2},
                     {"J3", p.J3}});
    }
    return a;
}

Json JsonMateriali(const Materiali& mat) {
    Json j;
    j["AcciaiAperte"] = Tavola(mat.AcciaiAperte, mat.nAcciaiAperte, JsonAcciaio);
    j["AcciaiChiuse"] = Tavola(mat.AcciaiChiuse, mat.nAcciaiChiuse, JsonAcciaio);
    j["Viti"] = Tavola(mat.Viti, mat.nViti, [](const ViteRec& v) {
        return Json{{"Nome", v.Nome},
                    {"SammVite", v.SammVite},
                    {"TauAmmVite", v.TauAmmVite},
                    {"FyVite", v.FyVite},
                    {"FtVite", v.FtVite},
                    {"ViteQuinto", v.ViteQuinto},
                    {"GammaMVite", v.GammaMVite}};
    });
    j["Calcestruzzi"] = Tavola(mat.Calcestruzzi, mat.nCalcestruzzi, [](const CalcestruzzoRec& c) {
        return Json{{"Nome", c.Nome}, {"Rck", c.Rck}, {"GammaC", c.GammaC}};
    });
    j["AcciaiCa"] = Tavola(mat.AcciaiCa, mat.nAcciaiCa, [](const AcciaioCaRec& a) {
        return Json{{"Nome", a.Nome},       {"SammCa", a.SammCa}, {"Primo", a.Primo},
                    {"Secondo", a.Secondo}, {"Terzo", a.Terzo},   {"Quarto", a.Quarto},
                    {"Quinto", a.Quinto}};
    });
    j["Base"] = {{"MatBaseValidi", mat.Base.MatBaseValidi},
                 {"AccBase1", JsonAcciaio(mat.Base.AccBase1)},
                 {"AccBase2", JsonAcciaio(mat.Base.AccBase2)},
                 {"AccCaBaseTipo", mat.Base.AccCaBaseTipo},
                 {"ModuloE", mat.Base.ModuloE}};
    return j;
}

Json JsonOpzioni(const Opzioni& opz) {
    Json righe = Json::array();
    for (const RigaOpzione& r : opz.Righe) {
        righe.push_back({{"valore", r.Valore},
                         {"tipo", r.Tipo},
                         {"programmi", r.Programmi},
                         {"gruppo", r.Gruppo},
                         {"etichetta", r.Etichetta}});
    }
    return {{"gruppi", opz.Gruppi}, {"righe", righe}};
}

Json JsonUnita(const Unita& u) {
    return {
        {"AccelerazioneG", u.AccelerazioneG},       {"NordGeografico", u.NordGeografico},
        {"UnitaLunghezze", u.UnitaLunghezze},       {"FattoreLunghezze", u.FattoreLunghezze},
        {"DecimaliLunghezze", u.DecimaliLunghezze}, {"UnitaForze", u.UnitaForze},
        {"FattoreForze", u.FattoreForze},           {"DecimaliForze", u.DecimaliForze},
        {"UnitaMomenti", u.UnitaMomenti},           {"FattoreMomenti", u.FattoreMomenti},
        {"DecimaliMomenti", u.DecimaliMomenti},     {"UnitaTensioni", u.UnitaTensioni},
        {"FattoreTensioni", u.FattoreTensioni},     {"DecimaliTensioni", u.DecimaliTensioni},
        {"UnitaSezioni", u.UnitaSezioni},           {"FattoreSezioni", u.FattoreSezioni},
        {"DecimaliSezioni", u.DecimaliSezioni},     {"UnitaCarichiSup", u.UnitaCarichiSup},
        {"FattoreCarichiSup", u.FattoreCarichiSup}, {"DecimaliCarichiSup", u.DecimaliCarichiSup}};
}

Json JsonDisegno(const Disegno& d) {
    Json j;
    j["coordX"] = d.coordX;
    j["coordY"] = d.coordY;
    j["linee"] = Json::array();
    for (const LineaDis& l : d.linee) {
        j["linee"].push_back({{"lineaIni", l.lineaIni},
                              {"lineaFin", l.lineaFin},
                              {"lineaColore", l.lineaColore},
                              {"lineaTipo", l.lineaTipo}});
    }
    j["archi"] = Json::array();
    for (const ArcoDis& a : d.archi) {
        j["archi"].push_back({{"arcoCentro", a.arcoCentro},
                              {"arcoIni", a.arcoIni},
                              {"arcoCentro2", a.arcoCentro2},
                              {"arcoFin", a.arcoFin},
                              {"arcoColore", a.arcoColore},
                              {"arcoFlag", a.arcoFlag}});
    }
    j["testi"] = Json::array();
    for (const TestoDis& t : d.testi) {
        j["testi"].push_back({{"testoCoord", t.testoCoord},
                              {"testoAngolo", t.testoAngolo},
                              {"testoLargh", t.testoLargh},
                              {"testoAlt", t.testoAlt},
                              {"testoColore", t.testoColore},
                              {"testoStringa", t.testoStringa}});
    }
    return j;
}

Json JsonScena(const Scena& s) {
    ScenaInJson v;
    v.j["visDescrizione"] = s.visDescrizione;
    PercorriScena(v, s);
    return v.j;
}

Json JsonDirettori(const Direttori& d) {
    return {{"dirRoot", d.dirRoot},       {"dirImpostazioni", d.dirImpostazioni},
            {"dirProgra", d.dirProgra},   {"dirDriver", d.dirDriver},
            {"dirCustom", d.dirCustom},   {"dirHelp", d.dirHelp},
            {"dirManuali", d.dirManuali}, {"dirVideocorso", d.dirVideocorso},
            {"dirTemp", d.dirTemp},       {"dirMacro2d", d.dirMacro2d},
            {"dirLavoro", d.dirLavoro},   {"nomeLavoro", d.nomeLavoro}};
}

Json JsonPannello(const Pannello& p) {
    Json controlli = Json::object();
    for (const auto& [nome, c] : p.controlli) {
        Json j;
        j["testo"] = c.testo;
        const bool conValore =
            c.tipo == TipoControllo::casella || c.tipo == TipoControllo::opzione ||
            c.tipo == TipoControllo::scorrimento || c.tipo == TipoControllo::schede;
        if (conValore) j["valore"] = c.valore;
        if (c.tipo == TipoControllo::scorrimento) {
            j["minimo"] = c.minimo;
            j["massimo"] = c.massimo;
        }
        if (c.tipo == TipoControllo::lista) {
            j["voci"] = c.voci;
            j["indice"] = c.indice;
        }
        if (c.sfondo != kColoreFinestra) j["sfondo"] = c.sfondo;
        if (c.colore != kColoreTesto) j["colore"] = c.colore;
        if (c.sottolineato) j["sottolineato"] = true;
        j["abilitato"] = c.abilitato;
        j["visibile"] = c.visibile;
        controlli[nome] = j;
    }
    return {{"titolo", p.titolo}, {"controlli", controlli}};
}

std::string SuRiga(const Json& j) { return j.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace tk07
