#include "textnum/unita.h"

#include <algorithm>

#include "base/errore.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

double FattoreLunghezza(std::string_view nome, short& decimali) {
    if (Contiene(nome, "mm")) return decimali = 0, 10.0;
    if (Contiene(nome, "cm")) return decimali = 1, 1.0;
    if (Contiene(nome, "m")) return decimali = 3, 0.01;
    return 0.0;
}

double FattoreForza(std::string_view nome, short& decimali, double g) {
    if (Contiene(nome, "daN")) return decimali = 1, 1.0;
    if (Contiene(nome, "kN")) return decimali = 3, 0.01;
    if (Contiene(nome, "N")) return decimali = 0, 10.0;
    const bool kgf = Contiene(nome, "kgf");
    if (!kgf && !Contiene(nome, "t")) return 0.0;
    if (g == 0.0) {
        throw ErroreFatale("accelerazione_g nulla con l'unità " + std::string(nome),
                           "parametrilavoro, chiave accelerazione_g");
    }
    if (kgf) return decimali = 1, 10.0 / g;
    return decimali = 4, 0.01 / g;
}

double FattorePressione(std::string_view nome, short& decimali) {
    if (Contiene(nome, "kPa")) return decimali = 0, 100.0;
    if (Contiene(nome, "MPa")) return decimali = 2, 0.1;
    return 0.0;
}

void LeggiParametriLavoro(std::string_view percorso, Unita& u) {
    const FileLetto f = LeggiRighe(percorso);
    const std::string nome = PercorsoMostrato(percorso);
    if (!f.riuscito) throw ErroreFatale("File delle unità di misura: " + f.errore, nome);
    if (f.righe.empty()) throw ErroreFatale("File delle unità di misura vuoto", nome);
    const auto fallito = [&](std::size_t i, const std::string& cosa) {
        return ErroreFatale(cosa, nome + ", riga " + std::to_string(i + 1));
    };
    struct Chiave {
        const char* chiave;
        std::string* dove;
    };
    const Chiave catena[] = {{"lunghezze", &u.UnitaLunghezze},
                             {"forze", &u.UnitaForze},
                             {"carichi_superficie", &u.UnitaCarichiSup},
                             {"coppie_momenti", &u.UnitaMomenti},
                             {"tensioni", &u.UnitaTensioni},
                             {"dati_sezioni", &u.UnitaSezioni}};
    for (std::size_t i = 1; i < f.righe.size(); ++i) {
        const std::string& riga = f.righe[i];
        const std::string minuscola = Minuscolo(riga);
        const std::size_t p = riga.find('[');
        if (p == std::string::npos) throw fallito(i, "Manca la parentesi \"[\" della chiave");
        std::string valore = Taglia(std::string_view(riga).substr(0, p));
        for (const auto& [chiave, dove] : {std::pair{"accelerazione_g", &u.AccelerazioneG},
                                           std::pair{"nord_geografico", &u.NordGeografico}}) {
            if (!Contiene(minuscola, chiave)) continue;
            const auto x = ValoreStretto(valore);
            if (!x) throw fallito(i, std::string("Numero errato per la chiave ") + chiave);
            *dove = *x;
        }
        // The file cannot hold a slash in a name: an 8 stands for it.
        std::replace(valore.begin(), valore.end(), '8', '/');
        for (const Chiave& c : catena) {
            if (Contiene(minuscola, c.chiave)) {
                *c.dove = valore;
                break;
            }
        }
    }
}

void ImpostaUnita(Unita& u) {
    const double g = u.AccelerazioneG;
    const auto nonNegativo = [](int n) { return static_cast<short>(std::max(n, 0)); };
    u.FattoreLunghezze = FattoreLunghezza(u.UnitaLunghezze, u.DecimaliLunghezze);
    u.FattoreForze = FattoreForza(u.UnitaForze, u.DecimaliForze, g);

    short df = 0, dl = 0;
    u.FattoreMomenti = FattoreForza(u.UnitaMomenti, df, g) * FattoreLunghezza(u.UnitaMomenti, dl);
    u.DecimaliMomenti = nonNegativo(df + dl - 1);

    if (Contiene(u.UnitaTensioni, "/")) {
        df = 0, dl = 0;
        const double f = FattoreForza(u.UnitaTensioni, df, g);
        const double l = FattoreLunghezza(u.UnitaTensioni, dl);
        u.FattoreTensioni = l == 0.0 ? 0.0 : f / (l * l);
        u.DecimaliTensioni = nonNegativo(df + 2 * (1 - dl));
    } else {
        u.FattoreTensioni = FattorePressione(u.UnitaTensioni, u.DecimaliTensioni);
    }

    u.FattoreSezioni = FattoreLunghezza(u.UnitaSezioni, u.DecimaliSezioni);

    df = 0, dl = 0;
    const double f = FattoreForza(u.UnitaCarichiSup, df, g);
    const double l = FattoreLunghezza(u.UnitaCarichiSup, dl);
    u.FattoreCarichiSup = l == 0.0 ? 0.0 : f / (l * l);
    u.DecimaliCarichiSup = nonNegativo(df + 4 + 2 * (1 - dl));
}

std::string UnitaSconosciute(const Unita& u) {
    struct Voce {
        const char* chiave;
        const std::string* nome;
        double fattore;
    };
    const Voce voci[] = {{"forze", &u.UnitaForze, u.FattoreForze},
                         {"coppie_momenti", &u.UnitaMomenti, u.FattoreMomenti},
                         {"tensioni", &u.UnitaTensioni, u.FattoreTensioni}};
    std::string elenco;
    for (const Voce& v : voci) {
        if (v.fattore != 0.0) continue;
        elenco += (elenco.empty() ? "" : ", ") + std::string(v.chiave) + " \"" + *v.nome + "\"";
    }
    return elenco;
}

}  // namespace tk07
