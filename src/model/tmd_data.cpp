#include "model/tmd_data.h"

namespace quillan {

Array1<Transient, MTrn> hTrn;

// Defined here and not in the class: the store is then filled at the start of the run and takes no room in the program
// file.
Transient::Transient() = default;

void TMD_Initialize() {
  NTrn = 0;
  hAvgKept = AvgKeptLines{};
  hTemSurvey = Survey{};
  hTrn.fill(Transient{});
}

}  // namespace quillan
