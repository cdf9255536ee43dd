#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "session/sessione.h"

namespace tk07 {

// Undo and redo: the joint as it stood before each edit, with its name. One command is one step,
// however much it changes (an import, a session of the bolt panel, a file opened).
class Storia {
  public:
    static constexpr std::size_t kMassimo = 200;  // steps kept, the oldest go first

    // What a step goes back to. Taken before a command.
    struct Stato {
        std::unique_ptr<const Nodo> nodo;
        std::string nomeFile;
        FileDelNodo file;
    };
    static Stato Fotografa(const Sessione& s);

    // After the command: keeps `prima` as a step called `cosa` if the joint or its name differ from
    // it. True when it did.
    bool Registra(const Sessione& s, Stato prima, const std::string& cosa);

    bool PuoAnnullare() const { return !indietro_.empty(); }
    bool PuoRipetere() const { return !avanti_.empty(); }
    // What would be undone or redone; empty when there is nothing.
    std::string CosaAnnulla() const { return PuoAnnullare() ? indietro_.back().cosa : ""; }
    std::string CosaRipete() const { return PuoRipetere() ? avanti_.back().cosa : ""; }
    // Put the joint back, refresh the main panel; the results no longer belong to it. A box of the
    // refresh would go to the session's port. False when there is nothing to do.
    bool Annulla(Sessione& s);
    bool Ripeti(Sessione& s);

  private:
    struct Passo {
        Stato stato;
        std::string cosa;
    };
    bool Muovi(Sessione& s, std::deque<Passo>& da, std::deque<Passo>& verso);
    std::deque<Passo> indietro_, avanti_;
};

// Whether two joints hold the same data. Left out: the measures of rib 3 that follow from the
// others, and the selection of bolts.
bool StessoNodo(const Nodo& a, const Nodo& b);

}  // namespace tk07
