#include "solidi/solidi.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>
#include <Standard_Failure.hxx>
#include <TopTools_ListOfShape.hxx>
#include <cmath>
#include <set>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "scene3d/terna.h"
#include "solidi/prisma.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

constexpr std::int32_t kArancio = ColoreArgb(0xFFFFA500);

// A part on its way: its own copy of section and extrusion, and what is cut from it afterwards.
struct Bozza {
    DatiParte dati;
    Estruso e;
    Sezione inizio, fine;
    std::vector<Contorno> fori;  // round holes, in the section's coordinates
};

std::string Numero(double x) { return TestoReale(Arrotonda(x, 2) + 0.0); }

TipoParte TipoDi(const std::string& oggetto, const std::string& parte, const Sezione& s) {
    const auto comincia = [](const std::string& t, const char* con) {
        return Minuscolo(t).rfind(con, 0) == 0;
    };
    if (parte == "testa") return TipoParte::testa;
    if (parte == "gambo") return TipoParte::gambo;
    if (parte == "dado") return TipoParte::dado;
    if (comincia(oggetto, "sald")) return TipoParte::saldatura;
    if (comincia(oggetto, "nerv")) return TipoParte::nervatura;
    if (comincia(oggetto, "piastra")) return TipoParte::piastra;
    return comincia(s.sezioni_tipo, "p_") ? TipoParte::trave : TipoParte::altro;
}

// Extent of the outline; rounded sides of the scene's sections stay within their corners.
void Ingombro(const Sezione& s, double& largo, double& alto) {
    double z0 = 1e300, z1 = -1e300, y0 = 1e300, y1 = -1e300;
    for (const Contorno& c : s.contorni) {
        for (const Vertice& v : c) {
            z0 = Min(z0, v.Z), z1 = Max(z1, v.Z), y0 = Min(y0, v.Y), y1 = Max(y1, v.Y);
        }
    }
    largo = z1 - z0;
    alto = y1 - y0;
}

void Misura(Bozza& b) {
    const Punto3 &p = b.e.estrusi_coord1, &q = b.e.estrusi_coord2;
    DatiParte& d = b.dati;
    double largo = 0.0, alto = 0.0;
    Ingombro(b.inizio, largo, alto);
    d.lunghezza = std::hypot(q[0] - p[0], q[1] - p[1], q[2] - p[2]);
    const std::string L = Numero(d.lunghezza);
    switch (d.tipo) {
        case TipoParte::trave:
            d.misura = Taglia(b.inizio.sezioni_descr) + ", tratto di " + L;
            break;
        case TipoParte::saldatura:
            d.lato = largo;
            d.misura = "lato " + Numero(largo) + ", lunghezza " + L;
            break;
        case TipoParte::testa:
        case TipoParte::dado:
            d.lato = largo / 2.0;  // across the corners: twice the bolt
            d.misura = "M" + Numero(d.lato) + ", altezza " + L;
            break;
        case TipoParte::gambo:
            d.lato = largo;
            d.misura = "M" + Numero(d.lato) + ", lunghezza " + L;
            break;
        default:
            d.misura = Numero(largo) + " x " + Numero(alto) + " x " + L;
    }
}

Bozza BozzaDi(const Scena& s, const Estruso& e) {
    const auto sezione = [&](short k) { return s.sezioni[static_cast<std::size_t>(k)]; };
    Bozza b;
    b.e = e;
    b.inizio = sezione(e.estrusi_punse1);
    b.fine = sezione(e.estrusi_punse2);
    const std::string parte = ParteBullone(e.estrusi_descri);
    b.dati.oggetto = NomeOggetto(e.estrusi_descri);
    if (b.dati.oggetto.empty()) b.dati.oggetto = Taglia(e.estrusi_descri);
    b.dati.nome = b.dati.oggetto + (parte.empty() ? "" : " " + parte);
    b.dati.tipo = TipoDi(b.dati.oggetto, parte, b.inizio);
    b.dati.colore = e.estrusi_collat;
    Misura(b);
    return b;
}

std::vector<Bozza> Bozze(const Scena& s) {
    std::vector<Bozza> v;
    for (const Estruso& e : s.estrusi) v.push_back(BozzaDi(s, e));
    return v;
}

// Holes that keep clear of each other and of the rim are contours of the face; others are cut away.
bool ForiSeparati(const Bozza& b) {
    double largo = 0.0, alto = 0.0;
    Ingombro(b.inizio, largo, alto);
    constexpr double kLembo = 1e-3;
    for (std::size_t i = 0; i < b.fori.size(); ++i) {
        const double r = b.fori[i][0].R, Z = b.fori[i][0].Z, Y = b.fori[i][0].Y - r;
        if (std::fabs(Z) + r > largo / 2.0 - kLembo || std::fabs(Y) + r > alto / 2.0 - kLembo) {
            return false;
        }
        for (std::size_t j = 0; j < i; ++j) {
            const double rj = b.fori[j][0].R;
            if (std::hypot(Z - b.fori[j][0].Z, Y - (b.fori[j][0].Y - rj)) < r + rj + kLembo) {
                return false;
            }
        }
    }
    return true;
}

TopoDS_Shape Forma(const Bozza& b) {
    if (b.fori.empty()) return Prisma(b.e, b.inizio, b.fine);
    Sezione s = b.inizio;
    if (ForiSeparati(b)) {
        s.contorni.insert(s.contorni.end(), b.fori.begin(), b.fori.end());
        return Prisma(b.e, s, s);
    }
    TopTools_ListOfShape pezzo, attrezzi;
    pezzo.Append(Prisma(b.e, s, s));
    for (const Contorno& c : b.fori) {
        s.contorni = {c};
        attrezzi.Append(Prisma(b.e, s, s));
    }
    BRepAlgoAPI_Cut taglio;
    taglio.SetArguments(pezzo);
    taglio.SetTools(attrezzi);
    taglio.Build();
    return taglio.IsDone() ? taglio.Shape() : TopoDS_Shape();
}

bool Costruisci(std::vector<Bozza>& bozze, std::vector<Parte>& parti, std::string& errore) {
    std::vector<Parte> fatte;
    std::set<std::string> nomi;
    constexpr double kNulla = 1e-6;  // [mm]
    for (Bozza& b : bozze) {
        // A weld whose line has no length is none.
        if (b.dati.tipo == TipoParte::saldatura && !(b.dati.lunghezza > kNulla)) continue;
        // Two welds of a rib share a name in the scene.
        const std::string base = b.dati.nome;
        for (int k = 2; !nomi.insert(b.dati.nome).second; ++k) {
            b.dati.nome = base + " (" + std::to_string(k) + ")";
        }
        try {
            Parte p{b.dati, Forma(b)};
            p.dati.volume = VolumeForma(p.forma);
            if (p.dati.volume < 0.0) {
                p.forma.Reverse();
                p.dati.volume = -p.dati.volume;
            }
            if (!(p.dati.volume > 0.0)) continue;
            Bnd_Box ingombro;
            BRepBndLib::AddOptimal(p.forma, ingombro, Standard_False, Standard_False);
            ingombro.SetGap(0.0);
            ingombro.Get(p.dati.da[0], p.dati.da[1], p.dati.da[2], p.dati.a[0], p.dati.a[1],
                         p.dati.a[2]);
            fatte.push_back(std::move(p));
        } catch (const Standard_Failure& guasto) {
            errore = "solido " + b.dati.nome + " non costruito: " + guasto.GetMessageString();
            return false;
        }
    }
    if (fatte.empty()) {
        errore = "la scena non ha solidi";
        return false;
    }
    parti = std::move(fatte);
    return true;
}

void Fora(const Nodo& n, const Geometria& g, double gioco, Bozza& piastra) {
    const Terna t = TernaEstruso(piastra.e);
    const Punto3& o = piastra.e.estrusi_coord1;
    for (int i = 1; i <= n.nBull; ++i) {
        const Punto3 d = {0.0, n.Xbull(i) - o[1], AltezzaBullone(g, n.Ybull(i)) - o[2]};
        const double r = (n.Fibull(i) + gioco) / 2.0;
        if (r > 0.0) piastra.fori.push_back(ContornoTondo(Scalare(d, t.z), Scalare(d, t.y), r));
    }
}

// Rib 3 is a rectangle with the web at its left; ribs 1 and 2 have the corner of plate and flange
// at the section's origin. No chamfer is larger than the rib (half its height, of two).
void SmussaNervatura(const SagomaNervatura& r, int k, Bozza& b) {
    double largo = 0.0, alto = 0.0;
    Ingombro(b.inizio, largo, alto);
    const double c = r.smusso;
    Contorno& giro = b.inizio.contorni[0];
    if (k == 3) {
        giro = TagliaSpigolo(giro, -largo / 2.0, alto / 2.0, 1.0, -1.0, c);
        giro = TagliaSpigolo(giro, -largo / 2.0, -alto / 2.0, 1.0, 1.0, c);
    } else {
        giro = TagliaSpigolo(giro, 0.0, 0.0, 1.0, r.verso, c);
    }
    b.fine = b.inizio;
}

// The quarter circle lies between Y and Z of the section, and Y x Z is the axis.
Bozza BozzaCordone(const LineaSaldatura& l) {
    Bozza b;
    Punto3 asse{};
    Versore(l.da, l.a, asse);
    const Punto3& y =
        Scalare(Prodotto(l.versoUno, l.versoDue), asse) > 0.0 ? l.versoUno : l.versoDue;
    b.e.estrusi_coord1 = l.da;
    b.e.estrusi_coord2 = l.a;
    b.e.estrusi_orient = OrientPerY(l.da, l.a, y);
    b.inizio.sezioni_tipo = "QUARTODICERCHIO";
    b.inizio.contorni = {{{0.0, 0.0, 0.0}, {0.0, l.lato, l.lato}, {l.lato, 0.0, 0.0}}};
    b.fine = b.inizio;
    b.dati.oggetto = b.dati.nome = "sald_" + NomeLinea(l.indice);
    b.dati.tipo = TipoParte::saldatura;
    b.dati.colore = kArancio;
    Misura(b);
    return b;
}

bool SenzaNomeInScena(int indice) {
    const int linea = indice % kSpecchio + 1;
    return linea == 1 || linea == 4 || linea == 11;
}

}  // namespace

bool SolidiScena(const Scena& scena, std::vector<Parte>& parti, std::string& errore) {
    std::vector<Bozza> bozze = Bozze(scena);
    return Costruisci(bozze, parti, errore);
}

bool SolidiNodo(const Nodo& n, const Geometria& g, double gioco, const Scena& scena,
                std::vector<Parte>& parti, std::string& errore) {
    std::vector<Bozza> bozze = Bozze(scena);
    const double alza = AlzataBulloni(n, g);
    for (Bozza& b : bozze) {
        const std::string& o = b.dati.oggetto;
        b.dati.materiale = "Acciaio " + Taglia(n.acciaio.Nome);
        switch (b.dati.tipo) {
            case TipoParte::piastra:
                Fora(n, g, gioco, b);
                break;
            case TipoParte::nervatura: {
                const int k = o == "Nerv1" ? 1 : o == "Nerv_2" ? 2 : 3;
                SmussaNervatura(g.nervatura(k), k, b);
                break;
            }
            case TipoParte::testa:
            case TipoParte::gambo:
            case TipoParte::dado:
                b.e.estrusi_coord1[2] += alza;
                b.e.estrusi_coord2[2] += alza;
                b.dati.materiale = "Classe " + Taglia(n.vite.Nome);
                break;
            default:
                break;
        }
    }
    for (const LineaSaldatura& l : LineeSaldatura(g)) {
        if (!SenzaNomeInScena(l.indice)) continue;
        bozze.push_back(BozzaCordone(l));
        bozze.back().dati.materiale = "Acciaio " + Taglia(n.acciaio.Nome);
    }
    return Costruisci(bozze, parti, errore);
}

}  // namespace tk07
