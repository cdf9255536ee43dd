#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

// System colours of the panel's fields.
inline constexpr unsigned long kColoreFinestra = 0x80000005UL;
inline constexpr unsigned long kColoreTesto = 0x80000008UL;
inline constexpr unsigned long kRosso = 255UL, kBianco = 0xFFFFFFUL;

enum class TipoControllo {
    etichetta,
    campo,
    lista,
    casella,
    opzione,
    pulsante,
    scorrimento,
    superficie,
    schede,  // pages; `valore` is the page on top
    timer    // `abilitato` while it runs
};

// One control of a panel, as data.
struct Controllo {
    TipoControllo tipo = TipoControllo::etichetta;
    std::string testo;
    int valore = 0;                 // check boxes and options 0/1, scroll bars their position
    int minimo = 0, massimo = 0;    // scroll bars
    std::vector<std::string> voci;  // lists
    int indice = -1;                // selected entry, -1 none
    bool abilitato = true;
    bool visibile = true;
    bool sottolineato = false;
    unsigned long sfondo = kColoreFinestra, colore = kColoreTesto;
    std::string suggerimento;
};

// A panel: control name ("GeoPias(0)") to its state.
struct Pannello {
    std::string titolo;
    bool aperto = false;
    std::map<std::string, Controllo, std::less<>> controlli;

    // The control of that name; an unknown name is a bug.
    Controllo& operator[](std::string_view nome);
    const Controllo& operator[](std::string_view nome) const;
    bool Ha(std::string_view nome) const { return controlli.find(nome) != controlli.end(); }
};

// "GeoPias(3)" of "GeoPias" and 3.
std::string ConIndice(std::string_view base, int indice);
// Splits a control's name: "GeoPias(3)" into "GeoPias" and 3; index -1 for a name without one.
struct NomeControllo {
    std::string base;
    int indice = -1;
};
NomeControllo DividiNome(std::string_view nome);

// Selects the entry that reads exactly `voce`; -1 when there is none.
int PosizioneVoce(const Controllo& lista, std::string_view voce);

}  // namespace tk07
