// auto_skip_command.h: the command Auto Skip and its questions.
#pragma once

#include "base/types.h"
#include "processing/auto_skip.h"

namespace quillan {

/// Asks for the limits in dialog 101. MTWK: most windows of any transient. Limits are held to the data before the
/// dialog opens; a field that cannot be read keeps its old value. iError: 0; 1 the user cancelled.
void AutoSkip_Edit(I4 MTWK, AutoSkipLimits& hLimits, I4& iError);

/// The command: asks, then applies. iError: 0; 1 without data or when the user cancelled.
void AutoSkip_Filter(I4& iError);

}  // namespace quillan
