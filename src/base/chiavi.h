#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

// Keyed line: value, blanks to column 40 (at least one), "[key]", a blank, comment; trimmed.
// `chiave` holds the index behind one blank where the key has one ("BPiastra 1").
std::string ScriviChiave(std::string_view valore, std::string_view chiave,
                         std::string_view commento = {});

// A line made ready for many key tests.
struct RigaChiave {
    explicit RigaChiave(std::string_view riga);
    std::string testo;      // trimmed
    std::string minuscola;  // the same, lower case
};

// What a line has for a key.
struct ValoreChiave {
    std::string valore;         // the trimmed text before the bracket
    std::vector<short> indici;  // up to 11 whole numbers behind the key
    std::string guasto;         // why an index cannot be told (beyond 16 bits); the rest is empty
};
// None unless the line carries the key: "[" + key, then a blank or "]", then a "]". Case does not
// count.
std::optional<ValoreChiave> LeggiChiave(const RigaChiave& riga, std::string_view chiaveMinuscola);

// Finds `nome=` in a bracketed line such as "[Release=18] [Descrizione=...]"; every character of
// `separatori` bounds a parameter. Lines below 4 characters hold none.
bool LeggiParametro(std::string_view riga, std::string_view nome, std::string& valore,
                    std::string_view fine, std::string_view separatori);

// Cuts the first word off `testo` and returns it; tabs count as the separator.
std::string TogliParola(std::string& testo, char separatore = ' ');

}  // namespace tk07
