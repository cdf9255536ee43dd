#include "osserva3d/lettura.h"

#include <cmath>
#include <cstddef>

#include "base/aritmetica.h"
#include "base/chiavi.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07::osserva3d {

namespace {

std::string Numero(double x) { return TestoReale(Arrotonda(x, 4) + 0.0); }

std::string Punto(const Punto3& p) {
    return Numero(p[0]) + " " + Numero(p[1]) + " " + Numero(p[2]);
}

std::string Esadecimale(std::int32_t argb) {
    static constexpr const char* kCifre = "0123456789ABCDEF";
    std::string r = "#";
    for (int bit = 28; bit >= 0; bit -= 4) {
        r += kCifre[(static_cast<std::uint32_t>(argb) >> bit) & 15U];
    }
    return r;
}

}  // namespace

std::string FileInp(std::vector<std::string>& argomenti) {
    for (std::size_t i = 0; i < argomenti.size(); ++i) {
        std::string valore;
        if (!LeggiParametro(Taglia(argomenti[i]), "fileinp", valore, "=", "|")) continue;
        argomenti.erase(argomenti.begin() + static_cast<std::ptrdiff_t>(i));
        return Taglia(valore);
    }
    return {};
}

std::string ElencaScena(const Scena& s, const std::string& file) {
    std::string r = "FILE  " + PercorsoMostrato(file) + "\nESTRUSI  " +
                    std::to_string(s.estrusi.size()) + "\nSEZIONI  " +
                    std::to_string(s.sezioni.size()) + "\nVISTA  angoli " + Numero(s.visual_alfa) +
                    " " + Numero(s.visual_beta) + "  distanza " + Numero(s.visual_dist) + "\n";
    for (std::size_t i = 0; i < s.estrusi.size(); ++i) {
        const Estruso& e = s.estrusi[i];
        const Punto3 &p = e.estrusi_coord1, &q = e.estrusi_coord2;
        r += "ESTRUSO " + std::to_string(i) + "  " + e.estrusi_descri + "  sezione " +
             std::to_string(e.estrusi_punse1) + "  da " + Punto(p) + "  a " + Punto(q) +
             "  lunghezza " + Numero(std::hypot(q[0] - p[0], q[1] - p[1], q[2] - p[2])) +
             "  giro " + Numero(e.estrusi_orient) + "  colore " + Esadecimale(e.estrusi_collat) +
             "\n";
    }
    for (std::size_t i = 0; i < s.sezioni.size(); ++i) {
        const Sezione& x = s.sezioni[i];
        r += "SEZIONE " + std::to_string(i) + "  " + x.sezioni_tipo + "  \"" + x.sezioni_descr +
             "\"";
        for (const Contorno& c : x.contorni) {
            r += "  vertici";
            for (const Vertice& v : c) {
                r += " (" + Numero(v.Z) + " " + Numero(v.Y) + " " + Numero(v.R) + ")";
            }
        }
        r += "\n";
    }
    return r;
}

}  // namespace tk07::osserva3d
