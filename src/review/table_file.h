// table_file.h: tables in files, with a comma after each field, the last one as well.
#pragma once

#include <string_view>

#include "base/types.h"
#include "foundations/text_file.h"

namespace quillan {

/// Says in the log what goes into which file.
void Begin_Table(std::string_view sWhat, std::string_view sFile);
void Put_Field(TextWriter& out, std::string_view sField);
/// Puts the file in its place and says so, or why not. Returns 0; 1 it is not there, which is reported.
[[nodiscard]] I4 End_Table(TextWriter& out, std::string_view sFile, std::string_view sDone);

}  // namespace quillan
