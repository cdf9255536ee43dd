#include "drawing/scrittore_dis.h"

#include "textnum/formatta.h"

namespace tk07 {

void ZonaStampa(std::string& riga, double x) {
    constexpr std::size_t kZona = 14;
    riga.append((kZona - riga.size() % kZona) % kZona, ' ');
    riga.append(TestoGenerale(x)).append(" ");
}

void ScrittoreDisegno::Riga(std::initializer_list<double> numeri) {
    std::string r;
    for (const double x : numeri) ZonaStampa(r, x);
    testo.append(r).append("\n");
}

}  // namespace tk07
