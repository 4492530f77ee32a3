#include "stations/line_stats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "foundations/pn_intrp.h"
#include "stations/color_scale.h"
#include "stations/station_text.h"
#include "stations/stn_lookup.h"

namespace quillan {
namespace {

using Reals = std::vector<R4>;

TEST(StepStats, MiddleStepAndScaleOfTheStations) {
  const R4 fNan = std::numeric_limits<R4>::quiet_NaN();
  struct Case {
    const char* sWhat;
    Reals fS, fX, fY;
    R4 fDSmed, fdUdSmed, fdUdSdev;
  };
  for (const Case& h : std::vector<Case>{
           {"no station",                              {},                    {},                {},              1,  1, 1          },
           {"one station",                             {5},                   {0},               {0},             1,  1, 1          },
           {"even steps",                              {0, 25, 50, 75},       {0, 50, 100, 150}, {0, 0, 0, 0},    25, 2, 0          },
           {"steps 1 2 3 4: the rank is that of five", {0, 4, 7, 9, 10},      {0, 4, 7, 9, 10},  {0, 0, 0, 0, 0}, 3,  1, 0          },
           {"scales 1, 2 and 6",                       {0, 1, 2, 3},          {0, 3, 3, 9},      {0, 0, 2, 2},    1,  3, 4.0f / 3.0f},
           {"a step too small for a scale",            {0, 0.0005f, 1.0005f}, {0, 9, 13},        {0, 0, 0},       1,  4, 0          },
           {"no step for a scale",                     {3, 3, 3},             {0, 9, 13},        {0, 0, 0},       0,  1, 1          },
           {"a point without a place",                 {0, 1, 2, 3},          {0, 2, fNan, 6},   {0, 0, 0, 0},    1,  2, 0          },
  }) {
    const StepStats hStep = Stn_Inc_Stats(static_cast<I4>(h.fS.size()), h.fS, h.fX, h.fY);
    EXPECT_FLOAT_EQ(hStep.fDSmed, h.fDSmed) << h.sWhat;
    EXPECT_FLOAT_EQ(hStep.fdUdSmed, h.fdUdSmed) << h.sWhat;
    EXPECT_NEAR(hStep.fdUdSdev, h.fdUdSdev, 1.0E-6f) << h.sWhat;
  }
}

TEST(LineStats, TypesOfLines) {
  struct Case {
    const char* sWhat;
    std::string sRows;
    I4 iLineType;
    R4 fHeading;
  };
  std::string sMeander, sScatter;
  for (I4 I = 0; I < 40; ++I) {
    const std::string sStn = std::to_string(I) + " ";
    sMeander += sStn + std::to_string(10 * I) + " " + std::to_string(I % 4 < 2 ? 2 : -2) + " 0\n";
    sScatter += sStn + std::to_string(10 * I + (I % 3) * 7) + " " + std::to_string(I % 4 < 2 ? 20 : -20) + " 0\n";
  }
  for (const Case& h : std::vector<Case>{
           {"straight", Line_Rows(20, 25.0, 5000.0, 9000.0), iLineStraight, 90.0f},
           {"about its line", sMeander, iLineMeander, 45.0f},
           {"noise and uneven steps", sScatter, iLinePoints, 45.0f},
  }) {
    ASSERT_EQ(Read_Stations(h.sRows), 0);
    EXPECT_EQ(hStn.hLineStat(1).iLineType, h.iLineType) << h.sWhat;
    EXPECT_NEAR(hStn.fStnH(3), h.fHeading, 0.01f) << h.sWhat << ": only straight lines give a heading";
  }
}

TEST(LineStats, FiguresOfALine) {
  ASSERT_EQ(Read_Stations("Station East North Elev Depth Line\n"
                          "1000 350000 6240000 10 1 5\n1010 350000 6240020 12 4 5\n1020 350000 6240040 11 2 5\n"
                          "77 1 2 3 0 6\n"),
            0);
  const LineStat& h = hStn.hLineStat(1);
  EXPECT_FLOAT_EQ(h.fDSmed, 10.0f);
  EXPECT_FLOAT_EQ(h.fdUdSmed, 2.0f);
  EXPECT_NEAR(h.fStnUazm, 0.0f, 1.0E-3f);
  EXPECT_NEAR(h.fUmax - h.fUmin, 40.0f, 1.0E-3f);
  EXPECT_NEAR(h.fStnS0, 0.0f, 1.0E-3f) << "the middle point is the mean";
  EXPECT_EQ(h.fSZmax, 12.0f);
  EXPECT_EQ(h.fSDmin, -4.0f);
  EXPECT_EQ(h.fSYmax - h.fSYmin, 40.0f);

  const LineTrend hTrend = Stn_Get_Trend(5.0005);
  EXPECT_EQ(hTrend.dTrendX0, R8{h.fStnX0} + hStn.iStnX0);
  EXPECT_EQ(hTrend.dTrendY0, R8{h.fStnX0} + hStn.iStnY0) << "the easting, as programs downstream expect it";
  EXPECT_EQ(hTrend.fTrendUmax, h.fUmax);
  const LineFigures hFigures = Stn_Get_Stats(5.0);
  EXPECT_EQ(hFigures.iStnDist, iLineStraight);
  EXPECT_FLOAT_EQ(hFigures.fStnDRDSmed, 2.0f);
  const LineRanges hRange = Stn_Get_Range(5.0);
  EXPECT_EQ(hRange.dStnSmax, 1020.0);
  EXPECT_EQ(hRange.dStnYmax, 6240040.0);
  EXPECT_EQ(hRange.dStnDmin, -4.0);

  // A line of one point: the point, no extent, east.
  EXPECT_EQ(hStn.hLineStat(2).fStnUazm, 90.0f);
  EXPECT_EQ(R8{hStn.hLineStat(2).fStnX0} + hStn.iStnX0, 1.0);
  EXPECT_EQ(hStn.hLineStat(2).fDSmed, 1.0f);
  // A line that is not there.
  EXPECT_EQ(Stn_Get_Trend(5.0011).dTrendX0, 0.0);
  EXPECT_EQ(Stn_Get_Stats(9.0).iStnDist, 0);
  EXPECT_EQ(Stn_Get_Range(9.0).dStnXmax, 1.0);
}

TEST(LineWeight, LinesAroundANumber) {
  Stn_Forget();
  EXPECT_EQ(Stn_Line_Wgt(5.0).iError, 1);
  ASSERT_EQ(Read_Stations("1 0 0 0\n2 1 0 0\n"), 0);
  for (const R8 dLineK : {dLineGiven, 7.0}) {
    const LineWeights h = Stn_Line_Wgt(dLineK);
    EXPECT_EQ(h.iLine1, 1);
    EXPECT_EQ(h.iLine2, 0);
    EXPECT_EQ(h.fWgtL1, 1.0f);
    EXPECT_EQ(h.iQLine, dLineK == dLineGiven ? iOnPoint : iBeyondTable);
  }

  ASSERT_EQ(Read_Stations("Station East North Elev Line\n1 0 0 0 100\n1 0 9 0 200\n1 0 20 0 400\n"), 0);
  struct Case {
    R8 dLineK;
    I4 iLine1;
    R4 fWgtL2;
    I4 iQLine;
  };
  for (const Case& h : std::vector<Case>{
           {50,              1, -0.5f, iBeyondTable  },
           {100,             1, 0.0f,  iOnPoint      },
           {125,             1, 0.25f, iBetweenPoints},
           {200,             2, 0.0f,  iOnPoint      },
           {200.0 - 1.0E-12, 1, 1.0f,  iOnPoint      },
           {400,             2, 1.0f,  iOnPoint      },
           {500,             2, 1.5f,  iBeyondTable  }
  }) {
    const LineWeights hWeight = Stn_Line_Wgt(h.dLineK);
    EXPECT_EQ(hWeight.iLine1, h.iLine1) << h.dLineK;
    EXPECT_EQ(hWeight.iLine2, h.iLine1 + 1) << h.dLineK;
    EXPECT_FLOAT_EQ(hWeight.fWgtL2, h.fWgtL2) << h.dLineK;
    EXPECT_FLOAT_EQ(hWeight.fWgtL1, 1.0f - h.fWgtL2) << h.dLineK;
    EXPECT_EQ(hWeight.iQLine, h.iQLine) << h.dLineK;
  }
}

TEST(ColorScale, StepsAreTidyAndTheScaleEnds) {
  struct Case {
    const char* sWhat;
    R4 fMin, fMax, fInc;
    R4 fCFmin, fCFmax, fCFinc;
  };
  for (const Case& h : std::vector<Case>{
           {"as it is",            100,     120,     1, 100,     120,                1     },
           {"by two",              99.5f,   170.2f,  1, 98,      172,                2     },
           {"by five",             -3,      201,     1, -5,      205,                5     },
           {"by ten",              0,       400,     1, 0,       400,                10    },
           {"by a hundred",        7,       4001,    1, 0,       4100,               100   },
           {"one value",           5,       5,       1, 5,       6,                  1     },
           {"no step",             0,       0,       0, 0,       0.001f,             0.001f},
           {"over all of 32 bits", 0,       3.0E9f,  1, 0,       3.0E9f,             1.0E8f},
           {"one great value",     1.0E12f, 1.0E12f, 1, 1.0E12f, 1.0E12f + 65536.0f, 5.0E4f},
  }) {
    const ColorScale hScale = Stn_CF_Increment(50, h.fMin, h.fMax, h.fInc);
    EXPECT_FLOAT_EQ(hScale.fCFmin, h.fCFmin) << h.sWhat;
    EXPECT_FLOAT_EQ(hScale.fCFmax, h.fCFmax) << h.sWhat;
    EXPECT_FLOAT_EQ(hScale.fCFinc, h.fCFinc) << h.sWhat;
    EXPECT_GT(hScale.fCFmax, hScale.fCFmin) << h.sWhat;
    EXPECT_LT(hScale.NCFinc, 50) << h.sWhat;
  }
  EXPECT_EQ(Stn_CF_Increment(0, 0, 1.0E6f, 1).fCFinc, 1.0f) << "no limit of steps";
}

}  // namespace
}  // namespace quillan
