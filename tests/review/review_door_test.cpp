#include "review/review_door.h"

#include <gtest/gtest.h>

#include "review/qcc_review.h"
#include "review/qcs_sections.h"
#include "review/tool_window.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

I4 First_Review(I4 iFlag0, R4 fStnMin, R4 fStnMax) {
  TEM_Review_Initialize();
  hDoor.iFlag0 = iFlag0;
  hSection(1).fStnMin = fStnMin;
  hSection(1).fStnMax = fStnMax;
  return TEM_First_Review();
}

TEST(ReviewDoor, OpensTheLastReviewOrTheOneThatShowsSomething) {
  EXPECT_EQ(First_Review(0, 100.0f, 200.0f), iFlagSection);
  EXPECT_EQ(First_Review(0, 0.0f, 0.005f), iFlagCurve);
  EXPECT_EQ(First_Review(0, 0.0f, 0.01f), iFlagCurve);
  EXPECT_EQ(First_Review(0, 0.0f, 0.011f), iFlagSection);
  EXPECT_EQ(First_Review(0, fRangeMin0, fRangeMax0), iFlagCurve);  // no section
  EXPECT_EQ(First_Review(iFlagCurve, 100.0f, 200.0f), iFlagCurve);
  EXPECT_EQ(First_Review(iFlagSection, 0.0f, 0.0f), iFlagSection);
}

TEST(ReviewDoor, AnEmptyStoreHasNothingToReview) {
  Begin_Test();
  EXPECT_EQ(TEM_Review_Data().iFlag, 0);
  EXPECT_EQ(TEM_Review_Data().iError, 1);
  EXPECT_EQ(QCC_Review(7).iFlag, iFlagExit);
}

TEST(ToolWindow, ASweepOfTheTrackbarTakesAtMostTwentySteps) {
  const struct {
    I4 N, iStep;
  } hCase[] = {
      {1,    1  },
      {20,   1  },
      {21,   2  },
      {41,   2  },
      {42,   4  },
      {100,  8  },
      {4096, 256},
  };
  for (const auto& h : hCase) EXPECT_EQ(Tool_Trackbar_Step(h.N), h.iStep) << h.N;
}

}  // namespace
}  // namespace quillan
