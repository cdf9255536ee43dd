#include "desktop/relazione_pdf.h"

#include <QApplication>
#include <QProgressDialog>

#include "base/file_testo.h"
#include "base/testo.h"
#include "desktop/pilota.h"
#include "desktop/testo_qt.h"
#include "relazione/relazione.h"
#ifdef TK07_CON_SOLIDI
#include "render/figura3d.h"
#endif

namespace tk07::desktop {

void ScriviRelazionePdf(Pilota& pilota, FormaRelazione forma, QWidget* padre) {
    const Sessione& s = pilota.LaSessione();
    const Piattaforma& p = s.piattaforma;
    const RelazionePreparata r = PreparaRelazioneEstesa(s.nodo, s.opz, s.unita, forma);
    if (r.esito != EsitoVerifica::completata) {
        for (const std::string& m : r.messaggi) MostraAvviso(p, m);
        MostraAvviso(p, "La verifica non è possibile!");
        return;
    }
    RichiestaFile dove;
    dove.modo = ModoFile::salva;
    dove.titolo = "RELAZIONE ESTESA";
    dove.estensione = "pdf";
    dove.filtro = "Relazione (*.pdf)|*.pdf";
    dove.direttorio = PercorsoMostrato(s.dir.dirLavoro);
    dove.nomeIniziale = PercorsoMostrato(s.dir.dirLavoro + "\\" + s.nomeFile + ".pdf");
    dove.chiediSovrascrittura = true;
    const auto scelto = p.scegliFile(dove);
    if (!scelto || scelto->percorso.empty()) return;

    QProgressDialog avanza(QStringLiteral("Composizione della relazione..."), QString(), 0, 0,
                           padre);
    avanza.setWindowModality(Qt::WindowModal);
    avanza.setMinimumDuration(400);
    OpzioniRelazione opz;
    opz.forma = forma;
    opz.avanzamento = [&](int fatte, int tutte) {
        avanza.setMaximum(tutte);
        avanza.setValue(fatte);
    };
#ifdef TK07_CON_SOLIDI
    Nodo nodo = s.nodo;
    RicalcolaNervatura3(nodo);
    opz.vista3d = FiguraNodo3D(nodo, s.opz);
#endif
    QString errore;
    const bool scritta = ScriviRelazioneEstesa(s, r.documento, Q(scelto->percorso), opz, errore);
    avanza.reset();
    if (!scritta) {
        MostraErrore(p, errore.toStdString());
        return;
    }
    p.messaggio("File " + PercorsoMostrato(scelto->percorso) + " salvato.", "RELAZIONE ESTESA",
                Segno::informazione, Pulsanti::OK);
}

}  // namespace tk07::desktop
