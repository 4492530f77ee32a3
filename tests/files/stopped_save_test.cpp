// A save that the user stops by Esc: it has written nothing, or it is finished.
#include <gtest/gtest.h>

#include "export_survey.h"
#include "files/avg_legacy_writer.h"
#include "files/avg_writer.h"
#include "files/save_report.h"
#include "files/usf_file.h"
#include "support/files.h"
#include "support/reports.h"

namespace quillan {
namespace {

I4 Write_Usf(std::string_view sFile) {
  return USF_Write(sFile, UsfLayout::Soundings);
}

class StoppedSave : public testing::Test {
 protected:
  void SetUp() override {
    Load_Export(iArrayMVL, {Sounding(1, {1, 2, 3, 4}, {3, 2, 1})});
    hTemSurvey.dStnKvrInc = hTemSurvey.dStnInc = 1.0;
    hUser.Look = [](const WorkDone&) { return false; };
  }
  void TearDown() override {
    hUser = No_User();
    hSaveState = {};
    bWorkStopped = false;
  }
};

TEST_F(StoppedSave, LeavesTheFileOfBeforeAndReportsNoFailure) {
  for (const auto Write : {AVG_Write, AVG_Write0, Write_Usf}) {
    Write_File("stopped.avg", "as it was");
    EXPECT_EQ(Write("stopped.avg"), 1);
    EXPECT_TRUE(bWorkStopped);
    EXPECT_EQ(Read_Whole_File("stopped.avg"), "as it was");
    EXPECT_EQ(Shown("The data are not saved"), 0);
  }
}

TEST_F(StoppedSave, IsFinishedOnceAFileStands) {
  hSaveState.sSaved = "line.avg";
  Write_File("line.usf", "as it was");
  EXPECT_EQ(Write_Usf("line.usf"), 0);
  EXPECT_NE(Read_Whole_File("line.usf"), "as it was");
}

}  // namespace
}  // namespace quillan
