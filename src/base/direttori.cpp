#include "base/direttori.h"

#include <array>

#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

std::array<const std::string*, 9> Elenco(const Direttori& d) {
    return {&d.dirImpostazioni, &d.dirProgra,     &d.dirDriver, &d.dirCustom, &d.dirHelp,
            &d.dirManuali,      &d.dirVideocorso, &d.dirTemp,   &d.dirMacro2d};
}

// First line of a settings file, trimmed; nothing when it cannot be read.
std::optional<std::string> PrimaRiga(const std::string& percorso) {
    const FileLetto f = LeggiRighe(percorso);
    if (!f.riuscito || f.righe.empty()) return std::nullopt;
    return Taglia(f.righe.front());
}

bool Barra(char c) { return c == '\\' || c == '/'; }

}  // namespace

std::string LeggiDiroot(std::string_view riga) {
    if (riga.size() <= 10) return {};
    constexpr std::string_view kCampo = "|diroot=";
    const std::string minuscola = Minuscolo(riga);
    const std::size_t p = minuscola.find(kCampo);
    if (p == std::string::npos) return {};
    const std::size_t da = p + kCampo.size();
    const std::size_t chiusa = minuscola.find('|', da);
    if (chiusa == std::string::npos) return {};
    return Taglia(std::string_view(minuscola).substr(da, chiusa - da));
}

void ImpostaDirettori(Direttori& d) {
    d.dirImpostazioni = d.dirRoot + "\\impostazioni";
    d.dirProgra = d.dirRoot + "\\progra";
    d.dirDriver = d.dirRoot + "\\driver";
    d.dirCustom = d.dirRoot + "\\custom";
    d.dirHelp = d.dirRoot + "\\Help";
    d.dirManuali = d.dirRoot + "\\Manuali";
    d.dirVideocorso = d.dirRoot + "\\videocorso";
    d.dirTemp = d.dirRoot + "\\temp";
    d.dirMacro2d = d.dirRoot + "\\macro_2d";
    d.dirModuli.clear();
    for (const char* m : {"ac_pareti", "kx_plm", "tirante", "colonna", "abete"}) {
        d.dirModuli.push_back(d.dirCustom + "\\" + m);
    }
}

short DirettoriPresenti(const Direttori& d) {
    for (const std::string* dir : Elenco(d)) {
        if (!EsisteDirettorio(*dir)) return 1;
    }
    return 0;
}

std::string ElencoDirettori(const Direttori& d) {
    std::string t;
    for (const std::string* dir : Elenco(d)) {
        if (!t.empty()) t += "\n";
        t += PercorsoMostrato(*dir);
    }
    return t;
}

bool RisolviDirettori(const Avvio& avvio, Direttori& d, const Piattaforma& p) {
    const auto fallito = [&](const std::string& testo, const char* titolo = "ERRORE") {
        MostraErrore(p, testo, titolo);
        return false;
    };
    d = Direttori{};
    d.dirRoot = avvio.diroot ? Taglia(*avvio.diroot) : LeggiDiroot(avvio.rigaComando);
    if (d.dirRoot.empty()) {
        const std::string proprio = Taglia(avvio.dirProgramma);
        constexpr std::size_t kCoda = 7;  // "\progra"
        const std::string coda =
            proprio.size() < kCoda ? "" : Minuscolo(proprio.substr(proprio.size() - kCoda));
        if (coda.empty() || !Barra(coda[0]) || coda.substr(1) != "progra") {
            return fallito("Il direttorio della applicazione deve terminare con \\progra",
                           kTitoloProgramma);
        }
        d.dirRoot = proprio.substr(0, proprio.size() - kCoda);
    }
    const auto mancanti = [&] {
        return fallito("Uno dei seguenti direttori non è presente o non è accessibile:\n" +
                       ElencoDirettori(d));
    };
    if (d.dirRoot.size() < 3) {
        ImpostaDirettori(d);
        return mancanti();
    }
    if (Barra(d.dirRoot.back())) d.dirRoot.pop_back();
    d.dirImpostazioni = d.dirRoot + "\\impostazioni";

    const auto dirlav =
        avvio.dirLavori ? avvio.dirLavori : PrimaRiga(d.dirImpostazioni + "\\dirlav");
    if (!dirlav || NumeroCaratteri(*dirlav) < 9) {
        return fallito(PercorsoMostrato(d.dirImpostazioni + "\\dirlav") + " errato o mancante.");
    }
    d.dirLavoro = *dirlav;
    if (!Barra(d.dirLavoro.back())) d.dirLavoro += "\\";
    const std::string senza = d.dirLavoro.substr(0, d.dirLavoro.size() - 1);
    if (!FinisceCon(Minuscolo(senza), "lavori")) {
        return fallito("Il direttorio dei lavori deve terminare con < ...\\lavori >.");
    }
    if (avvio.lavoro && NumeroCaratteri(*avvio.lavoro) != 6) {
        return fallito("Il lavoro " + *avvio.lavoro + " non esiste: il nome ha sei caratteri.");
    }
    // A job lies in the jobs' directory, nowhere else.
    if (avvio.lavoro && avvio.lavoro->find_first_of("\\/:") != std::string::npos) {
        return fallito("Il lavoro " + *avvio.lavoro +
                       " non esiste: il nome di un lavoro non contiene percorsi.");
    }
    const auto lavoro = avvio.lavoro ? avvio.lavoro : PrimaRiga(d.dirImpostazioni + "\\lavoro");
    if (!lavoro || NumeroCaratteri(*lavoro) != 6) {
        return fallito(PercorsoMostrato(d.dirImpostazioni + "\\lavoro") + " errato o mancante.");
    }
    d.nomeLavoro = *lavoro;
    d.dirLavoro += d.nomeLavoro;
    if (avvio.lavoro && !EsisteDirettorio(d.dirLavoro)) {
        return fallito("Il lavoro " + d.nomeLavoro +
                       " non esiste: " + PercorsoMostrato(d.dirLavoro));
    }
    ImpostaDirettori(d);
    return DirettoriPresenti(d) == 1 ? mancanti() : true;
}

}  // namespace tk07
