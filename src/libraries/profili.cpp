#include "libraries/profili.h"

#include <array>
#include <utility>
#include <vector>

#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

enum class Campo { Area, J1, J2, J3, Lettera, H, B, tw, tf, r, r1, e1, e2 };
using Formato = std::vector<std::pair<int, Campo>>;  // position behind family and size, field

constexpr std::array<std::string_view, 28> kFamiglieIH = {
    "IPE", "IPEA", "IPER", "IPEO", "IPEV", "HEA", "HEAA", "HEB",  "HEM", "HEC",
    "DIL", "HER",  "HLAA", "HLA",  "HLB",  "HLM", "HLR",  "HXAA", "HXA", "HXB",
    "HXM", "HXR",  "HD",   "HP",   "M",    "W",   "UB",   "UC"};

const Formato& FormatoIH() {
    static const Formato f = {{1, Campo::Area},     {2, Campo::J1}, {5, Campo::J2}, {10, Campo::J3},
                              {13, Campo::Lettera}, {16, Campo::H}, {17, Campo::B}, {18, Campo::tw},
                              {19, Campo::tf},      {20, Campo::r}};
    return f;
}

// Row layout of a family, nullptr for an unknown one.
const Formato* FormatoFamiglia(std::string_view famiglia) {
    using enum Campo;
    static const Formato upn = {{1, Area}, {2, J1},  {4, J2},  {6, J3},  {8, Lettera}, {11, H},
                                {12, B},   {13, tw}, {14, tf}, {15, e2}, {16, r},      {17, r1}};
    static const Formato lu = {{1, Area}, {2, J1},  {4, J2},  {6, J3}, {8, Lettera}, {11, B},
                               {12, tw},  {13, e1}, {14, e2}, {16, r}, {17, r1}};
    static const Formato ld = {{1, Area}, {2, J1},  {4, J2},  {6, J3},  {8, Lettera}, {11, H},
                               {12, B},   {13, tw}, {14, e1}, {15, e2}, {16, r},      {17, r1}};
    static const Formato llu = {{1, Area}, {2, J1}, {3, J2}, {5, Lettera},
                                {8, B},    {9, tw}, {10, tf}};
    static const Formato quadro = {{1, Area},    {2, J1}, {4, J2}, {6, J3},
                                   {8, Lettera}, {11, B}, {12, tw}};
    static const Formato inp = [] {
        Formato f = FormatoIH();
        f.emplace_back(21, r1);
        return f;
    }();
    if (famiglia == "UPN") return &upn;
    if (famiglia == "LU") return &lu;
    if (famiglia == "LLU") return &llu;
    if (famiglia == "LD") return &ld;
    if (famiglia == "T.QUAD" || famiglia == "TUBO") return &quadro;
    if (famiglia == "INP") return &inp;
    for (const std::string_view f : kFamiglieIH) {
        if (f == famiglia) return &FormatoIH();
    }
    return nullptr;
}

double& Dato(ProfiloRec& rec, Campo c) {
    switch (c) {
        case Campo::Area:
            return rec.Area;
        case Campo::J1:
            return rec.J1;
        case Campo::J2:
            return rec.J2;
        case Campo::J3:
            return rec.J3;
        case Campo::H:
            return rec.H;
        case Campo::B:
            return rec.B;
        case Campo::tw:
            return rec.tw;
        case Campo::tf:
            return rec.tf;
        case Campo::r:
            return rec.r;
        case Campo::r1:
            return rec.r1;
        case Campo::e1:
            return rec.e1;
        case Campo::e2:
            return rec.e2;
        case Campo::Lettera:
            break;
    }
    throw ErroreFatale("campo di profilo senza numero");
}

void Deriva(ProfiloRec& rec, std::string_view famiglia) {
    if (famiglia == "UPN") rec.e1 = rec.H / 2.0;
    if (famiglia == "LU") rec.H = rec.B, rec.tf = rec.tw;
    if (famiglia == "LLU" || famiglia == "T.QUAD") rec.H = rec.B;
    if (famiglia == "LD") rec.tf = rec.tw;
}

// Fills the record from the rest of the row. The empty text, or which field is wrong.
std::string PrendiCampi(ProfiloRec& rec, std::string& resto, const Formato& formato) {
    int posizione = 0;
    for (const auto& [voluta, campo] : formato) {
        std::string testo;
        while (posizione < voluta) {
            testo = EstraiCampo(resto);
            ++posizione;
        }
        if (campo == Campo::Lettera) {
            rec.Lettera = testo.empty() ? ' ' : testo.front();
            continue;
        }
        const auto x = ValoreStretto(testo);
        if (!x) {
            return "campo " + std::to_string(voluta + 2) +
                   (testo.empty() ? " mancante" : " non numerico (" + testo.substr(0, 40) + ")");
        }
        Dato(rec, campo) = *x;
    }
    return {};
}

}  // namespace

void AzzeraProfilo(ProfiloRec& rec) {
    rec.H = rec.B = rec.tw = rec.tf = rec.r = rec.r1 = rec.e1 = rec.e2 = 0.0;
    rec.Lettera = ' ';
}

void ScalaProfilo(ProfiloRec& rec, double fattoreLunghezze, double fattoreSezione) {
    for (double* x : {&rec.H, &rec.B, &rec.tw, &rec.tf, &rec.r, &rec.r1, &rec.e1, &rec.e2}) {
        *x *= fattoreLunghezze;
    }
    const double f2 = fattoreSezione * fattoreSezione;
    rec.Area *= f2;
    for (double* x : {&rec.J1, &rec.J2, &rec.J3}) *x *= f2 * f2;
}

short LeggiProfili(std::string_view file, int primoIndice, TabellaProfili& tabella,
                   double fattoreLunghezze, double fattoreSezione, std::string_view filtroFamiglie,
                   GuastoLettura* guasto, const std::string* nomeCercato) {
    const std::string nome = Taglia(file);
    const auto fallito = [&](const std::string& testo) -> short {
        if (guasto != nullptr) guasto->testo = PercorsoMostrato(nome) + ": " + testo;
        return 0;
    };
    const FileLetto f = LeggiRighe(nome);
    if (!f.riuscito) return fallito(f.errore);
    int indice = primoIndice;
    for (std::size_t i = 0; i < f.righe.size(); ++i) {
        std::string riga = Taglia(f.righe[i]);
        if (riga == "*END*") return static_cast<short>(indice - primoIndice);
        if (riga == "*" || riga == "%") continue;
        const std::string famiglia = EstraiCampo(riga);
        const std::string misura = EstraiCampo(riga);
        const std::string nomeProfilo = famiglia + misura;
        if (famiglia.empty()) continue;
        if (!filtroFamiglie.empty() && !Contiene(filtroFamiglie, " " + famiglia + " ")) continue;
        if (nomeCercato != nullptr && nomeProfilo != *nomeCercato) continue;
        const Formato* formato = FormatoFamiglia(famiglia);
        if (formato == nullptr) continue;
        const std::string dove =
            "riga " + std::to_string(i + 1) + ", profilo " + nomeProfilo + ": ";
        if (indice > kMaxProfili) return fallito(dove + "più di 2000 profili");
        ProfiloRec rec = tabella(indice);
        AzzeraProfilo(rec);
        rec.Nome = nomeProfilo;
        const std::string errore = PrendiCampi(rec, riga, *formato);
        if (!errore.empty()) return fallito(dove + errore);
        Deriva(rec, famiglia);
        ScalaProfilo(rec, fattoreLunghezze, fattoreSezione);
        tabella(indice) = rec;
        ++indice;
        if (nomeCercato != nullptr) return 1;
    }
    return fallito("manca la riga *END*");
}

int IndiceProfilo(const LibreriaProfili& lib, std::string_view nome) {
    for (int i = 1; i <= lib.nProfili; ++i) {
        if (lib.Profili(i).Nome == nome) return i;
    }
    return 0;
}

int CercaProfiloDaNome(const LibreriaProfili& lib, std::string_view nome, const Piattaforma& p) {
    const int i = IndiceProfilo(lib, nome);
    if (i == 0) MostraErrore(p, "Profilo non trovato.", "RICERCA PROFILO DA NOME");
    return i;
}

}  // namespace tk07
