#include "processing/sort_data.h"

#include <gtest/gtest.h>

#include "metadata/mdp_data.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

std::string Order() {
  std::string sOrder;
  for (I4 j = 1; j <= NTrn; ++j) sOrder += hTrn(j).sKvrTime.str();
  return sOrder;
}

Transient Named(const char* sName, Transient h) {
  h.sKvrTime = sName;
  return h;
}

void Begin(I4 iTemArray) {
  MDP_Initialize();
  MdSurvey.iTemArray = iTemArray;
}

TEST(SortData, KeysCountInTurnAndRepeatsStayInReadOrder) {
  using TB = TransientBuilder;
  Load({Named("f", TB().Component(6).Frequency(4).Transmitter(1).Station(2)),
        Named("g", TB().Component(6).Frequency(16).Transmitter(1).Station(1)),
        Named("c", TB().Component(4).Frequency(4).Transmitter(2).Station(1)),
        Named("d", TB().Component(6).Frequency(4).Transmitter(1).Station(1)),
        Named("e", TB().Component(6).Frequency(4).Transmitter(1).Station(1)),
        Named("b", TB().Component(4).Frequency(4).Transmitter(1).Station(9))});
  Begin(iArrayFXL);
  EXPECT_EQ(Sort_TEM_Data(), 0);
  EXPECT_EQ(Order(), "bcdefg");
}

TEST(SortData, MovingLoopSortsByOffsetBeforePosition) {
  using TB = TransientBuilder;
  Load({Named("c", TB().Transmitter(1).Station(3)), Named("b", TB().Transmitter(5).Station(6)),
        Named("a", TB().Transmitter(2).Station(3))});
  Begin(iArrayMVL);
  EXPECT_EQ(Sort_TEM_Data(), 0);
  EXPECT_EQ(Order(), "abc");
}

TEST(SortData, StationsThatR4CannotTellApartAreEqual) {
  using TB = TransientBuilder;
  Load({Named("a", TB().Station(1000000.02)), Named("b", TB().Station(1000000.01))});
  Begin(iArrayFXL);
  EXPECT_EQ(Sort_TEM_Data(), 0);
  EXPECT_EQ(Order(), "ab");
}

TEST(SortData, FullStoreInReverseComesOutInOrder) {
  Begin_Test();
  Begin(iArrayFXL);
  NTrn = MTrn;
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j) = TransientBuilder().Station(MTrn - j);
  EXPECT_EQ(Sort_TEM_Data(), 0);
  for (I4 j = 1; j <= NTrn; ++j) ASSERT_EQ(hTrn(j).dRxStn, j - 1);
}

}  // namespace
}  // namespace quillan
