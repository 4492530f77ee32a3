#include "review/plot/plot_range.h"

#include <gtest/gtest.h>

namespace quillan {
namespace {

void Expect_Shaped(R4 fYXArea, const GrBox& hBox, const GrBox& hWanted) {
  const GrBox h = Shaped_Zoom_Box(fYXArea, hBox);
  EXPECT_FLOAT_EQ(h.fX1, hWanted.fX1);
  EXPECT_FLOAT_EQ(h.fY1, hWanted.fY1);
  EXPECT_FLOAT_EQ(h.fX2, hWanted.fX2);
  EXPECT_FLOAT_EQ(h.fY2, hWanted.fY2);
}

TEST(PlotZoom, ASmallBoxIsWidenedAboutItsMiddleAndALargeOneStays) {
  const GrBox hSmall = Zoom_Box({10, 10, 10, 10.5f}), hLarge = Zoom_Box({1, 2, 5, 8});
  EXPECT_EQ(hSmall.fX1, 9.0f);
  EXPECT_EQ(hSmall.fX2, 11.0f);
  EXPECT_FLOAT_EQ(hSmall.fY1, 9.55f);
  EXPECT_FLOAT_EQ(hSmall.fY2, 10.95f);
  EXPECT_EQ(hLarge.fX2, 5.0f);
  EXPECT_EQ(hLarge.fY1, 2.0f);
}

TEST(PlotZoom, ABoxGetsTheShapeOfTheAreaAboutItsMiddle) {
  // In an area half as high as wide.
  Expect_Shaped(0.5f, {2, 2, 10, 6}, {2, 2, 10, 6});
  Expect_Shaped(0.5f, {2, 2, 10, 3}, {2, 0.5f, 10, 4.5f});
  Expect_Shaped(0.5f, {5, 2, 7, 8}, {0, 2, 12, 8});
  // At least 2 wide and 1.4 high: here the height makes it 2.8 wide, there the width 4 high.
  Expect_Shaped(0.5f, {5, 5, 5.1f, 5.1f}, {3.65f, 4.35f, 6.45f, 5.75f});
  Expect_Shaped(2.0f, {5, 5, 5.2f, 5.2f}, {4.1f, 3.1f, 6.1f, 7.1f});
}

TEST(PlotZoom, ARangeThatLeavesTheFullOneIsShiftedBack) {
  const PlotRange hFull{100.0f, 200.0f, -2.0f, 3.0f};
  const struct {
    const char* sWhat;
    PlotRange hBox, hWanted;
  } hCases[] = {
      {"inside",                                                        {120, 150, -1, 2}, {120, 150, -1, 2}},
      {"all of it",                                                     {100, 200, -2, 3}, {100, 200, -2, 3}},
      {"left",                                                          {90, 120, -1, 2},  {100, 130, -1, 2}},
      {"right",                                                         {180, 210, -1, 2}, {170, 200, -1, 2}},
      {"below",                                                         {120, 150, -3, 0}, {120, 150, -2, 1}},
      {"above",                                                         {120, 150, 1, 4},  {120, 150, 0, 3} },
      {"left and below",                                                {90, 120, -3, -1}, {100, 130, -2, 0}},
      {"wider, left",                                                   {90, 220, -1, 2},  {100, 200, -1, 2}},
      {"wider, right",                                                  {110, 250, -1, 2}, {100, 200, -1, 2}},
      {"higher, from below: the top stops",                             {120, 150, -3, 4}, {120, 150, -2, 3}},
      {"higher, from above: the bottom goes where the height takes it", {120, 150, -1, 6}, {120, 150, -4, 3}},
  };
  for (const auto& c : hCases) {
    const PlotRange h = Shift_Inside(c.hBox, hFull);
    EXPECT_FLOAT_EQ(h.fXPmin, c.hWanted.fXPmin) << c.sWhat;
    EXPECT_FLOAT_EQ(h.fXPmax, c.hWanted.fXPmax) << c.sWhat;
    EXPECT_FLOAT_EQ(h.fYPmin, c.hWanted.fYPmin) << c.sWhat;
    EXPECT_FLOAT_EQ(h.fYPmax, c.hWanted.fYPmax) << c.sWhat;
  }
}

}  // namespace
}  // namespace quillan
