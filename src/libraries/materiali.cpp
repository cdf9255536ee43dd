#include "libraries/materiali.h"

#include <array>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07 {

namespace {

// Reads the lines of the material file one after the other; past the end there are empty lines.
struct Lettore {
    const std::vector<std::string>& righe;
    std::size_t i = 0;
    bool Finito() const { return i >= righe.size(); }
    std::string Riga() { return Finito() ? (++i, std::string()) : righe[i++]; }
};

// Takes numbers off a line in order; a field that is none leaves its target as it was.
void PrendiNumeri(std::string riga, std::initializer_list<double*> dove) {
    for (double* x : dove) {
        if (const auto v = ValoreStretto(EstraiCampo(riga))) *x = *v;
    }
}

void LeggiAcciaio(Lettore& l, MaterialeRec& rec) {
    rec.Nome = l.Riga();
    rec.Designazione = l.Riga();
    // The file gives the values of thin plates first and then those of thick ones, the record
    // groups them by quantity.
    PrendiNumeri(l.Riga(), {&rec.Samm, &rec.Samm80, &rec.Fyk40, &rec.Ftk40, &rec.Fyk80, &rec.Ftk80,
                            &rec.GammaM, &rec.GammaMT});
}

void LeggiVite(Lettore& l, ViteRec& rec) {
    rec.Nome = Taglia(l.Riga());
    PrendiNumeri(l.Riga(), {&rec.SammVite, &rec.TauAmmVite, &rec.FyVite, &rec.FtVite,
                            &rec.ViteQuinto, &rec.GammaMVite});
}

void LeggiCalcestruzzo(Lettore& l, CalcestruzzoRec& rec) {
    rec.Nome = Taglia(l.Riga());
    PrendiNumeri(l.Riga(), {&rec.Rck, &rec.GammaC});
}

void LeggiAcciaioCa(Lettore& l, AcciaioCaRec& rec, short& flagFormatoVecchio) {
    rec.Nome = Taglia(l.Riga());
    const std::string riga = l.Riga();
    if (ContaCampi(riga) >= 5) {
        PrendiNumeri(riga,
                     {&rec.SammCa, &rec.Primo, &rec.Secondo, &rec.Terzo, &rec.Quinto, &rec.Quarto});
        return;
    }
    // Older form: two values are fixed and not in the file.
    flagFormatoVecchio = 1;
    rec.SammCa = 2550.0;
    rec.Secondo = 5400.0;
    PrendiNumeri(riga, {&rec.Primo, &rec.Terzo, &rec.Quinto, &rec.Quarto});
}

template <class Rec, class Leggi>
void LeggiGruppo(Lettore& l, TabellaMateriali<Rec>& tabella, short& n, Leggi leggi) {
    std::string riga = l.Riga();
    const auto conteggio = ValoreStretto(EstraiCampo(riga));
    n = conteggio && *conteggio >= 0.0 && *conteggio < 32767.5
            ? static_cast<short>(Arrotonda(*conteggio, 0))
            : static_cast<short>(0);
    for (int i = 1; i <= n && !l.Finito(); ++i) {
        Rec oltre;  // rows beyond the table are read and dropped
        leggi(l, i <= kMaxMateriali ? tabella(i) : oltre);
    }
}

template <class Rec>
int IndiceDaNome(const TabellaMateriali<Rec>& tabella, short n, std::string_view nome) {
    for (int i = 1; i <= RigheUtili(n); ++i) {
        if (tabella(i).Nome == nome) return i;
    }
    return 0;
}

}  // namespace

void LeggiMateriali(std::string_view file, Materiali& mat, std::string& messaggioErrore,
                    short& flagFormatoVecchio) {
    messaggioErrore.clear();
    flagFormatoVecchio = 0;
    const FileLetto f = LeggiRighe(file);
    if (!f.riuscito) {
        messaggioErrore =
            "File materiali (" + PercorsoMostrato(file) + ") non trovato o non valido";
        return;
    }
    Lettore l{f.righe};
    while (!l.Finito()) {
        const std::string riga = Maiuscolo(l.Riga());
        if (Contiene(riga, "[ACCIAIO_DA_CARPENTERIA_SEZIONI_APERTE]")) {
            LeggiGruppo(l, mat.AcciaiAperte, mat.nAcciaiAperte, LeggiAcciaio);
        } else if (Contiene(riga, "[ACCIAIO_DA_CARPENTERIA_SEZIONI_CHIUSE]")) {
            LeggiGruppo(l, mat.AcciaiChiuse, mat.nAcciaiChiuse, LeggiAcciaio);
        } else if (Contiene(riga, "[VITI]")) {
            LeggiGruppo(l, mat.Viti, mat.nViti, LeggiVite);
        } else if (Contiene(riga, "[CALCESTRUZZI]")) {
            LeggiGruppo(l, mat.Calcestruzzi, mat.nCalcestruzzi, LeggiCalcestruzzo);
        } else if (Contiene(riga, "[ACCIAIO_DA_CA]")) {
            LeggiGruppo(l, mat.AcciaiCa, mat.nAcciaiCa, [&](Lettore& ll, AcciaioCaRec& rec) {
                LeggiAcciaioCa(ll, rec, flagFormatoVecchio);
            });
        }
    }
}

int IndiceAcciaio(const Materiali& mat, std::string_view nome) {
    return mat.SezioniChiuse ? IndiceDaNome(mat.AcciaiChiuse, mat.nAcciaiChiuse, nome)
                             : IndiceDaNome(mat.AcciaiAperte, mat.nAcciaiAperte, nome);
}

int IndiceVite(const Materiali& mat, std::string_view nome) {
    return IndiceDaNome(mat.Viti, mat.nViti, nome);
}

int CercaAcciaioDaNome(const Materiali& mat, std::string_view nome, const Piattaforma& p) {
    const int i = IndiceDaNome(mat.AcciaiAperte, mat.nAcciaiAperte, nome);
    if (i == 0) MostraErrore(p, "Tipo acciaio non trovato.", "RICERCA TIPO ACCIAIO DA NOME");
    return i;
}

int CercaViteDaNome(const Materiali& mat, std::string_view nome, const Piattaforma& p) {
    const int i = IndiceVite(mat, nome);
    if (i == 0) MostraErrore(p, "Tipo vite non trovato.", "RICERCA TIPO VITE DA NOME");
    return i;
}

bool MaterialeValido(Metodo metodo, std::string_view tipo, const MaterialeRec& rec) {
    if (metodo == Metodo::TA) return rec.Samm > 0.0 && rec.Samm80 > 0.0;
    if (tipo == "BULLONI") return rec.Ftk40 > 0.0 && rec.Ftk80 > 0.0;
    if (tipo == "PROFILI") return rec.Fyk40 > 0.0 && rec.Fyk80 > 0.0;
    return false;
}

std::vector<std::string> ListaMateriali(Metodo metodo, std::string_view tipo, short n,
                                        const TabellaMateriali<MaterialeRec>& tabella) {
    std::vector<std::string> voci;
    for (int i = 1; i <= RigheUtili(n); ++i) {
        if (MaterialeValido(metodo, tipo, tabella(i))) voci.push_back(tabella(i).Nome);
    }
    return voci;
}

int AlternativaMateriale(Metodo metodo, std::string_view tipo, std::string_view nomeCorrente,
                         short n, const TabellaMateriali<MaterialeRec>& tabella) {
    for (int i = 1; i <= RigheUtili(n); ++i) {
        const std::string& nome = tabella(i).Nome;
        if (MaterialeValido(metodo, tipo, tabella(i)) && nome != nomeCorrente &&
            (Contiene(nome, nomeCorrente) || Contiene(nomeCorrente, nome))) {
            return i - 1;
        }
    }
    return 0;
}

ListaConScelta RiempiListaMateriali(Metodo metodo, std::string_view tipo,
                                    std::string_view nomeCorrente, short n,
                                    const TabellaMateriali<MaterialeRec>& tabella,
                                    const Piattaforma& p) {
    ListaConScelta r;
    r.voci = ListaMateriali(metodo, tipo, n, tabella);
    if (r.voci.empty()) return r;
    r.indice = 0;
    if (nomeCorrente.empty()) return r;
    for (std::size_t i = 0; i < r.voci.size(); ++i) {
        if (r.voci[i] == nomeCorrente) {
            r.indice = static_cast<int>(i);
            return r;
        }
    }
    MostraAvviso(p,
                 std::string("Materiale non possibile per verifiche ") +
                     (metodo == Metodo::TA ? "alle tensioni ammissibili" : "agli stati limite") +
                     ". Verrà impostato un altro tipo di acciaio.\r"
                     "Da questo momento in poi il materiale impostato sarà ricordato anche se si "
                     "cambia il metodo di verifica.",
                 "ATTENZIONE!");
    const int posizione = AlternativaMateriale(metodo, tipo, nomeCorrente, n, tabella);
    if (posizione < static_cast<int>(r.voci.size())) {
        r.indice = posizione;
    } else {
        r.indice = -1;  // a position beyond the list selects nothing
    }
    return r;
}

}  // namespace tk07
