#include "files/mde_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "foundations/log_file.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

// What the survey of these tests writes.
constexpr std::string_view sSurveyLines =
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
    bAutoErr = true;
    I4 iError = 0;
    Log_Initialize("quillan", iError);
    MDP_Initialize(iError);
    MdJob = JobGroup{};
    TMD_Initialize(iError);
    hTemSurvey.sJobName = "Orrin basin";
    hTemSurvey.iTemArray = iArrayMVL;
    LogText_Reset();
    std::filesystem::remove("line.mde");
  }

  static void Write(std::string_view sText) { std::ofstream("line.mde", std::ios::binary) << sText; }

  static std::string Content() {
    std::ostringstream sText;
    sText << std::ifstream("line.mde", std::ios::binary).rdbuf();
    return sText.str();
  }

  static I4 Read() {
    std::string sMdeFile = "line.mde";
    I4 iError = -1;
    MDE_Read(sMdeFile, iError);
    return iError;
  }

  static std::string Updated(std::string_view sOld) {
    Write(sOld);
    I4 iError = -1;
    MDE_Rewrite("line.mde", iError);
    EXPECT_EQ(iError, 0);
    return Content();
  }

  static I4 Shown(std::string_view sPart) {
    I4 NShown = 0;
    for (I4 I = 1; I <= NTextBuffer; ++I) {
      if (sTextBuffer(I).trimmed().find(sPart) != std::string_view::npos) ++NShown;
    }
    return NShown;
  }
};

TEST_F(MetadataFile, SuppliesOnlyWhatTheDataFileLeavesOpen) {
  I4 IOERR = 0;
  MDP_from_MDE(1, "$ Tx.Freq= 8", iPriorityData, IOERR);
  Write(
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
  EXPECT_EQ(MdStn.dStnBeg, 100.0) << "the rescaled numbers are the recorded ones unless told";
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

TEST_F(MetadataFile, AnyBytesAreHarmless) {
  using namespace std::string_literals;
  Write("$ Job.Name\0= x\n"s + std::string(10 << 20, 'x') + "\n$ Job.For = \xFF\xFE\n$ Job.By = crew"s);
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(MdJob.sBy, "crew");
  EXPECT_NE(Updated(Content()).find("\n" + std::string(80, 'x') + "\n"), std::string::npos);
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
      {"legacy name behind the $",    "$Narvo: UNIT= m",                true },
      {"our program",                 "$ Quillan: FOO= m",              false},
      {"our name behind the $",       "$QUILLAN: FOO= m",               true },
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
    const std::string sLine(
        h.sLine.substr(h.sLine.find_first_not_of(' ') == std::string_view::npos ? 0 : h.sLine.find_first_not_of(' ')));
    EXPECT_EQ(Updated(std::string(h.sLine) + "\n"), std::string(sSurveyLines) + (h.bKept ? sLine + "\n" : ""))
        << h.sWhat;
  }
}

TEST_F(MetadataFile, UpdateIsStable) {
  const std::string sText = Updated("! by hand\n$ FOO= 1   \n$ Job.Name = old\n");
  EXPECT_EQ(sText, std::string(sSurveyLines) + "! by hand\n$ FOO= 1\n");
  EXPECT_EQ(Updated(sText), sText);
}

TEST_F(MetadataFile, UpdateCutsLongLinesBetweenCharacters) {
  // The character of two bytes would straddle the cut.
  EXPECT_EQ(Updated("$ FOO= " + std::string(72, 'x') + "\xC3\xA9yyy\n"),
            std::string(sSurveyLines) + "$ FOO= " + std::string(72, 'x') + "\n");
}

TEST_F(MetadataFile, NewFileNeedsNoQuestionAndAnOldOneIsNotTouchedWithoutAYes) {
  I4 iError = -1;
  MDE_Update("", iError);
  EXPECT_EQ(iError, 1);
  MDE_Update("line.mde", iError);
  EXPECT_EQ(iError, 0);
  EXPECT_EQ(Content(), sSurveyLines);
  EXPECT_EQ(Shown("Writing QUILLAN keyword records into line.mde"), 1);

  Write("$ Job.Name = old\n");
  MDE_Update("line.mde", iError);  // without a window the question has no answer
  EXPECT_EQ(iError, 1);
  EXPECT_EQ(Content(), "$ Job.Name = old\n");
}

TEST_F(MetadataFile, UpdateGoesToTheFileThatWasFound) {
  I4 iError = -1;
  Write("");
  std::filesystem::rename("line.mde", "LINE.MDE");
  MDE_Update("line.mde", iError);
  EXPECT_EQ(iError, 1) << "the file is there, so the user is asked";
  EXPECT_FALSE(std::filesystem::exists("line.mde"));
  std::filesystem::remove("LINE.MDE");
}

TEST_F(MetadataFile, FailedSaveIsReported) {
  I4 iError = -1;
  MDE_Rewrite("nowhere/line.mde", iError);
  EXPECT_EQ(iError, 1);
  EXPECT_EQ(Shown("ERROR while trying to open"), 1);
  EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);
}

}  // namespace
}  // namespace quillan
