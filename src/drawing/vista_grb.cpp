#include "drawing/vista_grb.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/aritmetica.h"
#include "base/errore.h"
#include "drawing/parametri_tavola.h"
#include "drawing/quote.h"

namespace tk07 {

namespace {

// The options' drawing rows; without them the colours of the shipped ones.
ParametriDisegno Parametri(const Opzioni& opz) {
    if (opz.Righe.size() >= kMinimoRigheOpzioni) return LeggiParametriDisegno(opz);
    ParametriDisegno p;
    p.quoteViste.colore = p.quoteDettagli.colore = p.etichette.colore = 2;
    p.coloreSegni = 6;
    return p;
}

struct Lettore {
    const DisegnoGrb& g;
    const StiliGrb& stili;
    const ParametriDisegno par;

    double X(int i) const { return g.base.coordX[static_cast<std::size_t>(i)]; }
    double Y(int i) const { return g.base.coordY[static_cast<std::size_t>(i)]; }
    // A style that the model does not have is as high as the options say.
    StileGrb Stile(short da1) const {
        const std::size_t i = da1 >= 1 ? static_cast<std::size_t>(da1) - 1 : 0;
        if (i < stili.Stili.size()) return stili.Stili[i];
        const double alt = da1 == static_cast<short>(StileTesto::piccolo)       ? par.tabellaAlt
                           : da1 == static_cast<short>(StileTesto::titoloVista) ? par.titoloVista
                           : da1 == static_cast<short>(StileTesto::titoloTavola)
                               ? par.titoloTavola
                               : par.etichette.alt;
        return {alt, par.rapporto * alt, 0};
    }

    TestoFig Testo(const TestoGrb& t) const {
        const StileGrb s = Stile(t.testoStile);
        TestoFig r;
        r.testo = t.testoStringa;
        r.angolo = t.testoAngolo;
        r.alt = s.stileAltezza;
        r.largh = s.stileLarghezza;
        r.colore = t.testoStile == static_cast<short>(StileTesto::titoloVista)
                       ? par.coloreSegni
                       : par.etichette.colore;
        // The insertion point is the middle or the end of the base line.
        const double indietro = t.testoAllineamento == 1   ? 0.5
                                : t.testoAllineamento == 2 ? 1.0
                                                           : 0.0;
        const double largo = indietro * LarghezzaTesto(r.testo, r.largh);
        r.x = X(t.testoCoord) - largo * std::cos(t.testoAngolo * kPi / 180.0);
        r.y = Y(t.testoCoord) - largo * std::sin(t.testoAngolo * kPi / 180.0);
        return r;
    }

    QuotaFig Quota(const QuotaGrb& q) const {
        QuotaFig r;
        r.x1 = X(q.quotaP1), r.y1 = Y(q.quotaP1), r.x2 = X(q.quotaP2), r.y2 = Y(q.quotaP2);
        r.distanza = q.quotaOffset;
        if (q.quotaTesto != kTestoPredefinito) r.testo = q.quotaTesto;
        r.stile = q.quotaStile == static_cast<short>(StileTesto::piccolo) ? par.quoteDettagli
                                                                          : par.quoteViste;
        r.stile.alt = Stile(q.quotaStile).stileAltezza;
        r.stile.largh = Stile(q.quotaStile).stileLarghezza;
        return r;
    }
};

// Does the dimension go on where the other ends?
bool Continua(const QuotaGrb& prima, const QuotaGrb& dopo, const Lettore& l) {
    return prima.quotaDir == dopo.quotaDir && dopo.quotaDir != "P" &&
           prima.quotaStile == dopo.quotaStile && prima.quotaOffset == dopo.quotaOffset &&
           std::fabs(l.X(prima.quotaP2) - l.X(dopo.quotaP1)) < kCoincidenza &&
           std::fabs(l.Y(prima.quotaP2) - l.Y(dopo.quotaP1)) < kCoincidenza;
}

}  // namespace

bool MostraGrb(const DisegnoGrb& g, const StiliGrb& stili, const Opzioni& opz, Disegno& d,
               std::string& errore) {
    try {
        const Lettore l{g, stili, Parametri(opz)};
        Figura f;
        for (const TestoGrb& t : g.testi) Testo(f, l.Testo(t));
        for (std::size_t i = 0; i < g.quote.size();) {
            std::vector<QuotaFig> catena{l.Quota(g.quote[i])};
            for (++i; i < g.quote.size() && Continua(g.quote[i - 1], g.quote[i], l); ++i) {
                catena.push_back(l.Quota(g.quote[i]));
            }
            DistendiTesti(catena);
            for (QuotaFig& q : catena) Quota(f, std::move(q));
        }
        Disegno r = g.base;
        EmettiFigura(f, 0.0, 0.0, r, PiattaformaMuta());
        d = std::move(r);
        return true;
    } catch (const ErroreFatale& e) {
        errore = e.what();
        return false;
    }
}

}  // namespace tk07
