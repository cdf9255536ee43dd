#include "unit/joint/confronto.h"
#include "unit/session/copione.h"

namespace tk07 {
namespace {

using prova::Copione;
using prova::LeggiTesto;
using prova::SessioneDiProva;
using Json = nlohmann::json;

// The joint itself stands in the golden session.
TEST(Avvio, ShowsTheDefaultJointWithoutABox) {
    Copione c;
    c.Avvia(R"x(
= titolo 'TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18 - @/lavori/esempi/Nuovo.tk7'
= pan/TraveP/testo 'IPE270'
= pan/geoms(3)/testo '7.4'
= pan/GeoPias1/testo '249'
= pan/LabNorma/testo 'UNI EN 10025-2'
= pan/Cviti/voci ['4.6', '5.6', '6.8', '8.8', '10.9']
= pan/ComboEsposizione/voci ['Esposto a fenomeni corrosivi', 'Non esposto a fenomeni corrosivi', 'Resistente alla corrosione']
= pan/ComboEsposizione/indice 0
= pan/TipoVer(1)/valore 1
= pan/FrameSoll/testo 'Sollecitazioni agenti [daN,cm]'
= pan/betatest_c/visibile false
= pan/VScrollSoll/abilitato false
)x");
    EXPECT_EQ(c.p->LaSessione().titoloRicercaNodi,
              "NODO TRAVE - TRAVE CON PIASTRE - IMPORTA SOLLECITAZIONI 3D - Cerca nodi");
    const std::string capo = "TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18";
    EXPECT_EQ(ComponiTitolo("", "n.tk7"), capo + " - n.tk7");
    EXPECT_EQ(ComponiTitolo("/a\\lavori\\", "n.tk7"), capo + " - /a/lavori/n.tk7");
    EXPECT_EQ(ComponiTitolo("/a/", ""), capo + " - /a");
}

// b = (B - tw) / 2 + distance - plate 1, h = H - 2 tf, chamfer r rounded up: HP305x79 is
// 299.3x306.4x11x11.1 r15.2.
TEST(Nervatura3, FollowsFromTheMainBeamAndPlate1) {
    Copione c;
    c.Avvia(R"x(
> {'campo':'TextQuota(1)','testo':'-30'}
> {'campo':'GeoPias(2)','testo':'20'}
> {'campo':'GeoPias(14)','testo':'7'}
> {'lista':'TraveP','voce':'HP305x79'}
= nodo/BNerv/2 54.2
> {'premi':'AggiornaDisBull'}
= nodo/BNerv/2 97.7
= nodo/H1Nerv/2 277.1
= nodo/SmussoNerv/2 16
= nodo/SpNerv/2 7
)x");
}

TEST(TbValuta, EveryGeometryFieldStoresItsOwnValueOnly) {
    Copione c;
    c.Avvia();
    std::istringstream campi(
        "GeoPias(0) /BPiastra/0 GeoPias(2) /SpPiastra/0 GeoPias(3) /BPiastra/1 "
        "GeoPias(4) /HPiastra/1 GeoPias(5) /SpPiastra/1 GeoPias(6) /H1Nerv/0 "
        "GeoPias(7) /H2Nerv/0 GeoPias(8) /BNerv/0 GeoPias(9) /SpNerv/0 GeoPias(10) /H1Nerv/1 "
        "GeoPias(11) /H2Nerv/1 GeoPias(12) /BNerv/1 GeoPias(13) /SpNerv/1 GeoPias(14) /SpNerv/2 "
        "TextQuota(0) /distAlaSecPiastra TextQuota(1) /distPiastraTraPri "
        "TextQuota(2) /distAliPriSec TextSald(0) /spSaldS1 TextSald(1) /spSaldS2");
    double v = 1000.25;
    for (std::string campo, chiave; campi >> campo >> chiave; v += 1.0) {
        Json atteso = c.Leggi("nodo");
        atteso[Json::json_pointer(chiave)] = v;
        const std::string testo = TestoReale(v), dove = "pan/" + campo + "/testo";
        c.Chiedi({{"campo", campo}, {"testo", " " + testo + "mm"}, {"tasto", v > 1005 ? 13 : 0}});
        EXPECT_EQ(c.Leggi("nodo"), atteso) << campo;
        EXPECT_EQ(c.Cerca(dove), testo);
        // key 27 puts the stored value back as a plain number, other keys do nothing
        c.Chiedi({{"campo", campo}, {"testo", "3"}, {"tasto", 65}});
        EXPECT_EQ(c.Cerca(dove), "3");
        c.Chiedi({{"campo", campo}, {"testo", "4"}, {"tasto", 27}});
        EXPECT_EQ(c.Leggi("nodo"), atteso) << campo;
        EXPECT_EQ(c.Cerca(dove), testo);
    }
    c.Recita(R"x(
> {'campo':'GeoPias(0)','testo':'1,5'}
= nodo/BPiastra/0 1
> {'campo':'GeoPias(0)','testo':'-.5e1x'}
= nodo/BPiastra/0 -5
> {'campo':'GeoPias(0)','testo':'nan'}
= nodo/BPiastra/0 0
> {'campo':'GeoPias(0)','testo':'12.3456'}
= pan/GeoPias(0)/testo '12.35'
> {'campo':'GeoPias(0)','testo':'1','tasto':27}
= pan/GeoPias(0)/testo '12.3456'
> {'campo':'GeoPias(1)','testo':'5'}
= nodo/HPiastra/0 249
> {'casella':'CheckNervatura2','valore':0}
= nodo/AttNerv [true, false, false]
= pan/GeoPias(13)/abilitato false
! {'campo':'GeoPias(11)','testo':'5'}
> {'casella':'CheckNervatura2','valore':1}
> {'campo':'GeoPias(11)','testo':'5'}
= nodo/H2Nerv/1 5
)x");
}

// Job in kN and kN*m: 1 kN = 100 daN, 1 kN*m = 10000 daN*cm.
TEST(TbValuta, LoadFieldsConvertWithTheJobsUnits) {
    Copione c;
    prova::ScriviTesto(c.radice + "/impostazioni/lavoro", "unitkn\n");
    c.lavoro = c.radice + "/lavori/unitkn/";
    c.Avvia(R"x(
= pan/FrameSoll/testo 'Sollecitazioni agenti [kN,m]'
file sette.tk7 7 [nSollAg]|S6 [NomeSa 6]|1 [TipoVer]|7 [SforzoNormale 3]|7 [TaglioY 3]|7 [TaglioZ 3]|7 [MomTorc 3]|7 [MomY 3]|7 [MomZ 3]
apri sette.tk7
> {'scorri':'VScrollSoll','valore':2}
! {'scorri':'VScrollSoll','valore':3}
)x");
    std::istringstream campi(
        "TxtSN SforzoNormale 100 TxtTy TaglioY 100 TxtTz TaglioZ 100 TxtMt MomTorc 10000 "
        "TxtMy MomY 10000 TxtMz MomZ 10000");
    double fattore = 0.0;
    for (std::string campo, chiave; campi >> campo >> chiave >> fattore;) {
        campo += "(1)";  // set 3, with set 2 in the first row
        Json atteso = c.Leggi("nodo");
        const auto scrive = [&](const char* testo, double memorizzato) {
            c.Chiedi({{"campo", campo}, {"testo", testo}});
            atteso[chiave][3] = memorizzato;
            const Json nodo = c.Leggi("nodo");
            EXPECT_DOUBLE_EQ(nodo[chiave][3].get<double>(), memorizzato) << campo << " " << testo;
            atteso[chiave][3] = nodo[chiave][3];
            EXPECT_EQ(nodo, atteso);
        };
        // Compared with the stored daN as it was typed in kN: within 0.0001 it is dropped.
        for (const char* testo : {"7", "7.00005", "6.99995"}) scrive(testo, 7.0);
        scrive("7.0002", 7.0002 * fattore);
        scrive("0", 0.0);
        scrive("0.0001", 0.0);  // not strictly above
        scrive("-12.5", -12.5 * fattore);
        EXPECT_EQ(c.Cerca("pan/" + campo + "/testo"), "-12.5");
        c.Chiedi({{"campo", campo}, {"testo", "9"}, {"tasto", 27}});
        EXPECT_EQ(c.Cerca("pan/" + campo + "/testo"), "-12.5");
    }
    c.Recita(R"x(
> {'campo':'Tb_sol_descr(4)','testo':'  S6 '}
= nodo/NomeSa/6 'S6'
> {'campo':'Tb_sol_descr(4)','testo':' più vento €'}
= nodo/NomeSa/6 ' più vento €'
> {'campo':'Tb_sol_descr(4)','testo':'altro','tasto':27}
= pan/Tb_sol_descr(4)/testo ' più vento €'
> {'campo':'Tb_sol_descr(4)','testo':'99 [nBull]'}
m Descrizione non accettata: "[nBull" ...
= nodo/NomeSa/6 ' più vento €'
= pan/Tb_sol_descr(4)/testo ' più vento €'
file tre.tk7 3 [nSollAg]|0 [TipoVer]|1 [CasoCarico 2]
apri tre.tk7
= pan/Lb_nrosol/testo '3'
= pan/Lb_sol_num(0)/testo '1'
= pan/TxtMz(2)/visibile true
= pan/TxtMz(3)/visibile false
= pan/CasCar(2)/visibile true
= pan/CasCar(2)/valore 1
= pan/CasCar(3)/visibile false
= pan/VScrollSoll/abilitato false
! {'campo':'TxtMz(3)','testo':'1'}
> {'casella':'CasCar(0)','valore':1}
= nodo/CasoCarico [1, 0, 1]
> {'opzione':'TipoVer(1)'}
= pan/Lb_CasCar/visibile false
! {'casella':'CasCar(0)','valore':0}
= nodo/CasoCarico [1, 0, 1]
> {'opzione':'TipoVer(0)'}
= pan/CasCar(2)/visibile true
= pan/CasCar(3)/visibile false
)x");
}

// EN 10365: HEA 200 is 190 x 200 x 6.5 x 10, r 18.
TEST(Liste, AndTheMethodSwitchKeepPanelAndJointInAgreement) {
    Copione c;
    c.Avvia(R"x(
> {'lista':'TraveP','voce':'HEA200'}
= pan/geomp(0)/testo '190'
= pan/geomp(1)/testo '200'
= pan/geomp(4)/testo '18'
= nodo/HPiastra/0 249
> {'lista':'Cviti','voce':'10.9'}
= nodo/vite_Nome '10.9'
> {'lista':'ComboEsposizione','indice':2}
= nodo/Esposizione 2
> {'lista':'Cb_Acciaio','voce':'S 450'}
> {'opzione':'TipoVer(0)'}
m Materiale non possibile per verifiche alle tensioni ammissibili. Verrà impostato un altro tipo di acciaio. Da questo momento in poi il materiale impostato sarà ricordato anche se si cambia il metodo di verifica.
= r/messaggi/0/titolo 'ATTENZIONE!'
= r/messaggi/0/segno 'esclamazione'
= pan/Cb_Acciaio/voci ['S 235 (FE 360)', 'S 275 (FE 430)', 'S 355 (FE 510)']
= pan/Cb_Acciaio/testo 'S 235 (FE 360)'
= nodo/acciaio_Nome 'S 235 (FE 360)'
> {'lista':'Cb_Acciaio','voce':'S 355 (FE 510)'}
> {'opzione':'TipoVer(1)'}
= nodo/acciaio_Nome 'S 450'
= pan/Cb_Acciaio/testo 'S 450'
> {'opzione':'TipoVer(0)'}
= nodo/acciaio_Nome 'S 355 (FE 510)'
= pan/Cb_Acciaio/indice 2
file ta.tk7 S 450 [acciaio_Nome]|0 [TipoVer]
apri ta.tk7
m Materiale non possibile per verifiche alle tensioni ammissibili...
= nodo/acciaio_Nome 'S 235 (FE 360)'
= pan/Cb_Acciaio/testo 'S 235 (FE 360)'
file ignoti.tk7 S 355 [acciaio_Nome]|8,8 [vite_Nome]|XYZ [TraSec_Nome]|1 [TipoVer]|1 [Esposizione]
apri ignoti.tk7
m Profilo non trovato.
m Attenzione: tipo acciaio non accettabile (S 355). Scegliere un acciaio dalla tendina dei  materiali
m Attenzione: classe viti non accettabile (8,8). Scegliere una classe dalla tendina delle viti
= pan/Cb_Acciaio/testo 'S 355 (FE 510)'
= pan/Cviti/testo '8.8'
= nodo/vite_Nome '8.8'
= nodo/TraSec_Nome ''
= pan/TraveS/indice -1
= pan/ComboEsposizione/indice 1
= pan/TipoVer(1)/valore 1
)x");
    EXPECT_EQ(c.p->LaSessione().nodo.vite.FtVite, 8000.0);
}

// The replacement's row in the table is taken as a position in the list: with a row left out above
// it the choice falls on another steel. Fewer than four bolt classes: row 1 replaces an unknown
// one.
TEST(Liste, TheReplacementIsAPositionInTheFilteredList) {
    Copione c;
    const std::string slu = "\nnorma\n0 0 2000 3000 1900 2900 1.05 1.25\n";
    const std::string entrambi = "\nnorma\n100 100 2000 3000 1900 2900 1.05 1.25\n";
    prova::ScriviTesto(c.radice + "/custom/MaterialiNTC08.tx1",
                       "[ACCIAIO_DA_CARPENTERIA_SEZIONI_APERTE]\n4\nAltro" + slu + "Fe 360" +
                           entrambi + "Fe 430" + entrambi + "Fe 360 B" + slu +
                           "[VITI]\n2\n4.6\n1 1 1 1 1 1\n8.8\n2 2 2 2 2 2\n");
    prova::ScriviTesto(c.lavoro + "propmateriali.tx1",
                       "[ReleaseQuestoFile=3]\nFE 430 [ACC_CARP_1_TIPO]\n");
    c.Avvia(R"x(
m Materiale-Base non valido...
> {'lista':'Cb_Acciaio','voce':'Fe 360 B'}
> {'opzione':'TipoVer(0)'}
m Materiale non possibile per verifiche alle tensioni ammissibili...
= nodo/acciaio_Nome 'Fe 430'
= pan/Cb_Acciaio/testo 'Fe 430'
file vite.tk7 10.9 [vite_Nome]
apri vite.tk7
m Attenzione: classe viti non accettabile (10.9). Scegliere una classe dalla tendina delle viti
= nodo/vite_Nome '4.6'
)x");
}

TEST(MaterialeBase, GivesTheWholeRowOfTheTable) {
    struct Caso {
        const char* base;
        const char* opzione;
        const char* acciaio;
        bool avviso;
    };
    for (const Caso& k : {Caso{"S 450", "TipoVer(1)", "S 450", false},
                          {"S 450", "TipoVer(0)", "S 235 (FE 360)", true},     // no similar name
                          {"S 275", "TipoVer(1)", "S 275 (FE 430)", true}}) {  // contained in it
        Copione c;
        prova::ScriviTesto(c.lavoro + "propmateriali.tx1", std::string("[ReleaseQuestoFile=3]\n") +
                                                               k.base + " [ACC_CARP_1_TIPO]\n");
        c.Avvia(k.base == std::string("S 275") ? "m Materiale-Base non valido..." : "");
        c.Chiedi({{"opzione", k.opzione}});
        c.Chiedi({{"lista", "Cb_Acciaio"}, {"indice", 2}});
        c.Recita(std::string("> {'premi':'CheckMatBase'}\n") +
                 (k.avviso ? "m Materiale-Base non valido per questo tipo di verifica. Verrà "
                             "impostato un altro tipo di acciaio.\n= r/messaggi/0/titolo "
                             "'ATTENZIONE!'\n"
                           : "") +
                 "= pan/Cb_Acciaio/testo '" + k.acciaio + "'");
        const Sessione& s = c.p->LaSessione();
        EXPECT_EQ(s.nodo.acciaio, s.mat.AcciaiAperte(IndiceAcciaio(s.mat, k.acciaio)));
    }
}

TEST(Comandi, OpenSaveAndVerify) {
    Copione c;
    c.Avvia(R"x(
> {'premi':'VerificaButt'}
m Non è stato inserito nessun bullone. Verifica non possibile.
> {'campo':'TextSald(1)','testo':'0'}
> {'premi':'Bt_salva'}
m Lato delle saldature negativo o nullo.
m Il salvataggio non è possibile!
manca Nuovo.tk7
> {'campo':'TextSald(1)','testo':'6'}
> {'campo':'GeoPias(2)','testo':'20'}
> {'premi':'Bt_salva'}
= nodo/BNerv/2 54.2
= titolo 'TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18 - @/lavori/esempi/Nuovo.tk7'
> {'premi':'AggiornaDisBull'}
= nodo/BNerv/2 44.2
apri Nuovo.tk7
= nodo/SpPiastra/0 20
= nodo/BNerv/2 54.2
> {'premi':'Bt_salva_con_nome','risposte':[null]}
> {'premi':'Bt_salva_con_nome','risposte':[{'file':'@/lavori'}]}
m File: @/lavori...
= r/messaggi/0/titolo 'TK07 - SALVATAGGIO NON RIUSCITO'
= titolo 'TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18 - @/lavori/esempi/Nuovo.tk7'
salva altro.nome.x
esiste altro.nome.x
= titolo 'TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18 - @/lavori/esempi/altro.nome.tk7'
> {'premi':'Bt_salva'}
esiste altro.nome.tk7
apri manca.tk7
m Errore in lettura del file: @/lavori/esempi/manca.tk7...
= nodo/SpPiastra/0 20
= titolo 'TK07 - NODO TRAVE - TRAVE CON PIASTRE - LPZ ARGANO e quanta KX 18 - @/lavori/esempi/altro.nome.tk7'
apri 01_ipe160_su_ipe270.tk7
= r/dialoghi/0/estensione 'tk7'
= r/dialoghi/0/nome ''
> {'premi':'VerificaButt'}
= r/programmi [{'programma':'notepad.exe','argomenti':['@/lavori/esempi/RelSLU_TK07_01_ipe160_su_ipe270.txt'],'attendi':false}]
esiste RelSLU_TK07_01_ipe160_su_ipe270.txt
= risultati/verificato true
> {'premi':'DefBulloni'}
apri 10_ipe220_su_ipe330.tk7
! {'premi':'MatBulOK'}
= risultati/verificato null
> {'premi':'VerificaButt'}
m I bulloni non rispettano l'interasse minimo in direzione verticale (NTC 2018)
m Continuare la verifica?
m ATTENZIONE: nodo non verificato!
= r/messaggi/1/risposta 'OK'
esiste RelSLU_TK07_10_ipe220_su_ipe330.txt
> {'premi':'Chiudi'}
= r/fine true
)x");
    EXPECT_EQ(c.p->CodiceUscita(), 0);
    // below release 1 the old format is read, by position
    Copione v;
    prova::ScriviTesto(v.lavoro + "v.tk7", "\"HEA300\" [ReleaseQuestoFile=0.9]\nIPE240\n77\n");
    v.Avvia("apri v.tk7\nm Profilo non trovato.\n= nodo/distAlaSecPiastra 77\n");
    EXPECT_EQ(v.Leggi("nodo")["TraSec_Nome"], "IPE240");
}

TEST(Comandi, DrawingFilesAndTheViewer) {
    Copione c;
    c.Avvia(R"x(
apri 01_ipe160_su_ipe270.tk7
> {'premi':'Gen_Dis','risposte':[null]}
= r/dialoghi/0 {'modo':'salva','titolo':'FILE DISEGNO DA GENERARE','estensione':'grb','filtro':'File disegno (*.grb)|*.grb|File disegno (*.dis)|*.dis|AutoCAD (*.dxf)|*.dxf','direttorio':'@/lavori/esempi','nome':'@/lavori/esempi/TK7_01_ipe160_su_ipe270.grb','sovrascrittura':true,'risposta':null}
> {'premi':'Gen_Dis','risposte':[{'file':'@/lavori/esempi/a.grb','filtro':1}]}
m File @/lavori/esempi/a.grb salvato.
> {'premi':'Gen_Dis','risposte':[{'file':'@/lavori/esempi/a.dis','filtro':2}]}
m File @/lavori/esempi/a.dis salvato.
> {'premi':'ApriVis'}
= r/programmi/0/attendi false
esiste tk7tmp.grb
> {'campo':'TextSald(1)','testo':'0'}
> {'premi':'Gen_Dis','risposte':['OK',{'file':'@/lavori/esempi/b.dxf','filtro':3}]}
m Lato delle saldature negativo o nullo.
m File @/lavori/esempi/b.dxf salvato.
> {'campo':'TextSald(1)','testo':'6'}
> {'premi':'Gen_Dis','risposte':[{'file':'@/manca/c.grb','filtro':1}]}
m Errore durante la scrittura sul file...
m Scrittura GRB annullata
)x");
    const auto inizio = [&](const std::string& f) {
        return LeggiTesto(c.radice + "/" + f).substr(0, 22);
    };
    EXPECT_EQ(inizio("lavori/esempi/a.dis"), " 0\nSECTION\n 2\nHEADER\n ")
        << "DXF text under *.dis";
    EXPECT_EQ(inizio("lavori/esempi/a.grb"), "                   4\n ");
    EXPECT_EQ(inizio("progra/nodo.dis"), "                   4\n-");
    EXPECT_EQ(LeggiTesto(c.radice + "/progra/mostradis.inp"),
              "2\n" + c.radice + "/progra/nodo.dis\n0\n0\n8000\n8000\n");
    const auto d = c.Leggi("disegno");
    EXPECT_GT(d["linee"].size(), 500u);
    EXPECT_EQ(d["testi"][0].size(), 6u);

    // A viewer that runs is told to reload and is not started again; one that is not there is told.
    SessioneDiProva aperta;
    std::vector<std::string> tasti;
    Sessione& s = *aperta.s;
    s.piattaforma.attivaFinestra = [&](const std::string& titolo) {
        return titolo == "VISUALIZZAZIONE FILE DISEGNO - " + aperta.radice + "/progra/nodo.dis";
    };
    s.piattaforma.inviaTasti = [&](const std::string& t) { tasti.push_back(t); };
    PremiPulsante(s, "ApriVis");
    EXPECT_EQ(tasti, std::vector<std::string>{"^v"});
    EXPECT_TRUE(aperta.porta.programmi.empty());
    s.piattaforma.attivaFinestra = [](const std::string&) { return false; };
    s.piattaforma.avvia = [](const std::string&, const std::vector<std::string>&, bool) {
        return false;
    };
    PremiPulsante(s, "ApriVis");
    EXPECT_TRUE(aperta.porta.HaDetto("Visualizzatore incompleto o mancante"));
}

TEST(Guasto, SavesTheJointAsideTellsWhereAndTouchesNoOtherSession) {
    Copione c, altra;
    c.Avvia("> {'campo':'GeoPias(0)','testo':'188'}");
    altra.Avvia();
    const Json nodoAltra = altra.Leggi("nodo"), pannelloAltra = altra.Leggi("pannello");
    const auto prima = std::make_unique<Nodo>(c.p->LaSessione().nodo);
    const std::string recupero = c.radice + "/temp/TK07_recupero.tk7";
    c.Recita(R"x(
file guasto.tk7 1 [BPiastra 1]|5 [Xbull 101]
apri guasto.tk7
m Errore non recuperabile...
= r/fine true
= r/messaggi/0/segno 'critico'
)x");
    const std::string detto = c.r["messaggi"][0]["testo"];
    for (const std::string& pezzo :
         {c.lavoro + "guasto.tk7", std::string("riga 3"), std::string("Xbull"), recupero}) {
        EXPECT_TRUE(Contiene(detto, pezzo)) << detto;
    }
    EXPECT_EQ(c.p->CodiceUscita(), 70);
    EXPECT_TRUE(prova::Uguali(c.p->LaSessione().nodo, *prima));
    const auto recuperato = std::make_unique<Nodo>();
    ASSERT_TRUE(LeggiFileNodo(*recuperato, recupero, PiattaformaMuta()));
    EXPECT_TRUE(prova::Uguali(*recuperato, *prima));
    EXPECT_EQ(altra.Leggi("nodo"), nodoAltra);
    EXPECT_EQ(altra.Leggi("pannello"), pannelloAltra);
    EXPECT_FALSE(altra.p->Fine());
}

TEST(Casella, ShowsWhatTheJointHoldsWhateverItWasSetTo) {
    Copione c;
    c.Avvia("file uno.tk7 1 [nSollAg]|0 [TipoVer]\napri uno.tk7\n");
    c.Recita("> {'casella':'CasCar(0)','valore':5}\n= nodo/CasoCarico [1]\n");
    EXPECT_EQ(c.Cerca("pan/CasCar(0)/valore"), 1);
}

TEST(Guasto, InAFieldNamesTheControl) {
    Copione c;
    c.Avvia("> {'campo':'GeoPias(0)','testo':'1e999'}\nm Errore non recuperabile...\n");
    EXPECT_EQ(c.p->CodiceUscita(), 70);
    EXPECT_TRUE(Contiene(c.r["messaggi"][0]["testo"].get<std::string>(), "GeoPias(0)")) << c.r;
}

}  // namespace
}  // namespace tk07
