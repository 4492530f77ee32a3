// session.h: the data file that is open, and whether it has to be saved.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// The path of the file is sAvgFile of tmd_data.h.
struct Session {
  std::string sFileName;  // name part of the current data file, for titles and questions
  L4 bUpdateAVG = false;  // a command that can change data has run since the last read or save
};
inline Session hSession;

/// Puts the program's name, version and data file into the window's title.
void Session_Title();

// Old forms; they go when the last caller has changed.
inline std::string& sFileName = hSession.sFileName;
inline I4 NStn = 0;

}  // namespace quillan
