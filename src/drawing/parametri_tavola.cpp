#include "drawing/parametri_tavola.h"

#include <string>

#include "base/aritmetica.h"
#include "base/errore.h"

namespace tk07 {

ParametriDisegno LeggiParametriDisegno(const Opzioni& opz) {
    const auto colore = [&](int riga) {
        const auto numero = Corto(opz.ValOpz(riga));
        if (!numero) {
            const RigaOpzione& r = opz.Righe[static_cast<std::size_t>(riga)];
            throw ErroreFatale(kOltreSediciBit, "OpzioniNodi.txt, riga " + std::to_string(r.Riga) +
                                                    ", opzione \"" + r.Etichetta + "\"");
        }
        return *numero;
    };
    ParametriDisegno p;
    p.coloreContorno = colore(kOpzColoreContorno);
    p.coloreContorno2 = colore(kOpzColoreContorno2);
    p.coloreSaldature = colore(kOpzColoreSaldature);
    p.coloreSegni = colore(kOpzColoreSegni);
    p.distanzaViste = Max(opz.ValOpz(kOpzDistanzaViste), 1.0);
    p.tolleranzaForo = opz.ValOpz(kOpzTollForo);
    p.rapporto = opz.ValOpz(kOpzRapportoCaratteri);
    p.primaQuota = opz.ValOpz(kOpzPrimaQuota);
    p.passoQuote = opz.ValOpz(kOpzPassoQuote);

    StileQuota q;
    q.terminale = opz.ValOpz(kOpzTerminale) == 1.0 ? Terminale::freccia : Terminale::cerchio;
    q.sporgenza = opz.ValOpz(kOpzSporgenza);
    q.colore = colore(kOpzColoreQuote);
    q.alt = opz.ValOpz(kOpzAltezzaQuote);
    q.largh = p.rapporto * q.alt;
    q.dimTerminale = opz.ValOpz(kOpzTerminaleQuote);
    q.stacco = 0.25 * q.alt;
    q.stile = StileTesto::normale;
    p.quoteViste = q;
    q.colore = colore(kOpzColoreQuoteDett);
    q.alt = opz.ValOpz(kOpzAltezzaQuoteDett);
    q.largh = p.rapporto * q.alt;
    q.dimTerminale = opz.ValOpz(kOpzTerminaleDett);
    q.stacco = 0.25 * q.alt;
    q.stile = StileTesto::piccolo;
    p.quoteDettagli = q;

    p.etichette.colore = colore(kOpzColoreQuote);
    p.etichette.alt = p.quoteViste.alt;
    p.etichette.largh = p.quoteViste.largh;
    p.etichette.stile = StileTesto::normale;

    p.tabellaAlt = opz.ValOpz(kOpzAltezzaTabella);
    p.tabellaRiga = opz.ValOpz(kOpzRigaTabella);
    p.tabellaColonna = opz.ValOpz(kOpzColonnaTabella);
    p.titoloVista = opz.ValOpz(kOpzTitoloVista);
    p.titoloTavola = opz.ValOpz(kOpzTitoloTavola);
    p.distanzaTitolo = opz.ValOpz(kOpzDistanzaTitolo);
    p.bulloniSuSezioni = opz.ValOpz(kOpzBulloniSezioni) == 1.0;
    p.latoSaldature = opz.ValOpz(kOpzLatoSaldature) == 1.0;
    return p;
}

}  // namespace tk07
