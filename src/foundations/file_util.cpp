#include "foundations/file_util.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "platform/arguments.h"
#include "platform/file_names.h"

namespace quillan {

I4 Index_FileDir(std::string_view sPath) {
  return static_cast<I4>(sPath.rfind(sSlash) + 1);  // nowhere + 1 is 0
}

I4 Index_FName(std::string_view sPath) {
  return Index_FileDir(sPath) + 1;
}

I4 Index_FExt(std::string_view sPath) {
  const std::size_t iPoint = sPath.rfind('.');  // counted from 0: the position before it, counted from 1
  const bool bHasStem = iPoint != std::string_view::npos && iPoint > 0;
  return static_cast<I4>(bHasStem ? iPoint : Trimmed(sPath).size());
}

std::string_view File_Stem(std::string_view sPath) {
  return sPath.substr(0, static_cast<std::size_t>(Index_FExt(sPath)));
}

std::string_view File_Ext(std::string_view sPath) {
  return Trimmed(sPath.substr(static_cast<std::size_t>(Index_FExt(sPath))));
}

std::string_view File_Name(std::string_view sPath) {
  return Trimmed(sPath.substr(static_cast<std::size_t>(Index_FileDir(sPath))));
}

std::string_view File_Dir(std::string_view sPath) {
  return sPath.substr(0, static_cast<std::size_t>(Index_FileDir(sPath)));
}

std::string Get_Exe_DirPath() {
  return std::string(File_Dir(IOsArgument(0)));
}

namespace {

/// The folders that a support file may stand in, each with its last separator, in the order of the search.
std::vector<std::string> Support_Folders() {
  std::vector<std::string> sFolder{"", Get_Exe_DirPath()};
  const std::string sPathList = IOsVariable("PATH");
  std::string_view sRest = Trimmed(sPathList);
  while (!sRest.empty()) {
    const std::string_view sEntry = sRest.substr(0, sRest.find(sPathListSeparator));
    sFolder.push_back(std::string(Trimmed(sEntry)) + sSlash);
    sRest.remove_prefix(std::min(sEntry.size() + 1, sRest.size()));
  }
  return sFolder;
}

}  // namespace

std::string Find_File(std::string_view sFileName) {
  const std::string_view sName = Trimmed(sFileName);
  if (sName.empty()) return {};
  for (std::string sPath : Support_Folders()) {
    if (IOsFileExists(sPath.append(sName))) return sPath;
  }
  return {};
}

}  // namespace quillan
