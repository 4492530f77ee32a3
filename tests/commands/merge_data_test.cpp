#include "commands/merge_data.h"

#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(MergeData, WithoutAPairOfTransientsNothingIsAsked) {
  Begin_Test();
  EXPECT_EQ(MergeChn(), 1);
  EXPECT_EQ(Shown("ERROR: No valid data present."), 1);
  Load({TransientBuilder().Values({1})});
  EXPECT_EQ(MergeChn(), 0);
  EXPECT_EQ(NTextBuffer, 0);
  Load({TransientBuilder().Values({1}), TransientBuilder().Values({2})});
  EXPECT_EQ(MergeChn(), 2) << "nobody is there to answer";
}

}  // namespace
}  // namespace quillan
