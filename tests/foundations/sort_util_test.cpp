#include "foundations/sort_util.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace quillan {
namespace {

using Places = std::vector<I4>;

constexpr R4 fNan = std::numeric_limits<R4>::quiet_NaN();
constexpr R4 fInf = std::numeric_limits<R4>::infinity();

I4 Count(const auto& items) {
  return static_cast<I4>(items.size());
}

/// The real that lies NUnit units of the last place above f.
R4 Above(R4 f, int NUnit) {
  for (; NUnit > 0; --NUnit) f = std::nextafter(f, fInf);
  return f;
}

bool Is_Permutation_of_Places(Places JSort) {
  std::sort(JSort.begin(), JSort.end());
  Places J(JSort.size());
  std::iota(J.begin(), J.end(), 1);
  return J == JSort;
}

/// Many ties, few runs: what a survey's stations look like before the sort.
std::vector<R4> Random_Stations(std::size_t N, unsigned iSeed) {
  std::mt19937 random(iSeed);
  std::vector<R4> fStn(N);
  for (R4& f : fStn) f = 0.1f * static_cast<R4>(random() % 50);
  return fStn;
}

TEST(SortUtil, TheInsertionSortKeepsEqualItemsInOrder) {
  Places JSort(5);
  InsertSort_R4(5, std::vector<R4>{2, 1, 2, 1, 2}, JSort);
  EXPECT_EQ(JSort, (Places{2, 4, 1, 3, 5}));
  InsertSort_I4(3, std::vector<I4>{7, 7, 7}, JSort);
  EXPECT_EQ(JSort, (Places{1, 2, 3, 3, 5})) << "what lies behind the items stays";
  InsertSort_CN(3, std::vector<std::string>{"b", "a  ", "a"}, JSort);
  EXPECT_EQ(JSort, (Places{2, 3, 1, 3, 5})) << "trailing blanks are no difference";
  InsertSort_R8(0, std::vector<R8>{}, JSort);
  EXPECT_EQ(JSort[0], 2);
}

TEST(SortUtil, SortsAgreeForAnySize) {
  for (const std::size_t N : {1U, 2U, 3U, 4U, 7U, 64U, 1000U}) {
    std::vector<R4> fItem = Random_Stations(N, static_cast<unsigned>(N));
    Places JHeap(N), JInsert(N);
    HeapSort_R4(Count(fItem), fItem, JHeap);
    InsertSort_R4(Count(fItem), fItem, JInsert);
    ASSERT_TRUE(Is_Permutation_of_Places(JHeap)) << N;
    std::vector<R4> fByHeap = fItem, fByInsert = fItem;
    Reorder_R4(Count(fItem), JHeap, fByHeap);
    Reorder_R4(Count(fItem), JInsert, fByInsert);
    Sort_Inplace_R4(Count(fItem), fItem);
    EXPECT_TRUE(std::is_sorted(fItem.begin(), fItem.end())) << N;
    EXPECT_EQ(fByHeap, fItem) << N;
    EXPECT_EQ(fByInsert, fItem) << N;
  }
}

TEST(SortUtil, TextsSortWithoutTrailingBlanks) {
  std::vector<std::string> sItem{"tx", "RX ", "rx", "", "RX1"};
  Places JSort(5);
  HeapSort_CN(5, sItem, JSort);
  EXPECT_EQ(JSort, (Places{4, 2, 5, 3, 1}));
  Sort_Inplace_CN(5, sItem);
  EXPECT_EQ(sItem, (std::vector<std::string>{"", "RX ", "RX1", "rx", "tx"}));
}

TEST(SortUtil, KeysThatDifferInTheirLastBitsLeaveTheNextKeyToDecide) {
  const R4 fStn = 1234.5f;
  const std::vector<R4> fKey{Above(fStn, 9), 1, fStn, 2, Above(fStn, 5), 0, 7, 9};
  Places JSort(4);
  Sort_MKey_R4(2, 4, fKey, JSort);
  EXPECT_EQ(JSort, (Places{4, 3, 1, 2}));
  Sort_MKey_R4(2, 2, std::vector<R4>{Above(fStn, 10), 1, fStn, 2}, JSort);
  EXPECT_EQ(JSort[0], 2) << "10 units apart are different";
  Sort_MKey_I4(2, 3, std::vector<I4>{1, 5, 1, 3, 0, 9}, JSort);
  EXPECT_EQ(JSort, (Places{3, 2, 1, 2}));
  Sort_MKey_R8(1, 3, std::vector<R8>{3, 1, 2}, JSort);
  EXPECT_EQ(JSort, (Places{2, 3, 1, 2}));
}

TEST(SortUtil, AnyInputGivesAValidOrder) {
  std::mt19937 random(5);
  const R4 fOdd[] = {fNan, fInf, -fInf, 0.0f, -0.0f, 1.0f, Above(1.0f, 9), Above(1.0f, 18), fDummy};
  for (int iRun = 0; iRun < 200; ++iRun) {
    std::vector<R4> fKey(3 * 40);
    for (R4& f : fKey) f = fOdd[random() % std::size(fOdd)];
    Places JSort(40);
    Sort_MKey_R4(3, 40, fKey, JSort);
    ASSERT_TRUE(Is_Permutation_of_Places(JSort));
    HeapSort_R4(40, fKey, JSort);
    ASSERT_TRUE(Is_Permutation_of_Places(JSort));
    InsertSort_R4(40, fKey, JSort);
    ASSERT_TRUE(Is_Permutation_of_Places(JSort));
    I4 iError = 9;
    SelectK_R4(20, 40, fKey, iError);  // must end, within its array
    ASSERT_EQ(iError, 0);
  }
}

TEST(SortUtil, TuplesAreOrderedByTheirFirstDifference) {
  const struct {
    std::vector<R4> Key1, Key2;
    I4 iOrder;
  } hCase[] = {
      {{1, 2},           {1, 3}, -1},
      {{2, 0},           {1, 3}, 1 },
      {{1, 2},           {1, 2}, 0 },
      {{Above(8, 9), 2}, {8, 3}, -1},
      {{fInf},           {fInf}, 0 },
  };
  for (const auto& h : hCase) {
    I4 iOrder = 9;
    SortKey_Order_R4(Count(h.Key1), h.Key1, h.Key2, iOrder);
    EXPECT_EQ(iOrder, h.iOrder) << h.Key1[0] << " " << h.Key2[0];
  }
}

TEST(SortUtil, ABracketIsFoundFromAnyStartingPlace) {
  const std::vector<R4> fRising{1, 2, 2, 4, 8, 16, 32}, fFalling{32, 16, 8, 4, 2, 2, 1};
  const Places JSort{7, 6, 5, 4, 3, 2, 1};
  const struct {
    R4 fValue;
    I4 JRising, JFalling;
    const char* sWhy;
  } hCase[] = {
      {0,    0, 7, "below all"               },
      {1,    1, 7, "the least item itself"   },
      {1.5f, 1, 6, "between two"             },
      {2,    3, 6, "the last of equal items" },
      {5,    4, 3, "in the middle"           },
      {32,   7, 1, "the greatest item itself"},
      {99,   7, 0, "above all"               },
  };
  for (const auto& h : hCase) {
    for (I4 JStart = -1; JStart <= 9; ++JStart) {
      I4 JRising = JStart, JFalling = JStart, JIndexed = JStart;
      Hunt_Bracket_R4(7, fRising, h.fValue, JRising);
      Hunt_Bracket_R4(7, fFalling, h.fValue, JFalling);
      Hunt_Bracket_JSort_R4(7, fFalling, JSort, h.fValue, JIndexed);
      EXPECT_EQ(JRising, h.JRising) << h.sWhy << " from " << JStart;
      EXPECT_EQ(JFalling, h.JFalling) << h.sWhy << " from " << JStart;
      EXPECT_EQ(JIndexed, h.JRising) << h.sWhy << " from " << JStart;
    }
  }
  I4 JLO = 5;
  Hunt_Bracket_R8(1, std::vector<R8>{3}, 1, JLO);
  EXPECT_EQ(JLO, 1) << "one item brackets everything";
  Hunt_Bracket_R8(0, std::vector<R8>{}, 1, JLO);
  EXPECT_EQ(JLO, 0);
  Hunt_Bracket_R4(7, fRising, fNan, JLO);  // any place will do
  EXPECT_TRUE(JLO >= 0 && JLO <= 7);
}

TEST(SortUtil, ATupleIsFoundInItsList) {
  const std::vector<R4> fList{1, 1, 1, 5, 2, 0, 3, 7};  // four tuples of two
  const struct {
    std::vector<R4> fKey;
    I4 JLow, iOrder;
  } hCase[] = {
      {{0, 9},           0, -1},
      {{1, 1},           1, 0 },
      {{1, Above(5, 4)}, 2, 0 },
      {{1, 6},           2, 1 },
      {{2, 0},           3, 0 },
      {{3, 7},           4, 0 },
      {{4, 0},           4, 1 },
  };
  for (const auto& h : hCase) {
    for (I4 JStart = 0; JStart <= 4; ++JStart) {
      I4 JLO = JStart, iOrder = 9;
      Hunt_Bracket_MKey_R4(2, 4, fList, h.fKey, JLO, iOrder);
      EXPECT_EQ(JLO, h.JLow) << h.fKey[0] << " " << h.fKey[1] << " from " << JStart;
      EXPECT_EQ(iOrder, h.iOrder) << h.fKey[0] << " " << h.fKey[1] << " from " << JStart;
    }
  }
  I4 JLO = 1, iOrder = 9;
  Hunt_Bracket_MKey_I4(1, 1, std::vector<I4>{5}, std::vector<I4>{4}, JLO, iOrder);
  EXPECT_EQ(JLO, 0);
  EXPECT_EQ(iOrder, -1);
  Hunt_Bracket_MKey_R8(1, 0, std::vector<R8>{}, std::vector<R8>{4}, JLO, iOrder);
  EXPECT_EQ(JLO, 0);
  EXPECT_NE(iOrder, 0) << "nothing is found in an empty list";
}

TEST(SortUtil, ColumnsFollowAnOrder) {
  const Places JSort{3, 1, 2};
  bool b[] = {true, false, false};
  std::vector<Z4> z{
      {1, 1},
      {2, 2},
      {3, 3}
  };
  std::vector<std::string> s{"a", "b", "c"};
  std::vector<I4> i{10, 20, 30, 40};
  Reorder_L4(3, JSort, b);
  Reorder_Z4(3, JSort, z);
  Reorder_CN(3, JSort, s);
  Reorder_I4(3, JSort, i);
  EXPECT_EQ((std::vector<bool>(b, b + 3)), (std::vector<bool>{false, true, false}));
  EXPECT_EQ(z, (std::vector<Z4>{
                   {3, 3},
                   {1, 1},
                   {2, 2}
  }));
  EXPECT_EQ(s, (std::vector<std::string>{"c", "a", "b"}));
  EXPECT_EQ(i, (std::vector<I4>{30, 10, 20, 40})) << "only NP items move";
  Swap_CN(s[0], s[1]);
  Swap_L4(b[0], b[1]);
  EXPECT_EQ(s[0], "a");
  EXPECT_TRUE(b[0]);
}

TEST(SortUtil, TheOrderTestTellsTiesFromDescents) {
  const struct {
    std::vector<R4> fItem;
    I4 iFlag;
  } hCase[] = {
      {{},                     0 },
      {{1},                    0 },
      {{1, 2, 3},              0 },
      {{1, 2, 2, 3},           -3},
      {{1, 1, 2, Above(2, 9)}, -4},
      {{1, 1, 0, 5, 4},        3 },
      {{Above(1, 9), 1},       -2},
  };
  for (const auto& h : hCase) {
    I4 iFlag = 9;
    Check_Order_R4(Count(h.fItem), h.fItem, iFlag);
    EXPECT_EQ(iFlag, h.iFlag) << testing::PrintToString(h.fItem);
  }
  I4 iFlag = 9;
  Check_Order_CN(3, std::vector<std::string>{"a", "a ", "B"}, iFlag);
  EXPECT_EQ(iFlag, 3);
}

TEST(SortUtil, DuplicatesGoWithinTheToleranceOfTheFirst) {
  // Steps of 6 units: each is near its neighbour, but every second one is no longer near the one kept.
  std::vector<R4> fItem{Above(2, 6), Above(2, 18), 2, Above(2, 12), 1, 2};
  I4 NX = Count(fItem);
  Drop_Duplicates_R4(NX, fItem);
  ASSERT_EQ(NX, 3);
  fItem.resize(3);
  EXPECT_EQ(fItem, (std::vector<R4>{1, 2, Above(2, 12)}));
  std::vector<R4> fSame{1, 1, 1};
  NX = 3;
  Drop_Duplicates_R4(NX, fSame);
  EXPECT_EQ(NX, 1);
  NX = 0;
  Drop_Duplicates_R4(NX, fSame);
  EXPECT_EQ(NX, 0);
  std::vector<std::string> sItem{"b", "a", "b  "};
  NX = 3;
  Drop_Duplicates_CN(NX, sItem);
  EXPECT_EQ(NX, 2);
}

TEST(SortUtil, TheKthSmallestPartsTheOthers) {
  for (const std::size_t N : {1U, 2U, 3U, 5U, 40U, 333U}) {
    const std::vector<R4> fStn = Random_Stations(N, 7);
    std::vector<R4> fSorted = fStn;
    std::sort(fSorted.begin(), fSorted.end());
    for (std::size_t k = 0; k < N; ++k) {
      std::vector<R4> fWork = fStn;
      I4 iError = 9;
      SelectK_R4(static_cast<I4>(k) + 1, Count(fWork), fWork, iError);
      ASSERT_EQ(iError, 0);
      ASSERT_EQ(fWork[k], fSorted[k]) << N << " " << k;
      const auto it = fWork.begin() + static_cast<std::ptrdiff_t>(k);
      ASSERT_TRUE(std::all_of(fWork.begin(), it, [&](R4 f) { return f <= *it; }));
      ASSERT_TRUE(std::all_of(it, fWork.end(), [&](R4 f) { return f >= *it; }));
    }
  }
}

TEST(SortUtil, AKthBeyondTheItemsChangesNothing) {
  std::vector<I4> iItem{3, 1, 2};
  I4 iError = 9;
  for (const I4 K : {0, 4, -1}) {
    SelectK_I4(K, 3, iItem, iError);
    EXPECT_EQ(iError, 1);
  }
  SelectK_I4(1, 0, iItem, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_EQ(iItem, (std::vector<I4>{3, 1, 2}));
}

}  // namespace
}  // namespace quillan
