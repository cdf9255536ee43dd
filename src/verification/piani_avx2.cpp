// The lanes for machines with AVX2; compiled for them, and called only there.

#include "verification/piani_avx2.h"

#include "verification/nucleo_piani.h"

namespace tk07 {

void RisolviPianiAvx2(const ProblemaPiani& pr, std::size_t quanti, const ColonnePiani& c) {
    NucleoPiani<4>::Risolvi(pr, quanti, c);
}

void ContattiPianiAvx2(const RettangoloPiano& r, std::size_t quanti, const ColonneContatti& c) {
    NucleoPiani<4>::Contatti(r, quanti, c);
}

}  // namespace tk07
