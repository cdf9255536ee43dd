#include "verification/esiti.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/aritmetica.h"
#include "norme/ntc2018.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

constexpr double kInfinito = std::numeric_limits<double>::infinity();

constexpr std::array<DatiConfronto, 12> kConfronti{{
    {"Co-1", ntc::kTaglioETrazione, true},
    {"Co-2", ntc::kTaglioETrazione, true},
    {"Sig", ntc::kPiastre, false},
    {"SEq-1", ntc::kSaldaturaRisultante, false},
    {"SEq-2", ntc::kSaldaturaSomma, false},
    {"Coeff", cnr::kNorma, true},
    {"SigRifPias1", cnr::kNorma, false},
    {"SigRifPias2", cnr::kNorma, false},
    {"Smax", cnr::kNorma, false},
    {"S_id", cnr::kNorma, false},
    {"|S|+|TauPe|", cnr::kNorma, false},
    {"S_id_adm", cnr::kNorma, false},
}};

double Rapporto(double domanda, double limite) {
    const double r = domanda / limite;
    if (domanda <= limite) return r >= 0.0 && r <= 1.0 ? r : r > 1.0 ? 1.0 : 0.0;
    return r > 1.0 ? r : limite > 0.0 && r <= 1.0 ? std::nextafter(1.0, 2.0) : kInfinito;
}

Riscontro Confronta(Famiglia f, Confronto c, int elemento, int s, double domanda, double limite) {
    return {f, c, elemento, s, domanda, limite, Rapporto(domanda, limite), domanda <= limite};
}

// All comparisons of load set s, one after the other; what depends on the joint alone is looked up
// once.
class Confronti {
  public:
    Confronti(const Nodo& n, const Opzioni& opz, const Risultati& ris)
        : n_(n),
          opz_(opz),
          ris_(ris),
          slu_(n.MetodoVerifica() == Metodo::SLU),
          beta_(FattoriSLU(n.acciaio.Nome)),
          ta_(FattoriTensAmm(n.acciaio.Nome)) {}

    template <class Fai>
    void Sestetto(int s, Fai fai) const {
        slu_ ? BulloniSLU(s, fai) : BulloniTA(s, fai);
        Piastre(s, fai);
        for (int linea = 0; linea < kSpecchio; ++linea) {
            if (!(ris_.LungSald(linea) > kLunghezzaNulla)) continue;
            for (const int j : {linea, linea + kSpecchio}) {
                slu_ ? LineaSLU(s, j, fai) : LineaTA(s, j, fai);
            }
        }
    }

  private:
    static constexpr double kLunghezzaNulla = 0.0001;  // mm: an absent weld line

    template <class Fai>
    void BulloniSLU(int s, Fai fai) const {
        for (int i = 1; i <= n_.nBull; ++i) {
            using enum Confronto;
            fai(Confronta(Famiglia::bulloni, co1, i, s, ris_.Co1(s, i), ntc::kCoefficiente));
            fai(Confronta(Famiglia::bulloni, co2, i, s, ris_.Co2(s, i), ntc::kCoefficiente));
        }
    }

    template <class Fai>
    void BulloniTA(int s, Fai fai) const {
        const double k = FattoreCaso(n_, s), coeff = CoeffRifollamento(n_, opz_, s);
        const double rif1 = SammPiastra(n_, 1) * k * coeff;
        const double rif2 = SammPiastra(n_, 2) * k * coeff;
        for (int i = 1; i <= n_.nBull; ++i) {
            const double a = ris_.Sigma(s, i) / n_.vite.SammVite / k;
            const double b = ris_.Tau(s, i) / n_.vite.TauAmmVite / k;
            using enum Confronto;
            fai(Confronta(Famiglia::bulloni, Confronto::coeff, i, s, Arrotonda(a * a + b * b, 2),
                          cnr::kCoefficiente));
            fai(Confronta(Famiglia::bulloni, sigRifPias1, i, s,
                          std::fabs(ris_.SigRifPias1(s, i - 1)), rif1));
            fai(Confronta(Famiglia::bulloni, sigRifPias2, i, s,
                          std::fabs(ris_.SigRifPias2(s, i - 1)), rif2));
        }
    }

    template <class Fai>
    void Piastre(int s, Fai fai) const {
        for (int k = 1; k <= 2; ++k) {
            const double sig = k == 1 ? ris_.Sig(s, 0) : ris_.SigPiastra2(s, 0);
            const double limite = slu_ ? FdPiastra(n_, k) : SammPiastra(n_, k) * FattoreCaso(n_, s);
            fai(Confronta(k == 1 ? Famiglia::piastra1 : Famiglia::piastra2,
                          slu_ ? Confronto::sig : Confronto::smax, k, s, std::fabs(sig), limite));
        }
    }

    // The limit takes the strength of thin plates, whatever the thickness.
    template <class Fai>
    void LineaSLU(int s, int j, Fai fai) const {
        const Famiglia f = FamigliaLinea(j);
        const double base = n_.acciaio.Fyk40;
        fai(Confronta(f, Confronto::sEq1, j, s, ris_.SEq1(s, j), beta_.Beta1 * base));
        fai(Confronta(f, Confronto::sEq2, j, s, ris_.SEq2(s, j), beta_.Beta2 * base));
    }

    template <class Fai>
    void LineaTA(int s, int j, Fai fai) const {
        const Famiglia f = FamigliaLinea(j);
        const SaldaturaTA t = VerificaSaldaturaTA(n_, ta_, ris_, j, s, FattoreCaso(n_, s));
        if (!t.noto) {
            fai({f, Confronto::senzaLimite, j, s, t.risultante, 0.0, kInfinito, false});
            return;
        }
        fai({f, Confronto::sId, j, s, t.risultante, t.limiteSingola,
             Rapporto(t.risultante, t.limiteSingola), t.passaRisultante});
        fai({f, Confronto::somma, j, s, t.somma, t.limiteSomma, Rapporto(t.somma, t.limiteSomma),
             t.passaSomma});
    }

    const Nodo& n_;
    const Opzioni& opz_;
    const Risultati& ris_;
    bool slu_;
    FattoriSaldatura beta_;
    FattoriTA ta_;
};

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

TipoElemento Tipo(Famiglia f) {
    switch (f) {
        case Famiglia::bulloni:
            return TipoElemento::bullone;
        case Famiglia::piastra1:
        case Famiglia::piastra2:
            return TipoElemento::piastra;
        default:
            return TipoElemento::saldatura;
    }
}

const DatiConfronto& Dati(Confronto c) { return kConfronti[static_cast<std::size_t>(c)]; }

const char* NomeConfronto(const Riscontro& r) { return Dati(r.confronto).nome; }

std::string NomeElemento(const Riscontro& r) {
    switch (Tipo(r.famiglia)) {
        case TipoElemento::bullone:
            return "bullone " + std::to_string(r.elemento);
        case TipoElemento::piastra:
            return "piastra " + std::to_string(r.elemento);
        default:
            return "saldatura " + NomeLinea(r.elemento);
    }
}

int NumeroElemento(const Riscontro& r) {
    return Tipo(r.famiglia) == TipoElemento::saldatura ? r.elemento + 1 : r.elemento;
}

std::span<const Riscontro> Esiti::Righe(int s) const {
    const EsitiSestetto& e = Sestetto(s);
    return std::span(righe).subspan(e.da, e.fine - e.da);
}

const Riscontro* Esiti::Peggiore(int s, Famiglia f) const {
    const int riga = Sestetto(s).peggiori[static_cast<std::size_t>(f)];
    return riga < 0 ? nullptr : &righe[static_cast<std::size_t>(riga)];
}

const Riscontro* Esiti::Peggiore(Famiglia f) const {
    const Riscontro* peggio = nullptr;
    for (int s = 0; s < Sestetti(); ++s) {
        const Riscontro* r = Peggiore(s, f);
        if (r != nullptr && (peggio == nullptr || r->rapporto > peggio->rapporto)) peggio = r;
    }
    return peggio;
}

const Riscontro* Esiti::Governa(int s) const {
    const int riga = Sestetto(s).governa;
    return riga < 0 ? nullptr : &righe[static_cast<std::size_t>(riga)];
}

double Esiti::Rapporto(int s) const {
    const Riscontro* r = Governa(s);
    return r == nullptr ? 0.0 : r->rapporto;
}

int Esiti::Falliti() const {
    return static_cast<int>(std::count_if(sestetti.begin(), sestetti.end(),
                                          [](const EsitiSestetto& e) { return !e.verificato; }));
}

bool Passano(std::span<const Riscontro> righe) {
    return std::all_of(righe.begin(), righe.end(), [](const Riscontro& r) { return r.passa; });
}

void GiudicaNodo(const Nodo& n, const Opzioni& opz, Risultati& ris) {
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    const Confronti confronti(n, opz, ris);
    ris.NodoVerificato = true;
    for (int s = 0; s < n.nSollAg; ++s) {
        if (slu) {
            for (int i = 1; i <= n.nBull; ++i) {
                ris.Co1(s, i) = Arrotonda(ris.Co1(s, i), 2);
                ris.Co2(s, i) = Arrotonda(ris.Co2(s, i), 2);
            }
            CalcolaSEq(s, ris);
        }
        bool passa = true;
        confronti.Sestetto(s, [&passa](const Riscontro& r) { passa = passa && r.passa; });
        ris.Verificato(s, 0) = passa ? 1 : 0;
        if (!passa) ris.NodoVerificato = false;
    }
}

void FormaEsiti(const Nodo& n, const Opzioni& opz, const Risultati& ris, Esiti& e) {
    const Confronti confronti(n, opz, ris);
    e.righe.clear();
    e.sestetti.clear();
    e.interruzioni = ris.Interruzioni;
    e.peggiore = -1;
    e.verificato = true;
    for (int s = 0; s < n.nSollAg; ++s) {
        EsitiSestetto q;
        q.da = e.righe.size();
        q.peggiori.fill(-1);
        const auto rapporto = [&e](int riga) {
            return e.righe[static_cast<std::size_t>(riga)].rapporto;
        };
        confronti.Sestetto(s, [&](const Riscontro& r) {
            int& peggio = q.peggiori[static_cast<std::size_t>(r.famiglia)];
            if (peggio < 0 || r.rapporto > rapporto(peggio)) {
                peggio = static_cast<int>(e.righe.size());
            }
            q.verificato = q.verificato && r.passa;
            e.righe.push_back(r);
        });
        q.fine = e.righe.size();
        for (const int p : q.peggiori) {
            if (p >= 0 && (q.governa < 0 || rapporto(p) > rapporto(q.governa))) q.governa = p;
        }
        e.sestetti.push_back(q);
        e.verificato = e.verificato && q.verificato;
        if (e.peggiore < 0 || e.Rapporto(s) > e.Rapporto(e.peggiore)) e.peggiore = s;
    }
}

Esiti EsitiDi(const Nodo& nodo, const Opzioni& opz, const Risultati& ris) {
    Esiti e;
    FormaEsiti(nodo, opz, ris, e);
    return e;
}

void RiassumiEsiti(const Nodo& n, const Opzioni& opz, const Risultati& ris,
                   std::span<SintesiEsiti> sintesi) {
    const Confronti confronti(n, opz, ris);
    for (int s = 0; s < n.nSollAg; ++s) {
        SintesiEsiti& q = sintesi[static_cast<std::size_t>(s)];
        q.presenti.fill(false);
        q.governa = -1;
        q.verificato = true;
        confronti.Sestetto(s, [&q](const Riscontro& r) {
            const auto f = static_cast<std::size_t>(r.famiglia);
            q.verificato = q.verificato && r.passa;
            if (q.presenti[f] && !(r.rapporto > q.peggiori[f].rapporto)) return;
            q.presenti[f] = true;
            q.peggiori[f] = r;
        });
        for (std::size_t f = 0; f < kFamiglie; ++f) {
            if (!q.presenti[f]) continue;
            if (q.governa < 0 || q.peggiori[f].rapporto > q.Governa().rapporto) {
                q.governa = static_cast<int>(f);
            }
        }
    }
}

SaldaturaTA VerificaSaldaturaTA(const Nodo& n, const FattoriTA& f, const Risultati& ris, int j,
                                int s, double k) {
    const double P = ris.MaxS_prp(s, j), pa = ris.Tau_pa(s, j), pe = ris.Tau_pe(s, j);
    const double a = n.acciaio.Samm * k;
    SaldaturaTA t;
    t.noto = f.noto;
    t.risultante = std::sqrt(P * P + pa * pa + pe * pe);
    t.somma = std::fabs(P) + std::fabs(pe);
    t.limiteSingola = f.singola * a;
    t.limiteSomma = f.somma * a;
    t.passaRisultante = f.noto && t.risultante <= t.limiteSingola &&
                        std::fabs(P) <= t.limiteSingola && pa <= t.limiteSingola &&
                        pe <= t.limiteSingola;
    t.passaSomma = f.noto && t.somma <= t.limiteSomma;
    return t;
}

RapportiElementi RapportiDi(const Esiti& esiti, int s) {
    RapportiElementi e;
    e.saldature.fill(-1.0);
    for (const Riscontro& r : esiti.Righe(s)) {
        const auto i = static_cast<std::size_t>(r.elemento);
        const TipoElemento tipo = Tipo(r.famiglia);
        if (tipo == TipoElemento::bullone && e.bulloni.size() <= i) e.bulloni.resize(i + 1, -1.0);
        double& x = tipo == TipoElemento::bullone   ? e.bulloni[i]
                    : tipo == TipoElemento::piastra ? e.piastre[i - 1]
                                                    : e.saldature[i];
        x = Max(x, r.rapporto);
    }
    return e;
}

}  // namespace tk07
