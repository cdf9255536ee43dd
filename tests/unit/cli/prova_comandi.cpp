#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "aiuti/prova.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

struct Uscita {
    int codice = -1;
    std::string testo, errori;
};

struct Riga {
    prova::Cartella cartella;
    std::string radice = prova::AlberoDiProva(cartella);
    std::string Esempio(const std::string& nome) const {
        return radice + "/lavori/esempi/" + nome + ".tk7";
    }
    Uscita Esegui(const std::string& argomenti, const std::string& ambiente = "") const {
        Uscita u;
        u.codice =
            prova::Esegui(ambiente + " " TK07_PROGRAMMA " --diroot " + radice + " " + argomenti,
                          &u.testo, &u.errori);
        return u;
    }
};

const char* const kVerificato = "01_ipe160_su_ipe270";
const char* const kNonVerificato = "09_hea260_su_hea400";  // allowable stress
const char* const kInterassi = "10_ipe220_su_ipe330";      // fails, and breaks a spacing rule

void PretendiUnaRiga(const Uscita& u, const std::string& file) {
    ASSERT_FALSE(u.errori.empty());
    std::vector<std::string> righe = Dividi(u.errori, '\n');
    righe.pop_back();
    for (const std::string& r : righe) {
        EXPECT_EQ(r.find(file + ": "), 0u) << r.substr(0, 200);
        EXPECT_GT(r.size(), file.size() + 10) << r;
    }
}

// Its fields: docs/verifica.schema.json and the independent calculation.
TEST(Comandi, VerificaJsonCodesAndReport) {
    const Riga t;
    struct Caso {
        const char* argomenti;
        const char* file;
        const char* metodo;
        int codice;
    };
    for (const Caso& c : {Caso{"", kVerificato, "SLU", 0},
                          {"--metodo ta", kVerificato, "TA", 0},
                          {"--metodo ta --fermati", kNonVerificato, "TA", 1},
                          {"", kInterassi, "SLU", 1},
                          {"--fermati", kInterassi, "SLU", 3}}) {
        SCOPED_TRACE(std::string(c.argomenti) + " " + c.file);
        const Uscita u =
            t.Esegui("verifica --json " + std::string(c.argomenti) + " " + t.Esempio(c.file));
        EXPECT_EQ(u.codice, c.codice);
        ASSERT_EQ(std::count(u.testo.begin(), u.testo.end(), '\n'), 1);
        const Json j = Json::parse(u.testo);
        const bool fermata = c.codice == 3;
        EXPECT_EQ(j["file"], t.Esempio(c.file));
        EXPECT_EQ(j["metodo"], c.metodo);
        EXPECT_EQ(j["interrotta"], fermata);
        EXPECT_EQ(j["verificato"], fermata ? Json(nullptr) : Json(c.codice == 0));
        EXPECT_TRUE(c.codice == 0 || !j["messaggi"].empty());
        const std::string relazione =
            t.radice + "/lavori/esempi/Rel" + c.metodo + "_TK07_" + c.file + ".txt";
        EXPECT_EQ(j["relazione"], fermata ? Json(nullptr) : Json(relazione));
        EXPECT_EQ(prova::LeggiTesto(relazione).size() > 1000, !fermata);
        fs::remove(relazione);
    }
    const Uscita u = t.Esegui("verifica --stampa --metodo ta " + t.Esempio(kVerificato));
    EXPECT_EQ(u.codice, 0);
    EXPECT_TRUE(Contiene(u.testo, "VERIFICA TENSIONALE NODI - METODO ")) << u.errori;
}

// Rows of fields of a text by RFC 4180, with semicolons.
std::vector<std::vector<std::string>> LeggiCsv(const std::string& testo) {
    std::vector<std::vector<std::string>> righe;
    std::vector<std::string> riga(1);
    bool dentro = false;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i];
        if (dentro && c == '"' && testo[i + 1] == '"') {
            riga.back() += testo[++i];
        } else if (c == '"' && (dentro || riga.back().empty())) {
            dentro = !dentro;
        } else if (dentro || (c != ';' && c != '\n')) {
            riga.back() += c;
        } else if (c == ';') {
            riga.emplace_back();
        } else {
            righe.push_back(std::exchange(riga, std::vector<std::string>(1)));
        }
    }
    return righe;
}

// One head, one row a load set; above 1 exactly where the JSON says not verified, and the governing
// ratio is the largest of the families.
TEST(Comandi, VerificaCsv) {
    const Riga t;
    std::string nodo = prova::LeggiTesto(t.Esempio(kNonVerificato));
    const std::size_t nome = nodo.find("G + Q + vento");
    ASSERT_NE(nome, std::string::npos);
    nodo.replace(nome, 13, "G; \"Q\", vento");
    prova::ScriviTesto(t.Esempio("con;punto"), nodo);
    nodo.replace(nodo.find("G; \"Q\", vento"), 13, "\"G\" e vento  ");
    prova::ScriviTesto(t.Esempio(kNonVerificato), nodo);
    const std::string file = "'" + t.Esempio("con;punto") + "' " + t.Esempio(kNonVerificato) + " " +
                             t.Esempio("manca") + " " + t.Esempio(kVerificato);
    const Uscita u = t.Esegui("verifica --csv " + file);
    EXPECT_EQ(u.codice, 2);
    const auto righe = LeggiCsv(u.testo);
    ASSERT_EQ(righe.size(), 1u + 2u + 2u + 3u);
    EXPECT_EQ(righe[0], Dividi("file;metodo;sestetto;nome;verificato;famiglia;controllo;elemento;"
                               "rapporto;bulloni;piastra_1;piastra_2;saldature_s1;saldature_s2",
                               ';'));
    EXPECT_EQ(righe[2][0], t.Esempio("con;punto"));
    EXPECT_EQ(righe[2][3], "G; \"Q\", vento");
    EXPECT_EQ(Taglia(righe[4][3]), "\"G\" e vento");
    EXPECT_EQ(righe[2][5] + righe[2][6] + righe[2][7], "Saldature S1S_idsaldatura s12");
    EXPECT_EQ(righe[2][8].substr(0, 4), "1.09");
    std::vector<Json> sestetti;
    for (const std::string& riga : Dividi(t.Esegui("verifica --json " + file).testo, '\n')) {
        if (riga.empty()) continue;
        const Json j = Json::parse(riga);
        for (const Json& s : j["sestetti"]) sestetti.push_back(s);
    }
    for (std::size_t k = 1; k < righe.size(); ++k) {
        const auto& c = righe[k];
        ASSERT_EQ(c.size(), 14u) << c[0];
        const double rapporto = *ValoreStretto(c[8]);
        double massimo = 0.0;
        for (std::size_t i = 9; i < 14; ++i) massimo = std::max(massimo, *ValoreStretto(c[i]));
        EXPECT_EQ(rapporto, massimo);
        EXPECT_EQ(c[4] == "1", sestetti[k - 1]["verificato"].get<bool>());
        EXPECT_EQ(rapporto <= 1.0, c[4] == "1");
    }
    EXPECT_EQ(t.Esegui("verifica --csv --json " + t.Esempio(kVerificato)).codice, 2);
}

TEST(Comandi, FilesDoNotInfluenceEachOther) {
    const Riga t;
    prova::ScriviTesto(t.Esempio("scarso"), "[ReleaseQuestoFile=1]\n1 [TipoVer]\n");
    prova::ScriviTesto(t.Esempio("pieno"),
                       "[ReleaseQuestoFile=1]\n30 [SpPiastra 1]\n9 [nBull]\n3 [x]\n");
    const std::vector<std::string> nomi = {kNonVerificato, "scarso",    "manca",    "pieno",
                                           "scarso",       kVerificato, kInterassi, kVerificato};
    std::string insieme, separati, errori;
    int massimo = 0;
    for (const std::string& n : nomi) {
        insieme += " " + t.Esempio(n);
        const Uscita u = t.Esegui("verifica --json " + t.Esempio(n));
        massimo = std::max(massimo, u.codice);
        separati += u.testo;
        errori += u.errori;
    }
    const Uscita u = t.Esegui("verifica --json" + insieme);
    EXPECT_EQ(u.testo, separati);
    EXPECT_EQ(u.errori, errori);
    EXPECT_EQ(u.codice, massimo);
    EXPECT_EQ(massimo, 3);
    const Uscita doppi = t.Esegui("verifica --json --fili 4" + insieme);
    EXPECT_EQ(doppi.testo + doppi.errori, u.testo + u.errori);

    // On several threads: the same words in the same order, the same reports.
    std::string molti;
    for (int k = 0; k < 60; ++k) {
        const std::string copia = t.Esempio("n" + std::to_string(k));
        fs::copy(t.Esempio(k % 3 == 0   ? kVerificato
                           : k % 3 == 1 ? kNonVerificato
                                        : kInterassi),
                 copia);
        molti += " " + copia;
    }
    const std::string relazioni = t.radice + "/lavori/esempi";
    const auto esegui = [&](const std::string& comando) {
        const Uscita esito = t.Esegui(comando + molti);
        std::string tutto = std::to_string(esito.codice) + esito.testo + "|" + esito.errori;
        std::set<fs::path> scritte;
        for (const auto& e : fs::directory_iterator(relazioni)) {
            if (e.path().filename().string().starts_with("Rel")) scritte.insert(e.path());
        }
        for (const fs::path& p : scritte) {
            tutto += p.string() + prova::LeggiTesto(p);
            fs::remove(p);
        }
        return tutto;
    };
    esegui("verifica");  // takes the reports of the runs above away
    for (const char* come : {"verifica --csv", "verifica --metodo ta --fermati --stampa"}) {
        const std::string uno = esegui(come);
        EXPECT_GT(uno.size(), 100000u);
        EXPECT_TRUE(esegui(std::string(come) + " --fili 3") == uno) << come;
    }
    EXPECT_EQ(t.Esegui("verifica --fili 0" + insieme).codice, 2);

    // a fatal fault ends its own file
    prova::ScriviTesto(t.Esempio("guasto"), "[ReleaseQuestoFile=1]\n1 [Xbull 101]\n");
    const Uscita g = t.Esegui("controlla " + t.Esempio("guasto") + " " + t.Esempio(kInterassi));
    EXPECT_EQ(g.codice, 70);
    EXPECT_EQ(g.testo.find(t.Esempio(kInterassi) + ": "), 0u) << g.testo;
    PretendiUnaRiga(g, t.Esempio("guasto"));
    EXPECT_TRUE(Contiene(g.errori, "riga 2") && Contiene(Minuscolo(g.errori), "xbull"));
    for (const char* fili : {"1", "3"}) {
        const Uscita f = t.Esegui(std::string("verifica --fili ") + fili + " " + t.Esempio("n0") +
                                  " " + t.Esempio("guasto") + molti);
        EXPECT_EQ(f.codice, 70);
        EXPECT_EQ(std::count(f.testo.begin(), f.testo.end(), '\n'), 2 * 61) << f.testo;
        EXPECT_TRUE(Contiene(f.errori, "TK07_recupero")) << f.errori;
    }
}

TEST(Comandi, ControllaMostraAndTheLibraries) {
    const Riga t;
    EXPECT_EQ(t.Esegui("controlla " + t.Esempio(kVerificato)).codice, 0);
    EXPECT_EQ(t.Esegui("controlla " + t.Esempio(kVerificato)).testo, "");
    Uscita u = t.Esegui("controlla " + t.Esempio(kInterassi));
    EXPECT_EQ(u.codice, 1);
    EXPECT_EQ(u.testo.find(t.Esempio(kInterassi) + ": "), 0u);
    prova::ScriviTesto(t.Esempio("nullo"), "[ReleaseQuestoFile=1]\n0 [spSaldS1]\n0 [BPiastra 1]\n");
    u = t.Esegui("controlla " + t.Esempio("nullo"));
    EXPECT_EQ(u.codice, 1);
    EXPECT_TRUE(Contiene(u.testo, "nullo.tk7: Lato delle saldature negativo o nullo.\n"));
    EXPECT_TRUE(Contiene(u.testo, "nullo.tk7: Dimensioni della piastra 1 negative o nulle.\n"));
    u = t.Esegui("verifica " + t.Esempio("nullo"));
    EXPECT_EQ(u.codice, 3);
    EXPECT_TRUE(Contiene(u.errori, "nullo.tk7: La verifica non è possibile!\n"));

    // the old format by the command line: example 12 by hand from its lines
    const Json n =
        Json::parse(t.Esegui("mostra --json " + t.Esempio("12_ipe240_su_ipe400_vecchio")).testo);
    EXPECT_EQ(n["distAliPriSec"], 80.0);
    EXPECT_EQ(n["NomeNodi"], Json({3, 9}));
    EXPECT_EQ(n["NomeSa"][1], "SLU 2: 1.3 G1 + 1.5 Q, più vento");
    u = t.Esegui("mostra " + t.Esempio(kVerificato));
    EXPECT_EQ(u.codice, 0);
    EXPECT_TRUE(Contiene(u.testo, "IPE270") && Contiene(u.testo, "S 235 (FE 360)"));

    const Json sezioni = Json::parse(t.Esegui("sezioni --json").testo);
    const auto ipe = std::find_if(sezioni.begin(), sezioni.end(),
                                  [](const Json& x) { return x["Nome"] == "IPE270"; });
    ASSERT_NE(ipe, sezioni.end());
    EXPECT_EQ((*ipe)["H"], 270.0);
    EXPECT_DOUBLE_EQ((*ipe)["Area"].get<double>(), 4594.5);  // mm2, of 45.945 cm2
    const Json mat = Json::parse(t.Esegui("materiali --json").testo);
    EXPECT_EQ(mat["AcciaiAperte"][0]["Ftk40"], 3600.0);
    EXPECT_EQ(mat["AcciaiAperte"][0]["Fyk80"], 2150.0);
    EXPECT_EQ(mat["Base"]["MatBaseValidi"], true);
    for (const char* c : {"sezioni", "materiali"}) EXPECT_EQ(t.Esegui(c).codice, 0);

    const std::string nuovo = (t.cartella / "nuovo albero").string();
    EXPECT_EQ(t.Esegui("inizializza '" + nuovo + "'").codice, 0);
    EXPECT_EQ(prova::Esegui(TK07_PROGRAMMA " --diroot '" + nuovo + "' verifica '" + nuovo +
                            "/lavori/esempi/" + kVerificato + ".tk7'"),
              0);
    u = t.Esegui("inizializza '" + nuovo + "'");  // not empty any more
    EXPECT_EQ(u.codice, 2);
    PretendiUnaRiga(u, nuovo);
}

TEST(Comandi, DisegnaWritesByTheEnding) {
    const Riga t;
    const std::string nodo = t.Esempio(kVerificato), base = t.radice + "/tavola";
    const auto inizio = [&](const char* estensione, std::size_t n) {
        const Uscita u = t.Esegui("disegna " + nodo + " -o " + base + estensione);
        EXPECT_EQ(u.codice, 0) << u.errori;
        return prova::LeggiTesto(base + estensione).substr(0, n);
    };
    const std::string quattro = "                   4\n";
    EXPECT_EQ(inizio(".dis", 22), quattro + "-");
    EXPECT_EQ(inizio(".GRB", 28), quattro + "       ");
    EXPECT_EQ(inizio(".dxf", 11), " 0\nSECTION\n");
    EXPECT_EQ(prova::LeggiTesto(base + ".dxf").find("LTYPE"), std::string::npos);
    EXPECT_EQ(t.Esegui("disegna " + nodo + " --tipi-linea -o " + base + ".dxf").codice, 0);
    EXPECT_NE(prova::LeggiTesto(base + ".dxf").find("LTYPE\n 2\nCENTER"), std::string::npos);
    if (fs::exists(fs::path(TK07_PROGRAMMA).parent_path() / "mostradis")) {  // Qt was there
        EXPECT_EQ(inizio(".pdf", 5), "%PDF-");
        EXPECT_EQ(inizio(".svg", 5), "<?xml");
        EXPECT_EQ(inizio(".png", 4), "\x89PNG");
        const Uscita u = t.Esegui("disegna " + nodo + " -o " + t.radice + "/manca/t.pdf");
        EXPECT_EQ(u.codice, 2);
        EXPECT_NE(u.errori.find("/manca/t.pdf: "), std::string::npos) << u.errori;
    }
    for (const char* errato : {".txt", ".dis --tipi-linea"}) {
        EXPECT_EQ(t.Esegui("disegna " + nodo + " -o " + base + errato).codice, 2) << errato;
    }
    EXPECT_FALSE(fs::exists(base + ".txt"));
}

TEST(Comandi, WrongUseIs2AndHelpIs0) {
    const Riga t;
    for (const char* a : {"", "boh", "verifica", "verifica --metodo xx a.tk7", "mostra",
                          "mostra a b", "verifica --boh a", "sezioni a"}) {
        const Uscita u = t.Esegui(a);
        EXPECT_EQ(u.codice, 2) << a;
        EXPECT_EQ(u.testo, "") << a;
        EXPECT_EQ(std::count(u.errori.begin(), u.errori.end(), '\n'), 1) << a << ": " << u.errori;
    }
    for (const char* a :
         {"verifica", "controlla", "mostra", "sezioni", "materiali", "inizializza", "sessione"}) {
        const Uscita u = t.Esegui(std::string(a) + " --help");
        EXPECT_EQ(u.codice, 0) << a;
        EXPECT_TRUE(Contiene(u.testo, std::string("Esempio: tk07 ") + a)) << a;
    }
    EXPECT_EQ(t.Esegui("--version").testo.rfind("TK07 1.", 0), 0u);
    // Nothing to judge is no verdict.
    std::string vuoto = prova::LeggiTesto(t.Esempio(kVerificato));
    vuoto = SostituisciTesto(vuoto, "\n3                                       [nSollAg]",
                             "\n0                                       [nSollAg]");
    prova::ScriviTesto(t.Esempio("vuoto"), vuoto);
    const Uscita u = t.Esegui("verifica " + t.Esempio("vuoto"));
    EXPECT_TRUE(u.codice == 3 && Contiene(u.testo, "NESSUN SESTETTO") &&
                !Contiene(u.testo, "VERIFICATO"))
        << u.testo;
    const Json j = Json::parse(t.Esegui("verifica --json " + t.Esempio("vuoto")).testo);
    EXPECT_TRUE(j["verificato"].is_null() && !j["interrotta"] && !j["relazione"].is_null()) << j;
    // the marked field, in capitals, on a root whose name is found whatever its case
    std::string uscita;
    EXPECT_EQ(prova::Esegui(TK07_PROGRAMMA " '|DIROOT=" + Maiuscolo(t.radice) + "|' verifica " +
                                t.Esempio(kVerificato),
                            &uscita),
              0);
    EXPECT_TRUE(Contiene(uscita, t.radice + "/lavori/esempi/RelSLU_TK07_"));
}

TEST(Comandi, HostileFilesAreRefusedInOneLineEach) {
    const Riga t;
    std::mt19937_64 g(3);
    std::string casuali;
    for (int i = 0; i < 50000; ++i) casuali += static_cast<char>(g());
    const std::string testata = "ARGANOWIN [ReleaseQuestoFile=1]\n";
    const std::string esempio = prova::LeggiTesto(t.Esempio(kVerificato));
    const std::string nul(1, '\0'), lunga(1 << 20, 'x'), cifre(1 << 20, '7');
    struct Caso {
        const char* nome;
        std::string testo;
        std::set<int> codici;
    };
    const std::set<int> rifiuto = {2}, giudizio = {0, 1, 2, 3}, fatale = {70};
    const Caso casi[] = {
        {"vuoto", "", rifiuto},
        {"capo", "\n", rifiuto},
        {"casuali", casuali, rifiuto},
        {"casuali_chiavi", testata + casuali, {2, 3, 70}},
        {"nul", std::string(100000, '\0'), rifiuto},
        {"nul_valori",
         testata + "IPE" + nul + "270 [TraPri_Nome]\n1" + nul + "2 [spSaldS1]\n",
         {3}},
        {"riga_lunga", lunga, rifiuto},
        {"chiave_lunga", esempio + "1 [" + lunga + "]\n", {0}},
        {"parentesi", esempio + std::string(1 << 20, '[') + "\n", {0}},
        {"nome_lungo", testata + lunga + " [TraPri_Nome]\n", {3}},
        {"numero_lungo", testata + cifre + " [spSaldS1]\n", fatale},
        {"indice_lungo", testata + "1 [Xbull " + cifre + "]\n", fatale},
        {"esposizione_lunga", testata + lunga + " [Esposizione]\n", fatale},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome);
        const std::string file = (t.cartella / c.nome).string();
        prova::ScriviTesto(file, c.testo);
        const Uscita u = t.Esegui("verifica " + file);
        EXPECT_TRUE(c.codici.contains(u.codice)) << u.codice;
        if (u.codice == 0) continue;
        PretendiUnaRiga(u, file);
        EXPECT_LT(u.errori.size(), 5000u);  // a message is for a person to read
        EXPECT_EQ(u.testo, "");
    }
    const std::string grande = (t.cartella / "grande").string();
    prova::ScriviTesto(grande, testata);
    fs::resize_file(grande, 100u << 20);
    for (const std::string& file :
         {grande, t.radice, t.Esempio("manca"), t.Esempio("manca") + "/x"}) {
        for (const char* comando : {"verifica ", "controlla ", "mostra ", "mostra --json "}) {
            const Uscita u = t.Esegui(comando + file);
            EXPECT_EQ(u.codice, 2) << comando << file;
            EXPECT_EQ(u.testo, "");
            PretendiUnaRiga(u, file);
            EXPECT_EQ(std::count(u.errori.begin(), u.errori.end(), '\n'), 1) << u.errori;
        }
    }
}

// A verdict must say what it stands on: nothing at all, or something else than the file names.
TEST(Comandi, WhatStandsInForTheFilesNamesIsTold) {
    const Riga t;
    const auto conRiga = [&](const char* da, const char* a) {
        const std::string file = (t.cartella / "cambiato.tk7").string();
        const std::string testo =
            SostituisciTesto(prova::LeggiTesto(t.Esempio(kVerificato)), da, a, Maiuscole::distinte);
        EXPECT_NE(testo, prova::LeggiTesto(t.Esempio(kVerificato)));
        prova::ScriviTesto(file, testo);
        return t.Esegui("verifica " + file);
    };
    const Uscita nessuno = conRiga("3                                       [nSollAg]",
                                   "0                                       [nSollAg]");
    EXPECT_EQ(nessuno.codice, 3);
    EXPECT_TRUE(Contiene(nessuno.testo, "NESSUN SESTETTO DI SOLLECITAZIONI"));
    EXPECT_FALSE(Contiene(nessuno.testo, "NODO VERIFICATO"));
    EXPECT_TRUE(Contiene(conRiga("S 235 (FE 360) ", "S 275 ").errori,
                         R"x(acciaio_Nome "S 275", usato "S 275 (FE 430)")x"));
    const Uscita profilo = conRiga("IPE160 ", "IPE161 ");
    EXPECT_EQ(profilo.codice, 3);
    EXPECT_TRUE(Contiene(profilo.errori, R"(TraSec_Nome "IPE161")"));

    const std::string unita = t.radice + "/lavori/esempi/parametrilavoro";
    prova::ScriviTesto(
        unita, SostituisciTesto(prova::LeggiTesto(unita), "daN8cm2", "bar", Maiuscole::distinte));
    const Uscita ignota = t.Esegui("verifica " + t.Esempio(kVerificato));
    EXPECT_EQ(ignota.codice, 0);
    EXPECT_TRUE(Contiene(ignota.errori, R"(parametrilavoro: tensioni "bar".)"));

    const std::string opzioni = t.radice + "/custom/OpzioniNodi.txt";
    prova::ScriviTesto(opzioni, SostituisciTesto(prova::LeggiTesto(opzioni), "8|LABC", "32768|LABC",
                                                 Maiuscole::distinte));
    const Uscita colore =
        t.Esegui("disegna " + t.Esempio(kVerificato) + " -o " + (t.cartella / "c.dxf").string());
    EXPECT_EQ(colore.codice, 70);
    EXPECT_TRUE(Contiene(colore.errori, "OpzioniNodi.txt, riga 10, opzione \"Colore dei contorni"));
}

// What a command that writes a joint would lose, or read back as something else, it refuses.
TEST(Comandi, WhatWouldBeLostOrReadBackWronglyIsNotWritten) {
    const Riga t;
    const std::string testo = prova::LeggiTesto(t.Esempio(kVerificato));
    const std::string file = (t.cartella / "nodo.tk7").string(),
                      uscita = (t.cartella / "uscita.tk7").string();
    struct Caso {
        const char *da, *a;  // in the joint file
        std::string comando;
        int codice;
        const char* detto;  // on standard error
    };
    const char* sestetto = " --aggiungi 1,2,3,4,5,6";
    const Caso casi[] = {
        {"IPE160 ", "IPE161 ", std::string("carichi FILE") + sestetto, 2, "TraSec_Nome \"IPE161\""},
        {"IPE270 ", "IPE271 ", "importa FILE --nodi 1 --aste 1 --casi 1", 2,
         "TraPri_Nome \"IPE271\""},
        {"S 235 (FE 360) ", "S 999 ", "proponi FILE --piastre", 2, "acciaio_Nome \"S 999\""},
        {"8.8 ", "9.9 ", "proponi FILE --piastre", 2, "vite_Nome \"9.9\""},
        {"", "", "carichi FILE --aggiungi '1,2,3,4,5,6,Inviluppo [TaglioY]'", 2, "\"[TaglioY\""},
        {"", "", "carichi FILE --aggiungi '1,2,3,4,5,6,99 [nBull]'", 2, "\"[nBull\""},
        // the decimal sign is the point, whatever the user's locale
        {"", "", "proponi FILE --bulloni 12,5", 2, "--bulloni"},
        {"", "", "proponi FILE --bulloni 12.5", 0, ""},
        // told, and read as far as it can be
        {"[nBull]", "[nBull]\n-5 [nBull]", std::string("carichi FILE") + sestetto, 0,
         ", chiave nBull: "},
        {"[spSaldS1]", "[spSaldS1]\n1,5 [spSaldS2]", std::string("carichi FILE") + sestetto, 0,
         ", chiave spSaldS2: \"1,5\""},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.comando + " " + c.a);
        prova::ScriviTesto(file, SostituisciTesto(testo, c.da, c.a));
        const Uscita u = t.Esegui(SostituisciTesto(c.comando, "FILE", file) + " -o " + uscita);
        EXPECT_EQ(u.codice, c.codice) << u.errori;
        EXPECT_TRUE(Contiene(u.errori, c.detto)) << u.errori;
        EXPECT_EQ(EsisteFile(uscita), c.codice == 0);
        EliminaFile(uscita);
    }
}

// The sheet of a joint whose ribs, legs, bolts and rows all differ, byte for byte. The expected
// file was read as a picture against the joint: dimensions, levels, holes, hidden edges, arrows of
// the cuts, names of the welds and their table.
TEST(Comandi, DisegnaASheetThatAPersonHasRead) {
    const Riga t;
    const std::string dis = (t.cartella / "t.dis").string(), sorgente = TK07_SORGENTE;
    EXPECT_EQ(
        t.Esegui("disegna " + sorgente + "/tests/validazione/foglio_slu.tk7 -o " + dis).codice, 0);
    EXPECT_TRUE(prova::LeggiTesto(dis) ==
                prova::LeggiTesto(sorgente + "/tests/unit/cli/attesa_tavola.dis"))
        << "the sheet has changed";
}

TEST(Comandi, ScenaWritesTheFormatOfItsEnding) {
    const Riga t;
    const std::string file = t.Esempio(kVerificato), dove = (t.cartella / "s").string();
    EXPECT_EQ(t.Esegui("scena " + file + " -o " + dove + ".TMP").codice, 0);
    EXPECT_EQ(prova::LeggiTesto(dove + ".TMP").rfind("ARGANOWIN [QuestoProgramma", 0), 0u);
    for (const char* fine : {".xyz", ""}) {
        const Uscita u = t.Esegui("scena " + file + " -o " + dove + fine);
        EXPECT_EQ(u.codice, 2) << fine;
        EXPECT_NE(u.errori.find("\"" + std::string(fine) + "\""), std::string::npos) << u.errori;
    }
    EXPECT_EQ(t.Esegui("scena " + dove + " -o " + dove + ".tmp").codice, 2);
    EXPECT_FALSE(fs::exists(dove + ".tmp"));
}

}  // namespace
}  // namespace tk07
