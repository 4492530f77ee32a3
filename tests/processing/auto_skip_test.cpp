#include "processing/auto_skip.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/survey_builder.h"

namespace quillan {
namespace {

AutoSkipLimits Off() {
  return {
      .ITWBEG = 1, .ITWEND = MTW, .bApplyErrorFloor = false, .bDropNegativeData = false, .bDropPositiveSlope = false};
}

struct RuleCase {
  const char* sFault;
  AutoSkipLimits hLimits;
  std::initializer_list<R4> fuVmag, fuVpct;
  const char* sFlags;
};

TEST(AutoSkip, RulesSetTheFlagsThatTheirWordsPromise) {
  AutoSkipLimits hErrors = Off();
  hErrors.bApplyErrorFloor = true;
  AutoSkipLimits hNegative = Off();
  hNegative.bDropNegativeData = true;
  AutoSkipLimits hSlope = Off();
  hSlope.bDropPositiveSlope = true;
  AutoSkipLimits hRange = hSlope;
  hRange.ITWBEG = 2;
  hRange.ITWEND = 4;
  AutoSkipLimits hReversed = Off();
  hReversed.ITWBEG = 5;
  hReversed.ITWEND = 3;
  const RuleCase hCase[] = {
      {"every window after a bad one goes",           hErrors,          {9, 8, 7, 6},      {10, 60, 10, 10}, "-XXX" },
      {"an error equal to the floor stays",           hErrors,          {9, 8, 7},         {50, 50, 50},     "---"  },
      {"a value not above 0 goes alone",              hNegative,        {9, 0, -1, 5},     {1, 1, 1, 1},     "-XX-" },
      {"an upward step with an error ends the curve", hSlope,           {9, 8, 8.5f, 1},   {2, 2, 2, 2},     "--XX" },
      {"a flat step counts as upward",                hSlope,           {9, 8, 8, 1},      {2, 2, 2, 2},     "--XX" },
      {"an upward step of a sure value is real",      hSlope,           {9, 8, 8.5f, 1},   {2, 2, 1, 2},     "----" },
      {"a window outside the range gives no slope",   hRange,           {1, 9, 8, 7, 9},   {2, 2, 2, 2, 2},  "X---X"},
      {"a missing value before makes a step upward",  hSlope,           {9, fDummy, 7, 6}, {2, 2, 2, 2},     "--XX" },
      {"a range typed the wrong way round takes all", hReversed,        {9, 8, 7, 6, 5},   {1, 1, 1, 1, 1},  "XXXXX"},
      {"without rules all flags are cleared",         Off(),            {1, 2, -3},        {99, 99, 99},     "---"  },
      {"not-a-number fires no rule",                  AutoSkipLimits{}, {NAN, 5, 4},       {NAN, 1, 1},      "---"  },
  };
  for (const RuleCase& h : hCase) {
    Load({TransientBuilder().Values(h.fuVmag).Errors_Percent(h.fuVpct)});
    hTrn(1).bSkip(1) = true;  // what stood before is dropped
    AutoSkip_Apply(h.hLimits);
    EXPECT_EQ(Skipped(1), h.sFlags) << h.sFault;
  }
}

TEST(AutoSkip, CountTellsWhatApplyingWouldDoAndChangesNothing) {
  Load({TransientBuilder().Values({9, 8, -7}).Errors_Percent({60, 1, 1}),
        TransientBuilder().Values({9, -8}).Errors_Percent({1, 1})});
  const AutoSkipCount h = AutoSkip_Count({});
  EXPECT_EQ(Skipped(1) + Skipped(2), "-----");
  EXPECT_EQ(h.NWindow, 5);
  EXPECT_EQ(h.NSkip, 4);
  EXPECT_EQ(h.NEmpty, 1);
}

TEST(AutoSkip, LatchEndsWithItsTransientAndFlagsAfterTheLastWindowStay) {
  Load({TransientBuilder().Values({9, 8}).Errors_Percent({60, 1}),
        TransientBuilder().Values({9, 8}).Errors_Percent({1, 1})});
  hTrn(2).bSkip(3) = true;
  AutoSkip_Apply({});
  EXPECT_EQ(Skipped(1), "XX");
  EXPECT_EQ(Skipped(2), "--");
  EXPECT_TRUE(hTrn(2).bSkip(3));
}

}  // namespace
}  // namespace quillan
