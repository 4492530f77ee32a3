// merge_data.h: the command Merge Data.
#pragma once

#include "base/types.h"

namespace quillan {

/// Asks how early-time and late-time records are to be merged (review/merge_edit.h), then does so; window sets and
/// pseudosections are found again, since transients have gone. The status bar says what it did. A single transient has
/// nothing to be merged with: nothing is asked.
/// Returns 0; 1 without data, which is reported; 2 on Cancel, 3 where the main window was to be closed.
[[nodiscard]] I4 MergeChn();

}  // namespace quillan
