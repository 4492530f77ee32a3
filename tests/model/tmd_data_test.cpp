#include "model/tmd_data.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillan {
namespace {

class TransientStore : public testing::Test {
 protected:
  void SetUp() override {
    I4 iError = 1;
    TMD_Initialize(iError);
    ASSERT_EQ(iError, 0);
  }
};

void Add_Transient(const std::vector<R4>& fTWCen) {
  Transient& h = hTrn(++NTrn);
  for (const R4 fTime : fTWCen) h.fTWCen(++h.NTW) = fTime;
}

std::vector<I4> Configurations() {
  std::vector<I4> iTWCfg;
  for (I4 j = 1; j <= NTrn; ++j) iTWCfg.push_back(hTrn(j).iTWCfg);
  return iTWCfg;
}

TEST_F(TransientStore, FreshRecordHasNoValuesInAnyWindow) {
  Add_Transient({1.0f});
  hTrn(1).fuVmag(MTW) = 5.0f;
  hTrn(MTrn).bSkip(1) = true;
  hTrn(MTrn).sKvrDate = "2020-09-14";
  hTemSurvey.sJobName = "Orrin basin";
  NAvgCmt = 1;
  sAvgCmt(1) = "\\ remark";

  I4 iError = 1;
  TMD_Initialize(iError);

  EXPECT_EQ(iError, 0);
  EXPECT_EQ(NTrn, 0);
  EXPECT_EQ(hTrn(1).NTW, 0);
  EXPECT_FALSE(Is_Present(hTrn(1).fuVmag(MTW)));
  EXPECT_FALSE(hTrn(MTrn).bSkip(1));
  EXPECT_TRUE(hTrn(MTrn).sKvrDate.Is_Blank());
  EXPECT_TRUE(hTemSurvey.sJobName.Is_Blank());
  EXPECT_EQ(NAvgCmt, 0);
  EXPECT_TRUE(sAvgCmt(1).Is_Blank());
}

TEST_F(TransientStore, WindowSetsMatchByCountAndCentre) {
  struct Case {
    const char* sWhat;
    std::vector<R4> fTWCen1, fTWCen2;
    bool bTWMatch;
  };
  const std::vector<Case> hCase = {
      {"equal",                      {1.0f, 2.0f}, {1.0f, 2.0f},  true },
      {"just inside the tolerance",  {0.0f},       {0.01f},       true },
      {"just outside the tolerance", {0.0f},       {0.011f},      false},
      {"last window differs",        {1.0f, 2.0f}, {1.0f, 2.02f}, false},
      {"one window more",            {1.0f},       {1.0f, 2.0f},  false},
      {"no windows at all",          {},           {},            true },
  };
  for (const Case& h : hCase) {
    NTrn = 0;
    hTrn.fill({});
    Add_Transient(h.fTWCen1);
    Add_Transient(h.fTWCen2);
    L4 bTWMatch = !h.bTWMatch;
    TMD_Trns_TW_Compare(hTrn(1), hTrn(2), bTWMatch);
    EXPECT_EQ(bTWMatch, h.bTWMatch) << h.sWhat;
  }
}

TEST_F(TransientStore, WindowSetsAreNumberedInOrderOfAppearance) {
  I4 iError = 0;
  TMD_Trns_Set_iTWCfg(iError);
  EXPECT_EQ(iError, 1) << "empty store";

  const std::vector<R4> fA = {1.0f, 2.0f}, fB = {1.0f, 3.0f}, fC = {1.0f};
  Add_Transient(fA);
  TMD_Trns_Set_iTWCfg(iError);
  EXPECT_EQ(iError, 0);
  EXPECT_EQ(Configurations(), (std::vector<I4>{1})) << "a single transient";

  for (const auto& fTWCen : {fB, fA, fB, fB, fC, fA}) Add_Transient(fTWCen);
  TMD_Trns_Set_iTWCfg(iError);
  EXPECT_EQ(Configurations(), (std::vector<I4>{1, 2, 1, 2, 2, 3, 1}));
}

TEST_F(TransientStore, ChainOfNearSetsFollowsTheNearestEarlierOne) {
  // Each set is within the tolerance of the one before it, the third is not within that of the first. The run of one
  // number is compared once, with its last member, so the drift stays one configuration.
  for (const R4 fTime : {1.0f, 1.008f, 1.016f}) Add_Transient({fTime});
  I4 iError = 0;
  TMD_Trns_Set_iTWCfg(iError);
  EXPECT_EQ(Configurations(), (std::vector<I4>{1, 1, 1}));
}

}  // namespace
}  // namespace quillan
