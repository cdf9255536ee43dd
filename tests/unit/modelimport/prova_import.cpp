#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <numeric>
#include <tuple>

#include "modelimport/risultati_analisi.h"
#include "unit/modelimport/modello.h"

namespace tk07 {
namespace {

using prova::Struttura;
using prova::Testata;
using Sei = std::array<double, 6>;  // N Ty Tz Mt My Mz

constexpr const char* kCaso1 = "Impossibile leggere le sollecitazioni del caso di carico 1";

struct Import : testing::Test {
    prova::Cartella c;
    prova::Porta porta;
    Piattaforma p = porta.Fai();
    Nodo nodo;
    RichiestaImport r{"102", "11", "1", "", "0", ModoImport::tutti};

    void SetUp() override { Scrivi("STRUTTUR.STR", Struttura()); }
    void Scrivi(const std::string& nome, const std::string& testo) {
        prova::ScriviTesto(c / nome, testo);
    }
    void Fai(EsitoImport atteso = EsitoImport::bene) {
        EXPECT_EQ(ImportaSollecitazioni(c.Testo(), r, nodo, p), atteso);
    }
    // The import fails with this one box.
    void Fallisce(const std::string& testo) {
        porta.detti.clear();
        Fai(EsitoImport::fallito);
        EXPECT_EQ(porta.Testi(), std::vector<std::string>{testo});
        if (!porta.detti.empty()) {
            EXPECT_EQ(porta.detti[0].titolo, kTitoloProgramma);
        }
    }
    Sei Set(int k) const {
        return {nodo.SforzoNormale(k), nodo.TaglioY(k), nodo.TaglioZ(k),
                nodo.MomTorc(k),       nodo.MomY(k),    nodo.MomZ(k)};
    }
    std::vector<double> Assiali() const {
        std::vector<double> x;
        for (int k = 0; k < nodo.nSollAg; ++k) x.push_back(nodo.SforzoNormale(k));
        return x;
    }
};

// Axial force that tells where it comes from: member, station, six-set.
std::vector<double> Indirizzo(int asta, long a, long s) {
    return {asta * 100.0 + static_cast<double>(a * 10 + s), 0, 0, 0, 0, 0};
}

TEST(NomeFileRisultati, ThreeDigits) {
    EXPECT_EQ(NomeFileRisultati("d", TipoCarico::caso, 1), "d\\astec001.bin");
    EXPECT_EQ(NomeFileRisultati("d", TipoCarico::condizione, 12), "d\\aste_012.bin");
    EXPECT_EQ(NomeFileRisultati("d", TipoCarico::caso, 999), "d\\astec999.bin");
    EXPECT_EQ(NomeFileRisultati("d", TipoCarico::condizione, 1234), "d\\aste_123.bin");
}

// Member 11 has its end 2 at node 102 and its end 1 at node 101. 0.25 and 0.75 are exact ties,
// which go to the even digit; 0.35 lies below its tie in binary, 0.45 above.
TEST_F(Import, SignsAndRoundingAtEachEnd) {
    const std::vector<double> v = {0.25, 0.75, -0.35, 100.45, -7.06, 3.14159};
    Scrivi("astec001.bin", prova::Risultati({11}, 3, 1, [&](int, long a, long) {
               return a == 1 ? std::vector<double>(6, 9e9) : v;
           }));
    nodo.CasoCarico(0) = 1;
    Fai();
    ASSERT_EQ(nodo.nSollAg, 1);
    EXPECT_EQ(Set(0), (Sei{0.2, -0.8, -0.3, -100.5, 7.1, 3.1}));
    EXPECT_EQ(nodo.NomeSa(0), "Caso 1 As. 11 Nd. 102");
    EXPECT_EQ(nodo.CasoCarico(0), 0);
    EXPECT_EQ(nodo.numNodi, 1);
    EXPECT_EQ(nodo.NomeNodi(1), 102);

    // A further import goes behind; the whole table becomes type I.
    nodo.CasoCarico(0) = 1;
    r.nodi = "101";
    Fai();
    ASSERT_EQ(nodo.nSollAg, 2);
    EXPECT_EQ(Set(1), (Sei{0.2, 0.8, -0.3, -100.5, -7.1, 3.1}));
    EXPECT_EQ(nodo.NomeSa(1), "Caso 1 As. 11 Nd. 101");
    EXPECT_EQ(nodo.CasoCarico(0), 0);
    EXPECT_TRUE(porta.detti.empty());
    EXPECT_FALSE(std::filesystem::exists(c / "soll.tmp"));
}

TEST_F(Import, ExtremesKeepTheSignOfTheMoments) {
    // End 2, so shear 1 changes sign; moments to whole numbers (2.5 to 2, -3.5 to -4).
    const std::vector<std::vector<double>> v = {{10, 1.25, 5, 2.5, 100.4, -3.5},
                                                {-20, -3, 5, -40, 7, 0.2}};
    Scrivi("aste_002.bin", prova::Risultati({11}, 2, 2, [&](int, long a, long s) {
               return a == 0 ? std::vector<double>(6, 9e9) : v[static_cast<std::size_t>(s - 1)];
           }));
    r = {"102", "11", "", "2", "0", ModoImport::massimiMinimi};
    nodo.nSollAg = 40;
    Fai();
    ASSERT_EQ(nodo.nSollAg, 12);
    const Sei uno = {10, -1.2, 5, 2, 100, -4}, due = {-20, 3, 5, -40, 7, 0};
    // Maximum and minimum of N, Tz (a tie keeps the first), Ty, My, Mz, Mt.
    const std::array<Sei, 12> attesi = {uno, due, uno, uno, due, uno, uno, due, due, uno, uno, due};
    for (int k = 0; k < 12; ++k) {
        EXPECT_EQ(Set(k), attesi[static_cast<std::size_t>(k)]) << k;
        EXPECT_EQ(nodo.NomeSa(k), "Cond 2 As. 11 Nd. 102");
    }
}

TEST_F(Import, ExtremesStartBeforeTheFilesAreOpened) {
    r.modo = ModoImport::massimiMinimi;
    nodo.nSollAg = 3;
    Fallisce(kCaso1);
    ASSERT_EQ(nodo.nSollAg, 12);
    EXPECT_EQ(Set(0), (Sei{-1e20, -1e20, -1e20, -1e20, -1e20, -1e20}));
    EXPECT_EQ(Set(11), (Sei{1e20, 1e20, 1e20, 1e20, 1e20, 1e20}));
    EXPECT_EQ(nodo.NomeSa(5), "");
}

TEST_F(Import, CasesThenConditionsByMemberSixSetAndEntry) {
    // 12 is 103-102, so node 102 is its end 2; 11's end 1 is at 101. The blocks stand in another
    // order in the second file.
    Scrivi("astec003.bin", prova::Risultati({13, 11, 12}, 3, 2, Indirizzo));
    Scrivi("aste_001.bin", prova::Risultati({12, 13, 11}, 2, 2, Indirizzo));
    r = {"102,101", "12,11,0,-5", "3", "1", "2,1,2", ModoImport::tutti};
    std::vector<std::string> passi;
    p.avanzamento = [&](long fatto, long totale, const std::string& testo) {
        passi.push_back(std::to_string(fatto) + "/" + std::to_string(totale) + " " + testo);
        return true;
    };
    Fai();
    EXPECT_EQ(Assiali(), (std::vector<double>{1221, 1222, 1222, 1101, 1102, 1102,  //
                                              1211, 1212, 1212, 1101, 1102, 1102}));
    EXPECT_EQ(nodo.NomeSa(0), "Caso 3 As. 12 Nd. 102");
    EXPECT_EQ(nodo.NomeSa(3), "Caso 3 As. 11 Nd. 101");
    EXPECT_EQ(nodo.NomeSa(11), "Cond 1 As. 11 Nd. 101");
    EXPECT_EQ(passi, (std::vector<std::string>{"0/2 Caso 3", "1/2 Cond 1", "2/2 "}));

    // One station: both ends are the same record. "0" takes every six-set once.
    Scrivi("astec003.bin", prova::Risultati({11, 12}, 1, 2, Indirizzo));
    r = {"102", "11", "3", "", " 0 ", ModoImport::tutti};
    nodo.nSollAg = 0;
    Fai();
    EXPECT_EQ(Assiali(), (std::vector<double>{1101, 1102}));
    // Empty lists import nothing; a stop that is asked for leaves what is there.
    r.sestetti = "";
    Fai();
    EXPECT_EQ(nodo.nSollAg, 2);
    p.avanzamento = [](long, long, const std::string&) { return false; };
    Fai(EsitoImport::interrotto);
    EXPECT_EQ(nodo.nSollAg, 2);
}

TEST_F(Import, AMemberThatAFileLacksHasTheBlockOfTheFileBefore) {
    Scrivi("astec001.bin", prova::Risultati({13, 11}, 1, 1, Indirizzo));
    Scrivi("astec002.bin", prova::Risultati({20, 21, 22}, 1, 1, Indirizzo));
    r.casi = "2,1,2";
    // 500 is in no file and not in the model: first block, end 1, first node.
    r.aste = "11,500";
    Fai();
    EXPECT_EQ(Assiali(), (std::vector<double>{2001, 2001, 1101, 1301, 2101, 2001}));
    EXPECT_EQ(nodo.NomeSa(1), "Caso 2 As. 500 Nd. 102");
    // Blocks start anew with the next import.
    nodo.nSollAg = 0;
    r.casi = "2";
    Fai();
    EXPECT_EQ(Assiali(), (std::vector<double>{2001, 2001}));
    // A block that the next file does not have at all.
    Scrivi("astec002.bin", prova::Risultati({20}, 1, 1, Indirizzo));
    r.casi = "1,2";
    r.aste = "11";
    nodo.nSollAg = 0;
    Fallisce("Impossibile leggere le sollecitazioni nei nodi precisati");
    EXPECT_EQ(Assiali(), std::vector<double>{1101});
}

// Files of many blocks, short ones that are read together and long ones that are not.
TEST_F(Import, MembersAreFoundWhereverTheyStand) {
    std::vector<int> aste(3000);
    std::iota(aste.begin(), aste.end(), 1000);
    for (const auto& [quante, A, B] : {std::tuple{3000, 1L, 1L}, {3000, 2, 3}, {200, 37, 2}}) {
        for (const int posto : {0, quante / 2, quante - 1}) {
            std::vector<int> v(aste.begin(), aste.begin() + quante);
            v[static_cast<std::size_t>(posto)] = 11;
            Scrivi("astec001.bin", prova::Risultati(v, A, B, Indirizzo));
            nodo.nSollAg = 0;
            Fai();
            ASSERT_EQ(Assiali().size(), static_cast<std::size_t>(B));
            EXPECT_EQ(Assiali()[0], 1101 + 10 * (A - 1)) << posto;
            EXPECT_EQ(CercaAstaAssente(c.Testo(), r).asta, 0);
        }
    }
    r.aste = "11,12";
    EXPECT_EQ(CercaAstaAssente(c.Testo(), r).asta, 12);
}

TEST_F(Import, FiveHundredSetsAreTheLimit) {
    Scrivi("astec001.bin", prova::Risultati({11}, 1, 250, Indirizzo));
    Scrivi("astec002.bin", prova::Risultati({11}, 1, 1, Indirizzo));
    r.casi = "1,1";
    Fai();
    EXPECT_EQ(nodo.nSollAg, 500);
    r.casi = "2";
    Fallisce("Errore: numero di sollecitazioni eccessivo");
    EXPECT_EQ(nodo.nSollAg, 0);
    // All six-sets of a file count, whether asked for or not. Case 2 has no six-set 3.
    r.casi = "1,1,2";
    r.sestetti = "3";
    Fai();
    EXPECT_EQ(nodo.nSollAg, 2);
    nodo.nSollAg = 251;
    r.casi = "1";
    Fallisce("Errore: numero di sollecitazioni eccessivo");
    EXPECT_EQ(nodo.nSollAg, 0);
    // A repeated entry must not go beyond either.
    r.sestetti = "0,0,0";
    Fallisce("Errore: numero di sollecitazioni eccessivo");
    EXPECT_EQ(nodo.nSollAg, 0);
}

TEST_F(Import, BadListsAndStructures) {
    nodo.nSollAg = 2;
    nodo.numNodi = 1;
    nodo.NomeNodi(1) = 55;
    using Campo = std::string RichiestaImport::*;
    for (const Campo campo :
         {&RichiestaImport::nodi, &RichiestaImport::aste, &RichiestaImport::casi,
          &RichiestaImport::condizioni, &RichiestaImport::sestetti}) {
        const RichiestaImport buona = r;
        r.*campo = "1,,2";
        Fallisce("Inserimento dati errato");
        r = buona;
    }
    EXPECT_EQ(nodo.NomeNodi(1), 55);
    r.aste = "1-2001";
    Fallisce("Numero di aste o di nodi eccessivo");
    r.aste = "11";
    r.nodi = "1-2000,1";
    Fallisce("Numero di aste o di nodi eccessivo");
    r.nodi = "999";
    Fallisce("Uno o più nodi inesistenti");
    r.nodi = "103";
    Fallisce("Mancata corrispondenza fra aste e nodi");
    std::filesystem::remove(c / "STRUTTUR.STR");
    Fallisce("File struttura errato o mancante");
    Scrivi("STRUTTUR.STR", Struttura("Versione 3"));
    porta.detti.clear();
    Fai(EsitoImport::fineProgramma);
    EXPECT_EQ(porta.detti.size(), 1u);
    EXPECT_EQ(nodo.nSollAg, 2);
}

TEST_F(Import, CorruptResultFilesEndInTheMessageAndKeepTheTable) {
    const std::string buono = prova::Risultati({11, 12}, 2, 2, Indirizzo);
    // The counts of the header over the records of a good file.
    const auto con = [&](int n, long A, long B) { return Testata(n, A, B) + buono.substr(56); };
    constexpr long kTanti = std::numeric_limits<int>::max();
    const std::string guasti[] = {"",
                                  "x",
                                  buono.substr(0, 55),
                                  buono.substr(0, 56),
                                  buono.substr(0, buono.size() - 1),
                                  con(0, 2, 2),
                                  con(-2, 2, 2),
                                  con(2, 0, 2),
                                  con(2, -2, -2),
                                  con(2, 2, -1),
                                  con(-2, -2, 2),
                                  con(2, 2, 3),
                                  con(32767, 2, 2),
                                  con(32767, kTanti, kTanti),
                                  con(1, kTanti, kTanti),
                                  con(1, 1, kTanti)};
    for (const std::string& guasto : guasti) {
        Scrivi("astec001.bin", guasto);
        nodo.nSollAg = 1;
        Fallisce(kCaso1);
        EXPECT_EQ(nodo.nSollAg, 1);
    }
    // Missing, and a directory of that name.
    std::filesystem::remove(c / "astec001.bin");
    Fallisce(kCaso1);
    std::filesystem::create_directory(c / "astec001.bin");
    Fallisce(kCaso1);
    r.casi = "";
    r.condizioni = "-1";
    Fallisce("Impossibile leggere le sollecitazioni della condizione di carico -1");

    // Values that are no numbers: the sets before them stay.
    Scrivi("aste_007.bin", prova::Risultati({11}, 2, 3, [](int, long a, long s) {
               const double x = a == 1 && s == 2 ? std::numeric_limits<double>::quiet_NaN() : 4.0;
               return std::vector<double>{1, 2, 3, x, 5, 6};
           }));
    r.condizioni = "7";
    nodo.nSollAg = 0;
    nodo.CasoCarico(0) = 1;
    Fallisce("Impossibile leggere le sollecitazioni nei nodi precisati");
    ASSERT_EQ(nodo.nSollAg, 1);
    EXPECT_EQ(Set(0), (Sei{1, -2, 3, -4, -5, 6}));
    EXPECT_EQ(nodo.CasoCarico(0), 0);
    // Size alone is no fault, nor are bytes behind the last record.
    r.sestetti = "1";
    Scrivi("aste_007.bin", prova::LeggiTesto(c / "aste_007.bin") + "coda");
    Fai();
    EXPECT_EQ(nodo.nSollAg, 2);
}

}  // namespace
}  // namespace tk07
