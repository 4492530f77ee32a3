#include "model/station_scale.h"

#include <cmath>

#include "model/tmd_data.h"

namespace quillan {

StationScale Stn_Scale_of_Rows() {
  const Survey& h = hTemSurvey;
  return {.dStnKvrBeg = h.dStnKvrBeg, .dStnBeg = h.dStnBeg, .dTimes = h.dStnInc, .dOver = h.dStnKvrInc};
}

StationScale Stn_Scale(R8 dIncLeast) {
  const Survey& h = hTemSurvey;
  R8 dStnKvrInc = h.dStnKvrInc;
  if (std::abs(dStnKvrInc) < dIncLeast) dStnKvrInc = dStnKvrInc < 0.0 ? -1.0 : 1.0;
  return {.dStnKvrBeg = h.dStnKvrBeg, .dStnBeg = h.dStnBeg, .dTimes = h.dStnInc / dStnKvrInc};
}

}  // namespace quillan
