// average_dialog.h: the groups of repeats one after the other, beside their plots: the user looks for bad repeats, and
// then merges the groups or keeps the flags alone.
#pragma once

#include "base/types.h"

namespace quillan {

// Dialog 109 and its controls.
inline constexpr I4 iDlgAverage = 109;
inline constexpr I4 iLblLeftOut = 1013;
inline constexpr I4 iBtnMergeRepeats = 1053;
inline constexpr I4 iFldGroup = 1057;
inline constexpr I4 iLblGroupCount = 1070;
inline constexpr I4 iBtnSaveSkipFlags = 1071;
inline constexpr I4 iGrdRepeats = 1073;

/// Finds the groups of repeats, shows them, and does what the user then wants: sets skip flags of transients, and puts
/// averages in the place of repeats.
/// Returns 0; 1 there are no repeats, which is said, or the last group had no average and is gone; 2 cancelled; 3 the
/// window was to be closed.
[[nodiscard]] I4 TMD_Average_Dialog();

}  // namespace quillan
