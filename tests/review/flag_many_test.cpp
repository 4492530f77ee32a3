#include "review/flag_many.h"

#include <gtest/gtest.h>

#include "review/qcs_sections.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

Transient At(R8 dStn, std::initializer_list<R4> fuVmag, I4 iRxCmp = iCmpHz) {
  return TransientBuilder().Station(dStn).Values(fuVmag).Component(iRxCmp);
}

TEST(FlagMany, AWindowIsTakenWhereverItsSectionHasIt) {
  Load({
      At(1, {5, 4, 3}),
      At(2, {5}),
      At(3, {5, fDummy, 3}),
      At(1, {5, 4, 3}, iCmpHx),
  });
  QCS_Initialize();
  ASSERT_EQ(QCS_Allocate(), 0);
  EXPECT_EQ(QCS_Flag_Window(true, 1, 2), 2) << "one is too short, one of another component";
  EXPECT_EQ(Skipped(1) + " " + Skipped(2) + " " + Skipped(3) + " " + Skipped(4), "-X- - -X- ---");
  EXPECT_FALSE(hTrn(2).bSkip(2)) << "beyond the end of the short one";
  EXPECT_EQ(QCS_Flag_Window(false, 1, 2), 2);
  EXPECT_EQ(Skipped(1), "---");
}

TEST(FlagMany, LaterWindowsRunToTheEndOfTheSounding) {
  Load({At(1, {5, 4, fDummy, 2})});
  EXPECT_EQ(Flag_Later_Windows(true, 1, 2), 3);
  EXPECT_EQ(Skipped(1), "-XXX") << "also where a plot shows no point";
  EXPECT_EQ(Flag_Later_Windows(false, 1, 4), 1);
  EXPECT_EQ(Skipped(1), "-XX-");
}

}  // namespace
}  // namespace quillan
