// The extended report, for the command line's twin.

#include "cli/parti_grafica.h"
#include "relazione/relazione.h"
#include "render/esporta.h"
#ifdef TK07_CON_SOLIDI
#include "render/figura3d.h"
#endif

namespace tk07::cli {

bool GraficaRelazione(const Sessione& s, const RelazioneEstesa& documento, const std::string& file,
                      const std::string& uscita,
                      const std::function<void(int fatte, int tutte)>& avanzamento,
                      std::string& errore) {
    const auto applicazione = AppSenzaSchermo();
    OpzioniRelazione opz;
    opz.fileNodo = QString::fromStdString(file);
    opz.avanzamento = avanzamento;
#ifdef TK07_CON_SOLIDI
    Nodo nodo = s.nodo;
    RicalcolaNervatura3(nodo);
    opz.vista3d = FiguraNodo3D(nodo, s.opz);
#endif
    QString detto;
    if (ScriviRelazioneEstesa(s, documento, QString::fromStdString(uscita), opz, detto)) {
        return true;
    }
    errore = detto.toStdString();
    return false;
}

}  // namespace tk07::cli
