#include "base/visibile.h"

namespace tk07 {

std::string SenzaControlli(std::string_view testo, Righe righe) {
    std::string r;
    r.reserve(testo.size());
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const auto c = static_cast<unsigned char>(testo[i]);
        const auto dopo = i + 1 < testo.size() ? static_cast<unsigned char>(testo[i + 1]) : 0u;
        const bool alto = c == 0xC2 && dopo >= 0x80 && dopo <= 0x9F;  // U+0080..U+009F
        const bool lecito = righe == Righe::tante && (c == '\n' || c == '\t');
        if (alto || ((c < 0x20 || c == 0x7F) && !lecito)) {
            r += "\xEF\xBF\xBD";
            if (alto) ++i;
        } else {
            r += testo[i];
        }
    }
    return r;
}

}  // namespace tk07
