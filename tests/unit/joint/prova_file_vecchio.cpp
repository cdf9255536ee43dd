#include <gtest/gtest.h>

#include "aiuti/prova.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "joint/file_nodo.h"

namespace tk07 {
namespace {

using Righe = std::vector<std::string>;

const Righe kVecchio = {"VERNTC",
                        "\"IPE400\"",
                        "\"trave secondaria di nome lungo, sessanta caratteri in tutto\"",
                        "0.30000000000000004 , 1e6",  // the distances stand in the order 1, 3, 2
                        "-5.5",
                        "180,373,14",
                        "160 350.125 15",
                        "True 7 56 30 120 1",
                        "  FALSE  8\t57 31 121 2",
                        "0 9 58 32 122 .5",
                        "6.5,6",
                        "2",
                        "-45,40,16",
                        "45,1e-7,20",
                        "\"S 275 (FE 430)\",\"8.8\"",
                        "2",  // exposure from 1; the keyed file counts it from 0
                        "2",
                        "1e2,-9000,2,3,4,5,1,\"pi\xF9 vento, 3 \x80\"",
                        "11,12,13,14,15,16,0,\"\"",
                        "2",
                        "3,-9",
                        "1"};

// The same joint in the keyed format, one byte a character: value, bracket in column 41 or one
// blank behind a longer value, nothing before the bracket of an empty one.
const std::string kNuovo = prova::LeggiTesto(TK07_SORGENTE "/tests/unit/joint/atteso_vecchio.tk7");

std::unique_ptr<Nodo> Memoria() {
    auto p = std::make_unique<Nodo>();
    Nodo& n = *p;
    n.nBull = n.nSollAg = n.numNodi = 2;
    n.distAlaSecPiastra = n.distPiastraTraPri = n.distAliPriSec = n.spSaldS1 = n.spSaldS2 = -77.0;
    for (auto* t : {&n.BPiastra, &n.HPiastra, &n.SpPiastra}) t->Riempi(-77.0);
    for (auto* t : {&n.SpNerv, &n.H1Nerv, &n.H2Nerv, &n.BNerv, &n.SmussoNerv}) t->Riempi(-77.0);
    for (auto* t : {&n.Xbull, &n.Ybull, &n.Fibull}) t->Riempi(-77.0);
    for (auto* t : {&n.SforzoNormale, &n.TaglioY, &n.TaglioZ, &n.MomTorc, &n.MomY, &n.MomZ}) {
        t->Riempi(-77.0);
    }
    n.CasoCarico.Riempi(-7);
    n.NomeSa.Riempi("di prima");
    n.Esposizione = 2;
    n.TipoVer = 0;
    return p;
}

struct Banco {
    prova::Cartella cartella;
    prova::Porta porta;
    std::string file = (cartella / "nodo.tk7").string();
    NoteLettura note;
    std::unique_ptr<Nodo> Leggi(const std::string& testo) {
        prova::ScriviTesto(file, testo);
        auto n = Memoria();
        note = NoteLettura{};
        EXPECT_TRUE(LeggiFileNodoVecchio(*n, file, porta.Fai(), &note));
        EXPECT_TRUE(porta.detti.empty());
        return n;
    }
    Righe Chiavi(const Nodo& n) { return Dividi(TestoFileNodo(n, porta.Fai().orologio()), '\n'); }
};

std::string Unite(Righe righe, std::size_t quante, const char* fine = "\r\n") {
    righe.resize(quante);
    std::string t;
    for (const std::string& r : righe) t += r + fine;
    return t;
}

TEST(FileVecchio, BecomesTheKeyedFileByteForByte) {
    Banco b;
    const auto n = b.Leggi(Unite(kVecchio, kVecchio.size()));
    EXPECT_EQ(b.note.RigaInterrotta, 0) << b.note.Causa;
    ASSERT_TRUE(ScriviFileNodo(*n, b.file, b.porta.Fai()));
    const std::string scritto = prova::LeggiTesto(b.file);
    EXPECT_EQ(scritto, kNuovo);
    // and read back from there
    const auto letto = std::make_unique<Nodo>();
    ASSERT_TRUE(LeggiFileNodo(*letto, b.file, b.porta.Fai()));
    EXPECT_EQ(letto->distAlaSecPiastra, 0.1 + 0.2);
    EXPECT_EQ(b.Chiavi(*letto), b.Chiavi(*n));
}

TEST(FileVecchio, WithoutTheMarkThereIsNoExposure) {
    Righe righe = kVecchio;
    righe[8] = "vero 8 57 31 121 2";  // any word but false
    righe.erase(righe.begin() + 15);  // the exposure
    righe.erase(righe.begin());       // the mark
    righe[0] = "  IPE400 ";
    Banco b;
    const auto n = b.Leggi(Unite(righe, righe.size(), "\n"));
    EXPECT_EQ(b.note.RigaInterrotta, 0) << b.note.Causa;
    EXPECT_EQ(n->TraPri.Nome, "IPE400");
    EXPECT_TRUE(n->AttNerv(2));
    EXPECT_EQ(n->Esposizione, 2);  // that of the joint in memory
    EXPECT_EQ(n->NomeSa(1), "");
    EXPECT_EQ(n->TipoVer, 1);
}

TEST(FileVecchio, WhatWasReadBeforeTheFileEndsStays) {
    Banco b;
    const Righe tutto = b.Chiavi(*b.Leggi(Unite(kVecchio, kVecchio.size())));
    const Righe memoria = b.Chiavi(*Memoria());
    ASSERT_EQ(tutto.size(), memoria.size());
    std::size_t ultimo = 0;
    for (std::size_t k = 2; k <= kVecchio.size(); ++k) {
        const Righe r = b.Chiavi(*b.Leggi(Unite(kVecchio, k)));
        ASSERT_EQ(r.size(), tutto.size());
        std::size_t letti = 0;
        for (std::size_t i = 0; i < r.size(); ++i) {
            ASSERT_TRUE(r[i] == tutto[i] || r[i] == memoria[i]) << k << " righe: " << r[i];
            letti += r[i] == tutto[i] ? 1u : 0u;
        }
        // a line that only repeats a count brings nothing new
        if (kVecchio[k - 1] == "2") {
            ASSERT_GE(letti, ultimo);
        } else {
            ASSERT_GT(letti, ultimo) << k << " righe";
        }
        ultimo = letti;
        EXPECT_EQ(b.note.RigaInterrotta > 0, k < kVecchio.size()) << k << " righe";
    }
    EXPECT_EQ(ultimo, tutto.size());
    // cut anywhere: no crash, no box
    const std::string intero = Unite(kVecchio, kVecchio.size());
    for (std::size_t k = 1; k < intero.size(); ++k) b.Leggi(intero.substr(0, k));
}

TEST(FileVecchio, CountsBelowZeroAndTextsThatAreKeysAreTold) {
    Righe righe = kVecchio;
    righe[11] = "-5";  // bolts
    righe[17] = "1e2,-9000,2,3,4,5,1,\"99 [nBull]\"";
    righe[19] = "-1";  // nodes
    for (const int riga : {20, 13, 12}) righe.erase(righe.begin() + riga);
    Banco b;
    const auto n = b.Leggi(Unite(righe, righe.size()));
    EXPECT_EQ(b.note.RigaInterrotta, 0) << b.note.Causa;
    EXPECT_EQ(n->nBull + n->numNodi, 0);
    EXPECT_EQ(n->NomeSa(0), "99 (nBull]");
    EXPECT_EQ(n->TipoVer, 1);
    ASSERT_EQ(b.note.Valori.size(), 3u);
    for (const auto& [k, attesa] :
         {std::pair{0, "riga 12, chiave nBull"}, std::pair{1, "riga 16, chiave NomeSa"},
          std::pair{2, "riga 18, chiave numNodi"}}) {
        EXPECT_EQ(b.note.Valori[static_cast<std::size_t>(k)].rfind(attesa, 0), 0u);
    }
}

TEST(FileVecchio, AValueThatIsNoneStopsTheReading) {
    Banco b;
    const std::pair<std::size_t, const char*> guasti[] = {
        {4, "x"},      {4, "1e999"},    {5, "180;373;14"}, {7, "True 7 56"}, {11, "101"},
        {11, "40000"}, {12, "-45,,16"}, {15, "4"},         {16, "502"},      {17, "1,2,tre"},
        {19, "2001"},  {21, "2"},       {21, "-1"}};
    for (const auto& [riga, testo] : guasti) {
        Righe righe = kVecchio;
        righe[riga] = testo;
        const auto n = b.Leggi(Unite(righe, righe.size()));
        EXPECT_NEAR(b.note.RigaInterrotta, static_cast<double>(riga) + 1.5, 0.6) << testo;
        EXPECT_EQ(n->TipoVer, 0) << testo;
        EXPECT_EQ(n->spSaldS1, riga < 10 ? -77.0 : 6.5) << testo;
    }
}

}  // namespace
}  // namespace tk07
