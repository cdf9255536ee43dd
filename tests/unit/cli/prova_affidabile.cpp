// What the command line does with files that are damaged, hostile or somebody else's too.

#include <gtest/gtest.h>

#include <filesystem>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "session/sessione.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using prova::LeggiTesto;
using prova::Quante;
using prova::ScriviTesto;

struct Banco {
    prova::Cartella cartella;
    std::string radice = prova::AlberoDiProva(cartella);
    std::string esempi = radice + "/lavori/esempi/", primo = esempi + "01_ipe160_su_ipe270.tk7";
    std::string uscita, errori;
    int Esegui(const std::string& argomenti) {
        return prova::Esegui(std::string(TK07_PROGRAMMA) + " --diroot " + radice + " " + argomenti,
                             &uscita, &errori);
    }
};

TEST(Affidabile, ADamagedFileEndsItsOwnWorkAlone) {
    Banco b;
    const std::string guasto = b.esempi + "guasto.tk7";
    ScriviTesto(guasto, "[ReleaseQuestoFile=1]\n999 [nBull]\n");
    ScriviTesto(b.radice + "/temp/TK07_recupero.tk7", "di un'altra volta");
    EXPECT_EQ(b.Esegui("verifica " + guasto + " " + b.primo + " " + guasto + " " + b.primo), 70);
    EXPECT_EQ(Quante(b.uscita, b.primo + ": NODO VERIFICATO"), 2) << b.errori;
    EXPECT_EQ(LeggiTesto(b.radice + "/temp/TK07_recupero.tk7"), "di un'altra volta");
    for (const char* k : {"_2", "_3"}) {
        EXPECT_TRUE(fs::exists(b.radice + "/temp/TK07_recupero" + k + ".tk7")) << k;
    }
}

TEST(Affidabile, TwoJointsOfOneNameKeepTheirReports) {
    Banco b;
    const std::string altro = b.esempi + "altro/01_IPE160_su_ipe270.tk7";
    fs::create_directories(b.esempi + "altro");
    fs::copy_file(b.primo, altro);
    EXPECT_EQ(b.Esegui("verifica --json " + b.primo + " " + altro + " " + b.primo), 0);
    EXPECT_TRUE(Contiene(b.errori, "questa relazione si chiama 01_IPE160_su_ipe270_2"));
    EXPECT_EQ(Quante(b.uscita, "RelSLU_TK07_01_ipe160_su_ipe270.txt"), 2);
    EXPECT_EQ(Quante(b.uscita, "RelSLU_TK07_01_IPE160_su_ipe270_2.txt"), 1);
}

// What a name holds reaches neither a terminal nor a spreadsheet as more than text.
TEST(Affidabile, NamesAreTextAndNothingElse) {
    Banco b;
    std::string nodo = LeggiTesto(b.primo);
    std::vector<std::string> cattivi = {"=HYPERLINK(1)",
                                        "+cmd",
                                        "-2+3",
                                        "@SUM(A1)",
                                        "-12.5",
                                        "a\x1b(0rosso\x07",
                                        "b\xc2\x9b"
                                        "2J"};
    nodo.replace(nodo.rfind('\n', nodo.find("[nSollAg]")) + 1, 1, std::to_string(cattivi.size()));
    for (std::size_t k = 0; k < cattivi.size(); ++k) {
        nodo += cattivi[k] + "    [NomeSa " + std::to_string(k) + "]\n";
    }
    ScriviTesto(b.primo, nodo);
    b.Esegui("verifica --csv " + b.primo);
    for (const char* cella : {";'=HYPERLINK(1);", ";'+cmd;", ";'-2+3;", ";'@SUM(A1);", ";-12.5;",
                              ";a\uFFFD(0rosso\uFFFD;"}) {
        EXPECT_EQ(Quante(b.uscita, cella), 1) << cella << b.uscita << b.errori;
    }
    for (const std::string& comando : {"mostra " + b.primo, "verifica --stampa " + b.primo,
                                       "verifica '" + b.primo + "\x1b[2J'"}) {
        b.Esegui(comando);
        EXPECT_EQ((b.uscita + b.errori).find_first_of("\x1b\x07"), std::string::npos) << comando;
        EXPECT_FALSE(Contiene(b.uscita, "\xc2\x9b")) << comando;
    }
}

TEST(Affidabile, AJobLiesInTheJobsDirectory) {
    Banco b;
    fs::create_directories(b.radice + "/uscito");
    fs::create_directories(b.radice + "/lavori/nodi_a/b");
    for (const char* lavoro : {"../usc", "../../", "nodi_a/b", "..\\usc"}) {
        fs::create_directories(b.radice + "/usc");
        EXPECT_EQ(b.Esegui("--lavoro '" + std::string(lavoro) + "' sezioni"), 2) << lavoro;
    }
}

TEST(Affidabile, ANewTreeIsNamedAsSpelled) {
    Banco b;
    fs::create_directories(b.radice + "/temp/nodi/pieno");
    EXPECT_EQ(b.Esegui("inizializza " + b.radice + "/temp/NODI"), 0) << b.errori;
    EXPECT_TRUE(fs::exists(b.radice + "/temp/NODI/impostazioni/dirlav"));
}

// Twelve at once, each adding a load set to the same file: who was overtaken says so, and what was
// said to be done is there.
TEST(Affidabile, NoUpdateIsLost) {
    Banco b;
    EXPECT_EQ(b.Esegui("carichi " + b.primo + " --senza-doppi -o " + b.primo), 0);
    const int prima = Quante(LeggiTesto(b.primo), "[NomeSa ");
    std::string riga;
    for (int k = 0; k < 12; ++k) {
        riga += std::string(TK07_PROGRAMMA) + " --diroot " + b.radice + " carichi " + b.primo +
                " --aggiungi " + std::to_string(k + 1) + ",0,0,0,0,0 -o " + b.primo + " & ";
    }
    prova::Esegui("sh -c '" + riga + "wait'", &b.uscita, &b.errori);
    const int fatti = Quante(LeggiTesto(b.primo), "[NomeSa ") - prima;
    EXPECT_GE(fatti, 1);
    EXPECT_EQ(fatti + Quante(b.errori, "il file è cambiato su disco"), 12) << b.errori;
}

// The session refuses its own file once another has changed it, and replaces one that it never
// read.
TEST(Affidabile, AFileThatChangedSinceItWasReadIsNotWrittenOver) {
    prova::SessioneDiProva b;
    const std::string file = b.Lavoro() + "/01_ipe160_su_ipe270.tk7", altro = b.Lavoro() + "/x.tk7";
    ASSERT_TRUE(ApriNodo(*b.s, file));
    ScriviTesto(file, "d'altri\n");
    ScriviTesto(altro, "d'altri\n");
    EXPECT_FALSE(ScriviNodo(*b.s, file));
    EXPECT_TRUE(Contiene(b.porta.detti.back().testo, "è cambiato su disco"));
    EXPECT_EQ(LeggiTesto(file), "d'altri\n");
    EXPECT_TRUE(ScriviNodo(*b.s, altro));
}

// Whatever ends a command is told, with the joint saved aside.
TEST(Affidabile, AnyExceptionEndsTheCommandWithTheJointSaved) {
    const std::vector<std::pair<std::function<void()>, std::string>> casi = {
        {[] { throw ErroreFatale("guasto", "qui"); }, "guasto\nin qui"},
        {[] { throw std::bad_alloc(); }, "memoria esaurita"},
        {[] { throw std::length_error("troppo"); }, "errore interno (troppo)"},
        {[] { throw 7; }, "errore interno"}};
    for (const auto& [comando, detto] : casi) {
        prova::SessioneDiProva b;
        b.s->nodo.BPiastra(1) = 231.0;
        EXPECT_FALSE(EseguiComando(*b.s, [&] {
            b.s->nodo.BPiastra(1) = 0.0;
            comando();
        }));
        EXPECT_EQ(b.s->codiceUscita, 70);
        EXPECT_EQ(b.s->nodo.BPiastra(1), 231.0);
        ASSERT_FALSE(b.porta.detti.empty());
        EXPECT_TRUE(Contiene(b.porta.detti.back().testo, "Errore non recuperabile: " + detto));
        EXPECT_TRUE(fs::exists(b.radice + "/temp/TK07_recupero.tk7"));
    }
}

}  // namespace
}  // namespace tk07
