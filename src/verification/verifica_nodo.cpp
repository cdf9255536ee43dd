#include "verification/verifica_nodo.h"

#include <string>

#include "verification/azioni_bulloni.h"
#include "verification/interassi.h"
#include "verification/piastra.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

constexpr const char* kNonContinua = "La verifica non può continuare!";

// Quantities that later steps divide by and that no geometric check refuses.
void ControllaDivisori(const Nodo& n) {
    for (int i = 1; i <= n.nBull; ++i) {
        if (!(n.Fibull(i) > 0.1)) {
            throw GrandezzaNulla{"diametro del bullone " + std::to_string(i) +
                                 " non superiore a 0.1 mm"};
        }
    }
    NonNullo(n.SpPiastra(1), "spessore della piastra 1");
    NonNullo(n.SpPiastra(2), "spessore della piastra 2");
    if (n.MetodoVerifica() == Metodo::SLU) {
        NonNullo(n.acciaio.GammaM, "coefficiente parziale dell'acciaio");
    } else {
        NonNullo(n.vite.SammVite, "tensione normale ammissibile delle viti");
        NonNullo(n.vite.TauAmmVite, "tensione tangenziale ammissibile delle viti");
    }
}

// True when all the steps could be done.
bool Passi(const Nodo& n, const Opzioni& opz, Risultati& ris, const Piattaforma& p) {
    const auto fermata = [&] {
        MostraErrore(p, kNonContinua);
        return false;
    };
    AzzeraRisultati(n, ris);
    ControllaDivisori(n);
    const GeometriaVerifica geo = PreparaGeometria(n);
    LunghezzeSaldature(geo.forma, ris);
    if (!AzioniBulloni(n, geo, ris, p)) return fermata();
    if (n.MetodoVerifica() == Metodo::TA) {
        for (int i = 1; i <= n.nBull; ++i) {
            NonNullo(n.Fibull(i) + opz.ValOpz(kOpzTollForo), "diametro del foro");
        }
        SigRifollamento(n, geo, ris);
    } else {
        ResistenzeBulloni(n, opz, geo, ris);
        CoefficientiBulloni(n, ris);
    }
    if (!VerificaPiastra(n, geo, ris, p)) return fermata();
    VerificaSaldatureS1(n, geo.forma, ris, p);
    VerificaSaldatureS2(n, geo.forma, ris, p);
    TensioniAlCm2(n, ris);
    GiudicaNodo(n, opz, ris);
    return true;
}

}  // namespace

EsitoVerifica CalcolaNodo(const Nodo& n, const Opzioni& opz, Risultati& ris, const Piattaforma& p) {
    if (n.nBull <= 0) {
        MostraAvviso(p, "Non è stato inserito nessun bullone. Verifica non possibile.");
        return EsitoVerifica::nonPossibile;
    }
    if (!ControllaBulloni(n, opz, p) &&
        p.messaggio("Continuare la verifica?", kTitoloProgramma, Segno::informazione,
                    Pulsanti::OKAnnulla) != Risposta::OK) {
        return EsitoVerifica::nonPossibile;
    }
    return CalcolaTensioni(n, opz, ris, p);
}

EsitoVerifica CalcolaTensioni(const Nodo& n, const Opzioni& opz, Risultati& ris,
                              const Piattaforma& p) {
    try {
        return Passi(n, opz, ris, p) ? EsitoVerifica::completata : EsitoVerifica::nonPossibile;
    } catch (const GrandezzaNulla& g) {
        MostraErrore(p, "Grandezza nulla: " + g.testo + ". " + kNonContinua);
        return EsitoVerifica::nonPossibile;
    }
}

EsitoVerifica VerificaNodo(const Nodo& n, const Opzioni& opz, Risultati& ris, Esiti& esiti,
                           const Piattaforma& p) {
    const EsitoVerifica e = CalcolaNodo(n, opz, ris, p);
    if (e == EsitoVerifica::completata) FormaEsiti(n, opz, ris, esiti);
    return e;
}

}  // namespace tk07
