// Merging early-time with late-time records. Values are worked out by hand, or by another compiler in 32 bits.
#include "processing/tmd_merge.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

/// A taper over windows 1 to 3: weights 1, one half, 0.
MergeSettings Three_Windows(I4 iMask1 = 0, I4 iMask2 = 1) {
  MergeSettings h{iMask1, iMask2, 2, 2, 1};
  h.iMergeCmp(1) = iCmpHz;
  return h;
}

TEST(MergeTaper, FallsFromOneToZeroAcrossItsWidth) {
  constexpr struct {
    I4 ITW, iCenter, iWidth;
    R4 fWgt;
  } hCase[] = {
      {1,  14, 10, 1.0f           },
      {9,  14, 10, 1.0f           },
      {10, 14, 10, 9.75528240E-01f},
      {14, 14, 10, 0.5f           },
      {17, 14, 10, 9.54914689E-02f},
      {19, 14, 10, 0.0f           },
      {64, 14, 10, 0.0f           },
      {13, 14, 1,  1.0f           }, // a step
      {14, 14, 1,  0.5f           },
      {15, 14, 1,  0.0f           },
      {1,  1,  64, 0.5f           },
  };
  for (const auto& h : hCase)
    EXPECT_EQ(fMergeFilter(h.ITW, h.iCenter, h.iWidth), h.fWgt) << h.ITW << ": " << h.iCenter << ", " << h.iWidth;
}

/// The transients that are left, each by its number before; those of stations dStn are numbered from 1.
std::string Left_of(const std::vector<R8>& dStn, const MergeSettings& hSettings) {
  Begin_Test();
  for (const R8 d : dStn) {
    ++NTrn;  // the first window has the early-time value
    hTrn(NTrn) = TransientBuilder().Station(d).Values({static_cast<R4>(NTrn)});
  }
  TMD_Merge(hSettings);
  std::string sLeft;
  for (I4 j = 1; j <= NTrn; ++j) sLeft += std::to_string(Nint(hTrn(j).fuVmag(1)));
  return sLeft;
}

TEST(Merge, PartnersAreFoundByTheTenthsDigit) {
  const struct {
    const char* sWhat;
    I4 iMask1, iMask2;
    std::vector<R8> dStn;
    const char* sLeft;
  } hCase[] = {
      {"early first",                  0, 1, {100.0, 100.1, 200.0},      "13" },
      {"late first",                   0, 1, {100.1, 100.0},             "2"  },
      {"no early record",              0, 1, {100.1, 101.1},             "12" },
      {"another digit",                0, 1, {100.0, 100.2},             "12" },
      {"digits 3 and 7",               3, 7, {9.0, 9.7, 9.3, 9.1},       "134"},
      {"negative, tenths early",       1, 0, {-5.0, -5.1},               "2"  },
      {"negative, tenths late",        0, 1, {-5.0, -5.1, -4.9, -6.1},   "134"},
      {"below one",                    2, 3, {-0.2, 0.3, -0.3},          "12" },
      {"nought looks upward",          0, 1, {0.0, -0.1, 0.1},           "12" },
      {"only the first partner",       0, 1, {100.0, 100.1, 100.1},      "13" },
      {"one late for two early",       0, 1, {100.0, 100.0, 100.1},      "12" },
      {"near enough",                  0, 1, {100.0, 100.1009},          "1"  },
      {"too far",                      0, 1, {100.0, 100.1011},          "12" },
      {"digits rounded up to ten",     0, 1, {99.96, 99.1, 100.0},       "123"},
      {"equal digits, no repeat",      0, 0, {7.0, 8.0},                 "12" },
      {"equal digits, a repeat",       4, 4, {7.4, 8.4, 7.4},            "12" },
      {"a third repeat takes the sum", 0, 0, {7.0, 7.0, 7.0},            "3"  },
      {"no station",                   0, 1, {dDummy, dDummy, 1.0, 1.1}, "123"},
      {"beyond 32-bit whole numbers",  0, 1, {5.0E9, 5.0E9 + 0.1},       "1"  },
  };
  for (const auto& h : hCase) EXPECT_EQ(Left_of(h.dStn, Three_Windows(h.iMask1, h.iMask2)), h.sLeft) << h.sWhat;
}

TEST(Merge, TransmitterAndFrequencyMayDiffer) {
  Load({TransientBuilder().Station(3.0).Transmitter(1).Frequency(4.0f).Values({1}),
        TransientBuilder().Station(3.1).Transmitter(2).Frequency(16.0f).Values({2})});
  TMD_Merge(Three_Windows());
  ASSERT_EQ(NTrn, 1);
  EXPECT_EQ(hTrn(1).fTxFreq, 16.0f);
  EXPECT_EQ(hTrn(1).dTxStn, 1.0);
}

TEST(Merge, OnlyChosenComponentsAndOnlyWithinOne) {
  const auto Record = [](R8 dStn, I4 iCmp) { return TransientBuilder().Station(dStn).Component(iCmp).Values({1}); };
  Load({Record(3.0, iCmpHx), Record(3.0, iCmpHz), Record(3.1, iCmpHx), Record(3.1, iCmpHz), Record(4.0, iCmpHx),
        Record(4.1, iCmpHz)});
  MergeSettings h = Three_Windows();
  TMD_Merge(h);
  EXPECT_EQ(NTrn, 5) << "Hz alone";
  h.NMergeCmp = 2;
  h.iMergeCmp(2) = iCmpHx;
  TMD_Merge(h);
  EXPECT_EQ(NTrn, 4);
  EXPECT_EQ(hTrn(3).iRxCmp, iCmpHx);
  EXPECT_EQ(hTrn(4).iRxCmp, iCmpHz);
  LogText_Reset();
  h.NMergeCmp = 0;
  TMD_Merge(h);
  EXPECT_EQ(Shown("Merging of KVRB channel dB/dt is finished."), 1);
  EXPECT_EQ(Shown("Have merged 4 transients to 4 transients."), 1);
}

TEST(Merge, BlendsEachQuantityByItsOwnRule) {
  Transient hEarly =
      TransientBuilder().Station(3.0).Resistivities({10, 10, 10}).Errors_Percent({1, fDummy, 3}).Values({8, 4, 2});
  hEarly.fuVerr(2) = 0.5f;
  hEarly.fBmag(2) = 7.0f;
  hEarly.bSkip(3) = true;
  Transient hLate = TransientBuilder()
                        .Station(3.1)
                        .Times({1, 2.5f, 4})
                        .Resistivities({40, 40, 0})
                        .Errors_Percent({5, 6, fDummy})
                        .Values({80, 40, 20});
  hLate.bSkip(1) = true;
  Load({hEarly, hLate});
  TMD_Merge(Three_Windows());
  const Transient& h = hTrn(1);
  const auto Is = [&](const WindowValues& fValue, R4 f1, R4 f2, R4 f3) {
    EXPECT_FLOAT_EQ(fValue(1), f1);
    EXPECT_FLOAT_EQ(fValue(2), f2);
    EXPECT_FLOAT_EQ(fValue(3), f3);
  };
  Is(h.fuVmag, 8, 22, 20);
  Is(h.fuVpct, 1, 6, 3);
  Is(h.fARes, 10, 20, 10);
  Is(h.fDepth, 28.0f * std::sqrt(10.0f), 28.0f * std::sqrt(40.0f), fDummy);
  Is(h.fTWCen, 1, 2, 4);
  Is(h.fuVerr, fDummy, 0.5f, fDummy);
  Is(h.fBmag, fDummy, 7, fDummy);
  EXPECT_EQ(Skipped(1), "--X");
  EXPECT_EQ(h.dRxStn, 3.0);
}

TEST(Merge, KeepsTheDigitsOfThirtyTwoBits) {
  Transient hEarly = TransientBuilder().Station(3.0).Times({0.7f, 0.7f, 0.7f, 0.7f, 0.7f, 0.7f, 0.7f, 0.7f, 0.7f});
  Transient hLate = hEarly;
  hLate.dRxStn = 3.1;
  for (I4 I = 1; I <= 9; ++I) {
    hEarly.fuVmag(I) = 3.40512E+02f;
    hLate.fuVmag(I) = -1.2345E+01f;
    hEarly.fARes(I) = 12.5f;
    hLate.fARes(I) = 87.5f;
  }
  Load({hEarly, hLate});
  MergeSettings hSettings = Three_Windows();
  hSettings.iMergeFltCenter = 5;
  hSettings.iMergeFltWidth = 10;
  TMD_Merge(hSettings);
  constexpr struct {
    I4 I;
    R4 fuVmag, fARes, fDepth;
  } hWant[] = {
      {1, 3.31876984E+02f,  1.31096487E+01f, 8.48208389E+01f},
      {3, 2.67785553E+02f,  1.86677094E+01f, 1.01216789E+02f},
      {8, 2.13498344E+01f,  7.26621780E+01f, 1.99692276E+02f},
      {9, -3.70997906E+00f, 8.34309082E+01f, 2.13978683E+02f},
  };
  for (const auto& h : hWant) {
    EXPECT_EQ(hTrn(1).fuVmag(h.I), h.fuVmag) << h.I;
    EXPECT_EQ(hTrn(1).fARes(h.I), h.fARes) << h.I;
    EXPECT_EQ(hTrn(1).fDepth(h.I), h.fDepth) << h.I;
  }
}

TEST(Merge, MarkOfAMissingValueIsSummedUp) {
  Load({TransientBuilder().Station(3.0).Values({fDummy, fDummy, fDummy}),
        TransientBuilder().Station(3.1).Values({80, 40, 20})});
  TMD_Merge(Three_Windows());
  EXPECT_EQ(hTrn(1).fuVmag(1), fDummy);
  EXPECT_EQ(hTrn(1).fuVmag(2), -5.0E31f);
  EXPECT_EQ(hTrn(1).fuVmag(3), 20.0f) << "without weight";
}

TEST(Merge, LongerLateRecordExtendsTheEarlyOne) {
  Transient hEarly = TransientBuilder().Station(3.0).Values({8}).Resistivities({10});
  hEarly.fuVmag(4) = std::numeric_limits<R4>::quiet_NaN();  // what was left beyond the last window
  Transient hLate =
      TransientBuilder().Station(3.1).Times({1, 3, 5, 7}).Values({80, 40, 20, 10}).Errors_Percent({5, 6, 7, 8});
  hLate.fARes(2) = 40.0f;
  hLate.fTWBeg(2) = 2.5f;
  Load({hEarly, hLate});
  MergeSettings hSettings = Three_Windows();
  hSettings.iMergeFltCenter = 9;  // far beyond: the late record has the new windows to itself all the same
  TMD_Merge(hSettings);
  const Transient& h = hTrn(1);
  ASSERT_EQ(h.NTW, 4);
  EXPECT_EQ(h.fuVmag(1), 8.0f);
  EXPECT_EQ(h.fuVmag(2), 40.0f);
  EXPECT_TRUE(std::isnan(h.fuVmag(4)));
  EXPECT_EQ(h.fuVpct(2), 6.0f);
  EXPECT_EQ(h.fTWCen(2), 3.0f);
  EXPECT_EQ(h.fTWBeg(2), fDummy);
  EXPECT_EQ(h.fARes(2), fDummy);
}

TEST(Merge, ShorterLateRecordLeavesTheLateWindowsOfTheEarlyOne) {
  Load({TransientBuilder().Station(3.0).Values({8, 4, 2, 1}), TransientBuilder().Station(3.1).Values({80, 40})});
  TMD_Merge(Three_Windows());
  EXPECT_EQ(hTrn(1).NTW, 4);
  EXPECT_EQ(hTrn(1).fuVmag(2), 22.0f);
  EXPECT_EQ(hTrn(1).fuVmag(3), 2.0f);
}

}  // namespace
}  // namespace quillan
