#include "model/txw_data.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <vector>

#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

constexpr R8 dEast0 = 350100.0, dNorth0 = 6240020.0;  // map coordinates: in R4 alone off by half a metre

/// A rectangle of which the corners 1 to 4, anticlockwise from the south-west, come in some order; the depth of each
/// tells it from the others.
WireLoop Rectangle(R8 dEast, R8 dNorth, std::string_view sOrder = "1234") {
  WireLoop h;
  h.dTxStn = 1200.0;
  for (const char c : sOrder) {
    const I4 J = ++h.NTxUTMV;
    h.dTxUTMV(1, J) = dEast0 + (c == '2' || c == '3' ? dEast : 0.0);
    h.dTxUTMV(2, J) = dNorth0 + (c >= '3' ? dNorth : 0.0);
    h.fTxDepth(J) = static_cast<R4>('0' - c);
  }
  return h;
}

class WireLoops : public testing::Test {
 protected:
  void SetUp() override {
    Begin_Test();
    LogText_Reset();
    Txw_Initialize();
  }

  static void Put(const std::vector<R8>& dTxStn) {
    Txw_Initialize();
    for (const R8 dStn : dTxStn) {
      hTxw.Add();
      hTxw(++NTxw).dTxStn = dStn;
      hTxw(NTxw).NTxUTMV = NTxw;  // tells the loops apart after a sort
    }
  }

  static std::vector<I4> Places() {
    std::vector<I4> iPlace;
    for (I4 K = 1; K <= NTxw; ++K) iPlace.push_back(hTxw(K).NTxUTMV);
    return iPlace;
  }
};

TEST_F(WireLoops, SquareHasItsAreaInWhateverOrderItsCornersCome) {
  for (const char* sOrder : {"1234", "4321", "1324", "3421"}) {
    WireLoop h = Rectangle(200, 200, sOrder);
    EXPECT_EQ(Txw_Get_Area(h), 0);
    EXPECT_FLOAT_EQ(h.fTxArea, 40000.0f) << sOrder;
    EXPECT_EQ(h.dTxUTMC(1), dEast0 + 100.0);
    EXPECT_EQ(h.dTxUTMC(2), dNorth0 + 100.0);
    for (I4 J = 1; J <= 4; ++J) {  // anticlockwise, and each corner has kept its own depth
      const R4 fNext = h.fTxDepth(J) == -4.0f ? -1.0f : h.fTxDepth(J) - 1.0f;
      EXPECT_EQ(h.fTxDepth(J % 4 + 1), fNext) << sOrder;
      EXPECT_EQ(h.dTxUTMV(1, J) > dEast0, h.fTxDepth(J) == -2.0f || h.fTxDepth(J) == -3.0f) << sOrder;
    }
  }
}

TEST_F(WireLoops, SidesKeepTheAreaAndTheProportions) {
  struct Case {
    const char* sWhat;
    R4 fXazm, fAlong, fAcross;
  };
  const std::vector<Case> hCase = {
      {"along east",  90.0f,  300.0f, 100.0f},
      {"along north", 0.0f,   100.0f, 300.0f},
      {"a full turn", 360.0f, 100.0f, 300.0f},
  };
  WireLoop h = Rectangle(300, 100);
  ASSERT_EQ(Txw_Get_Area(h), 0);
  for (const Case& hOne : hCase) {
    Array1<R4, 2> fTxLength{};
    EXPECT_EQ(Txw_Get_Length(h, hOne.fXazm, fTxLength), 0) << hOne.sWhat;
    EXPECT_NEAR(fTxLength(1), hOne.fAlong, 0.01f) << hOne.sWhat;
    EXPECT_NEAR(fTxLength(2), hOne.fAcross, 0.01f) << hOne.sWhat;
  }
}

TEST_F(WireLoops, LoopWithoutSidesIsReportedOnScreenOnce) {
  WireLoop hWire = Rectangle(100, 100, "12");
  EXPECT_EQ(Txw_Get_Area(hWire), 1);
  EXPECT_FALSE(Is_Present(hWire.fTxArea));
  EXPECT_EQ(Shown("Txw_Get_Area.ERROR: Tx loop for Tx.Stn=1200"), 1);
  EXPECT_EQ(Shown("has less than 3 wire endpoints => no surface area."), 1);

  Array1<R4, 2> fTxLength{};
  EXPECT_EQ(Txw_Get_Length(hWire, 0.0f, fTxLength), 1);
  EXPECT_EQ(fTxLength(1), 1.0f);
  EXPECT_EQ(Shown("has surface area < 0.01 m^2"), 0) << "a second box";
  EXPECT_EQ(NTxwError, 2);
}

TEST_F(WireLoops, LengthWithoutAnAzimuthIsThatOfTheSquare) {
  WireLoop h = Rectangle(400, 100);
  ASSERT_EQ(Txw_Get_Area(h), 0);
  Array1<R4, 2> fTxLength{};
  EXPECT_EQ(Txw_Get_Length(h, 400.0f, fTxLength), 1);
  EXPECT_EQ(fTxLength(1), 200.0f);
  EXPECT_EQ(fTxLength(2), 200.0f);
  EXPECT_EQ(Shown("input X azimuth = 400 < 360 or > 360 degrees"), 1);
}

TEST_F(WireLoops, SortKeepsTheFirstLoopOfAStationUnlessTheFileWasInOrder) {
  Put({30, 10, 20, 10, 30});
  Txw_Sort();
  EXPECT_EQ(Places(), (std::vector<I4>{2, 3, 1}));

  Put({10, 20, 20, 30});
  Txw_Sort();
  EXPECT_EQ(Places(), (std::vector<I4>{1, 2, 3, 4}));
}

TEST_F(WireLoops, LookUpTakesTheLoopOfTheStation) {
  EXPECT_EQ(Txw_Get_iTxw(10.0).iError, 1) << "no loops";

  Put({-10, 10, 20});
  struct Case {
    R8 dTxStn;
    I4 iTxw, iError;
  };
  const std::vector<Case> hCase = {
      {-10.0,          1, 0},
      {20.0,           3, 0},
      {20.0 + 1.0E-13, 3, 0},
      {15.0,           0, 0},
      {99.0,           0, 0},
      {dDummy,         0, 1},
  };
  for (const Case& h : hCase) {
    const LoopFound hFound = Txw_Get_iTxw(h.dTxStn);
    EXPECT_EQ(hFound.iTxw, h.iTxw) << h.dTxStn;
    EXPECT_EQ(hFound.iError, h.iError) << h.dTxStn;
  }
}

}  // namespace
}  // namespace quillan
