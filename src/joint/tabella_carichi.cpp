#include "joint/tabella_carichi.h"

#include <algorithm>
#include <cmath>

#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

using TabellaAzioni = Tab1<double, 0, kMaxSestetto>;

// In the order of the action codes 1..6.
constexpr std::array<TabellaAzioni Nodo::*, 6> kAzioni = {
    &Nodo::SforzoNormale, &Nodo::TaglioY, &Nodo::TaglioZ, &Nodo::MomTorc, &Nodo::MomY, &Nodo::MomZ};

double& Azione(Nodo& n, int codice, int k) {
    PRETENDI(codice >= 1 && codice <= 6, "codice di azione errato");
    return (n.*kAzioni[static_cast<std::size_t>(codice - 1)])(k);
}

struct Sestetto {
    std::array<double, 6> azioni{};
    short caso = 0;
    std::string nome;
};

Sestetto Leggi(const Nodo& n, int k) {
    Sestetto s;
    for (int a = 1; a <= 6; ++a) s.azioni[static_cast<std::size_t>(a - 1)] = ValoreSoll(n, a, k);
    s.caso = n.CasoCarico(k);
    s.nome = n.NomeSa(k);
    return s;
}

void Scrivi(Nodo& n, int k, const Sestetto& s) {
    for (int a = 1; a <= 6; ++a) Azione(n, a, k) = s.azioni[static_cast<std::size_t>(a - 1)];
    n.CasoCarico(k) = s.caso;
    n.NomeSa(k) = s.nome;
}

// Load case and actions of a set, without its description.
struct Cifre {
    std::array<double, 6> azioni{};
    short caso = 0;
};

bool Uguali(const Cifre& a, const Cifre& b) {
    constexpr double kTolleranza = 0.0001;  // daN, daN cm
    if (a.caso != b.caso) return false;
    for (std::size_t k = 0; k < a.azioni.size(); ++k) {
        if (!(std::fabs(a.azioni[k] - b.azioni[k]) < kTolleranza)) return false;
    }
    return true;
}

}  // namespace

double ValoreSoll(const Nodo& n, int codice, int k) {
    PRETENDI(codice >= 1 && codice <= 6, "codice di azione errato");
    return (n.*kAzioni[static_cast<std::size_t>(codice - 1)])(k);
}

void ImpostaSoll(Nodo& n, double valore, int codice, int k, std::span<const std::string> testi) {
    if (codice == 7) {
        const auto i = static_cast<std::size_t>(valore);
        PRETENDI(valore >= 0.0 && i < testi.size(), "descrizione di sestetto inesistente");
        n.NomeSa(k) = testi[i];
        return;
    }
    Azione(n, codice, k) = valore;
}

void SaScambio_(Nodo& n, int a, int b) { Scrivi(n, a, Leggi(n, b)); }

void SaAzzera_(Nodo& n, int k) {
    for (int a = 1; a <= 6; ++a) Azione(n, a, k) = 0.0;
    n.CasoCarico(k) = 0;
}

void RimozioneSoll(Nodo& n, int k) {
    const int ultimo = n.nSollAg;
    for (int i = k; i < ultimo - 1; ++i) SaScambio_(n, i, i + 1);
    // The slot that becomes free is blank; with a full table there is none behind it.
    const int libero = ultimo - 1;
    SaAzzera_(n, libero);
    n.NomeSa(libero).clear();
    if (ultimo <= kMaxSestetto) {
        SaAzzera_(n, ultimo);
        n.NomeSa(ultimo).clear();
    }
    n.nSollAg = static_cast<short>(ultimo - 1);
}

void AssegnaSestetto(Nodo& n, int k, double N, double Tz, double Ty, double Mt, double My,
                     double Mz, const std::string& descrizione) {
    n.SforzoNormale(k) = N;
    n.TaglioZ(k) = Tz;
    n.TaglioY(k) = Ty;
    n.MomTorc(k) = Mt;
    n.MomY(k) = My;
    n.MomZ(k) = Mz;
    n.NomeSa(k) = descrizione;
}

bool AggiungiSestetto(Nodo& n) {
    constexpr int kLimite = kMaxSestetto - 1;
    if (!(n.nSollAg + 1 < kLimite)) return false;
    const int k = n.nSollAg++;
    SaAzzera_(n, k);
    n.NomeSa(k) = "Soll " + std::to_string(k + 1);
    return true;
}

void RimuoviSestetto(Nodo& n, int k) {
    if (n.nSollAg < 1) return;
    for (int i = k; i <= n.nSollAg - 2; ++i) SaScambio_(n, i, i + 1);
    --n.nSollAg;
}

bool EliminaDoppiSoll(Nodo& n) {
    const int prima = n.nSollAg;
    std::vector<Cifre> cifre(static_cast<std::size_t>(std::max(prima, 0)));
    std::vector<int> restano(cifre.size());  // slots of the sets that stay, in order
    for (int k = 0; k < prima; ++k) {
        const auto posto = static_cast<std::size_t>(k);
        for (int a = 1; a <= 6; ++a) {
            cifre[posto].azioni[static_cast<std::size_t>(a - 1)] = ValoreSoll(n, a, k);
        }
        cifre[posto].caso = n.CasoCarico(k);
        restano[posto] = k;
    }
    const auto doppio = [&](std::size_t i, std::size_t j) {
        return Uguali(cifre[static_cast<std::size_t>(restano[i])],
                      cifre[static_cast<std::size_t>(restano[j])]);
    };
    // A set looks for its like from the top of the table on, and the like goes. The sets between
    // the first one and set i have had their turn and none is like another: what is like set i is
    // the first set or comes behind. The first set itself never looks.
    for (std::size_t i = 1; i < restano.size();) {
        if (doppio(i, 0)) {
            restano.erase(restano.begin());
            i = std::max<std::size_t>(i - 1, 1);
            continue;
        }
        for (std::size_t j = i + 1; j < restano.size();) {
            if (doppio(i, j)) {
                restano.erase(restano.begin() + static_cast<std::ptrdiff_t>(j));
            } else {
                ++j;
            }
        }
        ++i;
    }
    const int dopo = static_cast<int>(restano.size());
    if (dopo == prima || prima <= 0) return false;
    for (int k = 0; k < dopo; ++k) {
        const int da = restano[static_cast<std::size_t>(k)];
        if (da != k) SaScambio_(n, k, da);
    }
    // The slots that become free are blank, and so is the one behind the old end.
    for (int k = dopo; k <= std::min(prima, kMaxSestetto); ++k) {
        SaAzzera_(n, k);
        n.NomeSa(k).clear();
    }
    n.nSollAg = static_cast<short>(dopo);
    return true;
}

void MaxMinSoll(Nodo& n) {
    EliminaDoppiSoll(n);
    struct Famiglia {
        bool presente = false;
        std::array<Sestetto, 6> massimo, minimo;
    };
    std::array<Famiglia, 2> famiglie;
    for (int k = 0; k < n.nSollAg; ++k) {
        const Sestetto s = Leggi(n, k);
        Famiglia& f = famiglie[s.caso == 0 ? 0 : 1];
        if (!f.presente) {
            f.presente = true;
            f.massimo.fill(s);
            f.minimo.fill(s);
        }
        for (std::size_t a = 0; a < 6; ++a) {
            if (s.azioni[a] > f.massimo[a].azioni[a]) f.massimo[a] = s;
            if (s.azioni[a] < f.minimo[a].azioni[a]) f.minimo[a] = s;
        }
    }
    n.nSollAg = 0;
    for (std::size_t caso = 0; caso < 2; ++caso) {
        Famiglia& f = famiglie[caso];
        if (!f.presente) continue;
        for (std::size_t a = 0; a < 6; ++a) {
            for (Sestetto* s : {&f.massimo[a], &f.minimo[a]}) {
                s->caso = static_cast<short>(caso);
                Scrivi(n, n.nSollAg++, *s);
            }
        }
    }
    EliminaDoppiSoll(n);
}

void PreparaMaxMinSoll(Nodo& n) {
    constexpr double kInfinito = 1e20;
    n.nSollAg = 12;
    for (int k = 0; k < 12; ++k) {
        const double x = k % 2 == 0 ? -kInfinito : kInfinito;
        AssegnaSestetto(n, k, x, x, x, x, x, x, "");
        n.CasoCarico(k) = 0;
    }
}

void VagliaMaxMinSoll(Nodo& n, double N, double Tz, double Ty, double Mt, double My, double Mz,
                      const std::string& descrizione) {
    struct Coppia {
        double valore;
        TabellaAzioni Nodo::*azione;
    };
    const Coppia coppie[] = {{N, &Nodo::SforzoNormale}, {Tz, &Nodo::TaglioZ}, {Ty, &Nodo::TaglioY},
                             {My, &Nodo::MomY},         {Mz, &Nodo::MomZ},    {Mt, &Nodo::MomTorc}};
    int slot = 0;
    for (const Coppia& c : coppie) {
        const auto prende = [&](int k) {
            AssegnaSestetto(n, k, N, Tz, Ty, Mt, My, Mz, descrizione);
        };
        if (c.valore > (n.*c.azione)(slot)) prende(slot);
        if (c.valore < (n.*c.azione)(slot + 1)) prende(slot + 1);
        slot += 2;
    }
}

bool EsportaSollecitazioni(const Nodo& n, const Unita& u, std::string_view percorso,
                           const AzioniEsportate& con, int quanti, int primo,
                           const Piattaforma& p) {
    std::string t = "Unità di misura: \t" + u.UnitaForze + "\t" + u.UnitaLunghezze +
                    "\nses\tdescr.Ses.\tN\tTy\tTz\tMt\tMy\tMz\n";
    for (int k = primo; k < primo + quanti; ++k) {
        t += std::to_string(k + 1) + "\t" + Taglia(TogliCR(n.NomeSa(k)));
        for (int a = 1; a <= 6; ++a) {
            const double f = a <= 3 ? u.FattoreForze : u.FattoreMomenti;
            const bool scritta = con[static_cast<std::size_t>(a - 1)];
            t += "\t" + (scritta ? TestoReale(ValoreSoll(n, a, k) * f) : "0");
        }
        t += "\n";
    }
    const std::string errore = ScriviFile(percorso, t, Codifica::windows1252);
    if (errore.empty()) return true;
    MostraErrore(p, "Impossibile esportare le sollecitazioni in " + PercorsoMostrato(percorso) +
                        "\n" + errore);
    return false;
}

}  // namespace tk07
