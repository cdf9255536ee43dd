#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <set>

#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "drawing/dxf.h"
#include "drawing/grb.h"
#include "drawing/profilo_tavola.h"
#include "drawing/quote.h"
#include "drawing/viste.h"
#include "nodi_casuali.h"
#include "textnum/formatta.h"
#include "unit/verification/nodo_di_prova.h"
#include "verification/saldature.h"

namespace tk07 {
namespace {

const Piattaforma kMuta = PiattaformaMuta();

// Box of a text of the store, shrunk by a hair so that touching is no overlap.
Ingombro RiquadroTesto(const Disegno& d, const TestoDis& t) {
    const auto i = static_cast<std::size_t>(t.testoCoord);
    const double w = static_cast<double>(NumeroCaratteri(t.testoStringa)) * t.testoLargh / 10.0;
    const double h = t.testoAlt / 10.0, a = t.testoAngolo * std::acos(-1.0) / 180.0;
    Ingombro r;
    for (const double u : {0.01, w - 0.01}) {
        for (const double v : {0.01, h - 0.01}) {
            Allarga(r, d.coordX[i] + u * std::cos(a) - v * std::sin(a),
                    d.coordY[i] + u * std::sin(a) + v * std::cos(a));
        }
    }
    return r;
}

struct Tratto {
    double x1, y1, x2, y2;
};

// Line elements, and arcs in chords of 5 degrees: a second way to look at what the store holds.
std::vector<Tratto> Tratti(const Disegno& d) {
    const auto X = [&](int i) { return d.coordX[static_cast<std::size_t>(i)]; };
    const auto Y = [&](int i) { return d.coordY[static_cast<std::size_t>(i)]; };
    std::vector<Tratto> v;
    for (const LineaDis& l : d.linee) {
        v.push_back({X(l.lineaIni), Y(l.lineaIni), X(l.lineaFin), Y(l.lineaFin)});
    }
    for (const ArcoDis& a : d.archi) {
        const double cx = X(a.arcoCentro), cy = Y(a.arcoCentro);
        const double r = std::hypot(X(a.arcoIni) - cx, Y(a.arcoIni) - cy);
        const double a1 = std::atan2(Y(a.arcoIni) - cy, X(a.arcoIni) - cx);
        double a2 = std::atan2(Y(a.arcoFin) - cy, X(a.arcoFin) - cx);
        while (a2 <= a1 + 1e-9) a2 += 2.0 * std::acos(-1.0);
        const int n = static_cast<int>((a2 - a1) / 0.0873) + 1;
        for (int k = 0; k < n; ++k) {
            const double u = a1 + (a2 - a1) * k / n, w = a1 + (a2 - a1) * (k + 1) / n;
            v.push_back({cx + r * std::cos(u), cy + r * std::sin(u), cx + r * std::cos(w),
                         cy + r * std::sin(w)});
        }
    }
    return v;
}

// By bisection, unlike the clipping that places the labels.
bool Attraversa(const Tratto& t, const Ingombro& r, int livello = 0) {
    if (std::max(t.x1, t.x2) < r.xMin || std::min(t.x1, t.x2) > r.xMax ||
        std::max(t.y1, t.y2) < r.yMin || std::min(t.y1, t.y2) > r.yMax) {
        return false;
    }
    const double mx = (t.x1 + t.x2) / 2.0, my = (t.y1 + t.y2) / 2.0;
    if (mx > r.xMin && mx < r.xMax && my > r.yMin && my < r.yMax) return true;
    if (livello > 14) return false;
    return Attraversa({t.x1, t.y1, mx, my}, r, livello + 1) ||
           Attraversa({mx, my, t.x2, t.y2}, r, livello + 1);
}

int Conta(const Disegno& d, const std::string& testo) {
    return static_cast<int>(std::count_if(d.testi.begin(), d.testi.end(), [&](const TestoDis& t) {
        return t.testoStringa == testo;
    }));
}

std::multiset<double> Diametri(const Figura& f) {
    std::multiset<double> v;
    for (const CerchioFig& c : f.cerchi) {
        if (c.a1 == c.a2) v.insert(c.diametro);
    }
    return v;
}

// Numbers of the dimensions along one side of a detail, from one end to the other.
std::vector<std::string> Catena(const Figura& f, bool orizzontale, double livello) {
    std::map<double, std::string> v;
    for (const QuotaFig& q : f.quote) {
        const bool sua = orizzontale ? q.y1 == q.y2 && std::fabs(q.y1 - livello) < 40.0
                                     : q.x1 == q.x2 && std::fabs(q.x1 - livello) < 40.0;
        const bool lato = (q.distanza < 0.0) == orizzontale;
        if (sua && lato) v[orizzontale ? q.x1 : q.y1] = TestoQuota(q);
    }
    std::vector<std::string> r;
    for (const auto& [x, t] : v) r.push_back(t);
    return r;
}

// Do the chain's numbers say the distances between neighbouring distinct values, to one decimal?
testing::AssertionResult Dice(const std::vector<std::string>& catena, const std::set<double>& v) {
    if (catena.size() + 1 != v.size()) {
        return testing::AssertionFailure() << catena.size() << " dimensions, " << v.size();
    }
    auto i = v.begin();
    for (const std::string& t : catena) {
        const double da = *i++, numero = ValoreStretto(t).value_or(-1.0);
        if (!(std::fabs(numero - (*i - da)) < 0.050001)) {
            return testing::AssertionFailure() << t << " for " << *i - da;
        }
    }
    return testing::AssertionSuccess();
}

// How much of the stroke from (x1, y1) to (x2, y2), parallel to an axis, a view draws with pens of
// a colour and a line type; and whether all of it, in one or several pieces.
double Coperto(const Figura& f, double x1, double y1, double x2, double y2, short colore,
               short tipo) {
    constexpr double kVicino = 1e-6;
    const bool orizzontale = std::fabs(y1 - y2) < kVicino;
    double quanto = 0.0;
    for (const SegmentoFig& s : f.segmenti) {
        if (s.colore != colore || s.tipo != tipo) continue;
        const double fuori = orizzontale ? std::max(std::fabs(s.y1 - y1), std::fabs(s.y2 - y1))
                                         : std::max(std::fabs(s.x1 - x1), std::fabs(s.x2 - x1));
        if (fuori > kVicino) continue;
        const auto [a, b] = orizzontale ? std::minmax(s.x1, s.x2) : std::minmax(s.y1, s.y2);
        const auto [c, d] = orizzontale ? std::minmax(x1, x2) : std::minmax(y1, y2);
        quanto += std::max(0.0, std::min(b, d) - std::max(a, c));
    }
    return quanto;
}

// Does the view draw the closed outline, side by side, with this pen?
bool HaContorno(const Figura& f, const std::vector<Punto2>& v, short colore) {
    for (std::size_t i = 0; i < v.size(); ++i) {
        const Punto2 &p = v[i], &q = v[(i + 1) % v.size()];
        if (std::hypot(p[0] - q[0], p[1] - q[1]) < 1e-6) continue;
        const bool trovato =
            std::any_of(f.segmenti.begin(), f.segmenti.end(), [&](const SegmentoFig& s) {
                const auto vicini = [](double x, double y, const Punto2& r) {
                    return std::hypot(x - r[0], y - r[1]) < 1e-6;
                };
                return s.colore == colore && ((vicini(s.x1, s.y1, p) && vicini(s.x2, s.y2, q)) ||
                                              (vicini(s.x1, s.y1, q) && vicini(s.x2, s.y2, p)));
            });
        if (!trovato) return false;
    }
    return true;
}
std::vector<Punto2> Quattro(double x1, double y1, double x2, double y2) {
    return {{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}};
}

// Holes, plates, ribs, hidden edges and welds of the views where the joint's own numbers put them.
void ControllaViste(const Nodo& n, const std::map<std::string, Figura>& viste,
                    const ParametriDisegno& par) {
    const short bordo = par.coloreContorno, dietro = par.coloreContorno2;
    const Figura &cc = viste.at("SEZIONE CC"), &bb = viste.at("SEZIONE BB"),
                 &aa = viste.at("SEZIONE AA");
    const double x = n.TraPri.B / 2 + n.distPiastraTraPri, xS = x + n.SpPiastra(2);
    const double xP1 = x - n.SpPiastra(1), h1 = n.HPiastra(1) / 2, ala = n.TraPri.H / 2;
    const double b1 = n.BPiastra(1) / 2, b2 = n.BPiastra(2) / 2;
    const double sopra = ala - n.distAliPriSec, sotto = sopra - n.TraSec.H;
    const double cima = sopra + n.distAlaSecPiastra, fondo = cima - n.HPiastra(2);

    for (int k = 1; k <= 2; ++k) {
        const auto& cerchi = viste.at("PIASTRA " + std::to_string(k)).cerchi;
        ASSERT_EQ(cerchi.size(), static_cast<std::size_t>(n.nBull));
        for (std::size_t i = 0; i < cerchi.size(); ++i) {
            const long b = static_cast<long>(i) + 1;
            EXPECT_EQ(cerchi[i].x, n.Xbull(b));
            const double base = k == 1 ? -h1 : fondo;
            EXPECT_NEAR(cerchi[i].y, n.Ybull(b) - h1 - base, 1e-9) << "hole of plate " << k;
        }
    }
    for (int i = 1; i <= n.nBull; ++i) {
        EXPECT_TRUE(std::any_of(bb.cerchi.begin(), bb.cerchi.end(),
                                [&](const CerchioFig& c) {
                                    return c.x == n.Xbull(i) &&
                                           std::fabs(c.y - (n.Ybull(i) - h1)) < 1e-9;
                                }))
            << "bolt " << i;
    }
    EXPECT_TRUE(HaContorno(cc, Quattro(xP1, -h1, x, h1), bordo));
    EXPECT_TRUE(HaContorno(cc, Quattro(x, fondo, xS, cima), bordo));
    EXPECT_TRUE(HaContorno(bb, Quattro(-b2, fondo, b2, cima), bordo));
    for (int k = 1; k <= 2; ++k) {
        if (!n.AttNerv(k)) continue;
        const double z = k == 1 ? sopra : sotto, v = k == 1 ? 1 : -1, s = n.SpNerv(k) / 2;
        const double m = std::min({n.SmussoNerv(k), n.BNerv(k), n.H1Nerv(k)}), B = n.BNerv(k);
        EXPECT_TRUE(HaContorno(bb, Quattro(-s, z, s, z + v * n.H1Nerv(k)), bordo)) << "rib " << k;
        EXPECT_TRUE(HaContorno(cc,
                               {{xS + m, z},
                                {xS + B, z},
                                {xS + B, z + v * n.H2Nerv(k)},
                                {xS, z + v * n.H1Nerv(k)},
                                {xS, z + v * m}},
                               bordo))
            << "rib " << k;
    }
    // The sides and the ends of plate 1 behind plate 2, the flanges of the main beam behind both.
    const auto prova = [&](double x1, double y1, double x2, double y2, short colore,
                           double sotto2) {
        const double lungo = std::hypot(x2 - x1, y2 - y1);
        EXPECT_NEAR(Coperto(bb, x1, y1, x2, y2, colore, kNascosta), sotto2, 1e-6) << y1;
        EXPECT_NEAR(Coperto(bb, x1, y1, x2, y2, colore, kContinua), lungo - sotto2, 1e-6) << y1;
    };
    const auto dentro2 = [&](double z) { return z > fondo + 1e-9 && z < cima - 1e-9; };
    if (bordo != dietro && std::fabs(b1 - b2) > 1e-6) {
        for (const double s : {-1.0, 1.0}) {
            const auto& sec = n.TraSec;
            const double altri[] = {fondo,
                                    cima,
                                    sopra,
                                    sotto,
                                    sopra - sec.tf,
                                    sotto + sec.tf,
                                    sopra + n.H1Nerv(1),
                                    sotto - n.H1Nerv(2)};
            const bool vicine = std::any_of(std::begin(altri), std::end(altri),
                                            [&](double z) { return std::fabs(s * h1 - z) < 1e-6; });
            if (!vicine) {
                prova(-b1, s * h1, b1, s * h1, bordo, dentro2(s * h1) ? 2 * std::min(b1, b2) : 0);
            }
            if (std::fabs(b1 - sec.B / 2) > 1e-6)
                prova(s * b1, -h1, s * b1, h1, bordo,
                      b1 < b2 ? std::max(0.0, std::min(h1, cima) - std::max(-h1, fondo)) : 0);
            for (const double z : {s * ala, s * (ala - n.TraPri.tf)}) {
                const double largo =
                    std::max(std::fabs(z) < h1 - 1e-9 ? b1 : 0.0, dentro2(z) ? b2 : 0.0);
                const double mezza = std::max({b1, b2, n.TraSec.B / 2}) + n.TraPri.H / 2;
                prova(-mezza, z, mezza, z, dietro, 2 * largo);
            }
        }
    }
    // Rib 3 from above is under the flange of the main beam.
    const double s3 = n.SpNerv(3) / 2, web = n.TraPri.tw / 2;
    EXPECT_NEAR(Coperto(aa, web, s3, xP1, s3, bordo, kNascosta),
                std::min(xP1, n.TraPri.B / 2) - web, 1e-6);
    // Faces of the welds of the web, which both elevations show.
    const Geometria g = GeometriaDi(n);
    const double L = g.cordone(1).lunghezza, zm = (sopra + sotto) / 2, w = n.TraSec.tw / 2;
    if (L > 0 && n.distAlaSecPiastra > 0) {
        for (const double s : {-1.0, 1.0}) {
            const double y1 = s * w, y2 = s * (w + n.spSaldS1);
            EXPECT_TRUE(
                HaContorno(bb, Quattro(y1, zm - L / 2, y2, zm + L / 2), par.coloreSaldature));
        }
        EXPECT_TRUE(HaContorno(cc, Quattro(xS, zm - L / 2, xS + n.spSaldS1, zm + L / 2),
                               par.coloreSaldature));
    }
}

class Tavola : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { banco_ = new prova::SessioneDiProva; }
    static void TearDownTestSuite() { delete banco_; }
    const Sessione& s() const { return *banco_->s; }
    static prova::SessioneDiProva* banco_;
};
prova::SessioneDiProva* Tavola::banco_ = nullptr;

TEST_F(Tavola, RandomJointsReadWell) {
    std::mt19937 g(2);

    int massimo = 0;
    for (int k = 0; k < 300; ++k) {
        const Nodo n = prova::NodoCasuale(s(), g);
        massimo = std::max<int>(massimo, n.nBull);
        SCOPED_TRACE("nodo " + std::to_string(k) + " " + n.TraSec.Nome + " su " + n.TraPri.Nome +
                     " bulloni " + std::to_string(n.nBull));
        const auto figure = ComponiTavola(n, s().opz, Squadratura::si, kMuta);
        std::map<std::string, Figura> viste;
        for (std::size_t i = 0; i < figure.size(); ++i) {
            viste[figure[i].nome] = figure[i].figura;
            for (std::size_t j = 0; j < i && i + 1 < figure.size(); ++j) {
                Ingombro a = IngombroFigura(figure[i].figura), b = IngombroFigura(figure[j].figura);
                a.xMin += figure[i].x, a.xMax += figure[i].x;
                a.yMin += figure[i].y, a.yMax += figure[i].y;
                b.xMin += figure[j].x, b.xMax += figure[j].x;
                b.yMin += figure[j].y, b.yMax += figure[j].y;
                EXPECT_FALSE(SiToccano(a, b)) << figure[i].nome << " " << figure[j].nome;
            }
        }
        EXPECT_EQ(figure[0].y, figure[1].y) << "the same levels in CC and BB";
        EXPECT_EQ(figure[0].x, figure[2].x) << "the main beam's axis in CC and AA";

        Disegno d;
        ASSERT_TRUE(DisegnaNodo(n, s().opz, Squadratura::si, d, kMuta));
        const std::vector<Tratto> tratti = Tratti(d);
        std::vector<Ingombro> riquadri;
        for (const TestoDis& t : d.testi) riquadri.push_back(RiquadroTesto(d, t));
        int sovrapposti = 0;
        for (std::size_t i = 0; i < riquadri.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) sovrapposti += SiToccano(riquadri[i], riquadri[j]);
            for (const Tratto& t : tratti) {
                if (!Attraversa(t, riquadri[i])) continue;
                ADD_FAILURE() << d.testi[i].testoStringa << " at " << riquadri[i].xMin << ","
                              << riquadri[i].yMin << " crossed by " << t.x1 << "," << t.y1 << " "
                              << t.x2 << "," << t.y2;
            }
        }
        EXPECT_EQ(sovrapposti, 0);

        // every bolt in BB, every hole in both details
        std::multiset<double> bulloni, fori;
        std::set<double> colonne{-n.BPiastra(1) / 2.0, n.BPiastra(1) / 2.0},
            righe{0.0, n.HPiastra(1)};
        for (int i = 1; i <= n.nBull; ++i) {
            bulloni.insert(n.Fibull(i));
            fori.insert(n.Fibull(i) + s().opz.ValOpz(kOpzTollForo));
            colonne.insert(n.Xbull(i));
            righe.insert(n.Ybull(i));
        }
        std::multiset<double> inBB;
        for (const CerchioFig& c : viste["SEZIONE BB"].cerchi) {
            if (c.a1 == c.a2 && c.colore == s().opz.ValOpz(kOpzColoreContorno))
                inBB.insert(c.diametro);
        }
        EXPECT_EQ(inBB, bulloni);
        for (const char* piastra : {"PIASTRA 1", "PIASTRA 2"}) {
            EXPECT_EQ(Diametri(viste[piastra]), fori);
        }
        EXPECT_TRUE(Dice(Catena(viste["PIASTRA 1"], true, 0.0), colonne));
        EXPECT_TRUE(Dice(Catena(viste["PIASTRA 1"], false, -n.BPiastra(1) / 2.0), righe));

        ControllaViste(n, viste, LeggiParametriDisegno(s().opz));

        // every weld that exists: its mark in CC, its mirror elsewhere, its row in the table
        const Geometria geo = GeometriaDi(n);
        for (int j = 1; j <= 15; ++j) {
            const std::string nome = "s" + std::to_string(j);
            const bool esiste = geo.cordone(j).Presente();
            const auto& testi = viste["SEZIONE CC"].testi;
            EXPECT_EQ(std::count_if(testi.begin(), testi.end(),
                                    [&](const TestoFig& t) { return t.testo == nome; }),
                      esiste)
                << nome;
            const bool sola = (j == 10 && !n.AttNerv(1)) || (j == 11 && !n.AttNerv(2));
            if (j != 7 && j != 8) {
                EXPECT_EQ(Conta(d, nome + "'") > 0, esiste && !sola) << nome;
            }
            EXPECT_EQ(Conta(d, nome + "/" + nome + "'"), esiste && !sola) << nome;
        }
        for (int i = 1; i <= 2; ++i) {
            EXPECT_EQ(Conta(d, "PIASTRA " + std::to_string(i + 3)), n.AttNerv(i));
        }
        if (HasFailure()) break;
    }
    EXPECT_EQ(massimo, 100);
}

TEST_F(Tavola, FilesOfOneJointAgree) {
    // DIS, GRB and DXF of the same joint; an outside reader takes the DXF.
    const prova::Cartella c;
    std::mt19937 g(7);
    for (int k = 0; k < 12; ++k) {
        const Nodo n = prova::NodoCasuale(s(), g);
        const std::string nome = (c / ("n" + std::to_string(k))).string();
        Disegno d, dis;
        DisegnoGrb grb;
        std::string errore;
        ASSERT_TRUE(DisegnaNodo(n, s().opz, Squadratura::si, d, kMuta));
        OpzioniDxf dxf;
        dxf.tipiLinea = k % 2 == 1;
        Disegno pulito = d;
        ASSERT_TRUE(SalvaDis(pulito, nome + ".dis", true, kMuta));
        ASSERT_TRUE(ScriviDxf(pulito, nome + ".dxf", s().font, dxf, true, kMuta));
        ASSERT_TRUE(SalvaGrb(n, s().opz, nome + ".grb", true, kMuta));
        ASSERT_TRUE(LeggiDis(nome + ".dis", dis, errore)) << errore;
        ASSERT_TRUE(LeggiGrb(nome + ".grb", grb, errore)) << errore;

        // What the GRB holds, its dimensions turned into measured lengths, against the DIS.
        const auto chiave = [](const Disegno& a, int i, int j) {
            const auto p = [&](int q) {
                const auto u = static_cast<std::size_t>(q);
                return std::pair{std::lround(a.coordX[u] * 1000), std::lround(a.coordY[u] * 1000)};
            };
            return std::pair{std::min(p(i), p(j)), std::max(p(i), p(j))};
        };
        std::set<std::pair<std::pair<long, long>, std::pair<long, long>>> inDis;
        for (const LineaDis& l : dis.linee) inDis.insert(chiave(dis, l.lineaIni, l.lineaFin));
        int mancanti = 0;
        for (const LineaDis& l : grb.base.linee) {
            // the cleaning of the DIS drops dashed strokes that lie on others
            if (l.lineaTipo == 0)
                mancanti += !inDis.count(chiave(grb.base, l.lineaIni, l.lineaFin));
        }
        EXPECT_EQ(mancanti, 0);
        std::multiset<std::string> testiDis, testiGrb;
        std::multiset<double> numeriDis, numeriGrb;
        for (const TestoDis& t : dis.testi) {
            const auto x = ValoreStretto(t.testoStringa);
            x ? void(numeriDis.insert(*x)) : void(testiDis.insert(t.testoStringa));
        }
        for (const TestoGrb& t : grb.testi) {
            const auto x = ValoreStretto(t.testoStringa);
            x ? void(numeriGrb.insert(*x)) : void(testiGrb.insert(t.testoStringa));
        }
        for (const QuotaGrb& q : grb.quote) {
            EXPECT_EQ(q.quotaTesto, kTestoPredefinito);
            const auto a = static_cast<std::size_t>(q.quotaP1),
                       b = static_cast<std::size_t>(q.quotaP2);
            const double dx = grb.base.coordX[b] - grb.base.coordX[a];
            const double dy = grb.base.coordY[b] - grb.base.coordY[a];
            EXPECT_EQ(q.quotaDir, dy == 0.0 ? "H" : "V");
            EXPECT_GT(dx + dy, 0.0) << "read from left to right or from the bottom up";
            numeriGrb.insert(dx + dy);
        }
        EXPECT_EQ(testiDis, testiGrb);
        ASSERT_EQ(numeriDis.size(), numeriGrb.size());
        for (auto a = numeriDis.begin(), b = numeriGrb.begin(); a != numeriDis.end(); ++a, ++b) {
            EXPECT_NEAR(*a, *b, 0.050001);
        }
        EXPECT_EQ(dis.archi.size(), grb.base.archi.size() + 0u);
        for (const LineaDis& l : grb.base.linee) EXPECT_LE(l.lineaColore, 7);
    }
    const std::string comando = "/usr/bin/python3 " TK07_SORGENTE
                                "/tests/validazione/leggi_dxf.py " +
                                c.Testo() + " > " + (c / "esito").string() + " 2>&1";
    EXPECT_EQ(std::system(comando.c_str()), 0) << prova::LeggiTesto(c / "esito");
}

TEST_F(Tavola, TextsOfTheSheet) {
    Nodo n = s().nodo;
    RicalcolaNervatura3(n);
    n.nBull = 3;
    for (int i = 1; i <= 3; ++i) n.Fibull(i) = i == 2 ? 20.0 : 16.0, n.Xbull(i) = 20.0 * i - 40.0;
    n.numNodi = 1;
    n.NomeNodi(1) = 12;
    EXPECT_EQ(TitoloTavola(n), "NODO TRAVE-TRAVE CON PIASTRE: nodo 12");
    n.numNodi = 3;
    n.NomeNodi(2) = 7, n.NomeNodi(3) = 101;
    n.AttNerv(1) = n.AttNerv(2) = false;
    Disegno d;
    ASSERT_TRUE(DisegnaNodo(n, s().opz, Squadratura::si, d, kMuta));
    for (const char* testo :
         {"NODO TRAVE-TRAVE CON PIASTRE: nodi 12,7,101", "SEZIONE CC", "SEZIONE BB", "SEZIONE AA",
          "PIASTRA 3", "TABELLA SALDATURE", "Descr.", "Lungh.", "Lato", "s10", "s1/s1'",
          "Piastre in acciaio tipo S 235 (FE 360)", "Viti classe 8.8",
          "Lato saldature su trave sec. 10", "Lato saldature su trave princ. 10"}) {
        EXPECT_GE(Conta(d, testo), 1) << testo;
    }
    // clearance of 2 mm: the holes of 16 and 20 mm bolts, in the order of the bolts
    EXPECT_EQ(Conta(d, "fori ]18,]22"), 2);
    EXPECT_EQ(Conta(d, "bulloni M16,M20"), 2);
    EXPECT_EQ(Conta(d, "PIASTRA 4") + Conta(d, "PIASTRA 5") + Conta(d, "s12"), 0);

    // Without plate above the secondary beam s1 keeps its mark and its row but has no strokes.
    n.distAlaSecPiastra = 0.0;
    const auto tratti = [&](double dist) {
        n.distAlaSecPiastra = dist;
        const ContestoDis c = ContestoTavola(n, GeometriaDi(n), s().opz);
        const Figura f = SezioneBB(c);
        return std::count_if(f.segmenti.begin(), f.segmenti.end(), [&](const SegmentoFig& x) {
            // welds of the web: vertical, between the flanges
            return x.colore == c.par.coloreSaldature && x.x1 == x.x2 &&
                   std::fabs(std::fabs(x.y1 - x.y2) - c.q.cordone(1).lunghezza) < 1e-9;
        });
    };
    EXPECT_EQ(tratti(0.0), 0);
    EXPECT_EQ(tratti(1.0), 4);
    EXPECT_EQ(Conta(d, "s1"), 3);
}

// Marks of cuts and rows of the table, by hand for the joint of round figures.
TEST_F(Tavola, CutsAndWeldTableOfTheRoundJoint) {
    const Nodo n = prova::NodoDiProva();
    const ContestoDis c = ContestoTavola(n, GeometriaDi(n), s().opz);
    // Where the tips of the arrows of a letter point: CC is seen from the front, BB towards the
    // main beam (to the left in CC and AA), AA from above (down in CC and BB).
    struct Taglio {
        Figura vista;
        const char* lettera;
        double dx, dy;
    };
    const Taglio tagli[] = {{SezioneCC(c), "A", 0, -1}, {SezioneCC(c), "B", -1, 0},
                            {SezioneBB(c), "A", 0, -1}, {SezioneBB(c), "C", 1, 0},
                            {SezioneAA(c), "B", -1, 0}, {SezioneAA(c), "C", 0, 1}};
    for (const Taglio& t : tagli) {
        SCOPED_TRACE(std::string(t.lettera) + " of " + t.vista.testi.back().testo);
        int punte = 0;
        for (const SegmentoFig& a : t.vista.segmenti) {
            // shafts: 1.1 letters long, and two strokes come back from their tip
            const double h = 1.1 * c.par.titoloVista;
            if (a.colore != c.par.coloreSegni ||
                std::fabs(std::hypot(a.x2 - a.x1, a.y2 - a.y1) - h) > 1e-9) {
                continue;
            }
            const long alette = std::count_if(
                t.vista.segmenti.begin(), t.vista.segmenti.end(), [&](const SegmentoFig& b) {
                    return b.x1 == a.x2 && b.y1 == a.y2 && std::hypot(b.x2 - a.x1, b.y2 - a.y1) < h;
                });
            if (alette != 2) continue;
            punte += std::fabs(a.x2 - a.x1 - h * t.dx) + std::fabs(a.y2 - a.y1 - h * t.dy) < 1e-9;
        }
        EXPECT_EQ(punte, 2) << "one arrow at each end of the trace";
    }
    std::vector<std::string> celle;
    for (const TestoFig& t : TabellaSaldature(c).testi) celle.push_back(t.testo);
    EXPECT_EQ(celle, (std::vector<std::string>{"TABELLA SALDATURE",
                                               "Descr.",
                                               "Lungh.",
                                               "Lato",
                                               "s1/s1'",
                                               "156",
                                               "6",
                                               "s2/s2'",
                                               "35",
                                               "6",
                                               "s3/s3'",
                                               "35",
                                               "6",
                                               "s4/s4'",
                                               "354",
                                               "8",
                                               "s5/s5'",
                                               "52",
                                               "8",
                                               "s6/s6'",
                                               "330",
                                               "8",
                                               "s7/s7'",
                                               "52",
                                               "8",
                                               "s8/s8'",
                                               "86",
                                               "8",
                                               "s9/s9'",
                                               "86",
                                               "8",
                                               "s10/s10'",
                                               "40",
                                               "6",
                                               "s11/s11'",
                                               "39",
                                               "6",
                                               "s12/s12'",
                                               "94",
                                               "6",
                                               "s13/s13'",
                                               "52",
                                               "6",
                                               "s14/s14'",
                                               "82",
                                               "6",
                                               "s15/s15'",
                                               "50",
                                               "6"}));
}

// Letters several times as high as the joint: leaders have no way out past the other labels. Every
// mark stands all the same, on no stroke and on no text, and in the order of the welds.
TEST_F(Tavola, NoMarkIsLostHoweverLargeTheLetters) {
    std::mt19937 g(5);
    for (const double alt : {25.0, 120.0, 400.0}) {
        Nodo n = prova::NodoCasuale(s(), g);
        while (!n.AttNerv(1) || !n.AttNerv(2) || n.TraPri.H > 200.0) n = prova::NodoCasuale(s(), g);
        Opzioni opz = s().opz;
        opz.Righe[10].Valore = alt;
        const ContestoDis c = ContestoTavola(n, GeometriaDi(n), opz);
        const Figura f = SezioneBB(c);
        std::vector<std::string> voluti{"C", "C"}, testi;
        for (const char* nome :
             {"s1", "s2", "s3", "s1'", "s2'", "s3'", "s10'", "s10", "s11'", "s11", "s13'", "s13",
              "s12'", "s12", "s15'", "s15", "s14'", "s14"}) {
            if (c.q.cordone(std::atoi(nome + 1)).Presente()) voluti.push_back(nome);
        }
        for (const char* numero : {"1", "2", "4", "5"}) voluti.push_back(numero);
        for (const TestoFig& t : f.testi) testi.push_back(t.testo);
        testi.erase(std::remove(testi.begin(), testi.end(), "A"), testi.end());
        testi.erase(std::remove(testi.begin(), testi.end(), "SEZIONE BB"), testi.end());
        EXPECT_EQ(testi, voluti) << alt;
        for (std::size_t i = 0; i < f.testi.size(); ++i) {
            const Ingombro r = IngombroTesto(f.testi[i]);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(SiToccano(r, IngombroTesto(f.testi[j]))) << f.testi[i].testo;
            }
            for (const SegmentoFig& t : f.segmenti) {
                if (t.colore == c.par.etichette.colore) continue;  // a leader may have to
                EXPECT_FALSE(Attraversa({t.x1, t.y1, t.x2, t.y2}, r)) << f.testi[i].testo;
            }
        }
    }
}

TEST(Quota, GeometryByHand) {
    // 30 mm long, arrows of 20: from outside. Line 50 above, read from the left.
    QuotaFig q;
    q.x1 = 30.0, q.distanza = 50.0;
    q.stile.dimTerminale = 20.0;
    QuotaEsplosa e = EsplodiQuota(q);
    ASSERT_EQ(e.segmenti.size(), 7u);
    const double lu = 20.0 * std::cos(std::acos(-1.0) / 12.0);
    EXPECT_NEAR(e.segmenti[3].x2, -lu, 1e-9) << "left arrow turned outward";
    EXPECT_NEAR(e.segmenti[4].x2, 30.0 + lu, 1e-9);
    EXPECT_EQ(e.testo.testo, "30");
    EXPECT_EQ(e.testo.angolo, 0);
    EXPECT_EQ(e.segmenti[0].y1, 5.0) << "the extension line starts short of the part";
    EXPECT_EQ(e.segmenti[0].y2, 58.0);
    q.x1 = 40.0;  // exactly two arrows: inside
    e = EsplodiQuota(q);
    EXPECT_NEAR(e.segmenti[3].x2, lu, 1e-9);
    // Vertical, given from above: turned to read from the bottom up; circles at the ends.
    q = {};
    q.y1 = 80.25;
    q.stile.terminale = Terminale::cerchio;
    e = EsplodiQuota(q);
    EXPECT_EQ(e.testo.testo, "80.2") << "half to even on the binary value";
    q.y1 = 0.5;
    EXPECT_EQ(TestoQuota(q), "0.5") << "no lone point";
    EXPECT_EQ(e.testo.angolo, 90);
    ASSERT_EQ(e.cerchi.size(), 2u);
    EXPECT_LT(e.cerchi[0].y, e.cerchi[1].y);
    EXPECT_FALSE(EsplodiQuota({}).valida);
}

TEST(Quota, CrowdedTextsAreSpreadInOrder) {
    // Least squares by hand: two of width 10 wanted at 0 and 4 part to -3 and 7 around their mean.
    EXPECT_EQ(CentriSeparati({0, 4}, {10, 10}, 0), (std::vector<double>{-3, 7}));
    EXPECT_EQ(CentriSeparati({0, 100, 101}, {10, 10, 10}, 2),
              (std::vector<double>{0, 94.5, 106.5}));
}

TEST(Profilo, PreviewsAtTheSameScale) {
    Nodo n;
    n.TraPri = {"a", 300, 150, 7.1, 10.7, 15};
    n.TraSec = {"b", 160, 82, 5, 7.4, 9};
    std::array<double, 2> alto{}, raggio{};
    std::array<Superficie, 2> d;
    for (std::size_t k = 0; k < 2; ++k) {
        d[k].ScaleWidth = 100, d[k].ScaleHeight = 100;
        d[k].linea = [&alto, k](double, double y1, double, double y2) {
            alto[k] = std::max({alto[k], y1, y2});
        };
        d[k].cerchio = [&raggio, k](double, double, double r, double, double) { raggio[k] += r; };
    }
    AnteprimeProfili(n, d[0], d[1]);
    EXPECT_EQ(d[0].yMax, d[1].yMax);
    EXPECT_EQ(alto, (std::array<double, 2>{150, 80}));
    EXPECT_EQ(raggio, (std::array<double, 2>{60, 36})) << "four fillets each";
    EXPECT_GT(d[0].yMax, 150);
}

TEST(Grb, LayoutByHand) {
    DisegnoGrb g;
    g.base.tipoLineaCorrente = 2;
    DisegnaSegmento(g.base, 0, 0, 100, 0, 9, kMuta);
    DisegnaCerchio(g.base, 50, 0, 20, 8, kMuta);
    GrbTesto(g, "n° 1", 0, 0, 100, 40, 89.6, 1, 3, kMuta);
    GrbQuota(g, " ", 0, 0, 100, 0, -50.5, 2, kMuta);
    GrbQuota(g, "x", 7, 7, 7, 7, 10, 2, kMuta);  // no length: not stored
    const std::string zero = "                   0\n";
    EXPECT_EQ(
        ComponiGrb(g),
        "                   4\n                   5                   2                   0\n" +
            zero + zero + zero + zero + zero + zero +
            " 0             100 \n 0             20 \n 5 \n"
            " 0             0 \n 100           0 \n 50            0 \n 60            0 \n"
            " 50            20 \n0\n 1 \n 0             1 \n 1             2             0 \n"
            " 1 \n 2             3             3 \n 1             0             0 \n"
            " 1 \n 4             2             90            0             1 \nn° 1\n" +
            zero + zero +
            " 1 \n0                    1                   -1                  H\n"
            " 2            -50.5 \nStringa_di_default\n0\n");
    EXPECT_EQ(RigaCampi20("a234567890123456789012345", " b ", "", "d").size(), 62u);
    for (const auto& [da, a] : {std::pair{0, 0}, {7, 7}, {8, 1}, {9, 1}, {-1, 1}}) {
        EXPECT_EQ(ColoreGrb(static_cast<short>(da)), a);
    }
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    for (int k = 0; k < kMaxQuoteGrb + 5; ++k) GrbQuota(g, "", 0, 0, 1, 1, 5, 1, p);
    EXPECT_EQ(g.quote.size(), static_cast<std::size_t>(kMaxQuoteGrb));
    EXPECT_EQ(porta.Testi(), std::vector<std::string>{"Superato il numero massimo di quote"});
    EXPECT_EQ(g.quote.back().quotaDir, "P");

    const prova::Cartella c;
    const std::string file = (c / "x.grb").string(), testo = ComponiGrb(g);
    DisegnoGrb letto;
    std::string errore;
    for (std::size_t k = testo.find('\n'); k != std::string::npos && k + 1 < testo.size();
         k = testo.find('\n', k + 90)) {
        prova::ScriviTesto(file, testo.substr(0, k + 1));
        EXPECT_FALSE(LeggiGrb(file, letto, errore)) << k;
    }
    EXPECT_TRUE(letto.base.coordX.empty());
}

}  // namespace
}  // namespace tk07
