#include "mostradis/lettura.h"

#include <QDateTime>
#include <QFileInfo>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/piattaforma.h"
#include "base/testo.h"
#include "drawing/dis.h"
#include "drawing/vista_grb.h"
#include "guscio/programma.h"
#include "render/pittura.h"

namespace tk07::mostradis {

namespace {

const char* NomeTipo(short tipo) {
    switch (tipo) {
        case 1:
            return "asse";
        case 2:
            return "tratteggio";
        case 3:
            return "tratto-due-punti";
        case 4:
            return "tratteggio-fitto";
        default:
            return "continua";
    }
}

std::string Numero(double x) { return TestoReale(Arrotonda(x, 4) + 0.0); }

// A row: a name, its number from 1, then labels with their values.
class Riga {
  public:
    Riga(const char* nome, std::size_t i) : testo_(nome) { testo_ += " " + std::to_string(i + 1); }
    Riga& Di(const char* cosa, std::initializer_list<double> valori) {
        testo_.append("  ").append(cosa);
        for (const double v : valori) testo_ += " " + Numero(v);
        return *this;
    }
    Riga& Detto(const std::string& cosa) {
        testo_ += "  " + cosa;
        return *this;
    }
    std::string Fine() { return testo_ + "\n"; }

  private:
    std::string testo_;
};

}  // namespace

std::optional<std::string> LeggiInp(const std::string& file, std::string& errore) {
    const FileLetto f = LeggiRighe(file);
    const std::string mostrato = PercorsoMostrato(file);
    if (!f.riuscito) {
        errore = mostrato + ": " + f.errore;
        return std::nullopt;
    }
    if (f.righe.size() < 2 || ValoreStretto(f.righe[0]) != 2.0) {
        errore = mostrato + ": riga 1: deve contenere 2, e la riga 2 il nome del disegno";
        return std::nullopt;
    }
    const std::string nome = Taglia(f.righe[1]);
    if (nome.empty()) {
        errore = mostrato + ": riga 2: manca il nome del disegno";
        return std::nullopt;
    }
    const QFileInfo disegno(QString::fromStdString(PercorsoPiattaforma(nome)));
    if (disegno.isAbsolute()) return disegno.filePath().toStdString();
    const QFileInfo qui(QString::fromStdString(PercorsoPiattaforma(file)));
    return PercorsoAssoluto((qui.absolutePath() + "/" + disegno.filePath()).toStdString());
}

std::string TrovaInp(const std::string& dirCorrente, const std::string& dirProgramma) {
    QFileInfo scelto;
    for (const std::string& dir : {dirCorrente, dirProgramma}) {
        const QFileInfo f(QString::fromStdString(PercorsoPiattaforma(dir + "/mostradis.inp")));
        if (f.isFile() && (!scelto.isFile() || f.lastModified() > scelto.lastModified())) {
            scelto = f;
        }
    }
    return scelto.filePath().toStdString();
}

std::optional<std::string> DisegnoChiesto(const std::string& argomento, std::string& errore) {
    if (FinisceCon(Minuscolo(argomento), ".inp")) {
        return LeggiInp(PercorsoAssoluto(argomento), errore);
    }
    return PercorsoAssoluto(argomento);
}

bool LeggiDisegno(const std::string& file, const Opzioni& opz, const StiliGrb& stili,
                  DisegnoLetto& letto, std::string& errore) {
    if (!FinisceCon(Minuscolo(file), ".grb")) {
        Disegno d;
        if (!LeggiDis(file, d, errore)) {
            // The main program's second filter writes a DXF under this ending.
            const FileLetto f = LeggiRighe(file);
            if (f.righe.size() > 1 && Taglia(f.righe[0]) == "0" && f.righe[1] == "SECTION") {
                errore = "contiene un testo DXF, da aprire con un programma CAD";
            }
            return false;
        }
        letto = {std::move(d), {}};
        return true;
    }
    DisegnoGrb g;
    Disegno d;
    if (!LeggiGrb(file, g, errore) || !MostraGrb(g, stili, opz, d, errore)) return false;
    letto = {std::move(d), std::move(g.quote)};
    return true;
}

std::string ElencaDisegno(const DisegnoLetto& letto, const std::string& file) {
    const Disegno& d = letto.d;
    std::string r = "FILE  " + PercorsoMostrato(file) + "\n";
    for (const auto& [nome, quanti] :
         std::initializer_list<std::pair<const char*, std::size_t>>{{"COORDINATE", d.coordX.size()},
                                                                    {"PUNTI", d.punti.size()},
                                                                    {"LINEE", d.linee.size()},
                                                                    {"ARCHI", d.archi.size()},
                                                                    {"TESTI", d.testi.size()}}) {
        r.append(nome).append("  ").append(std::to_string(quanti)).append("\n");
    }
    if (!letto.quote.empty()) r += "QUOTE  " + std::to_string(letto.quote.size()) + "\n";
    const auto limiti = [&](const char* nome, double x0, double x1, double y0, double y1) {
        r.append(nome).append("  x da " + Numero(x0) + " a " + Numero(x1) + "  y da " + Numero(y0) +
                              " a " + Numero(y1) + "\n");
    };
    limiti("ESTENSIONE", d.minX, d.maxX, d.minY, d.maxY);
    const QRectF q = IngombroDisegno(d);
    limiti("INGOMBRO", q.left(), q.right(), q.top(), q.bottom());
    const auto x = [&](int i) { return d.coordX[static_cast<std::size_t>(i)]; };
    const auto y = [&](int i) { return d.coordY[static_cast<std::size_t>(i)]; };
    for (std::size_t i = 0; i < d.punti.size(); ++i) {
        const PuntoDis& p = d.punti[i];
        r += Riga("PUNTO", i).Di("in", {x(p.puntoCoord), y(p.puntoCoord)}).Fine();
    }
    for (std::size_t i = 0; i < d.linee.size(); ++i) {
        const LineaDis& l = d.linee[i];
        const double dx = x(l.lineaFin) - x(l.lineaIni), dy = y(l.lineaFin) - y(l.lineaIni);
        r += Riga("LINEA", i)
                 .Di("da", {x(l.lineaIni), y(l.lineaIni)})
                 .Di("a", {x(l.lineaFin), y(l.lineaFin)})
                 .Di("lunghezza", {std::hypot(dx, dy)})
                 .Di("colore", {double(l.lineaColore)})
                 .Detto(NomeTipo(l.lineaTipo))
                 .Fine();
    }
    for (std::size_t i = 0; i < d.archi.size(); ++i) {
        const GeometriaArco g = LeggiArco(d, d.archi[i]);
        Riga riga(g.ampiezza >= 360.0 ? "CERCHIO" : "ARCO", i);
        riga.Di("centro", {g.x, g.y}).Di("raggio", {g.raggio});
        if (g.ampiezza < 360.0) {
            riga.Di("da", {g.inizio}).Di("a", {g.inizio + g.ampiezza}).Detto("gradi");
        }
        r += riga.Di("colore", {double(d.archi[i].arcoColore)}).Fine();
    }
    for (std::size_t i = 0; i < d.testi.size(); ++i) {
        const TestoDis& t = d.testi[i];
        r += Riga("TESTO", i)
                 .Di("in", {x(t.testoCoord), y(t.testoCoord)})
                 .Di("angolo", {double(t.testoAngolo)})
                 .Di("carattere", {t.testoLargh / 10.0, t.testoAlt / 10.0})
                 .Di("colore", {double(t.testoColore)})
                 .Detto("\"" + t.testoStringa + "\"")
                 .Fine();
    }
    for (std::size_t i = 0; i < letto.quote.size(); ++i) {
        const QuotaGrb& quota = letto.quote[i];
        r += Riga("QUOTA", i)
                 .Di("da", {x(quota.quotaP1), y(quota.quotaP1)})
                 .Di("a", {x(quota.quotaP2), y(quota.quotaP2)})
                 .Di("distanza", {quota.quotaOffset})
                 .Di("stile", {double(quota.quotaStile)})
                 .Detto("\"" + quota.quotaTesto + "\"")
                 .Fine();
    }
    return r;
}

Cartiglio CartiglioDiFile(const Disegno& d, const std::string& file) {
    Cartiglio c;
    const QFileInfo info(QString::fromStdString(file));
    c.programma = kTitoloProgramma;
    c.titolo = info.completeBaseName();
    c.file = QString::fromStdString(PercorsoMostrato(file));
    c.data = info.lastModified().toString(QStringLiteral("dd/MM/yyyy"));
    for (const TestoDis& t : d.testi) {
        const QString testo = TestoMostrato(t.testoStringa).trimmed();
        if (testo.startsWith("NODO TRAVE-TRAVE CON PIASTRE")) c.titolo = testo;
        if (testo.startsWith("Piastre in acciaio") || testo.startsWith("Viti classe")) {
            c.materiali += (c.materiali.isEmpty() ? "" : " - ") + testo;
        }
    }
    return c;
}

}  // namespace tk07::mostradis
