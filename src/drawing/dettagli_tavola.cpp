// Details of plates and ribs, notes and weld table.

#include <algorithm>
#include <array>

#include "base/aritmetica.h"
#include "drawing/quote.h"
#include "drawing/viste.h"
#include "textnum/formatta.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

// Lines of a label under a detail, from the level of its lowest stroke downwards.
void EtichettaPezzo(Figura& f, const ContestoDis& c, const std::vector<std::string>& righe) {
    const StileQuota& q = c.par.quoteDettagli;
    const double passo = 1.7 * Max(q.alt, 1.0);
    double y = IngombroFigura(f).yMin - 2.0 * Max(q.alt, 1.0);
    for (const std::string& r : righe) {
        TestoFig t;
        t.testo = r;
        t.alt = q.alt;
        t.largh = q.largh;
        t.colore = q.colore;
        t.stile = q.stile;
        t.x = f.contorno.xMin;
        t.y = y - t.alt;
        Testo(f, std::move(t));
        y -= passo;
    }
}

// Distinct values in the order of the bolts, each behind `segno`, joined with commas.
template <class Valore>
std::string Elenco(const Nodo& n, const char* segno, Valore valore) {
    std::vector<std::string> v;
    for (int i = 1; i <= n.nBull; ++i) {
        const std::string t = segno + TestoNumero(valore(i));
        if (std::find(v.begin(), v.end(), t) == v.end()) v.push_back(t);
    }
    std::string r;
    for (const std::string& t : v) r += (r.empty() ? "" : ",") + t;
    return r;
}

}  // namespace

Figura DettaglioPiastra(const ContestoDis& c, int i) {
    const Nodo& n = c.nodo;
    const double b = n.BPiastra(i) / 2.0, h = n.HPiastra(i);
    Figura f;
    f.colore = c.par.coloreContorno;
    Rettangolo4(f, -b, 0.0, b, h);
    std::vector<double> colonne{-b, b}, righe{0.0, h};
    for (int k = 1; k <= n.nBull; ++k) {
        const auto [x, y, d] = ForoInPiastra(n, c.q, i, k, c.par.tolleranzaForo);
        const double r = 0.5 * d + 0.25 * n.Fibull(k);
        f.colore = c.par.coloreContorno;
        f.tipo = kContinua;
        Cerchio(f, x, y, d);
        f.colore = c.par.coloreSegni;
        f.tipo = kAsse;
        Segmento(f, x - r, y, x + r, y);
        Segmento(f, x, y - r, x, y + r);
        colonne.push_back(x);
        righe.push_back(y);
    }
    f.tipo = kContinua;
    f.contorno = {-b, b, 0.0, h};
    const StileQuota& q = c.par.quoteDettagli;
    if (n.nBull > 0) {
        CatenaQuote(f, Lato::sotto, colonne, 0.0, c.par.primaQuota, q);
        CatenaQuote(f, Lato::sinistra, righe, -b, c.par.primaQuota, q);
    }
    CatenaQuote(f, Lato::sopra, {-b, b}, h, c.par.primaQuota, q);
    CatenaQuote(f, Lato::destra, {0.0, h}, b, c.par.primaQuota, q);
    std::vector<std::string> righeTesto{"PIASTRA " + std::to_string(i),
                                        "spessore = " + TestoNumero(n.SpPiastra(i))};
    if (n.nBull > 0) {
        righeTesto.push_back(
            "fori " + Elenco(n, "]", [&](int k) { return n.Fibull(k) + c.par.tolleranzaForo; }));
        righeTesto.push_back("bulloni " + Elenco(n, "M", [&](int k) { return n.Fibull(k); }));
    }
    EtichettaPezzo(f, c, righeTesto);
    return f;
}

Figura DettaglioNervatura(const ContestoDis& c, int i) {
    const Nodo& n = c.nodo;
    const double b = n.BNerv(i), h1 = n.H1Nerv(i), h2 = n.H2Nerv(i);
    const SagomaNervatura& s = c.q.nervatura(i);
    const double m = s.smusso, alto = i == 3 ? h1 : Max(h1, h2);
    // As it stands on the joint: the plate or the web on the left, the flange below (rib 1, rib 3)
    // or above (rib 2).
    const auto y = [&](double v) { return i == 2 ? alto - v : v; };
    std::vector<std::pair<double, double>> contorno;
    for (int k = 0; k < s.nVertici; ++k) {
        const Punto2& p = s.contorno[static_cast<std::size_t>(k)];
        contorno.emplace_back(p[0], y(p[1]));
    }
    Figura f;
    f.colore = c.par.coloreContorno;
    const StileQuota& q = c.par.quoteDettagli;
    if (i == 3) {
        Spezzata(f, contorno, true);
        f.contorno = {0.0, b, 0.0, h1};
        if (m > 0.0) CatenaQuote(f, Lato::sinistra, {0.0, m, h1 - m, h1}, 0.0, c.par.primaQuota, q);
        if (m > 0.0) CatenaQuote(f, Lato::sotto, {0.0, m, b}, 0.0, c.par.primaQuota, q);
        CatenaQuote(f, Lato::sopra, {0.0, b}, h1, c.par.primaQuota, q);
        CatenaQuote(f, Lato::destra, {0.0, h1}, b, c.par.primaQuota, q);
        EtichettaPezzo(f, c, {"PIASTRA 3", "spessore = " + TestoNumero(n.SpNerv(3))});
        return f;
    }
    Spezzata(f, contorno, true);
    f.contorno = {0.0, b, 0.0, alto};
    std::vector<double> sinistra{y(0), y(h1)}, base{0.0, b};
    if (m > 0.0) {
        sinistra.push_back(y(m));
        base.push_back(m);
    }
    const Lato latoBase = i == 1 ? Lato::sotto : Lato::sopra;
    CatenaQuote(f, latoBase, base, i == 1 ? 0.0 : alto, c.par.primaQuota, q);
    CatenaQuote(f, Lato::sinistra, sinistra, 0.0, c.par.primaQuota, q);
    CatenaQuote(f, Lato::destra, {y(0), y(h2)}, b, c.par.primaQuota, q);
    EtichettaPezzo(
        f, c,
        {"PIASTRA " + std::to_string(i == 1 ? 4 : 5), "spessore = " + TestoNumero(n.SpNerv(i))});
    return f;
}

Figura NoteTavola(const ContestoDis& c) {
    const Nodo& n = c.nodo;
    std::vector<std::string> righe{"Piastre in acciaio tipo " + n.acciaio.Nome,
                                   "Viti classe " + n.vite.Nome};
    if (c.par.latoSaldature) {
        righe.push_back("Lato saldature su trave sec. " + TestoNumero(n.spSaldS1));
        righe.push_back("Lato saldature su trave princ. " + TestoNumero(n.spSaldS2));
    }
    Figura f;
    double y = 0.0;
    for (const std::string& r : righe) {
        Testo(f, TestoNota(c, r, 0.0, y));
        y -= 1.8 * Max(c.par.etichette.alt, 1.0);
    }
    return f;
}

Figura TabellaSaldature(const ContestoDis& c) {
    const double alt = c.par.tabellaAlt, largh = c.par.rapporto * alt;
    struct Riga {
        std::array<std::string, 3> celle;
    };
    std::vector<Riga> righe{{{"Descr.", "Lungh.", "Lato"}}};
    for (int j = 1; j <= 15; ++j) {
        const Cordone& linea = c.q.cordone(j);
        if (!linea.Presente()) continue;
        std::string nome = NomeLinea(j - 1);
        if (linea.doppio) nome += "/" + NomeLinea(j - 1 + kSpecchio);
        righe.push_back({{nome, TestoNumero(linea.lunghezza), TestoNumero(linea.lato)}});
    }
    double colonna = c.par.tabellaColonna;
    for (const Riga& r : righe) {
        for (const std::string& t : r.celle) colonna = Max(colonna, LarghezzaTesto(t, largh) + alt);
    }
    const double alto = Max(c.par.tabellaRiga, 1.5 * alt), largo = 3.0 * colonna;
    Figura f;
    f.colore = c.par.etichette.colore;
    const auto scrivi = [&](const std::string& t, double x, double y, double larghezza) {
        TestoFig s;
        s.testo = t;
        s.alt = alt;
        s.largh = largh;
        s.colore = c.par.etichette.colore;
        s.stile = StileTesto::piccolo;
        s.x = x + (larghezza - LarghezzaTesto(t, largh)) / 2.0;
        s.y = y + (alto - alt) / 2.0;
        Testo(f, std::move(s));
    };
    scrivi("TABELLA SALDATURE", 0.0, 0.0, Max(largo, 0.0));
    double y = 0.0;
    Segmento(f, 0.0, 0.0, largo, 0.0);
    for (const Riga& r : righe) {
        y -= alto;
        for (std::size_t k = 0; k < 3; ++k) {
            scrivi(r.celle[k], static_cast<double>(k) * colonna, y, colonna);
        }
        Segmento(f, 0.0, y, largo, y);
    }
    for (int k = 0; k <= 3; ++k) Segmento(f, k * colonna, 0.0, k * colonna, y);
    return f;
}

}  // namespace tk07
