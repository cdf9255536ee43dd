#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/ntc2018.h"
#include "reports/comune.h"
#include "reports/relazione.h"
#include "textnum/formatta.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

constexpr auto S = Allinea::sinistra;
constexpr auto D = Allinea::destra;

// Cells of one row, all with "|" behind them.
class Tabella {
  public:
    Tabella& operator()(std::string_view v, int w, Allinea al) {
        AggiungiCampo(riga_, v, w, Separatore::barra, al);
        return *this;
    }
    Tabella& operator()(double v, int w) {
        AggiungiCampo(riga_, v, w, Separatore::barra, D);
        return *this;
    }
    Tabella& operator()(int v, int w, Allinea al) {
        AggiungiCampo(riga_, v, w, Separatore::barra, al);
        return *this;
    }
    void Bianco() { riga_ += ' '; }
    void Chiudi(TestoRelazione& t) {
        t.Riga(riga_);
        riga_.clear();
    }

  private:
    std::string riga_;
};

class Slu {
  public:
    Slu(const Nodo& n, const Unita& u, const Risultati& ris, const Esiti& esiti)
        : n_(n), u_(u), ris_(ris), esiti_(esiti) {}

    RelazioneScritta Scrivi() {
        Testata();
        Geometria();
        Materiali();
        for (int s = 0; s < n_.nSollAg; ++s) Sestetto(s);
        return t_.Prendi();
    }

  private:
    double Forza(double x) const { return Arrotonda(x * u_.FattoreForze, u_.DecimaliForze); }
    double Momento(double x) const { return Arrotonda(x * u_.FattoreMomenti, u_.DecimaliMomenti); }
    double Tensione(double x) const {
        return Arrotonda(x * u_.FattoreTensioni, u_.DecimaliTensioni);
    }

    void Testata() {
        t_.Riga(TitoloRelazione(n_, "METODO DEGLI STATI LIMITE (NTC 2018)"));
        t_.Riga();
        t_.Riga("UNITA' DI MISURA: [" + u_.UnitaForze + "] ; [" + u_.UnitaMomenti + "] ; [" +
                u_.UnitaTensioni + "] ; [mm]");
        t_.Riga();
        t_.Riga("GEOMETRIA NODO");
        t_.Riga();
    }

    void Geometria() {
        Tabella riga;
        t_.Riga("Profili utilizzati");
        riga("Tipo prof.", 20, S)("h", 5, D)("b", 5, D)("a", 5, D)("e", 5, D)("r", 5, D);
        riga.Chiudi(t_);
        for (const ProfiloRec* p : {&n_.TraPri, &n_.TraSec}) {
            riga(p->Nome, 20, S)(p->H, 5)(p->B, 5)(p->tw, 5)(p->tf, 5)(p->r, 5).Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("Piastre (n°" + TestoIntero(NumeroPiastre(n_)) + ")");
        riga("Num", 3, S)("H1", 6, D)("H2", 6, D)("B", 6, D)("Sp", 4, D).Chiudi(t_);
        std::array<RigaPiastra, 5> piastre{};
        const int quante = RighePiastre(n_, piastre.data());
        for (int i = 0; i < quante; ++i) {
            const RigaPiastra& p = piastre[static_cast<std::size_t>(i)];
            riga(p.numero, 3, S)(Arrotonda(p.H1, 1), 6)(Arrotonda(p.H2, 1), 6)(
                Arrotonda(p.B, 1), 6)(Arrotonda(p.Sp, 1), 4);
            riga.Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("BULLONI");
        Bulloni(riga);
        t_.Riga("SALDATURE");
        t_.Riga();
        RigheSaldature(n_, t_);
    }

    // Two blocks side by side.
    void Bulloni(Tabella& riga) {
        for (int blocco = 0; blocco < 2; ++blocco) {
            if (blocco == 1) riga.Bianco();
            riga("Num", 3, S)("X", 5, D)("Y", 5, D)("Fi", 4, D)("Area", 7, D);
        }
        riga.Chiudi(t_);
        const int m = n_.nBull / 2 + n_.nBull % 2;
        const auto bullone = [&](int i) {
            riga(i, 3, S)(Arrotonda(n_.Xbull(i), 1), 5)(Arrotonda(n_.Ybull(i), 1), 5)(
                Arrotonda(n_.Fibull(i), 1), 4)(Arrotonda(AreaResistente(n_.Fibull(i)), 2), 7);
        };
        for (int i = 1; i <= m; ++i) {
            bullone(i);
            if (i + m <= n_.nBull) {
                riga.Bianco();
                bullone(i + m);
            }
            riga.Chiudi(t_);
        }
    }

    void Materiali() {
        t_.Riga();
        t_.Riga("MATERIALI");
        constexpr auto si = Separatore::barra;
        constexpr auto no = Separatore::no;
        t_.Riga(CampoTesto(std::string_view("Acciaio " + n_.acciaio.Nome), 41, si, S) +
                CampoTesto(std::string_view("Classe viti " + n_.vite.Nome), 40, no, S));
        t_.Riga(CampoTesto(std::string_view("fd s<40mm"), 20, si, S) +
                CampoTesto(std::string_view("fd 40mm<s<80mm"), 20, si, S) +
                CampoTesto(std::string_view("fd"), 40, no, S));
        const MaterialeRec& a = n_.acciaio;
        t_.Riga(CampoTesto(Tensione(a.Fyk40 / a.GammaM), 20, si, S) +
                CampoTesto(Tensione(a.Fyk80 / a.GammaM), 20, si, S) +
                CampoTesto(Tensione(n_.vite.FtVite / n_.vite.GammaMVite), 40, no, S));
        t_.Riga();
        t_.Riga("SOLLECITAZIONI AGENTI E STATO TENSIONALE");
    }

    void Sestetto(int s) {
        TestataSestetto(n_, s, t_);
        const auto azione = [](const char* nome, double x) {
            return CampoTesto(std::string_view(nome + TestoNumero(x)), 20, Separatore::no, S);
        };
        t_.Riga(azione("N = ", Forza(n_.SforzoNormale(s))) + azione("Ty = ", Forza(n_.TaglioY(s))) +
                azione("Tz = ", Forza(n_.TaglioZ(s))));
        t_.Riga(azione("Mt = ", Momento(n_.MomTorc(s))) + azione("My = ", Momento(n_.MomY(s))) +
                azione("Mz = ", Momento(n_.MomZ(s))));
        VerificaBulloni(s);
        Piastre(s);
        Saldature(s);
        VerdettoSestetto(n_, s, esiti_.Sestetto(s).verificato, t_);
    }

    using Righe = std::span<const Riscontro>;
    static const char* Esito(Righe righe) { return Passano(righe) ? "SI'" : "NO"; }

    void VerificaBulloni(int s) {
        t_.Riga();
        t_.Riga("Verifica bulloni");
        t_.Riga(std::string("Co-1, Co-2: ") + ntc::kTaglioETrazione.norma + " formula " +
                ntc::kTaglioETrazione.formula);
        Tabella riga;
        riga("Num", 3, S);
        for (const char* c : {"Fv,Ed", "Fv,Rd", "Fb,Rd", "Ft,Ed", "Ft,Rd", "Bp,Rd"}) riga(c, 7, D);
        riga("Co-1", 4, D)("Co-2", 4, D)("Ver", 3, D).Chiudi(t_);
        esiti_.PerElemento(s, TipoElemento::bullone, [&](Righe q) {
            const int i = q.front().elemento;
            t_.Segna(q.front());
            riga(i, 3, S);
            for (const double f : {ris_.Fv_Ed(s, i), ris_.Fv_Rd(i), ris_.Fb_Rd(i), ris_.Ft_Ed(s, i),
                                   ris_.Ft_Rd(i), ris_.Bp_Rd(i)}) {
                riga(Forza(f), 7);
            }
            riga(ris_.Co1(s, i), 4)(ris_.Co2(s, i), 4)(Esito(q), 3, D).Chiudi(t_);
        });
    }

    void Piastre(int s) {
        esiti_.PerElemento(s, TipoElemento::piastra, [&](Righe q) {
            const bool prima = q.front().elemento == 1;
            t_.Riga();
            t_.Riga(prima ? "Compressione massima sulla piastra 1"
                          : "Tensione massima nella piastra 2");
            Tabella riga;
            t_.Segna(q.front());
            riga("Sig", 7, D)("fd", 7, D)("Ver", 3, D).Chiudi(t_);
            t_.Segna(q.front());
            riga(Tensione(prima ? ris_.Sig(s, 0) : ris_.SigPiastra2(s, 0)), 7)(
                Tensione(q.front().limite), 7)(Esito(q), 3, D);
            riga.Chiudi(t_);
        });
    }

    void Saldature(int s) {
        t_.Riga();
        t_.Riga("Saldature");
        for (const auto& [nomi, c] : {std::pair{"SEq-1, SLim-1: ", ntc::kSaldaturaRisultante},
                                      std::pair{"SEq-2, SLim-2: ", ntc::kSaldaturaSomma}}) {
            t_.Riga(std::string(nomi) + c.norma + " formula " + c.formula);
        }
        Tabella riga;
        riga("Nome", 4, S);
        for (const char* c : {"S_prp", "Tau_pa", "Tau_pe", "SEq-1", "SEq-2", "SLim-1", "SLim-2"}) {
            riga(c, 7, D);
        }
        riga("Ver", 3, D).Chiudi(t_);
        esiti_.PerElemento(s, TipoElemento::saldatura, [&](Righe q) {
            const int j = q.front().elemento;
            t_.Segna(q.front());
            riga(NomeLinea(j), 4, S);
            for (const double x : {ris_.MaxS_prp(s, j), ris_.Tau_pa(s, j), ris_.Tau_pe(s, j),
                                   q[0].domanda, q[1].domanda, q[0].limite, q[1].limite}) {
                riga(Tensione(x), 7);
            }
            riga(Esito(q), 3, D).Chiudi(t_);
        });
    }

    const Nodo& n_;
    const Unita& u_;
    const Risultati& ris_;
    const Esiti& esiti_;
    TestoRelazione t_;
};

}  // namespace

RelazioneScritta RelazioneSLU(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                              const Esiti& esiti) {
    return Slu(nodo, unita, ris, esiti).Scrivi();
}

}  // namespace tk07
