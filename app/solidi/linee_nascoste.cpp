#include "solidi/linee_nascoste.h"

#include <BRep_Tool.hxx>
#include <HLRAlgo_Projector.hxx>
#include <HLRBRep_PolyAlgo.hxx>
#include <HLRBRep_PolyHLRToShape.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Vertex.hxx>
#include <cmath>

#include "scene3d/terna.h"
#include "solidi/esporta_solidi.h"

namespace tk07 {

namespace {

constexpr double kCongiunti = 1e-4;  // pieces whose ends are this near make one line [mm]

bool Vicini(const std::array<double, 2>& a, const std::array<double, 2>& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1]) < kCongiunti;
}

// Straight pieces as the algorithm leaves them, joined to lines as far as they follow each other.
void Raccogli(const TopoDS_Shape& tratti, std::size_t parte, TrattoLinea tratto,
              std::vector<LineaProiettata>& linee) {
    if (tratti.IsNull()) return;
    LineaProiettata l{parte, tratto, {}};
    for (TopExp_Explorer i(tratti, TopAbs_EDGE); i.More(); i.Next()) {
        TopoDS_Vertex v1, v2;
        TopExp::Vertices(TopoDS::Edge(i.Current()), v1, v2);
        if (v1.IsNull() || v2.IsNull()) continue;
        const gp_Pnt p = BRep_Tool::Pnt(v1), q = BRep_Tool::Pnt(v2);
        std::array<double, 2> da{p.X(), p.Y()}, a{q.X(), q.Y()};
        if (Vicini(da, a)) continue;
        if (!l.punti.empty() && Vicini(l.punti.back(), a)) std::swap(da, a);
        if (l.punti.empty() || !Vicini(l.punti.back(), da)) {
            if (l.punti.size() > 1) linee.push_back(l);
            l.punti = {da};
        }
        l.punti.push_back(a);
    }
    if (l.punti.size() > 1) linee.push_back(l);
}

}  // namespace

Proiezione ProiezioneDa(const Punto3& verso) {
    Proiezione p;
    if (!Versore({0, 0, 0}, verso, p.verso)) p.verso = {1, 0, 0};
    const bool verticale = std::hypot(p.verso[0], p.verso[1]) < 1e-9;
    const Punto3 alto = verticale ? Punto3{0, 1, 0} : Punto3{0, 0, 1};
    Versore({0, 0, 0}, Prodotto(alto, p.verso), p.destra);
    p.su = Prodotto(p.verso, p.destra);
    return p;
}

bool LineeNascoste(const std::vector<Parte>& parti, const Proiezione& da, Nascoste anche,
                   std::vector<LineaProiettata>& linee, std::string& errore) {
    linee.clear();
    try {
        Reticola(parti);
        const gp_Dir verso(da.verso[0], da.verso[1], da.verso[2]);
        const gp_Dir destra(da.destra[0], da.destra[1], da.destra[2]);
        Handle(HLRBRep_PolyAlgo) calcolo = new HLRBRep_PolyAlgo();
        for (const Parte& p : parti) calcolo->Load(p.forma);
        calcolo->Projector(HLRAlgo_Projector(gp_Ax2(gp_Pnt(0, 0, 0), verso, destra)));
        calcolo->Update();
        HLRBRep_PolyHLRToShape forme;
        forme.Update(calcolo);
        for (std::size_t i = 0; i < parti.size(); ++i) {
            const TopoDS_Shape& f = parti[i].forma;
            if (anche == Nascoste::si) {
                Raccogli(forme.HCompound(f), i, TrattoLinea::nascosto, linee);
                Raccogli(forme.OutLineHCompound(f), i, TrattoLinea::nascosto, linee);
            }
            Raccogli(forme.VCompound(f), i, TrattoLinea::visibile, linee);
            Raccogli(forme.OutLineVCompound(f), i, TrattoLinea::visibile, linee);
        }
        return true;
    } catch (const Standard_Failure& guasto) {
        errore = std::string("linee nascoste non calcolate: ") + guasto.GetMessageString();
        return false;
    }
}

}  // namespace tk07
