#include "joint/geometria.h"

#include <cmath>
#include <initializer_list>

#include "base/aritmetica.h"

namespace tk07 {

namespace {

constexpr Punto3 kX{1, 0, 0}, kXneg{-1, 0, 0}, kY{0, 1, 0}, kZ{0, 0, 1}, kZneg{0, 0, -1};

void Livelli(const Nodo& n, Geometria& g) {
    const ProfiloRec &pri = n.TraPri, &sec = n.TraSec;
    g.yS2 = (pri.H + n.HPiastra(1)) / 2.0 - n.distAliPriSec;
    g.yS = g.yS2 - sec.H;
    g.yAsse = g.yS2 - sec.H / 2.0;
    const double cima2 = g.yS2 + n.distAlaSecPiastra;
    g.piastra(1) = {-n.BPiastra(1) / 2.0, n.BPiastra(1) / 2.0, 0.0, n.HPiastra(1)};
    g.piastra(2) = {-n.BPiastra(2) / 2.0, n.BPiastra(2) / 2.0, cima2 - n.HPiastra(2), cima2};
    g.comune.xMax = Min(n.BPiastra(1) / 2.0, n.BPiastra(2) / 2.0);
    g.comune.xMin = -g.comune.xMax;
    g.comune.yMax = Min(n.HPiastra(1), cima2);
    g.comune.yMin = Max(0.0, cima2 - n.HPiastra(2));
    g.strisce.yInf1 = g.comune.yMin;
    g.strisce.yInf2 = Min(n.HPiastra(1), g.yS);
    g.strisce.ySup1 = Max(0.0, g.yS2);
    g.strisce.ySup2 = Min(cima2, n.HPiastra(1));
    g.sporto(1) = n.distAlaSecPiastra;
    g.sporto(2) = n.HPiastra(2) - n.distAlaSecPiastra - sec.H;
    for (int k = 1; k <= 2; ++k) g.sporge(k) = !(g.sporto(k) < n.spSaldS1);

    g.xP2 = pri.B / 2.0 + n.distPiastraTraPri;
    g.xP1 = g.xP2 - n.SpPiastra(1);
    g.xS = g.xP2 + n.SpPiastra(2);
    g.xAnima = pri.tw / 2.0;
    g.zAlaPri = pri.H / 2.0 - pri.tf;
    g.zS2 = pri.H / 2.0 - n.distAliPriSec;
    g.zS = g.zS2 - sec.H;
    g.zAsse = g.zS2 - sec.H / 2.0;
    g.zP1 = -n.HPiastra(1) / 2.0;
    g.zP12 = g.zP1 + n.HPiastra(1);
    g.zP22 = g.zS2 + n.distAlaSecPiastra;
    g.zP2 = g.zP22 - n.HPiastra(2);
}

void Nervature(const Nodo& n, Geometria& g) {
    for (int k = 1; k <= 3; ++k) {
        SagomaNervatura& r = g.nervatura(k);
        const double b = n.BNerv(k), h1 = n.H1Nerv(k), h2 = n.H2Nerv(k);
        r.attiva = k == 3 || n.AttNerv(k);
        r.conForma = r.attiva && h1 > 0.0 && b > 0.0 && n.SpNerv(k) > 0.0;
        const double m = Max(0.0, Min(n.SmussoNerv(k), Min(b, k == 3 ? h1 / 2.0 : h1)));
        r.smusso = m;
        if (k == 3) {
            // Both corners at the web are cut: they clear the beam's root fillets.
            const double x = g.xAnima, h = h1 / 2.0;
            r.zRadice = -h;
            r.yRadice = n.HPiastra(1) / 2.0 - h;
            r.nVertici = 6;
            r.contorno = {{{m, 0.0}, {b, 0.0}, {b, h1}, {m, h1}, {0.0, h1 - m}, {0.0, m}}};
            r.inNodo = {{{x + m, -h}, {g.xP1, -h}, {g.xP1, h}, {x + m, h}, {x, h - m}, {x, m - h}}};
            continue;
        }
        r.verso = k == 1 ? 1.0 : -1.0;
        r.zRadice = k == 1 ? g.zS2 : g.zS;
        r.yRadice = k == 1 ? g.yS2 : g.yS;
        r.nVertici = 5;
        r.contorno = {{{m, 0.0}, {b, 0.0}, {b, h2}, {0.0, h1}, {0.0, m}}};
        for (std::size_t i = 0; i < 5; ++i) {
            r.inNodo[i] = {g.xS + r.contorno[i][0], r.zRadice + r.verso * r.contorno[i][1]};
        }
    }
}

// Line at the rib's base (s12, s14).
double LunghezzaBase(const Nodo& n, const Geometria& g, int k) {
    const double a1 = n.spSaldS1, H1 = n.H1Nerv(k), H2 = n.H2Nerv(k), B = n.BNerv(k);
    if (H2 < a1 && H1 != H2) {  // the rib's tip is cut to a point
        return g.sporge(k) ? std::fabs((a1 - H2) / (H1 - H2) * B - B + a1) : B;
    }
    return g.sporge(k) ? B - a1 : B;
}

// Line along the rib's side on the plate (s13, s15); the rib has a width.
double LunghezzaLato(const Nodo& n, int k) {
    const double a1 = n.spSaldS1, H1 = n.H1Nerv(k), H2 = n.H2Nerv(k);
    return std::fabs(H1 - a1 - (H1 - H2) * a1 / n.BNerv(k));
}

Cordone& Fai(Geometria& g, const Nodo& n, int linea, bool previsto, double lunghezza) {
    Cordone& c = g.cordone(linea);
    const bool s2 = linea >= 4 && linea <= 9;
    c.gruppo = s2 ? GruppoSald::S2 : GruppoSald::S1;
    c.previsto = previsto;
    c.lato = s2 ? n.spSaldS2 : n.spSaldS1;
    c.gola = c.lato / std::sqrt(2.0);
    c.lunghezza = Int(lunghezza);
    return c;
}

void Posa(Cordone& c, const Punto3& da, const Punto3& a, const Punto3& uno, const Punto3& due) {
    c.da = da, c.a = a, c.versoUno = uno, c.versoDue = due;
}

// End of the secondary beam on plate 2.
void CordoniTrave(const Nodo& n, Geometria& g) {
    const ProfiloRec& s = n.TraSec;
    const double a1 = n.spSaldS1, xS = g.xS, yb = s.B / 2.0, zm = (g.zS + g.zS2) / 2.0;
    const double ala = (s.B / 2.0 - s.tw / 2.0) - Max(s.r, a1);
    Cordone& s1 = Fai(g, n, 1, true, s.H - 2.0 * s.tf - 2.0 * Max(s.r, a1));
    Cordone& s2 = Fai(g, n, 2, true, ala);
    Cordone& s3 = Fai(g, n, 3, true, ala);
    const double y1 = s.tw / 2.0, L1 = s1.lunghezza, L2 = s2.lunghezza;
    Posa(s1, {xS, y1, zm - L1 / 2.0}, {xS, y1, zm + L1 / 2.0}, kX, kY);
    Posa(s2, {xS, yb - L2, g.zS2 - s.tf}, {xS, yb, g.zS2 - s.tf}, kX, kZneg);
    Posa(s3, {xS, yb - s3.lunghezza, g.zS + s.tf}, {xS, yb, g.zS + s.tf}, kX, kZ);
    const double x1 = s.tw / 2.0 + s1.gola;
    s1.calcolo = {true, x1, x1, s.H / 2.0 - L1 / 2.0, s.H / 2.0 + L1 / 2.0};
    s2.calcolo = {true, s.B / 2.0 - L2, s.B / 2.0, s.H - s.tf, s.H - s.tf};
    s3.calcolo = {true, s.B / 2.0 - L2, s.B / 2.0, s.tf, s.tf};
}

// Outer face of flange k on plate 2, and rib k.
void CordoniNervatura(const Nodo& n, Geometria& g, int k) {
    const ProfiloRec& s = n.TraSec;
    const SagomaNervatura& r = g.nervatura(k);
    const double a1 = n.spSaldS1, xS = g.xS, yb = s.B / 2.0, z = r.zRadice;
    const Punto3& via = k == 1 ? kZ : kZneg;
    const bool sporge = g.sporge(k), nerv = r.attiva;

    Cordone& ala =
        Fai(g, n, 9 + k, sporge, !sporge ? 0.0 : (nerv ? (s.B - n.SpNerv(k)) / 2.0 - a1 : s.B));
    ala.doppio = nerv;
    Posa(ala, {xS, nerv ? yb - ala.lunghezza : -yb, z}, {xS, yb, z}, kX, via);
    const double yc = k == 1 ? s.H + ala.gola : -ala.gola;
    const double xc = nerv ? s.B / 2.0 - ala.lunghezza : -s.B / 2.0;
    ala.calcolo = {sporge, xc, s.B / 2.0, yc, yc};

    const bool nulla = nerv && n.BNerv(k) == 0.0;
    Cordone& base = Fai(g, n, 10 + 2 * k, nerv, nerv ? LunghezzaBase(n, g, k) : 0.0);
    Cordone& lato = Fai(g, n, 11 + 2 * k, nerv, nerv && !nulla ? LunghezzaLato(n, k) : 0.0);
    if (nulla) {
        lato.manca = k == 1 ? "larghezza della nervatura 1 (saldatura s13)"
                            : "larghezza della nervatura 2 (saldatura s15)";
    }
    // Where the plate stands out the base line starts behind the weld of the flange.
    const double yn = n.SpNerv(k) / 2.0, x0 = xS + (sporge ? a1 : 0.0), L = lato.lunghezza;
    Posa(base, {x0, yn, z}, {x0 + base.lunghezza, yn, z}, via, kY);
    const double da = z + via[2] * a1, a = da + via[2] * L;
    Posa(lato, {xS, yn, da}, {xS, yn, a}, kX, kY);
    const double x = n.SpNerv(k) / 2.0 + lato.gola;
    lato.calcolo = k == 1 ? EstremiCalcolo{nerv, x, x, s.H + a1, s.H + a1 + L}
                          : EstremiCalcolo{nerv, x, x, -(a1 + L), -a1};
}

// Plate 1 and rib 3 in the main beam.
void CordoniPrincipale(const Nodo& n, Geometria& g) {
    const ProfiloRec& t = n.TraPri;
    const double a2 = n.spSaldS2, m = n.SmussoNerv(3), z = g.zAlaPri, xP1 = g.xP1;
    const double traverso = n.BNerv(3) - m - a2;
    const double bordo = n.BPiastra(1) / 2.0 - n.SpNerv(3) / 2.0 - a2;
    Cordone& s4 = Fai(g, n, 4, true, t.H - 2.0 * t.tf - 2.0 * a2);
    Cordone& s5 = Fai(g, n, 5, true, traverso);
    Cordone& s6 = Fai(g, n, 6, true, t.H - 2.0 * t.tf - 2.0 * m);
    Cordone& s7 = Fai(g, n, 7, true, traverso);
    Cordone& s8 = Fai(g, n, 8, true, bordo);
    Cordone& s9 = Fai(g, n, 9, true, bordo);
    const double y3 = n.SpNerv(3) / 2.0, xs = g.xAnima + m, yp = n.BPiastra(1) / 2.0;
    Posa(s4, {xP1, y3, -s4.lunghezza / 2.0}, {xP1, y3, s4.lunghezza / 2.0}, kXneg, kY);
    Posa(s5, {xs, y3, z}, {xs + s5.lunghezza, y3, z}, kZneg, kY);
    Posa(s6, {g.xAnima, y3, -s6.lunghezza / 2.0}, {g.xAnima, y3, s6.lunghezza / 2.0}, kX, kY);
    Posa(s7, {xs, y3, -z}, {xs + s7.lunghezza, y3, -z}, kZ, kY);
    Posa(s8, {xP1, yp - s8.lunghezza, z}, {xP1, yp, z}, kXneg, kZneg);
    Posa(s9, {xP1, yp - s9.lunghezza, -z}, {xP1, yp, -z}, kXneg, kZ);
    const double x4 = n.SpNerv(3) / 2.0 + s4.gola;
    s4.calcolo = {true, x4, x4, -s4.lunghezza / 2.0, s4.lunghezza / 2.0};
    s8.calcolo = {true, yp - s8.lunghezza, yp, z, z};
    s9.calcolo = {true, yp - s9.lunghezza, yp, -z, -z};
}

}  // namespace

Geometria GeometriaDi(const Nodo& n) {
    Geometria g;
    Livelli(n, g);
    Nervature(n, g);
    CordoniTrave(n, g);
    CordoniNervatura(n, g, 1);
    CordoniNervatura(n, g, 2);
    CordoniPrincipale(n, g);
    return g;
}

const char* GrandezzaMancante(const Geometria& g) {
    for (int l = 1; l <= kCordoni; ++l) {
        if (g.cordone(l).manca != nullptr) return g.cordone(l).manca;
    }
    return nullptr;
}

Foro ForoInPiastra(const Nodo& n, const Geometria& g, int k, int i, double gioco) {
    const double base = k == 1 ? 0.0 : g.zP2 - g.zP1;
    return {n.Xbull(i), n.Ybull(i) - base, n.Fibull(i) + gioco};
}

std::vector<LineaSaldatura> LineeSaldatura(const Geometria& g) {
    std::vector<LineaSaldatura> v;
    v.reserve(2U * kCordoni);
    for (const int l : {1, 2, 3, 10, 12, 13, 11, 14, 15, 4, 5, 6, 7, 8, 9}) {
        const Cordone& c = g.cordone(l);
        if (!c.Presente()) continue;
        LineaSaldatura s{l - 1, c.da, c.a, c.versoUno, c.versoDue, c.lato};
        v.push_back(s);
        if (!c.doppio) continue;
        for (Punto3* p : {&s.da, &s.a, &s.versoUno, &s.versoDue}) (*p)[1] = -(*p)[1];
        s.indice += kSpecchio;
        v.push_back(s);
    }
    return v;
}

}  // namespace tk07
