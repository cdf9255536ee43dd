#include "scene3d/sezioni.h"

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

namespace {

constexpr double kLatoMinimo = 0.0001;

// The slot checks and starts anew; `nome` is the kind as the boxes say it.
bool PreparaSlot(Scena& s, const char* nome, const char* tipo, const std::string& descrizione,
                 const Piattaforma& p) {
    if (s.sezioni.size() >= kMaxSezioni) {
        AvvisoScena(s, std::string("Inserisci sezione ") + nome + ": puntatore fuori limite.", p);
        return false;
    }
    s.corrente = {descrizione, tipo, {Contorno{}}};
    return true;
}

// A size that is no number is refused as well.
bool Valida(const Scena& s, bool valida, const char* testo, const Piattaforma& p) {
    if (!valida) AvvisoScena(s, testo, p);
    return valida;
}

void Trasla(Sezione& s, double dZ, double dY) {
    for (Contorno& c : s.contorni) {
        for (Vertice& v : c) v.Z += dZ, v.Y += dY;
    }
}

}  // namespace

bool SezionePoligono(Scena& s, double diametro, int nLati, const std::string& descrizione,
                     const Piattaforma& p, double angoloIni) {
    if (!PreparaSlot(s, "poligono", "POLIGONO", descrizione, p) ||
        !Valida(s, diametro >= kLatoMinimo && nLati >= 3 && nLati <= kMaxVertici,
                "Inserisci sezione poligono: dati errati.", p)) {
        return false;
    }
    const double passo = 2.0 * kPi / nLati, r = diametro / 2.0;
    for (int k = 0; k < nLati; ++k) {
        const double a = passo * k + angoloIni;
        s.corrente.contorni[0].push_back({r * std::cos(a), -r * std::sin(a), 0.0});
    }
    return true;
}

bool SezioneRettangolo(Scena& s, double b, double h, const std::string& descrizione,
                       const Piattaforma& p) {
    if (!PreparaSlot(s, "rettangolare", "RETTANGOLARE", descrizione, p) ||
        !Valida(s, b >= kLatoMinimo && h >= kLatoMinimo,
                "Inserisci sezione rettangolare : dati errati.", p)) {
        return false;
    }
    const double z = b / 2.0, y = h / 2.0;
    s.corrente.contorni[0] = {{-z, y, 0.0}, {z, y, 0.0}, {z, -y, 0.0}, {-z, -y, 0.0}};
    return true;
}

bool SezioneQuadrilatero(Scena& s, const std::array<PuntoSezione, 4>& punti, int codiceOrigine,
                         const std::string& descrizione, const Piattaforma& p) {
    if (!PreparaSlot(s, "quadrilatero", "QUADRILATERO", descrizione, p)) return false;
    for (const PuntoSezione& q : punti) s.corrente.contorni[0].push_back({q[0], q[1], 0.0});
    return OrigineSuVertice(s.corrente, codiceOrigine, p);
}

bool SezioneCerchio(Scena& s, double diametro, const std::string& descrizione,
                    const Piattaforma& p) {
    if (!PreparaSlot(s, "circolare", "CIRCOLARE", descrizione, p) ||
        !Valida(s, diametro >= kLatoMinimo, "Inserisci sezione circolare: dati errati.", p)) {
        return false;
    }
    const double r = diametro / 2.0, passo = kPi / 2.0;
    for (int k = 0; k < 4; ++k) {
        s.corrente.contorni[0].push_back(
            {Arrotonda(r * std::sin(passo * k), 3), Arrotonda(r * std::cos(passo * k), 3), r});
    }
    return true;
}

bool SezioneQuartoCerchio(Scena& s, double lato, const std::string& descrizione,
                          const Piattaforma& p) {
    if (!PreparaSlot(s, "quarto di cerchio", "QUARTODICERCHIO", descrizione, p) ||
        !Valida(s, lato >= kLatoMinimo, "Inserisci sezione quarto di cerchio: dati errati.", p)) {
        return false;
    }
    s.corrente.contorni[0] = {{0.0, 0.0, 0.0}, {0.0, lato, lato}, {lato, 0.0, 0.0}};
    return true;
}

void SezioneDaContorni(Scena& s, const std::vector<Contorno>& contorni, const std::string& tipo,
                       const std::string& descrizione, PrefissoP prefisso) {
    const bool aggiungi = prefisso == PrefissoP::si && tipo.rfind("P_", 0) != 0;
    s.corrente = {descrizione, aggiungi ? "P_" + tipo : tipo, contorni};
}

void OrigineSuBordo(Sezione& s, int codice) {
    bool primo = true;
    double Zmin = 0.0, Zmax = 0.0, Ymin = 0.0, Ymax = 0.0;
    for (const Contorno& c : s.contorni) {
        for (const Vertice& v : c) {
            Zmin = primo ? v.Z : Min(Zmin, v.Z);
            Zmax = primo ? v.Z : Max(Zmax, v.Z);
            Ymin = primo ? v.Y : Min(Ymin, v.Y);
            Ymax = primo ? v.Y : Max(Ymax, v.Y);
            primo = false;
        }
    }
    const double Zmed = (Zmin + Zmax) / 2.0, Ymed = (Ymin + Ymax) / 2.0;
    switch (codice) {
        case -1:
        case 65535:
            return;
        case 0:
            return Trasla(s, -Zmed, -Ymed);
        case 1:
            return Trasla(s, -Zmin, -Ymax);
        case 2:
            return Trasla(s, -Zmed, -Ymax);
        case 3:
            return Trasla(s, -Zmax, -Ymax);
        case 4:
            return Trasla(s, -Zmin, -Ymed);
        case 5:
            return Trasla(s, -Zmax, -Ymed);
        case 6:
            return Trasla(s, -Zmin, -Ymin);
        case 7:
            return Trasla(s, -Zmed, -Ymin);
        default:
            return Trasla(s, -Zmax, -Ymin);
    }
}

bool OrigineSuVertice(Sezione& s, int codice, const Piattaforma& p) {
    constexpr int kMezzeria = 1000;
    if (codice < 0) return true;
    const bool mezzeria = codice >= kMezzeria;
    const auto k = static_cast<std::size_t>(mezzeria ? codice - kMezzeria : codice);
    const std::size_t n = s.contorni.empty() ? 0 : s.contorni[0].size();
    if (k >= n) {
        MostraAvviso(p, "Puntatore al vertice non corretto.", "IMPOSTA ORIGINE");
        return false;
    }
    const Vertice a = s.contorni[0][k], b = s.contorni[0][mezzeria ? (k + 1) % n : k];
    Trasla(s, -(a.Z + b.Z) / 2.0, -(a.Y + b.Y) / 2.0);
    return true;
}

namespace {

Contorno ProfiloI(const ProfiloRec& q) {
    const double B = q.B, H = q.H, tf = q.tf, r = q.r, c = B / 2.0, m = q.tw / 2.0;
    return {{0, 0, 0},
            {0, tf, 0},
            {c - m - r, tf, -r},
            {c - m, tf + r, 0},
            {c - m, H - tf - r, -r},
            {c - m - r, H - tf, 0},
            {0, H - tf, 0},
            {0, H, 0},
            {B, H, 0},
            {B, H - tf, 0},
            {c + m + r, H - tf, -r},
            {c + m, H - tf - r, 0},
            {c + m, tf + r, -r},
            {c + m + r, tf, 0},
            {B, tf, 0},
            {B, 0, 0}};
}

// As the I shape, with the flange tips rounded by r1.
Contorno ProfiloINP(const ProfiloRec& q) {
    const double B = q.B, H = q.H, tf = q.tf, r = q.r, a = q.r1, c = B / 2.0, m = q.tw / 2.0;
    return {{0, 0, 0},
            {0, tf - a, a},
            {a, tf, 0},
            {c - m - r, tf, -r},
            {c - m, tf + r, 0},
            {c - m, H - tf - r, -r},
            {c - m - r, H - tf, 0},
            {a, H - tf, a},
            {0, H - tf + a, 0},
            {0, H, 0},
            {B, H, 0},
            {B, H - tf + a, a},
            {B - a, H - tf, 0},
            {c + m + r, H - tf, -r},
            {c + m, H - tf - r, 0},
            {c + m, tf + r, -r},
            {c + m + r, tf, 0},
            {B - a, tf, a},
            {B, tf - a, 0},
            {B, 0, 0}};
}

// Web at the left.
Contorno ProfiloU(const ProfiloRec& q) {
    const double B = q.B, H = q.H, tw = q.tw, tf = q.tf, r = q.r, a = q.r1;
    return {{0, 0, 0},           {0, H, 0},          {B, H, 0},
            {B, H - tf + a, a},  {B - a, H - tf, 0}, {tw + r, H - tf, -r},
            {tw, H - tf - r, 0}, {tw, tf + r, -r},   {tw + r, tf, 0},
            {B - a, tf, a},      {B, tf - a, 0},     {B, 0, 0}};
}

Contorno ProfiloL(const ProfiloRec& q) {
    const double B = q.B, H = q.H, tw = q.tw, tf = q.tf, r = q.r, a = q.r1;
    return {{0, 0, 0},       {0, H, 0},      {tw - a, H, a}, {tw, H - a, 0}, {tw, tf + r, -r},
            {tw + r, tf, 0}, {B - a, tf, a}, {B, tf - a, 0}, {B, 0, 0}};
}

Contorno Quadrato(double da, double b, double h) {
    return {{da, da, 0}, {da, h - da, 0}, {b - da, h - da, 0}, {b - da, da, 0}};
}

Contorno Cerchio(double centro, double r) {
    return {{centro, centro + r, r},
            {centro + r, centro, r},
            {centro, centro - r, r},
            {centro - r, centro, r}};
}

// The letters that begin the name.
std::string Famiglia(const std::string& nome) {
    const std::string t = Taglia(nome);
    return t.substr(0, t.find_first_of("0123456789 "));
}

}  // namespace

bool ContorniProfilo(const ProfiloRec& q, std::string_view accoppiamento,
                     std::vector<Contorno>& contorni, std::string& tipo, std::string& errore) {
    const auto ha = [&](const char* cosa) { return Contiene(q.Nome, cosa); };
    contorni.clear();
    tipo = Famiglia(q.Nome);
    errore = "Profilo " + Taglia(q.Nome) + ": ";
    if (!Taglia(accoppiamento).empty()) {
        errore += "contorno non disponibile per l'accoppiamento " + Taglia(accoppiamento);
        return false;
    }
    const bool tubo = ha("TUBO"), quadro = ha("T.QUAD"), canale = ha("UPN");
    const bool angolare = ha("LU") || ha("LD");
    const double r = q.r, r1 = q.r1, anime = canale || angolare ? 1.0 : 2.0;
    bool bene = q.H > 0.0 && q.B > 0.0 && q.tw > 0.0 && r >= 0.0 && r1 >= 0.0;
    if (tubo || quadro) {
        bene = bene && 2.0 * q.tw < Min(q.B, q.H);
    } else {
        // web, flanges and fillets side by side
        bene = bene && q.tf > 0.0 && (angolare ? 1.0 : 2.0) * (q.tf + r) <= q.H &&
               q.tw + anime * r <= q.B && r1 <= Min(q.tw, q.tf);
    }
    if (!bene) {
        errore += "dimensioni errate, contorno non disponibile";
        return false;
    }
    errore.clear();
    if (canale) {
        contorni = {ProfiloU(q)};
    } else if (angolare) {
        contorni = {ProfiloL(q)};
    } else if (quadro) {
        contorni = {Quadrato(0.0, q.B, q.H), Quadrato(q.tw, q.B, q.H)};
    } else if (tubo) {
        contorni = {Cerchio(q.H / 2.0, q.H / 2.0), Cerchio(q.H / 2.0, q.H / 2.0 - q.tw)};
    } else {
        contorni = {ha("INP") ? ProfiloINP(q) : ProfiloI(q)};
    }
    return true;
}

}  // namespace tk07
