#pragma once

#include <QString>
#include <functional>

#include "relazione/impagina.h"
#include "reports/esteso.h"
#include "session/sessione.h"

namespace tk07 {

struct OpzioniRelazione {
    FormaRelazione forma = FormaRelazione::estesa;
    // The joint's file, whose bytes the printed hash is of. Empty, or not readable: the hash is of
    // the joint as it would be saved.
    QString fileNodo;
    // Draws the joint in three dimensions; empty: no such picture.
    DipingiFigura vista3d;
    // Pages done and all; called now and then.
    std::function<void(int fatte, int tutte)> avanzamento;
};

// What a page's head takes from custom/intestazione.txt: line 1 a text, line 2 the name of a
// picture beside it (png, jpg, svg). Both empty without the file.
struct Intestazione {
    QString testo, logo;
};
Intestazione LeggiIntestazione(const std::string& dirCustom);

// Calculates the session's joint anew on a copy and writes the extended report as a PDF: text to
// select, fonts embedded, bookmarks by chapter, all in memory first and then in place of the old
// file. False with the reason in `errore`; a file that exists then keeps its contents. Needs a
// QGuiApplication.
bool ScriviRelazioneEstesa(const Sessione& s, const QString& file, const OpzioniRelazione& opz,
                           QString& errore);
// The same with what was prepared already.
bool ScriviRelazioneEstesa(const Sessione& s, const RelazioneEstesa& documento, const QString& file,
                           const OpzioniRelazione& opz, QString& errore);

}  // namespace tk07
