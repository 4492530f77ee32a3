// record_steps.h: the command that begins and ends a record of what the user does, as a session script.
#pragma once

#include "base/types.h"

namespace quillan {

inline constexpr I4 iCmdRecordSteps = 41011;

/// Ends the record that is being written, or asks for a file and begins one. Returns 0; 1 when the file cannot be
/// written, which has been reported.
I4 Record_Steps();

}  // namespace quillan
