#include "reports/esteso.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "joint/controlla_dati.h"
#include "reports/comune.h"
#include "reports/esteso_dati.h"
#include "reports/esteso_verifiche.h"
#include "textnum/formatta.h"
#include "verification/azioni_bulloni.h"

namespace tk07 {

namespace {

// Two digits; very small ones with an exponent.
std::string TestoResiduo(double x) {
    const std::string t = TestoCifre(x, 2);
    if (x >= 1e-4 || x == 0.0) return t;
    const int potenza = static_cast<int>(std::floor(std::log10(x)));
    return TestoCifre(x / std::pow(10.0, potenza), 2) + "E" + std::to_string(potenza);
}

class Compositore {
  public:
    Compositore(const ContestoRel& c, const std::vector<std::string>& avvisi, FormaRelazione forma)
        : c_(c), breve_(forma == FormaRelazione::breve) {
        d_.avvisi = avvisi;
        for (int s = 0; s < c.n.nSollAg; ++s) {
            d_.equilibri.push_back(EquilibrioSestetto(c.n, c.ris, s));
        }
    }

    RelazioneEstesa Componi() {
        Copertina();
        Titolo(1, "Dati di ingresso");
        DatiIngresso(c_, d_.blocchi);
        d_.blocchi.push_back(FiguraRel::vista3d);
        d_.blocchi.push_back(FiguraRel::tavola);
        if (!breve_) {
            Titolo(1, "Grandezze comuni ai sestetti");
            GrandezzeComuni(c_, d_.blocchi);
        }
        Titolo(1, "Regole di distanza dei bulloni");
        Distanze();
        Titolo(1, "Riepilogo dei sestetti");
        Riassunto();
        Titolo(1, "Verifiche che governano");
        Governanti();
        Titolo(1, "Verifiche non soddisfatte");
        NonSoddisfatte();
        if (c_.esiti.peggiore >= 0) {
            Titolo(1, "Piano delle tensioni del sestetto che governa");
            Piano(c_.esiti.peggiore);
        }
        Titolo(1, "Equilibrio dei sestetti");
        EquilibrioDiTutti();
        if (!breve_) {
            for (int s = 0; s < c_.n.nSollAg; ++s) Sestetto(s);
        }
        Titolo(1, "Limiti del metodo");
        d_.blocchi.push_back(LimitiDelMetodo(c_));
        return std::move(d_);
    }

  private:
    static std::size_t Posto(int s) { return static_cast<std::size_t>(s); }
    void Titolo(int livello, const std::string& testo) {
        d_.blocchi.push_back(TitoloRel{livello, testo});
    }
    void Testo(const std::string& testo) { d_.blocchi.push_back(TestoRel{testo}); }

    void Copertina() {
        const Nodo& n = c_.n;
        d_.titolo =
            TitoloRelazione(n, c_.Slu() ? "METODO DEGLI STATI LIMITE (NTC 2018)"
                                        : "METODO DELLE TENSIONI AMMISSIBILI (CNR 10011/88)");
        d_.metodo = c_.Slu() ? "Stati limite (NTC 2018)" : "Tensioni ammissibili (CNR 10011/88)";
        d_.verificato = c_.esiti.verificato;
        const std::string quanti =
            std::to_string(n.nSollAg) + (n.nSollAg == 1 ? " sestetto" : " sestetti");
        d_.verdetto = n.nSollAg == 0 ? "NESSUN SESTETTO DI SOLLECITAZIONI"
                      : d_.verificato
                          ? "NODO VERIFICATO (" + quanti + ")"
                          : "NODO NON VERIFICATO (" + std::to_string(c_.esiti.Falliti()) + " su " +
                                quanti + ")";
        d_.scheda = {
            {"Trave principale", Taglia(n.TraPri.Nome)},
            {"Trave secondaria", Taglia(n.TraSec.Nome)},
            {"Acciaio", Taglia(n.acciaio.Nome)},
            {"Bulloni", std::to_string(n.nBull) + ", classe " + Taglia(n.vite.Nome)},
            {"Metodo", d_.metodo},
            {"Forma", breve_ ? "breve: verifiche che governano e non soddisfatte" : "estesa"}};
        for (int f = 0; f < kFamiglie; ++f) {
            const auto famiglia = static_cast<Famiglia>(f);
            GovernanteRel g;
            g.famiglia = NomeFamiglia(famiglia);
            if (const Riscontro* e = c_.esiti.Peggiore(famiglia)) {
                g.controllo = NomeConfronto(*e);
                g.elemento = NomeElemento(*e);
                g.sestetto = NomeSestetto(n, e->sestetto);
                g.valore = e->rapporto;
                g.rapporto = TestoRapporto(g.valore);
                g.passa = e->passa;
            }
            d_.governanti.push_back(g);
        }
    }

    void Distanze() {
        const std::string fonte = c_.Slu() ? "NTC 2018, 4.2.8.1.1, tab. 4.2.XVIII" : "CNR 10011/88";
        if (d_.avvisi.empty()) {
            Testo("Distanze dai bordi e interassi rispettano le regole di " + fonte + ".");
        } else {
            d_.blocchi.push_back(RiquadroRel{"Regole non rispettate (" + fonte + ")", d_.avvisi});
        }
        RegoleDistanza(c_, d_.blocchi);
    }

    void Riassunto() {
        TabellaRel t;
        t.colonne = {{"N."},       {"Sestetto", true}, {"Governa", true},
                     {"Bulloni"},  {"Piastra 1"},      {"Piastra 2"},
                     {"Sald. S1"}, {"Sald. S2"},       {"Ver"}};
        for (int s = 0; s < c_.esiti.Sestetti(); ++s) {
            RigaRel riga;
            riga.celle = {std::to_string(s + 1), NomeAzioni(c_.n, s), Governa(s)};
            for (int f = 0; f < kFamiglie; ++f) {
                const Riscontro* e = c_.esiti.Peggiore(s, static_cast<Famiglia>(f));
                riga.celle.push_back(e == nullptr ? "–" : TestoRapporto(e->rapporto));
            }
            riga.negativa = !c_.esiti.Sestetto(s).verificato;
            riga.celle.push_back(riga.negativa ? "NO" : "SI'");
            t.righe.push_back(std::move(riga));
        }
        Testo(
            "Rapporto tra domanda e limite della verifica più gravosa di ogni famiglia; sopra 1 la "
            "verifica non è soddisfatta.");
        d_.blocchi.push_back(std::move(t));
    }

    // "Co-1, bullone 3"
    std::string Governa(int s) const {
        const Riscontro* e = c_.esiti.Governa(s);
        return e == nullptr ? "–" : NomeConfronto(*e) + (", " + NomeElemento(*e));
    }

    void Spiega(const Riscontro& e) { d_.blocchi.push_back(SpiegaControllo(c_, e)); }

    void Governanti() {
        Testo("Per ogni famiglia la verifica con il rapporto maggiore fra tutti i sestetti.");
        for (int f = 0; f < kFamiglie; ++f) {
            const auto famiglia = static_cast<Famiglia>(f);
            const Riscontro* e = c_.esiti.Peggiore(famiglia);
            if (e == nullptr) continue;
            Titolo(3,
                   std::string(NomeFamiglia(famiglia)) + " – " + NomeSestetto(c_.n, e->sestetto));
            Spiega(*e);
        }
    }

    void NonSoddisfatte() {
        TabellaRel t;
        t.colonne = {{"N."},     {"Elemento", true}, {"Verifica", true}, {"Valore"},
                     {"Limite"}, {"Rapporto"},       {"Norma", true}};
        for (const Riscontro& e : c_.esiti.righe) {
            if (e.passa) continue;
            t.righe.push_back({{std::to_string(e.sestetto + 1), NomeElemento(e), NomeConfronto(e),
                                ValoreControllo(c_, e, e.domanda), ValoreControllo(c_, e, e.limite),
                                TestoRapporto(e.rapporto), tk07::Testo(Dati(e.confronto).clausola)},
                               true});
        }
        if (t.righe.empty()) {
            Testo("Tutte le verifiche di tutti i sestetti sono soddisfatte.");
            return;
        }
        Testo("N. è il numero del sestetto.");
        d_.blocchi.push_back(std::move(t));
    }

    void Piano(int s) {
        const Nodo& n = c_.n;
        PianoRel p;
        p.sestetto = s;
        p.titolo = NomeSestetto(n, s);
        const Geometria g = GeometriaDi(n);
        p.piastra1 = g.piastra(1);
        p.piastra2 = g.piastra(2);
        p.comune = g.comune;
        p.trave = {n.TraSec.B, n.TraSec.tw, n.TraSec.tf, n.TraSec.H};
        p.yAsse = g.yAsse;
        p.piano = PianoTensioni(c_.ris, s);
        p.zona = d_.equilibri[Posto(s)].zona;
        for (int i = 1; i <= n.nBull; ++i) {
            const double sigma = ValorePiano(p.piano, n.Xbull(i), n.Ybull(i));
            p.bulloni.push_back({i, n.Xbull(i), n.Ybull(i), n.Fibull(i), sigma,
                                 c_.cifre.Forza(c_.Slu() ? c_.ris.Ft_Ed(s, i)
                                                         : AreaResistente(n.Fibull(i)) * sigma)});
        }
        p.unitaForza = UnitaMostrata(c_.cifre.u.UnitaForze);
        p.unitaTensione = UnitaMostrata(c_.cifre.u.UnitaTensioni);
        p.fattoreTensione = kMm2PerCm2 * c_.cifre.u.FattoreTensioni;
        p.decimaliTensione = c_.cifre.u.DecimaliTensioni;
        TabellaRel t{{{"Bullone"},
                      {"Sigma [" + p.unitaTensione + "]"},
                      {"A · Sigma [" + p.unitaForza + "]"}},
                     {}};
        for (int i = 1; i <= n.nBull; ++i) {
            t.righe.push_back({{std::to_string(i), c_.cifre.Tensione(c_.ris.Sigma(s, i)),
                                p.bulloni[Posto(i - 1)].forza}});
        }
        // What is left of a cancellation reads as 0.
        const double misura = std::fabs(p.piano(1)) + std::fabs(p.piano(2)) + std::fabs(p.piano(3));
        const auto coefficiente = [&](int k) {
            const double x = std::fabs(p.piano(k)) < 1e-9 * misura ? 0.0 : p.piano(k);
            return TestoCifre(x * p.fattoreTensione, 6);
        };
        const std::string coefficienti = "c1 = " + coefficiente(1) + ", c2 = " + coefficiente(2) +
                                         ", c3 = " + coefficiente(3) + " (" + p.unitaTensione +
                                         ", x e y in mm).";
        d_.blocchi.push_back(std::move(p));
        Testo(coefficienti);
        d_.blocchi.push_back(std::move(t));
    }

    void EquilibrioDiTutti() {
        const Unita& u = c_.cifre.u;
        Testo(
            "Risultanti del piano delle tensioni nel piano dei bulloni, rispetto all'asse della "
            "trave secondaria: bulloni = somma delle forze A·Sigma; contatto = integrale esatto "
            "della "
            "pressione sulla zona compressa, tolte le aree dei bulloni che vi cadono. Residuo = "
            "applicata + trasporto − bulloni − contatto; tolleranza = 1 + 0.0001·|carico| (daN, "
            "daN·mm), quella del risolutore. Il trasporto è il momento dei tagli per distAzioni "
            "= " +
            TestoMm(GeometriaDi(c_.n).xS) + " mm, quando è da considerare.");
        TabellaRel t;
        t.insieme = kRisultanti;
        t.colonne = {{"N."},      {"Risultante", true}, {"Applicata"}, {"Trasporto"},
                     {"Bulloni"}, {"Contatto"},         {"Residuo"},   {"Tolleranza"}};
        for (int s = 0; s < c_.n.nSollAg; ++s) {
            const Equilibrio& e = d_.equilibri[Posto(s)];
            for (std::size_t k = 0; k < kRisultanti; ++k) {
                const bool forza = k == kRisN;
                const double scala = forza ? u.FattoreForze : u.FattoreMomenti / 10.0;
                const int decimali = forza ? u.DecimaliForze : u.DecimaliMomenti;
                RigaRel riga;
                riga.celle = {k == 0 ? std::to_string(s + 1) : "",
                              std::string(k == kRisN    ? "N"
                                          : k == kRisMy ? "My"
                                                        : "Mz") +
                                  " [" + UnitaMostrata(forza ? u.UnitaForze : u.UnitaMomenti) +
                                  "]"};
                for (const double x : {e.carico[k], e.trasporto[k], e.bulloni[k], e.contatto[k]}) {
                    riga.celle.push_back(TestoFisso(x * scala, decimali));
                }
                riga.celle.push_back(TestoResiduo(std::fabs(e.residuo[k] * scala)));
                riga.celle.push_back(TestoCifre(e.tolleranza[k] * scala, 3));
                riga.negativa = !(std::fabs(e.residuo[k]) < e.tolleranza[k]);
                t.righe.push_back(std::move(riga));
            }
        }
        d_.blocchi.push_back(std::move(t));
    }

    void Sestetto(int s) {
        const Nodo& n = c_.n;
        const CifreRel& f = c_.cifre;
        if (s == 0) Titolo(1, "Verifiche dei sestetti");
        Titolo(2, NomeSestetto(n, s));
        std::string azioni =
            "N = " + f.ForzaU(n.SforzoNormale(s)) + ",  Ty = " + f.ForzaU(n.TaglioY(s)) +
            ",  Tz = " + f.ForzaU(n.TaglioZ(s)) + ",  Mt = " + f.MomentoU(n.MomTorc(s)) +
            ",  My = " + f.MomentoU(n.MomY(s)) + ",  Mz = " + f.MomentoU(n.MomZ(s));
        if (!c_.Slu()) {
            azioni += n.CasoCarico(s) != 0 ? ",  caso di carico II" : ",  caso di carico I";
        }
        Testo(azioni);
        Testo((c_.esiti.Sestetto(s).verificato ? "NODO VERIFICATO"
                                               : "ATTENZIONE: NODO NON VERIFICATO") +
              std::string(" IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI ") + NomeAzioni(n, s) +
              ". Governa " + Governa(s) + ": rapporto " + TestoRapporto(c_.esiti.Rapporto(s)) +
              ".");
        // Of each kind of check the element that is used most, family by family.
        std::vector<const Riscontro*> peggiori;
        for (const Riscontro& e : c_.esiti.Righe(s)) {
            const auto stesso = [&](const Riscontro* p) {
                return p->famiglia == e.famiglia && p->confronto == e.confronto;
            };
            const auto p = std::find_if(peggiori.begin(), peggiori.end(), stesso);
            if (p == peggiori.end()) {
                peggiori.push_back(&e);
            } else if (e.rapporto > (*p)->rapporto) {
                *p = &e;
            }
        }
        const auto spiega = [&](std::initializer_list<Famiglia> famiglie) {
            for (const Famiglia famiglia : famiglie) {
                for (const Riscontro* e : peggiori) {
                    if (e->famiglia == famiglia) Spiega(*e);
                }
            }
        };
        const std::string tensioni = " (" + UnitaMostrata(f.u.UnitaTensioni) + ")";
        Titolo(3, "Bulloni" + (c_.Slu() ? " (" + UnitaMostrata(f.u.UnitaForze) + ")" : tensioni));
        if (!c_.Slu()) d_.blocchi.push_back(TabellaAmmissibili(c_, s));
        d_.blocchi.push_back(TabellaBulloni(c_, s));
        spiega({Famiglia::bulloni});
        Titolo(3, "Piastre" + tensioni);
        d_.blocchi.push_back(TabellaPiastre(c_, s));
        spiega({Famiglia::piastra1, Famiglia::piastra2});
        Titolo(3, "Saldature" + tensioni);
        d_.blocchi.push_back(TabellaSaldature(c_, s));
        spiega({Famiglia::saldatureS1, Famiglia::saldatureS2});
    }

    const ContestoRel& c_;
    const bool breve_;
    RelazioneEstesa d_;
};

}  // namespace

RelazioneEstesa ComponiRelazioneEstesa(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                                       const Risultati& ris, const Esiti& esiti,
                                       const std::vector<std::string>& avvisi,
                                       FormaRelazione forma) {
    const ContestoRel c{nodo, opz, ris, esiti, {unita}};
    return Compositore(c, avvisi, forma).Componi();
}

RelazionePreparata PreparaRelazioneEstesa(const Nodo& nodo, const Opzioni& opz, const Unita& unita,
                                          FormaRelazione forma) {
    RelazionePreparata r;
    Piattaforma p = PiattaformaMuta();
    p.messaggio = [&r](const std::string& testo, const std::string&, Segno, Pulsanti pulsanti) {
        if (pulsanti == Pulsanti::OK) r.messaggi.push_back(testo);
        return Risposta::OK;
    };
    const auto n = std::make_unique<Nodo>(nodo);
    RicalcolaNervatura3(*n);
    if (ControllaDati(*n, opz, p)) return r;
    Risultati ris;
    Esiti esiti;
    r.esito = VerificaNodo(*n, opz, ris, esiti, p);
    if (r.esito != EsitoVerifica::completata) return r;
    r.verificato = esiti.verificato;
    r.documento = ComponiRelazioneEstesa(*n, opz, unita, ris, esiti, r.messaggi, forma);
    return r;
}

}  // namespace tk07
