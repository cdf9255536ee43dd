// The 3D view: the joint's scene on file, and the viewer that shows it.

#include "session/vista3d.h"

#include "base/file_testo.h"
#include "scene3d/assemblaggio.h"
#include "scene3d/file_scena.h"

namespace tk07 {

std::string FileVista3D(const Sessione& s) {
    return s.dir.dirRoot + "\\temp\\" + "TK07" + "_vis3d.tmp";
}

bool PreparaScena(Sessione& s, BulloniProvvisori provvisori) {
    RicalcolaNervatura3(s.nodo);
    const Geometria g = GeometriaDi(s.nodo);
    if (const char* nulla = GrandezzaMancante(g)) {
        SvuotaScena(s.scena);
        MostraAvviso(s.piattaforma,
                     std::string("La vista 3D non è possibile: ") + nulla + " nulla.");
        return false;
    }
    return ComponiScena3D(s.nodo, g, provvisori == BulloniProvvisori::si ? &s.bulloni : nullptr,
                          s.scena, s.piattaforma);
}

bool Vista3D(Sessione& s, LanciaVista lancia, BulloniProvvisori provvisori) {
    const std::string file = FileVista3D(s);
    if (!PreparaScena(s, provvisori) || !ScriviScena(s.scena, file, s.piattaforma)) return false;
    s.Vista3dAperta = 1;
    if (lancia == LanciaVista::si) {
        s.piattaforma.avvia(PercorsoPiattaforma(s.dir.dirProgra + "\\Osserva3D.exe"),
                            {"|fileinp=" + PercorsoPiattaforma(file) + "|"}, false);
    }
    return true;
}

void AggiornaVista3D(Sessione& s, BulloniProvvisori provvisori) {
    if (s.Vista3dAperta == 1) Vista3D(s, LanciaVista::no, provvisori);
}

}  // namespace tk07
