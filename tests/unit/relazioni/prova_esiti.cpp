#include <gtest/gtest.h>

#include <cmath>
#include <span>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "joint/file_nodo.h"
#include "reports/relazione.h"
#include "verification/esame.h"
#include "verification/poligono.h"
#include "verification/verifica_nodo.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;

// The report's part on every load set.
std::vector<std::string> PartiPerSestetto(const std::string& testo) {
    std::vector<std::string> parti;
    const std::string capo = "\nCombinazione di sollecitazioni agenti ";
    for (std::size_t p = testo.find(capo); p != std::string::npos;) {
        const std::size_t q = testo.find(capo, p + 1);
        parti.push_back(testo.substr(p, q == std::string::npos ? q : q - p));
        p = q;
    }
    return parti;
}

// Elements with a check that fails, of those of load set s.
int OltreUno(const Esiti& esiti, int s) {
    int q = 0;
    for (const TipoElemento tipo :
         {TipoElemento::bullone, TipoElemento::piastra, TipoElemento::saldatura}) {
        esiti.PerElemento(s, tipo, [&q](std::span<const Riscontro> r) { q += !Passano(r); });
    }
    return q;
}

// The shipped joints, loads small to large, both methods: a set's ratio is above 1 exactly where
// the report fails it, and as many elements are above 1 as the report marks with NO.
TEST(Esiti, ConcordaConLaRelazione) {
    prova::SessioneDiProva b;
    int passano = 0, falliscono = 0;
    const auto prova = [&](const std::string& nome, Nodo n, const char* metodo) {
        Risultati ris;
        Esiti esiti;
        ASSERT_EQ(VerificaNodo(n, b.s->opz, ris, esiti, PiattaformaMuta()),
                  EsitoVerifica::completata);
        const auto parti = PartiPerSestetto(RelazioneDi(n, b.s->unita, ris, esiti).testo);
        ASSERT_EQ(esiti.sestetti.size(), parti.size());
        for (int s = 0; s < esiti.Sestetti(); ++s) {
            const std::string& parte = parti[static_cast<std::size_t>(s)];
            SCOPED_TRACE(nome + " " + metodo + " sestetto " + std::to_string(s + 1));
            const bool no = Contiene(parte, "ATTENZIONE: NODO NON VERIFICATO");
            EXPECT_EQ(esiti.Rapporto(s) > 1.0, no);
            EXPECT_EQ(esiti.Sestetto(s).verificato, !no);
            EXPECT_EQ(ris.Verificato(s, 0) == 1, !no);
            EXPECT_EQ(OltreUno(esiti, s),
                      prova::Quante(parte, n.TipoVer == 1 ? "| NO|" : "NO ****"));
            for (const Riscontro& r : esiti.Righe(s)) EXPECT_EQ(r.rapporto > 1.0, !r.passa);
            (no ? falliscono : passano)++;
        }
    };
    for (const fs::directory_entry& e : fs::directory_iterator(b.Lavoro())) {
        if (e.path().extension() != ".tk7") continue;
        ASSERT_TRUE(ApriNodo(*b.s, e.path().string())) << e.path();
        for (const short metodo : {short{0}, short{1}}) {
            for (const double k : {0.2, 1.0, 2.0, 5.0, 40.0}) {
                Nodo n = b.s->nodo;
                n.TipoVer = metodo;
                for (int s = 0; s < n.nSollAg; ++s) {
                    for (auto a : {&Nodo::SforzoNormale, &Nodo::TaglioY, &Nodo::TaglioZ,
                                   &Nodo::MomTorc, &Nodo::MomY, &Nodo::MomZ}) {
                        (n.*a)(s) *= k;
                    }
                    n.CasoCarico(s) = static_cast<short>(s % 2);
                }
                prova(e.path().filename().string(), n, metodo == 0 ? "TA" : "SLU");
            }
        }
        // A steel that the weld rules do not know fails every line; a thick plate has its own
        // limit.
        Nodo n = b.s->nodo;
        n.acciaio.Nome = "Fe";
        n.SpPiastra(1) = 41.0;
        for (const short metodo : {short{0}, short{1}}) {
            n.TipoVer = metodo;
            prova(e.path().filename().string() + " acciaio ignoto", n, "");
        }
    }
    EXPECT_GT(passano, 60);
    EXPECT_GT(falliscono, 60);
}

// Edges of the limits, on a result record written by hand: one bolt, one weld line, SLU and TA.
TEST(Esiti, LimitiEsatti) {
    prova::SessioneDiProva b;
    Nodo n = b.s->nodo;
    n.nBull = 1, n.nSollAg = 1, n.Fibull(1) = 16;
    n.Ybull(1) = 100;
    n.acciaio.Nome = "S 275 (FE 430)";
    n.acciaio.Fyk40 = 2750, n.acciaio.GammaM = 1.05, n.acciaio.Samm = 1900;
    n.TipoVer = 1;
    Risultati ris;
    const auto riga = [&](auto metti) {
        AzzeraRisultati(n, ris);
        ris.LungSald.Riempi(0.0);
        metti();
        GiudicaNodo(n, b.s->opz, ris);
        return EsitiDi(n, b.s->opz, ris);
    };
    EXPECT_EQ(riga([] {}).Rapporto(0), 0.0);
    // The report rounds the coefficient to two decimals before its test.
    EXPECT_TRUE(riga([&] { ris.Co1(0, 1) = 1.004; }).verificato);
    EXPECT_FALSE(riga([&] { ris.Co1(0, 1) = 1.006; }).verificato);
    EXPECT_FALSE(riga([&] { ris.Co2(0, 1) = std::nan(""); }).verificato);
    // fd = 2750 / 1.05; the sign does not count.
    const double fd = 2750.0 / 1.05;
    EXPECT_NEAR(riga([&] { ris.Sig(0, 0) = -fd / 2; }).Rapporto(0), 0.5, 1e-12);
    EXPECT_TRUE(riga([&] { ris.Sig(0, 0) = -fd; }).verificato);
    const Esiti oltre = riga([&] { ris.SigPiastra2(0, 0) = std::nextafter(fd, 1e9); });
    EXPECT_FALSE(oltre.verificato);
    EXPECT_EQ(oltre.Governa()->famiglia, Famiglia::piastra2);
    EXPECT_EQ(NomeElemento(*oltre.Governa()), "piastra 2");
    // S 275: beta1 0.7 on the resultant (3, 4, 12: 13), beta2 0.85 on |S| + |tau| (3 + 12). Line s4
    // is of group S2, its mirror too.
    const Esiti linea = riga([&] {
        ris.LungSald(3) = 100;
        ris.S_prp2(0, 18) = -300, ris.Tau_pa(0, 18) = 400, ris.Tau_pe(0, 18) = 1200;
    });
    const Riscontro& s2 = *linea.Peggiore(0, Famiglia::saldatureS2);
    EXPECT_NEAR(s2.rapporto, 1300.0 / (0.7 * 2750.0), 1e-12);
    EXPECT_EQ(NomeElemento(s2), "saldatura s4'");
    EXPECT_EQ(NumeroElemento(s2), 19);  // the mirrors are 16 to 30
    EXPECT_EQ(std::string(NomeConfronto(s2)), "SEq-1");
    // S2 joins plate 1 and rib 3 to the main beam: s4 to s9; the other lines end on plate 2.
    for (int l = 1; l <= 15; ++l) {
        const Famiglia attesa = l >= 4 && l <= 9 ? Famiglia::saldatureS2 : Famiglia::saldatureS1;
        const Esiti e = riga([&] { ris.LungSald(l - 1) = 100, ris.Tau_pa(0, l - 1) = 5000; });
        EXPECT_EQ(e.Governa()->famiglia, attesa) << l;
    }
    // Allowable stresses: load case II raises them by an eighth.
    n.TipoVer = 0;
    n.CasoCarico(0) = 1;
    EXPECT_NEAR(riga([&] { ris.Sig(0, 0) = 1900.0; }).Rapporto(0), 1.0 / 1.125, 1e-12);
}

// The live judgement is the verification without boxes, report or a change of its input.
TEST(Esiti, EsameDalVivo) {
    prova::SessioneDiProva b;
    ASSERT_TRUE(ApriNodo(*b.s, b.Lavoro() + "/02_ipe200_su_ipe300.tk7"));
    b.porta.detti.clear();
    Esame esame;
    Nodo copia = b.s->nodo;
    EsaminaNodo(copia, b.s->opz, esame);
    ASSERT_TRUE(esame.calcolato);
    VerificaSessione(*b.s);
    for (int s = 0; s < b.s->esiti.Sestetti(); ++s) {
        EXPECT_EQ(esame.esiti.Rapporto(s), b.s->esiti.Rapporto(s));
    }
    // The stress plane on the bolts is that of the result record (daN/cm2 after the report).
    const auto piano = PianoTensioni(esame.ris, 1);
    for (int i = 1; i <= copia.nBull; ++i) {
        EXPECT_NEAR(100.0 * ValorePiano(piano, copia.Xbull(i), copia.Ybull(i)),
                    b.s->ris.Sigma(1, i), 1e-6);
    }
    copia.BPiastra(2) = 10.0;
    EsaminaNodo(copia, b.s->opz, esame);
    EXPECT_FALSE(esame.calcolato);
    ASSERT_FALSE(esame.incongruenze.empty());
    EXPECT_EQ(esame.incongruenze[0], "Piastra 2 più piccola della trave secondaria.");
}

}  // namespace
}  // namespace tk07
