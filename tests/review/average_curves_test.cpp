#include "review/average_curves.h"

#include <gtest/gtest.h>

#include <cmath>

#include "review/average_plot.h"
#include "review/plot/signed_log.h"
#include "support/survey_builder.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

using TB = TransientBuilder;

/// The first group of a store.
I4 Set_Up(std::initializer_list<Transient> hRepeat) {
  Load(hRepeat);
  (void)TMD_Avg_Get_Groups();
  return TMD_Avg_Plot_Setup(hRepeats(1));
}

/// The points of a curve: time, value.
std::string Points(I4 K) {
  std::string sAll;
  for (I4 I = 1; I <= hAveragePlot.hCurve(K).NTW; ++I) {
    const AverageCurve& h = hAveragePlot.hCurve(K);
    char sPoint[64];
    std::snprintf(sPoint, sizeof sPoint, "%g %.4g; ", static_cast<R8>(h.fXPg(I)),
                  static_cast<R8>(fSinh10(h.fYPg(I), fYDscl)));
    sAll += sPoint;
  }
  return sAll;
}

TEST(AverageCurves, RepeatsLieOnTheAverageAtTimesOfTheirOwn) {
  ASSERT_EQ(Set_Up({TB().Times({1, 2, 4}).Values({200, 20, -2}), TB().Times({1, 2.1f, 4}).Values({400, 40, -4})}), 0);
  EXPECT_EQ(Points(0), "1 300; 2 20; 4 -2; ") << "one repeat at 2 msec, and no more of the second after it";
  EXPECT_EQ(Points(1), Points(0));
  EXPECT_EQ(Points(2), "1 300; 2.1 20; 4 -2; ");
  // The error at 1 msec is sqrt(2 * 100**2) / 2; half of it on either side.
  EXPECT_FLOAT_EQ(hAveragePlot.hCurve(2).fYPgErr1(1), fAsinh10(300.0f - 35.355339f, fYDscl));
  EXPECT_FLOAT_EQ(hAveragePlot.hCurve(2).fYPgErr2(1), fAsinh10(300.0f + 35.355339f, fYDscl));
  EXPECT_EQ(hAveragePlot.hRange.fXPmin, 1.0f);
  EXPECT_EQ(hAveragePlot.hRange.fXPmax, 10.0f);
  EXPECT_FLOAT_EQ(hAveragePlot.hRange.fYPmin, fAsinh10(-2.0f, fYDscl));
  EXPECT_FLOAT_EQ(hAveragePlot.hRange.fYPmax, fAsinh10(1000.0f, fYDscl));
  EXPECT_EQ(hAveragePlot.sTitle, "TxFreq=16.0, TxStn=1.0, RxStn=1.0, RxCmp=Hz");
}

TEST(AverageCurves, LeaveOutTheEarliestWindowsAndThoseWithoutAValue) {
  const Transient h = TB().Times({0.001f, 0.02f, 0.3f, 4}).Values({9, 8, fDummy, 6});
  ASSERT_EQ(Set_Up({h, h}), 0);
  EXPECT_EQ(Points(0), "0.02 8; ") << "no repeat has a value at 0.3 msec, and then none counts later";
  EXPECT_EQ(Points(2), "0.02 8; ");
  EXPECT_EQ(hAveragePlot.hCurve(0).fYPgErr1(1), fAsinh10(8.0f, fYDscl));
  EXPECT_FALSE(Is_Present(hAveragePlot.hCurve(2).fYPgErr1(1))) << "bars of a repeat stand by time windows";
  EXPECT_TRUE(Is_Present(hAveragePlot.hCurve(2).fYPgErr1(2)));
  EXPECT_EQ(hAveragePlot.hRange.fXPmin, 0.01f);
  EXPECT_EQ(hAveragePlot.hRange.fXPmax, 0.1f);
}

TEST(AverageCurves, FlagsAreThoseOfTheRepeat) {
  Transient h1 = TB().Values({2, 2}), h2 = h1;
  h1.bSkip(2) = true;
  h2.bSkipTrn = true;
  ASSERT_EQ(Set_Up({h1, h2}), 0);
  const AveragePlot& h = hAveragePlot;
  EXPECT_FALSE(h.Is_Skipped(1, 1));
  EXPECT_TRUE(h.Is_Skipped(1, 2) && h.Is_Skipped(2, 1) && h.Is_Skipped(2, 2));
}

TEST(AverageCurves, AGroupWithoutAnAverageIsBlank) {
  Transient h = TB().Values({2});
  ASSERT_EQ(Set_Up({h, h}), 0);
  Last_Error_Initialize();
  EXPECT_EQ(TMD_Avg_Plot_Update(), 0);
  EXPECT_TRUE(IPg_Is_Plotting());
  h.bSkipTrn = true;
  EXPECT_EQ(Set_Up({h, h}), 1);
  EXPECT_EQ(TMD_Avg_Plot_Update(), 1);
  EXPECT_FALSE(IPg_Is_Plotting()) << "no axes of the group before";
}

/// The labels that have room: repeat and point of each.
std::string Shown(std::span<const RepeatLabel> hLabel) {
  std::string sAll;
  for (const RepeatLabel& h : Labels_with_Room(hLabel, {1.0f, 1.0f}))
    sAll += std::to_string(h.K) + '.' + std::to_string(h.I) + ' ';
  return sAll;
}

TEST(RepeatLabels, TakeTurnsWhereRepeatsMeet) {
  std::vector<RepeatLabel> hMeet, hApart, hDense;
  for (I4 K = 1; K <= 3; ++K) {
    for (I4 I = 1; I <= 4; ++I) {
      const R4 fX = static_cast<R4>(I);
      hMeet.push_back({
          K, I, {fX, 0.0f}
      });
      hApart.push_back({
          K, I, {fX, static_cast<R4>(K)}
      });
      hDense.push_back({
          K, I, {0.6f * fX, 0.0f}
      });
    }
  }
  EXPECT_EQ(Shown(hMeet), "1.1 2.2 3.3 1.4 ");
  EXPECT_EQ(Shown(hApart), "1.1 2.1 3.1 1.2 2.2 3.2 1.3 2.3 3.3 1.4 2.4 3.4 ");
  EXPECT_EQ(Shown(hDense), "1.1 2.3 ") << "windows closer than a label: still another repeat in turn";
}

}  // namespace
}  // namespace quillan
