// Loads and geometry from the structural model, as session operations.

#include "session/importazione.h"

#include <memory>

#include "base/testo.h"
#include "joint/tabella_carichi.h"
#include "modelimport/cerca_aste.h"
#include "modelimport/liste.h"
#include "modelimport/risultati_analisi.h"
#include "modelimport/sezioni_struttura.h"
#include "session/gestori.h"
#include "session/vista3d.h"

namespace tk07 {

void TerminaProgramma(Sessione& s) {
    s.piattaforma.puntatore(11);
    s.fine = true;
}

bool ImportaNelNodo(Sessione& s, const TestiImportazione& t, bool maxMin) {
    const RichiestaImport richiesta{
        t.nodi,       t.aste,     t.casi,
        t.condizioni, t.sestetti, maxMin ? ModoImport::massimiMinimi : ModoImport::tutti};
    s.RisultatiValidi = false;
    const EsitoImport esito =
        ImportaSollecitazioni(s.dir.dirLavoro, richiesta, s.nodo, s.piattaforma);
    if (esito == EsitoImport::fineProgramma) TerminaProgramma(s);
    return esito == EsitoImport::bene;
}

std::string AvvisoAstaAssente(const Sessione& s, const TestiImportazione& t) {
    const AstaAssente a = CercaAstaAssente(
        s.dir.dirLavoro, {t.nodi, t.aste, t.casi, t.condizioni, t.sestetti, ModoImport::tutti});
    if (a.asta == 0) return {};
    return "L'asta " + std::to_string(a.asta) + " non è nei risultati " +
           (a.tipo == TipoCarico::caso ? "del caso " : "della condizione ") +
           std::to_string(a.numero) + ": al suo posto verrebbero lette le azioni di un'altra asta.";
}

std::string AnteprimaImportazione(const Sessione& s, const TestiImportazione& t, bool maxMin) {
    constexpr int kMostrati = 200;
    std::string testo = "Sestetti nella tabella: " + std::to_string(s.nodo.nSollAg) + ".\n";
    if (Taglia(t.nodi).empty() || Taglia(t.aste).empty() || Taglia(t.sestetti).empty() ||
        (Taglia(t.casi).empty() && Taglia(t.condizioni).empty())) {
        return testo +
               "Con nodi, aste, casi o condizioni e sestetti compare qui ciò che "
               "verrebbe importato.\n";
    }
    const auto prova = std::make_unique<Nodo>(s.nodo);
    std::string perche;
    Piattaforma muta = PiattaformaMuta();
    muta.messaggio = [&](const std::string& detto, const std::string&, Segno, Pulsanti) {
        if (perche.empty()) perche = detto;
        return Risposta::OK;
    };
    const RichiestaImport richiesta{
        t.nodi,       t.aste,     t.casi,
        t.condizioni, t.sestetti, maxMin ? ModoImport::massimiMinimi : ModoImport::tutti};
    if (ImportaSollecitazioni(s.dir.dirLavoro, richiesta, *prova, muta) != EsitoImport::bene) {
        return testo + "L'importazione non è possibile: " + perche + "\n";
    }
    const int primo = maxMin ? 0 : s.nodo.nSollAg, quanti = prova->nSollAg - primo;
    if (const std::string avviso = AvvisoAstaAssente(s, t); !avviso.empty()) {
        testo += "ATTENZIONE: " + avviso + "\n";
    }
    testo += maxMin ? "Al loro posto resterebbero " : "Si aggiungerebbero ";
    testo += std::to_string(quanti) + " sestetti";
    int presenti = 0;
    for (int k = primo; !maxMin && k < prova->nSollAg; ++k) {
        bool uguale = false;
        for (int j = 0; j < s.nodo.nSollAg && !uguale; ++j) {
            uguale = s.nodo.NomeSa(j) == prova->NomeSa(k);
        }
        presenti += uguale ? 1 : 0;
    }
    if (presenti > 0) testo += ", " + std::to_string(presenti) + " con un nome che c'è già";
    testo += " [" + s.unita.UnitaForze + ", " + s.unita.UnitaMomenti + "]:\n";
    constexpr const char* kNomi[] = {"N", "Ty", "Tz", "Mt", "My", "Mz"};
    for (int k = primo; k < prova->nSollAg && k < primo + kMostrati; ++k) {
        testo += "  " + prova->NomeSa(k) + ":";
        for (int a = 1; a <= 6; ++a) {
            const double f = a <= 3 ? s.unita.FattoreForze : s.unita.FattoreMomenti;
            testo +=
                std::string(" ") + kNomi[a - 1] + " " + TestoCampo(s, ValoreSoll(*prova, a, k), f);
        }
        testo += "\n";
    }
    if (quanti > kMostrati) testo += "  ...\n";
    return testo;
}

void ImportaNodida3D(Sessione& s) {
    NodiTrovati trovati;
    if (!ChiamaTrovaNod(s.dir, s.titoloRicercaNodi, trovati, s.piattaforma)) return;
    std::vector<short> nodi;
    if (!LeggiLista(trovati.nodi, nodi)) {
        MostraErrore(s.piattaforma, "Inserimento dati errato");
        return;
    }
    s.nodo.numNodi = static_cast<short>(nodi.size());
    for (std::size_t i = 0; i < nodi.size(); ++i)
        s.nodo.NomeNodi(static_cast<long>(i) + 1) = nodi[i];
    if (trovati.astaPri != 0 || trovati.astaSec != 0) {
        SezioniTrovate righe;
        const EsitoStr esito =
            ApplicaSezioniStruttura(s.dir.dirLavoro, trovati.astaPri, trovati.astaSec, s.profili,
                                    StrVecchia::termina, righe, s.piattaforma);
        if (esito == EsitoStr::fineProgramma) return TerminaProgramma(s);
        if (righe.TraPri > 0) s.nodo.TraPri = s.profili.Profili(righe.TraPri);
        if (righe.TraSec > 0) s.nodo.TraSec = s.profili.Profili(righe.TraSec);
        pnn1_aggiorna_profili(s, 1, 1);
        AggiornaVista3D(s);
    }
    ApriPannello(s, kGestoreSoll3D);
    PreparaSoll3D(s);
}

std::string SpiegaImportazione(bool maxMin) {
    struct Riga {
        const char* campo;
        const char* byte;
        const char* segno;
        const char* destinazione;
    };
    const Riga tutti[] = {
        {"sforzo normale", "9-16", "come nel file", "N"},
        {"taglio 1", "17-24", "cambia all'estremo 2", "Ty"},
        {"taglio 2", "25-32", "come nel file", "Tz"},
        {"momento torcente", "33-40", "cambia sempre", "Mt"},
        {"momento 1", "41-48", "cambia all'estremo 2", "My"},
        {"momento 2", "49-56", "come nel file", "Mz"},
    };
    std::string t = "Dal file dei risultati (aste*.bin) alla tabella dei carichi:\n";
    for (const Riga& r : tutti) {
        const bool momento = r.destinazione[0] == 'M';
        t += std::string("  ") + r.campo + " (byte " + r.byte + ") -> " + r.destinazione +
             ", segno: " + (maxMin && momento ? "come nel file" : r.segno) + ", " +
             (maxMin && momento ? "arrotondato all'intero" : "arrotondato a 1 decimale") + "\n";
    }
    t += "  estremo 1 o 2: quello dell'asta che sta nel nodo; tutti i casi, poi le condizioni;\n"
         "  caso di carico di tipo I\n";
    return t;
}

}  // namespace tk07
