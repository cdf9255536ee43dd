// The manual against the program: its messages, its commands, its chapters as printed.

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "aiuti/prova.h"
#include "base/testo.h"

namespace tk07::prova {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Capitoli() {
    std::vector<fs::path> c;
    for (const auto& f : fs::directory_iterator(std::string(TK07_SORGENTE) + "/docs/manuale")) {
        if (f.path().extension() == ".md") c.push_back(f.path());
    }
    std::sort(c.begin(), c.end());
    return c;
}

std::string Tutto() {
    std::string t;
    for (const fs::path& c : Capitoli()) t += LeggiTesto(c);
    return t;
}

TEST(Manuale, OgniMessaggio) {
    std::string detto;
    const int esito = Esegui("python3 " TK07_SORGENTE "/scripts/messaggi", nullptr, &detto);
    if (esito == 127) GTEST_SKIP() << "python3";
    EXPECT_EQ(esito, 0) << detto;
}

// Every button, box, option and command of the panels by the name that the user reads on it.
TEST(Manuale, OgniComandoDeiPannelli) {
    SessioneDiProva p;
    const std::string manuale = Tutto();
    int quanti = 0;
    const auto controlla = [&](const Pannello& pannello) {
        for (const auto& [nome, c] : pannello.controlli) {
            const bool comando = c.tipo == TipoControllo::pulsante ||
                                 c.tipo == TipoControllo::casella ||
                                 c.tipo == TipoControllo::opzione;
            if (!comando || c.testo.size() < 2) continue;
            ++quanti;
            EXPECT_NE(manuale.find(c.testo), std::string::npos) << nome << ": " << c.testo;
        }
    };
    controlla(p.s->InsDati);
    for (const auto& [apre, chiude] : {std::pair{"DefBulloni", "MatBulAnn"},
                                       {"PropMatButton", "Chiudi"},
                                       {"Opz", "OpzAnnulla"},
                                       {"ImpS3D", "Chiudi"}}) {
        ASSERT_EQ(PremiPulsante(*p.s, apre), "");
        controlla(*PannelliAperti(*p.s).back());
        ASSERT_EQ(PremiPulsante(*p.s, chiude), "");
    }
    EXPECT_GT(quanti, 60);
}

// Every command and option that tk07 --help tells stands in the manual and in the man page.
TEST(Manuale, OgniComandoDellaRiga) {
    std::string aiuto;
    ASSERT_EQ(Esegui(TK07_PROGRAMMA " --help", &aiuto), 0);
    std::string man = LeggiTesto(TK07_SORGENTE "/docs/man/tk07.1");
    man = SostituisciTesto(SostituisciTesto(man, "\\-", "-"), "\\fR", "");
    const std::string manuale = Tutto();
    const std::string completa = LeggiTesto(TK07_SORGENTE "/pacchetto/tk07.bash");
    const std::regex comando("\n  ([a-z]+) ");
    const std::regex opzione("--[a-z-]+");
    int quanti = 0;
    for (std::sregex_iterator it(aiuto.begin(), aiuto.end(), comando), fine; it != fine; ++it) {
        const std::string nome = (*it)[1];
        std::string suo;
        ASSERT_EQ(Esegui(TK07_PROGRAMMA " " + nome + " --help", &suo), 0);
        std::set<std::string> voci{nome};
        for (std::sregex_iterator o(suo.begin(), suo.end(), opzione); o != fine; ++o) {
            voci.insert(o->str());
        }
        for (const std::string& v : voci) {
            ++quanti;
            EXPECT_NE(manuale.find(v), std::string::npos) << nome << " " << v;
            EXPECT_NE(man.find(v), std::string::npos) << "man: " << nome << " " << v;
            EXPECT_NE(completa.find(v), std::string::npos) << "bash: " << nome << " " << v;
        }
    }
    EXPECT_GT(quanti, 30);
}

// The printed manual: every chapter, in order, begins on the page that the contents name and lead
// to, and that the outline opens.
TEST(Manuale, Pagine) {
    const fs::path pdf = fs::path(TK07_PROGRAMMA).parent_path() / "../help/HelpTK07.pdf";
    std::string testo;
    if (!fs::exists(pdf)) GTEST_SKIP() << "built without Qt";
    if (Esegui("pdftotext -layout " + pdf.string() + " -", &testo) != 0)
        GTEST_SKIP() << "pdftotext";
    std::string xml;
    ASSERT_EQ(Esegui("pdftohtml -xml -i -stdout " + pdf.string(), &xml), 0);
    const std::vector<std::string> pagine = Dividi(testo, '\f');
    std::string indice = pagine[1] + pagine[2];
    std::size_t minima = 2;
    for (const fs::path& c : Capitoli()) {
        const std::string riga = LeggiTesto(c);
        const std::string titolo = riga.substr(2, riga.find('\n') - 2);
        const std::size_t p = indice.find(titolo);
        ASSERT_NE(p, std::string::npos) << titolo;
        const std::string resto = indice.substr(p + titolo.size(), indice.find('\n', p) - p);
        std::smatch numero;
        ASSERT_TRUE(std::regex_search(resto, numero, std::regex("[0-9]+"))) << resto;
        const std::size_t pagina = std::stoul(numero.str());
        ASSERT_LE(pagina, pagine.size());
        EXPECT_GT(pagina, minima) << titolo;
        minima = pagina;
        EXPECT_NE(xml.find("<item page=\"" + numero.str() + "\">" + titolo), std::string::npos)
            << titolo;
        EXPECT_NE(xml.find(".html#" + numero.str() + "\"><b>" + titolo), std::string::npos)
            << titolo;
        // Once as the running head, once as the heading; the page bears its own number.
        const std::string& t = pagine[pagina - 1];
        const std::size_t testa = t.find(titolo);
        ASSERT_NE(testa, std::string::npos) << titolo;
        EXPECT_NE(t.find(titolo, testa + 1), std::string::npos) << titolo << " on page " << pagina;
        const std::string piede = Taglia(Dividi(TagliaDestra(t), '\n').back());
        EXPECT_TRUE(std::regex_search(t, std::regex("\n *" + numero.str() + "\\s*$"))) << piede;
    }
}

}  // namespace
}  // namespace tk07::prova
