#include "commands/auto_skip_command.h"

#include <gtest/gtest.h>

#include "support/survey_builder.h"

namespace quillan {
namespace {

TEST(AutoSkip, WithoutDataNothingRuns) {
  Begin_Test();
  I4 iError = 0;
  AutoSkip_Filter(iError);
  EXPECT_EQ(iError, 1);
}

}  // namespace
}  // namespace quillan
