#include "verification/riepilogo.h"

#include <cmath>
#include <limits>

#include "base/aritmetica.h"
#include "verification/reports/relazione.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

constexpr double kInfinito = std::numeric_limits<double>::infinity();

// Demand over limit: never above 1 when the demand passes, never 1 or below when it does not.
double Rapporto(double domanda, double limite) {
    const double r = domanda / limite;
    if (domanda <= limite) return r >= 0.0 && r <= 1.0 ? r : r > 1.0 ? 1.0 : 0.0;
    return r > 1.0 ? r : limite > 0.0 && r <= 1.0 ? std::nextafter(1.0, 2.0) : kInfinito;
}

// Collects the checks of one load set.
class Raccolta {
  public:
    explicit Raccolta(RigaRiepilogo& riga) : riga_(riga) {}

    // Keeps the check if it is the worst of its family; returns the ratio.
    double operator()(Famiglia f, double rapporto, const char* controllo,
                      const std::string& elemento) {
        EsitoControllo& e = riga_.famiglie[static_cast<std::size_t>(f)];
        if (e.elemento.empty() || rapporto > e.rapporto) e = {rapporto, controllo, elemento};
        return rapporto;
    }
    void Chiudi() {
        for (int f = 1; f < kFamiglie; ++f) {
            if (riga_.famiglie[static_cast<std::size_t>(f)].rapporto > riga_.Rapporto()) {
                riga_.governa = static_cast<Famiglia>(f);
            }
        }
    }

  private:
    RigaRiepilogo& riga_;
};

std::string Bullone(int i) { return "bullone " + std::to_string(i); }

struct Contesto {
    const Nodo& n;
    const Opzioni& opz;
    const Risultati& ris;
    int s;
};

void BulloniSLU(const Contesto& c, RigaRiepilogo& riga, Raccolta& r) {
    for (int i = 1; i <= c.n.nBull; ++i) {
        // The report tests the rounded coefficients: 1.004 passes.
        const std::string nome = Bullone(i);
        const double a =
            r(Famiglia::bulloni, Rapporto(Arrotonda(c.ris.Co1(c.s, i), 2), 1.0), "Co-1", nome);
        const double b =
            r(Famiglia::bulloni, Rapporto(Arrotonda(c.ris.Co2(c.s, i), 2), 1.0), "Co-2", nome);
        riga.elementi.bulloni[static_cast<std::size_t>(i)] = Max(a, b);
    }
}

void BulloniTA(const Contesto& c, RigaRiepilogo& riga, Raccolta& r) {
    const double k = FattoreCaso(c.n, c.s), coeff = CoeffRifollamento(c.n, c.opz, c.s);
    for (int i = 1; i <= c.n.nBull; ++i) {
        const std::string nome = Bullone(i);
        const double a = c.ris.Sigma(c.s, i) / c.n.vite.SammVite / k;
        const double b = c.ris.Tau(c.s, i) / c.n.vite.TauAmmVite / k;
        double peggio =
            r(Famiglia::bulloni, Rapporto(Arrotonda(a * a + b * b, 2), 1.0), "Coeff", nome);
        const double rif1 = std::fabs(c.ris.SigRifPias1(c.s, i - 1));
        const double rif2 = std::fabs(c.ris.SigRifPias2(c.s, i - 1));
        peggio = Max(peggio, r(Famiglia::bulloni, Rapporto(rif1, SammPiastra(c.n, 1) * k * coeff),
                               "SigRifPias1", nome));
        peggio = Max(peggio, r(Famiglia::bulloni, Rapporto(rif2, SammPiastra(c.n, 2) * k * coeff),
                               "SigRifPias2", nome));
        riga.elementi.bulloni[static_cast<std::size_t>(i)] = peggio;
    }
}

void Piastre(const Contesto& c, RigaRiepilogo& riga, Raccolta& r) {
    const bool slu = c.n.MetodoVerifica() == Metodo::SLU;
    for (int k = 1; k <= 2; ++k) {
        const double sig = k == 1 ? c.ris.Sig(c.s, 0) : c.ris.SigPiastra2(c.s, 0);
        const double limite = slu ? FdPiastra(c.n, k) : SammPiastra(c.n, k) * FattoreCaso(c.n, c.s);
        riga.elementi.piastre[static_cast<std::size_t>(k - 1)] =
            r(k == 1 ? Famiglia::piastra1 : Famiglia::piastra2, Rapporto(std::fabs(sig), limite),
              slu ? "Sig" : "Smax", "piastra " + std::to_string(k));
    }
}

void Saldature(const Contesto& c, RigaRiepilogo& riga, Raccolta& r) {
    const bool slu = c.n.MetodoVerifica() == Metodo::SLU;
    const FattoriSaldatura slim = FattoriSLU(c.n.acciaio.Nome);
    const FattoriTA ta = FattoriTensAmm(c.n.acciaio.Nome);
    const double base = slu ? c.n.acciaio.Fyk40 : c.n.acciaio.Samm * FattoreCaso(c.n, c.s);
    const double lim1 = (slu ? slim.Beta1 : ta.singola) * base;
    const double lim2 = (slu ? slim.Beta2 : ta.somma) * base;
    for (int linea = 0; linea < kSpecchio; ++linea) {
        if (!(c.ris.LungSald(linea) > 0.0001)) continue;
        for (const int j : {linea, linea + kSpecchio}) {
            const double P = c.ris.MaxS_prp(c.s, j), pa = c.ris.Tau_pa(c.s, j),
                         pe = c.ris.Tau_pe(c.s, j);
            const std::string nome = "saldatura " + NomeLinea(j);
            const Famiglia f = FamigliaLinea(j);
            if (!slu && !ta.noto) {  // no limit for this steel: the report fails every line
                riga.elementi.saldature[static_cast<std::size_t>(j)] =
                    r(f, kInfinito, "S_id_adm", nome);
                continue;
            }
            const double e1 = std::sqrt(P * P + pa * pa + pe * pe);
            const double e2 = std::fabs(P) + std::fabs(pe);
            double peggio = r(f, Rapporto(e1, lim1), slu ? "SEq-1" : "S_id", nome);
            peggio = Max(peggio, r(f, Rapporto(e2, lim2), slu ? "SEq-2" : "|S|+|TauPe|", nome));
            // The report's tests of the single components never exceed that of the resultant.
            riga.elementi.saldature[static_cast<std::size_t>(j)] = peggio;
        }
    }
}

}  // namespace

const char* NomeFamiglia(Famiglia f) {
    constexpr const char* kNomi[] = {"Bulloni", "Piastra 1", "Piastra 2", "Saldature S1",
                                     "Saldature S2"};
    return kNomi[static_cast<std::size_t>(f)];
}

Famiglia FamigliaLinea(int j) {
    const int linea = j % kSpecchio + 1;
    return linea >= 4 && linea <= 9 ? Famiglia::saldatureS2 : Famiglia::saldatureS1;
}

Riepilogo RiepilogoVerifica(const Nodo& n, const Opzioni& opz, const Risultati& ris) {
    Riepilogo tutto;
    tutto.righe.resize(static_cast<std::size_t>(n.nSollAg));
    for (int s = 0; s < n.nSollAg; ++s) {
        RigaRiepilogo& riga = tutto.righe[static_cast<std::size_t>(s)];
        riga.sestetto = s;
        riga.elementi.bulloni.assign(static_cast<std::size_t>(n.nBull) + 1, -1.0);
        riga.elementi.saldature.fill(-1.0);
        Raccolta r(riga);
        const Contesto c{n, opz, ris, s};
        if (n.MetodoVerifica() == Metodo::SLU) {
            BulloniSLU(c, riga, r);
        } else {
            BulloniTA(c, riga, r);
        }
        Piastre(c, riga, r);
        Saldature(c, riga, r);
        r.Chiudi();
        if (tutto.peggiore < 0 ||
            riga.Rapporto() > tutto.righe[static_cast<std::size_t>(tutto.peggiore)].Rapporto()) {
            tutto.peggiore = s;
        }
    }
    return tutto;
}

}  // namespace tk07
