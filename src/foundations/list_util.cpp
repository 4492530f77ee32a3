#include "foundations/list_util.h"

#include "foundations/sort_util.h"

namespace quillan {

NearestItem List_Nearest_R4(R4 fValue, I4 NList, std::span<const R4> fList) {
  const auto fUsed = fList.first(Held_Count(NList, fList));
  if (fUsed.empty()) return {};
  const auto it = std::upper_bound(fUsed.begin(), fUsed.end(), fValue);
  const I4 JUpper = static_cast<I4>(it - fUsed.begin()) + 1;
  if (it == fUsed.begin()) return {JUpper, fValue - *it};
  const R4 fDV1 = fValue - it[-1];
  if (it == fUsed.end() || *it - fValue >= fDV1) return {JUpper - 1, fDV1};
  return {JUpper, *it - fValue};
}

}  // namespace quillan
