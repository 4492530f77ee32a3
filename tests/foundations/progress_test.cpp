// Long work that shows how far it is and may be stopped.
#include "foundations/progress.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillan {
namespace {

/// Somebody who notes what is shown and wants to stop.
class Impatient : public testing::Test {
 protected:
  void SetUp() override {
    hUser.Look = [this](const WorkDone& h) {
      NShown.push_back(h.NDone);
      return false;
    };
    hUser.Work_Ends = [this] { ++NEnd; };
  }
  void TearDown() override {
    hUser = No_User();
    bWorkStopped = false;
  }
  std::vector<I8> NShown;
  I4 NEnd = 0;
};

TEST_F(Impatient, WhatIsStoppedStaysStoppedUntilOtherWorkBegins) {
  {
    Progress work("Averaging", "groups", 9);
    EXPECT_FALSE(work.Goes_On(1));
    EXPECT_FALSE(work.Goes_On(2)) << "nobody is asked twice";
    EXPECT_EQ(NShown, std::vector<I8>{1});
  }
  EXPECT_EQ(NEnd, 1) << "the bar goes";
  EXPECT_TRUE(bWorkStopped) << "for the command that has to put the data back";
  const Progress other("Sorting", "soundings", 9);
  EXPECT_FALSE(bWorkStopped);
}

TEST_F(Impatient, WhatHasToBeFinishedGoesOn) {
  Progress work("Writing", "soundings", 9, 1, Stoppable::No);
  EXPECT_TRUE(work.Goes_On(1));
  EXPECT_TRUE(work.Goes_On(2));
  EXPECT_FALSE(bWorkStopped);
}

TEST_F(Impatient, AFastLoopAsksSeldom) {
  hUser.Look = [this](const WorkDone& h) {
    NShown.push_back(h.NDone);
    return true;
  };
  Progress work("Reading", "kB", 100, 60);
  for (I8 N = 1; N <= 100; ++N) EXPECT_TRUE(work.Goes_On(N));
  EXPECT_EQ(NShown, std::vector<I8>{1}) << "between two looks nothing can be seen";
}

}  // namespace
}  // namespace quillan
