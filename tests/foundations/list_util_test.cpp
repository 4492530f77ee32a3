#include "foundations/list_util.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillan {
namespace {

TEST(ListUtil, TheNearestItemIsTheLowerOneOnTies) {
  const std::vector<R4> fList{1, 2, 4};
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
    const NearestItem hFound = List_Nearest_R4(h.fValue, h.NList, fList);
    EXPECT_EQ(hFound.iMatch, h.iMatch) << h.fValue;
    EXPECT_EQ(hFound.fDVmin, h.fDVmin) << h.fValue;
  }
}

}  // namespace
}  // namespace quillan
