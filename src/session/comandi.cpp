// The table of commands: from a control's name to its operation.

#include <cmath>
#include <iterator>

#include "base/file_testo.h"
#include "base/testo.h"
#include "joint/controlla_dati.h"
#include "session/pannello_insdati.h"
#include "session/sessione.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

void Apri(Sessione& s) {
    RichiestaFile r;
    r.modo = ModoFile::apri;
    r.estensione = "tk7";
    r.filtro = kFiltroNodo;
    r.direttorio = s.dir.dirLavoro;
    const auto scelto = s.piattaforma.scegliFile(r);
    if (scelto && !scelto->percorso.empty()) ApriNodo(s, scelto->percorso);
}

bool DatiErrati(Sessione& s) {
    if (!ControllaDati(s.nodo, s.opz, s.piattaforma)) return false;
    MostraAvviso(s.piattaforma, "Il salvataggio non è possibile!");
    return true;
}

void Salva(Sessione& s) {
    if (DatiErrati(s)) return;
    ScriviFileNodo(s.nodo, s.dir.dirLavoro + "\\" + s.nomeFile + ".tk7", s.piattaforma);
}

void SalvaConNome(Sessione& s) {
    if (DatiErrati(s)) return;
    RichiestaFile r;
    r.modo = ModoFile::salva;
    r.estensione = "tk17";  // Kept on purpose: the default extension of this dialog.
    r.filtro = kFiltroNodo;
    r.direttorio = s.dir.dirLavoro;
    r.chiediSovrascrittura = true;
    const auto scelto = s.piattaforma.scegliFile(r);
    if (!scelto || scelto->percorso.empty()) return;
    if (!ScriviFileNodo(s.nodo, scelto->percorso, s.piattaforma)) return;
    s.nomeFile = NomeBase(scelto->percorso);
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, s.nomeFile + ".tk7");
}

void AggiornaDisBull(Sessione& s) { RicalcolaNervatura3(s.nodo); }

void ApriGuida(Sessione& s) {
    const std::string guida = s.dir.dirRoot + "\\help\\HelpTK07.pdf";
    s.piattaforma.avvia("EXPLORER.EXE", {PercorsoPiattaforma(guida)}, true);
}

void Chiudi(Sessione& s) {
    s.piattaforma.puntatore(11);
    s.fine = true;
}

struct Comando {
    const char* controllo;
    void (*operazione)(Sessione&);
};

constexpr Comando kComandi[] = {
    {"Car_Nodo", Apri},
    {"Bt_salva", Salva},
    {"Bt_salva_con_nome", SalvaConNome},
    {"VerificaButt", VerificaSessione},
    {"CheckMatBase", ApplicaMaterialeBase},
    {"AggiornaDisBull", AggiornaDisBull},
    {"LegendaButt", ApriGuida},
    {"Chiudi", Chiudi},
};

// Why the control cannot be used, or the empty text.
std::string NonUsabile(const Sessione& s, const std::string& nome, TipoControllo tipo) {
    if (!s.InsDati.aperto || !s.InsDati.Ha(nome)) return "controllo sconosciuto: " + nome;
    const Controllo& c = s.InsDati[nome];
    if (c.tipo != tipo) return "il controllo " + nome + " non è di questo tipo";
    if (!c.visibile) return "controllo non visibile: " + nome;
    if (!c.abilitato) return "controllo non abilitato: " + nome;
    return {};
}

// Index in the load table of the row that a control belongs to.
int SestettoDellaRiga(const Sessione& s, int riga) {
    return static_cast<int>(ValoreIniziale(s.InsDati[ConIndice("Lb_sol_num", riga)].testo)) - 1;
}

double FattoreAzione(const Sessione& s, const AzioneSestetto& a) {
    return a.momento ? s.unita.FattoreMomenti : s.unita.FattoreForze;
}

void ValutaAzione(Sessione& s, const AzioneSestetto& a, int riga, double valore) {
    double& memorizzato = (s.nodo.*a.tabella)(SestettoDellaRiga(s, riga));
    // Kept on purpose: the value as shown is compared with the stored one, unconverted.
    if (!(std::fabs(memorizzato - valore) > 0.0001)) return;
    const double fattore = FattoreAzione(s, a);
    if (fattore == 0.0) {
        MostraAvviso(s.piattaforma,
                     "Unità di misura sconosciuta in parametrilavoro: il valore non può essere "
                     "convertito.");
        return;
    }
    memorizzato = valore / fattore;
}

// TbValuta: takes the field's text into the joint.
void Valuta(Sessione& s, const NomeControllo& nome, const std::string& testo) {
    const double valore = ValoreIniziale(testo);
    const AzioneSestetto azione = CampoAzione(nome.base);
    if (double* x = CampoGeometria(s.nodo, nome.base, nome.indice); x != nullptr) {
        *x = valore;
    } else if (azione.tabella != nullptr) {
        ValutaAzione(s, azione, nome.indice, valore);
    } else if (nome.base == "Tb_sol_descr") {
        std::string& descrizione = s.nodo.NomeSa(SestettoDellaRiga(s, nome.indice));
        if (Taglia(testo) != Taglia(descrizione)) descrizione = testo;
    }
    s.RisultatiValidi = false;
    pnn1_aggiorna_NervaturePiastre(s);
    pnn1_aggiorna_BulloniSaldature(s);
    pnn1_aggiorna_sollecitazioni(s, -1);
}

// TbRipristina: the stored value back into the field.
void Ripristina(Sessione& s, const std::string& controllo, const NomeControllo& nome) {
    const AzioneSestetto azione = CampoAzione(nome.base);
    std::string& testo = s.InsDati[controllo].testo;
    if (const double* x = CampoGeometria(s.nodo, nome.base, nome.indice); x != nullptr) {
        testo = TestoNumero(*x);
    } else if (azione.tabella != nullptr) {
        testo = TestoNumero((s.nodo.*azione.tabella)(SestettoDellaRiga(s, nome.indice)) *
                            FattoreAzione(s, azione));
    } else if (nome.base == "Tb_sol_descr") {
        testo = s.nodo.NomeSa(SestettoDellaRiga(s, nome.indice));
    }
}

void VoceScelta(Sessione& s, const std::string& nome, int indice) {
    Nodo& n = s.nodo;
    s.RisultatiValidi = false;
    if (nome == "TraveP" || nome == "TraveS") {
        (nome == "TraveP" ? n.TraPri : n.TraSec) = s.profili.Profili(indice + 1);
        pnn1_aggiorna_profili(s, 1, 1);
    } else if (nome == "Cb_Acciaio") {
        // Kept on purpose: the position in the filtered list is taken as the row of the table.
        n.acciaio = s.mat.AcciaiAperte(indice + 1);
        pnn1_aggiorna_materiali(s);
    } else if (nome == "Cviti") {
        n.vite = s.mat.Viti(indice + 1);
        pnn1_aggiorna_materiali(s);
    } else if (nome == "ComboEsposizione") {
        n.Esposizione = static_cast<short>(indice);
        pnn1_aggiorna_materiali(s);
    }
}

}  // namespace

std::string PremiPulsante(Sessione& s, const std::string& nome) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::pulsante); !e.empty()) return e;
    for (const Comando& c : kComandi) {
        if (nome == c.controllo) {
            EseguiComando(s, [&] { c.operazione(s); });
            return {};
        }
    }
    return "comando sconosciuto: " + nome;
}

std::string ScriviCampo(Sessione& s, const std::string& nome, const std::string& testo, int tasto) {
    const NomeControllo n = DividiNome(nome);
    if (n.base == "GeoPias" && n.indice == 1) return {};  // no binding: nothing happens
    if (std::string e = NonUsabile(s, nome, TipoControllo::campo); !e.empty()) return e;
    EseguiComando(s, [&] {
        s.InsDati[nome].testo = testo;
        try {
            if (tasto == 27) {
                Ripristina(s, nome, n);
            } else if (tasto == 13 || tasto == 0) {
                Valuta(s, n, testo);
            }
        } catch (const ErroreFatale& e) {
            throw ErroreFatale(e.what(), e.Dove().empty() ? "campo " + nome : e.Dove());
        }
    });
    return {};
}

std::string ScegliVoce(Sessione& s, const std::string& nome, int indice) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::lista); !e.empty()) return e;
    if (indice < 0 || indice >= static_cast<int>(s.InsDati[nome].voci.size())) {
        return "indice fuori dalla lista " + nome + ": " + std::to_string(indice);
    }
    EseguiComando(s, [&] { VoceScelta(s, nome, indice); });
    return {};
}

std::string ScegliVoce(Sessione& s, const std::string& nome, const std::string& voce) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::lista); !e.empty()) return e;
    const int indice = PosizioneVoce(s.InsDati[nome], voce);
    if (indice < 0) return "voce assente dalla lista " + nome + ": " + voce;
    return ScegliVoce(s, nome, indice);
}

std::string ImpostaCasella(Sessione& s, const std::string& nome, int valore) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::casella); !e.empty()) return e;
    const NomeControllo n = DividiNome(nome);
    EseguiComando(s, [&] {
        s.InsDati[nome].valore = valore != 0 ? 1 : 0;
        s.RisultatiValidi = false;
        if (n.base == "CasCar") {
            s.nodo.CasoCarico(SestettoDellaRiga(s, n.indice)) =
                static_cast<short>(valore != 0 ? 1 : 0);
        } else {
            s.nodo.AttNerv(nome == "CheckNervatura1" ? 1 : 2) = valore == 1;
            pnn1_aggiorna_NervaturePiastre(s);
        }
    });
    return {};
}

std::string ScegliOpzione(Sessione& s, const std::string& nome) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::opzione); !e.empty()) return e;
    EseguiComando(s, [&] { ScegliMetodo(s, nome == "TipoVer(0)" ? Metodo::TA : Metodo::SLU); });
    return {};
}

std::string Scorri(Sessione& s, const std::string& nome, int valore) {
    if (std::string e = NonUsabile(s, nome, TipoControllo::scorrimento); !e.empty()) return e;
    const Controllo& barra = s.InsDati[nome];
    if (valore < barra.minimo || valore > barra.massimo) {
        return "valore fuori dai limiti di " + nome + ": " + std::to_string(valore);
    }
    EseguiComando(s, [&] { pnn1_aggiorna_sollecitazioni(s, valore); });
    return {};
}

}  // namespace tk07
