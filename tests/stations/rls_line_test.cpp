#include "stations/rls_line.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

using Reals = std::vector<R4>;

/// Points of one survey line.
struct Walk {
  Reals fX, fY;

  void Add(R8 dX, R8 dY) {
    fX.push_back(static_cast<R4>(dX));
    fY.push_back(static_cast<R4>(dY));
  }
  LineFit Fit() const { return LineFit_Get(static_cast<I4>(fX.size()), fX, fY); }
};

constexpr R8 dDegree = 57.29577951308232;

/// N points each dStep m, across the line by what a procedure says of point I.
template <class Across>
Walk Walked(I4 N, R8 dAzimuth, R8 dStep, Across dAcross, R8 dX0 = 0.0, R8 dY0 = 0.0) {
  Walk h;
  const R8 dSin = std::sin(dAzimuth / dDegree), dCos = std::cos(dAzimuth / dDegree);
  for (I4 I = 0; I < N; ++I) {
    const R8 dU = dStep * I, dV = dAcross(I);
    h.Add(dX0 + dU * dSin + dV * dCos, dY0 + dU * dCos - dV * dSin);
  }
  return h;
}

/// A straight line found another way: by the principal axis of the weighted points, in double.
struct Axis {
  R8 dX0 = 0.0, dY0 = 0.0;  // weighted mean
  R8 dAzimuth = 0.0;        // degrees, 0 to 180

  R8 Distance(R8 dX, R8 dY) const {
    return std::abs((dX - dX0) * std::cos(dAzimuth / dDegree) - (dY - dY0) * std::sin(dAzimuth / dDegree));
  }
};

Axis Principal_Axis(const Walk& h, const std::vector<R8>& dWgt) {
  const R8 dSum = std::accumulate(dWgt.begin(), dWgt.end(), 0.0);
  Axis hAxis;
  for (std::size_t I = 0; I < dWgt.size(); ++I) {
    hAxis.dX0 += dWgt[I] * R8{h.fX[I]} / dSum;
    hAxis.dY0 += dWgt[I] * R8{h.fY[I]} / dSum;
  }
  R8 dXX = 0.0, dXY = 0.0, dYY = 0.0;
  for (std::size_t I = 0; I < dWgt.size(); ++I) {
    const R8 dX = R8{h.fX[I]} - hAxis.dX0, dY = R8{h.fY[I]} - hAxis.dY0;
    dXX += dWgt[I] * dX * dX;
    dXY += dWgt[I] * dX * dY;
    dYY += dWgt[I] * dY * dY;
  }
  // The eigenvector of the greater eigenvalue of ((dXX, dXY), (dXY, dYY)), its angle measured from north.
  hAxis.dAzimuth = std::fmod(360.0 + 0.5 * dDegree * std::atan2(2.0 * dXY, dYY - dXX), 180.0);
  return hAxis;
}

/// The axis of the points, each pass with less regard to those far from the axis before. The first unit of distance is
/// so wide that all points count.
Axis Reweighted_Axis(const Walk& h) {
  std::vector<R8> dWgt(h.fX.size(), 1.0);
  Axis hAxis = Principal_Axis(h, dWgt);
  R8 dUnit = 1000.0;
  for (int iPass = 0; iPass < 400; ++iPass) {
    for (std::size_t I = 0; I < dWgt.size(); ++I) {
      const R8 dRatio = hAxis.Distance(R8{h.fX[I]}, R8{h.fY[I]}) / dUnit;
      dWgt[I] = 1.0 / ((1.0 + dRatio * dRatio) * (1.0 + dRatio * dRatio));
    }
    hAxis = Principal_Axis(h, dWgt);
    dUnit = std::max(2.0, 0.95 * dUnit);
  }
  return hAxis;
}

/// Degrees between two azimuths, 0 to 180.
R8 Between(R8 dAzimuth1, R8 dAzimuth2) {
  return std::abs(std::remainder(dAzimuth1 - dAzimuth2, 360.0));
}

/// Degrees between two axes, 0 to 90.
R8 Between_Axes(R8 dAzimuth1, R8 dAzimuth2) {
  return std::abs(std::remainder(dAzimuth1 - dAzimuth2, 180.0));
}

void Expect_Finite(const LineFit& h, const std::string& sWhat) {
  for (const R4 f : {h.fXS0, h.fYS0, h.fUazm, h.fUmin, h.fUmax, h.fVdev, h.fVnsr})
    EXPECT_TRUE(std::isfinite(f)) << sWhat;
}

TEST(LineFit, CleanLineIsFoundToATenThousandthOfItsExtent) {
  Begin_Test();
  for (const R8 dAzimuth : {0.0, 17.0, 90.0, 135.0, 180.0, 233.3, 270.0, 359.0}) {
    for (const R8 dStep : {0.5, 25.0, 200.0}) {
      const Walk hWalk = Walked(
          40, dAzimuth, dStep, [](I4) { return 0.0; }, 4321.0, -2345.0);
      const LineFit hFit = hWalk.Fit();
      const std::string sWhat = std::to_string(dAzimuth) + " degrees, each " + std::to_string(dStep) + " m";
      const R8 dExtent = 39.0 * dStep;
      EXPECT_EQ(hFit.iError, 0);
      EXPECT_LT(Between(R8{hFit.fUazm}, dAzimuth) / dDegree, 1.0E-4) << sWhat;
      EXPECT_NEAR(R8{hFit.fUmax - hFit.fUmin}, dExtent, 1.0E-4 * dExtent) << sWhat;
      const Axis hAxis = Principal_Axis(hWalk, std::vector<R8>(hWalk.fX.size(), 1.0));
      EXPECT_LT(hAxis.Distance(R8{hFit.fXS0}, R8{hFit.fYS0}), 1.0E-4 * dExtent) << sWhat;
      EXPECT_LT(R8{hFit.fVdev}, 1.0E-4 * dExtent) << sWhat;
      EXPECT_LT(hFit.fVnsr, 3.0f) << sWhat;
    }
  }
  EXPECT_EQ(NErr, 0);
}

TEST(LineFit, GrossOutliersDoNotTurnTheLine) {
  Begin_Test();
  for (const unsigned iSeed : {1u, 2u, 3u, 4u, 5u}) {
    for (const R8 dAzimuth : {5.0, 90.0, 200.0}) {
      std::mt19937 hRandom(iSeed);
      std::uniform_real_distribution<R8> dNear(-0.3, 0.3), dFar(100.0, 600.0);
      // A fifth of the points are wrong, and to one side of the line more often than to the other.
      const Walk hWalk = Walked(60, dAzimuth, 50.0, [&](I4 I) {
        return I % 5 != 2 ? dNear(hRandom) : I % 15 == 2 ? -dFar(hRandom) : dFar(hRandom);
      });
      const LineFit hFit = hWalk.Fit();
      const std::string sWhat = std::to_string(dAzimuth) + " degrees, seed " + std::to_string(iSeed);
      EXPECT_LT(Between(R8{hFit.fUazm}, dAzimuth), 0.1) << sWhat;
      const Axis hAxis = Reweighted_Axis(hWalk);
      EXPECT_LT(Between_Axes(R8{hFit.fUazm}, hAxis.dAzimuth), 0.1) << sWhat;
      EXPECT_LT(hAxis.Distance(R8{hFit.fXS0}, R8{hFit.fYS0}), 1.0) << sWhat;
    }
  }
}

TEST(LineFit, ScatteredPointsGiveTheAxisOfLeastSquares) {
  Begin_Test();
  std::mt19937 hRandom(7);
  std::uniform_real_distribution<R8> dNear(-0.01, 0.01);
  const Walk hWalk = Walked(100, 33.0, 20.0, [&](I4) { return dNear(hRandom); });
  const LineFit hFit = hWalk.Fit();
  const Axis hAxis = Principal_Axis(hWalk, std::vector<R8>(hWalk.fX.size(), 1.0));
  EXPECT_LT(Between_Axes(R8{hFit.fUazm}, hAxis.dAzimuth), 2.0E-4);
  EXPECT_LT(hAxis.Distance(R8{hFit.fXS0}, R8{hFit.fYS0}), 1.0E-3);
}

TEST(LineFit, OddPathsEndWithWhatTheyCanSay) {
  Begin_Test();
  constexpr R4 fNan = std::numeric_limits<R4>::quiet_NaN();
  constexpr R4 fAny = -1.0f;  // a path without a direction of its own
  struct Case {
    const char* sWhat;
    Reals fX, fY;
    I4 iError;
    R4 fX0, fY0, fUazm;
  };
  const std::vector<Case> hCase = {
      {"no point",                      {},                     {},                    2, 0,         0,    90       },
      {"one point",                     {12},                   {-5},                  1, 12,        -5,   90       },
      {"all at one place",              {7, 7, 7, 7},           {3, 3, 3, 3},          1, 7,         3,    90       },
      {"nearly at one place",           {7, 7.0005f, 7},        {3, 3, 3},             1, 7.00017f,  3,    90       },
      {"two points",                    {0, 30},                {0, 40},               0, 15,        20,   36.8699f },
      {"the same walked the other way", {30, 0},                {40, 0},               0, 15,        20,   216.8699f},
      {"south",                         {5, 5, 5, 5},           {30, 20, 10, 0},       0, 5,         15,   180      },
      {"north by west",                 {0, -1, -2, -3},        {0, 100, 200, 300},    0, -1.5f,     150,  359.4271f},
      {"a closed square",               {0, 10, 10, 0, 0},      {0, 0, 10, 10, 0},     0, fAny,      fAny, fAny     },
      {"there and back",                {0, 10, 20, 10, 0},     {0, 0, 0, 0, 0},       0, fAny,      0,    fAny     },
      {"a point without a place",       {0, fNan, 10, 20, 30},  {0, 5, 0, fNan, 0},    0, 13.33333f, 0,    90       },
      {"only such points",              {fNan, 1},              {1, fNan},             2, 0,         0,    90       },
      {"beyond any number",             {0, 3.0E38f, -3.0E38f}, {0, 3.0E38f, 3.0E38f}, 1, 0,         0,    90       },
  };
  for (const Case& h : hCase) {
    const LineFit hFit = Walk{h.fX, h.fY}.Fit();
    Expect_Finite(hFit, h.sWhat);
    EXPECT_EQ(hFit.iError, h.iError) << h.sWhat;
    EXPECT_TRUE(h.fX0 == fAny || std::abs(hFit.fXS0 - h.fX0) < 1.0E-3f) << h.sWhat << ": " << hFit.fXS0;
    EXPECT_TRUE(h.fY0 == fAny || std::abs(hFit.fYS0 - h.fY0) < 1.0E-3f) << h.sWhat << ": " << hFit.fYS0;
    EXPECT_TRUE(h.fUazm == fAny || std::abs(hFit.fUazm - h.fUazm) < 0.01f) << h.sWhat << ": " << hFit.fUazm;
    EXPECT_GE(hFit.fUazm, 0.0f) << h.sWhat;
    EXPECT_LE(hFit.fUazm, 360.0f) << h.sWhat;
  }
}

TEST(LineFit, NoiseIsAPercentageOfTheOffsets) {
  Begin_Test();
  // Offsets across the line of 1 m, 1 m to each side, on a line of 2000 m: 100 sqrt(101 / (500 * 101)) percent.
  const LineFit hFit = Walked(101, 90.0, 20.0, [](I4 I) { return I % 2 == 0 ? 1.0 : -1.0; }).Fit();
  EXPECT_NEAR(hFit.fVdev, 1.0f, 0.05f);
  EXPECT_NEAR(hFit.fVnsr, 4.45f, 0.1f);
}

TEST(LineFit, StepsOfAFitWithWeightsAreWritten) {
  Begin_Test();
  sLineFitSteps.clear();
  std::filesystem::remove("LineFit.csv");
  (void)Walked(20, 45.0, 10.0, [](I4) { return 0.0; }).Fit();
  LineFit_Write_Steps();
  EXPECT_FALSE(std::filesystem::exists("LineFit.csv")) << "a fit that is good at once";

  (void)Walked(20, 45.0, 10.0, [](I4 I) { return I == 7 ? 30.0 : 0.0; }).Fit();
  LineFit_Write_Steps();
  const std::vector<std::string> sLine = Read_Lines("LineFit.csv");
  ASSERT_GE(sLine.size(), 3u);
  EXPECT_EQ(sLine[0], "iMIter,iWgtType,fXS0,fYS0,fUazm,fRMS_DV,fRMS_dPV,");
  EXPECT_TRUE(sLine[1].starts_with("1,1,")) << sLine[1];
  EXPECT_NE(sLine.back().find(",2,"), std::string::npos) << "the second kind of weight comes last: " << sLine.back();

  // A folder in its place cannot be written over, and is no reason to stop.
  std::filesystem::remove("LineFit.csv");
  std::filesystem::create_directory("LineFit.csv");
  (void)Walked(20, 45.0, 10.0, [](I4 I) { return I == 7 ? 30.0 : 0.0; }).Fit();
  LineFit_Write_Steps();
  EXPECT_EQ(NErr, 1);
  std::filesystem::remove("LineFit.csv");
}

TEST(TaperedAlphaMean, TakesTheMiddleHalfOfTheOrderedValues) {
  struct Case {
    const char* sWhat;
    Reals fItem;
    R4 fMean;
  };
  const R4 fNan = std::numeric_limits<R4>::quiet_NaN();
  for (const Case& h : std::vector<Case>{
           {"none",                                                   {},                    0.0f},
           {"one",                                                    {5},                   5.0f},
           {"two: the lower",                                         {9, 4},                4.0f},
           {"three: the middle one",                                  {9, 1, 4},             4.0f},
           {"four: the mean of the middle two",                       {1000, 2, 4, -1000},   3.0f},
           {"five: by cosines, 1 at the middle and a half beside it", {1, 2, 4, 10, 1000},   5.0f},
           {"not-a-number is no value",                               {fNan, 9, 1, fNan, 4}, 4.0f},
  }) {
    EXPECT_FLOAT_EQ(TaperedAlphaMean(static_cast<I4>(h.fItem.size()), h.fItem), h.fMean) << h.sWhat;
  }
}

TEST(LineWeights, FallWithTheDistance) {
  struct Case {
    R4 fX, fHuber, fHampel;
  };
  for (const Case& h : std::vector<Case>{
           {0.0f,   1.0f,        1.0f        },
           {-1.5f,  1.0f,        1.0f        },
           {3.0f,   0.5f,        0.5f        },
           {3.5f,   1.5f / 3.5f, 1.5f / 3.5f },
           {5.0f,   0.3f,        0.2f        },
           {-6.0f,  0.25f,       3.0f / 27.0f},
           {8.0f,   0.1875f,     0.0f        },
           {1.0E9f, 1.5E-9f,     0.0f        }
  }) {
    EXPECT_FLOAT_EQ(fWgt_Huber(h.fX), h.fHuber) << h.fX;
    EXPECT_FLOAT_EQ(fWgt_Hampel(h.fX), h.fHampel) << h.fX;
  }
}

TEST(LineFit, PointsTurnAboutAPoint) {
  const Reals fX = {10, 20}, fY = {5, 5};
  Reals fU(2), fV(2);
  XY2UV_Rotate(2, 90.0f, 10.0f, 5.0f, fX, fY, 100.0f, 200.0f, fU, fV);
  EXPECT_NEAR(fU[0], 100.0f, 1.0E-4f);
  EXPECT_NEAR(fV[0], 200.0f, 1.0E-4f);
  EXPECT_NEAR(fU[1], 100.0f, 1.0E-4f);
  EXPECT_NEAR(fV[1], 190.0f, 1.0E-4f);
}

}  // namespace
}  // namespace quillan
