#pragma once

#include <functional>
#include <string>

#include "session/sessione.h"

namespace tk07 {

enum class FormaDistinta { tabella, json };
struct RelazioneEstesa;

// What only a build with the graphic toolkits can do. The small program leaves it empty and hands
// such commands over to its bigger twin, so that it starts in no time. A routine that is not there
// lacks its toolkit. All return false with the reason in `errore`.
struct Grafica {
    bool gemello = false;  // this is the twin: nobody to hand over to
    // Writes the sheet as SVG, PDF or PNG by the ending.
    bool (*esportaTavola)(const Sessione& s, const std::string& uscita,
                          std::string& errore) = nullptr;
    // Writes the solids of the joint, whose scene is in s.scena, as STEP, glTF or STL by the
    // ending.
    bool (*esportaSolidi)(const Sessione& s, const std::string& uscita,
                          std::string& errore) = nullptr;
    // The bill of their parts.
    bool (*distinta)(const Sessione& s, FormaDistinta forma, std::string& testo,
                     std::string& errore) = nullptr;
    // Writes the extended report of the session's joint, read from `file`, as a PDF.
    bool (*scriviRelazione)(const Sessione& s, const RelazioneEstesa& documento,
                            const std::string& file, const std::string& uscita,
                            const std::function<void(int fatte, int tutte)>& avanzamento,
                            std::string& errore) = nullptr;
};

struct OpzioniDisegna {
    std::string file, uscita;
    bool tipiLinea = false;
};

// The joint's sheet as GRB, DIS, DXF, SVG, PDF or PNG, by the ending of the file to write.
int ComandoDisegna(const Avvio& avvio, const OpzioniDisegna& opz, const Grafica& grafica);

// Runs the twin with toolkits on the same arguments (without the program's name) and returns its
// exit code; 2 with a message when it is not there.
int EseguiGemello(const std::vector<std::string>& argomenti);
// Whether the output file asks for the twin.
bool VuoleGrafica(const std::string& uscita);

}  // namespace tk07
