// session.h: the data file that is open, and whether it has to be saved.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

struct Session {
  std::string sFileName;  // name part of the current data file, for titles and questions
  L4 bUpdateAVG = false;  // a command that can change data has run since the last read or save
};

// Module state. Open and Save keep it. The path of the file is sAvgFile of tmd_data.h.
inline Session hSession;

/// The program's name, version and date of change, with which titles begin.
std::string Program_Title();

/// Puts the program and the data file into the window's title.
void Session_Title();

/// Where the store is empty: the title names no file, and the status bar says how to open one.
void Show_No_Data();

}  // namespace quillan
