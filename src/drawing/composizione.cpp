#include "drawing/composizione.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "drawing/viste.h"

namespace tk07 {

namespace {

// Proportions of what the standard sheets leave free above the title block.
constexpr double kRapportoFoglio = 1.6;

struct Zona {
    double x = 0.0, y = 0.0;  // upper left corner
    double larghezza = 0.0;   // of a shelf, before the next one begins
};

// Places figures from the left to the right and, where a shelf is full, in the next one below.
// Returns what they cover.
Ingombro Scaffali(std::span<FiguraPosta> figure, const Zona& z, double aria) {
    Ingombro tutto;
    double x = z.x, y = z.y, alto = 0.0;
    for (FiguraPosta& f : figure) {
        const Ingombro i = IngombroFigura(f.figura);
        if (x > z.x && x + i.Larghezza() > z.x + z.larghezza) {
            x = z.x;
            y -= alto + aria;
            alto = 0.0;
        }
        f.x = x - i.xMin;
        f.y = y - i.yMax;
        Allarga(tutto, x, y);
        Allarga(tutto, x + i.Larghezza(), y - i.Altezza());
        x += i.Larghezza() + aria;
        alto = Max(alto, i.Altezza());
    }
    return tutto;
}

Ingombro Posto(const FiguraPosta& f) {
    const Ingombro i = IngombroFigura(f.figura);
    return {i.xMin + f.x, i.xMax + f.x, i.yMin + f.y, i.yMax + f.y};
}

// Size of the sheet that the rectangle asks for, as its height.
double Misura(const Ingombro& i) { return Max(i.Larghezza() / kRapportoFoglio, i.Altezza()); }

// Sections aligned in the corner at the upper left; the rest in shelves under BB and to the right,
// split and as wide as the smallest sheet wants it.
void Disponi(std::vector<FiguraPosta>& v, double aria) {
    constexpr std::size_t kSezioni = 3;
    FiguraPosta &cc = v[0], &bb = v[1], &aa = v[2];
    const Ingombro iCC = IngombroFigura(cc.figura), iBB = IngombroFigura(bb.figura),
                   iAA = IngombroFigura(aa.figura);
    cc.x = cc.y = 0.0;
    aa.x = 0.0;  // the axis of the main beam above itself
    aa.y = iCC.yMin - aria - iAA.yMax;
    const double destraSezioni = Max(iCC.xMax, iAA.xMax);
    bb.y = 0.0;  // the same levels as in CC
    bb.x = destraSezioni + aria - iBB.xMin;
    Ingombro sezioni;
    for (const FiguraPosta* f : {&cc, &bb, &aa}) Allarga(sezioni, Posto(*f));

    std::vector<FiguraPosta> altre(std::make_move_iterator(v.begin() + kSezioni),
                                   std::make_move_iterator(v.end()));
    v.resize(kSezioni);
    std::vector<double> larghezze;
    double somma = 0.0, massimo = 0.0;
    for (const FiguraPosta& f : altre) {
        const double w = IngombroFigura(f.figura).Larghezza();
        massimo = Max(massimo, w);
        somma += w + aria;
    }
    for (int k = 1; k <= 6; ++k) larghezze.push_back(Max(massimo, somma * k / 6.0));
    const auto sotto = [&](double w) {
        return Zona{destraSezioni + aria, Posto(bb).yMin - aria, w};
    };
    const auto prova = [&](std::vector<FiguraPosta>& f, std::size_t k, double w1, double w2) {
        Ingombro tutto = sezioni;
        Allarga(tutto, Scaffali(std::span(f).first(k), sotto(w1), aria));
        const Zona destra{tutto.xMax + aria, tutto.yMax, w2};
        Allarga(tutto, Scaffali(std::span(f).subspan(k), destra, aria));
        return Misura(tutto);
    };
    double minimo = 1e300;
    std::size_t k0 = 0;
    double w10 = 0.0, w20 = 0.0;
    // The boxes are what counts while trying: figures without their strokes.
    std::vector<FiguraPosta> sagome;
    for (const FiguraPosta& f : altre) {
        const Ingombro i = IngombroFigura(f.figura);
        sagome.emplace_back();
        sagome.back().figura.scritte.push_back(i);
    }
    for (std::size_t k = 0; k <= sagome.size(); ++k) {
        for (const double w1 : larghezze) {
            for (const double w2 : larghezze) {
                const double m = prova(sagome, k, w1, w2);
                if (m < minimo - 1e-9) minimo = m, k0 = k, w10 = w1, w20 = w2;
            }
        }
    }
    prova(altre, k0, w10, w20);
    for (FiguraPosta& f : altre) v.push_back(std::move(f));
}

// Lines of the title: one, and more where it is wider than the sheet.
std::vector<std::string> RigheTitolo(const std::string& titolo, double largh, double larghezza) {
    if (LarghezzaTesto(titolo, largh) <= larghezza) return {titolo};
    std::vector<std::string> righe(1);
    for (const std::string& parte : Dividi(titolo, ',')) {
        if (!righe.back().empty() &&
            LarghezzaTesto(righe.back() + parte + ",", largh) > larghezza) {
            righe.emplace_back();
        }
        righe.back() += parte + ",";
    }
    righe.back().pop_back();
    return righe;
}

// Frame round everything, and the title in its block at the lower right.
FiguraPosta Cornice(const Nodo& n, const ParametriDisegno& par, const Ingombro& tutto) {
    FiguraPosta fp;
    fp.nome = "titolo";
    Figura& f = fp.figura;
    const double alt = par.titoloTavola, largh = par.rapporto * alt, h = Max(alt, 1.0);
    const double margine = Max(par.distanzaTitolo, 0.6 * h);
    const std::vector<std::string> righe =
        RigheTitolo(TitoloTavola(n), largh, Max(tutto.Larghezza(), 30.0 * largh));
    double largo = 0.0;
    for (const std::string& r : righe) largo = Max(largo, LarghezzaTesto(r, largh));
    const double passo = 1.6 * h, blocco = largo + 1.2 * h;
    const double altoBlocco = passo * static_cast<double>(righe.size()) + 0.6 * h;
    const double x1 = tutto.xMin - margine;
    const double x2 = Max(tutto.xMax + margine, x1 + blocco);
    const double y1 = tutto.yMin - margine - altoBlocco, y2 = tutto.yMax + margine;
    f.colore = par.coloreContorno;
    Rettangolo4(f, x1, y1, x2, y2);
    Spezzata(f, {{x2 - blocco, y1}, {x2 - blocco, y1 + altoBlocco}, {x2, y1 + altoBlocco}});
    double y = y1 + altoBlocco - 0.3 * h - (passo + h) / 2.0;
    for (const std::string& r : righe) {
        TestoFig t;
        t.testo = r;
        t.alt = alt;
        t.largh = largh;
        t.colore = par.etichette.colore;
        t.stile = StileTesto::titoloTavola;
        t.x = x2 - blocco + 0.6 * h;
        t.y = y;
        Testo(f, std::move(t));
        y -= passo;
    }
    return fp;
}

}  // namespace

std::string TitoloTavola(const Nodo& n) {
    std::string t = "NODO TRAVE-TRAVE CON PIASTRE";
    for (int i = 1; i <= n.numNodi; ++i) {
        t += i > 1 ? "," : (n.numNodi == 1 ? ": nodo " : ": nodi ");
        t += TestoIntero(n.NomeNodi(i));
    }
    return t;
}

ContestoDis ContestoTavola(const Nodo& n, const Geometria& g, const Opzioni& opz) {
    ContestoDis c{n, LeggiParametriDisegno(opz), g, LineeSaldatura(g)};
    c.moncone = 1.5 * n.TraSec.H;
    for (int k = 1; k <= 2; ++k) {
        if (n.AttNerv(k)) c.moncone = Max(c.moncone, 1.25 * n.BNerv(k));
    }
    c.mezza = Max(Max(n.BPiastra(1), n.BPiastra(2)), n.TraSec.B) / 2.0 + 0.5 * n.TraPri.H;
    return c;
}

std::vector<FiguraPosta> ComponiTavola(const Nodo& n, const Opzioni& opz, Squadratura squadratura,
                                       const Piattaforma& p) {
    const Geometria g = GeometriaDi(n);
    if (const char* nulla = GrandezzaMancante(g)) {
        MostraErrore(p, std::string("Errore: creazione disegno fallita\n") + nulla + " nulla");
        return {};
    }
    const ContestoDis c = ContestoTavola(n, g, opz);
    std::vector<FiguraPosta> v;
    const auto aggiungi = [&](Figura f, const char* nome) {
        v.push_back({std::move(f), 0.0, 0.0, nome});
    };
    aggiungi(SezioneCC(c), "SEZIONE CC");
    aggiungi(SezioneBB(c), "SEZIONE BB");
    aggiungi(SezioneAA(c), "SEZIONE AA");
    aggiungi(DettaglioPiastra(c, 1), "PIASTRA 1");
    aggiungi(DettaglioPiastra(c, 2), "PIASTRA 2");
    if (g.nervatura(1).conForma) aggiungi(DettaglioNervatura(c, 1), "PIASTRA 4");
    if (g.nervatura(2).conForma) aggiungi(DettaglioNervatura(c, 2), "PIASTRA 5");
    if (g.nervatura(3).conForma) aggiungi(DettaglioNervatura(c, 3), "PIASTRA 3");
    aggiungi(NoteTavola(c), "note");
    aggiungi(TabellaSaldature(c), "tabella");
    Disponi(v, c.par.distanzaViste);
    if (squadratura == Squadratura::si) {
        Ingombro tutto;
        for (const FiguraPosta& f : v) Allarga(tutto, Posto(f));
        v.push_back(Cornice(n, c.par, tutto));
    }
    return v;
}

bool DisegnaNodo(const Nodo& nodo, const Opzioni& opz, Squadratura squadratura, Disegno& d,
                 const Piattaforma& p) {
    d = Disegno{};
    const std::vector<FiguraPosta> tavola = ComponiTavola(nodo, opz, squadratura, p);
    for (const FiguraPosta& f : tavola) EmettiFigura(f.figura, f.x, f.y, d, p);
    return !tavola.empty();
}

}  // namespace tk07
