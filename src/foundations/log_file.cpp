#include "foundations/log_file.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "base/program.h"
#include "foundations/file_util.h"
#include "foundations/text_file.h"
#include "toolkit/dialog.h"
#include "toolkit/draw.h"
#include "toolkit/messages.h"
#include "toolkit/script.h"
#include "toolkit/system.h"
#include "toolkit/window.h"

namespace quillan {

std::ofstream hLogFile;

void Stop_Program() {
  Log_Close();
  WindowClose();
  throw ProgramStop{};
}

namespace {

void Remove_Old_File(const std::string& sPath, I4& IOERR) {
  std::error_code hProblem;
  if (std::filesystem::is_directory(sPath, hProblem)) IOERR = 1;
  if (IOERR == 0) std::filesystem::remove(sPath, hProblem);
  if (hProblem && hProblem != std::errc::no_such_file_or_directory) IOERR = 1;
}

}  // namespace

void Log_Initialize(std::string_view sFileStem, I4& IOERR) {
  IOERR = 0;
  Log_Close();
  std::string sDir(File_Dir(sFileStem));
  if (sDir.empty()) {
    IOsDirName(sDir);
    sDir += sSlash;
  }
  const std::string sStem = sDir.append(File_Stem(File_Name(sFileStem)));
  sLogFile = sStem + ".log";
  sErrFile = sStem + ".err";
  NErr = NWErr = NTextBuffer = 0;
  bQuietErr = false;
  Remove_Old_File(sLogFile, IOERR);
  Remove_Old_File(sErrFile, IOERR);
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
  if (Script_Is_Playing()) std::cout << Trimmed(sText) << std::endl;  // a line at a time, also into a pipe
  LogText_Screen(sText);
}

namespace {

/// Lines go behind those that are there, so that a log that was closed loses nothing.
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

void LogText_Screen(std::string_view sText) {
  if (NTextBuffer >= MTextBuffer) {
    std::shift_left(sTextBuffer.begin(), sTextBuffer.end(), 1);
    NTextBuffer = MTextBuffer - 1;
  }
  sTextBuffer(++NTextBuffer) = sText;
  LogText_Update();
}

namespace {

/// Bytes of the longest beginning of sText, in whole characters and at least one, that is at most fWidth long.
std::size_t Longest_Beginning(std::string_view sText, R4 fWidth, const std::function<R4(std::string_view)>& fLength) {
  std::size_t NFit = 1;
  while (Cut_Text(sText, NFit).empty()) ++NFit;  // the first character
  std::size_t NTooLong = sText.size();
  while (NTooLong > NFit + 1) {
    const std::size_t NHalf = (NFit + NTooLong) / 2;
    (fLength(Cut_Text(sText, NHalf)) <= fWidth ? NFit : NTooLong) = NHalf;
  }
  return std::max(Cut_Text(sText, NFit).size(), std::size_t{1});
}

/// The first piece of a line: it ends before a blank where there is one, and the blanks between go.
std::string_view Take_Piece(std::string_view& sRest, R4 fWidth, const std::function<R4(std::string_view)>& fLength) {
  std::size_t NPiece = sRest.size();
  if (fLength(sRest) > fWidth) {
    NPiece = Longest_Beginning(sRest, fWidth, fLength);
    const std::size_t iWord = sRest.find_first_not_of(' ');
    const std::size_t iBlank = sRest.rfind(' ', NPiece);
    if (iBlank != std::string_view::npos && iBlank > iWord) NPiece = iBlank;
  }
  const std::string_view sPiece = Trimmed(sRest.substr(0, NPiece));
  sRest = Left_Adjusted(sRest.substr(NPiece));
  return sPiece;
}

}  // namespace

std::vector<std::string_view> Lines_That_Fit(std::span<const Text<128>> sLine, I4 NRow, R4 fWidth,
                                             const std::function<R4(std::string_view)>& fLength) {
  std::vector<std::string_view> sRow;
  for (const Text<128>& sText : sLine) {
    std::string_view sRest = sText.trimmed();
    do sRow.push_back(Take_Piece(sRest, fWidth, fLength));
    while (!sRest.empty());
  }
  const std::ptrdiff_t NHidden = static_cast<std::ptrdiff_t>(sRow.size()) - std::max(NRow, 0);
  if (NHidden > 0) sRow.erase(sRow.begin(), sRow.begin() + NHidden);
  return sRow;
}

namespace {

constexpr R4 fTenPoints = 0.3528f;  // cm
constexpr R4 fWidthOfHeight = 4.0f / 9.0f;

/// Units of the drawing area: centimetres of a screen of the assumed width.
struct TextArea {
  R4 fXCMT, fYCMT;
};

TextArea Text_Area() {
  const R4 fXWindow = static_cast<R4>(WInfoWindow(iWindowWidth));
  const R4 fYWindow = static_cast<R4>(WInfoWindow(iWindowHeight));
  const R4 fXScreen = static_cast<R4>(WInfoScreen(iScreenWidth));
  const R4 fXCMT = fXCMScreen * fXWindow / fXScreen;
  return {fXCMT, fXCMT * fYWindow / fXWindow};
}

void Draw_Text(const TextArea& hArea) {
  const R4 fC10Y = fTenPoints / hArea.fYCMT;
  WGrTextFont(fC10Y * fWidthOfHeight, fC10Y);
  WGrTextOrientation(Justify::Left, 0.0f);
  IGrColour("BLACK");
  const R4 fDXGr = InfoGraphics(iCharWidth);
  const R4 fDYGr = InfoGraphics(iCharHeight);
  if (!(fDYGr > 0.0f)) return;
  const I4 NRow = static_cast<I4>(hArea.fYCMT / fDYGr);
  const std::span<const Text<128>> sLine(sTextBuffer.data(), static_cast<std::size_t>(NTextBuffer));
  R4 fYGr = hArea.fYCMT + 0.5f * fDYGr;  // a text stands about the middle of its row: the first row is whole
  for (const std::string_view sRow : Lines_That_Fit(sLine, NRow, hArea.fXCMT - 2.0f * fDXGr, WGrTextLength)) {
    fYGr -= fDYGr;
    if (!sRow.empty()) WGrTextString(fDXGr, fYGr, sRow);
  }
}

}  // namespace

void LogText_Update() {
  if (WInfoWindow(iWindowDrawable) == 0 || WInfoWindow(iWindowWidth) <= 0 || WInfoWindow(iWindowHeight) <= 0) return;
  if (WInfoScreen(iScreenWidth) <= 0) return;
  const R4 fXMin = WInfoGrReal(iUnitXMin), fYMin = WInfoGrReal(iUnitYMin);
  const R4 fXMax = WInfoGrReal(iUnitXMax), fYMax = WInfoGrReal(iUnitYMax);
  const TextArea hArea = Text_Area();
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, hArea.fXCMT, hArea.fYCMT);
  WindowClear();
  Draw_Text(hArea);
  IGrUnits(fXMin, fYMin, fXMax, fYMax);  // the reviews use the whole area as well: only the units are theirs
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

}  // namespace

void LogErr(const ErrorLines& sError) {
  Write_Report(sError);
  LogErr_Screen(sError);
}

void LogErr_File(const ErrorLines& sError) {
  ++NErr;
  if (NErr < MErr) Write_Report(sError);
  if (NErr == MErr) Write_Report({"More than 128 error messages, no further messages will be logged."});
}

namespace {

void Log_Report(const ErrorLines& sError) {
  LogText("");
  for (const std::string& sLine : First_Lines(sError)) LogText(sLine);
  LogText("");
}

void Show_Report(const ErrorLines& sError) {
  std::string sErrText;
  for (const std::string& sLine : First_Lines(sError)) {
    if (!sErrText.empty()) sErrText += '\n';
    sErrText += Cut_Text(Trimmed(sLine), static_cast<std::size_t>(MErr));
  }
  if (WInfoWindow(iWindowDrawable) == 0) {
    std::cerr << sErrText << std::endl;
    return;
  }
  WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, sErrText, "ERROR", true);
  if (WMessageBoxQuiet()) bQuietErr = true;
  if (WInfoDialog(iExitButtonCommon) == iAnswerNo) Stop_Program();
}

}  // namespace

void LogErr_Screen(const ErrorLines& sError) {
  if (bAutoErr) {
    Log_Report(sError);
  } else if (!bQuietErr) {
    Show_Report(sError);
  }
}

void Message_Check(I4& iFlag) {
  iFlag = 0;
  MessageType iType = MessageType::None;
  Message hMessage;
  for (;;) {
    WMessagePeek(iType, hMessage);
    switch (iType) {
      case MessageType::None:
      case MessageType::Key:
      case MessageType::MouseDown: return;
      case MessageType::Expose:
      case MessageType::Resize:
        LogText_Update();
        iFlag = 1;
        break;
      case MessageType::Close: Stop_Program();
      case MessageType::FileDropped: iFlag = 2; break;
      default: break;
    }
  }
}

void Message_Pause(I4& iType, I4& iValue1) {
  iType = iValue1 = 0;
  MessageType iKind = MessageType::None;
  Message hMessage;
  while (iKind != MessageType::Key && iKind != MessageType::MouseDown) {
    WMessage(iKind, hMessage);
    if (iKind == MessageType::Close) Stop_Program();
  }
  iType = static_cast<I4>(iKind);
  iValue1 = hMessage.VALUE1;
}

namespace {
constexpr I4 MWErr = 20;  // toolkit errors that a run may have
}

void InqWintError(std::string_view sTraceBack) {
  const I4 iCode = InfoError(iInfoLastError);
  if (iCode == iErrNone) return;
  std::string sWhere = "Graphics ERROR";
  if (!Trimmed(sTraceBack).empty()) sWhere.append(": from ").append(Trimmed(sTraceBack));
  LogErr({sWhere, WInfoErrorMessage(iCode)});
  if (++NWErr <= MWErr) return;
  LogErr_File({" Program run aborted, more than 20 graphics errors."});
  Stop_Program();
}

}  // namespace quillan
