#include "foundations/log_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/files.h"
#include "support/user_notebook.h"

namespace quillan {
namespace {

namespace fs = std::filesystem;

class LogFile : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    ASSERT_EQ(Log_Initialize("run.x"), 0);
  }
  void TearDown() override {
    Log_Close();
    bAutoErr = true;
    bQuietErr = false;
  }
};

TEST_F(LogFile, NamesItsFilesAfterTheStemAndRemovesThoseOfAnEarlierRun) {
  LogText("old");
  LogErr({"old"});
  EXPECT_TRUE(fs::exists("run.log") && fs::exists("run.err"));
  EXPECT_EQ(Log_Initialize("run"), 0);
  EXPECT_FALSE(fs::exists("run.log") || fs::exists("run.err"));
  EXPECT_EQ(sLogFile, (fs::current_path() / "run.log").string());
  EXPECT_EQ(NTextBuffer, 0);

  fs::create_directories("a.b/stuck.log");
  EXPECT_EQ(Log_Initialize("a.b/stuck"), 1) << "what stands in the way cannot be removed";
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
  LogErr({"still written"});
  EXPECT_TRUE(Read_Whole_File(sErrFile).ends_with(" still written\n"));
  EXPECT_FALSE(Read_Whole_File(sLogFile).find("row") != std::string::npos) << "bad rows go to the error file alone";
}

TEST_F(LogFile, SaysOnStandardErrorWhatNobodyIsThereToRead) {
  bAutoErr = false;
  testing::internal::CaptureStderr();
  LogErr({"AVG_Read.ERROR:", "no data  "});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "AVG_Read.ERROR:\nno data\n");
}

TEST_F(LogFile, AfterAReportTheUserGoesOnWantsNoFurtherOrEndsTheRun) {
  bAutoErr = false;
  UserNotebook hBook;
  LogErr({"first  ", std::string(200, 'x')});
  hBook.iAfterReport = AfterReport::Quiet;
  LogErr({"second"});
  LogErr({"third"});
  LogErr_Begin_Command();
  hBook.iAfterReport = AfterReport::Stop;
  EXPECT_THROW(LogErr({"fourth"}), ProgramStop);
  const std::string sFirst = "first\n" + std::string(128, 'x');
  EXPECT_EQ(hBook.sNote, (std::vector<std::string>{sFirst, "second", "fourth", "left"}));
  EXPECT_NE(Read_Whole_File(sErrFile).find(" third\n"), std::string::npos) << "quiet is for the boxes alone";
}

}  // namespace
}  // namespace quillan
