// command_loop.h: the main program: start, the commands of the main menu, and the loop that waits for them.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Opens the window, starts log, store and metadata, reads the first data file (of the command line, or of the user's
/// choice) and carries out commands until the user leaves. Ends by Stop_Program.
[[noreturn]] void Run_Program();

/// Width and height of the main window: at most 85 % of the screen's height, and a shape of at most 5:4.
void Window_Size(I4 NXScreen, I4 NYScreen, I4& NXP, I4& NYP);

/// The path of the first data file: sCmdLine as a whole if a file has that name, else its first word, completed by
/// sFileExt where it has no extension and by the working folder where it has no folder. Without such a file the user
/// chooses one, and Cancel ends the program.
void Get_File(std::string_view sCmdLine, std::string& sFile, std::string_view sFileExt);

}  // namespace quillan
