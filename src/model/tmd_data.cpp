#include "model/tmd_data.h"

#include <cstddef>
#include <type_traits>

namespace quillan {

namespace {

// Twelve megabytes that a small survey never touches: no time goes into them at the start, and no memory. A transient
// comes to be where TMD_Add_Transient, or a copy, puts it.
alignas(Transient) std::byte hRoom[sizeof(Array1<Transient, MTrn>)];
static_assert(std::is_trivially_copyable_v<Transient>, "a transient needs no more than its bytes");

}  // namespace

Array1<Transient, MTrn>& hTrn = reinterpret_cast<Array1<Transient, MTrn>&>(hRoom);

void TMD_Initialize() {
  NTrn = 0;
  hAvgKept = AvgKeptLines{};
  hTemSurvey = Survey{};
}

Transient& TMD_Add_Transient() {
  return hTrn(++NTrn) = Transient{};
}

}  // namespace quillan
