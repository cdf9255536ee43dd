#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "aiuti/prova.h"
#include "base/testo.h"
#include "guscio/porta_cli.h"
#include "guscio/protocollo.h"

namespace tk07::prova {

// A session played by a script, a line each; in it ' stands for " and @ for the tree's root.
//   > request          answered with esito ok; every box it shows stands in the m lines that follow
//   ! request          refused: esito errore, no box, the session goes on
//   m text             the next box; text... for one that begins so
//   = path value       value of r (the answer), nodo, risultati, titolo or pan (its controls)
//   apri NAME          opens a file of the job; salva NAME saves under that name
//   file NAME a|b|c    writes a joint file of the job with these lines
//   esiste, manca PATH
struct Copione {
    using Json = nlohmann::json;

    Cartella cartella;
    std::string radice = AlberoDiProva(cartella);
    std::string lavoro = radice + "/lavori/esempi/";
    std::unique_ptr<Protocollo> p;
    Json r;
    std::size_t boxVisti = 0;

    void Avvia(const std::string& testo = "") {
        Avvio a;
        a.diroot = radice;
        p = std::make_unique<Protocollo>(a, PiattaformaMuta(), false);
        r = Json::parse(p->AvviaSessione());
        boxVisti = 0;
        Recita(testo);
    }
    Json Chiedi(const Json& j) { return Json::parse(p->Rispondi(j.dump())); }
    Json Leggi(const std::string& cosa) { return Chiedi({{"leggi", cosa}})["valore"]; }
    Json Cerca(const std::string& percorso) {
        const std::size_t barra = percorso.find('/');
        const std::string radix = percorso.substr(0, barra);
        const Json::json_pointer dove(barra == std::string::npos ? "" : percorso.substr(barra));
        if (radix == "r") return r.at(dove);
        if (radix == "nodo" || radix == "risultati") return Leggi(radix).at(dove);
        const Json pannello = Leggi("pannello")["InsDati"];
        return radix == "titolo" ? pannello["titolo"] : pannello["controlli"].at(dove);
    }
    void Richiesta(const std::string& riga, bool accolta) {
        FineBox();
        r = Json::parse(p->Rispondi(riga));
        boxVisti = 0;
        EXPECT_EQ(r["esito"], accolta ? "ok" : "errore") << riga.substr(0, 100) << r;
        if (!accolta) {
            EXPECT_EQ(r["fine"], false);
        }
    }
    void FineBox() const { EXPECT_EQ(boxVisti, r["messaggi"].size()) << r["messaggi"]; }

    void Recita(const std::string& testo) {
        std::istringstream righe(testo);
        for (std::string riga; std::getline(righe, riga);) {
            if (Taglia(riga).empty()) continue;
            SCOPED_TRACE(riga);
            riga = SostituisciTesto(riga, "@", radice);
            const std::string cosa = EstraiCampo(riga);
            if (cosa != "m") riga = SostituisciTesto(riga, "'", "\"");
            const std::string file = lavoro + riga;
            if (cosa == ">" || cosa == "!") {
                Richiesta(riga, cosa == ">");
            } else if (cosa == "m") {
                ASSERT_LT(boxVisti, r["messaggi"].size());
                std::string detto = SuUnaRiga(r["messaggi"][boxVisti++]["testo"]);
                const bool inizio = FinisceCon(riga, "...");
                EXPECT_EQ(inizio ? detto.substr(0, riga.size() - 3) + "..." : detto, riga);
            } else if (cosa == "=") {
                const std::string percorso = EstraiCampo(riga);
                const Json trovato = Cerca(percorso).flatten(),
                           atteso = Json::parse(riga).flatten();
                ASSERT_EQ(trovato.size(), atteso.size()) << trovato;
                for (const auto& [k, v] : atteso.items()) {
                    if (v.is_number_float()) {
                        EXPECT_DOUBLE_EQ(trovato.at(k).get<double>(), v.get<double>());
                    } else {
                        EXPECT_EQ(trovato.at(k), v);
                    }
                }
            } else if (cosa == "apri" || cosa == "salva") {
                Richiesta(Json{{"premi", cosa == "apri" ? "Car_Nodo" : "Bt_salva_con_nome"},
                               {"risposte", {{{"file", file}}}}}
                              .dump(),
                          true);
            } else if (cosa == "file") {
                const std::string nome = EstraiCampo(riga);
                ScriviTesto(lavoro + nome, "ARGANOWIN [ReleaseQuestoFile=1]\n" +
                                               SostituisciTesto(riga, "|", "\n"));
            } else if (cosa == "esiste" || cosa == "manca") {
                EXPECT_EQ(std::filesystem::exists(file), cosa == "esiste");
            } else {
                FAIL() << "riga del copione non capita";
            }
        }
        FineBox();
    }
};

}  // namespace tk07::prova
