#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <thread>

#include "aiuti/prova.h"
#include "base/file_testo.h"
#include "base/nomi_presenti.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using prova::Cartella;
using prova::LeggiTesto;
using prova::ScriviTesto;

TEST(Codifiche, EveryByteOfWindows1252ComesBack) {
    std::string tutti, ritorno;
    for (int b = 1; b < 256; ++b) tutti += static_cast<char>(b);
    ASSERT_TRUE(AWindows1252(DaBytes(tutti), ritorno));
    EXPECT_EQ(ritorno, tutti);
    // 81 8D 8F 90 9D have no character
    std::string alti;
    for (int b = 0x80; b < 0xA0; ++b) {
        if (std::string("\x81\x8D\x8F\x90\x9D").find(static_cast<char>(b)) == std::string::npos) {
            alti += static_cast<char>(b);
        }
    }
    EXPECT_EQ(DaWindows1252(alti + "\xE8\xB2"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸè²");
    for (const char* testo : {"Ω", "→", "😀", "\xC2\x80"}) {
        EXPECT_FALSE(AWindows1252(testo, ritorno)) << testo;
    }
}

TEST(Codifiche, ValidUtf8IsKeptAnythingElseIsWindows1252) {
    EXPECT_EQ(DaBytes("\xEF\xBB\xBFperch\xC3\xA9"), "perché");
    EXPECT_EQ(DaBytes("perch\xC3\xA9 😀"), "perché 😀");
    EXPECT_EQ(DaBytes("perch\xE9"), "perché");
    // one byte that is none makes the whole text Windows-1252: overlong, surrogate, cut, too large
    for (const char* falso : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xE2\x82",
                              "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xBF", "\xC3\xA9 \xE9"}) {
        EXPECT_FALSE(Utf8Valido(falso));
        EXPECT_EQ(DaBytes(falso), DaWindows1252(falso));
    }
}

TEST(FileTesto, WhatIsWrittenIsReadAgain) {
    const Cartella c;
    const std::string file = (c / "nodo.tk7").string();
    for (const char* testo : {"perché €\nb\n", "Ω perché\nb\n"}) {  // the second needs UTF-8
        for (const Codifica codifica : {Codifica::windows1252, Codifica::utf8}) {
            ASSERT_EQ(ScriviFile(file, testo, codifica), "");
            const FileLetto f = LeggiRighe(file);
            ASSERT_TRUE(f.riuscito) << f.errore;
            EXPECT_EQ(f.righe.at(0) + "\n" + f.righe.at(1) + "\n", testo);
        }
    }
    ASSERT_EQ(ScriviFile(file, "perché €", Codifica::windows1252), "");
    EXPECT_EQ(LeggiTesto(file), "perch\xE9 \x80");
    ScriviTesto(file, "\xEF\xBB\xBFuno\r\n\r\ndue\ntre");
    EXPECT_EQ(LeggiRighe(file).righe, (std::vector<std::string>{"uno", "", "due", "tre"}));
    ScriviTesto(file, "");
    EXPECT_TRUE(LeggiRighe(file).riuscito);
    EXPECT_TRUE(LeggiRighe(file).righe.empty());
    EXPECT_FALSE(LeggiRighe((c / "manca").string()).riuscito);
    EXPECT_FALSE(LeggiRighe(c.Testo()).riuscito);
}

TEST(FileTesto, AHugeFileIsRefused) {
    const Cartella c;
    const std::string file = (c / "grande").string();
    ScriviTesto(file, "x");
    std::string bytes, errore;
    fs::resize_file(file, kMassimoFile);
    EXPECT_TRUE(LeggiBytes(file, bytes, errore));
    EXPECT_EQ(bytes.size(), kMassimoFile);
    fs::resize_file(file, kMassimoFile + 1);
    EXPECT_FALSE(LeggiBytes(file, bytes, errore));
    EXPECT_NE(errore.find("troppo grande"), std::string::npos);
}

// Names in the directory.
std::vector<std::string> Voci(const fs::path& dove) {
    std::vector<std::string> v;
    for (const auto& e : fs::recursive_directory_iterator(dove)) v.push_back(e.path().filename());
    std::sort(v.begin(), v.end());
    return v;
}

TEST(ScriviFile, AFailedWriteLeavesTheOldFileAndNothingElse) {
    const Cartella c;
    const std::string vecchio = (c / "vecchio").string(), chiusa = (c / "chiusa").string();
    ScriviTesto(vecchio, "prima");
    fs::create_directories(c / "direttorio");
    fs::create_directories(chiusa);
    ScriviTesto(chiusa + "/nodo", "prima");
    const std::vector<std::string> voci = Voci(c.Testo());
    const auto fallisce = [&](const std::string& file, const std::string& testo,
                              bool daUtente = false) {
        ASSERT_EQ(daUtente ? seteuid(65534) : 0, 0);
        const std::string errore = ScriviFile(file, testo, Codifica::utf8);
        ASSERT_EQ(daUtente ? seteuid(0) : 0, 0);
        EXPECT_NE(errore, "") << file;
        EXPECT_EQ(Voci(c.Testo()), voci) << file;
        EXPECT_EQ(LeggiTesto(vecchio), "prima");
        EXPECT_EQ(LeggiTesto(chiusa + "/nodo"), "prima");
    };
    fallisce((c / "manca/nodo").string(), "dopo");
    fallisce((c / "direttorio").string(), "dopo");
    fallisce(vecchio + "/nodo", "dopo");
    fs::permissions(vecchio, fs::perms::owner_read);
    fallisce(vecchio, "dopo");
    fs::permissions(vecchio, fs::perms::owner_read | fs::perms::owner_write);

    // the disk is full half-way
    rlimit limite{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limite), 0);
    const rlimit stretto{10000, limite.rlim_max};
    auto* segnale = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &stretto);
    fallisce(vecchio, std::string(50000, 'x'));
    setrlimit(RLIMIT_FSIZE, &limite);
    std::signal(SIGXFSZ, segnale);

    // a directory that may not be written; the superuser steps down for it
    fs::permissions(c.Testo(), fs::perms::all);
    fs::permissions(chiusa, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                fs::perms::others_exec);
    fs::permissions(chiusa + "/nodo", fs::perms::all);
    fallisce(chiusa + "/nodo", "dopo", geteuid() == 0);
    fs::permissions(chiusa, fs::perms::owner_all);
}

TEST(ScriviFile, TheNewFileTakesThePlaceOfTheOldOne) {
    const Cartella c;
    const std::string file = (c / "nodo").string();
    ScriviTesto(file, "prima");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("nodo", c / "rimando");
    ASSERT_EQ(ScriviFile((c / "rimando").string(), "dopo", Codifica::utf8), "");
    EXPECT_EQ(LeggiTesto(file), "dopo");
    EXPECT_TRUE(fs::is_symlink(c / "rimando"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(Voci(c.Testo()), (std::vector<std::string>{"nodo", "rimando"}));
}

// What others left or planted in the directory: a link under a guessable temporary name is not
// followed, remains go only when their process is gone and they are old, a name may be as long as
// the file system takes.
TEST(ScriviFile, MakesItsTemporaryFileForItselfAlone) {
    const Cartella c;
    const std::string file = (c / "nodo").string(), lungo = (c / std::string(255, 'n')).string();
    ScriviTesto(c / "vittima", "intatta");
    fs::create_symlink("vittima", c / "nodo.tk7tmp");
    fs::create_symlink("futuro", c / "pendente");
    const pid_t morto = fork();
    if (morto == 0) _exit(0);
    waitpid(morto, nullptr, 0);
    const auto resto = [&](pid_t pid, const char* coda, int ore) {
        const fs::path p = c / (".tk7tmp-" + std::to_string(pid) + coda);
        ScriviTesto(p, "resto");
        fs::last_write_time(p, fs::file_time_type::clock::now() - std::chrono::hours(ore));
        return p;
    };
    const fs::path vecchio = resto(morto, "-a", 2), fresco = resto(morto, "-b", 0),
                   vivo = resto(getpid(), "-c", 2);
    for (const std::string& f : {file, lungo, (c / "pendente").string()}) {
        EXPECT_EQ(ScriviFile(f, "dopo", Codifica::utf8), "") << f;
        EXPECT_EQ(LeggiTesto(f), "dopo");
    }
    EXPECT_EQ(LeggiTesto(c / "vittima"), "intatta");
    EXPECT_TRUE(fs::is_symlink(c / "pendente") && fs::is_regular_file(c / "futuro"));
    EXPECT_FALSE(fs::exists(vecchio));
    EXPECT_TRUE(fs::exists(fresco) && fs::exists(vivo));
    EXPECT_EQ(Voci(c.Testo()).size(), 8u);
}

TEST(ScriviFile, LeavesAloneWhatChangedSinceItWasRead) {
    const Cartella c;
    const std::string file = (c / "nodo").string();
    ScriviTesto(file, "prima");
    const auto letta = ImprontaFile(file);
    ScriviTesto(file, "d'altri");
    const auto scrivi = [&] {
        return ScriviFile(file, "mio", Codifica::utf8, Tenuta::suDisco, letta);
    };
    EXPECT_EQ(scrivi(), "il file è cambiato su disco da quando è stato letto");
    EXPECT_EQ(LeggiTesto(file), "d'altri");
    ScriviTesto(file, "prima");
    EXPECT_EQ(scrivi(), "");
    fs::remove(file);
    EXPECT_EQ(scrivi(), "");  // nothing is lost where nothing is
    EXPECT_EQ(Voci(c.Testo()), std::vector<std::string>{"nodo"});
}

// Four writers on one name: every reading is one of their texts, whole.
TEST(ScriviFile, WritersNeverMix) {
    const Cartella c;
    const std::string file = (c / "nodo").string();
    ASSERT_EQ(ScriviFile(file, std::string(20000, 'a'), Codifica::utf8), "");
    std::atomic<bool> basta = false;
    std::atomic<int> guasti = 0;
    std::vector<std::thread> scrittori;
    for (int k = 0; k < 4; ++k) {
        scrittori.emplace_back([&, k] {
            const std::string testo(20000u * static_cast<unsigned>(k + 1),
                                    static_cast<char>('a' + k));
            while (!basta) guasti += ScriviFile(file, testo, Codifica::utf8).empty() ? 0 : 1;
        });
    }
    for (int i = 0; i < 2000; ++i) {
        const std::string letto = LeggiTesto(file);
        ASSERT_FALSE(letto.empty());
        ASSERT_EQ(letto.size(), 20000u * static_cast<unsigned>(letto[0] - 'a' + 1));
        ASSERT_EQ(letto.find_first_not_of(letto[0]), std::string::npos);
    }
    basta = true;
    for (std::thread& t : scrittori) t.join();
    EXPECT_EQ(guasti, 0);
    EXPECT_EQ(Voci(c.Testo()), std::vector<std::string>{"nodo"});
}

TEST(MessaggioSistema, SpeaksItalian) {
    for (int e = 1; e < 134; ++e) EXPECT_NE(MessaggioSistema(e), std::strerror(e)) << e;
}

TEST(Percorsi, AreFoundWhateverTheirCaseAndCreatedAsSpelled) {
    const Cartella c;
    const std::string base = c.Testo();
    fs::create_directories(c / "Lavori/Città");
    ScriviTesto(c / "Lavori/Città/Nodo.TK7", "");
    ScriviTesto(c / "Lavori/a.txt", "");
    ScriviTesto(c / "Lavori/A.TXT", "");
    EXPECT_EQ(PercorsoPiattaforma(base + "\\LAVORI/città\\NODO.tk7"),
              base + "/Lavori/Città/Nodo.TK7");
    EXPECT_EQ(PercorsoPiattaforma(base + "\\lavori\\CITTÀ\\Nuovo.Tk7"),
              base + "/Lavori/Città/Nuovo.Tk7");
    EXPECT_EQ(PercorsoPiattaforma(base + "\\lavori\\Altra\\città"), base + "/Lavori/Altra/città");
    EXPECT_EQ(PercorsoPiattaforma(base + "/lavori/a.txt"), base + "/Lavori/a.txt");
    EXPECT_EQ(PercorsoPiattaforma(base + "/lavori/A.TXT"), base + "/Lavori/A.TXT");
    EXPECT_EQ(PercorsoPiattaforma(base + "/lavori/../LAVORI/A.txt"),
              base + "/Lavori/../Lavori/A.TXT");
    EXPECT_TRUE(EsisteFile(base + "\\lavori\\città\\nodo.tk7"));
    EXPECT_FALSE(EsisteFile(base + "\\lavori"));
    EXPECT_TRUE(EsisteDirettorio(base + "\\LAVORI"));
    EXPECT_FALSE(EsisteDirettorio(""));
    EXPECT_EQ(NomeSenzaDirettorio("C:\\Lavori/a.b\\nodo.v2.tk7"), "nodo.v2.tk7");
    EXPECT_EQ(NomeBase("C:\\Lavori/a.b\\nodo.v2.tk7"), "nodo.v2");
    EXPECT_EQ(NomeBase("a.b\\nodo"), "nodo");
    EXPECT_TRUE(EliminaFile(base + "\\lavori\\città\\NODO.TK7"));
    EXPECT_FALSE(fs::exists(c / "Lavori/Città/Nodo.TK7"));
}

// Kept names against listings made anew, while this process and another one change the directory.
TEST(NomiPresenti, SayWhatAListingWouldSay) {
    const Cartella c;
    const std::string dir = (c / "lavoro").string();
    fs::create_directories(dir);
    NomiPresenti nomi;
    const auto confronta = [&](const char* quando) {
        for (const char* nome : {"relazione.txt", "RELAZIONE.TXT", "Città", "altro", "n7.txt"}) {
            EXPECT_EQ(nomi.Nome(dir, nome), NomePresente(dir, nome)) << quando << " " << nome;
        }
    };
    const auto fuori = [&](const std::string& comando) {
        ASSERT_EQ(prova::Esegui("cd " + dir + " && " + comando), 0);
        confronta(comando.c_str());
    };
    confronta("vuoto");
    EXPECT_EQ(nomi.Nome(dir, "relazione.txt"), std::nullopt);
    for (int k = 0; k < 300; ++k) {
        const std::string nome = dir + "/n" + std::to_string(k) + ".txt";
        ASSERT_EQ(ScriviFile(nome, "x", Codifica::utf8, Tenuta::provvisoria, {}, &nomi), "");
    }
    EXPECT_LE(nomi.Elenchi(), 1);  // one listing for all of them
    fuori("touch Relazione.TXT");
    EXPECT_EQ(nomi.Nome(dir, "relazione.txt"), "Relazione.TXT");
    fuori("touch RELAZIONE.txt");
    EXPECT_EQ(nomi.Nome(dir, "relazione.txt"), "RELAZIONE.txt");  // the first of the two
    fuori("mv RELAZIONE.txt CITTÀ");
    fuori("rm Relazione.TXT N7.TXT n7.txt 2>/dev/null; mkdir ALTRO");
    fuori("mv ../lavoro ../tolto && mkdir ../lavoro && touch ../lavoro/Altro");  // another one here
    EXPECT_EQ(nomi.Nome(dir, "altro"), "Altro");
    fuori("for i in $(seq 8300); do : > t$i; done; rm -f t*; touch Relazione.txt");  // queue runs
                                                                                     // over
    EXPECT_EQ(PercorsoPiattaforma(dir + "/RELAZIONE.TXT", &nomi), dir + "/Relazione.txt");
    fs::remove_all(dir);
    confronta("tolto");
}

}  // namespace
}  // namespace tk07
