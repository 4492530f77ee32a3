#include "model/derived.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "model/txw_data.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

using Times = std::vector<R4>;

/// A store of transients with these window centres.
void Load_Times(const std::vector<Times>& fTWCen) {
  Begin_Test();
  for (const Times& fTimes : fTWCen) {
    Transient& h = TMD_Add_Transient();
    for (const R4 fTime : fTimes) h.fTWCen(++h.NTW) = fTime;
  }
}

std::vector<I4> Configurations() {
  std::vector<I4> iTWCfg;
  for (I4 j = 1; j <= NTrn; ++j) iTWCfg.push_back(hTrn(j).iTWCfg);
  return iTWCfg;
}

TEST(Store, FreshStoreHasNothingOfTheLastSurvey) {
  Load({TransientBuilder().Values({5})});
  hTrn(1).bSkip(MTW) = true;
  hTemSurvey.sJobName = "Orrin basin";
  hAvgKept.NAvgCmt = 1;
  TMD_Initialize();
  EXPECT_EQ(NTrn, 0);
  EXPECT_FALSE(Is_Present(TMD_Add_Transient().fuVmag(1)));
  EXPECT_FALSE(hTrn(1).bSkip(MTW));
  EXPECT_TRUE(hTemSurvey.sJobName.Is_Blank());
  EXPECT_EQ(hAvgKept.NAvgCmt, 0);
}

TEST(WindowSets, MatchByCountAndCentre) {
  struct Case {
    const char* sWhat;
    Times fTWCen1, fTWCen2;
    bool bTWMatch;
  };
  for (const Case& h : {
           Case{"equal",                      {1.0f, 2.0f}, {1.0f, 2.0f},  true },
           Case{"just inside the tolerance",  {0.0f},       {0.01f},       true },
           Case{"just outside the tolerance", {0.0f},       {0.011f},      false},
           Case{"last window differs",        {1.0f, 2.0f}, {1.0f, 2.02f}, false},
           Case{"one window more",            {1.0f},       {1.0f, 2.0f},  false},
           Case{"no windows at all",          {},           {},            true },
  }) {
    Load_Times({h.fTWCen1, h.fTWCen2});
    EXPECT_EQ(TMD_Trns_TW_Compare(hTrn(1), hTrn(2)), h.bTWMatch) << h.sWhat;
  }
}

TEST(WindowSets, AreNumberedInOrderOfAppearanceAndDriftStaysOneSet) {
  Begin_Test();
  EXPECT_EQ(TMD_Trns_Set_iTWCfg(), 1) << "empty store";

  const Times fA = {1.0f, 2.0f}, fB = {1.0f, 3.0f}, fC = {1.0f};
  Load_Times({fA, fB, fA, fB, fB, fC, fA});
  EXPECT_EQ(TMD_Trns_Set_iTWCfg(), 0);
  EXPECT_EQ(Configurations(), (std::vector<I4>{1, 2, 1, 2, 2, 3, 1}));

  // Each is within the tolerance of the one before it, the third not within that of the first.
  Load_Times({{1.0f}, {1.008f}, {1.016f}});
  EXPECT_EQ(TMD_Trns_Set_iTWCfg(), 0);
  EXPECT_EQ(Configurations(), (std::vector<I4>{1, 1, 1}));
}

TEST(PrepareOutput, DepthsFollowTheResistivitiesAndOnlyTheCurrentFormatIsInMsec) {
  Load({TransientBuilder().Times({4, 9}).Resistivities({9.0f, 1.0E-20f})});
  hTrn(1).fDepth(2) = 5.0f;
  hTemSurvey.iTimeUnit = 1;
  Prepare_Output(false);
  EXPECT_EQ(hTrn(1).fDepth(1), 28.0f * 6.0f);
  EXPECT_EQ(hTrn(1).fDepth(2), 5.0f) << "no resistivity";
  EXPECT_EQ(hTemSurvey.iTimeUnit, 1);
  Prepare_Output(true);
  EXPECT_EQ(hTemSurvey.iTimeUnit, 2);
}

/// Loops of 60 by 30 m, whose centre has the station as its east.
void Put_Loops(const std::vector<R8>& dTxStn) {
  for (const R8 dStn : dTxStn) {
    hTxw.Add();
    WireLoop& h = hTxw(++NTxw);
    h.dTxStn = dStn;
    for (const auto& [dEast, dNorth] : std::vector<std::pair<R8, R8>>{
             {-30, 0 },
             {30,  0 },
             {30,  30},
             {-30, 30}
    }) {
      h.dTxUTMV.hColumn(++h.NTxUTMV) = {
          {h.dTxStn + dEast, dNorth, 0.0}
      };
    }
    ASSERT_EQ(Txw_Get_Area(h), 0);
  }
}

TEST(TransmitterPositions, WireLoopsPlaceTheTransmitters) {
  Begin_Test();
  Txw_Initialize();
  EXPECT_EQ(TMD_TxUTMC_from_hTxw(), 0) << "no wire file in use";
  hTemSurvey.bTxwFile = true;
  EXPECT_EQ(TMD_TxUTMC_from_hTxw(), 1) << "no loops";

  Put_Loops({100.0, 200.0});
  hTemSurvey.fLineAzimuth = 90.0f;
  for (const R8 dStn : {100.0, 200.0, 150.0, 150.0, 200.0, 100.0}) TMD_Add_Transient().dTxStn = dStn;
  EXPECT_EQ(TMD_TxUTMC_from_hTxw(), 0);
  for (I4 j = 1; j <= NTrn; ++j) {
    const R8 dStn = hTrn(j).dTxStn;
    EXPECT_EQ(hTrn(j).dTxXYZC(1), dStn == 150.0 ? dDummy : dStn) << "a station without a loop stays as it was: " << j;
  }
  EXPECT_EQ(hTemSurvey.dTxXYZC(1), 100.0);
  EXPECT_FLOAT_EQ(hTemSurvey.fTxArea, 1800.0f);
  EXPECT_NEAR(hTemSurvey.fTxLength(1), 60.0f, 0.01f);
  EXPECT_EQ(hTemSurvey.fTxHPR(1), 90.0f);
}

TEST(TransmitterPositions, CornersOfARectangle) {
  struct Case {
    const char* sWhat;
    R4 fTxAzm;
    I4 iLengthUnit;
    R4 fEast1, fNorth1;  // of the first corner
  };
  const Array1<R4, 2> fTxLength{
      {200.0f, 100.0f}
  };
  for (const Case& h : {
           Case{"along east",            90.0f, 1, -100.0f,           -50.0f          },
           Case{"along north",           0.0f,  1, 50.0f,             -100.0f         },
           Case{"feet",                  90.0f, 2, -100.0f / 0.3048f, -50.0f / 0.3048f},
           Case{"unit beyond the table", 90.0f, 9, -100.0f / 0.3048f, -50.0f / 0.3048f},
  }) {
    const Array2<R4, 2, 4> fTxXYV = TMD_Get_fTxXYV(fTxLength, h.fTxAzm, h.iLengthUnit);
    for (const I4 J : {1, 3}) {  // opposite corners
      const R4 fSide = J == 1 ? 1.0f : -1.0f;
      EXPECT_NEAR(fTxXYV(1, J), fSide * h.fEast1, 1.0E-3f) << h.sWhat;
      EXPECT_NEAR(fTxXYV(2, J), fSide * h.fNorth1, 1.0E-3f) << h.sWhat;
    }
  }
}

void Load_Survey() {
  Load({TransientBuilder().Values({5}).Station(4), TransientBuilder().Values({5}).Component(iCmpHx)});
  hTemSurvey.fLineAzimuth = -30.0f;
  hTemSurvey.dStnKvrBeg = 0.0;
  hTemSurvey.dStnKvrInc = 2.0;
  hTemSurvey.dStnBeg = 100.0;
  hTemSurvey.dStnInc = 10.0;
}

TEST(CompleteTransients, StationsAreRescaledAndAMissingTransmitterMovesAlong) {
  Load_Survey();
  hTemSurvey.iTemArray = 3;
  hTrn(1).dTxKvrStn = dDummy;
  hTrn(2).dTxKvrStn = 6.0;
  hTrn(2).fRxHPR = {
      {10.0f, 20.0f, 30.0f}
  };
  hTemSurvey.fRxHPR.fill(fDummy);
  TEM_Complete_Transients();
  EXPECT_EQ(hTrn(1).dRxStn, 120.0);
  EXPECT_EQ(hTrn(1).dTxKvrStn, 4.0);
  EXPECT_EQ(hTrn(1).dTxStn, 120.0);
  EXPECT_EQ(hTrn(1).fRxHPR, (Array1<R4, 3>{
                                {-30.0f, 0.0f, 0.0f}
  }));
  EXPECT_EQ(hTrn(2).dTxStn, 130.0);
  EXPECT_EQ(hTrn(2).fRxHPR(2), 20.0f);
}

TEST(CompleteTransients, FixedLoopHasStationOneAndASmallIncrementCountsAsOne) {
  Load_Survey();
  hTemSurvey.dStnKvrInc = -0.0001;
  hTrn(1).dTxKvrStn = dDummy;
  hTrn(2).dTxKvrStn = hTrn(2).dTxStn = 7.0;
  TEM_Complete_Transients();
  EXPECT_EQ(hTrn(1).dTxKvrStn, 1.0);
  EXPECT_EQ(hTrn(1).dTxStn, 1.0);
  EXPECT_EQ(hTrn(2).dTxStn, 7.0);
  EXPECT_EQ(hTrn(1).dRxStn, 4.0 * -10.0 + 100.0);
  EXPECT_EQ(hTemSurvey.dStnKvrInc, -0.0001);
}

TEST(DataRange, PresentValuesCountAndAnEmptyRangeStays) {
  Load({TransientBuilder().Times({1, 2, 3}).Values({5, -7, fDummy}).Resistivities({0.0005f, 0.0f, fDummy})});
  hTrn(1).bSkip(2) = true;
  TEM_Trn_Data_Range();
  EXPECT_EQ(hTrn(1).fuVmin, -7.0f);
  EXPECT_EQ(hTrn(1).fuVmax, 5.0f);
  EXPECT_EQ(hTrn(1).fARmin, fRangeMin0);
  EXPECT_EQ(hTrn(1).fBmax, fRangeMax0);
  EXPECT_EQ(hTrn(1).fTWCmax, 3.0f);
}

}  // namespace
}  // namespace quillan
