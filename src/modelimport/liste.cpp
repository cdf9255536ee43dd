#include "modelimport/liste.h"

#include <charconv>
#include <limits>

#include "base/testo.h"

namespace tk07 {

namespace {

// Takes a whole number, with the blanks before and behind it, off the front of `testo`.
bool TogliIntero(std::string& testo, long& x) {
    testo = Taglia(testo);
    const char* inizio = testo.data();
    const auto r = std::from_chars(inizio, inizio + testo.size(), x);
    if (r.ec != std::errc() || x < std::numeric_limits<short>::min() ||
        x > std::numeric_limits<short>::max()) {
        return false;
    }
    testo = Taglia(testo.substr(static_cast<std::size_t>(r.ptr - inizio)));
    return true;
}

// One entry, "a" or "a-b".
bool LeggiIntervallo(std::string voce, long& da, long& a) {
    if (!TogliIntero(voce, da)) return false;
    a = da;
    if (voce.empty()) return true;
    if (voce.front() != '-') return false;
    voce.erase(0, 1);
    return TogliIntero(voce, a) && voce.empty();
}

}  // namespace

EsitoLista EsaminaLista(std::string_view testo, std::vector<short>& voci) {
    std::vector<short> lette;
    bool troppe = false;
    if (!Taglia(testo).empty()) {
        for (const std::string& voce : Dividi(testo, ',')) {
            long da = 0, a = 0;
            if (!LeggiIntervallo(voce, da, a)) return EsitoLista::errata;
            for (long x = da; x <= a && !troppe; ++x) {
                troppe = lette.size() == kMassimoVoci;
                if (!troppe) lette.push_back(static_cast<short>(x));
            }
        }
    }
    if (troppe) return EsitoLista::eccessiva;
    voci = std::move(lette);
    return EsitoLista::buona;
}

bool LeggiLista(std::string_view testo, std::vector<short>& voci) {
    return EsaminaLista(testo, voci) == EsitoLista::buona;
}

std::string ComponiLista(const std::vector<int>& voci) {
    std::string t;
    for (const int x : voci) t.append(t.empty() ? "" : ",").append(std::to_string(x));
    return t;
}

}  // namespace tk07
