// The log in the window, its reports as boxes, and the toolkit's errors.
#include "toolkit/window/log_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "foundations/log_file.h"
#include "shell/user_at_window.h"
#include "support/files.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/script/script.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

namespace fs = std::filesystem;

// Every character is one unit wide.
std::vector<std::string_view> Rows(const std::vector<Text<128>>& sLine, I4 NRow, R4 fWidth) {
  const auto fLength = [](std::string_view sText) {
    const auto NContinued = std::ranges::count_if(sText, [](char c) { return (c & 0xC0) == 0x80; });
    return static_cast<R4>(sText.size()) - static_cast<R4>(NContinued);
  };
  return Lines_That_Fit(sLine, NRow, fWidth, fLength);
}

using RowList = std::vector<std::string_view>;

TEST(LinesThatFit, ShowsTheNewest) {
  const std::vector<Text<128>> sLine{"one", "", "three"};
  EXPECT_EQ(Rows(sLine, 5, 80.0f), (RowList{"one", "", "three"}));
  EXPECT_EQ(Rows(sLine, 2, 80.0f), (RowList{"", "three"}));
  EXPECT_EQ(Rows(sLine, 0, 80.0f), RowList{});
  EXPECT_EQ(Rows(sLine, -1, 80.0f), RowList{});
  EXPECT_EQ(Rows({}, 5, 80.0f), RowList{});
}

TEST(LinesThatFit, ALongLineGoesOnInAnother) {
  EXPECT_EQ(Rows({"read 12 of 40 rows"}, 9, 10.0f), (RowList{"read 12 of", "40 rows"})) << "at blanks";
  EXPECT_EQ(Rows({"read /data/line4.avg"}, 9, 10.0f), (RowList{"read", "/data/line", "4.avg"})) << "in a long path";
  EXPECT_EQ(Rows({"  indented text"}, 9, 10.0f), (RowList{"  indented", "text"}));
  EXPECT_EQ(Rows({"\xC2\xB5\xC2\xB5\xC2\xB5"}, 9, 2.0f), (RowList{"\xC2\xB5\xC2\xB5", "\xC2\xB5"}))
      << "in whole letters";
  EXPECT_EQ(Rows({"abc"}, 9, 0.0f), (RowList{"a", "b", "c"})) << "in a window without width";
  EXPECT_EQ(Rows({"\xE4\xE4"}, 9, 0.5f).size(), 1U + 1U) << "bytes of another encoding";
  EXPECT_EQ(Rows({"first", "read 12 of 40 rows"}, 2, 10.0f), (RowList{"read 12 of", "40 rows"}));
}

// A window in which a script plays the user.
class LogWindow : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    (void)Log_Initialize("run");
    Last_Error_Initialize();
    hUser = User_at_Window();
  }
  void TearDown() override {
    WindowClose();
    hUser = No_User();
    bAutoErr = true;
  }
  void Open_Window(const char* sSteps) {
    static char sName[] = "quillan";
    static char* sArguments[] = {sName, nullptr};
    std::ofstream("steps.txt") << sSteps;
    Script_Load(*sSteps == '\0' ? "" : "steps.txt");
    WInitialise(1, sArguments);
    WindowOpen2(0, 0, 800, 600, iMenuMain, "log");
    bAutoErr = false;
  }
};

TEST_F(LogWindow, KeepsTheUnitsOfWhoeverDraws) {
  Open_Window("");
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(-3.0f, -2.0f, 5.0f, 7.0f);
  LogText("a line");
  LogText(std::string(128, 'x'));
  EXPECT_EQ(InfoError(), iErrNone);
  EXPECT_EQ(WInfoGrReal(iUnitXMin), -3.0f);
  EXPECT_EQ(WInfoGrReal(iUnitYMin), -2.0f);
  EXPECT_EQ(WInfoGrReal(iUnitXMax), 5.0f);
  EXPECT_EQ(WInfoGrReal(iUnitYMax), 7.0f);
}

I4 NDrawn = 0;  // calls of Draw_Something
void Draw_Something() {
  ++NDrawn;
}

TEST_F(LogWindow, APictureStandsInThePlaceOfTheLinesUntilTheNextOne) {
  Open_Window("resize 500 400\nanswer ok\nresize 600 500\nanswer ok\n");
  NDrawn = 0;
  LogText("a line");
  LogText_Redraw();
  EXPECT_EQ(NDrawn, 0);
  LogText_Show_Picture(Draw_Something);
  EXPECT_EQ(NDrawn, 1);
  LogText_Redraw();
  LogText_Renew_Picture();
  EXPECT_EQ(NDrawn, 3);
  WMessageBox(BoxButtons::Ok, BoxIcon::Information, "waits", "");
  EXPECT_EQ(NDrawn, 4) << "at its new size, while a box waits";
  LogText("another line");
  LogText_Redraw();
  LogText_Renew_Picture();
  WMessageBox(BoxButtons::Ok, BoxIcon::Information, "waits", "");
  EXPECT_EQ(NDrawn, 4);
}

TEST_F(LogWindow, TheErrorBoxIsTheWayOutOfARun) {
  Open_Window(
      "expect \"no data OK goes on. Cancel ends the program; changes that are not saved are lost.\"\nanswer ok\nexpect "
      "\"again\"\nanswer cancel\n");
  EXPECT_NO_THROW(LogErr({"AVG_Read.ERROR:", "no data"}));
  LogText_File("still open");
  EXPECT_THROW(LogErr({"again"}), ProgramStop);
  EXPECT_FALSE(hLogFile.is_open());
  EXPECT_EQ(WInfoWindow(iWindowDrawable), 0) << "the window is closed";
}

TEST_F(LogWindow, TheTextIsLaidOutForAnotherSizeWhileABoxWaits) {
  Open_Window("resize 400 300\nanswer ok\nsnapshot then.png\nkey a\nsnapshot again.png\nkey a\n");
  for (I4 I = 1; I <= 40; ++I)
    LogText("transients written to a file whose name is somewhat longer than the window is wide");
  WMessageBox(BoxButtons::Ok, BoxIcon::Information, "waits", "");
  const auto Next_Key = [] {
    while (WMessage().iType != MessageType::Key) continue;
  };
  Next_Key();
  LogText_Update();
  Next_Key();
  EXPECT_EQ(Read_Whole_File("then.png"), Read_Whole_File("again.png"));
}

TEST_F(LogWindow, LongWorkDrawsAnExposedWindowAgain) {
  Open_Window("");
  EXPECT_EQ(Message_Check(), 1) << "a window that has just been opened";
  EXPECT_EQ(Message_Check(), 0);
}

TEST_F(LogWindow, TheTwentyFirstToolkitErrorEndsTheRun) {
  InfoError();
  InqWintError("nothing wrong");
  EXPECT_FALSE(fs::exists(sErrFile));
  for (I4 I = 1; I <= 20; ++I) {
    WDialogTitle("no dialog is open");
    EXPECT_NO_THROW(InqWintError("LogWindow 7"));
  }
  WDialogTitle("no dialog is open");
  EXPECT_THROW(InqWintError(), ProgramStop);
  const std::string sErr = Read_Whole_File(sErrFile);
  const std::string sWords = WInfoErrorMessage(iErrNoDialog);
  EXPECT_TRUE(sErr.starts_with(" quillan v3.30n\n \n Graphics ERROR: from LogWindow 7\n " + sWords + "\n")) << sErr;
  EXPECT_TRUE(
      sErr.ends_with(" \n Graphics ERROR\n " + sWords + "\n \n  Program run aborted, more than 20 graphics errors.\n"))
      << sErr;
}

}  // namespace
}  // namespace quillan
