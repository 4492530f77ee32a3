// clock.h: the day of today, and the time of day.
#pragma once

#include "base/types.h"

namespace quillan {

struct Date {
  I4 iYear, iMonth, iDay;
};
/// Today, or the day of SOURCE_DATE_EPOCH (UTC) where that is set, so that files can be reproduced.
Date IOsDate();

/// Seconds since 1970 (UTC) of now, or of SOURCE_DATE_EPOCH where that is set.
I8 IOsTime();

/// A moment on the user's clock; in UTC where SOURCE_DATE_EPOCH is set.
struct Moment {
  Date hDate;
  I4 iHour, iMinute, iSecond;
};
Moment IOsMoment(I8 iTime);

}  // namespace quillan
