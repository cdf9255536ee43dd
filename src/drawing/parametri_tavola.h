#pragma once

#include "drawing/etichette.h"
#include "drawing/figura.h"
#include "options/opzioni.h"

namespace tk07 {

// The drawing's rows of the options file under their names. Lengths in drawing units.
struct ParametriDisegno {
    short coloreContorno = 0, coloreContorno2 = 0, coloreSaldature = 0, coloreSegni = 0;
    double distanzaViste = 200.0;
    double tolleranzaForo = 0.0;
    StileQuota quoteViste, quoteDettagli;
    StileEtichetta etichette;  // weld marks, position numbers and notes
    double primaQuota = 50.0, passoQuote = 40.0;
    double tabellaAlt = 20.0, tabellaRiga = 40.0, tabellaColonna = 170.0;
    double titoloVista = 35.0, titoloTavola = 50.0, distanzaTitolo = 60.0;
    double rapporto = 0.7;  // width over height of a character
    bool bulloniSuSezioni = false;
    bool latoSaldature = false;  // sides of the welds in the notes
};

ParametriDisegno LeggiParametriDisegno(const Opzioni& opz);

}  // namespace tk07
