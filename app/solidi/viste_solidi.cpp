#include "solidi/viste_solidi.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepAlgoAPI_Common.hxx>
#include <BRepBndLib.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Cylinder.hxx>
#include <gp_Trsf.hxx>

#include "scene3d/terna.h"
#include "solidi/esporta_solidi.h"

namespace tk07 {

namespace {

constexpr double kPassoEsploso = 140.0;  // mm between neighbours at full stretch

// Place along the secondary beam when pulled apart.
double Rango(const DatiParte& p) {
    const auto comincia = [&](const char* con) { return p.oggetto.rfind(con, 0) == 0; };
    switch (p.tipo) {
        case TipoParte::dado:
            return 2.0;
        case TipoParte::gambo:
        case TipoParte::testa:
            return 5.0;
        default:
            break;
    }
    if (comincia("TraPri")) return 0.0;
    if (comincia("Nerv_3") || comincia("sald_nerv3") || comincia("sald_s4")) return 1.0;
    if (comincia("piastra_lato_TraPri")) return 3.0;
    if (comincia("piastra_lato_TraSec")) return 4.0;
    if (comincia("sald") || comincia("Nerv")) return 6.0;
    return comincia("TraSec") ? 7.0 : 4.5;
}

Punto3 Vettore(const gp_XYZ& p) { return {p.X(), p.Y(), p.Z()}; }

void AggiungiFaccia(const TopoDS_Face& faccia, Maglia& m) {
    TopLoc_Location luogo;
    const Handle(Poly_Triangulation) t = BRep_Tool::Triangulation(faccia, luogo);
    if (t.IsNull()) return;
    const BRepAdaptor_Surface superficie(faccia, Standard_False);
    const bool tonda = superficie.GetType() == GeomAbs_Cylinder;
    const gp_Trsf dove = luogo.Transformation();
    const bool capovolta = faccia.Orientation() == TopAbs_REVERSED;
    for (int i = 1; i <= t->NbTriangles(); ++i) {
        int n[3];
        t->Triangle(i).Get(n[0], n[1], n[2]);
        if (capovolta) std::swap(n[1], n[2]);
        Faccetta f;
        for (std::size_t k = 0; k < 3; ++k) {
            f.punti[k] = Vettore(t->Node(n[k]).Transformed(dove).XYZ());
        }
        Punto3 uno = Avanti(f.punti[1], -1.0, f.punti[0]),
               due = Avanti(f.punti[2], -1.0, f.punti[0]);
        Punto3 normale;
        if (!Versore({0, 0, 0}, Prodotto(uno, due), normale)) continue;
        f.normali = {normale, normale, normale};
        if (tonda) {  // the true normals, so that facets do not show
            const gp_Ax1 asse = superficie.Cylinder().Axis();
            const Punto3 o = Vettore(asse.Location().XYZ()), u = Vettore(asse.Direction().XYZ());
            for (std::size_t k = 0; k < 3; ++k) {
                const Punto3 d = Avanti(f.punti[k], -1.0, o);
                Punto3 r;
                if (!Versore({0, 0, 0}, Avanti(d, -Scalare(d, u), u), r)) continue;
                f.normali[k] = Scalare(r, normale) < 0.0 ? Punto3{-r[0], -r[1], -r[2]} : r;
            }
        }
        m.faccette.push_back(f);
    }
}

// One part's facets over the picture; `scrivi(pixel, depth, brightness)` takes what lies nearest.
template <class F>
void Stendi(const Maglia& m, const Inquadratura& q, std::vector<float>& profondita, F scrivi) {
    // A lamp a little above and to the left of the eye.
    Punto3 luce = Avanti(Avanti(q.p.verso, 0.4, q.p.su), -0.25, q.p.destra);
    Versore({0, 0, 0}, luce, luce);
    for (const Faccetta& f : m.faccette) {
        double x[3], y[3], z[3], chiaro[3];
        for (std::size_t k = 0; k < 3; ++k) {
            const auto v = q.Pixel(f.punti[k]);
            x[k] = v[0], y[k] = v[1], z[k] = Scalare(f.punti[k], q.p.verso);
            chiaro[k] = 0.42 + 0.58 * std::max(0.0, Scalare(f.normali[k], luce));
        }
        const double area = (x[1] - x[0]) * (y[2] - y[0]) - (x[2] - x[0]) * (y[1] - y[0]);
        if (!(area < -1e-9)) continue;  // y runs downwards: facing the eye is negative
        const auto limite = [](double v, int massimo) {
            return static_cast<int>(std::clamp(v, -1.0, massimo + 1.0));
        };
        const int x0 = std::max(0, limite(std::floor(std::min({x[0], x[1], x[2]})), q.larghezza));
        const int x1 =
            std::min(q.larghezza - 1, limite(std::ceil(std::max({x[0], x[1], x[2]})), q.larghezza));
        const int y0 = std::max(0, limite(std::floor(std::min({y[0], y[1], y[2]})), q.altezza));
        const int y1 =
            std::min(q.altezza - 1, limite(std::ceil(std::max({y[0], y[1], y[2]})), q.altezza));
        for (int j = y0; j <= y1; ++j) {
            for (int i = x0; i <= x1; ++i) {
                const double px = i + 0.5, py = j + 0.5;
                const double a = ((x[1] - px) * (y[2] - py) - (x[2] - px) * (y[1] - py)) / area;
                const double b = ((x[2] - px) * (y[0] - py) - (x[0] - px) * (y[2] - py)) / area;
                const double c = 1.0 - a - b;
                if (a < 0.0 || b < 0.0 || c < 0.0) continue;
                const auto p = static_cast<std::size_t>(j) * static_cast<std::size_t>(q.larghezza) +
                               static_cast<std::size_t>(i);
                const auto fondo = static_cast<float>(a * z[0] + b * z[1] + c * z[2]);
                if (fondo <= profondita[p]) continue;
                profondita[p] = fondo;
                scrivi(p, a * chiaro[0] + b * chiaro[1] + c * chiaro[2]);
            }
        }
    }
}

std::uint32_t Schiarito(std::uint32_t argb, double chiaro) {
    std::uint32_t r = argb & 0xFF000000U;
    for (const int bit : {16, 8, 0}) {
        const double c = ((argb >> bit) & 0xFFU) * std::min(chiaro, 1.0);
        r |= static_cast<std::uint32_t>(c + 0.5) << bit;
    }
    return r;
}

}  // namespace

Punto3 SpostamentoEsploso(const DatiParte& p, double quanto) {
    const double passo = kPassoEsploso * quanto;
    double su = 0.0;
    if (p.oggetto == "Nerv1" || p.oggetto.rfind("sald_nerv1", 0) == 0) su = 0.6;
    if (p.oggetto == "Nerv_2" || p.oggetto.rfind("sald_nerv2", 0) == 0) su = -0.6;
    return {Rango(p) * passo, 0.0, su * passo};
}

Parte Spostata(const Parte& p, const Punto3& di) {
    if (p.forma.IsNull() || di == Punto3{}) return p;
    gp_Trsf t;
    t.SetTranslation(gp_Vec(di[0], di[1], di[2]));
    return {p.dati, p.forma.Moved(TopLoc_Location(t))};
}

std::vector<Parte> Tagliate(const std::vector<Parte>& parti, int asse, double quota,
                            LatoTenuto lato) {
    constexpr double kLontano = 1e5;  // mm
    gp_Pnt a(-kLontano, -kLontano, -kLontano), b(kLontano, kLontano, kLontano);
    (lato == LatoTenuto::sotto ? b : a).SetCoord(asse + 1, quota);
    std::vector<Parte> v;
    TopoDS_Shape meta;
    for (const Parte& p : parti) {
        v.push_back(p);
        Bnd_Box ingombro;
        BRepBndLib::Add(p.forma, ingombro);
        if (ingombro.IsVoid()) continue;
        const double da = ingombro.CornerMin().Coord(asse + 1);
        const double fino = ingombro.CornerMax().Coord(asse + 1);
        if (lato == LatoTenuto::sotto ? fino <= quota : da >= quota) continue;
        if (lato == LatoTenuto::sotto ? da >= quota : fino <= quota) {
            v.back().forma = TopoDS_Shape();
            continue;
        }
        if (meta.IsNull()) meta = BRepPrimAPI_MakeBox(a, b).Shape();
        BRepAlgoAPI_Common comune(p.forma, meta);
        if (comune.IsDone()) v.back().forma = comune.Shape();
    }
    return v;
}

std::vector<Maglia> Maglie(const std::vector<Parte>& parti) {
    std::vector<Maglia> v(parti.size());
    Reticola(parti);
    for (std::size_t i = 0; i < parti.size(); ++i) {
        if (parti[i].forma.IsNull()) continue;
        for (TopExp_Explorer f(parti[i].forma, TopAbs_FACE); f.More(); f.Next()) {
            AggiungiFaccia(TopoDS::Face(f.Current()), v[i]);
        }
        TopTools_IndexedMapOfShape spigoli;
        TopExp::MapShapes(parti[i].forma, TopAbs_VERTEX, spigoli);
        for (int k = 1; k <= spigoli.Extent(); ++k) {
            v[i].vertici.push_back(Vettore(BRep_Tool::Pnt(TopoDS::Vertex(spigoli(k))).XYZ()));
        }
    }
    return v;
}

Punto3 Inquadratura::Punto(double x, double y, double profondita) const {
    const double u = (x - larghezza / 2.0) / perMm + centro[0];
    const double v = (altezza / 2.0 - y) / perMm + centro[1];
    return Avanti(Avanti(Avanti({0, 0, 0}, u, p.destra), v, p.su), profondita, p.verso);
}

void Adatta(const std::vector<Maglia>& maglie, Inquadratura& q, double bordo) {
    double x0 = 1e300, x1 = -1e300, y0 = 1e300, y1 = -1e300;
    for (const Maglia& m : maglie) {
        for (const Faccetta& f : m.faccette) {
            for (const Punto3& p : f.punti) {
                const auto v = q.p.Piana(p);
                x0 = std::min(x0, v[0]), x1 = std::max(x1, v[0]);
                y0 = std::min(y0, v[1]), y1 = std::max(y1, v[1]);
            }
        }
    }
    if (x0 > x1) return;
    q.centro = {(x0 + x1) / 2.0, (y0 + y1) / 2.0};
    q.perMm = (1.0 - bordo) *
              std::min(q.larghezza / std::max(x1 - x0, 1e-3), q.altezza / std::max(y1 - y0, 1e-3));
}

Quadro Ombreggia(const std::vector<Maglia>& maglie, const std::vector<TintaParte>& tinte,
                 const Inquadratura& q) {
    constexpr float kVuoto = -1e30F;
    Quadro r;
    r.larghezza = q.larghezza, r.altezza = q.altezza;
    const std::size_t n =
        static_cast<std::size_t>(q.larghezza) * static_cast<std::size_t>(q.altezza);
    r.colori.assign(n, 0U);
    r.parti.assign(n, -1);
    r.profondita.assign(n, kVuoto);
    const auto piena = [&](std::size_t i) { return tinte[i].argb >> 24 == 0xFFU; };
    bool velate = false;
    for (std::size_t i = 0; i < maglie.size(); ++i) {
        if (!tinte[i].visibile) continue;
        velate = velate || !piena(i);
        if (!piena(i)) continue;
        Stendi(maglie[i], q, r.profondita, [&](std::size_t p, double chiaro) {
            r.colori[p] = Schiarito(tinte[i].argb, chiaro);
            r.parti[p] = static_cast<int>(i);
        });
    }
    if (!velate) return r;
    // The nearest of what shines through, where it lies before the rest.
    std::vector<float> davanti = r.profondita;
    std::vector<std::uint32_t> velo(n, 0U);
    std::vector<int> chi(n, -1);
    for (std::size_t i = 0; i < maglie.size(); ++i) {
        if (!tinte[i].visibile || piena(i)) continue;
        Stendi(maglie[i], q, davanti, [&](std::size_t p, double chiaro) {
            velo[p] = Schiarito(tinte[i].argb, chiaro);
            chi[p] = static_cast<int>(i);
        });
    }
    for (std::size_t p = 0; p < n; ++p) {
        const std::uint32_t alfa = velo[p] >> 24;
        if (alfa == 0) continue;
        if (r.parti[p] < 0) {
            r.colori[p] = velo[p];
            r.parti[p] = chi[p];
            r.profondita[p] = davanti[p];
            continue;
        }
        std::uint32_t c = 0xFF000000U;
        for (const int bit : {16, 8, 0}) {
            const std::uint32_t sopra = (velo[p] >> bit) & 0xFFU,
                                sotto = (r.colori[p] >> bit) & 0xFFU;
            c |= ((sopra * alfa + sotto * (255U - alfa)) / 255U) << bit;
        }
        r.colori[p] = c;
    }
    return r;
}

}  // namespace tk07
