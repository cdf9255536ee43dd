#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <random>

#include "aiuti/prova.h"
#include "base/errore.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "joint/campi_nodo.h"
#include "joint/file_nodo.h"
#include "unit/joint/confronto.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using prova::Uguali;
using Righe = std::vector<std::string>;

constexpr const char* kTestata =
    "ARGANOWIN [QuestoProgramma=TK07 - NODO TRAVE - TRAVE CON PIASTRE] [Descrizione=file_TK07] "
    "[ReleaseArgano=18] [ReleaseQuestoFile=1]";

// A joint whose memory cannot be mistaken for anything a file gives.
std::unique_ptr<Nodo> Memoria() {
    auto n = std::make_unique<Nodo>();
    n->TraPri.Nome = "in memoria";
    n->distAliPriSec = n->spSaldS1 = -7.0;
    for (int i = 0; i <= kMaxBulloni; ++i) n->Xbull(i) = -7.0 - i;
    n->NomeSa(0) = "resta";
    n->nBull = 4;
    n->Esposizione = 2;
    n->TipoVer = 1;
    return n;
}

struct Banco {
    prova::Cartella cartella;
    prova::Porta porta;
    std::string file = (cartella / "nodo.tk7").string();
    // Reads lines behind the stamp line into `n`.
    bool Leggi(Nodo& n, const Righe& righe, const char* fine = "\n", NoteLettura* note = nullptr) {
        std::string t = std::string(kTestata) + fine;
        for (const std::string& r : righe) t += r + fine;
        prova::ScriviTesto(file, t);
        return LeggiFileNodo(n, file, porta.Fai(), note);
    }
    bool Scrivi(const Nodo& n) { return ScriviFileNodo(n, file, porta.Fai()); }
};

// Random numbers of every size, and texts of up to 60 characters with accents and the euro sign.
// The fields are filled through their own table, which the file of an older joint pins.
std::unique_ptr<Nodo> NodoCasuale(std::mt19937_64& g) {
    const auto fino = [&](int n) { return std::uniform_int_distribution<int>(0, n)(g); };
    const auto reale = [&]() -> std::string {
        double x = 0.0;
        const std::uint64_t bit = g();
        std::memcpy(&x, &bit, sizeof x);
        if (fino(2) > 0 || !std::isfinite(x)) x = fino(4000000) / 1000.0 - 2000.0;
        std::array<char, 32> cifre{};
        return {cifre.data(), std::to_chars(cifre.data(), cifre.data() + cifre.size(), x).ptr};
    };
    const auto testo = [&] {
        static constexpr const char* kPezzi[] = {"a", "Z", "9", " ", "à", "È",  "ù", "€", "°",
                                                 "’", "[", "]", "(", "/", "\"", ",", "|", "ç"};
        std::string t;
        for (int i = fino(60); i > 0; --i) t += kPezzi[fino(17)];
        return Taglia(t);
    };
    auto n = std::make_unique<Nodo>();
    n->nBull = static_cast<short>(fino(1) == 0 ? kMaxBulloni : fino(20));
    n->nSollAg = static_cast<short>(fino(3) == 0 ? kMaxSestetto + 1 : fino(20));
    n->numNodi = static_cast<short>(fino(3) == 0 ? kMaxNodi : fino(9));
    for (const GruppoCampi& gruppo : GruppiNodo()) {
        for (int i = PrimoIndice(gruppo.indice); i <= UltimoIndice(gruppo.indice, *n); ++i) {
            for (const CampoNodo& c : gruppo.campi) {
                const bool conteggio = c.tipo == TipoCampo::intero && c.chiave[0] == 'n';
                if (conteggio) continue;
                c.metti(*n, i,
                        c.tipo == TipoCampo::testo   ? testo()
                        : c.tipo == TipoCampo::reale ? reale()
                                                     : std::to_string(fino(1)));
            }
        }
    }
    return n;
}

TEST(FileNodo, RandomJointsReadBackEqualAlsoShuffledAndInCapitals) {
    std::mt19937_64 g(7);
    Banco b;
    for (int giro = 0; giro < 40; ++giro) {
        const auto scritto = NodoCasuale(g), letto = std::make_unique<Nodo>();
        ASSERT_TRUE(b.Scrivi(*scritto));
        ASSERT_TRUE(LeggiFileNodo(*letto, b.file, b.porta.Fai()));
        ASSERT_TRUE(Uguali(*scritto, *letto)) << "giro " << giro;

        // The same lines in any order, with keys in capitals and blanks before the bracket.
        Righe righe = Dividi(TestoFileNodo(*scritto, {}), '\n');
        righe.pop_back();
        righe.erase(righe.begin());
        std::shuffle(righe.begin(), righe.end(), g);
        for (std::string& r : righe) {
            const std::size_t p = r.rfind('[');
            r = r.substr(0, p) + Maiuscolo(r.substr(p, r.size() - p - 1)) + "   ]";
        }
        const auto mischiato = std::make_unique<Nodo>();
        ASSERT_TRUE(b.Leggi(*mischiato, righe, "\r\n"));
        ASSERT_TRUE(Uguali(*scritto, *mischiato)) << "giro " << giro;
    }
}

TEST(FileNodo, TextsThatOneByteACharacterWouldGarbleReadBack) {
    // È and the dash are C8 96 in Windows-1252, which is a valid UTF-8 pair as well; the others
    // have no place in Windows-1252 at all.
    for (const char* nome : {"CAFFÈ–BAR", "Ł żółć", "σ = 3 µm", "荷重", "[a] b [", "1e5", "."}) {
        Banco b;
        const auto n = std::make_unique<Nodo>(), letto = std::make_unique<Nodo>();
        n->nSollAg = 1;
        n->NomeSa(0) = nome;
        ASSERT_TRUE(b.Scrivi(*n));
        ASSERT_TRUE(LeggiFileNodo(*letto, b.file, b.porta.Fai()));
        EXPECT_EQ(letto->NomeSa(0), nome);
    }
}

TEST(FileNodo, WhatTheFileLacksStaysButForExposureAndMethod) {
    Banco b;
    const auto n = Memoria(), atteso = Memoria();
    ASSERT_TRUE(b.Leggi(*n, {"180   [BPiastra 1]", "1 [AttNerv 3]", "2 [AttNerv 1]", "[NomeSa 1]",
                             "senza chiave", "", "[BPiastra", "99 [BPiastraX 1]"}));
    atteso->BPiastra(1) = 180.0;
    atteso->AttNerv(1) = atteso->AttNerv(3) = false;  // true exactly for 1; rib 3 has no switch
    atteso->Esposizione = atteso->TipoVer = 0;
    atteso->RigheSconosciute = {"99 [BPiastraX 1]"};
    EXPECT_TRUE(Uguali(*n, *atteso));
}

TEST(FileNodo, UnknownKeysAreWrittenBackAtTheEnd) {
    Banco b;
    const auto n = Memoria();
    const Righe nuove = {"3.5                                     [DistanzaNuova 2]",
                         "testo con [parentesi]                   [ChiaveNuova]"};
    ASSERT_TRUE(
        b.Leggi(*n, {nuove[0], "x [DescrizioneTK07 70000]", "y [dataSalvataggio]", nuove[1]}));
    Righe righe = Dividi(TestoFileNodo(*n, {}), '\n');
    ASSERT_GE(righe.size(), 3u);
    EXPECT_EQ(righe[righe.size() - 3], nuove[0]);
    EXPECT_EQ(righe[righe.size() - 2], nuove[1]);
    EXPECT_EQ(std::count_if(righe.begin(), righe.end(),
                            [](const std::string& r) { return Contiene(r, "[dataSalvataggio]"); }),
              1);
    ASSERT_TRUE(b.Leggi(*n, {"1 [nBull]"}));
    EXPECT_TRUE(n->RigheSconosciute.empty());  // they belong to the file that held them
}

TEST(FileNodo, AKeyWithoutIndexMeansElement0) {
    Banco b;
    const auto n = Memoria();
    ASSERT_TRUE(b.Leggi(*n, {"7 [Xbull]", "8 [MomZ]", "9 [NomeSa]", "11 [Ybull 100]",
                             "12 [MomY 500]", "13 [NomeNodi 2000]", "100 [nBull]"}));
    EXPECT_EQ(n->Xbull(0), 7.0);
    EXPECT_EQ(n->MomZ(0), 8.0);
    EXPECT_EQ(n->NomeSa(0), "9");
    EXPECT_EQ(n->Ybull(100), 11.0);
    EXPECT_EQ(n->MomY(500), 12.0);
    EXPECT_EQ(n->NomeNodi(2000), 13);
    EXPECT_EQ(n->nBull, 100);
}

TEST(FileNodo, WhatTheArraysCannotHoldIsFatalAndChangesNothing) {
    for (const char* riga :
         {"1 [BPiastra 3]",      "1 [BPiastra 0]",    "1 [BPiastra]",  "1 [SpNerv 4]",
          "1 [AttNerv 4]",       "1 [Xbull 101]",     "1 [Xbull -1]",  "1 [Xbull 70000]",
          "x [NomeSa 501]",      "1 [NomeNodi 2001]", "101 [nBull]",   "502 [nSollAg]",
          "2001 [numNodi]",      "40000 [nBull]",     "[Esposizione]", "uno [Esposizione]",
          "0,5 [Esposizione]",   "3 [Esposizione]",   "1x [TipoVer]",  "1e999 [spSaldS1]",
          "40000 [CasoCarico 0]"}) {
        Banco b;
        const auto n = Memoria();
        const std::string r = riga,
                          chiave = r.substr(r.find('[') + 1,
                                            r.find_first_of("] ", r.find('[')) - r.find('[') - 1);
        try {
            b.Leggi(*n, {"5 [spSaldS1]", riga, "6 [spSaldS2]"});
            ADD_FAILURE() << riga << " accettata";
        } catch (const ErroreFatale& e) {
            for (const std::string& pezzo : {b.file, std::string("riga 3"), chiave}) {
                EXPECT_TRUE(Contiene(Minuscolo(e.Dove()), Minuscolo(pezzo))) << e.Dove();
            }
        }
        EXPECT_TRUE(Uguali(*n, *Memoria())) << riga;
    }
}

// Line, key and reason of what is not taken as it is written; a joint with no such line has none.
TEST(FileNodo, ValuesThatAreNoNumbersAndCountsBelowZeroAreToldAndReadLeniently) {
    Banco b;
    const auto n = Memoria();
    NoteLettura note;
    ASSERT_TRUE(b.Leggi(*n,
                        {"nan [BPiastra 1]", "1,5 [BPiastra 2]", "[spSaldS1]", "-inf [Xbull 3]",
                         "12.5 mm [spSaldS2]", "si [AttNerv 1]", "-5 [nBull]", "-1 [nSollAg]",
                         "-3 [numNodi]", "1e1 [HPiastra 1]"},
                        "\n", &note));
    EXPECT_EQ(n->BPiastra(1), 0.0);
    EXPECT_EQ(n->BPiastra(2), 1.0);
    EXPECT_EQ(n->spSaldS2, 12.5);
    EXPECT_EQ(n->HPiastra(1), 10.0);
    EXPECT_EQ(n->nBull + n->nSollAg + n->numNodi, 0);
    const char* attese[] = {"riga 2, chiave BPiastra 1: \"nan\"",
                            "riga 3, chiave BPiastra 2: \"1,5\"",
                            "riga 4, chiave spSaldS1: \"\"",
                            "riga 5, chiave Xbull 3: \"-inf\"",
                            "riga 6, chiave spSaldS2",
                            "riga 7, chiave AttNerv 1",
                            "riga 8, chiave nBull: ",
                            "riga 9, chiave nSollAg: ",
                            "riga 10, chiave numNodi: "};
    ASSERT_EQ(note.Valori.size(), std::size(attese));
    for (std::size_t i = 0; i < std::size(attese); ++i) {
        EXPECT_EQ(note.Valori[i].rfind(attese[i], 0), 0u) << note.Valori[i];
    }
}

// A text is refused exactly where a file with it would not read back equal.
TEST(FileNodo, TextsThatWouldBeReadAsAKeyAreNotWritten) {
    Banco b;
    const auto n = Memoria(), letto = Memoria();
    n->nSollAg = 2;
    const std::pair<const char*, bool> casi[] = {{"Inviluppo [TaglioY]", false},
                                                 {"99 [nBull]", false},
                                                 {"5 [NBULL", false},
                                                 {"[MomZ 3] x", false},
                                                 {"[nB\null]", false},
                                                 {"[NomeSaltro", false},
                                                 {"Vento [da nord]", true},
                                                 {"[nBulloni]", true},
                                                 {"nBull]", true},
                                                 {"[ nBull]", true}};
    for (const auto& [testo, scritto] : casi) {
        n->NomeSa(1) = testo;
        EXPECT_EQ(TestoRifiutato(testo).empty(), scritto) << testo;
        EXPECT_EQ(b.Scrivi(*n), scritto) << testo;
        EXPECT_EQ(EsisteFile(b.file), scritto) << testo;
        if (!scritto) continue;
        ASSERT_FALSE(ProvaFileNodo(*letto, b.file));
        EXPECT_EQ(letto->NomeSa(1), testo);
        EliminaFile(b.file);
    }
}

TEST(FileNodo, FilesThatCannotBeReadOrWrittenAreTold) {
    Banco b;
    const auto n = Memoria();
    EXPECT_FALSE(LeggiFileNodo(*n, b.cartella.Testo(), b.porta.Fai()));
    EXPECT_FALSE(LeggiFileNodo(*n, b.file, b.porta.Fai()));
    EXPECT_TRUE(Uguali(*n, *Memoria()));
    EXPECT_FALSE(ScriviFileNodo(*n, b.cartella.Testo(), b.porta.Fai()));
    EXPECT_FALSE(ScriviFileNodo(*n, (b.cartella / "manca/nodo.tk7").string(), b.porta.Fai()));
    ASSERT_EQ(b.porta.detti.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(b.porta.detti[i].testo.substr(0, 6), "File: ");
        EXPECT_TRUE(Contiene(b.porta.detti[i].testo, b.cartella.Testo()));
        EXPECT_EQ(b.porta.detti[i].titolo,
                  i < 2 ? "TK07 - LETTURA NON RIUSCITA" : "TK07 - SALVATAGGIO NON RIUSCITO");
    }
    EXPECT_TRUE(fs::is_empty(b.cartella.Testo()));  // no temporary file is left behind
    prova::ScriviTesto(b.file, "protetto");         // write-protected: not even replaced
    fs::permissions(b.file, fs::perms::owner_read);
    EXPECT_FALSE(b.Scrivi(*n));
    EXPECT_EQ(prova::LeggiTesto(b.file), "protetto");
}

#ifndef _WIN32
TEST(FileNodo, AWriteThatBreaksOffKeepsTheOldFile) {
    Banco b;
    prova::ScriviTesto(b.file, "il vecchio");
    auto* prima = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limite{};
    getrlimit(RLIMIT_FSIZE, &limite);
    const rlimit stretto{500, limite.rlim_max};  // the disk fills up after 500 bytes
    setrlimit(RLIMIT_FSIZE, &stretto);
    const bool scritto = b.Scrivi(*Memoria());
    setrlimit(RLIMIT_FSIZE, &limite);
    std::signal(SIGXFSZ, prima);
    EXPECT_FALSE(scritto);
    EXPECT_EQ(b.porta.detti.size(), 1u);
    EXPECT_EQ(prova::LeggiTesto(b.file), "il vecchio");
    EXPECT_EQ(std::distance(fs::directory_iterator(b.cartella.Testo()), {}), 1);
}
#endif

TEST(Stampi, AreFoundInTheBracketsOfTheFirstLine) {
    struct Stampo {
        const char* riga;
        double argano, file;
    };
    const Stampo casi[] = {
        {kTestata, 18.0, 1.0},
        {"ARGANOWIN [RELEASEARGANO=17.5] [releasequestofile=2 ]", 17.5, 2.0},
        {"[Release=3] [ReleaseArgano=9] [ReleaseQuestoFile=x1]", 3.0, 0.0},
        {"Release=4", 4.0, 0.0},  // the line's own ends bound a stamp too
        {"ARGANOWIN ReleaseQuestoFile=1", 0.0, 0.0},
        {"[ReleaseQuestoFile = 1]", 0.0, 0.0},
        {"[ReleaseQuestoFile=0.5", 0.0, 0.5},
        {"VERNTC", 0.0, 0.0},
        {"[=", 0.0, 0.0},
    };
    Banco b;
    double argano = -1.0, release = -1.0;
    for (const Stampo& s : casi) {
        prova::ScriviTesto(b.file, std::string(s.riga) + "\n[ReleaseQuestoFile=7]\n");
        EXPECT_TRUE(LeggiRelease(b.file, argano, release, true, b.porta.Fai())) << s.riga;
        EXPECT_EQ(argano, s.argano) << s.riga;
        EXPECT_EQ(release, s.file) << s.riga;
    }
    EXPECT_TRUE(b.porta.detti.empty());
    const std::string manca = (b.cartella / "manca.tk7").string();
    EXPECT_FALSE(LeggiRelease(manca, argano, release, false, b.porta.Fai()));
    EXPECT_TRUE(b.porta.detti.empty());
    EXPECT_FALSE(LeggiRelease(manca, argano, release, true, b.porta.Fai()));
    EXPECT_EQ(argano + release, 0.0);
    ASSERT_EQ(b.porta.detti.size(), 1u);
    EXPECT_EQ(b.porta.detti[0].testo.find("Errore in lettura del file: " + manca), 0u);
    EXPECT_EQ(b.porta.detti[0].titolo, "LETTURA RELEASE");
}

}  // namespace
}  // namespace tk07
