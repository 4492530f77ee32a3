// igr_util.h: what all plots share.
#pragma once

#include "base/types.h"

namespace quillan {

/// A logical as the number that a toolkit call wants, and back: true is 1, and a number above 0 is true.
constexpr I4 iIntLog(L4 bValue) {
  return bValue ? 1 : 0;
}
constexpr L4 bLogInt(I4 iValue) {
  return iValue > 0;
}

}  // namespace quillan
