#include "foundations/log_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <span>

#include "base/program.h"
#include "foundations/file_util.h"
#include "foundations/user.h"
#include "platform/file_names.h"
#include "platform/folders.h"

namespace quillan {

std::ofstream hLogFile;

void Stop_Program() {
  Log_Close();
  hUser.Leave();
  throw ProgramStop{};
}

namespace {

bool Is_Removed(const std::string& sPath) {
  std::error_code hProblem;
  if (std::filesystem::is_directory(sPath, hProblem)) return false;
  std::filesystem::remove(sPath, hProblem);
  return !hProblem || hProblem == std::errc::no_such_file_or_directory;
}

}  // namespace

I4 Log_Initialize(std::string_view sFileStem) {
  Log_Close();
  std::string sDir(File_Dir(sFileStem));
  if (sDir.empty()) sDir = IOsDirName() + sSlash;
  const std::string sStem = sDir.append(File_Stem(File_Name(sFileStem)));
  sLogFile = sStem + ".log";
  sErrFile = sStem + ".err";
  NErr = NTextBuffer = 0;
  bQuietErr = false;
  return Is_Removed(sLogFile) && Is_Removed(sErrFile) ? 0 : 1;
}

void Log_Close() {
  if (hLogFile.is_open()) hLogFile.close();
}

void LogErr_Begin_Command() {
  bQuietErr = false;
}

void LogText_Reset() {
  NTextBuffer = 0;
}

void LogText(std::string_view sText) {
  LogText_File(sText);
  if (NTextBuffer >= MTextBuffer) {
    std::shift_left(sTextBuffer.begin(), sTextBuffer.end(), 1);
    NTextBuffer = MTextBuffer - 1;
  }
  sTextBuffer(++NTextBuffer) = sText;
  hUser.Show_Line(sText);
}

namespace {

/// Lines go after those that are there, so that a log that was closed loses nothing.
void Open_Log_File() {
  const bool bNew = !IOsFileExists(sLogFile);
  hLogFile.clear();
  hLogFile.open(sLogFile, std::ios::app | std::ios::binary);
  if (bNew) hLogFile << sPrgName << " v" << sVersion << " updated " << sUpdate << sLineEnd;
}

}  // namespace

void LogText_File(std::string_view sText) {
  if (!hLogFile.is_open()) Open_Log_File();
  hLogFile << Trimmed(sText) << sLineEnd << std::flush;
}

namespace {

std::span<const std::string> First_Lines(const ErrorLines& sError) {
  return std::span(sError).first(std::min(sError.size(), static_cast<std::size_t>(MError)));
}

void Write_Report(const ErrorLines& sError) {
  const bool bNew = !IOsFileExists(sErrFile);
  std::ofstream out(sErrFile, std::ios::app | std::ios::binary);
  if (bNew) out << ' ' << sPrgName << " v" << sVersion << sLineEnd;
  out << ' ' << sLineEnd;
  for (const std::string& sLine : First_Lines(sError)) out << ' ' << Trimmed(sLine) << sLineEnd;
}

void Log_Report(const ErrorLines& sError) {
  LogText("");
  for (const std::string& sLine : First_Lines(sError)) LogText(sLine);
  LogText("");
}

void Show_Report(const ErrorLines& sError) {
  std::string sErrText;
  for (const std::string& sLine : First_Lines(sError)) {
    if (!sErrText.empty()) sErrText += '\n';
    sErrText += Cut_Text(Trimmed(sLine), MErrText);
  }
  const AfterReport iAnswer = hUser.Tell(sErrText);
  if (iAnswer == AfterReport::Stop) Stop_Program();
  bQuietErr = iAnswer == AfterReport::Quiet;
}

}  // namespace

void LogErr(const ErrorLines& sError) {
  Write_Report(sError);
  if (bAutoErr)
    Log_Report(sError);
  else if (!bQuietErr)
    Show_Report(sError);
}

void LogErr_File(const ErrorLines& sError) {
  ++NErr;
  if (NErr < MErr) Write_Report(sError);
  if (NErr == MErr) Write_Report({"More than 128 error messages, no further messages will be logged."});
}

}  // namespace quillan
