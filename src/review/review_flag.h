// review_flag.h: what a review leaves behind: where the user wants to go next.
#pragma once

#include "base/types.h"

namespace quillan {

inline constexpr I4 iFlagSection = 1;  // the section review
inline constexpr I4 iFlagCurve = 2;    // the curve review
inline constexpr I4 iFlagSave = 4;     // out of the review, and save
inline constexpr I4 iFlagExit = 5;     // out of the review

}  // namespace quillan
