#include <algorithm>
#include <array>
#include <cmath>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/cnr10011.h"
#include "reports/comune.h"
#include "reports/relazione.h"
#include "textnum/formatta.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

class Ta {
  public:
    Ta(const Nodo& n, const Opzioni& opz, const Unita& u, Risultati& ris)
        : n_(n), opz_(opz), u_(u), ris_(ris) {}

    std::string Scrivi() {
        Testata();
        Geometria();
        Materiali();
        ris_.NodoVerificato = true;
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
    static const char* Esito(bool passa, bool& ok) {
        if (passa) return "SI'";
        ok = false;
        return "NO ****";
    }

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
        bool ok = true;
        TestataSestetto(n_, s, t_);
        Azioni(s);
        const bool casoII = n_.CasoCarico(s) != 0;
        const double k = FattoreCaso(n_, s);
        t_.Riga(std::string("Combinazione di carico tipo ") + (casoII ? "II" : "I"));
        VerificaBulloni(s, k, ok);
        t_.Riga();
        t_.Riga("Compressione massima sulla piastra 1");
        Piastra(ris_.Sig(s, 0), SammPiastra(n_, 1) * k, ok);
        t_.Riga();
        t_.Riga("Tensione massima nella piastra 2");
        Piastra(ris_.SigPiastra2(s, 0), SammPiastra(n_, 2) * k, ok);
        Saldature(s, k, ok);
        VerdettoSestetto(n_, s, ok, t_);
        ris_.Verificato(s, 0) = ok ? 1 : 0;
        if (!ok) ris_.NodoVerificato = false;
    }

    void VerificaBulloni(int s, double k, bool& ok) {
        const double coeffBulloni = CoeffRifollamento(n_, opz_, s);
        const double SammV = n_.vite.SammVite, TauV = n_.vite.TauAmmVite;
        const double rif1 = SammPiastra(n_, 1) * k * coeffBulloni;
        const double rif2 = SammPiastra(n_, 2) * k * coeffBulloni;
        t_.Riga();
        t_.Riga("Verifica Bulloni");
        Valori()("S_adm viti")("T_adm viti")("SadmRifPias1")("SadmRifPias2").Chiudi(t_);
        Valori()(Tensione(SammV * k))(Tensione(TauV * k))(Tensione(rif1))(Tensione(rif2))
            .Chiudi(t_);
        Valori()("Num.")("Sigma")("Tau")("Coeff")("SigRifPias1")("SigRifPias2")("Ver.").Chiudi(t_);
        for (int i = 1; i <= n_.nBull; ++i) {
            const double sigma = ris_.Sigma(s, i), tau = ris_.Tau(s, i);
            const double r1 = ris_.SigRifPias1(s, i - 1), r2 = ris_.SigRifPias2(s, i - 1);
            const double a = sigma / SammV / k, b = tau / TauV / k;
            const double coeff = Arrotonda(a * a + b * b, 2);  // tested after its rounding
            const bool passa = coeff <= 1.0 && std::fabs(r1) <= rif1 && std::fabs(r2) <= rif2;
            Valori()(double(i))(Tensione(sigma))(Tensione(tau))(coeff)(Tensione(r1))(Tensione(r2))(
                Esito(passa, ok))
                .Chiudi(t_);
        }
    }

    void Piastra(double sig, double limite, bool& ok) {
        Valori()("Smax")("S_adm")("Ver.").Chiudi(t_);
        Valori()(Tensione(sig))(Tensione(limite))(Esito(std::fabs(sig) <= limite, ok)).Chiudi(t_);
    }

    void Saldature(int s, double k, bool& ok) {
        t_.Riga();
        t_.Riga("Saldature");
        const FattoriTA f = FattoriTensAmm(n_.acciaio.Nome);
        t_.Riga("S_id_adm sald\t" +
                (f.noto ? TestoGenerale(Tensione(f.singola * n_.acciaio.Samm * k)) : "0"));
        Valori()("Descr.")("Sigma")("TauPa")("TauPe")("Ver.").Chiudi(t_);
        for (int linea = 0; linea < 15; ++linea) {
            if (!(ris_.LungSald(linea) > 0.0001)) continue;
            for (const int j : {linea, linea + kSpecchio}) {
                Valori()(NomeLinea(j))(Tensione(ris_.MaxS_prp(s, j)))(Tensione(ris_.Tau_pa(s, j)))(
                    Tensione(ris_.Tau_pe(s, j)))(Esito(VerificaSaldaturaTA(n_, ris_, j, s, k), ok))
                    .Chiudi(t_);
            }
        }
    }

    const Nodo& n_;
    const Opzioni& opz_;
    const Unita& u_;
    Risultati& ris_;
    TestoRelazione t_;
};

}  // namespace

std::string RelazioneTA(const Nodo& nodo, const Opzioni& opz, const Unita& unita, Risultati& ris) {
    return Ta(nodo, opz, unita, ris).Scrivi();
}

}  // namespace tk07
