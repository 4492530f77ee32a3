#include "review/plot/plot_title.h"

#include <algorithm>

#include "toolkit/dialog/dialog.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fTitleDepth = 0.06f;    // of the height: two lines of title and a little more
constexpr R4 fLeastRoom = 0.5f;      // of the width
constexpr R4 fTitleMargin = 0.005f;  // of the width, between a title and the tool window

/// The largest font in which a title has room; one that is too long for all is narrowed.
void Set_Title_Font(std::string_view sTitle, R4 fRoom, std::span<const TextSize> hSize) {
  for (const TextSize& h : hSize) {
    Use_Font(h);
    if (WGrTextLength(sTitle) <= fRoom) return;
  }
  Use_Font({hSize.back().fWidth * fRoom / WGrTextLength(sTitle), hSize.back().fHeight});
}

}  // namespace

TitleRoom Room_Beside(const GrBox& hTool, R4 fDepth) {
  const bool bClear = hTool.fX1 >= 1.0f || hTool.fX2 <= 0.0f || hTool.fY1 >= fDepth || hTool.fY2 <= 0.0f;
  if (bClear) return {};
  if (hTool.fX1 >= 1.0f - hTool.fX2) return {0.0f, std::max(hTool.fX1 - fTitleMargin, fLeastRoom)};
  return {std::min(hTool.fX2 + fTitleMargin, 1.0f - fLeastRoom), 1.0f};
}

TitleRoom Tool_Title_Room() {
  const R4 fWidth = static_cast<R4>(std::max(WInfoWindow(iWindowWidth), 1));
  const R4 fHeight = static_cast<R4>(std::max(WInfoWindow(iWindowHeight), 1));
  const R4 fX = static_cast<R4>(WInfoDialog(iDialogX)), fY = static_cast<R4>(WInfoDialog(iDialogY));
  const R4 fX2 = fX + static_cast<R4>(WInfoDialog(iDialogWidth));
  const R4 fY2 = fY + static_cast<R4>(WInfoDialog(iDialogHeight));
  return Room_Beside({fX / fWidth, fY / fHeight, fX2 / fWidth, fY2 / fHeight}, fTitleDepth);
}

void Draw_Plot_Title(std::string_view sTitle, const TitlePlace& h, std::span<const TextSize> hSize) {
  const R4 fXMin = InfoGraphics(iUnitXMin), fXSpan = InfoGraphics(iUnitXMax) - fXMin;
  const R4 fBegin = std::max(fXMin + h.hRoom.fBegin * fXSpan, h.fLeft);
  const R4 fEnd = fXMin + h.hRoom.fEnd * fXSpan;
  Set_Title_Font(sTitle, fEnd - fBegin, hSize);
  const R4 fHalf = 0.5f * WGrTextLength(sTitle);
  WGrTextOrientation(Justify::Centre, 0.0f);
  WGrTextString(std::max(std::min(h.fMiddle, fEnd - fHalf), fBegin + fHalf), h.fY, sTitle);
}

}  // namespace quillan
