// edits.h: the one door through which commands, rules and gestures change the data of the transients.
//
// Readers fill the store and put it in order; from then on every change of a flag or a value goes through here, so that
// one place knows what an edit is.
#pragma once

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// Sets or clears the skip flag of window I of transient j.
void Edit_Window_Flag(I4 j, I4 I, L4 bSkip);
/// Sets or clears the flag of transient j as a whole; those of its windows stay.
void Edit_Transient_Flag(I4 j, L4 bSkip);
/// Reverses the polarity of transient j: fuVmag, fBmag and their ranges. Missing values stay missing.
void Edit_Polarity(I4 j);
/// Gives window I of transient j another value, as Edit_Value(j, I, &Transient::fuVmag, 3.5f).
void Edit_Value(I4 j, I4 I, WindowValues Transient::*hValue, R4 fValue);

}  // namespace quillan
