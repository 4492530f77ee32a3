#include "commands/save_survey.h"

#include "commands/busy_with.h"
#include "files/avg_legacy_writer.h"
#include "files/avg_writer.h"
#include "files/mde_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "platform/file_names.h"
#include "platform/safe_file.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

/// A file type as a check box of dialog 104.
struct FormatRow {
  I4 iField;
  L4 OutputFormats::*bPut;
  std::string OutputNames::*sName;
  bool bBuilt;  // whether there is a writer
};

constexpr FormatRow hFormatRow[] = {
    {iChkPutAvg,  &OutputFormats::bPutAVG,  &OutputNames::sAvg,  true },
    {iChkPutAvg0, &OutputFormats::bPutAVG0, &OutputNames::sAvg0, true },
    {iChkPutAmr,  &OutputFormats::bPutAMR,  &OutputNames::sTem,  false},
    {iChkPutUsf,  &OutputFormats::bPutUSF,  &OutputNames::sUsf,  false},
};

void Put_Formats(const OutputNames& hName, const OutputFormats& hFormats) {
  for (const FormatRow& h : hFormatRow) {
    WDialogPutCheckBox(h.iField, hFormats.*h.bPut);
    WDialogPutNote(h.iField, File_Name(hName.*h.sName));
    WDialogFieldState(h.iField, h.bBuilt ? 1 : 0);
  }
}

void Get_Formats(OutputFormats& hFormats) {
  InfoError();
  for (const FormatRow& h : hFormatRow) {
    L4 bPut = hFormats.*h.bPut;
    WDialogGetCheckBox(h.iField, bPut);
    if (InfoError() == iErrNone) hFormats.*h.bPut = bPut;
  }
}

/// The first save keeps the file as it was; later saves leave that copy alone.
void Keep_Backup(const OutputNames& hName, I4& iError) {
  iError = 0;
  if (!IOsFileExists(hName.sAvg) || IOsFileExists(hName.sBackup)) return;
  const CopyStatus hStatus = IOsCopyFile(hName.sAvg, hName.sBackup);
  if (hStatus.iIOError == 0) return;
  LogErr({"ERROR while making backup copy of ", hName.sAvg,
          "LastError=" + Str_Write_I4(iErrFile).str() + ", IOError=" + Str_Write_I4(hStatus.iIOError).str() +
              ", OSError=" + Str_Write_I4(hStatus.iOSError).str(),
          "The data are not saved; choose Save again."});
  iError = 1;
}

void Write_Formats(const OutputNames& hName, const OutputFormats& hFormats, I4& iError) {
  const BusyWith busy("Writing " + std::string(File_Name(hName.sAvg)));
  iError = 0;
  if (hFormats.bPutAVG) AVG_Write(hName.sAvg, iError);
  if (iError == 0 && hFormats.bPutAVG0) AVG_Write0(hName.sAvg0, iError);
}

}  // namespace

void Output_Initialize() {
  hOutput = OutputFormats{};
}

OutputNames::OutputNames(std::string_view sDataFile) : sAvg(Trimmed(sDataFile)) {
  const std::string sStem(File_Stem(sAvg));
  sAvg0 = sStem + "o.avg";
  sTem = sStem + ".tem";
  sUsf = sStem + ".usf";
  sMde = sStem + ".mde";
  sBackup = sStem + ".$" + std::string(File_Ext(sAvg));
}

void TEM_Write_Data(std::string_view sDataFile, L4& bUpdate, I4& iError) {
  LogText_Reset();
  InqWintError();
  InfoError();
  OutputNames hName(sDataFile);
  Keep_Backup(hName, iError);
  if (iError != 0) return;
  Select_Output_Formats(hName, hOutput, iError);
  if (iError != 0) return;
  bUpdate = false;
  Write_Formats(hName, hOutput, iError);
  if (iError != 0) return;
  MDE_Update(hName.sMde, iError);
}

void Select_Output_Formats(const OutputNames& hName, OutputFormats& hFormats, I4& iError) {
  iError = 0;
  WDialogLoad(iDlgSaveTypes);
  Put_Formats(hName, hFormats);
  InqWintError("Select_Output_Formats 1");
  WDialogShow(iCentred, iCentred, iShowModal);
  if (WInfoDialog(iExitButton) == iBtnContinue) {
    Get_Formats(hFormats);
  } else {
    iError = 1;
  }
  WDialogUnload();
}

}  // namespace quillan
