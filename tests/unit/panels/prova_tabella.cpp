#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "joint/tabella_carichi.h"

namespace tk07 {
namespace {

// One load set: N, Ty, Tz, Mt, My, Mz.
struct Riga {
    std::array<double, 6> a{};
    short caso = 0;
    std::string nome;
    bool operator==(const Riga&) const = default;
};
using Righe = std::vector<Riga>;

Riga Sest(const char* nome, double N, double altre, short caso = 0) {
    return {{N, altre, altre, altre, altre, altre}, caso, nome};
}

// Column of the joint for every action, named here once more so that a swap in the code shows.
constexpr std::array kColonne = {&Nodo::SforzoNormale, &Nodo::TaglioY, &Nodo::TaglioZ,
                                 &Nodo::MomTorc,       &Nodo::MomY,    &Nodo::MomZ};

void Metti(Nodo& n, const Righe& v) {
    n.nSollAg = static_cast<short>(v.size());
    for (std::size_t k = 0; k < v.size(); ++k) {
        for (std::size_t a = 0; a < 6; ++a) (n.*kColonne[a])(static_cast<long>(k)) = v[k].a[a];
        n.CasoCarico(static_cast<long>(k)) = v[k].caso;
        n.NomeSa(static_cast<long>(k)) = v[k].nome;
    }
}

Righe Prendi(const Nodo& n) {
    Righe v(static_cast<std::size_t>(n.nSollAg));
    for (std::size_t k = 0; k < v.size(); ++k) {
        for (std::size_t a = 0; a < 6; ++a) v[k].a[a] = (n.*kColonne[a])(static_cast<long>(k));
        v[k].caso = n.CasoCarico(static_cast<long>(k));
        v[k].nome = n.NomeSa(static_cast<long>(k));
    }
    return v;
}

std::string Nomi(const Nodo& n) {
    std::string t;
    for (const Riga& r : Prendi(n)) t += r.nome;
    return t;
}

// Traced by hand: i from 1, j from 0, the one found as j goes and the search starts again.
TEST(EliminaDoppiSoll, OfAPairTheOneFoundSecondGoes) {
    const std::pair<Righe, const char*> casi[] = {
        {Righe{}, ""},
        {{Sest("a", 0, 0)}, "a"},  // a lone set of zeros is no double of a slot out of use
        {{Sest("a", 1, 0), Sest("b", 1, 0), Sest("c", 1, 0)}, "c"},
        {{Sest("d", 2, 0), Sest("a", 1, 0), Sest("b", 1, 0), Sest("c", 1, 0)}, "da"},
        {{Sest("a", 1, 0), Sest("b", 2, 0), Sest("A", 1, 0), Sest("B", 2, 0)}, "bA"},
        {{Sest("a", 1, 0), Sest("b", 2, 0), Sest("c", 3, 0), Sest("A", 1, 0), Sest("C", 3, 0)},
         "bcA"},
        {{Sest("a", 0, 0, 0), Sest("b", 0, 0, 1)}, "ab"},
        {{Sest("a", 0, 0), Sest("b", 0.0001, 0)}, "ab"},  // strictly less
        {{Sest("a", 0, 0), Sest("b", 0.00008, 0), Sest("c", 0.00016, 0)}, "c"},
        {{Sest("a", 0, 1e6), Sest("b", 0, 1e6 + 0.001)}, "ab"}};  // absolute, not relative
    for (const auto& [prima, dopo] : casi) {
        const auto n = std::make_unique<Nodo>();
        Metti(*n, prima);
        EXPECT_EQ(EliminaDoppiSoll(*n), prima.size() != std::string(dopo).size()) << dopo;
        EXPECT_EQ(Nomi(*n), dopo);
    }
}

// The search told plainly: from the top for every set, once more after each removal.
void TogliDoppi(Righe& v) {
    const auto simili = [](const Riga& x, const Riga& y) {
        bool s = x.caso == y.caso;
        for (std::size_t a = 0; a < 6; ++a) s = s && std::fabs(x.a[a] - y.a[a]) < 0.0001;
        return s;
    };
    for (std::size_t i = 1; i < v.size(); ++i) {
        for (std::size_t j = 0; j < v.size(); ++j) {
            if (i == j || !simili(v[i], v[j])) continue;
            v.erase(v.begin() + static_cast<std::ptrdiff_t>(j));
            i = 0;
            break;
        }
    }
}

// Values a little less than the tolerance apart, so that being alike is not passed on.
TEST(EliminaDoppiSoll, RandomTablesEndAsThePlainSearch) {
    std::mt19937 g(3);
    const auto fino = [&](int n) { return std::uniform_int_distribution<int>(0, n)(g); };
    const auto n = std::make_unique<Nodo>();
    for (int giro = 0; giro < 400; ++giro) {
        const bool grande = giro >= 390;
        const int quanti = grande ? 492 + giro % 10 : fino(40), valori = grande ? 200 : fino(12);
        Righe v;
        for (int k = 0; k < quanti; ++k) {
            const double N = fino(20) == 0 ? std::nan("") : 0.00006 * fino(valori);
            v.push_back(Sest(std::to_string(k).c_str(), N, fino(2), static_cast<short>(fino(1))));
        }
        Metti(*n, v);
        TogliDoppi(v);
        EXPECT_EQ(EliminaDoppiSoll(*n), static_cast<int>(v.size()) != quanti);
        std::string attesi;
        for (const Riga& r : v) attesi += r.nome;
        ASSERT_EQ(Nomi(*n), attesi) << giro;
        for (int k = n->nSollAg; k <= std::min(quanti, 500) && n->nSollAg < quanti; ++k) {
            ASSERT_TRUE(n->NomeSa(k).empty() && n->SforzoNormale(k) == 0 && n->TaglioY(k) == 0 &&
                        n->CasoCarico(k) == 0);
        }
    }
}

TEST(VagliaMaxMinSoll, SlotPairsInTheImportsOrder) {
    const auto n = std::make_unique<Nodo>();
    PreparaMaxMinSoll(*n);
    //                     N  Tz Ty Mt My Mz
    VagliaMaxMinSoll(*n, 1, 2, 3, 4, 5, 6, "U");
    EXPECT_EQ(Nomi(*n), "UUUUUUUUUUUU");
    VagliaMaxMinSoll(*n, -1, -2, 9, 4, -5, 7, "V");
    //                   N Tz Ty My Mz Mt, maximum and minimum; Mt is a tie
    EXPECT_EQ(Nomi(*n), "UVUVVUUVVUUU");
    EXPECT_EQ(Prendi(*n)[4], (Riga{{-1, 9, -2, 4, -5, 7}, 0, "V"}));
    EXPECT_EQ(Prendi(*n)[11], (Riga{{1, 3, 2, 4, 5, 6}, 0, "U"}));
}

TEST(TabellaCarichi, CodesRemovalAndTheLastSlot) {
    const auto n = std::make_unique<Nodo>();
    const std::string testi[] = {"zero", "uno"};
    for (int c = 1; c <= 6; ++c) ImpostaSoll(*n, 10.0 * c, c, 500);
    ImpostaSoll(*n, 1, 7, 500, testi);
    for (std::size_t a = 0; a < 6; ++a) {
        EXPECT_EQ((n.get()->*kColonne[a])(500), 10.0 * static_cast<double>(a + 1));
        EXPECT_EQ(ValoreSoll(*n, static_cast<int>(a) + 1, 500), (n.get()->*kColonne[a])(500));
    }
    EXPECT_EQ(n->NomeSa(500), "uno");
    EXPECT_THROW(ValoreSoll(*n, 1, 501), ErroreFatale);
    EXPECT_THROW(ValoreSoll(*n, 7, 0), ErroreFatale);
    SaScambio_(*n, 3, 500);
    SaAzzera_(*n, 500);
    EXPECT_EQ(n->TaglioY(3), 20);
    EXPECT_EQ(n->MomZ(500), 0);
    EXPECT_EQ(n->NomeSa(500), "uno");  // the description stays

    Righe piena;  // all 501 slots: there is none behind the last
    for (int k = 0; k <= 500; ++k) piena.push_back(Sest("", k, -k, static_cast<short>(k % 2)));
    Metti(*n, piena);
    RimozioneSoll(*n, 200);
    piena.erase(piena.begin() + 200);
    EXPECT_EQ(Prendi(*n), piena);
    RimuoviSestetto(*n, 499);
    piena.pop_back();
    EXPECT_EQ(Prendi(*n), piena);
}

// 1 kN = 100 daN, 1 kN*m = 10000 daN*cm.
TEST(EsportaSoll, FileInTheJobsUnits) {
    prova::SessioneDiProva p;
    Sessione& s = *p.s;
    LeggiParametriLavoro(p.radice + "/lavori/unitkn/parametrilavoro", s.unita);
    ImpostaUnita(s.unita);
    Metti(s.nodo, {{{1250, -7, 0, 10000, -25000, 50}, 0, "  Neve è \t"},
                   {{100000000, .5, 1, 2, 1e9, -.5}, 1, ""}});
    pnn1_aggiorna_sollecitazioni(s, 0);
    const std::string file = (p.cartella / "soll.txt").string();
    prova::ScriviTesto(file, "prima");
    EXPECT_EQ(PremiPulsante(s, "EsportaSollButt"), "");  // cancelled
    EXPECT_EQ(prova::LeggiTesto(file), "prima");
    EXPECT_TRUE(p.porta.detti.empty());
    const RichiestaFile& r = p.porta.dialoghi.at(0);
    EXPECT_EQ(r.modo, ModoFile::salva);
    EXPECT_EQ(r.estensione, "txt");
    EXPECT_EQ(r.filtro, "File di testo (*.txt)|*.txt|Tutti i file (*.*)|*.*");
    EXPECT_EQ(SostituisciTesto(r.nomeIniziale, "\\", "/"), p.Lavoro() + "/Soll_Tk07.txt");
    EXPECT_TRUE(r.chiediSovrascrittura);

    p.porta.file.push_back({file, 1});
    EXPECT_EQ(PremiPulsante(s, "EsportaSollButt"), "");
    const std::string testa =
        "Unit\xE0 di misura: \tkN\tm\nses\tdescr.Ses.\tN\tTy\tTz\tMt\tMy\tMz\n";
    EXPECT_EQ(prova::LeggiTesto(file), testa +
                                           "1\tNeve \xE8\t12.5\t-0.07\t0\t1\t-2.5\t0.005\n"
                                           "2\t\t1000000\t0.005\t0.01\t0.0002\t100000\t-0.00005\n");
    ASSERT_TRUE(EsportaSollecitazioni(
        s.nodo, s.unita, file, {true, false, false, true, false, false}, 1, 0, s.piattaforma));
    EXPECT_EQ(prova::LeggiTesto(file), testa + "1\tNeve \xE8\t12.5\t0\t0\t1\t0\t0\n");

    // A file that may not be written keeps its contents.
    const std::string prima = prova::LeggiTesto(file);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    for (const std::string& dove : {file, (p.cartella / "manca/soll.txt").string()}) {
        p.porta.detti.clear();
        p.porta.file.push_back({dove, 1});
        EXPECT_EQ(PremiPulsante(s, "EsportaSollButt"), "");
        ASSERT_EQ(p.porta.detti.size(), 1u);
        EXPECT_EQ(
            p.porta.detti[0].testo.rfind("Impossibile esportare le sollecitazioni in " + dove, 0),
            0u);
        EXPECT_EQ(p.porta.detti[0].segno, Segno::critico);
    }
    EXPECT_EQ(prova::LeggiTesto(file), prima);
    EXPECT_FALSE(std::filesystem::exists(p.cartella / "manca"));
}

// The table as a plain list, with the first row of the window.
struct Modello {
    Righe v;
    int prima = 0, etichetta = 0;  // first set shown; number that stands in the first row

    int N() const { return static_cast<int>(v.size()); }
    void Mostra(int q) {
        if (q < 0 && N() > 0) q = etichetta - 1;
        prima = std::max(0, std::min(q, N() - 5));
        if (prima < N()) etichetta = prima + 1;
    }
    bool Doppi() {
        const auto uguali = [](const Riga& x, const Riga& y) {
            return x.caso == y.caso && x.a == y.a;
        };
        for (std::size_t i = 1; i < v.size(); ++i) {
            for (std::size_t j = 0; j < v.size(); ++j) {
                if (i == j || !uguali(v[i], v[j])) continue;
                v.erase(v.begin() + static_cast<long>(j));
                Doppi();
                return true;
            }
        }
        return false;
    }
    void MaxMin() {
        Doppi();
        Righe nuove;
        for (const short caso : {short{0}, short{1}}) {
            Righe f;
            std::copy_if(v.begin(), v.end(), std::back_inserter(f),
                         [&](const Riga& r) { return r.caso == caso; });
            for (std::size_t a = 0; a < 6 && !f.empty(); ++a) {
                const auto meno = [a](const Riga& x, const Riga& y) { return x.a[a] < y.a[a]; };
                nuove.push_back(*std::max_element(f.begin(), f.end(), meno));
                nuove.push_back(*std::min_element(f.begin(), f.end(), meno));
            }
        }
        v = nuove;
        Doppi();
    }
};

std::string Con(const char* base, int i) { return ConIndice(base, i); }

void Confronta(const Sessione& s, const Modello& m) {
    EXPECT_EQ(Prendi(s.nodo), m.v);
    const Pannello& p = s.InsDati;
    EXPECT_EQ(p["Lb_nrosol"].testo, std::to_string(m.N()));
    EXPECT_EQ(p["EsportaSollButt"].abilitato, m.N() >= 1);
    const Controllo& barra = p["VScrollSoll"];
    EXPECT_EQ(barra.abilitato, m.N() > 5);
    EXPECT_EQ(barra.valore, m.prima);
    EXPECT_EQ(barra.massimo, std::max(0, m.N() - 5));
    for (int r = 0; r < 5; ++r) {
        const bool c = m.prima + r < m.N();
        const char* campi[] = {"TxtSN", "TxtTy", "TxtTz", "TxtMt", "TxtMy", "TxtMz"};
        for (const char* base : {"Lb_sol_num", "Tb_sol_descr", "CasCar", "TxtSN", "TxtMz"}) {
            EXPECT_EQ(p[Con(base, r)].visibile, c) << base << r;
        }
        if (!c) continue;
        const Riga& q = m.v[static_cast<std::size_t>(m.prima + r)];
        EXPECT_EQ(p[Con("Lb_sol_num", r)].testo, std::to_string(m.prima + r + 1));
        EXPECT_EQ(p[Con("Tb_sol_descr", r)].testo, q.nome);
        EXPECT_EQ(p[Con("CasCar", r)].valore, q.caso);
        for (std::size_t a = 0; a < 6; ++a) {
            EXPECT_EQ(p[Con(campi[a], r)].testo, std::to_string(static_cast<int>(q.a[a])));
        }
    }
}

// Job in daN and cm. Few different values, so that ties and doubles are frequent.
TEST(PannelloCarichi, AnySequenceEqualsThatOnAPlainList) {
    prova::SessioneDiProva p;
    Sessione& s = *p.s;
    ASSERT_EQ(ScegliOpzione(s, "TipoVer(0)"), "");
    std::mt19937 caso(20260307);
    const auto tira = [&](int n) { return static_cast<int>(caso() % static_cast<unsigned>(n)); };
    Modello m;
    int massimo = 0;
    for (int passo = 0; passo < 4000 && !testing::Test::HasFailure(); ++passo) {
        const int cosa = tira(100);
        const int righe = std::min(5, m.N()), r = righe > 0 ? tira(righe) : -1;
        const auto k = static_cast<std::size_t>(m.prima + r);
        const bool annulla = tira(2) == 0;
        SCOPED_TRACE("passo " + std::to_string(passo) + " cosa " + std::to_string(cosa));
        p.porta.detti.clear();
        p.porta.risposte.clear();
        if (annulla) p.porta.risposte.push_back(Risposta::Annulla);
        std::string esito;
        if (cosa < 25) {
            esito = PremiPulsante(s, "Bt_agg_sing_sol");
            m.v.push_back({{}, 0, "Soll " + std::to_string(m.N() + 1)});
            m.Mostra(m.N());
        } else if (cosa < 32) {
            esito = PremiPulsante(s, "RimuoviUltSoll");
            if (m.N() > 0) {
                m.v.pop_back();
                m.Mostra(m.N() - 1);
            }
        } else if (cosa < 34) {
            esito = PremiPulsante(s, "RimuoviTutteSoll");
            EXPECT_EQ(p.porta.detti.at(0).pulsanti, Pulsanti::OKAnnulla);
            EXPECT_EQ(p.porta.Prendi(),
                      "?|ATTENZIONE!|Rimozione totale dei dati relativi alle sollecitazioni "
                      "agenti?");
            if (!annulla) {
                m.v.clear();
                m.Mostra(-1);
            }
        } else if (cosa < 40 && r >= 0) {
            esito = DoppioClic(s, Con("Lb_sol_num", r));
            m.v.erase(m.v.begin() + static_cast<long>(k));
            m.Mostra(-1);
        } else if (cosa < 43) {
            esito = PremiPulsante(s, "RimuoviDoppieSoll");
            if (m.Doppi()) m.Mostra(-1);
        } else if (cosa < 46) {
            esito = PremiPulsante(s, "MaxMinSoll");
            EXPECT_TRUE(p.porta.HaDetto(
                "Questa operazione sceglie tra i sestetti di sollecitazione quelli che presentano "
                "il massimo ed il minimo di\nciascuna caratteristica associato alle relative altre "
                "(tali sestetti non rappresentano necessariamente le condizioni peggiori per il "
                "nodo in esame)"));
            EXPECT_EQ(p.porta.detti.at(0).titolo, "TK07 - NODO TRAVE - TRAVE CON PIASTRE");
            EXPECT_EQ(p.porta.detti[0].segno, Segno::informazione);
            EXPECT_EQ(p.porta.detti[0].pulsanti, Pulsanti::OKAnnulla);
            if (!annulla) {
                m.MaxMin();
                m.Mostra(-1);
            }
        } else if (cosa < 76 && r >= 0) {
            const auto a = static_cast<std::size_t>(tira(6));
            const char* campi[] = {"TxtSN", "TxtTy", "TxtTz", "TxtMt", "TxtMy", "TxtMz"};
            m.v[k].a[a] = tira(4) - 1;
            esito = ScriviCampo(s, Con(campi[a], r), std::to_string(static_cast<int>(m.v[k].a[a])),
                                tira(2) * 13);
        } else if (cosa < 82 && r >= 0) {
            m.v[k].caso = static_cast<short>(tira(2));
            esito = ImpostaCasella(s, Con("CasCar", r), m.v[k].caso);
        } else if (cosa < 90 && r >= 0) {
            m.v[k].nome = "n" + std::to_string(tira(50));
            esito = ScriviCampo(s, Con("Tb_sol_descr", r), m.v[k].nome, 0);
        } else if (m.N() > 5) {
            const int v = tira(m.N() - 4);
            esito = Scorri(s, "VScrollSoll", v);
            m.Mostra(v);
        }
        EXPECT_EQ(esito, "");
        massimo = std::max(massimo, m.N());
        Confronta(s, m);
    }
    EXPECT_GT(massimo, 15);  // the bar was worth having
}

TEST(PannelloCarichi, WindowAtTheEndOfTheBarLimitAndRefusals) {
    prova::SessioneDiProva p;
    Sessione& s = *p.s;
    const auto numeri = [&] {
        std::string t;
        for (int r = 0; r < 5; ++r) {
            const Controllo& c = s.InsDati[Con("Lb_sol_num", r)];
            if (c.visibile) t += c.testo;
        }
        return t;
    };
    EXPECT_EQ(PremiPulsante(s, "RimuoviUltSoll"), "");
    EXPECT_NE(DoppioClic(s, "Lb_sol_num(0)"), "");
    EXPECT_NE(PremiPulsante(s, "EsportaSollButt"), "");
    EXPECT_EQ(s.nodo.nSollAg, 0);
    for (int i = 0; i < 6; ++i) PremiPulsante(s, "Bt_agg_sing_sol");
    EXPECT_EQ(numeri(), "23456");
    EXPECT_EQ(DoppioClic(s, "Lb_sol_num(4)"), "");
    EXPECT_EQ(numeri(), "12345");
    EXPECT_EQ(Nomi(s.nodo), "Soll 1Soll 2Soll 3Soll 4Soll 5");
    EXPECT_FALSE(s.InsDati["CasCar(0)"].visibile);  // limit states: no load case
    while (s.nodo.nSollAg < 498) {
        const int prima = s.nodo.nSollAg;
        PremiPulsante(s, "Bt_agg_sing_sol");
        ASSERT_EQ(s.nodo.nSollAg, prima + 1);
    }
    EXPECT_TRUE(p.porta.detti.empty());
    PremiPulsante(s, "Bt_agg_sing_sol");
    EXPECT_EQ(s.nodo.nSollAg, 498);
    EXPECT_EQ(p.porta.Prendi(), "x|ERRORE|E' stato raggiunto il numero massimo di sollecitazioni.");
    EXPECT_NE(Scorri(s, "VScrollSoll", 494), "");
    EXPECT_EQ(Scorri(s, "VScrollSoll", 493), "");
    EXPECT_EQ(numeri(), "494495496497498");
    PremiPulsante(s, "RimuoviDoppieSoll");  // all zeros: the last stays
    EXPECT_EQ(Nomi(s.nodo), "Soll 498");
    EXPECT_EQ(numeri(), "1");
}

}  // namespace
}  // namespace tk07
