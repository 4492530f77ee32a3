// options.h: the command line: options, taken out first, and what remains for the program and the window system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillan {

/// What `quillan --help` prints: no line above 80 columns.
extern const std::string_view sHelp;

struct Options {
  bool bHelp = false;
  bool bVersion = false;
  bool bExample = false;          // open a copy of the example survey
  bool bRecent = false;           // keep the list of recent files also when a script plays
  std::string sScript;            // steps to play; blank: none
  std::string sRecord;            // file for what the user does, as steps; blank: none
  std::string sJournal;           // folder of the journals; blank: the user's own, and none with a script
  std::string sFault;             // why the command line cannot be used, and what helps; blank: it can
  std::vector<char*> hRemaining;  // the program's name and what is no option of ours
};

/// An option that is none of ours nor of the window system is a fault; after "--" everything is a file.
Options Read_Options(int argc, char** argv);

}  // namespace quillan
