// folders.h: the folders that the program works in.
#pragma once

#include <string>
#include <string_view>

namespace quillan {

/// The working folder, without a separator at its end.
std::string IOsDirName();

/// A file or folder of those that come with the program, by its name under share/quillan: beside the program, as in a
/// build, or under the prefix that the program is installed in, wherever that was moved to. Blank where there is none.
std::string Shared_File(std::string_view sName);

/// Where a document of those that come with the program stands, by its name under share/doc/quillan of the same place,
/// whether it is there or not.
std::string Document_File(std::string_view sName);

/// Where a program keeps what outlives its runs and is no file of the user's: $XDG_STATE_HOME, else ~/.local/state.
/// Blank where neither is known.
std::string IOsStateDir();

/// Makes a folder, and those that it stands in. False: it could not be made.
bool IOsMakeDir(std::string_view sFolder);

/// A file that is kept for the user from run to run, by its name: in the folder quillan of $XDG_CONFIG_HOME or, where
/// that is not set or no full path, of ~/.config. Blank where neither is known.
std::string Config_File(std::string_view sName);

}  // namespace quillan
