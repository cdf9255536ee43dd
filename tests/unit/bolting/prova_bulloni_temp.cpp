#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <memory>
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

}  // namespace
}  // namespace tk07
