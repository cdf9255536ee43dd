#include "guscio/disegna.h"

#include "base/file_testo.h"
#include "base/testo.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "drawing/dxf.h"
#include "drawing/grb.h"
#include "guscio/banco.h"
#include "joint/controlla_dati.h"

namespace tk07 {

namespace {

std::string Estensione(const std::string& file) {
    const std::string nome = NomeSenzaDirettorio(file);
    const std::size_t punto = nome.rfind('.');
    return punto == std::string::npos ? "" : Minuscolo(nome.substr(punto + 1));
}

bool Scrivi(Sessione& s, const OpzioniDisegna& opz, const std::string& estensione,
            const Grafica& grafica) {
    const Piattaforma& p = s.piattaforma;
    if (estensione == "grb") return SalvaGrb(s.nodo, s.opz, opz.uscita, true, p);
    if (VuoleGrafica(opz.uscita)) {
        std::string errore =
            "manca la parte grafica del programma (si costruisce dove ci sono le librerie Qt 6)";
        if (grafica.esportaTavola != nullptr && grafica.esportaTavola(s, opz.uscita, errore)) {
            return true;
        }
        MostraErrore(p, errore);
        return false;
    }
    if (!DisegnaNodo(s.nodo, s.opz, Squadratura::si, s.disegno, p)) return false;
    if (estensione == "dis") return SalvaDis(s.disegno, opz.uscita, true, p);
    OpzioniDxf dxf;
    dxf.tipiLinea = opz.tipiLinea;
    return ScriviDxf(s.disegno, opz.uscita, s.font, dxf, true, p);
}

}  // namespace

bool VuoleGrafica(const std::string& uscita) {
    const std::string e = Estensione(uscita);
    return e == "svg" || e == "pdf" || e == "png";
}

int ComandoDisegna(const Avvio& avvio, const OpzioniDisegna& opz, const Grafica& grafica) {
    const std::string e = Estensione(opz.uscita);
    if (e != "grb" && e != "dis" && e != "dxf" && !VuoleGrafica(opz.uscita)) {
        Errore(opz.uscita, "estensione non ammessa: grb, dis, dxf, svg, pdf o png");
        return kUscitaUso;
    }
    if (opz.tipiLinea && e != "dxf") {
        Errore(opz.uscita, "--tipi-linea vale solo per i file dxf");
        return kUscitaUso;
    }
    return SuNodo(avvio, opz.file, [&](Sessione& s) {
        RicalcolaNervatura3(s.nodo);
        ControllaDati(s.nodo, s.opz, s.piattaforma);  // told; the drawing is made all the same
        return Scrivi(s, opz, e, grafica) ? kUscitaOk : kUscitaUso;
    });
}

int EseguiGemello(const std::vector<std::string>& argomenti) {
    int uscita = kUscitaUso;
    if (!EseguiProgramma("tk07-grafica", argomenti, uscita)) {
        Errore("tk07",
               "questo comando vuole il programma tk07-grafica, che non è installato "
               "(si costruisce dove ci sono le librerie Qt 6 o OpenCASCADE)");
        return kUscitaUso;
    }
    return uscita;
}

}  // namespace tk07
