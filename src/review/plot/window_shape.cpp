#include "review/plot/window_shape.h"

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "toolkit/window/window.h"

namespace quillan {

WindowShape IGr_WindowShape(R4 fYXAspect) {
  constexpr R4 fScreenPart = 0.95f;
  const bool bGood = fYXAspect >= 0.1f && fYXAspect <= 10.0f;
  if (!bGood) {
    const std::string sAspect = Str_Write_R4(fYXAspect, "(1P,G14.4E1)").str();
    LogErr({"IGr_WindowShape.ERROR", "Target window aspect ratio = " + sAspect + " < 0.1 or > 100"});
    return {.iError = 1};
  }
  const R4 fWidth = fScreenPart * static_cast<R4>(WInfoScreen(iScreenWidth));
  const R4 fHeight = fScreenPart * static_cast<R4>(WInfoScreen(iScreenHeight));
  if (fHeight <= fYXAspect * fWidth) return {Nint(fHeight / fYXAspect), Nint(fHeight)};
  return {Nint(fWidth), Nint(fWidth * fYXAspect)};
}

}  // namespace quillan
