// The main panel as data: its controls, what each is bound to, and the refresh routines.

#include "session/pannello_insdati.h"

#include <array>

#include "base/testo.h"
#include "session/gestori.h"
#include "session/sessione.h"
#include "session/vista3d.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

constexpr int kRighe = 5;  // load sets shown at once

using enum TipoControllo;

// Controls without an index of their own.
constexpr DescrizioneControllo kControlli[] = {
    {"TraveP", lista, "", "Profilo della trave principale"},
    {"TraveS", lista, "", "Profilo della trave secondaria"},
    {"GeoPias1", etichetta, "", "Altezza della piastra 1 [mm]: si cambia con la proposta piastre"},
    {"CheckNervatura1", casella, "Nervatura 1", "Nervatura sopra la trave secondaria"},
    {"CheckNervatura2", casella, "Nervatura 2", "Nervatura sotto la trave secondaria"},
    {"Cb_Acciaio", lista, "", "Acciaio di profili e piastre"},
    {"Cviti", lista, "", "Classe dei bulloni"},
    {"ComboEsposizione", lista, "",
     "Esposizione: decide le distanze massime dei bulloni (NTC 2018)"},
    {"LabNorma", etichetta, "", "Norma dell'acciaio"},
    {"CheckMatBase", pulsante, "Materiale base",
     "Applica l'acciaio dei materiali base della struttura"},
    {"TipoVer(0)", opzione, "Tensioni ammissibili (CNR 10011/88)",
     "Verifica alle tensioni ammissibili"},
    {"TipoVer(1)", opzione, "Stati limite (NTC 2008)", "Verifica agli stati limite"},
    {"Lb_nrosol", etichetta, "0", "Numero di sestetti di sollecitazione"},
    {"Lb_CasCar", etichetta, "II", "Caso di carico di tipo II (solo per tensioni ammissibili)"},
    {"VScrollSoll", scorrimento, "", "Scorre i sestetti di sollecitazione"},
    {"FrameSoll", etichetta, "", ""},
    {"Car_Nodo", pulsante, "Apri", "Apre un nodo da file"},
    {"Bt_salva", pulsante, "Salva", "Salva il nodo nel direttorio del lavoro"},
    {"Bt_salva_con_nome", pulsante, "Salva con nome", "Salva il nodo con un altro nome"},
    {"Gen_Dis", pulsante, "Genera disegno", "Scrive il disegno del nodo in un file"},
    {"ApriVis", pulsante, "Visualizza disegno", "Aggiorna il disegno e apre il visualizzatore"},
    {"VerificaButt", pulsante, "Verifica", "Verifica il nodo e scrive la relazione di calcolo"},
    {"DefBulloni", pulsante, "Definisci bulloni", "Apre la finestra dei bulloni"},
    {"ProponiNerv", pulsante, "Proponi nervature", "Propone le dimensioni delle nervature"},
    {"ProponiPias", pulsante, "Proponi piastre", "Propone le dimensioni delle piastre"},
    {"PropMatButton", pulsante, "Proprietà", "Mostra le proprietà dei materiali"},
    {"Opz", pulsante, "Opzioni", "Apre le opzioni"},
    {"ImpS3D", pulsante, "Importa sollecitazioni 3D",
     "Importa le sollecitazioni dai risultati dell'analisi"},
    {"bt_vista3d", pulsante, "Vista 3D", "Mostra il nodo in tre dimensioni"},
    {"ImportaNodida3D", pulsante, "Importa nodi da 3D",
     "Importa profili e sollecitazioni dal modello della struttura"},
    {"CheckMaxMin", casella, "Imp3D: solo massimi e minimi",
     "Importa solo i sestetti con il massimo e il minimo di ogni caratteristica"},
    {"Bt_agg_sing_sol", pulsante, "Aggiungi", "Aggiunge un sestetto di sollecitazione"},
    {"RimuoviUltSoll", pulsante, "Rimuovi ultimo", "Rimuove l'ultimo sestetto"},
    {"RimuoviTutteSoll", pulsante, "Rimuovi tutti", "Rimuove tutti i sestetti"},
    {"RimuoviDoppieSoll", pulsante, "Rimuovi doppi", "Rimuove i sestetti uguali"},
    {"MaxMinSoll", pulsante, "Max e min",
     "Tiene i sestetti con il massimo e il minimo di ogni caratteristica"},
    {"EsportaSollButt", pulsante, "Esporta", "Scrive i sestetti in un file di testo"},
    {"Picture2", superficie, "", "Schema del nodo: un clic su una parte porta al suo campo"},
    {"SSTab", schede, "", ""},
    {"Timer2", timer, "", ""},
    {"AggiornaDisBull", pulsante, "Aggiorna disegno", "Ridisegna lo schema dei bulloni"},
    {"LegendaButt", pulsante, "Guida", "Apre il manuale"},
    {"Chiudi", pulsante, "Chiudi", "Termina il programma"},
    {"DisPri", superficie, "", "Sezione della trave principale"},
    {"DisSec", superficie, "", "Sezione della trave secondaria"},
    {"DisBulloni", superficie, "", "Schema dei bulloni"},
};

struct DescrizioneVettore {
    const char* base;
    int quanti;
    TipoControllo tipo;
    const char* suggerimento;
};

constexpr DescrizioneVettore kVettori[] = {
    {"geomp", 5, etichetta, "H, B, tw, tf, r della trave principale [mm]"},
    {"geoms", 5, etichetta, "H, B, tw, tf, r della trave secondaria [mm]"},
    {"Lb_sol_num", kRighe, etichetta, "Numero del sestetto: doppio clic per rimuoverlo"},
    {"Tb_sol_descr", kRighe, campo, "Descrizione del sestetto, come compare nella relazione"},
    {"TxtSN", kRighe, campo, "Sforzo normale N, positivo se tende i bulloni"},
    {"TxtTy", kRighe, campo, "Taglio Ty, positivo verso il basso"},
    {"TxtTz", kRighe, campo, "Taglio Tz, orizzontale"},
    {"TxtMt", kRighe, campo, "Momento torcente Mt"},
    {"TxtMy", kRighe, campo, "Momento My, attorno all'asse verticale"},
    {"TxtMz", kRighe, campo, "Momento Mz, attorno all'asse orizzontale"},
    {"LabPiastre", 5, etichetta, "Un clic porta al campo"},
    {"CasCar", kRighe, casella, "Caso di carico di tipo II (solo per tensioni ammissibili)"},
};

// Index 1 of GeoPias has no binding: the height of plate 1 is the label GeoPias1.
constexpr std::array<const char*, 15> kSuggerimentiGeo = {
    "Larghezza della piastra 1 [mm]",
    "",
    "Spessore della piastra 1 [mm]",
    "Larghezza della piastra 2 [mm]",
    "Altezza della piastra 2 [mm]",
    "Spessore della piastra 2 [mm]",
    "Nervatura 1: altezza h1 alla piastra [mm]",
    "Nervatura 1: altezza h2 all'estremo [mm]",
    "Nervatura 1: larghezza b [mm]",
    "Nervatura 1: spessore [mm]",
    "Nervatura 2: altezza h1 alla piastra [mm]",
    "Nervatura 2: altezza h2 all'estremo [mm]",
    "Nervatura 2: larghezza b [mm]",
    "Nervatura 2: spessore [mm]",
    "Nervatura 3: spessore [mm]"};
constexpr std::array<const char*, 3> kSuggerimentiQuote = {
    "Distanza tra l'ala superiore della trave secondaria e l'estremo superiore della piastra 2 "
    "[mm]",
    "Distanza tra la trave principale e la piastra 2 [mm]",
    "Distanza tra le ali superiori delle due travi [mm]"};
constexpr std::array<const char*, 2> kSuggerimentiSald = {
    "Lato S1: saldature tra trave secondaria, nervature e piastra 2 [mm]",
    "Lato S2: saldature sulla trave principale [mm]"};

// The list shows the joint's steel, and the joint holds the steel that the list shows.
void AllineaAcciaio(Sessione& s) {
    Nodo& n = s.nodo;
    Controllo& lista = s.InsDati["Cb_Acciaio"];
    const ListaConScelta l =
        RiempiListaMateriali(n.MetodoVerifica(), "PROFILI", n.acciaio.Nome, s.mat.nAcciaiAperte,
                             s.mat.AcciaiAperte, s.piattaforma);
    lista.voci = l.voci;
    const int indice = l.indice < 0 && !l.voci.empty() ? 0 : l.indice;
    SelezionaVoce(lista, indice);
    if (indice >= 0 && lista.testo != n.acciaio.Nome) {
        n.acciaio = s.mat.AcciaiAperte(IndiceAcciaio(s.mat, lista.testo));
    }
}

}  // namespace

namespace {

// One table for reading and for writing: the joint is const or not.
template <class N>
auto* Geometria(N& n, const std::string& base, int i) {
    using Reale = decltype(&n.spSaldS1);
    if (base == "TextSald") return i == 0 ? &n.spSaldS1 : i == 1 ? &n.spSaldS2 : Reale{};
    if (base == "TextQuota") {
        return i == 0   ? &n.distAlaSecPiastra
               : i == 1 ? &n.distPiastraTraPri
               : i == 2 ? &n.distAliPriSec
                        : Reale{};
    }
    if (base != "GeoPias") return Reale{};
    switch (i) {
        case 0:
            return &n.BPiastra(1);
        case 2:
            return &n.SpPiastra(1);
        case 3:
            return &n.BPiastra(2);
        case 4:
            return &n.HPiastra(2);
        case 5:
            return &n.SpPiastra(2);
        case 14:
            return &n.SpNerv(3);
        default:
            break;
    }
    if (i < 6 || i > 13) return Reale{};
    const int k = i <= 9 ? 1 : 2;
    switch ((i - 6) % 4) {
        case 0:
            return &n.H1Nerv(k);
        case 1:
            return &n.H2Nerv(k);
        case 2:
            return &n.BNerv(k);
        default:
            return &n.SpNerv(k);
    }
}

}  // namespace

const double* CampoGeometria(const Nodo& n, const std::string& base, int i) {
    return Geometria(n, base, i);
}

double* CampoGeometria(Nodo& n, const std::string& base, int i) { return Geometria(n, base, i); }

AzioneSestetto CampoAzione(const std::string& base) {
    if (base == "TxtSN") return {&Nodo::SforzoNormale, false};
    if (base == "TxtTy") return {&Nodo::TaglioY, false};
    if (base == "TxtTz") return {&Nodo::TaglioZ, false};
    if (base == "TxtMt") return {&Nodo::MomTorc, true};
    if (base == "TxtMy") return {&Nodo::MomY, true};
    if (base == "TxtMz") return {&Nodo::MomZ, true};
    return {};
}

void CostruisciInsDati(Sessione& s) {
    Pannello& p = s.InsDati;
    p = Pannello{};
    AggiungiControlli(p, kControlli);
    for (const DescrizioneVettore& v : kVettori) {
        for (int i = 0; i < v.quanti; ++i) {
            p.controlli[ConIndice(v.base, i)] = NuovoControllo(v.tipo, "", v.suggerimento);
        }
    }
    for (std::size_t i = 0; i < kSuggerimentiGeo.size(); ++i) {
        if (i != 1) {
            p.controlli[ConIndice("GeoPias", static_cast<int>(i))] =
                NuovoControllo(campo, "", kSuggerimentiGeo[i]);
        }
    }
    for (std::size_t i = 0; i < kSuggerimentiQuote.size(); ++i) {
        p.controlli[ConIndice("TextQuota", static_cast<int>(i))] =
            NuovoControllo(campo, "", kSuggerimentiQuote[i]);
    }
    for (std::size_t i = 0; i < kSuggerimentiSald.size(); ++i) {
        p.controlli[ConIndice("TextSald", static_cast<int>(i))] =
            NuovoControllo(campo, "", kSuggerimentiSald[i]);
    }
    Controllo beta = NuovoControllo(etichetta, "", "");
    beta.visibile = false;
    p.controlli["betatest_c"] = beta;
    p["Timer2"].abilitato = false;
    constexpr std::array<const char*, 5> kParti = {"Piastra 1", "Piastra 2", "Nervatura 1",
                                                   "Nervatura 2", "Nervatura 3"};
    for (int i = 0; i < 5; ++i) {
        Controllo& c = p[ConIndice("LabPiastre", i)];
        c.testo = kParti[static_cast<std::size_t>(i)];
        c.colore = kBianco;
    }
}

void pnn2_ScriviDatiProfilo(Sessione& s, int indiceProfilo, const std::string& etichette) {
    const ProfiloRec& r = s.profili.Profili(indiceProfilo);
    int i = 0;
    for (const double x : {r.H, r.B, r.tw, r.tf, r.r}) {
        s.InsDati[ConIndice(etichette, i++)].testo = TestoNumero(x);
    }
}

void pnn1_aggiorna_profili(Sessione& s, short forzaP, short forzaS) {
    const GuardiaAggiornamento guardia(s);
    const auto aggiorna = [&](const char* nome, const ProfiloRec& rec, const char* etichette,
                              bool forza) {
        Controllo& lista = s.InsDati[nome];
        if (static_cast<int>(lista.voci.size()) != s.profili.nProfili) {
            lista.voci.clear();
            for (int i = 1; i <= s.profili.nProfili; ++i) {
                lista.voci.push_back(s.profili.Profili(i).Nome);
            }
        }
        if (lista.testo != rec.Nome || lista.indice < 0) {
            SelezionaVoce(lista, IndiceProfilo(s.profili, rec.Nome) - 1);
            forza = true;
        }
        if (forza) pnn2_ScriviDatiProfilo(s, lista.indice + 1, etichette);
    };
    aggiorna("TraveP", s.nodo.TraPri, "geomp", forzaP != 0);
    aggiorna("TraveS", s.nodo.TraSec, "geoms", forzaS != 0);
}

void pnn1_aggiorna_NervaturePiastre(Sessione& s) {
    const GuardiaAggiornamento guardia(s);
    const Nodo& n = s.nodo;
    for (int k = 1; k <= 2; ++k) {
        s.InsDati["CheckNervatura" + std::to_string(k)].valore = n.AttNerv(k) ? 1 : 0;
        for (int i = 0; i < 4; ++i) {
            s.InsDati[ConIndice("GeoPias", 2 + 4 * k + i)].abilitato = n.AttNerv(k);
        }
    }
    for (const char* base : {"GeoPias", "TextQuota"}) {
        for (int i = 0; i < 15; ++i) {
            const double* x = CampoGeometria(n, base, i);
            if (x != nullptr) s.InsDati[ConIndice(base, i)].testo = TestoCampo(s, *x, 1.0);
        }
    }
    s.InsDati["GeoPias1"].testo = TestoCampo(s, n.HPiastra(1), 1.0);
}

void pnn1_aggiorna_BulloniSaldature(Sessione& s) {
    const GuardiaAggiornamento guardia(s);
    for (int i = 0; i < 2; ++i) {
        s.InsDati[ConIndice("TextSald", i)].testo =
            TestoCampo(s, *CampoGeometria(s.nodo, "TextSald", i), 1.0);
    }
}

void pnn1_aggiorna_materiali(Sessione& s) {
    const GuardiaAggiornamento guardia(s);
    AllineaAcciaio(s);
    const int norma = CercaAcciaioDaNome(s.mat, s.nodo.acciaio.Nome, s.piattaforma);
    s.InsDati["LabNorma"].testo = s.mat.AcciaiAperte(norma).Designazione;
    Controllo& viti = s.InsDati["Cviti"];
    if (viti.indice < 0 || viti.testo != s.nodo.vite.Nome) {
        SelezionaVoce(viti, PosizioneVoce(viti, s.nodo.vite.Nome));
    }
    SelezionaVoce(s.InsDati["ComboEsposizione"], s.nodo.Esposizione);
    for (int i = 0; i < 2; ++i) {
        s.InsDati[ConIndice("TipoVer", i)].valore = s.nodo.TipoVer == i ? 1 : 0;
    }
    SettaMateriali(s);
}

void pnn1_aggiorna_sollecitazioni(Sessione& s, int p) {
    const GuardiaAggiornamento guardia(s);
    const Nodo& n = s.nodo;
    Pannello& pan = s.InsDati;
    if (p < 0 && n.nSollAg > 0) {
        p = static_cast<int>(ValoreIniziale(pan["Lb_sol_num(0)"].testo)) - 1;
    }
    if (p > n.nSollAg - kRighe) p = n.nSollAg - kRighe;
    if (p < 0) p = 0;
    pan["Lb_nrosol"].testo = TestoIntero(n.nSollAg);
    const bool ta = n.MetodoVerifica() == Metodo::TA;
    for (int r = 0; r < kRighe; ++r) {
        const int k = p + r;
        const bool visibile = k < n.nSollAg;
        Controllo& numero = pan[ConIndice("Lb_sol_num", r)];
        numero.visibile = visibile;
        numero.testo = visibile ? TestoIntero(k + 1) : "";
        for (const char* base : {"TxtSN", "TxtTy", "TxtTz", "TxtMt", "TxtMy", "TxtMz"}) {
            Controllo& c = pan[ConIndice(base, r)];
            c.visibile = visibile;
            const AzioneSestetto a = CampoAzione(base);
            if (visibile) {
                c.testo = TestoCampo(s, (n.*a.tabella)(k),
                                     a.momento ? s.unita.FattoreMomenti : s.unita.FattoreForze);
            }
        }
        Controllo& descrizione = pan[ConIndice("Tb_sol_descr", r)];
        descrizione.visibile = visibile;
        if (visibile) descrizione.testo = n.NomeSa(k);
        Controllo& caso = pan[ConIndice("CasCar", r)];
        caso.visibile = visibile && ta;
        if (visibile) caso.valore = n.CasoCarico(k) != 0 ? 1 : 0;
    }
    pan["Lb_CasCar"].visibile = ta;
    pan["EsportaSollButt"].abilitato = n.nSollAg >= 1;
    Controllo& barra = pan["VScrollSoll"];
    barra.abilitato = n.nSollAg > kRighe;
    barra.minimo = 0;
    barra.massimo = n.nSollAg > kRighe ? n.nSollAg - kRighe : 0;
    barra.valore = p;
}

void AggiornaTutto(Sessione& s) {
    if (!s.conPannelli) {
        pnn1_aggiorna_materiali(s);  // which steel a method allows is decided here
        return;
    }
    pnn1_aggiorna_profili(s, 0, 0);
    pnn1_aggiorna_NervaturePiastre(s);
    pnn1_aggiorna_materiali(s);
    pnn1_aggiorna_sollecitazioni(s, -1);
    pnn1_aggiorna_BulloniSaldature(s);
    AggiornaVista3D(s);
}

void ScegliMetodo(Sessione& s, Metodo metodo) {
    Nodo& n = s.nodo;
    if (n.MetodoVerifica() == metodo) return;
    const auto entra = static_cast<std::size_t>(metodo), lascia = 1 - entra;
    s.AcciaioMemoria[lascia] = n.acciaio;
    if (s.AcciaioMemoria[entra].Nome.empty()) s.AcciaioMemoria[entra] = n.acciaio;
    n.TipoVer = metodo == Metodo::SLU ? 1 : 0;
    n.acciaio = s.AcciaioMemoria[entra];
    pnn1_aggiorna_materiali(s);
    // The load case counts with allowable stresses only: shown there, kept in both.
    const bool ta = metodo == Metodo::TA;
    s.InsDati["Lb_CasCar"].visibile = ta;
    for (int j = 0; j < kRighe; ++j) {
        s.InsDati[ConIndice("CasCar", j)].visibile = ta && j <= n.nSollAg - 1;
    }
    s.RisultatiValidi = false;
}

void ApplicaMaterialeBase(Sessione& s) {
    if (!s.mat.Base.MatBaseValidi) return;
    Nodo& n = s.nodo;
    const MaterialeRec& base = s.mat.Base.AccBase1;
    const std::vector<std::string> voci =
        ListaMateriali(n.MetodoVerifica(), "PROFILI", s.mat.nAcciaiAperte, s.mat.AcciaiAperte);
    bool inLista = false;
    for (const std::string& v : voci) inLista = inLista || v == base.Nome;
    int riga = IndiceAcciaio(s.mat, base.Nome);
    if (!inLista) {
        MostraAvviso(
            s.piattaforma,
            "Materiale-Base non valido per questo tipo di verifica. Verrà impostato un altro "
            "tipo di acciaio.",
            "ATTENZIONE!");
        riga = 1 + AlternativaMateriale(n.MetodoVerifica(), "PROFILI", base.Nome,
                                        s.mat.nAcciaiAperte, s.mat.AcciaiAperte);
    }
    // The whole table row: the partial factors come from there.
    n.acciaio = s.mat.AcciaiAperte(riga);
    pnn1_aggiorna_materiali(s);
    s.RisultatiValidi = false;
}

}  // namespace tk07
