// review_door.h: the door to the reviews: which one opens, and the way from one to the other until the user leaves.
#pragma once

#include "base/types.h"
#include "review/review_flag.h"

namespace quillan {

// Module state: where the user left the last review, for the next one. TEM_Review_Data keeps it.
struct ReviewDoor {
  I4 iFlag0 = 0;  // the review last open, iFlagSection or iFlagCurve; 0: none yet
  I4 iTrn = 1;    // the transient last shown
};
inline ReviewDoor hDoor;

void TEM_Review_Initialize();

/// The review that opens first: the last one open; at the first time the section review, or the curve review where the
/// first section is a single sounding (its stations differ by at most 0.01), for which a section shows nothing.
I4 TEM_First_Review();

/// Lets the user review until leaving; the main window then has its menu again and is blank. iFlag: iFlagSave or
/// iFlagExit. iError: 0; 1 there is nothing to review, iFlag is then 0.
[[nodiscard]] ReviewEnd TEM_Review_Data();

}  // namespace quillan
