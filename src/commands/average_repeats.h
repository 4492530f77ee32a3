// average_repeats.h: the command Average Repeats: repeats become one transient, and the data an averaged file.
#pragma once

#include "base/types.h"

namespace quillan {

/// Shows the groups of repeats and merges them where the user wants it. Afterwards the current data file is the .avg
/// beside the file that was read, which the next save leaves alone if it was an .xdb. B(t), ranges and depths stay as
/// averaged.
/// Returns the status of TMD_Average_Dialog.
[[nodiscard]] I4 Average_Repeats();

}  // namespace quillan
