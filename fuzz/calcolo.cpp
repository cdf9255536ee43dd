// Joint -> checks -> whole calculation -> report, drawing, scene; and what is typed or pasted on
// the way.

#include <cmath>
#include <cstdint>

#include "base/file_testo.h"
#include "bersaglio.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "guscio/csv.h"
#include "guscio/json_nodo.h"
#include "guscio/protocollo.h"
#include "joint/controlla_dati.h"
#include "joint/file_nodo.h"
#include "joint/geometria.h"
#include "reports/relazione.h"
#include "scene3d/assemblaggio.h"
#include "scene3d/file_scena.h"
#include "verification/esiti.h"
#include "verification/verifica_nodo.h"
#ifdef TK07_CON_QT
#include "desktop/numero.h"
#endif

namespace tk07::fuzz {

static const Piattaforma kMuta = PiattaformaMuta();

// The shipped joints as the session opens them.
static const std::vector<Nodo>& Esempi() {
    static const std::vector<Nodo> tutti = [] {
        std::vector<Nodo> nodi;
        for (const std::string& t : Forniti("installazione/lavori", ".tk7")) {
            auto s = std::make_unique<Sessione>(*Base().s);
            Pretendi(ApriNodo(*s, ComeFile(t, "esempio.tk7")), "esempio non letto");
            nodi.push_back(s->nodo);
        }
        return nodi;
    }();
    return tutti;
}

// Bytes -> changes of a joint: what, where, and a value of two bytes.
struct Cambi {
    std::string_view dati;
    unsigned Byte() {
        if (dati.empty()) return 0;
        const auto b = static_cast<unsigned char>(dati[0]);
        dati.remove_prefix(1);
        return b;
    }
    double Valore(double ora) {
        static constexpr double kOrli[] = {0.0,  -0.0,  1.0,  -1.0, 0.1,   1e-9, 1e-300, 1e9,
                                           1e15, 1e300, 40.0, 80.0, 39.99, 2.5,  0.005,  -1e6};
        const unsigned modo = Byte(), b = Byte();
        if (modo < 32) return kOrli[b % std::size(kOrli)];
        if (modo < 128) return ora * (0.5 + b / 128.0);
        if (modo < 192) return ora + (static_cast<double>(b) - 128.0);
        return (modo - 192.0) * 4.0 + b / 64.0;
    }
};

static void Cambia(Nodo& n, Cambi c) {
    const auto& tab = *Base().s;
    double* const reali[] = {&n.distAlaSecPiastra, &n.distPiastraTraPri, &n.distAliPriSec,
                             &n.spSaldS1, &n.spSaldS2};
    decltype(&n.BPiastra) const piastre[] = {&n.BPiastra, &n.HPiastra, &n.SpPiastra};
    decltype(&n.SpNerv)
        const nervature[] = {&n.SpNerv, &n.H1Nerv, &n.H2Nerv, &n.BNerv, &n.SmussoNerv};
    decltype(&n.Xbull) const bulloni[] = {&n.Xbull, &n.Ybull, &n.Fibull};
    decltype(&n.TaglioY)
        const azioni[] = {&n.SforzoNormale, &n.TaglioY, &n.TaglioZ, &n.MomTorc, &n.MomY, &n.MomZ};
    const auto muta = [&](double& x) { x = c.Valore(x); };
    while (!c.dati.empty()) {
        const unsigned cosa = c.Byte() % 12, quale = c.Byte();
        const int i = static_cast<int>(quale / 8);
        switch (cosa) {
            case 0:
                muta(*reali[quale % std::size(reali)]);
                break;
            case 1:
                muta((*piastre[quale % 3])(1 + i % 2));
                break;
            case 2:
                muta((*nervature[quale % 5])(1 + i % 3));
                break;
            case 3:
                n.AttNerv(1 + i % 2) = quale % 2 != 0;
                break;
            case 4:
                n.nBull = static_cast<short>(quale % 101);
                break;
            case 5:
            case 6:
                muta((*bulloni[quale % 3])(1 + i));
                break;
            case 7:
                n.acciaio =
                    tab.mat.AcciaiAperte(1 + quale % static_cast<unsigned>(tab.mat.nAcciaiAperte));
                break;
            case 8:
                n.vite = tab.mat.Viti(1 + quale % static_cast<unsigned>(tab.mat.nViti));
                n.Esposizione = static_cast<short>(quale % 3);
                n.TipoVer = static_cast<short>(quale / 128);
                break;
            case 9: {
                n.nSollAg = static_cast<short>(quale % 6);
                n.CasoCarico(i % 6) = static_cast<short>(quale % 2);
                break;
            }
            default:
                muta((*azioni[quale % 6])(i % 6));
                break;
        }
    }
    RicalcolaNervatura3(n);
}

static std::string Relazione(const Nodo& n, Risultati& ris, Esiti& esiti) {
    if (VerificaNodo(n, Base().s->opz, ris, esiti, kMuta) != EsitoVerifica::completata) return "";
    return RelazioneDi(n, Base().s->unita, ris, esiti).testo;
}

BERSAGLIO(calcolo, {
    Semi semi;
    for (std::size_t i = 0; i < Esempi().size(); ++i) {
        const char e = static_cast<char>(i);
        for (const std::string cambi :
             {"", "\x0B\x01\x50\xF0", "\x04\x02\x05\x08\x40\x20", "\x08\x83", "\x09\x00\x03\x11"}) {
            semi.push_back(e + cambi);
        }
    }
    return semi;
}) {
    Cambi c{dati};
    static Nodo n, letto;
    n = Esempi()[c.Byte() % Esempi().size()];
    Cambia(n, c);
    static Disegno d;
    Scena scena;
    // The sheet takes a hundred times as long as the rest.
    const bool disegnato = std::hash<std::string_view>{}(dati) % 64 == 0;
    if (disegnato) SenzaFatale([&] { DisegnaNodo(n, Base().s->opz, Squadratura::si, d, kMuta); });
    if (ControllaDati(n, Base().s->opz, kMuta)) return;
    // A joint that fits together is judged, drawn and shown: nothing in it is fatal.
    static auto s = std::make_unique<Sessione>(*Base().s);
    const std::string testo = Relazione(n, s->ris, s->esiti);
    if (disegnato) {
        DisegnaNodo(n, Base().s->opz, Squadratura::no, d, kMuta);
        Pretendi(!ComponiDis(d, 4).empty(), "disegno vuoto");
    }
    ComponiScena3D(n, GeometriaDi(n), nullptr, scena, kMuta);
    if (testo.empty()) return;
    // The rows, the load sets' verdicts and the joint's, formed apart, agree.
    bool tutti = true;
    Pretendi(s->esiti.Sestetti() == n.nSollAg, "esiti per sestetto");
    for (int k = 0; k < n.nSollAg; ++k) {
        bool passa = true;
        for (const Riscontro& r : s->esiti.Righe(k)) {
            Pretendi(r.passa == !(r.rapporto > 1.0),
                     "rapporto " + std::to_string(r.rapporto) + " " + NomeConfronto(r));
            passa = passa && r.passa;
        }
        Pretendi(
            passa == s->esiti.Sestetto(k).verificato && passa == (s->ris.Verificato(k, 0) != 0),
            "verdetto del sestetto " + std::to_string(k + 1));
        tutti = tutti && passa;
    }
    Pretendi(tutti == s->esiti.verificato && tutti == s->ris.NodoVerificato, "verdetto del nodo");
    // Written and read, the same joint: the same report.
    letto = Esempi()[0];
    const std::string f = ComeFile("", "nodo.tk7");
    Pretendi(
        ScriviFile(f, TestoFileNodo(n, {}), Codifica::windows1252, Tenuta::provvisoria).empty(),
        "nodo non scritto");
    Pretendi(LeggiFileNodo(letto, f, kMuta), "nodo non riletto");
    letto.TraPri = n.TraPri, letto.TraSec = n.TraSec, letto.acciaio = n.acciaio,
    letto.vite = n.vite;
    RicalcolaNervatura3(letto);
    Risultati altri;
    Esiti altriEsiti;
    PretendiUguali(testo, Relazione(letto, altri, altriEsiti), "relazione del nodo riletto");
    s->nodo = n;
    s->RisultatiValidi = true;
    Pretendi(prova::Quante(CsvVerifica(*s, "n"), "\n") >= n.nSollAg, "righe del CSV");
    Pretendi(Json::parse(SuRiga(JsonVerifica(*s, "n", {}))).is_object(), "JSON della verifica");
}

// Requests, one a line. A file may only be named plainly: it then lies in the scratch directory.
BERSAGLIO(protocollo, {
    Semi semi;
    std::string pezzo;
    for (const std::string& t : Forniti("tests/casi/sessione_completa", "copione.jsonl")) {
        int n = 0;
        for (std::size_t i = 0, j; (j = t.find('\n', i)) != std::string::npos; i = j + 1) {
            pezzo += t.substr(i, j - i + 1);
            if (++n % 30 == 0) semi.push_back(std::exchange(pezzo, ""));
        }
    }
    return semi;
}) {
    Avvio avvio;
    avvio.diroot = Base().radice;
    Protocollo p(avvio, kMuta, false);
    const auto giudica = [](const std::string& risposta) {
        const Json j = Json::parse(risposta);
        Pretendi(
            j.contains("esito") && j.contains("fine") && risposta.find('\n') == std::string::npos,
            "risposta: " + risposta.substr(0, 200));
    };
    giudica(p.AvviaSessione());
    std::size_t righe = 0;
    while (!dati.empty() && !p.Fine() && ++righe <= 40) {
        const std::string riga(dati.substr(0, dati.find('\n')));
        dati.remove_prefix(std::min(dati.size(), riga.size() + 1));
        const Json j = Json::parse(riga, nullptr, false);
        const auto lontano = [&] {
            const std::string t = j.is_discarded() ? "" : SuRiga(j);
            return t.find("\"file\"") != std::string::npos &&
                   (t.find('/') != std::string::npos || t.find("\\\\") != std::string::npos);
        };
        if (!lontano()) giudica(p.Rispondi(riga));
    }
}

#ifdef TK07_CON_QT
BERSAGLIO(incolla, {
    return {"0Soll 1\t1.234,5\t0\t0\t0\t0\t-12\tI\n",
            "1.500\t2\t3\t4\t5\t6\n",
            "N\tTy\n1\t2\n",
            "\"a\tb\"\t1\t2\t3\t4\t5\t6\t1\r\n",
            "Inviluppo [TaglioY]\t1\t2\t3\t4\t5\t6\t0\n",
            "1 234,5\t\xE2\x88\x92"
            "3\n"};
}) {
    if (dati.empty()) return;
    const unsigned primo = static_cast<unsigned char>(dati[0]);
    const QString testo =
        QString::fromUtf8(dati.data() + 1, static_cast<qsizetype>(dati.size() - 1));
    const int colonna = static_cast<int>(primo % 8);
    const auto s = desktop::PreparaSestetti(testo, colonna, primo >= 128);
    Pretendi(s.errore.isEmpty() || s.celle.isEmpty(), "errore e celle insieme");
    QStringList righe;
    for (const QStringList& r : s.celle) {
        for (qsizetype c = 0; c < r.size(); ++c) {
            Pretendi(s.colonna + c < 8, "colonna oltre la tabella");
            Pretendi(s.colonna + c == 0 || desktop::SoloNumero(r[c]),
                     "cella che non è un numero: " + r[c].toStdString());
        }
        righe << r.join(QLatin1Char('\t'));
    }
    // What was understood, copied out of the table and pasted again, is understood the same.
    if (s.colonna == 0) return;
    const auto ancora = desktop::PreparaSestetti(righe.join(QLatin1Char('\n')), s.colonna, true);
    Pretendi(ancora.celle == s.celle, "incollato due volte: " + ancora.errore.toStdString());
}
#endif

}  // namespace tk07::fuzz
