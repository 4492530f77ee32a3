// ticks.h: the ticks of an axis on the signed logarithmic scale (signed_log.h).
#pragma once

#include <string>
#include <vector>

#include "base/types.h"

namespace quillan {

/// Positions on the scale, rising, and the text of each.
struct Ticks {
  std::vector<R4> fYTick;
  std::vector<std::string> sYTick;
};

/// At most MYTick ticks of an axis of base fYPscl between the positions fYPmin and fYPmax. They stand at zero and at
/// the decades on either side, from the one nearest to the base on; where fewer than three of them (or MYTick) lie in
/// the range, at 1, 2 and 5 of each decade as well; where that does not do either, at tidy steps.
Ticks Asinh10_Ticks(R4 fYPmin, R4 fYPmax, R4 fYPscl, I4 MYTick);

/// The same ticks, zero first: its text has room before those of the decades beside it, for it tells where a curve
/// changes its sign.
Ticks Zero_First(Ticks hTick);

}  // namespace quillan
