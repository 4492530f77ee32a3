#include "review/qcc_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "review/plot/igr_util.h"
#include "support/survey_builder.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr I4 iCmpEx = 1, iCmpHy = 5, iCmpRef = 7, iCmpOff = 8;

struct Shown {
  I4 iPlotType = 1;
  I4 NPlotType = 0;
  CurveTypeNames sPlotType;
  I4 iPltCmp = 0;
  I4 iError = 0;
};

Shown Show(const Transient& h, I4 iPlotType = 1) {
  Shown s;
  s.iPlotType = iPlotType;
  QCC_Plot_Initialize(h, s.iPlotType, s.NPlotType, s.sPlotType, s.iPltCmp, s.iError);
  return s;
}

/// Puts transient 1 on show, with its plot units in force.
Shown Show_and_Draw(const Transient& h) {
  Last_Error_Initialize();  // there is no window to draw on
  Load({h});
  Shown s = Show(hTrn(1));
  QCC_Plot_Trns(s.iPltCmp, s.iError);
  return s;
}

std::string Drawn_Flags() {
  std::string sFlags;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) sFlags += hCurve.bSkip(I) ? 'X' : '-';
  return sFlags;
}

struct Place {
  R4 fX, fY;  // graphics units
};
Place Place_of(I4 I) {
  Place h{};
  IPgUnitsToGrUnits(hCurve.fXPobs(I), hCurve.fYPobs(I), h.fX, h.fY);
  return h;
}

void Click(L4 bSetSkip, R4 fX, R4 fY, R4 fReach = 0.5f) {
  I4 iError = 1;
  QCC_SkipPoint(hTrn(1), bSetSkip, fX, fY, fReach, iError);
  EXPECT_EQ(iError, 0);
}

void Box(L4 bSetSkip, const Place& h1, const Place& h2) {
  I4 iError = 1;
  QCC_SkipBox(hTrn(1), bSetSkip, h1.fX, h1.fY, h2.fX, h2.fY, iError);
  EXPECT_EQ(iError, 0);
}

Transient With_B(Transient h, R4 fBmag) {
  h.fBmag(1) = fBmag;
  return h;
}

TEST(CurvePlot, OffersThePlotTypesThatTheTransientHas) {
  using TB = TransientBuilder;
  const Transient hAll = With_B(TB().Values({5}).Resistivities({20}), 1.0f);
  const struct {
    const char* sCase;
    Transient h;
    I4 NPlotType;
    std::string sNames;
  } hCase[] = {
      {"voltages only", TB().Values({5}), 1, "dBz/dt Bz(t) App.Res."},
      {"B but no resistivity", With_B(TB().Component(iCmpHx).Values({5}), 1), 2, "dBx/dt Bx(t) App.Res."},
      {"resistivity", hAll, 3, "dBz/dt Bz(t) App.Res."},
      {"the least resistivity", TB().Component(iCmpHy).Resistivities({0.001f}), 3, "dBy/dt By(t) App.Res."},
      {"a resistivity below it", TB().Values({5}).Resistivities({0.0009f}), 1, "dBz/dt Bz(t) App.Res."},
      {"electric: the first type alone", TB().Component(iCmpEx).Resistivities({20}), 1, "none none none"},
      {"reference", TB().Component(iCmpRef).Values({5}), 1, "Ref none none"},
      {"off time", TB().Component(iCmpOff).Values({-5}), 1, "Off none none"},
      {"a component that is none", TB().Component(9).Values({5}), 1, "Ref none none"},
      {"a value at the limit", TB().Values({fDummyLimit}), 1, "dBz/dt Bz(t) App.Res."},
      {"missing values", TB().Values({fDummy, fDummy}), 1, "none none none"},
      {"no windows", TB(), 1, "none none none"},
  };
  for (const auto& h : hCase) {
    const Shown s = Show(h.h, 9);
    EXPECT_EQ(s.NPlotType, h.NPlotType) << h.sCase;
    EXPECT_EQ(s.sPlotType(1).str() + " " + s.sPlotType(2).str() + " " + s.sPlotType(3).str(), h.sNames) << h.sCase;
    EXPECT_EQ(s.iError, h.sNames.starts_with("none") ? 1 : 0) << h.sCase;
  }
}

TEST(CurvePlot, ATransientThatCannotBeShownKeepsTheChosenTypeForTheNext) {
  EXPECT_EQ(Show(TransientBuilder().Resistivities({20}), 9).iPlotType, 3);
  EXPECT_EQ(Show(TransientBuilder().Values({5}), 3).iPlotType, 1);
  EXPECT_EQ(Show(TransientBuilder(), 3).iPlotType, 3);
}

TEST(CurvePlot, PlotsUsableWindowsWithTheirFlagsAndErrors) {
  Transient h = TransientBuilder()
                    .Times({-2, -1, 0, 4, 8, 16, 32})
                    .Values({1, 2, 3, -4, fDummy, 1.0E30f, 0})
                    .Errors_Percent({1, 1, 1, -7, 1, fDummy, 30});
  h.bSkip(6) = true;
  EXPECT_EQ(Show(h).iError, 0);
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
  EXPECT_EQ(hCurve.hRange.fXPgMin, 4.0f);
  EXPECT_EQ(hCurve.hRange.fXPgMax, 32.0f);
  EXPECT_EQ(hCurve.hRange.fYPgMin, hCurve.fYPobs(1));
  EXPECT_EQ(hCurve.hRange.fYPgMax, hCurve.fYPobs(2));

  h.bSkipTrn = true;
  Show(h);
  EXPECT_EQ(Drawn_Flags(), "XXX");
}

TEST(CurvePlot, TimesThatCannotBePlottedLeaveTheWindowBlank) {
  EXPECT_EQ(Show(TransientBuilder().Times({-1, 0}).Values({1, 2})).iError, 1);
  EXPECT_EQ(hCurve.NPobs, 0);
}

TEST(CurvePlot, TheYAxisShowsZeroToAThousandAtLeast) {
  Show(TransientBuilder().Values({20, 30}));
  EXPECT_EQ(hCurve.hRange.fYPgMin, 0.0f);
  EXPECT_FLOAT_EQ(hCurve.hRange.fYPgMax, fAsinh10(1000.0f, 0.1f));
  EXPECT_EQ(hCurve.sYTick.front(), "0");
  EXPECT_EQ(hCurve.sYTick.back().find_first_not_of(' '), hCurve.sYTick.back().find("1000"));
}

TEST(CurvePlot, TicksOfTheWidestRangeStayInsideItAndRise) {
  Show(TransientBuilder().Values({1.0E30f, -1.0E30f}));
  ASSERT_GT(hCurve.NYTick, 2);
  ASSERT_LE(hCurve.NYTick, MCurveTick);
  ASSERT_EQ(hCurve.fYTick.size(), hCurve.sYTick.size());
  EXPECT_GE(hCurve.fYTick.front(), hCurve.hRange.fYPgMin);
  EXPECT_LE(hCurve.fYTick.back(), hCurve.hRange.fYPgMax);
  EXPECT_TRUE(std::is_sorted(hCurve.fYTick.begin(), hCurve.fYTick.end()));
}

TEST(CurvePlot, TheTitleNamesTheSounding) {
  Last_Error_Initialize();
  Load({TransientBuilder().Values({5}).Transmitter(100).Station(112.5).Frequency(250)});
  Show(hTrn(1));
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=100, RxStn=112.5, RxCmp=Hz");

  hTemSurvey.iTemArray = iArrayMVL;
  hTrn(1).dKvrBlk = {
      {12.0, 15.25}
  };
  Show(hTrn(1));
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=100, RxStn-TxStn=12.5, RxStn=112.5, RxCmp=Hz, KvrBlk=12:15.25");

  hTrn(1).dTxStn = hTrn(1).dRxStn = hTrn(1).dKvrBlk(2) = dDummy;
  hTrn(1).iRxCmp = iCmpEx;
  Show(hTrn(1));
  EXPECT_EQ(hCurve.sTitle, "TxFreq=250, TxStn=*, RxStn-TxStn=*, RxStn=*, RxCmp=Ex");
}

TEST(CurvePlot, TheYLabelNamesQuantityAndUnit) {
  const Transient h = With_B(TransientBuilder().Values({5}).Resistivities({20}), 1.0f);
  const char* sLabel[] = {"dBz/dt (uV/amp)", "Bz(t) (pT/amp)", "Apparent Resistivity (ohm-m)"};
  for (I4 iType = 1; iType <= 3; ++iType) {
    Show(h, iType);
    EXPECT_EQ(hCurve.sYLabel, sLabel[iType - 1]);
  }
  Show(TransientBuilder().Component(iCmpOff).Values({5}));
  EXPECT_EQ(hCurve.sYLabel, "Off");
}

TEST(CurvePlot, WhatCannotBePlottedCannotBeDrawnOrFlagged) {
  const Shown s = Show_and_Draw(TransientBuilder());
  EXPECT_EQ(s.iError, 1);
  EXPECT_FALSE(IPg_Is_Plotting());
  I4 iError = 0;
  QCC_SkipPoint(hTrn(1), true, 10.0f, 10.0f, 100.0f, iError);
  EXPECT_EQ(iError, 1);
  QCC_SkipBox(hTrn(1), true, 3.0f, 3.5f, 23.0f, 18.5f, iError);
  EXPECT_EQ(iError, 1);
  QCC_Zoom_Box(5.0f, 5.0f, 15.0f, 15.0f);
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
    EXPECT_EQ(Show_and_Draw(h).iError, 0);
    QCC_Zoom_Box(3.0f, 3.5f, 3.1f, 3.6f);
    I4 iError = 1;
    QCC_Plot_Trns(6, iError);
    EXPECT_EQ(iError, 0);
  }
}

// Windows at 1, 2, 4, 8 msec.
const TransientBuilder hFour = TransientBuilder().Values({1000, 100, 100, 1});

TEST(CurveFlags, AClickFlagsTheNearestPointAndItsWindow) {
  Show_and_Draw(hFour);
  const Place h = Place_of(2);
  Click(true, h.fX + 0.3f, h.fY - 0.3f);
  EXPECT_EQ(Skipped(1), "-X--");
  EXPECT_EQ(Drawn_Flags(), "-X--");
  Click(false, h.fX, h.fY);
  EXPECT_EQ(Skipped(1), "----");
}

TEST(CurveFlags, OutOfReachNothingHappens) {
  Show_and_Draw(hFour);
  const Place h = Place_of(2);
  Click(true, h.fX, h.fY + 0.51f);
  EXPECT_EQ(Skipped(1), "----");
  Click(true, h.fX, h.fY + 0.49f);
  EXPECT_EQ(Skipped(1), "-X--");
}

TEST(CurveFlags, OnlyPointsWhoseFlagWouldChangeCount) {
  Show_and_Draw(hFour);
  const Place h = Place_of(3);
  Click(false, h.fX, h.fY, 100.0f);  // nothing is skipped
  EXPECT_EQ(Skipped(1), "----");
  for (const char* sFlags : {"--X-", "-XX-", "-XXX", "XXXX", "XXXX"}) {
    Click(true, h.fX - 0.01f, h.fY - 0.01f, 100.0f);
    EXPECT_EQ(Skipped(1), sFlags);
  }
}

TEST(CurveFlags, OfPointsEquallyNearTheEarlierIsTaken) {
  Show_and_Draw(TransientBuilder().Times({1, 2, 2, 4}).Values({1000, 10, 10, 1}));
  const Place h = Place_of(2);
  Click(true, h.fX + 0.1f, h.fY);
  EXPECT_EQ(Skipped(1), "-X--");
  Click(true, h.fX + 0.1f, h.fY);
  EXPECT_EQ(Skipped(1), "-XX-");
}

TEST(CurveFlags, APointOutOfViewCannotBeClicked) {
  Show_and_Draw(hFour);
  const Place h = Place_of(1);
  hCurve.hRange.fXPgMin = 1.5f;
  Click(true, h.fX, h.fY);
  EXPECT_EQ(Skipped(1), "----");
}

TEST(CurveFlags, ABoxTakesPointsInsideAndOnItInViewOrNot) {
  Show_and_Draw(hFour);
  const Place h1 = Place_of(1), h4 = Place_of(4);
  QCC_Zoom_Box(8.0f, 8.0f, 10.0f, 10.0f);
  Box(true, {h1.fX - 1.0f, h4.fY - 1.0f}, {h4.fX + 1.0f, h1.fY + 1.0f});
  EXPECT_EQ(Skipped(1), "XXXX");

  Show_and_Draw(hFour);
  const Place h2 = Place_of(2), h3 = Place_of(3);
  constexpr R4 fHair = 1.0E-4f;
  Box(true, {h3.fX + fHair, h2.fY + fHair}, {h2.fX - fHair, h2.fY - fHair});
  EXPECT_EQ(Skipped(1), "-XX-");
  Box(true, {h3.fX - fHair, 0.0f}, {h2.fX + fHair, 20.0f});
  EXPECT_EQ(Skipped(1), "-XX-");
  Box(false, {h2.fX - fHair, 0.0f}, {h2.fX + fHair, 20.0f});
  EXPECT_EQ(Skipped(1), "--X-");
}

TEST(CurveFlags, AWindowThatIsGoneIsNotWritten) {
  Show_and_Draw(hFour);
  hTrn(1).NTW = 2;
  Box(true, {3.0f, 3.5f}, {23.0f, 18.5f});
  EXPECT_EQ(Drawn_Flags(), "XXXX");
  EXPECT_FALSE(hTrn(1).bSkip(3));
}

TEST(CurveZoom, ABoxBecomesTheRangeAndZoomAllBringsTheCurveBack) {
  Show_and_Draw(hFour);
  const CurveRange hFull = hCurve.hRange;
  const Place h1 = Place_of(2), h2 = Place_of(4);
  QCC_Zoom_Box(h1.fX, h2.fY, h2.fX, h1.fY);
  EXPECT_NEAR(hCurve.hRange.fXPgMin, 2.0f, 1.0E-3f);
  EXPECT_NEAR(hCurve.hRange.fXPgMax, 8.0f, 1.0E-3f);
  EXPECT_NEAR(hCurve.hRange.fYPgMin, hCurve.fYPobs(4), 1.0E-4f);
  EXPECT_NEAR(hCurve.hRange.fYPgMax, hCurve.fYPobs(2), 1.0E-4f);
  EXPECT_GE(hCurve.fYTick.front(), hCurve.hRange.fYPgMin);
  EXPECT_LE(hCurve.fYTick.back(), hCurve.hRange.fYPgMax);
  QCC_Zoom_All();
  EXPECT_EQ(hCurve.hRange.fXPgMax, hFull.fXPgMax);
  EXPECT_EQ(hCurve.hRange.fYPgMin, hFull.fYPgMin);
}

TEST(CurveZoom, ASmallBoxIsWidenedAboutItsMiddle) {
  Show_and_Draw(hFour);
  R4 fX1 = 0.0f, fY1 = 0.0f, fX2 = 0.0f, fY2 = 0.0f;
  IPgUnitsFromGrUnits(9.0f, 9.3f, fX1, fY1);
  IPgUnitsFromGrUnits(11.0f, 10.7f, fX2, fY2);
  QCC_Zoom_Box(10.0f, 10.0f, 10.0f, 10.0f);
  EXPECT_NEAR(hCurve.hRange.fXPgMin, fX1, 1.0E-4f);
  EXPECT_NEAR(hCurve.hRange.fXPgMax, fX2, 1.0E-4f);
  EXPECT_NEAR(hCurve.hRange.fYPgMin, fY1, 1.0E-4f);
  EXPECT_NEAR(hCurve.hRange.fYPgMax, fY2, 1.0E-4f);
}

TEST(CurveZoom, AZoomRepeatedToTheLimitOfFloatsStaysDrawable) {
  const Shown s = Show_and_Draw(hFour);
  for (I4 I = 1; I <= 15; ++I) {
    I4 iError = 1;
    QCC_Zoom_Box(12.0f, 10.0f, 12.5f, 10.5f);
    QCC_Plot_Trns(s.iPltCmp, iError);
    ASSERT_EQ(iError, 0);
    ASSERT_LE(hCurve.hRange.fXPgMin, hCurve.hRange.fXPgMax);
    ASSERT_TRUE(std::isfinite(hCurve.hRange.fYPgMax - hCurve.hRange.fYPgMin));
  }
}

}  // namespace
}  // namespace quillan
