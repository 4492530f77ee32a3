// Smoothing, window edges and integration: the operations along the time axis.
#include <gtest/gtest.h>

#include <cmath>

#include "processing/b_field.h"
#include "processing/moving_average.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

// ---- moving average

constexpr R4 fWgt[] = {1.0f, 0.6065f, 0.1353f};

Transient Decay() {
  return TransientBuilder()
      .Times({1, 2, 3, 4, 5, 6, 7, 8})
      .Resistivities({10, 12, 14, 13, 12, 11, 10, 9})
      .Values({100, 20, 8, 4, 2, 1.2f, 0.8f, 0.5f});
}

TEST(MovingAverage, FiltersFromTheThirdWindowOnWithItsFiveWeights) {
  Load({Decay()});
  const Transient h0 = hTrn(1);
  EXPECT_EQ(GMA_Time(), 0);
  EXPECT_EQ(hTrn(1).fuVmag(1), h0.fuVmag(1));
  EXPECT_EQ(hTrn(1).fuVmag(2), h0.fuVmag(2));
  EXPECT_EQ(hTrn(1).fARes(2), h0.fARes(2));

  double dSum = 0.0, dWgt = 0.0;  // window 7 by hand, in double: windows 5 to 8 are in reach
  double dRSum = 0.0;
  for (I4 J = 5; J <= 8; ++J) {
    const double dW = static_cast<double>(fWgt[std::abs(J - 7)]);
    dSum += dW * std::asinh(std::pow(static_cast<double>(h0.fTWCen(J)), 2.5) * static_cast<double>(h0.fuVmag(J)));
    dRSum += dW * std::log(static_cast<double>(h0.fARes(J)));
    dWgt += dW;
  }
  EXPECT_NEAR(hTrn(1).fuVmag(7), std::sinh(dSum / dWgt) / std::pow(7.0, 2.5), 1.0e-5);
  EXPECT_NEAR(hTrn(1).fARes(7), std::exp(dRSum / dWgt), 1.0e-4);
  EXPECT_NEAR(hTrn(1).fDepth(7), 28.0 * std::sqrt(static_cast<double>(hTrn(1).fARes(7)) * 7.0), 1.0e-2);
}

TEST(MovingAverage, SkippedWindowsGiveNothingAndALonelyOneLosesItsValue) {
  Load({Decay()});
  for (I4 I = 3; I <= 7; ++I) hTrn(1).bSkip(I) = true;
  EXPECT_EQ(GMA_Time(), 0);
  EXPECT_EQ(hTrn(1).fuVmag(5), fDummy);
  EXPECT_EQ(hTrn(1).fARes(5), fDummy);
  for (const I4 I : {3, 4, 6, 7}) EXPECT_TRUE(Is_Present(hTrn(1).fuVmag(I))) << I;
  EXPECT_EQ(hSmoothCount.NLost, 2) << "its dB/dt and its resistivity";
  EXPECT_EQ(hSmoothCount.NSmoothed, 1);
  EXPECT_EQ(hSmoothCount.jStop, 0);
  EXPECT_EQ(Skipped(1), "--XXXXX-");
}

TEST(MovingAverage, MissingValueIsSkippedForGood) {
  Load({Decay()});
  hTrn(1).fuVmag(4) = fDummyLimit;
  EXPECT_EQ(GMA_Time(), 0);
  EXPECT_TRUE(hTrn(1).bSkip(4));
  EXPECT_TRUE(Is_Present(hTrn(1).fuVmag(4)));
}

TEST(MovingAverage, TransientWithoutResistivitiesEndsTheFilterButNotTheIntegration) {
  const auto hShort = TransientBuilder().Times({1, 2, 3, 4}).Values({9, 5, 4, 1});
  Load({TransientBuilder(hShort).Resistivities({10, 12, 0, 0}), hShort, Decay()});
  Get_TWWidth();
  EXPECT_EQ(GMA_Time(), 0);
  EXPECT_TRUE(hTrn(1).fARes(3) > 10.0f) << "two resistivities are enough";
  EXPECT_NE(hTrn(2).fuVmag(3), 4.0f);
  EXPECT_EQ(hTrn(3).fuVmag(3), 8.0f);
  EXPECT_EQ(hSmoothCount.NSmoothed, 1);
  EXPECT_EQ(hSmoothCount.jStop, 2);
  EXPECT_TRUE(Is_Present(hTrn(3).fBmag(1)));
}

// ---- window edges

TEST(WindowWidths, MissingEdgesAreGeometricMeansAndGivenOnesStay) {
  Load({TransientBuilder().Times({1, 4, 16}).Values({3, 2, 1})});
  hTrn(1).fTWEnd(2) = 7.0f;
  Get_TWWidth();
  const Transient& h = hTrn(1);
  EXPECT_EQ(h.fTWBeg(1), 0.5f);
  EXPECT_EQ(h.fTWEnd(1), 2.0f);
  EXPECT_EQ(h.fTWBeg(2), 2.0f);
  EXPECT_EQ(h.fTWEnd(2), 7.0f);
  EXPECT_EQ(h.fTWBeg(3), 8.0f);
  EXPECT_EQ(h.fTWEnd(3), 32.0f);
}

TEST(WindowWidths, TimesAroundZeroUseArithmeticMeansAndOneWindowHasNoWidth) {
  Load({TransientBuilder().Times({-1, 3}).Values({3, 2}), TransientBuilder().Times({5}).Values({3})});
  Get_TWWidth();
  EXPECT_EQ(hTrn(1).fTWBeg(2), 1.0f);
  EXPECT_EQ(hTrn(1).fTWBeg(1), -2.0f);
  EXPECT_EQ(hTrn(2).fTWBeg(1), 5.0f);
  EXPECT_EQ(hTrn(2).fTWEnd(1), 5.0f);
}

// ---- B(t)

TEST(BField, IntegratesFromTheLastWindowAndCarriesOverMissingOnes) {
  Load({TransientBuilder().Times({1, 2, 3}).Values({8, fDummy, -2})});
  for (I4 I = 1; I <= 3; ++I) {
    hTrn(1).fTWBeg(I) = static_cast<R4>(I);
    hTrn(1).fTWEnd(I) = static_cast<R4>(I) + 0.5f;
  }
  hTrn(1).bSkip(1) = true;  // flags are not looked at
  EXPECT_EQ(dBdt_2_B(), 0);
  EXPECT_EQ(hTrn(1).fBmag(3), -1.0f);  // -2/1000 uV/A a m^2 over 500 usec
  EXPECT_EQ(hTrn(1).fBmag(2), fDummy);
  EXPECT_EQ(hTrn(1).fBmag(1), 3.0f);
  EXPECT_EQ(hTrn(1).fBmag(64), fDummy);
}

TEST(BField, TrapezoidsBeginWithTheTailAndTakeHzAlone) {
  Load({TransientBuilder().Times({1, 2, 4}).Values({8, 4, 3}), TransientBuilder().Values({8, 4}).Component(iCmpHx)});
  hTrn(1).bSkip(2) = true;
  EXPECT_EQ(dBzdt_2_Bz(), 0);
  EXPECT_FLOAT_EQ(hTrn(1).fBmag(3), 2000.0f * 3.0f * 4.0f / 3000.0f);
  EXPECT_EQ(hTrn(1).fBmag(2), fDummy);
  EXPECT_FLOAT_EQ(hTrn(1).fBmag(1), 500.0f * 11.0f * 3.0f / 1000.0f + 8.0f);
  EXPECT_EQ(hTrn(2).fBmag(1), fDummy);
}

TEST(TimeAxis, EmptyStoreIsReported) {
  Begin_Test();
  EXPECT_EQ(dBdt_2_B(), 1);
  EXPECT_EQ(dBzdt_2_Bz(), 1);
  EXPECT_EQ(GMA_Time(), 1);
}

}  // namespace
}  // namespace quillan
