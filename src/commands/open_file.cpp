#include "commands/open_file.h"

#include <optional>

#include "base/program.h"
#include "commands/history_commands.h"
#include "commands/open_survey.h"
#include "commands/recovery.h"
#include "commands/save_survey.h"
#include "commands/session.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "model/tmd_data.h"
#include "platform/arguments.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "toolkit/script/recorder.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr std::string_view sOpenFilter = "Choose TEM *.avg or *.xdb file|*.avg;*.xdb|Choose contour *.Z file|*.z|";

std::string_view First_Word(std::string_view sText) {
  const auto K1 = sText.find_first_not_of(" \t");
  if (K1 == std::string_view::npos) return {};
  return sText.substr(K1, sText.find_first_of(" \t", K1) - K1);
}

std::string Completed(std::string_view sName, std::string_view sFileExt) {
  std::string sFile(sName);
  if (Index_FExt(sFile) == static_cast<I4>(sFile.size())) sFile += sFileExt;
  if (sFile.find(sSlash) != std::string::npos) return sFile;
  return IOsDirName() + sSlash + sFile;
}

I4 Read_Chosen_File(std::string sFile) {
  Recovery_Leave();
  sAvgFile = sFile;
  hSession.sFileName = File_Name(sAvgFile);
  WindowTitle("Quillan " + std::string(sVersion) + " updated " + std::string(sUpdate) + ", data from " +
              hSession.sFileName);
  const I4 iError = TEM_Read_Data(sAvgFile);
  if (bWorkStopped) return iError;  // the data before are put back
  hSession.bUpdateAVG = false;
  Begin_History();
  Show_No_Data();
  Recovery_Begin();
  if (NTrn >= 1) Recent_Add(sFile);
  return iError;
}

/// A record leaves this out, as nothing has changed.
I4 Report_No_File(const std::string& sFile) {
  const RecordPause hPause;
  LogErr({"ERROR: There is no file", sFile, "What is open stays open."});
  return 1;
}

/// The status of the reading; nothing after a save.
std::optional<I4> Read_Unless_Saved(const std::string& sFile) {
  Record_Menu(iCmdOpen);
  if (Saves_First()) return std::nullopt;
  Record_File(sFile);
  return Read_Chosen_File(sFile);
}

/// The file's name where it is there, else that of its first word, in full.
std::string Named_File(std::string_view sCmdLine, std::string_view sFileExt) {
  const std::string_view sName = IOsFileExists(sCmdLine) ? sCmdLine : First_Word(sCmdLine);
  return sName.empty() ? std::string() : Completed(sName, sFileExt);
}

/// Beside the data that are open, else where the last file was.
std::string Where_to_Look() {
  return sAvgFile.empty() ? Recent_Folder() : sAvgFile;
}

I4 Step_to(I4 iStep) {
  const I4 iOffered0 = hRecent.iOffered;
  const std::string sFile = Step_Offered(iStep);
  if (sFile.empty()) return 1;
  if (!IOsFileExists(sFile)) return Report_No_File(sFile);  // it is passed over
  const std::optional<I4> iError = Read_Unless_Saved(sFile);
  if (!iError || bWorkStopped) hRecent.iOffered = iOffered0;
  return iError.value_or(0);
}

}  // namespace

std::string Get_File(std::string_view sCmdLine, std::string_view sFileExt) {
  const std::string sNamed = Named_File(sCmdLine, sFileExt);
  if (IOsFileExists(sNamed)) return sNamed;
  const std::string sFile =
      WSelectFile2(sOpenFilter, iSelectOpen, "Open TEM *.avg or *.xdb file for input", Recent_Folder());
  if (sFile.empty()) Stop_Program();
  return sFile;
}

std::vector<std::string> Named_Files(std::string_view sFileExt) {
  std::vector<std::string> sFile;
  for (I4 I = 1; I <= IOsArguments(); ++I) {
    if (std::string sNamed = Named_File(IOsArgument(I), sFileExt); !sNamed.empty()) sFile.push_back(std::move(sNamed));
  }
  return sFile;
}

I4 Open_File() {
  if (Saves_First()) return 0;
  const std::string sFile =
      WSelectFile2(sOpenFilter, iSelectOpen, "Select TEM *.avg or *.xdb file for input", Where_to_Look());
  if (!sFile.empty()) return Read_Chosen_File(sFile);
  Recovery_Leave();
  NTrn = 0;  // no file, no data: what the window shows is what is in the store
  hSession.bUpdateAVG = false;
  Begin_History();
  Show_No_Data();
  Recovery_Begin();
  return 1;
}

I4 Open_Listed_File(const std::string& sFile) {
  return IOsFileExists(sFile) ? Read_Unless_Saved(sFile).value_or(0) : Report_No_File(sFile);
}

I4 Open_Next_File() {
  return Step_to(1);
}

I4 Open_Previous_File() {
  return Step_to(-1);
}

I4 Open_Dropped_File() {
  return Saves_First() ? 0 : Read_Chosen_File(WDroppedFile());
}

}  // namespace quillan
