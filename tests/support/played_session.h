// played_session.h: a window that a session script plays, for tests of the toolkit.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/draw/draw.h"
#include "toolkit/script/script.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

/// A message that came, as a test looks at it.
struct Came {
  MessageType iType;
  Message hMessage;
};

/// A bar in the place of the main menu, so that the toolkit is tested without the commands.
inline constexpr MenuRow hTestBar[] = {
    {0, 0, "&File", "", ""},
    {1, iCmdOpen, "&Open", "Open.", "Ctrl+O"},
    {1, iCmdSave, "&Save", "Save.", "Ctrl+S"},
    {1, iCmdSaveAs, "Save &As", "Save as.", "Ctrl+Shift+S"},
    {1, iCmdExit, "E&xit", "Exit.", "Ctrl+Q"},
    {0, iCmdReadStn, "Read Stn File", "Not there yet", "", false},
    {0, iCmdAutoSkip, "Auto &Skip", "Skip.", ""},
    {0, iCmdAverageRepeats, "Average Repeats", "Not there yet", "", false},
    {0, iCmdMerge, "Merge Data", "Not there yet", "", false},
    {0, iCmdExit, "E&xit", "Exit.", ""},
};

/// Opens a window of 900 x 600 pixels with that bar, in which steps.txt plays, and closes it at the end. What goes
/// to standard error is kept.
class PlayedSession {
 public:
  explicit PlayedSession(std::string_view sSteps) : hKept(std::cerr.rdbuf(sErrors.rdbuf())) {
    std::ofstream("steps.txt") << sSteps;
    WInitialise(1, hArgument, "steps.txt");
    WMenuDefine(iMenuMain, hTestBar);
    WindowOpen2(0, 0, 900, 600, iMenuMain, "QUILLAN test");
    IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  }
  ~PlayedSession() {
    WindowClose();
    std::cerr.rdbuf(hKept);
  }
  PlayedSession(const PlayedSession&) = delete;
  PlayedSession& operator=(const PlayedSession&) = delete;

  /// The next message that is neither an exposure nor a change of size.
  Came Next() {
    Came hCame;
    do WMessage(hCame.iType, hCame.hMessage);
    while (hCame.iType == MessageType::Expose || hCame.iType == MessageType::Resize);
    return hCame;
  }
  /// All messages until the close request that ends the script.
  std::vector<Came> Rest() {
    std::vector<Came> hAll;
    for (Came hCame = Next(); hCame.iType != MessageType::Close; hCame = Next()) hAll.push_back(hCame);
    return hAll;
  }
  std::string Errors() const { return sErrors.str(); }

 private:
  inline static char sProgram[] = "quillan";
  inline static char* hArgument[] = {sProgram, nullptr};
  std::ostringstream sErrors;
  std::streambuf* hKept;
};

}  // namespace quillan
