// z_data_type.h: dialog 106: what does a block of a contour file hold?
#pragma once

#include "base/types.h"
#include "foundations/user.h"

namespace quillan {

inline constexpr I4 iDlgZDataType = 106;
inline constexpr I4 iGrdZHeader = 1063;
inline constexpr I4 iRadZDbdt = 1065;
inline constexpr I4 iRadZSkip = 1066;
inline constexpr I4 iMnuZCmp = 1067;
inline constexpr I4 iChkZForAll = 1150;

/// Shows the header of a block, and begins with what was found in it. Without a type when the user cancelled or nobody
/// can be asked.
[[nodiscard]] ZTypeAnswer Z_VerifyDataType(const ZTypeQuestion& hQuestion);

}  // namespace quillan
