#include <gtest/gtest.h>

#include <filesystem>

#include "aiuti/prova.h"
#include "base/errore.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "options/opzioni.h"

namespace tk07 {
namespace {

const std::string kInstallato =
    std::string(TK07_SORGENTE) + "/installazione/custom/OpzioniNodi.txt";

// Two groups, `quante` rows counted from 0 with their index as value; row 3 is `terza`.
std::string FileOpzioni(int quante, const std::string& terza) {
    std::string t = "2\nFori\n Quote \n" + std::to_string(quante) + "\n";
    for (int i = 0; i < quante; ++i) {
        t +=
            i == 3 ? terza + "\n" : std::to_string(i) + "|TEXT||1|Riga " + std::to_string(i) + "\n";
    }
    return t;
}

bool Leggi(const std::string& testo, Opzioni& o, prova::Porta& porta) {
    const prova::Cartella c;
    prova::ScriviTesto(c / "OpzioniNodi.txt", testo);
    return LeggiOpzioni((c / "opzioninodi.txt").string(), o, porta.Fai());
}

TEST(LeggiOpzioni, FieldsOfARow) {
    const std::tuple<const char*, double, const char*, short, const char*> casi[] = {
        {" -.5 | CHECK | TK01 / TK07 |0| Largo | di più |", -0.5, "TK01 / TK07", 0, "Largo"},
        {"7|OPTI", 7, "", 0, "$$$"},
        {"7|TEXT||1", 7, "", 1, "$$$"},  // no label: the last separator is missing as well
        {"7|TEXT||1|", 7, "", 1, ""},
        {"7|TEXT|TK01|2.5|Lato", 7, "TK01", 2, "Lato"}};
    for (const auto& [riga, valore, programmi, gruppo, etichetta] : casi) {
        prova::Porta porta;
        Opzioni o;
        ASSERT_TRUE(Leggi(FileOpzioni(30, riga), o, porta)) << porta.Testi().at(0);
        EXPECT_TRUE(o.Disponibili);
        EXPECT_EQ(o.Gruppi, (std::vector<std::string>{"Fori", "Quote"}));
        ASSERT_EQ(o.Righe.size(), 30u);
        EXPECT_EQ(o.ValOpz(3), valore) << riga;
        EXPECT_EQ(o.ValOpz(29), 29);
        EXPECT_THROW(o.ValOpz(30), ErroreFatale);
        EXPECT_THROW(o.ValOpz(-1), ErroreFatale);
        EXPECT_EQ(o.Righe[3].Programmi, programmi) << riga;
        EXPECT_EQ(o.Righe[3].Gruppo, gruppo) << riga;
        EXPECT_EQ(o.Righe[3].Etichetta, etichetta) << riga;
    }
}

TEST(LeggiOpzioni, AFaultIsToldAndNothingChanges) {
    const std::string buona = "1|TEXT||0|x";
    std::vector<std::pair<std::string, std::string>> casi = {
        {FileOpzioni(30, "1,5|TEXT||0|x"), "riga 8"},
        {FileOpzioni(30, "|TEXT||0|x"), "riga 8"},
        {FileOpzioni(30, "1|TEXT||99999|x"), "riga 8"},
        {FileOpzioni(29, buona), "30"},
        {"due\n" + FileOpzioni(30, buona), "riga 1"},
        {"-1\n", "riga 1"},
        {"1.5\n", "riga 1"},
        {"3\n" + FileOpzioni(30, buona).substr(2), "riga 5"}};  // a row taken for the count
    const std::string intero = prova::LeggiTesto(kInstallato);
    for (std::size_t p = intero.find('\n'); p < intero.size() - 1; p = intero.find('\n', p + 1)) {
        casi.emplace_back(intero.substr(0, p), "troncato");
    }
    casi.emplace_back("", "troncato");
    for (const auto& [testo, perche] : casi) {
        prova::Porta porta;
        Opzioni o;
        o.Gruppi = {"prima"};
        EXPECT_FALSE(Leggi(testo, o, porta)) << testo;
        EXPECT_EQ(o.Gruppi, std::vector<std::string>{"prima"});
        EXPECT_FALSE(o.Disponibili);
        ASSERT_EQ(porta.detti.size(), 1u);
        EXPECT_TRUE(Contiene(porta.detti[0].testo, perche)) << porta.detti[0].testo;
        EXPECT_EQ(porta.detti[0].titolo, "Errore");
    }
    prova::Porta porta;
    Opzioni o;
    EXPECT_FALSE(LeggiOpzioni("manca/OpzioniNodi.txt", o, porta.Fai()));
    EXPECT_EQ(porta.Testi(),
              std::vector<std::string>{"Non è possibile aprire il file delle opzioni"});
    EXPECT_EQ(porta.detti[0].segno, Segno::esclamazione);
}

TEST(SalvaOpzioni, WritesBackWhatItDoesNotKnow) {
    const prova::Cartella c;
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    Opzioni o;
    ASSERT_TRUE(Leggi(FileOpzioni(30, "1.50|LABC|TK01|0|Perché | altro|"), o, porta));
    o.Righe[5].Valore = 2.5;
    const std::string file = (c / "OpzioniNodi.txt").string();
    ASSERT_TRUE(SalvaOpzioni(file, o, p));
    std::string atteso = FileOpzioni(30, "1.50|LABC|TK01|0|Perché|altro|");
    atteso = SostituisciTesto(atteso, " Quote ", "Quote");
    atteso = SostituisciTesto(atteso, "5|TEXT||1|Riga 5\n", "2.5|TEXT||1|Riga 5\n");
    atteso = SostituisciTesto(atteso, "12.5|TEXT||1|Riga 5", "15|TEXT||1|Riga 5");
    EXPECT_EQ(DaBytes(prova::LeggiTesto(file)), atteso);
    std::filesystem::create_directories(c / "direttorio");
    EXPECT_FALSE(SalvaOpzioni((c / "direttorio").string(), o, p));
    ASSERT_EQ(porta.detti.size(), 1u);
    EXPECT_EQ(porta.detti[0].testo.rfind("Non è possibile salvare il file delle opzioni", 0), 0u);
    EXPECT_EQ(porta.detti[0].titolo, "Errore");
    EXPECT_EQ(porta.detti[0].segno, Segno::esclamazione);
}

TEST(Opzioni, ShippedFileAndPrograms) {
    prova::Porta porta;
    Opzioni o;
    ASSERT_TRUE(LeggiOpzioni(kInstallato, o, porta.Fai()));
    EXPECT_GT(o.ValOpz(kOpzTollForo), 0.0);
    EXPECT_LE(o.ValOpz(kOpzTollForo), 3.0);  // EN 1090-2, tab. 11: 3 mm from M27 on
    EXPECT_GT(o.ValOpz(kOpzDistSaldatura), 0.0);
    for (const RigaOpzione& r : o.Righe) {
        EXPECT_TRUE(r.Gruppo >= 0 && r.Gruppo < static_cast<short>(o.Gruppi.size())) << r.Etichetta;
        EXPECT_TRUE(r.Tipo == "TEXT" || r.Tipo == "CHECK" || r.Tipo == "LABC" ||
                    r.Tipo.rfind("OPTI", 0) == 0)
            << r.Tipo;
    }
    for (const char* filtro : {"", "TK07", "TK01/TK07", " TK01 / TK07 /"}) {
        EXPECT_TRUE(RigaPerProgramma(filtro)) << filtro;
    }
    for (const char* filtro : {"TK01", "TK070", "tk07", "TK01/", "TK07 TK01", "/"}) {
        EXPECT_FALSE(RigaPerProgramma(filtro)) << filtro;
    }
}

}  // namespace
}  // namespace tk07
