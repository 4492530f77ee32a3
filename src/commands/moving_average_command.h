// moving_average_command.h: the command Moving Average Filter.
#pragma once

#include "base/types.h"

namespace quillan {

/// Smooths the survey; the status bar says how many soundings, how many values were lost, and why it stopped.
/// Returns the status of GMA_Time.
[[nodiscard]] I4 Smooth_Survey();

}  // namespace quillan
