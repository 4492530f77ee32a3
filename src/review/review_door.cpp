#include "review/review_door.h"

#include <algorithm>

#include "model/tmd_data.h"
#include "review/qcc_review.h"
#include "review/qcs_review.h"
#include "review/qcs_sections.h"
#include "review/review_flag.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/menus.h"

namespace quillan {
namespace {

constexpr R4 fSingleSounding = 0.01f;  // stations that differ by no more are one sounding

}  // namespace

void TEM_Review_Initialize() {
  hDoor = ReviewDoor{};
}

I4 TEM_First_Review() {
  if (hDoor.iFlag0 >= 1) return std::clamp(hDoor.iFlag0, iFlagSection, iFlagCurve);
  return hSection(1).fStnMax - hSection(1).fStnMin <= fSingleSounding ? iFlagCurve : iFlagSection;
}

void TEM_Review_Data(I4& iFlag, I4& iError) {
  iFlag = 0;
  iError = NTrn < 1 || NSection < 0 ? 1 : 0;
  if (iError != 0) return;

  iFlag = TEM_First_Review();
  hDoor.iTrn = std::clamp(hDoor.iTrn, 1, NTrn);
  WMenu(iNoMenu);
  while (iFlag == iFlagSection || iFlag == iFlagCurve) {
    hDoor.iFlag0 = iFlag;
    if (iFlag == iFlagSection) {
      QCS_Review(hDoor.iTrn, iFlag, iError);
    } else {
      QCC_Review(hDoor.iTrn, iFlag, iError);
    }
  }
  iError = 0;
  WindowClear();
  WMenu(iMenuMain);
}

}  // namespace quillan
