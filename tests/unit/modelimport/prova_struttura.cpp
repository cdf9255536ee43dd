#include <gtest/gtest.h>

#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/cerca_aste.h"
#include "modelimport/combinazioni.h"
#include "modelimport/liste.h"
#include "modelimport/sezioni_struttura.h"
#include "modelimport/struttura.h"
#include "unit/modelimport/modello.h"

namespace tk07 {
namespace {

using prova::Struttura;
using Voci = std::vector<short>;

constexpr const char* kVecchia =
    "Versione 3.8 o precedente. Caricare e risalvare la struttura in 'Ambiente Grafico'";

struct Modello : testing::Test {
    prova::Cartella c;
    prova::Porta porta;
    Piattaforma p = porta.Fai();
    Nodo nodo;

    void Scrivi(const std::string& nome, const std::string& testo) {
        prova::ScriviTesto(c / nome, testo);
    }
    void Nodi(const Voci& numeri) {
        nodo.numNodi = 0;
        for (const short n : numeri) nodo.NomeNodi(++nodo.numNodi) = n;
    }
    AsteImport Aste(const Voci& lista, EsitoStr atteso = EsitoStr::bene) {
        AsteImport a;
        a.asteLista = lista;
        EXPECT_EQ(LeggiStruttura(c.Testo(), nodo, a, StrVecchia::termina, p), atteso);
        return a;
    }
    // The only box since the last call: sign, title and text, or one of the two.
    std::string Detto() {
        EXPECT_EQ(porta.detti.size(), 1u);
        return porta.Prendi();
    }
    std::string Testo() { return Dividi(Detto(), '|').at(2); }
    std::string Titolo() { return Dividi(Detto(), '|').at(1); }
};

TEST(Liste, WhatIsAListAndWhatIsNot) {
    const std::vector<std::pair<const char*, Voci>> buone = {{"", {}},
                                                             {"  ", {}},
                                                             {"7", {7}},
                                                             {"-1", {-1}},
                                                             {"3,1,3", {3, 1, 3}},
                                                             {"2-4", {2, 3, 4}},
                                                             {"5-3", {}},
                                                             {" 1 , 4 - 6 ", {1, 4, 5, 6}},
                                                             {"5-3,9", {9}},
                                                             {"-2-1", {-2, -1, 0, 1}},
                                                             {"32767", {32767}},
                                                             {"32766-32767", {32766, 32767}}};
    for (const auto& [testo, attese] : buone) {
        Voci voci = {99};
        EXPECT_EQ(EsaminaLista(testo, voci), EsitoLista::buona) << testo;
        EXPECT_EQ(voci, attese) << testo;
    }
    for (const char* testo : {"1,,2", ",", "1,", ",1", "a", "1a", "1 2", "1-", "-", "1.5", "1-2-3",
                              "--1", "+1", "32768", "1-2000000000", "99999999999999999999"}) {
        Voci voci = {99};
        EXPECT_EQ(EsaminaLista(testo, voci), EsitoLista::errata) << testo;
        EXPECT_EQ(voci, Voci{99}) << testo;
    }
    Voci voci;
    EXPECT_TRUE(LeggiLista("1-2000", voci));
    EXPECT_EQ(voci.size(), 2000u);
    EXPECT_EQ(EsaminaLista("1-2001", voci), EsitoLista::eccessiva);
    EXPECT_EQ(EsaminaLista("1-1000,1-1001", voci), EsitoLista::eccessiva);
    EXPECT_EQ(EsaminaLista("1-30000,x", voci), EsitoLista::errata);
    EXPECT_EQ(ComponiLista({3, -1, 12}), "3,-1,12");
}

TEST_F(Modello, MembersAreTiedToTheNodeAtTheirEnd) {
    Scrivi("STRUTTUR.STR", Struttura());
    Nodi({102});
    AsteImport a = Aste({12, 77, 11});
    EXPECT_EQ(a.asteRecord, (std::vector<int>{2, -1, 1}));
    EXPECT_EQ(a.asteEstremo, (Voci{2, 1, 2}));  // 77 is not in the model: end 1, first node
    EXPECT_EQ(a.asteNodo, (std::vector<int>{1, 1, 1}));

    // Both ends of 11 and 13 at nodes of the joint: the first end wins. A node listed twice is
    // found twice, and the first place counts.
    Nodi({103, 101, 101});
    a = Aste({11, 13, 13, 12});
    EXPECT_EQ(a.asteEstremo, (Voci{1, 1, 1, 1}));
    EXPECT_EQ(a.asteNodo, (std::vector<int>{2, 2, 2, 1}));
    EXPECT_EQ(a.asteRecord, (std::vector<int>{1, 3, 3, 2}));
    EXPECT_TRUE(porta.detti.empty());
}

TEST_F(Modello, DescriptionLinesMayBeNone) {
    Scrivi("struttur.str", "release\n0\n1\n4\n20\n1\n4 8\n-7 3\n");
    Nodi({20});
    EXPECT_EQ(Aste({-7}).asteRecord, std::vector<int>{1});
}

TEST_F(Modello, FaultsOfTheStructureAreToldAndFillNothing) {
    Nodi({102});
    EXPECT_TRUE(Aste({11}, EsitoStr::errore).asteRecord.empty());
    EXPECT_EQ(Detto(), std::string("x|") + kTitoloProgramma + "|File struttura errato o mancante");

    Scrivi("STRUTTUR.STR", Struttura());
    Nodi({102, 104});
    Aste({11}, EsitoStr::errore);
    EXPECT_EQ(Testo(), "Uno o più nodi inesistenti");
    Nodi({102});
    EXPECT_TRUE(Aste({11, 13}, EsitoStr::errore).asteRecord.empty());
    EXPECT_EQ(Testo(), "Mancata corrispondenza fra aste e nodi");

    // Cut short, or with counts that the file does not hold.
    const std::string buona = Struttura();
    for (const std::string& testo :
         {std::string(), buona.substr(0, 20), buona.substr(0, buona.find("102")),
          buona.substr(0, buona.find("9 5\n12")), std::string("release\n2000000000\n"),
          std::string("release\n0\n2000000000\n5\n102\n"), std::string("release\n0\n1e999\n"),
          std::string("release\n0\n1\n5\n102\n2147483647\n5 5\n11\n")}) {
        Scrivi("STRUTTUR.STR", testo);
        EXPECT_TRUE(Aste({11}, EsitoStr::errore).asteRecord.empty()) << testo;
        EXPECT_EQ(Testo(), "File struttura errato o mancante") << testo;
    }
    // Counts below 0 are none: no node of the list is there.
    Scrivi("STRUTTUR.STR", "release\n-3\n-1\n-1\n");
    Aste({11}, EsitoStr::errore);
    EXPECT_EQ(Testo(), "Uno o più nodi inesistenti");
}

TEST_F(Modello, AnOldStampEndsTheProgramOrReadsOneLineTooHigh) {
    Scrivi("STRUTTUR.STR", Struttura("Versione 3.8"));
    Nodi({102});
    Aste({11}, EsitoStr::fineProgramma);
    EXPECT_EQ(Detto(), std::string("x|ATTENZIONE!|") + kVecchia);

    // Line 1 gives 1 description line ("2"), then one node: what was meant as 2 counts is skipped.
    Scrivi("STRUTTUR.STR", "1 vecchia\n2\n1\n5\n102\n1\n8 5\n11\n");
    AsteImport a;
    a.asteLista = {11};
    EXPECT_EQ(LeggiStruttura(c.Testo(), nodo, a, StrVecchia::prosegui, p), EsitoStr::bene);
    EXPECT_EQ(a.asteEstremo, Voci{2});
    EXPECT_EQ(Testo(), kVecchia);
    Scrivi("STRUTTUR.STR", "STRUTTURA, RELEASE 18\n0\n1\n5\n102\n0\n");
    Aste({});
    EXPECT_TRUE(porta.detti.empty());
}

TEST_F(Modello, SectionAndLoadConditions) {
    int x = 0;
    EXPECT_EQ(SezioneAsta(c.Testo(), 11, x, StrVecchia::termina, p), EsitoStr::errore);
    EXPECT_EQ(x, -1);
    EXPECT_EQ(Detto(), "!|ARGANOWIN|Errore in lettura del file STRUTTUR.STR");
    EXPECT_EQ(NumeroCondizioni(c.Testo(), x, StrVecchia::termina, p), EsitoStr::errore);
    EXPECT_EQ(Testo(), "ERRORE: STRUTTUR.STR errato o mancante");

    Scrivi("STRUTTUR.STR", Struttura());
    for (const auto& [asta, sezione] : {std::pair{11, 2}, {12, 0}, {13, -1}, {14, -1}}) {
        EXPECT_EQ(SezioneAsta(c.Testo(), asta, x, StrVecchia::termina, p), EsitoStr::bene);
        EXPECT_EQ(x, sezione) << asta;
    }
    for (const auto& [riga, lista] : {std::pair{"3", "1,2,3"}, {"1", "1"}, {"0", ""}, {"-4", ""}}) {
        Scrivi("STRUTTUR.STR", Struttura("release", riga));
        EXPECT_EQ(NumeroCondizioni(c.Testo(), x, StrVecchia::termina, p), EsitoStr::bene);
        EXPECT_EQ(ListaCondizioni(x), lista);
    }
    EXPECT_TRUE(porta.detti.empty());
    Scrivi("STRUTTUR.STR", Struttura("release", "2000000000"));
    EXPECT_EQ(NumeroCondizioni(c.Testo(), x, StrVecchia::termina, p), EsitoStr::errore);
    EXPECT_EQ(x, 0);
}

TEST_F(Modello, MembersAtANodeByNameColourAndLine) {
    Scrivi("STRUTTUR.STR", Struttura());
    ModelloStr m;
    ASSERT_EQ(LeggiModello(c.Testo(), m, StrVecchia::termina, p), EsitoStr::bene);
    FiltroAste f;
    const auto trova = [&](int nodo_, decltype(f.nomi) nomi, decltype(f.colori) colori,
                           decltype(f.linee) linee) {
        return FiltraAste(m, {nodo_, nomi, colori, linee});
    };
    using Insieme = std::vector<int>;
    EXPECT_EQ(trova(103, {}, {}, {}), "12,13");
    EXPECT_EQ(trova(101, {}, {}, {}), "11,13");
    EXPECT_EQ(trova(101, {{12, 13}}, {}, {}), "13");
    EXPECT_EQ(trova(101, {{11, 13}}, {}, {}), "11,13");
    EXPECT_EQ(trova(102, {}, Insieme{4}, {}), "11");
    EXPECT_EQ(trova(102, {}, Insieme{7, 4}, {}), "11,12");
    EXPECT_EQ(trova(102, {}, {}, Insieme{0}), "12");  // no fourth token: line type 0
    EXPECT_EQ(trova(103, {}, Insieme{4}, Insieme{2}), "13");
    EXPECT_EQ(trova(103, {}, Insieme{}, {}), "");
    EXPECT_EQ(trova(9, {}, {}, {}), "");  // an internal index is no node number

    std::string lista = "5";
    f.nodo = 103;
    EXPECT_EQ(CercaAste(c.Testo(), f, StrVecchia::prosegui, lista, p), EsitoStr::bene);
    EXPECT_EQ(lista, "12,13");
    f.nodo = 250;
    EXPECT_EQ(CercaAste(c.Testo(), f, StrVecchia::prosegui, lista, p), EsitoStr::errore);
    EXPECT_EQ(lista, "12,13");
    EXPECT_EQ(Testo(),
              "Non esiste nessuna asta corrispondente alle caratteristiche selezionate \n"
              "che concorra nel nodo 250");
    std::filesystem::remove(c / "STRUTTUR.STR");
    EXPECT_EQ(CercaAste(c.Testo(), f, StrVecchia::prosegui, lista, p), EsitoStr::errore);
    EXPECT_EQ(Detto(),
              "x|ERRORE|Errore: file " + (c / "STRUTTUR.STR").string() + " errato o mancante.");
}

TEST_F(Modello, CasesSuitedToAMethod) {
    const std::string nome = (c / "combinaz.tot").string();
    Combinazioni comb;
    EXPECT_FALSE(LeggiCombinazioni(c.Testo(), comb, p));
    EXPECT_EQ(Detto(), "x|ERRORE|Errore: file " + nome + " errato o mancante.");

    // Items over several lines, by commas, quoted; a number alone on its line whose key is on the
    // third line behind it; a case without a kind.
    const std::string buona =
        "5\n"
        "1 primo caso\ndescrizione\n|A=1|TIPOVER=SLU|Z=2|\n2\n1 1.3 0, 2,,\"x y\"\n1, 4 5\n"
        "2,secondo\nd\nTIPOVER=TENSAMM\n0\n0\n"
        "3\nd\nd\nTIPOVER= RARA |\n0 0\n"
        "4\nd\nTIPOVER=FREQ|\n0 1 7 8\n"
        "10 quinto\nd\nniente\n0 0";
    Scrivi("combinaz.tot", buona);
    ASSERT_TRUE(LeggiCombinazioni(c.Testo(), comb, p));
    EXPECT_EQ(comb.casiNumero, (std::vector<int>{1, 2, 3, 4, 10}));
    EXPECT_EQ(comb.casiTipo, (std::vector<std::string>{"SLU", "TENSAMM", "RARA", "FREQ", ""}));
    EXPECT_EQ(ListaCasi(comb, Metodo::TA), "2,3");
    EXPECT_EQ(ListaCasi(comb, Metodo::SLU), "1");

    for (const std::string& testo :
         {std::string(), std::string("x"), std::string("2000\n"), buona.substr(0, buona.size() - 2),
          std::string("1\n1 a\nb\nTIPOVER=SLU|\n2000000000 1 2 3\n")}) {
        Scrivi("combinaz.tot", testo);
        EXPECT_FALSE(LeggiCombinazioni(c.Testo(), comb, p)) << testo;
        EXPECT_TRUE(comb.casiNumero.empty());
        EXPECT_EQ(Titolo(), "ERRORE");
    }
    Scrivi("combinaz.tot", "2001\n");
    EXPECT_FALSE(LeggiCombinazioni(c.Testo(), comb, p));
    EXPECT_EQ(Testo(), "Errore: numero di combinazioni eccessivo");
}

TEST_F(Modello, SectionsOfTheModelInTheLibrary) {
    LibreriaProfili lib;
    for (const char* nome : {"HEA200", "IPE200", "IPE300", "IPE200"}) {
        lib.Profili(++lib.nProfili).Nome = nome;
    }
    SezioniTrovate t;
    const auto applica = [&](int pri, int sec) {
        return ApplicaSezioniStruttura(c.Testo(), pri, sec, lib, StrVecchia::termina, t, p);
    };
    // The structure file is missing: told once, and that is all.
    EXPECT_EQ(applica(11, 12), EsitoStr::errore);
    EXPECT_EQ(Titolo(), "ARGANOWIN");

    Scrivi("STRUTTUR.STR", Struttura());
    EXPECT_EQ(applica(13, 99), EsitoStr::bene);  // neither has a section
    EXPECT_TRUE(porta.detti.empty());
    EXPECT_EQ(applica(11, 12), EsitoStr::errore);
    EXPECT_EQ(Detto(),
              "!|ERRORE|Errore: file " + (c / "sezioni_").string() + " errato o mancante.");

    // Member 12 has section 0, member 11 section 2.
    const std::string righe = "\n1,\"TIPOVER\"\n\n  c\nd\n";
    Scrivi("sezioni_", "3\n1,\"P_IPE 200\",\"a\"" + righe + "2\n\"HEB, 300\"\n7 " + righe +
                           "3,\" HE A 200\",0" + righe);
    EXPECT_EQ(applica(11, 12), EsitoStr::bene);
    EXPECT_EQ(t.TraPri, 1);
    EXPECT_EQ(t.TraSec, 4);  // the last row of that name
    EXPECT_TRUE(porta.detti.empty());
    EXPECT_EQ(applica(13, 12), EsitoStr::bene);
    EXPECT_EQ(t.TraPri, 0);
    EXPECT_EQ(Detto(), "x|INFORMAZIONE|Il profilo della trave principale non è applicabile");
    // One section only: the position 2 has no name. Lower case is another name.
    Scrivi("sezioni_", "1\n1,\"ipe200\",0" + righe);
    EXPECT_EQ(applica(12, 11), EsitoStr::bene);
    EXPECT_EQ(porta.Testi(),
              (std::vector<std::string>{"Il profilo della trave principale non è applicabile",
                                        "Il profilo della trave secondaria non è applicabile"}));
    porta.detti.clear();
    for (const char* testo : {"", "tre\n", "2000000000\n1,\"a\",0\n", "3\nx,\"a\",0\n"}) {
        Scrivi("sezioni_", testo);
        EXPECT_EQ(applica(11, 12), EsitoStr::errore) << testo;
        EXPECT_EQ(Titolo(), "ERRORE");
    }
}

struct Ricerca : Modello {
    Direttori d;
    std::string uscita;  // what the tool leaves; "-" for nothing
    bool parte = true, atteso = false;
    void SetUp() override {
        d.dirRoot = c.Testo();
        d.dirProgra = c.Testo() + "\\progra";
        d.dirLavoro = c.Testo();
        p.avvia = [this, avvia = p.avvia](const std::string& programma,
                                          const std::vector<std::string>& argomenti, bool attendi) {
            avvia(programma, argomenti, attendi);
            atteso = attendi;
            EXPECT_FALSE(EsisteFile(c.Testo() + "/TrovaOut.txt"));
            if (uscita != "-") Scrivi("TrovaOut.txt", uscita);
            return parte;
        };
    }
    static bool EsisteFile(const std::string& f) { return std::filesystem::exists(f); }
};

TEST_F(Ricerca, MembersThroughTheTool) {
    Scrivi("TrovaOut.txt", "999");  // of an earlier run
    uscita = " 11, 12 \r\n\r\n20-22\r\n";
    std::string lista = "7,8";
    EXPECT_TRUE(ChiamaTrova(d, "Città - aste", 3, lista, p));
    EXPECT_EQ(lista, "11, 12,20-22");
    EXPECT_TRUE(atteso);
    EXPECT_EQ(prova::LeggiTesto(c / "TrovaIn.txt"), "Citt\xE0 - aste\n7,8\n3\n");
    EXPECT_EQ(porta.programmi, (std::vector<std::vector<std::string>>{
                                   {PercorsoPiattaforma(d.dirProgra + "\\Trova.exe"),
                                    "|Diroot=" + c.Testo() + "|", "|Lavoro=" + c.Testo() + "|"}}));
    uscita = "-";
    EXPECT_FALSE(ChiamaTrova(d, "t", 3, lista, p));
    EXPECT_EQ(lista, "11, 12,20-22");
    EXPECT_TRUE(porta.detti.empty());

    parte = false;
    EXPECT_FALSE(ChiamaTrova(d, "t", 3, lista, p));
    EXPECT_EQ(Detto(), "x|Errore|Problemi con l'apertura dell'applicazione di ricerca");

    porta.programmi.clear();
    d.dirLavoro = c.Testo() + "\\non_esiste";
    NodiTrovati n;
    EXPECT_FALSE(ChiamaTrova(d, "t", 3, lista, p));
    EXPECT_EQ(Detto(),
              "!|ATTENZIONE!|Impossibile scrivere il file di ingresso. Specificare "
              "l'elemento da selezionare");
    EXPECT_FALSE(ChiamaTrovaNod(d, "t", n, p));
    EXPECT_EQ(Titolo(), "ATTENZIONE");
    EXPECT_TRUE(porta.programmi.empty());
}

TEST_F(Ricerca, NodesThroughTheTool) {
    uscita = "101,102\nP 11\ns 12\n";
    NodiTrovati n;
    EXPECT_TRUE(ChiamaTrovaNod(d, "Cerca nodi", n, p));
    EXPECT_EQ(n.nodi, "101,102");
    EXPECT_EQ(n.astaPri, 11);
    EXPECT_EQ(n.astaSec, 12);
    EXPECT_EQ(prova::LeggiTesto(c / "TrovaNIn.txt"),
              "Cerca nodi\n7\n2\nP Trave principale\nS Trave secondaria\n");
    EXPECT_EQ(
        porta.programmi,
        (std::vector<std::vector<std::string>>{
            {PercorsoPiattaforma(d.dirProgra + "\\TrovaNod.exe"), "|Diroot=" + c.Testo() + "|"}}));
    uscita = "7\nP 1e9\nS x\n";
    EXPECT_TRUE(ChiamaTrovaNod(d, "Cerca nodi", n, p));
    EXPECT_EQ(n.nodi, "7");
    EXPECT_EQ(n.astaPri, 0);
    EXPECT_EQ(n.astaSec, 0);
}

}  // namespace
}  // namespace tk07
