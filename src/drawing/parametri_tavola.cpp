#include "drawing/parametri_tavola.h"

#include <string>

#include "base/aritmetica.h"
#include "base/errore.h"

namespace tk07 {

ParametriDisegno LeggiParametriDisegno(const Opzioni& opz) {
    const auto colore = [&](int riga) {
        try {
            return InteroCorto(opz.ValOpz(riga));
        } catch (const ErroreFatale& e) {
            const RigaOpzione& r = opz.Righe[static_cast<std::size_t>(riga)];
            throw ErroreFatale(e.what(), "OpzioniNodi.txt, riga " + std::to_string(r.Riga) +
                                             ", opzione \"" + r.Etichetta + "\"");
        }
    };
    ParametriDisegno p;
    p.coloreContorno = colore(0);
    p.coloreContorno2 = colore(1);
    p.coloreSaldature = colore(2);
    p.coloreSegni = colore(3);
    p.distanzaViste = Max(opz.ValOpz(4), 1.0);
    p.tolleranzaForo = opz.ValOpz(kOpzTollForo);
    p.rapporto = opz.ValOpz(19);
    p.primaQuota = opz.ValOpz(17);
    p.passoQuote = opz.ValOpz(18);

    StileQuota q;
    q.terminale = opz.ValOpz(13) == 1.0 ? Terminale::freccia : Terminale::cerchio;
    q.sporgenza = opz.ValOpz(20);
    q.colore = colore(9);
    q.alt = opz.ValOpz(10);
    q.largh = p.rapporto * q.alt;
    q.dimTerminale = opz.ValOpz(15);
    q.stacco = 0.25 * q.alt;
    q.stile = StileTesto::normale;
    p.quoteViste = q;
    q.colore = colore(7);
    q.alt = opz.ValOpz(8);
    q.largh = p.rapporto * q.alt;
    q.dimTerminale = opz.ValOpz(14);
    q.stacco = 0.25 * q.alt;
    q.stile = StileTesto::piccolo;
    p.quoteDettagli = q;

    p.etichette.colore = colore(9);
    p.etichette.alt = p.quoteViste.alt;
    p.etichette.largh = p.quoteViste.largh;
    p.etichette.stile = StileTesto::normale;

    p.tabellaAlt = opz.ValOpz(11);
    p.tabellaRiga = opz.ValOpz(12);
    p.tabellaColonna = opz.ValOpz(24);
    p.titoloVista = opz.ValOpz(21);
    p.titoloTavola = opz.ValOpz(22);
    p.distanzaTitolo = opz.ValOpz(23);
    p.bulloniSuSezioni = opz.ValOpz(16) == 1.0;
    p.latoSaldature = opz.ValOpz(29) == 1.0;
    return p;
}

}  // namespace tk07
