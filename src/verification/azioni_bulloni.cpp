#include "verification/azioni_bulloni.h"

#include <cmath>
#include <string>

#include "base/aritmetica.h"

namespace tk07 {

GeometriaVerifica PreparaGeometria(const Nodo& n) {
    GeometriaVerifica g;
    double somma = 0.0, sx = 0.0, sy = 0.0;
    for (int i = 1; i <= n.nBull; ++i) {
        g.Area(i) = AreaResistente(n.Fibull(i));
        somma += g.Area(i);
        sx += g.Area(i) * n.Xbull(i);
        sy += g.Area(i) * n.Ybull(i);
    }
    if (somma != 0.0) {
        g.XG = sx / somma;
        g.YG = sy / somma;
    }
    for (int i = 1; i <= n.nBull; ++i) {
        const double dx = n.Xbull(i) - g.XG, dy = n.Ybull(i) - g.YG;
        g.Ip += g.Area(i) * (dx * dx + dy * dy);
    }
    g.distAzioni = n.TraPri.B / 2.0 + n.distPiastraTraPri + n.SpPiastra(2);
    g.yAsse = AsseSecondaria(n);
    return g;
}

bool Trasporta(const Nodo& n, int s, double distAzioni) {
    return (10.0 * n.MomZ(s) - distAzioni * n.TaglioY(s)) * n.MomZ(s) <= 0.0;
}

PoligonoCompresso PreparaPoligono(const Nodo& n, const GeometriaVerifica& geo) {
    PoligonoCompresso pol;
    const Rettangolo r = AreaComune(n);
    pol.polRifFisso = 1;
    pol.polRifY = geo.yAsse;
    pol.polNVert = 4;
    // In this order the solver's area is positive.
    const double x[] = {r.xMin, r.xMin, r.xMax, r.xMax};
    const double y[] = {r.yMin, r.yMax, r.yMax, r.yMin};
    for (int j = 1; j <= 4; ++j) {
        pol.polX(j) = x[j - 1];
        pol.polY(j) = y[j - 1];
    }
    pol.polNBarre = n.nBull;
    for (int i = 1; i <= n.nBull; ++i) {
        pol.barX(i) = n.Xbull(i);
        pol.barY(i) = n.Ybull(i);
        pol.barA(i) = geo.Area(i);
        pol.barE(i) = 1.0;
    }
    pol.Completa();
    return pol;
}

Tab1<double, 1, 3> AzioniPiano(const Nodo& n, const GeometriaVerifica& geo, int s) {
    const bool trasporta = Trasporta(n, s, geo.distAzioni);
    Tab1<double, 1, 3> a;
    a(1) = -10.0 * n.MomZ(s) + (trasporta ? geo.distAzioni * n.TaglioY(s) : 0.0);
    a(2) = -10.0 * n.MomY(s) + (trasporta ? geo.distAzioni * n.TaglioZ(s) : 0.0);
    a(3) = n.SforzoNormale(s);
    return a;
}

void DiciConvergenza(StatoPiano stato, const Piattaforma& p) {
    if (stato == StatoPiano::areeNegative) {
        MostraErrore(p, "Convergenza non raggiunta (la somma delle aree distribuite e' negativa).");
    } else if (stato == StatoPiano::nonConvergente) {
        MostraErrore(p, "Convergenza non raggiunta.");
    }
}

namespace {

// The plane on the bolts, and the largest compression over the vertices of the contact rectangle.
void PianoSuBulloni(const Nodo& n, const PoligonoCompresso& pol, const Piano& piano, int s,
                    Risultati& ris) {
    for (int k = 1; k <= 3; ++k) ris.Piano(s, k) = piano(k);
    for (int i = 1; i <= n.nBull; ++i) {
        ris.Sigma(s, i) = ValorePiano(piano, n.Xbull(i), n.Ybull(i));
    }
    for (int j = 1; j <= 4; ++j) {
        ris.Sig(s, 0) = Min(ris.Sig(s, 0), ValorePiano(piano, pol.polX(j), pol.polY(j)));
    }
}

}  // namespace

bool AzioniBulloni(const Nodo& n, const GeometriaVerifica& geo, Risultati& ris,
                   const Piattaforma& p) {
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    PoligonoCompresso pol = PreparaPoligono(n, geo);
    for (int s = 0; s < n.nSollAg; ++s) {
        const double Ty = n.TaglioY(s), Tz = n.TaglioZ(s);
        pol.polAzioni = AzioniPiano(n, geo, s);
        const PianoRisolto piano = RisolviPiano(pol);
        if (piano.stato != StatoPiano::equilibrio) {
            // Every set before has been solved, else the run would have ended there.
            if (s > 0) DiciConvergenza(piano.stato, p);
            MostraErrore(p,
                         "Sestetto di sollecitazione n°" + std::to_string(s + 1) +
                             ": situazione non equilibrata nel calcolo delle azioni sui bulloni");
            return false;
        }
        PianoSuBulloni(n, pol, piano.polPiano, s, ris);
        if (slu) {
            for (int i = 1; i <= n.nBull; ++i) ris.Ft_Ed(s, i) = geo.Area(i) * ris.Sigma(s, i);
        }
        const double Mtot = 10.0 * n.MomTorc(s) + (geo.YG - geo.yAsse) * Tz + geo.XG * Ty;
        const bool concentrati = !(geo.Ip > 0.0001);
        if (concentrati && std::fabs(Mtot) > 0.0001) {
            MostraErrore(p, "Non è possibile distribuire la torsione");
            return false;
        }
        for (int i = 1; i <= n.nBull; ++i) {
            const double A = geo.Area(i);
            double Vz = Tz / n.nBull, Vy = Ty / n.nBull;
            if (!concentrati) {
                // Both torsion terms bear the same sign: Ty is positive downwards.
                Vz = -(Mtot / geo.Ip) * (n.Ybull(i) - geo.YG) * A + Tz / n.nBull;
                Vy = -(Mtot / geo.Ip) * (n.Xbull(i) - geo.XG) * A + Ty / n.nBull;
            }
            const double V = std::sqrt(Vz * Vz + Vy * Vy);
            if (slu) {
                ris.Fv_Ed(s, i) = V;
            } else {
                ris.Tau(s, i) = V / A;
            }
        }
    }
    return true;
}

}  // namespace tk07
