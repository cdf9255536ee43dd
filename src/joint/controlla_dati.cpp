#include "joint/controlla_dati.h"

#include "base/aritmetica.h"
#include "joint/geometria.h"

namespace tk07 {

namespace {

// The message of the first test that the bolt fails, or nullptr.
const char* GuastoBullone(const Nodo& n, const Geometria& g, int i, double R) {
    constexpr const char* kSuTrave =
        "Almeno un bullone si trova in corrispondenza della trave secondaria.";
    const double x = n.Xbull(i), y = n.Ybull(i);
    const ProfiloRec& s = n.TraSec;
    const Rettangolo& comune = g.comune;
    const double Ysec = g.yS;
    // The hole lies within the common area of the plates.
    if (!(y <= comune.yMax - R && y >= comune.yMin + R && x <= comune.xMax - R &&
          x >= comune.xMin + R)) {
        return "Almeno un bullone è fuori dall'area comune alle due piastre.";
    }
    const bool fuoriAli = x + R <= -s.B / 2.0 || x - R >= s.B / 2.0;
    // lower flange, upper flange, web of the secondary beam
    if (!(y + R <= Ysec || y - R >= Ysec + s.tf || fuoriAli)) return kSuTrave;
    if (!(y + R <= Ysec + s.H - s.tf || y - R >= Ysec + s.H || fuoriAli)) return kSuTrave;
    if (!(y + R <= Ysec + s.tf || y - R >= Ysec + s.H - s.tf || x + R <= -s.tw / 2.0 ||
          x - R >= s.tw / 2.0)) {
        return kSuTrave;
    }
    return nullptr;
}

}  // namespace

bool ControllaDati(const Nodo& n, const Opzioni& opz, const Piattaforma& p) {
    bool errato = false;
    const auto controlla = [&](bool fallito, const char* testo) {
        if (!fallito) return;
        MostraAvviso(p, testo);
        errato = true;
    };
    const Geometria g = GeometriaDi(n);
    const double sopra = g.sporto(1), sotto = g.sporto(2);
    const auto nervaturaNulla = [&](int i) {
        return !(n.H1Nerv(i) > 0.0 && n.H2Nerv(i) >= 0.0 && n.BNerv(i) > 0.0 && n.SpNerv(i) > 0.0);
    };
    const auto piastraNulla = [&](int i) {
        return !(n.HPiastra(i) > 0.0 && n.BPiastra(i) > 0.0 && n.SpPiastra(i) > 0.0);
    };
    const auto saldaturaGrande = [&](int i) {
        return n.AttNerv(i) &&
               (n.spSaldS1 > Max(n.H1Nerv(i), n.H2Nerv(i)) || n.spSaldS1 > n.BNerv(i));
    };

    controlla(n.TraSec.H > n.TraPri.H, "Trave secondaria più alta della trave principale.");
    controlla(!(n.TraSec.B <= n.BPiastra(2) && sopra >= 0.0 && sotto >= 0.0),
              "Piastra 2 più piccola della trave secondaria.");
    controlla(n.AttNerv(1) && nervaturaNulla(1), "Valori della nervatura 1 negativi o nulli.");
    controlla(n.AttNerv(1) && n.H1Nerv(1) > sopra,
              "Nervatura 1 più alta dello spazio disponibile sopra la trave secondaria.");
    controlla(n.AttNerv(1) && n.SpNerv(1) > n.BPiastra(2),
              "Larghezza della nervatura 1 eccessiva.");
    controlla(n.AttNerv(2) && nervaturaNulla(2), "Valori della nervatura 2 negativi o nulli.");
    controlla(n.AttNerv(2) && sotto < n.H1Nerv(2),
              "Nervatura 2 più alta dello spazio disponibile sotto la trave secondaria.");
    controlla(n.AttNerv(2) && n.SpNerv(2) > n.BPiastra(2),
              "Larghezza della nervatura 2 eccessiva.");
    controlla(!(n.H1Nerv(3) > 0.0 && n.H2Nerv(3) > 0.0 && n.BNerv(3) > 0.0 && n.SpNerv(3) > 0.0),
              "Dimensioni della nervatura 3 negative o nulle.");
    controlla(piastraNulla(1), "Dimensioni della piastra 1 negative o nulle.");
    controlla(piastraNulla(2), "Dimensioni della piastra 2 negative o nulle.");
    controlla(n.spSaldS1 <= 0.0 || n.spSaldS2 <= 0.0, "Lato delle saldature negativo o nullo.");
    controlla(saldaturaGrande(1),
              "Lo spessore della saldatura S1 non è compatibile con le dimensioni della "
              "nervatura 1.");
    controlla(saldaturaGrande(2),
              "Il lato della saldatura S1 non è compatibile con le dimensioni della nervatura 2.");
    controlla(n.BNerv(3) / 2.0 < n.spSaldS2,
              "Il lato della saldatura S2 non è compatibile con le dimensioni della nervatura 3.");

    controlla(g.comune.yMax <= g.comune.yMin, "Non c'è intersezione tra le due piastre.");
    for (int i = 1; i <= n.nBull; ++i) {
        const double R = (n.Fibull(i) + opz.ValOpz(kOpzTollForo)) / 2.0;
        const char* testo = GuastoBullone(n, g, i, R);
        if (testo != nullptr) {
            controlla(true, testo);
            break;
        }
    }

    controlla(n.distPiastraTraPri > n.SpPiastra(1),
              "La piastra 1 esce completamente dalla trave principale.");
    controlla(
        n.distAlaSecPiastra - n.distAliPriSec + n.TraPri.tf > 0.0 && n.distPiastraTraPri < 0.0,
        "La piastra 2 si interseca con l'ala della trave principale.");
    return errato;
}

}  // namespace tk07
