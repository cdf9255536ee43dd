#include "norme/distanze.h"

namespace tk07 {

namespace {

constexpr std::array<double, 2> kBordoNtc{1.2, 1.2}, kPassoNtc{2.4, 2.2};

constexpr RegolaDistanze kEsposto{kBordoNtc, kPassoNtc, true, 4.0, 4.0, 40.0, 0.0, 14.0, 200.0};
constexpr RegolaDistanze kNonEsposto{kBordoNtc, kPassoNtc, false, 0.0, 0.0, 0.0, 0.0, 14.0, 200.0};
constexpr RegolaDistanze kResistente{kBordoNtc, kPassoNtc, true, 8.0, 8.0, 0.0, 125.0, 14.0, 175.0};
constexpr RegolaDistanze kCnr{{1.5, 2.0}, {3.0, 3.0}, true, 6.0, 9.0, 0.0, 0.0, 15.0, kSenzaLimite};

}  // namespace

double RegolaDistanze::BordoMassimo(double t, bool irrigidito) const {
    if (!bordoLimitato) return kSenzaLimite;
    const double d = (irrigidito ? bordoIrrigiditoPerT : bordoPerT) * t + bordoPiu;
    return bordoAlmeno > 0.0 ? Max(bordoAlmeno, d) : d;
}

double RegolaDistanze::PassoMassimo(double tMin) const {
    return Min(passoPerT * tMin, passoAssoluto);
}

const RegolaDistanze& RegolaDi(Norma norma, short esposizione) {
    if (norma == Norma::CNR) return kCnr;
    return esposizione == 0 ? kEsposto : esposizione == 1 ? kNonEsposto : kResistente;
}

}  // namespace tk07
