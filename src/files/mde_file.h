// mde_file.h: metadata files (.mde): the plain-text companion of a data set.
//
//   ! Orrin basin, line 12                     comment
//   $ Job.Name = "Orrin basin"                 keyword record: $ name = value
//   $ Narvo: Contour.Inc = 5                   a record of another program, known by the name before the colon
//
// A record has at most 128 characters when it is read and 80 when it is carried over in an update. Comments begin with
// ! \ / or ' when the file is read; in an update a double quote stands in place of the apostrophe, so that a line in
// apostrophes is a plain line there and is kept as well.
//
// The file stands below the data file: it supplies only what that leaves open (priority 1 against 2).
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

inline constexpr I4 MMdeRecord = 128;  // characters of a record
inline constexpr I4 MMdeUpdate = 80;   // of which an update keeps

/// Reads a metadata file into the metadata groups, with priority 1. A file that does not exist: the user may choose
/// another, which sMdeFile then names. With or without a file the station scaling in MdStn gets its fallbacks: recorded
/// numbers from 0 in steps of 1, rescaled numbers like the recorded ones.
/// Returns 0 read; 1 no file was chosen, or it could not be opened.
[[nodiscard]] I4 MDE_Read(std::string& sMdeFile);

/// Brings a metadata file up to date with the survey record. The user is asked before an existing file is changed.
/// Returns 0; 1 blank name, the user declined, or the file could not be written.
[[nodiscard]] I4 MDE_Update(std::string_view sMdeFile);

/// The update without the question: the survey record first, then what the old file, if there is one, holds of other
/// programs and of the user's own. Lines of our own keywords, lines marked with our name and lines of fewer than three
/// characters go. Returns 0; 1 a failure, which leaves the old file whole and is reported.
[[nodiscard]] I4 MDE_Rewrite(std::string_view sMdeFile);

}  // namespace quillan
