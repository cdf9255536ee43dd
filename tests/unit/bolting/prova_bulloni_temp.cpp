#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "bolting/bulloni_temp.h"

namespace tk07 {
namespace {

// X, Y, diameter, selection
using Bullone = std::array<double, 4>;
using Lista = std::vector<Bullone>;

Bullone Slot(const BulloniTemp& t, int i) {
    return {t.XbullTemp(i), t.YbullTemp(i), t.FibullTemp(i), t.SelBullTemp(i)};
}

Lista ListaDi(const BulloniTemp& t) {
    Lista l;
    for (int i = 1; i <= t.nBullTemp; ++i) l.push_back(Slot(t, i));
    return l;
}

BulloniTemp CopiaDi(const Lista& l) {
    BulloniTemp t;
    for (const Bullone& b : l) {
        AccodaBullone(t, b[0], b[1], b[2]);
        t.SelBullTemp(t.nBullTemp) = b[3];
    }
    return t;
}

TEST(Scatta5, HalvesGoAwayFromZero) {
    const std::array<std::array<double, 2>, 10> casi{{{12.4, 10.0},
                                                      {12.5, 15.0},
                                                      {-12.5, -15.0},
                                                      {-12.4, -10.0},
                                                      {2.4999, 0.0},
                                                      {2.5, 5.0},
                                                      {-2.5, -5.0},
                                                      {0.0, 0.0},
                                                      {247.5, 250.0},
                                                      {-1234.0, -1235.0}}};
    for (const auto& [v, atteso] : casi) EXPECT_EQ(Scatta5(v), atteso) << v;
    EXPECT_FALSE(std::signbit(Scatta5(-1.0)));  // "0", not "-0"
}

TEST(BulloniTemp, OnlyTheConfirmationReachesTheJoint) {
    const auto n = std::make_unique<Nodo>();
    n->nBull = 2;
    n->Xbull(1) = -40, n->Ybull(1) = 60, n->Fibull(1) = 12, n->SelBull(1) = 1.0;
    n->Xbull(2) = 40, n->Ybull(2) = 60, n->Fibull(2) = 16;
    n->Xbull(3) = 999.0;  // behind the count: not a bolt
    BulloniTemp t;
    t.attesaClick = 1;
    t.XbullTemp(3) = 777.0;
    CopiaDalNodo(*n, t);
    EXPECT_EQ(ListaDi(t), (Lista{{-40, 60, 12, 1}, {40, 60, 16, 0}}));
    EXPECT_EQ(t.attesaClick, 0);
    EXPECT_EQ(Slot(t, 3), (Bullone{0, 0, 0, 0}));
    Seleziona(t, Selezione::tutti);
    TraslaSelezionati(t, Asse::Y, 30.0);
    AccodaBullone(t, 0.0, 200.0, 20.0);
    EXPECT_EQ(n->nBull, 2);
    EXPECT_EQ(n->Ybull(1), 60.0);
    EXPECT_EQ(n->SelBull(2), 0.0);
    CopiaNelNodo(t, *n);
    EXPECT_EQ(n->nBull, 3);
    EXPECT_EQ(n->Ybull(1), 90.0);
    EXPECT_EQ(n->Fibull(2), 16.0);
    EXPECT_EQ(n->Xbull(3), 0.0);
    EXPECT_EQ(n->Fibull(3), 20.0);
    EXPECT_EQ(n->SelBull(2), 1.0);  // the selection outlives the editing
    EXPECT_EQ(n->SelBull(3), 0.0);
}

TEST(AggiungiSingolo, ThePressPlacesTheBoltOnTheGrid) {
    BulloniTemp t = CopiaDi({{-40, 60, 12, 0}});
    EXPECT_FALSE(PosaBullone(t, 10.0, 10.0, 12.0));
    EXPECT_EQ(ListaDi(t), (Lista{{-40, 60, 12, 0}}));
    AggiungiSingolo(t);
    EXPECT_EQ(t.nBullTemp, 2);
    EXPECT_EQ(t.attesaClick, 1);
    EXPECT_TRUE(PosaBullone(t, -12.5, 112.4, 14.0));
    EXPECT_EQ(ListaDi(t), (Lista{{-40, 60, 12, 0}, {-15, 110, 14, 0}}));
    EXPECT_FALSE(PosaBullone(t, 0.0, 0.0, 12.0));  // one press only
}

TEST(AggiungiSingolo, AbandonedBoltStaysWithWhatItsSlotHeld) {
    BulloniTemp t = CopiaDi({{-40, 60, 12, 0}, {35, 65, 16, 1}});
    RimuoviUltimo(t);
    AggiungiSingolo(t);
    AnnullaAttesa(t);
    EXPECT_EQ(t.attesaClick, 0);
    EXPECT_EQ(ListaDi(t), (Lista{{-40, 60, 12, 0}, {35, 65, 16, 1}}));
    EXPECT_FALSE(PosaBullone(t, 0.0, 0.0, 12.0));
    AggiungiSingolo(t);  // a slot never used
    AnnullaAttesa(t);
    EXPECT_EQ(Slot(t, 3), (Bullone{0, 0, 0, 0}));
    EXPECT_EQ(t.nBullTemp, 3);
}

TEST(PosaBullone, MovesTheLastBoltWhenTheAwaitedOneHasGone) {
    BulloniTemp t = CopiaDi({{-40, 60, 12, 0}});
    AggiungiSingolo(t);
    RimuoviUltimo(t);
    EXPECT_TRUE(PosaBullone(t, 20.0, 30.0, 16.0));
    EXPECT_EQ(ListaDi(t), (Lista{{20, 30, 16, 0}}));
    AggiungiSingolo(t);
    RimuoviTutti(t);
    EXPECT_TRUE(PosaBullone(t, 20.0, 30.0, 16.0));
    EXPECT_EQ(t.nBullTemp, 0);
}

TEST(RimuoviSelezionati, SlotsBehindTheCountAreNoBolts) {
    BulloniTemp t =
        CopiaDi({{1, 0, 12, 0}, {2, 0, 12, 1}, {3, 0, 12, 1}, {4, 0, 12, 0}, {5, 0, 12, 1}});
    RimuoviSelezionati(t);
    EXPECT_EQ(ListaDi(t), (Lista{{1, 0, 12, 0}, {4, 0, 12, 0}}));
    for (const int nessuno : {-1, 0, 3}) RimuoviNumero(t, nessuno);
    EXPECT_EQ(t.nBullTemp, 2);
    Seleziona(t, Selezione::tutti);
    RimuoviSelezionati(t);
    RimuoviSelezionati(t);
    RimuoviUltimo(t);
    EXPECT_EQ(t.nBullTemp, 0);
}

TEST(EliminaDoppi, TheHigherNumberGoes) {
    BulloniTemp t = CopiaDi({{1, 2, 12, 0},
                             {1, 2, 12, 1},
                             {5, 2, 12, 0},
                             {1, 2, 16, 0},
                             {5, 2, 12, 1},
                             {1, 2, 12, 1},
                             {1, 2.0000001, 12, 0}});
    EliminaDoppi(t);
    // the survivors keep the selection of the lower number; a diameter or a hair apart is no double
    EXPECT_EQ(ListaDi(t),
              (Lista{{1, 2, 12, 0}, {5, 2, 12, 0}, {1, 2, 16, 0}, {1, 2.0000001, 12, 0}}));
    t = CopiaDi({{1, 2, 12, 0}, {1, 2, 12, 0}, {5, 2, 12, 0}});
    EliminaDoppi(t);  // the last bolt leaves its values in slot 3, which is no double of it
    EXPECT_EQ(ListaDi(t), (Lista{{1, 2, 12, 0}, {5, 2, 12, 0}}));
}

TEST(CopiaSelezionati, CopiesGoToTheEndWithTheSelectionOfTheirSlots) {
    BulloniTemp t = CopiaDi({{1, 2, 12, 1}, {3, 4, 14, 0}, {5, 6, 16, 1}, {0, 0, 0, 1}});
    RimuoviUltimo(t);  // slot 4 stays selected, slot 5 is new
    CopiaSelezionati(t, Asse::X, -10.0);
    EXPECT_EQ(ListaDi(t),
              (Lista{{1, 2, 12, 1}, {3, 4, 14, 0}, {5, 6, 16, 1}, {-9, 2, 12, 1}, {-5, 6, 16, 0}}));
    Seleziona(t, Selezione::nessuno);
    t.SelBullTemp(2) = 1.0;
    CopiaSelezionati(t, Asse::Y, 0.5);
    EXPECT_EQ(Slot(t, 6), (Bullone{3, 4.5, 14, 0}));
    EXPECT_EQ(t.nBullTemp, 6);
}

TEST(BulloniTemp, Bolt101IsFatalAndChangesNothing) {
    BulloniTemp pieno;
    for (int i = 1; i <= kMaxBulloni; ++i) AccodaBullone(pieno, i, 2.0 * i, 12.0);
    EXPECT_EQ(pieno.nBullTemp, 100);
    EXPECT_EQ(Slot(pieno, 100), (Bullone{100, 200, 12, 0}));
    BulloniTemp quasi = pieno;  // 98 bolts, 3 of them selected
    RimuoviUltimo(quasi);
    RimuoviUltimo(quasi);
    for (const int i : {1, 50, 98}) quasi.SelBullTemp(i) = 1.0;
    BulloniTemp unoSel = pieno;
    unoSel.SelBullTemp(100) = 1.0;
    const std::vector<std::pair<BulloniTemp, std::function<void(BulloniTemp&)>>> casi{
        {pieno, [](BulloniTemp& t) { AggiungiSingolo(t); }},
        {pieno, [](BulloniTemp& t) { AccodaBullone(t, 0, 0, 12); }},
        {unoSel, [](BulloniTemp& t) { CopiaSelezionati(t, Asse::X, 5); }},
        {quasi, [](BulloniTemp& t) { CopiaSelezionati(t, Asse::Y, 5); }}};
    for (const auto& [prima, aggiungi] : casi) {
        BulloniTemp t = prima;
        EXPECT_THROW(aggiungi(t), ErroreFatale);
        EXPECT_TRUE(t == prima);
    }
    quasi.SelBullTemp(1) = 0.0;
    CopiaSelezionati(quasi, Asse::X, 5.0);  // up to the hundredth is no fault
    EXPECT_EQ(quasi.nBullTemp, 100);
    RimuoviNumero(pieno, 1);  // closing a gap in a full copy reads no slot 101
    EXPECT_EQ(Slot(pieno, 99), (Bullone{100, 200, 12, 0}));
    EXPECT_EQ(pieno.nBullTemp, 99);
    // more bolts than a joint can hold
    const auto n = std::make_unique<Nodo>();
    n->nBull = 101;
    EXPECT_THROW(CopiaDalNodo(*n, pieno), ErroreFatale);
}

// Any sequence of operations does what it does on a plain list. Few places and diameters, so that
// doubles happen; what a new bolt finds in its slot is read before the operation.
TEST(BulloniTemp, AnySequenceEqualsThatOnAPlainList) {
    std::mt19937 g(20260307);
    const auto tra = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(g); };
    const auto selezionato = [](const Bullone& b) { return b[3] == 1.0; };
    int doppi = 0, fatali = 0;
    for (int giro = 0; giro < 400; ++giro) {
        BulloniTemp t;
        Lista l;
        for (int passo = 0; passo < 120; ++passo) {
            int op = tra(0, 13);
            // half of the rounds select more and remove less, so that they fill up
            if (giro % 2 == 1 && (op == 3 || op == 5 || op == 11) && tra(0, 3) > 0) op = 12;
            const double d = 5.0 * tra(-2, 2);
            const std::size_t asse = static_cast<std::size_t>(tra(0, 1));
            const Asse a = asse == 0 ? Asse::X : Asse::Y;
            const BulloniTemp prima = t;
            const auto vecchiaSel = [&](std::size_t i) {
                return i <= 100 ? prima.SelBullTemp(static_cast<long>(i)) : 0.0;
            };
            Lista dopo = l;
            if (op <= 2) {
                dopo.push_back({d, 5.0 * tra(0, 2), 12.0, vecchiaSel(l.size() + 1)});
            } else if (op == 3) {
                if (!l.empty()) dopo.pop_back();
            } else if (op == 4 && !l.empty()) {
                dopo.erase(dopo.begin() + tra(0, static_cast<int>(l.size()) - 1));
            } else if (op == 5) {
                std::erase_if(dopo, selezionato);
            } else if (op == 6 || op == 7) {
                for (const Bullone& b : l) {
                    if (!selezionato(b)) continue;
                    dopo.push_back(b);
                    dopo.back()[asse] += d;
                    dopo.back()[3] = vecchiaSel(dopo.size());
                }
            } else if (op == 8) {
                for (Bullone& b : dopo) b[asse] += selezionato(b) ? d : 0.0;
            } else if (op == 9) {
                for (Bullone& b : dopo) b[2] = selezionato(b) ? 12.0 + d : b[2];
            } else if (op == 10) {
                const double v = tra(0, 3) == 0 ? 1.0 : 0.0;
                for (Bullone& b : dopo) b[3] = v;
            } else if (op == 11) {
                dopo.clear();
                for (const Bullone& b : l) {
                    if (std::none_of(dopo.begin(), dopo.end(), [&](const Bullone& c) {
                            return std::equal(b.begin(), b.begin() + 3, c.begin());
                        })) {
                        dopo.push_back(b);
                    }
                }
                doppi += dopo.size() < l.size() ? 1 : 0;
            } else if (op == 12 && !l.empty()) {
                const int i = tra(1, static_cast<int>(l.size()));
                dopo[static_cast<std::size_t>(i - 1)][3] = 1.0;
            } else if (op == 13 && giro % 10 == 0 && passo == 60) {
                dopo.clear();
            }
            const auto esegui = [&] {
                if (op <= 2) {
                    AggiungiSingolo(t);
                    PosaBullone(t, dopo.back()[0] + 2.4, dopo.back()[1] - 2.4, 12.0);
                } else if (op == 3) {
                    RimuoviUltimo(t);
                } else if (op == 4 && !l.empty()) {
                    // the number of the bolt that the list has lost
                    const auto m = std::mismatch(dopo.begin(), dopo.end(), l.begin());
                    RimuoviNumero(t, static_cast<int>(m.first - dopo.begin()) + 1);
                } else if (op == 5) {
                    RimuoviSelezionati(t);
                } else if (op == 6 || op == 7) {
                    CopiaSelezionati(t, a, d);
                } else if (op == 8) {
                    TraslaSelezionati(t, a, d);
                } else if (op == 9) {
                    CambiaDiametro(t, 12.0 + d);
                } else if (op == 10 && !l.empty()) {
                    Seleziona(t, selezionato(dopo[0]) ? Selezione::tutti : Selezione::nessuno);
                } else if (op == 11) {
                    EliminaDoppi(t);
                } else if (op == 12) {
                    for (std::size_t i = 0; i < l.size(); ++i) {
                        t.SelBullTemp(static_cast<long>(i) + 1) = dopo[i][3];
                    }
                } else if (op == 13 && dopo.empty()) {
                    RimuoviTutti(t);
                }
            };
            if (dopo.size() > 100) {
                ++fatali;
                ASSERT_THROW(esegui(), ErroreFatale);
                ASSERT_TRUE(t == prima);
                continue;
            }
            esegui();
            ASSERT_EQ(ListaDi(t), dopo) << "giro " << giro << " passo " << passo << " op " << op;
            l = dopo;
        }
    }
    EXPECT_GT(doppi, 100);  // the sequences reach what they are for
    EXPECT_GT(fatali, 100);
}

}  // namespace
}  // namespace tk07
