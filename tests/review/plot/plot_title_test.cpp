#include "review/plot/plot_title.h"

#include <gtest/gtest.h>

namespace quillan {
namespace {

TEST(PlotTitle, MakesRoomOnlyForAToolWindowThatHidesSome) {
  const struct {
    GrBox hTool;
    TitleRoom hRoom;
    const char* sWhere;
  } hCases[] = {
      {{0.75f, 0.0f, 1.0f, 0.4f},   {0.0f, 0.745f}, "at the right end"      },
      {{0.3f, -0.1f, 0.9f, 0.01f},  {0.0f, 0.5f},   "in the middle"         },
      {{0.1f, 0.0f, 0.35f, 0.4f},   {0.355f, 1.0f}, "at the left end"       },
      {{0.75f, 0.06f, 1.0f, 0.4f},  {0.0f, 1.0f},   "below the title"       },
      {{0.75f, -0.4f, 1.0f, -0.1f}, {0.0f, 1.0f},   "above the drawing area"},
      {{1.0f, 0.0f, 1.3f, 0.4f},    {0.0f, 1.0f},   "beside the main window"},
  };
  for (const auto& h : hCases) {
    const TitleRoom hRoom = Room_Beside(h.hTool, 0.06f);
    EXPECT_NEAR(hRoom.fBegin, h.hRoom.fBegin, 1.0E-6f) << h.sWhere;
    EXPECT_NEAR(hRoom.fEnd, h.hRoom.fEnd, 1.0E-6f) << h.sWhere;
  }
}

}  // namespace
}  // namespace quillan
