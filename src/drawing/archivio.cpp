#include "drawing/archivio.h"

#include <algorithm>
#include <cmath>

#include "base/aritmetica.h"
#include "base/errore.h"

namespace tk07 {

namespace {

constexpr const char* kTroppiElementi = " Numero eccessivo di elementi di disegno ";

// Room for one more in a table of `massimo`; the warning comes with the last place.
bool Posto(std::size_t quanti, int massimo, const char* testo, const Piattaforma& p) {
    const auto n = static_cast<int>(quanti);
    if (n == massimo - 1) MostraAvviso(p, testo, "Problema");
    return n < massimo;
}

bool Coincidono(double dx, double dy) {
    return std::fabs(dx) < kCoincidenza && std::fabs(dy) < kCoincidenza;
}

double Distanza(const Disegno& d, int a, int b) {
    const auto i = static_cast<std::size_t>(a), j = static_cast<std::size_t>(b);
    return std::hypot(d.coordX[i] - d.coordX[j], d.coordY[i] - d.coordY[j]);
}

bool SuSegmento(const Disegno& d, int punto, const LineaDis& l) {
    return Distanza(d, punto, l.lineaIni) + Distanza(d, punto, l.lineaFin) -
               Distanza(d, l.lineaIni, l.lineaFin) <
           kCoincidenza;
}

// A dashed element that lies on another one.
bool Coperta(const Disegno& d, std::size_t i) {
    const LineaDis& l = d.linee[i];
    if (l.lineaColore <= 0 || l.lineaTipo < 1) return false;
    for (std::size_t j = 0; j < d.linee.size(); ++j) {
        if (j != i && SuSegmento(d, l.lineaIni, d.linee[j]) &&
            SuSegmento(d, l.lineaFin, d.linee[j])) {
            return true;
        }
    }
    return false;
}

void PulisciLinee(Disegno& d) {
    for (std::size_t i = 0; i < d.linee.size();) {
        const bool errata = d.linee[i].lineaColore < 0 || d.linee[i].lineaTipo < 0;
        if (errata || Coperta(d, i)) {
            d.linee.erase(d.linee.begin() + static_cast<long>(i));
        } else {
            ++i;
        }
    }
}

void PulisciArchi(Disegno& d) {
    for (std::size_t i = 0; i < d.archi.size(); ++i) {
        const ArcoDis primo = d.archi[i];
        const auto dopo = d.archi.begin() + static_cast<long>(i) + 1;
        d.archi.erase(std::remove(dopo, d.archi.end(), primo), d.archi.end());
    }
}

// References to a coordinate that coincides with an earlier one go to the earlier one.
void FondiCoordinate(Disegno& d) {
    std::vector<int> prima(d.coordX.size());
    for (std::size_t j = 0; j < prima.size(); ++j) {
        prima[j] = static_cast<int>(j);
        for (std::size_t i = 0; i < j; ++i) {
            if (Coincidono(d.coordX[i] - d.coordX[j], d.coordY[i] - d.coordY[j])) {
                prima[j] = static_cast<int>(i);
                break;
            }
        }
    }
    const auto fuso = [&](int& indice) { indice = prima[static_cast<std::size_t>(indice)]; };
    for (LineaDis& l : d.linee) fuso(l.lineaIni), fuso(l.lineaFin);
    for (ArcoDis& a : d.archi) fuso(a.arcoCentro), fuso(a.arcoIni), fuso(a.arcoCentro2);
    for (TestoDis& t : d.testi) fuso(t.testoCoord);
}

template <class Funzione>
void PerOgniIndice(Disegno& d, Funzione f) {
    for (LineaDis& l : d.linee) f(l.lineaIni), f(l.lineaFin);
    for (PuntoDis& q : d.punti) f(q.puntoCoord);
    for (TestoDis& t : d.testi) f(t.testoCoord);
    for (ArcoDis& a : d.archi) f(a.arcoCentro), f(a.arcoIni), f(a.arcoCentro2), f(a.arcoFin);
}

void TogliInutilizzate(Disegno& d) {
    std::vector<int> nuovo(d.coordX.size(), -1);
    PerOgniIndice(d, [&](int& i) { nuovo[static_cast<std::size_t>(i)] = 0; });
    std::size_t n = 0;
    for (std::size_t i = 0; i < nuovo.size(); ++i) {
        if (nuovo[i] < 0) continue;
        nuovo[i] = static_cast<int>(n);
        d.coordX[n] = d.coordX[i];
        d.coordY[n] = d.coordY[i];
        ++n;
    }
    d.coordX.resize(n);
    d.coordY.resize(n);
    PerOgniIndice(d, [&](int& i) { i = nuovo[static_cast<std::size_t>(i)]; });
}

}  // namespace

int AggiungiCoord(Disegno& d, double x, double y, const Piattaforma& p) {
    constexpr std::size_t kIndietro = 31;  // neighbours of a composition come in runs
    const std::size_t n = d.coordX.size();
    for (std::size_t k = 1; k <= n && k <= kIndietro; ++k) {
        const std::size_t i = n - k;
        if (Coincidono(d.coordX[i] - x, d.coordY[i] - y)) return static_cast<int>(i);
    }
    // An index has 16 bits: the nominal limit of the table lies beyond.
    if (n > 32767) throw ErroreFatale("Più di 32768 coordinate nel disegno");
    if (!Posto(n, kMaxCoordinate, " Numero eccessivo di coordinate ", p)) return -1;
    d.coordX.push_back(x);
    d.coordY.push_back(y);
    return static_cast<int>(n);
}

void DisegnaSegmento(Disegno& d, double x1, double y1, double x2, double y2,
                     std::optional<short> colore, const Piattaforma& p) {
    if (std::fabs(x1 - x2) <= kCoincidenza && std::fabs(y1 - y2) <= kCoincidenza) return;
    if (!Posto(d.linee.size(), kMaxLinee, kTroppiElementi, p)) return;
    LineaDis l;
    l.lineaIni = AggiungiCoord(d, x1 + d.origineX, y1 + d.origineY, p);
    l.lineaFin = AggiungiCoord(d, x2 + d.origineX, y2 + d.origineY, p);
    if (l.lineaIni < 0 || l.lineaFin < 0) return;
    l.lineaColore = colore.value_or(d.coloreCorrente);
    l.lineaTipo = d.tipoLineaCorrente;
    d.linee.push_back(l);
}

void DisegnaCerchio(Disegno& d, double x, double y, double diametro, std::optional<short> colore,
                    const Piattaforma& p, double angoloIni, std::optional<double> angoloFin) {
    if (!(diametro > kCoincidenza)) return;
    if (!Posto(d.archi.size(), kMaxArchi, kTroppiElementi, p)) return;
    const double cx = x + d.origineX, cy = y + d.origineY, r = diametro / 2.0;
    const double a1 = angoloIni, a2 = angoloFin.value_or(angoloIni);
    ArcoDis a;
    a.arcoCentro = a.arcoCentro2 = AggiungiCoord(d, cx, cy, p);
    a.arcoIni = AggiungiCoord(d, cx + r * std::cos(a1), cy + r * std::sin(a1), p);
    a.arcoFin = AggiungiCoord(d, cx + r * std::cos(a2), cy + r * std::sin(a2), p);
    if (a.arcoCentro < 0 || a.arcoIni < 0 || a.arcoFin < 0) return;
    a.arcoColore = colore.value_or(d.coloreCorrente);
    d.archi.push_back(a);
}

void DisegnaTesto(Disegno& d, std::string_view testo, double x, double y, short angolo,
                  double largh, double alt, std::optional<short> colore, const Piattaforma& p) {
    if (!(largh != 0.0) || !(alt != 0.0)) return;
    if (!Posto(d.testi.size(), kMaxTesti, " Numero eccessivo di testi ", p)) return;
    TestoDis t;
    t.testoCoord = AggiungiCoord(d, x + d.origineX, y + d.origineY, p);
    if (t.testoCoord < 0) return;
    t.testoAngolo = angolo;
    t.testoLargh = InteroCorto(std::fabs(largh) * 10.0);
    t.testoAlt = InteroCorto(std::fabs(alt) * 10.0);
    t.testoColore = colore.value_or(1);
    t.testoStringa = testo;
    d.testi.push_back(std::move(t));
}

void LimitiDisegno(Disegno& d) {
    d.minX = d.maxX = d.minY = d.maxY = 0.0;
    if (d.coordX.empty()) return;
    const auto [x1, x2] = std::minmax_element(d.coordX.begin(), d.coordX.end());
    const auto [y1, y2] = std::minmax_element(d.coordY.begin(), d.coordY.end());
    d.minX = *x1, d.maxX = *x2, d.minY = *y1, d.maxY = *y2;
}

void PulisciDisegno(Disegno& d) {
    PulisciLinee(d);
    PulisciArchi(d);
    std::erase_if(d.testi, [](const TestoDis& t) { return t.testoLargh < 1 || t.testoAlt < 1; });
    FondiCoordinate(d);
    TogliInutilizzate(d);
}

}  // namespace tk07
