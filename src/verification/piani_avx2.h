#pragma once

#include "verification/piani.h"

namespace tk07 {

// RisolviPiani and ContattiPiani, four load sets at a time. Only on a machine with AVX2.
void RisolviPianiAvx2(const ProblemaPiani& problema, std::size_t quanti, const ColonnePiani& c);
void ContattiPianiAvx2(const RettangoloPiano& r, std::size_t quanti, const ColonneContatti& c);

}  // namespace tk07
