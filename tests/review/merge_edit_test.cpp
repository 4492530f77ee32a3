#include "review/merge_edit.h"

#include <gtest/gtest.h>

#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(MergeChoice, OffersTheFirstSixComponentsInTheirOrder) {
  Begin_Test();
  for (const I4 iCmp : {9, 6, 4, 6, 1, 7, 2, 3}) hTrn(++NTrn) = TransientBuilder().Component(iCmp).Values({1});
  const MergeChoice h = Merge_Choice();
  EXPECT_EQ(h.NTW, 2) << "a taper needs two windows";
  EXPECT_EQ(h.NMergeCmp, 6);
  EXPECT_EQ(h.iMergeCmp, (Array1<I4, MMergeRow>{1, 2, 3, 4, 6, 7}));
}

TEST(MergeChoice, KnowsTheLongestTransient) {
  Load({TransientBuilder().Values({3, 2, 1}), TransientBuilder().Values({5, 4, 3, 2, 1}), TransientBuilder()});
  const MergeChoice h = Merge_Choice();
  EXPECT_EQ(h.NTW, 5);
  EXPECT_EQ(h.NMergeCmp, 1);
  EXPECT_EQ(h.iMergeCmp(1), iCmpHz);
}

}  // namespace
}  // namespace quillan
