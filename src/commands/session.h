// session.h: the data file that is open, and whether it has to be saved.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

// Module state of the shell. The path itself is sAvgFile of tmd_data.h. Session_Initialize restores it.
inline std::string sFileName;  // name part of the current data file, for titles and questions
inline L4 bUpdateAVG = false;  // a command that can change data has run since the last read or save
inline I4 NStn = 0;            // stations read

void Session_Initialize();

/// Puts the program's name, version and data file into the window's title.
void Session_Title();

}  // namespace quillan
