// window_shape.h: the size of a window of its own that a plot is shown in.
#pragma once

#include "base/types.h"

namespace quillan {

struct WindowShape {
  I4 NXPixel = 0, NYPixel = 0;
  I4 iError = 0;  // 1: no such shape, which is reported; there is no size then
};

/// The size in pixels of a window of fYXAspect, height over width from 0.1 to 10, that fills 95 % of the screen in one
/// direction.
WindowShape IGr_WindowShape(R4 fYXAspect);

}  // namespace quillan
