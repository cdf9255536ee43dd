#include <gtest/gtest.h>

#include <sstream>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "unit/joint/confronto.h"

namespace tk07 {
namespace {

namespace fs = std::filesystem;

// A session played by short commands, separated by ";". Requests, each of which must be accepted
// (or refused, after "!"), by a letter, the control and its argument: P press, W write and leave, E
// with Enter, K with key 27, B box, O option, V entry, S scroll, D double click, C click, T timer,
// M and Q mouse on DisBulloni moved and pressed. Checks on the topmost panel that has the control:
// = text, # value, + visible, - hidden, pila the open panels, bulloni the working copy (*
// selected).
struct Banco : prova::SessioneDiProva {
    Sessione& S() { return *s; }
    const Controllo& C(const std::string& nome) const {
        for (auto p = s->pila.size(); p-- > 0;) {
            const Pannello& pan = *PannelliAperti(*s)[p];
            if (pan.Ha(nome)) return pan[nome];
        }
        throw std::runtime_error("controllo assente: " + nome);
    }
    std::string Bulloni() const {
        const BulloniTemp& t = s->bulloni;
        std::string v;
        for (int i = 1; i <= t.nBullTemp; ++i) {
            v += (i > 1 ? "|" : "") + TestoReale(t.XbullTemp(i)) + " " +
                 TestoReale(t.YbullTemp(i)) + (t.SelBullTemp(i) == 1.0 ? "*" : "");
        }
        return v;
    }
    std::string Chiedi(char c, const std::string& nome, const std::string& testo) {
        const int v = std::atoi(testo.c_str());
        switch (c) {
            case 'P':
                return PremiPulsante(*s, nome);
            case 'W':
                return ScriviCampo(*s, nome, testo, 0);
            case 'E':
                return ScriviCampo(*s, nome, testo, 13);
            case 'K':
                return ScriviCampo(*s, nome, testo, 27);
            case 'B':
                return ImpostaCasella(*s, nome, v);
            case 'O':
                return ScegliOpzione(*s, nome);
            case 'V':
                return ScegliVoce(*s, nome, v);
            case 'S':
                return Scorri(*s, nome, v);
            case 'D':
                return DoppioClic(*s, nome);
            case 'C':
                return Clic(*s, nome);
            case 'T':
                return Timer(*s, nome);
            default:
                return Mouse(*s, "DisBulloni", c == 'M' ? EventoMouse::muovi : EventoMouse::premi,
                             ValoreIniziale(nome), ValoreIniziale(testo));
        }
    }
    void Recita(const std::string& copione) {
        std::istringstream comandi(copione);
        for (std::string k; std::getline(comandi, k, ';');) {
            SCOPED_TRACE(k);
            k = Taglia(k);
            const bool rifiuto = k[0] == '!';
            if (rifiuto) k.erase(0, 1);
            const std::string cosa = EstraiCampo(k);
            if (cosa == "bulloni" || cosa == "pila") {
                std::string aperti;
                for (const std::string& nome : s->pila)
                    aperti += (aperti.empty() ? "" : " ") + nome;
                EXPECT_EQ(cosa == "pila" ? aperti : Bulloni(), k);
                continue;
            }
            const std::string nome = EstraiCampo(k);
            if (cosa == "=") {
                EXPECT_EQ(C(nome).testo, k);
            } else if (cosa == "#") {
                EXPECT_EQ(C(nome).valore, std::stoi(k));
            } else if (cosa == "+" || cosa == "-") {
                EXPECT_EQ(C(nome).visibile, cosa == "+");
            } else {
                const std::string perche = Chiedi(cosa.at(0), nome, k);
                EXPECT_EQ(!perche.empty(), rifiuto) << perche;
            }
        }
    }
    // Bolts of the joint in a row of step 1, M12, and the panel open.
    void ConBulloni(int n) {
        s->nodo.nBull = static_cast<short>(n);
        for (int i = 1; i <= n; ++i) {
            s->nodo.Xbull(i) = i;
            s->nodo.Ybull(i) = 2 * i;
            s->nodo.Fibull(i) = 12;
        }
        Recita("P DefBulloni");
    }
};

TEST(Schema, AClickFlagsItsFieldUntilTheTimerFires) {
    Banco b;
    Sessione& s = b.S();
    const Pannello& p = s.InsDati;
    const int campi[] = {0, 3, 6, 10, 14};
    for (int i = 0; i < 5; ++i) {
        for (const char* casella : {"CheckNervatura1", "CheckNervatura2"}) {
            EXPECT_EQ(ImpostaCasella(s, casella, 0), "");
        }
        s.InsDati["SSTab"].valore = 0;
        ASSERT_EQ(Clic(s, ConIndice("LabPiastre", i)), "");
        EXPECT_EQ(p["SSTab"].valore, 1);
        EXPECT_TRUE(p["Timer2"].abilitato);
        EXPECT_EQ(p["CheckNervatura1"].valore, i == 2 ? 1 : 0);
        EXPECT_EQ(p["CheckNervatura2"].valore, i == 3 ? 1 : 0);
        EXPECT_EQ(s.nodo.AttNerv(1), i == 2);
        EXPECT_EQ(s.nodo.AttNerv(2), i == 3);
        EXPECT_EQ(p["GeoPias(9)"].abilitato, i == 2);
        for (int k = 0; k < 5; ++k) {
            const Controllo& c = p[ConIndice("GeoPias", campi[k])];
            EXPECT_EQ(c.sfondo, k == i ? 255UL : 0x80000005UL) << i << k;
            EXPECT_EQ(c.colore, k == i ? 0xFFFFFFUL : 0x80000008UL) << i << k;
        }
        EXPECT_TRUE(p[ConIndice("GeoPias", campi[i])].abilitato);
        const auto prima = std::make_unique<Nodo>(s.nodo);
        EXPECT_EQ(Timer(s, "Timer2"), "");
        EXPECT_EQ(p[ConIndice("GeoPias", campi[i])].sfondo, 0x80000005UL);
        EXPECT_EQ(p[ConIndice("GeoPias", campi[i])].colore, 0x80000008UL);
        EXPECT_TRUE(prova::Uguali(s.nodo, *prima));
        EXPECT_EQ(Mouse(s, ConIndice("LabPiastre", i), EventoMouse::muovi, 0, 0), "");
        for (int k = 0; k < 5; ++k) {
            EXPECT_EQ(p[ConIndice("LabPiastre", k)].sottolineato, k == i);
        }
    }
    EXPECT_EQ(Mouse(s, "Picture2", EventoMouse::muovi, 0, 0), "");
    EXPECT_FALSE(p["LabPiastre(4)"].sottolineato);
    EXPECT_EQ(p["LabPiastre(4)"].colore, 0xFFFFFFUL);
    EXPECT_NE(Clic(s, "LabPiastre(5)"), "");
}

// S 235: fyk 235 and 215 N/mm2, gammaM 1.05 and 1.25, 160 allowable (CNR 10011). 8.8: 640 and 800,
// gamma 1.25, 373 and 264 allowable. Case II: x 1.125. daN/cm2 with 1 decimal, N/mm2 with 2, halves
// to even.
TEST(PropMateriali, LabelsByHandInBothUnits) {
    const std::string casi =
        "Unit [daN/cm2] [N/mm2] fkLabel 2350 235 gMLabel 1.05 1.05 gMTLabel 1.25 1.25 "
        "fdLabel 2238.1 223.81 fdtLabel 1880 188 fd40Label 2047.6 204.76 fdt40Label 1720 172 "
        "SAmmILabel 1600 160 SAmmIILabel 1800 180 fyVitiLabel 6400 640 gMVitiLabel 1.25 1.25 "
        "fydVitilabel 5120 512 ftVitiLabel 8000 800 ftdVitiLabel 6400 640 SAmmIVitiLabel 3730 373 "
        "SAmmIIVitiLabel 4196.2 419.62 TauAmmIVitiLabel 2640 264 TauAmmIIVitiLabel 2970 297";
    Banco b;
    Sessione& s = b.S();
    const Pannello& p = s.PropMateriali;
    for (const bool newton : {false, true}) {
        if (newton) LeggiParametriLavoro(b.radice + "/lavori/unitkn/parametrilavoro", s.unita);
        ImpostaUnita(s.unita);
        b.Recita("P PropMatButton");
        std::istringstream righe(casi);
        for (std::string nome, daN, N; righe >> nome >> daN >> N;) {
            EXPECT_EQ(Taglia(p[nome].testo), newton ? N : daN) << nome;
        }
        EXPECT_EQ(p["FrameAcc"].testo,
                  "Acciaio profili e piastre - [NTC08 11.3.4.1] - Tipo S 235 (FE 360)");
        EXPECT_EQ(p["FrameBull"].testo, "Bulloni - [NTC08 11.3.4.6.1] - Classe 8.8");
        for (const char* cornice : {"FrameAccPia", "FrameTir", "FrameCls"}) {
            EXPECT_FALSE(p[cornice].visibile) << cornice;
        }
        EXPECT_TRUE(p["FrameAcc"].visibile && p["FrameBull"].visibile);
        b.Recita("P Chiudi");
        EXPECT_FALSE(s.fine);
    }
    // S 450 and the classes follow the lists while the panel stands open: 440 / 1.05, no allowable
    b.Recita("P PropMatButton");
    EXPECT_EQ(ScegliVoce(s, "Cb_Acciaio", "S 450"), "");
    EXPECT_EQ(ScegliVoce(s, "Cviti", "10.9"), "");
    EXPECT_EQ(p["fdLabel"].testo, "419.05");
    EXPECT_EQ(p["SAmmIILabel"].testo, "0");
    EXPECT_EQ(p["ftdVitiLabel"].testo, "800");
    s.nodo.acciaio.Fyk80 = -1;
    s.nodo.acciaio.Fyk40 = 0;
    s.nodo.vite.SammVite = -0.5;
    b.Recita("P Chiudi");
    b.Recita("P PropMatButton");
    EXPECT_EQ(p["fd40Label"].testo, "-");
    EXPECT_EQ(p["fdt40Label"].testo, "-");
    EXPECT_EQ(p["fdLabel"].testo, "0");
    EXPECT_EQ(p["SAmmIIVitiLabel"].testo, "-");
}

TEST(FormBulloni, MouseWindowOfNineAndScrollBar) {
    Banco b;
    const Sessione& s = b.S();
    // A press that is not awaited does nothing; points go on a grid of 5, halves away from zero.
    b.Recita(
        "P DefBulloni; = DiamProponi 12; - Lbul(0); - Scroll1; Q 50 50; bulloni ;"
        "W DiamProponi 14.5 mm; M 12.5 -12.5");
    EXPECT_EQ(b.C("DisBulloni").suggerimento, "15, -15");
    b.Recita(
        "P Singolo; Q 12.4 -12.5; Q 90 90;"
        "bulloni 10 -15; = Fibul(0) 14.5");
    EXPECT_EQ(s.FormBulloni.titolo, "Definisci bulloni");
    EXPECT_EQ(s.FormBulloni["LabelX"].colore, 255UL);
    for (int i = 2; i <= 12; ++i) {
        EXPECT_EQ(b.C("Scroll1").visibile, i > 10);
        b.Recita("P Singolo; Q " + std::to_string(10 * i) + " " + std::to_string(5 * i));
    }
    EXPECT_EQ(b.C("Scroll1").minimo, 1);
    EXPECT_EQ(b.C("Scroll1").massimo, 4);
    // The number in the row leads to the bolt; these fields read the leading number.
    b.Recita(
        "# Scroll1 1; !S Scroll1 0; !S Scroll1 5; S Scroll1 4; = Lbul(0) 4; = Xbul(8) 120;"
        "E Fibul(0) 16mm; W Ybul(8) -.5x; W Xbul(7) pippo; B Check_Bul(8) 1");
    EXPECT_EQ(s.bulloni.FibullTemp(4), 16);
    EXPECT_EQ(s.bulloni.XbullTemp(11), 0);
    b.Recita(
        "D Lbul(7); # Scroll1 1; = Lbul(0) 1; !S Scroll1 4; S Scroll1 3; = Lbul(8) 11;"
        "= Xbul(8) 120; = Ybul(8) -.5; # Check_Bul(8) 1; # Check_Bul(7) 0;"
        "P Rimuovi; + Scroll1; P Rimuovi; - Scroll1; + Lbul(8)");
    EXPECT_EQ(s.nodo.nBull, 0);  // nothing has reached the joint
    b.Recita("P MatBulOK");
    EXPECT_EQ(s.nodo.nBull, 9);
    EXPECT_EQ(s.nodo.Fibull(4), 16);
}

TEST(FormBulloni, Key27LeavesTheCountedBoltWithWhatItsSlotHeld) {
    Banco b;
    b.ConBulloni(2);
    b.Recita(
        "P Rimuovi; P Singolo; K DiamProponi 20; Q 70 70; bulloni 1 2|2 4; = Xbul(1) 2;"
        "= Fibul(1) 12");
}

TEST(FormBulloni, BulkEditsThenAnnullaRestoresAndOkCopies) {
    Banco b;
    const Sessione& s = b.S();
    b.ConBulloni(3);
    const auto prima = std::make_unique<Nodo>(s.nodo);
    // Doubles only once the diameters are equal as well; of two the higher number goes.
    const char* modifiche =
        "bulloni 1 2|2 4|3 6; B Check_Bul(0) 1; B Check_Bul(2) 1; W Tb_deltaX  1.5e1 ;"
        "W Tb_deltaY -2; P Bul_copiaX; bulloni 1 2*|2 4|3 6*|16 2|18 6;"
        "P Bul_copiaY; bulloni 1 2*|2 4|3 6*|16 2|18 6|1 0|3 4;"
        "P Bul_traslaX; bulloni 16 2*|2 4|18 6*|16 2|18 6|1 0|3 4;"
        "P Bul_traslaY; bulloni 16 0*|2 4|18 4*|16 2|18 6|1 0|3 4;"
        "W Tb_deltaY 2; P Bul_traslaY; W Tb_diam 16; P Bul_cambiaDiam; P Bul_elimDoppi;"
        "bulloni 16 2*|2 4|18 6*|16 2|18 6|1 0|3 4; P Bt_SelTutti; P Bul_cambiaDiam;"
        "P Bt_deselTutti; P Bul_elimDoppi; bulloni 16 2|2 4|18 6|1 0|3 4; = Fibul(4) 16;"
        "- Lbul(5); B Check_Bul(1) 1; B Check_Bul(4) 1";
    b.Recita(modifiche);
    b.Recita("P MatBulAnn; pila InsDati");
    EXPECT_TRUE(prova::Uguali(s.nodo, *prima));
    EXPECT_EQ(s.nodo.SelBull, prima->SelBull);
    b.Recita("P DefBulloni");
    b.Recita(modifiche);
    b.Recita("P MatBulOK");
    EXPECT_EQ(s.nodo.nBull, 5);
    EXPECT_EQ(s.nodo.Xbull(3), 18);
    EXPECT_EQ(s.nodo.Ybull(3), 6);
    EXPECT_EQ(s.nodo.Fibull(5), 16);
    b.porta.risposte = {Risposta::Annulla};
    b.Recita(  // the selection survives; with no bolts nothing happens, not even a reading
        "P DefBulloni; bulloni 16 2|2 4*|18 6|1 0|3 4*; # Check_Bul(4) 1;"
        "P Bul_RimuoviSel; bulloni 16 2|18 6|1 0; P RimuoviT; bulloni 16 2|18 6|1 0;"
        "P RimuoviT; bulloni ; W Tb_deltaX non numero; P Bul_copiaX; P Bul_traslaX;"
        "P Bt_SelTutti; P Bul_RimuoviSel; P Rimuovi; P Bul_elimDoppi; bulloni ");
    EXPECT_EQ(b.porta.Testi(), std::vector<std::string>(2, "Rimuovere tutti i bulloni?"));
    EXPECT_EQ(b.porta.detti[0].titolo, "TK07 - NODO TRAVE - TRAVE CON PIASTRE");
    EXPECT_EQ(b.porta.detti[0].segno, Segno::domanda);
    EXPECT_EQ(b.porta.detti[0].pulsanti, Pulsanti::OKAnnulla);
    EXPECT_FALSE(s.fine);
}

// Exit code, recovery file with the joint as confirmed, one critical box behind any other.
void AttendiFatale(Banco& b, const Nodo& prima, const std::string& dove) {
    const Sessione& s = b.S();
    EXPECT_TRUE(s.fine);
    EXPECT_EQ(s.codiceUscita, 70);
    const std::string recupero = b.radice + "/temp/TK07_recupero.tk7";
    ASSERT_FALSE(b.porta.detti.empty());
    EXPECT_EQ(b.porta.detti.back().segno, Segno::critico);
    for (const std::string& pezzo : {dove, recupero}) {
        EXPECT_TRUE(Contiene(b.porta.detti.back().testo, pezzo)) << b.porta.detti.back().testo;
    }
    EXPECT_TRUE(prova::Uguali(s.nodo, prima));
    const auto letto = std::make_unique<Nodo>();
    ASSERT_TRUE(LeggiFileNodo(*letto, recupero, PiattaformaMuta()));
    EXPECT_TRUE(prova::Uguali(*letto, prima));
}

TEST(FormBulloni, ADistanceThatIsNoNumberIsFatal) {
    for (const auto& [campo, testo, pulsante] : {std::tuple{"Tb_deltaX", "1,5", "Bul_traslaX"},
                                                 {"Tb_deltaX", "", "Bul_copiaX"},
                                                 {"Tb_deltaY", "5 mm", "Bul_copiaY"},
                                                 {"Tb_deltaY", "nan", "Bul_traslaY"},
                                                 {"Tb_diam", "M12", "Bul_cambiaDiam"}}) {
        Banco b;
        b.ConBulloni(2);
        const auto prima = std::make_unique<Nodo>(b.S().nodo);
        b.Recita("P Bt_SelTutti; P Singolo; W " + std::string(campo) + " " + testo);
        EXPECT_FALSE(b.S().fine);
        b.Recita(std::string("P ") + pulsante);
        AttendiFatale(b, *prima, campo);
    }
}

TEST(FormBulloni, WarnsFrom95AndThe101stIsFatal) {
    Banco b;
    b.ConBulloni(94);
    b.Recita("= Help ; P Singolo");
    EXPECT_TRUE(Contiene(b.C("Help").testo, "95"));
    b.Recita("Q 0 0");
    EXPECT_TRUE(Contiene(b.C("Help").testo, "95"));
    b.Recita("P MatBulOK; P DefBulloni");
    EXPECT_TRUE(Contiene(b.C("Help").testo, "95"));
    b.Recita("P Rimuovi; = Help ; T Timer1");
    EXPECT_NE(b.C("Help").testo, "");
    EXPECT_FALSE(b.C("Timer1").abilitato);
    b.Recita("M 0 0; = Help ");
    for (const char* via : {"Singolo", "Bul_copiaX", "Bul_copiaY", "Proponi"}) {
        SCOPED_TRACE(via);
        Banco f;
        f.ConBulloni(99);
        f.Recita("P Singolo; Q 35 70; P MatBulOK; P DefBulloni; B Check_Bul(0) 1");
        EXPECT_EQ(f.S().nodo.nBull, 100);
        const auto prima = std::make_unique<Nodo>(f.S().nodo);
        f.Recita(std::string("P ") + via);
        AttendiFatale(f, *prima, "100 bulloni");
    }
}

// Colours 0, Fori 1: rows of every kind, for this program, for another one, with fields missing.
std::string FileOpzioni(const std::vector<std::string>& righe) {
    std::string t = "2\nColori\nForature\xE0\n" + std::to_string(righe.size() + 24) + "\n";
    for (const std::string& r : righe) t += r + "\n";
    for (int i = 0; i < 24; ++i) t += "7.50|TEXT|TK07|1|Riga " + std::to_string(i) + "\n";
    return t;
}

const std::vector<std::string> kRighe = {"1|LABC||0|Contorni",
                                         "0.70|TEXT||0|Rapporto",
                                         "3.0|TEXT|TK01|0|Passo \xE8",
                                         "1|CHECK|TK01/TK07|1|Sezioni|altro",
                                         "1|OPTI2||1|Terminale;cerchio;freccia;barra",
                                         "2|TEXT||1|Tolleranza",
                                         "5|TEXT"};

struct BancoOpzioni : Banco {
    std::string file = radice + "/custom/OpzioniNodi.txt";
    void Prepara(const std::vector<std::string>& righe) {
        prova::ScriviTesto(file, FileOpzioni(righe));
        ASSERT_TRUE(LeggiOpzioni(file, s->opz, s->piattaforma));
        Recita("P Opz");
    }
};

TEST(FormOpz_Cond, ControlsOfThisProgramByGroup) {
    BancoOpzioni b;
    b.Prepara(kRighe);
    EXPECT_EQ(b.C("ListaGruppi").voci, (std::vector<std::string>{"Colori", "Forature\u00E0"}));
    const std::string primo = "+ LabP0;+ LabColP0;+ TextP1;+ LabP6;+ TextP6;",
                      secondo = "- checkP3;- FrameP4;- OptP4_0;- OptP4_2;- TextP5;- TextP30;",
                      scambia =
                          SostituisciTesto(SostituisciTesto(primo + secondo, "- ", "* "), "+", "-");
    b.Recita("V ListaGruppi 1;" + SostituisciTesto(scambia, "*", "+") + "!W TextP1 3;" +
             "V ListaGruppi 0;" + primo + secondo + "+ OpzOK; !W TextP5 3; !W TextP2 3;" +
             "= LabP6 $$$; = TextP5 2; # checkP3 1; # LabColP0 1; # OptP4_0 0; # OptP4_1 1;" +
             "= OptP4_1 freccia; = FrameP4 Terminale");
    for (const char* n : {"LabP2", "TextP2", "OptP4_3", "TextP31"}) {
        EXPECT_FALSE(b.S().FormOpz_Cond.Ha(n)) << n;
    }
}

TEST(FormOpz_Cond, SavesTheChangedValuesOnly) {
    BancoOpzioni b;
    b.Prepara(kRighe);
    const std::string prima = prova::LeggiTesto(b.file);
    b.Recita("P OpzOK");  // nothing touched: not a byte changes
    EXPECT_EQ(prova::LeggiTesto(b.file), prima);
    const char* modifiche =
        "P Opz; # LabColP0 1; C LabColP0; pila InsDati FormOpz_Cond FormColori; P ColoriAnnulla;"
        "# LabColP0 1; C LabColP0; P Colore(4); pila InsDati FormOpz_Cond; # LabColP0 4;"
        "V ListaGruppi 1; B checkP3 0; # OptP4_1 1; O OptP4_2; # OptP4_1 0; W TextP5 2.5 mm";
    b.Recita(modifiche);
    b.Recita("P OpzAnnulla");
    EXPECT_EQ(prova::LeggiTesto(b.file), prima);
    EXPECT_EQ(b.S().opz.ValOpz(kOpzTollForo), 2);
    // A file that may not be written: told, and the session goes on with the new values.
    b.Recita(modifiche);
    fs::permissions(b.file, fs::perms::owner_read);
    b.Recita("P OpzOK");
    ASSERT_EQ(b.porta.detti.size(), 1u);
    EXPECT_EQ(b.porta.detti[0].testo.rfind("Non è possibile salvare il file delle opzioni", 0), 0u);
    EXPECT_EQ(prova::LeggiTesto(b.file), prima);
    EXPECT_FALSE(b.S().fine);
    EXPECT_EQ(b.S().opz.ValOpz(kOpzTollForo), 2.5);
    fs::permissions(b.file, fs::perms::owner_read | fs::perms::owner_write);
    b.Recita("P Opz; P OpzOK");
    std::vector<std::string> attese = kRighe;
    attese[0] = "4|LABC||0|Contorni";
    attese[3] = "0|CHECK|TK01/TK07|1|Sezioni|altro";
    attese[4] = "2|OPTI2||1|Terminale;cerchio;freccia;barra";
    attese[5] = "2.5|TEXT||1|Tolleranza";
    EXPECT_EQ(prova::LeggiTesto(b.file), FileOpzioni(attese));
    const double valori[] = {4, .7, 3, 0, 2, 2.5, 5, 7.5};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(b.S().opz.ValOpz(i), valori[i]) << i;
}

// A colour number is a number of any size: one beyond 16 bits shows and stays.
TEST(FormOpz_Cond, AColourNumberBeyond16Bits) {
    BancoOpzioni b;
    std::vector<std::string> righe = kRighe;
    righe[0] = "16711680|LABC||0|Contorni";
    b.Prepara(righe);
    ASSERT_FALSE(b.S().fine) << b.porta.detti.at(0).testo;
    b.Recita("= LabColP0 16711680; P OpzOK");
    EXPECT_EQ(prova::LeggiTesto(b.file), FileOpzioni(righe));
}

TEST(Pila, ANameGoesToTheTopmostPanelAndAClosedOneRefuses) {
    Banco b;
    Sessione& s = b.S();
    EXPECT_TRUE(Contiene(PremiPulsante(s, "MatBulOK", "FormBulloni"), "FormBulloni"));
    EXPECT_NE(ScriviCampo(s, "Tb_deltaX", "1", 0, "FormBulloni"), "");
    EXPECT_NE(Mouse(s, "DisBulloni", EventoMouse::premi, 1, 1, "FormBulloni"), "");
    b.Recita(
        "!P MatBulOK; !P Singolo; !P OpzOK; !P Colore(1); !P Cerca; !P Cerca(0); !T Timer1;"
        "P DefBulloni; P Singolo; !W Xbul(1) 4; !P Tb_deltaX; P MatBulAnn; !P MatBulAnn");
    EXPECT_EQ(s.nodo.nBull, 0);
    // The search of the upper panel reads the list of the one below.
    b.Recita(
        "P ImpS3D; !P Cerca; P Cerca(0); pila InsDati Soll3D selezione; W NodiTxt 1-; P Cerca");
    EXPECT_EQ(b.porta.Testi(), std::vector<std::string>{"Inserimento dati errato"});
    b.Recita(
        "P PropMatButton; P Chiudi; pila InsDati Soll3D selezione; P Chiudi; pila InsDati Soll3D;"
        "P Chiudi; pila InsDati");
    EXPECT_FALSE(s.fine);
    b.Recita("P Chiudi");
    EXPECT_TRUE(s.fine);
    EXPECT_EQ(s.codiceUscita, 0);
}

}  // namespace
}  // namespace tk07
