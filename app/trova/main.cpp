// The search tools Trova (members) and TrovaNod (nodes): one source, told apart by TK07_NODI.

#include <CLI/CLI.hpp>
#include <clocale>
#include <cstdlib>
#include <iostream>

#include "base/testo.h"
#include "guscio/italiano.h"
#include "guscio/porta_cli.h"
#include "guscio/programma.h"
#include "guscio/trova.h"

namespace {

// Value of a marked field "|name=...|" on the command line, with its case.
std::string CampoMarcato(const std::string& riga, const std::string& nome) {
    const std::string minuscola = tk07::Minuscolo(riga), cerca = "|" + nome + "=";
    const std::size_t p = minuscola.find(cerca);
    if (p == std::string::npos) return {};
    const std::size_t da = p + cerca.size(), fine = riga.find('|', da);
    return fine == std::string::npos ? "" : tk07::Taglia(riga.substr(da, fine - da));
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tk07;
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    std::string riga;
    std::vector<std::string> resto;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        riga.append(a).append(" ");
        if (a.find('|') == std::string::npos) resto.insert(resto.begin(), a);
    }
#ifdef TK07_NODI
    CLI::App app{"Sceglie nodi e travi sul modello e scrive TrovaOut.txt", "TrovaNod"};
    ParlaItaliano(app);
    SceltaNodi scelta;
    app.add_option("--nodi", scelta.nodi, "Nodi scelti")->type_name("LISTA");
    app.add_option("--principale", scelta.principale, "Asta della trave principale")
        ->type_name("ASTA");
    app.add_option("--secondaria", scelta.secondaria, "Asta della trave secondaria")
        ->type_name("ASTA");
#else
    CLI::App app{"Sceglie aste sul modello e scrive TrovaOut.txt", "Trova"};
    ParlaItaliano(app);
    std::string scelta;
    app.add_option("--aste", scelta, "Aste scelte")->type_name("LISTA");
#endif
    std::string diroot;
    app.add_option("--diroot", diroot, "Radice dell'albero dei direttori")->type_name("DIR");
    PortaCli porta;
    porta.prefisso = app.get_name();
    const Piattaforma p = porta.Fai();
    try {
        app.parse(resto);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError&) {
        Errore(porta.prefisso, "argomenti errati");
        return 2;
    }
    Avvio avvio;
    avvio.dirProgramma = DirettorioProgramma(argv[0]);
    if (diroot.empty()) diroot = CampoMarcato(riga, "diroot");
    if (!diroot.empty()) avvio.diroot = PercorsoAssoluto(diroot);
    // Set by a tk07 that works on another job than the settings name.
    if (const char* l = std::getenv("TK07_LAVORO"); l != nullptr && *l != '\0') avvio.lavoro = l;
    Direttori d;
    if (!RisolviDirettori(avvio, d, p)) return 2;
    const std::string lavoro = CampoMarcato(riga, "lavoro");
    if (!lavoro.empty()) d.dirLavoro = lavoro;
#ifdef TK07_NODI
    return TrovaNodi(d, scelta, std::cin, std::cout, p);
#else
    return TrovaAste(d, scelta, std::cin, std::cout, p);
#endif
}
