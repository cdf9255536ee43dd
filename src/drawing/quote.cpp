#include "drawing/quote.h"

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "drawing/etichette.h"

namespace tk07 {

std::vector<double> CentriSeparati(const std::vector<double>& voluti,
                                   const std::vector<double>& larghezze, double aria) {
    // Touching intervals make a group that sits where its members would be on average.
    struct Gruppo {
        std::size_t primo = 0, ultimo = 0;
        double somma = 0.0;  // of (wanted centre - place within the group)
        double Inizio() const { return somma / static_cast<double>(ultimo - primo + 1); }
        double lungo = 0.0;
    };
    std::vector<Gruppo> gruppi;
    for (std::size_t i = 0; i < voluti.size(); ++i) {
        gruppi.push_back({i, i, voluti[i] - (larghezze[i] + aria) / 2.0, larghezze[i] + aria});
        while (gruppi.size() > 1) {
            const Gruppo b = gruppi.back();
            Gruppo& a = gruppi[gruppi.size() - 2];
            if (a.Inizio() + a.lungo <= b.Inizio() + 1e-9) break;
            a.somma += b.somma - a.lungo * static_cast<double>(b.ultimo - b.primo + 1);
            a.lungo += b.lungo;
            a.ultimo = b.ultimo;
            gruppi.pop_back();
        }
    }
    std::vector<double> centri;
    for (const Gruppo& g : gruppi) {
        double x = g.Inizio();
        for (std::size_t i = g.primo; i <= g.ultimo; ++i) {
            centri.push_back(x + (larghezze[i] + aria) / 2.0);
            x += larghezze[i] + aria;
        }
    }
    return centri;
}

void DistendiTesti(std::vector<QuotaFig>& quote) {
    if (quote.empty()) return;
    const StileQuota stile = quote.front().stile;
    std::vector<double> voluti, larghezze, lunghezze;
    for (const QuotaFig& q : quote) {
        const bool verticale = std::fabs(q.x2 - q.x1) <= kCoincidenza;
        voluti.push_back(verticale ? (q.y1 + q.y2) / 2.0 : (q.x1 + q.x2) / 2.0);
        larghezze.push_back(LarghezzaTesto(TestoQuota(q), stile.largh));
        lunghezze.push_back(verticale ? q.y2 - q.y1 : q.x2 - q.x1);
    }
    const std::vector<double> centri = CentriSeparati(voluti, larghezze, 0.6 * stile.largh);
    double massimo = 0.0;
    bool ventaglio = false;
    for (std::size_t i = 0; i < quote.size(); ++i) {
        const double s = std::fabs(centri[i] - voluti[i]);
        massimo = Max(massimo, s);
        // A text that still stands over its own segment needs no leader.
        if (s > lunghezze[i] / 2.0) ventaglio = true;
    }
    const double guida =
        ventaglio ? Min(Max(0.4 * massimo, 1.2 * stile.alt), 6.0 * stile.alt) : 0.0;
    for (std::size_t i = 0; i < quote.size(); ++i) {
        quote[i].spostamento = centri[i] - voluti[i];
        quote[i].guida = guida;
    }
}

namespace {

// Does the chain keep clear of the figure's texts, and its own texts of the figure's strokes?
bool Libera(const Figura& f, const std::vector<QuotaFig>& catena) {
    Figura sola;
    for (const QuotaFig& q : catena) Quota(sola, q);
    for (const Ingombro& t : sola.scritte) {
        for (const Ingombro& u : f.scritte) {
            if (SiToccano(t, u)) return false;
        }
        for (const SegmentoFig& s : f.tratti) {
            if (SegmentoNelRiquadro(s, t)) return false;
        }
    }
    for (const Ingombro& u : f.scritte) {
        for (const SegmentoFig& s : sola.tratti) {
            if (SegmentoNelRiquadro(s, u)) return false;
        }
    }
    return true;
}

}  // namespace

void CatenaQuote(Figura& f, Lato lato, std::vector<double> punti, double bordo, double distanza,
                 const StileQuota& stile) {
    constexpr double kStessoPunto = 0.05;
    std::sort(punti.begin(), punti.end());
    std::vector<double> p;
    for (const double x : punti) {
        if (p.empty() || x - p.back() >= kStessoPunto) p.push_back(x);
    }
    if (p.size() < 2) return;

    const bool orizzontale = lato == Lato::sopra || lato == Lato::sotto;
    std::vector<QuotaFig> quote;
    for (std::size_t i = 1; i < p.size(); ++i) {
        QuotaFig q;
        q.stile = stile;
        // To the left of the reading direction: up for horizontal lines, leftwards for vertical.
        q.distanza = lato == Lato::sopra || lato == Lato::sinistra ? distanza : -distanza;
        if (orizzontale) {
            q.x1 = p[i - 1], q.x2 = p[i], q.y1 = q.y2 = bordo;
        } else {
            q.y1 = p[i - 1], q.y2 = p[i], q.x1 = q.x2 = bordo;
        }
        quote.push_back(q);
    }
    DistendiTesti(quote);
    // Farther out until the chain is clear of what the figure holds already.
    constexpr int kPassi = 400;
    const double passo = Max(stile.alt, 1.0);
    for (int k = 0; k < kPassi && !Libera(f, quote); ++k) {
        for (QuotaFig& q : quote) q.distanza += q.distanza < 0.0 ? -passo : passo;
    }
    for (QuotaFig& q : quote) Quota(f, std::move(q));
}

}  // namespace tk07
