// open_survey.h: the one way by which data get into the store.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// Reads a data file into the store: the metadata of its .mde first, then the data by the reader of its extension, then
/// the user's confirmation of the survey configuration; stations are rescaled and the derived data completed.
/// sDataFile becomes the file that a save writes (format_table.h). Without data NTrn is 0. Returns 0; 1 nothing was
/// read, which is reported; 2 or 3 the user cancelled or closed the configuration dialog.
[[nodiscard]] I4 TEM_Read_Data(std::string& sDataFile);

}  // namespace quillan
