// The list of the files opened last.
#include "commands/recent_files.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/folders.h"
#include "support/files.h"

namespace quillan {
namespace {

class Recent : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(setenv("XDG_CONFIG_HOME", (IOsDirName() + "/settings").c_str(), 1), 0);
    std::remove(Config_File("recent.txt").c_str());
    Recent_Begin(true);
  }
  void TearDown() override {
    Recent_Begin(false);
    unsetenv("XDG_CONFIG_HOME");
  }
};

TEST_F(Recent, EightAreKeptFromRunToRunNewestFirstAndOnce) {
  for (I4 I = 1; I <= 9; ++I) Recent_Add("/data/line" + std::to_string(I) + ".avg");
  Recent_Add("/data/day1/../line5.avg");
  Recent_Begin(true);
  EXPECT_EQ(Read_Whole_File(Config_File("recent.txt")),
            "/data/line5.avg\n/data/line9.avg\n/data/line8.avg\n/data/line7.avg\n/data/line6.avg\n/data/line4.avg\n"
            "/data/line3.avg\n/data/line2.avg\n");
  EXPECT_EQ(Recent_File(1), "/data/line5.avg");
  EXPECT_EQ(Recent_File(9), "");
}

TEST_F(Recent, WhatAnotherWindowHasOpenedIsNotLost) {
  Recent_Add("/data/mine.avg");
  Write_File(Config_File("recent.txt"), "/data/theirs.avg\n/data/mine.avg\n");
  Recent_Add("/data/new.avg");
  EXPECT_EQ(Recent_File(2), "/data/theirs.avg");
  EXPECT_EQ(Recent_File(3), "/data/mine.avg");
}

TEST_F(Recent, APathThatIsNoLineIsNotKept) {
  Recent_Add("/data/two\nlines.avg");
  EXPECT_EQ(Recent_File(1), "");
}

TEST_F(Recent, TheUserLooksWhereAFileStillCouldBe) {
  Recent_Add(IOsDirName() + "/line.avg");
  Recent_Add("/nowhere/line.avg");
  EXPECT_EQ(Recent_Folder(), IOsDirName());
}

TEST_F(Recent, AScriptLeavesNothing) {
  Recent_Begin(false);
  Recent_Add("/data/line.avg");
  EXPECT_EQ(Recent_File(1), "");
  EXPECT_EQ(Read_Whole_File(Config_File("recent.txt")), "");
}

TEST(ConfigFile, StandsWhereTheDesktopKeepsSettings) {
  const std::string sHome = std::getenv("HOME");
  ASSERT_EQ(setenv("HOME", "/home/user", 1), 0);
  ASSERT_EQ(setenv("XDG_CONFIG_HOME", "not/a/full/path", 1), 0);
  EXPECT_EQ(Config_File("recent.txt"), "/home/user/.config/quillan/recent.txt");
  ASSERT_EQ(setenv("XDG_CONFIG_HOME", "/settings", 1), 0);
  EXPECT_EQ(Config_File("recent.txt"), "/settings/quillan/recent.txt");
  unsetenv("XDG_CONFIG_HOME");
  ASSERT_EQ(setenv("HOME", sHome.c_str(), 1), 0);
}

}  // namespace
}  // namespace quillan
