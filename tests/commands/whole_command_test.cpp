// A command that runs out of memory.
#include "commands/whole_command.h"

#include <gtest/gtest.h>

#include <new>

#include "commands/session.h"
#include "foundations/progress.h"
#include "metadata/mdp_data.h"
#include "model/history.h"
#include "model/stn_data.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

I4 Run_Out_of_Memory() {
  hTrn(1).fuVmag(1) = 7.0f;
  TMD_Initialize();
  hTemSurvey.sJobName = "another";
  MdTx.fAmp = 3.0f;
  sAvgFile = "another.avg";
  throw std::bad_alloc();
}

TEST(WholeCommand, WithoutMemoryTheDataAreAsTheyWere) {
  Load({TransientBuilder().Values({5, 4}), TransientBuilder().Values({3})});
  MDP_Initialize();
  hTemSurvey.sJobName = "job";
  sAvgFile = "line.avg";
  hSession.bUpdateAVG = true;
  History_Begin();
  LogText_Reset();
  EXPECT_EQ(Run_Whole(Run_Out_of_Memory, Unfinished::PutBack), 1);
  EXPECT_EQ(NTrn, 2);
  EXPECT_EQ(hTrn(1).fuVmag(1), 5.0f);
  EXPECT_EQ(hTrn(2).fuVmag(1), 3.0f);
  EXPECT_EQ(hTemSurvey.sJobName.trimmed(), "job");
  EXPECT_EQ(MdTx.fAmp, 1.0f);
  EXPECT_EQ(sAvgFile, "line.avg");
  EXPECT_TRUE(hSession.bUpdateAVG);
  EXPECT_EQ(Shown("The data are as they were before it."), 1);
}

TEST(WholeCommand, WhatTheUserHasStoppedIsTakenBackStationsIncluded) {
  Load({TransientBuilder().Values({5, 4})});
  sAvgFile = "line.avg";
  hSession.sFileName = "line.avg";
  Stn_Initialize(3, 1);
  History_Begin();
  LogText_Reset();
  const auto Stop_Half_Way = []() -> I4 {
    hTrn(1).fuVmag(1) = 7.0f;
    Stn_Forget();
    hSession.sFileName = "another.avg";
    bWorkStopped = true;
    return 1;
  };
  EXPECT_EQ(Run_Whole(Stop_Half_Way, Unfinished::PutBack), 1);
  EXPECT_EQ(hTrn(1).fuVmag(1), 5.0f);
  EXPECT_EQ(hStn.NStn, 3);
  EXPECT_EQ(hSession.sFileName, "line.avg");
  EXPECT_EQ(Shown("Stopped. The data are as they were before."), 1);
  Stn_Forget();
}

TEST(WholeCommand, EditsByHandStay) {
  Load({TransientBuilder().Values({5, 4})});
  LogText_Reset();
  const auto Flag_One = []() -> I4 {
    hTrn(1).bSkip(2) = true;
    throw std::bad_alloc();
  };
  EXPECT_EQ(Run_Whole(Flag_One, Unfinished::Stay), 1);
  EXPECT_EQ(Skipped(1), "-X");
  EXPECT_EQ(Shown("The data are as the last edit left them."), 1);
}

}  // namespace
}  // namespace quillan
