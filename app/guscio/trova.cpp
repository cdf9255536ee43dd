#include "guscio/trova.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <vector>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "modelimport/liste.h"
#include "modelimport/struttura.h"

namespace tk07 {

namespace {

constexpr int kScritto = 0, kGuasto = 2;

std::optional<ModelloStr> Modello(const Direttori& d, const Piattaforma& p) {
    ModelloStr m;
    if (LeggiModello(d.dirLavoro, m, StrVecchia::termina, p) != EsitoStr::bene) return std::nullopt;
    return m;
}

int NumeroNodo(const ModelloStr& m, int interno) {
    for (const NodoStr& n : m.nodi) {
        if (n.interno == interno) return n.numero;
    }
    return 0;
}

bool HaAsta(const ModelloStr& m, int numero) {
    return std::any_of(m.aste.begin(), m.aste.end(),
                       [&](const AstaStr& a) { return a.numero == numero; });
}

void ElencaAste(const ModelloStr& m, const std::vector<int>& quali, std::ostream& uscita) {
    for (const AstaStr& a : m.aste) {
        if (std::find(quali.begin(), quali.end(), a.numero) == quali.end()) continue;
        uscita << "  asta " << a.numero << ": nodi " << NumeroNodo(m, a.interno1) << " e "
               << NumeroNodo(m, a.interno2) << ", sezione " << a.sezione << "\n";
    }
}

// Members with an end at one of the nodes, in file order.
std::vector<int> AsteDeiNodi(const ModelloStr& m, const std::vector<short>& nodi) {
    const auto dentro = [&](int interno) {
        return std::find(nodi.begin(), nodi.end(), NumeroNodo(m, interno)) != nodi.end();
    };
    std::vector<int> aste;
    for (const AstaStr& a : m.aste) {
        if (dentro(a.interno1) || dentro(a.interno2)) aste.push_back(a.numero);
    }
    return aste;
}

std::string Chiedi(const char* domanda, std::istream& ingresso, std::ostream& uscita) {
    uscita << domanda << std::flush;
    std::string riga;
    std::getline(ingresso, riga);
    return Taglia(riga);
}

int ScriviOut(const Direttori& d, const std::string& testo, const Piattaforma& p) {
    const std::string file = d.dirLavoro + "\\TrovaOut.txt";
    const std::string errore = ScriviFile(file, testo, Codifica::windows1252);
    if (errore.empty()) return kScritto;
    MostraErrore(p, PercorsoMostrato(file) + ": " + errore);
    return kGuasto;
}

// The input file, with at least `righe` lines.
std::optional<std::vector<std::string>> Ingresso(const Direttori& d, const char* nome,
                                                 std::size_t righe, const Piattaforma& p) {
    const std::string file = d.dirLavoro + "\\" + nome;
    FileLetto f = LeggiRighe(file);
    if (f.riuscito && f.righe.size() >= righe) return std::move(f.righe);
    MostraErrore(p,
                 PercorsoMostrato(file) + (f.riuscito ? ": file troppo corto" : ": " + f.errore));
    return std::nullopt;
}

}  // namespace

int TrovaAste(const Direttori& d, const std::string& scelta, std::istream& ingresso,
              std::ostream& uscita, const Piattaforma& p) {
    const auto righe = Ingresso(d, "TrovaIn.txt", 3, p);
    const auto m = righe ? Modello(d, p) : std::nullopt;
    if (!m) return kGuasto;
    std::vector<short> nodi;
    if (!LeggiLista((*righe)[1], nodi)) {
        MostraErrore(p, "TrovaIn.txt, riga 2: elenco errato: " + (*righe)[1]);
        return kGuasto;
    }
    const std::vector<int> aste = AsteDeiNodi(*m, nodi);
    std::string testo = scelta;
    if (testo.empty()) {
        uscita << (*righe)[0] << "\n";
        ElencaAste(*m, aste, uscita);
        testo = Chiedi("Aste (vuoto per tutte): ", ingresso, uscita);
        if (testo.empty()) testo = ComponiLista(aste);
    }
    std::vector<short> prese;
    if (!LeggiLista(testo, prese)) {
        MostraErrore(p, "elenco errato: " + testo);
        return kGuasto;
    }
    for (const short numero : prese) {
        if (!HaAsta(*m, numero)) {
            MostraErrore(p, "asta inesistente: " + std::to_string(numero));
            return kGuasto;
        }
    }
    return ScriviOut(d, testo + "\n", p);
}

int TrovaNodi(const Direttori& d, const SceltaNodi& scelta, std::istream& ingresso,
              std::ostream& uscita, const Piattaforma& p) {
    const auto righe = Ingresso(d, "TrovaNIn.txt", 5, p);
    const auto m = righe ? Modello(d, p) : std::nullopt;
    if (!m) return kGuasto;
    SceltaNodi s = scelta;
    if (s.nodi.empty()) {
        uscita << (*righe)[0] << "\n";
        s.nodi = Chiedi("Nodi: ", ingresso, uscita);
    }
    std::vector<short> nodi;
    if (!LeggiLista(s.nodi, nodi) || nodi.empty()) {
        MostraErrore(p, "elenco errato: " + s.nodi);
        return kGuasto;
    }
    for (const short numero : nodi) {
        if (std::none_of(m->nodi.begin(), m->nodi.end(),
                         [&](const NodoStr& n) { return n.numero == numero; })) {
            MostraErrore(p, "nodo inesistente: " + std::to_string(numero));
            return kGuasto;
        }
    }
    if (scelta.nodi.empty()) {
        ElencaAste(*m, AsteDeiNodi(*m, nodi), uscita);
        s.principale =
            Chiedi("Asta della trave principale (vuoto per nessuna): ", ingresso, uscita);
        s.secondaria =
            Chiedi("Asta della trave secondaria (vuoto per nessuna): ", ingresso, uscita);
    }
    std::string testo = s.nodi + "\n";
    for (const auto& [lettera, asta] :
         {std::pair{"P ", &s.principale}, std::pair{"S ", &s.secondaria}}) {
        if (asta->empty()) continue;
        const auto numero = ValoreStretto(*asta);
        if (!numero || *numero != Arrotonda(*numero, 0) || !HaAsta(*m, static_cast<int>(*numero))) {
            MostraErrore(p, "asta inesistente: " + *asta);
            return kGuasto;
        }
        testo += lettera + *asta + "\n";
    }
    return ScriviOut(d, testo, p);
}

}  // namespace tk07
