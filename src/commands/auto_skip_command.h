// auto_skip_command.h: the command Auto Skip and its questions, dialog 101.
#pragma once

#include "base/types.h"
#include "processing/auto_skip.h"

namespace quillan {

inline constexpr I4 iDlgAutoSkip = 101;
inline constexpr I4 iFldTWBeg = 1002;
inline constexpr I4 iFldTWEnd = 1003;
inline constexpr I4 iChkErrorFloor = 1005;
inline constexpr I4 iFldErrorFloor = 1006;
inline constexpr I4 iChkNegativeData = 1007;
inline constexpr I4 iChkPositiveSlope = 1008;
inline constexpr I4 iLblForecast = 1013;

/// Asks for the limits and shows what they would do. MTWK: most windows of any transient. Limits are held to the data
/// before the dialog opens; a field that cannot be read keeps its old value. Returns 0; 1 when the user cancelled.
[[nodiscard]] I4 AutoSkip_Edit(I4 MTWK, AutoSkipLimits& hLimits);

/// The command: asks, then applies; the status bar says what that did. Returns 0; 1 without data or when the user
/// cancelled.
[[nodiscard]] I4 AutoSkip_Filter();

}  // namespace quillan
