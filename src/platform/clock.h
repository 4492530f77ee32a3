// clock.h: the day of today.
#pragma once

#include "base/types.h"

namespace quillan {

struct Date {
  I4 iYear, iMonth, iDay;
};
/// Today, or the day of SOURCE_DATE_EPOCH (UTC) where that is set, so that files can be reproduced.
Date IOsDate();

}  // namespace quillan
