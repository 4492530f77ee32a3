#include "foundations/list_util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace quillan {
namespace {

using Reals = std::vector<R4>;
using Names = std::vector<std::string>;

constexpr R4 fAlmost32 = 32.0f * (1.0f + 50 * std::numeric_limits<R4>::epsilon());  // 50 units of the last place above

TEST(ListUtil, AppendingKeepsTheOrderOfArrivalAndKnowsNearCopies) {
  Reals fList(3);
  I4 NList = 0, iMatch = 9, iFlag = 9;
  const struct {
    R4 fValue;
    I4 NList, iMatch, iFlag;
    Reals fList;
    const char* sWhy;
  } hCase[] = {
      {32,        1, 1, 1, {32, 0, 0},  "an empty list takes the value"   },
      {16,        2, 2, 1, {32, 16, 0}, "a new value goes to the end"     },
      {fAlmost32, 2, 1, 0, {32, 16, 0}, "a near-copy is there"            },
      {8,         3, 3, 1, {32, 16, 8}, "the last room"                   },
      {4,         3, 3, 2, {32, 16, 4}, "a full list loses its last value"},
      {32,        3, 1, 0, {32, 16, 4}, "a full list still finds"         },
  };
  for (const auto& h : hCase) {
    List_Append_R4(h.fValue, NList, fList, iMatch, iFlag);
    EXPECT_EQ(NList, h.NList) << h.sWhy;
    EXPECT_EQ(iMatch, h.iMatch) << h.sWhy;
    EXPECT_EQ(iFlag, h.iFlag) << h.sWhy;
    EXPECT_EQ(fList, h.fList) << h.sWhy;
  }
}

TEST(ListUtil, InsertingKeepsTheListRising) {
  Reals fList(4);
  I4 NList = 0, iFlag = 9;
  const struct {
    R4 fValue;
    I4 iFlag;
    Reals fList;
    const char* sWhy;
  } hCase[] = {
      {32,        1, {32, 0, 0, 0},   "an empty list takes the value"                    },
      {fAlmost32, 0, {32, 0, 0, 0},   "a near-copy is there"                             },
      {8,         1, {8, 32, 0, 0},   "below all"                                        },
      {64,        1, {8, 32, 64, 0},  "above all"                                        },
      {16,        1, {8, 16, 32, 64}, "between"                                          },
      {20,        2, {8, 16, 20, 32}, "a full list loses its greatest value"             },
      {99,        2, {8, 16, 20, 99}, "above all of a full list the last one is replaced"},
  };
  for (const auto& h : hCase) {
    List_Insert_R4(h.fValue, NList, fList, iFlag);
    EXPECT_EQ(iFlag, h.iFlag) << h.sWhy;
    EXPECT_EQ(fList, h.fList) << h.sWhy;
  }
}

TEST(ListUtil, AListWithoutRoomTakesNothing) {
  Reals fList;
  I4 NList = 0, iMatch = 9, iFlag = 9;
  List_Append_R4(1, NList, fList, iMatch, iFlag);
  EXPECT_EQ(iFlag, 2);
  EXPECT_EQ(NList, 0);
  List_Insert_R4(1, NList, fList, iFlag);
  EXPECT_EQ(iFlag, 2);
  EXPECT_EQ(NList, 0);
}

TEST(ListUtil, TheBracketSaysHowFarTheNeighboursAre) {
  const Reals fList{1, 2, 4};
  const struct {
    R4 fValue;
    I4 NList, JLow;
    R4 fDV1, fDV2;
    const char* sWhy;
  } hCase[] = {
      {5,     0, 0, -1,    0,      "an empty list"             },
      {1,     1, 1, 0,     1,      "one item, the value itself"},
      {4,     1, 1, 3,     6,      "above one item"            },
      {0.75f, 1, 0, -1,    -0.25f, "just below one item"       },
      {-4,    1, 0, -10,   -5,     "far below one item"        },
      {2,     3, 2, 0,     2,      "an item of a list"         },
      {3.5f,  3, 2, 1.5f,  0.5f,   "between two"               },
      {4.25f, 3, 3, 0.25f, 1,      "just above the last"       },
      {9,     3, 3, 5,     10,     "far above the last"        },
      {-1,    3, 0, -4,    -2,     "below the first"           },
  };
  for (const auto& h : hCase) {
    for (I4 JLow = -1; JLow <= 4; ++JLow) {
      I4 JFound = JLow;
      R4 fDV1 = 9, fDV2 = 9;
      List_Bracket_R4(h.fValue, h.NList, fList, JFound, fDV1, fDV2);
      EXPECT_EQ(JFound, h.JLow) << h.sWhy;
      EXPECT_EQ(fDV1, h.fDV1) << h.sWhy;
      EXPECT_EQ(fDV2, h.fDV2) << h.sWhy;
    }
  }
}

TEST(ListUtil, SearchingFindsNearCopiesOnEitherSide) {
  const Reals fList{8, 16, 32};
  const struct {
    R4 fValue;
    I4 NList, iMatch;
  } hCase[] = {
      {8, 3, 1},
      {16, 3, 2},
      {fAlmost32, 3, 3},
      {std::nextafter(16.0f, 0.0f), 3, 2},
      {std::nextafter(8.0f, 0.0f), 3, 1},
      {20, 3, 0},
      {7, 3, 0},
      {99, 3, 0},
      {32, 2, 0},
      {8, 0, 0},
      {1.0E10f, 0, 0},
      {-1.0E10f, 0, 0}
  };
  for (const auto& h : hCase) {
    I4 iMatch = 9;
    List_Search_R4(h.fValue, h.NList, fList, iMatch);
    EXPECT_EQ(iMatch, h.iMatch) << h.fValue << " in " << h.NList;
  }
}

TEST(ListUtil, TheNearestItemIsTheLowerOneOnTies) {
  const Reals fList{1, 2, 4};
  const struct {
    R4 fValue;
    I4 NList, iMatch;
    R4 fDVmin;
  } hCase[] = {
      {3,     3, 2, 1      },
      {3.5f,  3, 3, 0.5f   },
      {2.5f,  3, 2, 0.5f   },
      {-7,    3, 1, -8     },
      {0.75f, 1, 1, -0.25f },
      {9,     3, 3, 5      },
      {4,     3, 3, 0      },
      {1,     0, 0, 1.0E32f}
  };
  for (const auto& h : hCase) {
    I4 iMatch = 9;
    R4 fDVmin = 9;
    List_Nearest_R4(h.fValue, h.NList, fList, iMatch, fDVmin);
    EXPECT_EQ(iMatch, h.iMatch) << h.fValue;
    EXPECT_EQ(fDVmin, h.fDVmin) << h.fValue;
  }
}

TEST(ListUtil, WholeNumbersCompareExactlyAtAnyDistance) {
  constexpr I4 iLow = std::numeric_limits<I4>::min(), iHigh = std::numeric_limits<I4>::max();
  std::vector<I4> iList(4);
  I4 NList = 0, iFlag = 9, iMatch = 9, iDVmin = 9;
  for (const I4 iValue : {iHigh, iLow, 0, iHigh - 1, iHigh}) List_Insert_I4(iValue, NList, iList, iFlag);
  EXPECT_EQ(iFlag, 0);
  EXPECT_EQ(iList, (std::vector<I4>{iLow, 0, iHigh - 1, iHigh}));
  List_Search_I4(1, NList, iList, iMatch);
  EXPECT_EQ(iMatch, 0);
  List_Search_I4(iHigh - 1, NList, iList, iMatch);
  EXPECT_EQ(iMatch, 3);
  List_Nearest_I4(iHigh, 1, iList, iMatch, iDVmin);
  EXPECT_EQ(iMatch, 1);
  EXPECT_EQ(iDVmin, iHigh) << "the difference is held to what a number can hold";
  List_Nearest_I4(5, 0, iList, iMatch, iDVmin);
  EXPECT_EQ(iMatch, 0);
  EXPECT_EQ(iDVmin, 2147483646);
}

TEST(ListUtil, DoublesHaveTheirOwnTolerance) {
  std::vector<R8> dList{1.0, 2.0};
  I4 iMatch = 9;
  List_Search_R8(2.0 + 50 * std::numeric_limits<R8>::epsilon(), 2, dList, iMatch);
  EXPECT_EQ(iMatch, 2);
  List_Search_R8(2.0 + 1.0E-9, 2, dList, iMatch);
  EXPECT_EQ(iMatch, 0);
  R8 dDVmin = 0;
  List_Nearest_R8(9.0, 0, dList, iMatch, dDVmin);
  EXPECT_EQ(dDVmin, 1.0E32);
}

TEST(ListUtil, NamesAreOrderedLexicallyAndKnownInAnyCase) {
  Names sList(3);
  I4 NList = 0, iFlag = 9, iMatch = 9, iDVmin = 9;
  List_Insert_Sn("line 20", NList, sList, iFlag);
  List_Insert_Sn("line 10  ", NList, sList, iFlag);
  List_Insert_Sn("LINE 10", NList, sList, iFlag);
  EXPECT_EQ(iFlag, 0);
  EXPECT_EQ(sList, (Names{"line 10", "line 20", ""}));
  List_Search_Sn("line 20", NList, sList, iMatch);
  EXPECT_EQ(iMatch, 2);
  List_Search_Sn("line 21", NList, sList, iMatch);
  EXPECT_EQ(iMatch, 0);
  I4 JLow = 0, iDV1 = 9, iDV2 = 9;
  List_Bracket_Sn("line 11", NList, sList, JLow, iDV1, iDV2);
  EXPECT_EQ(JLow, 1);
  EXPECT_EQ(iDV1, 1);
  EXPECT_EQ(iDV2, 2);
  List_Append_Sn("Line 20", NList, sList, iMatch, iFlag);
  EXPECT_EQ(iMatch, 2);
  EXPECT_EQ(iFlag, 0);

  const Names sUnordered{"zebra", "line", "lane"};
  List_Nearest_Sn("lime", 3, sUnordered, iMatch, iDVmin);
  EXPECT_EQ(iMatch, 2);
  EXPECT_EQ(iDVmin, 1);
  List_Nearest_Sn("lxne", 3, sUnordered, iMatch, iDVmin);
  EXPECT_EQ(iMatch, 2) << "the first of those as near";
  List_Nearest_Sn("lime", 0, sUnordered, iMatch, iDVmin);
  EXPECT_EQ(iMatch, 0);
  EXPECT_EQ(iDVmin, 2147483646);
}

}  // namespace
}  // namespace quillan
