// The bolt panel: a list of the working copy's bolts, the plan, and bulk operations on a selection.

#include <algorithm>
#include <iterator>

#include "base/testo.h"
#include "bolting/proposte.h"
#include "session/gestori.h"
#include "session/vista3d.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

constexpr int kRighe = 9;           // bolts shown at once
constexpr int kAvvisoBulloni = 95;  // from here on the hint line warns
constexpr int kPuntatoreCroce = 2;

using enum TipoControllo;

constexpr DescrizioneControllo kControlli[] = {
    {"Singolo", pulsante, "Agg. singolo", "Aggiunge un bullone con il mouse"},
    {"Rimuovi", pulsante, "Rimuovi ultimo", "Rimuove l'ultimo bullone"},
    {"RimuoviT", pulsante, "Rimuovi tutto", "Rimuove tutti i bulloni"},
    {"Bul_RimuoviSel", pulsante, "Rimuovi selezionati", "Rimuove i bulloni selezionati"},
    {"Bt_SelTutti", pulsante, "Seleziona tutti", "Seleziona tutti i bulloni"},
    {"Bt_deselTutti", pulsante, "Deseleziona tutti", "Toglie la selezione"},
    {"Bul_copiaX", pulsante, "Copia lungo X", "Copia i selezionati della distanza data lungo X"},
    {"Bul_copiaY", pulsante, "Copia lungo Y", "Copia i selezionati della distanza data lungo Y"},
    {"Bul_traslaX", pulsante, "Trasla lungo X", "Sposta i selezionati della distanza data lungo X"},
    {"Bul_traslaY", pulsante, "Trasla lungo Y", "Sposta i selezionati della distanza data lungo Y"},
    {"Bul_cambiaDiam", pulsante, "Cambia diametro", "Dà ai selezionati il diametro indicato"},
    {"Bul_elimDoppi", pulsante, "Elimina doppi", "Rimuove i bulloni uguali"},
    {"Proponi", pulsante, "Proponi", "Propone una disposizione di bulloni"},
    {"DisegnaBp", pulsante, "Aggiorna disegno e vista 3D", "Ridisegna la pianta"},
    {"MatBulOK", pulsante, "OK", "Conferma i bulloni"},
    {"MatBulAnn", pulsante, "Annulla", "Chiude lasciando i bulloni come erano"},
    {"Tb_deltaX", campo, "0", "Distanza lungo X [mm]"},
    {"Tb_deltaY", campo, "0", "Distanza lungo Y [mm]"},
    {"Tb_diam", campo, "12", "Diametro per i bulloni selezionati [mm]"},
    {"DiamProponi", campo, "12",
     "Diametro della proposta e dei bulloni aggiunti con il mouse [mm]"},
    {"Scroll1", scorrimento, "", "Scorre l'elenco dei bulloni"},
    {"DisBulloni", superficie, "", ""},
    {"TollForoBull", etichetta, "Tolleranza foro/bullone: 2", ""},
    {"Passo", etichetta, "Passo corrente", ""},
    {"Fi3", etichetta, "3 d", ""},
    {"Label4", etichetta, "", ""},
    {"Label5", etichetta, "", ""},
    {"LabelX", etichetta, "X", ""},
    {"LabelY", etichetta, "Y", ""},
    {"Help", etichetta, "", ""},
    {"Timer1", timer, "", ""},
};

constexpr DescrizioneControllo kRiga[] = {
    {"Lbul", etichetta, "", "Numero del bullone: doppio clic per rimuoverlo"},
    {"Xbul", campo, "", "Ascissa dall'asse del nodo [mm]"},
    {"Ybul", campo, "", "Ordinata dall'estremo inferiore della piastra 1 [mm]"},
    {"Fibul", campo, "", "Diametro [mm]"},
    {"Check_Bul", casella, "", "Seleziona il bullone"},
};

void RefreshTextBull(Sessione& s, int primo, int ultimo) {
    const GuardiaAggiornamento guardia(s);
    const BulloniTemp& t = s.bulloni;
    Pannello& p = s.FormBulloni;
    for (int i = primo; i <= ultimo; ++i) {
        const int r = i - primo;
        p[ConIndice("Lbul", r)].testo = TestoIntero(i);
        p[ConIndice("Xbul", r)].testo = TestoCampo(s, t.XbullTemp(i), 1.0);
        p[ConIndice("Ybul", r)].testo = TestoCampo(s, t.YbullTemp(i), 1.0);
        p[ConIndice("Fibul", r)].testo = TestoCampo(s, t.FibullTemp(i), 1.0);
        p[ConIndice("Check_Bul", r)].valore = t.SelBullTemp(i) != 0.0 ? 1 : 0;
    }
}

void ImpostaListaBulloni(Sessione& s, int n) {
    Pannello& p = s.FormBulloni;
    for (int r = 0; r < kRighe; ++r) {
        for (const DescrizioneControllo& d : kRiga) p[ConIndice(d.nome, r)].visibile = r < n;
    }
    Controllo& barra = p["Scroll1"];
    barra.visibile = n > kRighe;
    barra.minimo = barra.valore = 1;
    barra.massimo = n > kRighe ? n - kRighe + 1 : 1;
    p["Help"].testo =
        n >= kAvvisoBulloni ? "Bulloni: " + TestoIntero(n) + " su un massimo di 100" : "";
}

// After any change of the bolts: the list from its first row.
void RiscriviLista(Sessione& s) {
    const int n = s.bulloni.nBullTemp;
    ImpostaListaBulloni(s, n);
    RefreshTextBull(s, 1, n < kRighe ? n : kRighe);
}

void Costruisci(Sessione& s) {
    Pannello& p = s.FormBulloni;
    p = Pannello{};
    p.titolo = "Definisci bulloni";
    AggiungiControlli(p, kControlli);
    for (const DescrizioneControllo& d : kRiga) {
        for (int r = 0; r < kRighe; ++r) {
            p.controlli[ConIndice(d.nome, r)] = NuovoControllo(d.tipo, d.testo, d.suggerimento);
        }
    }
    p["LabelX"].colore = p["LabelY"].colore = kRosso;
    p["Timer1"].abilitato = false;
    CopiaDalNodo(s.nodo, s.bulloni);
    RiscriviLista(s);
}

int BulloneDellaRiga(const Sessione& s, int riga) {
    return static_cast<int>(ValoreIniziale(s.FormBulloni[ConIndice("Lbul", riga)].testo));
}

// A distance or diameter of the bulk edits: strictly a number.
double Distanza(const Sessione& s, const char* nome) {
    const std::string& testo = s.FormBulloni[nome].testo;
    const auto x = ValoreStretto(testo);
    if (!x)
        throw ErroreFatale("Valore non numerico: \"" + testo + "\"", std::string("campo ") + nome);
    return *x;
}

void ChiediRimuoviTutti(Sessione& s) {
    if (s.piattaforma.messaggio("Rimuovere tutti i bulloni?", kTitoloProgramma, Segno::domanda,
                                Pulsanti::OKAnnulla) == Risposta::OK) {
        RimuoviTutti(s.bulloni);
    }
}

// The buttons that also bring the 3D view up to date. Bulk edits do nothing without bolts.
bool CambiaVista(const std::string& c, bool vuoto) {
    constexpr const char* kSempre[] = {"DisegnaBp",      "Rimuovi",       "RimuoviT",
                                       "Bul_RimuoviSel", "Bul_elimDoppi", "Proponi"};
    constexpr const char* kConBulloni[] = {"Bul_copiaX", "Bul_copiaY", "Bul_traslaX", "Bul_traslaY",
                                           "Bul_cambiaDiam"};
    const auto uno = [&](const char* x) { return c == x; };
    return std::any_of(std::begin(kSempre), std::end(kSempre), uno) ||
           (!vuoto && std::any_of(std::begin(kConBulloni), std::end(kConBulloni), uno));
}

void Premi(Sessione& s, const NomeControllo& n) {
    BulloniTemp& t = s.bulloni;
    const std::string& c = n.base;
    if (c == "MatBulOK") {
        CopiaNelNodo(t, s.nodo);
        s.RisultatiValidi = false;
    }
    if (c == "MatBulOK" || c == "MatBulAnn") {
        ChiudiPannello(s, kGestoreFormBulloni);
        AggiornaVista3D(s);  // the working copy is gone
        return;
    }
    const bool vuoto = t.nBullTemp < 1;
    if (c == "Singolo") AggiungiSingolo(t);
    if (c == "Rimuovi") RimuoviUltimo(t);
    if (c == "RimuoviT") ChiediRimuoviTutti(s);
    if (c == "Bul_RimuoviSel") RimuoviSelezionati(t);
    if (c == "Bt_SelTutti" && !vuoto) Seleziona(t, Selezione::tutti);
    if (c == "Bt_deselTutti" && !vuoto) Seleziona(t, Selezione::nessuno);
    if (c == "Bul_copiaX" && !vuoto) CopiaSelezionati(t, Asse::X, Distanza(s, "Tb_deltaX"));
    if (c == "Bul_copiaY" && !vuoto) CopiaSelezionati(t, Asse::Y, Distanza(s, "Tb_deltaY"));
    if (c == "Bul_traslaX" && !vuoto) TraslaSelezionati(t, Asse::X, Distanza(s, "Tb_deltaX"));
    if (c == "Bul_traslaY" && !vuoto) TraslaSelezionati(t, Asse::Y, Distanza(s, "Tb_deltaY"));
    if (c == "Bul_cambiaDiam" && !vuoto) CambiaDiametro(t, Distanza(s, "Tb_diam"));
    if (c == "Bul_elimDoppi") EliminaDoppi(t);
    if (c == "Proponi") {
        Proponi(s.nodo, s.opz, ValoreIniziale(s.FormBulloni["DiamProponi"].testo), t,
                s.piattaforma);
    }
    if (c != "DisegnaBp") RiscriviLista(s);
    if (CambiaVista(c, vuoto)) AggiornaVista3D(s, BulloniProvvisori::si);
}

void Campo(Sessione& s, const NomeControllo& n, const std::string& testo, int tasto) {
    const bool diLista = n.indice >= 0;
    s.FormBulloni[diLista ? ConIndice(n.base, n.indice) : n.base].testo = testo;
    if (tasto == 27) AnnullaAttesa(s.bulloni);  // the bolt already counted stays
    if (!diLista) return;
    if (tasto != 0 && tasto != 13) {
        const int primo = BulloneDellaRiga(s, 0);
        const int ultimo = std::min<int>(primo + kRighe - 1, s.bulloni.nBullTemp);
        RefreshTextBull(s, primo, ultimo);
        return;
    }
    const double valore = ValoreIniziale(testo);
    const int i = BulloneDellaRiga(s, n.indice);
    if (n.base == "Xbul") s.bulloni.XbullTemp(i) = valore;
    if (n.base == "Ybul") s.bulloni.YbullTemp(i) = valore;
    if (n.base == "Fibul") s.bulloni.FibullTemp(i) = valore;
}

void Casella(Sessione& s, const NomeControllo& n, int valore) {
    if (s.Aggiornamento == 1) return;
    s.FormBulloni[ConIndice(n.base, n.indice)].valore = valore;
    s.bulloni.SelBullTemp(BulloneDellaRiga(s, n.indice)) = valore != 0 ? 1.0 : 0.0;
}

void Scorrimento(Sessione& s, const NomeControllo&, int valore) {
    s.FormBulloni["Scroll1"].valore = valore;
    RefreshTextBull(s, valore, valore + kRighe - 1);
}

void DoppioClicSu(Sessione& s, const NomeControllo& n) {
    if (n.base != "Lbul") return;
    RimuoviNumero(s.bulloni, BulloneDellaRiga(s, n.indice));
    RiscriviLista(s);
    AggiornaVista3D(s, BulloniProvvisori::si);
}

void MouseSu(Sessione& s, const NomeControllo& n, EventoMouse evento, double x, double y) {
    if (n.base != "DisBulloni") return;
    s.FormBulloni["Help"].testo.clear();
    s.FormBulloni["Timer1"].abilitato = false;
    s.FormBulloni["DisBulloni"].suggerimento =
        TestoNumero(Scatta5(x)) + ", " + TestoNumero(Scatta5(y));
    if (s.bulloni.attesaClick != 1) return;
    if (evento == EventoMouse::muovi) {
        s.piattaforma.puntatore(kPuntatoreCroce);
        return;
    }
    PosaBullone(s.bulloni, x, y, ValoreIniziale(s.FormBulloni["DiamProponi"].testo));
    s.piattaforma.puntatore(0);
    RiscriviLista(s);
}

// Shows a hint once.
void TimerScattato(Sessione& s, const std::string& nome) {
    if (nome != "Timer1") return;
    s.FormBulloni["Help"].testo =
        "Agg. singolo: premere sulla pianta dove va il bullone (passo 5 mm)";
    s.FormBulloni["Timer1"].abilitato = false;
}

}  // namespace

bool BulloniOltreIlMassimo(const Sessione& s, const std::string& pulsante) {
    if (pulsante == "Singolo") return !CePosto(s.bulloni, 1);
    if (pulsante == "Bul_copiaX" || pulsante == "Bul_copiaY") {
        return !CePosto(s.bulloni, QuantiSelezionati(s.bulloni));
    }
    if (pulsante != "Proponi") return false;
    const auto diametro = NumeroIniziale(s.FormBulloni["DiamProponi"].testo);
    BulloniTemp prova = s.bulloni;
    return !diametro ||
           !ProvaProponi(s.nodo, s.opz, *diametro, prova, PiattaformaMuta()).guasto.empty();
}

const GestorePannello kGestoreFormBulloni = {
    .nome = "FormBulloni",
    .pannello = &Sessione::FormBulloni,
    .costruisci = Costruisci,
    .premi = Premi,
    .campo = Campo,
    .casella = Casella,
    .scorri = Scorrimento,
    .doppioclic = DoppioClicSu,
    .mouse = MouseSu,
    .timer = TimerScattato,
};

}  // namespace tk07
