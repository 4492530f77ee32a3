#include "commands/open_survey.h"

#include <algorithm>
#include <cmath>

#include "commands/busy_with.h"
#include "commands/session.h"
#include "commands/survey_config.h"
#include "files/avg_reader.h"
#include "files/mde_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"
#include "processing/b_field.h"
#include "processing/moving_average.h"
#include "processing/sort_data.h"
#include "review/qcs_sections.h"

namespace quillan {
namespace {

constexpr R8 dStnIncLeast = 0.001;  // a recorded increment below it is taken for 1
constexpr R4 fHPRLeast = -360.0f;   // degrees, an attitude below it is not set
constexpr R4 fAResLeast = 0.001f;   // ohm-m, least resistivity that counts in a range
constexpr R8 dFixedLoopStn = 1.0;   // station of the one loop of a fixed-loop survey

/// Whether one of the three angles is not set.
bool Is_Unset(const Array1<R4, 3>& fHPR) {
  return *std::min_element(fHPR.begin(), fHPR.end()) < fHPRLeast;
}

// ---- before the file

/// The metadata of the survey before would speak for this one: every record and priority goes back to its default.
void Forget_Last_Survey(I4& iError) {
  NStn = 0;
  LogText_Reset();
  TMD_Initialize(iError);
  MDP_Initialize_MD(iError, true);
  MdTx.dKvrStn = dDummy;
  MdTx.dStn = dDummy;
  MdRx.dUTMC.fill(dDummy);
  MdRx.fHPR.fill(fDummy);
}

void Abort_Read(I4& iError) {
  LogErr({"Data entry from " + sFileName + " aborted."});
  NTrn = 0;
  iError = 1;
}

void Read_File(const std::string& sDataFile, I4& iError) {
  const std::string CFileExt = Str_UpCase(File_Ext(sDataFile));
  const BusyWith busy("Reading " + sFileName);
  if (CFileExt == ".AVG" || CFileExt == ".XDB") {
    AVG_Read(sDataFile, iError);
    if (iError != 0 || NTrn < 1) Abort_Read(iError);
  } else if (CFileExt == ".Z") {
    LogErr({"Contour files (.Z) cannot be read yet.", sFileName + " is left as it is."});
    Abort_Read(iError);
  } else {
    LogErr({"Read_TEM_Data.ERROR: Unknown file extension on input data file " + sFileName});
    NTrn = 0;
  }
}

// ---- behind the file

/// How recorded station numbers become the survey's.
struct Rescaling {
  R8 dStnKvrBeg = hTemSurvey.dStnKvrBeg;
  R8 dStnBeg = hTemSurvey.dStnBeg;
  R8 dStnScale = Scale();

  R8 operator()(R8 dKvrStn) const { return (dKvrStn - dStnKvrBeg) * dStnScale + dStnBeg; }

 private:
  static R8 Scale() {
    R8 dStnKvrInc = hTemSurvey.dStnKvrInc;
    if (std::abs(dStnKvrInc) < dStnIncLeast) dStnKvrInc = dStnKvrInc < 0.0 ? -1.0 : 1.0;
    return hTemSurvey.dStnInc / dStnKvrInc;
  }
};

void Complete_Transmitter(const Rescaling& Rescaled, Transient& h) {
  const bool bPresent = h.dTxKvrStn >= dDummyLimit;
  if (hTemSurvey.iTemArray == iArrayFXL) {
    if (!bPresent) h.dTxKvrStn = h.dTxStn = dFixedLoopStn;
  } else if (bPresent) {
    h.dTxStn = Rescaled(h.dTxKvrStn);
  } else {  // the transmitter moves with the receiver
    h.dTxKvrStn = h.dRxKvrStn;
    h.dTxStn = h.dRxStn;
  }
}

void Complete_Data(I4& iError) {
  TEM_Complete_Transients();
  TMD_Trns_Set_iTWCfg(iError);
  Sort_TEM_Data(iError);
  dBdt_2_B(iError);  // needs sorted windows; the ranges need B(t)
  TEM_Trn_Data_Range(iError);
  QCS_Allocate(iError);
}

void Widen(R4 fValue, R4& fMin, R4& fMax) {
  fMin = std::min(fMin, fValue);
  fMax = std::max(fMax, fValue);
}

void Set_Ranges(Transient& h) {
  h.fuVmin = h.fBmin = h.fARmin = fRangeMin0;
  h.fuVmax = h.fBmax = h.fARmax = fRangeMax0;
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Present(h.fuVmag(I))) Widen(h.fuVmag(I), h.fuVmin, h.fuVmax);
    if (Is_Present(h.fBmag(I))) Widen(h.fBmag(I), h.fBmin, h.fBmax);
    if (h.fARes(I) > fAResLeast) Widen(h.fARes(I), h.fARmin, h.fARmax);
  }
  if (h.NTW < 1) return;
  h.fTWCmin = h.fTWCen(1);
  h.fTWCmax = h.fTWCen(h.NTW);
}

}  // namespace

void TEM_Read_Data(std::string& sDataFile, I4& iError) {
  Forget_Last_Survey(iError);
  iError = 0;
  sFileName = File_Name(sDataFile);
  std::string sMdeFile = std::string(File_Stem(sDataFile)) + ".mde";
  MDE_Read(sMdeFile, iError);  // may be missing: the data file can speak for itself
  Read_File(sDataFile, iError);
  if (NTrn < 1) return;

  Get_TWWidth();
  Edit_Cfg(iError);
  if (iError >= 2) {
    NTrn = 0;
    LogText("");
    LogText("Data input aborted.");
    return;
  }
  Complete_Data(iError);
  LogText("Data input complete.");
  Session_Title();
}

void TEM_Trn_Data_Range(I4& iError) {
  iError = 0;
  for (I4 j = 1; j <= NTrn; ++j) Set_Ranges(hTrn(j));
}

void TEM_Complete_Transients() {
  const Rescaling Rescaled;
  Array1<R4, 3> fRxHPR = hTemSurvey.fRxHPR;
  if (Is_Unset(fRxHPR))
    fRxHPR = {
        {hTemSurvey.fLineAzimuth, 0.0f, 0.0f}
    };
  for (I4 j = 1; j <= NTrn; ++j) {
    Transient& h = hTrn(j);
    h.dRxStn = Rescaled(h.dRxKvrStn);
    if (Is_Unset(h.fRxHPR)) h.fRxHPR = fRxHPR;
    Complete_Transmitter(Rescaled, h);
  }
}

}  // namespace quillan
