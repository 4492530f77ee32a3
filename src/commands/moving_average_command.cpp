#include "commands/moving_average_command.h"

#include <string>

#include "foundations/str_write.h"
#include "processing/moving_average.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

std::string Result(const SmoothCount& h) {
  std::string sText = "Moving average: soundings smoothed: " + Str_Write_I4(h.NSmoothed).str() +
                      "; values lost: " + Str_Write_I4(h.NLost).str();
  if (h.jStop != 0) sText += "; stopped at sounding " + Str_Write_I4(h.jStop).str() + ": fewer than two resistivities";
  return sText + ".";
}

}  // namespace

I4 Smooth_Survey() {
  const I4 iError = GMA_Time();
  if (iError == 0) WindowOutStatusBar(iStatusProgress, Result(hSmoothCount));
  return iError;
}

}  // namespace quillan
