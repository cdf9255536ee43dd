#pragma once

#include <memory>
#include <span>

#include "joint/nodo.h"
#include "options/opzioni.h"
#include "verification/esiti.h"

namespace tk07 {

// A joint judged under load sets that are tried one against the other, as searches and batches do:
// no text, no rows of findings, each set for itself. Spacing rules and consistency are not looked
// at.

struct SestettoProvato {
    double N = 0.0, Ty = 0.0, Tz = 0.0;   // daN
    double Mt = 0.0, My = 0.0, Mz = 0.0;  // daN cm
    short caso = 0;                       // load case, 0 type I, 1 type II (allowable stress only)
};

struct GiudizioRapido {
    bool calcolato = false;  // false: the verification stops on this set, and `esiti` says nothing
    SintesiEsiti esiti;      // `sestetto` of its rows counts within the sets tried
    bool Verificato() const { return calcolato && esiti.verificato; }
    // The governing ratio as judged; infinite where the verification stops.
    double Rapporto() const;
};

// What is used again from set to set: a copy of the joint and the results of one block.
class EsameRapido {
  public:
    EsameRapido(const Nodo& nodo, const Opzioni& opz);
    // `giudizi` has the length of `prove`.
    void Giudica(std::span<const SestettoProvato> prove, std::span<GiudizioRapido> giudizi);

  private:
    bool Blocco(std::span<const SestettoProvato> prove, std::span<GiudizioRapido> giudizi, int da);

    std::unique_ptr<Nodo> nodo_;
    Opzioni opz_;
    Piattaforma muta_;
    Risultati ris_;
};

}  // namespace tk07
