#include "unit/session/copione.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using prova::Copione;

TEST(Protocollo, ReadsEverythingAndFormats) {
    Copione c;
    c.Avvia(R"x(
apri 08_hea600_su_heb900.tk7
> {'pannello':'InsDati','campo':'TxtTy(1)','testo':'77'}
= nodo/TaglioY/1 77
> {'formatta':'(DV_02)(NP_1)','valore':12.5,'fattore':1}
= r/valore '12.5'
> {'formatta':'','larghezza':6,'valore':'àb','separatore':true,'allineamento':'R'}
= r/valore '    àb|'
> {'formatta':'','larghezza':5,'valore':42,'intero':true,'allineamento':'R'}
= r/valore '   42'
)x");
    const Json n = c.Leggi("nodo");
    EXPECT_EQ(n["Xbull"].size(), n["nBull"].get<std::size_t>());
    EXPECT_EQ(n["NomeSa"].size(), n["nSollAg"].get<std::size_t>());
    EXPECT_EQ(n["BPiastra"].size(), 2u);
    c.Recita("> {'premi':'bt_vista3d'}\n= r/programmi/0/attendi false");
    const Json s = c.Leggi("scena"), &primo = s["estrusi"][0];
    EXPECT_EQ(s["visual_beta"], 50);
    EXPECT_EQ(s["estrusi"].size(), s["estrusi_numero"]);
    EXPECT_EQ(primo["estrusi_descri"], "|oggetto=TraPri|");
    EXPECT_EQ(primo["estrusi_coord1"], (Json{0, -900, 0}));  // HEB900
    const Json& sezione = s["sezioni"][primo["estrusi_punse1"].get<std::size_t>()];
    EXPECT_EQ(sezione["sezioni_descr"], "HEB900");
    EXPECT_EQ(sezione["sezioni_YVer"][0][8], 450);
    EXPECT_EQ(c.Leggi("unita")["UnitaForze"], "daN");
    EXPECT_EQ(c.Leggi("direttori")["nomeLavoro"], "esempi");
    EXPECT_EQ(c.Leggi("opzioni")["righe"].size(), 30u);
    EXPECT_EQ(c.Leggi("risultati")["verificato"], nullptr);
    EXPECT_GT(c.Leggi("sezioni").size(), 100u);
    EXPECT_EQ(c.Leggi("materiali")["Viti"].size(), 5u);
}

TEST(Protocollo, ARequestThatCannotBeUnderstoodChangesNothing) {
    Copione c;
    c.Avvia();
    const Json nodo = c.Leggi("nodo"), pannello = c.Leggi("pannello");
    c.Recita(R"x(
! verifica
! [1]
! {}
! null
! {'premi':'Chiudi'
! {'campo':'Boh','testo':'1'}
! {'campo':'GeoPias(','testo':'1'}
! {'campo':'','testo':'1'}
! {'campo':'GeoPias(0)'}
! {'campo':'GeoPias(0)','testo':5}
! {'campo':'GeoPias(0)','testo':'1','tasto':'13'}
! {'campo':'GeoPias1','testo':'1'}
! {'campo':'TraveP','testo':'1'}
! {'campo':'TxtSN(0)','testo':'1'}
! {'lista':'TraveP'}
! {'lista':'TraveP','voce':'hea200'}
! {'lista':'TraveP','indice':0.5}
! {'lista':'TraveP','indice':1e300}
! {'lista':'Cviti','indice':5}
! {'lista':'Cviti','indice':-1}
! {'casella':'CheckNervatura1'}
! {'casella':'CasCar(0)','valore':1}
! {'premi':'GeoPias(0)'}
! {'premi':'Boh'}
! {'premi':3}
! {'opzione':'TipoVer(2)'}
! {'scorri':'VScrollSoll','valore':1}
! {'leggi':'boh'}
! {'pannello':'FormBulloni','premi':'Chiudi'}
! {'premi':'Bt_salva','risposte':'OK'}
! {'formatta':'(DV_02)'}
! {'formatta':'','larghezza':1,'valore':1}
)x");
    c.Richiesta(std::string(1 << 20, '['), false);
    c.Richiesta("{\"campo\":\"GeoPias(0)\",\"testo\":\"\xFF\"}", false);
    EXPECT_EQ(c.Leggi("nodo"), nodo);
    EXPECT_EQ(c.Leggi("pannello"), pannello);
    // a column's width is a 16-bit number
    c.Recita("! {'formatta':'','larghezza':40000,'valore':'x'}");
}

TEST(Protocollo, TheProcessEndsWithTheSessionsCode) {
    Copione c;
    c.Avvia("file guasto.tk7 1 [Xbull 101]");
    const std::string righe = (c.cartella / "righe").string();
    const Json apri = {{"premi", "Car_Nodo"}, {"risposte", {{{"file", c.lavoro + "guasto.tk7"}}}}};
    const auto sessione = [&](const std::string& richieste, int codice, std::size_t risposte) {
        prova::ScriviTesto(righe, richieste + "\n{\"leggi\":\"unita\"}\n");
        std::string uscita, errori;
        EXPECT_EQ(prova::Esegui(
                      "( " TK07_PROGRAMMA " --diroot " + c.radice + " sessione < " + righe + " )",
                      &uscita, &errori),
                  codice);
        EXPECT_EQ(errori, "");
        const std::vector<std::string> r = Dividi(uscita, '\n');
        ASSERT_EQ(r.size(), risposte + 1) << uscita;  // the start-up's answer is the first
        for (std::size_t i = 0; i < risposte; ++i) {
            EXPECT_EQ(Json::parse(r[i])["fine"], i + 1 == risposte) << r[i];
        }
    };
    sessione("\n{\"leggi\":\"nodo\"}\r\n{\"premi\":\"Chiudi\"}", 0, 3);
    sessione("boh\n" + apri.dump(), 70, 3);
    EXPECT_TRUE(fs::exists(c.radice + "/temp/TK07_recupero.tk7"));
    fs::remove(c.radice + "/custom/OpzioniNodi.txt");
    sessione("", 2, 1);
    fs::remove(c.lavoro + "parametrilavoro");
    sessione("", 70, 1);
}

}  // namespace
}  // namespace tk07
