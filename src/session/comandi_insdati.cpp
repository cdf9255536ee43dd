// The main panel's commands and handlers: from a control's name to its operation.

#include <cmath>
#include <iterator>

#include "base/file_testo.h"
#include "base/testo.h"
#include "bolting/proposte.h"
#include "joint/campi_nodo.h"
#include "joint/controlla_dati.h"
#include "joint/tabella_carichi.h"
#include "session/disegno.h"
#include "session/gestori.h"
#include "session/pannello_insdati.h"
#include "session/vista3d.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

void Apri(Sessione& s) {
    RichiestaFile r;
    r.modo = ModoFile::apri;
    r.estensione = "tk7";
    r.filtro = kFiltroNodo;
    r.direttorio = PercorsoMostrato(s.dir.dirLavoro);
    const auto scelto = s.piattaforma.scegliFile(r);
    if (scelto && !scelto->percorso.empty()) ApriNodo(s, scelto->percorso);
}

bool DatiErrati(Sessione& s) {
    if (!ControllaDati(s.nodo, s.opz, s.piattaforma)) return false;
    MostraAvviso(s.piattaforma, "Il salvataggio non è possibile!");
    return true;
}

void Salva(Sessione& s) {
    if (DatiErrati(s)) return;
    const std::string file = s.dir.dirLavoro + "\\" + s.nomeFile + ".tk7";
    if (ScriviFileNodo(s.nodo, file, s.piattaforma)) s.file = {file, ImprontaFile(file)};
}

void SalvaConNome(Sessione& s) {
    if (DatiErrati(s)) return;
    RichiestaFile r;
    r.modo = ModoFile::salva;
    r.estensione =
        "tk17";  // a name without one becomes NAME.tk17; the window tells which file it wrote
    r.filtro = kFiltroNodo;
    r.direttorio = PercorsoMostrato(s.dir.dirLavoro);
    r.chiediSovrascrittura = true;
    const auto scelto = s.piattaforma.scegliFile(r);
    if (!scelto || scelto->percorso.empty()) return;
    if (!ScriviFileNodo(s.nodo, scelto->percorso, s.piattaforma)) return;
    s.file = {scelto->percorso, ImprontaFile(scelto->percorso)};
    s.nomeFile = NomeBase(scelto->percorso);
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, s.nomeFile + ".tk7");
}

void AggiornaDisBull(Sessione& s) { RicalcolaNervatura3(s.nodo); }

void ApriGuida(Sessione& s) {
    const std::string guida = s.dir.dirRoot + "\\help\\HelpTK07.pdf";
    s.piattaforma.avvia("EXPLORER.EXE", {PercorsoPiattaforma(guida)}, true);
}

void Chiudi(Sessione& s) {
    s.piattaforma.puntatore(11);
    s.fine = true;
}

void AggiungiSingolo(Sessione& s) {
    if (!AggiungiSestetto(s.nodo)) {
        MostraErrore(s.piattaforma, "E' stato raggiunto il numero massimo di sollecitazioni.",
                     "ERRORE");
        return;
    }
    pnn1_aggiorna_sollecitazioni(s, s.nodo.nSollAg);
}

void RimuoviUltimo(Sessione& s) {
    if (s.nodo.nSollAg <= 0) return;
    --s.nodo.nSollAg;
    pnn1_aggiorna_sollecitazioni(s, s.nodo.nSollAg - 1);
}

void RimuoviTutte(Sessione& s) {
    if (s.piattaforma.messaggio("Rimozione totale dei dati relativi alle sollecitazioni agenti?",
                                "ATTENZIONE!", Segno::domanda,
                                Pulsanti::OKAnnulla) != Risposta::OK) {
        return;
    }
    s.nodo.nSollAg = 0;
    pnn1_aggiorna_sollecitazioni(s, -1);
}

void RimuoviDoppie(Sessione& s) {
    if (EliminaDoppiSoll(s.nodo)) pnn1_aggiorna_sollecitazioni(s, -1);
}

void MassimiMinimi(Sessione& s) {
    const char* testo =
        "Questa operazione sceglie tra i sestetti di sollecitazione quelli che presentano il "
        "massimo "
        "ed il minimo di\nciascuna caratteristica associato alle relative altre (tali sestetti non "
        "rappresentano necessariamente le condizioni peggiori per il nodo in esame)";
    if (s.piattaforma.messaggio(testo, kTitoloProgramma, Segno::informazione,
                                Pulsanti::OKAnnulla) != Risposta::OK) {
        return;
    }
    MaxMinSoll(s.nodo);
    pnn1_aggiorna_sollecitazioni(s, -1);
}

void Esporta(Sessione& s) {
    RichiestaFile r;
    r.modo = ModoFile::salva;
    r.estensione = "txt";
    r.filtro = "File di testo (*.txt)|*.txt|Tutti i file (*.*)|*.*";
    r.nomeIniziale = PercorsoMostrato(s.dir.dirLavoro + "\\Soll_Tk07.txt");
    r.chiediSovrascrittura = true;
    const auto scelto = s.piattaforma.scegliFile(r);
    if (!scelto || scelto->percorso.empty()) return;
    EsportaSollecitazioni(s.nodo, s.unita, scelto->percorso, {true, true, true, true, true, true},
                          s.nodo.nSollAg, 0, s.piattaforma);
}

void PropostaNervature(Sessione& s) {
    ProponiNerv(s.nodo);
    pnn1_aggiorna_NervaturePiastre(s);
    AggiornaVista3D(s);
}

void PropostaPiastre(Sessione& s) {
    ProponiPias(s.nodo);
    pnn1_aggiorna_NervaturePiastre(s);
    AggiornaVista3D(s);
}

void DefinisciBulloni(Sessione& s) {
    RicalcolaNervatura3(s.nodo);
    ApriPannello(s, kGestoreFormBulloni);
}

void ApriVista3D(Sessione& s) { Vista3D(s, LanciaVista::si, BulloniProvvisori::no); }

void ApriMateriali(Sessione& s) {
    ApriPannello(s, kGestorePropMateriali);
    SettaMateriali(s);
}

void ApriOpzioni(Sessione& s) { ApriPannello(s, kGestoreFormOpz_Cond); }

void ApriImportazione(Sessione& s) {
    ApriPannello(s, kGestoreSoll3D);
    PreparaSoll3D(s);
}

struct Comando {
    const char* controllo;
    void (*operazione)(Sessione&);
    bool cambiaNodo;  // the results on show belong to another joint afterwards
};

constexpr Comando kComandi[] = {
    {"Car_Nodo", Apri, false},
    {"Bt_salva", Salva, false},
    {"Bt_salva_con_nome", SalvaConNome, false},
    {"Gen_Dis", Gen_Dis, false},
    {"ApriVis", ApriVis, false},
    {"VerificaButt", VerificaSessione, false},
    {"CheckMatBase", ApplicaMaterialeBase, true},
    {"AggiornaDisBull", AggiornaDisBull, false},
    {"DefBulloni", DefinisciBulloni, false},
    {"ProponiNerv", PropostaNervature, true},
    {"ProponiPias", PropostaPiastre, true},
    {"PropMatButton", ApriMateriali, false},
    {"Opz", ApriOpzioni, false},
    {"ImpS3D", ApriImportazione, false},
    {"bt_vista3d", ApriVista3D, false},
    {"ImportaNodida3D", ImportaNodida3D, true},
    {"Bt_agg_sing_sol", AggiungiSingolo, true},
    {"RimuoviUltSoll", RimuoviUltimo, true},
    {"RimuoviTutteSoll", RimuoviTutte, true},
    {"RimuoviDoppieSoll", RimuoviDoppie, true},
    {"MaxMinSoll", MassimiMinimi, true},
    {"EsportaSollButt", Esporta, false},
    {"LegendaButt", ApriGuida, false},
    {"Chiudi", Chiudi, false},
};

// Index in the load table of the row that a control belongs to.
int SestettoDellaRiga(const Sessione& s, int riga) {
    return static_cast<int>(ValoreIniziale(s.InsDati[ConIndice("Lb_sol_num", riga)].testo)) - 1;
}

double FattoreAzione(const Sessione& s, const AzioneSestetto& a) {
    return a.momento ? s.unita.FattoreMomenti : s.unita.FattoreForze;
}

// TbValuta: takes the field's text into the joint.
void Valuta(Sessione& s, const NomeControllo& nome, const std::string& testo) {
    const std::string rifiuto = MettiCampo(s, nome, testo, s.nodo);
    if (!rifiuto.empty()) MostraAvviso(s.piattaforma, rifiuto);
    s.RisultatiValidi = false;
    if (CampoGeometria(s.nodo, nome.base, nome.indice) != nullptr) AggiornaVista3D(s);
    pnn1_aggiorna_NervaturePiastre(s);
    pnn1_aggiorna_BulloniSaldature(s);
    pnn1_aggiorna_sollecitazioni(s, -1);
}

// TbRipristina: the stored value back into the field.
void Ripristina(Sessione& s, const std::string& controllo, const NomeControllo& nome) {
    const AzioneSestetto azione = CampoAzione(nome.base);
    std::string& testo = s.InsDati[controllo].testo;
    if (const double* x = CampoGeometria(s.nodo, nome.base, nome.indice); x != nullptr) {
        testo = TestoNumero(*x);
    } else if (azione.tabella != nullptr) {
        testo = TestoNumero((s.nodo.*azione.tabella)(SestettoDellaRiga(s, nome.indice)) *
                            FattoreAzione(s, azione));
    } else if (nome.base == "Tb_sol_descr") {
        testo = s.nodo.NomeSa(SestettoDellaRiga(s, nome.indice));
    }
}

void VoceScelta(Sessione& s, const std::string& nome, int indice) {
    Nodo& n = s.nodo;
    s.RisultatiValidi = false;
    if (nome == "TraveP" || nome == "TraveS") {
        (nome == "TraveP" ? n.TraPri : n.TraSec) = s.profili.Profili(indice + 1);
        pnn1_aggiorna_profili(s, 1, 1);
        AggiornaVista3D(s);
    } else if (nome == "Cb_Acciaio") {
        // The position in the list is the row of the table as long as the method can use every
        // steel; behind one that it cannot, the steel taken is the one whose data the panel shows.
        n.acciaio = s.mat.AcciaiAperte(indice + 1);
        pnn1_aggiorna_materiali(s);
    } else if (nome == "Cviti") {
        n.vite = s.mat.Viti(indice + 1);
        pnn1_aggiorna_materiali(s);
    } else if (nome == "ComboEsposizione") {
        n.Esposizione = static_cast<short>(indice);
        pnn1_aggiorna_materiali(s);
    }
}

void Premi(Sessione& s, const NomeControllo& n) {
    for (const Comando& c : kComandi) {
        if (n.base != c.controllo) continue;
        if (c.cambiaNodo) s.RisultatiValidi = false;
        c.operazione(s);
    }
}

void Campo(Sessione& s, const NomeControllo& n, const std::string& testo, int tasto) {
    const std::string nome = ConIndice(n.base, n.indice);
    s.InsDati[nome].testo = testo;
    if (tasto == 27) {
        Ripristina(s, nome, n);
    } else if (tasto == 13 || tasto == 0) {
        Valuta(s, n, testo);
    }
}

void Casella(Sessione& s, const NomeControllo& n, int valore) {
    if (n.base == "CheckMaxMin") {
        s.InsDati["CheckMaxMin"].valore = valore;
        return;
    }
    s.RisultatiValidi = false;
    if (n.base == "CasCar") {
        s.InsDati[ConIndice("CasCar", n.indice)].valore = valore != 0 ? 1 : 0;
        s.nodo.CasoCarico(SestettoDellaRiga(s, n.indice)) = static_cast<short>(valore != 0 ? 1 : 0);
    } else {
        s.nodo.AttNerv(n.base == "CheckNervatura1" ? 1 : 2) = valore == 1;
        pnn1_aggiorna_NervaturePiastre(s);
        AggiornaVista3D(s);
    }
}

void Opzione(Sessione& s, const NomeControllo& n) {
    ScegliMetodo(s, n.indice == 0 ? Metodo::TA : Metodo::SLU);
}

void Scorrimento(Sessione& s, const NomeControllo&, int valore) {
    pnn1_aggiorna_sollecitazioni(s, valore);
}

// The number's label removes its load set; a load field opens the unit converter on its value.
void DoppioClicSu(Sessione& s, const NomeControllo& n) {
    if (n.base == "Lb_sol_num") {
        s.RisultatiValidi = false;
        RimuoviSestetto(s.nodo, SestettoDellaRiga(s, n.indice));
        pnn1_aggiorna_sollecitazioni(s, -1);
    } else if (CampoAzione(n.base).tabella != nullptr) {
        ChiamaConversione(s, n);
    }
}

// A part of the sketch leads to its field, which flashes.
void ClicSu(Sessione& s, const NomeControllo& n) {
    if (n.base != "LabPiastre") return;
    constexpr int kCampi[] = {0, 3, 6, 10, 14};
    s.InsDati["SSTab"].valore = 1;
    if (n.indice == 2 || n.indice == 3) {
        const int k = n.indice - 1;
        s.nodo.AttNerv(k) = true;
        s.RisultatiValidi = false;
        pnn1_aggiorna_NervaturePiastre(s);
        AggiornaVista3D(s);
    }
    Controllo& c = s.InsDati[ConIndice("GeoPias", kCampi[n.indice])];
    c.sfondo = kRosso;
    c.colore = kBianco;
    s.InsDati["Timer2"].abilitato = true;
}

// The pointer over a part of the sketch underlines its name, over the picture clears that.
void MouseSu(Sessione& s, const NomeControllo& n, EventoMouse evento, double, double) {
    if (evento != EventoMouse::muovi) return;
    for (int i = 0; i < 5; ++i) {
        Controllo& c = s.InsDati[ConIndice("LabPiastre", i)];
        c.sottolineato = n.base == "LabPiastre" && n.indice == i;
        c.colore = kBianco;
    }
}

// Puts the system colours back; the flash has no effect on the data.
void TimerScattato(Sessione& s, const std::string& nome) {
    if (nome != "Timer2") return;
    for (const int i : {0, 3, 6, 10, 14}) {
        Controllo& c = s.InsDati[ConIndice("GeoPias", i)];
        c.sfondo = kColoreFinestra;
        c.colore = kColoreTesto;
    }
    s.InsDati["Timer2"].abilitato = false;
}

void Voce(Sessione& s, const NomeControllo& n, int indice) { VoceScelta(s, n.base, indice); }

}  // namespace

std::string MettiCampo(const Sessione& s, const NomeControllo& nome, const std::string& testo,
                       Nodo& n) {
    const double valore = ValoreIniziale(testo);
    if (double* x = CampoGeometria(n, nome.base, nome.indice); x != nullptr) {
        *x = valore;
        return {};
    }
    if (nome.base == "Tb_sol_descr") {
        std::string& descrizione = n.NomeSa(SestettoDellaRiga(s, nome.indice));
        const std::string perche = TestoRifiutato(testo);
        if (!perche.empty()) return "Descrizione non accettata: " + perche + ".";
        if (Taglia(testo) != Taglia(descrizione)) descrizione = testo;
        return {};
    }
    const AzioneSestetto a = CampoAzione(nome.base);
    if (a.tabella == nullptr) return {};
    double& memorizzato = (n.*a.tabella)(SestettoDellaRiga(s, nome.indice));
    // A field that is left as it was shown must not round what is stored. The comparison is between
    // the number shown and the stored daN or daN cm: in other units a value equal to the stored
    // number counts as unchanged.
    if (!(std::fabs(memorizzato - valore) > 0.0001)) return {};
    const double fattore = FattoreAzione(s, a);
    if (fattore == 0.0) {
        return "Unità di misura sconosciuta in parametrilavoro: il valore non può essere "
               "convertito.";
    }
    memorizzato = valore / fattore;
    return {};
}

const GestorePannello kGestoreInsDati = {
    .nome = "InsDati",
    .pannello = &Sessione::InsDati,
    .premi = Premi,
    .campo = Campo,
    .voce = Voce,
    .casella = Casella,
    .opzione = Opzione,
    .scorri = Scorrimento,
    .doppioclic = DoppioClicSu,
    .clic = ClicSu,
    .mouse = MouseSu,
    .timer = TimerScattato,
};

}  // namespace tk07
