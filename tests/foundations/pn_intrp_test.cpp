#include "foundations/pn_intrp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "foundations/log_file.h"
#include "support/files.h"

namespace quillan {
namespace {

using Reals = std::vector<R4>;

TEST(PnIntrp, LinesBetweenPointsAndBeyondThem) {
  const Reals fX{0, 1, 3}, fY{10, 20, 0};
  const EndSlopesR4 fLevel{0.0f, 5.0f};
  const struct {
    const char* sWhat;
    Reals fXP, fYP;
    EndSlopesR4 fdYdX;
    R4 fXX, fYY;
    I4 iQ;
  } hCase[] = {
      {"the first point", fX, fY, fNoEndSlopes, 0, 10, iOnPoint},
      {"between", fX, fY, fNoEndSlopes, 0.5f, 15, iBetweenPoints},
      {"a point inside", fX, fY, fNoEndSlopes, 1, 20, iOnPoint},
      {"a hundredth before a point", fX, fY, fNoEndSlopes, 2.99f, 0.1f, iOnPoint},
      {"on the other segment", fX, fY, fNoEndSlopes, 2, 10, iBetweenPoints},
      {"the last point", fX, fY, fNoEndSlopes, 3, 0, iOnPoint},
      {"before: along the first segment", fX, fY, fNoEndSlopes, -1, 0, iOnPoint},
      {"beyond: along the last segment", fX, fY, fNoEndSlopes, 4, -10, iOnPoint},
      {"a level end holds its value", fX, fY, fLevel, -7, 10, iBeyondTable},
      {"on the first point", fX, fY, fLevel, 0, 10, iOnPoint},
      {"along the slope at the end", fX, fY, fLevel, 5, 10, iBeyondTable},
      {"within 100 units of the last place", fX, fY, fLevel, std::nextafter(3.0f, 4.0f), 0, iOnPoint},
      {"one point", {2}, {7}, fNoEndSlopes, 2, 7, iOnPoint},
      {"off the only point", {2}, {7}, fLevel, 3, 7, iBeyondTable},
      {"a step: its upper side", {1, 2, 2, 3}, {0, 10, 20, 30}, fNoEndSlopes, 2, 20, iOnPoint},
      {"equal abscissae", {5, 5}, {10, 20}, fNoEndSlopes, 5, 15, iBetweenPoints},
      {"a falling table: its first segment", {3, 2, 0}, {0, 10, 20}, fNoEndSlopes, 1, 20, iOnPoint},
  };
  for (const auto& h : hCase) {
    I4 iQ = -99;
    EXPECT_NEAR(P1Intrp_R4(9, h.fXP, h.fYP, h.fdYdX, h.fXX, &iQ), h.fYY, 1.0E-5f * std::max(1.0f, std::abs(h.fYY)))
        << h.sWhat;
    EXPECT_EQ(iQ, h.iQ) << h.sWhat;
  }
  const R4 fNan = std::numeric_limits<R4>::quiet_NaN();
  EXPECT_TRUE(std::isnan(P1Intrp_R4(9, fX, Reals{0, 1}, fNoEndSlopes, fNan))) << "more points than ordinates, no place";
}

TEST(PnIntrp, WithoutATableTheValueIsZeroAndTheErrorIsReported) {
  bAutoErr = true;
  ASSERT_EQ(Log_Initialize("quillan"), 0);
  I4 iQ = -1;
  EXPECT_EQ(P1Intrp_R4(0, {}, {}, fNoEndSlopes, 1.0f, &iQ), 0.0f);
  EXPECT_EQ(iQ, iNoTable);
  EXPECT_TRUE(
      Read_Whole_File("quillan.err").ends_with(" P1Intrp_R4.ERROR: NP<1, no tabulated values to interpolate.\n"));
}

}  // namespace
}  // namespace quillan
