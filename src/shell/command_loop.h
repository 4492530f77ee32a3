// command_loop.h: the main program: start, and the loop that waits for the commands of the main menu.
#pragma once

#include "base/types.h"

namespace quillan {

/// Opens the window, starts log, store and metadata, reads the first data file (of the command line, or of the user's
/// choice) and carries out commands until the user leaves. Ends by Stop_Program.
[[noreturn]] void Run_Program();

/// Outer size of the main window, pixels.
struct WindowSize {
  I4 NXP, NYP;  // width and height
  friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// At most 85 % of the screen's height, and a shape of at most 5:4.
WindowSize Window_Size(I4 NXScreen, I4 NYScreen);

}  // namespace quillan
