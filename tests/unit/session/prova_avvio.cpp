#include "base/direttori.h"
#include "unit/session/copione.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;

TEST(LeggiDiroot, TakesAClosedFieldInAnyCase) {
    EXPECT_EQ(LeggiDiroot("|diroot=/x/y|"), "/x/y");
    EXPECT_EQ(LeggiDiroot("altro |DIROOT= C:\\Argano |resto"), "c:\\argano");
    EXPECT_EQ(LeggiDiroot("|diroot=/x/y"), "");
    EXPECT_EQ(LeggiDiroot("diroot=/x/yyyyyy|"), "");
    EXPECT_EQ(LeggiDiroot("|diroot=a|"), "");  // not longer than 10 characters
    EXPECT_EQ(LeggiDiroot("|diroot=ab|"), "ab");
    EXPECT_EQ(LeggiDiroot(""), "");
}

// A tree whose name has capitals, as a lower-cased path must still find it.
struct Albero {
    prova::Cartella cartella;
    fs::path radice = cartella / "Albero";
    prova::Porta porta;
    Direttori dir;
    Albero() { fs::rename(prova::AlberoDiProva(cartella), radice); }
    std::string Nel(const std::string& nome) const { return (radice / nome).string(); }
    void Imposta(const char* nome, const std::string& testo) const {
        prova::ScriviTesto(radice / "impostazioni" / nome, testo);
    }
    bool Risolvi(const Avvio& a) { return RisolviDirettori(a, dir, porta.Fai()); }
};

TEST(RisolviDirettori, FindsTheRootInEveryWayItIsGiven) {
    Albero a;
    a.Imposta("dirlav", "  " + a.Nel("lavori") + " \r\nseconda riga\n");
    a.Imposta("lavoro", " esempi\t\n");
    Avvio modi[4];
    modi[0].diroot = a.radice.string() + "\\";
    modi[1].dirProgramma = a.Nel("Progra");
    modi[2].rigaComando = "x |DIROOT=" + Maiuscolo(a.radice.string()) + "| y";
    modi[3].rigaComando = "|diroot=" + a.Nel("altrove");  // not closed: the program's own counts
    modi[3].dirProgramma = a.Nel("progra");
    for (const Avvio& m : modi) {
        EXPECT_TRUE(a.Risolvi(m)) << m.rigaComando;
        EXPECT_TRUE(a.porta.detti.empty());
        EXPECT_EQ(a.dir.nomeLavoro, "esempi");
        EXPECT_EQ(a.dir.dirLavoro, a.Nel("lavori") + "\\esempi");
    }
    EXPECT_EQ(a.dir.dirCustom, a.dir.dirRoot + "\\custom");
    EXPECT_EQ(a.dir.dirMacro2d, a.dir.dirRoot + "\\macro_2d");
}

TEST(RisolviDirettori, EveryFailureHasItsText) {
    const auto errato = [](const char* nome) {
        return [nome](const Albero& a) {
            return a.Nel(std::string("impostazioni/") + nome) + " errato o mancante.";
        };
    };
    const auto lavori = [](const Albero&) -> std::string {
        return "Il direttorio dei lavori deve terminare con < ...\\lavori >.";
    };
    const auto elenco = [](const Albero& a) {
        std::string t = "Uno dei seguenti direttori non è presente o non è accessibile:";
        for (const char* d : {"impostazioni", "progra", "driver", "custom", "Help", "Manuali",
                              "videocorso", "temp", "macro_2d"}) {
            t += "\n" + a.Nel(d);
        }
        return t;
    };
    struct Caso {
        const char* nome;
        std::function<void(const Albero&)> guasta;
        std::function<std::string(const Albero&)> testo;  // empty: it passes
    };
    const auto imposta = [](const char* nome, const char* testo) {
        return [=](const Albero& a) { a.Imposta(nome, testo); };
    };
    const auto toglie = [](const char* nome) {
        return [=](const Albero& a) { fs::remove_all(a.radice / nome); };
    };
    const Caso casi[] = {
        {"dirlav manca", toglie("impostazioni/dirlav"), errato("dirlav")},
        {"dirlav vuoto", imposta("dirlav", ""), errato("dirlav")},
        {"dirlav di 8", imposta("dirlav", "x/lavori"), errato("dirlav")},
        {"dirlav di 9", imposta("dirlav", "c:\\LAVORI"), nullptr},
        {"dirlav altrove", imposta("dirlav", "/qualche/posto"), lavori},
        {"dirlav lavoriX", imposta("dirlav", "/qualche/lavoriX\\"), lavori},
        {"lavoro manca", toglie("impostazioni/lavoro"), errato("lavoro")},
        {"lavoro di 5", imposta("lavoro", "abcde"), errato("lavoro")},
        {"lavoro di 7", imposta("lavoro", "abcdefg"), errato("lavoro")},
        {"lavoro con accento", imposta("lavoro", "citt\xC3\xA0 "), errato("lavoro")},
        {"lavoro di 6", imposta("lavoro", "perch\xE9\n"), nullptr},  // need not exist
        {"manca temp", toglie("temp"), elenco},
        {"manca macro_2d", toglie("macro_2d"), elenco},
        {"manca help", toglie("help"), elenco},
        {"manca lavori", toglie("lavori"), nullptr},
    };
    for (const Caso& c : casi) {
        Albero a;
        a.Imposta("dirlav", a.Nel("lavori"));
        c.guasta(a);
        Avvio avvio;
        avvio.diroot = a.radice.string();
        EXPECT_EQ(a.Risolvi(avvio), c.testo == nullptr) << c.nome;
        ASSERT_EQ(a.porta.detti.size(), c.testo == nullptr ? 0u : 1u) << c.nome;
        if (c.testo == nullptr) continue;
        EXPECT_EQ(a.porta.detti[0].testo, c.testo(a)) << c.nome;
        EXPECT_EQ(a.porta.detti[0].titolo, "ERRORE") << c.nome;
        EXPECT_EQ(a.porta.detti[0].segno, Segno::critico) << c.nome;
    }
}

TEST(RisolviDirettori, AProgramElsewhereOrATooShortRootEnds) {
    prova::Porta porta;
    Direttori d;
    Avvio avvio;
    for (const char* dove : {"/opt/tk07", "", "progra", "/x/xprogra"}) {
        avvio.dirProgramma = dove;
        EXPECT_FALSE(RisolviDirettori(avvio, d, porta.Fai()));
        EXPECT_EQ(porta.detti.back().testo,
                  "Il direttorio della applicazione deve terminare con \\progra");
        EXPECT_EQ(porta.detti.back().titolo, kTitoloProgramma);
    }
    avvio.diroot = "/x";
    EXPECT_FALSE(RisolviDirettori(avvio, d, porta.Fai()));
    EXPECT_EQ(porta.detti.back().testo.find("Uno dei seguenti direttori non è presente"), 0u);
}

TEST(Avvio, EveryMissingOrDamagedFileIsToldAndHasItsEffect) {
    enum Effetto { continua, finisce, fatale };
    struct Caso {
        const char* file;
        const char* contenuto;  // nullptr: removed
        const char* testo;      // of the box; % stands for the file's path
        const char* titolo;
        Effetto effetto;
    };
    const char* const tk07 = kTitoloProgramma;
    const Caso casi[] = {
        {"custom/prof_pro", nullptr, "Profilario errato o mancante...", tk07, finisce},
        {"custom/prof_pro", "IPE 80 x\n", "Profilario errato o mancante...", tk07, finisce},
        {"custom/prof_pro", "", "Profilario errato o mancante...", tk07, finisce},
        {"custom/MaterialiNTC08.tx1", nullptr, "File materiali (%) non trovato o non valido",
         "ERRORE", finisce},
        {"custom/OpzioniNodi.txt", nullptr, "Non è possibile aprire il file delle opzioni",
         "Errore", finisce},
        {"custom/OpzioniNodi.txt", "1\nColori\nx\n", "File delle opzioni %...", "Errore", finisce},
        {"lavori/esempi/parametrilavoro", nullptr, "Errore non recuperabile...", tk07, fatale},
        {"lavori/esempi/parametrilavoro", "P\n9.81 accelerazione_g\n", "Errore non recuperabile...",
         tk07, fatale},
        {"lavori/esempi/propmateriali.tx1", nullptr,
         "Materiali Base non impostati, specificare un materiale nell'apposita sezione", tk07,
         continua},
        {"lavori/esempi/propmateriali.tx1", "ARGANOWIN [ReleaseQuestoFile=2]\n",
         "Materiali base non corretti. Aprire 'Materiali base' dal pannello principale di Argano e "
         "salvarli",
         "ATTENZIONE!", continua},
        {"progra/font.001", nullptr, "File % inesistente!", tk07, continua},
        {"progra/font.001", "999999\n", "Errore in lettura del file % !", tk07, continua},
        {"custom/cad2dmodello.grb", nullptr,
         "Errore in apertura del file %- verranno usati i parametri disegno della versione "
         "autonoma.",
         tk07, continua},
        {"custom/cad2dmodello.grb", "1\nx\n", "Errore in lettura del file %...", tk07, continua},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(std::string(c.file) + (c.contenuto == nullptr ? " manca" : " guasto"));
        prova::Copione k;
        const std::string file = k.radice + "/" + c.file;
        fs::remove(file);
        if (c.contenuto != nullptr) prova::ScriviTesto(file, c.contenuto);
        k.Avvia(std::string("m ") + SostituisciTesto(c.testo, "%", file));
        EXPECT_EQ(k.r["messaggi"][0]["titolo"], c.titolo);
        EXPECT_EQ(k.r["fine"], c.effetto != continua);
        EXPECT_EQ(k.p->CodiceUscita(), c.effetto == fatale ? 70 : c.effetto == finisce ? 2 : 0);
        if (c.effetto == fatale) {  // the box names file and line
            const std::string detto = k.r["messaggi"][0]["testo"];
            EXPECT_TRUE(Contiene(detto, file + (c.contenuto == nullptr ? "" : ", riga 2")))
                << detto;
        }
        if (c.effetto == continua) {
            const bool base = !Contiene(c.file, "propmateriali");
            EXPECT_EQ(k.Cerca("nodo/TraPri_Nome"), "IPE270");
            EXPECT_EQ(k.Cerca("pan/CheckMatBase/abilitato"), base);
        }
    }
}

}  // namespace
}  // namespace tk07
