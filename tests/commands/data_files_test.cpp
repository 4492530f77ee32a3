// Which file is opened, and which files a save writes.
#include <gtest/gtest.h>

#include "commands/open_file.h"
#include "commands/save_survey.h"
#include "commands/session.h"
#include "platform/folders.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

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
    EXPECT_EQ(Get_File(h.sCmdLine, ".avg"), sDir + h.sFile) << h.sCmdLine;
  }
}

TEST(GetFile, WithoutAFileAndAChoiceTheProgramStops) {
  Begin_Test();
  EXPECT_THROW((void)Get_File("no such file", ".avg"), ProgramStop);
}

TEST(FormatTable, AFormatIsFoundByItsExtensionInAnyCase) {
  ASSERT_NE(Format_of("/data/LINE1.xdB"), nullptr);
  EXPECT_EQ(Format_of("/data/LINE1.xdB")->CExt, ".XDB");
  EXPECT_EQ(Format_of("line.tem"), nullptr) << "is written, but not read";
  EXPECT_EQ(Format_of("line"), nullptr);
}

TEST(FormatTable, TheFilesOfASaveFollowTheStemOfTheDataFile) {
  const std::string sDataFile = "/data/line1.v2.xdb";
  std::string sNames;
  for (const FileFormat& h : hFileFormat) {
    if (h.iBox != 0) sNames += Output_Name(h, sDataFile) + ' ';
  }
  EXPECT_EQ(sNames, "/data/line1.v2.xdb /data/line1.v2o.avg /data/line1.v2.tem /data/line1.v2.usf ");
  EXPECT_EQ(Output_Name(*Format_of("/data/line1.z"), "/data/line1.z"), "/data/line1.avg");
  EXPECT_EQ(Backup_Name(sDataFile), "/data/line1.v2.$.xdb");
  EXPECT_EQ(Backup_Name("/data/line"), "/data/line.$");
}

TEST(WriteData, FailedBackupWritesNothing) {
  Load({TransientBuilder().Values({5})});
  // The backup's name is too long for the file system, the data file's is not.
  const std::string sName = std::string(250, 'a') + ".avg";
  Write_File(sName, "as it was");
  hSession.bUpdateAVG = true;
  EXPECT_EQ(TEM_Write_Data(sName), 1);
  EXPECT_TRUE(hSession.bUpdateAVG);
  EXPECT_EQ(Read_Whole_File(sName), "as it was");
  EXPECT_NE(Read_Whole_File("test.log").find("ERROR while making backup copy of"), std::string::npos);
}

}  // namespace
}  // namespace quillan
