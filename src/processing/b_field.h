// b_field.h: B(t) from dB/dt, by integration from the latest window back to the earliest.
//
// Window times are msec and the integral is taken in usec: B = sum of (dB/dt / area) * 1000 * (end - begin).
#pragma once

#include "base/types.h"

namespace quillan {

/// fBmag(I) of every transient by the rectangle rule; a window without a value stays missing and adds nothing, skip
/// flags are not looked at. There is no tail term. iError: 0; 1 when the store is empty.
void dBdt_2_B(I4& iError);

/// fBmag(I) of the Hz transients by the trapezoid rule over unskipped windows, with the tail of a decay that falls as
/// time to the power -2.5 behind the last one. iError: 0; 1 when the store is empty.
void dBzdt_2_Bz(I4& iError);

// The same, the status returned.
[[nodiscard]] inline I4 dBdt_2_B() {
  I4 iError = 0;
  dBdt_2_B(iError);
  return iError;
}
[[nodiscard]] inline I4 dBzdt_2_Bz() {
  I4 iError = 0;
  dBzdt_2_Bz(iError);
  return iError;
}

}  // namespace quillan
