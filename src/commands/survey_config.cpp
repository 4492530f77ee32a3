#include "commands/survey_config.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <vector>

#include "files/txw_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "metadata/enm_data.h"
#include "model/derived.h"
#include "model/survey_keywords.h"
#include "model/txw_data.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fSizeLeast = 1.0E-9f;  // m and m^2
constexpr R4 fSizeMost = 1.0E9f;
constexpr I4 MTxTurn = 1024;

/// Metres in the survey's length unit.
R4 Metres_per_Unit(I4 iLengthUnit) {
  return Held_Entry(fLengthUnit, iLengthUnit);
}

// ---- fields as rows

// clang-format off
constexpr FormRow<Survey> hSurveyRow[] = {
    {iFldJobName,     &Survey::sJobName},
    {iFldJobArea,     &Survey::sJobArea},
    {iFldJobFor,      &Survey::sJobFor},
    {iFldJobBy,       &Survey::sJobBy},
    {iFldJobNumber,   &Survey::sJobNumber},
    {iFldJobDate,     &Survey::sJobDate},
    {iFldLineName,    &Survey::sLineName},
    {iFldLineNumber,  &Survey::dLineNumber,  "(F12.1)"},
    {iFldLineAzimuth, &Survey::fLineAzimuth, "(F12.1)", {-360.0, 360.0}},
    {iFldStnKvrBeg,   &Survey::dStnKvrBeg,   "(F12.1)"},
    {iFldStnKvrInc,   &Survey::dStnKvrInc,   "(F12.2)"},
    {iFldStnBeg,      &Survey::dStnBeg,      "(F12.1)"},
    {iFldStnInc,      &Survey::dStnInc,      "(F12.2)"},
    {iMnuTemArray,    &Survey::iTemArray,    sTemArray},
    {iMnuLengthUnit,  &Survey::iLengthUnit,  sLengthUnit},
};
// clang-format on

constexpr FormLimits hCentreLimits{-9.9E9, 9.9E9};

// Taken with a fixed transmitter only, like the next.
constexpr FormRow<Survey> hCentreRow[] = {
    {iFldTxCenterX, FormElement{&Survey::dTxXYZC, 1}, "(F12.1)", hCentreLimits},
    {iFldTxCenterY, FormElement{&Survey::dTxXYZC, 2}, "(F12.1)", hCentreLimits},
};
constexpr FormRow<Survey> hLoopRow[] = {
    {iFldTxTurns, &Survey::NTxTurn, {}, {1.0, R8{MTxTurn}}},
    {iChkTxwFile, &Survey::bTxwFile},
};

constexpr FormRow<SurveyConfig> hReceiverRow[] = {
    {iFldXAzimuth,  &SurveyConfig::fXazm,      "(F12.1)" },
    {iMnuZPositive, &SurveyConfig::iZPositive, sZpositive},
};

/// The lengths as they stand in their fields: metres are computed from them only when the user has changed a length or
/// the unit, so that no length is rounded on its way through the dialog.
struct ShownLengths {
  Array1<R4, 2> fLength{};
  I4 iLengthUnit = 1;
};

constexpr FormLimits hLengthLimits{1.0E-9, 1.0E9};
constexpr FormRow<ShownLengths> hLengthRow[] = {
    {iFldTxLengthX, FormElement{&ShownLengths::fLength, 1}, "(F12.1)", hLengthLimits},
    {iFldTxLengthY, FormElement{&ShownLengths::fLength, 2}, "(F12.1)", hLengthLimits},
};

// ---- showing

void Put_Transmitter(const Survey& h, ShownLengths& hShown) {
  hShown.iLengthUnit = h.iLengthUnit;
  for (I4 I = 1; I <= 2; ++I) hShown.fLength(I) = h.fTxLength(I) / Metres_per_Unit(h.iLengthUnit);
  Form_Put(hLengthRow, hShown);
  Form_Put(hCentreRow, h);
}

void Put_TxwFile(const Survey& h) {
  WDialogPutCheckBox(iChkTxwFile, h.bTxwFile);
  WDialogPutString(iFldTxwName, File_Name(h.sTxwFile));
}

void Put_Fields(const SurveyConfig& hConfig, ShownLengths& hShown) {
  Form_Put(hSurveyRow, hConfig.hSurvey);
  WDialogRefuseZero(iFldStnKvrInc);  // station numbers are divided by it
  Form_Put(hLoopRow, hConfig.hSurvey);
  Put_Transmitter(hConfig.hSurvey, hShown);
  Put_TxwFile(hConfig.hSurvey);
  WGridRangeReal(iGrdRxArea, 1, 0.01, 1.0E9);
  WGridPutReal(iGrdRxArea, 1, hConfig.fCmpArea.hItem, "(1P,G12.4E1)");
  Form_Put(hReceiverRow, hConfig);
}

/// What follows from other fields.
void Show_Consequences(const SurveyConfig& hConfig) {
  WDialogPutReal(iFldYAzimuth, Y_Azimuth(hConfig.fXazm, hConfig.iZPositive), "(F8.0)");
  for (const I4 iField : {iFldTxCenterX, iFldTxCenterY, iFldTxTurns, iChkTxwFile})
    WDialogFieldState(iField, Has_Fixed_Transmitter(hConfig.hSurvey) ? 1 : 0);
}

// ---- reading

void Take_Lengths(Survey& h, ShownLengths& hShown) {
  const bool bUnitChanged = h.iLengthUnit != hShown.iLengthUnit;
  const Array1<R4, 2> fShown0 = hShown.fLength;
  hShown.iLengthUnit = h.iLengthUnit;
  Form_Take(hLengthRow, hShown);
  for (I4 I = 1; I <= 2; ++I) {
    if (bUnitChanged || hShown.fLength(I) != fShown0(I))
      h.fTxLength(I) = hShown.fLength(I) * Metres_per_Unit(h.iLengthUnit);
  }
}

void Take_Areas(SurveyConfig& hConfig) {
  const std::vector<std::optional<R4>> fCell = WGridGetReal(iGrdRxArea, 1);
  for (std::size_t K = 0; K < fCell.size(); ++K) {
    if (fCell[K] > 0.0f) hConfig.fCmpArea(static_cast<I4>(K) + 1) = *fCell[K];  // an empty cell is above nothing
  }
}

void Take_Fields(SurveyConfig& hConfig, ShownLengths& hShown) {
  Survey& h = hConfig.hSurvey;
  Form_Take(hSurveyRow, h);
  Take_Lengths(h, hShown);
  if (Has_Fixed_Transmitter(h)) {
    Form_Take(hCentreRow, h);
    Form_Take(hLoopRow, h);
  }
  Take_Areas(hConfig);
  Form_Take(hReceiverRow, hConfig);
}

// What the status bar calls the numbers.
constexpr struct {
  I4 iField;
  std::string_view sName;
} hNumberName[] = {
    {iFldLineNumber,  "line number"              },
    {iFldLineAzimuth, "line azimuth"             },
    {iFldStnKvrBeg,   "KVR beginning"            },
    {iFldStnKvrInc,   "KVR increment"            },
    {iFldStnBeg,      "rescaled beginning"       },
    {iFldStnInc,      "rescaled increment"       },
    {iFldTxLengthX,   "transmitter size along"   },
    {iFldTxLengthY,   "transmitter size across"  },
    {iFldTxCenterX,   "transmitter centre, east" },
    {iFldTxCenterY,   "transmitter centre, north"},
    {iFldTxTurns,     "turns"                    },
    {iGrdRxArea,      "receiver area"            },
    {iFldXAzimuth,    "X azimuth"                },
};

/// The fields that Continue leaves as they were, because they are empty, no number, or out of range.
std::vector<I4> Kept_Fields(const SurveyConfig& hConfig, const ShownLengths& hShown) {
  const Survey& h = hConfig.hSurvey;
  std::vector<I4> iKept = Form_Unread(hSurveyRow, h);
  const auto Add = [&iKept](const std::vector<I4>& iMore) { iKept.insert(iKept.end(), iMore.begin(), iMore.end()); };
  Add(Form_Unread(hLengthRow, hShown));
  if (Has_Fixed_Transmitter(h)) {
    Add(Form_Unread(hCentreRow, h));
    Add(Form_Unread(hLoopRow, h));
  }
  const std::vector<std::optional<R4>> fCell = WGridGetReal(iGrdRxArea, 1);
  if (!std::ranges::all_of(fCell, [](const auto& fArea) { return fArea.has_value(); })) Add({iGrdRxArea});
  Add(Form_Unread(hReceiverRow, hConfig));
  return iKept;
}

/// "Kept as before, because the entry is out of range: line azimuth, turns."
std::string Kept_Words(const std::vector<I4>& iKept) {
  std::string sNames;
  for (const auto& h : hNumberName) {
    if (std::ranges::find(iKept, h.iField) == iKept.end()) continue;
    sNames.append(sNames.empty() ? "" : ", ").append(h.sName);
  }
  return sNames.empty() ? sNames : "Kept as before, because the entry is out of range: " + sNames + ".";
}

/// The user chooses a wire file or none; its first loop gives centre and lengths.
void Select_TxwFile(Survey& h, ShownLengths& hShown) {
  h.sTxwFile = WSelectFile2("Select txw file|*.txw|", iSelectOptional, "Select optional Tx wire endpoints file", "");
  h.bTxwFile = !h.sTxwFile.empty();
  if (h.bTxwFile && Txw_Read(h.sTxwFile, false) == 0) {
    h.dTxXYZC = hTxw(1).dTxUTMC;
    (void)Txw_Get_Length(hTxw(1), h.fLineAzimuth, h.fTxLength);  // reported; there is always a length to show
  }
  Put_TxwFile(h);
  Put_Transmitter(h, hShown);
}

// ---- the dialog's loop

constexpr I4 iStay = -1;

I4 On_Button(I4 iButton, SurveyConfig& hConfig, ShownLengths& hShown) {
  if (iButton == iBtnCancel) return 2;
  if (iButton == iBtnContinue || iButton == iBtnSelectTxw) Take_Fields(hConfig, hShown);
  if (iButton == iBtnSelectTxw) Select_TxwFile(hConfig.hSurvey, hShown);
  if (iButton != iBtnContinue) return iStay;
  WindowOutStatusBar(iStatusProgress, Kept_Words(Kept_Fields(hConfig, hShown)));
  return 0;
}

/// Runs the dialog until the user leaves it. Returns 0 Continue, 2 Cancel, 3 close request.
I4 Run_Dialog(SurveyConfig& hConfig) {
  const LoadedDialog form(iDlgSurveyConfig);
  ShownLengths hShown;
  Put_Fields(hConfig, hShown);
  InqWintError("Edit_Cfg 1");
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  I4 iExit = iStay;
  while (iExit == iStay) {
    Show_Consequences(hConfig);
    InqWintError("Edit_Cfg 2");
    const Message hMessage = WMessage();
    switch (hMessage.iType) {
      case MessageType::Button: iExit = On_Button(hMessage.VALUE1, hConfig, hShown); break;
      case MessageType::Field: Take_Fields(hConfig, hShown); break;
      case MessageType::Expose:
      case MessageType::Resize: LogText_Redraw(); break;
      case MessageType::Close: iExit = 3; break;
      default: break;
    }
  }
  return iExit;
}

}  // namespace

I4 Edit_Cfg() {
  SurveyConfig hConfig = Config_from_Survey();
  WMenuBarState(0);
  WMessageEnable(MessageType::Field, true);
  const I4 iExit = Run_Dialog(hConfig);
  WMessageEnable(MessageType::Field, false);
  WMenuBarState(1);
  if (iExit == 0) Config_to_Survey(hConfig);
  return iExit;
}

SurveyConfig Config_from_Survey() {
  SurveyConfig hConfig;
  Survey& h = hConfig.hSurvey = hTemSurvey;
  h.iTemArray = std::clamp(h.iTemArray, 1, static_cast<I4>(std::size(sTemArray)));
  h.iLengthUnit = std::clamp(h.iLengthUnit, 1, static_cast<I4>(std::size(sLengthUnit)));
  h.fLineAzimuth = std::fmod(h.fLineAzimuth + 360.0f, 360.0f);
  h.NTxTurn = std::clamp(h.NTxTurn, 1, MTxTurn);
  for (R4& fLength : h.fTxLength) fLength = std::clamp(fLength, fSizeLeast, fSizeMost);
  for (I4 j = 1; j <= NTrn; ++j) {
    if (hTrn(j).fRxArea > 0.0f) hConfig.fCmpArea((hTrn(j).iRxCmp - 1) % 3 + 1) = hTrn(j).fRxArea;
  }
  for (R4& fArea : hConfig.fCmpArea) fArea = std::clamp(fArea, fSizeLeast, fSizeMost);
  hConfig.fXazm = h.fRxHPR(1) <= -360.0f ? h.fLineAzimuth : std::fmod(360.0f + h.fRxHPR(1), 360.0f);
  hConfig.iZPositive = iZPositive = std::clamp(iZPositive, 1, static_cast<I4>(std::size(sZpositive)));
  return hConfig;
}

R4 Y_Azimuth(R4 fXazm, I4 iZPos) {
  return std::fmod(fXazm + (iZPos == 1 ? 630.0f : 450.0f), 360.0f);
}

void Config_to_Survey(const SurveyConfig& hConfig) {
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).fRxArea = hConfig.fCmpArea((hTrn(j).iRxCmp - 1) % 3 + 1);
  iZPositive = hConfig.iZPositive;
  hTemSurvey = hConfig.hSurvey;
  hTemSurvey.fRxHPR = {
      {hConfig.fXazm, 0.0f, hConfig.iZPositive == 1 ? 0.0f : 180.0f}
  };
  hTemSurvey.fTxHPR = {
      {hTemSurvey.fLineAzimuth, hTemSurvey.fRxHPR(2), hTemSurvey.fRxHPR(3)}
  };
  if (Has_Fixed_Transmitter(hTemSurvey) && hTemSurvey.bTxwFile)
    (void)TMD_TxUTMC_from_hTxw();  // without a loop the positions stay as they are
  TMD_Survey_to_MD();
}

}  // namespace quillan
