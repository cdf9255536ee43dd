#include "verification/interassi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/aritmetica.h"

namespace tk07 {

namespace {

using Coordinate = Tab1<double, 0, kMaxBulloni>;
using Indici = std::array<int, kMaxBulloni>;

enum class Norma { NTC, CNR };
enum class Direzione { orizzontale, verticale };

struct Limiti {
    double bordoMin = 0.0;             // times d0
    std::array<double, 2> bordoMax{};  // mm, plates 1 and 2
    double passoMin = 0.0;             // times d0
    double passoMax = 0.0;             // mm
};

Limiti LimitiDi(const Nodo& n, Norma norma, Direzione dir) {
    const double tMin = Min(n.SpPiastra(1), n.SpPiastra(2));
    const bool orizz = dir == Direzione::orizzontale;
    Limiti l;
    for (int k = 1; k <= 2; ++k) {
        const double Sp = n.SpPiastra(k);
        double massimo = 0.0;
        if (norma == Norma::CNR) {
            massimo = (!orizz && k == 1 ? 9.0 : 6.0) * Sp;
        } else if (n.Esposizione == 0) {
            massimo = 4.0 * Sp + 40.0;
        } else if (n.Esposizione == 1) {
            massimo = 1e20;
        } else {
            massimo = Max(125.0, 8.0 * Sp);
        }
        l.bordoMax[static_cast<std::size_t>(k - 1)] = massimo;
    }
    if (norma == Norma::CNR) {
        l.bordoMin = orizz ? 1.5 : 2.0;
        l.passoMin = 3.0;
        l.passoMax = 15.0 * tMin;
    } else {
        l.bordoMin = 1.2;
        l.passoMin = orizz ? 2.4 : 2.2;
        l.passoMax = Min(14.0 * tMin, n.Esposizione == 0 || n.Esposizione == 1 ? 200.0 : 175.0);
    }
    return l;
}

// Indices 1..n in ascending order of the key; equal keys keep their order.
Indici OrdinaIndici(const Coordinate& chiave, int n) {
    Indici ordine{};
    for (int i = 0; i < n; ++i) ordine[static_cast<std::size_t>(i)] = i + 1;
    std::stable_sort(ordine.begin(), ordine.begin() + n,
                     [&](int a, int b) { return chiave(a) < chiave(b); });
    return ordine;
}

class Passata {
  public:
    Passata(const Nodo& n, double gioco, Norma norma, Direzione dir, const Piattaforma& p)
        : n_(n),
          gioco_(gioco),
          norma_(norma),
          dir_(dir),
          p_(p),
          lim_(LimitiDi(n, norma, dir)),
          pos_(dir == Direzione::orizzontale ? n.Xbull : n.Ybull),
          trasv_(dir == Direzione::orizzontale ? n.Ybull : n.Xbull),
          ordine_(OrdinaIndici(pos_, n.nBull)) {}

    bool Esegui() {
        Bordi();
        Interassi();
        return rispettate_;
    }

  private:
    double d0(int i) const { return n_.Fibull(i) + gioco_; }

    void Messaggio(const std::string& cosa) {
        MostraAvviso(p_, "I bulloni non rispettano " + cosa + " in direzione " +
                             (dir_ == Direzione::orizzontale ? "orizzontale" : "verticale") +
                             (norma_ == Norma::NTC ? " (NTC 2018)" : " (CNR 10011/88)"));
        rispettate_ = false;
    }

    void Bordi() {
        const int primo = ordine_[0];
        const int ultimo = ordine_[static_cast<std::size_t>(n_.nBull - 1)];
        for (int k = 1; k <= 2; ++k) {
            double lo = -n_.BPiastra(k) / 2.0, hi = n_.BPiastra(k) / 2.0;
            if (dir_ == Direzione::verticale) {
                const double cima2 = CimaPiastra2(n_);
                lo = k == 1 ? 0.0 : cima2 - n_.HPiastra(2);
                hi = k == 1 ? n_.HPiastra(1) : cima2;
            }
            // Absolute values: a bolt outside the plate is measured from outside.
            const double alto = std::fabs(pos_(ultimo) - hi), basso = std::fabs(pos_(primo) - lo);
            const std::string piastra = " dai bordi della piastra " + std::to_string(k);
            if (!(lim_.bordoMin * d0(ultimo) <= alto && lim_.bordoMin * d0(primo) <= basso)) {
                Messaggio("la distanza minima" + piastra);
            }
            const double massimo = lim_.bordoMax[static_cast<std::size_t>(k - 1)];
            if (!(alto <= massimo && basso <= massimo)) Messaggio("la distanza massima" + piastra);
        }
    }

    void Interassi() {
        const double tan30 = std::tan(kPi / 6.0);
        bool ferma = false;
        for (int a = 0; a < n_.nBull - 1 && !ferma; ++a) {
            const int i = ordine_[static_cast<std::size_t>(a)];
            for (int b = a + 1; b < n_.nBull; ++b) {
                const int j = ordine_[static_cast<std::size_t>(b)];
                const double passo = std::fabs(pos_(j) - pos_(i));
                if (std::fabs(trasv_(j) - trasv_(i)) > passo * tan30) continue;
                // The first bolt on a row with i is its neighbour, and the only one tested.
                if (passo < lim_.passoMin * Min(d0(i), d0(j))) {
                    Messaggio("l'interasse minimo");
                    ferma = true;
                }
                if (passo > lim_.passoMax) {
                    Messaggio("l'interasse massimo");
                    ferma = true;
                }
                break;
            }
        }
    }

    const Nodo& n_;
    double gioco_;
    Norma norma_;
    Direzione dir_;
    const Piattaforma& p_;
    Limiti lim_;
    const Coordinate& pos_;
    const Coordinate& trasv_;
    Indici ordine_;
    bool rispettate_ = true;
};

bool Controlla(const Nodo& n, const Opzioni& opz, Norma norma, const Piattaforma& p) {
    if (n.nBull <= 0) return true;
    const double gioco = opz.ValOpz(kOpzTollForo);
    const bool o = Passata(n, gioco, norma, Direzione::orizzontale, p).Esegui();
    const bool v = Passata(n, gioco, norma, Direzione::verticale, p).Esegui();
    return o && v;
}

}  // namespace

bool ControllaBulloniNTC(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return Controlla(n, opz, Norma::NTC, p);
}

bool ControllaBulloniCNR(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return Controlla(n, opz, Norma::CNR, p);
}

bool ControllaBulloni(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    return n.MetodoVerifica() == Metodo::TA ? ControllaBulloniCNR(n, opz, p)
                                            : ControllaBulloniNTC(n, opz, p);
}

}  // namespace tk07
