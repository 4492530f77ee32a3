// file_util.h: the parts of a path, and where support files are found.
//
// Positions are counted from 1. The stem of a file is everything up to Index_FExt, and what follows is its extension
// with the point. The whole path is searched for the last point, not the file's name alone.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"
#include "platform/file_names.h"

namespace quillan {

/// Position of the last separator; 0 if there is none.
I4 Index_FileDir(std::string_view sPath);
/// Position at which the file's name begins: 1 for a bare name.
I4 Index_FName(std::string_view sPath);
/// Position of the last character before the extension; the trimmed length of a path without extension.
I4 Index_FExt(std::string_view sPath);

// The same as text.
std::string_view File_Stem(std::string_view sPath);  // sPath(1:Index_FExt)
std::string_view File_Ext(std::string_view sPath);   // what follows it, point included; blank if there is none
std::string_view File_Name(std::string_view sPath);  // from Index_FName on
std::string_view File_Dir(std::string_view sPath);   // up to and with the last separator

/// Folder of the running program with its last separator; blank where it is not known.
[[nodiscard]] std::string Get_Exe_DirPath();

/// Path of a support file: by its own name, beside the program, then in the folders of PATH; blank where it is in none.
[[nodiscard]] std::string Find_File(std::string_view sFileName);

}  // namespace quillan
