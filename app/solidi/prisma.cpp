#include "solidi/prisma.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepGProp.hxx>
#include <BRepOffsetAPI_ThruSections.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRep_Builder.hxx>
#include <GProp_GProps.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Wire.hxx>
#include <cmath>
#include <gp_Circ.hxx>
#include <gp_Pln.hxx>
#include <vector>

#include "base/aritmetica.h"
#include "scene3d/terna.h"

namespace tk07 {

namespace {

constexpr double kCoincidenti = 1e-6;  // corners this near are one [mm]
// Vertices of circles are rounded to 3 decimals when the scene is made.
constexpr double kTondo = 2e-3;

gp_Pnt InGp(const Punto3& p) { return {p[0], p[1], p[2]}; }
gp_Dir VersoGp(const Punto3& p) { return {p[0], p[1], p[2]}; }

// The plane of a section: from its coordinates to those of the scene.
struct Piano {
    Punto3 origine;
    Terna t;
    gp_Pnt Punto(double Z, double Y) const { return InGp(Avanti(Avanti(origine, Z, t.z), Y, t.y)); }
};

// Twice the area, positive for a contour that runs clockwise with Z to the right and Y upwards.
double AreaDoppia(const Contorno& c) {
    double a = 0.0;
    for (std::size_t i = 0; i < c.size(); ++i) {
        const Vertice &p = c[i], &q = c[(i + 1) % c.size()];
        a += p.Y * q.Z - p.Z * q.Y;
    }
    return a;
}

Contorno SenzaDoppi(const Contorno& c) {
    Contorno v;
    const auto lontani = [](const Vertice& a, const Vertice& b) {
        return std::hypot(a.Z - b.Z, a.Y - b.Y) > kCoincidenti;
    };
    for (const Vertice& p : c) {
        if (v.empty() || lontani(v.back(), p)) {
            v.push_back(p);
        } else {
            v.back().R = p.R;  // the side that is left is the one behind the last of the two
        }
    }
    while (v.size() > 1 && !lontani(v.front(), v.back())) v.pop_back();
    return v;
}

// Whether the contour is one circle, and then its centre.
bool Tondo(const Contorno& c, double& Z, double& Y) {
    Z = Y = 0.0;
    for (const Vertice& p : c) Z += p.Z, Y += p.Y;
    Z /= static_cast<double>(c.size());
    Y /= static_cast<double>(c.size());
    for (const Vertice& p : c) {
        if (!(p.R > 0.0) || p.R != c[0].R ||
            std::fabs(std::hypot(p.Z - Z, p.Y - Y) - p.R) > kTondo) {
            return false;
        }
    }
    return true;
}

// Runs counter-clockwise about the axis; null for a contour without area.
TopoDS_Wire Filo(const Contorno& grezzo, const Piano& piano) {
    const Contorno c = SenzaDoppi(grezzo);
    const double area = AreaDoppia(c);
    if (c.size() < 3 || !(std::fabs(area) > kCoincidenti)) return {};
    const gp_Dir asse = VersoGp(piano.t.x);
    BRepBuilderAPI_MakeWire filo;
    double Zc = 0.0, Yc = 0.0;
    if (Tondo(c, Zc, Yc)) {
        filo.Add(BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(piano.Punto(Zc, Yc), asse), c[0].R)));
        return filo.Wire();
    }
    const double giro = area > 0.0 ? 1.0 : -1.0;
    for (std::size_t i = 0; i < c.size(); ++i) {
        const Vertice &p = c[i], &q = c[(i + 1) % c.size()];
        const gp_Pnt da = piano.Punto(p.Z, p.Y), a = piano.Punto(q.Z, q.Y);
        const double dZ = q.Z - p.Z, dY = q.Y - p.Y, corda = std::hypot(dZ, dY);
        const double R = std::fabs(p.R), freccia2 = R * R - corda * corda / 4.0;
        if (!(R > 0.0) || freccia2 < -kCoincidenti * R) {
            filo.Add(BRepBuilderAPI_MakeEdge(da, a));
            continue;
        }
        // The outside of a clockwise contour lies to the left of its sides, (-dY, dZ); the arc that
        // bulges there has its centre on the other hand and turns clockwise, about +x.
        const double fuori = (p.R > 0.0 ? 1.0 : -1.0) * giro;
        const double h = -fuori * std::sqrt(Max(freccia2, 0.0)) / corda;
        const gp_Pnt centro = piano.Punto((p.Z + q.Z) / 2.0 - dY * h, (p.Y + q.Y) / 2.0 + dZ * h);
        const gp_Dir perno = fuori > 0.0 ? asse : asse.Reversed();
        filo.Add(BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(centro, perno), R), da, a));
    }
    TopoDS_Wire w = filo.Wire();
    if (area < 0.0) w.Reverse();
    return w;
}

bool Racchiude(const Contorno& c, const Vertice& p) {
    bool dentro = false;
    for (std::size_t i = 0; i < c.size(); ++i) {
        const Vertice &a = c[i], &b = c[(i + 1) % c.size()];
        if ((a.Y > p.Y) != (b.Y > p.Y) && p.Z < a.Z + (b.Z - a.Z) * (p.Y - a.Y) / (b.Y - a.Y)) {
            dentro = !dentro;
        }
    }
    return dentro;
}

bool StessiContorni(const Sezione& a, const Sezione& b) { return a.contorni == b.contorni; }

}  // namespace

TopoDS_Shape Prisma(const Estruso& e, const Sezione& inizio, const Sezione& fine) {
    const Piano piano{e.estrusi_coord1, TernaEstruso(e)};
    if (!piano.t.valida || inizio.contorni.empty() || fine.contorni.empty()) return {};
    const gp_Vec lungo(InGp(e.estrusi_coord1), InGp(e.estrusi_coord2));
    if (lungo.Magnitude() < kCoincidenti) return {};
    if (!StessiContorni(inizio, fine)) {
        const Piano laggiu{e.estrusi_coord2, piano.t};
        const TopoDS_Wire da = Filo(inizio.contorni[0], piano), a = Filo(fine.contorni[0], laggiu);
        if (da.IsNull() || a.IsNull()) return {};
        BRepOffsetAPI_ThruSections rigata(Standard_True, Standard_True);
        rigata.AddWire(da);
        rigata.AddWire(a);
        rigata.Build();
        return rigata.IsDone() ? rigata.Shape() : TopoDS_Shape();
    }
    // Each contour outside the others' first bounds a face; those inside it are its holes.
    std::vector<std::size_t> bordi;
    std::vector<BRepBuilderAPI_MakeFace> facce;
    for (std::size_t k = 0; k < inizio.contorni.size(); ++k) {
        const Contorno& c = inizio.contorni[k];
        const TopoDS_Wire filo = Filo(c, piano);
        if (filo.IsNull()) {
            if (k == 0) return {};
            continue;
        }
        bool foro = false;
        for (std::size_t b = 0; b < bordi.size() && !foro; ++b) {
            foro = Racchiude(inizio.contorni[bordi[b]], c[0]);
            if (foro) facce[b].Add(TopoDS::Wire(filo.Reversed()));
        }
        if (foro) continue;
        bordi.push_back(k);
        facce.emplace_back(gp_Pln(InGp(piano.origine), VersoGp(piano.t.x)), filo);
    }
    TopoDS_Compound insieme;
    BRep_Builder costruttore;
    costruttore.MakeCompound(insieme);
    TopoDS_Shape solido;
    for (BRepBuilderAPI_MakeFace& f : facce) {
        if (!f.IsDone()) return {};
        solido = BRepPrimAPI_MakePrism(f.Face(), lungo).Shape();
        costruttore.Add(insieme, solido);
    }
    return facce.size() == 1 ? solido : insieme;
}

Contorno ContornoTondo(double Z, double Y, double r) {
    return {{Z, Y + r, r}, {Z + r, Y, r}, {Z, Y - r, r}, {Z - r, Y, r}};
}

Contorno TagliaSpigolo(const Contorno& c, double Z, double Y, double dZ, double dY, double smusso) {
    if (!(smusso > 0.0)) return c;
    const auto quota = [&](const Vertice& p) { return dZ * (p.Z - Z) + dY * (p.Y - Y) - smusso; };
    Contorno v;
    for (std::size_t i = 0; i < c.size(); ++i) {
        const Vertice &p = c[i], &q = c[(i + 1) % c.size()];
        const double a = quota(p), b = quota(q);
        if (a >= 0.0) v.push_back(p);
        if ((a < 0.0) != (b < 0.0)) {
            const double t = a / (a - b);
            v.push_back({p.Z + (q.Z - p.Z) * t, p.Y + (q.Y - p.Y) * t, 0.0});
        }
    }
    return SenzaDoppi(v);
}

double VolumeForma(const TopoDS_Shape& forma) {
    if (forma.IsNull()) return 0.0;
    GProp_GProps p;
    BRepGProp::VolumeProperties(forma, p);
    return p.Mass();
}

}  // namespace tk07
