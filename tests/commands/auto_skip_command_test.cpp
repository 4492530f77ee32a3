#include "commands/auto_skip_command.h"

#include <gtest/gtest.h>

#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(AutoSkip, WithoutDataNothingRuns) {
  Begin_Test();
  EXPECT_EQ(AutoSkip_Filter(), 1);
}

}  // namespace
}  // namespace quillan
