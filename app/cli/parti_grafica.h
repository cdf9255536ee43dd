#pragma once

#include <string>

#include "guscio/disegna.h"

namespace tk07::cli {

// What fills the record Grafica. With Qt:
bool GraficaTavola(const Sessione& s, const std::string& uscita, std::string& errore);
bool GraficaRelazione(const Sessione& s, const RelazioneEstesa& documento, const std::string& file,
                      const std::string& uscita,
                      const std::function<void(int fatte, int tutte)>& avanzamento,
                      std::string& errore);
// With OpenCASCADE; both take the scene that s.scena holds.
bool GraficaSolidi(const Sessione& s, const std::string& uscita, std::string& errore);
bool GraficaDistinta(const Sessione& s, FormaDistinta forma, std::string& testo,
                     std::string& errore);

}  // namespace tk07::cli
