
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "platform/arguments.h"
#include "platform/clock.h"
#include "platform/file_names.h"
#include "platform/safe_file.h"
#include "support/files.h"

namespace quillan {
namespace {

namespace fs = std::filesystem;

TEST(System, ArgumentsAreCountedFromTheProgramsName) {
  System_Set_Arguments({"quillan", "a.avg", "b c.avg"});
  EXPECT_EQ(IOsArguments(), 2);
  for (const auto& [iArg, sWanted] : {
           std::pair{1,  "a.avg"  },
           {2,  "b c.avg"},
           {3,  ""       },
           {-1, ""       }
  }) {
    EXPECT_EQ(IOsArgument(iArg), sWanted) << iArg;
  }
  const std::string sValue = IOsArgument(0);
  EXPECT_TRUE(fs::path(sValue).is_absolute() && fs::exists(sValue)) << sValue;
}

TEST(System, TheDateCanBeFixed) {
  struct Case {
    const char* sSeconds;
    I4 iYear, iMonth, iDay;
  };
  ::setenv("TZ", "Pacific/Kiritimati", 1);  // where the day is another one for most of the time
  for (const Case& h : {
           Case{"0",          1970, 1,  1 },
           {"1605225599", 2020, 11, 12},
           {"1605225600", 2020, 11, 13}
  }) {
    ::setenv("SOURCE_DATE_EPOCH", h.sSeconds, 1);
    const Date hDate = IOsDate();
    EXPECT_EQ((std::tuple{hDate.iYear, hDate.iMonth, hDate.iDay}), (std::tuple{h.iYear, h.iMonth, h.iDay}));
  }
  for (const char* sBad : {"", "12x", "99999999999999999999"}) {
    ::setenv("SOURCE_DATE_EPOCH", sBad, 1);
    EXPECT_GE(IOsDate().iYear, 2024) << "the day of today for \"" << sBad << "\"";
  }
  ::unsetenv("SOURCE_DATE_EPOCH");
  ::unsetenv("TZ");
}

class SystemFiles : public testing::Test {
 protected:
  void SetUp() override { fs::create_directory("files"); }
  void TearDown() override { fs::remove_all("files"); }
};

TEST_F(SystemFiles, ACopyHasTheBytesAndTheModeOfItsSource) {
  std::string sBytes(1000000, '\0');
  for (std::size_t I = 0; I < sBytes.size(); I += 7) sBytes[I] = static_cast<char>(I);
  Write_File("files/a", sBytes);
  fs::permissions("files/a", fs::perms{0600});
  EXPECT_EQ(IOsCopyFile("files/a", "files/b").iIOError, 0);
  EXPECT_TRUE(Read_Whole_File("files/b") == sBytes);
  EXPECT_EQ(fs::status("files/b").permissions(), fs::perms{0600}) << "a backup is not more open than the data";

  Write_File("files/a", "");
  EXPECT_EQ(IOsCopyFile("files/a", "files/b").iIOError, 0);
  EXPECT_EQ(Read_Whole_File("files/b"), "");
}

TEST_F(SystemFiles, ACopyThatFailsSaysHowAndLeavesTheTarget) {
  struct Case {
    const char *sFrom, *sTo;
    I4 iIOError, iOSError;
  };
  const Case hCase[] = {
      {"files/missing", "files/b",      iIOErrOpen,  ENOENT},
      {"files",         "files/b",      iIOErrOpen,  EISDIR},
      {"files/a",       "files",        iIOErrWrite, EISDIR},
      {"files/a",       "files/none/b", iIOErrWrite, ENOENT},
  };
  Write_File("files/a", "new");
  Write_File("files/b", "earlier");
  for (const Case& h : hCase) {
    const CopyStatus hStatus = IOsCopyFile(h.sFrom, h.sTo);
    EXPECT_EQ(hStatus.iIOError, h.iIOError) << h.sFrom << " to " << h.sTo;
    EXPECT_EQ(hStatus.iOSError, h.iOSError) << h.sFrom << " to " << h.sTo;
  }
  EXPECT_EQ(Read_Whole_File("files/b"), "earlier");
  EXPECT_EQ(std::distance(fs::directory_iterator("files"), {}), 2) << "no temporary file stays";
}

TEST_F(SystemFiles, WhatAKilledRunLeftForATargetGoesWithTheNextSaveOfIt) {
  const auto Names = [] {
    std::set<std::string> sName;
    for (const auto& h : fs::directory_iterator("files")) sName.insert(h.path().filename().string());
    return sName;
  };
  const std::set<std::string> sOthers{".b.quillan-abc123", ".a.quillan-abc12", ".a.quillan-ABC123", ".a.backup", "b"};
  for (const std::string& s : sOthers) Write_File("files/" + s, "");
  fs::create_symlink("b", "files/.a.quillan-linked");
  Write_File("files/.a.quillan-abc123", "half of it");
  {
    SafeFile hFirst("files/a");  // runs still
    SafeFile hSecond("files/a");
    EXPECT_EQ(Names().size(), sOthers.size() + 3) << "what is being written stays";
    EXPECT_FALSE(Names().contains(".a.quillan-abc123"));
    hFirst.Commit();
    EXPECT_FALSE(hFirst.Has_Failed());
  }
  std::set<std::string> sWanted = sOthers;
  sWanted.insert({"a", ".a.quillan-linked"});
  EXPECT_EQ(Names(), sWanted);
}

TEST_F(SystemFiles, CompanionsAreFoundWithoutRegardToCase) {
  for (const char* sName : {"LINE.MDE", "Line.mde", "other.stn", "OTHER.TXT"})
    Write_File("files/" + std::string(sName), "");
  fs::create_directory("files/LINE.stn");
  if (fs::exists("files/line.mde")) GTEST_SKIP() << "the file system has no regard to case itself";
  EXPECT_EQ(IOsFindCompanion("files/Line.mde"), "files/Line.mde") << "the exact name first";
  EXPECT_EQ(IOsFindCompanion("files/line.mde"), "files/LINE.MDE") << "else the first in byte order";
  EXPECT_EQ(IOsFindCompanion("files/OTHER.STN"), "files/other.stn");
  EXPECT_EQ(IOsFindCompanion("files/line.stn"), "files/line.stn") << "a folder is no companion";
  EXPECT_EQ(IOsFindCompanion("files/none.mde"), "files/none.mde");
  EXPECT_EQ(IOsFindCompanion("nowhere/line.mde"), "nowhere/line.mde");
  Write_File("COMPANION.MDE", "");
  EXPECT_EQ(IOsFindCompanion("companion.mde"), "COMPANION.MDE") << "in the working folder";
}

}  // namespace
}  // namespace quillan
