#include "foundations/pn_intrp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "foundations/log_file.h"
#include "support/files.h"

namespace quillan {
namespace {

constexpr R4 fNan = std::numeric_limits<R4>::quiet_NaN();

struct Case {
  const char* sWhat;
  R4 fXX, fYY;
  I4 iQ;
};

using Member = void (*)(I4, std::span<const R4>, std::span<const R4>, const EndSlopesR4&, R4, R4&, I4*);

void Expect_Values(Member Intrp, const std::vector<R4>& fXP, const std::vector<R4>& fYP, const EndSlopesR4& fdYdX,
                   const std::vector<Case>& hCases) {
  for (const Case& c : hCases) {
    R4 fYY = -99.0f;
    I4 iQ = -99;
    Intrp(static_cast<I4>(fXP.size()), fXP, fYP, fdYdX, c.fXX, fYY, &iQ);
    EXPECT_NEAR(fYY, c.fYY, 1.0E-5f * std::max(1.0f, std::abs(c.fYY))) << c.sWhat;
    EXPECT_EQ(iQ, c.iQ) << c.sWhat;
  }
}

TEST(PnIntrp, LinesBetweenPointsAndBeyondThem) {
  const std::vector<R4> fXP{0, 1, 3}, fYP{10, 20, 0};
  Expect_Values(P1Intrp_R4, fXP, fYP, fNoEndSlopes,
                {
                    {"the first point",                 0,     10,   iOnPoint      },
                    {"between",                         0.5f,  15,   iBetweenPoints},
                    {"a point inside",                  1,     20,   iOnPoint      },
                    {"a hundredth before a point",      2.99f, 0.1f, iOnPoint      },
                    {"on the other segment",            2,     10,   iBetweenPoints},
                    {"the last point",                  3,     0,    iOnPoint      },
                    {"before: along the first segment", -1,    0,    iOnPoint      },
                    {"beyond: along the last segment",  4,     -10,  iOnPoint      }
  });
  Expect_Values(P1Intrp_R4, fXP, fYP,
                {
                    {{0, 5}}
  },
                {{"a level end holds its value", -7, 10, iBeyondTable},
                 {"on the first point", 0, 10, iOnPoint},
                 {"along the slope at the end", 5, 10, iBeyondTable},
                 {"within 100 units of the last place", std::nextafter(3.0f, 4.0f), 0, iOnPoint}});
}

TEST(PnIntrp, OddTables) {
  Expect_Values(P1Intrp_R4,
                {
                    2
  },
                {7}, fNoEndSlopes, {{"one point", 2, 7, iOnPoint}, {"off it", 3, 7, iBeyondTable}});
  Expect_Values(P2Intrp_R4,
                {
                    2
  },
                {7}, fNoEndSlopes, {{"one point", 2, 7, iOnPoint}, {"off it", 3, 7, iBeyondTable}});
  Expect_Values(P1Intrp_R4,
                {
                    1, 2, 2, 3
  },
                {0, 10, 20, 30}, fNoEndSlopes, {{"a step: its upper side is the segment behind it", 2, 20, iOnPoint}});
  Expect_Values(P1Intrp_R4,
                {
                    5, 5
  },
                {10, 20}, fNoEndSlopes, {{"equal abscissae", 5, 15, iBetweenPoints}});
  Expect_Values(P1Intrp_R4,
                {
                    3, 2, 0
  },
                {0, 10, 20}, fNoEndSlopes,
                {{"a falling table is taken for its first segment below its first point", 1, 20, iOnPoint}});
  R4 fYY = 0.0f;
  P1Intrp_R4(9, std::vector<R4>{0, 1, 2}, std::vector<R4>{0, 1}, fNoEndSlopes, fNan, fYY);
  EXPECT_TRUE(std::isnan(fYY)) << "more points than the arrays hold, at no place";
}

TEST(PnIntrp, CubicsFollowAnyParabola) {
  const auto dParabola = [](R8 dX) { return 2.0 * dX * dX - 3.0 * dX + 1.0; };
  const std::vector<R8> dXP{0, 1, 1.5, 4, 6};
  std::vector<R8> dYP;
  for (const R8 dX : dXP) dYP.push_back(dParabola(dX));
  for (const R8 dX : {0.25, 0.5, 1.2, 2.0, 3.7, 4.5, 5.9}) {
    R8 dYY = 0.0;
    P2Intrp_R8(5, dXP, dYP, dNoEndSlopes, dX, dYY);
    EXPECT_NEAR(dYY, dParabola(dX), 1.0E-12) << dX;
  }
  R8 dYY = 0.0;
  I4 iQ = 0;
  P2Intrp_R8(5, dXP, dYP, dNoEndSlopes, 7.0, dYY, &iQ);
  EXPECT_NEAR(dYY, dParabola(6.0) + 21.0, 1.0E-12) << "beyond the end straight on: the slope there is 4 * 6 - 3";
  EXPECT_EQ(iQ, iBeyondTable);

  std::vector<R8> dEven;
  for (I4 J = 1; J <= 6; ++J) dEven.push_back(dParabola(10.0 + 0.5 * (J - 1)));
  for (const R8 dX : {10.6, 11.0, 11.75}) {
    P2Intrp0_DX_R8(6, 10.0, 0.5, dEven, dX, dYY, &iQ);
    EXPECT_NEAR(dYY, dParabola(dX), 1.0E-11) << dX;
    EXPECT_EQ(iQ, dX == 11.0 ? iOnPoint : iBetweenPoints);
  }
}

TEST(PnIntrp, CubicsAtTheirEnds) {
  Expect_Values(P2Intrp_R4,
                {
                    0, 1, 2
  },
                {0, 1, 4}, {{{3, -1}}},
                {{"along the first slope", -2, -6, iBeyondTable},
                 {"on the first point", 0, 0, iOnPoint},
                 {"the first slope bends the curve", 0.5f, 0.625f, iBetweenPoints},
                 {"along the last slope", 4, 2, iBeyondTable}});
  Expect_Values(P2Intrp_R4,
                {
                    0, 2
  },
                {1, 5}, fNoEndSlopes,
                {{"two points make a line", 1, 3, iBetweenPoints},
                 {"the second of them", 2, 5, iOnPoint},
                 {"beyond them", 3, 7, iBeyondTable}});
  Expect_Values(P2Intrp_R4,
                {
                    0, 0, 1
  },
                {2, 4, 9}, fNoEndSlopes, {{"no step", 0, 3, iBetweenPoints}});
  Expect_Values(P2Intrp_R4,
                {
                    0, 1, 1, 2
  },
                {0, 1, 1, 4}, fNoEndSlopes,
                {{"next to a step of nothing the secant is the slope", 0.5f, 0.5f, iBetweenPoints}});
}

TEST(PnIntrp, AnEvenGridGoesOnWithItsEndValues) {
  const std::vector<R4> fYP{1, 5, 9};
  for (const R4 fXX : {-1.0E30f, -50.0f, 0.0f, 50.0f, 1.0E30f, fNan}) {
    R4 fYY = 0.0f;
    P2Intrp0_DX_R4(3, 0.0f, 1.0f, fYP, fXX, fYY);
    const R4 fTold = fXX <= 0.0f ? 1.0f : 9.0f;
    EXPECT_TRUE(std::abs(fXX) > 50.0f || std::isnan(fXX) || fYY == fTold) << fXX;
  }
  R4 fYY = 0.0f;
  I4 iQ = 0;
  P2Intrp0_DX_R4(1, 3.0f, 1.0f, fYP, 4.0f, fYY, &iQ);
  EXPECT_EQ(fYY, 1.0f);
  EXPECT_EQ(iQ, iBeyondTable);
}

TEST(PnIntrp, WithoutATableTheValueIsZeroAndTheErrorIsReported) {
  bAutoErr = true;
  I4 IOERR = 0;
  Log_Initialize("quillan", IOERR);
  R4 fYY = 1.0f;
  R8 dYY = 1.0;
  I4 iQ = -1;
  P1Intrp_R4(0, {}, {}, fNoEndSlopes, 1.0f, fYY, &iQ);
  EXPECT_EQ(fYY, 0.0f);
  EXPECT_EQ(iQ, iNoTable);
  P2Intrp_R8(-3, {}, {}, dNoEndSlopes, 1.0, dYY);
  EXPECT_EQ(dYY, 0.0);
  P2Intrp0_DX_R4(0, 0.0f, 1.0f, {}, 1.0f, fYY);
  Log_Close();
  const std::string sErrors = Read_Whole_File("quillan.err");
  for (const char* sReport : {"P1Intrp_R4.ERROR: NP<1, no tabulated values to interpolate.", "P2Intrp_R8.ERROR: NP < 1",
                              "P2Intrp0_DX_R4.ERROR: NP < 1"}) {
    EXPECT_NE(sErrors.find(sReport), std::string::npos) << sReport;
  }
}

}  // namespace
}  // namespace quillan
