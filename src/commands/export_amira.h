// export_amira.h: the AMIRA files of a save, and the question before an earlier one is replaced.
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

/// Writes the store into AMIRA files. Before a .tem file that exists is replaced the user is asked: No leads to another
/// name, which the channel file takes too, and Cancel there writes nothing.
/// Returns 0; 1 when a file was not written, which is reported unless the user gave it up.
[[nodiscard]] I4 Export_AMIRA(std::string_view sAmrFile);

}  // namespace quillan
