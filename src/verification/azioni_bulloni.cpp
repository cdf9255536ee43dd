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

void PreparaPoligono(const Nodo& n, const GeometriaVerifica& geo, PoligonoCompresso& pol) {
    const Rettangolo r = AreaComune(n);
    pol.polRifFisso = 1;
    pol.polRifX = 0.0;
    pol.polRifY = geo.yAsse;
    pol.polNonTaglia = 0;
    pol.polSoloY = 0;
    pol.polNum = 1;
    pol.polNVert = 4;
    // In this order the solver's area is positive.
    const double x[] = {r.xMin, r.xMin, r.xMax, r.xMax};
    const double y[] = {r.yMin, r.yMax, r.yMax, r.yMin};
    for (int j = 1; j <= 4; ++j) {
        pol.polX(j) = x[j - 1];
        pol.polY(j) = y[j - 1];
    }
    pol.polTipo = 0;
    pol.polE = pol.polERif = 1.0;
    pol.polEps0.Riempi(0.0);
    pol.polNBarre = n.nBull;
    for (int i = 1; i <= n.nBull; ++i) {
        pol.barX(i) = n.Xbull(i);
        pol.barY(i) = n.Ybull(i);
        pol.barA(i) = geo.Area(i);
        pol.barPol(i) = 1;
        pol.barEps0(i) = 0.0;
        pol.barE(i) = 1.0;
    }
    pol.polScarto(1) = pol.polScarto(2) = 100.0;
    pol.polScarto(3) = 0.01;
}

namespace {

// The plane on the bolts, and the largest compression over the vertices of the contact rectangle.
void PianoSuBulloni(const Nodo& n, const PoligonoCompresso& pol, int s, Risultati& ris) {
    for (int k = 1; k <= 3; ++k) ris.Piano(s, k) = pol.polPiano(k);
    for (int i = 1; i <= n.nBull; ++i) {
        ris.Sigma(s, i) = ValorePiano(pol.polPiano, n.Xbull(i), n.Ybull(i));
    }
    for (int j = 1; j <= 4; ++j) {
        ris.Sig(s, 0) = Min(ris.Sig(s, 0), ValorePiano(pol.polPiano, pol.polX(j), pol.polY(j)));
    }
}

}  // namespace

bool AzioniBulloni(const Nodo& n, const GeometriaVerifica& geo, PoligonoCompresso& pol,
                   Risultati& ris, const Piattaforma& p) {
    const bool slu = n.MetodoVerifica() == Metodo::SLU;
    short flag = 0;  // kept from one load set to the next
    PreparaPoligono(n, geo, pol);
    for (int s = 0; s < n.nSollAg; ++s) {
        const double Ty = n.TaglioY(s), Tz = n.TaglioZ(s);
        const bool trasporta = Trasporta(n, s, geo.distAzioni);
        pol.polAzioni(1) = -10.0 * n.MomZ(s) + (trasporta ? geo.distAzioni * Ty : 0.0);
        pol.polAzioni(2) = -10.0 * n.MomY(s) + (trasporta ? geo.distAzioni * Tz : 0.0);
        pol.polAzioni(3) = n.SforzoNormale(s);
        pol.RisolviPiano(flag, p);
        if (flag == 0) {
            MostraErrore(p,
                         "Sestetto di sollecitazione n°" + std::to_string(s + 1) +
                             ": situazione non equilibrata nel calcolo delle azioni sui bulloni");
            return false;
        }
        PianoSuBulloni(n, pol, s, ris);
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
