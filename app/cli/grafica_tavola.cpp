// The sheet, for the command line's twin.

#include "base/file_testo.h"
#include "base/testo.h"
#include "base/visibile.h"
#include "cli/parti_grafica.h"
#include "drawing/composizione.h"
#include "render/esporta.h"

namespace tk07::cli {

bool GraficaTavola(const Sessione& s, const std::string& uscita, std::string& errore) {
    const auto applicazione = AppSenzaSchermo();
    Disegno d;
    // The paper's own frame and title block take the place of those in the drawing.
    if (!DisegnaNodo(s.nodo, s.opz, Squadratura::no, d, s.piattaforma)) {
        errore = "creazione disegno fallita";
        return false;
    }
    OpzioniPittura opz;
    opz.spessori = SpessoriPenne(s.opz);
    const Orologio ora = s.piattaforma.orologio();
    const auto due = [](int n) { return QString::number(n).rightJustified(2, QLatin1Char('0')); };
    const auto testo = [](const std::string& t) {
        return QString::fromStdString(SenzaControlli(t));
    };
    Cartiglio c;
    c.programma = QStringLiteral("TK07 - Nodo trave - trave con piastre");
    c.titolo = testo(TitoloTavola(s.nodo));
    c.file = testo(s.nomeFile + ".tk7");
    c.materiali = testo("Acciaio " + Taglia(s.nodo.acciaio.Nome) + ", viti classe " +
                        Taglia(s.nodo.vite.Nome));
    c.data = due(ora.giorno) + "/" + due(ora.mese) + "/" + QString::number(ora.anno);
    QString detto;
    if (EsportaTavola(d, c, opz, QString::fromStdString(uscita), detto)) return true;
    errore = detto.toStdString();
    return false;
}

}  // namespace tk07::cli
