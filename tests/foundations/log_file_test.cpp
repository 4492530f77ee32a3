#include "foundations/log_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/files.h"
#include "toolkit/draw.h"
#include "toolkit/messages.h"
#include "toolkit/system.h"
#include "toolkit/window.h"

namespace quillan {
namespace {

namespace fs = std::filesystem;

class LogFile : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    I4 IOERR = -1;
    Log_Initialize("run.x", IOERR);
    ASSERT_EQ(IOERR, 0);
  }
  void TearDown() override {
    Log_Close();
    WindowClose();
    bAutoErr = true;
    bQuietErr = false;
  }
};

TEST_F(LogFile, NamesItsFilesAfterTheStemAndRemovesThoseOfAnEarlierRun) {
  LogText("old");
  LogErr({"old"});
  EXPECT_TRUE(fs::exists("run.log") && fs::exists("run.err"));
  I4 IOERR = -1;
  Log_Initialize("run", IOERR);
  EXPECT_EQ(IOERR, 0);
  EXPECT_FALSE(fs::exists("run.log") || fs::exists("run.err"));
  EXPECT_EQ(sLogFile, (fs::current_path() / "run.log").string());
  EXPECT_EQ(NTextBuffer, 0);

  fs::create_directories("a.b/stuck.log");
  Log_Initialize("a.b/stuck", IOERR);
  EXPECT_EQ(IOERR, 1) << "what stands in the way cannot be removed";
  EXPECT_EQ(sErrFile, "a.b/stuck.err") << "the point of a folder is not that of the name";
  fs::remove_all("a.b");
}

TEST_F(LogFile, KeepsEveryLineInTheFileAndTheLast48OnTheScreen) {
  for (I4 I = 1; I <= 50; ++I) LogText("line " + std::to_string(I) + "  ");
  LogText_File("file only");
  EXPECT_EQ(NTextBuffer, 48);
  EXPECT_EQ(sTextBuffer(1), "line 3");
  EXPECT_EQ(sTextBuffer(48), "line 50");
  const std::string sLog = Read_Whole_File(sLogFile);
  EXPECT_TRUE(sLog.starts_with("quillan v3.30n updated 23/Nov/2020\nline 1\nline 2\n")) << sLog;
  EXPECT_TRUE(sLog.ends_with("\nline 50\nfile only\n")) << sLog;
  LogText_Reset();
  EXPECT_EQ(NTextBuffer, 0);
}

TEST_F(LogFile, GoesOnInTheSameFileAfterItWasClosed) {
  LogText_File("one");
  Log_Close();
  LogText_File("two");
  EXPECT_EQ(Read_Whole_File(sLogFile), "quillan v3.30n updated 23/Nov/2020\none\ntwo\n");
}

TEST_F(LogFile, WritesFiveLinesOfAReport) {
  LogErr({"1", "2  ", "", "4", "5", "6", "7"});
  EXPECT_EQ(Read_Whole_File(sErrFile), " quillan v3.30n\n \n 1\n 2\n \n 4\n 5\n");
  EXPECT_EQ(Read_Whole_File(sLogFile), "quillan v3.30n updated 23/Nov/2020\n\n1\n2\n\n4\n5\n\n");
}

TEST_F(LogFile, LeavesOffAfter127ReportsOfBadRows) {
  for (I4 I = 1; I <= 130; ++I) LogErr_File({"row " + std::to_string(I)});
  const std::string sErr = Read_Whole_File(sErrFile);
  const std::string sEnd = "\n \n row 127\n \n More than 128 error messages, no further messages will be logged.\n";
  EXPECT_TRUE(sErr.ends_with(sEnd)) << sErr;
  LogErr({"still told"});
  EXPECT_TRUE(Read_Whole_File(sErrFile).ends_with(" still told\n"));
  EXPECT_FALSE(Read_Whole_File(sLogFile).find("row") != std::string::npos) << "bad rows go to the error file alone";
}

TEST_F(LogFile, SaysOnStandardErrorWhatNoWindowCanShow) {
  bAutoErr = false;
  testing::internal::CaptureStderr();
  LogErr({"AVG_Read.ERROR:", "no data  "});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "AVG_Read.ERROR:\nno data\n");
}

TEST_F(LogFile, AQuietCommandIsQuietUntilTheNext) {
  bAutoErr = false;
  bQuietErr = true;
  testing::internal::CaptureStderr();
  LogErr({"first"});
  LogErr_Begin_Command();
  LogErr({"second"});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "second\n");
  EXPECT_NE(Read_Whole_File(sErrFile).find(" first\n"), std::string::npos);
}

TEST_F(LogFile, TheTwentyFirstToolkitErrorEndsTheRun) {
  InfoError(iInfoLastError);
  InqWintError("nothing wrong");
  EXPECT_FALSE(fs::exists(sErrFile));
  for (I4 I = 1; I <= 20; ++I) {
    IOsCopyFile("missing", "copy");
    EXPECT_NO_THROW(InqWintError("LogFile 7"));
  }
  IOsCopyFile("missing", "copy");
  EXPECT_THROW(InqWintError(), ProgramStop);
  const std::string sErr = Read_Whole_File(sErrFile);
  const std::string sWords = WInfoErrorMessage(iErrFile);
  EXPECT_TRUE(sErr.starts_with(" quillan v3.30n\n \n Graphics ERROR: from LogFile 7\n " + sWords + "\n")) << sErr;
  EXPECT_TRUE(
      sErr.ends_with(" \n Graphics ERROR\n " + sWords + "\n \n  Program run aborted, more than 20 graphics errors.\n"))
      << sErr;
}

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
class LogWindow : public LogFile {
 protected:
  void Open_Window(const char* sSteps) {
    static char sName[] = "quillan";
    static char* sArguments[] = {sName, nullptr};
    std::ofstream("steps.txt") << sSteps;
    WInitialise(1, sArguments, *sSteps == '\0' ? "" : "steps.txt");
    WindowOpen2(0, 0, 800, 600, iNoMenu, "log");
    bAutoErr = false;
  }
};

TEST_F(LogWindow, KeepsTheUnitsOfWhoeverDraws) {
  Open_Window("");
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(-3.0f, -2.0f, 5.0f, 7.0f);
  LogText("a line");
  LogText(std::string(128, 'x'));
  EXPECT_EQ(InfoError(iInfoLastError), iErrNone);
  EXPECT_EQ(WInfoGrReal(iUnitXMin), -3.0f);
  EXPECT_EQ(WInfoGrReal(iUnitYMin), -2.0f);
  EXPECT_EQ(WInfoGrReal(iUnitXMax), 5.0f);
  EXPECT_EQ(WInfoGrReal(iUnitYMax), 7.0f);
}

TEST_F(LogWindow, TheErrorBoxIsTheWayOutOfARun) {
  Open_Window("expect \"no data\"\nanswer ok\nexpect \"again\"\nanswer cancel\n");
  EXPECT_NO_THROW(LogErr({"AVG_Read.ERROR:", "no data"}));
  LogText_File("still open");
  EXPECT_THROW(LogErr({"again"}), ProgramStop);
  EXPECT_FALSE(hLogFile.is_open());
  EXPECT_EQ(WInfoWindow(iWindowDrawable), 0) << "the window is closed";
}

TEST_F(LogWindow, APauseEndsWithAKeyOrWithTheWindow) {
  Open_Window("key a\n");
  I4 iType = 0, iValue1 = 0;
  Message_Pause(iType, iValue1);
  EXPECT_EQ(iType, 1);
  EXPECT_EQ(iValue1, 'a');
  EXPECT_THROW(Message_Pause(iType, iValue1), ProgramStop) << "the script's end closes the window";
}

TEST_F(LogWindow, LongWorkDrawsAnExposedWindowAnewAndEndsWithTheWindow) {
  Open_Window("");
  I4 iFlag = -1;
  Message_Check(iFlag);
  EXPECT_EQ(iFlag, 1) << "a window that has just been opened";
  Message_Check(iFlag);
  EXPECT_EQ(iFlag, 0);
}

}  // namespace
}  // namespace quillan
