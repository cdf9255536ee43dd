#include "drawing/grb.h"

#include <array>
#include <cmath>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "drawing/composizione.h"
#include "drawing/lettore_dis.h"
#include "drawing/scrittore_dis.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

constexpr const char* kZero = "                   0\n";

}  // namespace

void GrbTesto(DisegnoGrb& g, const std::string& testo, double x1, double y1, double x2, double y2,
              double angolo, short allineamento, short stile, const Piattaforma& p) {
    const auto n = static_cast<int>(g.testi.size());
    if (n == kMaxTesti - 1) MostraAvviso(p, "Superato il numero massimo di testi");
    if (n >= kMaxTesti) return;
    double x = x1, y = y1;
    if (allineamento == 1) x = (x1 + x2) / 2.0, y = (y1 + y2) / 2.0;
    if (allineamento == 2) x = x2, y = y2;
    TestoGrb t;
    t.testoCoord = AggiungiCoord(g.base, x + g.base.origineX, y + g.base.origineY, p);
    if (t.testoCoord < 0) return;
    t.testoStile = stile;
    t.testoAngolo = InteroCorto(angolo);
    t.testoAllineamento = allineamento;
    t.testoStringa = testo;
    g.testi.push_back(std::move(t));
}

void GrbQuota(DisegnoGrb& g, const std::string& testo, double x1, double y1, double x2, double y2,
              double offset, short stile, const Piattaforma& p) {
    const double dx = std::fabs(x1 - x2), dy = std::fabs(y1 - y2);
    if (dx <= kCoincidenza && dy <= kCoincidenza) return;
    const auto n = static_cast<int>(g.quote.size());
    if (n == kMaxQuoteGrb - 1) MostraAvviso(p, "Superato il numero massimo di quote");
    if (n >= kMaxQuoteGrb) return;
    QuotaGrb q;
    q.quotaP1 = AggiungiCoord(g.base, x1 + g.base.origineX, y1 + g.base.origineY, p);
    q.quotaP2 = AggiungiCoord(g.base, x2 + g.base.origineX, y2 + g.base.origineY, p);
    if (q.quotaP1 < 0 || q.quotaP2 < 0) return;
    q.quotaDir = dy <= kCoincidenza ? "H" : (dx <= kCoincidenza ? "V" : "P");
    q.quotaStile = stile;
    q.quotaOffset = offset;
    q.quotaTesto = Taglia(testo).empty() ? kTestoPredefinito : testo;
    g.quote.push_back(std::move(q));
}

void EmettiGrb(const Figura& f, double dx, double dy, DisegnoGrb& g, const Piattaforma& p) {
    Figura senza;
    senza.segmenti = f.segmenti;
    senza.cerchi = f.cerchi;
    EmettiFigura(senza, dx, dy, g.base, p);
    for (const TestoFig& t : f.testi) {
        GrbTesto(g, t.testo, t.x, t.y, t.x, t.y, t.angolo, 0, static_cast<short>(t.stile), p);
    }
    for (const QuotaFig& q : f.quote) {
        // In reading order, as the offset's sign has it.
        const bool verticale = std::fabs(q.x2 - q.x1) <= kCoincidenza;
        const bool scambia = verticale ? q.y2 < q.y1 : q.x2 < q.x1;
        GrbQuota(g, q.testo, scambia ? q.x2 : q.x1, scambia ? q.y2 : q.y1, scambia ? q.x1 : q.x2,
                 scambia ? q.y1 : q.y2, q.distanza, static_cast<short>(q.stile.stile), p);
    }
}

bool DisegnaNodoGrb(const Nodo& nodo, const Opzioni& opz, DisegnoGrb& g, const Piattaforma& p) {
    g = DisegnoGrb{};
    const std::vector<FiguraPosta> tavola = ComponiTavola(nodo, opz, Squadratura::si, p);
    for (const FiguraPosta& f : tavola) EmettiGrb(f.figura, f.x, f.y, g, p);
    return !tavola.empty();
}

short ColoreGrb(short indice) { return indice >= 0 && indice <= 7 ? indice : short{1}; }

std::string RigaCampi20(std::string_view a, std::string_view b, std::string_view c,
                        std::string_view d) {
    std::string r;
    for (const std::string_view campo : {a, b, c, d}) {
        const bool primo = r.empty();
        const std::size_t largo = primo ? 20 : 19;
        std::string t = PrimiCaratteri(Taglia(campo), largo);
        t.append(largo - NumeroCaratteri(t), ' ');
        if (!primo) r += ' ';
        r += t;
    }
    return TagliaDestra(r);
}

std::string ComponiGrb(DisegnoGrb& g) {
    Disegno& d = g.base;
    LimitiDisegno(d);
    ScrittoreDisegno s;
    s.testo =
        "                   4\n                   5                   2                   0\n";
    for (int k = 0; k < 6; ++k) s.testo += kZero;
    s.Riga({d.minX, d.maxX});
    s.Riga({d.minY, d.maxY});
    s.Conteggio(d.coordX.size());
    for (std::size_t i = 0; i < d.coordX.size(); ++i) s.Riga({d.coordX[i], d.coordY[i]});
    s.testo += "0\n";
    s.Conteggio(d.linee.size());
    for (const LineaDis& l : d.linee) {
        s.Riga({double(l.lineaIni), double(l.lineaFin)});
        s.Riga({double(ColoreGrb(l.lineaColore)), double(l.lineaTipo), 0.0});
    }
    s.Conteggio(d.archi.size());
    for (const ArcoDis& a : d.archi) {
        s.Riga({double(a.arcoCentro), double(a.arcoIni), double(a.arcoFin)});
        s.Riga({double(ColoreGrb(a.arcoColore)), double(a.arcoFlag), 0.0});
    }
    s.Conteggio(g.testi.size());
    for (const TestoGrb& t : g.testi) {
        s.Riga({double(t.testoCoord), double(t.testoStile - 1), double(t.testoAngolo), 0.0,
                double(t.testoAllineamento)});
        s.testo.append(TogliCR(t.testoStringa)).append("\n");
    }
    s.testo.append(kZero).append(kZero);
    s.Conteggio(g.quote.size());
    for (const QuotaGrb& q : g.quote) {
        s.testo
            .append(RigaCampi20(TestoNumero(q.quotaP1), TestoNumero(q.quotaP2), "-1", q.quotaDir))
            .append("\n");
        // Style, offset, and a text that stays empty.
        s.Riga({double(q.quotaStile), q.quotaOffset});
        s.testo.append(TogliCR(q.quotaTesto)).append("\n");
    }
    s.testo += "0\n";  // closing table of style records, never filled
    return std::move(s.testo);
}

bool ScriviGrb(DisegnoGrb& g, std::string_view nomeFile, const Piattaforma& p) {
    const std::string errore = ScriviFile(nomeFile, ComponiGrb(g), Codifica::windows1252);
    if (errore.empty()) return true;
    MostraErrore(
        p, "Errore durante la scrittura sul file\n" + PercorsoMostrato(nomeFile) + ": " + errore,
        "ERRORE");
    return false;
}

bool SalvaGrb(const Nodo& nodo, const Opzioni& opz, std::string_view nomeFile, bool silenzioso,
              const Piattaforma& p) {
    DisegnoGrb g;
    if (!DisegnaNodoGrb(nodo, opz, g, p) || !ScriviGrb(g, nomeFile, p)) return false;
    if (!silenzioso) {
        p.messaggio("File " + PercorsoMostrato(nomeFile) + " salvato.", "SALVA FILE DISEGNO",
                    Segno::informazione, Pulsanti::OK);
    }
    return true;
}

bool GeneraGrb(const Nodo& nodo, const Opzioni& opz, std::string_view nomeFile, bool silenzioso,
               const Piattaforma& p) {
    p.puntatore(11);
    const bool esito = SalvaGrb(nodo, opz, nomeFile, silenzioso, p);
    if (!esito) MostraAvviso(p, "Scrittura GRB annullata");
    p.puntatore(0);
    return esito;
}

namespace {

DisegnoGrb Leggi(const std::vector<std::string>& righe) {
    DisegnoGrb g;
    Disegno& d = g.base;
    LettoreDisegno l(righe);
    for (int k = 0; k < 8; ++k) l.Riga();
    l.Estensione(d);
    l.Coordinate(d);
    const auto indice = [&](double x) { return l.Indice(x); };
    std::vector<double> v;
    l.Conteggio(0);
    for (int k = l.Conteggio(kMaxLinee); k > 0; --k) {
        v = l.Numeri(2);
        LineaDis r{indice(v[0]), indice(v[1]), 0, 0};
        v = l.Numeri(3);
        r.lineaColore = l.Corto(v[0]), r.lineaTipo = l.Corto(v[1]);
        d.linee.push_back(r);
    }
    for (int k = l.Conteggio(kMaxArchi); k > 0; --k) {
        v = l.Numeri(3);
        ArcoDis a{indice(v[0]), indice(v[1]), indice(v[0]), indice(v[2]), 0, 0};
        v = l.Numeri(3);
        a.arcoColore = l.Corto(v[0]), a.arcoFlag = l.Corto(v[1]);
        d.archi.push_back(a);
    }
    for (int k = l.Conteggio(kMaxTesti); k > 0; --k) {
        v = l.Numeri(5);
        TestoGrb t{indice(v[0]), l.Corto(v[1] + 1.0), l.Corto(v[2]), l.Corto(v[4]), {}};
        t.testoStringa = l.Riga();
        g.testi.push_back(std::move(t));
    }
    l.Conteggio(0);
    l.Conteggio(0);
    for (int k = l.Conteggio(kMaxQuoteGrb); k > 0; --k) {
        std::string riga = l.Riga();
        std::array<std::string, 4> campi;
        for (std::string& c : campi) c = EstraiCampo(riga);
        const auto p1 = ValoreStretto(campi[0]), p2 = ValoreStretto(campi[1]);
        if (!p1 || !p2) l.Guasto("punto della quota errato");
        if (campi[3] != "H" && campi[3] != "V" && campi[3] != "P") {
            l.Guasto("direzione della quota errata");
        }
        QuotaGrb q{indice(*p1), indice(*p2), campi[3], 0, 0.0, {}};
        v = l.Numeri(2);
        q.quotaStile = l.Corto(v[0]);
        q.quotaOffset = v[1];
        q.quotaTesto = l.Riga();
        g.quote.push_back(std::move(q));
    }
    l.Conteggio(0);
    return g;
}

}  // namespace

bool LeggiGrb(std::string_view nomeFile, DisegnoGrb& g, std::string& errore) {
    return LeggiFileDisegno(nomeFile, g, errore, Leggi);
}

}  // namespace tk07
