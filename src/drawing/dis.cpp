#include "drawing/dis.h"

#include <vector>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "drawing/lettore_dis.h"
#include "drawing/scrittore_dis.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

Disegno Leggi(const std::vector<std::string>& righe) {
    Disegno d;
    LettoreDisegno l(righe);
    l.Riga();  // version
    l.Estensione(d);
    l.Riga();  // extent along z
    l.Coordinate(d);
    const auto indice = [&](double x) { return l.Indice(x); };
    std::vector<double> v;
    for (int k = l.Conteggio(kMaxPunti); k > 0; --k) {
        v = l.Numeri(3);
        d.punti.push_back({indice(v[0]), l.Corto(v[1]), l.Corto(v[2])});
    }
    for (int k = l.Conteggio(kMaxLinee); k > 0; --k) {
        v = l.Numeri(4);
        d.linee.push_back({indice(v[0]), indice(v[1]), l.Corto(v[2]), l.Corto(v[3])});
    }
    for (int k = l.Conteggio(kMaxTesti); k > 0; --k) {
        TestoDis t;
        v = l.Numeri(3);
        t.testoCoord = indice(v[0]);
        t.testoAngolo = l.Corto(v[2]);
        v = l.Numeri(3);
        t.testoLargh = l.Corto(Arrotonda(v[0] * 10.0, 0));
        t.testoAlt = l.Corto(Arrotonda(v[1] * 10.0, 0));
        t.testoColore = l.Corto(v[2]);
        t.testoStringa = l.Riga();
        d.testi.push_back(std::move(t));
    }
    for (int k = l.Conteggio(kMaxArchi); k > 0; --k) {
        v = l.Numeri(4);
        ArcoDis a{indice(v[0]), indice(v[1]), indice(v[2]), indice(v[3]), 0, 0};
        v = l.Numeri(2);
        a.arcoColore = l.Corto(v[0]);
        a.arcoFlag = l.Corto(v[1]);
        d.archi.push_back(a);
    }
    return d;
}

}  // namespace

std::string ComponiDis(const Disegno& d, int versione) {
    ScrittoreDisegno s;
    s.testo = versione == 4 ? "                   4\n" : "                   3\n";
    s.Riga({d.minX, d.maxX});
    s.Riga({d.minY, d.maxY});
    s.testo += "-10000.000000        10000.000000\n";
    s.Conteggio(d.coordX.size());
    for (std::size_t i = 0; i < d.coordX.size(); ++i) s.Riga({d.coordX[i], d.coordY[i], 0.0});
    s.Conteggio(d.punti.size());
    for (const PuntoDis& q : d.punti)
        s.Riga({double(q.puntoCoord), double(q.puntoA), double(q.puntoB)});
    s.Conteggio(d.linee.size());
    for (const LineaDis& l : d.linee) {
        s.Riga(
            {double(l.lineaIni), double(l.lineaFin), double(l.lineaColore), double(l.lineaTipo)});
    }
    s.Conteggio(d.testi.size());
    for (const TestoDis& t : d.testi) {
        s.Riga({double(t.testoCoord), 1.0, double(t.testoAngolo)});
        s.Riga({t.testoLargh / 10.0, t.testoAlt / 10.0, double(t.testoColore)});
        s.testo.append(TogliCR(t.testoStringa)).append("\n");
    }
    s.Conteggio(d.archi.size());
    for (const ArcoDis& a : d.archi) {
        s.Riga({double(a.arcoCentro), double(a.arcoIni), double(a.arcoCentro2), double(a.arcoFin)});
        s.Riga({double(a.arcoColore), double(a.arcoFlag)});
    }
    return std::move(s.testo);
}

bool ScriviDis(const Disegno& d, std::string_view nomeFile, int versione, const Piattaforma& p) {
    const std::string errore = ScriviFile(nomeFile, ComponiDis(d, versione), Codifica::windows1252);
    if (errore.empty()) return true;
    MostraErrore(
        p, "Errore durante la scrittura sul file\n" + PercorsoMostrato(nomeFile) + ": " + errore,
        "ERRORE");
    return false;
}

bool SalvaDis(Disegno& d, std::string_view nomeFile, bool silenzioso, const Piattaforma& p) {
    LimitiDisegno(d);  // before the cleaning: what it drops still counts in the extent
    PulisciDisegno(d);
    const bool salvato = ScriviDis(d, nomeFile, 4, p);
    if (salvato && !silenzioso) {
        p.messaggio("File " + PercorsoMostrato(nomeFile) + " salvato.", "SALVA FILE DISEGNO",
                    Segno::informazione, Pulsanti::OK);
    }
    return salvato;
}

bool LeggiDis(std::string_view nomeFile, Disegno& d, std::string& errore) {
    return LeggiFileDisegno(nomeFile, d, errore, Leggi);
}

}  // namespace tk07
