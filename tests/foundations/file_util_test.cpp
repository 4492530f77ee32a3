#include "foundations/file_util.h"
#include "platform/arguments.h"
#include "platform/file_names.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quillan {
namespace {

namespace fs = std::filesystem;

TEST(FileUtil, CutsPathsIntoFolderNameAndExtension) {
  struct Case {
    std::string_view sPath, sDir, sName, sStem, sExt;
    I4 iName;
  };
  const Case hCase[] = {
      {"line4.avg",      "",          "line4.avg", "line4",      ".avg",     1 },
      {"/data/l4/x.avg", "/data/l4/", "x.avg",     "/data/l4/x", ".avg",     10},
      {"x.old.avg",      "",          "x.old.avg", "x.old",      ".avg",     1 },
      {"noext",          "",          "noext",     "noext",      "",         1 },
      {"noext   ",       "",          "noext",     "noext",      "",         1 },
      {".hidden",        "",          ".hidden",   ".hidden",    "",         1 },
      {"point.",         "",          "point.",    "point",      ".",        1 },
      {"d.1/noext",      "d.1/",      "noext",     "d",          ".1/noext", 5 }, // the last point of the path
      {"d/",             "d/",        "",          "d/",         "",         3 },
      {"",               "",          "",          "",           "",         1 },
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(File_Dir(h.sPath), h.sDir) << h.sPath;
    EXPECT_EQ(File_Name(h.sPath), h.sName) << h.sPath;
    EXPECT_EQ(File_Stem(h.sPath), h.sStem) << h.sPath;
    EXPECT_EQ(File_Ext(h.sPath), h.sExt) << h.sPath;
    EXPECT_EQ(Index_FName(h.sPath), h.iName) << h.sPath;
    EXPECT_EQ(Index_FileDir(h.sPath), h.iName - 1) << h.sPath;
    EXPECT_EQ(Index_FExt(h.sPath), static_cast<I4>(h.sStem.size())) << h.sPath;
  }
}

class FindFile : public testing::Test {
 protected:
  void SetUp() override {
    sOldPath = IOsVariable("PATH");
    for (const char* sDir : {"find", "find/a", "find/b", "find/a/folder.clr"}) fs::create_directory(sDir);
    for (const char* sPath : {"find/a/x.clr", "find/b/x.clr", "find/b/y.clr", "find/b/folder.clr"})
      std::ofstream(sPath) << "x";
    ::setenv("PATH", "find/none::find/a:find/b", 1);
  }
  void TearDown() override {
    ::setenv("PATH", sOldPath.c_str(), 1);
    fs::remove_all("find");
  }
  std::string sOldPath;
};

TEST_F(FindFile, LooksHereThenBesideTheProgramThenAlongThePath) {
  const std::string sProgramDir = Get_Exe_DirPath();
  ASSERT_TRUE(sProgramDir.ends_with(sSlash)) << sProgramDir;
  EXPECT_TRUE(fs::equivalent(Find_File("foundations_test"), sProgramDir + "foundations_test"));

  EXPECT_EQ(Find_File("find/b/x.clr"), "find/b/x.clr");
  EXPECT_EQ(Find_File("x.clr"), "find/a/x.clr");
  EXPECT_EQ(Find_File("y.clr  "), "find/b/y.clr");
  EXPECT_EQ(Find_File("folder.clr"), "find/b/folder.clr") << "a folder of that name is not the file";

  EXPECT_EQ(Find_File("missing.clr"), "");
  EXPECT_EQ(Find_File(" "), "");
  ::setenv("PATH", "", 1);
  EXPECT_EQ(Find_File("x.clr"), "");
  ::unsetenv("PATH");
  EXPECT_EQ(Find_File("x.clr"), "");
}

}  // namespace
}  // namespace quillan
