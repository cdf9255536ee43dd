#include "joint/campi_nodo.h"

#include <algorithm>

#include "base/aritmetica.h"
#include "base/testo.h"

namespace tk07 {

namespace {

short Conteggio(const std::string& v, int massimo, const std::string& dove) {
    const short n = InteroIniziale(v, dove);
    if (n > massimo) {
        throw ErroreFatale(
            "Valore " + std::to_string(n) + " oltre il massimo di " + std::to_string(massimo),
            dove);
    }
    return n;
}

short Stretto(const std::string& v, int minimo, int massimo, const std::string& dove) {
    const auto x = ValoreStretto(v);
    if (!x) throw ErroreFatale("Valore non numerico: \"" + v.substr(0, 40) + "\"", dove);
    const double r = Arrotonda(*x, 0);
    if (!(r >= minimo && r <= massimo)) {
        throw ErroreFatale("Valore " + v.substr(0, 40) + " fuori dai limiti " +
                               std::to_string(minimo) + ".." + std::to_string(massimo),
                           dove);
    }
    return static_cast<short>(r);
}

// clang-format off
#define NODO_TESTO(K, M, F) {K, M, TipoCampo::testo, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TogliCR(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v, const std::string&) { n.F = v; }}
#define NODO_REALE(K, M, F) {K, M, TipoCampo::reale, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TestoReale(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v, const std::string&) { n.F = ValoreIniziale(v); }}
#define NODO_INTERO(K, M, F, LEGGI) {K, M, TipoCampo::intero, \
    [](const Nodo& n, [[maybe_unused]] int i) { return TestoIntero(n.F); }, \
    [](Nodo& n, [[maybe_unused]] int i, const std::string& v, const std::string& dove) { n.F = LEGGI; }}

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
     // True exactly for 1. The switch of rib 3 has no use: it is read and dropped.
     [](Nodo& n, int i, const std::string& v, const std::string&) {
         n.AttNerv(i) = i != 3 && ValoreIniziale(v) == 1.0;
     }},
    NODO_REALE("SpNerv", "spnerv", SpNerv(i)),
    NODO_REALE("H1Nerv", "h1nerv", H1Nerv(i)),
    NODO_REALE("H2Nerv", "h2nerv", H2Nerv(i)),
    NODO_REALE("BNerv", "bnerv", BNerv(i)),
    NODO_REALE("SmussoNerv", "smussonerv", SmussoNerv(i)),
};
constexpr CampoNodo kSaldature[] = {
    NODO_REALE("spSaldS1", "spsalds1", spSaldS1),
    NODO_REALE("spSaldS2", "spsalds2", spSaldS2),
    NODO_INTERO("nBull", "nbull", nBull, Conteggio(v, kMaxBulloni, dove)),
};
constexpr CampoNodo kBulloni[] = {
    NODO_REALE("Xbull", "xbull", Xbull(i)),
    NODO_REALE("Ybull", "ybull", Ybull(i)),
    NODO_REALE("Fibull", "fibull", Fibull(i)),
};
constexpr CampoNodo kMateriali[] = {
    NODO_TESTO("acciaio_Nome", "acciaio_nome", acciaio.Nome),
    NODO_TESTO("vite_Nome", "vite_nome", vite.Nome),
    NODO_INTERO("Esposizione", "esposizione", Esposizione, Stretto(v, -1, 2, dove)),
    NODO_INTERO("nSollAg", "nsollag", nSollAg, Conteggio(v, kMaxSestetto + 1, dove)),
};
constexpr CampoNodo kSestetti[] = {
    NODO_REALE("SforzoNormale", "sforzonormale", SforzoNormale(i)),
    NODO_REALE("TaglioY", "taglioy", TaglioY(i)),
    NODO_REALE("TaglioZ", "taglioz", TaglioZ(i)),
    NODO_REALE("MomTorc", "momtorc", MomTorc(i)),
    NODO_REALE("MomY", "momy", MomY(i)),
    NODO_REALE("MomZ", "momz", MomZ(i)),
    NODO_INTERO("CasoCarico", "casocarico", CasoCarico(i), InteroIniziale(v, dove)),
    NODO_TESTO("NomeSa", "nomesa", NomeSa(i)),
};
constexpr CampoNodo kNumNodi[] = {
    NODO_INTERO("numNodi", "numnodi", numNodi, Conteggio(v, kMaxNodi, dove)),
};
constexpr CampoNodo kNodi[] = {
    NODO_INTERO("NomeNodi", "nomenodi", NomeNodi(i), InteroIniziale(v, dove)),
};
constexpr CampoNodo kMetodo[] = {
    NODO_INTERO("TipoVer", "tipover", TipoVer,
                static_cast<short>(Stretto(v, -32768, 32767, dove) == 1 ? 1 : 0)),
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
