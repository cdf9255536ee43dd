// The option panel, made at run time from the rows of the options file, and the colour panel.

#include <algorithm>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "session/gestori.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

constexpr int kColori = 10;  // colours of the drawing's table

bool DiTipo(const RigaOpzione& r, std::string_view tipo) {
    return tipo == "OPTI" ? r.Tipo.rfind("OPTI", 0) == 0 : r.Tipo == tipo;
}

// Label and choices of a row: "label;choice;choice".
std::vector<std::string> Parti(const RigaOpzione& r) { return Dividi(r.Etichetta, ';'); }

std::string Nome(const char* base, std::size_t riga) { return base + std::to_string(riga); }

void CreaControlli(Sessione& s) {
    Pannello& p = s.FormOpz_Cond;
    for (std::size_t i = 0; i < s.opz.Righe.size(); ++i) {
        const RigaOpzione& r = s.opz.Righe[i];
        if (!RigaPerProgramma(r.Programmi)) continue;
        const std::vector<std::string> parti = Parti(r);
        const auto aggiungi = [&](const std::string& nome, TipoControllo tipo) -> Controllo& {
            return p.controlli[nome] = NuovoControllo(tipo, "", parti.front().c_str());
        };
        if (DiTipo(r, "TEXT")) {
            aggiungi(Nome("LabP", i), TipoControllo::etichetta).testo = r.Etichetta;
            aggiungi(Nome("TextP", i), TipoControllo::campo).testo = TestoNumero(r.Valore);
        } else if (DiTipo(r, "CHECK")) {
            Controllo& c = aggiungi(Nome("checkP", i), TipoControllo::casella);
            c.testo = r.Etichetta;
            c.valore = r.Valore != 0.0 ? 1 : 0;
        } else if (DiTipo(r, "LABC")) {
            aggiungi(Nome("LabP", i), TipoControllo::etichetta).testo = r.Etichetta;
            Controllo& c = aggiungi(Nome("LabColP", i), TipoControllo::etichetta);
            c.valore = static_cast<int>(std::clamp(Arrotonda(r.Valore, 0), -2e9, 2e9));
            c.testo = TestoNumero(r.Valore);
        } else if (DiTipo(r, "OPTI")) {
            aggiungi(Nome("FrameP", i), TipoControllo::etichetta).testo = parti.front();
            for (std::size_t k = 1; k < parti.size(); ++k) {
                Controllo& c =
                    aggiungi(Nome("OptP", i) + "_" + std::to_string(k - 1), TipoControllo::opzione);
                c.testo = Taglia(parti[k]);
                c.valore = r.Valore == static_cast<double>(k - 1) ? 1 : 0;
            }
        }
    }
}

// Row that a run-time control belongs to, -1 for none: the digits behind the letters.
int RigaDi(const std::string& nome) {
    const std::size_t p = nome.find_first_of("0123456789");
    return p == std::string::npos ? -1 : static_cast<int>(ValoreIniziale(nome.substr(p)));
}

void MostraGruppo(Sessione& s, int gruppo) {
    const GuardiaAggiornamento guardia(s);
    SelezionaVoce(s.FormOpz_Cond["ListaGruppi"], gruppo);
    for (auto& [nome, c] : s.FormOpz_Cond.controlli) {
        const int riga = RigaDi(nome);
        if (riga >= 0) c.visibile = s.opz.Righe[static_cast<std::size_t>(riga)].Gruppo == gruppo;
    }
}

void Costruisci(Sessione& s) {
    Pannello& p = s.FormOpz_Cond;
    p = Pannello{};
    p.titolo = "Opzioni";
    Controllo gruppi = NuovoControllo(TipoControllo::lista, "", "Gruppi di opzioni");
    gruppi.voci = s.opz.Gruppi;
    p.controlli["ListaGruppi"] = gruppi;
    p.controlli["OpzOK"] =
        NuovoControllo(TipoControllo::pulsante, "OK", "Salva le opzioni e chiude");
    p.controlli["OpzAnnulla"] =
        NuovoControllo(TipoControllo::pulsante, "Annulla", "Chiude senza cambiare le opzioni");
    CreaControlli(s);
    MostraGruppo(s, s.opz.Gruppi.empty() ? -1 : 0);
}

// Panel to rows. A text without a number counts 0, as everywhere on the panels.
void AggiornaOpzioni(const Pannello& p, Opzioni& opz) {
    for (std::size_t i = 0; i < opz.Righe.size(); ++i) {
        RigaOpzione& r = opz.Righe[i];
        if (!RigaPerProgramma(r.Programmi)) continue;
        if (DiTipo(r, "TEXT")) {
            const std::string& testo = p[Nome("TextP", i)].testo;
            if (testo != TestoNumero(r.Valore)) r.Valore = ValoreIniziale(testo);
        }
        if (DiTipo(r, "CHECK")) r.Valore = p[Nome("checkP", i)].valore != 0 ? 1.0 : 0.0;
        if (DiTipo(r, "LABC")) r.Valore = p[Nome("LabColP", i)].valore;
        if (DiTipo(r, "OPTI")) {
            for (std::size_t k = 1; k < Parti(r).size(); ++k) {
                if (p[Nome("OptP", i) + "_" + std::to_string(k - 1)].valore != 0) {
                    r.Valore = static_cast<double>(k - 1);
                }
            }
        }
    }
}

void Premi(Sessione& s, const NomeControllo& n) {
    if (n.base == "OpzOK") {
        AggiornaOpzioni(s.FormOpz_Cond, s.opz);
        SalvaOpzioni(s.dir.dirCustom + "\\OpzioniNodi.txt", s.opz, s.piattaforma);
        s.RisultatiValidi = false;
    }
    ChiudiPannello(s, kGestoreFormOpz_Cond);
}

void Campo(Sessione& s, const NomeControllo& n, const std::string& testo, int tasto) {
    Controllo& c = s.FormOpz_Cond[n.base];
    c.testo = testo;
    if (tasto == 27) {
        c.testo = TestoNumero(s.opz.Righe[static_cast<std::size_t>(RigaDi(n.base))].Valore);
    }
}

void Voce(Sessione& s, const NomeControllo&, int indice) { MostraGruppo(s, indice); }

void Casella(Sessione& s, const NomeControllo& n, int valore) {
    s.FormOpz_Cond[n.base].valore = valore != 0 ? 1 : 0;
}

void Opzione(Sessione& s, const NomeControllo& n) {
    const std::string gruppo = n.base.substr(0, n.base.find('_') + 1);
    for (auto& [nome, c] : s.FormOpz_Cond.controlli) {
        if (nome.rfind(gruppo, 0) == 0) c.valore = nome == n.base ? 1 : 0;
    }
}

// A click on a colour label opens the colour panel for its row.
void Clic(Sessione& s, const NomeControllo& n) {
    if (n.base.rfind("LabColP", 0) != 0) return;
    s.coloreInMano = n.base;
    ApriPannello(s, kGestoreFormColori);
}

void CostruisciColori(Sessione& s) {
    Pannello& p = s.FormColori;
    p = Pannello{};
    p.titolo = "Colori";
    for (int i = 0; i < kColori; ++i) {
        Controllo c = NuovoControllo(TipoControllo::pulsante, "", "Sceglie questo colore");
        c.testo = std::to_string(i);
        c.valore = i;
        p.controlli[ConIndice("Colore", i)] = c;
    }
    p.controlli["ColoriAnnulla"] =
        NuovoControllo(TipoControllo::pulsante, "Annulla", "Chiude senza cambiare il colore");
}

void PremiColore(Sessione& s, const NomeControllo& n) {
    if (n.base == "Colore" && s.FormOpz_Cond.Ha(s.coloreInMano)) {
        Controllo& c = s.FormOpz_Cond[s.coloreInMano];
        c.valore = n.indice;
        c.testo = std::to_string(n.indice);
    }
    ChiudiPannello(s, kGestoreFormColori);
}

}  // namespace

const GestorePannello kGestoreFormOpz_Cond = {
    .nome = "FormOpz_Cond",
    .pannello = &Sessione::FormOpz_Cond,
    .costruisci = Costruisci,
    .premi = Premi,
    .campo = Campo,
    .voce = Voce,
    .casella = Casella,
    .opzione = Opzione,
    .clic = Clic,
};

const GestorePannello kGestoreFormColori = {
    .nome = "FormColori",
    .pannello = &Sessione::FormColori,
    .costruisci = CostruisciColori,
    .premi = PremiColore,
};

}  // namespace tk07
