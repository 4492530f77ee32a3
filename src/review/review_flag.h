// review_flag.h: what a review leaves behind: where the user wants to go next.
#pragma once

#include "base/types.h"

namespace quillan {

inline constexpr I4 iFlagSection = 1;  // the section review
inline constexpr I4 iFlagCurve = 2;    // the curve review
inline constexpr I4 iFlagSave = 4;     // out of the review, and save
inline constexpr I4 iFlagExit = 5;     // out of the review

struct ReviewEnd {
  I4 iFlag = 0;
  I4 iError = 0;  // 0; 1 there was nothing to review; 3 the close request
  I4 iTrn = 0;    // the transient that the next review would begin with; 0 after a click that met no point
};

}  // namespace quillan
