#include "base/file_testo.h"
#include "session/gestori.h"

namespace tk07 {

namespace {

// Library row by name for the default joint; the file may lack it.
void CostruisciNodo(Sessione& s) {
    NodoDiDefault(s.nodo, s.profili, s.mat, s.piattaforma);
    if (s.mat.Base.MatBaseValidi) ApplicaMaterialeBase(s);
}

}  // namespace

bool Avvia(Sessione& s, const Avvio& avvio) {
    const Piattaforma& p = s.piattaforma;
    CostruisciInsDati(s);
    if (!RisolviDirettori(avvio, s.dir, p)) return false;
    s.titoloRicercaNodi = "NODO TRAVE - TRAVE CON PIASTRE - IMPORTA SOLLECITAZIONI 3D - Cerca nodi";
    s.nomeFile = "Nuovo";
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, "Nuovo.tk7");

    LeggiParametriLavoro(s.dir.dirLavoro + "\\parametrilavoro", s.unita);
    ImpostaUnita(s.unita);
    // Values of an unknown unit show as 0: a report full of zeros must not come without a word.
    if (const std::string ignote = UnitaSconosciute(s.unita); !ignote.empty()) {
        MostraAvviso(p, "Unità di misura sconosciute in " +
                            PercorsoMostrato(s.dir.dirLavoro + "\\parametrilavoro") + ": " +
                            ignote + ".\nI valori di queste grandezze saranno mostrati come 0.");
    }
    LeggiFont(s.dir.dirProgra, s.font, p);
    LeggiStiliGrb(s.dir.dirCustom + "\\cad2dmodello.grb", s.stili, p);

    constexpr double kLunghezze = 1.0, kSezione = 10.0;  // the file: mm, cm2, cm4
    GuastoLettura guasto;
    s.profili.nProfili = LeggiProfili(s.dir.dirCustom + "\\prof_pro", 1, s.profili.Profili,
                                      kLunghezze, kSezione, kFamiglieNodo, &guasto);
    if (s.profili.nProfili == 0) {
        MostraErrore(
            p, "Profilario errato o mancante" + (guasto.testo.empty() ? "" : "\n" + guasto.testo));
        return false;
    }
    pnn1_aggiorna_sollecitazioni(s, -1);

    std::string errore;
    short vecchio = 0;
    LeggiMateriali(s.dir.dirCustom + "\\MaterialiNTC08.tx1", s.mat, errore, vecchio);
    if (!errore.empty()) {
        MostraErrore(p, errore, "ERRORE");
        return false;
    }
    LeggiMaterialiBase(s.dir.dirLavoro + "\\propmateriali.tx1", s.mat, p);
    Controllo& acciai = s.InsDati["Cb_Acciaio"];
    acciai.voci =
        ListaMateriali(s.nodo.MetodoVerifica(), "PROFILI", s.mat.nAcciaiAperte, s.mat.AcciaiAperte);
    acciai.indice = acciai.voci.empty() ? -1 : 0;
    Controllo& viti = s.InsDati["Cviti"];
    for (int i = 1; i <= RigheUtili(s.mat.nViti); ++i) viti.voci.push_back(s.mat.Viti(i).Nome);
    s.InsDati["CheckMatBase"].abilitato = s.mat.Base.MatBaseValidi;
    s.InsDati["ComboEsposizione"].voci = {"Esposto a fenomeni corrosivi",
                                          "Non esposto a fenomeni corrosivi",
                                          "Resistente alla corrosione"};
    if (!LeggiOpzioni(s.dir.dirCustom + "\\OpzioniNodi.txt", s.opz, p)) return false;
    s.InsDati["FrameSoll"].testo =
        "Sollecitazioni agenti [" + s.unita.UnitaForze + "," + s.unita.UnitaLunghezze + "]";

    CostruisciNodo(s);
    ApriPannello(s, kGestoreInsDati);
    AggiornaTutto(s);
    return true;
}

}  // namespace tk07
