#include "session/disegno.h"

#include "base/file_testo.h"
#include "base/testo.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "drawing/dxf.h"
#include "drawing/grb.h"
#include "joint/controlla_dati.h"

namespace tk07 {

bool GeneraFileDisegno(Sessione& s, std::string_view nomeFile, std::string_view formato,
                       bool silenzioso) {
    const Piattaforma& p = s.piattaforma;
    const std::string f = Maiuscolo(formato);
    if (f != "DIS" && f != "DXF") return false;
    if (!DisegnaNodo(s.nodo, s.opz, Squadratura::si, s.disegno, p)) return false;
    if (f == "DIS") return SalvaDis(s.disegno, nomeFile, silenzioso, p);
    return ScriviDxf(s.disegno, nomeFile, s.font, {}, silenzioso, p);
}

void ApriVisualizzatore(Sessione& s, std::string_view nomeFile) {
    const Piattaforma& p = s.piattaforma;
    p.puntatore(11);
    if (GeneraFileDisegno(s, nomeFile, "DIS", true)) {
        const std::string nome = PercorsoPiattaforma(nomeFile);
        if (p.attivaFinestra("VISUALIZZAZIONE FILE DISEGNO - " + nome)) {
            p.inviaTasti("^v");
        } else {
            const std::string scambio = s.dir.dirProgra + "\\mostradis.inp";
            const std::string errore =
                ScriviFile(scambio, "2\n" + nome + "\n0\n0\n8000\n8000\n", Codifica::windows1252);
            if (!errore.empty()) {
                MostraErrore(p,
                             "Errore durante la scrittura sul file\n" + PercorsoMostrato(scambio) +
                                 ": " + errore,
                             "ERRORE");
            } else if (!p.avvia(PercorsoPiattaforma(s.dir.dirProgra + "\\mostradis.exe"), {},
                                false)) {
                MostraErrore(p, "Visualizzatore incompleto o mancante");
            }
        }
    }
    p.puntatore(0);
}

void Gen_Dis(Sessione& s) {
    RicalcolaNervatura3(s.nodo);
    ControllaDati(s.nodo, s.opz, s.piattaforma);  // told, but a faulty joint is drawn all the same
    RichiestaFile r;
    r.modo = ModoFile::salva;
    r.titolo = "FILE DISEGNO DA GENERARE";
    r.estensione = "grb";
    r.filtro = "File disegno (*.grb)|*.grb|File disegno (*.dis)|*.dis|AutoCAD (*.dxf)|*.dxf";
    r.direttorio = PercorsoMostrato(s.dir.dirLavoro);
    r.nomeIniziale = PercorsoMostrato(s.dir.dirLavoro + "\\TK7_" + s.nomeFile + ".grb");
    r.chiediSovrascrittura = true;
    const auto scelto = s.piattaforma.scegliFile(r);
    if (!scelto || scelto->percorso.empty()) return;
    s.piattaforma.puntatore(11);
    if (scelto->filtro == 1) {
        GeneraGrb(s.nodo, s.opz, scelto->percorso, false, s.piattaforma);
    } else {
        // The second filter, *.dis, yields a DXF text as the third does: a DIS is written for the
        // viewer only.
        GeneraFileDisegno(s, scelto->percorso, "DXF", false);
    }
    s.piattaforma.puntatore(0);
}

void ApriVis(Sessione& s) {
    ControllaDati(s.nodo, s.opz, s.piattaforma);
    ApriVisualizzatore(s, s.dir.dirProgra + "\\nodo.dis");
    GeneraGrb(s.nodo, s.opz, s.dir.dirLavoro + "\\tk7tmp.grb", true, s.piattaforma);
}

}  // namespace tk07
