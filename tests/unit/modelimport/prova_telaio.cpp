// The shipped frame `telaio`, followed by hand. Member 19 spans 500 cm from node 105 to node 107:
// condition 3 (imposed load, 300 daN/m2 on 2 m = 6 daN/cm) gives a shear of 6 x 250 = 1500 daN and
// a partial end moment of 0.12 x 6 x 500^2 / 12 = 15000 daN cm. Case 1 adds 1.3 G1 + 1.5 G2 + 1.5
// Q: 1.3 x 1315 + 1.5 x 500 + 1.5 x 1500 = 4709.5 daN, a tenth of it as moment in daN m.

#include <gtest/gtest.h>

#include "base/piattaforma.h"
#include "modelimport/risultati_analisi.h"

namespace tk07 {
namespace {

struct Atteso {
    double N, Ty, Tz, Mt, My, Mz;
};

void Confronta(const Nodo& n, int k, const Atteso& a) {
    EXPECT_EQ(n.SforzoNormale(k), a.N) << k;
    EXPECT_EQ(n.TaglioY(k), a.Ty) << k;
    EXPECT_EQ(n.TaglioZ(k), a.Tz) << k;
    EXPECT_EQ(n.MomTorc(k), a.Mt) << k;
    EXPECT_EQ(n.MomY(k), a.My) << k;
    EXPECT_EQ(n.MomZ(k), a.Mz) << k;
}

const std::string kLavoro = std::string(TK07_SORGENTE) + "/installazione/lavori/telaio";

TEST(Telaio, BothEndsOfASecondaryBeam) {
    const Piattaforma p = PiattaformaMuta();
    for (const bool secondo : {false, true}) {
        Nodo n;
        const RichiestaImport r{secondo ? "107" : "105", "19", "1", "3", "0", ModoImport::tutti};
        ASSERT_EQ(ImportaSollecitazioni(kLavoro, r, n, p), EsitoImport::bene);
        ASSERT_EQ(n.nSollAg, 3);
        // At end 2 the axes are turned about the vertical: torsion, Tz and My change sign with
        // them.
        const double s = secondo ? -1.0 : 1.0;
        Confronta(n, 0, {0.0, 4709.5, -192.0 * s, -1500.0 * s, 1920.0 * s, -47095.0});
        Confronta(n, 1, {0.0, 4709.5, 192.0 * s, -1500.0 * s, -1920.0 * s, -47095.0});
        Confronta(n, 2, {0.0, 1500.0, 0.0, 0.0, 0.0, -15000.0});
        EXPECT_EQ(n.NomeSa(0), secondo ? "Caso 1 As. 19 Nd. 107" : "Caso 1 As. 19 Nd. 105");
        EXPECT_EQ(n.NomeSa(2), secondo ? "Cond 3 As. 19 Nd. 107" : "Cond 3 As. 19 Nd. 105");
    }
}

TEST(Telaio, ExtremesKeepTheSignOfTheMoments) {
    Nodo n;
    const RichiestaImport r{"105", "19", "1", "", "0", ModoImport::massimiMinimi};
    ASSERT_EQ(ImportaSollecitazioni(kLavoro, r, n, PiattaformaMuta()), EsitoImport::bene);
    ASSERT_EQ(n.nSollAg, 12);
    const Atteso uno{0.0, 4709.5, -192.0, 1500.0, 1920.0, -47095.0};
    const Atteso due{0.0, 4709.5, 192.0, 1500.0, -1920.0, -47095.0};
    // Slots by action, maximum then minimum: N, Tz, Ty, My, Mz, Mt; a tie keeps the first set.
    for (int k = 0; k < 12; ++k) Confronta(n, k, k == 2 || k == 7 ? due : uno);
}

}  // namespace
}  // namespace tk07
