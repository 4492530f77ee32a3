#include "review/review_door.h"

#include <algorithm>

#include "model/tmd_data.h"
#include "review/plot/read_out.h"
#include "review/qcc_review.h"
#include "review/qcs_review.h"
#include "review/qcs_sections.h"
#include "review/review_export.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fSingleSounding = 0.01f;  // stations that differ by no more are one sounding

}  // namespace

void TEM_Review_Initialize() {
  hDoor = ReviewDoor{};
  hExportChoice = ExportChoice{};
}

I4 TEM_First_Review() {
  if (hDoor.iFlag0 >= 1) return std::clamp(hDoor.iFlag0, iFlagSection, iFlagCurve);
  return hSection(1).fStnMax - hSection(1).fStnMin <= fSingleSounding ? iFlagCurve : iFlagSection;
}

ReviewEnd TEM_Review_Data() {
  if (NTrn < 1 || NSection < 0) return {.iError = 1};

  ReviewEnd h{.iFlag = TEM_First_Review(), .iTrn = std::clamp(hDoor.iTrn, 1, NTrn)};
  bHideSkipped = false;
  WMenu(iNoMenu);
  while (h.iFlag == iFlagSection || h.iFlag == iFlagCurve) {
    hDoor.iFlag0 = h.iFlag;
    h = h.iFlag == iFlagSection ? QCS_Review(h.iTrn) : QCC_Review(h.iTrn);
    hDoor.iTrn = h.iTrn;
  }
  WindowClear();
  WindowOutStatusBar(2, "");
  WMenu(iMenuMain);
  LogText_Update();
  h.iError = 0;
  return h;
}

}  // namespace quillan
