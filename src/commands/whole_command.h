// whole_command.h: a command that runs out of memory or is stopped leaves the data as they were, and the program goes
// on.
#pragma once

#include "base/types.h"

namespace quillan {

/// What becomes of the data when a command does not come to its end.
enum class Unfinished {
  PutBack,  // they are as they were before it
  Stay      // it does not change them, or by hand, edit by edit: each that was made stays
};

/// Carries a command out. Returns its status; 1 when it ran out of memory or was stopped by the
/// user, which is reported.
[[nodiscard]] I4 Run_Whole(I4 (*Carry_Out)(), Unfinished iUnfinished);

}  // namespace quillan
