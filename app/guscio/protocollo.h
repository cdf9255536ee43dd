#pragma once

#include <memory>
#include <string>

#include "session/sessione.h"

namespace tk07 {

// The line protocol: one JSON object a line in, one out. The start-up answers as if it were a
// request.
class Protocollo {
  public:
    // `base` fills what the protocol does not answer itself (the clock).
    Protocollo(const Avvio& avvio, Piattaforma base, bool avviaProgrammi);
    ~Protocollo();
    Protocollo(const Protocollo&) = delete;
    Protocollo& operator=(const Protocollo&) = delete;

    std::string AvviaSessione();
    std::string Rispondi(const std::string& riga);
    bool Fine() const;
    int CodiceUscita() const;
    const Sessione& LaSessione() const;

  private:
    struct Stato;
    std::unique_ptr<Stato> stato_;
};

}  // namespace tk07
