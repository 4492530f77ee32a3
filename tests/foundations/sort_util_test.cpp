#include "foundations/sort_util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

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
  InsertSort_R8(3, std::vector<R8>{7, 7, 7}, JSort);
  EXPECT_EQ(JSort, (Places{1, 2, 3, 3, 5})) << "what lies after the items stays";
  InsertSort_R8(0, std::vector<R8>{}, JSort);
  EXPECT_EQ(JSort[0], 1);
}

TEST(SortUtil, SortsAgreeForAnySize) {
  for (const std::size_t N : {1U, 2U, 3U, 4U, 7U, 64U, 1000U}) {
    const std::vector<R4> fItem = Random_Stations(N, static_cast<unsigned>(N));
    Places JHeap(N), JInsert(N);
    HeapSort_R4(Count(fItem), fItem, JHeap);
    InsertSort_R4(Count(fItem), fItem, JInsert);
    ASSERT_TRUE(Is_Permutation_of_Places(JHeap)) << N;
    std::vector<R4> fByHeap = fItem, fByInsert = fItem;
    Reorder_R4(Count(fItem), JHeap, fByHeap);
    Reorder_R4(Count(fItem), JInsert, fByInsert);
    EXPECT_TRUE(std::is_sorted(fByHeap.begin(), fByHeap.end())) << N;
    EXPECT_EQ(fByInsert, fByHeap) << N;
  }
}

// Files hold the transients of one station in the order in which the sort brings them out.
TEST(SortUtil, EqualItemsAlwaysComeInTheSameOrder) {
  Places JSort(7);
  HeapSort_R4(7, std::vector<R4>{1, 1, 1, 1, 1, 1, 1}, JSort);
  EXPECT_EQ(JSort, (Places{2, 3, 4, 5, 6, 7, 1}));
  Sort_MKey_R4(1, 7, std::vector<R4>{2, 1, 2, 1, 2, 1, 2}, JSort);
  EXPECT_EQ(JSort, (Places{6, 2, 4, 3, 5, 7, 1}));
}

TEST(SortUtil, KeysThatDifferInTheirLastBitsLeaveTheNextKeyToDecide) {
  const R4 fStn = 1234.5f;
  const std::vector<R4> fKey{Above(fStn, 9), 1, fStn, 2, Above(fStn, 5), 0, 7, 9};
  Places JSort(4);
  Sort_MKey_R4(2, 4, fKey, JSort);
  EXPECT_EQ(JSort, (Places{4, 3, 1, 2}));
  Sort_MKey_R4(2, 2, std::vector<R4>{Above(fStn, 10), 1, fStn, 2}, JSort);
  EXPECT_EQ(JSort[0], 2) << "10 units apart are different";
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
    ASSERT_EQ(SelectK_R4(20, 40, fKey), 0);  // must end, within its array
  }
}

TEST(SortUtil, ABracketIsFoundInEitherDirection) {
  const std::vector<R4> fRising{1, 2, 2, 4, 8, 16, 32}, fFalling{32, 16, 8, 4, 2, 2, 1};
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
    EXPECT_EQ(Hunt_Bracket_R4(7, fRising, h.fValue), h.JRising) << h.sWhy;
    EXPECT_EQ(Hunt_Bracket_R4(7, fFalling, h.fValue), h.JFalling) << h.sWhy;
  }
  EXPECT_EQ(Hunt_Bracket_R8(9, std::vector<R8>{3}, 1), 1) << "one item brackets everything";
  EXPECT_EQ(Hunt_Bracket_R8(0, std::vector<R8>{}, 1), 0);
}

TEST(SortUtil, OnlyThePartOfATableThatIsUsedFollowsAnOrder) {
  std::vector<I4> i{10, 20, 30, 40};
  Reorder_I4(3, Places{3, 1, 2}, i);
  EXPECT_EQ(i, (std::vector<I4>{30, 10, 20, 40}));
}

TEST(SortUtil, TheKthSmallestPartsTheOthers) {
  for (const std::size_t N : {1U, 2U, 3U, 40U}) {
    const std::vector<R4> fStn = Random_Stations(N, 7);
    for (std::size_t k = 0; k < N; ++k) {
      std::vector<R4> fWork = fStn;
      ASSERT_EQ(SelectK_R4(static_cast<I4>(k) + 1, Count(fWork), fWork), 0);
      const auto it = fWork.begin() + static_cast<std::ptrdiff_t>(k);
      ASSERT_TRUE(std::all_of(fWork.begin(), it, [&](R4 f) { return f <= *it; }));
      ASSERT_TRUE(std::all_of(it, fWork.end(), [&](R4 f) { return f >= *it; }));
    }
  }
  std::vector<R4> fItem{3, 1, 2};
  for (const I4 K : {0, 4, -1}) EXPECT_EQ(SelectK_R4(K, 3, fItem), 1);
  EXPECT_EQ(SelectK_R4(1, 0, fItem), 1);
  EXPECT_EQ(fItem, (std::vector<R4>{3, 1, 2})) << "a place beyond the items changes nothing";
}

}  // namespace
}  // namespace quillan
