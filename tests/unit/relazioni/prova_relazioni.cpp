#include <gtest/gtest.h>

#include "base/testo.h"
#include "session/verifica_sessione.h"
#include "unit/verification/nodo_di_prova.h"

namespace tk07 {
namespace {

using prova::UnitaDiLavoro;

// Five bolts, two load sets of which the second fails.
Nodo NodoDellaRelazione(Metodo metodo) {
    Nodo n = prova::NodoDiProva(metodo);
    prova::MettiBulloni(
        n, {{-60, 55, 20}, {60, 55, 20}, {-60, 315, 20}, {60, 315, 20}, {40, 185, 16}});
    n.numNodi = 2, n.NomeNodi(1) = 12, n.NomeNodi(2) = 15;
    prova::AggiungiSestetto(n, 800, 3000, 200, 500, 300, 40000, "Permanenti\r\ne\n neve");
    prova::AggiungiSestetto(n, -2500, -9000, 0, 0, -6000, 300000, "Vento ");
    n.CasoCarico(1) = 1;
    return n;
}

// The calculation of `n`, changed by hand where a test wants it, and its report.
struct Relazione {
    Nodo n;
    Risultati ris;
    explicit Relazione(Metodo metodo) : n(NodoDellaRelazione(metodo)) { Calcola(); }
    void Calcola() {
        prova::Porta porta;
        EXPECT_EQ(CalcolaNodo(n, prova::OpzioniDiProva(), ris, porta.Fai()),
                  EsitoVerifica::completata);
    }
    std::string Testo(const Unita& u = UnitaDiLavoro()) {
        const Opzioni opz = prova::OpzioniDiProva();
        GiudicaNodo(n, opz, ris);
        return RelazioneDi(n, u, ris, EsitiDi(n, opz, ris)).testo;
    }
};

// The first line that begins so, behind the text `dopo`.
std::string RigaDi(const std::string& testo, const std::string& inizio,
                   const std::string& dopo = "") {
    const std::size_t da = testo.find(dopo);
    if (da == std::string::npos) return "manca: " + dopo;
    for (const std::string& r : Dividi(testo.substr(da), '\n')) {
        if (r.compare(0, inizio.size(), inizio) == 0) return r;
    }
    return "manca: " + inizio;
}

// Read line by line. Figures checked by a calculation apart, with the contact summed over small
// squares: bolts, plates and lines s1, s4, s5, s6, s7, s12, s13 of both load sets.
TEST(Relazioni, TheWholeText) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        const prova::Cartella cartella;
        prova::Porta porta;
        Risultati ris;
        Esiti esiti;
        const RisultatoVerifica r = VerificaConRelazione(
            NodoDellaRelazione(metodo), prova::OpzioniDiProva(), UnitaDiLavoro(),
            {cartella.Testo(), "nodo"}, ris, esiti, porta.Fai());
        ASSERT_EQ(r.esito, EsitoVerifica::completata);
        EXPECT_EQ(porta.detti.back().testo, "ATTENZIONE: nodo non verificato!");
        EXPECT_EQ(ris.Verificato(0, 0), 1);
        EXPECT_EQ(ris.Verificato(1, 0), 0);
        const bool slu = metodo == Metodo::SLU;
        EXPECT_EQ(
            prova::LeggiTesto(cartella / (slu ? "RelSLU_TK07_nodo.txt" : "RelTA_TK07_nodo.txt")),
            prova::LeggiTesto(std::string(TK07_SORGENTE) + "/tests/unit/relazioni/" +
                              (slu ? "attesa_slu.txt" : "attesa_ta.txt")));
        // The places of the rows: each line read on its own, by what it begins with.
        const std::vector<std::string> linee = Dividi(r.testo.testo, '\n');
        int bulloni = 0, piastre = 0, saldature = 0;
        for (const RigaRelazione& q : r.testo.righe) {
            const std::string& linea = linee.at(static_cast<std::size_t>(q.riga));
            const std::string prima = linee.at(static_cast<std::size_t>(q.riga) - 1);
            if (q.famiglia == Famiglia::bulloni) {
                EXPECT_EQ(std::stoi(linea), q.elemento) << linea;
                ++bulloni;
            } else if (q.famiglia == Famiglia::piastra1 || q.famiglia == Famiglia::piastra2) {
                const bool testata = Contiene(linea, "Ver");
                const std::string& titolo =
                    linee.at(static_cast<std::size_t>(q.riga) - (testata ? 1 : 2));
                EXPECT_EQ(titolo.back(), q.elemento == 1 ? '1' : '2') << titolo;
                ++piastre;
            } else {
                const std::string nome = linea.substr(0, linea.find_first_of(" |\t"));
                const bool specchio = nome.back() == '\'';
                EXPECT_EQ(std::stoi(nome.substr(1)) - 1 + (specchio ? 15 : 0), q.elemento) << linea;
                EXPECT_EQ(q.famiglia == Famiglia::saldatureS2, nome[1] >= '4' && nome[1] <= '9')
                    << nome;
                ++saldature;
            }
        }
        EXPECT_EQ(bulloni, 2 * 5);
        EXPECT_EQ(piastre, 2 * 2 * 2);
        EXPECT_EQ(saldature, 2 * 30);
        ASSERT_EQ(r.testo.sestetti.size(), 2u);
        for (const SestettoRelazione& q : r.testo.sestetti) {
            EXPECT_TRUE(Contiene(linee.at(static_cast<std::size_t>(q.capo)), "agenti " + q.nome));
            const std::string& verdetto = linee.at(static_cast<std::size_t>(q.verdetto));
            EXPECT_EQ(verdetto.find("NODO VERIFICATO") == 0, q.verificato) << verdetto;
            EXPECT_TRUE(Contiene(verdetto, q.nome));
        }
    }
}

TEST(Relazioni, RatiosAreTestedAfterTheirRounding) {
    Relazione r(Metodo::SLU);
    r.ris.Co1(0, 1) = 1.004, r.ris.Co2(0, 1) = 0.3;
    std::string t = r.Testo();
    EXPECT_EQ(RigaDi(t, "1  |", "Verifica bulloni").substr(52), "  1.|  .3|SI'|");
    EXPECT_EQ(r.ris.Co1(0, 1), 1.0);
    EXPECT_EQ(r.ris.Verificato(0, 0), 1);
    r.ris.Co1(0, 1) = 0.2, r.ris.Co2(0, 1) = 1.006;
    t = r.Testo();
    EXPECT_EQ(RigaDi(t, "1  |", "Verifica bulloni").substr(52), "  .2|1.01| NO|");
    EXPECT_EQ(r.ris.Verificato(0, 0), 0);

    Relazione a(Metodo::TA);
    a.ris.Sigma(0, 1) = 3730 * std::sqrt(1.004), a.ris.Tau(0, 1) = 0;
    EXPECT_EQ(RigaDi(a.Testo(), " 1\t", "Verifica Bulloni"),
              " 1\t 3737.5\t 0\t 1\t 207.1\t 155.3\tSI'");
    a.ris.Sigma(0, 1) = 3730 * std::sqrt(1.006);
    EXPECT_EQ(RigaDi(a.Testo(), " 1\t", "Verifica Bulloni"),
              " 1\t 3741.2\t 0\t 1.01\t 207.1\t 155.3\tNO ****");
    EXPECT_EQ(a.ris.Verificato(0, 0), 0);
    // bearing: 1600 30/18 on both plates
    a.ris.Sigma(0, 1) = 0;
    for (auto* rif : {&a.ris.SigRifPias1, &a.ris.SigRifPias2}) {
        const double prima = (*rif)(0, 0);
        (*rif)(0, 0) = -2666.7;
        EXPECT_TRUE(Contiene(RigaDi(a.Testo(), " 1\t", "Verifica Bulloni"), "-2666.7"));
        EXPECT_EQ(a.ris.Verificato(0, 0), 0);
        (*rif)(0, 0) = prima;
    }
    a.Testo();
    EXPECT_EQ(a.ris.Verificato(0, 0), 1);
}

TEST(Relazioni, AFailingPlateFailsTheLoadSet) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        Relazione r(metodo);
        const bool slu = metodo == Metodo::SLU;
        const double limite = slu ? 2350 / 1.05 : 1600;
        for (const bool piastra2 : {false, true}) {
            auto& tensione = piastra2 ? r.ris.SigPiastra2 : r.ris.Sig;
            const double prima = tensione(0, 0);
            tensione(0, 0) = -limite;  // at the limit
            r.Testo();
            EXPECT_EQ(r.ris.Verificato(0, 0), 1);
            tensione(0, 0) = -std::nextafter(limite, 1e9);  // the rounded figures are equal
            const std::string riga = RigaDi(r.Testo(), slu ? "-2238.1" : "-1600",
                                            piastra2 ? "Tensione massima" : "Compressione massima");
            EXPECT_EQ(riga, slu ? "-2238.1| 2238.1| NO|" : "-1600\t 1600\tNO ****");
            EXPECT_EQ(r.ris.Verificato(0, 0), 0);
            tensione(0, 0) = prima;
        }
    }
}

TEST(Relazioni, BothEquivalentStressesOfAWeldCount) {
    struct Caso {
        double P, pa, pe;
        const char* riga;
    };
    // limits 1997.5 and 2350
    for (const Caso& c :
         {Caso{-1000, 1000, -1300,
               "s1  |  1000.|  1000.| -1300.| 1920.9|  2300.| 1997.5|  2350.|SI'|"},
          {1200, 0, 1200, "s1  |  1200.|     0.|  1200.| 1697.1|  2400.| 1997.5|  2350.| NO|"},
          {0, -1998, 0, "s1  |     0.| -1998.|     0.|  1998.|     0.| 1997.5|  2350.| NO|"}}) {
        Relazione r(Metodo::SLU);
        r.ris.S_prp1(0, 0) = c.P, r.ris.S_prp2(0, 0) = c.P / 2;
        r.ris.Tau_pa(0, 0) = c.pa, r.ris.Tau_pe(0, 0) = c.pe;
        EXPECT_EQ(RigaDi(r.Testo(), "s1  |"), c.riga);
        EXPECT_EQ(r.ris.Verificato(0, 0) == 1, Contiene(c.riga, "SI'"));
    }
}

TEST(Relazioni, PlatesOfFortyMillimetres) {
    struct Caso {
        double Sp1, Sp2;
        const char *slu1, *slu2, *ta1, *ta2;
    };
    for (const Caso& c : {Caso{40, 40, "2238.1", "2238.1", "1600", "1600"},
                          {40.1, 40, "2047.6", "2238.1", "1400", "1600"},
                          {40, 40.1, "2238.1", "2047.6", "1600", "1400"}}) {
        for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
            Relazione r(metodo);
            r.n.SpPiastra(1) = c.Sp1, r.n.SpPiastra(2) = c.Sp2;
            r.ris.Sig(0, 0) = r.ris.SigPiastra2(0, 0) = 0;
            const std::string t = r.Testo();
            const bool slu = metodo == Metodo::SLU;
            const std::string zero = slu ? "     0.|" : " 0\t";
            EXPECT_TRUE(Contiene(RigaDi(t, zero, "Compressione massima"), slu ? c.slu1 : c.ta1));
            EXPECT_TRUE(Contiene(RigaDi(t, zero, "Tensione massima"), slu ? c.slu2 : c.ta2));
            if (!slu) {  // bearing: times 30/18
                EXPECT_EQ(RigaDi(t, " 3730\t"), std::string(" 3730\t 2640\t ") +
                                                    (c.Sp1 > 40 ? "2333.3" : "2666.7") + "\t " +
                                                    (c.Sp2 > 40 ? "2333.3" : "2666.7"));
            }
        }
    }
}

TEST(Relazioni, ASteelThatIsNotKnownFailsEveryWeld) {
    Relazione r(Metodo::SLU);
    r.n.nSollAg = 1;
    r.n.acciaio.Nome = "Fe 360";
    std::string t = r.Testo();
    EXPECT_EQ(RigaDi(t, "s5  |"),
              "s5  |     0.|   14.9|     .8|   14.9|     .8|     0.|     0.| NO|");
    EXPECT_EQ(prova::Quante(t, "| NO|"), 30);
    EXPECT_EQ(prova::Quante(t, "|SI'|"), 5 + 2);
    EXPECT_FALSE(r.ris.NodoVerificato);
    Relazione a(Metodo::TA);
    a.n.nSollAg = 1;
    a.n.acciaio.Nome = "S 235";
    t = a.Testo();
    EXPECT_EQ(RigaDi(t, "S_id_adm"), "S_id_adm sald\t0");
    EXPECT_EQ(prova::Quante(t, "\tNO ****\n"), 30);
    EXPECT_EQ(prova::Quante(t, "\tSI'\n"), 5 + 2);
    // the other steels of the method: 0.7 of Samm
    a.n.acciaio.Nome = "S 355 (Fe 510)";
    EXPECT_EQ(RigaDi(a.Testo(), "S_id_adm"), "S_id_adm sald\t 1120");
}

TEST(Relazioni, UnitsOfTheUser) {
    const Unita u = prova::UnitaDa("kN", "kN*m", "N/mm2");
    Relazione r(Metodo::SLU);
    std::string t = r.Testo(u);
    EXPECT_TRUE(Contiene(t, "\nUNITA' DI MISURA: [kN] ; [kN*m] ; [N/mm2] ; [mm]\n"));
    EXPECT_TRUE(Contiene(t, "\n223.81              |204.76              |640.  "));
    EXPECT_TRUE(Contiene(t,
                         "\nN = 8               Ty = 30             Tz = 2              \n"
                         "Mt = .05            My = .03            Mz = 4              \n"));
    EXPECT_EQ(RigaDi(t, "1  |", "Verifica bulloni"),
              "1  |  6.213| 94.347| 83.187|  8.697| 141.52| 244.29| .12| .06|SI'|");
    EXPECT_EQ(RigaDi(t, "  -4.91|"), "  -4.91| 223.81|SI'|");
    EXPECT_EQ(RigaDi(t, "s1  |"),
              "s1  |  12.94|  24.36|     0.|  27.58|  12.94| 199.75|   235.|SI'|");
    EXPECT_EQ(r.ris.Verificato(0, 0), 1);
    EXPECT_EQ(r.ris.Verificato(1, 0), 0);
    Relazione a(Metodo::TA);
    t = a.Testo(u);
    EXPECT_TRUE(Contiene(t, "\nFORZE:\t\tkN\nMOMENTI:\tkN*m\nTENSIONI:\tN/mm2\nDIMENSIONI:\tmm\n"));
    EXPECT_TRUE(Contiene(t, "\nComb. car. II\t 180\t 157.5\t 419.62\t 297\n"));
    EXPECT_TRUE(Contiene(t, "\nN = -25\t Ty = -90\t Tz = 0\t Mt = 0\t My = -.6\t Mz = 30\n"));
    EXPECT_EQ(a.ris.Verificato(1, 0), 0);
}

TEST(Relazioni, RowsThatDependOnTheJoint) {
    for (const Metodo metodo : {Metodo::SLU, Metodo::TA}) {
        Relazione r(metodo);
        const bool slu = metodo == Metodo::SLU;
        r.n.AttNerv(1) = false, r.n.AttNerv(2) = false, r.n.numNodi = 0;
        r.n.TraPri.tw = 7.15, r.n.HPiastra(1) = 370.25;  // sections as they are, plates rounded
        r.n.nSollAg = 1;
        r.Calcola();
        r.ris.LungSald(4) = -3, r.ris.LungSald(6) = 0;
        const std::string t = r.Testo();
        EXPECT_EQ(t.find("VERIFICA TENSIONALE NODI - METODO "), 0u);
        EXPECT_TRUE(Contiene(t, "\nPiastre (n°3)\n"));
        EXPECT_TRUE(Contiene(t, slu ? "\nT400                | 400.| 200.| 7.15|  15.|  20.|\n"
                                    : "\nT400\t 400\t 200\t 7.15\t 15\t 20\n"));
        EXPECT_TRUE(Contiene(
            t, slu ? "\n1  | 370.2| 370.2|  200.| 15.|\n" : "\n1\t 370.2\t 370.2\t 200\t 15\n"));
        // s5, s7 and the ribs' lines have no length; s10' is written although it has no stress
        for (const char* linea : {"\ns5", "\ns7", "\ns12", "\ns13", "\ns14", "\ns15"}) {
            EXPECT_EQ(prova::Quante(t, linea), 0) << linea;
        }
        EXPECT_EQ(RigaDi(t, "s10'").find(slu ? "s10'|     0.|" : "s10'\t 0\t"), 0u);
        EXPECT_EQ(prova::Quante(t, "\ns"), 2 * 9);
        // The lower rib alone keeps its number and its own measures, next to rib 3.
        r.n.AttNerv(2) = true;
        r.n.H1Nerv(2) = 61, r.n.H2Nerv(2) = 37, r.n.BNerv(2) = 143, r.n.SpNerv(2) = 9;
        const std::string solo = r.Testo();
        EXPECT_TRUE(Contiene(solo, "\nPiastre (n°4)\n"));
        EXPECT_TRUE(Contiene(solo, slu ? " 12.|\n5  |   61.|   37.|  143.|  9.|\n"
                                       : "\t 12\n5\t 61\t 37\t 143\t 9\n"));
    }
}

}  // namespace
}  // namespace tk07
