#include "commands/save_survey.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

#include "commands/busy_with.h"
#include "commands/history_commands.h"
#include "commands/live_dialog.h"
#include "commands/recent_files.h"
#include "commands/recovery.h"
#include "commands/session.h"
#include "files/file_stamp.h"
#include "files/mde_file.h"
#include "files/save_report.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "model/tmd_data.h"
#include "platform/safe_file.h"
#include "toolkit/dialog/form.h"
#include "toolkit/window/messages.h"

namespace quillan {
namespace {

constexpr std::string_view sFlagsLost = "Skip flags are set. They will not be in the file.";
constexpr std::string_view sNothingSaved = "The save was stopped. The files are as they were.";
constexpr std::string_view sFlagsMarked = "skipped windows are marked";

std::string Metadata_File(const std::string& sDataFile) {
  return IOsFindCompanion(std::string(File_Stem(sDataFile)) + ".mde");
}

/// The names of files in a sentence: "a.avg", "a.avg and a.mde".
std::string Named(const std::vector<std::string>& sPath) {
  std::string sNames;
  for (const std::string& s : sPath) {
    if (!sNames.empty()) sNames += s == sPath.back() ? " and " : ", ";
    sNames += File_Name(s);
  }
  return sNames;
}

/// Whether nothing is in the way of a save: what another program has done to its files since they were read or saved
/// here is overwritten only when the user wants it. It is asked before the first file is touched, and so of every file
/// that the dialog offers.
bool May_Save_over(const std::string& sDataFile) {
  std::vector<std::string> sTarget;
  for (const FileFormat& h : hFileFormat) {
    if (h.Write != nullptr) sTarget.push_back(Output_Name(h, sDataFile));
  }
  sTarget.push_back(Metadata_File(sDataFile));
  const std::vector<std::string> sChanged = Changed_on_Disk(sTarget);
  if (sChanged.empty()) return true;
  const bool bOne = sChanged.size() == 1;
  const std::string sWhat = Named(sChanged) + (bOne ? " was" : " were") + " changed by another program";
  if (WMessageBox(BoxButtons::YesNo, BoxIcon::Warning,
                  sWhat + " after " + (bOne ? "it was" : "they were") + " read or saved here. Save over " +
                      (bOne ? "it?" : "them?"),
                  ""))
    return true;
  WindowOutStatusBar(iStatusProgress, "Not saved: " + sWhat + ".");
  return false;
}

/// The first save keeps the file as it was; later saves leave that copy alone. Returns 0; 1 when the copy failed.
I4 Keep_Backup(const std::string& sDataFile) {
  const std::string sBackup = Backup_Name(sDataFile);
  if (!IOsFileExists(sDataFile) || IOsFileExists(sBackup)) return 0;
  const CopyStatus hStatus = IOsCopyFile(sDataFile, sBackup);
  if (hStatus.iIOError == 0) return 0;
  const std::string sStatus = "LastError=" + Str_Write_I4(iErrFile).str() +
                              ", IOError=" + Str_Write_I4(hStatus.iIOError).str() +
                              ", OSError=" + Str_Write_I4(hStatus.iOSError).str();
  const std::string sReason = hStatus.iOSError == 0 ? "no backup copy" : std::strerror(hStatus.iOSError);
  return Report_Not_Saved({"ERROR while making backup copy of ", sDataFile, sStatus}, sDataFile, sReason);
}

/// Whether the file of a writer is among those of the save.
bool Is_Chosen(I4 (*Write)(std::string_view)) {
  const auto K = static_cast<std::size_t>(std::ranges::find(hFileFormat, Write, &FileFormat::Write) - hFileFormat);
  return hOutput[K];
}

/// Up to the first failure that ends the save. The others have said what they have to say: whoever gives up the name of
/// a file is not told that it is missing.
I4 Write_Formats(const std::string& sDataFile, const OutputFormats& hFormats) {
  const BusyWith busy("Writing " + std::string(File_Name(sDataFile)));
  for (std::size_t K = 0; K < NFileFormat; ++K) {
    const FileFormat& h = hFileFormat[K];
    if (!hFormats[K] || h.Write == nullptr) continue;
    const std::string sFile = Output_Name(h, sDataFile);
    const I4 iError = h.Write(sFile);
    if (iError != 0 && bWorkStopped) return iError;
    if (iError != 0 && !h.bEndsSave) continue;
    if (iError != 0) {
      if (hSaveState.sFailed.empty()) hSaveState.sFailed = File_Name(sFile);
      return iError;
    }
    if (hSaveState.sSaved.empty()) hSaveState.sSaved = File_Name(sFile);
    Stamp_Note(sFile);
  }
  return 0;
}

I4 Update_Metadata(const std::string& sDataFile) {
  const I4 iError = MDE_Update(std::string(File_Stem(sDataFile)) + ".mde");
  if (iError == 0) Stamp_Note(Metadata_File(sDataFile));
  return iError;
}

/// A failed save stays in sight until one succeeds. A save that the user gave up says nothing of either.
void Show_Outcome() {
  if (!hSaveState.sFailed.empty()) return WindowOutStatusBar(iStatusStanding, "NOT SAVED: " + hSaveState.sFailed);
  if (!hSaveState.sSaved.empty()) WindowOutStatusBar(iStatusStanding, "");
}

/// bUpdate0: whether there was something to save before it. What was stopped after the first file was the reading of
/// what another one needs, such as stations.
void Save_Was_Stopped(L4 bUpdate0) {
  const std::string& sSaved = hSaveState.sSaved;
  if (sSaved.empty()) hSession.bUpdateAVG = bUpdate0;
  const std::string sOutcome =
      sSaved.empty() ? std::string(sNothingSaved) : sSaved + " is saved. The files after it are not written.";
  LogText(sOutcome);
  WindowOutStatusBar(iStatusProgress, sOutcome);
}

I4 Save_All(const std::string& sDataFile) {
  if (!May_Save_over(sDataFile) || Keep_Backup(sDataFile) != 0) return 1;
  if (Select_Output_Formats(sDataFile, hOutput) != 0) return 1;

  hSession.bUpdateAVG = false;
  Prepare_Output(Is_Chosen(AVG_Write));
  if (const I4 iError = Write_Formats(sDataFile, hOutput); iError != 0) return iError;
  return Update_Metadata(sDataFile);
}

// ---- dialog 104

bool Any_Flag() {
  for (I4 j = 1; j <= NTrn; ++j) {
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) {
      if (Is_Skipped(hTrn(j), I)) return true;
    }
  }
  return false;
}

/// The file behind a box, and what becomes of skip flags in it.
void Put_Note(const FileFormat& h, std::string_view sDataFile, std::string_view sFlags) {
  std::string sNote(File_Name(Output_Name(h, sDataFile)));
  if (!sFlags.empty()) sNote.append("  (").append(sFlags).append(")");
  WDialogPutNote(h.iBox, sNote);
}

void Put_Formats(std::string_view sDataFile, const OutputFormats& hFormats) {
  for (std::size_t K = 0; K < NFileFormat; ++K) {
    const FileFormat& h = hFileFormat[K];
    if (h.iBox == 0) continue;
    WDialogPutCheckBox(h.iBox, hFormats[K]);
    Put_Note(h, sDataFile, h.sFlags);
    WDialogFieldState(h.iBox, h.Write != nullptr ? 1 : 0);
  }
  WDialogPutCheckBox(iChkUsfSweeps, iUsfLayout == UsfLayout::Sweeps);
}

bool Is_Ticked(I4 iBox) {
  return WDialogGetCheckBox(iBox).value_or(false);
}

/// The layout of sweeps is there for a USF file, and it keeps what the other layout leaves out.
void Show_Layout(std::string_view sDataFile) {
  const FileFormat& h = *std::ranges::find(hFileFormat, iChkPutUsf, &FileFormat::iBox);
  WDialogFieldState(iChkUsfSweeps, Is_Ticked(iChkPutUsf) ? 1 : 0);
  Put_Note(h, sDataFile, Is_Ticked(iChkUsfSweeps) ? sFlagsMarked : h.sFlags);
}

void Take_Formats(OutputFormats& hFormats) {
  for (std::size_t K = 0; K < NFileFormat; ++K) {
    if (const I4 iBox = hFileFormat[K].iBox; iBox != 0) hFormats[K] = WDialogGetCheckBox(iBox).value_or(hFormats[K]);
  }
  const bool bSweeps = WDialogGetCheckBox(iChkUsfSweeps).value_or(iUsfLayout == UsfLayout::Sweeps);
  iUsfLayout = bSweeps ? UsfLayout::Sweeps : UsfLayout::Soundings;
}

}  // namespace

I4 TEM_Write_Data(std::string_view sFile) {
  LogText_Reset();
  InqWintError();
  InfoError();
  hSaveState = {};
  bWorkStopped = false;
  const L4 bUpdate0 = hSession.bUpdateAVG;
  try {
    const I4 iError = Save_All(std::string(Trimmed(sFile)));
    if (iError != 0 && bWorkStopped) Save_Was_Stopped(bUpdate0);
    Show_Outcome();
    const bool bSaved = !hSaveState.sSaved.empty() && hSaveState.sFailed.empty();
    End_of_Save(bSaved);
    if (bSaved) Recovery_Saved();
    return iError;
  } catch (const std::bad_alloc&) {
    hSession.bUpdateAVG = true;
    hSaveState.sFailed = "out of memory";
    Show_Outcome();
    End_of_Save(false);
    throw;
  }
}

std::string Backup_Name(std::string_view sDataFile) {
  return std::string(File_Stem(sDataFile)) + ".$" + std::string(File_Ext(sDataFile));
}

I4 Select_Output_Formats(std::string_view sDataFile, OutputFormats& hFormats) {
  const LoadedDialog form(iDlgSaveTypes);
  Put_Formats(sDataFile, hFormats);
  const bool bAnyFlag = Any_Flag();
  const auto Show_Choice = [bAnyFlag, sDataFile] {
    Show_Layout(sDataFile);
    const bool bLost = bAnyFlag && !Is_Ticked(iChkPutAvg0);
    WDialogPutString(iLblFlagsLost, bLost ? sFlagsLost : "");
  };
  InqWintError("Select_Output_Formats 1");
  if (Run_Live_Dialog(Show_Choice) != iBtnContinue) return 1;
  Take_Formats(hFormats);
  return 0;
}

I4 Save_Data() {
  const I4 iError = TEM_Write_Data(sAvgFile);
  if (iError == 2) Stop_Program();
  return iError;
}

I4 Save_Data_As() {
  const std::string sFile =
      WSelectFile2("Verify output TEM *.avg|*.avg|", iSelectSave, "Select output TEM *.avg file name", sAvgFile);
  if (sFile.empty()) return 1;
  sAvgFile = sFile;
  hSession.sFileName = File_Name(sAvgFile);
  const I4 iError = Save_Data();
  if (iError == 0 && IOsFileExists(sAvgFile)) Recent_Add(sAvgFile);
  return iError;
}

bool Saves_First() {
  if (!hSession.bUpdateAVG) return false;
  const std::string sQuestion = "Should " + hSession.sFileName + " data be saved?";
  if (!WMessageBox(BoxButtons::YesNo, BoxIcon::Question, sQuestion, "")) {
    Recovery_Declined();
    return false;
  }
  (void)Save_Data();  // a failure has been reported, and the data are still there
  return true;
}

}  // namespace quillan
