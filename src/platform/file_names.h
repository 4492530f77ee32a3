// file_names.h: names of files as this platform forms them, and where a companion file is found.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

#ifdef _WIN32
inline constexpr char sSlash = '\\';  // separates the folders in a path
inline constexpr char sPathListSeparator = ';';
inline constexpr std::string_view sLineEnd = "\r\n";
#else
inline constexpr char sSlash = '/';
inline constexpr char sPathListSeparator = ':';
inline constexpr std::string_view sLineEnd = "\n";
#endif

/// Whether there is a file of that name. A folder is none.
bool IOsFileExists(std::string_view sPath);
/// Bytes of a file, 0 where there is none.
I8 IOsFileSize(std::string_view sPath);

/// The one path that a file has whatever it was called by: from the root on, links resolved.
std::string IOsFullPath(std::string_view sPath);

/// The path of a companion file. The name as given if it exists, else the first in byte order of the names in its
/// folder that differ from it in case only, else the name as given.
std::string IOsFindCompanion(std::string_view sPath);

}  // namespace quillan
