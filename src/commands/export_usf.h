// export_usf.h: the USF file of a save, and the stations that it needs.
#pragma once

#include <string_view>

#include "base/types.h"
#include "files/usf_file.h"

namespace quillan {

// Module state: the layout of the last save, which the next one begins with; the box stands in dialog 104.
inline UsfLayout iUsfLayout = UsfLayout::Soundings;
inline constexpr I4 iChkUsfSweeps = 1121;

/// Writes the soundings of the store into a USF file. Without a station table the station file beside it is read
/// first, or one that the user chooses, and the receivers take their positions from it.
/// Returns 0; 1 when there is nothing that the format takes, no station file, or the file could not be written.
[[nodiscard]] I4 Export_USF(std::string_view sUsfFile);

}  // namespace quillan
