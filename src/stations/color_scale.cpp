#include "stations/color_scale.h"

#include <algorithm>
#include <cmath>

namespace quillan {

namespace {

constexpr R4 fStepLeast = 0.001f;
constexpr R4 fGrowth[] = {2.0f, 2.5f, 2.0f};  // 1, 2, 5, 10

}  // namespace

ColorScale Stn_CF_Increment(I4 MCFinc, R4 fCFmin, R4 fCFmax, R4 fCFinc) {
  ColorScale h{.fCFmin = fCFmin, .fCFmax = fCFmax, .fCFinc = std::max(fCFinc, fStepLeast)};
  int J = 0;
  const auto Grow = [&] { h.fCFinc *= fGrowth[J++ % 3]; };
  // A step that R4 cannot add to a large value would leave a scale without extent.
  while (h.fCFmin + h.fCFinc <= h.fCFmin) Grow();
  h.fCFmax = std::max(h.fCFmax, h.fCFmin + h.fCFinc);
  if (MCFinc > 0) {
    const auto NSteps = [&] { return Nint((h.fCFmax - h.fCFmin) / h.fCFinc); };
    for (h.NCFinc = NSteps(); h.NCFinc >= MCFinc; h.NCFinc = NSteps()) Grow();
  }
  h.fCFmin = h.fCFinc * std::floor(h.fCFmin / h.fCFinc);
  h.fCFmax = h.fCFinc * std::ceil(h.fCFmax / h.fCFinc);
  return h;
}

}  // namespace quillan
