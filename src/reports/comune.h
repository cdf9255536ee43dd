#pragma once

#include <string>
#include <string_view>

#include "joint/nodo.h"
#include "reports/relazione.h"

namespace tk07 {

// Text of a report, line by line, and the lines of its findings. NUL characters of the number
// formats become blanks.
class TestoRelazione {
  public:
    void Riga(std::string_view testo = {});
    // The next line speaks of the element of these findings.
    void Segna(const Riscontro& r);
    RelazioneScritta Prendi();

  private:
    friend void TestataSestetto(const Nodo& nodo, int s, TestoRelazione& t);
    friend void VerdettoSestetto(const Nodo& nodo, int s, bool ok, TestoRelazione& t);
    RelazioneScritta r_;
    int righe_ = 0;
};

// "VERIFICA TENSIONALE NODI: 12, 15" + the method's name.
std::string TitoloRelazione(const Nodo& nodo, std::string_view metodo);
// Number of plates and ribs of the joint.
int NumeroPiastre(const Nodo& nodo);

// The rows of the plate table, in the report's numbering: plates 1 and 2, rib 3, rib 1, rib 2.
struct RigaPiastra {
    const char* numero;
    double H1, H2, B, Sp;
};
int RighePiastre(const Nodo& nodo, RigaPiastra* righe);  // at most 5

// The lines on the weld legs: plate 1 carries weld S2, plate 2 weld S1.
void RigheSaldature(const Nodo& nodo, TestoRelazione& t);
// Head of a load set.
void TestataSestetto(const Nodo& nodo, int s, TestoRelazione& t);
// Verdict line of a load set.
void VerdettoSestetto(const Nodo& nodo, int s, bool ok, TestoRelazione& t);

}  // namespace tk07
