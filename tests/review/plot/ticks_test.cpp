#include "review/plot/ticks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "review/plot/signed_log.h"

namespace quillan {
namespace {

TEST(SignedLogScale, IsOddLinearNearZeroAndLogarithmicFarFromIt) {
  EXPECT_EQ(fAsinh10(0.0f, 0.1f), 0.0f);
  for (const R4 fX : {1.0E-6f, 0.02f, 1.0f, 345.0f, 1.0E30f}) EXPECT_EQ(fAsinh10(-fX, 0.1f), -fAsinh10(fX, 0.1f));
  EXPECT_NEAR(fAsinh10(0.01f, 1.0f), 0.01f / (2.0f * std::log(10.0f)), 1.0E-7f);
  EXPECT_FLOAT_EQ(fAsinh10(0.1f, 0.1f), 0.20898764f);
  EXPECT_NEAR(fAsinh10(1.0E5f, 0.1f), 6.0f, 1.0E-6f);
}

TEST(SignedLogScale, TheInverseGivesTheValueBackAndIsHeldFarOut) {
  for (const R4 fX : {-250.0f, -0.03f, 0.0f, 0.1f, 7.0E6f}) {
    EXPECT_NEAR(fSinh10(fAsinh10(fX, 0.1f), 0.1f), fX, 2.0E-6f * std::max(std::abs(fX), 0.1f)) << fX;
  }
  EXPECT_FLOAT_EQ(fSinh10(40.0f, 0.1f), 1.0E31f);
  EXPECT_FLOAT_EQ(fSinh10(-32.0f, 0.1f), -1.0E31f);
}

/// The texts of the ticks between two values; each position is checked against its text.
std::string Texts(R4 fLow, R4 fHigh, R4 fYPscl, I4 MYTick = 32) {
  const Ticks h = Asinh10_Ticks(fAsinh10(fLow, fYPscl), fAsinh10(fHigh, fYPscl), fYPscl, MYTick);
  EXPECT_EQ(h.fYTick.size(), h.sYTick.size());
  std::string sAll;
  for (std::size_t I = 0; I < h.sYTick.size(); ++I) {
    EXPECT_NEAR(h.fYTick[I], fAsinh10(std::stof(h.sYTick[I]), fYPscl), 1.0E-5f) << h.sYTick[I];
    sAll += (I > 0 ? " " : "") + h.sYTick[I];
  }
  return sAll;
}

TEST(SignedLogTicks, StandAtZeroAndAtTheDecadesOnEitherSide) {
  EXPECT_EQ(Texts(-20.0f, 20000.0f, 0.1f), "-10 -1 -0.1 0 0.1 1 10 100 1000 1.0E+04");
  EXPECT_EQ(Texts(-20.0f, 20000.0f, 0.05f), "-10 -1 -0.1 0 0.1 1 10 100 1000 1.0E+04");
  EXPECT_EQ(Texts(-2.0E-4f, 0.02f, 1.0E-5f), "-1.0E-04 -1.0E-05 0 1.0E-05 1.0E-04 0.001 0.01");
  EXPECT_EQ(Texts(0.5f, 5000.0f, 0.1f), "1 10 100 1000");
  EXPECT_EQ(Texts(-1.0E4f, -5.0f, 0.1f, 3), "-1.0E+04 -1000 -100") << "no more than there is room for";
  EXPECT_EQ(Texts(-20.0f, 20000.0f, 0.1f, 2), "-10 -1") << "decades too where there is room for fewer than three";
  EXPECT_EQ(Texts(-1.0f, 1.0E30f, 1.0f, 4), "-1 0 1 10");
}

TEST(SignedLogTicks, ASmallZoomGetsOneTwoFive) {
  EXPECT_EQ(Texts(1.5f, 12.0f, 0.1f), "2 5 10");
  EXPECT_EQ(Texts(-3.0f, 0.3f, 1.0f), "-2 -1 0");
  EXPECT_EQ(Texts(4000.0f, 60000.0f, 0.1f), "5000 1.0E+04 2.0E+04 5.0E+04");
}

TEST(SignedLogTicks, ATinyZoomGetsTidySteps) {
  EXPECT_EQ(Texts(2.9f, 4.1f, 0.1f), "3 3.2 3.4 3.6 3.8 4");
  EXPECT_EQ(Texts(-6.5E-4f, -1.5E-4f, 1.0E-5f), "-6.0E-04 -5.0E-04 -4.0E-04 -3.0E-04 -2.0E-04");
  EXPECT_EQ(Texts(300.05f, 301.05f, 0.1f), "300.2 300.4 300.6 300.8 301");
  EXPECT_EQ(Texts(-0.45f, 0.25f, 1.0f), "-0.4 -0.2 0 0.2");
  EXPECT_EQ(Texts(30500.0f, 31500.0f, 0.1f), "3.06E+04 3.08E+04 3.10E+04 3.12E+04 3.14E+04");
}

TEST(SignedLogTicks, ZeroComesFirstWhereTextsAreGivenRoom) {
  const auto Of = [](R4 fLow) { return Zero_First(Asinh10_Ticks(fLow, 2.5f, 1.0f, 32)).sYTick; };
  EXPECT_EQ(Of(-2.5f), (std::vector<std::string>{"0", "-100", "-10", "-1", "1", "10", "100"}));
  EXPECT_EQ(Of(0.1f).front(), "1") << "an axis without a zero";
}

TEST(SignedLogTicks, HostileRangesEnd) {
  const R4 fInf = std::numeric_limits<R4>::infinity();
  for (const R4 fYPscl : {0.0f, 1.0E-38f, 1.0E30f, fInf, std::nanf("")}) {
    for (const R4 fEnd : {0.0f, 1.0f, 60.0f, fInf, std::nanf("")}) {
      EXPECT_LE(Asinh10_Ticks(-fEnd, fEnd, fYPscl, 45).fYTick.size(), 45);
    }
  }
}

}  // namespace
}  // namespace quillan
