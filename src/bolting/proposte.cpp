#include "bolting/proposte.h"

#include <cmath>

#include "base/aritmetica.h"
#include "norme/distanze.h"

namespace tk07 {

namespace {

constexpr double kLarghezzaMinima = 120.0;  // mm, floor on the width of both plates
constexpr double kInSu = 0.99;              // with Int: up to the next whole millimetre

constexpr const char* kNonCompatibili =
    "Diametro dei bulloni e dimensioni delle piastre 'non compatibili'. Aumentare lo spessore "
    "delle piastre o le loro dimensioni o diminuire il diametro o la tolleranza foro/bullone";
constexpr const char* kNienteSopra =
    "Impossibile inserire bulloni nella porzione sopra la trave secondaria.\n"
    "Modificare il diametro dei bulloni o le dimensioni delle piastre.";
constexpr const char* kNienteSotto =
    "Impossibile inserire bulloni nella porzione sotto la trave secondaria.\n"
    "Modificare il diametro dei bulloni o le dimensioni delle piastre.";
constexpr const char* kNienteALato =
    "Impossibile inserire bulloni a lato dell'anima della trave secondaria.\n"
    "Modificare il diametro dei bulloni o le dimensioni delle piastre.";

// Rib i (1, 2) of height h at the plate.
void ProponiNervatura(Nodo& n, int i, double h) {
    n.H1Nerv(i) = h;
    n.H2Nerv(i) = Int(2.0 / 3.0 * n.H1Nerv(i));
    n.BNerv(i) = Int(n.TraSec.H / 2.0 + kInSu);
    n.SpNerv(i) = Int(n.TraSec.tw + kInSu);
    // A rib that is off takes the sizes, ready to be switched on, and stays off: the proposal gives
    // sizes, and takes away only what has no room.
    if (n.H1Nerv(i) <= 0.0) {
        n.H1Nerv(i) = n.H2Nerv(i) = n.BNerv(i) = 0.0;
        n.AttNerv(i) = false;
    }
}

bool Compatibili(const LimitiProposta& l) {
    return !(l.eMinX > l.eMaxX || l.eMinY > l.eMaxY || l.eMinX > l.eMax2X || l.eMinY > l.eMax2Y ||
             l.passoMinX > l.passoMax);
}

// The positions along one side of a zone: the first, the pitch, how many (less than 1: none).
struct Fila {
    double primo = 0.0, passo = 0.0, quanti = 0.0;
    double operator()(int i) const { return primo + passo * i; }
};

Fila FilaTra(double da, double a, double passoMin) {
    Fila f;
    f.quanti = Int((a - da) / passoMin) + 1.0;
    f.primo = da;
    if (f.quanti > 1.0) f.passo = (a - da) / (f.quanti - 1.0);
    if (f.quanti == 1.0) f.primo = std::fabs(a - da) / 2.0 + da;
    return f;
}

Proposta ProvaArea(const Rettangolo& zona, const LimitiProposta& lim, const std::string& messaggio,
                   BulloniTemp& t, const Piattaforma& p) {
    const Fila y = FilaTra(zona.yMin, zona.yMax, lim.passoMinY);
    const Fila x = FilaTra(zona.xMin, zona.xMax, lim.passoMinX);
    if (!std::isfinite(y.quanti) || !std::isfinite(x.quanti)) {
        return {0, "Interasse minimo dei bulloni nullo"};
    }
    if (y.quanti < 1.0 || x.quanti < 1.0) {
        MostraAvviso(p, messaggio);
        return {};
    }
    if (!CePosto(t, x.quanti * y.quanti)) return {0, OltreIlMassimo()};
    const int Nx = static_cast<int>(x.quanti), Ny = static_cast<int>(y.quanti);
    for (int j = 0; j < Ny; ++j) {
        for (int i = 0; i < Nx; ++i) AccodaBullone(t, x(i), y(j), lim.dProp);
    }
    return {Nx * Ny, {}};
}

// The bolts added, where a proposal that cannot be made is a fatal fault.
int Esigi(const Proposta& proposta) {
    if (proposta.guasto.empty()) return proposta.aggiunti;
    throw ErroreFatale(proposta.guasto, kDisposizione);
}

// The left half of the joint, X < 0, zone by zone.
class MetaSinistra {
  public:
    MetaSinistra(const Nodo& n, const LimitiProposta& l, BulloniTemp& t, const Piattaforma& p)
        : n_(n),
          l_(l),
          t_(t),
          p_(p),
          g_(GeometriaDi(n)),
          M(Max(l.distSald + n.spSaldS2 + l.Rf, l.eMinY)),
          // With the 1 a limit goes to the next whole millimetre inside the zone, and one that is
          // whole already goes a millimetre further in.
          x0(Int(l.comune.xMin + l.eMinX + 1.0)) {}

    Proposta Sopra() {
        const double y0 = Int(Max(M, g_.yS2 + n_.spSaldS1 + l_.distSald + l_.Rf) + 1.0);
        const double y1 = Min(n_.HPiastra(1) - M, g_.piastra(2).yMax - l_.eMinY);
        return Riempi(1, y0, y1, l_.comune.yMax - g_.yS2, kNienteSopra);
    }

    Proposta Sotto() {
        const double y0 = Int(Max(M, g_.piastra(2).yMin + l_.eMinY) + 1.0);
        const double y1 = Min(n_.HPiastra(1) - M, g_.yS - n_.spSaldS1 - l_.distSald - l_.Rf);
        return Riempi(2, y0, y1, g_.yS - l_.comune.yMin, kNienteSotto);
    }

    Proposta ALato() {
        const ProfiloRec& s = n_.TraSec;
        const double y1 =
            Min(Min(n_.HPiastra(1) - M, g_.yS2 - s.tf - n_.spSaldS1 - l_.distSald - l_.Rf),
                g_.piastra(2).yMax - l_.eMinY);
        const double suAla = Int(Max(M, g_.yS + s.tf + n_.spSaldS1 + l_.distSald + l_.Rf) + 1.0);
        // The lower limit takes the step to the next millimetre twice: up to 2 mm of clearance.
        const double y0 = Int(Max(suAla, g_.piastra(2).yMin + l_.eMinY) + 1.0);
        const double x1 = Int(-Max(s.tw / 2.0 + n_.spSaldS1, n_.SpNerv(3) / 2.0 + n_.spSaldS2) -
                              l_.distSald - l_.Rf);
        // Tried also when the limits cross, so that it warns where there is no plate between the
        // flanges at all.
        return ProvaArea({x0, x1, y0, y1}, l_, kNienteALato, t_, p_);
    }

  private:
    // The zone of rib i; `piastra` [mm] is the height of plate there.
    Proposta Riempi(int i, double y0, double y1, double piastra, const char* messaggio) {
        if (y0 < y1) return ProvaArea({x0, LimiteDestro(i), y0, y1}, l_, messaggio, t_, p_);
        if (piastra > 0.0) MostraAvviso(p_, messaggio);
        return {};
    }

    double LimiteDestro(int i) const {
        if (n_.AttNerv(i)) {
            return Int(-Max(n_.SpNerv(i) / 2.0 + n_.spSaldS1, n_.SpNerv(3) / 2.0 + n_.spSaldS2) -
                       l_.distSald - l_.Rf);
        }
        // Without the rib the limit is the exact clearance: the last column need not stand on a
        // whole millimetre.
        return -n_.SpNerv(3) / 2.0 - n_.spSaldS2 - l_.distSald - l_.Rf;
    }

    const Nodo& n_;
    const LimitiProposta& l_;
    BulloniTemp& t_;
    const Piattaforma& p_;
    const Geometria g_;
    const double M;   // margin of the top and the bottom of plate 1
    const double x0;  // left limit of every zone
};

}  // namespace

void ProponiPias(Nodo& n) {
    n.BPiastra(1) = Max(n.TraPri.B, kLarghezzaMinima);
    n.HPiastra(1) = Int(n.TraPri.H - 2.0 * n.TraPri.tf);
    // The greater flange as it is rolled, 7.4 mm say: the user gives the sheet's thickness. The
    // default joint has whole millimetres.
    n.SpPiastra(1) = Max(n.TraPri.tf, n.TraSec.tf);
    n.BPiastra(2) = Max(n.TraSec.B, kLarghezzaMinima);
    const double sopra = n.AttNerv(1) ? Max(n.H1Nerv(1), n.distAlaSecPiastra) : n.distAlaSecPiastra;
    const double sotto = n.AttNerv(2) ? n.H1Nerv(2) : 0.0;
    n.HPiastra(2) = n.TraSec.H + sopra + sotto;
    n.SpPiastra(2) = Max(n.TraPri.tf, n.TraSec.tf);
}

void ProponiNerv(Nodo& n) {
    ProponiNervatura(n, 1, n.distAlaSecPiastra);
    ProponiNervatura(n, 2, n.HPiastra(2) - n.TraSec.H - n.distAlaSecPiastra);
    n.SpNerv(3) = Int(n.TraSec.tw + kInSu);
}

LimitiProposta LimitiPerProposta(const Nodo& nodo, const Opzioni& opz, double dProp) {
    LimitiProposta l;
    l.dProp = dProp;
    l.d0 = dProp + opz.ValOpz(kOpzTollForo);
    l.Rf = l.d0 / 2.0;
    l.tMin = Min(nodo.SpPiastra(1), nodo.SpPiastra(2));
    l.distSald = opz.ValOpz(kOpzDistSaldatura);
    l.comune = GeometriaDi(nodo).comune;
    const RegolaDistanze& r = RegolaDi(NormaDi(nodo), nodo.Esposizione);
    using enum Direzione;
    l.eMinX = r.BordoMin(orizzontale) * l.d0;
    l.eMinY = r.BordoMin(verticale) * l.d0;
    // Both bounds must leave room: as if no edge were stiffened, and as if all were.
    l.eMaxX = l.eMaxY = r.BordoMassimo(l.tMin, false);
    l.eMax2X = l.eMax2Y = r.BordoMassimo(l.tMin, true);
    l.passoMinX = r.PassoMin(orizzontale) * l.d0;
    l.passoMinY = r.PassoMin(verticale) * l.d0;
    l.passoMax = r.PassoMassimo(l.tMin);
    return l;
}

int RiempiArea(const Rettangolo& zona, const LimitiProposta& lim, const std::string& messaggio,
               BulloniTemp& t, const Piattaforma& p) {
    return Esigi(ProvaArea(zona, lim, messaggio, t, p));
}

Proposta ProvaProponi(const Nodo& nodo, const Opzioni& opz, double dProp, BulloniTemp& t,
                      const Piattaforma& p) {
    const LimitiProposta lim = LimitiPerProposta(nodo, opz, dProp);
    if (!Compatibili(lim)) {
        MostraAvviso(p, kNonCompatibili);
        return {};
    }
    BulloniTemp nuovi = t;
    MetaSinistra meta(nodo, lim, nuovi, p);
    int n = 0;
    for (const auto zona : {&MetaSinistra::Sopra, &MetaSinistra::Sotto, &MetaSinistra::ALato}) {
        const Proposta parte = (meta.*zona)();
        if (!parte.guasto.empty()) return parte;
        n += parte.aggiunti;
    }
    const int primo = t.nBullTemp + 1;
    if (!CePosto(nuovi, n)) return {0, OltreIlMassimo()};
    for (int k = primo; k < primo + n; ++k) {
        // 0 - x: a bolt on the axis is mirrored to 0, not to -0.
        AccodaBullone(nuovi, 0.0 - nuovi.XbullTemp(k), nuovi.YbullTemp(k), nuovi.FibullTemp(k));
    }
    t = nuovi;
    return {2 * n, {}};
}

int Proponi(const Nodo& nodo, const Opzioni& opz, double dProp, BulloniTemp& t,
            const Piattaforma& p) {
    return Esigi(ProvaProponi(nodo, opz, dProp, t, p));
}

}  // namespace tk07
