#include "review/plot/signed_log.h"

#include <cmath>

namespace quillan {

R4 fAsinh10(R4 fX, R4 fXBase) {
  const R8 dU = R8{fX} / (2.0 * R8{fXBase});
  const R8 dMagnitude = std::log10(std::abs(dU) + std::sqrt(dU * dU + 1.0));
  return static_cast<R4>(fX >= 0.0f ? dMagnitude : -dMagnitude);
}

R4 fSinh10(R4 fY, R4 fXBase) {
  constexpr R4 fYLimit = 32.0f;
  constexpr R4 fVLimit = 1.0E32f;
  const R4 fV = std::abs(fY) >= fYLimit ? std::copysign(fVLimit, fY) : std::pow(10.0f, fY);
  return fXBase * (fV - 1.0f / fV);
}

}  // namespace quillan
