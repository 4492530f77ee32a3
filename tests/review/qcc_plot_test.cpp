#include "review/qcc_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "review/plot/plot_types.h"
#include "review/plot/signed_log.h"
#include "support/survey_builder.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr I4 iCmpEx = 1, iCmpHy = 5;

/// What is plotted of a transient that is alone in the store.
void Show(const Transient& h, I4 iPlotType = 1) {
  Load({h});
  QCC_Plot_Initialize(1, iPlotType);
}

/// The same, with its plot units in force.
void Show_and_Draw(const Transient& h) {
  Last_Error_Initialize();  // there is no window to draw on
  Show(h);
  QCC_Plot_Trns();
}

std::string Drawn_Flags() {
  std::string sFlags;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) sFlags += hCurve.Is_Skipped(I) ? 'X' : '-';
  return sFlags;
}

GrPoint Place_of(I4 I) {
  return IPgUnitsToGrUnits(hCurve.fXPobs(I), hCurve.fYPobs(I));
}

void Click(L4 bSetSkip, R4 fX, R4 fY, R4 fReach = 0.5f) {
  (void)QCC_SkipPoint(bSetSkip, {fX, fY}, fReach);
}

Transient With_B(Transient h, R4 fBmag) {
  h.fBmag(1) = fBmag;
  return h;
}

TEST(CurvePlot, OffersThePlotTypesThatTheTransientHas) {
  using TB = TransientBuilder;
  const struct {
    const char* sCase;
    Transient h;
    std::string sNames;
  } hCase[] = {
      {"voltages only", TB().Values({5}), "dBz/dt "},
      {"B but no resistivity", With_B(TB().Component(iCmpHx).Values({5}), 1), "dBx/dt Bx(t) "},
      {"resistivity", With_B(TB().Values({5}).Resistivities({20}), 1), "dBz/dt Bz(t) App.Res. "},
      {"the least resistivity", TB().Component(iCmpHy).Resistivities({0.001f}), "dBy/dt By(t) App.Res. "},
      {"a resistivity below it", TB().Values({5}).Resistivities({0.0009f}), "dBz/dt "},
      {"electric: the first type alone", TB().Component(iCmpEx).Resistivities({20}), "none "},
      {"off time", TB().Component(iCmpOff).Values({-5}), "Off "},
      {"a component that is none", TB().Component(9).Values({5}), "Ref "},
      {"a value at the limit", TB().Values({fDummyLimit}), "dBz/dt "},
      {"missing values", TB().Values({fDummy, fDummy}), "none "},
      {"no windows", TB(), "none "},
  };
  for (const auto& h : hCase) {
    Show(h.h, 9);
    std::string sNames;
    for (const std::string& sType : hCurve.sPlotType) sNames += sType + " ";
    EXPECT_EQ(sNames, h.sNames) << h.sCase;
    EXPECT_EQ(hCurve.iPlotType, sNames == "none " ? 9 : hCurve.NPlotType()) << "the next transient may have it";
  }
}

TEST(CurvePlot, PlotsUsableWindowsWithTheirFlagsAndErrors) {
  Transient h = TransientBuilder()
                    .Times({-2, -1, 0, 4, 8, 16, 32})
                    .Values({1, 2, 3, -4, fDummy, 1.0E30f, 0})
                    .Errors_Percent({1, 1, 1, -7, 1, fDummy, 30});
  h.bSkip(6) = true;
  Show(h);
  ASSERT_EQ(hCurve.NPobs, 3);
  EXPECT_EQ(hCurve.ITWofIPlt(1), 4);
  EXPECT_EQ(hCurve.ITWofIPlt(2), 6);
  EXPECT_EQ(hCurve.ITWofIPlt(3), 7);
  EXPECT_EQ(Drawn_Flags(), "-X-");
  EXPECT_FLOAT_EQ(hCurve.fYPobs(1), -fAsinh10(4.0f, 0.1f));
  EXPECT_FLOAT_EQ(hCurve.fYPobs(2), 31.0f);
  EXPECT_EQ(hCurve.fYPobs(3), 0.0f);
  EXPECT_EQ(hCurve.fYPerr(1), 0.0f);
  EXPECT_EQ(hCurve.fYPerr(2), 0.0f);
  EXPECT_EQ(hCurve.fYPerr(3), 30.0f);
  EXPECT_EQ(hCurve.hRange.fXPmin, 4.0f);
  EXPECT_EQ(hCurve.hRange.fXPmax, 32.0f);
  EXPECT_EQ(hCurve.hRange.fYPmin, hCurve.fYPobs(1));
  EXPECT_EQ(hCurve.hRange.fYPmax, hCurve.fYPobs(2));

  h.bSkipTrn = true;
  Show(h);
  EXPECT_EQ(Drawn_Flags(), "XXX");
}

TEST(CurvePlot, TimesThatCannotBePlottedLeaveTheWindowBlank) {
  Show(TransientBuilder().Times({-1, 0}).Values({1, 2}));
  EXPECT_EQ(hCurve.NPobs, 0);
}

TEST(CurvePlot, TheYAxisShowsZeroToAThousandAtLeast) {
  Show(TransientBuilder().Values({20, 30}));
  EXPECT_EQ(hCurve.hRange.fYPmin, 0.0f);
  EXPECT_FLOAT_EQ(hCurve.hRange.fYPmax, fAsinh10(1000.0f, 0.1f));
  EXPECT_EQ(hCurve.hYTick.sYTick.front(), "0");
  EXPECT_EQ(hCurve.hYTick.sYTick.back().find_first_not_of(' '), hCurve.hYTick.sYTick.back().find("1000"));
}

TEST(CurvePlot, TheTitleNamesTheSounding) {
  Show(TransientBuilder().Values({5}).Transmitter(100).Station(112.5).Frequency(250));
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=100, RxStn=112.5, RxCmp=Hz");

  hTemSurvey.iTemArray = iArrayMVL;
  hTrn(1).dKvrBlk = {
      {12.0, 15.25}
  };
  QCC_Plot_Initialize(1, 1);
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=100, RxStn-TxStn=12.5, RxStn=112.5, RxCmp=Hz, KvrBlk=12:15.25");

  hTrn(1).dTxStn = hTrn(1).dRxStn = hTrn(1).dKvrBlk(2) = dDummy;
  hTrn(1).iRxCmp = iCmpEx;
  QCC_Plot_Initialize(1, 1);
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=*, RxStn-TxStn=*, RxStn=*, RxCmp=Ex");
}

TEST(CurvePlot, WhatCannotBePlottedCannotBeDrawnOrFlagged) {
  Show_and_Draw(TransientBuilder());
  EXPECT_FALSE(IPg_Is_Plotting());
  (void)QCC_SkipPoint(true, {10.0f, 10.0f}, 100.0f);
  (void)QCC_SkipBox(true, {3.0f, 3.5f, 23.0f, 18.5f});
  QCC_Zoom_Box({5.0f, 5.0f, 15.0f, 15.0f});
  QCC_Zoom_All();
  EXPECT_EQ(hCurve.NPobs, 0);
}

TEST(CurvePlot, HostileCurvesAreDrawn) {
  for (const Transient& h :
       {Transient(TransientBuilder().Values({5})), Transient(TransientBuilder().Values({-1, -10, -100})),
        Transient(TransientBuilder().Times({1, 1, 1}).Values({1, 2, 3})),
        Transient(TransientBuilder().Component(9).Values({1, 2})),
        Transient(TransientBuilder().Times({1.0E-37f, 1, 1.0E37f}).Values({1.0E30f, -1.0E31f, 3})),
        Transient(TransientBuilder().Values({1, 2}).Errors_Percent({3.0E38f, fDummy}))}) {
    Show_and_Draw(h);
    EXPECT_GT(hCurve.NPobs, 0);
    QCC_Zoom_Box({3.0f, 3.5f, 3.1f, 3.6f});
    QCC_Plot_Trns();
    EXPECT_TRUE(IPg_Is_Plotting());
  }
}

// Windows at 1, 2, 4, 8 msec.
const TransientBuilder hFour = TransientBuilder().Values({1000, 100, 100, 1});

TEST(CurveFlags, AClickFlagsTheNearestPointAndItsWindow) {
  Show_and_Draw(hFour);
  const GrPoint h = Place_of(2);
  Click(true, h.fX, h.fY + 0.51f);
  EXPECT_EQ(Skipped(1), "----") << "out of reach";
  Click(true, h.fX + 0.3f, h.fY - 0.3f);
  EXPECT_EQ(Skipped(1), "-X--");
  EXPECT_EQ(Drawn_Flags(), "-X--");
  Click(false, h.fX, h.fY);
  EXPECT_EQ(Skipped(1), "----");
}

TEST(CurveFlags, OnlyPointsWhoseFlagWouldChangeCount) {
  Show_and_Draw(hFour);
  const GrPoint h = Place_of(3);
  Click(false, h.fX, h.fY, 100.0f);  // nothing is skipped
  EXPECT_EQ(Skipped(1), "----");
  for (const char* sFlags : {"--X-", "-XX-", "-XXX", "XXXX", "XXXX"}) {
    Click(true, h.fX - 0.01f, h.fY - 0.01f, 100.0f);
    EXPECT_EQ(Skipped(1), sFlags);
  }
}

TEST(CurveFlags, OfPointsEquallyNearTheEarlierIsTaken) {
  Show_and_Draw(TransientBuilder().Times({1, 2, 2, 4}).Values({1000, 10, 10, 1}));
  const GrPoint h = Place_of(2);
  Click(true, h.fX + 0.1f, h.fY);
  EXPECT_EQ(Skipped(1), "-X--");
  Click(true, h.fX + 0.1f, h.fY);
  EXPECT_EQ(Skipped(1), "-XX-");
}

TEST(CurveFlags, APointOutOfViewCannotBeClicked) {
  Show_and_Draw(hFour);
  const GrPoint h = Place_of(1);
  hCurve.hRange.fXPmin = 1.5f;
  Click(true, h.fX, h.fY);
  EXPECT_EQ(Skipped(1), "----");
}

TEST(CurveFlags, ABoxTakesPointsInsideAndOnItInViewOrNot) {
  Show_and_Draw(hFour);
  const GrPoint h1 = Place_of(1), h4 = Place_of(4);
  QCC_Zoom_Box({8.0f, 8.0f, 10.0f, 10.0f});
  (void)QCC_SkipBox(true, {h1.fX - 1.0f, h4.fY - 1.0f, h4.fX + 1.0f, h1.fY + 1.0f});
  EXPECT_EQ(Skipped(1), "XXXX");

  Show_and_Draw(hFour);
  const GrPoint h2 = Place_of(2), h3 = Place_of(3);
  constexpr R4 fHair = 1.0E-4f;
  (void)QCC_SkipBox(true, {h2.fX - fHair, h2.fY - fHair, h3.fX + fHair, h2.fY + fHair});
  EXPECT_EQ(Skipped(1), "-XX-");
  (void)QCC_SkipBox(true, {h2.fX + fHair, 0.0f, h3.fX - fHair, 20.0f});
  EXPECT_EQ(Skipped(1), "-XX-");
  (void)QCC_SkipBox(false, {h2.fX - fHair, 0.0f, h2.fX + fHair, 20.0f});
  EXPECT_EQ(Skipped(1), "--X-");
}

TEST(CurveFlags, ATransientSkippedAsAWholeIsDrawnSoWhateverItsWindowsSay) {
  Show_and_Draw(hFour);
  hTrn(1).bSkipTrn = true;
  EXPECT_EQ(Drawn_Flags(), "XXXX");
  const GrPoint h = Place_of(2);
  Click(true, h.fX, h.fY);
  EXPECT_EQ(Skipped(1), "----") << "nothing would change";
}

TEST(CurveZoom, ABoxBecomesTheRangeAndZoomAllBringsTheCurveBack) {
  Show_and_Draw(hFour);
  const PlotRange hFull = hCurve.hRange;
  const GrPoint h1 = Place_of(2), h2 = Place_of(4);
  QCC_Zoom_Box({h1.fX, h2.fY, h2.fX, h1.fY});
  EXPECT_NEAR(hCurve.hRange.fXPmin, 2.0f, 1.0E-3f);
  EXPECT_NEAR(hCurve.hRange.fXPmax, 8.0f, 1.0E-3f);
  EXPECT_NEAR(hCurve.hRange.fYPmin, hCurve.fYPobs(4), 1.0E-4f);
  EXPECT_NEAR(hCurve.hRange.fYPmax, hCurve.fYPobs(2), 1.0E-4f);
  EXPECT_GE(hCurve.hYTick.fYTick.front(), hCurve.hRange.fYPmin);
  EXPECT_LE(hCurve.hYTick.fYTick.back(), hCurve.hRange.fYPmax);
  QCC_Zoom_All();
  EXPECT_EQ(hCurve.hRange.fXPmax, hFull.fXPmax);
  EXPECT_EQ(hCurve.hRange.fYPmin, hFull.fYPmin);
}

TEST(CurveZoom, AZoomRepeatedToTheLimitOfFloatsStaysDrawable) {
  Show_and_Draw(hFour);
  for (I4 I = 1; I <= 15; ++I) {
    QCC_Zoom_Box({12.0f, 10.0f, 12.5f, 10.5f});
    QCC_Plot_Trns();
    ASSERT_LE(hCurve.hRange.fXPmin, hCurve.hRange.fXPmax);
    ASSERT_TRUE(std::isfinite(hCurve.hRange.fYPmax - hCurve.hRange.fYPmin));
  }
}

TEST(CurvePlot, HiddenPointsAreNeitherFlaggedNorOnTheAxes) {
  Show_and_Draw(TransientBuilder().Values({1.0E6f, 1000, 100, 10}));
  const PlotRange hAll = hCurve.hRange;
  hTrn(1).bSkip(1) = hTrn(1).bSkip(4) = true;
  bHideSkipped = true;
  QCC_Follow_Range();
  EXPECT_EQ(hCurve.hRange.fXPmin, 2.0f);
  EXPECT_EQ(hCurve.hRange.fXPmax, 4.0f);
  EXPECT_LT(hCurve.hRange.fYPmax, hAll.fYPmax);
  QCC_Plot_Trns();
  const GrPoint hHidden = Place_of(1);
  EXPECT_FALSE(QCC_SkipBox(false, {hHidden.fX - 0.1f, hHidden.fY - 0.1f, hHidden.fX + 0.1f, hHidden.fY + 0.1f}));
  EXPECT_EQ(QCC_Step(0, 1), (PickedPoint{1, 2}));
  EXPECT_EQ(QCC_Step(3, 1), (PickedPoint{1, 3}));
  EXPECT_EQ(QCC_Step(4, -1), (PickedPoint{1, 3}));
  EXPECT_EQ(QCC_Point_of_Window(1), (PickedPoint{1, 2}));
  // A zoom stays as it is while points come back.
  hCurve.hRange.fXPmax = 3.0f;
  bHideSkipped = false;
  QCC_Follow_Range();
  EXPECT_EQ(hCurve.hRange.fXPmax, 3.0f);
  QCC_Zoom_All();
  EXPECT_EQ(hCurve.hRange, hAll);
}

TEST(CurvePlot, AClickIsAboutThePointThatItWouldChange) {
  Show_and_Draw(TransientBuilder().Values({1000, 999, 1}).Times({1.0f, 1.01f, 100.0f}));
  hTrn(1).bSkip(1) = true;
  EXPECT_EQ(QCC_Clicked_Point(true, Place_of(1), 0.5f), (PickedPoint{1, 2}));
  EXPECT_EQ(QCC_Clicked_Point(false, Place_of(2), 0.5f), (PickedPoint{1, 1}));
  hTrn(1).bSkip(2) = true;
  EXPECT_EQ(QCC_Clicked_Point(true, Place_of(1), 0.5f), (PickedPoint{1, 1})) << "none would change";
}

}  // namespace
}  // namespace quillan
