#pragma once

#include <array>

namespace tk07 {

using Punto2 = std::array<double, 2>;
using Punto3 = std::array<double, 3>;

}  // namespace tk07
