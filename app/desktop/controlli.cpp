#include "desktop/controlli.h"

#include <string_view>

namespace tk07::desktop {

namespace {

// ---- main panel ----
constexpr VoceTavola kProfili[] = {
    {"TraveP", 1, 0, "Principale"},
    {"geomp", 1, 2, "", 1, 5, 0, 1},
    {"TraveS", 3, 0, "Secondaria"},
    {"geoms", 3, 2, "", 1, 5, 0, 1},
};
constexpr VoceTavola kMateriali[] = {
    {"Cb_Acciaio", 0, 0, "Acciaio", 2},
    {"PropMatButton", 0, 3},
    {"LabNorma", 1, 0, "Norma", 3},
    {"Cviti", 2, 0, "Classe viti", 2},
    {"CheckMatBase", 2, 3},
    {"ComboEsposizione", 3, 0, "Esposizione", 3},
};
constexpr VoceTavola kTipo[] = {{"TipoVer", 0, 0, "", 1, 2, 1, 0}};
constexpr VoceTavola kPiastre[] = {
    {"GeoPias(0)", 1, 0, "Lato trave principale (1)"},
    {"GeoPias1", 1, 2},
    {"GeoPias(2)", 1, 3},
    {"GeoPias(3)", 2, 0, "Lato trave secondaria (2)"},
    {"GeoPias(4)", 2, 2},
    {"GeoPias(5)", 2, 3},
    {"ProponiPias", 3, 1, "", 3},
};
constexpr VoceTavola kNervature[] = {
    {"CheckNervatura1", 1, 0}, {"GeoPias(6)", 1, 1},  {"GeoPias(7)", 1, 2},
    {"GeoPias(8)", 1, 3},      {"GeoPias(9)", 1, 4},  {"CheckNervatura2", 2, 0},
    {"GeoPias(10)", 2, 1},     {"GeoPias(11)", 2, 2}, {"GeoPias(12)", 2, 3},
    {"GeoPias(13)", 2, 4},     {"GeoPias(14)", 3, 4}, {"ProponiNerv", 4, 1, "", 4},
};
constexpr VoceTavola kQuote[] = {
    {"TextQuota(0)", 0, 0, "Ala della secondaria - cima della piastra 2"},
    {"TextQuota(1)", 1, 0, "Trave principale - piastra 2"},
    {"TextQuota(2)", 2, 0, "Tra le ali superiori delle travi"},
};
constexpr VoceTavola kSaldature[] = {
    {"TextSald(0)", 0, 0, "Lato S1:"},
    {"TextSald(1)", 0, 2, "Lato S2:"},
};
constexpr VoceTavola kBulloni[] = {{"DefBulloni", 0, 0}, {"AggiornaDisBull", 0, 1}};
constexpr VoceTavola kSollecitazioni[] = {
    {"Lb_CasCar", 0, 8},
    {"Lb_sol_num", 1, 0, "", 1, 5, 1, 0},
    {"Tb_sol_descr", 1, 1, "", 1, 5, 1, 0},
    {"TxtSN", 1, 2, "", 1, 5, 1, 0},
    {"TxtTy", 1, 3, "", 1, 5, 1, 0},
    {"TxtTz", 1, 4, "", 1, 5, 1, 0},
    {"TxtMt", 1, 5, "", 1, 5, 1, 0},
    {"TxtMy", 1, 6, "", 1, 5, 1, 0},
    {"TxtMz", 1, 7, "", 1, 5, 1, 0},
    {"CasCar", 1, 8, "", 1, 5, 1, 0},
};
constexpr VoceTavola kComandiCarichi[] = {
    {"Bt_agg_sing_sol", 0, 0},    {"RimuoviUltSoll", 0, 1},
    {"RimuoviTutteSoll", 0, 2},   {"RimuoviDoppieSoll", 0, 3},
    {"MaxMinSoll", 1, 0},         {"EsportaSollButt", 1, 1},
    {"ImpS3D", 1, 2, "", 2},      {"Lb_nrosol", 2, 0, "Sestetti:"},
    {"CheckMaxMin", 2, 2, "", 2},
};

constexpr GruppoTavola kPagina0[] = {
    {"Profili [mm]", "", kProfili}, {"Materiali", "", kMateriali}, {"Tipo di verifica", "", kTipo}};
constexpr GruppoTavola kPagina1[] = {{"Piastre [mm]", "", kPiastre},
                                     {"Nervature [mm]", "", kNervature},
                                     {"Quote [mm]", "", kQuote},
                                     {"Saldature [mm]", "", kSaldature}};
constexpr GruppoTavola kPagina2[] = {{"Bulloni", "", kBulloni}};
constexpr GruppoTavola kPagina3[] = {{"Sollecitazioni agenti", "FrameSoll", kSollecitazioni},
                                     {"", "", kComandiCarichi}};
constexpr PaginaTavola kPagine[] = {{"P&rofili e materiali", kPagina0},
                                    {"&Piastre, nervature, saldature", kPagina1},
                                    {"&Bulloni", kPagina2},
                                    {"&Sollecitazioni", kPagina3}};

// A button that the panel's data lack is left out.
constexpr const char* kBarra[] = {"Car_Nodo",        "Bt_salva",     "Bt_salva_con_nome",
                                  "ImportaNodida3D", "VerificaButt", "Gen_Dis",
                                  "ApriVis",         "bt_vista3d",   "Opz",
                                  "LegendaButt",     "Chiudi"};

// ---- secondary panels ----
constexpr VoceTavola kListaBulloni[] = {
    {"Lbul", 1, 0, "", 1, 9, 1, 0},      {"Xbul", 1, 1, "", 1, 9, 1, 0},
    {"Ybul", 1, 2, "", 1, 9, 1, 0},      {"Fibul", 1, 3, "", 1, 9, 1, 0},
    {"Check_Bul", 1, 4, "", 1, 9, 1, 0},
};
constexpr VoceTavola kOperazioniBulloni[] = {
    {"Singolo", 0, 0},       {"Rimuovi", 0, 1},       {"RimuoviT", 0, 2},
    {"Bt_SelTutti", 1, 0},   {"Bt_deselTutti", 1, 1}, {"Bul_RimuoviSel", 1, 2},
    {"Bul_elimDoppi", 2, 0},
};
constexpr VoceTavola kMassaBulloni[] = {
    {"Tb_deltaX", 0, 0, "dX"},  {"Bul_copiaX", 0, 2},
    {"Bul_traslaX", 0, 3},      {"Tb_deltaY", 1, 0, "dY"},
    {"Bul_copiaY", 1, 2},       {"Bul_traslaY", 1, 3},
    {"Tb_diam", 2, 0, "Diam."}, {"Bul_cambiaDiam", 2, 2, "", 2},
};
constexpr VoceTavola kPropostaBulloni[] = {{"DiamProponi", 0, 0, "Diametro"}, {"Proponi", 0, 2}};
constexpr VoceTavola kInformazioni[] = {
    {"TollForoBull", 0, 0}, {"Passo", 0, 1}, {"Fi3", 0, 2}, {"Label4", 0, 3}, {"Label5", 0, 4},
};
constexpr VoceTavola kFineBulloni[] = {
    {"Help", 0, 0, "", 3}, {"DisegnaBp", 1, 0}, {"MatBulOK", 1, 1}, {"MatBulAnn", 1, 2}};
constexpr GruppoTavola kFormBulloni[] = {{"Elenco [mm]", "", kListaBulloni},
                                         {"Operazioni", "", kOperazioniBulloni},
                                         {"Bulloni selezionati [mm]", "", kMassaBulloni},
                                         {"Proposta [mm]", "", kPropostaBulloni},
                                         {"Informazioni", "", kInformazioni},
                                         {"", "", kFineBulloni}};

constexpr VoceTavola kPropAcciaio[] = {
    {"fkLabel", 0, 0, "fyk"},           {"gMLabel", 1, 0, "γM"},
    {"gMTLabel", 1, 2, "γM a rottura"}, {"fdLabel", 2, 0, "fd, sp ≤ 40 mm"},
    {"fdtLabel", 2, 2, "a rottura"},    {"fd40Label", 3, 0, "fd, sp > 40 mm"},
    {"fdt40Label", 3, 2, "a rottura"},  {"SAmmILabel", 4, 0, "σ ammissibile, caso I"},
    {"SAmmIILabel", 4, 2, "caso II"},
};
constexpr VoceTavola kPropBulloni[] = {
    {"fyVitiLabel", 0, 0, "fyb"},
    {"gMVitiLabel", 0, 2, "γM"},
    {"fydVitilabel", 1, 0, "fyb di progetto"},
    {"ftVitiLabel", 2, 0, "ftb"},
    {"ftdVitiLabel", 2, 2, "ftb di progetto"},
    {"SAmmIVitiLabel", 3, 0, "σ ammissibile, caso I"},
    {"SAmmIIVitiLabel", 3, 2, "caso II"},
    {"TauAmmIVitiLabel", 4, 0, "τ ammissibile, caso I"},
    {"TauAmmIIVitiLabel", 4, 2, "caso II"},
};
constexpr VoceTavola kPropCls[] = {
    {"RckClsLabel", 0, 0, "Rck"}, {"fckClsLabel", 0, 2, "fck"},    {"gMClsLabel", 1, 0, "γC"},
    {"fcdClsLabel", 1, 2, "fcd"}, {"SammClsLabel", 2, 0, "σ amm"},
};
constexpr VoceTavola kPropFine[] = {{"Unit", 0, 0, "Tensioni in"}, {"Chiudi", 0, 3}};
constexpr GruppoTavola kPropMateriali[] = {{"", "FrameAcc", kPropAcciaio},  {"", "FrameAccPia", {}},
                                           {"", "FrameBull", kPropBulloni}, {"", "FrameTir", {}},
                                           {"", "FrameCls", kPropCls},      {"", "", kPropFine}};

constexpr VoceTavola kListeImport[] = {
    {"NodiTxt", 0, 0, "Nodi"},          {"Annulla(0)", 0, 2}, {"Cerca(0)", 0, 3},
    {"Astetxt", 1, 0, "Aste"},          {"Annulla(1)", 1, 2}, {"Cerca(1)", 1, 3},
    {"CdCTxt", 2, 0, "Casi di carico"}, {"ACdc", 2, 2},       {"TuttiCdc", 2, 3},
    {"CdC2Txt", 3, 0, "Condizioni"},    {"ACdc2", 3, 2},      {"TuttiCdc2", 3, 3},
    {"SesTxt", 4, 0, "Sestetti"},       {"ASes", 4, 2},       {"TuttiSes", 4, 3},
};
constexpr VoceTavola kFineImport[] = {{"Importa", 0, 0}, {"Chiudi", 0, 1}};
constexpr GruppoTavola kSoll3D[] = {{"Da importare", "", kListeImport}, {"", "", kFineImport}};

constexpr VoceTavola kFiltroNomi[] = {
    {"Nomi", 0, 0},
    {"NomiOp(0)", 0, 1},
    {"NomiOp(1)", 0, 2},
    {"NomiTxt(0)", 1, 1, "", 1},
    {"NomiTxt(1)", 1, 2, "", 1},
};
constexpr VoceTavola kFiltroColori[] = {{"Colori", 0, 0, "", 4},
                                        {"ColoriOp(0)", 0, 4, "", 3},
                                        {"ColoriOp(1)", 0, 7, "", 3},
                                        {"ColoriCh", 1, 0, "", 1, 10, 0, 1}};
constexpr VoceTavola kFiltroLinee[] = {{"Linee", 0, 0, "", 2},
                                       {"LineeOp(0)", 0, 2},
                                       {"LineeOp(1)", 0, 3},
                                       {"LineeCh", 1, 0, "", 1, 5, 0, 1}};
constexpr VoceTavola kFineSelezione[] = {
    {"SelezioneStr_", 0, 0, "Aste trovate:"}, {"Cerca", 1, 0}, {"Chiudi", 1, 1}};
constexpr GruppoTavola kSelezione[] = {{"Nome", "", kFiltroNomi},
                                       {"Colore", "", kFiltroColori},
                                       {"Tipo di linea", "", kFiltroLinee},
                                       {"", "", kFineSelezione}};

}  // namespace

std::span<const PaginaTavola> PagineInsDati() { return kPagine; }
std::span<const char* const> BarraComandi() { return kBarra; }

std::span<const GruppoTavola> GruppiPannello(const std::string& p) {
    if (p == "FormBulloni") return kFormBulloni;
    if (p == "PropMateriali") return kPropMateriali;
    if (p == "Soll3D") return kSoll3D;
    if (p == "selezione") return kSelezione;
    return {};
}

const char* PulsanteDiChiusura(const std::string& p) {
    if (p == "FormBulloni") return "MatBulAnn";
    if (p == "FormOpz_Cond") return "OpzAnnulla";
    if (p == "FormColori") return "ColoriAnnulla";
    return "Chiudi";
}

}  // namespace tk07::desktop
