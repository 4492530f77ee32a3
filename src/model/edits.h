// edits.h: the one door through which commands, rules and gestures change the data of the transients.
//
// Readers fill the store and put it in order; from then on every change of a flag or a value goes through here, so that
// one place knows what an edit is. What follows from the data (model/derived, B(t), the order of the store) is no edit.
#pragma once

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// Sets or clears the skip flag of window I of transient j.
inline void Edit_Window_Flag(I4 j, I4 I, L4 bSkip) {
  hTrn(j).bSkip(I) = bSkip;
}

/// Sets or clears the flag of transient j as a whole; those of its windows stay.
inline void Edit_Transient_Flag(I4 j, L4 bSkip) {
  hTrn(j).bSkipTrn = bSkip;
}

/// Gives window I of transient j another value, as Edit_Value(j, I, &Transient::fuVmag, 3.5f).
inline void Edit_Value(I4 j, I4 I, WindowValues Transient::*hValue, R4 fValue) {
  (hTrn(j).*hValue)(I) = fValue;
}

/// Gives the receiver of transient j another position and attitude.
inline void Edit_Position(I4 j, const Array1<R8, 3>& dRxXYZ, const Array1<R4, 3>& fRxHPR) {
  hTrn(j).dRxXYZ = dRxXYZ;
  hTrn(j).fRxHPR = fRxHPR;
}

/// Reverses the polarity of transient j: fuVmag, fBmag and their ranges. Missing values stay missing.
void Edit_Polarity(I4 j);

/// Puts another transient in the place of transient j.
inline void Edit_Transient(I4 j, const Transient& h) {
  hTrn(j) = h;
}

/// Leaves the first N transients in the store.
inline void Edit_Count(I4 N) {
  NTrn = N;
}

}  // namespace quillan
