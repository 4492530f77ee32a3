#include "review/qcs_sections.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "review/plot/signed_log.h"
#include "support/survey_builder.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr R4 fTiny = 1.0E-6f;

/// A transient with its ranges, as a read leaves it.
Transient At(R8 dStn, std::initializer_list<R4> fuVmag, I4 iRxCmp = iCmpHz) {
  Transient h = TransientBuilder().Station(dStn).Values(fuVmag).Component(iRxCmp);
  for (I4 I = 1; I <= h.NTW; ++I) {
    h.fBmag(I) = Is_Present(h.fuVmag(I)) ? h.fuVmag(I) / 10.0f : fDummy;
    if (!Is_Present(h.fuVmag(I))) continue;
    Join_Range(h.fuVmag(I), h.fuVmag(I), h.fuVmin, h.fuVmax);
    Join_Range(h.fBmag(I), h.fBmag(I), h.fBmin, h.fBmax);
  }
  return h;
}

/// The store as sections, and the first of them ready to be drawn.
PlotRange Show(std::initializer_list<Transient> hTransient, I4 iPlotType = 1) {
  Load(hTransient);
  QCS_Initialize();
  EXPECT_EQ(QCS_Allocate(), 0);
  return QCS_Section_Initialize(1, iPlotType).value();
}

/// Visible points as "transient.window", those of skipped windows with an x.
std::string Visible(const PlotRange& hRange) {
  std::string sPoint;
  QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
    sPoint += std::to_string(h.iTrn) + "." + std::to_string(h.iTwc) + (h.bSkip ? "x " : " ");
  });
  return sPoint;
}

/// Joining lines as "from-to" by station.
std::string Joins(const PlotRange& hRange) {
  std::string sJoin;
  QCS_Visit_Joins(hRange, [&](R4 fX1, R4, R4 fX2, R4) {
    sJoin += std::to_string(Nint(fX1)) + "-" + std::to_string(Nint(fX2)) + " ";
  });
  return sJoin;
}

// ---- grouping

TEST(Sections, BeginWhereTheArraySaysSo) {
  const struct {
    const char* sWhat;
    std::set<I4> iArrays;  // those with a new section
    Transient h;           // after one at receiver 1, transmitter 1
  } hCases[] = {
      {"another component",   {1, 2, 3, 4, 5, 6}, TransientBuilder().Component(5)             },
      {"another transmitter", {1, 5, 6},          TransientBuilder().Station(3).Transmitter(3)},
      {"another separation",  {2},                TransientBuilder().Station(3)               },
      {"both",                {1, 2, 5, 6},       TransientBuilder().Station(3).Transmitter(2)},
      {"a repeat",            {},                 TransientBuilder()                          },
  };
  for (const auto& hCase : hCases) {
    for (I4 iArray = 1; iArray <= 6; ++iArray) {
      Load({TransientBuilder(), hCase.h});
      hTemSurvey.iTemArray = iArray;
      EXPECT_EQ(QCS_Allocate(), 0);
      EXPECT_EQ(hTrn(2).iSection, hCase.iArrays.contains(iArray) ? 2 : 1) << hCase.sWhat << ", array " << iArray;
      EXPECT_EQ(NSection, hTrn(2).iSection);
    }
  }
}

TEST(Sections, TransmittersWithinTenThousandSpacingsOfTheFirstAreOne) {
  const R8 dTx = 1000.0, dStep = Spacing(dTx);
  Load({TransientBuilder().Transmitter(dTx), TransientBuilder().Transmitter(dTx + 6000 * dStep),
        TransientBuilder().Transmitter(dTx + 10000 * dStep), TransientBuilder().Transmitter(dTx + 10001 * dStep)});
  EXPECT_EQ(QCS_Allocate(), 0);
  EXPECT_EQ(hSection(1).iTrnEnd, 3);  // against the first one, not the one before
  EXPECT_EQ(hSection(2).iTrnBeg, 4);
  EXPECT_EQ(hTrn(4).iSection, 2);
}

TEST(Sections, SeparationsAreComparedIn32Bits) {
  const R4 fStep = Spacing(100.0f);
  const auto At_Separation = [&](R4 NStep) {
    return TransientBuilder().Station(R8{100.0f + NStep * fStep}).Transmitter(0);
  };
  Load({At_Separation(0), At_Separation(10000), At_Separation(10001)});
  hTemSurvey.iTemArray = iArrayMVL;
  EXPECT_EQ(QCS_Allocate(), 0);
  EXPECT_EQ(hTrn(2).iSection, 1);
  EXPECT_EQ(hTrn(3).iSection, 2);
}

TEST(Sections, NewOnesKeepNothingOfTheOldNoiseFloors) {
  const PlotRange hRange = Show({At(1, {5, 3})});
  hSection(1).fYPNoise(1) = 0.25f;
  EXPECT_EQ(QCS_Allocate(), 0);
  EXPECT_EQ(hSection(1).fYPNoise(1), 1.0f);
  EXPECT_EQ(Visible(hRange), "");  // the order may be another: nothing can be picked before the next plot
  NTrn = 0;
  EXPECT_EQ(QCS_Allocate(), 1);
  EXPECT_EQ(NSection, 0);
}

TEST(Sections, RangesJoinThoseOfTheTransients) {
  Transient hWithout = At(20, {fDummy, fDummy});
  Transient hLast = At(30, {80, -4});
  hLast.fARmin = 10.0f, hLast.fARmax = 50.0f;
  hWithout.fARmin = hWithout.fARmax = 1.0E-6f;  // not above the least resistivity
  Load({At(10, {90, 7, 2}), hWithout, hLast});
  EXPECT_EQ(QCS_Allocate(), 0);
  const SectionRecord& h = hSection(1);
  EXPECT_EQ(std::tie(h.fStnMin, h.fStnMax), std::make_tuple(10.0f, 30.0f));
  EXPECT_EQ(std::tie(h.hValue(1).fMin, h.hValue(1).fMax), std::make_tuple(-4.0f, 90.0f));
  EXPECT_EQ(std::tie(h.hValue(2).fMin, h.hValue(2).fMax), std::make_tuple(-0.4f, 9.0f));
  EXPECT_EQ(std::tie(h.hValue(3).fMin, h.hValue(3).fMax), std::make_tuple(10.0f, 50.0f));
}

TEST(Sections, RecordsWithoutTransientsAreRefused) {
  Load({At(1, {1})});
  for (const I4 iTrnEnd : {0, 2}) {
    SectionRecord h;
    h.iTrnBeg = 1;
    h.iTrnEnd = iTrnEnd;
    EXPECT_EQ(QCS_Range_SectionJ(h), 1) << iTrnEnd;
    EXPECT_EQ(h.hValue(1).fMax, fRangeMax0);
  }
}

TEST(Sections, OfferTwoPlotTypesOfMagneticComponentsAndOneOfOthers) {
  EXPECT_EQ(QCS_Plot_Types(iCmpHz), (std::vector<std::string>{"dBz/dt (uV/A)", "Bz(t) (nT/A)"}));
  EXPECT_EQ(QCS_Plot_Types(8), (std::vector<std::string>{"Tx Current (amps"}));
}

// ---- the range of the plot

TEST(SectionPlot, TakesInAllStationsAndZero) {
  const PlotRange hRange = Show({At(10, {900, 3}), At(20, {500, 2})});
  EXPECT_EQ(hRange.fXPmin, 10.0f);
  EXPECT_EQ(hRange.fXPmax, 20.0f);
  EXPECT_EQ(hRange.fYPmin, fAsinh10(2, 10));
  EXPECT_EQ(hRange.fYPmax, fAsinh10(900, 10));
  const PlotRange hBelow = Show({At(10, {-900, -500})});
  EXPECT_EQ(hBelow.fYPmin, fAsinh10(-900, 10));
  EXPECT_EQ(hBelow.fYPmax, 0.0f);
  const PlotRange hNarrow = Show({At(10, {900, 900})});
  EXPECT_EQ(hNarrow.fYPmax, hNarrow.fYPmin + 1.0f);
  EXPECT_EQ(Show({At(10, {9000, 3})}, 2).fYPmax, fAsinh10(900, 10));
}

TEST(SectionPlot, OneStationIsWidened) {
  const PlotRange hSmall = Show({At(100, {9, 3})});
  EXPECT_FLOAT_EQ(hSmall.fXPmin, 99.995f);
  EXPECT_FLOAT_EQ(hSmall.fXPmax, 100.005f);
  const PlotRange hGreat = Show({At(1.0E6, {9, 3})});  // where 0.005 is nothing in 32 bits
  EXPECT_EQ(hGreat.fXPmin, 1.0E6f - 0.625f);
  EXPECT_EQ(hGreat.fXPmax, 1.0E6f + 0.625f);
  EXPECT_EQ(Visible(hGreat), "1.1 1.2 ");
  EXPECT_EQ(Joins(hGreat), "");
}

TEST(SectionPlot, StationsThatOnly64BitsTellApartStayInTheRange) {
  EXPECT_EQ(Visible(Show({At(1000.1, {9}), At(1000.3, {8}), At(2000.7, {7})})), "1.1 2.1 3.1 ");
}

TEST(SectionPlot, ANoiseFloorIsThatOfItsPlotTypeAndTheUsersAlone) {
  Show({At(10, {900, 3}), At(20, {500, 2})});
  EXPECT_TRUE(QCS_Take_Noise_Floor(1, 1, 0.01f, 1.0f));
  const PlotRange hRange = QCS_Section_Initialize(1, 1).value();
  EXPECT_FLOAT_EQ(fYPScale, 0.1f);
  EXPECT_EQ(hRange.fYPmin, fAsinh10(2, fYPScale));
  EXPECT_EQ(hSection(1).fYPNoise(2), 1.0f);

  EXPECT_TRUE(QCS_Take_Noise_Floor(1, 1, 1.0E20f, 1.0f));
  EXPECT_EQ(hSection(1).fYPNoise(1), 1.0E9f);
  EXPECT_FALSE(QCS_Take_Noise_Floor(1, 1, 0.5f + 100.0f * Spacing(0.5f), 0.5f));
  EXPECT_EQ(hSection(1).fYPNoise(1), 1.0E9f) << "what was put into the field and left there is not the user's";
  EXPECT_TRUE(QCS_Section_Initialize(1, 1));
  EXPECT_EQ(fYPNoise(1), 1.0f) << "a plot takes no greater one";
}

TEST(SectionPlot, WithoutSectionStationOrValueNothingIsVisible) {
  Transient hNoStation = At(10, {9, 3});
  hNoStation.dRxKvrStn = dDummy;
  const struct {
    const char* sWhat;
    I4 iSection, iPlotType;
    Transient h;
  } hCases[] = {
      {"section 0", 0, 1, At(10, {9, 3})},
      {"section 2", 2, 1, At(10, {9, 3})},
      {"plot type 0", 1, 0, At(10, {9, 3})},
      {"plot type 4", 1, 4, At(10, {9, 3})},
      {"all missing", 1, 1, At(10, {fDummy, fDummy})},
      {"no windows", 1, 1, At(10, {})},
      {"no resistivity", 1, 3, At(10, {9, 3})},
      {"no station", 1, 1, hNoStation},
  };
  for (const auto& hCase : hCases) {
    Show({At(10, {9, 3})});
    Load({hCase.h});
    EXPECT_EQ(QCS_Allocate(), 0);
    EXPECT_FALSE(QCS_Section_Initialize(hCase.iSection, hCase.iPlotType)) << hCase.sWhat;
    EXPECT_EQ(Visible({-1.0E30f, 1.0E30f, -50, 50}), "") << hCase.sWhat;
    EXPECT_EQ(QCS_Section_Point({12, 9}, 1, 1, {7, 8, 7, 8}, 2).iTrn, 0) << hCase.sWhat;
  }
}

// ---- points and lines

TEST(SectionPoints, LeastAndGreatestValueAreVisible) {
  const PlotRange hRange = Show({At(10, {1.0E30f, 3, -7.7f}), At(20, {1, fDummy, 2})});
  EXPECT_EQ(Visible(hRange), "1.1 1.2 1.3 2.1 2.3 ");
  EXPECT_TRUE(std::isfinite(hRange.fYPmin) && std::isfinite(hRange.fYPmax));
}

TEST(SectionPoints, ShowTheSkipFlagOfTheWindowAlone) {
  const PlotRange hRange = Show({At(10, {9, 3}), At(20, {8, 2})});
  hTrn(1).bSkipTrn = true;
  hTrn(2).bSkip(2) = true;  // no new initialisation: the next redraw shows it
  EXPECT_EQ(Visible(hRange), "1.1 1.2 2.1 2.2x ");
}

TEST(SectionPoints, ZoomLeavesOutWhatLiesOutside) {
  PlotRange hRange = Show({At(10, {900, 3}), At(20, {500, 2}), At(30, {100, 1})});
  hRange.fXPmin = 20.0f;
  hRange.fYPmax = fAsinh10(200, 10);
  EXPECT_EQ(Visible(hRange), "2.2 3.1 3.2 ");
}

TEST(SectionLines, JoinConsecutiveValuesOfAWindow) {
  EXPECT_EQ(Joins(Show({At(10, {9, 3}), At(20, {8, 2}), At(30, {7, 1})})), "10-20 20-30 10-20 20-30 ");
  EXPECT_EQ(Joins(Show({At(10, {9, 3}), At(20, {8, fDummy}), At(30, {7, 1})})), "10-20 20-30 ");
  EXPECT_EQ(Joins(Show({At(10, {9, 3, 2}), At(20, {8}), At(30, {7, 1})})), "10-20 20-30 ");
}

TEST(SectionLines, CrossTheEdgesOfTheZoom) {
  const PlotRange hAll = Show({At(10, {900}), At(20, {2}), At(30, {800}), At(40, {700}), At(50, {1})});
  PlotRange hZoom = hAll;
  hZoom.fXPmin = 15.0f;  // the line from 10 comes in, 50 is reached from 40
  hZoom.fXPmax = 45.0f;
  EXPECT_EQ(Joins(hZoom), "10-20 20-30 30-40 40-50 ");
  hZoom.fYPmin = fAsinh10(100, 10);
  hZoom.fYPmax = fAsinh10(200, 10);  // both ends outside, on different sides: the line crosses
  EXPECT_EQ(Joins(hZoom), "10-20 20-30 40-50 ");
  hZoom.fXPmax = 19.0f;  // between two stations: no transient within the range, so no windows
  EXPECT_EQ(Joins(hZoom), "");
}

// ---- picking

/// Graphics units that are plot units.
constexpr PlotMap hSame{0, 0, 1, 0, 0, 1};

std::string Nearest(R4 fXGr, R4 fYGr, const PlotRange& hRange, R4 fRGrMax, const PlotMap& hMap = hSame) {
  const PickedPoint h = QCS_Nearest_Point({fXGr, fYGr}, hRange, hMap, fRGrMax);
  return std::to_string(h.iTrn) + "." + std::to_string(h.iTwc);
}

TEST(NearestPoint, IsTheFirstOfEquallyNearOnes) {
  const PlotRange hRange = Show({At(10, {0, 0}), At(12, {0, 0}), At(14, {900, 0})});
  EXPECT_EQ(Nearest(11, 0, hRange, 2), "1.1");
  EXPECT_EQ(Nearest(11.01f, 0, hRange, 2), "2.1");
  EXPECT_EQ(Nearest(11, 0, hRange, 1), "1.1");      // just within reach
  EXPECT_EQ(Nearest(11, 0, hRange, 0.99f), "0.0");  // just beyond
  EXPECT_EQ(Nearest(14, 0.1f, hRange, 0.5f), "3.2");
}

TEST(NearestPoint, IsMeasuredInGraphicsUnitsAmongVisiblePoints) {
  PlotRange hRange = Show({At(0, {9, 99}), At(10, {9, 99})});
  const PlotMap hFlat{0, 5, 0.1f, 0, 5, 10};  // a long section: stations are near each other on the screen
  EXPECT_EQ(Nearest(5.6f, 5 + 10 * fAsinh10(99, 10), hRange, 2, hFlat), "2.2");
  hRange.fYPmax = fAsinh10(50, 10);
  EXPECT_EQ(Nearest(5.6f, 5 + 10 * fAsinh10(99, 10), hRange, 2, hFlat), "0.0");
}

TEST(NearestPoint, NeedsAClickInTheAreaOfThePlotThatWasDrawn) {
  const PlotRange hRange = Show({At(0, {9, 99}), At(10, {9, 99})});
  const auto Is_Found = [&](const GrPoint& hClick, I4 iPlotType) {
    return QCS_Section_Point(hClick, 1, iPlotType, hRange, 100).iTrn != 0;
  };
  EXPECT_FALSE(Is_Found({-0.1f, 5.0f}, 1) || Is_Found({24.1f, 5.0f}, 1));
  EXPECT_FALSE(Is_Found({5.0f, -0.1f}, 1) || Is_Found({5.0f, 17.9f}, 1));
  EXPECT_FALSE(Is_Found({5.0f, 5.0f}, 2)) << "another plot type";
}

/// The plot on the screen: 20 by 10 graphics units from (2, 3) on.
void Draw_Frame(const PlotRange& hRange) {
  IGrArea(0, 0, 1, 1);
  IGrUnits(0, 0, fXCMU, fYCMU);
  IPgArea(2 / fXCMU, 3 / fYCMU, 22 / fXCMU, 13 / fYCMU);
  IPgScaling(Scaling::Linear, Scaling::Linear);
  IPgUnits(hRange.fXPmin, hRange.fYPmin, hRange.fXPmax, hRange.fYPmax);
}

TEST(NearestPoint, AndTheFlipAreFoundInThePlotOnTheScreen) {
  const PlotRange hRange = Show({At(0, {9, 999}), At(5, {9, 999}), At(10, {9, 999})});
  Draw_Frame(hRange);
  const PickedPoint h = QCS_Section_Point({21.8f, 12.8f}, 1, 1, hRange, 0.5f);
  EXPECT_EQ(h.iTrn, 3);
  EXPECT_EQ(h.iTwc, 2);
  QCS_Section_FlipTrn(1, 11.9f, 12.1f);
  EXPECT_EQ(hTrn(1).fuVmag(1), 9.0f);
  EXPECT_EQ(hTrn(2).fuVmag(1), -9.0f);
  EXPECT_EQ(hTrn(3).fuVmag(1), 9.0f);
}

// ---- polarity

TEST(Polarity, FlippedTwiceIsAsItWas) {
  Show({At(10, {900, fDummy, -3}), At(20, {fDummy, fDummy})});
  const Transient h1 = hTrn(1);
  QCS_Section_FlipAll(1);
  EXPECT_EQ(hTrn(1).fuVmag(1), -900.0f);
  EXPECT_EQ(hTrn(1).fBmag(1), -90.0f);
  EXPECT_EQ(hTrn(1).fuVmag(2), fDummy);
  EXPECT_EQ(std::tie(hTrn(1).fuVmin, hTrn(1).fuVmax), std::make_tuple(-900.0f, 3.0f));
  EXPECT_EQ(std::tie(hTrn(2).fuVmin, hTrn(2).fuVmax), std::make_tuple(fRangeMin0, fRangeMax0));
  QCS_Flip_Stations(1, 5, 15);
  EXPECT_EQ(hTrn(1).fuVmag, h1.fuVmag);
  EXPECT_EQ(hTrn(1).fBmax, h1.fBmax);
}

TEST(Polarity, FlipTakesTheEdgesOfTheBoxAndStopsAtTheFirstStationBeyond) {
  Show({At(10, {1}), At(20, {1}), At(30, {1}), At(40, {1}), At(20, {1})});
  QCS_Flip_Stations(1, 20, 30);
  std::string sFlipped;
  for (I4 j = 1; j <= NTrn; ++j) sFlipped += hTrn(j).fuVmag(1) < 0 ? '-' : '+';
  EXPECT_EQ(sFlipped, "+--++");
}

TEST(Polarity, FlipStaysInItsSection) {
  Show({At(10, {1}, iCmpHx), At(10, {1}), At(20, {1})});
  QCS_Section_FlipAll(1);
  EXPECT_EQ(hTrn(1).fuVmag(1), -1.0f);
  EXPECT_EQ(hTrn(2).fuVmag(1), 1.0f);
  QCS_Section_FlipAll(3);  // there is none: reported, nothing is done
  QCS_Flip_Stations(0, 0, 100);
  EXPECT_EQ(hTrn(3).fuVmag(1), 1.0f);
}

TEST(Polarity, TheNextPlotShowsIt) {
  PlotRange hRange = Show({At(10, {900, 3})});
  QCS_Section_FlipAll(1);
  EXPECT_EQ(Visible(hRange), "");
  hRange = QCS_Section_Initialize(1, 1).value();
  EXPECT_EQ(hRange.fYPmin, fAsinh10(-900, 10));
  EXPECT_NEAR(hRange.fYPmax, 0.0f, fTiny);
  EXPECT_EQ(Visible(hRange), "1.1 1.2 ");
}

// ---- size

TEST(Sections, AFullStoreIsOneSectionOrAsManyAsTransients) {
  Begin_Test();
  QCS_Initialize();
  NTrn = MTrn;
  for (I4 j = 1; j <= NTrn; ++j) {
    hTrn(j) = At(j, {static_cast<R4>(j)});
    hTrn(j).NTW = MTW;
    hTrn(j).fuVmag.fill(static_cast<R4>(j));
  }
  EXPECT_EQ(QCS_Allocate(), 0);
  const PlotRange hRange = QCS_Section_Initialize(1, 1).value();
  I4 NPoint = 0;
  QCS_Visit_Points(hRange, [&](const SectionPoint&) { ++NPoint; });
  EXPECT_EQ(NPoint, MTrn * MTW);
  EXPECT_EQ(Nearest(4096, fAsinh10(4096, 10), hRange, 0.5f), "4096.1");

  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).dTxStn = j;
  EXPECT_EQ(QCS_Allocate(), 0);
  EXPECT_EQ(NSection, MTrn);
  EXPECT_EQ(hSection(MTrn).iTrnEnd, MTrn);
}

// ---- hidden points and the ring

/// Skipped points are hidden as long as it lives.
struct Hiding {
  Hiding() { bHideSkipped = true; }
  ~Hiding() { bHideSkipped = false; }
};

TEST(Sections, HiddenPointsLeaveTheScaleAndTheLines) {
  const PlotRange hFull = Show({At(1, {20000, 10}), At(2, {5.0E6f, 9}), At(3, {90, -200}), At(4, {80, 7})});
  hTrn(2).bSkip(1) = hTrn(3).bSkip(2) = true;
  const Hiding hHiding;
  EXPECT_EQ(Visible(hFull), "1.1 1.2 2.2 3.1 4.1 4.2 ");
  EXPECT_EQ(Joins(hFull), "3-4 1-2 ");
  const PlotRange hShown = QCS_Range_Shown(hFull);
  EXPECT_EQ(hShown.fYPmax, fAsinh10(20000.0f, fYPScale));
  EXPECT_EQ(hShown.fYPmin, fAsinh10(7.0f, fYPScale));
  EXPECT_EQ(hShown.fXPmax, hFull.fXPmax);
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).bSkip(1) = hTrn(j).bSkip(2) = true;
  EXPECT_EQ(QCS_Range_Shown(hFull), hFull) << "a section without a visible point keeps its scale";
}

TEST(Sections, TheRingGoesToTheNextVisiblePoint) {
  const PlotRange hFull = Show({At(1, {100, 10, 1}), At(2, {99, fDummy, 2}), At(3, {98, 8, 3})});
  hTrn(1).bSkip(2) = true;
  const Hiding hHiding;
  PlotRange hLow = hFull;
  hLow.fYPmax = fAsinh10(50.0f, fYPScale);
  const struct {
    const char* sCase;
    PickedPoint hFrom;
    I4 NWindow, NSounding;
    const PlotRange& hRange;
    PickedPoint hTo;
  } hCase[] = {
      {"from nowhere",              {0, 0}, 1,  0,  hFull, {1, 1}},
      {"from nowhere in a zoom",    {0, 0}, 1,  0,  hLow,  {1, 3}},
      {"from outside the zoom",     {1, 1}, 1,  0,  hLow,  {1, 3}},
      {"from another section",      {9, 1}, 1,  0,  hFull, {1, 1}},
      {"over a hidden window",      {1, 1}, 1,  0,  hFull, {1, 3}},
      {"over a missing value",      {2, 3}, -1, 0,  hFull, {2, 1}},
      {"over a sounding without",   {3, 2}, 0,  -1, hFull, {3, 2}},
      {"from a hidden point",       {1, 2}, 0,  1,  hFull, {3, 2}},
      {"at the last window",        {3, 3}, 1,  0,  hFull, {3, 3}},
      {"at the first sounding",     {1, 1}, 0,  -1, hFull, {1, 1}},
      {"to the sounding beside it", {2, 1}, 0,  1,  hFull, {3, 1}},
  };
  for (const auto& h : hCase) {
    const PickedPoint hTo = QCS_Step(h.hFrom, h.NWindow, h.NSounding, h.hRange);
    EXPECT_EQ(hTo, h.hTo) << h.sCase << ": " << hTo.iTrn << "." << hTo.iTwc;
  }
}

}  // namespace
}  // namespace quillan
