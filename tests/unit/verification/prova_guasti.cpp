// The driver: what stops a verification, what it says then, and what it leaves.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <thread>

#include "base/testo.h"
#include "nodo_di_prova.h"
#include "session/verifica_sessione.h"
#include "unit/joint/confronto.h"
#include "verification/esame_rapido.h"
#include "verification/interassi.h"
#include "verification/saldature.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using Testi = std::vector<std::string>;

constexpr const char* kNonContinua = "La verifica non può continuare!";

using prova::UnitaDiLavoro;

struct Verifica : testing::Test {
    prova::Cartella cartella;
    prova::Porta porta;
    Risultati ris;
    Esiti esiti;
    RisultatoVerifica esito;
    std::string relazione;  // its text, when there is one

    bool Esegui(const Nodo& n, double gioco = 2.0) {
        porta.detti.clear();
        const fs::path file =
            cartella / (n.TipoVer == 1 ? "RelSLU_TK07_prova.txt" : "RelTA_TK07_prova.txt");
        fs::remove(file);
        esito = VerificaConRelazione(n, prova::OpzioniDiProva(gioco), UnitaDiLavoro(),
                                     {cartella.Testo(), " prova "}, ris, esiti, porta.Fai());
        relazione = prova::LeggiTesto(file);
        const bool fatta = esito.esito == EsitoVerifica::completata;
        EXPECT_EQ(fs::exists(file), fatta);
        return fatta;
    }
};

Nodo Caricato(Metodo metodo = Metodo::SLU) {
    Nodo n = prova::NodoDiProva(metodo);
    n.Esposizione = 1;
    // within the spacing rules of both methods
    n.SpPiastra(1) = 20;
    prova::MettiBulloni(n, {{-55, 70, 20},
                            {55, 70, 20},
                            {-55, 185, 20},
                            {55, 185, 20},
                            {-55, 300, 20},
                            {55, 300, 20}});
    prova::AggiungiSestetto(n, 800, 3000, 200, 50, 300, 4000);
    return n;
}

TEST_F(Verifica, EveryNullQuantityIsNamedAndLeavesTheJoint) {
    struct Caso {
        const char* testo;
        Metodo metodo;
        std::function<void(Nodo&)> modifica;
        double gioco = 2.0;
    };
    constexpr Metodo SLU = Metodo::SLU, TA = Metodo::TA;
    const Caso casi[] = {
        {"diametro del bullone 2 non superiore a 0.1 mm", SLU, [](Nodo& n) { n.Fibull(2) = 0.1; }},
        {"diametro del bullone 1 non superiore a 0.1 mm", TA,
         [](Nodo& n) { n.Fibull(1) = n.Fibull(2) = -20; }},
        {"spessore della piastra 1", TA, [](Nodo& n) { n.SpPiastra(1) = 0; }},
        {"spessore della piastra 2", SLU, [](Nodo& n) { n.SpPiastra(2) = 0; }},
        {"coefficiente parziale dell'acciaio", SLU, [](Nodo& n) { n.acciaio.GammaM = 0; }},
        {"coefficiente parziale delle viti", SLU, [](Nodo& n) { n.vite.GammaMVite = 0; }},
        {"ftk dell'acciaio", SLU, [](Nodo& n) { n.acciaio.Ftk40 = 0; }},
        {"tensione normale ammissibile delle viti", TA, [](Nodo& n) { n.vite.SammVite = 0; }},
        {"tensione tangenziale ammissibile delle viti", TA, [](Nodo& n) { n.vite.TauAmmVite = 0; }},
        {"diametro del foro", SLU, [](Nodo&) {}, -20},
        {"diametro del foro", TA, [](Nodo&) {}, -20},
        {"larghezza della nervatura 1 (saldatura s13)", SLU, [](Nodo& n) { n.BNerv(1) = 0; }},
        {"larghezza della nervatura 2 (saldatura s15)", TA, [](Nodo& n) { n.BNerv(2) = 0; }},
        {"modulo di resistenza della piastra 2", SLU,
         [](Nodo& n) { n.AttNerv(1) = false, n.TraSec.B = 0; }},
        {"area della sezione della piastra 2 con nervatura", SLU,
         [](Nodo& n) { n.TraSec.B = n.SpNerv(1) = 0; }},
        {"momento d'inerzia della piastra 2 con nervatura", SLU, [](Nodo& n) { n.TraSec.B = 0; }},
        {"area delle saldature S1", TA, [](Nodo& n) { n.spSaldS1 = 0; }},
        {"area delle saldature S2", SLU, [](Nodo& n) { n.spSaldS2 = 0; }},
        {"lunghezza della saldatura s12", SLU, [](Nodo& n) { n.BNerv(1) = 6.5; }},
        {"lunghezza della saldatura s14", SLU, [](Nodo& n) { n.BNerv(2) = 6.5, n.H2Nerv(2) = 30; }},
        {"distanza tra le saldature s12 e s12'", SLU,
         [](Nodo& n) { n.SpNerv(1) = -(n.spSaldS1 / std::sqrt(2.0)); }},
        {"lunghezza della saldatura s5", SLU, [](Nodo& n) { n.SmussoNerv(3) = 72; }},
        // s5 = s7 = 81 - 129 - 8 = -56, s6 = 370 - 258 = 112: they cancel out
        {"area delle saldature della nervatura 3 (s5, s6, s7)", SLU,
         [](Nodo& n) { n.BNerv(3) = 81, n.SmussoNerv(3) = 129; }},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.testo);
        Nodo n = Caricato(c.metodo);
        c.modifica(n);
        const auto prima = std::make_unique<Nodo>(n);
        EXPECT_FALSE(Esegui(n, c.gioco));
        ASSERT_FALSE(porta.detti.empty());
        EXPECT_TRUE(FinisceCon(porta.Prendi(), std::string("x|") + kTitoloProgramma +
                                                   "|Grandezza nulla: " + c.testo + ". " +
                                                   kNonContinua));
        EXPECT_TRUE(prova::Uguali(n, *prima));
        EXPECT_TRUE(Esegui(Caricato(c.metodo)));  // the program goes on
    }
    Nodo n = Caricato();
    n.Fibull(2) = 0.11;
    EXPECT_TRUE(Esegui(n));
}

TEST_F(Verifica, TheGroupsOfWeldsWithoutArea) {
    Nodo n = Caricato();
    struct Caso {
        const char* testo;
        std::vector<std::pair<int, double>> linee;  // lengths given
        int calcolata;                              // line that keeps its normal stress
        int mancante;                               // line whose shear is not added
        Interruzione interrotta;
    };
    using enum Interruzione;
    const Caso casi[] = {{"Area delle saldature tipo S1 verticali nulla. Verifica non possibile.",
                          {{1, -102}},
                          2,
                          1,
                          s1Verticali},
                         {"Area delle saldature tipo S1 orizzontali nulla. Verifica non possibile.",
                          {{2, -40}, {3, -39}},
                          1,
                          2,
                          s1Orizzontali},
                         {"Area delle saldature tipo S2 verticali nulla. Verifica non possibile.",
                          {{4, 0}},
                          8,
                          4,
                          s2Verticali},
                         {"Area delle saldature tipo S2 orizzontali nulla. Verifica non possibile.",
                          {{8, 20}, {9, -20}},
                          4,
                          8,
                          s2Orizzontali},
                         {"Area delle saldature tipo S2 verticali nulla. Verifica non possibile.",
                          {{6, 0}},
                          4,
                          6,
                          s2Nervatura3}};
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.testo);
        Risultati r;
        AzzeraRisultati(n, r);
        Geometria g = GeometriaDi(n);
        for (const auto& [l, lunghezza] : c.linee) g.cordone(l).lunghezza = lunghezza;
        porta.detti.clear();
        VerificaSaldatureS1(n, g, r, porta.Fai());
        VerificaSaldatureS2(n, g, r, porta.Fai());
        EXPECT_EQ(porta.Testi(), Testi{c.testo});
        EXPECT_EQ(porta.detti[0].segno, Segno::critico);
        EXPECT_EQ(EsitiDi(n, prova::OpzioniDiProva(), r).interruzioni, std::vector{c.interrotta});
        EXPECT_NE(r.MaxS_prp(0, c.calcolata - 1), 0.0);
        // what follows the box stays undone: no shear along the line, no rib 3 after S2's boxes
        const bool s2 = std::string(c.testo).find("S2") != std::string::npos;
        if (c.mancante == 6) {
            EXPECT_NE(r.Tau_pa(0, 4), 0.0);
            EXPECT_EQ(r.Tau_pa(0, 5), 0.0);
        } else {
            EXPECT_EQ(r.Tau_pa(0, 4) == 0.0, s2);
            EXPECT_GT(r.Tau_pa(0, c.mancante - 1), 0.0);  // the torsion alone
            EXPECT_EQ(r.Tau_pa(0, c.mancante - 1), r.Tau_pa(0, c.mancante + 14));
        }
    }
}

// The areas do not depend on the loads: the box comes with no load set too.
TEST_F(Verifica, AGroupOfWeldsWithoutAreaAndNoLoadSet) {
    Nodo n = prova::NodoDiProva();
    n.TraPri.H = 46;  // s4 = 46 - 30 - 16 = 0
    VerificaSaldatureS2(n, GeometriaDi(n), ris, porta.Fai());
    EXPECT_EQ(porta.Testi(),
              Testi{"Area delle saldature tipo S2 verticali nulla. Verifica non possibile."});
}

TEST_F(Verifica, WhatStopsIt) {
    Nodo n = Caricato();
    n.nBull = 0;
    EXPECT_FALSE(Esegui(n));
    EXPECT_EQ(porta.Testi(), Testi{"Non è stato inserito nessun bullone. Verifica non possibile."});
    EXPECT_EQ(porta.detti[0].segno, Segno::esclamazione);

    // two bolts in full tension: singular; the first set fails without a word of the solver
    n = Caricato();
    n.nBull = 2;
    n.nSollAg = 0;
    prova::AggiungiSestetto(n, -9000, 0, 0, 0, 0, 0);
    prova::AggiungiSestetto(n, 9000, 0, 0, 0, 0, 0);
    EXPECT_FALSE(Esegui(n));
    EXPECT_EQ(porta.Testi(), (Testi{"Sestetto di sollecitazione n°2: situazione non equilibrata "
                                    "nel calcolo delle azioni sui bulloni",
                                    kNonContinua}));

    // plates that do not meet: the solver speaks too, but only after a load set that went well
    for (const bool primaNulla : {false, true}) {
        n = Caricato();
        n.distAliPriSec = 460;
        n.nSollAg = 0;
        if (primaNulla) prova::AggiungiSestetto(n, 0, 0, 0, 0, 0, 0);
        prova::AggiungiSestetto(n, -2000, 0, 0, 0, 90000, 90000);
        EXPECT_FALSE(Esegui(n));
        Testi attesi = {
            "Sestetto di sollecitazione n°1: situazione non equilibrata nel calcolo "
            "delle azioni sui bulloni",
            kNonContinua};
        if (primaNulla) {
            attesi = {"Convergenza non raggiunta (la somma delle aree distribuite e' negativa).",
                      "Sestetto di sollecitazione n°2: situazione non equilibrata nel calcolo "
                      "delle azioni sui bulloni",
                      kNonContinua};
        }
        EXPECT_EQ(porta.Testi(), attesi);
    }

    // one bolt on the axis carries shear but no torsion
    n = Caricato();
    prova::MettiBulloni(n, {{0, 185, 20}});
    n.nSollAg = 0;
    prova::AggiungiSestetto(n, -9000, 300, 400, 0, 0, 0);
    Esegui(n);
    EXPECT_EQ(ris.Fv_Ed(0, 1), 500.0);
    n.MomTorc(0) = 1;
    EXPECT_FALSE(Esegui(n));
    const Testi t = porta.Testi();
    EXPECT_EQ(Testi(t.end() - 2, t.end()),
              (Testi{"Non è possibile distribuire la torsione", kNonContinua}));

    // the report cannot be written
    n = Caricato();
    fs::create_directory(cartella / "RelSLU_TK07_x.txt");
    porta.detti.clear();
    esito = VerificaConRelazione(n, prova::OpzioniDiProva(), UnitaDiLavoro(),
                                 {cartella.Testo(), "x"}, ris, esiti, porta.Fai());
    EXPECT_EQ(esito.esito, EsitoVerifica::nonPossibile);
    EXPECT_TRUE(esito.relazione.empty());
    EXPECT_EQ(porta.detti.back().segno, Segno::critico);
}

TEST_F(Verifica, SpacingBreachesAskTheUser) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        Nodo n = Caricato(metodo);
        ASSERT_TRUE(Esegui(n));
        EXPECT_TRUE(porta.detti.empty());
        n.Xbull(1) = -66;  // 24 from the edge of plate 2, 34 from plate 1's
        porta.risposte = {Risposta::OK, Risposta::Annulla};
        EXPECT_FALSE(Esegui(n));
        ASSERT_EQ(porta.detti.size(), 2u);
        EXPECT_EQ(porta.detti[0].testo,
                  std::string("I bulloni non rispettano la distanza minima dai bordi della "
                              "piastra 2 in direzione orizzontale ") +
                      (metodo == Metodo::SLU ? "(NTC 2018)" : "(CNR 10011/88)"));
        EXPECT_EQ(porta.detti[1].testo, "Continuare la verifica?");
        EXPECT_EQ(porta.detti[1].segno, Segno::informazione);
        EXPECT_EQ(porta.detti[1].pulsanti, Pulsanti::OKAnnulla);
        EXPECT_EQ(porta.detti[1].titolo, kTitoloProgramma);
        EXPECT_TRUE(Esegui(n));  // OK goes on as for any other joint
        EXPECT_EQ(ris.Sigma.Righe(), 1);
    }
}

TEST_F(Verifica, NoLoadSetAndASecondRun) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        Nodo n = Caricato(metodo);
        ASSERT_TRUE(Esegui(n));
        const std::string prima = relazione;
        const double sigma = ris.Sigma(0, 1), seq = ris.S_prp1(0, 3), sig2 = ris.SigPiastra2(0, 0);
        ASSERT_TRUE(Esegui(n));
        EXPECT_EQ(relazione, prima);
        EXPECT_EQ(std::tuple(sigma, seq, sig2),
                  std::tuple(ris.Sigma(0, 1), ris.S_prp1(0, 3), ris.SigPiastra2(0, 0)));
        n.nSollAg = 0;
        ASSERT_TRUE(Esegui(n));
        EXPECT_TRUE(ris.NodoVerificato);
        EXPECT_TRUE(porta.detti.empty());
        EXPECT_EQ(prima.find(relazione), 0u);  // the head alone
        EXPECT_EQ(relazione.substr(relazione.size() - 42),
                  "\nSOLLECITAZIONI AGENTI E STATO TENSIONALE\n");
    }
    Nodo n = Caricato();
    n.acciaio.Nome = "senza nome";
    ASSERT_TRUE(Esegui(n));
    EXPECT_EQ(porta.Testi(), Testi{"ATTENZIONE: nodo non verificato!"});
    EXPECT_EQ(porta.detti[0].segno, Segno::esclamazione);
    EXPECT_FALSE(ris.NodoVerificato);
}

// Sets tried one against the other say what the verification of each alone finds; a set that stops
// it leaves the others alone.
TEST(EsameRapido, SaysWhatTheFindingsOfEverySetSay) {
    std::mt19937_64 gen(3);
    const auto fra = [&gen](double a, double b) {
        return std::uniform_real_distribution<>(a, b)(gen);
    };
    const Opzioni opz = prova::OpzioniDiProva();
    int fermati = 0, verificati = 0;
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        for (const int bulloni : {4, 1, 2, 100}) {
            Nodo n = prova::NodoDiProva(metodo);
            if (bulloni == 1) prova::MettiBulloni(n, {{0, 185, 20}});
            if (bulloni == 2) n.nBull = 2;
            for (int i = 0; bulloni == 100 && i < 100; ++i) {
                n.nBull = 100;
                n.Xbull(i + 1) = -80 + 16 * (i % 10) + 8, n.Ybull(i + 1) = 40 + 30 * (i / 10);
                n.Fibull(i + 1) = i % 3 == 0 ? 10 : 8;
            }
            std::vector<SestettoProvato> prove;
            for (int s = 0; s < 70; ++s) {
                const double f = std::pow(10.0, fra(0, s % 2 == 0 ? 3 : 1));
                const bool zero = s % 9 == 0;
                prove.push_back({fra(-10, 5) * f, fra(0, 5) * f, zero ? 0 : fra(-1, 1) * f,
                                 zero || bulloni == 1 ? 0 : fra(-9, 9) * f, fra(-30, 30) * f,
                                 fra(-60, 60) * f, static_cast<short>(s % 2)});
            }
            std::vector<GiudizioRapido> giudizi(prove.size());
            EsameRapido esame(n, opz);
            esame.Giudica(prove, giudizi);
            for (std::size_t s = 0; s < prove.size(); ++s) {
                SCOPED_TRACE(testing::Message() << bulloni << " bolts, set " << s);
                const SestettoProvato& a = prove[s];
                n.nSollAg = 0;
                prova::AggiungiSestetto(n, a.N, a.Ty, a.Tz, a.Mt, a.My, a.Mz);
                n.CasoCarico(0) = a.caso;
                Risultati ris;
                Esiti e;
                const bool calcolato =
                    VerificaNodo(n, opz, ris, e, PiattaformaMuta()) == EsitoVerifica::completata;
                const GiudizioRapido& g = giudizi[s];
                ASSERT_EQ(g.calcolato, calcolato);
                EXPECT_EQ(g.Verificato(), calcolato && e.verificato);
                fermati += calcolato ? 0 : 1, verificati += g.Verificato() ? 1 : 0;
                if (!calcolato) continue;
                for (std::size_t f = 0; f <= kFamiglie; ++f) {
                    const Riscontro* atteso =
                        f == kFamiglie ? e.Governa() : e.Peggiore(0, static_cast<Famiglia>(f));
                    const Riscontro& r = f == kFamiglie ? g.esiti.Governa() : g.esiti.peggiori[f];
                    ASSERT_EQ(f == kFamiglie || g.esiti.presenti[f], atteso != nullptr);
                    if (atteso == nullptr) continue;
                    EXPECT_EQ(r.sestetto, static_cast<int>(s));
                    EXPECT_EQ(std::tie(r.famiglia, r.confronto, r.elemento, r.rapporto, r.domanda),
                              std::tie(atteso->famiglia, atteso->confronto, atteso->elemento,
                                       atteso->rapporto, atteso->domanda));
                }
            }
        }
    }
    EXPECT_GE(fermati, 5);
    EXPECT_GT(verificati, 20);
}

TEST(VerificaParallela, TwoThreadsGiveTheReportsOfOne) {
    prova::SessioneDiProva t;
    std::vector<std::unique_ptr<Nodo>> nodi;
    for (const auto& f : fs::directory_iterator(t.Lavoro())) {
        if (f.path().extension() != ".tk7" || !ApriNodo(*t.s, f.path().string())) continue;
        for (const short tipo : {short{0}, short{1}}) {
            nodi.push_back(std::make_unique<Nodo>(t.s->nodo));
            nodi.back()->TipoVer = tipo;
        }
    }
    ASSERT_GE(nodi.size(), 20u);
    const auto relazione = [&](const Nodo& n) {
        prova::Porta porta;
        const auto ris = std::make_unique<Risultati>();
        std::string testo;
        Esiti esiti;
        if (VerificaNodo(n, t.s->opz, *ris, esiti, porta.Fai()) == EsitoVerifica::completata) {
            testo = RelazioneDi(n, t.s->unita, *ris, esiti).testo;
        }
        for (const std::string& d : porta.Testi()) testo += d;
        return testo;
    };
    std::vector<std::string> attese(nodi.size()), avute[2];
    for (std::size_t i = 0; i < nodi.size(); ++i) attese[i] = relazione(*nodi[i]);
    for (auto& a : avute) a.resize(nodi.size());
    // one forwards, the other backwards: different joints at any time
    const auto lavora = [&](int quale) {
        for (int volta = 0; volta < 5; ++volta) {
            for (std::size_t k = 0; k < nodi.size(); ++k) {
                const std::size_t i = quale == 0 ? k : nodi.size() - 1 - k;
                avute[quale][i] = relazione(*nodi[i]);
            }
        }
    };
    std::thread altro(lavora, 1);
    lavora(0);
    altro.join();
    for (std::size_t i = 0; i < nodi.size(); ++i) {
        EXPECT_GT(attese[i].size(), 1000u);
        EXPECT_EQ(avute[0][i], attese[i]);
        EXPECT_EQ(avute[1][i], attese[i]);
    }
}

}  // namespace
}  // namespace tk07
