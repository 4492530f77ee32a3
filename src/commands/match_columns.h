// match_columns.h: dialog 113: which columns of a file feed which variables?
#pragma once

#include "base/types.h"
#include "foundations/user.h"

namespace quillan {

inline constexpr I4 iDlgMatchColumns = 113;
inline constexpr I4 iLblColumnsPrompt = 1077;
inline constexpr I4 iGrdColumns = 1078;

/// False when the user cancelled or nobody can be asked; the columns are then as they were.
[[nodiscard]] bool Match_Columns(const ColumnQuestion& hQuestion);

}  // namespace quillan
