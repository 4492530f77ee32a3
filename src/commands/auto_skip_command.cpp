#include "commands/auto_skip_command.h"

#include <algorithm>
#include <string>
#include <utility>

#include "commands/live_dialog.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "toolkit/dialog/form.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fErrorFloorMin = 0.1f;      // percent
constexpr R4 fErrorFloorMax = 10000.0f;  // percent

void Hold_Limits(I4 MTWK, AutoSkipLimits& hLimits) {
  if (hLimits.ITWEND < hLimits.ITWBEG) std::swap(hLimits.ITWBEG, hLimits.ITWEND);
  hLimits.ITWBEG = std::max(std::min(MTWK, hLimits.ITWBEG), 1);
  hLimits.ITWEND = std::max(std::min(MTWK, hLimits.ITWEND), 1);
  hLimits.ErrorFloor = std::max(std::min(hLimits.ErrorFloor, fErrorFloorMax), fErrorFloorMin);
}

I4 Most_Windows() {
  I4 MTWK = 0;
  for (I4 j = 1; j <= NTrn; ++j) MTWK = std::max(MTWK, hTrn(j).NTW);
  return MTWK;
}

std::string Of(I4 N, I4 NAll) {
  return Str_Write_I4(N).str() + " of " + Str_Write_I4(NAll).str();
}

std::string Forecast(const AutoSkipCount& h) {
  return "Would skip " + Of(h.NSkip, h.NWindow) + " windows; " + Of(h.NEmpty, NTrn) +
         " soundings would have none left.";
}

std::string Result(const AutoSkipCount& h) {
  return "Auto Skip: " + Of(h.NSkip, h.NWindow) + " windows are skipped; " + Of(h.NEmpty, NTrn) +
         " soundings have none left.";
}

}  // namespace

I4 AutoSkip_Edit(I4 MTWK, AutoSkipLimits& hLimits) {
  Hold_Limits(MTWK, hLimits);
  const FormLimits hWindow{1.0, static_cast<R8>(MTWK)};
  // clang-format off
  const FormRow<AutoSkipLimits> hRow[] = {
      {iFldTWBeg,         &AutoSkipLimits::ITWBEG,     {},        hWindow},
      {iFldTWEnd,         &AutoSkipLimits::ITWEND,     {},        hWindow},
      {iChkErrorFloor,    &AutoSkipLimits::bApplyErrorFloor},
      {iFldErrorFloor,    &AutoSkipLimits::ErrorFloor, "(F12.1)", {1.0E-9, 1.0E31}},
      {iChkNegativeData,  &AutoSkipLimits::bDropNegativeData},
      {iChkPositiveSlope, &AutoSkipLimits::bDropPositiveSlope},
  };
  // clang-format on
  const LoadedDialog form(iDlgAutoSkip);
  InqWintError("AutoSkip_Edit 1");
  Form_Put(hRow, hLimits);
  const I4 iButton = Run_Live_Dialog([&] {
    AutoSkipLimits hTried = hLimits;
    Form_Take(hRow, hTried);
    WDialogPutString(iLblForecast, Forecast(AutoSkip_Count(hTried)));
  });
  InqWintError("AutoSkip_Edit 2");
  if (iButton == iBtnContinue) Form_Take(hRow, hLimits);
  return iButton == iBtnCancel ? 1 : 0;
}

I4 AutoSkip_Filter() {
  if (NTrn < 1) {
    LogErr({"ERROR: No valid data present."});
    return 1;
  }
  LogText_Reset();
  if (AutoSkip_Edit(Most_Windows(), hAutoSkip) != 0) return 1;

  LogText("");
  LogText("Applying Auto Skip filters");
  AutoSkip_Apply(hAutoSkip);
  LogText("Auto Skip filtering is finished.");
  WindowOutStatusBar(iStatusProgress, Result(AutoSkip_Count(hAutoSkip)));
  return 0;
}

}  // namespace quillan
