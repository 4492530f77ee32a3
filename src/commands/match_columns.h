// match_columns.h: dialog 113: which columns of a file feed which variables?
#pragma once

#include "foundations/user.h"

namespace quillan {

inline constexpr I4 iLblColumnsPrompt = 1077;

/// False when the user cancelled or nobody can be asked; the columns are then as they were.
[[nodiscard]] bool Match_Columns(const ColumnQuestion& hQuestion);

}  // namespace quillan
