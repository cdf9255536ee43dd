// One target a reader of files: what it takes reads the same after being written.

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "base/file_testo.h"
#include "base/testo.h"
#include "bersaglio.h"
#include "drawing/composizione.h"
#include "drawing/dis.h"
#include "drawing/grb.h"
#include "joint/file_nodo.h"
#include "modelimport/combinazioni.h"
#include "modelimport/liste.h"
#include "modelimport/risultati_analisi.h"
#include "modelimport/sezioni_struttura.h"
#include "modelimport/struttura.h"
#include "scene3d/assemblaggio.h"
#include "scene3d/file_scena.h"
#include "textnum/formatta.h"
#include "textnum/unita.h"

namespace tk07::fuzz {

static const Piattaforma kMuta = PiattaformaMuta();
static const Orologio kOra{2026, 3, 7, 9, 5};

// As the program writes it.
static std::string Scritto(const std::string& testo, const std::string& nome = "riscritto") {
    const std::string f = ComeFile("", nome);
    const std::string errore = ScriviFile(f, testo, Codifica::windows1252, Tenuta::provvisoria);
    Pretendi(errore.empty(), errore);
    return f;
}

BERSAGLIO(nodo, { return Forniti("installazione/lavori", ".tk7"); }) {
    const std::string f = ComeFile(dati);
    Nodo n = Base().s->nodo;
    double argano = 0.0, release = 0.0;
    if (!SenzaFatale([&] {
            if (!LeggiRelease(f, argano, release, false, kMuta)) return;
            release < 1.0 ? LeggiFileNodoVecchio(n, f, kMuta) : LeggiFileNodo(n, f, kMuta);
        })) {
        return;
    }
    // A joint whose texts the file would read as keys is refused.
    const std::string riscritto = ComeFile("", "riscritto");
    if (!ScriviFileNodo(n, riscritto, kMuta)) return;
    Nodo m = Base().s->nodo;
    NoteLettura note;
    Pretendi(LeggiFileNodo(m, riscritto, kMuta, &note), "il nodo scritto non si rilegge");
    Pretendi(note.ChiaviMancanti.empty(), "chiavi mancanti nel nodo scritto");
    // Blanks around a text do not outlive the file, and move the columns.
    const auto stretto = [](std::string t) {
        std::erase_if(t, [](char c) { return c == ' ' || c == '\t'; });
        return t;
    };
    PretendiUguali(stretto(TestoFileNodo(n, kOra)), stretto(TestoFileNodo(m, kOra)),
                   "nodo riscritto");
}

BERSAGLIO(sezioni, {
    return {Forniti("installazione/custom", "prof_pro")[0].substr(0, 3000) + "\n*END*\n"};
}) {
    const std::string f = ComeFile(dati);
    static TabellaProfili tab;
    for (const std::string_view filtro : {kFamiglieNodo, std::string_view{}}) {
        GuastoLettura guasto;
        const short n = LeggiProfili(f, 1, tab, 10.0, 10.0, filtro, &guasto);
        Pretendi(n >= 0 && n <= kMaxProfili, "numero di profili");
        Pretendi(n == 0 || guasto.testo.empty(), "profili e guasto insieme");
        for (int i = 1; i <= n; ++i) {
            const ProfiloRec& p = tab(i);
            Pretendi(!p.Nome.empty() && std::isfinite(p.H + p.B + p.tw + p.tf + p.r),
                     "profilo " + p.Nome);
        }
    }
}

BERSAGLIO(materiali, {
    Semi s = Forniti("installazione/custom", "NTC08.tx1");
    s.push_back(Forniti("installazione/lavori", "propmateriali.tx1")[0]);
    return s;
}) {
    const std::string f = ComeFile(dati);
    Materiali mat = Base().s->mat;
    SenzaFatale([&] {
        std::string errore;
        short vecchio = 0;
        LeggiMateriali(f, mat, errore, vecchio);
        for (const Metodo m : {Metodo::TA, Metodo::SLU}) {
            const auto lista = RiempiListaMateriali(m, "PROFILI", "S 235", mat.nAcciaiAperte,
                                                    mat.AcciaiAperte, kMuta);
            Pretendi(lista.indice < static_cast<int>(lista.voci.size()), "scelta oltre la lista");
        }
        Pretendi(IndiceAcciaio(mat, "S 235 (FE 360)") <= kMaxMateriali, "acciaio oltre la tabella");
    });
    SenzaFatale([&] { LeggiMaterialiBase(f, mat, kMuta); });
}

BERSAGLIO(opzioni, { return Forniti("installazione/custom", "OpzioniNodi.txt"); }) {
    Opzioni a, b;
    if (!LeggiOpzioni(ComeFile(dati), a, kMuta)) return;
    const std::string f = ComeFile("", "riscritto");
    Pretendi(SalvaOpzioni(f, a, kMuta), "opzioni non salvate");
    Pretendi(LeggiOpzioni(f, b, kMuta), "le opzioni scritte non si rileggono");
    Pretendi(a.Gruppi == b.Gruppi && a.Righe.size() == b.Righe.size(),
             "gruppi o righe delle opzioni");
    for (std::size_t i = 0; i < a.Righe.size(); ++i) {
        const RigaOpzione &x = a.Righe[i], &y = b.Righe[i];
        Pretendi(x.Valore == y.Valore && x.Campi == y.Campi && x.Etichetta == y.Etichetta &&
                     x.Gruppo == y.Gruppo,
                 "riga " + std::to_string(i) + " delle opzioni");
    }
}

BERSAGLIO(unita, { return Forniti("installazione/lavori", "parametrilavoro"); }) {
    const std::string f = ComeFile(dati);
    Unita u;
    SenzaFatale([&] {
        LeggiParametriLavoro(f, u);
        ImpostaUnita(u);
        for (const double x :
             {u.FattoreLunghezze, u.FattoreForze, u.FattoreMomenti, u.FattoreTensioni}) {
            Pretendi(!std::isnan(x), "fattore che non è un numero");
        }
        UnitaSconosciute(u);
    });
}

// The structure's files: the first byte chooses which one it is; the others are the shipped
// ones.
static constexpr const char* kFileModello[] = {"STRUTTUR.STR", "combinaz.tot", "sezioni_",
                                               "astec001.bin"};

BERSAGLIO(struttura, {
    Semi semi;
    for (std::size_t i = 0; i < std::size(kFileModello); ++i) {
        semi.push_back(std::string(1, static_cast<char>('0' + i)) +
                       Forniti("installazione/lavori/telaio", kFileModello[i])[0].substr(0, 8000));
    }
    return semi;
}) {
    if (dati.empty()) return;
    static const prova::Cartella modello;
    const auto scrivi = [&](std::size_t i, std::string_view testo) {
        prova::ScriviTesto(modello / kFileModello[i], std::string(testo));
    };
    static const bool pronto = [&] {
        for (std::size_t i = 0; i < std::size(kFileModello); ++i) {
            scrivi(i, Forniti("installazione/lavori/telaio", kFileModello[i])[0]);
        }
        return true;
    }();
    const std::size_t quale =
        pronto ? static_cast<unsigned char>(dati[0]) % std::size(kFileModello) : 0;
    scrivi(quale, dati.substr(1));
    const std::string dove = modello.Testo();
    SenzaFatale([&] {
        int numero = 0;
        ModelloStr m;
        LeggiModello(dove, m, StrVecchia::prosegui, kMuta);
        NumeroCondizioni(dove, numero, StrVecchia::termina, kMuta);
        Pretendi(numero >= 0 && numero <= static_cast<int>(kMassimoVoci), "numero di condizioni");
        SezioniTrovate trovate;
        ApplicaSezioniStruttura(dove, 1, 2, Base().s->profili, StrVecchia::prosegui, trovate,
                                kMuta);
        Pretendi(trovate.TraPri <= kMaxProfili && trovate.TraSec <= kMaxProfili, "sezioni trovate");
        Combinazioni comb;
        if (LeggiCombinazioni(dove, comb, kMuta)) {
            Pretendi(comb.casiNumero.size() == comb.casiTipo.size(), "casi e tipi");
            ListaCasi(comb, Metodo::SLU);
        }
    });
    for (const ModoImport modo : {ModoImport::tutti, ModoImport::massimiMinimi}) {
        SenzaFatale([&] {
            Nodo n = Base().s->nodo;
            ImportaSollecitazioni(dove, {"102", "11-13", "1", "", "1-3,0", modo}, n, kMuta);
            Pretendi(n.nSollAg >= 0 && n.nSollAg <= kMaxSestetto, "numero di sestetti");
            for (int k = 0; k < n.nSollAg; ++k)
                Pretendi(std::isfinite(n.TaglioY(k)), "azione importata");
        });
    }
    scrivi(quale, Forniti("installazione/lavori/telaio", kFileModello[quale])[0]);
}

// What a reader of drawings or scenes takes is written, read and written again.
template <class T, class Leggi, class Componi>
static void Giro(std::string_view dati, Leggi leggi, Componi componi) {
    T a, b;
    std::string errore;
    if (!leggi(ComeFile(dati), a, errore)) {
        Pretendi(!errore.empty(), "rifiuto senza motivo");
        return;
    }
    const std::string prima = componi(a);
    Pretendi(leggi(Scritto(prima), b, errore), "il file scritto non si rilegge: " + errore);
    PretendiUguali(prima, componi(b), "file riscritto");
}

// The default joint, with as few elements as a joint has.
static Nodo NodoPiccolo() {
    Nodo n = Base().s->nodo;
    n.nBull = 1;
    n.Fibull(1) = 16.0;
    return n;
}

BERSAGLIO(dis, {
    Disegno d, piccolo;
    DisegnaNodo(NodoPiccolo(), Base().s->opz, Squadratura::no, d, kMuta);
    DisegnaCerchio(piccolo, 1.0, 2.0, 8.0, 3, kMuta);
    DisegnaSegmento(piccolo, 0.0, 0.0, 10.5, -3.25, 1, kMuta);
    DisegnaTesto(piccolo, "Però |\"", 0.0, 0.0, 90, 2.0, 3.0, 2, kMuta);
    return {ComponiDis(piccolo, 4), ComponiDis(d, 4)};
}) {
    Giro<Disegno>(dati, LeggiDis, [](const Disegno& d) { return ComponiDis(d, 4); });
}

BERSAGLIO(grb, {
    DisegnoGrb g, piccolo;
    DisegnaNodoGrb(NodoPiccolo(), Base().s->opz, g, kMuta);
    GrbTesto(piccolo, "Però", 0, 0, 1, 1, 45, 1, 1, kMuta);
    GrbQuota(piccolo, "", 0, 0, 100, 0, 15, 1, kMuta);
    DisegnaCerchio(piccolo.base, 1.0, 2.0, 8.0, 3, kMuta);
    return {ComponiGrb(piccolo), ComponiGrb(g)};
}) {
    Giro<DisegnoGrb>(dati, LeggiGrb, [](DisegnoGrb& g) { return ComponiGrb(g); });
}

BERSAGLIO(scena, {
    Scena s;
    ComponiScena3D(NodoPiccolo(), {}, nullptr, s, kMuta);
    Scena piccola = s;
    return {ComponiScena(s)};
}) {
    Giro<Scena>(dati, LeggiScena, [](const Scena& s) { return ComponiScena(s); });
}

// Number, factor and mask: 8 bytes each, then the text.
BERSAGLIO(maschere, {
    Semi semi;
    for (const std::string maschera :
         {"(DV_02)(NP_1)", "(cu_dan/cm2_n/mm2)(cd_02)(fd_12)", "(cs_03)(fs_99)(zr_0)",
          "(sc_ kN)(cd_99)", "(fd_00)(cd_-1)", "3, 7-9,-2-1", "(cu_dan_kn)(cs_00)"}) {
        const double xf[] = {12345.678, 0.01};
        std::string t(sizeof xf, '\0');
        std::memcpy(t.data(), xf, sizeof xf);
        semi.push_back(t + maschera);
    }
    return semi;
}) {
    double xf[2] = {};
    if (dati.size() < sizeof xf) return;
    std::memcpy(xf, dati.data(), sizeof xf);
    const std::string testo(dati.substr(sizeof xf));
    SenzaFatale([&] { Formatta(xf[0], testo, xf[1], kMuta); });
    SenzaFatale([&] { ValoreIniziale(testo); });
    SenzaFatale([&] {
        if (const auto x = ValoreStretto(testo)) {
            Pretendi(*x == ValoreStretto(TestoReale(*x)),
                     "il testo più corto non torna: " + TestoReale(*x));
        }
    });
    std::vector<short> voci, ancora;
    if (LeggiLista(testo, voci)) {
        Pretendi(voci.empty() || (LeggiLista(ComponiLista({voci.begin(), voci.end()}), ancora) &&
                                  voci == ancora),
                 "lista riscritta: " + testo);
    }
    if (!std::isfinite(xf[0])) return;
    const double x = std::strtod(TestoNumero(xf[0]).c_str(), nullptr);
    Pretendi(std::abs(x - xf[0]) <= std::abs(xf[0]) * 1e-14 + 1e-300,
             "numero e testo: " + TestoNumero(xf[0]));
    const int largo = 2 + static_cast<unsigned char>(dati[8]) % 97;
    for (const Allinea al : {Allinea::sinistra, Allinea::destra}) {
        const std::string c = CampoTesto(xf[0], largo, Separatore::barra, al);
        Pretendi(static_cast<int>(c.size()) == largo + 1, "larghezza della colonna: \"" + c + "\"");
    }
}

}  // namespace tk07::fuzz
