#include "files/save_report.h"

#include "foundations/file_util.h"

namespace quillan {

I4 Report_Not_Saved(ErrorLines sError, std::string_view sFile, const std::string& sReason) {
  const std::string sName(File_Name(sFile));
  hSaveState.sFailed = sName;
  if (!sReason.empty()) {
    hSaveState.sFailed += ": " + sReason;
    sError.push_back(sReason);
  }
  if (hSaveState.sSaved.empty())
    sError.push_back("The data are not saved; choose Save again.");
  else
    sError.push_back("The data file " + hSaveState.sSaved + " is saved, " + sName + " is not; choose Save again.");
  LogErr(sError);
  return 1;
}

Progress Writing(std::string_view sFile, I8 NItem) {
  const Stoppable iStoppable = hSaveState.sSaved.empty() ? Stoppable::Yes : Stoppable::No;
  return Progress("Writing " + std::string(File_Name(sFile)), "soundings", NItem, 1, iStoppable);
}

}  // namespace quillan
