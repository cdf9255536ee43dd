#include "verification/interassi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/aritmetica.h"
#include "joint/geometria.h"

namespace tk07 {

namespace {

using Coordinate = Tab1<double, 0, kMaxBulloni>;
using Indici = std::array<int, kMaxBulloni>;

// Indices 1..n in ascending order of the key; equal keys keep their order.
Indici OrdinaIndici(const Coordinate& chiave, int n) {
    Indici ordine{};
    for (int i = 0; i < n; ++i) ordine[static_cast<std::size_t>(i)] = i + 1;
    std::stable_sort(ordine.begin(), ordine.begin() + n,
                     [&](int a, int b) { return chiave(a) < chiave(b); });
    return ordine;
}

using Distanze = std::vector<DistanzaBulloni>;

// Bolts 1..n by their coordinates and shanks.
struct Disposizione {
    const Coordinate &x, &y, &d;
    int n;
};

// The distances of one direction: edges plate by plate, far edge first, then the neighbours by
// ascending position.
class Passata {
  public:
    Passata(const Nodo& n, const Disposizione& b, double gioco, Norma norma, Direzione dir)
        : n_(n),
          b_(b),
          gioco_(gioco),
          dir_(dir),
          regola_(RegolaDi(norma, n.Esposizione)),
          passoMax_(regola_.PassoMassimo(Min(n.SpPiastra(1), n.SpPiastra(2)))),
          pos_(dir == Direzione::orizzontale ? b.x : b.y),
          trasv_(dir == Direzione::orizzontale ? b.y : b.x),
          ordine_(OrdinaIndici(pos_, b.n)) {}

    void Misura(Distanze& d) const {
        Bordi(d);
        Interassi(d);
    }

  private:
    double d0(int i) const { return b_.d(i) + gioco_; }
    int Ordinato(int a) const { return ordine_[static_cast<std::size_t>(a)]; }

    void Bordi(Distanze& d) const {
        const Geometria g = GeometriaDi(n_);
        const int primo = Ordinato(0), ultimo = Ordinato(b_.n - 1);
        for (int k = 1; k <= 2; ++k) {
            const Rettangolo& r = g.piastra(k);
            const bool orizz = dir_ == Direzione::orizzontale;
            const double lo = orizz ? r.xMin : r.yMin, hi = orizz ? r.xMax : r.yMax;
            // Absolute values: a bolt outside the plate is measured from outside.
            const double minimo = regola_.BordoMin(dir_);
            const double massimo = regola_.BordoMassimo(n_.SpPiastra(k), BordoIrrigidito(k, dir_));
            d.push_back({dir_, k, false, ultimo, 0, std::fabs(pos_(ultimo) - hi),
                         minimo * d0(ultimo), massimo});
            d.push_back({dir_, k, true, primo, 0, std::fabs(pos_(primo) - lo), minimo * d0(primo),
                         massimo});
        }
    }

    void Interassi(Distanze& d) const {
        for (int a = 0; a < b_.n - 1; ++a) {
            const int i = Ordinato(a);
            for (int b = a + 1; b < b_.n; ++b) {
                const int j = Ordinato(b);
                const double passo = std::fabs(pos_(j) - pos_(i));
                if (std::fabs(trasv_(j) - trasv_(i)) > passo * kTanCuneo) continue;
                // The first bolt on a row with i is its neighbour, and the only one measured.
                d.push_back({dir_, 0, false, i, j, passo,
                             regola_.PassoMin(dir_) * Min(d0(i), d0(j)), passoMax_});
                break;
            }
        }
    }

    const Nodo& n_;
    const Disposizione& b_;
    double gioco_;
    Direzione dir_;
    const RegolaDistanze& regola_;
    double passoMax_;
    const Coordinate& pos_;
    const Coordinate& trasv_;
    Indici ordine_;
};

constexpr std::size_t kBordi = 4;  // distances from edges that a direction begins with

// Boxes for the breaches of one direction; of the spacings only the first pair that breaks a rule.
bool Giudica(const Distanze& d, Norma norma, const Piattaforma& p) {
    bool rispettate = true;
    const auto messaggio = [&](const std::string& cosa) {
        const bool orizz = d.front().direzione == Direzione::orizzontale;
        MostraAvviso(p, "I bulloni non rispettano " + cosa + " in direzione " +
                            (orizz ? "orizzontale" : "verticale") +
                            (norma == Norma::NTC ? " (NTC 2018)" : " (CNR 10011/88)"));
        rispettate = false;
    };
    for (std::size_t k = 0; k < kBordi; k += 2) {
        const DistanzaBulloni &alto = d[k], &basso = d[k + 1];
        const std::string piastra = " dai bordi della piastra " + std::to_string(alto.piastra);
        if (!(alto.minimo <= alto.valore && basso.minimo <= basso.valore)) {
            messaggio("la distanza minima" + piastra);
        }
        if (!(alto.valore <= alto.massimo && basso.valore <= basso.massimo)) {
            messaggio("la distanza massima" + piastra);
        }
    }
    for (std::size_t k = kBordi; k < d.size(); ++k) {
        const bool corto = d[k].valore<d[k].minimo, lungo = d[k].valore> d[k].massimo;
        if (corto) messaggio("l'interasse minimo");
        if (lungo) messaggio("l'interasse massimo");
        if (corto || lungo) break;
    }
    return rispettate;
}

Distanze Misura(const Nodo& n, const Disposizione& b, const Opzioni& opz, Norma norma,
                Direzione dir) {
    Distanze d;
    if (b.n > 0) Passata(n, b, opz.ValOpz(kOpzTollForo), norma, dir).Misura(d);
    return d;
}

Distanze MisuraTutte(const Nodo& n, const Disposizione& b, const Opzioni& opz) {
    Distanze d = Misura(n, b, opz, NormaDi(n), Direzione::orizzontale);
    const Distanze v = Misura(n, b, opz, NormaDi(n), Direzione::verticale);
    d.insert(d.end(), v.begin(), v.end());
    return d;
}

bool Controlla(const Nodo& n, const Opzioni& opz, Norma norma, const Piattaforma& p) {
    if (n.nBull <= 0) return true;
    const Disposizione b{n.Xbull, n.Ybull, n.Fibull, n.nBull};
    const bool o = Giudica(Misura(n, b, opz, norma, Direzione::orizzontale), norma, p);
    const bool v = Giudica(Misura(n, b, opz, norma, Direzione::verticale), norma, p);
    return o && v;
}

}  // namespace

std::vector<DistanzaBulloni> DistanzeBulloni(const Nodo& n, const Opzioni& opz) {
    return MisuraTutte(n, {n.Xbull, n.Ybull, n.Fibull, n.nBull}, opz);
}

std::vector<DistanzaBulloni> DistanzeBulloni(const Nodo& n, const Opzioni& opz,
                                             const std::vector<PosizioneBullone>& bulloni) {
    Coordinate x, y, d;
    int quanti = 0;
    for (const PosizioneBullone& b : bulloni) {
        ++quanti;
        x(quanti) = b.x;
        y(quanti) = b.y;
        d(quanti) = b.d;
    }
    return MisuraTutte(n, {x, y, d, quanti}, opz);
}

bool ControllaBulloniNTC(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return Controlla(n, opz, Norma::NTC, p);
}

bool ControllaBulloniCNR(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return Controlla(n, opz, Norma::CNR, p);
}

bool ControllaBulloni(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return Controlla(n, opz, NormaDi(n), p);
}

}  // namespace tk07
