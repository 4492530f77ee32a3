// The main program's small rules, and the names of the files of a save.
#include <gtest/gtest.h>

#include "commands/save_survey.h"
#include "platform/folders.h"
#include "shell/command_loop.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(WindowSize, IsHeldToAShapeOnWideAndOnPortraitScreens) {
  struct Case {
    I4 NXScreen, NYScreen, NXP, NYP;
  };
  for (const Case& h : {
           Case{1920, 1200, 1275, 1020},
           Case{3840, 1080, 1147, 918 },
           Case{1080, 1920, 1080, 864 }
  }) {
    I4 NXP = 0, NYP = 0;
    Window_Size(h.NXScreen, h.NYScreen, NXP, NYP);
    EXPECT_EQ(NXP, h.NXP);
    EXPECT_EQ(NYP, h.NYP);
  }
}

TEST(GetFile, TakesAWholeNameWithBlanksElseTheFirstWord) {
  Begin_Test();
  const std::string sDir = IOsDirName();
  Write_File("line 1.avg", "");
  Write_File("line2.avg", "");
  Write_File("line3.xdb", "");
  struct Case {
    const char* sCmdLine;
    const char* sFile;
  };
  for (const Case& h : {
           Case{"line 1.avg",   "/line 1.avg"},
           Case{"  line2 rest", "/line2.avg" },
           Case{"line2.avg\tx", "/line2.avg" },
           Case{"line3.xdb",    "/line3.xdb" }
  }) {
    std::string sFile;
    Get_File(h.sCmdLine, sFile, ".avg");
    EXPECT_EQ(sFile, sDir + h.sFile) << h.sCmdLine;
  }
}

TEST(GetFile, WithoutAFileAndAChoiceTheProgramStops) {
  Begin_Test();
  std::string sFile;
  EXPECT_THROW(Get_File("no such file", sFile, ".avg"), ProgramStop);
}

TEST(OutputNames, FollowTheStemOfTheDataFile) {
  const OutputNames h("/data/line1.v2.xdb");
  EXPECT_EQ(h.sAvg, "/data/line1.v2.xdb");
  EXPECT_EQ(h.sAvg0, "/data/line1.v2o.avg");
  EXPECT_EQ(h.sMde, "/data/line1.v2.mde");
  EXPECT_EQ(h.sBackup, "/data/line1.v2.$.xdb");
  EXPECT_EQ(OutputNames("/data/line").sBackup, "/data/line.$");
}

TEST(WriteData, FailedBackupWritesNothing) {
  Load({TransientBuilder().Values({5})});
  // The backup's name is too long for the file system, the data file's is not.
  const std::string sName = std::string(250, 'a') + ".avg";
  Write_File(sName, "as it was");
  L4 bUpdate = true;
  I4 iError = 0;
  TEM_Write_Data(sName, bUpdate, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_TRUE(bUpdate);
  EXPECT_EQ(Read_Whole_File(sName), "as it was");
  EXPECT_NE(Read_Whole_File("test.log").find("ERROR while making backup copy of"), std::string::npos);
}

}  // namespace
}  // namespace quillan
