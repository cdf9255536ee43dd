#include "cli/riga.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <exception>
#include <memory>

#include "base/testo.h"
#include "cli/comandi_cli.h"
#include "cli/comandi_nodo.h"
#include "cli/comandi_scena.h"
#include "cli/comando_relazione.h"
#include "guscio/albero.h"
#include "guscio/banco.h"
#include "guscio/disegna.h"
#include "guscio/italiano.h"
#include "guscio/porta_cli.h"
#include "guscio/programma.h"

namespace {

using tk07::Avvio;

std::string InItaliano(const CLI::ParseError& e, const CLI::App& app) {
    const std::string nome = e.get_name();
    std::string detto = e.what();
    const std::string soggetto = detto.substr(0, detto.find_first_of(": "));
    if (dynamic_cast<const CLI::ExtrasError*>(&e) != nullptr) {
        std::string resto;
        for (const std::string& r : app.remaining(true)) resto += " " + r;
        return "argomento non riconosciuto:" + resto;
    }
    if (nome == "RequiredError") {
        if (soggetto != "A") return "manca l'argomento " + soggetto;
        const std::vector<std::string> resto = app.remaining();
        return resto.empty() ? "manca il comando" : "comando sconosciuto: " + resto.front();
    }
    if (nome == "ValidationError") return soggetto + ": valore non ammesso";
    if (nome == "ExcludesError") return "opzioni che si escludono";
    if (nome == "ArgumentMismatch") return soggetto + ": numero di valori errato";
    return "argomenti errati";
}

}  // namespace

namespace tk07::cli {

int EseguiRiga(int argc, char** argv, const Grafica& grafica) {
    std::setlocale(LC_ALL, "");       // letters and messages as the user has them,
    std::setlocale(LC_NUMERIC, "C");  // numbers with a point
    Avvio avvio;
    avvio.dirProgramma = DirettorioProgramma(argv[0]);
    // The marked field |diroot=...| is taken as well, as one argument of its own.
    std::vector<std::string> argomenti;
    const std::vector<std::string> tutti(argv + 1, argv + argc);
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        avvio.rigaComando += (i > 1 ? " " : "") + a;
        if (Minuscolo(a).find("|diroot=") == std::string::npos) argomenti.push_back(a);
    }

    CLI::App app{"Nodo trave - trave con piastre: verifica, relazione, disegno", "tk07"};
    ParlaItaliano(app);
    app.set_version_flag("--version", "TK07 " TK07_VERSIONE, "Mostra la versione ed esce")
        ->group("Opzioni");
    app.require_subcommand(1);
    app.fallthrough();
    std::string diroot;
    app.add_option("--diroot", diroot, "Radice dell'albero dei direttori")->type_name("DIR");
    std::string lavoro;
    app.add_option("--lavoro", lavoro, "Lavoro (sei caratteri) al posto di quello corrente")
        ->type_name("NOME");
    app.footer(
        "Esempio: tk07 verifica lavori/esempi/01_ipe160_su_ipe270.tk7\n"
        "Uscita: 0 verificato, 1 non verificato, 2 uso o lettura errati, 3 verifica non "
        "possibile, 70 errore non recuperabile");

    int codice = kUscitaOk;
    const auto comando = [&](const char* nome, const char* cosa, const char* esempio) {
        CLI::App* c = app.add_subcommand(nome, cosa)->group("Comandi");
        c->get_help_ptr()->group("Opzioni");
        c->footer(std::string("Esempio: tk07 ") + esempio);
        return c;
    };

    std::string dir, file;
    OpzioniVerifica verifica;
    std::vector<std::string> lista;
    bool json = false, avviaProgrammi = false;

    CLI::App* c = comando("inizializza", "Prepara un albero di direttori con le librerie",
                          "inizializza ~/nodi");
    c->add_option("DIR", dir, "Direttorio nuovo o vuoto")->required()->type_name("");
    c->callback([&] { codice = ComandoInizializza(avvio, dir); });

    // What writes in the tree itself wants one of the user's own.
    Origine origine = Origine::data;
    const auto suAlberoProprio = [&](const auto& lavora) {
        if (origine != Origine::partenza) return lavora();
        Errore("tk07",
               "l'albero installato è di sola lettura: prepararne uno proprio con tk07 inizializza "
               "DIR");
        return kUscitaUso;
    };

    c = comando("verifica", "Verifica i nodi e scrive le relazioni di calcolo",
                "verifica --metodo slu nodo.tk7");
    c->add_option("FILE", verifica.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("--metodo", verifica.metodo, "Metodo: slu (NTC 2018) o ta (CNR 10011/88)")
        ->check(CLI::IsMember({"slu", "ta"}).description(""))
        ->type_name("slu|ta");
    CLI::Option* conJson =
        c->add_flag("--json", verifica.json, "Un oggetto JSON per file, su una riga");
    c->add_flag("--csv", verifica.csv, "Una riga CSV per sestetto: verifica che governa e rapporti")
        ->excludes(conJson);
    c->add_flag("--esiti", verifica.esiti, "Con --json: ogni confronto, uno per riga di tabella")
        ->needs(conJson);
    c->add_flag("--fermati", verifica.fermati, "Si ferma se gli interassi non sono rispettati");
    c->add_flag("--apri", verifica.apri, "Apre le relazioni nell'editor di testo");
    c->add_flag("--stampa", verifica.stampa, "Stampa le relazioni");
    c->add_option("--fili", verifica.fili, "Verifica più nodi insieme, su N fili")
        ->check(CLI::Range(1, 64).description(""))
        ->type_name("N");
    c->callback(
        [&] { codice = suAlberoProprio([&] { return ComandoVerifica(avvio, verifica); }); });

    c = comando("controlla", "Controlla congruenza e interassi, senza calcolo",
                "controlla nodo.tk7");
    c->add_option("FILE", lista, "File di nodo (.tk7)")->required()->type_name("");
    c->callback([&] { codice = ComandoControlla(avvio, lista); });

    c = comando("mostra", "Mostra un nodo in forma leggibile", "mostra nodo.tk7 --json");
    c->add_option("FILE", file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_flag("--json", json, "In JSON, con le chiavi del file di nodo");
    c->callback([&] { codice = ComandoMostra(avvio, file, json); });

    OpzioniProponi proponi;
    c = comando("proponi", "Propone piastre, nervature, bulloni",
                "proponi nodo.tk7 --piastre --nervature --bulloni 16 -o nuovo.tk7");
    c->add_option("FILE", proponi.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_flag("--piastre", proponi.piastre, "Dimensioni delle piastre");
    c->add_flag("--nervature", proponi.nervature, "Dimensioni delle nervature");
    c->add_option("--bulloni", proponi.bulloni, "Disposizione di bulloni di questo diametro [mm]")
        ->check(CLI::Range(0.2, 100.0).description(""))
        ->type_name("DIAM");
    c->add_option("-o", proponi.uscita, "File da scrivere")->required()->type_name("OUT");
    c->callback([&] { codice = ComandoProponi(avvio, proponi); });

    OpzioniCarichi carichi;
    c = comando("carichi", "Cambia o esporta la tabella dei carichi",
                "carichi nodo.tk7 --aggiungi 0,5000,0,0,0,0,\"SLU 1\" -o nodo.tk7");
    c->add_option("FILE", carichi.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("--aggiungi", carichi.aggiungi,
                  "Aggiunge N,Ty,Tz,Mt,My,Mz[,NOME] nelle unità del lavoro")
        ->take_all()
        ->expected(1)
        ->type_name("SESTETTO");
    c->add_flag("--senza-doppi", carichi.senzaDoppi, "Rimuove i sestetti uguali");
    c->add_flag("--max-min", carichi.maxMin, "Tiene massimi e minimi di ogni caratteristica");
    c->add_option("--esporta", carichi.esporta, "Scrive la tabella in un file di testo")
        ->type_name("OUT");
    c->add_option("-o", carichi.uscita, "File di nodo da scrivere")->type_name("OUT");
    c->callback([&] { codice = ComandoCarichi(avvio, carichi); });

    OpzioniImporta importa;
    c = comando("importa", "Importa le sollecitazioni dai risultati dell'analisi",
                "importa nodo.tk7 --nodi 105,108 --aste 19,20 --casi 1-2 --spiega -o nodo.tk7");
    c->add_option("FILE", importa.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("--nodi", importa.nodi, "Nodi della struttura")->required()->type_name("LISTA");
    c->add_option("--aste", importa.aste, "Aste da leggere")->required()->type_name("LISTA");
    c->add_option("--casi", importa.casi, "Casi di carico")->type_name("LISTA");
    c->add_option("--condizioni", importa.condizioni, "Condizioni di carico")->type_name("LISTA");
    c->add_option("--sestetti", importa.sestetti, "Sestetti, 0 per tutti")->type_name("LISTA");
    c->add_flag("--max-min", importa.maxMin, "Solo massimi e minimi");
    c->add_flag("--spiega", importa.spiega, "Spiega campi, segni e destinazioni");
    c->add_option("-o", importa.uscita, "File da scrivere")->required()->type_name("OUT");
    c->callback([&] { codice = ComandoImporta(avvio, importa); });

    OpzioniDisegna disegna;
    c = comando("disegna", "Disegna la tavola del nodo", "disegna nodo.tk7 -o nodo.pdf");
    c->add_option("FILE", disegna.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("-o", disegna.uscita, "File da scrivere: grb, dis, dxf, svg, pdf o png")
        ->required()
        ->type_name("OUT");
    c->add_flag("--tipi-linea", disegna.tipiLinea, "Nel DXF anche la tabella dei tipi di linea");
    c->callback([&] {
        codice = VuoleGrafica(disegna.uscita) && !grafica.gemello
                     ? EseguiGemello(tutti)
                     : ComandoDisegna(avvio, disegna, grafica);
    });

    OpzioniScena scena;
    c = comando("scena", "Scrive la scena 3D del nodo, i suoi solidi, la distinta",
                "scena nodo.tk7 -o nodo.step --distinta");
    c->add_option("FILE", scena.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("-o", scena.uscita,
                  "File da scrivere: tmp (scena), step, glb o stl (solidi con i fori)")
        ->type_name("OUT");
    c->add_flag("--distinta", scena.distinta, "Elenca pezzi, pesi e saldature");
    c->add_flag("--json", scena.json, "La distinta in JSON, su una riga");
    c->callback([&] {
        codice = VuoleSolidi(scena) && !grafica.gemello ? EseguiGemello(tutti)
                                                        : ComandoScena(avvio, scena, grafica);
    });

    OpzioniRelazioneCli relazione;
    c = comando("relazione", "Scrive la relazione di calcolo estesa in PDF",
                "relazione nodo.tk7 -o nodo.pdf --breve");
    c->add_option("FILE", relazione.file, "File di nodo (.tk7)")->required()->type_name("");
    c->add_option("-o", relazione.uscita, "File da scrivere (.pdf)")->required()->type_name("OUT");
    c->add_flag("--breve", relazione.breve, "Solo verifiche che governano e non soddisfatte");
    c->add_option("--metodo", relazione.metodo, "Metodo: slu (NTC 2018) o ta (CNR 10011/88)")
        ->check(CLI::IsMember({"slu", "ta"}).description(""))
        ->type_name("slu|ta");
    c->callback([&] {
        codice =
            grafica.gemello ? ComandoRelazione(avvio, relazione, grafica) : EseguiGemello(tutti);
    });

    c = comando("sezioni", "Elenca i profili della libreria", "sezioni --json");
    c->add_flag("--json", json, "In JSON");
    c->callback([&] { codice = ComandoSezioni(avvio, json); });

    c = comando("materiali", "Elenca acciai, viti e calcestruzzi", "materiali");
    c->add_flag("--json", json, "In JSON");
    c->callback([&] { codice = ComandoMateriali(avvio, json); });

    c = comando("sessione", "Sessione a righe JSON su ingresso e uscita standard",
                "sessione < richieste.txt");
    c->add_flag("--avvia-programmi", avviaProgrammi, "Avvia davvero i programmi esterni");
    c->callback(
        [&] { codice = suAlberoProprio([&] { return ComandoSessione(avvio, avviaProgrammi); }); });

    // Options come before the work of the command: callbacks run when all is parsed.
    app.parse_complete_callback([&] {
        if (!diroot.empty()) avvio.diroot = PercorsoAssoluto(diroot);
        if (!app.got_subcommand("inizializza")) origine = TrovaAlbero(avvio);
        if (!lavoro.empty()) {
            avvio.lavoro = lavoro;
#ifndef _WIN32
            setenv("TK07_LAVORO", lavoro.c_str(),
                   1);  // companions started from here work on it too
#endif
        }
    });
    try {
        std::reverse(argomenti.begin(), argomenti.end());
        app.parse(std::move(argomenti));
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            Errore("tk07", "uscita non scritta");
            return std::max(codice, kUscitaUso);
        }
        return codice;
    } catch (const CLI::Success& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        Errore("tk07", InItaliano(e, app) + " (vedere tk07 --help)");
        return kUscitaUso;
    } catch (const std::exception& e) {
        Errore("tk07", std::string("errore non recuperabile: ") + e.what());
        return 70;
    }
}

}  // namespace tk07::cli
