#include <algorithm>
#include <array>
#include <span>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/cnr10011.h"
#include "reports/comune.h"
#include "reports/relazione.h"
#include "textnum/formatta.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

class Ta {
  public:
    Ta(const Nodo& n, const Unita& u, const Risultati& ris, const Esiti& esiti)
        : n_(n), u_(u), ris_(ris), esiti_(esiti) {}

    RelazioneScritta Scrivi() {
        Testata();
        Geometria();
        Materiali();
        for (int s = 0; s < n_.nSollAg; ++s) Sestetto(s);
        return t_.Prendi();
    }

  private:
    // A row of values joined by tabs; numbers in their general text.
    class Valori {
      public:
        Valori& operator()(std::string_view testo) {
            if (!primo_) riga_ += '\t';
            primo_ = false;
            riga_.append(testo);
            return *this;
        }
        Valori& operator()(double x) { return (*this)(TestoGenerale(x)); }
        void Chiudi(TestoRelazione& t) { t.Riga(riga_); }

      private:
        std::string riga_;
        bool primo_ = true;
    };

    double Tensione(double x) const {
        return Arrotonda(x * u_.FattoreTensioni, u_.DecimaliTensioni);
    }
    using Righe = std::span<const Riscontro>;
    static const char* Esito(Righe righe) { return Passano(righe) ? "SI'" : "NO ****"; }

    void Testata() {
        t_.Riga(TitoloRelazione(n_, "METODO DELLE TENSIONI AMMISSIBILI (CNR 10011/88)"));
        t_.Riga();
        t_.Riga("UNITA' DI MISURA:");
        t_.Riga("FORZE:\t\t" + u_.UnitaForze);
        t_.Riga("MOMENTI:\t" + u_.UnitaMomenti);
        t_.Riga("TENSIONI:\t" + u_.UnitaTensioni);
        t_.Riga("DIMENSIONI:\tmm");
    }

    void Geometria() {
        t_.Riga();
        t_.Riga("GEOMETRIA NODO");
        t_.Riga();
        t_.Riga("Profili utilizzati");
        Valori()("Tipo prof.")("h")("b")("a")("e")("r").Chiudi(t_);
        for (const ProfiloRec* p : {&n_.TraPri, &n_.TraSec}) {
            Valori()(p->Nome)(p->H)(p->B)(p->tw)(p->tf)(p->r).Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("Piastre (n°" + TestoIntero(NumeroPiastre(n_)) + ")");
        Valori()("Num.")("H1")("H2")("B")("Sp").Chiudi(t_);
        std::array<RigaPiastra, 5> piastre{};
        const int quante = RighePiastre(n_, piastre.data());
        for (int i = 0; i < quante; ++i) {
            const RigaPiastra& p = piastre[static_cast<std::size_t>(i)];
            Valori()(p.numero)(Arrotonda(p.H1, 1))(Arrotonda(p.H2, 1))(Arrotonda(p.B, 1))(
                Arrotonda(p.Sp, 1))
                .Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("BULLONI");
        t_.Riga();
        Valori()("Num.")("X")("Y")("Fi")("Area").Chiudi(t_);
        for (int i = 1; i <= n_.nBull; ++i) {
            Valori()(double(i))(Arrotonda(n_.Xbull(i), 1))(Arrotonda(n_.Ybull(i), 1))(
                Arrotonda(n_.Fibull(i), 1))(Arrotonda(AreaResistente(n_.Fibull(i)), 2))
                .Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("SALDATURE");
        t_.Riga();
        RigheSaldature(n_, t_);
    }

    // Names over the columns of their values: a first column is left for the load case.
    void Materiali() {
        const MaterialeRec& a = n_.acciaio;
        t_.Riga();
        t_.Riga("MATERIALI");
        t_.Riga();
        t_.Riga("\tAcciaio " + a.Nome + ", S_adm\t\tClasse viti " + n_.vite.Nome);
        t_.Riga("\tsp <= 40mm\tsp > 40mm\tS_adm\tT_adm");
        for (const bool casoII : {false, true}) {
            const double k = casoII ? cnr::kCasoII : 1.0;
            Valori riga;
            riga(casoII ? "Comb. car. II" : "Comb. car. I");
            for (const double x : {a.Samm, a.Samm80, n_.vite.SammVite, n_.vite.TauAmmVite}) {
                riga(Tensione(x * k));
            }
            riga.Chiudi(t_);
        }
        t_.Riga();
        t_.Riga("SOLLECITAZIONI AGENTI E STATO TENSIONALE");
    }

    void Azioni(int s) {
        const auto forza = [&](double x) {
            return TestoNumero(Arrotonda(x * u_.FattoreForze, u_.DecimaliForze));
        };
        const auto momento = [&](double x) {
            return TestoNumero(Arrotonda(x * u_.FattoreMomenti, u_.DecimaliMomenti));
        };
        Valori()("N = " + forza(n_.SforzoNormale(s)))(" Ty = " + forza(n_.TaglioY(s)))(
            " Tz = " + forza(n_.TaglioZ(s)))(" Mt = " + momento(n_.MomTorc(s)))(
            " My = " + momento(n_.MomY(s)))(" Mz = " + momento(n_.MomZ(s)))
            .Chiudi(t_);
    }

    void Sestetto(int s) {
        TestataSestetto(n_, s, t_);
        Azioni(s);
        const bool casoII = n_.CasoCarico(s) != 0;
        const double k = FattoreCaso(n_, s);
        t_.Riga(std::string("Combinazione di carico tipo ") + (casoII ? "II" : "I"));
        VerificaBulloni(s, k);
        Piastre(s);
        Saldature(s, k);
        VerdettoSestetto(n_, s, esiti_.Sestetto(s).verificato, t_);
    }

    void VerificaBulloni(int s, double k) {
        t_.Riga();
        t_.Riga("Verifica Bulloni");
        bool testata = false;
        esiti_.PerElemento(s, TipoElemento::bullone, [&](Righe q) {
            const Riscontro &coeff = q[0], &rif1 = q[1], &rif2 = q[2];
            if (!testata) {  // the bearing limits are those of every bolt
                Valori()("S_adm viti")("T_adm viti")("SadmRifPias1")("SadmRifPias2").Chiudi(t_);
                Valori()(Tensione(n_.vite.SammVite * k))(Tensione(n_.vite.TauAmmVite * k))(
                    Tensione(rif1.limite))(Tensione(rif2.limite))
                    .Chiudi(t_);
                Valori()("Num.")("Sigma")("Tau")("Coeff")("SigRifPias1")("SigRifPias2")("Ver.")
                    .Chiudi(t_);
                testata = true;
            }
            const int i = coeff.elemento;
            t_.Segna(coeff);
            Valori()(double(i))(Tensione(ris_.Sigma(s, i)))(Tensione(ris_.Tau(s, i)))(
                coeff.domanda)(Tensione(ris_.SigRifPias1(s, i - 1)))(
                Tensione(ris_.SigRifPias2(s, i - 1)))(Esito(q))
                .Chiudi(t_);
        });
    }

    void Piastre(int s) {
        esiti_.PerElemento(s, TipoElemento::piastra, [&](Righe q) {
            const bool prima = q.front().elemento == 1;
            t_.Riga();
            t_.Riga(prima ? "Compressione massima sulla piastra 1"
                          : "Tensione massima nella piastra 2");
            t_.Segna(q.front());
            Valori()("Smax")("S_adm")("Ver.").Chiudi(t_);
            t_.Segna(q.front());
            Valori()(Tensione(prima ? ris_.Sig(s, 0) : ris_.SigPiastra2(s, 0)))(
                Tensione(q.front().limite))(Esito(q))
                .Chiudi(t_);
        });
    }

    void Saldature(int s, double k) {
        t_.Riga();
        t_.Riga("Saldature");
        const FattoriTA f = FattoriTensAmm(n_.acciaio.Nome);
        t_.Riga("S_id_adm sald\t" +
                (f.noto ? TestoGenerale(Tensione(f.singola * n_.acciaio.Samm * k)) : "0"));
        Valori()("Descr.")("Sigma")("TauPa")("TauPe")("Ver.").Chiudi(t_);
        esiti_.PerElemento(s, TipoElemento::saldatura, [&](Righe q) {
            const int j = q.front().elemento;
            t_.Segna(q.front());
            Valori()(NomeLinea(j))(Tensione(ris_.MaxS_prp(s, j)))(Tensione(ris_.Tau_pa(s, j)))(
                Tensione(ris_.Tau_pe(s, j)))(Esito(q))
                .Chiudi(t_);
        });
    }

    const Nodo& n_;
    const Unita& u_;
    const Risultati& ris_;
    const Esiti& esiti_;
    TestoRelazione t_;
};

}  // namespace

RelazioneScritta RelazioneTA(const Nodo& nodo, const Unita& unita, const Risultati& ris,
                             const Esiti& esiti) {
    return Ta(nodo, unita, ris, esiti).Scrivi();
}

}  // namespace tk07
