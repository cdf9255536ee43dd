#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "aiuti/prova.h"
#include "base/aritmetica.h"
#include "unit/drawing/nodi_casuali.h"
#include "verification/azioni_bulloni.h"
#include "verification/equilibrio.h"
#include "verification/verifica_nodo.h"

namespace tk07 {
namespace {

// Random joints and loads, both methods: what bolts and contact answer with equals what acts,
// within the solver's own tolerance, about the secondary beam's axis and about the lower edge of
// plate 1. A plane that is off by a thousandth does not pass.
TEST(Equilibrio, ResiduoSottoLaTolleranza) {
    prova::SessioneDiProva b;
    std::mt19937 g(20);
    const auto reale = [&](double a) { return std::uniform_real_distribution<double>(-a, a)(g); };
    int risolti = 0, conZona = 0, sbagliati = 0;
    for (int k = 0; k < 120; ++k) {
        Nodo n = prova::NodoCasuale(*b.s, g);
        n.TipoVer = static_cast<short>(k % 2);
        n.nSollAg = 4;
        for (int s = 0; s < n.nSollAg; ++s) {
            n.SforzoNormale(s) = s == 0 ? 0.0 : reale(20000.0);
            n.TaglioY(s) = reale(30000.0);
            n.TaglioZ(s) = s < 2 ? 0.0 : reale(5000.0);
            n.MomY(s) = s < 3 ? 0.0 : reale(50000.0);
            n.MomZ(s) = s % 2 == 0 ? 0.0 : reale(300000.0);
        }
        Risultati ris;
        if (CalcolaNodo(n, b.s->opz, ris, PiattaformaMuta()) != EsitoVerifica::completata) continue;
        const double yAsse = GeometriaDi(n).yAsse;
        for (int s = 0; s < n.nSollAg; ++s) {
            SCOPED_TRACE("nodo " + std::to_string(k) + " sestetto " + std::to_string(s + 1));
            const Equilibrio e = EquilibrioSestetto(n, ris, s);
            ++risolti;
            conZona += e.zona.empty() ? 0 : 1;
            for (std::size_t j = 0; j < kRisultanti; ++j) {
                EXPECT_LT(std::fabs(e.residuo[j]), e.tolleranza[j]);
            }
            const double carico = e.carico[kRisMz] + e.trasporto[kRisMz];
            EXPECT_LT(std::fabs(e.residuo[kRisMz] - yAsse * e.residuo[kRisN]),
                      1.0 + 1e-4 * std::fabs(carico - yAsse * e.carico[kRisN]));
            ris.Piano(s, 3) *= 1.001;
            ris.Piano(s, 1) *= 0.999;
            const Equilibrio storto = EquilibrioSestetto(n, ris, s);
            bool fuori = false;
            for (std::size_t j = 0; j < kRisultanti; ++j) {
                fuori = fuori || !(std::fabs(storto.residuo[j]) < storto.tolleranza[j]);
            }
            sbagliati += fuori ? 1 : 0;
        }
    }
    EXPECT_GT(risolti, 300);
    EXPECT_GT(conZona, 200);
    EXPECT_GT(sbagliati, risolti * 9 / 10);
}

// Pure compression through the middle of the contact area: one stress N/A everywhere, so the
// bolts take N sum(A_i)/A and the contact the rest. A moment that no bolt stands against: none.
TEST(Equilibrio, CompressioneCentrata) {
    prova::SessioneDiProva b;
    Nodo n = b.s->nodo;
    const Rettangolo r = GeometriaDi(n).comune;
    const double y = (r.yMin + r.yMax) / 2.0;
    n.nBull = 4;
    double area = 0.0;
    for (int i = 1; i <= 4; ++i) {
        n.Xbull(i) = i % 2 == 0 ? 30.0 : -30.0;
        n.Ybull(i) = i <= 2 ? y - 20.0 : y + 20.0;
        n.Fibull(i) = 16.0;
        area += AreaResistente(16.0);
    }
    n.nSollAg = 1;
    n.SforzoNormale(0) = -12000.0;
    n.MomZ(0) = 12000.0 * (y - GeometriaDi(n).yAsse) / 10.0;  // brings N to the middle [daN cm]
    Risultati ris;
    ASSERT_EQ(CalcolaNodo(n, b.s->opz, ris, PiattaformaMuta()), EsitoVerifica::completata);
    const Equilibrio e = EquilibrioSestetto(n, ris, 0);
    const double lorda = (r.xMax - r.xMin) * (r.yMax - r.yMin);
    EXPECT_NEAR(e.bulloni[kRisN], -12000.0 * area / lorda, 1e-3);
    EXPECT_NEAR(e.contatto[kRisN], -12000.0 * (1.0 - area / lorda), 1e-3);
    EXPECT_NEAR(e.contatto[kRisMy], 0.0, 1e-3);
    ASSERT_EQ(e.zona.size(), 4u);
}

}  // namespace
}  // namespace tk07
