#include "scene3d/urti.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/aritmetica.h"
#include "joint/geometria.h"

namespace tk07 {

namespace {

constexpr double kMezzaChiave = 0.75;  // half the width across flats, in diameters
constexpr double kAltoDado = 0.5;      // as the scene has it
constexpr double kSenzaFine = 1e9;

// A part in the plane of the plates: y along the main beam, z upwards.
struct Ostacolo {
    const char* parte;
    double y1, y2, z1, z2;
};

bool Tocca(const Ostacolo& o, double y, double z, double raggio) {
    const double dy = Max(Max(o.y1 - y, y - o.y2), 0.0);
    const double dz = Max(Max(o.z1 - z, z - o.z2), 0.0);
    return std::hypot(dy, dz) < raggio - 1e-6;
}

}  // namespace

std::vector<Urto> UrtiBulloni(const Nodo& n) {
    const Geometria g = GeometriaDi(n);
    const double zAla = g.zS2, zSotto = g.zS;
    const double b = n.TraSec.B / 2.0, tf = n.TraSec.tf, anima = n.TraSec.tw / 2.0;
    std::vector<Ostacolo> davanti{{"l'anima della trave secondaria", -anima, anima, zSotto, zAla},
                                  {"un'ala della trave secondaria", -b, b, zAla - tf, zAla},
                                  {"un'ala della trave secondaria", -b, b, zSotto, zSotto + tf}};
    if (g.nervatura(1).conForma) {
        const double s = n.SpNerv(1) / 2.0;
        davanti.push_back({"la nervatura superiore", -s, s, zAla, zAla + n.H1Nerv(1)});
    }
    if (g.nervatura(2).conForma) {
        const double s = n.SpNerv(2) / 2.0;
        davanti.push_back({"la nervatura inferiore", -s, s, zSotto - n.H1Nerv(2), zSotto});
    }
    const double zDentro = g.zAlaPri, zFuori = n.TraPri.H / 2.0;
    std::vector<Ostacolo> dietro;
    if (g.nervatura(3).conForma) {
        const double s = n.SpNerv(3) / 2.0, h = n.H1Nerv(3) / 2.0;
        dietro.push_back({"la nervatura interna", -s, s, -h, h});
    }
    std::vector<Urto> urti;
    const auto prova = [&](int i, const char* elemento, const std::vector<Ostacolo>& ostacoli) {
        const double z = AltezzaBullone(g, n.Ybull(i));
        for (const Ostacolo& o : ostacoli) {
            const bool detto = std::any_of(urti.begin(), urti.end(), [&](const Urto& u) {
                return u.bullone == i && std::string_view(u.parte) == o.parte;
            });
            if (!detto && Tocca(o, n.Xbull(i), z, kMezzaChiave * n.Fibull(i))) {
                urti.push_back({i, elemento, o.parte});
            }
        }
    };
    for (int i = 1; i <= n.nBull; ++i) {
        prova(i, "la testa", davanti);
        std::vector<Ostacolo> suoi = dietro;
        const double xDado = g.xP1 - kAltoDado * n.Fibull(i);
        // The flanges reach to B / 2, the web stands across the axis.
        if (xDado < n.TraPri.B / 2.0) {
            for (const auto& [z1, z2] :
                 {std::pair{zDentro, zFuori}, std::pair{-zFuori, -zDentro}}) {
                suoi.push_back({"un'ala della trave principale", -kSenzaFine, kSenzaFine, z1, z2});
            }
        }
        if (xDado < g.xAnima) {
            suoi.push_back(
                {"l'anima della trave principale", -kSenzaFine, kSenzaFine, -zFuori, zFuori});
        }
        prova(i, "il dado", suoi);
    }
    return urti;
}

std::vector<std::string> RigheUrti(const std::vector<Urto>& urti) {
    struct Riga {
        std::string coda, numeri;
        int quanti = 0;
    };
    std::vector<Riga> righe;
    for (const Urto& u : urti) {
        const std::string coda = std::string(u.elemento) + " urta " + u.parte;
        auto r =
            std::find_if(righe.begin(), righe.end(), [&](const Riga& x) { return x.coda == coda; });
        if (r == righe.end()) r = righe.insert(righe.end(), {coda, {}, 0});
        r->numeri += (r->quanti > 0 ? ", " : "") + std::to_string(u.bullone);
        ++r->quanti;
    }
    std::vector<std::string> testi;
    for (const Riga& r : righe) {
        testi.push_back((r.quanti > 1 ? "bulloni " : "bullone ") + r.numeri + ": " + r.coda);
    }
    return testi;
}

}  // namespace tk07
