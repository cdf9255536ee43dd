#include "scene3d/assemblaggio.h"

#include "base/aritmetica.h"
#include "base/chiavi.h"
#include "scene3d/sezioni.h"
#include "scene3d/terna.h"

namespace tk07 {

namespace {

constexpr std::int32_t kGiallo = ColoreArgb(0xFFFFFF00), kVerde = ColoreArgb(0xFFADFF2F),
                       kArancio = ColoreArgb(0xFFFFA500), kRossoBulloni = ColoreArgb(0xFFFF0000);
// End caps of all but the beams: no ARGB colour. The viewer paints a piece with that of its sides.
constexpr std::int32_t kTappo = 1;
constexpr short kTipoEstruso = 1;

constexpr Punto3 kSu = {0, 0, 1}, kGiu = {0, 0, -1}, kAvanti = {1, 0, 0};
// Direction of a side of the vertical middle plane.
constexpr Punto3 Lato(double segno) { return {0, segno, 0}; }

std::string Oggetto(const std::string& nome) { return "|oggetto=" + nome + "|"; }

// Half of plate 2, while Y counts from the lower end of plate 1: with plates of different height
// the scene's bolts stand off by half of the difference; solids and drawings, which are measured,
// do not.
double OrigineBulloni(const Nodo& n) { return -n.HPiastra(2) / 2.0; }

// Bolts of one diameter share their sections.
struct SezioniBullone {
    double diametro = -1.0;
    short testa = 0, gambo = 0, dado = 0;
};

// A joint on its way into the scene. Every step is a no-op once one has failed.
struct Montaggio {
    const Nodo& n;
    const Geometria& g;
    Scena& s;
    const Piattaforma& p;
    bool bene = true;
    SezioniBullone ultimo;

    double LS(int linea) const { return g.cordone(linea).lunghezza; }

    short Fissa(bool fatta) {
        short indice = 0;
        bene = bene && fatta && FissaSezione(s, indice, p);
        return indice;
    }

    void Aggiungi(const std::string& descri, short sezione, const Punto3& da, const Punto3& a,
                  double orient, std::int32_t lati, std::int32_t tappi) {
        if (!bene) return;
        Estruso e;
        e.estrusi_tipo = kTipoEstruso;
        e.estrusi_punse1 = e.estrusi_punse2 = sezione;
        e.estrusi_orient = orient;
        e.estrusi_colini = e.estrusi_colfin = tappi;
        e.estrusi_collat = lati;
        e.estrusi_descri = descri;
        e.estrusi_coord1 = da;
        e.estrusi_coord2 = a;
        bene = AggiungiEstruso(s, e, p);
    }

    // One extrusion of a library section, made when `sezione` is not set yet.
    void EstrusoProfilo(const Punto3& da, const Punto3& a, const ProfiloRec& profilo, double orient,
                        const std::string& nome, int sezione = kSezioneDaFare) {
        if (!bene) return;
        if (sezione == kSezioneDaFare) {
            std::vector<Contorno> contorni;
            std::string tipo, errore;
            bene = ContorniProfilo(profilo, {}, contorni, tipo, errore);
            if (!bene) return AvvisoScena(s, errore, p);
            SezioneDaContorni(s, contorni, tipo, profilo.Nome, PrefissoP::si);
            OrigineSuBordo(s.corrente, 0);
            sezione = Fissa(true);
        }
        Aggiungi(Oggetto(nome), static_cast<short>(sezione), da, a, orient, kColoreLati,
                 kColoreTappi);
    }

    // A fillet weld along the segment, in the corner whose faces leave it towards `f1` and `f2`.
    void Quarto(const std::string& nome, short sezione, Punto3 da, const Punto3& a,
                const Punto3& f1, const Punto3& f2) {
        Punto3 asse;
        if (!bene || !Versore(da, a, asse)) return;
        // The quarter circle fills the quadrant between Y and Z, and Y × Z is the axis.
        const Punto3& y = Scalare(Prodotto(f1, f2), asse) > 0.0 ? f1 : f2;
        Aggiungi(Oggetto(nome), sezione, da, a, OrientPerY(da, a, y), kArancio, kTappo);
    }
    // A line that lies across the beams, and its mirror across the middle plane, from distance y1
    // to y2.
    void CoppiaTrasversale(const std::string& nomeSu, const std::string& nomeGiu, short sezione,
                           const Cordone& c, double y1, double y2) {
        if (!(y2 > y1)) return;
        const double x = c.da[0], z = c.da[2];
        Quarto(nomeSu, sezione, {x, y1, z}, {x, y2, z}, c.versoUno, c.versoDue);
        Quarto(nomeGiu, sezione, {x, -y2, z}, {x, -y1, z}, c.versoUno, c.versoDue);
    }
    void CoppiaTrasversale(const std::string& nomeSu, const std::string& nomeGiu, short sezione,
                           const Cordone& c) {
        CoppiaTrasversale(nomeSu, nomeGiu, sezione, c, c.da[1], c.a[1]);
    }
    // A line at one side (+1 or -1) of a rib of thickness `sp`, in the plane of the rib's side.
    void CordoneNervatura(const std::string& nome, short sezione, double sp, double segno,
                          double x1, double z1, double x2, double z2, const Punto3& faccia) {
        if (!(x2 > x1 || z2 > z1)) return;
        const double y = segno * sp / 2.0;
        Quarto(nome, sezione, {x1, y, z1}, {x2, y, z2}, faccia, Lato(segno));
    }

    void Travi() {
        const double H1 = n.TraPri.H, H2 = n.TraSec.H, z0 = g.zAsse;
        EstrusoProfilo({0, -H1, 0}, {0, H1, 0}, n.TraPri, 0.0, "TraPri");
        EstrusoProfilo({g.xS, 0, z0}, {g.xS + 2.0 * H2, 0, z0}, n.TraSec, 0.0, "TraSec");
    }

    void Piastra(int i, const char* nome, double x, double z, std::int32_t colore) {
        if (!bene) return;
        const short k = Fissa(SezioneRettangolo(s, n.BPiastra(i), n.HPiastra(i), nome, p));
        Aggiungi(Oggetto(nome), k, {x, 0, z}, {x + n.SpPiastra(i), 0, z}, 0.0, colore, kTappo);
    }

    void SaldatureTrave(short sald) {
        if (g.sporto(1) > 0.0) {
            // Without rib 1 the line goes from side to side: two halves of it.
            const Cordone& s10 = g.cordone(10);
            const double da = s10.doppio ? s10.da[1] : 0.0;
            const double a = s10.doppio ? s10.a[1] : s10.lunghezza / 2.0;
            CoppiaTrasversale("sald_trave_1", "sald_trave_2", sald, s10, da, a);
        }
        CoppiaTrasversale("sald_trave_3", "sald_trave_4", sald, g.cordone(2));
        CoppiaTrasversale("sald_trave_5", "sald_trave_6", sald, g.cordone(3));
    }

    // Rib 1 (k = 1) stands on the upper flange, rib 2 hangs from the lower one; both from plate 2.
    // Neither has its corner cut, as no weld line of theirs allows for it: SmussoNerv is rib 3's.
    void Nervatura(int k, short sald) {
        if (!bene || !n.AttNerv(k)) return;
        const bool sopra = k == 1;
        const double x = g.xS, z = g.nervatura(k).zRadice, B = n.BNerv(k);
        const double H1 = n.H1Nerv(k), H2 = n.H2Nerv(k), sp = n.SpNerv(k);
        const char* descri = sopra ? "Nerv_1" : "Nerv_2";
        short sezione = 0;
        // From the corner of plate and flange; clockwise.
        if (sopra) {
            sezione = Fissa(
                SezioneQuadrilatero(s, {{{0.0, 0.0}, {0.0, H1}, {B, H2}, {B, 0.0}}}, 0, descri, p));
        } else {
            sezione = Fissa(SezioneQuadrilatero(s, {{{0.0, 0.0}, {B, 0.0}, {B, -H2}, {0.0, -H1}}},
                                                0, descri, p));
        }
        // By these names other programs find the ribs: without an underscore the upper one, with
        // one the lower.
        Aggiungi(Oggetto(sopra ? "Nerv1" : "Nerv_2"), sezione, {x, -sp / 2.0, z}, {x, sp / 2.0, z},
                 0.0, kVerde, kTappo);

        const Cordone &base = g.cordone(sopra ? 12 : 14), &lato = g.cordone(sopra ? 13 : 15);
        const double z1 = sopra ? lato.da[2] : lato.a[2];
        const std::string nome = "sald_nerv" + std::to_string(k) + "_Y";
        for (const bool suPiastra : {false, true}) {
            for (const double segno : {sopra ? -1.0 : 1.0, sopra ? 1.0 : -1.0}) {
                const std::string questo = nome + (segno < 0.0 ? "neg" : "pos");
                if (suPiastra) {
                    CordoneNervatura(questo, sald, sp, segno, x, z1, x, z1 + lato.lunghezza,
                                     kAvanti);
                } else {
                    CordoneNervatura(questo, sald, sp, segno, base.da[0], z, base.a[0], z,
                                     base.versoUno);
                }
            }
        }
    }

    // Rib 3 fills the main beam between its web and plate 1.
    void Nervatura3(short sald) {
        if (!bene) return;
        const double B = n.BNerv(3), sp = n.SpNerv(3), x = g.xAnima + B / 2.0, a2 = n.spSaldS2;
        const short k = Fissa(SezioneRettangolo(s, B, n.H1Nerv(3), "nerv_3", p));
        Aggiungi(Oggetto("Nerv_3_superiore"), k, {x, -sp / 2.0, 0}, {x, sp / 2.0, 0}, 0.0, kVerde,
                 kTappo);
        int numero = 0;
        const auto nome = [&] { return "sald_nerv3_" + std::to_string(++numero); };
        // s5 and s7 begin clear of the weld of rib and plate.
        for (const bool sotto : {true, false}) {
            const double z = sotto ? -g.zAlaPri : g.zAlaPri, L = LS(sotto ? 5 : 7);
            for (const double segno : {1.0, -1.0}) {
                CordoneNervatura(nome(), sald, sp, segno, g.xP1 - a2 - L, z, g.xP1 - a2, z,
                                 sotto ? kSu : kGiu);
            }
        }
        for (const double segno : {1.0, -1.0}) {
            const Cordone& s6 = g.cordone(6);
            CordoneNervatura(nome(), sald, sp, segno, s6.da[0], s6.da[2], s6.a[0], s6.a[2],
                             kAvanti);
        }
        for (const bool sotto : {false, true}) {
            const std::string primo = nome(), secondo = nome();
            CoppiaTrasversale(primo, secondo, sald, g.cordone(sotto ? 9 : 8));
        }
    }

    // Head at `p1`, nut at `p2`; sections made anew when the diameter is not that of the last bolt.
    void AggiungiBullone(double d, const Punto3& p1, const Punto3& p2, const std::string& nome) {
        if (!bene) return;
        const auto descri = [&](const char* parte) {
            return Oggetto(nome) + "estruso=" + parte + "|";
        };
        if (d != ultimo.diametro) {
            ultimo.diametro = d;
            ultimo.testa = Fissa(SezionePoligono(s, 2.0 * d, 6, descri("testa"), p));
            if (bene) ultimo.gambo = Fissa(SezioneCerchio(s, d, descri("gambo"), p));
            if (bene) ultimo.dado = Fissa(SezionePoligono(s, 2.0 * d, 6, descri("dado"), p));
        }
        Punto3 u;
        Versore(p1, p2, u);
        Aggiungi(descri("testa"), ultimo.testa, Avanti(p1, -0.65 * d, u), p1, 0.0, kRossoBulloni,
                 kTappo);
        Aggiungi(descri("gambo"), ultimo.gambo, p1, Avanti(p2, 0.8 * d, u), 0.0, kRossoBulloni,
                 kTappo);
        Aggiungi(descri("dado"), ultimo.dado, p2, Avanti(p2, 0.5 * d, u), 0.0, kRossoBulloni,
                 kTappo);
    }

    template <class Tabella>
    void Bulloni(short quanti, const Tabella& X, const Tabella& Y, const Tabella& Fi,
                 const char* nome) {
        constexpr double boltOrigineY = 0.0;
        const double boltOrigineZ = OrigineBulloni(n);
        for (int i = 1; i <= quanti; ++i) {
            const Punto3 p1 = {g.xS, X(i) + boltOrigineY, Y(i) + boltOrigineZ};
            const Punto3 p2 = {p1[0] - n.SpPiastra(2) - n.SpPiastra(1), p1[1], p1[2]};
            AggiungiBullone(Fi(i), p1, p2, nome + std::to_string(i));
        }
    }

    void Tutto(const BulloniTemp* t) {
        const short sald1 = Fissa(SezioneQuartoCerchio(s, n.spSaldS1, "sald_traveS", p));
        if (!bene) return;
        const short sald2 = Fissa(SezioneQuartoCerchio(s, n.spSaldS2, "sald_traveP", p));
        Travi();
        Piastra(1, "piastra_lato_TraPri", g.xP1, 0.0, kGiallo);
        Piastra(2, "piastra_lato_TraSec", g.xP2, g.zP22 - n.HPiastra(2) / 2.0, kVerde);
        SaldatureTrave(sald1);
        Nervatura(1, sald1);
        Nervatura(2, sald1);
        Nervatura3(sald2);
        if (t != nullptr) {
            Bulloni(t->nBullTemp, t->XbullTemp, t->YbullTemp, t->FibullTemp, "BulProv");
        }
        Bulloni(n.nBull, n.Xbull, n.Ybull, n.Fibull, "BulPia");
    }
};

std::string Marcatore(std::string_view descri, const char* nome) {
    std::string valore;
    return LeggiParametro(descri, nome, valore, "=", "|") ? valore : std::string();
}

}  // namespace

bool ComponiScena3D(const Nodo& nodo, const Geometria& g, const BulloniTemp* provvisori, Scena& s,
                    const Piattaforma& p) {
    ImpostaScena(s, 15.0, 50.0, 3.0, "TK07");
    Montaggio m{nodo, g, s, p, true, {}};
    m.Tutto(provvisori);
    if (!m.bene) SvuotaScena(s);
    return m.bene;
}

void SvuotaScena(Scena& s) { ImpostaScena(s, 30.0, 30.0, 5.0, "non_definito"); }

double AlzataBulloni(const Nodo& n, const Geometria& g) {
    return AltezzaBullone(g, 0.0) - OrigineBulloni(n);
}

std::string NomeOggetto(std::string_view descri) { return Marcatore(descri, "oggetto"); }
std::string ParteBullone(std::string_view descri) { return Marcatore(descri, "estruso"); }

}  // namespace tk07
