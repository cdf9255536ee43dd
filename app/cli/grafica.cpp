// The command line with the graphic toolkits linked in: the twin that `tk07` hands over to. What it
// can do depends on the toolkits that it was built with.

#include "cli/parti_grafica.h"
#include "cli/riga.h"

int main(int argc, char** argv) {
    tk07::Grafica grafica;
    grafica.gemello = true;
#ifdef TK07_CON_TAVOLE
    grafica.esportaTavola = tk07::cli::GraficaTavola;
    grafica.scriviRelazione = tk07::cli::GraficaRelazione;
#endif
#ifdef TK07_CON_SOLIDI
    grafica.esportaSolidi = tk07::cli::GraficaSolidi;
    grafica.distinta = tk07::cli::GraficaDistinta;
#endif
    return tk07::cli::EseguiRiga(argc, argv, grafica);
}
