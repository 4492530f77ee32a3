// save_report.h: how far a save has come, so that a failure says what is saved and what is not.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"

namespace quillan {

struct SaveState {
  std::string sSaved;   // name of the data file that is written; blank: none yet
  std::string sFailed;  // the file that could not be written, and why; blank: none
};

// Module state. The save clears it as it begins and names the data file; Report_Not_Saved names what failed.
inline SaveState hSaveState;

/// Reports a file that could not be written, and whether the data file is saved nevertheless. sReason: in words, blank
/// when sError says it. Returns 1, the status of a failed writer.
[[nodiscard]] I4 Report_Not_Saved(ErrorLines sError, std::string_view sFile, const std::string& sReason);

/// The work of writing NItem soundings into a file. As soon as one file of the save is in its place the others have to
/// follow: a save that was stopped has written nothing.
Progress Writing(std::string_view sFile, I8 NItem);

}  // namespace quillan
