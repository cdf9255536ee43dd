#include "guscio/schermo.h"

#include <cstdio>
#include <cstdlib>

#include "base/testo.h"

namespace tk07 {

bool LeggiDimensioni(const std::string& testo, int& larghezza, int& altezza) {
    constexpr double kMassimoLato = 20000.0;
    const std::size_t x = Minuscolo(testo).find('x');
    if (x == std::string::npos) return false;
    const auto l = ValoreStretto(testo.substr(0, x)), a = ValoreStretto(testo.substr(x + 1));
    const auto buono = [](const std::optional<double>& v) {
        return v && *v >= 16.0 && *v <= kMassimoLato && *v == static_cast<int>(*v);
    };
    if (!buono(l) || !buono(a)) return false;
    larghezza = static_cast<int>(*l);
    altezza = static_cast<int>(*a);
    return true;
}

bool ScriviUscita(const std::string& testo) {
    return std::fwrite(testo.data(), 1, testo.size(), stdout) == testo.size() &&
           std::fflush(stdout) == 0;
}

bool SchermoPresente() {
#if defined(__unix__) && !defined(__APPLE__)
    for (const char* nome : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* v = std::getenv(nome);
        if (v != nullptr && *v != '\0') return true;
    }
    return false;
#else
    return true;
#endif
}

}  // namespace tk07
