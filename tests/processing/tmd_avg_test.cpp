#include "processing/tmd_avg.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "support/survey_builder.h"

namespace quillan {
namespace {

using TB = TransientBuilder;

Transient Skip(Transient h, std::initializer_list<I4> iWindow) {
  for (const I4 I : iWindow) h.bSkip(I) = true;
  return h;
}

Transient Skip_All(Transient h) {
  h.bSkipTrn = true;
  return h;
}

Transient Weighted(R4 fWgtTrns, Transient h) {
  h.fWgtTrns = fWgtTrns;
  return h;
}

/// The windows of transient j: value, error, percent, and X where it is skipped.
std::string Windows(const Transient& h) {
  std::string sAll;
  for (I4 I = 1; I <= h.NTW; ++I) {
    const auto R = [](R4 f) { return static_cast<R8>(f); };
    char sWindow[64];
    std::snprintf(sWindow, sizeof sWindow, "%.7g %.4g %.4g%s; ", R(h.fuVmag(I)), R(h.fuVerr(I)), R(h.fuVpct(I)),
                  h.bSkip(I) ? " X" : "");
    sAll += sWindow;
  }
  return sAll;
}

/// The first group's average; blank where there is none.
std::string Average_of(std::initializer_list<Transient> hRepeat) {
  Load(hRepeat);
  (void)TMD_Avg_Get_Groups();
  const auto h = TMD_Avg_hTrnRptK(hRepeats(1));
  return h ? Windows(*h) : "";
}

TEST(Average, IsWeightedWindowByWindow) {
  const std::string sEmpty = "-1e+32 0 0.1 X; ";
  const struct {
    const char* sCase;
    std::initializer_list<Transient> hRepeat;
    std::string sWindows;
  } hCase[] = {
  // (2 + 4) / 2; sqrt(1 + 1) / 2; 70.71 / 3
      {"two",                                                           {TB().Values({2}), TB().Values({4})},                      "3 0.7071 23.57; "       },
 // (1 + 2 + 6) / 3; sqrt(4 + 1 + 9) / 3
      {"three",                                                         {TB().Values({1}), TB().Values({2}), TB().Values({6})},    "3 1.247 41.57; "        },
 // (3 * 2 + 6) / 4; sqrt(3 * 1 + 9) / 4
      {"weights",                                                       {Weighted(3, TB().Values({2})), TB().Values({6})},         "3 0.866 28.87; "        },
      {"no spread",                                                     {TB().Values({5}), TB().Values({5})},                      "5 0 0.1; "              },
      {"a negative mean",                                               {TB().Values({-2}), TB().Values({-4})},                    "-3 0.7071 0.1; "        },
      {"a mean of nothing",                                             {TB().Values({0}), TB().Values({0})},                      "0 0 0.1; "              },
 // (2.0E-6 * 2 + 4) / 1.000002; sqrt(2.0E-6 * 4) / 1.000002
      {"one skipped",                                                   {Skip_All(TB().Values({2})), TB().Values({4})},            "3.999996 0.002828 0.1; "},
 // in the second window sqrt(2.0E-6 * 8) / 4.0E-6
      {"windows skipped in one and in all",
       {Skip(TB().Values({2, 8}), {2}), Skip(TB().Values({4, 4}), {1, 2})},
       "2.000004 0.002828 0.1414; 6 1000 1.667e+04 X; "                                                                                                     },
      {"a flag of the first repeat that is not skipped stays",
       {Skip(TB().Values({2, 8}), {1}), TB().Values({2, 8})},
       "2 0 0.1 X; 8 0 0.1; "                                                                                                                               },
      {"a missing value limits the later windows to the first repeats",
       {TB().Values({2, 2, 2}), TB().Values({4, fDummy, 4})},
       "3 0.7071 23.57; 2 0 0.1; 2 0 0.1; "                                                                                                                 },
      {"a shorter first repeat gives the windows",                      {TB().Values({2}), TB().Values({4, 8})},                   "3 0.7071 23.57; "       },
      {"skipped, it does not, but its count goes on",
       {Skip_All(TB().Values({4, 4})), TB().Values({4, 4, 4, 4})},
       "4 0 0.1; 4 0 0.1; 4 0 0.1; " + sEmpty                                                                                                               },
      {"a time before a repeat's first one takes that",
       {TB().Times({0.5f, 1}).Values({2, 2}), TB().Values({4, 8})},
       "3 0.7071 23.57; 3 0.7071 23.57; "                                                                                                                   },
      {"other times in between give nothing",
       {TB().Values({2, 4}), TB().Times({1.1f, 2}).Values({3, 6})},
       "2.5 0.3536 14.14; 5 0.7071 14.14; "                                                                                                                 },
      {"all skipped",                                                   {Skip_All(TB().Values({2})), Skip(TB().Values({4}), {1})}, ""                       },
      {"no windows",                                                    {TB(), TB()},                                              ""                       },
  };
  for (const auto& h : hCase) EXPECT_EQ(Average_of(h.hRepeat), h.sWindows) << h.sCase;
}

TEST(Average, TakesBAndResistivityOverTheValuesThatAreThere) {
  Transient h1 = TB().Values({2, 2}).Resistivities({10, 10}), h2 = TB().Values({4, 4}).Resistivities({30, 1.0E-20f});
  h1.fBmag(1) = 1.0f;
  h2.fBmag(1) = 2.0f;
  Load({h1, h2});
  ASSERT_EQ(TMD_Average(), 0);
  EXPECT_EQ(hTrn(1).fBmag(1), 1.5f);
  EXPECT_EQ(hTrn(1).fBmag(2), fDummy);
  EXPECT_EQ(hTrn(1).fARes(1), 20.0f);
  EXPECT_EQ(hTrn(1).fARes(2), 10.0f);
}

TEST(Average, IsACopyOfItsPatternInAllElse) {
  Transient h1 = Skip_All(TB().Values({2})), h2 = Weighted(0.5f, TB().Values({2}));
  h2.fDepth(1) = 7.0f;
  h2.fuVmax = 99.0f;
  h2.sKvrTime = "second";
  Load({h1, h2, TB().Values({2})});
  ASSERT_EQ(TMD_Average(), 0);
  ASSERT_EQ(NTrn, 1);
  EXPECT_EQ(hTrn(1).sKvrTime.str(), "second");
  EXPECT_EQ(hTrn(1).fDepth(1), 7.0f);
  EXPECT_EQ(hTrn(1).fuVmax, 99.0f) << "ranges are not found again";
  EXPECT_FALSE(hTrn(1).bSkipTrn);
  EXPECT_EQ(hTrn(1).fWgtTrns, 1.0f);
}

TEST(Average, TheSeventeenthRepeatIsGone) {
  Begin_Test();
  for (NTrn = 1; NTrn < 17; ++NTrn) hTrn(NTrn) = TB().Values({static_cast<R4>(NTrn)});
  hTrn(NTrn) = TB().Values({1000});
  ASSERT_EQ(TMD_Avg_Get_Groups(), 0);
  EXPECT_EQ(hRepeats(1).NRepeat, 16);
  EXPECT_EQ(hRepeats(1).NLeftOut, 1);
  ASSERT_EQ(TMD_Avg_Repeats(), 0);
  EXPECT_EQ(NTrn, 1);
  EXPECT_EQ(hTrn(1).fuVmag(1), 8.5f);
}

TEST(RepeatGroups, AreNeighboursLikeTheirFirst) {
  const struct {
    const char* sCase;
    Transient h;
    bool bRepeat;
  } hCase[] = {
      {"equal",              TB(),                     true },
      {"station within",     TB().Station(1.0009),     true },
      {"station beyond",     TB().Station(1.0011),     false},
      {"transmitter beyond", TB().Transmitter(0.9989), false},
      {"frequency within",   TB().Frequency(16.0009f), true },
      {"frequency beyond",   TB().Frequency(16.0011f), false},
      {"component",          TB().Component(iCmpHx),   false},
  };
  for (const auto& h : hCase) {
    Load({TB(), h.h});
    EXPECT_EQ(TMD_Avg_Get_Groups(), h.bRepeat ? 0 : 1) << h.sCase;
    EXPECT_EQ(hRepeats.NTrnRpt, h.bRepeat ? 1 : 2) << h.sCase;
  }
  Load({TB().Station(1), TB().Station(1.0008), TB().Station(1.0016), TB().Station(1)});
  ASSERT_EQ(TMD_Avg_Get_Groups(), 0);
  EXPECT_EQ(hRepeats.NTrnRpt, 3) << "the third is too far from the first, the fourth no neighbour of it";
  Load({TB()});
  EXPECT_EQ(TMD_Avg_Get_Groups(), 1);
  EXPECT_EQ(hRepeats.NTrnRpt, 3) << "one transient leaves it";
}

TEST(RepeatGroups, CloseUpWhenOneHasNoAverage) {
  const Transient hOut = Skip_All(TB().Station(1).Values({2}));
  const Transient h2 = TB().Station(2).Values({4}), h3 = TB().Station(3).Values({6});
  Load({hOut, hOut, h2, h2, h3});
  EXPECT_EQ(TMD_Average(), 0);
  ASSERT_EQ(NTrn, 2);
  EXPECT_EQ(hTrn(1).dRxStn, 2.0);
  EXPECT_EQ(Windows(hTrn(2)), "6 0 0.1; ") << "a single transient is averaged too";

  Load({h3, h3, hOut});
  EXPECT_EQ(TMD_Average(), 1) << "the last one";
  EXPECT_EQ(NTrn, 1);
  Load({hOut, hOut});
  EXPECT_EQ(TMD_Average(), 1);
  EXPECT_EQ(NTrn, 0);
}

TEST(RepeatGroups, FlagsOfTheDialogAreOnlyEverSet) {
  Load({TB().Values({2}), Skip_All(TB().Values({4})), TB().Values({6})});
  ASSERT_EQ(TMD_Avg_Get_Groups(), 0);
  hRepeats(1).bSkipTrn = Array1<L4, MRepeat>{};
  hRepeats(1).bSkipTrn(1) = true;
  hRepeats(1).fWgtTrns(3) = 50.0f;
  const std::string sShown = Windows(TMD_Avg_hTrnRptK(hRepeats(1)).value());
  ASSERT_EQ(TMD_Avg_Save_Skip(), 0);
  EXPECT_TRUE(hTrn(1).bSkipTrn && hTrn(2).bSkipTrn && !hTrn(3).bSkipTrn);
  EXPECT_EQ(Windows(TMD_Avg_hTrnRptK(hRepeats(1)).value()), sShown) << "what is shown is what is merged";
  EXPECT_EQ(hTrn(3).fWgtTrns, 1.0f);
}

}  // namespace
}  // namespace quillan
