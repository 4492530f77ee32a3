// live_dialog.h: a dialog that shows what its values would do while they are chosen.
#pragma once

#include <functional>

#include "base/types.h"

namespace quillan {

/// Shows the current dialog and runs it until the user leaves it. Show is called at first and after each change of a
/// field. Returns the button that ended it, iBtnContinue or iBtnCancel; a close request of the window is a Cancel.
[[nodiscard]] I4 Run_Live_Dialog(const std::function<void()>& Show);

}  // namespace quillan
