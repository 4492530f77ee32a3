#include "commands/auto_skip_command.h"

#include <algorithm>
#include <utility>

#include "foundations/log_file.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

constexpr R4 fErrorFloorMin = 0.1f;      // percent
constexpr R4 fErrorFloorMax = 10000.0f;  // percent
constexpr EditForm formErrorFloor = "(F12.1)";

void Hold_Limits(I4 MTWK, AutoSkipLimits& hLimits) {
  if (hLimits.ITWEND < hLimits.ITWBEG) std::swap(hLimits.ITWBEG, hLimits.ITWEND);
  hLimits.ITWBEG = std::max(std::min(MTWK, hLimits.ITWBEG), 1);
  hLimits.ITWEND = std::max(std::min(MTWK, hLimits.ITWEND), 1);
  hLimits.ErrorFloor = std::max(std::min(hLimits.ErrorFloor, fErrorFloorMax), fErrorFloorMin);
}

void Put_Fields(I4 MTWK, const AutoSkipLimits& hLimits) {
  WDialogRangeInteger(iFldTWBeg, 1, MTWK);
  WDialogRangeInteger(iFldTWEnd, 1, MTWK);
  WDialogRangeReal(iFldErrorFloor, 1.0E-9, 1.0E31);
  WDialogPutInteger(iFldTWBeg, hLimits.ITWBEG);
  WDialogPutInteger(iFldTWEnd, hLimits.ITWEND);
  WDialogPutCheckBox(iChkErrorFloor, hLimits.bApplyErrorFloor);
  WDialogPutReal(iFldErrorFloor, hLimits.ErrorFloor, formErrorFloor);
  WDialogPutCheckBox(iChkNegativeData, hLimits.bDropNegativeData);
  WDialogPutCheckBox(iChkPositiveSlope, hLimits.bDropPositiveSlope);
}

/// Takes one value from the dialog; what cannot be read stays as it was.
template <class Value>
void Take_Field(void (*Get)(I4, Value&), I4 iField, Value& hValue) {
  Value hRead = hValue;
  Get(iField, hRead);
  if (InfoError() == iErrNone) hValue = hRead;
}

void Get_Fields(AutoSkipLimits& hLimits) {
  InfoError();
  Take_Field(WDialogGetInteger, iFldTWBeg, hLimits.ITWBEG);
  Take_Field(WDialogGetInteger, iFldTWEnd, hLimits.ITWEND);
  Take_Field(WDialogGetCheckBox, iChkErrorFloor, hLimits.bApplyErrorFloor);
  Take_Field(WDialogGetCheckBox, iChkNegativeData, hLimits.bDropNegativeData);
  Take_Field(WDialogGetCheckBox, iChkPositiveSlope, hLimits.bDropPositiveSlope);
  Take_Field(WDialogGetReal, iFldErrorFloor, hLimits.ErrorFloor);
}

I4 Most_Windows() {
  I4 MTWK = 0;
  for (I4 j = 1; j <= NTrn; ++j) MTWK = std::max(MTWK, hTrn(j).NTW);
  return MTWK;
}

}  // namespace

void AutoSkip_Edit(I4 MTWK, AutoSkipLimits& hLimits, I4& iError) {
  iError = 0;
  Hold_Limits(MTWK, hLimits);
  WDialogLoad(iDlgAutoSkip);
  InqWintError("AutoSkip_Edit 1");
  Put_Fields(MTWK, hLimits);
  WDialogShow(iCentred, iCentred, iShowModal);
  InqWintError("AutoSkip_Edit 2");
  if (WInfoDialog(iExitButton) == iBtnContinue) Get_Fields(hLimits);
  if (WInfoDialog(iExitButton) == iBtnCancel) iError = 1;
  WDialogUnload();
}

void AutoSkip_Filter(I4& iError) {
  iError = 0;
  if (NTrn < 1) {
    LogErr({"ERROR: No valid data present."});
    iError = 1;
    return;
  }
  LogText_Reset();
  AutoSkip_Edit(Most_Windows(), hAutoSkip, iError);
  if (iError != 0) return;

  LogText("");
  LogText("Applying Auto Skip filters");
  AutoSkip_Apply(hAutoSkip);
  LogText("Auto Skip filtering is finished.");
}

}  // namespace quillan
