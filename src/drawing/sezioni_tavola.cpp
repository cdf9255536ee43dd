// The three sections of the joint.

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "drawing/profilo_tavola.h"
#include "drawing/quote.h"
#include "drawing/viste.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

struct Piano {
    int u, v;  // axes of the joint that run to the right and upwards on the sheet
};
constexpr Piano kPianoCC{0, 2}, kPianoBB{1, 2}, kPianoAA{0, 1};

// Position numbers of the parts.
enum class Pezzo { piastra1 = 1, piastra2, nervatura3, nervatura1, nervatura2 };

void Penna(Figura& f, short colore, short tipo = kContinua) {
    f.colore = colore;
    f.tipo = tipo;
}

// An axis-parallel stroke, dashed where it runs behind one of the boxes.
void ConNascosto(Figura& f, double x1, double y1, double x2, double y2,
                 const std::vector<Ingombro>& davanti) {
    const bool orizzontale = y1 == y2;
    double da = orizzontale ? Min(x1, x2) : Min(y1, y2);
    const double a = orizzontale ? Max(x1, x2) : Max(y1, y2);
    const double livello = orizzontale ? y1 : x1;
    std::vector<double> tagli{da, a};
    for (const Ingombro& r : davanti) {
        for (const double t : {orizzontale ? r.xMin : r.yMin, orizzontale ? r.xMax : r.yMax}) {
            if (t > da && t < a) tagli.push_back(t);
        }
    }
    std::sort(tagli.begin(), tagli.end());
    for (std::size_t k = 1; k < tagli.size(); ++k) {
        const double m = (tagli[k - 1] + tagli[k]) / 2.0;
        const double mx = orizzontale ? m : livello, my = orizzontale ? livello : m;
        const bool coperto = std::any_of(davanti.begin(), davanti.end(), [&](const Ingombro& r) {
            return mx > r.xMin && mx < r.xMax && my > r.yMin && my < r.yMax;
        });
        f.tipo = coperto ? kNascosta : kContinua;
        if (orizzontale) {
            Segmento(f, tagli[k - 1], livello, tagli[k], livello);
        } else {
            Segmento(f, livello, tagli[k - 1], livello, tagli[k]);
        }
    }
    f.tipo = kContinua;
}

void RettangoloConNascosto(Figura& f, const Ingombro& r, const std::vector<Ingombro>& davanti) {
    ConNascosto(f, r.xMin, r.yMin, r.xMax, r.yMin, davanti);
    ConNascosto(f, r.xMax, r.yMin, r.xMax, r.yMax, davanti);
    ConNascosto(f, r.xMin, r.yMax, r.xMax, r.yMax, davanti);
    ConNascosto(f, r.xMin, r.yMin, r.xMin, r.yMax, davanti);
}

// Break line across a stub that goes on: straight, with one zigzag in its middle.
void Rottura(Figura& f, double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1, dy = y2 - y1, lungo = std::hypot(dx, dy);
    if (lungo <= kCoincidenza) return;
    const double ux = dx / lungo, uy = dy / lungo, b = Min(0.12 * lungo, 15.0);
    const double sporge = Min(0.1 * lungo, 12.0), m = lungo / 2.0;
    const auto punto = [&](double s, double n) {
        return std::pair{x1 + ux * s - uy * n, y1 + uy * s + ux * n};
    };
    Spezzata(f, {punto(-sporge, 0), punto(m - b, 0), punto(m - b / 2, b), punto(m + b / 2, -b),
                 punto(m + b, 0), punto(lungo + sporge, 0)});
}

Ingombro Riquadro(double x1, double y1, double x2, double y2) {
    Ingombro r;
    Allarga(r, x1, y1);
    Allarga(r, x2, y2);
    return r;
}

// A weld as the view shows it: seen along its length the triangle of its section, else the face
// from the root line to the end of the visible leg. Returns the point that its mark aims at.
std::pair<double, double> DisegnaSaldatura(Figura& f, const LineaSaldatura& l, Piano p,
                                           short colore, short tipo, bool tratti) {
    const auto U = [&](const Punto3& q) { return q[static_cast<std::size_t>(p.u)]; };
    const auto V = [&](const Punto3& q) { return q[static_cast<std::size_t>(p.v)]; };
    const double x1 = U(l.da), y1 = V(l.da), x2 = U(l.a), y2 = V(l.a), a = l.lato;
    Penna(f, colore, tipo);
    const double dx = U(l.versoUno) + U(l.versoDue), dy = V(l.versoUno) + V(l.versoDue);
    if (std::hypot(x2 - x1, y2 - y1) <= kCoincidenza) {
        if (tratti) {
            Spezzata(f,
                     {{x1, y1},
                      {x1 + a * U(l.versoUno), y1 + a * V(l.versoUno)},
                      {x1 + a * U(l.versoDue), y1 + a * V(l.versoDue)}},
                     true);
        }
        return {x1 + a * dx / 3.0, y1 + a * dy / 3.0};
    }
    // One leg points along the line of sight; the other gives the width of the face.
    if (tratti) {
        Spezzata(f, {{x1, y1}, {x2, y2}, {x2 + a * dx, y2 + a * dy}, {x1 + a * dx, y1 + a * dy}},
                 true);
    }
    return {(x1 + x2) / 2.0 + a * dx / 2.0, (y1 + y2) / 2.0 + a * dy / 2.0};
}

// Draws the lines of the list that exist and sets their marks. `nascosta` says which are dashed.
template <class Nascosta>
void SaldatureVista(Figura& f, const ContestoDis& c, Piano p, const std::vector<std::string>& nomi,
                    Nascosta nascosta,
                    std::vector<std::pair<std::string, std::pair<double, double>>>& segni) {
    for (const std::string& nome : nomi) {
        for (const LineaSaldatura& l : c.saldature) {
            if (NomeLinea(l.indice) != nome) continue;
            // With no plate above the secondary beam there is no room to draw s1: its mark and its
            // row in the table tell that the weld is there and is to be made.
            const bool tratti = !(l.indice % kSpecchio == 0 && c.nodo.distAlaSecPiastra == 0.0);
            const short tipo = nascosta(l.indice % kSpecchio + 1) ? kNascosta : kContinua;
            segni.emplace_back(nome,
                               DisegnaSaldatura(f, l, p, c.par.coloreSaldature, tipo, tratti));
        }
    }
    f.tipo = kContinua;
}

// Bolts seen from the side: the axis of every level, and where asked head, shank and nut. `p` is
// the view, `livello` the bolt's place along the sheet's vertical.
template <class Livello>
void BulloniDiFianco(Figura& f, const ContestoDis& c, Livello livello) {
    const Nodo& n = c.nodo;
    std::vector<std::pair<double, double>> fatti;
    for (int i = 1; i <= n.nBull; ++i) {
        const double y = livello(i), d = n.Fibull(i);
        const bool gia = std::any_of(fatti.begin(), fatti.end(), [&](const auto& g) {
            return std::fabs(g.first - y) <= kCoincidenza && g.second == d;
        });
        if (gia) continue;
        fatti.emplace_back(y, d);
        Penna(f, c.par.coloreSegni, kAsse);
        const double oltre = 0.5 * d;
        const double testa = 0.65 * d, dado = 0.5 * d, gambo = 0.8 * d;
        Segmento(f, c.q.xP1 - gambo - oltre, y, c.q.xS + testa + oltre, y);
        if (!c.par.bulloniSuSezioni) continue;
        Penna(f, c.par.coloreContorno2);
        // Head on the side of the secondary beam, nut behind plate 1; d across half a hexagon.
        for (const auto& [x1, x2] :
             {std::pair{c.q.xS, c.q.xS + testa}, std::pair{c.q.xP1 - dado, c.q.xP1}}) {
            Rettangolo4(f, x1, y - d, x2, y + d);
            for (const double m : {-0.5, 0.5}) Segmento(f, x1, y + m * d, x2, y + m * d);
        }
        for (const double m : {-0.5, 0.5}) {
            f.tipo = kNascosta;
            Segmento(f, c.q.xP1, y + m * d, c.q.xS, y + m * d);
            f.tipo = kContinua;
            Segmento(f, c.q.xP1 - gambo, y + m * d, c.q.xP1 - dado, y + m * d);
        }
        Segmento(f, c.q.xP1 - gambo, y - d / 2.0, c.q.xP1 - gambo, y + d / 2.0);
    }
    f.tipo = kContinua;
}

using Segni = std::vector<std::pair<std::string, std::pair<double, double>>>;

// Weld marks, then position numbers in circles, each where there is room. `lato` gives the side
// of the view (-1, 0, 1 along the sheet's horizontal and vertical) where the marks of a line go.
template <class LatoSegno>
void Etichette(Figura& f, const ContestoDis& c, const Segni& saldature,
               const std::vector<std::pair<Pezzo, std::pair<double, double>>>& pezzi,
               const Segni& nomi, LatoSegno lato) {
    const double mx = (f.contorno.xMin + f.contorno.xMax) / 2.0;
    const double my = (f.contorno.yMin + f.contorno.yMax) / 2.0;
    const double mezzo = Max(Max(f.contorno.Larghezza(), f.contorno.Altezza()) / 2.0, 1.0);
    std::vector<Etichetta> v;
    for (const auto& [nome, dove] : saldature) {
        const auto [lx, ly] = lato(nome);
        v.push_back({nome, dove.first, dove.second,
                     lx != 0.0 ? lx : 1.5 * (dove.first - mx) / mezzo,
                     ly != 0.0 ? ly : 1.5 * (dove.second - my) / mezzo, false, true});
    }
    for (const auto& [p, dove] : pezzi) {
        v.push_back({std::to_string(static_cast<int>(p)), dove.first, dove.second, dove.first - mx,
                     dove.second - my, true, false});
    }
    for (const auto& [nome, dove] : nomi) {
        v.push_back(
            {nome, dove.first, dove.second, dove.first - mx, dove.second - my, false, false});
    }
    PosaTutte(f, v, c.par.etichette);
}

bool Specchiata(const std::string& nome) { return nome.back() == '\''; }
// Lines s4 to s9 join to the main beam.
bool SullaPrincipale(const std::string& nome) {
    return nome[1] >= '4' && (nome.size() == 2 || nome[2] == '\'');
}

// Both ends of the trace of a cut, outside everything: a thick stroke, the arrow of the line of
// sight and the letter.
//   orizzontale  trace along the sheet's horizontal at the level `livello`
//   verso        line of sight, +1 to the right or upwards, -1 the other way
void SegnoTaglio(Figura& f, const ContestoDis& c, const char* lettera, bool orizzontale,
                 double livello, double verso) {
    const Ingombro tutto = IngombroFigura(f);
    const double h = Max(c.par.titoloVista, 1.0), aria = 0.8 * h, tratto = 1.2 * h;
    for (const double capo : {-1.0, 1.0}) {
        const double inizio = orizzontale ? (capo < 0.0 ? tutto.xMin : tutto.xMax)
                                          : (capo < 0.0 ? tutto.yMin : tutto.yMax);
        const double da = inizio + capo * aria, a = da + capo * tratto;
        const auto linea = [&](double s1, double n1, double s2, double n2) {
            if (orizzontale) {
                Segmento(f, s1, livello + n1, s2, livello + n2);
            } else {
                Segmento(f, livello + n1, s1, livello + n2, s2);
            }
        };
        Penna(f, c.par.coloreSegni);
        linea(da, 0.0, a, 0.0);
        // Arrow from the outer end, in the line of sight.
        const double m = (da + a) / 2.0, lungo = 1.1 * h * verso;
        linea(m, 0.0, m, lungo);
        linea(m, lungo, m - 0.15 * h, lungo - 0.4 * h * verso);
        linea(m, lungo, m + 0.15 * h, lungo - 0.4 * h * verso);
        TestoFig t;
        t.testo = lettera;
        t.alt = c.par.titoloVista;
        t.largh = c.par.rapporto * t.alt;
        t.colore = c.par.coloreSegni;
        t.stile = StileTesto::titoloVista;
        const double via = a + capo * 0.3 * h;  // near edge of the letter
        if (orizzontale) {
            t.x = capo < 0.0 ? via - t.largh : via;
            t.y = livello - t.alt / 2.0;
        } else {
            t.x = livello - t.largh / 2.0;
            t.y = capo < 0.0 ? via - t.alt : via;
        }
        Testo(f, std::move(t));
    }
}

// The title under everything. In the list of texts it and the cut marks come before the labels,
// which are the first `etichette` of the texts.
void Titolo(Figura& f, const ContestoDis& c, const char* testo, std::size_t etichette) {
    const Ingombro tutto = IngombroFigura(f);
    TestoFig t;
    t.testo = testo;
    t.alt = c.par.titoloVista;
    t.largh = c.par.rapporto * t.alt;
    t.colore = c.par.coloreSegni;
    t.stile = StileTesto::titoloVista;
    t.x = (f.contorno.xMin + f.contorno.xMax) / 2.0 - LarghezzaTesto(t.testo, t.largh) / 2.0;
    t.y = tutto.yMin - c.par.distanzaTitolo - t.alt;
    Testo(f, std::move(t));
    std::rotate(f.testi.begin(), f.testi.begin() + static_cast<long>(etichette), f.testi.end());
}

std::vector<double> Livelli(std::initializer_list<double> l) { return {l}; }

// Outline of rib k in elevation.
void ProfiloNervatura(Figura& f, const SagomaNervatura& r) {
    std::vector<std::pair<double, double>> v;
    for (int i = 0; i < r.nVertici; ++i) {
        const Punto2& p = r.inNodo[static_cast<std::size_t>(i)];
        v.emplace_back(p[0], p[1]);
    }
    Spezzata(f, v, true);
}

}  // namespace

TestoFig TestoNota(const ContestoDis& c, const std::string& testo, double x, double y) {
    TestoFig t;
    t.testo = testo;
    t.x = x;
    t.y = y;
    t.alt = c.par.etichette.alt;
    t.largh = c.par.etichette.largh;
    t.colore = c.par.etichette.colore;
    return t;
}

Figura SezioneCC(const ContestoDis& c) {
    const Nodo& n = c.nodo;
    const Geometria& q = c.q;
    const double fine = q.xS + c.moncone, tf = n.TraSec.tf;
    Figura f;
    Penna(f, c.par.coloreContorno);
    DisegnaProfilo(f, n.TraPri, 0.0, 0.0);
    Penna(f, c.par.coloreContorno2);
    for (const double z : {q.zS2, q.zS2 - tf, q.zS + tf, q.zS}) Segmento(f, q.xS, z, fine, z);
    Rottura(f, fine, q.zS, fine, q.zS2);
    Penna(f, c.par.coloreContorno);
    Segmento(f, q.xS, q.zS, q.xS, q.zS2);
    Rettangolo4(f, q.xP1, q.zP1, q.xP2, q.zP12);
    Rettangolo4(f, q.xP2, q.zP2, q.xS, q.zP22);
    std::vector<std::pair<Pezzo, std::pair<double, double>>> pezzi{
        {Pezzo::piastra1, {(q.xP1 + q.xP2) / 2.0, q.zP1 + 0.75 * n.HPiastra(1)}},
        {Pezzo::piastra2, {(q.xP2 + q.xS) / 2.0, q.zP2 + 0.12 * n.HPiastra(2)}}};
    if (q.nervatura(3).conForma) {
        ProfiloNervatura(f, q.nervatura(3));
        pezzi.push_back({Pezzo::nervatura3, {(q.xAnima + q.xP1) / 2.0, 0.0}});
    }
    for (int k = 1; k <= 2; ++k) {
        if (!q.nervatura(k).conForma) continue;
        const SagomaNervatura& r = q.nervatura(k);
        ProfiloNervatura(f, r);
        const double s = r.verso, z = r.zRadice;
        pezzi.push_back({k == 1 ? Pezzo::nervatura1 : Pezzo::nervatura2,
                         {q.xS + n.BNerv(k) / 2.0, z + s * (n.H1Nerv(k) + n.H2Nerv(k)) / 5.0}});
    }
    BulloniDiFianco(f, c, [&](int i) { return AltezzaBullone(q, n.Ybull(i)); });

    Segni segni;
    SaldatureVista(
        f, c, kPianoCC,
        {"s1", "s2", "s3", "s4", "s8", "s9", "s5", "s7", "s6", "s10", "s11", "s13", "s12", "s15",
         "s14"},
        [](int) { return false; }, segni);
    f.contorno = IngombroFigura(f);

    const double alto = Max(n.TraPri.H / 2.0, q.zP22), basso = Min(-n.TraPri.H / 2.0, q.zP2);
    CatenaQuote(f, Lato::sinistra, Livelli({-n.TraPri.H / 2.0, q.zS, q.zS2, n.TraPri.H / 2.0}),
                -n.TraPri.B / 2.0, c.par.primaQuota, c.par.quoteViste);
    std::vector<double> facce{0.0, q.xP1, q.xP2, q.xS};
    CatenaQuote(f, Lato::sotto, facce, Min(basso, f.contorno.yMin), c.par.primaQuota,
                c.par.quoteViste);
    if (q.nervatura(1).conForma) {
        CatenaQuote(f, Lato::sopra, {q.xS, q.xS + n.BNerv(1)}, Max(alto, f.contorno.yMax),
                    c.par.primaQuota, c.par.quoteViste);
    }
    Etichette(f, c, segni, pezzi,
              {{n.TraPri.Nome, {-n.TraPri.B / 4.0, -n.TraPri.H / 2.0 + n.TraPri.tf / 2.0}},
               {n.TraSec.Nome, {q.xS + 0.85 * c.moncone, (q.zS + q.zS2) / 2.0}}},
              [](const std::string& nome) {
                  // Lines of the main beam to the left, those of the secondary one to the right.
                  return std::pair{SullaPrincipale(nome) ? -1.0 : 1.0, 0.0};
              });
    const std::size_t etichette = f.testi.size();
    // From above, and towards the main beam between the ribs and the end of the stub.
    SegnoTaglio(f, c, "A", true, alto + 0.5 * c.par.primaQuota, -1.0);
    SegnoTaglio(f, c, "B", false, q.xS + 0.9 * c.moncone, -1.0);
    Titolo(f, c, "SEZIONE CC", etichette);
    return f;
}

Figura SezioneBB(const ContestoDis& c) {
    const Nodo& n = c.nodo;
    const Geometria& q = c.q;
    const double b1 = n.BPiastra(1) / 2.0, b2 = n.BPiastra(2) / 2.0;
    const Ingombro piastra2 = Riquadro(-b2, q.zP2, b2, q.zP22);
    const Ingombro piastra1 = Riquadro(-b1, q.zP1, b1, q.zP12);
    Figura f;
    // The main beam lies behind both plates; its web's root lines are not shown.
    Penna(f, c.par.coloreContorno2);
    for (const double s : {1.0, -1.0}) {
        for (const double z : {s * n.TraPri.H / 2.0, s * (q.zAlaPri)}) {
            ConNascosto(f, -c.mezza, z, c.mezza, z, {piastra1, piastra2});
        }
        Rottura(f, s * c.mezza, -n.TraPri.H / 2.0, s * c.mezza, n.TraPri.H / 2.0);
    }
    Penna(f, c.par.coloreContorno);
    RettangoloConNascosto(f, piastra1, {piastra2});
    Rettangolo4(f, -b2, q.zP2, b2, q.zP22);
    DisegnaProfilo(f, n.TraSec, 0.0, (q.zS + q.zS2) / 2.0);
    std::vector<std::pair<Pezzo, std::pair<double, double>>> pezzi{
        {Pezzo::piastra1,
         {b1 > b2 ? (b1 + b2) / 2.0 : 0.8 * b1,
          q.zP1 + (q.zP1 < q.zP2 ? 0.5 * (q.zP2 - q.zP1) : 0.05 * n.HPiastra(1))}},
        {Pezzo::piastra2, {-0.85 * b2, q.zP22 - 0.1 * n.HPiastra(2)}}};
    for (int k = 1; k <= 2; ++k) {
        if (!q.nervatura(k).conForma) continue;
        const double s = q.nervatura(k).verso, z = q.nervatura(k).zRadice;
        const double m = n.SpNerv(k) / 2.0;
        Rettangolo4(f, -m, z, m, z + s * n.H1Nerv(k));
        pezzi.push_back(
            {k == 1 ? Pezzo::nervatura1 : Pezzo::nervatura2, {0.0, z + 0.7 * s * n.H1Nerv(k)}});
    }
    for (int i = 1; i <= n.nBull; ++i) {
        const double x = n.Xbull(i), y = AltezzaBullone(q, n.Ybull(i)), d = n.Fibull(i),
                     r = 0.75 * d;
        Penna(f, c.par.coloreContorno);
        Cerchio(f, x, y, d);
        Penna(f, c.par.coloreSegni, kAsse);
        Segmento(f, x - r, y, x + r, y);
        Segmento(f, x, y - r, x, y + r);
    }
    f.tipo = kContinua;
    Segni segni;
    SaldatureVista(
        f, c, kPianoBB,
        {"s1", "s2", "s3", "s1'", "s2'", "s3'", "s10'", "s10", "s11'", "s11", "s13'", "s13", "s12'",
         "s12", "s15'", "s15", "s14'", "s14"},
        [](int) { return false; }, segni);
    f.contorno = IngombroFigura(f);
    CatenaQuote(f, Lato::sinistra, Livelli({q.zP2, q.zS, q.zS2, q.zP22}), f.contorno.xMin,
                c.par.primaQuota, c.par.quoteViste);
    CatenaQuote(f, Lato::destra, Livelli({-n.TraPri.H / 2.0, q.zP1, q.zP12, n.TraPri.H / 2.0}),
                f.contorno.xMax, c.par.primaQuota, c.par.quoteViste);
    CatenaQuote(f, Lato::sotto, {-b2, b2}, f.contorno.yMin, c.par.primaQuota, c.par.quoteViste);
    CatenaQuote(f, Lato::sopra, {-b1, b1}, f.contorno.yMax, c.par.primaQuota, c.par.quoteViste);
    Etichette(f, c, segni, pezzi, {}, [](const std::string& nome) {
        return std::pair{Specchiata(nome) ? -1.0 : 1.0, 0.0};
    });
    const std::size_t etichette = f.testi.size();
    SegnoTaglio(f, c, "A", true, Max(n.TraPri.H / 2.0, q.zP22) + 0.5 * c.par.primaQuota, -1.0);
    // The plane of the webs, seen so that the secondary beam stands to the right of the main one.
    SegnoTaglio(f, c, "C", false, 0.0, 1.0);
    Titolo(f, c, "SEZIONE BB", etichette);
    return f;
}

Figura SezioneAA(const ContestoDis& c) {
    const Nodo& n = c.nodo;
    const Geometria& q = c.q;
    const double fine = q.xS + c.moncone;
    const double b1 = n.BPiastra(1) / 2.0, b2 = n.BPiastra(2) / 2.0;
    const Ingombro ala = Riquadro(-n.TraPri.B / 2.0, -c.mezza, n.TraPri.B / 2.0, c.mezza);
    // A plate that reaches over the flange is seen whole.
    const bool alaSopra2 = q.zP22 < n.TraPri.H / 2.0, alaSopra1 = q.zP12 < n.TraPri.H / 2.0;
    std::vector<Ingombro> sopra2, sopra1;
    if (alaSopra2) sopra2.push_back(ala);
    if (alaSopra1) sopra1.push_back(ala);
    const Ingombro piastra2 = Riquadro(q.xP2, -b2, q.xS, b2);
    Figura f;
    Penna(f, c.par.coloreContorno2);
    for (const double s : {1.0, -1.0}) {
        Segmento(f, s * n.TraPri.B / 2.0, -c.mezza, s * n.TraPri.B / 2.0, c.mezza);
        ConNascosto(f, s * q.xAnima, -c.mezza, s * q.xAnima, c.mezza, {ala});
        Rottura(f, -n.TraPri.B / 2.0, s * c.mezza, n.TraPri.B / 2.0, s * c.mezza);
        ConNascosto(f, q.xS, s * n.TraSec.B / 2.0, fine, s * n.TraSec.B / 2.0, sopra2);
    }
    Rottura(f, fine, -n.TraSec.B / 2.0, fine, n.TraSec.B / 2.0);
    const Ingombro alaSec = Riquadro(q.xS, -n.TraSec.B / 2.0, fine, n.TraSec.B / 2.0);
    for (const double s : {1.0, -1.0}) {
        ConNascosto(f, q.xS, s * n.TraSec.tw / 2.0, fine, s * n.TraSec.tw / 2.0, {alaSec});
    }
    Penna(f, c.par.coloreContorno);
    RettangoloConNascosto(f, piastra2, sopra2);
    std::vector<Ingombro> sopraPiastra1 = sopra1;
    if (q.zP22 > q.zP12) sopraPiastra1.push_back(piastra2);
    RettangoloConNascosto(f, Riquadro(q.xP1, -b1, q.xP2, b1), sopraPiastra1);
    std::vector<std::pair<Pezzo, std::pair<double, double>>> pezzi{
        {Pezzo::piastra1, {(q.xP1 + q.xP2) / 2.0, 0.8 * b1}},
        {Pezzo::piastra2, {(q.xP2 + q.xS) / 2.0, -0.85 * b2}}};
    if (q.nervatura(3).conForma) {
        const double m = n.SpNerv(3) / 2.0;
        RettangoloConNascosto(f, Riquadro(q.xAnima, -m, q.xP1, m), {ala});
        pezzi.push_back({Pezzo::nervatura3, {(q.xAnima + q.xP1) / 2.0, 0.0}});
    }
    if (q.nervatura(1).conForma) {
        const double m = n.SpNerv(1) / 2.0;
        Rettangolo4(f, q.xS, -m, q.xS + n.BNerv(1), m);
        pezzi.push_back({Pezzo::nervatura1, {q.xS + 0.6 * n.BNerv(1), 0.0}});
    }
    BulloniDiFianco(f, c, [&](int i) { return n.Xbull(i); });
    Segni segni;
    SaldatureVista(
        f, c, kPianoAA,
        {"s1", "s1'", "s3", "s3'", "s10", "s10'", "s13", "s13'", "s12", "s12'", "s4'", "s4", "s9'",
         "s9", "s5", "s5'", "s6", "s6'"},
        // Above the secondary beam everything is in sight, the rest is under a flange.
        [](int j) { return !(j == 10 || j == 12 || j == 13); }, segni);
    f.contorno = IngombroFigura(f);
    CatenaQuote(f, Lato::sinistra, {-b1, b1}, f.contorno.xMin, c.par.primaQuota, c.par.quoteViste);
    CatenaQuote(f, Lato::destra, {-n.TraSec.B / 2.0, n.TraSec.B / 2.0}, f.contorno.xMax,
                c.par.primaQuota, c.par.quoteViste);
    CatenaQuote(f, Lato::sotto, {-n.TraPri.B / 2.0, n.TraPri.B / 2.0}, f.contorno.yMin,
                c.par.primaQuota, c.par.quoteViste);
    Etichette(f, c, segni, pezzi, {}, [](const std::string& nome) {
        return std::pair{SullaPrincipale(nome) ? -1.0 : 1.0, Specchiata(nome) ? -1.0 : 1.0};
    });
    const std::size_t etichette = f.testi.size();
    SegnoTaglio(f, c, "B", false, q.xS + 0.9 * c.moncone, -1.0);
    SegnoTaglio(f, c, "C", true, 0.0, 1.0);
    Titolo(f, c, "SEZIONE AA", etichette);
    return f;
}

}  // namespace tk07
