#include "review/merge_edit.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "review/merge_taper.h"
#include "review/plot/guide.h"
#include "review/tool_window.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/messages.h"

namespace quillan {
namespace {

constexpr I4 iContinued = 0;  // how the dialog ends
constexpr I4 iCancelled = 2;
constexpr I4 iClosed = 3;
constexpr I4 iColMerge = 1;

using MergeBoxes = Array1<L4, MMergeRow>;

struct MergeField {
  I4 iField;
  I4 MergeSettings::*iValue;
  void (*Put)(I4 iField, I4 iValue);
  std::optional<I4> (*Get)(I4 iField);
};
constexpr MergeField hField[] = {
    {iFldMask1,  &MergeSettings::iMergeMask1,     WDialogPutInteger,  WDialogGetInteger },
    {iFldMask2,  &MergeSettings::iMergeMask2,     WDialogPutInteger,  WDialogGetInteger },
    {iTrkCenter, &MergeSettings::iMergeFltCenter, WDialogPutTrackbar, WDialogGetTrackbar},
    {iTrkWidth,  &MergeSettings::iMergeFltWidth,  WDialogPutTrackbar, WDialogGetTrackbar},
};

/// The taper that the picture shows; 0: none.
struct DrawnTaper {
  I4 iCenter = 0, iWidth = 0;
  bool operator==(const DrawnTaper&) const = default;
};

void Hold_Settings(I4 NTW) {
  hMerge.iMergeMask1 = std::clamp(hMerge.iMergeMask1, 0, 9);
  hMerge.iMergeMask2 = std::clamp(hMerge.iMergeMask2, 0, 9);
  hMerge.iMergeFltCenter = std::clamp(hMerge.iMergeFltCenter, 1, NTW);
  hMerge.iMergeFltWidth = std::clamp(hMerge.iMergeFltWidth, 1, NTW);
}

void Put_Components(const MergeChoice& hChoice, const MergeBoxes& bMergeCmp) {
  std::vector<std::string> sMergeCmp;
  for (I4 I = 1; I <= hChoice.NMergeCmp; ++I) sMergeCmp.emplace_back(sChnCmp(hChoice.iMergeCmp(I)));
  WGridRows(iGrdMergeCmp, hChoice.NMergeCmp);
  WGridLabelCorner(iGrdMergeCmp, "Cmp");
  WGridLabelRows(iGrdMergeCmp, sMergeCmp);
  WGridPutCheckBox(iGrdMergeCmp, iColMerge, {bMergeCmp.data(), sMergeCmp.size()});
}

void Put_Fields(const MergeChoice& hChoice, const MergeBoxes& bMergeCmp) {
  WDialogPutString(iLblWindowLast, Str_Write_I4(hChoice.NTW).trimmed());
  for (const I4 iTrackbar : {iTrkCenter, iTrkWidth}) WDialogRangeTrackbar(iTrackbar, 1, hChoice.NTW, 1);
  for (const MergeField& h : hField) h.Put(h.iField, hMerge.*h.iValue);
  Put_Components(hChoice, bMergeCmp);
}

void Take_Fields(MergeBoxes& bMergeCmp) {
  for (const MergeField& h : hField) hMerge.*h.iValue = h.Get(h.iField).value_or(hMerge.*h.iValue);
  const std::vector<L4> bOn = WGridGetCheckBox(iGrdMergeCmp, iColMerge);
  std::ranges::copy(bOn, bMergeCmp.begin());
}

void Show_Taper(I4 NTW, DrawnTaper& hDrawn) {
  const DrawnTaper hNow{hMerge.iMergeFltCenter, hMerge.iMergeFltWidth};
  if (hDrawn == hNow) return;
  hDrawn = hNow;
  WDialogPutString(iLblCenter, "Merge Taper Center " + Str_Write_I4(hNow.iCenter).str());
  WDialogPutString(iLblWidth, "Merge Taper Width " + Str_Write_I4(hNow.iWidth).str());
  MergeFltPlot(NTW);
}

/// How a message ends the dialog; nothing where it does not. The keys are those of any dialog.
std::optional<I4> End_of(const Message& h) {
  const bool bButton = h.iType == MessageType::Button, bKey = h.iType == MessageType::Key;
  if (h.iType == MessageType::Close) return iClosed;
  if ((bButton && h.VALUE1 == iBtnContinue) || (bKey && h.VALUE1 == iKeyEnter)) return iContinued;
  if ((bButton && h.VALUE1 == iBtnCancel) || (bKey && h.VALUE1 == iKeyEsc)) return iCancelled;
  return {};
}

I4 Run_Dialog(I4 NTW, MergeBoxes& bMergeCmp) {
  const FieldsAlone alone;
  DrawnTaper hDrawn;
  Tool_Show();
  for (;;) {
    Show_Taper(NTW, hDrawn);
    const Message hMessage = WMessage();
    Take_Fields(bMergeCmp);
    if (hMessage.iType == MessageType::Resize) Tool_Follow();
    if (hMessage.iType == MessageType::Resize || hMessage.iType == MessageType::Expose) {
      hDrawn = {};
      LogText_Update();
    }
    if (hMessage.iType == MessageType::Key && hMessage.VALUE1 == iKeyF1) (void)Show_Guide();
    if (const auto iEnd = End_of(hMessage)) return *iEnd;
  }
}

}  // namespace

MergeChoice Merge_Choice() {
  MergeChoice h;
  Array1<I4, MChnCmp> iRxCmpCount{};
  for (I4 j = 1; j <= NTrn; ++j) {
    h.NTW = std::max(h.NTW, hTrn(j).NTW);
    ++iRxCmpCount(std::clamp(hTrn(j).iRxCmp, 1, MChnCmp));
  }
  for (I4 iCmp = 1; iCmp <= MChnCmp && h.NMergeCmp < MMergeRow; ++iCmp) {
    if (iRxCmpCount(iCmp) > 0) h.iMergeCmp(++h.NMergeCmp) = iCmp;
  }
  return h;
}

I4 MergeChnEdit() {
  const MergeChoice hChoice = Merge_Choice();
  MergeBoxes bMergeCmp = Filled<MergeBoxes>(true);
  Hold_Settings(hChoice.NTW);
  const LoadedDialog form(iDlgMerge);
  if (!form.Is_There()) return iCancelled;
  Put_Fields(hChoice, bMergeCmp);
  InqWintError("MergeChnEdit 1");
  const I4 iError = Run_Dialog(hChoice.NTW, bMergeCmp);
  InqWintError("MergeChnEdit 2");
  hMerge.NMergeCmp = 0;
  for (I4 I = 1; I <= hChoice.NMergeCmp; ++I) {
    if (bMergeCmp(I)) hMerge.iMergeCmp(++hMerge.NMergeCmp) = hChoice.iMergeCmp(I);
  }
  return iError;
}

}  // namespace quillan
