#include "files/mde_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/save_report.h"
#include "metadata/mdp_data.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

// What the survey of these tests writes.
const std::string sSurveyLines =
    "$ Job.Name = \"Orrin basin\"\n"
    "$ Survey.Type = TEM\n"
    "$ Survey.Array = MVL\n"
    "$ Tx.Turns = 1\n"
    "$ Tx.Length = 100,100 m\n"
    "$ Unit.Length = m\n"
    "$ Unit.Time = msec\n"
    "$ Unit.E = uV/Am\n"
    "$ Unit.B = nT/A\n"
    "$ Unit.dBdt = nV/Am2\n";

class MetadataFile : public testing::Test {
 protected:
  void SetUp() override {
    Begin_Test();
    MDP_Initialize();
    MdJob = JobGroup{};
    hTemSurvey.sJobName = "Orrin basin";
    hTemSurvey.iTemArray = iArrayMVL;
    LogText_Reset();
    std::filesystem::remove("line.mde");
  }

  static I4 Read() {
    std::string sMdeFile = "line.mde";
    return MDE_Read(sMdeFile);
  }

  static std::string Updated(const std::string& sOld) {
    Write_File("line.mde", sOld);
    EXPECT_EQ(MDE_Rewrite("line.mde"), 0);
    return Read_Whole_File("line.mde");
  }
};

TEST_F(MetadataFile, SuppliesOnlyWhatTheDataFileLeavesOpen) {
  ASSERT_EQ(MDP_from_MDE(1, "$ Tx.Freq= 8", iPriorityData).IOERR, 0);
  Write_File("line.mde",
             "! $ Job.Name = comment\n"
             "' $ Job.Area = comment\n"
             "   $ Job.For = client\r\n"
             "$ Tx.Freq = 16\n"
             "$ Narvo: Job.By = other\n"
             "no record\n"
             "$\n"
             "$ Stn.KvrBeg = 100\n"
             "$ Stn.Inc = 1E-9\n");
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(MdTx.fFreq, 8.0f);
  EXPECT_EQ(MdJob.sFor, "client");
  EXPECT_TRUE(MdJob.sName.Is_Blank());
  EXPECT_TRUE(MdJob.sArea.Is_Blank());
  EXPECT_TRUE(MdJob.sBy.Is_Blank());
  EXPECT_EQ(MdStn.dStnKvrInc, 1.0);
  EXPECT_EQ(MdStn.dStnBeg, 100.0) << "the rescaled numbers are the recorded ones without other word";
  EXPECT_EQ(Shown("Project annotation and stn # scaling read from line.mde"), 1);
}

TEST_F(MetadataFile, MissingFileStillSettlesTheStationScaling) {
  MdStn.dStnKvrBeg = 50.0;
  MdStn.dStnKvrInc = -25.0;
  MdStn.dStnInc = 1.0E-7;
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(MdStn.dStnBeg, 50.0);
  EXPECT_EQ(MdStn.dStnInc, -25.0);

  MdStn = StnGroup{};
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(MdStn.dStnKvrBeg, 0.0);
  EXPECT_EQ(MdStn.dStnInc, 1.0);
}

TEST_F(MetadataFile, UpdateKeepsWhatIsNotOurs) {
  struct Case {
    const char* sWhat;
    std::string_view sLine;
    bool bKept;
  };
  const std::vector<Case> hCase = {
      {"foreign keyword",             "$ FOO= 1",                       true },
      {"own keyword",                 "$ Job.Name = old",               false},
      {"older spelling",              "$TXCX=5",                        false},
      {"own word within a name",      "$ TXCX1= 5",                     false},
      {"line keyword of any kind",    "$ Line.Type= Meander",           false},
      {"without a value",             "$ Job.Name =",                   true },
      {"without an equals sign",      "$ Job.Name",                     true },
      {"no $ in reach",               "     Note= $ Job",               true },
      {"other program, own keyword",  "$ Dorval: UNIT= m",              true },
      {"legacy program, own keyword", "$ Narvo: UNIT= m",               false},
      {"legacy program, another",     "$ Narvo: FOO= m",                true },
      {"legacy name after the $",     "$Narvo: UNIT= m",                true },
      {"our program",                 "$ Quillan: FOO= m",              false},
      {"our name after the $",        "$QUILLAN: FOO= m",               true },
      {"a colon in the value",        "$ Job.Name= Orrin: north",       true },
      {"the same without a keyword",  "$ Start= 10:30:00",              true },
      {"comment",                     "! Job.Name = by hand",           true },
      {"quote",                       "\" remark",                      true },
      {"apostrophe, own keyword",     "' Job.Name = x",                 false},
      {"comment of a former update",  "\\ Kvr-to-final stn # scaling",  false},
      {"the other one",               "/ Legacy keywords for narvo v2", false},
      {"two characters",              "$a",                             false},
      {"blank",                       "     ",                          false},
  };
  for (const Case& h : hCase) {
    const std::string sLine(Left_Adjusted(h.sLine));
    EXPECT_EQ(Updated(std::string(h.sLine) + "\n"), sSurveyLines + (h.bKept ? sLine + "\n" : "")) << h.sWhat;
  }
}

TEST_F(MetadataFile, UpdateCutsLongLinesBetweenCharacters) {
  // The character of two bytes would straddle the cut.
  EXPECT_EQ(Updated("$ FOO= " + std::string(72, 'x') + "\xC3\xA9yyy\n"),
            sSurveyLines + "$ FOO= " + std::string(72, 'x') + "\n");
}

TEST_F(MetadataFile, NewFileNeedsNoQuestionAndAnOldOneIsNotTouchedWithoutAYes) {
  EXPECT_EQ(MDE_Update(""), 1);
  EXPECT_EQ(MDE_Update("line.mde"), 0);
  EXPECT_EQ(Read_Whole_File("line.mde"), sSurveyLines);
  EXPECT_EQ(Shown("Writing QUILLAN keyword records into line.mde"), 1);

  Write_File("line.mde", "$ Job.Name = old\n");
  EXPECT_EQ(MDE_Update("line.mde"), 1) << "without a window the question has no answer";
  EXPECT_EQ(Read_Whole_File("line.mde"), "$ Job.Name = old\n");

  std::filesystem::rename("line.mde", "LINE.MDE");
  EXPECT_EQ(MDE_Update("line.mde"), 1) << "the file is there, so the user is asked";
  EXPECT_FALSE(std::filesystem::exists("line.mde"));
  std::filesystem::remove("LINE.MDE");
}

TEST_F(MetadataFile, FailedSaveIsReported) {
  EXPECT_EQ(MDE_Rewrite("nowhere/line.mde"), 1);
  EXPECT_EQ(Shown("ERROR while trying to open"), 1);
  EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);

  hSaveState.sSaved = "line.avg";
  EXPECT_EQ(MDE_Rewrite("nowhere/line.mde"), 1);
  EXPECT_EQ(Shown("The data file line.avg is saved, line.mde is not; choose Save again."), 1);
  EXPECT_TRUE(hSaveState.sFailed.starts_with("line.mde: "));
  hSaveState = {};
}

}  // namespace
}  // namespace quillan
