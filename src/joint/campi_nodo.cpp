#include "joint/campi_nodo.h"

#include <algorithm>

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

namespace {

using Presa = CampoNodo::Presa;

constexpr std::size_t kDetto = 40;  // characters of a value that a message repeats

// Of a value that is read by its leading number, whatever follows.
std::string NotaNumero(const std::string& v, double letto) {
    if (ValoreStretto(v)) return {};
    return "\"" + PrimiCaratteri(v, kDetto) + "\" non è un numero, letto " + TestoReale(letto);
}

Presa Reale(const std::string& v, double& x) {
    const auto letto = NumeroIniziale(v);
    if (!letto) return {TroppoGrande(v), {}};
    x = *letto;
    return {{}, NotaNumero(v, x)};
}

Presa Intero(const std::string& v, short& n) {
    std::string perche;
    const auto letto = CortoIniziale(v, perche);
    if (!letto) return {perche, {}};
    n = *letto;
    return {{}, NotaNumero(v, n)};
}

Presa Conteggio(const std::string& v, int massimo, short& n) {
    short letto = 0;
    Presa presa = Intero(v, letto);
    if (!presa.rifiuto.empty()) return presa;
    if (letto > massimo) {
        return {
            "Valore " + std::to_string(letto) + " oltre il massimo di " + std::to_string(massimo),
            {}};
    }
    if (letto < 0) {
        presa.nota = "numero di elementi sotto zero (" + std::to_string(letto) + "), vale 0";
    }
    n = std::max<short>(letto, 0);
    return presa;
}

Presa Stretto(const std::string& v, int minimo, int massimo, short& n) {
    const auto x = ValoreStretto(v);
    if (!x) return {"Valore non numerico: \"" + v.substr(0, kDetto) + "\"", {}};
    const double r = Arrotonda(*x, 0);
    if (!(r >= minimo && r <= massimo)) {
        return {"Valore " + v.substr(0, kDetto) + " fuori dai limiti " + std::to_string(minimo) +
                    ".." + std::to_string(massimo),
                {}};
    }
    n = static_cast<short>(r);
    return {};
}

// True exactly for 1. The switch of rib 3 has no use: it is read and dropped.
Presa Attiva(const std::string& v, int i, Nodo& n) {
    double x = 0.0;
    Presa presa = Reale(v, x);
    if (presa.rifiuto.empty()) n.AttNerv(i) = i != 3 && x == 1.0;
    return presa;
}

// 1 for limit states, whatever else for allowable stresses.
Presa Tipo(const std::string& v, short& tipo) {
    short letto = 0;
    Presa presa = Stretto(v, -32768, 32767, letto);
    if (presa.rifiuto.empty()) tipo = letto == 1 ? 1 : 0;
    return presa;
}

// clang-format off
#define NODO_TESTO(K, M, F) {K, M, TipoCampo::testo, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TogliCR(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v) { n.F = v; return Presa{}; }}
#define NODO_REALE(K, M, F) {K, M, TipoCampo::reale, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TestoReale(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v) { return Reale(v, n.F); }}
#define NODO_INTERO(K, M, F, LEGGI) {K, M, TipoCampo::intero, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TestoIntero(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v) { return LEGGI; }}

constexpr CampoNodo kTravi[] = {
    NODO_TESTO("TraPri_Nome", "trapri_nome", TraPri.Nome),
    NODO_TESTO("TraSec_Nome", "trasec_nome", TraSec.Nome),
    NODO_REALE("distAlaSecPiastra", "distalasecpiastra", distAlaSecPiastra),
    NODO_REALE("distPiastraTraPri", "distpiastratrapri", distPiastraTraPri),
    NODO_REALE("distAliPriSec", "distaliprisec", distAliPriSec),
};
constexpr CampoNodo kPiastre[] = {
    NODO_REALE("BPiastra", "bpiastra", BPiastra(i)),
    NODO_REALE("HPiastra", "hpiastra", HPiastra(i)),
    NODO_REALE("SpPiastra", "sppiastra", SpPiastra(i)),
};
constexpr CampoNodo kNervature[] = {
    {"AttNerv", "attnerv", TipoCampo::booleano,
     [](const Nodo& n, int i) { return std::string(n.AttNerv(i) ? "1" : "0"); },
     [](Nodo& n, int i, const std::string& v) { return Attiva(v, i, n); }},
    NODO_REALE("SpNerv", "spnerv", SpNerv(i)),
    NODO_REALE("H1Nerv", "h1nerv", H1Nerv(i)),
    NODO_REALE("H2Nerv", "h2nerv", H2Nerv(i)),
    NODO_REALE("BNerv", "bnerv", BNerv(i)),
    NODO_REALE("SmussoNerv", "smussonerv", SmussoNerv(i)),
};
constexpr CampoNodo kSaldature[] = {
    NODO_REALE("spSaldS1", "spsalds1", spSaldS1),
    NODO_REALE("spSaldS2", "spsalds2", spSaldS2),
    NODO_INTERO("nBull", "nbull", nBull, Conteggio(v, kMaxBulloni, n.nBull)),
};
constexpr CampoNodo kBulloni[] = {
    NODO_REALE("Xbull", "xbull", Xbull(i)),
    NODO_REALE("Ybull", "ybull", Ybull(i)),
    NODO_REALE("Fibull", "fibull", Fibull(i)),
};
constexpr CampoNodo kMateriali[] = {
    NODO_TESTO("acciaio_Nome", "acciaio_nome", acciaio.Nome),
    NODO_TESTO("vite_Nome", "vite_nome", vite.Nome),
    NODO_INTERO("Esposizione", "esposizione", Esposizione, Stretto(v, -1, 2, n.Esposizione)),
    NODO_INTERO("nSollAg", "nsollag", nSollAg, Conteggio(v, kMaxSestetto + 1, n.nSollAg)),
};
constexpr CampoNodo kSestetti[] = {
    NODO_REALE("SforzoNormale", "sforzonormale", SforzoNormale(i)),
    NODO_REALE("TaglioY", "taglioy", TaglioY(i)),
    NODO_REALE("TaglioZ", "taglioz", TaglioZ(i)),
    NODO_REALE("MomTorc", "momtorc", MomTorc(i)),
    NODO_REALE("MomY", "momy", MomY(i)),
    NODO_REALE("MomZ", "momz", MomZ(i)),
    NODO_INTERO("CasoCarico", "casocarico", CasoCarico(i), Intero(v, n.CasoCarico(i))),
    NODO_TESTO("NomeSa", "nomesa", NomeSa(i)),
};
constexpr CampoNodo kNumNodi[] = {
    NODO_INTERO("numNodi", "numnodi", numNodi, Conteggio(v, kMaxNodi, n.numNodi)),
};
constexpr CampoNodo kNodi[] = {
    NODO_INTERO("NomeNodi", "nomenodi", NomeNodi(i), Intero(v, n.NomeNodi(i))),
};
constexpr CampoNodo kMetodo[] = {
    NODO_INTERO("TipoVer", "tipover", TipoVer, Tipo(v, n.TipoVer)),
};
// clang-format on
#undef NODO_TESTO
#undef NODO_REALE
#undef NODO_INTERO

const GruppoCampi kGruppi[] = {
    {IndiceCampo::nessuno, kTravi},       {IndiceCampo::piastra, kPiastre},
    {IndiceCampo::nervatura, kNervature}, {IndiceCampo::nessuno, kSaldature},
    {IndiceCampo::bullone, kBulloni},     {IndiceCampo::nessuno, kMateriali},
    {IndiceCampo::sestetto, kSestetti},   {IndiceCampo::nessuno, kNumNodi},
    {IndiceCampo::nodo, kNodi},           {IndiceCampo::nessuno, kMetodo},
};

}  // namespace

std::span<const GruppoCampi> GruppiNodo() { return kGruppi; }

std::string TestoRifiutato(std::string_view testo) {
    const std::string t = Minuscolo(TogliCR(testo));  // as the file would have it
    for (std::size_t p = t.find('['); p != std::string::npos; p = t.find('[', p + 1)) {
        for (const GruppoCampi& gruppo : GruppiNodo()) {
            for (const CampoNodo& campo : gruppo.campi) {
                const std::string_view chiave = campo.minuscola;
                if (t.compare(p + 1, chiave.size(), chiave) != 0) continue;
                // At the end of the text the file goes on with a blank. What only begins like the
                // key of a text hides that key, which stands behind it on the line.
                const std::size_t dopo = p + 1 + chiave.size();
                const bool intera = dopo >= t.size() || t[dopo] == ' ' || t[dopo] == ']';
                if (!intera && campo.tipo != TipoCampo::testo) continue;
                return std::string("\"[") + campo.chiave +
                       "\" in un testo è una chiave del file di nodo: alla rilettura ne "
                       "cambierebbe il valore";
            }
        }
    }
    return {};
}

LimitiIndice LimitiDi(IndiceCampo indice) {
    switch (indice) {
        case IndiceCampo::nessuno:
            return {-32768, 32767};
        case IndiceCampo::piastra:
            return {1, 2};
        case IndiceCampo::nervatura:
            return {1, 3};
        case IndiceCampo::bullone:
            return {0, kMaxBulloni};
        case IndiceCampo::sestetto:
            return {0, kMaxSestetto};
        case IndiceCampo::nodo:
            break;
    }
    return {0, kMaxNodi};
}

int PrimoIndice(IndiceCampo indice) { return indice == IndiceCampo::sestetto ? 0 : 1; }

int UltimoIndice(IndiceCampo indice, const Nodo& n) {
    switch (indice) {
        case IndiceCampo::nessuno:
            return 1;
        case IndiceCampo::piastra:
            return 2;
        case IndiceCampo::nervatura:
            return 3;
        case IndiceCampo::bullone:
            return n.nBull;
        case IndiceCampo::sestetto:
            return n.nSollAg - 1;
        case IndiceCampo::nodo:
            break;
    }
    return n.numNodi;
}

}  // namespace tk07
