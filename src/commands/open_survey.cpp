#include "commands/open_survey.h"

#include "commands/busy_with.h"
#include "commands/format_table.h"
#include "commands/session.h"
#include "commands/survey_config.h"
#include "files/file_stamp.h"
#include "files/mde_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "model/stn_data.h"
#include "model/tmd_data.h"
#include "processing/b_field.h"
#include "processing/moving_average.h"
#include "processing/sort_data.h"
#include "review/qcs_sections.h"

namespace quillan {
namespace {

/// The metadata of the survey before would speak for this one: every record and priority goes back to its default.
void Forget_Last_Survey() {
  LogText_Reset();
  TMD_Initialize();
  Stn_Forget();
  MDP_Initialize_MD(true);
  MdTx.dKvrStn = dDummy;
  MdTx.dStn = dDummy;
  MdRx.dUTMC.fill(dDummy);
  MdRx.fHPR.fill(fDummy);
}

I4 Abort_Read() {
  if (!bWorkStopped) LogErr({"Data entry from " + hSession.sFileName + " aborted."});
  NTrn = 0;
  return 1;
}

/// Reads the data by the reader of the extension, and names the file that a save will write. iError: the status of the
/// metadata file, which stands where there is no reader.
I4 Read_File(std::string& sDataFile, I4 iError) {
  const BusyWith busy("Reading " + hSession.sFileName);
  const FileFormat* hFormat = Format_of(sDataFile);
  if (hFormat == nullptr) {
    LogErr({"Read_TEM_Data.ERROR: Unknown file extension on input data file " + hSession.sFileName});
    NTrn = 0;
    return iError;
  }
  if (hFormat->Read(sDataFile) != 0) return Abort_Read();
  sDataFile = Output_Name(*hFormat, sDataFile);
  hSession.sFileName = File_Name(sDataFile);
  return 0;
}

/// What follows from the data, each step from those before it: windows are integrated in order, and ranges take in
/// B(t). Returns the status of the sections; the other steps fail for an empty store, or find one transient in order.
I4 Complete_Data() {
  TEM_Complete_Transients();
  static_cast<void>(TMD_Trns_Set_iTWCfg());
  static_cast<void>(Sort_TEM_Data());
  static_cast<void>(dBdt_2_B());
  TEM_Trn_Data_Range();
  return QCS_Allocate();
}

}  // namespace

I4 TEM_Read_Data(std::string& sDataFile) {
  Forget_Last_Survey();
  hSession.sFileName = File_Name(sDataFile);
  std::string sMdeFile = std::string(File_Stem(sDataFile)) + ".mde";
  Stamps_Forget();
  Stamp_Note(sDataFile);
  Stamp_Note(IOsFindCompanion(sMdeFile));
  const I4 iMdeError = MDE_Read(sMdeFile);  // may be missing: the data file can speak for itself
  I4 iError = Read_File(sDataFile, iMdeError);
  if (NTrn < 1) return iError;

  Get_TWWidth();
  iError = Edit_Cfg();
  if (iError >= 2) {
    NTrn = 0;
    LogText("");
    LogText("Data input aborted.");
    return iError;
  }
  iError = Complete_Data();
  LogText("Data input complete.");
  Session_Title();
  return iError;
}

}  // namespace quillan
