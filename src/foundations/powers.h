// powers.h: the powers of ten that an R8 holds exactly, with which numbers are read and written.
#pragma once

#include <iterator>

#include "base/types.h"

namespace quillan {

inline constexpr R8 dPower10[] = {1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,  1E8,  1E9,  1E10, 1E11,
                                  1E12, 1E13, 1E14, 1E15, 1E16, 1E17, 1E18, 1E19, 1E20, 1E21, 1E22};
inline constexpr I4 MPower10 = static_cast<I4>(std::size(dPower10)) - 1;

/// A number times a power of ten from -MPower10 to MPower10, rounded once.
inline R8 Times_Power10(R8 dValue, I4 iPower) {
  return iPower < 0 ? dValue / dPower10[-iPower] : dValue * dPower10[iPower];
}

}  // namespace quillan
