#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

// The units of the conversion table as a person picks them: quantities (units that convert into
// each other, directly or through others) with their units, as the table spells them.
struct Grandezza {
    std::string nome;                // "Forze", "Momenti", ...
    std::vector<std::string> unita;  // "dan", "kn", ...
};
std::vector<Grandezza> GrandezzeConvertibili();

// "daN*cm" for the table's "dancm".
std::string UnitaMostrata(std::string_view unita);
// The table's spelling of a unit's name as the settings give it ("kN*m" is "knm", "t" is "tf");
// empty when the table has no such unit.
std::string UnitaDaNome(std::string_view nome);

// `valore` of unit `da` in unit `a` (spelled as in the table): the table's factor where it has the
// pair, else the product along the shortest chain of pairs. Nothing when there is no way.
std::optional<double> ConvertiTra(double valore, const std::string& da, const std::string& a);

}  // namespace tk07
