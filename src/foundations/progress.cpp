#include "foundations/progress.h"

#include <utility>

#include "foundations/file_util.h"
#include "platform/file_names.h"

namespace quillan {
namespace {

// The eye follows no more, and a look may draw the window.
constexpr std::chrono::milliseconds hBetweenLooks{50};

constexpr I8 NReadStep = 250;  // kB: some milliseconds of reading

}  // namespace

Progress::Progress(std::string sWhat, std::string_view sOf, I8 NInAll, I8 NBetween, Stoppable iWhether)
    : sWork(std::move(sWhat)), sUnit(sOf), NAll(NInAll), NStep(NBetween), iStoppable(iWhether) {
  bWorkStopped = false;
}

Progress::~Progress() {
  hUser.Work_Ends();
}

bool Progress::Look(I8 NDone) {
  if (bWorkStopped) return false;
  NNext = NDone + NStep;
  const Clock::time_point hNow = Clock::now();
  if (hNow < hNext) return true;
  const bool bMayStop = iStoppable == Stoppable::Yes;
  const R8 dSeconds = std::chrono::duration<R8>(hNow - hBegin).count();
  const bool bGoesOn = hUser.Look({sWork, sUnit, NDone, NAll, dSeconds, bMayStop});
  hNext = Clock::now() + hBetweenLooks;
  bWorkStopped = bMayStop && !bGoesOn;
  return !bWorkStopped;
}

ReadProgress::ReadProgress(std::string_view sFile)
    : work("Reading " + std::string(File_Name(sFile)), "kB", IOsFileSize(sFile) / NKilo, NReadStep) {}

}  // namespace quillan
