// user_at_window.h: the person at the program, reached through windows and dialogs.
#pragma once

#include "foundations/user.h"

namespace quillan {

/// Reports and questions show as boxes and dialogs of the main window; while there is none, nobody is there.
User User_at_Window();

}  // namespace quillan
