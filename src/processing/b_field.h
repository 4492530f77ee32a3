// b_field.h: B(t) from dB/dt, by integration from the latest window back to the earliest.
//
// Window times are msec and the integral is taken in usec: B = sum of (dB/dt / area) * 1000 * (end - begin).
#pragma once

#include "base/types.h"

namespace quillan {

/// fBmag(I) of every transient by the rectangle rule; a window without a value stays missing and adds nothing, skip
/// flags are not looked at. There is no tail term. Returns 0; 1 when the store is empty, which is reported.
[[nodiscard]] I4 dBdt_2_B();

/// fBmag(I) of the Hz transients by the trapezoid rule over unskipped windows, with the tail of a decay that falls as
/// time to the power -2.5 after the last one. Returns 0; 1 when the store is empty, which is reported.
[[nodiscard]] I4 dBzdt_2_Bz();

}  // namespace quillan
