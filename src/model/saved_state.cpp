#include "model/saved_state.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "model/history_image.h"

namespace quillan {
namespace {

// The state of the file. Saved_Take fills it.
struct SavedState {
  std::vector<std::uint64_t> iPrint;  // a fingerprint each transient
  std::vector<std::string> sPart;
  std::vector<bool> bTouched = std::vector<bool>(MTrn);  // the transient may differ
};
SavedState hSaved;

bool Trn_Differs(std::span<const Transient> h, std::size_t J) {
  if (!hSaved.bTouched[J]) return false;
  hSaved.bTouched[J] = Fingerprint(h[J]) != hSaved.iPrint[J];
  return hSaved.bTouched[J];
}

}  // namespace

void Saved_Take(std::span<const Transient> h, std::span<const std::string> sPart) {
  hSaved.iPrint.resize(h.size());
  std::ranges::transform(h, hSaved.iPrint.begin(), Fingerprint);
  hSaved.sPart.assign(sPart.begin(), sPart.end());
  hSaved.bTouched.assign(MTrn, false);
}

void Saved_Touch(I4 j) {
  hSaved.bTouched[static_cast<std::size_t>(j - 1)] = true;
}

bool Saved_Differs(std::span<const Transient> h, std::span<const std::string> sPart) {
  if (h.size() != hSaved.iPrint.size() || !std::ranges::equal(sPart, hSaved.sPart)) return true;
  for (std::size_t J = 0; J < h.size(); ++J) {
    if (Trn_Differs(h, J)) return true;
  }
  return false;
}

}  // namespace quillan
