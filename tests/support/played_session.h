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
#include "toolkit/draw/last_error.h"
#include "toolkit/script/script.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

/// A bar in the place of the menus that the shell and the reviews define.
inline constexpr MenuRow hTestBar[] = {
    {0, 0, "&File", "", ""},
    {1, 40005, "&Open", "Open.", "Ctrl+O"},
    {1, 40009, "&Save", "Save.", "Ctrl+S"},
    {1, 40010, "Save &As", "Save as.", "Ctrl+Shift+S"},
    {1, 40011, "E&xit", "Exit.", "Ctrl+Q"},
    {0, 40018, "Read Stn File", "Not there yet", "", false},
    {0, 40016, "Auto &Skip", "Skip.", ""},
    {0, 40007, "Average Repeats", "Not there yet", "", false},
    {0, 40017, "Merge Data", "Not there yet", "", false},
    {0, 40011, "E&xit", "Exit.", ""},
};

/// Opens a window in which nothing plays.
inline void Open_Window(I4 NXP, I4 NYP, I4 iMenu = iNoMenu) {
  static char sProgram[] = "quillan";
  static char* hArgument[] = {sProgram, nullptr};
  WInitialise(1, hArgument);
  WindowOpen2(0, 0, NXP, NYP, iMenu, "QUILLAN test");
  InfoError();
}

inline constexpr I4 iTestMenu = 1;
/// Puts that bar under another number in the place of the one on show.
inline void Show_Test_Menu() {
  WMenuDefine(iTestMenu, hTestBar);
  WMenu(iTestMenu);
}

/// Opens a window of 900 x 600 pixels with the main menu, in which steps.txt plays, and closes it at the end. What goes
/// to standard error is kept.
class PlayedSession {
 public:
  explicit PlayedSession(std::string_view sSteps) : hKept(std::cerr.rdbuf(sErrors.rdbuf())) {
    std::ofstream("steps.txt") << sSteps;
    Script_Load("steps.txt");
    WMenuDefine(iMenuMain, hTestBar);
    Open_Window(900, 600, iMenuMain);
    IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  }
  ~PlayedSession() {
    WindowClose();
    Script_Load({});
    std::cerr.rdbuf(hKept);
  }
  PlayedSession(const PlayedSession&) = delete;
  PlayedSession& operator=(const PlayedSession&) = delete;

  /// The next message that is neither an exposure nor a change of size.
  Message Next() {
    Message hMessage = WMessage();
    while (hMessage.iType == MessageType::Expose || hMessage.iType == MessageType::Resize) hMessage = WMessage();
    return hMessage;
  }
  /// All messages until the close request that ends the script.
  std::vector<Message> Rest() {
    std::vector<Message> hAll;
    for (Message hNext = Next(); hNext.iType != MessageType::Close; hNext = Next()) hAll.push_back(hNext);
    return hAll;
  }
  std::string Errors() const { return sErrors.str(); }

 private:
  std::ostringstream sErrors;
  std::streambuf* hKept;
};

}  // namespace quillan
