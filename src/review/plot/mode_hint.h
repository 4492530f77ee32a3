// mode_hint.h: the status bar while a review waits for clicks of a mode, and after them.
#pragma once

#include <string_view>

#include "toolkit/window/window.h"

namespace quillan {

/// What the next click does, in the status bar for as long as it lives.
class ModeHint {
 public:
  explicit ModeHint(std::string_view sHint) { WindowOutStatusBar(2, sHint); }
  ~ModeHint() { WindowOutStatusBar(2, ""); }
  ModeHint(const ModeHint&) = delete;
  ModeHint& operator=(const ModeHint&) = delete;
};

/// After a click that found nothing.
inline void Say_No_Point() {
  WindowOutStatusBar(2, "No point there");
}

}  // namespace quillan
