// open_file.h: which data file the user wants: by the command line, the command Open, or a drop on the window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "commands/recent_files.h"

namespace quillan {

inline constexpr I4 iCmdOpen = 40005;

/// The path of the first data file: sCmdLine as a whole if a file has that name, else its first word, completed by
/// sFileExt where it has no extension and by the working folder where it has no folder. Without such a file the user
/// chooses one, and Cancel ends the program.
[[nodiscard]] std::string Get_File(std::string_view sCmdLine, std::string_view sFileExt);

/// The files of the command line in full, completed in the same way, whether they are there or not.
[[nodiscard]] std::vector<std::string> Named_Files(std::string_view sFileExt);

/// The command: asks for a file and reads it. Changed data may be saved first; then nothing is opened.
/// Returns the status of TEM_Read_Data; 1 when the user cancelled, which empties the store; 0 after a save.
[[nodiscard]] I4 Open_File();

/// The same for the file that was dropped last.
[[nodiscard]] I4 Open_Dropped_File();

/// The same for a file of a list; a record of steps has it as Open with that file. Returns 1 as well for one that is
/// not there, which is reported; the data then stay.
[[nodiscard]] I4 Open_Listed_File(const std::string& sFile);
/// File I of the menu; the file after or before the one of the command line that was opened last.
template <I4 I>
[[nodiscard]] I4 Open_Recent_File() {
  return Open_Listed_File(Recent_File(I));
}
[[nodiscard]] I4 Open_Next_File();
[[nodiscard]] I4 Open_Previous_File();

}  // namespace quillan
