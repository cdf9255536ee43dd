#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "aiuti/prova.h"
#include "base/errore.h"
#include "base/testo.h"
#include "libraries/materiali.h"

namespace tk07 {
namespace {

const std::string kInstallazione = std::string(TK07_SORGENTE) + "/installazione/";

struct Letto {
    std::unique_ptr<Materiali> mat = std::make_unique<Materiali>();
    std::string errore;
    short vecchio = 9;
    explicit Letto(const std::string& testo) {
        const prova::Cartella c;
        prova::ScriviTesto(c / "materiali", testo);
        LeggiMateriali((c / "materiali").string(), *mat, errore, vecchio);
    }
    Materiali* operator->() const { return mat.get(); }
};

std::vector<double> Numeri(const MaterialeRec& m) {
    return {m.Samm, m.Samm80, m.Fyk40, m.Ftk40, m.Fyk80, m.Ftk80, m.GammaM, m.GammaMT};
}

TEST(LeggiMateriali, HeadersAnywhereAndRowsOfEachGroup) {
    const Letto l(
        "1 [ACCIAIO]\nX [acciaio_da_carpenteria_sezioni_aperte] Y\r\n 2 righe\r\n"
        "  S 1 \r\nUNI \r\n1 2 3 4 5 6 7 8\r\nS 2\n\n\t9 x 11 12,5 13\n"
        "S 3\n[ACCIAIO_DA_CARPENTERIA_SEZIONI_CHIUSE]\n1\nH 1\nD\n1 2 3 4 5 6 7 8 9\n"
        "// [VITI]\n1\n 8.8 \n1 2 3 4 5 6\n[Calcestruzzi]\nuno\n[CALCESTRUZZI]\n1\n C25/30\t\n300 "
        "1.5\n"
        "[ACCIAIO_DA_CA]\n3\n B450C \n1 2 3 4 5 6\nX\n1 2 3 4 5\nFeB\n1 2 3 4\n");
    EXPECT_EQ(l.errore, "");
    ASSERT_EQ(l->nAcciaiAperte, 2);
    EXPECT_EQ(l->AcciaiAperte(0), MaterialeRec{});
    EXPECT_EQ(l->AcciaiAperte(1).Nome, "  S 1 ") << "taken as it stands";
    EXPECT_EQ(l->AcciaiAperte(1).Designazione, "UNI ");
    EXPECT_EQ(Numeri(l->AcciaiAperte(1)), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
    // what is no number keeps its value, the fields behind it are read
    EXPECT_EQ(Numeri(l->AcciaiAperte(2)), (std::vector<double>{9, 0, 11, 0, 13, 0, 0, 0}));
    EXPECT_EQ(l->nAcciaiChiuse, 1);
    EXPECT_EQ(l->AcciaiChiuse(1).Nome, "H 1");
    ASSERT_EQ(l->nViti, 1);
    const ViteRec& v = l->Viti(1);
    EXPECT_EQ(v.Nome, "8.8");
    EXPECT_EQ(
        (std::vector{v.SammVite, v.TauAmmVite, v.FyVite, v.FtVite, v.ViteQuinto, v.GammaMVite}),
        (std::vector<double>{1, 2, 3, 4, 5, 6}));
    ASSERT_EQ(l->nCalcestruzzi, 1);
    EXPECT_EQ(l->Calcestruzzi(1).Nome, "C25/30");
    EXPECT_EQ(l->Calcestruzzi(1).Rck, 300);
    EXPECT_EQ(l->Calcestruzzi(1).GammaC, 1.5);
    ASSERT_EQ(l->nAcciaiCa, 3);
    EXPECT_EQ(l.vecchio, 1);
    const auto ca = [&](int i) {
        const AcciaioCaRec& a = l->AcciaiCa(i);
        return std::vector{a.SammCa, a.Primo, a.Secondo, a.Terzo, a.Quarto, a.Quinto};
    };
    EXPECT_EQ(ca(1),
              (std::vector<double>{1, 2, 3, 4, 6, 5}));  // the fifth stands before the fourth
    EXPECT_EQ(ca(2), (std::vector<double>{1, 2, 3, 4, 0, 5}));
    EXPECT_EQ(ca(3), (std::vector<double>{2550, 1, 5400, 2, 4, 3}));
}

TEST(LeggiMateriali, CountsAndMissingPieces) {
    std::string testo = "[VITI]\n51\n";
    for (int i = 1; i <= 51; ++i) testo += "v" + std::to_string(i) + "\n1 2 3 4 5 6\n";
    const Letto troppe(testo + "[CALCESTRUZZI]\n1\nC\n1 2\n");
    EXPECT_EQ(troppe->nViti, 51);
    EXPECT_EQ(troppe->Viti(50).Nome, "v50");
    EXPECT_EQ(troppe->nCalcestruzzi, 1) << "row 51 is read and dropped";
    EXPECT_EQ(IndiceVite(*troppe.mat, "v50"), 50);
    EXPECT_EQ(IndiceVite(*troppe.mat, "v51"), 0);
    EXPECT_EQ(troppe.vecchio, 0);
    // a whole number from text rounds half to even
    for (const auto& [conteggio, n] :
         {std::pair{"x", 0}, {"", 0}, {"2", 2}, {"2.5", 2}, {"1.7", 2}}) {
        const Letto l("[VITI]\n" + std::string(conteggio) + "\na\n1 2 3 4 5 6\nb\n");
        EXPECT_EQ(l->nViti, n) << "'" << conteggio << "'";
    }
    const Letto senza("[ACCIAIO_DA_CARPENTERIA_SEZIONI_APERTE]\n1\nS\n");
    EXPECT_EQ(senza.errore, "");
    EXPECT_EQ(senza->nAcciaiAperte, 1);
    EXPECT_EQ(senza->nViti, 0);
    Letto manca("");
    LeggiMateriali("dir\\Materiali.tx1", *manca.mat, manca.errore, manca.vecchio);
    EXPECT_EQ(manca.errore, "File materiali (dir/Materiali.tx1) non trovato o non valido");
}

TEST(MaterialiInstallati, HaveTheValuesOfTheCodes) {
    Letto l("");
    LeggiMateriali(kInstallazione + "custom/MaterialiNTC08.tx1", *l.mat, l.errore, l.vecchio);
    ASSERT_EQ(l.errore, "");
    EXPECT_EQ(l.vecchio, 0);
    // fyk, ftk up to 40 mm; fyk, ftk up to 80 mm [N/mm2]: NTC 2018, tab. 4.2.I and 4.2.II.
    // Allowable stresses up to 40 mm and above [N/mm2]: CNR 10011.
    using V = std::vector<double>;
    const std::map<std::string, V> aperte = {{"S 235 (FE 360)", {160, 140, 235, 360, 215, 360}},
                                             {"S 275 (FE 430)", {190, 170, 275, 430, 255, 410}},
                                             {"S 355 (FE 510)", {240, 210, 355, 510, 335, 470}},
                                             {"S 450", {0, 0, 440, 550, 420, 550}},
                                             {"S 275 N/NL", {0, 0, 275, 390, 255, 370}},
                                             {"S 355 N/NL", {0, 0, 355, 490, 335, 470}},
                                             {"S 420 N/NL", {0, 0, 420, 520, 390, 520}},
                                             {"S 460 N/NL", {0, 0, 460, 540, 430, 540}},
                                             {"S 275 M/ML", {0, 0, 275, 370, 255, 360}},
                                             {"S 355 M/ML", {0, 0, 355, 470, 335, 450}},
                                             {"S 420 M/ML", {0, 0, 420, 520, 390, 500}},
                                             {"S 460 M/ML", {0, 0, 460, 540, 430, 530}},
                                             {"S 235 W", {0, 0, 235, 360, 215, 340}},
                                             {"S 355 W", {0, 0, 355, 510, 335, 490}}};
    const std::map<std::string, V> chiuse = {{"S 235 H (FE 360)", {160, 140, 235, 360, 215, 340}},
                                             {"S 275 H (FE 430)", {190, 170, 275, 430, 255, 410}},
                                             {"S 355 H (FE 510)", {240, 210, 355, 510, 335, 490}},
                                             {"S 275 NH/NLH", {0, 0, 275, 390, 255, 370}},
                                             {"S 355 NH/NLH", {0, 0, 355, 490, 335, 470}},
                                             {"S 420 NH/NLH", {0, 0, 420, 540, 390, 520}},
                                             {"S 460 NH/NLH", {0, 0, 460, 560, 430, 550}}};
    const auto confronta = [](const auto& tabella, int n, const std::map<std::string, V>& codice) {
        ASSERT_EQ(n, static_cast<int>(codice.size()));
        for (int i = 1; i <= n; ++i) {
            V attesi = codice.at(tabella(i).Nome);
            for (double& x : attesi) x *= 10.0;  // daN/cm2
            attesi.insert(attesi.end(), {1.05, 1.25});
            EXPECT_EQ(Numeri(tabella(i)), attesi) << tabella(i).Nome;
        }
    };
    confronta(l->AcciaiAperte, l->nAcciaiAperte, aperte);
    confronta(l->AcciaiChiuse, l->nAcciaiChiuse, chiuse);
    // a class a.b has ft = 100 a and fy = b/10 ft; CNR 10011, tab. 4-III: sigma, tau = sigma / sqrt
    // 2
    const std::map<std::string, double> sigma = {
        {"4.6", 160}, {"5.6", 200}, {"6.8", 240}, {"8.8", 373}, {"10.9", 467}};
    ASSERT_EQ(l->nViti, 5);
    for (int i = 1; i <= 5; ++i) {
        const ViteRec& v = l->Viti(i);
        const std::vector<std::string> ab = Dividi(v.Nome, '.');
        const double ft = 1000 * std::stod(ab.at(0));
        EXPECT_EQ(v.FtVite, ft) << v.Nome;
        EXPECT_EQ(v.FyVite, ft * std::stod(ab.at(1)) / 10) << v.Nome;
        EXPECT_EQ(v.SammVite, 10 * sigma.at(v.Nome));
        EXPECT_NEAR(v.TauAmmVite, v.SammVite / std::sqrt(2.0), 10.0) << v.Nome;
        EXPECT_EQ(v.GammaMVite, 1.25);
    }
    EXPECT_EQ(l->Viti(4).Nome, "8.8") << "the class of a new joint";
    ASSERT_GT(l->nCalcestruzzi, 0);
    for (int i = 1; i <= l->nCalcestruzzi; ++i) {  // C fck/Rck
        const CalcestruzzoRec& c = l->Calcestruzzi(i);
        EXPECT_EQ(c.Rck, 10 * std::stod(c.Nome.substr(c.Nome.find('/') + 1))) << c.Nome;
    }
    EXPECT_EQ(l->AcciaiCa(1).Nome, "B450C");  // NTC 2018, 11.3.2.1: 450 and 540 N/mm2
    EXPECT_EQ(l->AcciaiCa(1).Primo, 4500);
    EXPECT_EQ(l->AcciaiCa(1).Secondo, 5400);
}

TEST(Acciai, ValidityListAndReplacement) {
    Materiali m;
    // a: both methods; b, d: limit states only; c: allowable stresses only
    const std::tuple<const char*, double, double> righe[] = {{"S 235", 1600, 2350},
                                                             {"S 450", 0, 4400},
                                                             {"S 275 vecchio", 1900, 0},
                                                             {"S 355", 2400, 3550},
                                                             {"S 355 N", 0, 3550}};
    for (const auto& [nome, samm, fyk] : righe) {
        MaterialeRec& r = m.AcciaiAperte(++m.nAcciaiAperte);
        r.Nome = nome;
        r.Samm = r.Samm80 = samm;
        r.Fyk40 = r.Fyk80 = fyk;
    }
    const auto& t = m.AcciaiAperte;
    const short n = m.nAcciaiAperte;
    MaterialeRec r = t(1);
    EXPECT_TRUE(MaterialeValido(Metodo::SLU, "PROFILI", r));
    EXPECT_FALSE(MaterialeValido(Metodo::SLU, "BULLONI", r)) << "no tensile stress";
    EXPECT_FALSE(MaterialeValido(Metodo::SLU, "ALTRO", r));
    EXPECT_TRUE(MaterialeValido(Metodo::TA, "ALTRO", r));
    r.Samm80 = r.Fyk80 = 0;
    EXPECT_FALSE(MaterialeValido(Metodo::TA, "PROFILI", r));
    EXPECT_FALSE(MaterialeValido(Metodo::SLU, "PROFILI", r));

    const std::vector<std::string> ta = {"S 235", "S 275 vecchio", "S 355"};
    EXPECT_EQ(ListaMateriali(Metodo::TA, "PROFILI", n, t), ta);
    EXPECT_EQ(AlternativaMateriale(Metodo::TA, "PROFILI", "S 355 N", n, t), 3);
    EXPECT_EQ(AlternativaMateriale(Metodo::SLU, "PROFILI", "S 355", n, t), 4);
    EXPECT_EQ(AlternativaMateriale(Metodo::SLU, "PROFILI", "S 4", n, t), 1);
    EXPECT_EQ(AlternativaMateriale(Metodo::TA, "PROFILI", "S 450", n, t), 0);
    EXPECT_EQ(AlternativaMateriale(Metodo::TA, "PROFILI", "S 235", n, t), 0) << "not itself";

    prova::Porta porta;
    const auto scegli = [&](Metodo metodo, const char* nome, short quanti) {
        porta.detti.clear();
        return RiempiListaMateriali(metodo, "PROFILI", nome, quanti, t, porta.Fai()).indice;
    };
    EXPECT_EQ(scegli(Metodo::TA, "", n), 0);
    EXPECT_EQ(scegli(Metodo::TA, "S 355", n), 2);
    EXPECT_EQ(scegli(Metodo::TA, "S 355", 51), 2);
    EXPECT_EQ(scegli(Metodo::TA, "S 355", 0), -1);
    EXPECT_TRUE(porta.detti.empty());
    // the replacement is row 4 of the table: a position that the list of three does not have
    EXPECT_EQ(scegli(Metodo::TA, "S 355 N", n), -1);
    EXPECT_EQ(porta.Prendi(),
              "!|ATTENZIONE!|Materiale non possibile per verifiche alle tensioni ammissibili. "
              "Verrà impostato un "
              "altro tipo di acciaio.\rDa questo momento in poi il materiale impostato sarà "
              "ricordato anche se si cambia il metodo di verifica.");
    // "S 275" is part of row 3, position 2, and position 2 of the list is another steel
    m.AcciaiAperte(1).Nome = "S 275";
    m.AcciaiAperte(1).Samm = 0;
    m.AcciaiAperte(2).Samm = m.AcciaiAperte(2).Samm80 = 2900;
    EXPECT_EQ(scegli(Metodo::TA, "S 275", n), 2);
    EXPECT_EQ(ListaMateriali(Metodo::TA, "PROFILI", n, t).at(2), "S 355");
    EXPECT_EQ(scegli(Metodo::SLU, "S 275 vecchio", n), 0);
    EXPECT_TRUE(Contiene(porta.detti.at(0).testo, "per verifiche agli stati limite."));

    porta.detti.clear();
    EXPECT_EQ(CercaAcciaioDaNome(m, "s 355", porta.Fai()), 0);
    EXPECT_EQ(CercaViteDaNome(m, "8.8", porta.Fai()), 0);
    EXPECT_EQ(porta.Prendi(),
              "x|RICERCA TIPO ACCIAIO DA NOME|Tipo acciaio non trovato.\n"
              "x|RICERCA TIPO VITE DA NOME|Tipo vite non trovato.");
    EXPECT_EQ(CercaAcciaioDaNome(m, "S 355", porta.Fai()), 4);
}

const std::string kTimbro = "ARGANOWIN [Descrizione=x] [ReleaseQuestoFile=3]\n";

TEST(MaterialiBase, KeysAndReleaseStamp) {
    prova::Porta porta;
    Materiali m;
    LeggiMaterialiBase(kInstallazione + "lavori/esempi/propmateriali.tx1", m, porta.Fai());
    EXPECT_TRUE(m.Base.MatBaseValidi);
    EXPECT_EQ(Numeri(m.Base.AccBase1),
              (std::vector<double>{1600, 0, 2350, 3600, 2150, 3600, 0, 0}));
    EXPECT_EQ(Numeri(m.Base.AccBase2),
              (std::vector<double>{1600, 0, 2350, 3600, 2150, 3400, 0, 0}));
    EXPECT_NEAR(m.Base.AccBase1.Fyd40, 2350 / 1.05, 1e-3);
    EXPECT_NEAR(m.Base.AccBase1.Fyd80, 2150 / 1.05, 1e-3);
    EXPECT_EQ(m.Base.AccBase1.Nome, "S 235 (FE 360)");
    EXPECT_EQ(m.Base.AccBase2.Nome, "S 235 H (FE 360)");
    EXPECT_EQ(m.Base.AccCaBaseTipo, "B450C");
    EXPECT_EQ(m.Base.ModuloE, 210000);
    EXPECT_EQ(m.Base.GammaMBase(0), 1.05);
    EXPECT_EQ(m.Base.GammaMBase(3), 1.25);
    const CalcestruzzoRec& c = m.Base.ClsBase;
    EXPECT_EQ((std::vector{c.Rck, c.GammaC, c.Fck, c.AlfaCC, c.Fcd, c.Ecm, c.SammCls}),
              (std::vector<double>{300, 1.5, 249, 0.85, 141.1, 314471.61, 97.5}));
    EXPECT_TRUE(porta.detti.empty());

    const prova::Cartella cart;
    const auto leggi = [&](const std::string& testo) {
        prova::ScriviTesto(cart / "propmateriali.tx1", testo);
        LeggiMaterialiBase((cart / "propmateriali.tx1").string(), m, porta.Fai());
    };
    leggi(kTimbro +
          "s 275 x \t[acc_carp_1_tipo]\n1 [ACC_CARP_1_TIPO_BIS]\n12,7 x "
          "[valorecalcolato_acc_carp_1_samm ]\n? [ACC_CARP_ModuloDiElasticita_E]\n");
    EXPECT_TRUE(m.Base.MatBaseValidi);
    EXPECT_EQ(m.Base.AccBase1.Nome, "S 275 X");
    EXPECT_EQ(m.Base.AccBase1.Samm, 12);
    EXPECT_EQ(m.Base.ModuloE, 0);
    for (const char* indice : {"5", "0", "-3", "99999"}) {  // four factors only
        try {
            leggi(kTimbro + "x\n1 [ACC_CARP_Coefficiente_GammaM " + indice + "]\n");
            ADD_FAILURE() << indice;
        } catch (const ErroreFatale& e) {
            EXPECT_TRUE(Contiene(e.Dove(), "riga 3")) << e.Dove();
        }
        EXPECT_FALSE(m.Base.MatBaseValidi);
    }
    EXPECT_TRUE(porta.detti.empty());
    leggi("ARGANOWIN [ReleaseQuestoFile=2]\nS 1 [ACC_CARP_1_TIPO]\n");
    EXPECT_FALSE(m.Base.MatBaseValidi);
    EXPECT_TRUE(Contiene(porta.Prendi(),
                         "|ATTENZIONE!|Materiali base non corretti. Aprire 'Materiali base' dal "
                         "pannello principale di Argano e salvarli"));
    LeggiMaterialiBase("manca", m, porta.Fai());
    EXPECT_FALSE(m.Base.MatBaseValidi);
    EXPECT_EQ(porta.Prendi(), std::string("!|") + kTitoloProgramma +
                                  "|Materiali Base non impostati, specificare un materiale "
                                  "nell'apposita sezione");
}

TEST(MaterialiBase, PersonalisedOnesAreRefusedWhereTheirGroupIsInUse) {
    const char* acciaio =
        "Non è possibile utilizzare un tipo di acciaio personalizzato. Impostare un tipo standard";
    const char* classe =
        "Non è possibile utilizzare una classe personalizzata per il calcestruzzo. Impostare una "
        "classe standard";
    for (const bool inUso : {false, true}) {
        Materiali m;
        m.AcciaiAperte(1).Nome = "aperta";
        m.AcciaiChiuse(1).Nome = "chiusa";
        m.Calcestruzzi(1).Nome = "classe";
        m.AcciaiCa(1).Nome = "barre";
        m.SezioniChiuse = m.MostraCalcestruzzo = inUso;
        prova::Porta porta;
        for (const char* riga : {"altra [CLS_CLASSE]", "Altro [ACC_CARP_1_TIPO]",
                                 "ALTRO [ACC_CARP_2_TIPO]", "altro [ACC_CA_Tipo]"}) {
            DecifraRigaMatBase(riga, m, porta.Fai());
        }
        const MaterialiBase& b = m.Base;
        EXPECT_EQ((std::vector{b.ClsBase.Nome, b.AccBase1.Nome, b.AccBase2.Nome, b.AccCaBaseTipo}),
                  inUso ? (std::vector<std::string>{"classe", "ALTRO", "chiusa", "barre"})
                        : (std::vector<std::string>{"ALTRA", "aperta", "ALTRO", "ALTRO"}));
        EXPECT_EQ(porta.Testi(), inUso ? (std::vector<std::string>{classe, acciaio, acciaio})
                                       : (std::vector<std::string>{acciaio}));
    }
}

}  // namespace
}  // namespace tk07
