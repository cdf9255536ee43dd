#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "textnum/conversioni.h"
#include "textnum/formatta.h"

namespace tk07 {
namespace {

// Units in N, m, s, W/(m K). The table's constants: 1 lbf = 0.45359243 kgf, 1 kgf/cm2 = 0.96784
// atm.
constexpr double kKgf = 9.80665, kLbf = 0.45359243 * kKgf;
const std::map<std::string, double> kForze = {
    {"n", 1.0},         {"dan", 10.0},      {"kn", 1e3},   {"mn", 1e6},          {"kgf", kKgf},
    {"gf", kKgf / 1e3}, {"tf", kKgf * 1e3}, {"lbf", kLbf}, {"klbf", kLbf * 1e3}, {"dyn", 1e-5}};
const std::map<std::string, double> kLunghezze = {{"mm", 1e-3}, {"cm", 1e-2},   {"m", 1.0},
                                                  {"km", 1e3},  {"in", 0.0254}, {"ft", 0.3048}};
const std::map<std::string, double> kAltre = {
    {"pa", 1.0}, {"kpa", 1e3},  {"mpa", 1e6}, {"gpa", 1e9}, {"atm", kKgf * 1e4 / 0.96784},
    {"s", 1.0},  {"h", 3600.0}, {"w", 1.0},   {"mk", 1.0},  {"cmk", 1e-2}};

double Unita(std::string nome) {
    const std::size_t barra = nome.find('/');
    if (barra != std::string::npos)
        return Unita(nome.substr(0, barra)) / Unita(nome.substr(barra + 1));
    double potenza = 1.0;
    if (nome.back() >= '2' && nome.back() <= '4') {
        potenza = nome.back() - '0';
        nome.pop_back();
    }
    for (const auto* tabella : {&kForze, &kLunghezze, &kAltre}) {
        const auto u = tabella->find(nome);
        if (u != tabella->end()) return std::pow(u->second, potenza);
    }
    for (const auto& [forza, f] : kForze) {  // a moment: "kgfcm", "nm"
        const auto braccio = kLunghezze.find(nome.substr(std::min(forza.size(), nome.size())));
        if (nome.rfind(forza, 0) == 0 && braccio != kLunghezze.end()) return f * braccio->second;
    }
    ADD_FAILURE() << "unit " << nome;
    return 0.0;
}

// "(cu_x_y)" as x and y.
std::pair<std::string, std::string> Parti(std::string_view chiave) {
    const std::size_t mezzo = chiave.find('_', 4);
    return {std::string(chiave.substr(4, mezzo - 4)),
            std::string(chiave.substr(mezzo + 1, chiave.size() - mezzo - 2))};
}

// Decimals that the table gives against the size of the factor, and those of units of one inch,
// foot, pound or hour that it rounds its own way.
const std::map<std::string_view, short> kSpostamentiFissati = {
    {"(cu_mn/m2_kgf/cm2)", 1},   {"(cu_mpa_kgf/cm2)", 1},     {"(cu_mn/m2_dan/cm2)", 1},
    {"(cu_mpa_dan/cm2)", 1},     {"(cu_mn/cm3_kgf/cm3)", 5},  {"(cu_mn/cm3_dan/cm3)", 5},
    {"(cu_kgf/cm3_mn/cm3)", -5}, {"(cu_dan/cm3_mn/cm3)", -5}, {"(cu_dan/cm3_kgf/m3)", 6},
    {"(cu_kgf/m3_dan/cm3)", -6}, {"(cu_cm_in)", -1},          {"(cu_in_cm)", 1},
    {"(cu_cm_ft)", -2},          {"(cu_ft_cm)", 2},           {"(cu_kgf_lbf)", 1},
    {"(cu_lbf_kgf)", -1},        {"(cu_dan_lbf)", 1},         {"(cu_lbf_dan)", -1},
    {"(cu_km/h_cm/s)", -2},      {"(cu_ft/s_cm/s)", -2},      {"(cu_in/s_cm/s)", -1},
    {"(cu_cm/s_km/h)", 2},       {"(cu_cm/s_in/s)", 1},       {"(cu_cm/s_ft/s)", 2}};

TEST(TabellaConversioni, EveryRowFollowsFromTheConstants) {
    int n = 0;
    const RigaConversione* t = TabellaConversioni(n);
    ASSERT_EQ(n, 260);
    std::map<std::string_view, const RigaConversione*> prima;
    int doppie = 0;
    for (const RigaConversione* r = t; r != t + n; ++r) {
        const auto [posto, nuova] = prima.emplace(r->chiave, r);
        if (!nuova) {
            ++doppie;
            EXPECT_EQ(r->fattore, posto->second->fattore) << r->chiave;
            EXPECT_EQ(r->decimali, posto->second->decimali) << r->chiave;
        }
        const auto [da, a] = Parti(r->chiave);
        const std::string nomi = da + " " + a;
        const bool inglese = Contiene(nomi, "in") || Contiene(nomi, "ft") || Contiene(nomi, "lbf");
        if (r->chiave == "(cu_cm/s_ft/s)") {
            EXPECT_EQ(r->fattore, 0.03288399);  // fixed so; a foot would give 0.0328084
        } else {
            // 15 digits; pounds per square inch are given with 5 (14.223)
            EXPECT_NEAR(r->fattore * Unita(a) / Unita(da), 1.0, inglese ? 2.5e-5 : 5e-15) << nomi;
        }
        const auto fissato = kSpostamentiFissati.find(r->chiave);
        EXPECT_EQ(r->decimali, fissato != kSpostamentiFissati.end()
                                   ? fissato->second
                                   : static_cast<short>(std::lround(-std::log10(r->fattore))))
            << r->chiave;
    }
    EXPECT_EQ(doppie, 4);
    int senzaInversa = 0;
    for (const auto& [chiave, r] : prima) {
        const auto [da, a] = Parti(chiave);
        const auto inversa = prima.find("(cu_" + a + "_" + da + ")");
        if (inversa == prima.end()) {
            ++senzaInversa;
            continue;
        }
        if (Contiene(chiave, "cm/s") && Contiene(chiave, "ft/s")) continue;
        // square feet are given with seven digits
        EXPECT_NEAR(r->fattore * inversa->second->fattore, 1.0,
                    Contiene(chiave, "2_ft2") || Contiene(chiave, "ft2_cm2") ? 4e-6 : 2e-8)
            << chiave;
    }
    EXPECT_EQ(prima.size(), 256u);
    EXPECT_EQ(senzaInversa, 6);  // cm4 to m4 and mm4, pa and n/m2 to kgf/m2 and dan/m2
}

TEST(ConvertiUnita, EveryKeyIsFoundWhateverItsCase) {
    prova::Porta porta;
    const Piattaforma p = porta.Fai();
    int n = 0;
    const RigaConversione* t = TabellaConversioni(n);
    for (const RigaConversione* r = t; r != t + n; ++r) {
        double x = 2.0;
        short k = 77;
        ConvertiUnita(x, "(np_1)" + Maiuscolo(r->chiave) + "(dv_02)", k, p);
        EXPECT_EQ(x, 2.0 * r->fattore) << r->chiave;
        EXPECT_EQ(k, r->decimali) << r->chiave;
    }
    EXPECT_TRUE(porta.detti.empty());
}

TEST(ConvertiUnita, EqualUnitsPassAndUnknownOnesAreTold) {
    const std::tuple<const char*, std::string, bool> casi[] = {
        {"(CU_DAN_KN)(dv_02)(np_1)", "1.2346", false},  // two decimals more for kN
        {"(cu_W/mK_W/cmK)(dv_02)", "1.2346", false},
        {"(cu_m_mm)(dv_02)(np_1)", "123456", false},
        {"(cu_mm_MM)(dv_02)", "123.46", false},
        {"(cu_xx_yy)(dv_02)", "123.46", true},
        {"(cu_)(dv_02)", "123.46", true},
        {"(cu_mm_m(dv_02)", "123.46", true}};
    for (const auto& [comando, atteso, detto] : casi) {
        prova::Porta porta;
        EXPECT_EQ(Formatta(123.456, comando, 1.0, porta.Fai()), atteso) << comando;
        EXPECT_EQ(porta.Prendi(),
                  detto ? std::string("x|") + kTitoloProgramma +
                              "|Stringa di conversione unità di misura non riconosciuta."
                        : "")
            << comando;
    }
    // the key's shift takes the place of the factor's
    EXPECT_EQ(Formatta(1234.5678, "(cu_mm_mm)(dv_02)", 0.01, PiattaformaMuta()), "12.35");
}

}  // namespace
}  // namespace tk07
