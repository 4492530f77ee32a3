#include "foundations/file_util.h"

#include <algorithm>

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

void Get_Exe_DirPath(std::string& sDirPath, I4& iError) {
  iError = 0;
  const std::string sProgram = IOsArgument(0);
  sDirPath = File_Dir(sProgram);
}

namespace {

bool Is_Found(std::string_view sDir, std::string_view sFileName, std::string& sFileSpec) {
  sFileSpec.assign(sDir).append(sFileName);
  return IOsFileExists(sFileSpec);
}

bool Is_Found_On_Path(std::string_view sFileName, std::string& sFileSpec) {
  const std::string sPathList = IOsVariable("PATH");
  std::string_view sRest = Trimmed(sPathList);
  while (!sRest.empty()) {
    const std::string_view sEntry = sRest.substr(0, sRest.find(sPathListSeparator));
    if (Is_Found(std::string(Trimmed(sEntry)) + sSlash, sFileName, sFileSpec)) return true;
    sRest.remove_prefix(std::min(sEntry.size() + 1, sRest.size()));
  }
  return false;
}

}  // namespace

void Find_File(std::string_view sFileName, std::string& sFileSpec, I4& iError) {
  iError = 0;
  const std::string sName(Trimmed(sFileName));
  std::string sProgramDir;
  Get_Exe_DirPath(sProgramDir, iError);
  if (!sName.empty() && Is_Found({}, sName, sFileSpec)) return;
  if (!sName.empty() && Is_Found(sProgramDir, sName, sFileSpec)) return;
  if (!sName.empty() && Is_Found_On_Path(sName, sFileSpec)) return;
  sFileSpec.clear();
  iError = 1;
}

}  // namespace quillan
