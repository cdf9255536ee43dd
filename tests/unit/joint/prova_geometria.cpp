#include <gtest/gtest.h>

#include <map>

#include "joint/geometria.h"
#include "unit/verification/nodo_di_prova.h"

namespace tk07 {
namespace {

// The joint of round figures: beams 400 x 200 (web 10, flanges 15) and 200 x 100 (web 6, flanges
// 10), 100 between the upper flanges; plate 1 370 high and 15 thick, plate 2 320 and 20, 60 above
// the beam; legs 6 and 8; rib 3 80 wide, its corners cut by 20.
TEST(GeometriaNodo, RoundJointByHand) {
    Nodo n = prova::NodoDiProva();
    n.SmussoNerv(2) = 500;  // no more than the rib's height of 60
    const Geometria g = GeometriaDi(n);
    const std::pair<double, double> livelli[] = {
        {g.yS, 85},    {g.yS2, 285},     {g.yAsse, 185},    {g.piastra(2).yMin, 25},
        {g.xP1, 85},   {g.xP2, 100},     {g.xS, 120},       {g.piastra(2).yMax, 345},
        {g.zS, -100},  {g.zS2, 100},     {g.zAsse, 0},      {g.piastra(1).yMax, 370},
        {g.zP1, -185}, {g.zP12, 185},    {g.zP2, -160},     {g.zP22, 160},
        {g.xAnima, 5}, {g.zAlaPri, 185}, {g.sporto(1), 60}, {g.sporto(2), 60}};
    for (const auto& [avuto, atteso] : livelli) EXPECT_EQ(avuto, atteso);
    EXPECT_EQ(std::pair(g.comune.xMin, g.comune.xMax), std::pair(-90.0, 90.0));
    EXPECT_EQ(std::pair(g.comune.yMin, g.comune.yMax), std::pair(25.0, 345.0));
    EXPECT_EQ(std::pair(g.strisce.yInf1, g.strisce.yInf2), std::pair(25.0, 85.0));
    EXPECT_EQ(std::pair(g.strisce.ySup1, g.strisce.ySup2), std::pair(285.0, 345.0));

    const std::map<int, std::vector<Punto2>> nervature = {
        {1, {{120, 100}, {220, 100}, {220, 130}, {120, 160}, {120, 100}}},
        {2, {{180, -100}, {210, -100}, {210, -105}, {120, -160}, {120, -160}}},
        {3, {{25, -185}, {85, -185}, {85, 185}, {25, 185}, {5, 165}, {5, -165}}}};
    for (const auto& [k, vertici] : nervature) {
        const SagomaNervatura& r = g.nervatura(k);
        EXPECT_EQ(std::vector<Punto2>(r.inNodo.begin(), r.inNodo.begin() + r.nVertici), vertici);
    }

    // Ends of the lines, and in order the leg's directions; s3 at the lower flange, s11 below it.
    struct Atteso {
        int linea;
        Punto3 da, a, uno, due;
    };
    const Atteso attesi[] = {{1, {120, 3, -78}, {120, 3, 78}, {1, 0, 0}, {0, 1, 0}},
                             {2, {120, 15, 90}, {120, 50, 90}, {1, 0, 0}, {0, 0, -1}},
                             {3, {120, 15, -90}, {120, 50, -90}, {1, 0, 0}, {0, 0, 1}},
                             {4, {85, 6, -177}, {85, 6, 177}, {-1, 0, 0}, {0, 1, 0}},
                             {5, {25, 6, 185}, {77, 6, 185}, {0, 0, -1}, {0, 1, 0}},
                             {6, {5, 6, -165}, {5, 6, 165}, {1, 0, 0}, {0, 1, 0}},
                             {7, {25, 6, -185}, {77, 6, -185}, {0, 0, 1}, {0, 1, 0}},
                             {8, {85, 14, 185}, {85, 100, 185}, {-1, 0, 0}, {0, 0, -1}},
                             {9, {85, 14, -185}, {85, 100, -185}, {-1, 0, 0}, {0, 0, 1}},
                             {10, {120, 10, 100}, {120, 50, 100}, {1, 0, 0}, {0, 0, 1}},
                             {11, {120, 11, -100}, {120, 50, -100}, {1, 0, 0}, {0, 0, -1}},
                             {12, {126, 4, 100}, {220, 4, 100}, {0, 0, 1}, {0, 1, 0}},
                             {13, {120, 4, 106}, {120, 4, 158}, {1, 0, 0}, {0, 1, 0}},
                             {14, {126, 5, -100}, {208, 5, -100}, {0, 0, -1}, {0, 1, 0}},
                             {15, {120, 5, -106}, {120, 5, -156}, {1, 0, 0}, {0, 1, 0}}};
    for (const Atteso& a : attesi) {
        SCOPED_TRACE(a.linea);
        const Cordone& c = g.cordone(a.linea);
        EXPECT_EQ(c.da, a.da);
        EXPECT_EQ(c.a, a.a);
        EXPECT_EQ(c.versoUno, a.uno);
        EXPECT_EQ(c.versoDue, a.due);
        EXPECT_TRUE(c.previsto && c.doppio && c.Presente());
        EXPECT_EQ(c.lato, c.gruppo == GruppoSald::S2 ? 8 : 6);
        EXPECT_EQ(c.gruppo == GruppoSald::S2, a.linea >= 4 && a.linea <= 9);
    }
    const std::vector<LineaSaldatura> linee = LineeSaldatura(g);
    ASSERT_EQ(linee.size(), 30U);
    for (const LineaSaldatura& l : linee) EXPECT_EQ(l.indice >= kSpecchio, l.da[1] < 0.0);

    n.Xbull(1) = -60, n.Ybull(1) = 55, n.Fibull(1) = 20;
    for (const auto& [k, y] : {std::pair{1, 55.0}, {2, 30.0}}) {
        const Foro f = ForoInPiastra(n, g, k, 1, 2.0);
        EXPECT_EQ((std::array{f.x, f.y, f.d}), (std::array{-60.0, y, 22.0}));
    }
}

TEST(GeometriaNodo, LinesThatAreMissing) {
    Nodo n = prova::NodoDiProva();
    n.AttNerv(1) = false;
    n.distAlaSecPiastra = 5.9;  // less than the leg
    n.BNerv(2) = 0;
    Geometria g = GeometriaDi(n);
    EXPECT_FALSE(g.cordone(10).previsto || g.cordone(12).previsto || g.cordone(13).previsto);
    EXPECT_TRUE(g.cordone(11).previsto);
    EXPECT_FALSE(g.nervatura(1).attiva || g.nervatura(1).conForma || g.nervatura(2).conForma);
    EXPECT_STREQ(GrandezzaMancante(g), "larghezza della nervatura 2 (saldatura s15)");
    n.AttNerv(2) = false;  // no rib, nothing to miss
    n.distAlaSecPiastra = 6;
    g = GeometriaDi(n);
    EXPECT_EQ(GrandezzaMancante(g), nullptr);
    // without its rib a line goes from side to side and has no mirror
    EXPECT_TRUE(g.cordone(10).previsto && !g.cordone(10).doppio);
    EXPECT_EQ(g.cordone(10).da, (Punto3{120, -50, 100}));
    EXPECT_EQ(LineeSaldatura(g).size(), 2U * 9 + 2U);
}

}  // namespace
}  // namespace tk07
